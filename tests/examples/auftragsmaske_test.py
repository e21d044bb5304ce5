"""The mask of examples/auftragsmaske, typed into by files, against what Python makes of the same
orders.

auftragsmaske_test.py FOLDER-OF-THE-SAMPLES COMMAND...
"""

import sys
import unittest
from datetime import datetime
from decimal import Decimal

import auftragsmaske_model as model
from auftragsmaske_model import FIELDS
from examples_support import (COMMAND, ORDER_COLUMNS, REASONS, SAMPLE, ExampleCase, broken_orders,
                              good_orders, make_auftraege, refused_orders)

MISSING = "Angabe fehlt"
BEFORE = "Fällig vor dem Auftrag"
ON_WINDOWS = COMMAND[-1].endswith(".exe")

# An order of the file, with everything that an order may have.
CELLS = ["4711", "10017", "Dübel, grün", "2.049", "1.234,56", "12,5", "3.589,848",
         "03.01.2022 10:13", "03.03.2022", "1:36", "Nein", "L"]
NULL = ("Rabatt", "Gewicht", "Faellig", "Arbeitszeit")
BOXES = ("Express", "Teillieferung")


def refusal(field, reason):
    return [f"Meldung: {model.LABELS.get(field, field)}: {reason}", f"Fokus: {field}"]


class MaskCase(ExampleCase):
    """Several refusals are one run, as starting a program may take long."""

    def setUp(self):
        super().setUp()
        self.sql, self.archive = self.folder / "auftrag.sql", self.folder / "auftrag.arc"

    def orders(self, cells=tuple(CELLS)):
        return self.write("auftraege.csv", ORDER_COLUMNS + ";".join(cells) + "\n")

    def call(self, steps, orders=None, number="4711", sql=None, archive=None, more=()):
        script = self.write("eingaben.txt", steps) if isinstance(steps, str) else steps
        return self.run_example("--tippe", script, *more, orders or self.orders(), number,
                                "--sql", sql or self.sql, "--archiv", archive or self.archive)

    def check_saved(self, steps, order, changed, **call):
        """The steps, which nothing refuses, save the order."""
        status, out, errors = self.call("".join(step + "\n" for step in steps), **call)
        self.assertEqual((status, errors), (0, ""), out)
        self.assertEqual(out.splitlines(), [
            *steps, "[OK]", f"geändert: {', '.join(changed) or 'nichts'}",
            f"gespeichert: {self.sql}, {self.archive}"])
        self.check_files(order)

    def check_files(self, order):
        self.assertEqual(self.sql.read_text("utf-8"), model.statement(order))
        self.assertEqual(self.archive.read_bytes().hex(" "), model.archive(order).hex(" "))
        self.check_no_other_files("auftrag.arc", "auftrag.sql")

    def check_no_other_files(self, *names):
        given = {"auftraege.csv", "eingaben.txt"}
        self.assertEqual({path.name for path in self.folder.iterdir()} - given, set(names))

    def check_fails(self, words, *arguments, **call):
        """Status 2, one line that says why, and nothing written."""
        with self.subTest(words=words):
            status, out, errors = self.call(*arguments, **call)
            self.assertEqual(status, 2, out + errors)
            self.assertEqual(errors.count("\n"), 1, errors)
            self.assertIn(words, errors)
            self.assertFalse(self.sql.exists() or self.archive.exists())


ORDER = model.order_of(make_auftraege.COLUMNS, CELLS)


