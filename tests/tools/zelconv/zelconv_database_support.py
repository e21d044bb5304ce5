"""What the tests of zelconv with databases share: a table that each test finds missing, and looking
into it past zelconv. Run by tests/support/with_database.py."""

import os
import pathlib
import re
import sqlite3
import subprocess
import time

from zelconv_support import ZELCONV, ZelconvCase

KIND = os.environ["ZEL_TEST_DATABASE"]
CONNECT = os.environ["ZEL_TEST_CONNECT"]
SERVER_FOLDER = pathlib.Path(os.environ["ZEL_TEST_FOLDER"])
IS_SQLITE = KIND == "sqlite"

# A column of every type, and rows that csv writes as they stand here.
COLUMNS = ("Nr:long,Menge:short,Preis:decimal(2),Rabatt:decimal,Gewicht:double,Express:bool,"
           "Status:char,Name:string,Am:datetime,Tag:date,Dauer:time")
HEADER = "Nr;Menge;Preis;Rabatt;Gewicht;Express;Status;Name;Am;Tag;Dauer\n"


def attribute(name):
    return re.search(f"(?i)(?:^|;){name}=([^;]*)", CONNECT)[1]


def execute(*statements):
    """Runs statements past zelconv and returns the rows of the last one, cells as Python has them
    for SQLite, as texts for MariaDB."""
    if IS_SQLITE:
        connection = sqlite3.connect(attribute("Database"), isolation_level=None)
        try:
            for statement in statements:
                rows = connection.execute(statement).fetchall()
            return [list(row) for row in rows]
        finally:
            connection.close()
    out = subprocess.run(
        ["mariadb", "--no-defaults", "--protocol=tcp", "-h127.0.0.1", f"-P{attribute('PORT')}",
         "-uroot", "--default-character-set=utf8mb4", "--batch", "--skip-column-names", "--raw",
         "test"], input=";\n".join(statements) + ";\n", encoding="utf-8", check=True,
        stdout=subprocess.PIPE).stdout
    return [line.split("\t") for line in out.splitlines()]


def count(table="T"):
    return int(execute(f"SELECT COUNT(*) FROM {table}")[0][0])


def table_names():
    query = ("SELECT name FROM sqlite_master WHERE type='table'" if IS_SQLITE
             else "SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA='test'")
    return sorted(row[0] for row in execute(query))


class DatabaseCase(ZelconvCase):
    def setUp(self):
        super().setUp()
        for name in table_names():
            execute(f"DROP TABLE `{name}`")

    def put(self, columns, content, *options, status=0, connect=CONNECT, source="csv", table="T"):
        """Writes rows to a table."""
        content = content.encode() if isinstance(content, str) else content
        arguments = ["--columns", columns] if columns else []
        result = self.run_zelconv(*arguments, "--from", source, "--to", f"odbc:{connect}",
                                  "--table", table, *options, "-", stdin=content)
        self.assertEqual(result.status, status, result.errors)
        return result

    def get(self, columns, *options, target="csv", status=0, connect=CONNECT, table="T"):
        """What comes out of a table."""
        result = self.run_zelconv("--columns", columns, "--from", f"odbc:{connect}",
                                  "--from-table", table, "--to", target, *options, "-")
        self.assertEqual(result.status, status, result.errors)
        return result.out

    def refuse(self, result, *parts):
        """A run that was refused in one line which says all that."""
        self.assertEqual(result.status, 2, result.errors)
        self.assertEqual(result.errors.count("\n"), 1, result.errors)
        for part in parts:
            self.assertIn(part, result.errors)

    def start_writing(self, rows):
        """A run in the middle of writing column N, as soon as it has taken these rows."""
        process = subprocess.Popen(
            [ZELCONV, "--columns", "N:string", "--from", "csv", "--to", f"odbc:{CONNECT}",
             "--table", "T", "-"], stdin=subprocess.PIPE, stderr=subprocess.PIPE, cwd=self.folder)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        process.stdin.write(b"N\n" + b"".join(b"%0100d\n" % i for i in range(rows)))
        process.stdin.flush()
        return process

    def ask_server(self, what):
        request = SERVER_FOLDER / f"server-{what}"
        request.touch()
        latest = time.monotonic() + 60
        while request.exists():
            self.assertLess(time.monotonic(), latest)
            time.sleep(0.02)
