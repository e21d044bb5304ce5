"""Columns of the types datetime, date and time, in every form."""

import datetime
import random
import struct
import unittest

from zelconv_support import CellsCase, HostileCase, archive, extern

CHANGED = 113
TIME_OF_DAY = 114

COLUMNS = [("M", "datetime"), ("D", "date"), ("A", "time")]
COLUMN_LIST = "M:datetime,D:date,A:time"


def moment(day, month, year, *time):
    return datetime.datetime(year, month, day, *time)


def date(day, month, year):
    return datetime.date(year, month, day)


HOUR = 1200
MINUTE = 20
HUNDREDTH = 12

ROWS = [
    [moment(5, 3, 2000, 14, 7), date(29, 2, 2000), HOUR + 30 * MINUTE],
    [moment(1, 1, 1753), date(31, 12, 9999), -3 * HOUR],
    [None, None, None],
    [moment(31, 12, 2024, 23, 59), date(1, 1, 1900), 0],
    [moment(1, 1, 1900), date(1, 1, 1753), 125 * HOUR + MINUTE],
]

CSV = ('M;D;A\n'
       '05.03.2000 14:07;29.02.2000;01:30\n'
       '01.01.1753 00:00;31.12.9999;-03:00\n'
       ';;\n'
       '31.12.2024 23:59;01.01.1900;00:00\n'
       '01.01.1900 00:00;01.01.1753;125:01\n')

SQL = ('INSERT INTO T (M, D, A) VALUES ("05.03.2000 14:07", "29.02.2000 00:00", 1800);\n'
       'INSERT INTO T (M, D, A) VALUES ("01.01.1753 00:00", "31.12.9999 00:00", -3600);\n'
       'INSERT INTO T (M, D, A) VALUES (NULL, NULL, NULL);\n'
       'INSERT INTO T (M, D, A) VALUES ("31.12.2024 23:59", "01.01.1900 00:00", 0);\n'
       'INSERT INTO T (M, D, A) VALUES ("01.01.1900 00:00", "01.01.1753 00:00", 150020);\n')

DISPLAY = ('M                 D                A\n'
           '----------------  ----------  ------\n'
           '05.03.2000 14:07  29.02.2000   01:30\n'
           '01.01.1753 00:00  31.12.9999  -03:00\n'
           '\n'
           '31.12.2024 23:59  01.01.1900   00:00\n'
           '01.01.1900 00:00  01.01.1753  125:01\n')

EXTERN = ('#zelconv-extern 1\tM:datetime\tD:date\tA:time\n'
          '100:1:C05032000140700\t100:1:D29022000\t100:1:T013000\n'
          '100:1:D01011753\t100:1:D31129999\t100:1:T-030000\n'
          '100:0:\t100:0:\t100:0:\n'
          '100:1:C31122024235900\t100:1:D01011900\t100:1:T000000\n'
          '100:1:D01011900\t100:1:D01011753\t100:1:C05000000050100\n'
          '#end\t5\n')

FORMS = {
    "csv": CSV.encode(),
    "sql": SQL.encode(),
    "display": DISPLAY.encode(),
    "extern": EXTERN.encode(),
    "archive": archive(COLUMNS, ROWS),
}