class Untouched(MaskCase):
    KINDS = (lambda cells: not cells[5] and not cells[8] and not cells[9],
             lambda cells: cells[5] == "0", lambda cells: not cells[6],
             lambda cells: len(cells[4].partition(",")[2]) == 3, lambda cells: cells[3][0] == "-",
             lambda cells: "." in cells[4], lambda cells: " " not in cells[7],
             lambda cells: "," in cells[9], lambda cells: cells[9].isdigit(),
             lambda cells: cells[10] == "Ja", lambda cells: '"' in cells[2],
             lambda cells: cells[11] == "O")

    def test_orders_of_the_sample_stay_as_they_are(self):
        orders, kinds = list(good_orders()), set(self.KINDS)
        while kinds:
            # The order that is of most kinds.
            cells = max(orders, key=lambda cells: sum(kind(cells) for kind in kinds))
            kinds = {kind for kind in kinds if not kind(cells)}
            with self.subTest(cells=cells):
                self.check_saved([], model.order_of(make_auftraege.COLUMNS, cells), [],
                                 number=cells[0], orders=SAMPLE / "auftraege.csv")

    def test_the_first_of_two_orders_of_a_number(self):
        other = ["4711", "8", "Löffel", "1", "1", "", "", "1.1.2022", "", "", "Ja", "O"]
        orders = self.write("auftraege.csv", ORDER_COLUMNS +
                            "".join(";".join(cells) + "\n" for cells in (other, other[:3])))
        self.check_saved([], model.order_of(make_auftraege.COLUMNS, other), [], orders=orders)


class Changes(MaskCase):
    # The first text of each field, then more texts of all fields together.
    ALONE = {
        "Nr": ("-5", -5), "Kunde": (" 1.234 ", 1234), "Artikel": (' "Süd" 5 € ', ' "Süd" 5 € '),
        "Menge": ("-32.768", -32768), "Preis": ("1.234.567,8", Decimal("1234567.8")),
        "Rabatt": ("33,333", Decimal("33.333")), "Gewicht": ("0,05", 0.05),
        "Auftragsdatum": ("1.2.2022", datetime(2022, 2, 1)),
        "Faellig": ("31122023", datetime(2023, 12, 31)), "Arbeitszeit": ("1,51", 1812),
        "Status": ("B", "B"), "Express": ("Ja", True), "Teillieferung": ("Nein", False)}
    TOGETHER = (
        {"Nr": ("2147483647", 2147483647), "Kunde": ("-2147483648", -2147483648),
         "Artikel": ("x" * 60, "x" * 60), "Menge": ("3-", -3), "Preis": ("-0,05", Decimal("-0.05")),
         "Rabatt": ("0", Decimal(0)), "Gewicht": ("-99999999,1234", -99999999.1234),
         "Auftragsdatum": ("01.02.2022 7:05", datetime(2022, 2, 1, 7, 5)),
         "Faellig": ("1.2.2022", datetime(2022, 2, 1)), "Arbeitszeit": ("-0:30", -600),
         "Status": ("O", "O"), "Express": ("Ja", True), "Teillieferung": ("Ja", True)},
        {"Nr": ("0", 0), "Kunde": ("+7", 7), "Artikel": ("a=b", "a=b"), "Menge": ("0", 0),
         "Preis": ("0,00", Decimal("0.00")), "Rabatt": ("0,50", Decimal("0.50")),
         "Gewicht": ("1,23456789012345", 1.23456789012345),
         "Auftragsdatum": ("31.12.1999 23:59", datetime(1999, 12, 31, 23, 59)),
         "Faellig": ("31.12.9999", datetime(9999, 12, 31)), "Arbeitszeit": ("8", 9600),
         "Status": ("B", "B"), "Express": ("Ja", True), "Teillieferung": ("Nein", False)},
        {"Artikel": ("Ä", "Ä"), "Gewicht": ("0", 0.0), "Arbeitszeit": ("0", 0)},
        {"Gewicht": ("123.456.789.012", 123456789012.0)})

    def test_each_field_alone(self):
        self.assertEqual(set(self.ALONE), set(FIELDS))
        for field, (text, value) in self.ALONE.items():
            with self.subTest(field=field):
                self.check_saved([f"{field}={text}"], {**ORDER, field: value}, [field])

    def test_fields_together(self):
        for changes in self.TOGETHER:
            with self.subTest(changes=changes):
                self.check_saved([f"{field}={text}" for field, (text, _) in changes.items()],
                                 {**ORDER, **{field: value for field, (_, value) in
                                              changes.items()}},
                                 [field for field in FIELDS if field in changes])

    def test_what_may_be_missing_becomes_null(self):
        self.check_saved([f"{field}=" for field in NULL], {**ORDER, **dict.fromkeys(NULL)}, NULL)

    def test_the_same_text_is_no_change(self):
        shown = [f"{field}={text}" for field, text in zip(make_auftraege.COLUMNS, CELLS)]
        self.check_saved([*shown, "Teillieferung="], ORDER, [])

    def test_the_third_state_is_null(self):
        # From the third state to each other one, and around.
        for steps, value in ((["Ja", "Nein"], False), (["Nein", "Ja"], True), (["", "Ja"], True),
                             (["Ja", "Nein", ""], None)):
            with self.subTest(steps=steps):
                self.check_saved([f"Teillieferung={step}" for step in steps],
                                 {**ORDER, "Teillieferung": value},
                                 ["Teillieferung"] if value is not None else [])

    def test_lines_of_other_systems(self):
        status, _, errors = self.call("\r\nMenge=7\r\n\nKunde=8")
        self.assertEqual((status, errors), (0, ""))
        self.check_files({**ORDER, "Menge": 7, "Kunde": 8})

    def test_visible(self):
        steps = ["Menge=7"]
        if ON_WINDOWS:
            self.check_saved(steps, {**ORDER, "Menge": 7}, ["Menge"], more=["--fenster"])
        else:
            self.check_fails("nur unter Windows", "Menge=7\n", more=["--fenster"])


