"""Damaged and malicious input, and memory that must not grow with the rows."""

import os
import random
import struct
import subprocess
import unittest

from zelconv_support import (SANITIZER_MARKS, ZELCONV, ZelconvCase, archive, archive_text, extern,
                             summed)

COLUMNS = [("Nr", "long"), ("Text", "string")]
ROWS = [[1, "a\tb"], [None, "ü"], [-3, None]]


class Archives(ZelconvCase):
    def refuse(self, content, *options):
        """The archive is refused, no output appears, no memory is taken."""
        self.write("in", content)
        result = self.run_zelconv("--from", "archive", "--to", "csv", *options, "in", "out")
        self.assertEqual((result.status, self.names()), (2, ["in"]), result.errors)
        self.assertEqual(result.errors.count("\n"), 1, result.errors)

    def test_cut_at_every_byte(self):
        content = archive(COLUMNS, ROWS)
        for length in range(len(content)):
            self.refuse(content[:length])

    def test_every_byte_flipped(self):
        content = archive(COLUMNS, ROWS)
        for position in range(len(content)):
            for bits in (0x01, 0xFF):
                damaged = bytearray(content)
                damaged[position] ^= bits
                self.refuse(bytes(damaged))

    def test_bytes_behind_the_end(self):
        self.refuse(archive(COLUMNS, ROWS) + b"\0")
        self.refuse(archive(COLUMNS, ROWS) * 2)

    # From here on the checksums are right, so it is the reading itself that must notice.

    def header(self, *columns, count=None, version=1):
        content = b"ZELCONV\x1A" + struct.pack("<HH", version,
                                               len(columns) if count is None else count)
        for name, kind, schema, mode in columns:
            content += archive_text(name) + archive_text(kind) + struct.pack("<HH", schema, mode)
        return content

    def test_headers(self):
        end = b"\0" + struct.pack("<Q", 0)
        good = (b"A", b"long", 1, 0)
        self.assertEqual(self.convert("archive", "csv", None, summed(self.header(good) + end)),
                         b"A\n")
        for header in (self.header(good, version=2), self.header(), self.header(good, count=2),
                       self.header(good, count=65535), self.header(good, good),
                       self.header((b"", b"long", 1, 0)), self.header((b"A\n", b"long", 1, 0)),
                       self.header((b"A", b"", 1, 0)), self.header((b"A", b"int", 1, 0)),
                       self.header((b"A", b"long(1)", 1, 0)), self.header((b"A", b"long", 2, 0)),
                       self.header((b"A", b"long", 1, 2)), self.header((b"A", b"long", 1, 3)),
                       self.header(*((b"%d" % i, b"long", 1, 0) for i in range(4097)))):
            self.refuse(summed(header + end))

    def test_rows(self):
        header = self.header((b"T", b"string", 1, 0))
        end = b"\0" + struct.pack("<Q", 1)
        value = struct.pack("<I", 1) + b"\x01x"
        self.assertEqual(
            self.convert("archive", "csv", None, summed(header + b"\x01" + value + end)), b"T\nx\n")
        for rows in (b"\x02" + value + end, b"\x01" + value + b"\x01" + value + end, end,
                     b"\x01" + value + end + b"x", b"\x01" + value,
                     b"\x01" + struct.pack("<I", 1) + b"\x05abc"):
            self.refuse(summed(header + rows))

    def test_claimed_lengths(self):
        header = self.header((b"T", b"string", 1, 0))
        defined = b"\x01" + struct.pack("<I", 1)
        for length in (b"\xFF\xFF\xFF\xFF\xFF\xFF\x7F", b"\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
                       b"\xFF\xFD\xFF", b"\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"):
            self.refuse(summed(header + defined + length + b"abc"))
            # The same in a header.
            self.refuse(summed(self.header(count=1) + length + b"abc"))


class Texts(ZelconvCase):
    def test_extern_cut_at_every_byte(self):
        content = extern(COLUMNS, ROWS)
        for length in range(len(content)):
            self.convert("extern", "sql", None, content[:length], status=2)

    def test_extern_number_of_rows(self):
        content = extern(COLUMNS, ROWS)
        lines = content.splitlines(keepends=True)
        for damaged in (b"".join(lines[:2] + lines[3:]), b"".join(lines[:3] + lines[2:]),
                        content + b"\n", content + lines[1], content.replace(b"#end\t3", b"#end")):
            self.convert("extern", "csv", None, damaged, status=2)

    def test_every_byte_flipped(self):
        table = ('Nr;Text\n1;"a;b"\n2;ü\n').encode()
        for source, content in (("extern", extern(COLUMNS, ROWS)), ("csv", table)):
            for position in range(len(content)):
                for bits in (0x01, 0x80):
                    damaged = bytearray(content)
                    damaged[position] ^= bits
                    self.run_zelconv("--columns", "Nr:long,Text:string", "--from", source, "--to",
                                     "extern", "-", "-", stdin=bytes(damaged))

    def test_noise(self):
        dice = random.Random(9)
        for source in ("csv", "extern", "archive"):
            for _ in range(40):
                noise = bytes(dice.choice(b'";\n\r\0a1\xc3\xbc\\\t:#') for _ in range(300))
                self.run_zelconv("--columns", "A:long,B:string", "--from", source, "--header",
                                 "no", "--to", "archive", "-", "-", stdin=noise)


class Memory(ZelconvCase):
    GROWTH_ALLOWED = 4 * 1024  # KiB
    COLUMNS = "Nr:long,Text:string"

    def write_rows(self, name, rows):
        with open(self.folder / name, "w", encoding="utf-8") as file:
            file.write("Nr;Text\n")
            for number in range(rows):
                file.write(f'{number};"Text; {number}"\n')

    def peak(self, source, target):
        """Most memory, in KiB, that the program has taken when it has read the whole file."""
        # The address sanitizer keeps freed memory for a while unless told otherwise.
        environment = dict(os.environ,
                           ASAN_OPTIONS="quarantine_size_mb=0:thread_local_quarantine_size_kb=0")
        with subprocess.Popen([ZELCONV, "--columns", self.COLUMNS, "--from", source.suffix[1:],
                               "--to", target, "--table", "T", "-", "out"], cwd=self.folder,
                              env=environment, stdin=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            process.stdin.write(source.read_bytes())
            process.stdin.flush()
            with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
            _, errors = process.communicate()
        self.assertEqual(process.returncode, 0, errors)
        for mark in SANITIZER_MARKS:
            self.assertNotIn(mark, errors)
        return peak

    def test_does_not_grow_with_the_rows(self):
        for size, rows in (("few", 10000), ("many", 150000)):
            self.write_rows(f"{size}.csv", rows)
            for form in ("extern", "archive"):
                self.run_zelconv("--columns", self.COLUMNS, "--from", "csv", "--to", form,
                                 f"{size}.csv", f"{size}.{form}")
        for source, target in (("csv", "sql"), ("csv", "display"), ("csv", "archive"),
                               ("archive", "extern"), ("extern", "csv")):
            with self.subTest(source=source, target=target):
                few, many = (self.peak(self.folder / f"{size}.{source}", target)
                             for size in ("few", "many"))
                self.assertLess(many - few, self.GROWTH_ALLOWED)


if __name__ == "__main__":
    unittest.main()
