"""Rows that go into a table and come out of it, as they are documented in docs/zelconv.md."""

import datetime
import math
import random
import struct
import unittest

from zelconv_database_support import (COLUMNS, CONNECT, HEADER, IS_SQLITE, DatabaseCase, count,
                                      execute, table_names)
from zelconv_support import archive

HOSTILE = ["O'Brien", '"Süd"', "a;b", "\\", "\\'", "x' --", "'; DROP TABLE T; --", "/* */ ?",
           "%s {d '2000-01-01'}", "`T`", "]", " am Rand ", "zwei\nZeilen", "\r\n", "\t", "€ ‚„…†ÿß",
           "NULL", "?", "''", '""', "#", "&amp;", "\x01\x7f", "x" * 5000]


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def csv_of(rows):
    """Rows of texts as zelconv writes them with --separator tab; None is an undefined value."""
    lines = []
    for row in rows:
        cells = []
        for text in row:
            special = text is not None and (text == "" or any(c in text for c in '"\t\r\n')
                                            or text[0] == " " or text[-1] == " ")
            cells.append("" if text is None else quoted(text) if special else text)
        lines.append("\t".join(cells) + "\n")
    return "".join(lines)


ROWS = HEADER + '''\
1;2;1234,50;0,125;0,1;Ja;A;Müller;05.03.2000 14:07;05.03.2000;01:30
2;-32768;-0,01;-0,5;-1,5;Nein;ß;"O'Brien; ""Süd""";05.03.2000 14:07:09;29.02.2000;-00:30
2147483647;32767;99999999999999999999999999,99;1234567890123456789012345678;0,3333333333333333;Ja;";";x;01.01.1753 00:00;01.01.1753;100,17
-2147483648;0;0,00;12345678901234,12345678901234;1,7976931348623157E+308;Nein;€;" y ";31.12.9999 23:59:59;31.12.9999;23:59
;;;;;;;;;;
'''


# Extern form has no sign for times below an hour, no hundredths and 16 digits of a double.
EXTERN_ROWS = ROWS.replace("-00:30", "01:30").replace("100,17", "02:00").replace(
    "0,3333333333333333", "0,5").replace("1,7976931348623157E+308", "2")


