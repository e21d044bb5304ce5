"""Texts as programs write them, for which there are short cuts: they mean what unusual spellings of
the same values mean, and come out as the forms say."""

import random
import re
import unittest
from decimal import ROUND_HALF_UP, Context, Decimal

from zelconv_support import ZelconvCase

ROWS = 4000
WIDE = Context(prec=60, rounding=ROUND_HALF_UP)
INTEGERS = {
    "long": (0, 1, -1, 9, 10, -10, 99999, 2147483647, -2147483647, -2147483648),
    "short": (0, 1, -1, 9, 10, -10, 9999, 32767, -32767, -32768),
}
# Around the 15 digits up to which there is a short cut, and the edges of the point.
NUMBERS = ("0", "0.0", "0.00", "1", "-1", "0.5", "-0.5", "0.05", "9.995", "-9.995", "0.994",
           "0.995", "1.005", "-0.004", "10", "100", "1.10", "12.500", "999999999999.99",
           "99999999999999", "100000000000000", "999999999999999", "-999999999999999",
           "1000000000000000", "9999999999999.99", "99999999999999.9", "0.12345678901234",
           "1.23456789012345", "1.234567890123456", "12345678901234.56", "123456789.123456789",
           "99999999999999999999.99", "0.1", "0.25", "0.001", "1.0005", "4503599627370496.5",
           "0.30000000000000004", "999999999999.999", "1000000000000.001")


def any_number(dice):
    digits = dice.randint(1, 17)
    places = dice.randint(0, digits - 1)
    number = dice.randrange(10**(digits - 1), 10**digits)
    text = f"{number // 10**places}.{number % 10**places:0{places}d}" if places else str(number)
    return ("-" if dice.random() < 0.3 else "") + text


def numbers(seed):
    dice = random.Random(seed)
    return [*NUMBERS, *(any_number(dice) for _ in range(ROWS))]


def unusual(number):
    """A sign where there need not be one, or behind."""
    return number[1:] + "-" if number.startswith("-") else "+" + number


def german(number):
    return number.replace(".", ",")


def rounded(number, places):
    """None for one that needs more than 28 digits."""
    number = WIDE.quantize(Decimal(number), Decimal(1).scaleb(-places))
    if len(number.as_tuple().digits) > 28:
        return None
    return format(abs(number) if number == 0 else number, "f")


def double_in_sql(number):
    """With 15 digits; None if they do not tell the number."""
    digits, exponent = f"{abs(number):.14e}".split("e")
    if float(f"{digits}e{exponent}") != abs(number):
        return None
    sign = "-" if number < 0 else ""
    if number == 0:
        return "0."
    if 0.1 <= abs(number) < 1e15:
        text = format(Decimal(f"{digits}e{exponent}"), "f")
        text = text.rstrip("0") if "." in text else text + "."
        return sign + text
    return f"{sign}{digits.rstrip('0')}e{exponent[0]}{int(exponent[1:]):03d}"


