"""Rows that cannot be converted: where they are, why, and that they come out unchanged."""

import csv
import io
import subprocess
import sys
import unittest

from zelconv_support import SAMPLE, ZelconvCase, archive, extern

FOLLOW_UP = "Default-Catch / Folgefehler"
OUT_OF_RANGE = "Wert außerhalb des Wertebereichs"
FORMAT = "Format nicht eingehalten"
QUOTES = "Anführungszeichen falsch gesetzt"
OPEN_QUOTES = "Anführungszeichen am Dateiende noch offen"


def reject(line, column, number, text, row, cause=None, cause_text=None):
    return (line, column.encode(), number, text.encode(), cause or number,
            (cause_text or text).encode(), row if isinstance(row, bytes) else row.encode())


class BadCells(ZelconvCase):
    def test_numbers(self):
        rows = [("x", 21, FORMAT), ("1x", 21, FORMAT), ("1,5", 21, FORMAT), ("--1", 21, FORMAT),
                (" ", 21, FORMAT), ("0x10", 21, FORMAT), ("2147483648", 8, OUT_OF_RANGE),
                ("-2147483649", 8, OUT_OF_RANGE), ("9" * 38, 8, OUT_OF_RANGE)]
        content = "N;T\n" + "".join(f"{text};t\n" for text, _, _ in rows) + "5;t\n"
        rejects, out = self.rejects_of("N:long,T:string", content)
        self.assertEqual(out, b"N;T\n5;t\n")
        self.assertEqual(rejects,
                         [reject(line, "N", 1, FOLLOW_UP, f"{text};t\n", cause, cause_text)
                          for line, (text, cause, cause_text) in enumerate(rows, 2)])

    def test_first_bad_column_is_named(self):
        rejects, _ = self.rejects_of("A:long,B:long,Über:long", "A;B;Über\n1;2;z\n1;y;z\n")
        self.assertEqual(rejects, [reject(2, "Über", 1, FOLLOW_UP, "1;2;z\n", 21, FORMAT),
                                   reject(3, "B", 1, FOLLOW_UP, "1;y;z\n", 21, FORMAT)])

    def test_nul_bytes(self):
        rejects, out = self.rejects_of("A:string,B:string", b"A;B\na\0b;c\nd;\0\ne;f\n")
        self.assertEqual(out, b"A;B\ne;f\n")
        self.assertEqual(rejects, [reject(2, "A", 106, "NUL-Byte im Text", b"a\0b;c\n"),
                                   reject(3, "B", 106, "NUL-Byte im Text", b"d;\0\n")])


class BadRows(ZelconvCase):
    def test_number_of_cells(self):
        rejects, out = self.rejects_of("A:string,B:string,C:string",
                                       "A;B;C\na\n\na;b\na;b;c;d\n;;\n" + ";" * 70000 + "\n")
        self.assertEqual(out, b"A;B;C\n;;\n")
        self.assertEqual(rejects, [
            reject(2, "B", 101, "Zu wenige Zellen", "a\n"),
            reject(3, "B", 101, "Zu wenige Zellen", "\n"),
            reject(4, "C", 101, "Zu wenige Zellen", "a;b\n"),
            reject(5, "-", 102, "Zu viele Zellen", "a;b;c;d\n"),
            reject(7, "-", 102, "Zu viele Zellen", ";" * 70000 + "\n")])

    def test_quotes(self):
        rows = ['a"b;c\n', '"a"b;c\n', 'a;b"\n', ' "a";b\n', '"a" ;b\n', '"a""b"c;d\n',
                '"""a"b;c\n']
        for row in rows:
            with self.subTest(row=row):
                rejects, out = self.rejects_of("A:string,B:string", "A;B\n" + row + "x;y\n")
                self.assertEqual(out, b"A;B\nx;y\n")
                self.assertEqual(rejects, [reject(2, "-", 103, QUOTES, row)])

    def test_a_stray_quote_does_not_cost_the_rows_below(self):
        content = 'A;B\n1;"open\n2;b\n3;"c d"\n4;"e\nf"\n5;g\n'
        rejects, out = self.rejects_of("A:long,B:string", content)
        self.assertEqual(out, b'A;B\n2;b\n3;c d\n4;"e\nf"\n5;g\n')
        self.assertEqual(rejects, [reject(2, "-", 103, QUOTES, '1;"open\n')])

    def test_cut_off_in_a_quoted_cell(self):
        rejects, out = self.rejects_of("A:long,B:string", 'A;B\n1;a\n2;"b\n3;c\n4;"d')
        self.assertEqual(out, b"A;B\n1;a\n3;c\n")
        self.assertEqual(rejects, [reject(3, "-", 103, QUOTES, '2;"b\n'),
                                   reject(5, "-", 104, OPEN_QUOTES, '4;"d')])

    def test_open_quote_up_to_the_end(self):
        rejects, out = self.rejects_of("A:long,B:string", 'A;B\n1;"a\n2;b\n3;c\n')
        self.assertEqual(out, b"A;B\n2;b\n3;c\n")
        self.assertEqual(rejects, [reject(2, "-", 104, OPEN_QUOTES, '1;"a\n')])

    def test_lines_are_counted_as_an_editor_does(self):
        content = 'A;B\n1;"a\n\nb"\nx;"c\nd"\n3;"e\r\nf"\ny;g\r\nz;h'
        rejects, out = self.rejects_of("A:long,B:string", content)
        self.assertEqual(out, b'A;B\n1;"a\n\nb"\n3;"e\r\nf"\n')
        self.assertEqual([(r[0], r[6]) for r in rejects],
                         [(5, b'x;"c\nd"\n'), (9, b"y;g\r\n"), (10, b"z;h")])

    def test_a_row_beyond_the_limit(self):
        # 17 lines of a mebibyte behind an open quote; the limit is 16. What was taken for the text
        # of a cell is then read as the rows that it would be without that quote.
        lines = ("x" * (2**20 - 1) + "\n") * 17
        rejects, out = self.rejects_of("A:string", 'A\n"a\n' + lines + "b\n")
        self.assertEqual(rejects, [reject(2, "-", 105, "Zeile zu lang", '"a\n')])
        self.assertTrue(out == ("A\n" + lines + "b\n").encode())

    def test_a_line_beyond_the_limit_ends_it(self):
        content = b"A\n" + b"x" * (16 * 2**20) + b"\ny\n"
        self.convert("csv", "csv", "A:string", content, status=2)
        content = b"A\n" + b"x" * (16 * 2**20 - 1) + b"\ny\n"
        self.assertEqual(self.convert("csv", "csv", "A:string", content), content)