class Refusals(MaskCase):
    CASES = (
        *((field, "", MISSING) for field in FIELDS if field not in (*NULL, *BOXES)),
        ("Nr", "12a", REASONS[21]), ("Nr", "2147483648", REASONS[8]), ("Nr", " ", REASONS[21]),
        ("Kunde", "1,5", REASONS[21]), ("Kunde", "-2147483649", REASONS[8]),
        ("Artikel", "x" * 61, REASONS[11]),
        ("Menge", "32768", REASONS[8]), ("Menge", "-32769", REASONS[8]),
        ("Menge", "zwölf", REASONS[21]), ("Menge", "1 2", REASONS[21]),
        ("Preis", "1,005", REASONS[21]), ("Preis", "12.50", REASONS[21]),
        ("Preis", "1" * 29, REASONS[24]), ("Preis", "1" * 39, REASONS[11]),
        ("Rabatt", "5%", REASONS[21]), ("Rabatt", "--5", REASONS[21]),
        ("Gewicht", "1E3", REASONS[21]), ("Gewicht", "1,234567890123456", REASONS[11]),
        ("Auftragsdatum", "29.02.2023 10:00", REASONS[8]),
        ("Auftragsdatum", "03.01.2022 24:00", REASONS[8]),
        ("Auftragsdatum", "03.01.2022 10:13:05", REASONS[21]),
        ("Faellig", "31.04.2022", REASONS[8]), ("Faellig", "bald", REASONS[21]),
        ("Faellig", "02.01.2022", BEFORE),
        ("Arbeitszeit", "13:75", REASONS[8]), ("Arbeitszeit", "1,5", REASONS[21]),
        ("Status", "LB", REASONS[11]), ("Status", "o", "Status unbekannt"),
        ("Status", " ", "Status unbekannt"))

    def test_each_text_is_told_and_can_be_mended(self):
        shown = dict(zip(make_auftraege.COLUMNS, CELLS))
        steps, told = [], []
        for field, text, reason in self.CASES:
            refused = [f"{field}={text}", "[OK]"]
            mended = [f"{field}={shown[field]}"]
            steps += refused + mended
            told += refused + refusal(field, reason) + mended
        status, out, errors = self.call("\n".join(steps + ["[Abbrechen]"]))
        self.assertEqual((status, errors), (1, ""))
        self.assertEqual(out.splitlines(), told + ["[Abbrechen]", "abgebrochen"])
        self.check_no_other_files()

    def test_the_first_field_at_fault_is_told(self):
        status, out, _ = self.call("Status=X\nFaellig=2.1.2022\nMenge=drei\nArtikel=\n[OK]\n"
                                   "Artikel=x\n[OK]\nMenge=3\n[OK]\nFaellig=\n")
        self.assertEqual(status, 1)
        lines = out.splitlines()
        told = [line for line in lines if line.startswith(("Meldung", "Fokus"))]
        self.assertEqual(told, [*refusal("Artikel", MISSING), *refusal("Menge", REASONS[21]),
                                *refusal("Faellig", BEFORE),
                                *refusal("Status", "Status unbekannt")])
        self.check_no_other_files()

    def test_files_of_before_stay(self):
        self.sql.write_text("alt", "utf-8")
        self.archive.write_text("alt", "utf-8")
        for steps in ("Menge=\n", "Menge=5\n[Abbrechen]\n"):
            self.assertEqual(self.call(steps)[0], 1)
            self.assertEqual((self.sql.read_text(), self.archive.read_text()), ("alt", "alt"))
        self.check_saved(["Menge=6"], {**ORDER, "Menge": 6}, ["Menge"])

    def test_mended_orders_are_saved(self):
        status, out, _ = self.call("Menge=acht\n[OK]\nMenge=8\n[OK]\nMenge=9\nMenge=10\n")
        self.assertEqual(status, 0)
        self.assertEqual(out.splitlines()[-3:], ["zu spät: ab Zeile 5", "geändert: Menge",
                                                 f"gespeichert: {self.sql}, {self.archive}"])
        self.check_files({**ORDER, "Menge": 8})


