"""A zelconv that was built without databases: it says so, and does everything else."""

import unittest

from zelconv_support import ZelconvCase

COLUMNS = ("--columns", "N:long,T:string")
MESSAGE = "zelconv: odbc: this zelconv was built without databases\n"


class WithoutDatabases(ZelconvCase):
    def test_databases_are_refused(self):
        self.write("in", "N;T\n1;a\n")
        for arguments in (
                ("--from", "csv", "--to", "odbc:neu.db", "--table", "T", "in"),
                ("--from", "csv", "--to", "odbc:neu.db", "--table", "T", "--create", "yes", "in"),
                ("--from", "odbc:neu.db", "--table", "T", "--to", "csv", "out"),
                ("--from", "odbc:neu.db", "--from-table", "T", "--to", "odbc:DSN=x", "--table",
                 "T")):
            with self.subTest(arguments=arguments):
                result = self.run_zelconv(*COLUMNS, *arguments)
                self.assertEqual((result.status, result.out, result.errors), (2, b"", MESSAGE))
                self.assertEqual(self.names(), ["in"])

    def test_calls_that_make_no_sense(self):
        result = self.run_zelconv(*COLUMNS, "--from", "csv", "--to", "odbc:neu.db", "in")
        self.assertEqual(result.status, 2)
        self.assertIn("--table is required", result.errors)

    def test_other_forms_work(self):
        self.write("in", "N;T\n1;a\n")
        result = self.run_zelconv(*COLUMNS, "--from", "csv", "--to", "sql", "--table", "T", "in",
                                  "-")
        self.assertEqual((result.status, result.out, result.errors),
                         (0, b'INSERT INTO T (N, T) VALUES (1, "a");\n', ""))


if __name__ == "__main__":
    unittest.main()
