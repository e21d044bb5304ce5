"""What happens to a table when a run fails: nothing."""

import os
import pathlib
import resource
import signal
import sqlite3
import subprocess
import time
import unittest

from zelconv_database_support import (COLUMNS, CONNECT, HEADER, IS_SQLITE, DatabaseCase,
                                      attribute, count, execute, table_names)
from zelconv_support import ZELCONV, archive

NOBODY = 65534
HAS_SANITIZER = b"__asan_init" in pathlib.Path(ZELCONV).read_bytes()

# So many that the database has long begun to write them to its file.
MANY = 60000


class AllOrNothing(DatabaseCase):
    def test_input_that_ends_early(self):
        rows = archive([("N", "long")], [[i] for i in range(5000)])
        for create in ("no", "yes"):
            with self.subTest(create=create):
                if create == "no":
                    execute("CREATE TABLE T (N INTEGER)", "INSERT INTO T VALUES (7)")
                result = self.put(None, rows[:-1], "--create", create, source="archive", status=2)
                self.refuse(result, "damaged or cut off")
                if create == "no":
                    self.assertEqual(count(), 1)
                    execute("DROP TABLE T")
                self.assertEqual(table_names(), [])

    def test_a_violated_key(self):
        execute("CREATE TABLE T (N INTEGER NOT NULL PRIMARY KEY)", "INSERT INTO T VALUES (7)")
        content = "N\n" + "".join(f"{i}\n" for i in range(100, 5100)) + "7\n"
        self.refuse(self.put("N:long", content, status=2),
                    "T: ", "UNIQUE constraint" if IS_SQLITE else "Duplicate entry")
        self.assertEqual(count(), 1)

    def test_a_column_that_must_not_be_null(self):
        execute("CREATE TABLE T (N INTEGER NOT NULL, S VARCHAR(9) NOT NULL)")
        for content in ("N;S\n1;a\n2;\n", "N;S\n1;\n"):
            self.refuse(self.put("N:long,S:string", content, status=2), "T: ", "S")
        self.refuse(self.put("N:long", "N\n1\n", status=2), "T: ", "S")
        self.assertEqual(count(), 0)

    def test_a_violated_check(self):
        execute("CREATE TABLE T (N INTEGER CHECK (N < 100))")
        self.refuse(self.put("N:long", "N\n99\n100\n", status=2), "T: ")
        self.assertEqual(count(), 0)

    @unittest.skipIf(IS_SQLITE, "whole numbers have no limit there")
    def test_a_number_that_is_too_large(self):
        execute("CREATE TABLE T (N TINYINT)")
        self.refuse(self.put("N:long", "N\n1\n128\n", status=2), "Out of range", "N")
        self.assertEqual(count(), 0)

    def test_a_rejects_file_that_cannot_be_written(self):
        execute("CREATE TABLE T (N INTEGER)")
        self.refuse(self.put("N:long", "N\n1\nx\n", "--rejects", "/dev/full", status=2),
                    "/dev/full")
        self.assertEqual(count(), 0)

    def test_an_ended_run(self):
        for number in (signal.SIGKILL, signal.SIGTERM, signal.SIGINT):
            with self.subTest(signal=number):
                execute("CREATE TABLE T (N VARCHAR(200))", "INSERT INTO T VALUES ('alt')")
                process = self.start_writing(MANY)
                self.assertIsNone(process.poll())
                process.send_signal(number)
                self.assertEqual(process.wait(timeout=60), -number)
                process.stdin.close()
                process.stderr.close()
                self.assertEqual(self.get("N:string"), b"N\nalt\n")
                execute("DROP TABLE T")

    def test_the_run_that_is_not_ended(self):
        execute("CREATE TABLE T (N VARCHAR(200))")
        process = self.start_writing(MANY)
        _, errors = process.communicate(timeout=120)
        self.assertEqual((process.returncode, errors, count()), (0, b"", MANY))

    @unittest.skipIf(IS_SQLITE, "there is no server")
    def test_a_server_that_dies(self):
        execute("CREATE TABLE T (N VARCHAR(200))", "INSERT INTO T VALUES ('alt')")
        process = self.start_writing(MANY)
        self.ask_server("kill")
        try:
            _, errors = process.communicate(b"x\n", timeout=120)
        finally:
            self.ask_server("start")
        self.assertEqual(process.returncode, 2)
        self.assertTrue(errors.startswith(b"zelconv: T: "), errors)
        self.assertEqual(errors.count(b"\n"), 1, errors)
        self.assertEqual(execute("SELECT N FROM T"), [["alt"]])

    @unittest.skipIf(IS_SQLITE, "there is no server")
    def test_a_server_that_is_away(self):
        connect = CONNECT.replace(f"PORT={attribute('PORT')}", "PORT=1")
        self.refuse(self.put("N:long", "N\n1\n", connect=connect, status=2), "odbc: ")
        result = self.run_zelconv("--columns", "N:long", "--from", f"odbc:{connect}", "--table",
                                  "T", "--to", "csv", "out")
        self.refuse(result, "odbc: ")
        self.assertEqual(self.names(), [])

    def test_messages_hide_the_password(self):
        connect = CONNECT + ";PWD=geheim;Timeout=1"
        if IS_SQLITE:
            connect = "Driver=/nowhere/driver.so;PWD=geheim"
        result = self.put("N:long", "N\n1\n", connect=connect, status=2)
        self.assertNotIn("geheim", result.errors)

    @unittest.skipUnless(IS_SQLITE, "only SQLite keeps tables in files")
    def test_files_that_cannot_be_written(self):
        self.folder.chmod(0o755)
        self.write("text", "N\n1\n" * 1000)
        self.write("in", "N\n1\n")
        self.put("N:long", "N\n", "--create", "yes", connect=f"Driver={attribute('Driver')};"
                 f"Database={self.folder / 'only.db'}")
        before = self.read("only.db")
        (self.folder / "only.db").chmod(0o444)
        for name in ("only.db", "text", "absent.db", "absent/new.db"):
            with self.subTest(name=name):
                user = NOBODY if os.geteuid() == 0 else None
                process = subprocess.run(
                    [ZELCONV, "--columns", "N:long", "--from", "csv", "--to",
                     f"odbc:{self.folder / name}", "--table", "T", "in"], cwd=self.folder,
                    user=user, check=False, capture_output=True)
                self.assertEqual((process.returncode, process.stderr.count(b"\n")), (2, 1),
                                 process.stderr)
        self.assertEqual(self.read("only.db"), before)
        self.assertEqual(self.names(), ["in", "only.db", "text"])

    @unittest.skipIf(IS_SQLITE, "SQLite knows no users")
    def test_a_user_who_may_only_read(self):
        execute("CREATE TABLE T (N INTEGER)", "INSERT INTO T VALUES (7)",
                "CREATE OR REPLACE USER leser@'%' IDENTIFIED BY ''",
                "GRANT SELECT ON test.* TO leser@'%'")
        connect = CONNECT.replace("UID=root", "UID=leser")
        self.assertEqual(self.get("N:long", connect=connect), b"N\n7\n")
        self.refuse(self.put("N:long", "N\n1\n", connect=connect, status=2), "T: ", "denied")
        self.refuse(self.put("N:long", "N\n1\n", "--create", "yes", connect=connect, table="U",
                             status=2), "U: ", "denied")
        self.assertEqual((count(), table_names()), (1, ["T"]))

    @unittest.skipUnless(IS_SQLITE, "the server's disk is not the test's")
    def test_a_full_disk(self):
        execute("CREATE TABLE T (N TEXT)", "INSERT INTO T VALUES ('alt')")
        self.write("in", "N\n" + f"{'x' * 1000}\n" * 20000)

        def limit_files():
            # A file that may not grow further is an error like a disk that is full.
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20))

        process = subprocess.run(
            [ZELCONV, "--columns", "N:string", "--from", "csv", "--to", f"odbc:{CONNECT}",
             "--table", "T", "in"], cwd=self.folder, preexec_fn=limit_files, check=False,
            capture_output=True)
        self.assertEqual(process.returncode, 2, process.stderr)
        self.assertRegex(process.stderr, rb"^zelconv: T: .*disk.*\n$")
        self.assertEqual(execute("PRAGMA integrity_check"), [["ok"]])
        self.assertEqual(execute("SELECT N FROM T"), [["alt"]])

    @unittest.skipUnless(IS_SQLITE, "only SQLite lets constraints and triggers end a transaction")
    def test_a_transaction_that_the_database_undoes(self):
        content = "N\n" + "".join(f"{i}\n" for i in range(100, 5100)) + "7\n"
        content += "".join(f"{i}\n" for i in range(6000, 16000))
        refusal = ("CREATE TRIGGER R BEFORE INSERT ON T WHEN new.N = 7 "
                   "BEGIN SELECT RAISE(ROLLBACK, 'nicht\ndie Sieben'); END")
        for table, trigger, message in (
                ("N INTEGER UNIQUE ON CONFLICT ROLLBACK", "SELECT 1", "UNIQUE constraint"),
                ("N INTEGER", refusal, "T: nicht die Sieben\n")):
            with self.subTest(table=table):
                execute(f"CREATE TABLE T ({table})", "INSERT INTO T VALUES (7)", trigger)
                self.refuse(self.put("N:long", content, status=2), "T: ", message)
                self.assertEqual(execute("SELECT N FROM T"), [[7]])
                execute("DROP TABLE T")

    @unittest.skipUnless(IS_SQLITE, "a reader does not keep a server from writing")
    def test_a_reader_that_does_not_end(self):
        execute("CREATE TABLE T (N INTEGER)", "INSERT INTO T VALUES (7), (8)")
        other = sqlite3.connect(attribute("Database"), isolation_level=None)
        self.addCleanup(other.close)
        rows = other.execute("SELECT N FROM T")
        self.assertEqual(next(rows), (7,))
        self.refuse(self.put("N:long", "N\n1\n", status=2), "T: ", "locked")
        self.assertEqual(list(rows), [(8,)])
        self.assertEqual(count(), 2)
        self.put("N:long", "N\n1\n")
        self.assertEqual(count(), 3)

    @unittest.skipUnless(IS_SQLITE, "a server lets others wait by rows")
    def test_a_locked_file(self):
        execute("CREATE TABLE T (N INTEGER)")
        other = sqlite3.connect(attribute("Database"), isolation_level=None)
        self.addCleanup(other.close)
        other.execute("BEGIN EXCLUSIVE")
        begin = time.monotonic()
        self.refuse(self.put("N:long", "N\n1\n", connect=CONNECT + ";Timeout=1000", status=2),
                    "locked")
        self.assertLess(time.monotonic() - begin, 60)
        other.execute("ROLLBACK")
        self.assertEqual(count(), 0)