class Unusable(MaskCase):
    def test_steps(self):
        self.check_fails("Zeile 2: '=' fehlt", "Menge=5\nMenge 6\n")
        self.check_fails("Zeile 1: kein Feld 'menge'", "menge=5\n")
        self.check_fails("Zeile 3: kein Feld ''", "\n\n=5\n")
        self.check_fails("Express kennt keinen Stand ''", "Express=\n")
        self.check_fails("Teillieferung kennt keinen Stand 'ja'", "Teillieferung=ja\n")
        self.check_fails("Steuerzeichen", "Artikel=a\tb\n")
        self.check_fails("Steuerzeichen", "Menge=1\0\n")
        self.check_fails("Steuerzeichen", "Artikel=\x81\n")
        self.check_fails("Zeichen, das Windows-1252 nicht hat", "Artikel=Ω\n")
        self.check_fails("Artikel: mehr als 200 Zeichen", f"Artikel={'ä' * 201}\n")
        self.check_fails("kann nicht gelesen werden", self.folder / "none")
        self.check_fails("kann nicht gelesen werden", self.folder)
        for broken in (b"\xe4", b"\xc0\xaf"):
            script = self.folder / "eingaben.txt"
            script.write_bytes(b"Artikel=" + broken + b"\n")
            self.check_fails("Zeichen, das Windows-1252 nicht hat", script)

    def test_orders(self):
        self.check_fails("kein Auftrag 4712", "", number="4712")
        self.check_fails("12x: " + REASONS[21], "", number="12x")
        self.check_fails("keine solche Datei", "", orders=self.folder / "none")
        self.check_fails("anderen Spalten", "", orders=self.write("other.csv", "Nr;Kunde\n4711;1\n"))
        broken = [(row.row.split(";")[0], refused)
                  for row, refused in zip(broken_orders().values(), refused_orders())
                  if row.column != "Nr" and row.reason != "Kunde unbekannt"]
        for number, refused in broken[::8]:
            self.check_fails(refused.removeprefix("Aufträge, "), "", number=number,
                             orders=SAMPLE / "auftraege.csv")

    def test_orders_that_the_mask_cannot_show(self):
        for column, cell, words in ((2, "x" * 61, f"Artikel: {REASONS[11]}"),
                                    (2, "a\nb", "Artikel: Steuerzeichen"),
                                    (2, "Ω", "Artikel: Zeichen, das Windows-1252 nicht hat"),
                                    (2, "", f"Artikel: {MISSING}"),
                                    (6, "1234567890,12345", "Gewicht: "),
                                    (7, "03.01.2022 10:13:05", "Auftragsdatum: Sekunden")):
            quoted = f'"{cell}"' if "\n" in cell else cell
            orders = self.orders([*CELLS[:column], quoted, *CELLS[column + 1:]])
            self.check_fails(f"Zeile 2, {words}", "", orders=orders)

    def test_outputs_that_cannot_be_written(self):
        blocked = self.folder / "ordner"
        blocked.mkdir()
        (blocked / "datei").write_text("")
        for name in (blocked, self.folder / "none" / "datei"):
            self.check_fails("kann nicht geschrieben werden", "", sql=name)
            self.check_fails("kann nicht geschrieben werden", "Menge=5\n", archive=name)
        self.check_no_other_files("ordner")

    def test_files_that_are_being_written(self):
        self.check_fails("auftrag.sql.neu: ist schon da", "", archive=f"{self.folder}/./auftrag.sql")
        self.check_no_other_files()
        other = self.folder / "auftrag.arc.neu"
        other.write_text("halb")
        self.check_fails("auftrag.arc.neu: ist schon da", "")
        self.check_no_other_files("auftrag.arc.neu")
        self.assertEqual(other.read_text(), "halb")

    def test_calls(self):
        orders, steps = self.orders(), self.write("eingaben.txt", "")
        files = ("--sql", self.sql, "--archiv", self.archive)
        for arguments in ((), ("--lies",), (orders, "4711"), ("--tippe", steps, orders, *files),
                          ("--tippe", steps, orders, "4711", "5", *files),
                          ("--tippe", steps, orders, "4711", *files[:2]),
                          ("--tippe", steps, orders, "4711", *files, "--sql"),
                          ("--tippe", steps, orders, "4711", "--sql", self.sql, "--archiv", self.sql),
                          ("--fenster", orders, "4711", *files),
                          ("--lies", self.archive, orders)):
            self.check_unusable(*arguments)
        if not ON_WINDOWS:
            self.check_unusable(orders, "4711", *files)
        self.check_no_other_files()


