"""Each form into each other one."""

import random
import unittest

from zelconv_support import ZelconvCase, archive, extern

COLUMNS = [("Nr", "long"), ("Name", "string"), ("Ort", "string")]
COLUMN_LIST = "Nr:long,Name:string,Ort:string"

ROWS = [
    [7, "Müller", "Köln"],
    [-12, 'sagt "ja"', None],
    [None, "a;b\nc\td\\e", " Ulm"],
    [2147483647, None, "ß€"],
]

CSV = ('Nr;Name;Ort\n'
       '7;Müller;Köln\n'
       '-12;"sagt ""ja""";\n'
       ';"a;b\nc\td\\e";" Ulm"\n'
       '2147483647;;ß€\n')

SQL = ('INSERT INTO T (Nr, Name, Ort) VALUES (7, "Müller", "Köln");\n'
       'INSERT INTO T (Nr, Name, Ort) VALUES (-12, "sagt ""ja""", NULL);\n'
       'INSERT INTO T (Nr, Name, Ort) VALUES (NULL, "a;b\nc\td\\e", " Ulm");\n'
       'INSERT INTO T (Nr, Name, Ort) VALUES (2147483647, NULL, "ß€");\n')

# The widest name is shown with 11 characters, a;b\nc\td\e.
DISPLAY = ('        Nr  Name         Ort\n'
           '----------  -----------  ----\n'
           '         7  Müller       Köln\n'
           '       -12  sagt "ja"\n'
           '            a;b\\nc\\td\\e   Ulm\n'
           '2147483647               ß€\n')

FORMS = {
    "csv": CSV.encode("utf-8"),
    "sql": SQL.encode("utf-8"),
    "display": DISPLAY.encode("utf-8"),
    "extern": extern(COLUMNS, ROWS),
    "archive": archive(COLUMNS, ROWS),
}
SOURCES = ("csv", "extern", "archive")


class EachForm(ZelconvCase):
    def test_into_each_other(self):
        for source in SOURCES:
            for target, expected in FORMS.items():
                with self.subTest(source=source, target=target):
                    self.assertEqual(
                        self.convert(source, target, COLUMN_LIST, FORMS[source]), expected)

    def test_without_rows(self):
        for source, content in (("csv", b"Nr;Name;Ort\n"), ("extern", extern(COLUMNS, [])),
                                ("archive", archive(COLUMNS, []))):
            with self.subTest(source=source):
                self.assertEqual(self.convert(source, "csv", COLUMN_LIST, content),
                                 b"Nr;Name;Ort\n")
                self.assertEqual(self.convert(source, "sql", COLUMN_LIST, content), b"")
                self.assertEqual(self.convert(source, "archive", COLUMN_LIST, content),
                                 archive(COLUMNS, []))
                self.assertEqual(self.convert(source, "extern", COLUMN_LIST, content),
                                 extern(COLUMNS, []))

    def test_columns_come_from_the_file(self):
        for source in ("extern", "archive"):
            with self.subTest(source=source):
                self.assertEqual(self.convert(source, "csv", None, FORMS[source]), FORMS["csv"])

    def test_other_columns_than_in_the_file(self):
        for source in ("extern", "archive"):
            for columns in ("Nr:long,Name:string", "Nr:string,Name:string,Ort:string",
                            "Nr:long,Ort:string,Name:string"):
                with self.subTest(source=source, columns=columns):
                    self.assertEqual(
                        self.convert(source, "csv", columns, FORMS[source], status=2), b"")