class ThereAndBack(DatabaseCase):
    def test_every_type(self):
        self.put(COLUMNS, ROWS, "--create", "yes")
        self.assertEqual(self.get(COLUMNS).decode(), ROWS)

    def test_what_the_database_has(self):
        self.put(COLUMNS, HEADER + ROWS.splitlines(True)[2], "--create", "yes")
        texts = [f"CAST({name} AS {'TEXT' if IS_SQLITE else 'CHAR'})"
                 for name in HEADER.strip().split(";")]
        self.assertEqual(execute(f"SELECT {','.join(texts)} FROM T"),
                         [["2", "-32768", "-0.01", "-0.5", "-1.5", "0", "ß", 'O\'Brien; "Süd"',
                           "2000-03-05 14:07:09", "2000-02-29", "-600"]])

    @unittest.skipUnless(IS_SQLITE, "elsewhere columns have the type")
    def test_the_types_that_values_get(self):
        names = HEADER.strip().split(";")
        execute(f"CREATE TABLE T ({','.join(names)})")
        self.put(COLUMNS, HEADER + ROWS.splitlines(True)[2] + ";" * 10 + "\n")
        types = ",".join(f"typeof({name})" for name in names)
        self.assertEqual(execute(f"SELECT {types} FROM T"),
                         [["integer", "integer", "text", "text", "real", "integer", "text", "text",
                           "text", "text", "integer"], ["null"] * 11])

    def test_null_is_null(self):
        self.put(COLUMNS, HEADER + ";" * 10 + "\n", "--create", "yes")
        names = HEADER.strip().split(";")
        query = " AND ".join(f"{name} IS NULL" for name in names)
        self.assertEqual(count(f"T WHERE {query}"), 1)

    def test_empty_text_is_no_null(self):
        self.put(None, archive([("N", "string")], [[""], [None]]), "--create", "yes",
                 source="archive")
        self.assertEqual(self.get("N:string"), b'N\n""\n\n')

    def test_hostile_texts(self):
        content = "N\tI\n" + csv_of([[text, str(i)] for i, text in enumerate(HOSTILE)])
        columns = "N:string,I:long"
        self.put(columns, content, "--create", "yes", "--separator", "tab")
        self.assertEqual(self.get(columns, "--separator", "tab").decode(), content)

    def test_every_character(self):
        # Five bytes are no characters for Python.
        characters = bytes(range(1, 0x100)).decode("cp1252", "ignore")
        self.assertEqual(len(characters), 0xFF - 5)
        rows = [[character, character * 3, character + "x"] for character in characters]
        content = archive([("C", "char"), ("S", "string"), ("E", "string")], rows)
        self.put(None, content, "--create", "yes", source="archive")
        self.assertEqual(self.get("C:char,S:string,E:string", target="archive"), content)

    def test_doubles_to_the_last_bit(self):
        dice = random.Random(7)
        numbers = [0.1 + 0.2, 1 / 3, math.pi, 5e-324, 2.2250738585072014e-308, 1e22, 1e23, 1e300,
                   8.5, -0.001, 123456789.123456, 9007199254740993.0, 0.0]
        numbers += [struct.unpack("<d", struct.pack("<Q", dice.getrandbits(62)))[0]
                    for _ in range(500)]
        numbers += [round(dice.uniform(-1e6, 1e6), dice.randrange(9)) for _ in range(5000)]
        content = archive([("N", "double")], [[number] for number in numbers])
        self.put(None, content, "--create", "yes", source="archive")
        self.assertEqual(self.get("N:double", target="archive"), content)
        if IS_SQLITE:
            self.assertEqual([row[0] for row in execute("SELECT N FROM T")], numbers)

    def test_every_form_as_target(self):
        self.put(COLUMNS, EXTERN_ROWS, "--create", "yes")
        for form in ("csv", "extern", "archive", "display"):
            with self.subTest(form=form):
                self.assertEqual(self.get(COLUMNS, target=form),
                                 self.convert("csv", form, COLUMNS, EXTERN_ROWS))

    def test_sql_as_target(self):
        self.put("Nr:long,Name:string", "Nr;Name\n1;a\n;\n", "--create", "yes")
        out = self.get("Nr:long,Name:string", "--table", "Neu", target="sql")
        self.assertEqual(out, b'INSERT INTO Neu (Nr, Name) VALUES (1, "a");\n'
                              b"INSERT INTO Neu (Nr, Name) VALUES (NULL, NULL);\n")

    def test_every_form_as_source(self):
        for form in ("extern", "archive"):
            with self.subTest(form=form):
                self.put(None, self.convert("csv", form, COLUMNS, EXTERN_ROWS), "--create", "yes",
                         source=form, table=form)
                self.assertEqual(self.get(COLUMNS, table=form).decode(), EXTERN_ROWS)

    def test_modes(self):
        self.put("N:long", "N\n1\n\n", "--create", "yes")
        for mode, number in (("missing", 0), ("null", 1)):
            self.assertEqual(self.get("N:long", "--empty", mode, target="archive"),
                             archive([("N", "long")], [[1], [None]], mode=number))

    def test_charsets(self):
        self.put("N:string", "N\n\x94ffnen\n".encode("latin-1"), "--charset", "850", "--create",
                 "yes")
        self.assertEqual(execute("SELECT N FROM T"), [["öffnen"]])
        self.assertEqual(self.get("N:string", "--charset", "1252"), b"N\n\xF6ffnen\n")

    def test_names(self):
        columns = "Größe in €:long,Order:long,Haus-Nr:string"
        content = "Größe in €;Order;Haus-Nr\n1;2;3a\n"
        for table in ("Bücher & Co", "Select"):
            with self.subTest(table=table):
                self.put(columns, content, "--create", "yes", table=table)
                self.assertIn(table.lower(), [name.lower() for name in table_names()])
                self.assertEqual(self.get(columns, table=table).decode(), content)

    def test_sorted(self):
        content = "N;T\n10;b\n9;a\n;c\n"
        self.put("N:long,T:string", content, "--create", "yes", "--sort", "N")
        self.assertEqual(execute("SELECT T FROM T"), [["c"], ["a"], ["b"]])
        self.assertEqual(self.get("N:long,T:string", "--sort", "T"), b"N;T\n9;a\n10;b\n;c\n")

    def test_many_rows(self):
        content = "N;S\n" + "".join(f"{i};{'x' * (i % 50)}y\n" for i in range(20000))
        self.put("N:long,S:string", content, "--create", "yes")
        self.assertEqual(self.get("N:long,S:string", "--sort", "N").decode(), content)

    def test_no_rows(self):
        self.put("N:long", "N\n", "--create", "yes")
        self.assertEqual((count(), self.get("N:long")), (0, b"N\n"))

    def test_long_texts(self):
        content = "N\n" + "ü" * 300000 + "\n" + "x" * 3000000 + "\n"
        self.put("N:string", content, "--create", "yes")
        self.assertEqual(self.get("N:string").decode(), content)

    def test_many_columns(self):
        names = [f"C{i}" for i in range(300)]
        kinds = ("long", "string", "double")
        columns = ",".join(f"{name}:{kinds[i % 3]}" for i, name in enumerate(names))
        content = ";".join(names) + "\n" + "".join(
            f"{row};" + ";".join("" if (row + i) % 7 == 0 else str(row * i)
                                 for i in range(1, 300)) + "\n" for row in range(50))
        self.put(columns, content, "--create", "yes")
        self.assertEqual(self.get(columns, "--sort", "C0").decode(), content)

    def test_rows_of_every_size(self):
        # What is handed over at once ends before, in and behind such rows.
        content = "N;S\n" + "".join(f"{i};{'x' * size}\n" for i, size in enumerate(
            [262143, 1, 262144, 131070, 131071, 131072, *range(262100, 262145), 1, 600000, 1]))
        self.put("N:long,S:string", content, "--create", "yes")
        self.assertEqual(self.get("N:long,S:string", "--sort", "N").decode(), content)

    def test_from_table_to_table(self):
        self.put("N:long,S:string", "N;S\n1;a\n2;b\n", "--create", "yes")
        result = self.run_zelconv("--columns", "S:string,N:long", "--from", f"odbc:{CONNECT}",
                                  "--from-table", "T", "--to", f"odbc:{CONNECT}", "--table", "U",
                                  "--create", "yes")
        self.assertEqual(result.status, 0, result.errors)
        self.assertEqual([[str(cell) for cell in row] for row in execute("SELECT S,N FROM U")],
                         [["a", "1"], ["b", "2"]])


