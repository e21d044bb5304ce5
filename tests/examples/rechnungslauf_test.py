"""The invoice run of examples/rechnungslauf on a database: what it computes against what Python's
decimals make of the same files, and what it does with data, files and databases that are broken.

rechnungslauf_test.py FOLDER-OF-THE-SAMPLES COMMAND..., called by tests/support/with_database.py
"""

import datetime
import os
import pty
import re
import subprocess
import sys
import unittest
from decimal import Decimal

import rechnungslauf_model as model
from examples_support import COMMAND, SAMPLE, make_auftraege
from rechnungslauf_support import ON_SQLITE, InvoiceCase

import make_rechnungslauf  # lies beside its data

LAST_DAY = datetime.date(2024, 12, 31)
NOTHING = "nichts geändert; bis zum 31.12.2024 ist alles berechnet, was sich berechnen lässt"


def in_database(value):
    """As a query shows it; amounts are compared as numbers."""
    return "NULL" if value is None else str(value)


class Sample(InvoiceCase):
    def test_scripts_make_the_files(self):
        for name in make_rechnungslauf.FILES:
            made = subprocess.run([sys.executable, "-B", SAMPLE / "make_rechnungslauf.py", name],
                                  check=True, stdout=subprocess.PIPE).stdout
            self.assertEqual(made, (SAMPLE / f"{name}.csv").read_bytes())

    def test_everything_that_a_run_makes(self):
        expected = model.Run(LAST_DAY)
        self.assertGreater(len(expected.invoices), 600)
        refused = list(model.refused_lines())
        report, words = self.good_call()
        self.assertEqual(report, expected.report(refused))
        positions = sum(len(one.positions) for one in expected.invoices)
        self.assertEqual(words, f"{len(expected.invoices)} Rechnungen mit {positions} Positionen "
                                f"geschrieben, {len(expected.invoices) + 1} Dateien abgelegt")
        files = self.files()
        self.assertEqual(files.pop("rechnungen-2024-12-31.csv").decode("utf-8"), expected.table())
        self.assertEqual(files, {one.archive_name(): one.archive() for one in expected.invoices})
        self.check_records(expected, refused)
        self.check_second_run(report)

    def check_records(self, expected, refused):
        self.check_rows("SELECT * FROM Rechnungen ORDER BY Nr",
                        [one.row() for one in expected.invoices])
        self.check_rows("SELECT * FROM Positionen ORDER BY Rechnung, Zeile",
                        [p.row(one.nr, line) for one in expected.invoices
                         for line, p in enumerate(one.positions, 1)])
        self.check_rows("SELECT Nr, Rechnung FROM Auftraege WHERE Rechnung IS NOT NULL ORDER BY Nr",
                        sorted([p.order, one.nr] for one in expected.invoices
                               for p in one.positions if p.quantity is not None))
        self.check_rows("SELECT Nr, Naechste FROM Nummernkreis",
                        [[1, len(expected.invoices) + 1]])
        for table, count in (("Kunden", 1000), ("Artikel", len(model.articles())),
                             ("Auftraege", make_auftraege.ORDERS + 1),
                             ("Arbeitszeiten", sum(1 for _ in model.sound_rows("arbeitszeiten"))),
                             ("Abgewiesen", len(refused))):
            self.check_rows(f"SELECT COUNT(*) FROM {table}", [[count]])

    def check_rows(self, query, expected):
        rows = self.database.rows(query)
        self.assertEqual(len(rows), len(expected))
        for row, values in zip(rows, expected):
            for cell, value in zip(row, values, strict=True):
                if isinstance(value, Decimal):
                    self.assertEqual(Decimal(cell), value, row)
                elif isinstance(value, float):
                    self.assertEqual(float(cell), value, row)
                else:
                    self.assertEqual(cell, in_database(value), row)

    def check_second_run(self, report):
        state = self.state()
        touched = {path: path.stat().st_mtime_ns for path in self.out.iterdir()}
        stored = self.database.file.read_bytes() if ON_SQLITE else None
        # The files of the sample are not needed any more.
        self.assertEqual(self.good_call(data=self.folder / "none"), (report, NOTHING))
        self.assertEqual(self.state(), state)
        self.assertEqual({path: path.stat().st_mtime_ns for path in self.out.iterdir()}, touched)
        if ON_SQLITE:
            self.assertEqual(self.database.file.read_bytes(), stored)

    def test_runs_by_date(self):
        first, second = datetime.date(2022, 12, 31), datetime.date(2024, 2, 29)
        refused = list(model.refused_lines())
        earlier = model.Run(first)
        report, _ = self.good_call("--until", "31.12.2022")
        self.assertEqual(report, earlier.report(refused))
        later = model.Run(second, since=first, first=len(earlier.invoices) + 1)
        self.assertEqual(self.good_call("--until", "29.2.2024")[0], later.report(refused))
        # What was reported once can be had again.
        again, words = self.good_call("--until", "31.12.2022")
        self.assertEqual(again, report)
        self.assertTrue(words.startswith("nichts geändert; bis zum 31.12.2022 "), words)
        for name, run in (("2022-12-31", earlier), ("2024-02-29", later)):
            self.assertEqual((self.out / f"rechnungen-{name}.csv").read_text("utf-8"), run.table())

    def test_progress_is_for_terminals(self):
        terminal, end = pty.openpty()
        process = self.start_with(stdout=subprocess.DEVNULL, stderr=end)
        os.close(end)
        shown = b""
        try:
            while True:
                shown += os.read(terminal, 65536)
        except OSError:  # how a terminal tells that nobody writes to it any more
            os.close(terminal)
        self.assertEqual(process.wait(timeout=120), 0)
        # Wine hides and shows the cursor around every character, and moves on in place of blanks.
        shown = re.sub(r"\x1B\[\?25[hl]", "", shown.decode("utf-8"))
        shown = re.sub(r"(\x1B\[K)?\x1B\[1C", " ", shown)
        self.assertTrue(re.search(r"auftraege.csv wird eingelesen: Zeile \d+", shown))
        self.assertTrue(re.search(r"\[#+\.*\] \d+ %  (Rechnungen|Archive)", shown))

    def start_with(self, **streams):
        return subprocess.Popen([*COMMAND, *map(str, self.arguments())], **streams)