class RoundTrip(ZelconvCase):
    ALPHABET = "aZ0 ;,\"\n\r\t\\:#äß€'\x01\x7f"

    def rows(self):
        dice = random.Random(4)
        for _ in range(400):
            yield [dice.choice([None, dice.randint(-2**31, 2**31 - 1), 0]),
                   self.text(dice), self.text(dice)]

    def text(self, dice):
        length = dice.choice([0, 1, 2, 5, 20, 300])
        return "".join(dice.choice(self.ALPHABET) for _ in range(length)) or None

    def test_random_rows(self):
        rows = list(self.rows())
        stored = archive(COLUMNS, rows)
        text = extern(COLUMNS, rows)
        table = self.convert("archive", "csv", None, stored)
        self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, table), stored)
        self.assertEqual(self.convert("csv", "extern", COLUMN_LIST, table), text)
        self.assertEqual(self.convert("extern", "csv", None, text), table)
        self.assertEqual(self.convert("extern", "archive", None, text), stored)
        self.assertEqual(self.convert("archive", "extern", None, stored), text)

    def test_long_texts(self):
        # Around the lengths where an archive changes the form of a text's length.
        rows = [[length, "x" * length, None] for length in (254, 255, 65533, 65534, 200000)]
        stored = archive(COLUMNS, rows)
        table = self.convert("archive", "csv", None, stored)
        self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, table), stored)
        self.assertEqual(self.convert("extern", "archive", None, extern(COLUMNS, rows)), stored)

    def test_nul_bytes_where_the_form_has_them(self):
        rows = [[1, "a\0b", "\0"]]
        self.assertEqual(self.convert("extern", "archive", None, extern(COLUMNS, rows)),
                         archive(COLUMNS, rows))
        self.assertEqual(self.convert("archive", "extern", None, archive(COLUMNS, rows)),
                         extern(COLUMNS, rows))


class EmptyCells(ZelconvCase):
    def test_a_text_that_is_there_but_empty(self):
        rows = [[1, "", None]]
        text = extern(COLUMNS, rows)
        self.assertEqual(self.convert("extern", "csv", None, text), b'Nr;Name;Ort\n1;"";\n')
        self.assertEqual(self.convert("extern", "sql", None, text),
                         b'INSERT INTO T (Nr, Name, Ort) VALUES (1, "", NULL);\n')
        self.assertEqual(self.convert("extern", "archive", None, text), archive(COLUMNS, rows))

    def test_quotes_around_nothing_are_an_empty_cell(self):
        self.assertEqual(self.convert("csv", "sql", "A:string,B:long", 'A;B\n"";""\n'),
                         b"INSERT INTO T (A, B) VALUES (NULL, NULL);\n")

    def test_mode_goes_into_the_archive_and_stays(self):
        null = archive(COLUMNS, ROWS, mode=1)
        missing = archive(COLUMNS, ROWS, mode=0)
        self.assertEqual(self.convert("csv", "archive", COLUMN_LIST, CSV, "--empty", "null"), null)
        self.assertEqual(
            self.convert("csv", "archive", COLUMN_LIST, CSV, "--empty", "missing"), missing)
        self.assertEqual(self.convert("archive", "archive", None, null), null)
        self.assertEqual(self.convert("archive", "archive", None, null, "--empty", "missing"),
                         missing)

    def test_mode_does_not_show_elsewhere(self):
        for target in ("csv", "sql", "extern", "display"):
            with self.subTest(target=target):
                self.assertEqual(
                    self.convert("csv", target, COLUMN_LIST, CSV, "--empty", "null"),
                    FORMS[target])


