"""What the tests of zelconv share: running the program, and its forms written and read by code of
their own, straight from docs/zelconv.md."""

import datetime
import os
import pathlib
import struct
import subprocess
import tempfile
import unittest
import zlib

ZELCONV = os.environ["ZELCONV"]
SAMPLE = pathlib.Path(os.environ["ZELCONV_SAMPLE"])

# How archives keep the numbers that are not texts. A time is its count of 1/1200 hours.
NUMBER_CODES = {"long": "<i", "short": "<h", "double": "<d", "bool": "<i", "time": "<i"}

FOLLOW_UP = "Default-Catch / Folgefehler"
TEXTS = {
    5: "Ungültiger Initialwert",
    8: "Wert außerhalb des Wertebereichs",
    11: "Der Eingabetext ist zu lang",
    14: "Falsche Versionsnummer",
    18: "Ungültige Externe Darstellung",
    20: "Format nicht zugelassen",
    21: "Format nicht eingehalten",
    24: "Fehler bei Berechung mit Dezimalwerten",
    25: "Tagesangabe ist ungültig oder nicht zur Monatsangabe passend",
    26: "Monatsangabe ist ungültig, d.h. <1 oder > 12",
    27: "Jahresangabe ist ungültig, Jahreszahl < 1753",
    28: "Stundenangabe ist ungültig, d.h. <0 oder > 23",
    29: "Minutenangabe ist ungültig, d.h. < 0 oder > 59",
    30: "Sekundenangabe ist ungültig, d.h. <0 oder > 59",
    101: "Zu wenige Zellen",
    102: "Zu viele Zellen",
    103: "Anführungszeichen falsch gesetzt",
    106: "NUL-Byte im Text",
    111: "Externer Text käme nicht unverändert zurück",
    112: "Zahl hat mehr Stellen, als ihr Typ fasst",
    113: "Wert käme nicht unverändert in die Ausgabe",
    114: "Uhrzeit bei einem Datum",
}

# What the runtime checks of a sanitizer build write.
SANITIZER_MARKS = (b"Sanitizer", b"runtime error:")


class Result:
    def __init__(self, process):
        self.status = process.returncode
        self.out = process.stdout
        self.errors = process.stderr.decode("utf-8", "replace")
        self.raw_errors = process.stderr


