"""The sample orders. Their broken rows, and what is wrong with them, stand in the script."""

import csv
import sys
import unittest
from decimal import Decimal

from zelconv_support import SAMPLE, CellsCase

COLUMNS = ("Nr:long,Kunde:long,Artikel:string,Menge:short,Preis:decimal(2),Rabatt:decimal,"
           "Gewicht:double,Auftragsdatum:datetime,Faellig:date,Arbeitszeit:time,Express:bool,"
           "Status:char")


def two_digits(text):
    """05.03.2000 from 5.3.2000"""
    return ".".join(part.zfill(2) for part in text.split("."))


def whole_minutes(text):
    """1:30 from 1:30, 1,50 or 1.50; 2:00 from 2"""
    hours, separator, fraction = text.replace(",", ".").replace(".", ":.").partition(":")
    if fraction.startswith("."):
        fraction = str(int(fraction[1:]) * 3 // 5)
    return f"{hours}:{(fraction if separator else '').zfill(2)}"


def plain(cells):
    """The cells of a good row as they are in plain csv, times in minutes."""
    number, customer, article, quantity, *decimals, ordered, due, worked, express, status = cells
    price, discount, weight = (cell.replace(".", "").replace(",", ".") for cell in decimals)
    price = price and str(Decimal(price).quantize(Decimal("0.01"), "ROUND_HALF_UP"))
    day, _, time = ordered.partition(" ")
    ordered = ordered and f"{two_digits(day)} {time or '00:00'}"
    return [number, customer, article, quantity, price, discount, weight, ordered,
            due and two_digits(due), worked and whole_minutes(worked), express, status]


class Orders(CellsCase):
    @classmethod
    def setUpClass(cls):
        sys.path.insert(0, str(SAMPLE))
        import make_auftraege
        cls.script = make_auftraege
        cls.content = (SAMPLE / "auftraege.csv").read_text("utf-8")

    def test_broken_rows(self):
        broken_rows = self.script.BROKEN_ROWS
        expected = [(1 + after + number, broken.column, broken.cause, broken.row)
                    for number, (after, broken) in enumerate(sorted(broken_rows.items()), 1)
                    if broken.cause is not None]
        self.assertEqual((len(broken_rows), len(expected)), (50, 41))
        found, out = self.rejects_of(COLUMNS, self.content)
        self.check_rejects(found, expected)
        # The others are those with the right form.
        self.assertEqual(len(out.splitlines()),
                         1 + self.script.ORDERS + len(broken_rows) - len(expected))

    def test_good_rows(self):
        found, out = self.rejects_of(COLUMNS, self.content, target="extern")
        bad = {row[0] for row in found}
        good = [line for number, line in enumerate(self.content.splitlines(), 1)
                if number not in bad]
        stored = self.convert("extern", "archive", None, out)
        table = self.convert("archive", "csv", None, stored, "--numbers", "plain").decode()
        for before, after in zip(csv.reader(good[1:], delimiter=";"),
                                 csv.reader(table.splitlines()[1:], delimiter=";"), strict=True):
            self.assertEqual(plain(before), after)


if __name__ == "__main__":
    unittest.main()
