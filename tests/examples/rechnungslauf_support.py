"""What the tests of examples/rechnungslauf share: databases to run it on, and small samples."""

import csv
import os
import pathlib
import re
import sqlite3
import subprocess
import time

from examples_support import COMMAND, ORDER_COLUMNS, SAMPLE, ExampleCase, good_orders

import make_kunden  # lies beside its data, and so does the next one
import make_rechnungslauf

KIND = os.environ["ZEL_TEST_DATABASE"]
ON_SQLITE = KIND == "sqlite"
ON_WINDOWS = COMMAND[-1].endswith(".exe")
FOLDER = pathlib.Path(os.environ["ZEL_TEST_FOLDER"])
TABLES = ("Kunden", "Artikel", "Auftraege", "Arbeitszeiten", "Abgewiesen", "Nummernkreis",
          "Rechnungen", "Positionen")


class Sqlite:
    def __init__(self, folder):
        self.file = folder / "handel.db"
        self.arguments = ["--database", self.file]

    def execute(self, *statements):
        with sqlite3.connect(self.file) as connection:
            for statement in statements:
                connection.execute(statement)
        connection.close()

    def rows(self, query):
        connection = sqlite3.connect(self.file)
        try:
            return [tuple("NULL" if cell is None else str(cell) for cell in row)
                    for row in connection.execute(query)]
        finally:
            connection.close()

    def has(self, table):
        return self.file.exists() and bool(
            self.rows(f"SELECT name FROM sqlite_master WHERE name = '{table}'"))

    def dump(self):
        connection = sqlite3.connect(self.file)
        try:
            return list(connection.iterdump())
        finally:
            connection.close()

    def drop(self):
        for file in self.file.parent.glob(self.file.name + "*"):
            file.unlink()


class Mariadb:
    CONNECT = os.environ["ZEL_TEST_CONNECT"]
    NUMBER = 0

    def __init__(self, _folder):
        Mariadb.NUMBER += 1
        self.name = f"handel{Mariadb.NUMBER}"
        self.client(f"CREATE DATABASE {self.name}")
        self.arguments = ["--dsn", self.connect()]

    def connect(self, user="root"):
        connect = re.sub(r"DATABASE=\w+", f"DATABASE={self.name}", self.CONNECT)
        return re.sub(r"UID=\w+", f"UID={user}", connect)

    def client(self, statement, *database):
        port = re.search(r"PORT=(\d+)", self.CONNECT)[1]
        return subprocess.run(
            ["mariadb", "--no-defaults", "--protocol=tcp", "-h", "127.0.0.1", "-P", port, "-u",
             "root", "-N", "-B", "--default-character-set=utf8mb4", "-e", statement, *database],
            check=True, stdout=subprocess.PIPE).stdout.decode("utf-8")

    def execute(self, *statements):
        self.client("; ".join(statements), self.name)

    def rows(self, query):
        # The client escapes backslashes and line ends.
        return [tuple(cell.replace("\\n", "\n").replace("\\\\", "\\") for cell in row.split("\t"))
                for row in self.client(query, self.name).splitlines()]

    def has(self, table):
        return table in self.client("SHOW TABLES", self.name).split()

    def dump(self):
        tables = [table for table in TABLES if self.has(table)]
        return [self.client(f"SHOW CREATE TABLE {table}; SELECT * FROM {table} ORDER BY 1, 2",
                            self.name) for table in tables]

    def drop(self):
        self.client(f"DROP DATABASE {self.name}")


class InvoiceCase(ExampleCase):
    """Each test has a folder and a database of its own."""

    def setUp(self):
        super().setUp()
        self.database = self.new_database()
        self.out = self.folder / "rechnungen"

    def new_database(self):
        database = Sqlite(self.folder) if ON_SQLITE else Mariadb(self.folder)
        self.addCleanup(database.drop)
        return database

    def arguments(self, *more, data=SAMPLE):
        return [*self.database.arguments, "--data", data, "--out", self.out, *more]

    def start(self, *more, data=SAMPLE, **how):
        return subprocess.Popen([*COMMAND, *map(str, self.arguments(*more, data=data))],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, **how)

    def call(self, *more, data=SAMPLE):
        return self.run_example(*self.arguments(*more, data=data))

    def good_call(self, *more, data=SAMPLE):
        """The report, and what the program said that it did."""
        status, report, words = self.call(*more, data=data)
        self.assertEqual(status, 0, words)
        self.assertEqual(words.count("\n"), 1, words)
        return report, words.removeprefix("rechnungslauf: ").rstrip("\r\n")

    def check_failed(self, result, words):
        """Status 2, no report, and one line that says why."""
        status, report, errors = result
        self.assertEqual((status, report), (2, ""), errors)
        self.assertEqual(errors.replace("\r\n", "\n").count("\n"), 1, errors)
        self.assertTrue(errors.startswith("rechnungslauf: "), errors)
        self.assertIn(words, errors)

    def files(self):
        """{name: contents}"""
        if not self.out.exists():
            return {}
        return {path.name: path.read_bytes() for path in self.out.iterdir()}

    def file_count(self):
        """While a run is on."""
        return len(os.listdir(self.out)) if self.out.exists() else 0

    def state(self):
        """All that a run leaves behind."""
        return self.database.dump(), self.files()

    def forget(self):
        """As before the first run."""
        self.database.drop()
        if not ON_SQLITE:
            self.database.client(f"CREATE DATABASE {self.database.name}")
        if self.out.exists():
            for path in self.out.iterdir():
                path.unlink()
            self.out.rmdir()

    def write_sample(self, customers, articles, orders, terms=(), times=()):
        """Files of these rows, of texts; returns their folder."""
        folder = self.folder / "daten"
        folder.mkdir(exist_ok=True)
        for name, columns, rows in (
                ("kunden", make_kunden.COLUMNS, customers),
                ("artikel", make_rechnungslauf.ARTICLE_COLUMNS, articles),
                ("konditionen", make_rechnungslauf.TERMS_COLUMNS, terms),
                ("auftraege", ORDER_COLUMNS.rstrip("\n").split(";"), orders),
                ("arbeitszeiten", make_rechnungslauf.TIMES_COLUMNS, times)):
            with open(folder / f"{name}.csv", "w", encoding="utf-8", newline="") as file:
                csv.writer(file, delimiter=";", lineterminator="\n").writerows([columns, *rows])
        return folder

    def small_sample(self):
        """Some of the orders that were delivered, what belongs to them, and a few that are not."""
        orders = [cells for cells in good_orders() if cells[11] != "B"][::20]
        numbers = {cells[0] for cells in orders}
        buyers = {cells[1] for cells in orders}

        def sound(name):
            return [next(csv.reader([row.decode("utf-8")], delimiter=";"))
                    for row in make_rechnungslauf.rows_of(name) if isinstance(row, bytes)]

        with open(SAMPLE / "kunden.csv", encoding="utf-8", errors="replace", newline="") as file:
            customers = [row for row in csv.reader(file, delimiter=";") if row[0] in buyers]
        return self.write_sample(customers, sound("artikel"), orders,
                                 [row for row in sound("konditionen") if row[0] in buyers],
                                 [row for row in sound("arbeitszeiten") if row[1] in numbers])


def wait_for(condition, seconds=60):
    """False when it does not come true in time."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.0005)
    return True
