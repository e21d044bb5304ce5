"""Columns of the types short, decimal, decimal(places) and double, in every form."""

import random
import struct
import unittest
from decimal import Decimal

from zelconv_support import CellsCase, HostileCase, archive, archive_text, extern

TOO_MANY_DIGITS = 112
CHANGED = 113

COLUMNS = [("S", "short"), ("D", "decimal"), ("P", "decimal(2)"), ("W", "double")]
COLUMN_LIST = "S:short,D:decimal,P:decimal(2),W:double"

ROWS = [
    [7, Decimal("1.50"), Decimal("1234.50"), 12.75],
    [-32768, Decimal("-0.005"), Decimal("-3.00"), -0.5],
    [None, None, None, None],
    [32767, Decimal("1234567"), Decimal("0.00"), 1e20],
    [0, Decimal("0"), Decimal("19.99"), 0.0],
]

CSV = ('S;D;P;W\n'
       '7;1,50;1234,50;12,75\n'
       '-32768;-0,005;-3,00;-0,5\n'
       ';;;\n'
       '32767;1234567;0,00;1E+20\n'
       '0;0;19,99;0\n')

PLAIN_CSV = CSV.replace(",", ".")

SQL = ('INSERT INTO T (S, D, P, W) VALUES (7, 1.50, 1234.50, 12.75);\n'
       'INSERT INTO T (S, D, P, W) VALUES (-32768, -0.005, -3.00, -0.5);\n'
       'INSERT INTO T (S, D, P, W) VALUES (NULL, NULL, NULL, NULL);\n'
       'INSERT INTO T (S, D, P, W) VALUES (32767, 1234567, 0.00, 1.e+020);\n'
       'INSERT INTO T (S, D, P, W) VALUES (0, 0, 19.99, 0.);\n')

DISPLAY = ('     S        D        P      W\n'
           '------  -------  -------  -----\n'
           '     7     1,50  1234,50  12,75\n'
           '-32768   -0,005    -3,00   -0,5\n'
           '\n'
           ' 32767  1234567     0,00  1E+20\n'
           '     0        0    19,99      0\n')

FORMS = {
    "csv": CSV.encode(),
    "sql": SQL.encode(),
    "display": DISPLAY.encode(),
    "extern": extern(COLUMNS, ROWS),
    "archive": archive(COLUMNS, ROWS),
}


class EachForm(CellsCase):
    def test_into_each_other(self):
        for source in ("csv", "extern", "archive"):
            for target, expected in FORMS.items():
                with self.subTest(source=source, target=target):
                    self.assertEqual(
                        self.convert(source, target, COLUMN_LIST, FORMS[source]), expected)

    def test_plain_numbers_are_in_csv_alone(self):
        for target in ("sql", "display", "extern", "archive"):
            with self.subTest(target=target):
                self.assertEqual(self.convert("csv", target, COLUMN_LIST, PLAIN_CSV, "--numbers",
                                              "plain"), FORMS[target])
        for source in ("extern", "archive"):
            with self.subTest(source=source):
                self.assertEqual(self.convert(source, "csv", None, FORMS[source], "--numbers",
                                              "plain"), PLAIN_CSV.encode())
        self.assertEqual(
            self.convert("csv", "csv", COLUMN_LIST, CSV, "--numbers", "german"), CSV.encode())

    def test_columns_of_the_file(self):
        for source in ("extern", "archive"):
            with self.subTest(source=source):
                self.assertEqual(self.convert(source, "csv", None, FORMS[source]), FORMS["csv"])
                for other in ("decimal", "decimal(3)", "double", "decimal(0)"):
                    self.convert(source, "csv", COLUMN_LIST.replace("decimal(2)", other),
                                 FORMS[source], status=2)
        self.assertEqual(self.convert("csv", "extern", "P:decimal(002)", "P\n1\n"),
                         extern([("P", "decimal(2)")], [[Decimal("1.00")]]))

    def test_undefined_in_both_modes(self):
        rows = [[None] * 4]
        for number, mode in enumerate(("missing", "null")):
            with self.subTest(mode=mode):
                stored = archive(COLUMNS, rows, mode=number)
                self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, 'S;D;P;W\n;"";;\n',
                                              "--empty", mode), stored)
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                self.assertEqual(self.convert("archive", "extern", None, stored),
                                 extern(COLUMNS, rows))
                self.assertEqual(self.convert("archive", "csv", None, stored), b"S;D;P;W\n;;;\n")

    def test_a_comma_as_separator(self):
        out = self.convert("extern", "csv", None, FORMS["extern"], "--separator", ",")
        self.assertEqual(out.splitlines()[1], b'7,"1,50","1234,50","12,75"')
        self.assertEqual(self.convert("csv", "extern", COLUMN_LIST, out, "--separator", ","),
                         FORMS["extern"])