class SameValues(ZelconvCase):
    def check(self, kind, usual, other, *options):
        archives = [self.convert("csv", "archive", f"N:{kind}", "\n".join(["N", *cells, ""]),
                                 *options) for cells in (usual, other)]
        self.assertEqual(*archives)

    def test_whole_numbers(self):
        dice = random.Random(1)
        for kind, limits in INTEGERS.items():
            cells = [str(n) for n in limits]
            cells += [str(dice.randrange(limits[-1], limits[-3] + 1) // 10**dice.randrange(9))
                      for _ in range(ROWS)]
            for mode in ("german", "plain"):
                self.check(kind, cells, [unusual(cell) for cell in cells], "--numbers", mode)

    def test_numbers_with_decimals(self):
        for kind in ("decimal", "decimal(0)", "decimal(2)", "decimal(3)", "double"):
            for mode, shown in (("german", german), ("plain", str)):
                with self.subTest(kind=kind, mode=mode):
                    cells = [shown(cell) for cell in numbers(2)]
                    self.check(kind, cells, [unusual(cell) for cell in cells], "--numbers", mode)

    def test_dates(self):
        dice = random.Random(3)
        usual, other = [], []
        for _ in range(ROWS):
            day, month, year = dice.randint(1, 28), dice.randint(1, 12), dice.randint(1753, 2999)
            hour, minute = dice.randrange(24), dice.randrange(60)
            usual.append(f"{day:02}.{month:02}.{year} {hour:02}:{minute:02}")
            other.append(f"{day}.{month}.{year} {hour}:{minute:02}:00")
        self.check("datetime", usual, other)

    def test_words_and_characters(self):
        self.check("bool", ["Ja", "Nein"], ["ja", "NEIN"])
        self.check("char", [chr(code) for code in range(0x23, 0x7F) if chr(code) != ";"],
                   [f'"{chr(code)}"' for code in range(0x23, 0x7F) if chr(code) != ";"])


class InSql(ZelconvCase):
    def cells_in_sql(self, kind, cells, *options):
        """What becomes of each cell; None for a reject."""
        content = "\n".join(["N;I", *(f"{cell};{i}" for i, cell in enumerate(cells)), ""])
        self.write("in", content)
        self.run_zelconv("--columns", f"N:{kind},I:long", "--from", "csv", "--to", "sql",
                         "--table", "T", *options, "--rejects", "rejects", "in", "out")
        found = [None] * len(cells)
        for line in self.read("out").decode().splitlines():
            text, index = re.fullmatch(r"INSERT INTO T \(N, I\) VALUES \((.*), (\d+)\);",
                                       line).groups()
            found[int(index)] = text
        return found

    def test_whole_numbers(self):
        for kind, limits in INTEGERS.items():
            cells = [str(n) for n in limits]
            beyond = [str(limits[-3] + 1), str(limits[-1] - 1), "99999999999", "-0", "007"]
            self.assertEqual(self.cells_in_sql(kind, [*cells, *beyond]),
                             [*cells, None, None, None, "0", "7"])

    def test_decimals(self):
        cells = numbers(4)
        self.assertEqual(self.cells_in_sql("decimal", cells, "--numbers", "plain"), cells)
        for places in (0, 1, 2, 3, 4, 9):
            found = self.cells_in_sql(f"decimal({places})", cells, "--numbers", "plain")
            self.assertEqual(found, [rounded(cell, places) for cell in cells])

    def test_doubles(self):
        cells = numbers(5)
        self.assertEqual(self.cells_in_sql("double", cells, "--numbers", "plain"),
                         [double_in_sql(float(cell)) for cell in cells])

    def test_dates(self):
        cells = {
            "28.02.1900 00:00": '"28.02.1900 00:00"',
            "31.12.2900 23:59": '"31.12.2900 23:59"',
            "29.02.2000 12:30": '"29.02.2000 12:30"',
            "01.01.1753 00:00": '"01.01.1753 00:00"',
            "05.03.2000 14:07:00": '"05.03.2000 14:07"',
            "05.03.2000": '"05.03.2000 00:00"',
            "05.03.2000 14:07:01": None,
            "29.02.1900 00:00": None,
            "31.12.1752 00:00": None,
            "00.12.2000 00:00": None,
            "01.13.2000 00:00": None,
            "01.12.2000 24:00": None,
            "01.12.2000 23:60": None,
            "01.12.2000 2a:00": None,
        }
        self.assertEqual(self.cells_in_sql("datetime", cells), list(cells.values()))

    def test_words_and_characters(self):
        self.assertEqual(self.cells_in_sql("bool", ["Ja", "Nein", "nein", "JA", "Jaa"]),
                         ['"1"', '"0"', '"0"', '"1"', None])
        self.assertEqual(self.cells_in_sql("char", ["x", '""""', "ä", "€", "ab", "Ω"]),
                         ['"x"', '""""', '"ä"', '"€"', None, None])


class Cells(ZelconvCase):
    """Rows taken apart: separators and quotes at every place of a block of 16 bytes."""

    def texts_in_sql(self, content):
        self.write("in", "A;B;C\n" + content)
        self.run_zelconv("--columns", "A:string,B:string,C:string", "--from", "csv", "--to", "sql",
                         "--table", "T", "--rejects", "rejects", "in", "out")
        return self.read("out").decode()

    @staticmethod
    def statement(cells):
        shown = ['"' + cell.replace('"', '""') + '"' if cell else "NULL" for cell in cells]
        return f"INSERT INTO T (A, B, C) VALUES ({', '.join(shown)});\n"

    def test_every_place(self):
        rows = [["a" * first, "b" * second, filling * 3]
                for first in range(36) for second in (0, 1, 15, 16, 17) for filling in ("c", "ß")]
        quoted = [[row[0] + tail, row[1], row[2]] for row in rows for tail in ('"', ';"', ';')]
        content = "".join(";".join(row) + "\n" for row in rows)
        content += "".join('"' + row[0].replace('"', '""') + f'";{row[1]};"{row[2]}"\n'
                           for row in quoted)
        self.assertEqual(self.texts_in_sql(content),
                         "".join(self.statement(row) for row in [*rows, *quoted]))

    def test_only_right_quotes_pass(self):
        dice = random.Random(6)
        cell = '(?:"(?:[^"]|"")*"|[^;"]*)'
        right = re.compile(f"{cell};{cell};{cell}")
        lines = ["".join(dice.choices('ab;"', weights=(4, 4, 2, 2), k=dice.randint(0, 40)))
                 for _ in range(ROWS)]
        # An odd quote would take the next lines along.
        lines = [line for line in lines if line.count('"') % 2 == 0]
        expected = []
        for line in filter(right.fullmatch, lines):
            cells = re.findall(f"({cell})(?:;|$)", line)[:3]
            expected.append([text[1:-1].replace('""', '"') if text.startswith('"') else text
                             for text in cells])
        self.assertGreater(len(expected), ROWS // 40)
        self.assertEqual(self.texts_in_sql("\n".join(lines) + "\n"),
                         "".join(self.statement(row) for row in expected))


if __name__ == "__main__":
    unittest.main()
