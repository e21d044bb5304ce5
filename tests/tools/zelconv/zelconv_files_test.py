"""The call, the files, and what is left of them when something fails."""

import os
import pty
import signal
import stat
import subprocess
import time
import unittest

from zelconv_support import ZELCONV, ZelconvCase, archive

CSV_TO_CSV = ("--columns", "N:long", "--from", "csv", "--to", "csv")
GOOD = "N\n1\n2\n"
SOME_BAD = "N\n1\nx\n"
UNUSABLE = "M\n1\n"


class Calls(ZelconvCase):
    def test_help_and_version(self):
        for option, expected in (("--help", b"Examples:"), ("--version", b"zelconv ")):
            with self.subTest(option=option):
                result = self.run_zelconv(option)
                self.assertEqual((result.status, result.errors), (0, ""))
                self.assertIn(expected, result.out)

    def test_unusable_calls(self):
        self.write("in", GOOD)
        files = ("in", "out")
        for arguments in (
                (),
                files,
                ("--columns", "N:long", "--from", "csv", *files),
                ("--columns", "N:long", "--to", "csv", *files),
                ("--from", "csv", "--to", "csv", *files),
                (*CSV_TO_CSV, "in"),
                (*CSV_TO_CSV, *files, "more"),
                (*CSV_TO_CSV, "--unknown", *files),
                (*CSV_TO_CSV, "--charset", "latin1", *files),
                (*CSV_TO_CSV, "--empty", "zero", *files),
                (*CSV_TO_CSV, "--header", "maybe", *files),
                (*CSV_TO_CSV, "--numbers", "english", *files),
                (*CSV_TO_CSV, "--separator", ";;", *files),
                (*CSV_TO_CSV, "--separator", '"', *files),
                (*CSV_TO_CSV, "--separator", "\n", *files),
                (*CSV_TO_CSV, "--separator", "ß", *files),
                (*CSV_TO_CSV, "--sort", "M", *files),
                (*CSV_TO_CSV, "--rejects", "-", *files),
                ("--columns", "N:long", "--from", "sql", "--to", "csv", *files),
                ("--columns", "N:long", "--from", "csv", "--to", "xml", *files),
                ("--columns", "N:long", "--from", "csv", "--to", "sql", *files),
                *(("--columns", columns, "--from", "csv", "--to", "csv", *files) for columns in
                  (",", "N", "N:", ":long", "N:int", "N:long,", "N:long,N:string", "N:LONG",
                   "N:long(2)", "N:string()", "N:long(", "N:short(1)", "N:double(2)",
                   "N:decimal(28)", "N:decimal(-1)", "N:decimal()", "N:decimal(", "N:decimal(2",
                   "N:decimal2)", "N:decimal(2)x", "N:decimal(x)", "N:decimal( 2)",
                   "N:decimal(99999999999)", "N\t:long", "\udcff:long"))):
            with self.subTest(arguments=arguments):
                result = self.run_zelconv(*arguments)
                self.assertEqual((result.status, result.out), (2, b""))
                self.assertTrue(result.errors.startswith("zelconv: "), result.errors)
                self.assertEqual(result.errors.count("\n"), 1)
                self.assertEqual(self.names(), ["in"])

    def test_names_may_have_colons(self):
        self.assertEqual(self.convert("csv", "csv", "a:b:long", "a:b\n1\n"), b"a:b\n1\n")


