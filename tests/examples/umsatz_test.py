"""The report of examples/umsatz, against sums that Python's decimals make of the same files.

umsatz_test.py FOLDER-OF-THE-SAMPLES COMMAND...
"""

import csv
import decimal
import io
import re
import subprocess
import sys
import unittest
from decimal import Decimal

from examples_support import (ORDER_COLUMNS, REASONS, SAMPLE, ExampleCase, german, good_orders,
                              make_auftraege, refused_orders)

CENT = Decimal("0.01")
decimal.getcontext().prec = 60

CUSTOMER_COLUMNS = "Nr;Name;Strasse;PLZ;Ort;Bemerkung\n"

WHOLE = re.compile(r"-?\d{1,3}(\.\d{3})+|-?\d+")
NUMBER = re.compile(r"-?(\d{1,3}(\.\d{3})+|\d+)(,\d+)?")


def rounded(number):
    """To cents; ROUND_HALF_UP takes ties away from zero."""
    return number.quantize(CENT, decimal.ROUND_HALF_UP)


def parsed(pattern, text):
    """The number of a German text; None unless it is one."""
    if not pattern.fullmatch(text):
        return None
    return Decimal(text.replace(".", "").replace(",", "."))


class Report:
    """What the program printed, taken apart."""

    def __init__(self, text):
        head, _, tail = text.partition("\nAbgewiesene Zeilen: ")
        count, *self.refused = tail.splitlines()
        assert int(count) == len(self.refused), text
        lines = head.splitlines()
        assert lines[0] == "Die zehn größten Kunden", text
        assert self.cells(lines[2]) == ["Kunde", "Name", "Aufträge", "Umsatz"], text
        self.customers = [self.cells(line) for line in lines[3:-3]]
        self.lines = lines[3:-3] + [lines[-2]]
        self.all = self.cells(lines[-2])
        self.weight = self.cells(lines[-1])

    @staticmethod
    def cells(line):
        return re.split(r" {2,}", line.strip())


class UmsatzCase(ExampleCase):
    def report(self, customers, orders):
        status, out, errors = self.run_example(customers, orders)
        self.assertEqual((status, errors), (0, ""))
        return Report(out)


class Sample(UmsatzCase):
    """The files of examples/data. Their broken rows stand in the script that makes them."""

    @classmethod
    def setUpClass(cls):
        text = (SAMPLE / "kunden.csv").read_text("utf-8", errors="replace")
        cls.names = {row[0]: row[1] for row in csv.reader(io.StringIO(text), delimiter=";")
                     if re.fullmatch(r"1\d{4}", row[0]) and len(row) == 6}

    def orders(self):
        """(customer, total, weight) of each good order."""
        for _, customer, _, quantity, price, discount, weight, *_ in good_orders():
            quantity, price = parsed(WHOLE, quantity), parsed(NUMBER, price)
            discount, weight = parsed(NUMBER, discount or "0"), parsed(NUMBER, weight or "0")
            yield customer, rounded(quantity * rounded(price) * (1 - discount / 100)), weight

    def test_sums(self):
        self.assertEqual(len(self.names), 1000)
        totals, counts, all_orders, weight = {}, {}, 0, Decimal(0)
        for customer, total, kilograms in self.orders():
            totals[customer] = totals.get(customer, Decimal("0.00")) + total
            counts[customer] = counts.get(customer, 0) + 1
            all_orders += 1
            weight += kilograms
        largest = sorted(totals, key=lambda customer: (-totals[customer], int(customer)))[:10]

        report = self.report(SAMPLE / "kunden.csv", SAMPLE / "auftraege.csv")
        self.assertEqual(report.customers,
                         [[customer, self.names[customer], german(counts[customer]),
                           german(totals[customer])] for customer in largest])
        self.assertEqual(all_orders, make_auftraege.ORDERS)
        self.assertEqual(report.all, ["Alle Kunden", "10.000", german(sum(totals.values()))])
        self.assertEqual(report.weight, ["Gewicht", german(weight) + " kg"])

    def test_numbers_end_in_one_column(self):
        report = self.report(SAMPLE / "kunden.csv", SAMPLE / "auftraege.csv")
        self.assertEqual({len(line) for line in report.lines}, {6 + 2 + 34 + 2 + 8 + 2 + 16})

    def test_refused_orders(self):
        report = self.report(SAMPLE / "kunden.csv", SAMPLE / "auftraege.csv")
        self.assertEqual([row for row in report.refused if row.startswith("Aufträge")],
                         refused_orders())

    def test_refused_customers(self):
        report = self.report(SAMPLE / "kunden.csv", SAMPLE / "auftraege.csv")
        # Those that the script describes, less the two that code page 1252 alone minds.
        self.assertEqual([row.split(": ")[1] for row in report.refused if row.startswith("Kunden")],
                         [REASONS[cause] for cause in (21, 8, 21, 101, 102, 103, 103, 103)])

    def test_the_script_makes_the_file(self):
        made = subprocess.run([sys.executable, "-B", SAMPLE / "make_auftraege.py"], check=True,
                              stdout=subprocess.PIPE).stdout
        self.assertEqual(made, (SAMPLE / "auftraege.csv").read_bytes())