class Calls(DatabaseCase):
    def test_calls_that_make_no_sense(self):
        self.write("in", "N\n1\n")
        execute("CREATE TABLE T (N INTEGER)")
        odbc = f"odbc:{CONNECT}"
        columns = ("--columns", "N:long")
        for arguments, part in (
                ((*columns, "--from", "csv", "--to", odbc, "in"), "--table is required"),
                ((*columns, "--from", odbc, "--to", "csv", "out"), "--table is required"),
                (("--from", odbc, "--to", "csv", "--table", "T", "out"), "--columns is required"),
                ((*columns, "--from", "csv", "--to", odbc, "--table", "T"), "IN is required"),
                ((*columns, "--from", odbc, "--to", "csv", "--table", "T"), "OUT is required"),
                ((*columns, "--from", "csv", "--to", odbc, "--table", "T", "in", "out"),
                 "one file too many"),
                ((*columns, "--from", odbc, "--to", odbc, "--table", "T", "in"),
                 "one file too many"),
                ((*columns, "--from", odbc, "--to", odbc, "--table", "T"), "is the one that is"),
                ((*columns, "--from", "csv", "--to", "odbc:", "--table", "T", "in"), "odbc: "),
                ((*columns, "--from", "csv", "--to", "odbx:a", "--table", "T", "in"), "odbx:a"),
                ((*columns, "--from", "csv", "--to", odbc, "--table", "T`", "in"), "T`"),
                ((*columns, "--from", "csv", "--to", odbc, "--table", "", "in"), "--table"),
                (("--columns", "N'x:long", "--from", odbc, "--to", "csv", "--table", "T", "out"),
                 "N'x"),
                ((*columns, "--from", odbc, "--to", "csv", "--table", "Fehlt", "out"), "Fehlt"),
                (("--columns", "Fehlt:long", "--from", odbc, "--to", "csv", "--table", "T", "out"),
                 "Fehlt"),
                (("--columns", "N:datetime", "--from", odbc, "--to", "csv", "--table", "T", "out"),
                 "N"),
                ((*columns, "--from", "csv", "--to", odbc, "--table", "T", "absent"), "absent"),
                ((*columns, "--from", odbc, "--to", "csv", "--table", "T", "absent/out"),
                 "absent/out")):
            with self.subTest(arguments=arguments):
                self.refuse(self.run_zelconv(*arguments), part)
                self.assertEqual((self.names(), count(), table_names()), (["in"], 0, ["T"]))

    @unittest.skipUnless(IS_SQLITE, "a file is enough for SQLite only")
    def test_the_file_of_a_sqlite_database(self):
        self.put(COLUMNS, HEADER, "--create", "yes", connect="neu.db")
        self.assertEqual(self.names(), ["neu.db"])
        self.assertEqual(self.get(COLUMNS, connect="neu.db").decode(), HEADER)
        self.assertEqual(self.get(COLUMNS, connect="./neu.db").decode(), HEADER)
        self.refuse(self.put("N:long", "N\n1\n", connect="fehlt.db", status=2), "no such file")
        result = self.run_zelconv("--columns", "N:long", "--from", "odbc:fehlt.db", "--table", "T",
                                  "--to", "csv", "out")
        self.refuse(result, "no such file")
        self.assertEqual(self.names(), ["neu.db"])