class Archives(MaskCase):
    """Expected texts are those of the display."""

    def load(self, data):
        self.archive.write_bytes(data)
        return self.run_example("--lies", self.archive)

    def check_shown(self, order, *shown):
        status, out, errors = self.load(model.archive(order))
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual([(line[:15].rstrip(), line[15:]) for line in out.splitlines()],
                         [(model.LABELS.get(field, field), text)
                          for field, text in zip(FIELDS, shown)])

    def test_are_read_back(self):
        self.check_shown(ORDER, "4711", "10017", "Dübel, grün", "2.049", "1.234,56", "12,5",
                         "3.589,848", "03.01.2022 10:13", "03.03.2022", "01:36", "L", "Nein", "-")
        self.check_shown({**ORDER, **dict.fromkeys(NULL), "Express": True, "Teillieferung": False,
                          "Preis": Decimal("0.5"), "Artikel": "5 €"},
                         "4711", "10017", "5 €", "2.049", "0,50", "-", "-", "03.01.2022 10:13",
                         "-", "-", "L", "Ja", "Nein")

    def test_broken_ones_are_refused(self):
        good = model.archive(ORDER)
        first_value = good.index(b"CAuftrag") + len(b"CAuftrag")
        status = len(good) - 2 * 8 - 1
        broken = [b"", good + b"\0", good.replace(b"CAuftrag", b"CVertrag"),
                  good.replace(b"CAuftrag", b"ZelDtStr"), b"\0\0", model.statement(ORDER).encode(),
                  good[:2] + b"\2" + good[3:],
                  good[:first_value] + bytes(4) + good[first_value + 4:],
                  good[:status] + b"X" + good[status + 1:],
                  model.archive({**ORDER, "Faellig": datetime(2021, 12, 31)})]
        broken += [good[:length] for length in range(1, len(good), 37)]
        for data in broken:
            with self.subTest(data=data):
                code, out, errors = self.load(data)
                self.assertEqual((code, out), (2, ""))
                self.assertEqual(errors.count("\n"), 1)
                self.assertIn("kein Archiv eines Auftrags", errors)
        self.check_unusable("--lies", self.folder / "none")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