class OtherSources(ZelconvCase):
    HEADER = "#zelconv-extern 1\tN:long\tT:string\n"

    def test_extern_cells(self):
        cell = "Ungültige Zelle in externer Darstellung"
        version = "Falsche Versionsnummer"
        changed = "Externer Text käme nicht unverändert zurück"
        rows = [
            ("100:1:1", "T", 101, "Zu wenige Zellen", None, None),
            ("100:1:1\t100:1:a\t100:1:b", "-", 102, "Zu viele Zellen", None, None),
            ("\t100:1:a", "N", 110, cell, None, None),
            ("100:2:1\t100:1:a", "N", 110, cell, None, None),
            ("65536:1:1\t100:1:a", "N", 110, cell, None, None),
            ("-1:1:1\t100:1:a", "N", 110, cell, None, None),
            ("100:1\t100:1:a", "N", 110, cell, None, None),
            ("100:1:1\t100:1:a\\", "T", 110, cell, None, None),
            ("100:1:1\t100:1:\\x", "T", 110, cell, None, None),
            ("101:1:1\t100:1:a", "N", 14, version, None, None),
            ("100:1:1\t99:0:", "T", 14, version, None, None),
            ("100:1:12x\t100:1:a", "N", 1, FOLLOW_UP, 5, "Ungültiger Initialwert"),
            ("100:1:2147483648\t100:1:a", "N", 1, FOLLOW_UP, 8, OUT_OF_RANGE),
            # The library reads these as 12, 0 and 7; what is lost must not be lost silently.
            ("100:1:12,9\t100:1:a", "N", 111, changed, None, None),
            ("100:1:\t100:1:a", "N", 111, changed, None, None),
            ("100:1:007\t100:1:a", "N", 111, changed, None, None),
        ]
        content = self.HEADER + "".join(row[0] + "\n" for row in rows)
        content += f"100:1:5\t100:1:gut\n#end\t{len(rows) + 1}\n"
        rejects, out = self.rejects_of(None, content, source="extern")
        self.assertEqual(out, b"N;T\n5;gut\n")
        self.assertEqual(rejects, [reject(line, column, number, text, row + "\n", cause, cause_text)
                                   for line, (row, column, number, text, cause, cause_text)
                                   in enumerate(rows, 2)])

    def test_nul_bytes_that_a_form_lacks(self):
        columns = [("N", "long"), ("T", "string")]
        rows = [[1, "a"], [2, "b\0c"], [3, "d"]]
        for target in ("csv", "sql"):
            with self.subTest(target=target):
                rejects, out = self.rejects_of(None, archive(columns, rows), "--table", "T",
                                               source="archive", target=target)
                self.assertEqual(rejects, [reject(2, "T", 106, "NUL-Byte im Text",
                                                  "100:1:2\t100:1:b\\0c")])
                self.assertEqual(len(out.splitlines()), 3 if target == "csv" else 2)

    def test_rows_of_an_archive_come_out_in_extern_form(self):
        columns = [("N", "long"), ("T", "string")]
        rejects, out = self.rejects_of(None, archive(columns, [[1, "5 €"], [2, "ü"]]),
                                       "--output-charset", "850", source="archive")
        self.assertEqual(out, "N;T\n2;ü\n".encode("cp850"))
        self.assertEqual(rejects, [
            reject(1, "T", 109, "Zeichen fehlt in der Codepage der Ausgabe: U+20AC",
                   "100:1:1\t100:1:5 €")])

    def test_rows_that_sorting_would_have_moved(self):
        rejects, out = self.rejects_of("N:long", "N\n3\nx\n1\n", "--sort", "N")
        self.assertEqual(out, b"N\n1\n3\n")
        self.assertEqual([r[0] for r in rejects], [3])

    def test_the_row_behind_a_reject_has_nothing_of_it(self):
        text = extern([("A", "string"), ("B", "string")], [["a", "b"], ["c", None]])
        text = text.replace(b"100:1:b", b"101:1:b")
        rejects, out = self.rejects_of(None, text, source="extern")
        self.assertEqual((len(rejects), out), (1, b"A;B\nc;\n"))