class Shorts(CellsCase):
    def test_cells(self):
        for text, number in (("32767", "32767"), ("-32768", "-32768"), ("+5", "5"), ("5-", "-5"),
                             ("1.234", "1234"), ("32.767", "32767"), (" 7 ", "7"), ("-0", "0"),
                             ("007", "7")):
            with self.subTest(text=text):
                self.assertEqual(self.cell("short", text), number)
                self.assertEqual(self.cell("short", text, "csv"), number)

    def test_bad_cells(self):
        self.check_bad_cells("short", [
            ("32768", 8), ("-32769", 8), ("65536", 8), ("2147483648", 8), ("9" * 30, 8), ("x", 21),
            ("1,5", 21), ("1,0", 21), ("12.34", 21), ("1e3", 21), ("--1", 21), (" ", 21),
            ("0x10", 21)])

    def test_plain_cells(self):
        self.assertEqual(self.cell("short", "-12", "csv", "--numbers", "plain"), "-12")
        self.check_bad_cells("short", [("1.234", 21), ("1,234", 21), ("1.0", 21), ("32768", 8)],
                             "--numbers", "plain")
        self.check_bad_cells("long", [("1.234", 21), ("2147483648", 8)], "--numbers", "plain")


class Decimals(CellsCase):
    def test_cells(self):
        tiny = "0,{}1"
        for text, number in (("0", "0"), ("0,00", "0.00"), ("-0,0", "0.0"), ("1,50", "1.50"),
                             ("-1,5", "-1.5"), ("1,5-", "-1.5"), ("+7", "7"), ("1.234", "1234"),
                             ("1.234.567,891", "1234567.891"),
                             ("1234567,891", "1234567.891"), (" 5,0 ", "5.0"), ("007,10", "7.10"),
                             ("9" * 28, "9" * 28), ("-" + "9" * 28, "-" + "9" * 28),
                             ("1," + "2" * 27, "1." + "2" * 27),
                             ("-1," + "2" * 27, "-1." + "2" * 27),
                             (tiny.format("0" * 26), "0." + "0" * 26 + "1"),
                             ("-" + tiny.format("0" * 26), "-0." + "0" * 26 + "1"),
                             (tiny.format("0" * 35), "0." + "0" * 35 + "1"),
                             ("12345678901234567,89012345678", "12345678901234567.89012345678")):
            with self.subTest(text=text):
                self.assertEqual(self.cell("decimal", text), number)
                shown = number.replace(".", ",")
                self.assertEqual(self.cell("decimal", text, "csv"), shown)
                self.assertEqual(self.cell("decimal", shown, "extern"),
                                 extern([("N", "decimal")], [[Decimal(number)]]).decode()
                                 .splitlines()[1])

    def test_bad_cells(self):
        self.check_bad_cells("decimal", [
            ("x", 21), ("1.5", 21), ("1,5,5", 21), ("1.2.3", 21), ("12.50.0", 21), ("1.23,4", 21),
            ("0.125", 21), ("12,50 EUR", 21), ("1,5O", 21), ("1E3", 21), ("--1", 21), ("-1-", 21),
            (" ", 21), ("5,", 21), (",5", 21), (",", 21), ("nan", 21),
            # 28 digits before the comma, and 38 in all.
            ("9" * 29, 24), ("9" * 28 + ",5", 24), ("9" * 39, 11), ("0," + "0" * 36 + "1", 11)])

    def test_digits_beyond_the_28th_are_not_dropped(self):
        self.check_bad_cells("decimal", [(text, TOO_MANY_DIGITS) for text in (
            "1," + "1" * 28, "-1," + "1" * 28, "9" * 28 + ",4", "0," + "1" * 29,
            "-0," + "0" * 27 + "1", "12345678901234567,890123456780")])

    def test_a_zero_loses_its_decimals_in_extern_and_archive(self):
        rows = extern([("N", "decimal")], [[Decimal(0)]])
        self.assertEqual(self.convert("csv", "extern", "N:decimal", "N\n0,00\n"), rows)
        self.assertEqual(self.convert("extern", "csv", None, rows), b"N\n0\n")

    def test_plain_cells(self):
        for text, number in (("1.5", "1.5"), ("1.234", "1.234"), ("-0.50", "-0.50"), ("7", "7")):
            with self.subTest(text=text):
                self.assertEqual(self.cell("decimal", text, "sql", "--numbers", "plain"), number)
                self.assertEqual(self.cell("decimal", text, "csv", "--numbers", "plain"), number)
        self.check_bad_cells("decimal", [
            ("1,5", 21), ("1.234.5", 21), ("1,234.50", 21), ("1.5x", 21),
            ("1." + "1" * 28, TOO_MANY_DIGITS)], "--numbers", "plain")