@unittest.skipIf(HAS_SANITIZER, "a sanitizer keeps what is freed")
class Memory(DatabaseCase):
    def peak(self, *arguments):
        process = subprocess.Popen([ZELCONV, *arguments], cwd=self.folder,
                                   stderr=subprocess.PIPE)
        errors = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        process.stderr.close()
        self.assertEqual((process.returncode, errors), (0, b""))
        return usage.ru_maxrss

    def test_it_does_not_grow_with_the_rows(self):
        peaks = []
        for rows in (2000, 100000):
            self.write("in", "N;S\n" + "".join(f"{i};{'x' * 60}\n" for i in range(rows)))
            columns = ("--columns", "N:long,S:string")
            table = ("--table", f"T{rows}")
            peaks.append((self.peak(*columns, "--from", "csv", "--to", f"odbc:{CONNECT}", *table,
                                    "--create", "yes", "in"),
                          self.peak(*columns, "--from", f"odbc:{CONNECT}", *table, "--to", "csv",
                                    "out")))
            self.assertEqual(self.read("out"), self.read("in"))
        (write_few, read_few), (write_many, read_many) = peaks
        # In KiB. A hundred thousand rows are more than 7,000 of text alone.
        self.assertLess(write_many - write_few, 4000, peaks)
        self.assertLess(read_many - read_few, 4000, peaks)


if __name__ == "__main__":
    unittest.main()
