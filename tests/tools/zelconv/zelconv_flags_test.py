"""Columns of the types bool and char, in every form."""

import random
import struct
import unittest

from zelconv_support import CellsCase, HostileCase, archive, extern

CHANGED = 113

COLUMNS = [("B", "bool"), ("C", "char")]
COLUMN_LIST = "B:bool,C:char"

ROWS = [
    [True, "x"],
    [False, '"'],
    [None, None],
    [None, ";"],
    [True, "ß"],
    [False, " "],
]

CSV = ('B;C\n'
       'Ja;x\n'
       'Nein;""""\n'
       ';\n'
       ';";"\n'
       'Ja;ß\n'
       'Nein;" "\n')

SQL = ('INSERT INTO T (B, C) VALUES ("1", "x");\n'
       'INSERT INTO T (B, C) VALUES ("0", """");\n'
       'INSERT INTO T (B, C) VALUES (NULL, NULL);\n'
       'INSERT INTO T (B, C) VALUES (NULL, ";");\n'
       'INSERT INTO T (B, C) VALUES ("1", "ß");\n'
       'INSERT INTO T (B, C) VALUES ("0", " ");\n')

DISPLAY = ('B     C\n'
           '----  -\n'
           'Ja    x\n'
           'Nein  "\n'
           '\n'
           '      ;\n'
           'Ja    ß\n'
           'Nein\n')

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

    def test_plain_numbers_do_not_touch_them(self):
        for source, target in (("csv", "extern"), ("extern", "csv"), ("csv", "csv")):
            with self.subTest(source=source, target=target):
                self.assertEqual(self.convert(source, target, COLUMN_LIST, FORMS[source],
                                              "--numbers", "plain"), FORMS[target])

    def test_undefined_in_both_modes(self):
        rows = [[None, None]]
        for number, mode in enumerate(("missing", "null")):
            with self.subTest(mode=mode):
                stored = archive(COLUMNS, rows, mode=number)
                self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, 'B;C\n;""\n',
                                              "--empty", mode), stored)
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                self.assertEqual(self.convert("archive", "extern", None, stored),
                                 extern(COLUMNS, rows))
                self.assertEqual(self.convert("archive", "csv", None, stored), b"B;C\n;\n")

    def test_random_rows(self):
        dice = random.Random(21)
        letters = [bytes([byte]).decode("cp1252", "ignore") for byte in range(1, 256)]
        letters = [letter for letter in letters if letter] + [None]
        rows = [[dice.choice([None, True, False]), dice.choice(letters)] for _ in range(1000)]
        stored = archive(COLUMNS, rows)
        text = extern(COLUMNS, rows)
        table = self.convert("archive", "csv", None, stored)
        self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, table), stored)
        self.assertEqual(self.convert("csv", "extern", COLUMN_LIST, table), text)
        self.assertEqual(self.convert("extern", "csv", None, text), table)
        self.assertEqual(self.convert("archive", "extern", None, stored), text)


class Bools(CellsCase):
    def test_cells(self):
        for word, digit, texts in (("Ja", "1", ("Ja", "ja", "JA", "jA", "J", "j", "1", " Ja ")),
                                   ("Nein", "0", ("Nein", "nein", "NEIN", "N", "n", "0", "\t0"))):
            for text in texts:
                with self.subTest(text=text):
                    self.assertEqual(self.cell("bool", text), f'"{digit}"')
                    self.assertEqual(self.cell("bool", text, "csv"), word)
                    self.assertEqual(self.cell("bool", text, "extern"), f"100:1:{word[0]}")

    def test_bad_cells(self):
        self.check_bad_cells("bool", [(text, 21) for text in (
            "vielleicht", "true", "false", "yes", "x", "2", "-1", "01", "1.0", "Ja!", "Ja Nein",
            "J a", "Jä", "Neinn", " ", "NULL", "J\tN", "ja" * 5000)])

    def test_by_value(self):
        self.check_order("bool", ["", "Nein", "Ja"])
        self.assertEqual(self.sorted_cells("bool", ["1", "n", "Ja", "", "Nein", "j"]),
                         ["", "n", "Nein", "1", "Ja", "j"])