class OneInvoice(InvoiceCase):
    """Rows of a test's own."""

    CUSTOMERS = [["7", "Löwe", "", "", "", ""], ["8", "Kurz", "Weg 1", "", "Ulm", ""]]
    ARTICLES = [["1", "Dübel", "", "19"], ["2", "Tee", "Packung", "7"]]

    def order(self, number, customer="7", article="Dübel", quantity="1", price="1,00", discount="",
              weight="", day="01.02.2024", status="L", due=""):
        return [number, customer, article, quantity, price, discount, weight, day, due, "", "Nein",
                status]

    def report_on(self, orders, *more, customers=None, articles=None, **rows):
        folder = self.write_sample(customers or self.CUSTOMERS, articles or self.ARTICLES, orders,
                                   **rows)
        return self.good_call(*more, data=folder)[0]

    def table(self, day="2024-02-29"):
        """The cells of each invoice of the table."""
        text = (self.out / f"rechnungen-{day}.csv").read_text("utf-8")
        return [row.split(";") for row in text.splitlines()[1:]]

    def amounts(self):
        """Net, tax, net, tax, gross and cash discount of each invoice."""
        return [row[8:] for row in self.table()]

    def listed(self, report, title):
        """The lines below a title with their number."""
        lines = report.partition(f"\n{title}: ")[2].partition("\n\n")[0].splitlines()
        self.assertEqual(int(lines[0]), len(lines) - 1)
        return lines[1:]

    def test_amounts(self):
        self.report_on([self.order("1", price="0,50"), self.order("2", "8", "Tee", price="0,50"),
                        self.order("3", "8", "Tee, grün", "-3", "10,00", "33,333")],
                       terms=[["8", "30", "2", ""], ["7", "30", "2,25", ""]])
        # 0.095 and 0.59 * 0.0225; 0.50 - 20.0001: -19.50, -1.365
        self.assertEqual(self.amounts(), [["0,50", "0,10", "0,00", "0,00", "0,60", "0,01"],
                                          ["0,00", "0,00", "-19,50", "-1,37", "-20,87", ""]])
        self.assertEqual([row[4] for row in self.table()], ["01.04.2024", "01.04.2024"])

    def test_exact_to_the_last_place(self):
        self.report_on([self.order("1", quantity="32767", price="999.999.999.999,99"),
                        self.order("2", quantity="-32768", price="999.999.999.999,99"),
                        self.order("3", quantity="32767", price="999.999.999.999,98",
                                   discount="0,001")])
        positions = self.database.rows("SELECT Netto FROM Positionen ORDER BY Zeile")
        exact = [Decimal("32766999999999672.33"), Decimal("-32767999999999672.32"),
                 (32767 * Decimal("999999999999.98") * Decimal("0.99999"))
                 .quantize(Decimal("0.01"), "ROUND_HALF_UP")]
        self.assertEqual([Decimal(row[0]) for row in positions], exact)
        net = sum(exact)
        tax = (net * 19 / 100).quantize(Decimal("0.01"), "ROUND_HALF_UP")
        self.assertEqual(self.amounts()[0][:2] + self.amounts()[0][4:5],
                         [model.german(net), model.german(tax), model.german(net + tax)])

    def test_what_is_not_to_be_invoiced(self):
        report = self.report_on([self.order("1", status="B"), self.order("2", status="O"),
                                 self.order("3"), self.order("4", day="01.03.2024 00:00"),
                                 self.order("5", day="29.02.2024 23:59")],
                                "--until", "29.02.2024")
        self.assertEqual(self.database.rows("SELECT Auftrag FROM Positionen ORDER BY Auftrag"),
                         [("3",), ("5",)])
        self.assertEqual(self.listed(report, "Nicht berechenbare Aufträge"), [])

    def test_nothing_to_invoice(self):
        report = self.report_on([self.order("1", status="O")])
        self.assertIn("Alle Rechnungen", report)
        self.assertEqual(self.table(), [])
        self.assertEqual(self.database.rows("SELECT Naechste FROM Nummernkreis"), [("1",)])

    def test_no_orders(self):
        folder = self.write_sample(self.CUSTOMERS, self.ARTICLES, [])
        self.check_failed(self.call(data=folder), "Es gibt keine Aufträge")
        self.assertIn("Alle Rechnungen", self.good_call("--until", "1.1.2024", data=folder)[0])

    def test_hostile_texts(self):
        every = "".join(bytes([code]).decode("cp1252") for code in range(0xA0, 0x100)
                        if code != 0xAD)
        names = ["Robert'); DROP TABLE Kunden;--", 'Gasthof "Löwe"', '""', "a\\", "\\'; --",
                 "/* Hof */ # 3 -- x", "%s%n", "; SELECT 1", "'", "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ",
                 every[:48], every[48:], "ß" * 80, "NULL"]
        customers = [[str(10 + i), name, name, "", name[:60], f"1. Zeile\n{name}\r\n"]
                     for i, name in enumerate(names)]
        articles = [[str(i), name[:60], "", "19"] for i, name in enumerate(names)]
        orders = [self.order(str(100 + i), str(10 + i), name[:60]) for i, name in enumerate(names)]
        report = self.report_on(orders, customers=customers, articles=articles)
        self.assertEqual(self.listed(report, "Abgewiesene Zeilen"), [])
        self.assertEqual(self.listed(report, "Nicht berechenbare Aufträge"), [])
        self.assertEqual(self.database.rows("SELECT Name FROM Rechnungen ORDER BY Nr"),
                         [(name,) for name in names])
        self.assertEqual(self.database.rows("SELECT Bezeichnung FROM Positionen ORDER BY Auftrag"),
                         [(name[:60],) for name in names])
        if ON_SQLITE:
            self.assertEqual(self.database.rows("SELECT Bemerkung FROM Kunden ORDER BY Nr"),
                             [(f"1. Zeile\n{name}\r\n",) for name in names])
        for number, name in enumerate(names, 1):
            status, shown, _ = self.run_example(
                "--show", self.out / f"rechnung-{number:06}.arc")
            self.assertEqual(status, 0)
            self.assertIn(f"\nKunde {number + 9}: {name}\n", shown)

    def test_rows_that_are_refused(self):
        orders = [self.order("1"), self.order("1"), self.order("2", article="D" * 61),
                  self.order("3", price="1.000.000.000.000"), self.order("4", discount="100,001"),
                  self.order("5", discount="1,0005"), self.order("6", article="Dübel\t"),
                  self.order("7", article=""), self.order("8", quantity="1" * 50)]
        customers = [["7", "Löwe", "", "", "", ""], ["7", "Tiger", "", "", "", ""],
                     ["8", "x" * 81, "", "", "", ""], ["9", "a\nb", "", "", "", ""],
                     ["10", "", "", "", "", ""], ["11", "x", "", "01234567890", "", ""],
                     ["12", "x", "", "", "", "a" * 201]]
        report = self.report_on(orders, customers=customers)
        self.assertEqual(self.listed(report, "Abgewiesene Zeilen"), [
            "kunden.csv, Zeile 3, Nr: Nummer doppelt",
            "kunden.csv, Zeile 4, Name: Der Text ist zu lang",
            "kunden.csv, Zeile 5, Name: Steuerzeichen im Text",
            "kunden.csv, Zeile 7, Name: Angabe fehlt",
            "kunden.csv, Zeile 8, PLZ: Der Text ist zu lang",
            "kunden.csv, Zeile 9, Bemerkung: Der Text ist zu lang",
            "auftraege.csv, Zeile 3, Nr: Nummer doppelt",
            "auftraege.csv, Zeile 4, Artikel: Der Text ist zu lang",
            "auftraege.csv, Zeile 5, Preis: Preis unmöglich",
            "auftraege.csv, Zeile 6, Rabatt: Prozentsatz unmöglich",
            "auftraege.csv, Zeile 7, Rabatt: Mehr als drei Nachkommastellen",
            "auftraege.csv, Zeile 8, Artikel: Steuerzeichen im Text",
            "auftraege.csv, Zeile 9, Artikel: Angabe fehlt",
            "auftraege.csv, Zeile 10, Menge: Wert außerhalb des Wertebereichs"])
        self.assertEqual(len(self.table()), 1)

    def test_records_that_other_programs_wrote(self):
        orders = [self.order(str(number), "8" if number > 10 else "7") for number in range(1, 14)]
        folder = self.write_sample(self.CUSTOMERS + [["9", "Weg", "", "", "", ""]], self.ARTICLES,
                                   orders + [self.order("20", "9")], times=[
            ["1", "9", "", "01.02.2024 08:00", "01.02.2024 09:00", ""]])
        self.good_call("--until", "1.1.2024", data=folder)
        self.database.execute("UPDATE Auftraege SET Preis = NULL WHERE Nr = 1",
                              "UPDATE Auftraege SET Menge = NULL WHERE Nr = 2",
                              "UPDATE Auftraege SET Kunde = NULL WHERE Nr = 3",
                              "UPDATE Auftraege SET Status = NULL WHERE Nr = 4",
                              "UPDATE Auftraege SET Status = 'x' WHERE Nr = 5",
                              "UPDATE Auftraege SET Artikel = 'Tür' WHERE Nr = 6",
                              "UPDATE Auftraege SET Rabatt = 101 WHERE Nr = 7",
                              "UPDATE Auftraege SET Auftragsdatum = NULL WHERE Nr = 8",
                              "UPDATE Arbeitszeiten SET Pause = 1201 WHERE Auftrag = 9",
                              "UPDATE Auftraege SET Artikel = 'Tee' WHERE Nr = 10",
                              "UPDATE Artikel SET Steuersatz = 16 WHERE Nr = 2",
                              "UPDATE Kunden SET Zahlungsziel = 999 WHERE Nr = 8",
                              "DELETE FROM Kunden WHERE Nr = 9")
        reasons = {1: "Preis: Angabe fehlt", 2: "Menge: Angabe fehlt", 3: "Kunde: Angabe fehlt",
                   4: "Status: Angabe fehlt", 5: "Status: Status unbekannt",
                   6: "Artikel: Artikel unbekannt", 7: "Rabatt: Prozentsatz unmöglich",
                   8: "Auftragsdatum: Angabe fehlt", 9: "Pause: Pause länger als die Arbeit",
                   10: "Steuersatz: Steuersatz unbekannt",
                   **dict.fromkeys((11, 12, 13), "Zahlungsziel: Zahlungsziel unmöglich"),
                   20: "Kunde: Kunde unbekannt"}
        if ON_SQLITE:  # where a column of amounts takes any text
            self.database.execute("UPDATE Auftraege SET Preis = 'gratis' WHERE Nr = 1")
            reasons[1] = "Preis: Format nicht zugelassen"
        report, _ = self.good_call(data=folder)
        self.assertEqual(self.listed(report, "Nicht berechenbare Aufträge"),
                         [f"Auftrag {number}, {reason}" for number, reason in reasons.items()])
        self.assertEqual(self.table(), [])

    def test_one_bad_order_keeps_no_other_from_its_invoice(self):
        folder = self.write_sample(self.CUSTOMERS, self.ARTICLES,
                                   [self.order("1"), self.order("2", price="2,00")])
        self.good_call("--until", "1.1.2024", data=folder)
        self.database.execute("UPDATE Auftraege SET Preis = NULL WHERE Nr = 1")
        self.good_call(data=folder)
        self.assertEqual(self.amounts(), [["2,00", "0,38", "0,00", "0,00", "2,38", ""]])
        # Mended, it comes on the next one.
        self.database.execute("UPDATE Auftraege SET Preis = 3 WHERE Nr = 1")
        self.good_call(data=folder)
        self.assertEqual(self.amounts(), [["2,00", "0,38", "0,00", "0,00", "2,38", ""],
                                          ["3,00", "0,57", "0,00", "0,00", "3,57", ""]])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
