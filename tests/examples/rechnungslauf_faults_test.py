"""The invoice run of examples/rechnungslauf when it is killed, and when files and databases fail:
what it leaves behind then, and that the next run completes it.

rechnungslauf_faults_test.py FOLDER-OF-THE-SAMPLES COMMAND..., called by
tests/support/with_database.py
"""

import os
import random
import resource
import signal
import sqlite3
import subprocess
import sys
import time
import unittest

from examples_support import COMMAND, SAMPLE
from rechnungslauf_support import (FOLDER, ON_SQLITE, ON_WINDOWS, TABLES, InvoiceCase, wait_for)

MISSING_TABLE = "Eine Tabelle fehlt"
VIOLATION = "Ein Datensatz verletzt eine Bedingung der Datenbank"
UNREACHABLE = "Die Datenbank ist nicht erreichbar"
LOCKED = "Die Datenbank ist von einem anderen Programm gesperrt"
# A page of SQLite: what its files grow by.
PAGE = 4096
NOBODY = 65534


def limit_files(size, end):
    """For a new process: no file gets larger; what tries to is ended, or told that it failed."""
    def limit():
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))
        signal.signal(signal.SIGXFSZ, signal.SIG_DFL if end else signal.SIG_IGN)
    # Python would give the signal back its usual action.
    return {"preexec_fn": limit, "restore_signals": False}


class FaultCase(InvoiceCase):
    def setUp(self):
        super().setUp()
        self.data = self.small_sample()

    def undisturbed(self):
        """Report and state of a run that nothing disturbs, and how long it takes."""
        begin = time.monotonic()
        report, _ = self.good_call(data=self.data)
        seconds = time.monotonic() - begin
        state = self.state()
        self.forget()
        return report, state, seconds

    def loaded(self):
        """The state where everything is there but the invoices."""
        self.good_call("--until", "1.1.2000", data=self.data)
        return self.state()

    def end(self, process):
        out, errors = process.communicate(timeout=120)
        return (process.returncode, out.decode("utf-8").replace("\r\n", "\n"),
                errors.decode("utf-8", "replace"))

    def check_completed(self, report, state):
        """The next run makes of what is there what a run that nothing disturbs makes."""
        self.assertEqual(self.good_call(data=self.data)[0], report)
        self.assertEqual(self.state(), state)

    def check_all_or_nothing(self):
        if not self.database.has("Nummernkreis"):
            return
        invoiced = [int(count) for table, condition in (
            ("Rechnungen", "1 = 1"), ("Positionen", "1 = 1"), ("Auftraege", "Rechnung > 0"),
            ("Nummernkreis", "Naechste > 1"))
                    for count, in (self.database.rows(
                        f"SELECT COUNT(*) FROM {table} WHERE {condition}")
                        if self.database.has(table) else [("0",)])]
        self.assertIn(invoiced.count(0), (0, len(invoiced)), invoiced)