class Appending(DatabaseCase):
    def test_rows_are_added(self):
        execute("CREATE TABLE T (A INTEGER, N VARCHAR(10) DEFAULT 'neu', B DATE)",
                "INSERT INTO T VALUES (1, 'alt', '2000-01-02')")
        self.put("b:date,a:long", "b;a\n03.04.2005;2\n", "--create", "yes")
        self.assertEqual(self.get("A:long,N:string,B:date"),
                         b"A;N;B\n1;alt;02.01.2000\n2;neu;03.04.2005\n")

    def test_another_table_of_a_similar_name(self):
        execute("CREATE TABLE TX1 (A INTEGER)")
        self.refuse(self.put("A:long", "A\n1\n", table="T_1", status=2), "no such table")

    def test_a_missing_table(self):
        self.refuse(self.put("N:long", "N\n1\n", status=2), "T: there is no such table")
        self.assertEqual(table_names(), [])

    def test_an_unknown_column(self):
        execute("CREATE TABLE T (A INTEGER)")
        self.refuse(self.put("A:long,B:long", "A;B\n1;2\n", "--create", "yes", status=2),
                    "column 'B' is not in the table")
        self.assertEqual(count(), 0)

    def test_a_column_that_would_change_values(self):
        execute("CREATE TABLE T (I INTEGER, D DOUBLE, V VARCHAR(20), DT DATE)")
        for name, kind in (("I", "string"), ("I", "double"), ("I", "decimal"), ("D", "long"),
                           ("D", "string"), ("V", "long"), ("V", "double"), ("V", "datetime"),
                           ("DT", "datetime"), ("DT", "string"), ("I", "datetime"),
                           ("I", "char")):
            with self.subTest(name=name, kind=kind):
                self.refuse(self.put(f"{name}:{kind}", f"{name}\n", status=2),
                            f"column '{name}' is ")

    def test_columns_that_can_take_it(self):
        execute("CREATE TABLE T (B BIGINT, N DECIMAL(12,3), V VARCHAR(50), S DATETIME)")
        columns = "B:bool,N:decimal,V:decimal,S:date"
        content = "B;N;V;S\nJa;1,125;-2,50;01.02.2003\n"
        self.put(columns, content)
        self.assertEqual(self.get(columns).decode(), content)


