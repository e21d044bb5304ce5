"""What the tests of zelconv share: running the program, and its forms written and read by code of
their own, straight from docs/zelconv.md."""

import os
import pathlib
import struct
import subprocess
import tempfile
import unittest
import zlib

ZELCONV = os.environ["ZELCONV"]
SAMPLE = pathlib.Path(os.environ["ZELCONV_SAMPLE"])

# How archives keep the numbers that are not texts.
NUMBER_CODES = {"long": "<i", "short": "<h", "double": "<d"}

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
    return defined + archive_text((value or "").encode("cp1252"))


def archive(columns, rows, mode=0):
    """columns: [(name, type)]; rows: lists of numbers, decimal.Decimals, texts and None."""
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


def extern_cell(kind, value):
    if value is None:
        return "100:0:0" if kind == "long" else "100:0:"
    text = str(value)
    if kind == "double":
        text = f"{value:.16g}".upper()
    if kind.startswith("decimal"):
        text = decimal_text(value)
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