class DecimalsOfFixedPlaces(CellsCase):
    def test_rounding(self):
        for places, text, number in (
                (2, "1,005", "1.01"), (2, "-1,005", "-1.01"), (2, "1,0049999", "1.00"),
                (2, "9,995", "10.00"), (2, "-0,004", "0.00"), (2, "0,005", "0.01"),
                (2, "0", "0.00"), (2, "7", "7.00"), (2, "7,5", "7.50"), (2, "1.234,5", "1234.50"),
                (0, "2,5", "3"), (0, "-2,5", "-3"), (0, "2,49", "2"), (0, "0,4", "0"),
                (0, "9" * 28, "9" * 28), (3, "-0,0005", "-0.001"),
                (2, "9" * 26, "9" * 26 + ".00"), (2, "9" * 25 + ",995", "1" + "0" * 25 + ".00"),
                (27, "1", "1." + "0" * 27), (27, "0", "0." + "0" * 27),
                (27, "-9,9", "-9.9" + "0" * 26),
                (27, "0," + "0" * 27 + "5", "0." + "0" * 26 + "1"),
                (4, "0," + "0" * 35 + "1", "0.0000")):
            with self.subTest(places=places, text=text):
                self.assertEqual(self.cell(f"decimal({places})", text), number)
                self.assertEqual(self.cell(f"decimal({places})", text, "csv"),
                                 number.replace(".", ","))

    def test_numbers_without_room_for_the_places(self):
        for places, text in ((2, "9" * 27), (1, "9" * 28), (27, "10"), (27, "-10,5"),
                             (20, "123456789"),
                             # Rounded to 28 digits first, it would be 1,005 and then 1,01.
                             (2, "1,004" + "9" * 25)):
            with self.subTest(places=places, text=text):
                self.check_bad_cells(f"decimal({places})", [(text, TOO_MANY_DIGITS)])

    def test_bad_cells(self):
        self.check_bad_cells("decimal(2)", [("1.5", 21), ("x", 21), ("1,5 x", 21),
                                            ("9" * 29, 24)])

    def test_other_sources_are_rounded_too(self):
        columns = [("P", "decimal(2)")]
        given = [[Decimal("1.005")], [Decimal("7")], [Decimal("-0.004")], [Decimal("9" * 27)]]
        kept = [[Decimal("1.01")], [Decimal("7.00")], [Decimal("0.00")]]
        for source, content, line, row in (
                ("extern", extern(columns, given), 5, extern(columns, given).split(b"\n")[4]),
                ("archive", archive(columns, given), 4, extern(columns, given).split(b"\n")[4])):
            with self.subTest(source=source):
                found, out = self.rejects_of(None, content, source=source, target="extern")
                self.assertEqual(out, extern(columns, kept))
                end = "\n" if source == "extern" else ""
                self.check_rejects(found, [(line, "P", TOO_MANY_DIGITS, row.decode() + end)])