class Chars(CellsCase):
    def test_cells(self):
        for text in ("x", "X", "0", "'", ";", ",", "ß", "ä", "€", "\t", "\n", "\x01", " ", "\xa0"):
            with self.subTest(text=text):
                self.assertEqual(self.cell("char", text), f'"{text}"')
                quoted = f'"{text}"' if text in ";\t\n " else text
                self.assertEqual(self.cell("char", text, "csv"), quoted)
                escaped = {"\t": "\\t", "\n": "\\n"}.get(text, text)
                self.assertEqual(self.cell("char", text, "extern"), f"100:1:{escaped}")
        self.assertEqual(self.cell("char", '"'), '""""')
        self.assertEqual(self.cell("char", "\\", "extern"), "100:1:\\\\")

    def test_bad_cells(self):
        self.check_bad_cells("char", [(text, 11) for text in ("xy", "  ", "x ", " x", "ßß", "\t\t",
                                                              "Nein", "x" * 70000)])

    def test_charsets(self):
        content = "C\nß\nÄ\n".encode("cp850")
        self.assertEqual(self.convert("csv", "sql", "C:char", content, "--charset", "850"),
                         'INSERT INTO T (C) VALUES ("ß");\nINSERT INTO T (C) VALUES ("Ä");\n'
                         .encode("cp850"))
        found, out = self.rejects_of("C:char", "C\nŁ\n€\nx\n", "--output-charset", "850")
        self.assertEqual(out, b"C\nx\n")
        self.assertEqual([(line, cause, text.decode()) for line, _, _, _, cause, text, _ in found],
                         [(2, 108, "Zeichen fehlt in Codepage 1252: U+0141"),
                          (3, 109, "Zeichen fehlt in der Codepage der Ausgabe: U+20AC")])

    def test_house_order(self):
        # Symbols, the blank, digits, letters; accented letters behind their base letter.
        self.check_order("char", ["", "-", " ", "0", "9", "A", "Ä", "B", "O", "Ö", "P", "S", "U",
                                  "Ü", "Z"])
        # Case does not weigh, and the sharp s weighs as s.
        self.assertEqual(self.sorted_cells("char", ["b", "ß", "B", "s", "a", "S"]),
                         ["a", "b", "B", "ß", "s", "S"])

    def test_nul_stands_for_no_character(self):
        stored = archive([("C", "char")], [["\0"]])
        self.assertEqual(self.convert("archive", "archive", None, stored), stored)
        self.assertEqual(self.convert("archive", "sql", None, stored),
                         b'INSERT INTO T (C) VALUES ("");\n')
        found, _ = self.rejects_of("C:char", b"C\n\0\n")
        self.check_rejects(found, [(2, "C", 106, "\0\n")])


class ExternCells(CellsCase):
    def test_bad_cells(self):
        self.check_bad_extern_cells(COLUMNS, ["100:1:J", "100:1:x"], [
            *((0, f"100:1:{text}", 111) for text in
              ("", "X", "j", "n", "JJ", "JN", "Ja", "1", "0", " J", "J\\0")),
            *((1, f"100:1:{text}", 111) for text in ("xy", "x ", "ßx", "x\\0", "\\t\\t")),
            *((column, f"{version}:{defined}:J", 14, 14) for column in (0, 1)
              for version in (99, 101, 0) for defined in (0, 1)),
        ], "Ja;x\n")

    def test_undefined_cells_have_no_text(self):
        out = self.convert("extern", "csv", None,
                           "#zelconv-extern 1\tB:bool\tC:char\n100:0:J\t100:0:x\n#end\t1\n")
        self.assertEqual(out, b"B;C\n;\n")


class HostileArchives(HostileCase):
    def test_numbers_that_are_neither_yes_nor_no(self):
        columns = [("K", "short"), ("B", "bool")]
        for number in (2, 5, -1, 256, 2**31 - 1, -2**31):
            stored = archive(columns, [[1, True], [2, number], [3, None]])
            with self.subTest(number=number):
                self.assertEqual(self.convert("archive", "archive", None, stored), stored)
                for target in ("csv", "sql", "display", "extern"):
                    found, out = self.rejects_of(None, stored, "--table", "T", source="archive",
                                                 target=target)
                    self.check_rejects(found, [(2, "B", CHANGED, f"100:1:2\t100:1:{number}")])
                    self.assertIn(b"1", out)

    def test_cut_and_damaged_values(self):
        self.check_cut_and_damaged("bool", struct.pack("<Ii", 1, 1))
        self.check_cut_and_damaged("char", struct.pack("<IB", 1, 88))

    def test_every_byte_of_a_char(self):
        for byte in range(256):
            stored = self.archive_of("char", struct.pack("<IB", 1, byte))
            self.assertEqual(self.convert("archive", "archive", None, stored), stored)

    def test_types(self):
        for kind in ("bool(1)", "char(1)", "Bool", "boolean", "character"):
            with self.subTest(kind=kind):
                self.refuse(self.archive_of(kind, struct.pack("<Ii", 1, 1)))


if __name__ == "__main__":
    unittest.main()
