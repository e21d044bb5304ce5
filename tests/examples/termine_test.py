"""The report of examples/termine, against what Python's calendar makes of the same file.

termine_test.py FOLDER-OF-THE-SAMPLES COMMAND...
"""

import calendar
import datetime
import re
import sys
import unittest
from fractions import Fraction

from examples_support import (ORDER_COLUMNS, REASONS, SAMPLE, ExampleCase, german, good_orders,
                              make_auftraege, refused_orders)

HEAD = ["Monat", "Aufträge", "von", "bis", "Monatsende", "Verzug", "Arbeitszeit"]
LATE_HEAD = ["Auftrag", "Kunde", "vom", "Termin", "Wunsch", "Tage", "Express"]


def parsed_day(text):
    """The date of a text, a time of day behind it dropped; None of an empty text."""
    if not text:
        return None
    day, month, year = text.split(" ")[0].split(".")
    return datetime.date(int(year), int(month), int(day))


def month_later(day):
    """The same day of the next month, or its last one; and whether it is another day."""
    year, month = day.year + day.month // 12, day.month % 12 + 1
    last = calendar.monthrange(year, month)[1]
    return datetime.date(year, month, min(day.day, last)), day.day > last


def quarters(text):
    """Quarters of an hour that were started, of 1:30, 1,50, 2 or nothing."""
    if not text:
        return 0
    if ":" in text:
        hours, minutes = text.split(":")
        amount = Fraction(int(hours) * 60 + int(minutes), 15)
    else:
        amount = Fraction(text.replace(",", ".")) * 4
    return -(-amount.numerator // amount.denominator)


def shown_day(day):
    return f"{day.day:02}.{day.month:02}.{day.year:04}"


def shown_time(quarter_hours):
    return f"{quarter_hours // 4:02}:{quarter_hours % 4 * 15:02}"


class Sums:
    def __init__(self):
        self.promised = []
        self.at_month_end = self.late = self.quarters = 0

    def line(self, label):
        return [label, german(len(self.promised)), shown_day(min(self.promised)),
                shown_day(max(self.promised)), german(self.at_month_end), german(self.late),
                shown_time(self.quarters)]


class Report:
    """What the program printed, taken apart."""

    def __init__(self, text):
        body, _, refused = text.partition("\nAbgewiesene Zeilen: ")
        count, *self.refused = refused.splitlines()
        assert int(count) == len(self.refused), text
        table, _, late = body.partition("\nDer längste Verzug\n\n")
        lines = table.splitlines()
        assert lines[0] == "Termine: einen Monat nach dem Auftrag", text
        assert self.cells(lines[2]) == HEAD, text
        end = lines.index("", 3)
        self.months = [self.cells(line) for line in lines[3:end]]
        self.all = self.cells(lines[end + 1])
        self.lines = lines[2:end] + [lines[end + 1]]
        late_lines = late.splitlines()
        assert self.cells(late_lines[0]) == LATE_HEAD, text
        self.late = [self.cells(line) for line in late_lines[1:]]

    @staticmethod
    def cells(line):
        return re.split(r" {2,}", line.strip())


class TermineCase(ExampleCase):
    """Tables are one run each, as starting a program may take long."""

    def report(self, orders):
        status, out, errors = self.run_example(orders)
        self.assertEqual((status, errors), (0, ""))
        return Report(out)

    def report_on(self, *orders):
        """The report on orders of the form (date, due date, working time, status)."""
        rows = "".join(f"{number};7;Dübel;1;1;;;{day};{due};{worked};Nein;{status}\n"
                       for number, (day, due, worked, status) in enumerate(orders, 1))
        return self.report(self.write("auftraege.csv", ORDER_COLUMNS + rows))


class Sample(TermineCase):
    """The file of examples/data. Its broken rows stand in the script that makes it."""

    UNKNOWN_CUSTOMER = "Kunde unbekannt"  # which this program does not look at

    @classmethod
    def setUpClass(cls):
        unknown = [row for row in make_auftraege.BROKEN_ROWS.values()
                   if row.reason == cls.UNKNOWN_CUSTOMER]
        cls.orders = list(good_orders()) + [row.row.rstrip("\n").split(";") for row in unknown]

        cls.found = cls().report(SAMPLE / "auftraege.csv")

    def test_months(self):
        months, total = {}, Sums()
        for *_, ordered, due, worked, _, status in self.orders:
            day, due = parsed_day(ordered), parsed_day(due)
            promised, moved = month_later(day)
            for sums in (months.setdefault((day.year, day.month), Sums()), total):
                sums.promised.append(promised)
                sums.at_month_end += moved
                sums.late += status == "O" and due is not None and due < promised
                sums.quarters += quarters(worked)
        self.assertEqual(len(months), 36)
        self.assertEqual(self.found.months, [months[key].line(f"{key[1]:02}.{key[0]}")
                                             for key in sorted(months)])
        self.assertEqual(self.found.all, total.line("Alle"))
        # The sample has what the report is about.
        self.assertEqual(len(total.promised), make_auftraege.ORDERS + 1)
        for label, last in (("01.2022", "28.02.2022"), ("01.2023", "28.02.2023"),
                            ("01.2024", "29.02.2024")):
            month, = (cells for cells in self.found.months if cells[0] == label)
            self.assertEqual(month[3], last)
            self.assertGreater(int(month[4]), 0)

    def test_longest_delays(self):
        late = []
        for number, customer, *_, ordered, due, _, express, status in self.orders:
            promised, wanted = month_later(parsed_day(ordered))[0], parsed_day(due)
            if status == "O" and wanted is not None and wanted < promised:
                day, _, time = ordered.partition(" ")
                late.append([number, customer, f"{shown_day(parsed_day(day))} {time or '00:00'}",
                             shown_day(promised), shown_day(wanted), (promised - wanted).days,
                             express])
        late.sort(key=lambda row: (-row[5], int(row[0])))
        self.assertEqual(self.found.late, [[str(cell) for cell in row] for row in late[:10]])
        self.assertEqual(self.found.all[5], str(len(late)))

    def test_refused_orders(self):
        self.assertEqual(self.found.refused,
                         [line for line in refused_orders() if self.UNKNOWN_CUSTOMER not in line])

    def test_columns_are_straight(self):
        self.assertEqual({len(line) for line in self.found.lines},
                         {7 + 2 + 8 + 2 + 10 + 2 + 10 + 2 + 10 + 2 + 6 + 2 + 11})


class Promises(TermineCase):
    def test_a_month_later(self):
        # Each in a month of its own, in their order.
        cases = (("01.01.1753", "01.02.1753", 0), ("31.01.1900", "28.02.1900", 1),
                 ("31.01.2000 23:59", "29.02.2000", 1), ("30.01.2020", "29.02.2020", 1),
                 ("28.01.2021", "28.02.2021", 0), ("29.01.2022 12:00", "28.02.2022", 1),
                 ("31.01.2023", "28.02.2023", 1), ("28.02.2023", "28.03.2023", 0),
                 ("31.12.2023", "31.01.2024", 0), ("31.1.2024", "29.02.2024", 1),
                 ("29.02.2024 00:00:01", "29.03.2024", 0), ("31.03.2024", "30.04.2024", 1),
                 ("30.04.2024", "30.05.2024", 0), ("31.05.2024", "30.06.2024", 1),
                 ("31.07.2024", "31.08.2024", 0), ("31.08.2024", "30.09.2024", 1),
                 ("31.10.2024", "30.11.2024", 1), ("30.11.2024", "30.12.2024", 0),
                 ("01.12.2024", "01.01.2025", 0), ("29.01.2028", "29.02.2028", 0),
                 ("31.12.9999", "31.01.10000", 0))
        report = self.report_on(*[(ordered, "", "", "O") for ordered, _, _ in cases])
        self.assertEqual([cells[1:] for cells in report.months],
                         [["1", promised, promised, str(moved), "0", "00:00"]
                          for _, promised, moved in cases])
        self.assertEqual(report.all,
                         ["Alle", "21", "01.02.1753", "31.01.10000", "10", "0", "00:00"])

    def test_months_come_in_their_order(self):
        report = self.report_on(("05.03.2024", "", "", "O"), ("17.12.2023", "", "1", "O"),
                                ("02.03.2024", "", "", "B"), ("31.01.2024", "", "2", "L"))
        self.assertEqual(report.months, [
            ["12.2023", "1", "17.01.2024", "17.01.2024", "0", "0", "01:00"],
            ["01.2024", "1", "29.02.2024", "29.02.2024", "1", "0", "02:00"],
            ["03.2024", "2", "02.04.2024", "05.04.2024", "0", "0", "00:00"]])
        self.assertEqual(report.all,
                         ["Alle", "4", "17.01.2024", "05.04.2024", "1", "0", "03:00"])

    def test_late_is_what_is_open_and_wanted_earlier(self):
        # Promised for 28 February.
        wanted = (("27.02.2023", "L"), ("28.02.2023", "O"), ("27.02.2023", "O"), ("", "O"),
                  ("31.01.2023", "B"), ("01.03.2023", "O"), ("31.01.2023", "O"))
        report = self.report_on(*[("31.01.2023 14:07", due, "", status) for due, status in wanted])
        self.assertEqual(report.all[5], "2")
        self.assertEqual(report.late, [
            ["7", "7", "31.01.2023 14:07", "28.02.2023", "31.01.2023", "28", "Nein"],
            ["3", "7", "31.01.2023 14:07", "28.02.2023", "27.02.2023", "1", "Nein"]])

    def test_the_longest_ten_delays(self):
        # Wanted 12, 11, ... 1 days before the promise, then three times 12 days.
        orders = [("01.03.2023", f"{day:02}.03.2023", "", "O") for day in range(20, 32)]
        orders += [("01.05.2023", "20.05.2023", "", "O")] * 3
        report = self.report_on(*orders)
        self.assertEqual([(row[0], row[5]) for row in report.late],
                         [("1", "12"), ("13", "12"), ("14", "12"), ("15", "12"), ("2", "11"),
                          ("3", "10"), ("4", "9"), ("5", "8"), ("6", "7"), ("7", "6")])
        self.assertEqual(report.all[5], "15")


class WorkingTimes(TermineCase):
    def test_started_quarters_of_an_hour(self):
        cases = (("", "00:00"), ("0:00", "00:00"), ("0:01", "00:15"), ("0:15", "00:15"),
                 ("0:16", "00:30"), ("1:01", "01:15"), ("7:45", "07:45"), ("7:46", "08:00"),
                 ("1,50", "01:30"), ("1,51", "01:45"), ("0,01", "00:15"), ("0,25", "00:15"),
                 ("8", "08:00"), ("-0:01", "-00:15"), ("-1:15", "-01:15"), ("-1,26", "-01:30"),
                 ("250:10", "250:15"))
        report = self.report_on(*[(f"01.02.{year}", "", worked, "O")
                                  for year, (worked, _) in enumerate(cases, 2000)])
        self.assertEqual([cells[6] for cells in report.months], [shown for _, shown in cases])
        # 29:45 up to the 8 hours, less 3:00, and 250:15.
        self.assertEqual(report.all[6], "277:00")
        report = self.report_on(("01.02.2024", "", "1789568:59", "O"))
        self.assertEqual((report.months[0][6], report.all[6]), ("1789569:00",) * 2)

    def test_each_order_is_rounded_and_not_their_sum(self):
        report = self.report_on(*[("01.02.2024", "", "0:01", "O")] * 3,
                                ("01.02.2024", "", "0,01", "O"), ("01.02.2024", "", "-0:01", "O"))
        self.assertEqual(report.all[6], "00:45")

    def test_a_refused_order_is_in_no_sum(self):
        report = self.report_on(("01.02.2024", "", "1000000", "O"),
                                ("31.01.2024", "01.02.2024", "1000000", "O"),
                                ("01.02.2024", "", "-0:30", "O"))
        self.assertEqual(report.months,
                         [["02.2024", "2", "01.03.2024", "01.03.2024", "0", "0", "999999:30"]])
        self.assertEqual(report.all[1:], report.months[0][1:])
        self.assertEqual(report.late, [])
        self.assertEqual(report.refused, [f"Aufträge, Zeile 3: {REASONS[8]}"])


class RefusedOrders(TermineCase):
    MISSING = "Angabe fehlt"

    def test_bad_cells(self):
        good = ("14.03.2023 09:30", "20.04.2023", "1:30", "O")
        columns = ["Auftragsdatum", "Faellig", "Arbeitszeit", "Status"]
        cases = ((0, "", self.MISSING), (0, "29.02.2001", REASONS[8]),
                 (0, "14.03.2023 25:00", REASONS[8]), (0, "2023-03-14", REASONS[21]),
                 (1, "30.02.2024", REASONS[8]), (1, "bald", REASONS[21]),
                 (1, "13.03.2023", "Fällig vor dem Auftrag"),
                 (2, "13:75", REASONS[8]), (2, "1,5", REASONS[21]), (2, "vielleicht", REASONS[21]),
                 (3, "", self.MISSING), (3, "OO", REASONS[11]), (3, "o", "Status unbekannt"),
                 (3, " ", "Status unbekannt"))
        orders = [good[:column] + (cell,) + good[column + 1:] for column, cell, _ in cases]
        report = self.report_on(*orders, good)
        self.assertEqual(report.refused,
                         [f"Aufträge, Zeile {line}, {columns[column]}: {reason}"
                          for line, (column, _, reason) in enumerate(cases, 2)])
        self.assertEqual(report.all,
                         ["Alle", "1", "14.04.2023", "14.04.2023", "0", "0", "01:30"])

    def test_a_date_that_has_no_month_after_it(self):
        report = self.report_on(("31.12.32767", "", "", "O"), ("30.11.32767", "", "", "O"))
        self.assertEqual(report.refused, [f"Aufträge, Zeile 2: {REASONS[8]}"])
        self.assertEqual(report.all[1:4], ["1", "30.12.32767", "30.12.32767"])

    def test_wanted_on_the_day_of_the_order(self):
        report = self.report_on(("14.03.2023 09:30", "14.03.2023", "", "O"))
        self.assertEqual((report.refused, report.late[0][5]), ([], "31"))

    def test_words_for_yes_and_no(self):
        words = (("Ja", "Ja"), ("j", "Ja"), ("1", "Ja"), ("nein", "Nein"), ("0", "Nein"),
                 ("", None), ("2", None), ("vielleicht", None))
        rows = "".join(f"1;7;Dübel;1;1;;;14.03.2023;15.03.2023;;{express};O\n"
                       for express, _ in words)
        report = self.report(self.write("auftraege.csv", ORDER_COLUMNS + rows))
        self.assertEqual([cells[6] for cells in report.late],
                         [shown for _, shown in words if shown])
        self.assertEqual(report.refused, [f"Aufträge, Zeile {line}, Express: {reason}" for
                                          line, reason in ((7, self.MISSING), (8, REASONS[21]),
                                                           (9, REASONS[21]))])

    def test_unusable_calls(self):
        orders = self.write("auftraege.csv", ORDER_COLUMNS)
        report = self.report(orders)
        self.assertEqual((report.months, report.all), ([], ["Alle", "0", "0", "0", "00:00"]))
        for arguments in ((), (orders, orders), (self.folder / "none",),
                          (self.write("other.csv", "Nr;Name\n"),)):
            self.check_unusable(*arguments)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