class Rejects(DatabaseCase):
    def test_rejected_input(self):
        self.write("in", "N;T\n1;a\nx;b\n3;c\n")
        result = self.run_zelconv("--columns", "N:long,T:string", "--from", "csv", "--to",
                                  f"odbc:{CONNECT}", "--table", "T", "--create", "yes",
                                  "--rejects", "rejects", "in")
        self.assertEqual(result.status, 1, result.errors)
        self.assertEqual(self.get("N:long,T:string"), b"N;T\n1;a\n3;c\n")
        self.assertEqual(self.read("rejects").splitlines()[1], b"x;b")

    def check_rows(self, columns, expected):
        """expected: [(row, column, number)] of the rejects; their lines begin alike."""
        result = self.run_zelconv("--columns", columns, "--from", f"odbc:{CONNECT}", "--table",
                                  "T", "--to", "csv", "--rejects", "rejects", "out")
        self.assertEqual(result.status, 1, result.errors)
        heads = [line.split(b"\t") for line in self.read("rejects").splitlines()
                 if line.startswith(b"#zelconv")]
        self.assertEqual([(int(head[1]), head[2].decode(), int(head[3])) for head in heads],
                         expected)
        return self.read("out").decode()

    def test_values_that_do_not_fit(self):
        execute("CREATE TABLE T (L BIGINT, S INTEGER, D VARCHAR(60), C VARCHAR(9), B INTEGER)",
                "INSERT INTO T VALUES (1, 1, '1.5', 'a', 1)",
                "INSERT INTO T VALUES (2147483648, 1, '1.5', 'a', 1)",
                "INSERT INTO T VALUES (1, 32768, '1.5', 'a', 1)",
                "INSERT INTO T VALUES (1, 1, 'abc', 'a', 1)",
                "INSERT INTO T VALUES (1, 1, '', 'a', 1)",
                "INSERT INTO T VALUES (1, 1, '1.2.3', 'a', 1)",
                "INSERT INTO T VALUES (1, 1, '12345678901234567890123456789.5', 'a', 1)",
                "INSERT INTO T VALUES (1, 1, '1.5', 'ab', 1)",
                "INSERT INTO T VALUES (1, 1, '1.5', '', 1)",
                "INSERT INTO T VALUES (1, 1, '1.5', 'a', 2)",
                "INSERT INTO T VALUES (-2147483648, -32768, '-.5', 'b', 0)")
        out = self.check_rows("L:long,S:short,D:decimal,C:char,B:bool", [
            (2, "L", 115), (3, "S", 115), (4, "D", 1), (5, "D", 115), (6, "D", 1),
            (7, "D", 1), (8, "C", 115), (9, "C", 115), (10, "B", 115)])
        self.assertEqual(out, "L;S;D;C;B\n1;1;1,5;a;Ja\n-2147483648;-32768;-0,5;b;Nein\n")

    def test_the_first_row(self):
        execute("CREATE TABLE T (L BIGINT, N VARCHAR(9))", "INSERT INTO T VALUES (2147483648, 'x')",
                "INSERT INTO T VALUES (1, 'y')")
        self.assertEqual(self.check_rows("L:long,N:string", [(1, "L", 115)]), "L;N\n1;y\n")
        row = self.read("rejects").splitlines()[1]
        self.assertEqual(row, b"100:0:0\t100:1:x")

    def test_characters_that_the_code_page_lacks(self):
        execute("CREATE TABLE T (N VARCHAR(20))", "INSERT INTO T VALUES ('gut')",
                "INSERT INTO T VALUES ('Łódź')", "INSERT INTO T VALUES ('für')")
        self.assertEqual(self.check_rows("N:string", [(2, "N", 115)]), "N\ngut\nfür\n")

    def test_dates_that_do_not_fit(self):
        execute("CREATE TABLE T (M DATETIME, D DATETIME)" if IS_SQLITE else
                "CREATE TABLE T (M DATETIME(3), D DATETIME)",
                "INSERT INTO T VALUES ('2000-01-02 03:04:05', '2000-01-02')",
                "INSERT INTO T VALUES ('1752-12-31 00:00:00', '2000-01-02')",
                "INSERT INTO T VALUES ('2000-01-02 03:04:05.5', '2000-01-02')",
                "INSERT INTO T VALUES ('2000-01-02 03:04:05', '2000-01-02 10:00:00')")
        out = self.check_rows("M:datetime,D:date", [(2, "M", 1), (3, "M", 115), (4, "D", 114)])
        self.assertEqual(out, "M;D\n02.01.2000 03:04:05;02.01.2000\n")

    @unittest.skipUnless(IS_SQLITE, "only SQLite keeps such texts as dates")
    def test_texts_that_are_no_dates(self):
        execute("CREATE TABLE T (M DATETIME)", "INSERT INTO T VALUES ('2000-01-02 03:04:05')",
                "INSERT INTO T VALUES ('2001-02-29 00:00:00')", "INSERT INTO T VALUES ('gestern')")
        self.check_rows("M:datetime", [(2, "M", 115), (3, "M", 115)])

    def reject_all(self, columns, content, column):
        """Every row but the first one is a reject of that column."""
        self.write("in", content)
        result = self.run_zelconv("--columns", columns, "--from", "csv", "--to",
                                  f"odbc:{CONNECT}", "--table", "T", "--rejects", "rejects", "in")
        self.assertEqual(result.status, 1, result.errors)
        heads = [line.split(b"\t") for line in self.read("rejects").splitlines()
                 if line.startswith(b"#zelconv")]
        rows = len(content.splitlines()) - 2
        self.assertEqual([(head[2].decode(), int(head[3])) for head in heads],
                         [(column, 116)] * rows)
        self.assertEqual(count(), 1)
        execute("DELETE FROM T")

    @unittest.skipIf(IS_SQLITE, "SQLite keeps longer texts than it is told")
    def test_values_that_the_columns_cannot_take(self):
        execute("CREATE TABLE T (V VARCHAR(5), C CHAR(5), D DECIMAL(6,2))")
        self.reject_all("V:string", "V\nfünf!\nsechs!\n", "V")
        self.reject_all("C:string", "C\n a\na \n", "C")
        self.reject_all("D:decimal", "D\n-9999,990\n10000\n0,001\n-123456,78\n", "D")

    @unittest.skipUnless(IS_SQLITE, "elsewhere such columns are exact")
    def test_decimals_that_sqlite_rounds(self):
        execute("CREATE TABLE T (D DECIMAL(28,2))")
        self.reject_all("D:decimal", "D\n1234567890123,45\n12345678901234,56\n", "D")

    def test_what_comes_from_archives_only(self):
        for kind, value in (("double", math.nan), ("double", math.inf), ("bool", 7)):
            with self.subTest(kind=kind, value=value):
                content = archive([("N", kind)], [[value]])
                result = self.put(None, content, "--create", "yes", source="archive", status=1)
                self.assertIn("error 113", result.errors)
                self.assertEqual(count(), 0)
                execute("DROP TABLE T")

    def test_years_of_five_digits(self):
        content = archive([("N", "date")], [[datetime.date(9999, 12, 31)]])
        position = content.index(struct.pack("<i", 9999 - 1900))
        self.put("N:date", "N\n31.12.9999\n", "--create", "yes")
        self.assertEqual(self.get("N:date", target="archive")[position:position + 4],
                         struct.pack("<i", 9999 - 1900))


if __name__ == "__main__":
    unittest.main()
