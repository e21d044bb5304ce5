"""What the tests of the example programs share. They are called with the folder of the samples and
the command that runs the program."""

import csv
import pathlib
import subprocess
import sys
import tempfile
import unittest

SAMPLE = pathlib.Path(sys.argv[1])
COMMAND = sys.argv[2:]

sys.path.insert(0, str(SAMPLE))
import make_auftraege  # noqa: E402  (lies beside its data)

REASONS = {8: "Wert außerhalb des Wertebereichs", 11: "Der Eingabetext ist zu lang",
           21: "Format nicht eingehalten", 24: "Fehler bei Berechung mit Dezimalwerten",
           101: "Zelle fehlt", 102: "Zu viele Zellen", 103: "Anführungszeichen falsch gesetzt"}

ORDER_COLUMNS = ";".join(make_auftraege.COLUMNS) + "\n"


def german(number):
    return f"{number:,}".translate(str.maketrans(",.", ".,"))


def broken_orders():
    """{line number: broken row} of the sample; the script that makes it has them."""
    broken = sorted(make_auftraege.BROKEN_ROWS.items())
    return {1 + after + number: row for number, (after, row) in enumerate(broken, 1)}


def good_orders():
    """The cells of each order of the sample that is none of the broken rows."""
    broken = broken_orders()
    lines = (SAMPLE / "auftraege.csv").read_text("utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        if number in broken:
            assert line == broken[number].row.rstrip("\n"), line
        elif number > 1:
            yield from csv.reader([line], delimiter=";")


def refused_orders():
    """What the programs say of the broken rows."""
    return [f"Aufträge, Zeile {line}{'' if row.column == '-' else ', ' + row.column}: "
            f"{row.reason or REASONS[row.cause]}" for line, row in broken_orders().items()]


class ExampleCase(unittest.TestCase):
    """Each test has a folder of its own."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="example-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content.encode("utf-8"))
        return path

    def run_example(self, *arguments):
        process = subprocess.run([*COMMAND, *map(str, arguments)], stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, timeout=120, check=False)
        return (process.returncode, process.stdout.decode("utf-8").replace("\r\n", "\n"),
                process.stderr.decode("utf-8", "replace"))

    def check_unusable(self, *arguments):
        """Such a call ends with status 2 and one line that says why."""
        with self.subTest(arguments=arguments):
            status, out, errors = self.run_example(*arguments)
            self.assertEqual((status, out), (2, ""))
            self.assertEqual(errors.count("\n"), 1)