class ZelconvCase(unittest.TestCase):
    """Each test has a folder of its own."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zelconv-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode("utf-8"))
        return path

    def read(self, name):
        return (self.folder / name).read_bytes()

    def names(self):
        return sorted(entry.name for entry in self.folder.iterdir())

    def run_zelconv(self, *arguments, stdin=b"", timeout=120):
        """Runs the program in the folder. However it ends, it ends by itself and in order."""
        process = subprocess.run([ZELCONV, *map(str, arguments)], input=stdin, cwd=self.folder,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=timeout,
                                 check=False)
        result = Result(process)
        self.assertIn(result.status, (0, 1, 2), result.errors)
        for mark in SANITIZER_MARKS:
            self.assertNotIn(mark, result.raw_errors)
        return result

    def convert(self, source, target, columns, content, *options, status=0):
        """Converts `content` through standard streams and returns what comes out."""
        if isinstance(content, str):
            content = content.encode("utf-8")
        arguments = ["--from", source, "--to", target, *options]
        if columns:
            arguments += ["--columns", columns]
        if target == "sql" and "--table" not in options:
            arguments += ["--table", "T"]
        result = self.run_zelconv(*arguments, "-", "-", stdin=content)
        self.assertEqual(result.status, status, result.errors)
        return result.out

    def rejects_of(self, columns, content, *options, source="csv", target="csv"):
        """The rejects of a conversion in which some rows are rejected, and the output."""
        self.write("in", content)
        arguments = ["--columns", columns] if columns else []
        result = self.run_zelconv("--from", source, "--to", target, *arguments, *options,
                                  "--rejects", "rejects", "in", "out")
        self.assertEqual(result.status, 1, result.errors)
        return parse_rejects(self.read("rejects")), self.read("out")


class CellsCase(ZelconvCase):
    """Cells of one type, and rows with one bad cell."""

    def cell(self, kind, text, target="sql", *options):
        """What becomes of one cell of CSV."""
        quoted = text.replace('"', '""')
        out = self.convert("csv", target, f"N:{kind}", f'N\n"{quoted}"\n', *options).decode()
        if target == "sql":
            self.assertTrue(out.startswith("INSERT INTO T (N) VALUES (") and out.endswith(");\n"))
            return out[26:-3]
        return out.split("\n", 1)[1].split("\n#end")[0].removesuffix("\n")

    def check_rejects(self, found, expected):
        """expected: [(line, column, cause, row)] for errors that were found inside others; with the
        outer number behind them where that is the cause itself. Causes from 101 on are zelconv's
        own."""
        rows = []
        for line, column, cause, row, *outer in expected:
            error = cause if cause >= 101 else (outer or [1])[0]
            rows.append((line, column.encode(), error,
                         (FOLLOW_UP if error == 1 else TEXTS[error]).encode(), cause,
                         TEXTS[cause].encode(), row.encode()))
        self.assertEqual(found, rows)

    def check_bad_cells(self, kind, cells, *options, target="csv"):
        """cells: [(text, cause)]"""
        content = "N\n" + "".join(f'"{text}"\n' for text, _ in cells)
        found, _ = self.rejects_of(f"N:{kind}", content, "--table", "T", *options, target=target)
        self.check_rejects(found, [(line, "N", cause, f'"{text}"\n')
                                   for line, (text, cause) in enumerate(cells, 2)])

    def check_bad_extern_cells(self, columns, good, cells, good_csv):
        """cells: [(index of the column, cell, cause)], with the outer number behind where it is
        not 1; the other columns hold what `good` has. A row of `good` alone gives `good_csv`."""
        header = "\t".join(["#zelconv-extern 1", *(f"{name}:{kind}" for name, kind in columns)])
        rows = ["\t".join(good[:index] + [cell] + good[index + 1:]) for index, cell, *_ in cells]
        content = "\n".join([header, *rows, "\t".join(good), f"#end\t{len(rows) + 1}", ""])
        found, out = self.rejects_of(None, content, source="extern")
        names = [name for name, _ in columns]
        self.assertEqual(out.decode(), ";".join(names) + "\n" + good_csv)
        self.check_rejects(found, [(line, names[index], cause, row + "\n", *outer)
                                   for line, (row, (index, _, cause, *outer))
                                   in enumerate(zip(rows, cells), 2)])


    def sorted_cells(self, kind, cells):
        content = "N;Position\n" + "".join(f"{cell};{i}\n" for i, cell in enumerate(cells))
        out = self.convert("csv", "csv", f"N:{kind},Position:long", content, "--sort", "N")
        return [cells[int(line.split(";")[1])] for line in out.decode().splitlines()[1:]]

    def check_order(self, kind, cells):
        """Sorting brings the cells into this order, whatever theirs was."""
        for rotation in range(len(cells)):
            with self.subTest(kind=kind, rotation=rotation):
                self.assertEqual(
                    self.sorted_cells(kind, cells[rotation:] + cells[:rotation]), cells)


class HostileCase(CellsCase):
    """Archives of one value whose checksum is right, so it is the value that must be looked at."""

    def archive_of(self, kind, value):
        content = b"ZELCONV\x1A" + struct.pack("<HH", 1, 1) + archive_text(b"N")
        content += archive_text(kind.encode()) + struct.pack("<HH", 1, 0) + b"\x01" + value
        return summed(content + b"\0" + struct.pack("<Q", 1))

    def refuse(self, content, target="csv"):
        self.write("in", content)
        result = self.run_zelconv("--from", "archive", "--to", target, "in", "out")
        self.assertEqual((result.status, self.names()), (2, ["in"]), result.errors)
        self.assertEqual(result.errors.count("\n"), 1, result.errors)

    def check_cut_and_damaged(self, kind, value):
        """A value that is cut off is refused; one with a damaged byte ends in order."""
        for length in range(len(value)):
            with self.subTest(kind=kind, length=length):
                # What is read until then must not be a reject, which would be told of.
                self.refuse(self.archive_of(kind, value[:length]), target="archive")
        for position in range(len(value)):
            for bits in (0x01, 0x10, 0x80, 0xFF):
                damaged = bytearray(value)
                damaged[position] ^= bits
                for target in ("extern", "sql"):
                    self.run_zelconv("--from", "archive", "--to", target, "--table", "T", "-", "-",
                                     stdin=self.archive_of(kind, bytes(damaged)))


def parse_rejects(content):
    """[(line, column, error, text, cause, cause text, the row's bytes)]; texts as bytes."""
    rejects = []
    while content:
        head, content = content.split(b"\n", 1)
        mark, line, column, error, text, cause, cause_text, size = head.split(b"\t")
        assert mark == b"#zelconv", head
        row, content = content[:int(size)], content[int(size):]
        if not row.endswith(b"\n"):
            assert content.startswith(b"\n"), content[:20]
            content = content[1:]
        rejects.append((int(line), column, int(error), text, int(cause), cause_text, row))
    return rejects


def archive_text(text):
    length = len(text)
    if length < 0xFF:
        return bytes([length]) + text
    if length < 0xFFFE:
        return b"\xFF" + struct.pack("<H", length) + text
    return b"\xFF\xFF\xFF" + struct.pack("<I", length) + text


def decimal_text(number):
    """The extern text of a decimal.Decimal: a digit, a point, the other digits, the exponent."""
    sign, digits, exponent = number.as_tuple()
    if not number:
        return "0E+000"
    digits = "".join(map(str, digits))
    exponent += len(digits) - 1
    return f"{'-' * sign}{digits[0]}.{digits[1:]}E{'-' if exponent < 0 else '+'}{abs(exponent):03}"


def archive_value(kind, value):
    """A value that is None is undefined."""
    defined = struct.pack("<I", 0 if value is None else 1)
    if kind in NUMBER_CODES:
        return defined + struct.pack(NUMBER_CODES[kind], value or 0)
    if kind.startswith("decimal"):
        text = "" if value is None else decimal_text(value)
        return defined + archive_text(text.encode("ascii")) + struct.pack("<H", 100)
    if kind == "char":
        return defined + (value or "\0").encode("cp1252")
    if kind in ("datetime", "date"):
        value = value or datetime.datetime(1900, 1, 1)
        fields = [value.year - 1900, value.month - 1, value.day]
        if kind == "datetime":
            fields = [value.second, value.minute, value.hour, *fields]
        return defined + struct.pack(f"<{len(fields)}i", *fields)
    return defined + archive_text((value or "").encode("cp1252"))


def archive(columns, rows, mode=0):
    """columns: [(name, type)]; rows: lists of numbers, decimal.Decimals, texts, bools, the dates
    of datetime, times as counts of 1/1200 hours, and None."""
    content = b"ZELCONV\x1A" + struct.pack("<HH", 1, len(columns))
    for name, kind in columns:
        content += archive_text(name.encode("cp1252")) + archive_text(kind.encode("cp1252"))
        content += struct.pack("<HH", 1, mode)
    for row in rows:
        content += b"\x01"
        for (_, kind), value in zip(columns, row):
            content += archive_value(kind, value)
    return summed(content + b"\x00" + struct.pack("<Q", len(rows)))


def summed(content):
    return content + struct.pack("<I", zlib.crc32(content))


def calendar_text(moment):
    """The extern text of a date or a date-time."""
    date = f"{moment.day:02}{moment.month:02}{moment.year:4}"
    if not isinstance(moment, datetime.datetime) or moment.time() == datetime.time():
        return "D" + date
    return f"C{date}{moment.hour:02}{moment.minute:02}{moment.second:02}"


def time_text(units):
    """The extern text of a time: whole minutes, and days, months and years of 24 hours, 30 days and
    12 months."""
    hours, rest = divmod(abs(units), 1200)
    minutes = rest // 20
    sign = "-" if units < 0 and hours else ""
    days, hour = divmod(hours, 24)
    months, day = divmod(days, 30)
    year, month = divmod(months, 12)
    if not days:
        return f"T{sign}{hour:02}{minutes:02}00"
    if not hour and not minutes:
        return f"D{sign}{day:02}{month:02}{year:04}"
    return f"C{sign}{day:02}{month:02}{year:04}{hour:02}{minutes:02}00"


def extern_cell(kind, value):
    if value is None:
        return "100:0:0" if kind == "long" else "100:0:"
    text = str(value)
    if kind == "double":
        text = f"{value:.16g}".upper()
    if kind.startswith("decimal"):
        text = decimal_text(value)
    if kind == "bool":
        text = "J" if value else "N"
    if kind in ("datetime", "date"):
        text = calendar_text(value)
    if kind == "time":
        text = time_text(value)
    for character, escape in (("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\r", "\\r"),
                              ("\0", "\\0")):
        text = text.replace(character, escape)
    return "100:1:" + text


def extern(columns, rows):
    lines = ["\t".join(["#zelconv-extern 1", *(f"{name}:{kind}" for name, kind in columns)])]
    for row in rows:
        lines.append("\t".join(extern_cell(kind, value)
                               for (_, kind), value in zip(columns, row)))
    lines.append(f"#end\t{len(rows)}")
    return ("\n".join(lines) + "\n").encode("utf-8")