class Doubles(CellsCase):
    # Cell, CSV, SQL, extern.
    EXACT = [
        ("0", "0", "0.", "0"),
        ("-0", "0", "0.", "0"),
        ("3", "3", "3.", "3"),
        ("0,5", "0,5", "0.5", "0.5"),
        ("0,1", "0,1", "0.1", "0.1"),
        ("-12,750", "-12,75", "-12.75", "-12.75"),
        ("12,75-", "-12,75", "-12.75", "-12.75"),
        ("1.234,5", "1234,5", "1234.5", "1234.5"),
        ("0,05", "0,05", "5.e-002", "0.05"),
        ("0,0001", "0,0001", "1.e-004", "0.0001"),
        ("0,00001", "0,00001", "1.e-005", "1E-05"),
        ("1,5E-7", "1,5E-07", "1.5e-007", "1.5E-07"),
        ("1e3", "1000", "1000.", "1000"),
        ("100000000000000", "100000000000000", "100000000000000.", "100000000000000"),
        ("1E15", "1E+15", "1.e+015", "1000000000000000"),
        ("1E+20", "1E+20", "1.e+020", "1E+20"),
        ("0,123456789012345", "0,123456789012345", "0.123456789012345", "0.123456789012345"),
        ("5E-324", "5E-324", "4.94065645841247e-324", "4.940656458412465E-324"),
    ]

    def test_cells(self):
        for text, shown, sql, external in self.EXACT:
            with self.subTest(text=text):
                self.assertEqual(self.cell("double", text), sql)
                self.assertEqual(self.cell("double", text, "csv"), shown)
                self.assertEqual(self.cell("double", text, "extern"), "100:1:" + external)
                plain = shown.replace(",", ".")
                self.assertEqual(self.cell("double", plain, "csv", "--numbers", "plain"), plain)

    # Doubles that need 16 or 17 digits.
    LONG = ["0,1234567890123456", "0,30000000000000004", "1234567890,1234567",
            "1,7976931348623157E+308", "-2,2250738585072014E-308"]

    def test_sql_has_15_digits_and_extern_16(self):
        self.check_bad_cells("double", [(text, CHANGED) for text in self.LONG], target="sql")
        self.check_bad_cells("double", [(text, CHANGED) for text in
                                        (self.LONG[1], self.LONG[2], self.LONG[4])],
                             target="extern")
        self.assertEqual(self.cell("double", self.LONG[0], "extern"), "100:1:0.1234567890123456")
        # The library reads this text back as the largest number, which it rounds beyond.
        largest = "1.797693134862316E+308"
        self.assertEqual(self.cell("double", self.LONG[3], "extern"), "100:1:" + largest)
        text = f"#zelconv-extern 1\tN:double\n100:1:{largest}\n#end\t1\n"
        self.assertEqual(self.convert("extern", "csv", None, text),
                         f"N\n{self.LONG[3]}\n".encode())

    def test_csv_display_and_archive_have_all_digits(self):
        columns = [("N", "double")]
        for text in self.LONG:
            with self.subTest(text=text):
                stored = archive(columns, [[float(text.replace(",", "."))]])
                self.assertEqual(self.cell("double", text, "csv"), text)
                self.assertEqual(self.convert("csv", "archive", "N:double", f"N\n{text}\n"), stored)
                self.assertEqual(self.convert("archive", "csv", None, stored),
                                 f"N\n{text}\n".encode())
                self.assertIn(text, self.convert("archive", "display", None, stored).decode())

    def test_bad_cells(self):
        self.check_bad_cells("double", [
            ("x", 21), ("12.75", 21), ("1,5 kg", 21), ("1,5,5", 21), ("1E", 21), ("E5", 21),
            ("--1", 21), (" ", 21), ("nan", 21), ("inf", 21), ("0x10", 21), ("1E999", 8),
            ("-1E999", 8), ("1E-400", 8)])
        self.check_bad_cells("double", [("1,5", 21), ("1.234.5", 21), ("1E999", 8)], "--numbers",
                             "plain")

    def test_numbers_that_only_archives_have(self):
        columns = [("K", "short"), ("W", "double")]
        for value, text in ((float("nan"), "nan"), (float("inf"), "inf"), (float("-inf"), "-inf")):
            stored = archive(columns, [[1, 2.5], [2, value], [3, None]])
            with self.subTest(value=text):
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                for target in ("csv", "sql", "display", "extern"):
                    found, _ = self.rejects_of(None, stored, "--table", "T", source="archive",
                                               target=target)
                    self.check_rejects(found, [(2, "W", 8, f"100:1:2\t100:1:{text}")])

    def test_rejects_of_an_archive_have_all_digits(self):
        stored = archive([("W", "double"), ("V", "double")], [[0.1 + 0.2, None]])
        for target in ("sql", "extern"):
            found, _ = self.rejects_of(None, stored, "--table", "T", source="archive",
                                       target=target)
            self.check_rejects(found, [(1, "W", CHANGED, "100:1:0.30000000000000004\t100:0:")])