class Files(ZelconvCase):
    def run_files(self, content, *options, out="out"):
        self.write("in", content)
        return self.run_zelconv(*CSV_TO_CSV, *options, "in", out)

    def test_status_and_files(self):
        for content, status, names in ((GOOD, 0, ["in", "out", "rejects"]),
                                       (SOME_BAD, 1, ["in", "out", "rejects"]),
                                       (UNUSABLE, 2, ["in"])):
            with self.subTest(status=status):
                for name in self.names():
                    (self.folder / name).unlink()
                result = self.run_files(content, "--rejects", "rejects")
                self.assertEqual((result.status, self.names()), (status, names))

    def test_failure_leaves_older_files_alone(self):
        self.write("out", "older")
        self.write("rejects", "older")
        broken = archive([("N", "long")], [[1], [2]])[:-1]
        self.write("in", broken)
        result = self.run_zelconv("--from", "archive", "--to", "csv", "--rejects", "rejects", "in",
                                  "out")
        self.assertEqual(result.status, 2)
        self.assertEqual((self.read("out"), self.read("rejects")), (b"older", b"older"))
        self.assertEqual(self.names(), ["in", "out", "rejects"])

    def test_success_replaces_older_files_and_keeps_their_permissions(self):
        path = self.write("out", "older and longer than what comes\n" * 10)
        path.chmod(0o640)
        self.assertEqual(self.run_files(GOOD).status, 0)
        self.assertEqual(self.read("out"), GOOD.encode())
        self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o640)

    def test_new_files_have_the_usual_permissions(self):
        self.run_files(GOOD)
        mask = os.umask(0)
        os.umask(mask)
        self.assertEqual(stat.S_IMODE((self.folder / "out").stat().st_mode), 0o666 & ~mask)

    def test_longest_name(self):
        name = "x" * 255
        self.assertEqual(self.run_files(GOOD, out=name).status, 0)
        self.assertEqual(self.read(name), GOOD.encode())

    def test_links_stay_links(self):
        (self.folder / "folder").mkdir()
        target = self.write("folder/target", "older")
        (self.folder / "out").symlink_to("folder/target")
        self.assertEqual(self.run_files(GOOD).status, 0)
        self.assertTrue((self.folder / "out").is_symlink())
        self.assertEqual(target.read_bytes(), GOOD.encode())

    def test_the_same_file_twice(self):
        self.write("in", GOOD)
        (self.folder / "link").symlink_to("in")
        os.link(self.folder / "in", self.folder / "hard")
        for arguments in (("in", "in"), ("in", "./in"), ("in", "link"), ("hard", "in"),
                          ("--rejects", "in", "in", "out"), ("--rejects", "out", "in", "out"),
                          ("--rejects", "./out", "in", "out")):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.run_zelconv(*CSV_TO_CSV, *arguments).status, 2)
                self.assertEqual(self.read("in"), GOOD.encode())
                self.assertEqual(self.names(), ["hard", "in", "link"])

    def test_files_that_cannot_be_used(self):
        self.write("in", GOOD)
        (self.folder / "folder").mkdir()
        for arguments in (("absent", "out"), ("folder", "out"), ("", "out"), ("in/x", "out"),
                          ("in", "folder"), ("in", "absent/out"), ("in", "in/out"), ("in", ""),
                          ("in", "x" * 300), ("in", "/proc/out"),
                          ("--rejects", "absent/rejects", "in", "out"),
                          ("--rejects", "folder", "in", "out")):
            with self.subTest(arguments=arguments):
                result = self.run_zelconv(*CSV_TO_CSV, *arguments)
                self.assertEqual(result.status, 2)
                self.assertEqual(result.errors.count("\n"), 1, result.errors)
                self.assertEqual(self.names(), ["folder", "in"])

    def test_a_full_disk(self):
        for content in (GOOD, "N\n" + "12345\n" * 100000):
            self.assertEqual(self.run_files(content, out="/dev/full").status, 2)
            result = self.run_files(content.replace("1", "x", 1), "--rejects", "/dev/full")
            self.assertEqual((result.status, self.names()), (2, ["in"]))
        with open("/dev/full", "wb") as full:
            process = subprocess.run([ZELCONV, *CSV_TO_CSV, "-", "-"], input=GOOD.encode(),
                                     stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual(process.returncode, 2)
        self.assertIn(b"standard output", process.stderr)

    def test_devices_are_written_to_and_not_replaced(self):
        self.assertEqual(self.run_files(GOOD, out="/dev/stdout").out, GOOD.encode())
        self.assertEqual(self.run_files(GOOD, out="/dev/null").status, 0)
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/null").st_mode))


class Streams(ZelconvCase):
    def start(self, *arguments, **streams):
        return subprocess.Popen([ZELCONV, *arguments], cwd=self.folder, stderr=subprocess.PIPE,
                                **streams)

    def test_closed_pipe(self):
        reader, writer = os.pipe()
        os.close(reader)
        with self.start(*CSV_TO_CSV, "-", "-", stdin=subprocess.PIPE, stdout=writer) as process:
            os.close(writer)
            _, errors = process.communicate(GOOD.encode(), timeout=60)
        self.assertEqual(process.returncode, 2)
        self.assertIn(b"cannot write standard output", errors)

    def test_closed_standard_streams(self):
        self.write("in", GOOD)
        for command, status in (('"$0" "$@" in - >&-', 2), ('"$0" "$@" - out <&-', 2),
                                ('"$0" "$@" in out <&- >&- 2>&-', 0)):
            with self.subTest(command=command):
                process = subprocess.run(["sh", "-c", command, ZELCONV, *CSV_TO_CSV],
                                         cwd=self.folder, check=False, capture_output=True)
                self.assertEqual(process.returncode, status)
        self.assertEqual(self.read("out"), GOOD.encode())

    def test_interrupted_runs_leave_nothing(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=number):
                with self.start(*CSV_TO_CSV, "--rejects", "rejects", "-", "out",
                                stdin=subprocess.PIPE) as process:
                    process.stdin.write(b"N\n")
                    process.stdin.flush()
                    while len(self.names()) < 2:
                        self.assertIsNone(process.poll())
                        time.sleep(0.01)
                    process.send_signal(number)
                    process.wait(timeout=60)
                self.assertEqual((process.returncode, self.names()), (-number, []))

    def test_progress_is_for_terminals(self):
        content = "N\n" + "".join(f"{number}\n" for number in range(5000))
        self.write("in", content)
        terminal, end = pty.openpty()
        process = subprocess.run([ZELCONV, *CSV_TO_CSV, "in", "out"], cwd=self.folder, stderr=end,
                                 check=False)
        os.close(end)
        shown = ""
        try:
            while True:
                shown += os.read(terminal, 65536).decode()
        except OSError:  # how a terminal tells that nobody writes to it any more
            os.close(terminal)
        self.assertEqual(process.returncode, 0)
        self.assertIn("[##", shown)
        self.assertIn("5000 rows, ", shown)
        self.assertIn(" rows/s", shown)
        self.assertEqual(self.run_zelconv(*CSV_TO_CSV, "in", "out").errors, "")


if __name__ == "__main__":
    unittest.main()
