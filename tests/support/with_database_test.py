"""Tests of with_database.py: what it gives a command, and that nothing of it stays."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

SCRIPT = pathlib.Path(__file__).with_name("with_database.py")
# Where the servers of all tests begin.
TEMPLATES = pathlib.Path(sys.argv.pop(1))
KINDS = ("sqlite", "mariadb")


class WithDatabase(unittest.TestCase):
    def setUp(self):
        TEMPLATES.mkdir(parents=True, exist_ok=True)
        folder = tempfile.TemporaryDirectory(prefix="with-database-", dir=TEMPLATES)
        self.addCleanup(folder.cleanup)
        self.workdir = pathlib.Path(folder.name)

    def start(self, kind, *command, script=SCRIPT):
        process = subprocess.Popen(
            [sys.executable, "-B", str(script), kind, str(self.workdir), "--", *command],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
        self.addCleanup(process.communicate)
        return process

    def run_command(self, kind, *command, **options):
        process = self.start(kind, *command, **options)
        out, errors = process.communicate(timeout=120)
        return process.returncode, out, errors

    def processes(self):
        """Those that have the folder in their command lines."""
        found = []
        for folder in pathlib.Path("/proc").iterdir():
            if folder.name.isdigit() and int(folder.name) != os.getpid():
                try:
                    words = (folder / "cmdline").read_bytes()
                except OSError:
                    continue
                if str(self.workdir).encode() in words:
                    found.append(words)
        return found

    def expect_clean(self):
        for _ in range(100):
            if not self.processes():
                break
            time.sleep(0.05)
        self.assertEqual(self.processes(), [])

    def runs(self):
        return list(self.workdir.glob("run-*"))

    def test_gives_the_command_its_environment(self):
        for kind in KINDS:
            status, out, errors = self.run_command(
                kind, "sh", "-c", 'echo "$ZEL_TEST_DATABASE|$ZEL_TEST_CONNECT"; '
                                  'ls -A "$ZEL_TEST_FOLDER"; cat "$ODBCINI" | head -1')
            self.assertEqual((status, errors), (0, ""))
            lines = out.splitlines()
            self.assertEqual(len(lines), 2, "the folder is empty")
            self.assertRegex(lines[0], rf"^{kind}\|Driver=/.*\.so;")
            self.assertEqual(lines[1], "[zel_test]")
            self.assertEqual(self.runs(), [])

    def test_passes_the_status_on(self):
        for kind in KINDS:
            for command, expected in (("exit 0", 0), ("exit 1", 1), ("exit 77", 77),
                                      ("kill -9 $$", 137), ("kill -TERM $$", 143)):
                with self.subTest(kind=kind, command=command):
                    self.assertEqual(self.run_command(kind, "sh", "-c", command)[0], expected)
            self.expect_clean()
            self.assertEqual(self.runs(), [])

    def test_ends_with_everything_it_started(self):
        for kind in KINDS:
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGKILL):
                with self.subTest(kind=kind, signal=number):
                    process = self.start(
                        kind, sys.executable, "-c",
                        "import time; print('ready', flush=True); time.sleep(1000)",
                        str(self.workdir))
                    self.assertEqual(process.stdout.readline(), "ready\n")
                    self.assertEqual(len(self.processes()), 2 + (kind == "mariadb"))
                    process.send_signal(number)
                    status = process.wait(30)
                    if number == signal.SIGKILL:
                        self.assertEqual(status, -number)
                    else:
                        self.assertEqual(status, 128 + number)
                        self.assertEqual(self.runs(), [])
                    self.expect_clean()
        # What a killed run left goes with the next one.
        self.assertNotEqual(self.runs(), [])
        self.assertEqual(self.run_command("sqlite", "true")[0], 0)
        self.assertEqual(self.runs(), [])

    def test_runs_several_at_once(self):
        command = ("sh", "-c", 'echo "$ZEL_TEST_CONNECT"; sleep 1')
        processes = [self.start(kind, *command) for kind in KINDS * 3]
        outputs = [process.communicate(timeout=120)[0] for process in processes]
        self.assertEqual([process.returncode for process in processes], [0] * 6)
        self.assertEqual(len(set(outputs)), 6, "each has a database of its own")

    def test_kills_and_starts_the_server(self):
        status, out, _ = self.run_command("mariadb", "sh", "-c", """
            ask() { touch "$ZEL_TEST_FOLDER/$1"; while [ -e "$ZEL_TEST_FOLDER/$1" ]; do :; done; }
            alive() { kill -0 "$ZEL_TEST_SERVER_PID" 2>/dev/null && echo alive || echo dead; }
            alive; ask server-kill; alive; ask server-kill; ask server-start
            grep -c 'ready for connections' "$ZEL_TEST_FOLDER/../server.log" """)
        self.assertEqual((status, out.split()), (0, ["alive", "dead", "1"]))
        self.expect_clean()

    def test_says_what_is_missing(self):
        text = SCRIPT.read_text("utf-8")
        for kind, name, package in (("sqlite", "libsqlite3odbc.so", "libsqliteodbc"),
                                    ("mariadb", "libmaodbc.so", "odbc-mariadb"),
                                    ("mariadb", "mariadbd", "mariadb-server")):
            with self.subTest(name=name):
                # The same program, which looks for something that is nowhere.
                script = self.workdir / "script.py"
                script.write_text(text.replace(f'"{name}"', f'"no-{name}"')
                                  .replace(f"'{name}'", f"'no-{name}'"), "utf-8")
                status, out, errors = self.run_command(kind, "echo", "run", script=script)
                self.assertEqual((status, out), (70, ""))
                self.assertIn(f"no-{name} is not installed", errors)
                self.assertIn(f"apt-get install {package}", errors)
                self.assertEqual(errors.count("\n"), 1)

    def test_refuses_what_it_does_not_understand(self):
        for arguments in ([], ["sqlite"], ["oracle", str(self.workdir), "--", "true"],
                          ["sqlite", str(self.workdir), "true"], ["sqlite", str(self.workdir), "--"]):
            process = subprocess.run([sys.executable, "-B", str(SCRIPT), *arguments], check=False,
                                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            self.assertEqual(process.returncode, 64)
        status, _, errors = self.run_command("sqlite", "/there/is/no/program")
        self.assertEqual(status, 70)
        self.assertIn("/there/is/no/program", errors)


if __name__ == "__main__":
    unittest.main()