class ExternCells(CellsCase):
    GOOD = ["100:1:1", "100:1:1.E+000", "100:1:1.00E+000", "100:1:1"]

    def test_bad_cells(self):
        cells = []
        for column, of_column in (
                # Unlike the others the short says itself that the version is wrong.
                (0, [("100:1:32768", 8), ("100:1:-32769", 8), ("100:1:12x", 5), ("100:1:1,5", 111),
                     ("100:1:", 111), ("100:1:007", 111), ("100:1: 7", 111), ("101:1:1", 14, 14)]),
                (1, [("100:1:1.5", 21), ("100:1:", 21), ("100:1:x", 21), ("100:1:1.5e+000", 21),
                     ("100:1:1,5E+000", 20), ("100:1:xE+000", 20),
                     ("100:1:5E+000", 111), ("100:1:0.5E+000", 111), ("100:1:1.5E+1", 111),
                     ("100:1:1.5E+001x", 111), ("100:1:0.E+000", 111), ("100:1:-0E+000", 111),
                     ("100:1:1.E+028", 11), ("100:1:1.5E-036", 11), ("100:1:1.E+999999999999", 11),
                     ("100:1:1." + "1" * 42 + "E+000", 11), ("100:1:1." + "1" * 28 + "E-001", 111),
                     ("101:1:1.E+000", 14)]),
                (2, [("100:1:1.5", 21), ("100:1:1.E+026", 111),
                     ("100:1:1." + "0" * 26 + "E+026", TOO_MANY_DIGITS)]),
                (3, [("100:1:x", 111), ("100:1:", 111), ("100:1:1,5", 111), ("100:1:1.50", 111),
                     ("100:1:1E5", 111), ("100:1:nan", 111), ("100:1:inf", 111),
                     ("100:1:0x10", 111), ("100:1:0.30000000000000004", 111), ("100:1:1E999", 8),
                     ("101:1:1", 14)])):
            cells += [(column, *cell) for cell in of_column]
        self.check_bad_extern_cells(COLUMNS, self.GOOD, cells, "1;1;1,00;1\n")


class RoundTrip(CellsCase):
    def rows(self):
        dice = random.Random(6)
        for _ in range(1000):
            digits = dice.randint(1, 28)
            number = Decimal(dice.randrange(10**digits)).scaleb(-dice.randint(0, 27))
            if number and dice.random() < 0.5 and -number.as_tuple().exponent < 28:
                number = -number
            if not number:
                number = Decimal(0)
            yield [dice.choice([None, dice.randint(-2**15, 2**15 - 1)]),
                   dice.choice([None, number, number]),
                   dice.choice([None, Decimal(dice.randint(-10**15, 10**15)).scaleb(-2)]),
                   dice.choice([None, dice.randint(-10**15, 10**15) / 10**dice.randint(0, 20)])]

    def test_random_rows(self):
        rows = list(self.rows())
        stored = archive(COLUMNS, rows)
        text = extern(COLUMNS, rows)
        for numbers in ("german", "plain"):
            options = ("--numbers", numbers)
            table = self.convert("archive", "csv", None, stored, *options)
            self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, table, *options), stored)
            self.assertEqual(self.convert("csv", "extern", COLUMN_LIST, table, *options), text)
            self.assertEqual(self.convert("extern", "csv", None, text, *options), table)
        self.assertEqual(self.convert("extern", "archive", None, text), stored)
        self.assertEqual(self.convert("archive", "extern", None, stored), text)

    def test_random_doubles(self):
        dice = random.Random(7)
        values = [struct.unpack("<d", struct.pack("<Q", dice.getrandbits(64)))[0]
                  for _ in range(2000)]
        rows = [[value] for value in values if value - value == 0]
        self.assertGreater(len(rows), 1900)
        stored = archive([("N", "double")], rows)
        table = self.convert("archive", "csv", None, stored)
        self.assertEqual(self.convert("csv", "archive", "N:double", table), stored)
        self.assertEqual([float(line.replace(",", ".")) for line in table.decode().split()[1:]],
                         [value for value, in rows])