class EachForm(CellsCase):
    def test_into_each_other(self):
        for source in ("csv", "extern", "archive"):
            for target, expected in FORMS.items():
                with self.subTest(source=source, target=target):
                    self.assertEqual(
                        self.convert(source, target, COLUMN_LIST, FORMS[source]), expected)

    def test_undefined_in_both_modes(self):
        rows = [[None] * 3]
        for number, mode in enumerate(("missing", "null")):
            with self.subTest(mode=mode):
                stored = archive(COLUMNS, rows, mode=number)
                self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, 'M;D;A\n;"";\n',
                                              "--empty", mode), stored)
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                self.assertEqual(self.convert("archive", "extern", None, stored),
                                 extern(COLUMNS, rows))
                self.assertEqual(self.convert("archive", "csv", None, stored), b"M;D;A\n;;\n")

    def test_random_rows(self):
        dice = random.Random(22)
        first = datetime.datetime(1753, 1, 1)
        minutes = (datetime.datetime(9999, 12, 31) - first) // datetime.timedelta(minutes=1)
        rows = []
        for _ in range(1000):
            day = first + datetime.timedelta(minutes=dice.randrange(minutes))
            span = dice.randrange(-2**31 // MINUTE + 1, 2**31 // MINUTE)
            if -60 < span < 0:
                span = 0
            rows.append([dice.choice([None, day, day]), dice.choice([None, day.date()]),
                         dice.choice([None, span * MINUTE])])
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


# What is wrong with a date, in whatever column.
BAD_DATES = [
    ("29.02.2001", 8), ("29.02.1900", 8), ("30.02.2000", 8), ("31.04.2000", 8), ("32.01.2000", 8),
    ("00.01.2000", 8), ("01.00.2000", 8), ("01.13.2000", 8), ("05.03.32768", 8),
    ("29.02.01", 8), # no century has a leap year there
    ("5.3.200", 21), ("5.3.2", 21), ("05.03.", 21), ("05.03", 21), ("5.3.020000", 21),
    ("2000-03-05", 21), ("05/03/2000", 21), ("05-03-2000", 21), ("5. März 2000", 21),
    ("05. 03. 2000", 21), ("005.03.2000", 21), ("05.003.2000", 21), ("-5.03.2000", 21),
    ("05.03.-200", 21), ("heute", 21), ("gestern", 21), (" ", 21), (".", 21), ("..", 21), ("0", 21),
    ("05.03.2000x", 21), ("05.03.2000 x", 21), ("05.03.2000 AD", 21), ("05.03.2000;", 21),
    ("١٢.٠٣.٢٠٠٠", 108), ("5" * 5000, 21), ("05.03." + "2" * 5000, 21),
]

# Times of day that are none, behind a date.
BAD_TIMES_OF_DAY = [
    ("24:00", 8), ("14:60", 8), ("99:99", 8), ("14:07:60", 8), ("14", 21), ("14:7", 21),
    ("14.07", 21), ("14:07:", 21), ("14:07:9", 21), ("14:07:009", 21), ("14:07 Uhr", 21),
    ("2:07PM", 21), ("-1:00", 21), ("114:07", 21), (":07", 21), ("14:07:09.5", 21), ("T14:07", 21),
]


def now_century():
    return datetime.datetime.now(datetime.timezone.utc).year // 100


class DateTimes(CellsCase):
    # Cell, csv.
    CELLS = [
        ("05.03.2000 14:07", "05.03.2000 14:07"),
        ("5.3.2000 9:05", "05.03.2000 09:05"),
        ("05.03.2000", "05.03.2000 00:00"),
        ("5.3.2000 00:00:00", "05.03.2000 00:00"),
        ("  05.03.2000 \t 14:07 ", "05.03.2000 14:07"),
        ("29.02.2000 23:59", "29.02.2000 23:59"),
        ("01.01.1753", "01.01.1753 00:00"),
        ("31.12.9999 23:59", "31.12.9999 23:59"),
        ("31.12.12345", "31.12.12345 00:00"),
    ]

    def test_cells(self):
        for text, shown in self.CELLS:
            with self.subTest(text=text):
                self.assertEqual(self.cell("datetime", text, "csv"), shown)
                self.assertEqual(self.cell("datetime", text), f'"{shown}"')

    def test_two_digits_of_a_year_are_of_this_century(self):
        for kind, rest in (("datetime", " 00:00"), ("date", "")):
            with self.subTest(kind=kind):
                for year in ("00", "99"):
                    self.assertEqual(self.cell(kind, f"5.3.{year}", "csv"),
                                     f"05.03.{now_century()}{year}{rest}")

    def test_seconds_are_everywhere_but_in_sql(self):
        self.assertEqual(self.cell("datetime", "05.03.2000 14:07:09", "csv"),
                         "05.03.2000 14:07:09")
        self.assertEqual(self.cell("datetime", "05.03.2000 00:00:01", "extern"),
                         "100:1:C05032000000001")
        stored = archive([("M", "datetime")], [[moment(5, 3, 2000, 14, 7, 9)]])
        self.assertEqual(self.convert("csv", "archive", "M:datetime", "M\n5.3.2000 14:07:09\n"),
                         stored)
        self.assertIn(b"05.03.2000 14:07:09", self.convert("archive", "display", None, stored))
        self.check_bad_cells("datetime", [("05.03.2000 14:07:09", CHANGED),
                                          ("05.03.2000 00:00:01", CHANGED)], target="sql")
        found, _ = self.rejects_of(None, stored, "--table", "T", source="archive", target="sql")
        self.check_rejects(found, [(1, "M", CHANGED, "100:1:C05032000140709")])

    def test_bad_cells(self):
        self.check_bad_times([("05032000", 21), ("050300", 21)])

    def check_bad_times(self, also):
        found, _ = self.rejects_of("N:datetime", "N\n" + "".join(
            f'"{text}"\n' for text, _ in self.bad_times(also)))
        self.assertEqual([(line, cause) for line, _, _, _, cause, _, _ in found],
                         list(enumerate((cause for _, cause in self.bad_times(also)), 2)))

    @staticmethod
    def bad_times(also):
        return (BAD_DATES + also +
                [(f"05.03.2000 {time}", cause) for time, cause in BAD_TIMES_OF_DAY] +
                [("14:07", 21), ("14:07 05.03.2000", 21), ("05.03.2000T14:07", 21)])

    def test_a_reject_tells_everything(self):
        self.check_bad_cells("datetime", [("29.02.2001 10:15", 8), ("gestern", 21)])

    def test_years_that_the_class_does_not_have(self):
        for kind in ("datetime", "date"):
            with self.subTest(kind=kind):
                self.check_bad_cells(kind, [("31.12.1752", 27), ("01.01.1000", 27),
                                            ("01.01.0000", 27)])

    def test_years_that_extern_form_lacks(self):
        for kind in ("datetime", "date"):
            with self.subTest(kind=kind):
                self.check_bad_cells(kind, [("01.01.10000", 8), ("31.12.32767", 8)],
                                     target="extern")

    def test_by_value(self):
        self.check_order("datetime", ["", "31.12.1999", "01.01.2000 00:00", "1.1.2000 9:00",
                                      "01.01.2000 10:00:01", "2.1.2000", "01.02.2000",
                                      "1.1.2001 0:00", "31.12.12345"])


class Dates(CellsCase):
    CELLS = [
        ("05.03.2000", "05.03.2000"),
        ("5.3.2000", "05.03.2000"),
        ("05032000", "05.03.2000"),
        (" 05.03.2000 ", "05.03.2000"),
        ("05.03.2000 00:00", "05.03.2000"),
        ("05.03.2000 0:00:00", "05.03.2000"),
        ("29.02.2000", "29.02.2000"),
        ("01.01.1753", "01.01.1753"),
        ("31.12.9999", "31.12.9999"),
    ]

    def test_cells(self):
        for text, shown in self.CELLS:
            with self.subTest(text=text):
                self.assertEqual(self.cell("date", text, "csv"), shown)
                self.assertEqual(self.cell("date", text), f'"{shown} 00:00"')
                self.assertEqual(self.cell("date", text, "extern"),
                                 f"100:1:D{shown.replace('.', '')}")

    def test_bad_cells(self):
        cells = BAD_DATES + [(f"05.03.2000 {time}", cause) for time, cause in BAD_TIMES_OF_DAY]
        found, _ = self.rejects_of("N:date", "N\n" + "".join(f'"{text}"\n' for text, _ in cells))
        self.assertEqual([(line, cause) for line, _, _, _, cause, _, _ in found],
                         list(enumerate((cause for _, cause in cells), 2)))

    def test_a_time_of_day_is_not_dropped(self):
        self.check_bad_cells("date", [(text, TIME_OF_DAY) for text in (
            "05.03.2000 14:07", "5.3.00 0:01", "05032000 00:00:01", "05.03.2000\t10:00")])
        found, _ = self.rejects_of(None, "#zelconv-extern 1\tD:date\n100:1:C05032000140700\n"
                                   "#end\t1\n", source="extern")
        self.check_rejects(found, [(2, "D", TIME_OF_DAY, "100:1:C05032000140700\n")])

    def test_by_value(self):
        self.check_order("date", ["", "01.01.1753", "31.12.1999", "1.1.2000", "02.01.2000",
                                  "01.02.2000", "1.1.2001"])


class Times(CellsCase):
    # Cell, csv, units, extern.
    CELLS = [
        ("1:30", "01:30", 1800, "T013000"),
        ("01:30", "01:30", 1800, "T013000"),
        ("1,50", "01,50", 1800, "T013000"),
        ("0,05", "00,05", 60, "T000300"),
        ("8", "08", 9600, "T080000"),
        ("0", "00", 0, "T000000"),
        ("+8", "08", 9600, "T080000"),
        ("-8", "-08", -9600, "T-080000"),
        (" 7:45 ", "07:45", 9300, "T074500"),
        ("-1:15", "-01:15", -1500, "T-011500"),
        ("1:15-", "-01:15", -1500, "T-011500"),
        ("-0:00", "00:00", 0, "T000000"),
        ("23:59", "23:59", 28780, "T235900"),
        ("24:00", "24:00", 28800, "D01000000"),
        ("36:00", "36:00", 43200, "C01000000120000"),
        ("-50:00", "-50:00", -60000, "C-02000000020000"),
        ("720:00", "720:00", 864000, "D00010000"),       # a month of 30 days
        ("8640", "8640", 10368000, "D00000001"),         # a year of 12 months
        ("1789568:59", "1789568:59", 2147482780, "C15010207085900"),
    ]

    def test_cells(self):
        for text, shown, units, external in self.CELLS:
            with self.subTest(text=text):
                self.assertEqual(self.cell("time", text, "csv"), shown)
                self.assertEqual(self.cell("time", text), str(units))
                self.assertEqual(self.cell("time", text, "extern"), f"100:1:{external}")

    def test_bad_cells(self):
        self.check_bad_cells("time", [
            ("13:75", 8), ("1:60", 8), ("1:99", 8), ("1789569:00", 8), ("1789569", 8),
            ("-1789569,00", 8), ("9" * 40, 8), ("4294967297:00", 8),
            ("1:5", 21), ("1:", 21), (":30", 21), ("1:300", 21), ("1,5", 21), ("1,500", 21),
            (",5", 21), ("1.50", 21), ("1:3a", 21), ("1a:30", 21), ("x", 21), ("vielleicht", 21),
            ("1:30 Std.", 21), ("1h30", 21), ("1::30", 21), ("1:30:00", 21), ("1,50:30", 21),
            ("--1:30", 21), ("-1:30-", 21), ("1:-30", 21), ("- 1:30", 21), ("1.000:00", 21),
            ("1E3", 21), ("-", 21), (":", 21), (" ", 21)])

    def test_plain_cells(self):
        for text, shown in (("1:30", "1:30"), ("1.50", "1.50"), ("8", "8"), ("-0.25", "-0.25")):
            with self.subTest(text=text):
                self.assertEqual(self.cell("time", text, "csv", "--numbers", "plain"), shown)
        self.check_bad_cells("time", [("1,50", 21), ("1.5", 21), ("1:75", 8)], "--numbers", "plain")

    def test_extern_form_has_whole_minutes_and_no_sign_below_an_hour(self):
        for text, units in (("-0:30", -600), ("-0,25", -300), ("0,01", 12), ("1,51", 1812),
                            ("-8,33", -9996)):
            with self.subTest(text=text):
                self.assertEqual(self.cell("time", text), str(units))
                self.check_bad_cells("time", [(text, CHANGED)], target="extern")

    def test_archives_bring_times_that_show_all_of_them(self):
        columns = [("A", "time")]
        times = [1800, 1812, 1800, -600, -12, 0]
        stored = archive(columns, [[units] for units in times])
        for numbers, shown in (
                ("german", ["01:30", "01,51", "01:30", "-00:30", "-00,01", "00:00"]),
                ("plain", ["1:30", "1.51", "1:30", "-0:30", "-0.01", "0:00"])):
            with self.subTest(numbers=numbers):
                out = self.convert("archive", "csv", None, stored, "--numbers", numbers)
                self.assertEqual(out.decode().split()[1:], shown)

    def test_more_hours_than_can_be_typed(self):
        # Whole minutes twice, then 66 hundredths of an hour.
        columns = [("A", "time")]
        stored = archive(columns, [[2147483640], [-2147483640], [2147483592]])
        for target in ("csv", "display"):
            with self.subTest(target=target):
                found, _ = self.rejects_of(None, stored, source="archive", target=target)
                self.check_rejects(found, [(row, "A", CHANGED, f"100:1:{text}") for row, text in
                                           ((1, "C15010207094200"), (2, "C-15010207094200"),
                                            (3, "2147483592"))])

    def test_times_that_csv_cannot_show(self):
        columns = [("A", "time")]
        for units in (1, -1, 4, 1801, 19, 2147483647, -2147483648):
            stored = archive(columns, [[units]])
            with self.subTest(units=units):
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                self.assertEqual(self.convert("archive", "sql", None, stored).decode(),
                                 f"INSERT INTO T (A) VALUES ({units});\n")
                for target in ("csv", "display", "extern"):
                    found, _ = self.rejects_of(None, stored, source="archive", target=target)
                    self.check_rejects(found, [(1, "A", CHANGED, f"100:1:{units}")])

    def test_by_value(self):
        self.check_order("time", ["", "-10:00", "-1,50", "-0:45", "0", "0,01", "0:01", "0,02",
                                  "1:29", "1,50", "2", "10:00"])
        self.assertEqual(self.sorted_cells("time", ["1,50", "1", "1:30", "1,00"]),
                         ["1", "1,00", "1,50", "1:30"])


class ExternCells(CellsCase):
    def test_bad_cells(self):
        cells = []
        for column, of_column in (
                (0, [("D30022000", 25), ("D32012000", 25), ("D00012000", 25), ("D05132000", 26),
                     ("D05002000", 26), ("D31121752", 27), ("C05032000240000", 28),
                     ("C05032000146000", 29), ("C05032000140760", 30), ("", 18, 18), ("X", 18, 18),
                     ("d05032000", 18, 18), (" D05032000", 18, 18), ("05.03.2000", 18, 18),
                     ("C05032000000000", 111), ("D05032000x", 111), ("D 5032000", 26),
                     ("D05032000140700", 111), ("C050320001407", 111)]),
                (1, [("D30022000", 25), ("", 18, 18), ("D05032000x", 111),
                     ("C05032000140700", TIME_OF_DAY), ("C05032000000000", 111)]),
                (2, [("", 18, 18), ("X013000", 18, 18), ("T", 18, 18), ("T0130", 18, 18),
                     ("T01300", 18, 18), ("T0130000", 18, 18), ("T01:300", 18, 18),
                     ("T+013000", 18, 18), ("T--13000", 18, 18), ("D0100000", 18, 18),
                     ("C0100000012000", 18, 18), ("01:30", 18, 18), ("T013001", 111),
                     ("T-003000", 111), ("T-000000", 111), ("T240000", 111), ("T006000", 111),
                     ("D00000000", 111), ("D30000000", 111), ("C01000000000000", 111)])):
            cells += [(column, f"100:1:{text}", *cause) for text, *cause in of_column]
            cells += [(column, f"101:{defined}:", 14, 14) for defined in (0, 1)]
        self.check_bad_extern_cells(
            COLUMNS, ["100:1:C05032000140709", "100:1:D29022000", "100:1:T013000"], cells,
            "05.03.2000 14:07:09;29.02.2000;01:30\n")

    def test_too_many_hours(self):
        found, _ = self.rejects_of(None, "#zelconv-extern 1\tA:time\n100:1:C29119999235900\n"
                                   "#end\t1\n", source="extern")
        self.assertEqual([row[4] for row in found], [8])

    def test_a_time_without_a_date_stays_in_extern_form_and_archive(self):
        text = "#zelconv-extern 1\tM:datetime\n100:1:T140709\n#end\t1\n"
        self.assertEqual(self.convert("extern", "extern", None, text), text.encode())
        stored = self.convert("extern", "archive", None, text)
        self.assertEqual(self.convert("archive", "extern", None, stored), text.encode())
        for target, cause in (("csv", 8), ("display", 8), ("sql", CHANGED)):
            with self.subTest(target=target):
                found, _ = self.rejects_of(None, text, "--table", "T", source="extern",
                                           target=target)
                self.check_rejects(found, [(2, "M", cause, "100:1:T140709\n")])


class HostileArchives(HostileCase):
    """The classes read the fields of dates without any check."""

    FIELDS = [-2**31, -2**31 + 1900, -1900, -147, -1, 0, 1, 11, 12, 28, 31, 59, 60, 99, 100, 1000,
              32767, 65536, 2**31 - 1901, 2**31 - 1]

    def targets(self, kind, value):
        """What becomes of the value by target: the output, or the reject."""
        stored = self.archive_of(kind, value)
        self.assertEqual(self.convert("archive", "archive", None, stored), stored)
        for target in ("csv", "display", "sql", "extern"):
            self.write("in", stored)
            result = self.run_zelconv("--from", "archive", "--to", target, "--table", "T",
                                      "--sort", "N", "--rejects", "rejects", "in", "out")
            self.assertIn(result.status, (0, 1), result.errors)
            yield target, result.status, self.read("rejects").decode()

    def check_impossible(self, kind, fields, exact):
        value = struct.pack(f"<I{len(fields)}i", 1, *fields)
        for target, status, reject in self.targets(kind, value):
            with self.subTest(target=target, fields=fields):
                self.assertEqual(status, 1)
                self.assertTrue(reject.endswith(f"\n100:1:{exact}\n"), reject)

    def test_dates_that_no_calendar_has(self):
        # Second, minute, hour, year less 1900, month from 0, day; what the reject says.
        for fields, exact in (((0, 0, 0, 100, 14, 31), "31.15.2000 0:0:0"),
                              ((0, 0, 0, 101, 1, 29), "29.2.2001 0:0:0"),
                              ((0, 0, 0, 100, -2, 1), "1.-1.2000 0:0:0"),
                              ((0, 0, 0, 100, 0, 0), "0.1.2000 0:0:0"),
                              ((0, 0, 24, 100, 0, 1), "1.1.2000 24:0:0"),
                              ((0, -1, 0, 100, 0, 1), "1.1.2000 0:-1:0"),
                              ((60, 0, 0, 100, 0, 1), "1.1.2000 0:0:60"),
                              ((0, 0, 0, 100, 0, 1000), "1000.1.2000 0:0:0"),
                              ((2**31 - 1,) * 6, "2147483647.2147483648.2147485547 "
                                                 "2147483647:2147483647:2147483647"),
                              ((-2**31,) * 6, "-2147483648.-2147483647.-2147481748 "
                                              "-2147483648:-2147483648:-2147483648")):
            self.check_impossible("datetime", fields, exact)
        self.check_impossible("date", (101, 1, 29), "29.2.2001 0:0:0")
        self.check_impossible("date", (100, 12, 1), "1.13.2000 0:0:0")

    def test_years_before_1753_read_back_nowhere(self):
        # 31 December 1752
        for target, status, _ in self.targets("date", struct.pack("<I3i", 1, -148, 11, 31)):
            with self.subTest(target=target):
                self.assertEqual(status, 1)

    def test_random_fields(self):
        dice = random.Random(23)
        for kind, count in (("datetime", 6), ("date", 3)):
            for _ in range(30):
                fields = [dice.choice(self.FIELDS) for _ in range(count)]
                for _ in self.targets(kind, struct.pack(f"<I{count}i", 1, *fields)):
                    pass

    def test_cut_and_damaged_values(self):
        for kind, value in (("datetime", struct.pack("<I6i", 1, 9, 7, 14, 100, 2, 5)),
                            ("date", struct.pack("<I3i", 1, 100, 1, 29)),
                            ("time", struct.pack("<Ii", 1, -1812))):
            self.check_cut_and_damaged(kind, value)

    def test_a_date_time_is_no_date(self):
        stored = self.archive_of("datetime", struct.pack("<I6i", 1, 9, 7, 14, 100, 2, 5))
        self.write("in", stored)
        result = self.run_zelconv("--columns", "N:date", "--from", "archive", "--to", "csv", "in",
                                  "out")
        self.assertEqual((result.status, self.names()), (2, ["in"]))
        self.refuse(self.archive_of("date", struct.pack("<I6i", 1, 9, 7, 14, 100, 2, 5)))

    def test_types(self):
        for kind in ("datetime(1)", "date(2)", "time(0)", "time()", "timestamp", "Date"):
            with self.subTest(kind=kind):
                self.refuse(self.archive_of(kind, struct.pack("<I6i", 1, 0, 0, 0, 100, 0, 1)))


if __name__ == "__main__":
    unittest.main()