class Reports(ZelconvCase):
    def test_charset_of_the_reasons_is_that_of_the_rows(self):
        self.write("in", "Größe\nä\n".encode("cp850"))
        result = self.run_zelconv("--columns", "Größe:long", "--from", "csv", "--to", "csv",
                                  "--charset", "850", "--rejects", "rejects", "in", "out")
        self.assertEqual(result.status, 1)
        self.assertEqual(self.read("rejects"),
                         f"#zelconv\t2\tGröße\t1\t{FOLLOW_UP}\t21\t{FORMAT}\t2\nä\n"
                         .encode("cp850"))

    def test_without_a_file_the_first_ones_are_told_of(self):
        content = "N\n" + "x\n" * 30
        result = self.run_zelconv("--columns", "N:long", "--from", "csv", "--to", "csv", "-", "-",
                                  stdin=content.encode())
        self.assertEqual((result.status, result.out), (1, b"N\n"))
        lines = result.errors.splitlines()
        self.assertEqual(lines[0], f"zelconv: line 2, column N: error 1 {FOLLOW_UP}; "
                                   f"first cause 21 {FORMAT}")
        self.assertTrue(lines[19].startswith("zelconv: line 21,"))
        self.assertIn("--rejects", lines[20])
        self.assertEqual(lines[21:], ["zelconv: 30 of 30 rows rejected"])

    def test_no_rejects_empty_the_file_of_an_earlier_run(self):
        self.write("in", "N\n1\n")
        self.write("rejects", "old")
        result = self.run_zelconv("--columns", "N:long", "--from", "csv", "--to", "csv",
                                  "--rejects", "rejects", "in", "out")
        self.assertEqual((result.status, result.errors, self.read("rejects")), (0, "", b""))


class Sample(ZelconvCase):
    COLUMNS = "Nr:long,Name:string,Strasse:string,PLZ:string,Ort:string,Bemerkung:string"

    def test_the_script_makes_the_file(self):
        made = subprocess.run([sys.executable, "-B", SAMPLE / "make_kunden.py"], check=True,
                              stdout=subprocess.PIPE).stdout
        self.assertEqual(made, (SAMPLE / "kunden.csv").read_bytes())

    def test_customers_and_broken_rows(self):
        content = (SAMPLE / "kunden.csv").read_bytes()
        rejects, out = self.rejects_of(self.COLUMNS, content)
        rows = list(csv.reader(io.StringIO(out.decode("utf-8")), delimiter=";"))
        self.assertEqual([int(row[0]) for row in rows[1:]], list(range(10001, 11001)))
        self.assertEqual(
            [(r[1].decode(), r[4], r[6].split(b";")[0]) for r in rejects],
            [("Nr", 21, b"2o057"), ("Nr", 8, b"4294967296"), ("Nr", 21, b"20248,5"),
             ("Ort", 101, b"20333"), ("-", 102, b"20420"), ("-", 103, b"20512"),
             ("-", 103, b"20604"), ("Name", 108, b"20777"), ("Name", 107, b"20850"),
             ("-", 104, b"21000")])
        lines = content.split(b"\n")
        for line, *_, row in rejects:
            self.assertEqual(row.rstrip(b"\n"), lines[line - 1])
        # The good rows come out as they stand in the file.
        for _, *_, row in rejects:
            content = content.replace(row, b"")
        self.assertEqual(out, content)


if __name__ == "__main__":
    unittest.main()