class Order(CellsCase):
    def test_by_value(self):
        for kind, cells in (
                ("short", ["", "-32768", "-5", "0", "3", "20", "100", "32767"]),
                ("decimal", ["", "-" + "9" * 28, "-1,5", "-0,1", "0", "0," + "0" * 26 + "1", "9",
                             "9,99", "10", "100,0", "9" * 28]),
                ("decimal(1)", ["", "-1,5", "0", "9,94", "9,95", "11"]),
                ("double", ["", "-1E300", "-2", "-1E-300", "0", "1E-300", "0,5", "3", "20",
                            "1E300"])):
            self.check_order(kind, cells)

    def test_equal_values_stay_in_their_order(self):
        self.assertEqual(self.sorted_cells("decimal", ["1,50", "2", "1,5", "1,500"]),
                         ["1,50", "1,5", "1,500", "2"])
        self.assertEqual(self.sorted_cells("decimal(1)", ["1,44", "1,36", "1,4"]),
                         ["1,44", "1,36", "1,4"])

    def test_what_is_no_number_comes_last(self):
        columns = [("N", "double")]
        nan, infinity = float("nan"), float("inf")
        expected = [[None], [-infinity], [-1.0], [2.0], [infinity], [nan], [nan]]
        for rotation in range(len(expected)):
            rows = expected[rotation:] + expected[:rotation]
            with self.subTest(rotation=rotation):
                self.assertEqual(
                    self.convert("archive", "archive", None, archive(columns, rows), "--sort", "N"),
                    archive(columns, expected))


class HostileArchives(HostileCase):
    """Rows whose checksum is right, so it is the values that must be looked at."""

    def decimal(self, text, version=100, defined=1):
        return (struct.pack("<I", defined) + archive_text(text.encode()) +
                struct.pack("<H", version))

    def test_decimal_texts(self):
        good = self.archive_of("decimal", self.decimal("1.5E+000"))
        self.assertEqual(self.convert("archive", "csv", None, good), b"N\n1,5\n")
        for text in ("", "x", "1.5", "1,5E+000", "xE+000", "1.5e+000", "1.E+028", "1.5E-036",
                     "1.E+99999999999999999999", "1.E-99999999999999999999", "1\0E+000",
                     "1." + "1" * 42 + "E+000", "9" * 254, "9" * 70000):
            with self.subTest(text=text[:60]):
                self.refuse(self.archive_of("decimal", self.decimal(text)))
                self.refuse(self.archive_of("decimal(2)", self.decimal(text)))
        self.refuse(self.archive_of("decimal", self.decimal("1.5E+000", version=101)))
        self.refuse(self.archive_of("decimal", self.decimal("", version=101, defined=0)))

    def test_types(self):
        for kind in ("decimal(28)", "decimal(-1)", "decimal()", "decimal(", "decimal(2", "Decimal",
                     "decimal(99999999999999999999)"):
            with self.subTest(kind=kind):
                self.refuse(self.archive_of(kind, self.decimal("1.5E+000")))
        for kind in ("short(1)", "double(2)", "short()", "integer"):
            with self.subTest(kind=kind):
                self.refuse(self.archive_of(kind, struct.pack("<Ih", 1, 5)))

    def values(self):
        yield "short", struct.pack("<Ih", 1, -5)
        yield "double", struct.pack("<Id", 1, -12.75)
        yield "decimal", self.decimal("-1.2345E+002")
        yield "decimal(2)", self.decimal("-1.2345E+002")

    def test_cut_and_damaged_values(self):
        for kind, value in self.values():
            self.check_cut_and_damaged(kind, value)


if __name__ == "__main__":
    unittest.main()