class Orders(UmsatzCase):
    def setUp(self):
        super().setUp()
        self.customers = self.write("kunden.csv", CUSTOMER_COLUMNS + '7;"Löwe ""Nord""; Ulm";;;;\n'
                                    '8;Kurz;"Hof\n2";;;"a\nb"\r\n9;Ohne;;;;\n')

    def report_on(self, *orders):
        """The report on orders of the form (customer, quantity, price, discount, weight)."""
        rows = "".join(f"{number};{customer};Dübel;{rest};1.2.2024 9:00;;;Nein;O\n"
                       for number, (customer, rest) in enumerate(orders, 1))
        return self.report(self.customers, self.write("auftraege.csv", ORDER_COLUMNS + rows))

    def test_totals(self):
        for order, total in (("3;1,005;;", "3,03"),         # the price is 1,01
                             ("3;1,004999;;", "3,00"),
                             ("1;0,33;50;", "0,17"),        # 0,165
                             ("-1;0,33;50;", "-0,17"),
                             ("1;0,33;50,001;", "0,16"),    # 0,1649967
                             ("7;9,99;33,333;", "46,62"),   # 69,93 * 0,66667 = 46,6202331
                             ("1;5;;", "5,00"),
                             ("1;5;0;", "5,00"),
                             ("1;5;100;", "0,00"),
                             ("1;5;-10;", "5,50"),
                             ("32767;0,01;;", "327,67"),
                             ("-32768;1;;", "-32.768,00"),
                             ("1;1.234.567,891;;", "1.234.567,89"),
                             ("1;123456789012;;", "123.456.789.012,00")):
            with self.subTest(order=order):
                self.assertEqual(self.report_on(("7", order)).all, ["Alle Kunden", "1", total])

    def test_each_order_is_rounded_and_not_their_sum(self):
        report = self.report_on(*[("7", "1;0,33;50;1,1")] * 3)
        self.assertEqual(report.all, ["Alle Kunden", "3", "0,51"])
        self.assertEqual(report.weight, ["Gewicht", "3,300 kg"])

    def test_customers_are_in_order_and_those_without_orders_are_last(self):
        report = self.report_on(("8", "1;5;;"), ("7", "1;2;;"), ("7", "1;2,99;;"))
        self.assertEqual(report.customers,
                         [["8", "Kurz", "1", "5,00"], ["7", 'Löwe "Nord"; Ulm', "2", "4,99"],
                          ["9", "Ohne", "0", "0,00"]])
        self.assertEqual(report.refused, [])

    def test_a_refused_order_is_in_no_sum(self):
        report = self.report_on(("7", "1;5;;2"), ("6", "1;5;;2"), ("7", "1;;;2"),
                                ("7", "1;" + "9" * 28 + ";;2"), ("7", "1;7;;x"))
        self.assertEqual(report.all, ["Alle Kunden", "1", "5,00"])
        self.assertEqual(report.weight, ["Gewicht", "2,000 kg"])
        self.assertEqual(len(report.refused), 4)

    def test_unusable_calls(self):
        orders = self.write("auftraege.csv", ORDER_COLUMNS)
        self.assertEqual(self.report(self.customers, orders).all, ["Alle Kunden", "0", "0,00"])
        for arguments in ((), (self.customers,), (self.customers, orders, orders),
                          (orders, self.customers), (self.folder / "none", orders),
                          (self.customers, self.folder / "none")):
            self.check_unusable(*arguments)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