class CsvDialects(ZelconvCase):
    def csv(self, content, *options):
        return self.convert("csv", "extern", "A:long,B:string", content, *options)

    EXPECTED = extern([("A", "long"), ("B", "string")], [[1, "x y"], [2, "z"]])

    def test_line_ends_and_byte_order_mark(self):
        for content in ("A;B\n1;x y\n2;z\n", "A;B\n1;x y\n2;z", "A;B\r\n1;x y\r\n2;z\r\n",
                        "A;B\r\n1;x y\n2;z\r", "\ufeffA;B\n1;x y\n2;z\n",
                        '"A";"B"\n"1";"x y"\n"2";"z"\n'):
            with self.subTest(content=content):
                self.assertEqual(self.csv(content), self.EXPECTED)

    def test_separators(self):
        for separator, character in ((",", ","), ("tab", "\t"), ("\t", "\t"), ("|", "|")):
            with self.subTest(separator=separator):
                content = "A;B\n1;x y\n2;z\n".replace(";", character)
                self.assertEqual(self.csv(content, "--separator", separator), self.EXPECTED)

    def test_separator_in_a_text_is_quoted_on_the_way_out(self):
        text = extern([("A", "string"), ("B", "string")], [["1,5", "1;5"]])
        self.assertEqual(self.convert("extern", "csv", None, text, "--separator", ","),
                         b'A,B\n"1,5",1;5\n')

    def test_without_header(self):
        content = "1;x y\n2;z\n"
        self.assertEqual(self.csv(content, "--header", "no"), self.EXPECTED)
        self.assertEqual(self.convert("csv", "csv", "A:long,B:string", content, "--header", "no"),
                         content.encode())

    def test_line_ends_inside_quotes_stay(self):
        table = self.csv('A;B\n1;"x\r\ny\nz"\n')
        self.assertEqual(table, extern([("A", "long"), ("B", "string")], [[1, "x\r\ny\nz"]]))

    def test_blanks_belong_to_their_cell(self):
        self.assertEqual(self.csv("A;B\n1; x \n"),
                         extern([("A", "long"), ("B", "string")], [[1, " x "]]))

    def test_one_column_with_an_empty_line(self):
        table = self.convert("csv", "extern", "B:string", "B\nx\n\ny\n")
        self.assertEqual(table, extern([("B", "string")], [["x"], [None], ["y"]]))
        self.assertEqual(self.convert("extern", "csv", None, table), b"B\nx\n\ny\n")

    def test_wrong_headers(self):
        for content in ("", "B;A\n", "A\n", "A;B;C\n", "a;b\n", '"A;B\n', "1;x\n", "A;\xff\n"):
            with self.subTest(content=content):
                result = self.run_zelconv("--columns", "A:long,B:string", "--from", "csv", "--to",
                                          "csv", "-", "-", stdin=content.encode("latin-1"))
                self.assertEqual((result.status, result.out), (2, b""))


class Display(ZelconvCase):
    def shown(self, rows):
        return self.convert("extern", "display", None,
                            extern([("Nr", "long"), ("Text", "string")], rows)).decode("utf-8")

    def test_control_characters_do_not_break_the_table(self):
        lines = self.shown([[1, "a\rb\x1bc\0\x7f\x81"]]).splitlines()
        self.assertEqual(lines[2], " 1  a\\rb\\x1Bc\\x00\\x7F\\x81")

    def test_a_text_beyond_the_widest_column_is_not_cut(self):
        text = "ü" * 60
        out = self.convert("extern", "display", None,
                           extern([("T", "string"), ("N", "long")], [[text, 5], ["x", 6]]))
        self.assertEqual(out.decode("utf-8").splitlines()[1:],
                         ["-" * 40 + "  -", text + "  5", "x" + " " * 39 + "  6"])

    def test_rows_behind_the_sample(self):
        rows = [[i, "x"] for i in range(1000)] + [[1234567, "y"]]
        lines = self.shown(rows).splitlines()
        self.assertEqual(len(lines), 1003)
        self.assertEqual(lines[1], "---  ----")
        self.assertEqual(lines[2], "  0  x")
        self.assertEqual(lines[1002], "1234567  y")


class SqlNames(ZelconvCase):
    def statement(self, column, table):
        return self.convert("csv", "sql", f"{column}:long", f"{column}\n1\n", "--table",
                            table).decode("utf-8")

    def test_names(self):
        for column, table, expected in (
                ("Nr", "K_1", "INSERT INTO K_1 (Nr) VALUES (1);\n"),
                ("Haus-Nr", "Köln", "INSERT INTO [Köln] ([Haus-Nr]) VALUES (1);\n"),
                ("1a", "dbo.my table", "INSERT INTO dbo.[my table] ([1a]) VALUES (1);\n"),
                ('x"y', "T", 'INSERT INTO T ([x"y]) VALUES (1);\n')):
            with self.subTest(column=column, table=table):
                content = column if '"' not in column else '"x""y"'
                self.assertEqual(
                    self.convert("csv", "sql", f"{column}:long", f"{content}\n1\n", "--table",
                                 table).decode("utf-8"), expected)

    def test_names_that_sql_cannot_hold(self):
        for column, table in (("a]b", "T"), ("a[b", "T"), ("a", "T]; DROP TABLE x"), ("a", "a."),
                              ("a", "\u0141"), ("a", "x\ny")):
            with self.subTest(column=column, table=table):
                self.convert("csv", "sql", f"{column}:long", f"{column}\n1\n", "--table", table,
                             status=2)


if __name__ == "__main__":
    unittest.main()