class Killed(FaultCase):
    """On a small sample, so that most of the time is not the end of it."""

    def kill_when(self, condition):
        """Whether the run was killed before it ended."""
        process = self.start(data=self.data)
        wait_for(lambda: process.poll() is not None or condition())
        process.kill()
        process.communicate(timeout=120)
        return process.returncode == -signal.SIGKILL

    def test_at_any_moment(self):
        report, state, seconds = self.undisturbed()
        dice, killed, wanted = random.Random(4711), 0, 3 if ON_WINDOWS else 40
        for _ in range(10 * wanted):
            begin = time.monotonic()
            end = begin + seconds * dice.random()
            if self.kill_when(lambda end=end: time.monotonic() >= end):
                killed += 1
                if killed % 4 == 0:  # and so is the run that was to complete it
                    end = time.monotonic() + seconds * dice.random()
                    self.kill_when(lambda end=end: time.monotonic() >= end)
            else:  # it takes less time than was thought
                seconds = min(seconds, time.monotonic() - begin)
            self.check_all_or_nothing()
            self.check_completed(report, state)
            self.forget()
            if killed == wanted:
                return
        self.fail(f"only {killed} runs were killed")

    def test_between_the_files(self):
        report, state, _ = self.undisturbed()
        files = len(state[1])
        self.assertGreater(files, 20)
        killed = 0
        for count in ((2, files // 2, files - 1) if ON_WINDOWS else
                      (1, 2, 3, files // 3, files // 2, files - 2, files - 1)):
            killed += self.kill_when(lambda count=count: self.file_count() >= count)
            self.check_completed(report, state)
            self.forget()
        self.assertGreater(killed, 1 if ON_WINDOWS else 3)

    def test_what_a_killed_run_left_beside_a_file(self):
        report, state, _ = self.undisturbed()
        self.out.mkdir()
        for name in list(state[1])[:3]:
            (self.out / (name + ".neu")).write_bytes(b"Rechn")
        self.check_completed(report, state)

    def test_files_that_are_gone_or_damaged(self):
        report, state, _ = self.undisturbed()
        self.good_call(data=self.data)
        names = sorted(state[1])
        (self.out / names[0]).unlink()
        (self.out / names[1]).write_bytes(state[1][names[1]][:-1])
        (self.out / names[-1]).write_bytes(b"")
        again, words = self.good_call(data=self.data)
        self.assertEqual(again, report)
        self.assertEqual(words, "0 Rechnungen mit 0 Positionen geschrieben, 3 Dateien abgelegt")
        self.assertEqual(self.state(), state)

    @unittest.skipIf(not ON_SQLITE or ON_WINDOWS, "a server writes its files itself")
    def test_at_each_size_of_the_database(self):
        """These are the same moments each time: in the journal, in the file, at the commit."""
        report, state, _ = self.undisturbed()
        self.good_call(data=self.data)
        pages = self.database.file.stat().st_size // PAGE
        self.forget()
        ended = 0
        for size in sorted({1, *range(0, pages, max(1, pages // 16)), pages - 1}):
            for beyond in (0, 600):
                process = self.start(data=self.data, **limit_files(size * PAGE + beyond, end=True))
                process.communicate(timeout=120)
                ended += process.returncode == -signal.SIGXFSZ
                self.check_all_or_nothing()
            self.check_completed(report, state)
            self.forget()
        self.assertGreater(ended, 16)


class Together(FaultCase):
    def test_two_runs_at_once(self):
        report, state, _ = self.undisturbed()
        for _ in range(2 if ON_WINDOWS else 5):
            results = [self.end(process) for process in
                       [self.start(data=self.data), self.start(data=self.data)]]
            for status, out, errors in results:
                if status == 0:
                    self.assertEqual(out, report)
                else:
                    self.check_failed((status, out, errors), "")
            self.check_completed(report, state)
            self.forget()

    @unittest.skipUnless(ON_SQLITE, "a lock for a whole database")
    def test_somebody_else_writes(self):
        loaded = self.loaded()
        connection = sqlite3.connect(self.database.file, isolation_level=None)
        connection.execute("BEGIN IMMEDIATE")
        self.check_failed(self.call(data=self.data), LOCKED)
        connection.execute("ROLLBACK")
        connection.close()
        self.assertEqual(self.state(), loaded)
        self.good_call(data=self.data)


class Broken(FaultCase):
    def check_nothing_changed(self, words, *call):
        before = self.state()
        self.check_failed(self.call(*call, data=self.data), words)
        self.assertEqual(self.state(), before)

    def test_a_table_is_missing(self):
        self.loaded()
        for table in TABLES:
            if table == "Nummernkreis":  # without it nothing is known to be there
                continue
            with self.subTest(table=table):
                self.database.execute(f"ALTER TABLE {table} RENAME TO Fort")
                self.check_nothing_changed(MISSING_TABLE)
                self.database.execute(f"ALTER TABLE Fort RENAME TO {table}")
        self.good_call(data=self.data)

    def test_the_number_range_is_missing(self):
        self.loaded()
        self.database.execute("DROP TABLE Nummernkreis")
        self.check_failed(self.call(data=self.data), VIOLATION)
        self.assertEqual(self.database.rows("SELECT * FROM Nummernkreis"), [])
        self.assertEqual(self.database.rows("SELECT * FROM Rechnungen"), [])

    def test_a_column_is_missing(self):
        self.loaded()
        for table, column in (("Kunden", "Ort"), ("Auftraege", "Preis"), ("Rechnungen", "Brutto"),
                              ("Positionen", "Netto")):
            with self.subTest(table=table):
                self.database.execute(f"ALTER TABLE {table} RENAME COLUMN {column} TO Fort")
                self.check_nothing_changed("Eine Tabelle hat andere Spalten")
                self.database.execute(f"ALTER TABLE {table} RENAME COLUMN Fort TO {column}")
        self.good_call(data=self.data)

    def test_a_constraint_is_violated_in_the_middle(self):
        report, state, _ = self.undisturbed()
        self.loaded()
        order = self.database.rows(
            "SELECT Nr FROM Auftraege WHERE Status = 'L' ORDER BY Kunde DESC LIMIT 1")[0][0]
        self.database.execute(f"INSERT INTO Positionen VALUES "
                              f"(999, 1, {order}, 'W', 'x', 1, NULL, '1', NULL, 19, '1')")
        self.check_nothing_changed(VIOLATION)
        self.database.execute("DELETE FROM Positionen")
        (self.out / "rechnungen-2000-01-01.csv").unlink()
        self.check_completed(report, state)

    @unittest.skipIf(ON_SQLITE, "texts are not limited there")
    def test_a_column_is_too_short(self):
        self.loaded()
        for table, column in (("Positionen", "Bezeichnung VARCHAR(3)"),
                              ("Rechnungen", "Name VARCHAR(3)"),
                              ("Rechnungen", "Brutto DECIMAL(3,2)")):
            with self.subTest(column=column):
                self.database.execute(f"ALTER TABLE {table} MODIFY {column}")
                self.check_nothing_changed("Ein Wert passt nicht in seine Spalte")
                self.database.execute(f"ALTER TABLE {table} MODIFY Bezeichnung VARCHAR(60)"
                                      if table == "Positionen" else
                                      f"ALTER TABLE {table} MODIFY Name VARCHAR(80), "
                                      "MODIFY Brutto DECIMAL(30,2)")
        self.good_call(data=self.data)

    def test_samples_that_cannot_be_read(self):
        for name in ("kunden", "artikel", "konditionen", "auftraege", "arbeitszeiten"):
            with self.subTest(name=name):
                file = self.data / f"{name}.csv"
                content = file.read_bytes()
                file.unlink()
                self.check_failed(self.call(data=self.data), f"{name}.csv: keine solche Datei")
                file.write_bytes(b"Nummer;Wert\n1;2\n")
                self.check_failed(self.call(data=self.data), f"{name}.csv: keine solche Datei")
                file.write_bytes(content)
        for table in TABLES:
            self.assertEqual(self.database.rows(f"SELECT * FROM {table}"), [])
        report, state, _ = self.undisturbed()
        self.check_completed(report, state)

    def test_an_archive_that_cannot_be_written(self):
        report, state, _ = self.undisturbed()
        (self.out / "rechnung-000005.arc").mkdir(parents=True)
        self.check_failed(self.call(data=self.data), "rechnung-000005.arc: kann nicht geschrieben")
        self.assertFalse(list(self.out.glob("*.neu")))
        (self.out / "rechnung-000005.arc").rmdir()
        self.check_completed(report, state)

    def test_a_folder_that_cannot_be_written(self):
        self.out.write_bytes(b"no folder")
        self.check_failed(self.call(data=self.data), "in diesen Ordner kann nicht geschrieben")
        self.assertFalse(self.database.has("Nummernkreis"))
        self.out.unlink()

    @unittest.skipIf(ON_WINDOWS, "files have limits there")
    def test_a_report_that_cannot_be_written(self):
        report, state, _ = self.undisturbed()
        with open("/dev/full", "wb") as full:
            process = subprocess.run([*COMMAND, *map(str, self.arguments(data=self.data))],
                                     stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual((process.returncode, process.stderr.decode("utf-8")),
                         (2, "rechnungslauf: Der Bericht kann nicht ausgegeben werden\n"))
        self.check_completed(report, state)


@unittest.skipUnless(ON_SQLITE, "files of a server are not ours")
class BrokenFile(FaultCase):
    @unittest.skipIf(ON_WINDOWS, "limits of processes")
    def test_it_cannot_grow(self):
        report, state, _ = self.undisturbed()
        before = self.loaded()
        (self.out / "rechnungen-2000-01-01.csv").unlink()
        size = self.database.file.stat().st_size
        for pages in (0, 1, 2):
            process = self.start(data=self.data, **limit_files(size + pages * PAGE, end=False))
            self.check_failed(self.end(process), "Die Datenbank kann nicht gelesen oder")
            self.assertEqual(self.state(), (before[0], {}))
        self.check_completed(report, state)

    @unittest.skipIf(ON_WINDOWS, "limits of processes")
    def test_there_is_no_space_for_the_sample(self):
        report, state, _ = self.undisturbed()
        self.loaded()
        size = self.database.file.stat().st_size
        self.forget()
        process = self.start(data=self.data, **limit_files(size - PAGE, end=False))
        self.check_failed(self.end(process), "Die Datenbank kann nicht gelesen oder")
        for table in TABLES:
            self.assertEqual(self.database.rows(f"SELECT * FROM {table}"), [])
        self.check_completed(report, state)

    @unittest.skipIf(ON_WINDOWS, "a file system of Linux")
    def test_there_is_no_space_left(self):
        """On a file system of its own, which is gone when the shell ends."""
        report, state, _ = self.undisturbed()
        self.loaded()
        size = self.database.file.stat().st_size
        small, kept = self.folder / "small", self.folder / "kept"
        small.mkdir()
        script = ('mount -t tmpfs -o size=$1 none "$2" || exit 77; cp "$3" "$2" || exit 77; '
                  'kept=$4; database=$2/handel.db; shift 4; "$@" --database "$database"; '
                  'status=$?; cp "$database" "$kept"; exit $status')
        # The journal needs room too: there is some for it, none for both.
        process = subprocess.run(
            ["unshare", "-m", "sh", "-c", script, "sh", str(size + 3 * PAGE), small,
             self.database.file, kept, *map(str, COMMAND), "--data", self.data, "--out", self.out],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if process.returncode == 77 or process.stderr.startswith(b"unshare: "):
            self.skipTest("no right to mount a file system")
        self.check_failed((process.returncode, process.stdout.decode(), process.stderr.decode()),
                          "Der Speicherplatz der Datenbank ist erschöpft")
        before = self.database.dump()
        self.database.file.write_bytes(kept.read_bytes())
        self.assertEqual(self.database.dump(), before)
        (self.out / "rechnungen-2000-01-01.csv").unlink()
        self.check_completed(report, state)

    def test_it_is_none(self):
        self.database.file.write_bytes(b"Das ist keine Datenbank, sondern ein Text.\n" * 50)
        self.check_failed(self.call(data=self.data),
                          "Die Datei ist keine Datenbank oder beschädigt")
        self.database.file.unlink()
        self.database.file.mkdir()
        self.check_failed(self.call(data=self.data), "Die Datei der Datenbank kann nicht geöffnet")
        self.database.file.rmdir()

    def test_its_name_is_none_for_a_connection(self):
        self.check_failed(self.run_example("--database", self.folder / "a;b", "--out", self.out),
                          "ein Strichpunkt ist hier nicht möglich")

    @unittest.skipIf(ON_WINDOWS, "rights of files")
    def test_it_must_not_be_written(self):
        before = self.loaded()
        self.database.file.chmod(0o444)
        self.folder.chmod(0o777)
        self.out.chmod(0o777)
        how = {"user": NOBODY, "group": NOBODY} if os.geteuid() == 0 else {}
        try:
            subprocess.run([*COMMAND, "--help"], stdout=subprocess.DEVNULL, check=True, **how)
        except (OSError, subprocess.CalledProcessError):
            self.skipTest("the program lies where another user cannot run it")
        self.check_failed(self.end(self.start(data=self.data, **how)),
                          "Die Datenbank darf nicht beschrieben werden")
        self.assertEqual(self.state(), before)
        self.database.file.chmod(0o644)


@unittest.skipIf(ON_SQLITE, "there is no server")
class BrokenServer(FaultCase):
    def command_server(self, what):
        """See tests/support/with_database.py."""
        file = FOLDER / f"server-{what}"
        file.touch()
        self.assertTrue(wait_for(lambda: not file.exists()), f"the server did not {what}")

    def test_it_dies_in_the_middle(self):
        report, state, seconds = self.undisturbed()
        failed = 0
        for attempt in range(2 if ON_WINDOWS else 6):
            begin = time.monotonic()
            process = self.start(data=self.data)
            time.sleep(seconds * (attempt + 1) / 8)
            self.command_server("kill")
            result = self.end(process)
            if result[0] != 0:
                self.check_failed(result, UNREACHABLE)
                failed += 1
            else:  # it takes less time than was thought
                seconds = min(seconds, time.monotonic() - begin)
            self.command_server("start")
            self.check_all_or_nothing()
            self.check_completed(report, state)
            self.forget()
        self.assertGreater(failed, 0)

    def test_it_is_not_there(self):
        self.database.arguments[1] = self.database.arguments[1].replace("PORT=", "PORT=1;X=")
        self.check_failed(self.call(data=self.data), UNREACHABLE)

    def test_it_knows_nobody_of_that_name(self):
        self.database.arguments[1] = self.database.connect("niemand")
        self.check_failed(self.call(data=self.data), "Die Datenbank weist die Anmeldung ab")

    def test_a_user_must_not_write(self):
        before = self.loaded()
        self.database.client("CREATE USER IF NOT EXISTS leser")
        self.database.client(f"GRANT SELECT ON {self.database.name}.* TO leser")
        self.database.arguments[1] = self.database.connect("leser")
        self.check_failed(self.call(data=self.data), "Die Datenbank darf nicht beschrieben werden")
        self.assertEqual(self.state(), before)

    def test_it_only_reads(self):
        before = self.loaded()
        self.database.client("CREATE USER IF NOT EXISTS schreiber")
        self.database.client(f"GRANT ALL ON {self.database.name}.* TO schreiber")
        self.database.client("SET GLOBAL read_only = 1")
        self.addCleanup(self.database.client, "SET GLOBAL read_only = 0")
        self.database.arguments[1] = self.database.connect("schreiber")
        self.check_failed(self.call(data=self.data), "Die Datenbank darf nicht beschrieben werden")
        self.assertEqual(self.state(), before)


class Calls(InvoiceCase):
    def test_unusable_calls(self):
        for words, *arguments in (
                ("unbekannte Angabe: --foo ", "--foo"), ("unbekannte Angabe: x ", "x"),
                ("--dsn: Angabe fehlt ", "--dsn"), ("--until: Angabe fehlt ", "--until"),
                ("--dsn und --database ", "--dsn", "a", "--database", "b"),
                ("--dsn und --driver ", "--dsn", "a", "--driver", "b"),
                ("--until: Wert außerhalb", "--until", "31.02.2024"),
                ("--until: Format nicht", "--until", "bald"),
                ("--until: ein Jahr", "--until", "31.12.1899"),
                ("--until: ein Jahr", "--until", "1.1.2200"),
                ("nix: kann nicht gelesen", "--show", "nix"),
                ("kunden.csv: kein Archiv einer Rechnung", "--show", SAMPLE / "kunden.csv"),
                ("Der ODBC-Treiber oder die Datenquelle fehlt", "--dsn", "Driver=nix", "--out",
                 self.out)):
            with self.subTest(arguments=arguments):
                self.check_failed(self.run_example(*arguments), words)

    def test_help(self):
        status, out, errors = self.run_example("--help")
        self.assertEqual((status, errors), (0, ""))
        for option in ("--dsn", "--database", "--driver", "--data", "--out", "--until", "--show"):
            self.assertIn(f"\n  {option} ", out)


class DamagedArchives(FaultCase):
    def test_every_length_and_many_bytes(self):
        self.good_call(data=self.data)
        content = (self.out / "rechnung-000001.arc").read_bytes()
        damaged = self.folder / "damaged.arc"
        dice = random.Random(17)
        step = 150 if ON_WINDOWS else 7
        for length in range(0, len(content), step):
            damaged.write_bytes(content[:length])
            self.check_failed(self.run_example("--show", damaged), "kein Archiv einer Rechnung")
        for _ in range(6 if ON_WINDOWS else 60):
            place = int(dice.random() * len(content))
            damaged.write_bytes(content[:place] + bytes([int(dice.random() * 256)]) +
                                content[place + 1:])
            status, _, errors = self.run_example("--show", damaged)
            self.assertIn(status, (0, 2), errors)
        damaged.write_bytes(content + b"x")
        self.check_failed(self.run_example("--show", damaged), "kein Archiv einer Rechnung")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
