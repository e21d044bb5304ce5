#!/usr/bin/env python3
"""Runs a command that needs a database: with_database.py sqlite|mariadb WORKDIR -- COMMAND...

sqlite    an empty file; the database makes the tables in it
mariadb   a server of its own on the loopback interface, with the empty database "test"

The command finds in its environment:

ZEL_TEST_DATABASE     sqlite or mariadb
ZEL_TEST_CONNECT      the ODBC connection string, with the driver by its path
ZEL_TEST_FOLDER       an empty folder for files of its own
ZEL_TEST_SERVER_PID   process number of the server (mariadb only)
ODBCINI               a file with the same as data source "zel_test"

The server can be ended and started again on the same port with the same data: the command makes a
file ZEL_TEST_FOLDER/server-kill or ZEL_TEST_FOLDER/server-start, which disappears when that is
done. Killing is no orderly end: what the server had not written is lost.

All files lie in WORKDIR and are gone at the end, as is the server, however this program ends.
Several may run at once, even in one WORKDIR. Beside WORKDIR lies what every server begins with
(mariadb-template-VERSION); the first one makes it.

The exit status is the command's; 128 and more are signals. A database that cannot be had is status
70.
"""

import contextlib
import ctypes
import fcntl
import glob
import os
import pathlib
import platform
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

PACKAGES = {"libsqlite3odbc.so": "libsqliteodbc", "libmaodbc.so": "odbc-mariadb",
            "mariadbd": "mariadb-server", "mariadb-install-db": "mariadb-server"}

# Where a server takes long, something is wrong.
START_SECONDS = 60
PORT_ATTEMPTS = 20

# Small files, nothing written twice, nothing waited for: the data are needed for a test only. What
# was committed still outlives the server's death.
STORAGE = ["--innodb-log-file-size=16M", "--innodb-data-file-path=ibdata1:4M:autoextend",
           "--innodb-autoextend-increment=1", "--innodb-temp-data-file-path=ibtmp1:4M:autoextend",
           "--innodb-flush-log-at-trx-commit=2", "--innodb-doublewrite=0",
           "--innodb-use-native-aio=0", "--innodb-buffer-pool-size=64M", "--debug-no-sync"]
# The character sets are those of Debian's configuration.
SERVER = ["--bind-address=127.0.0.1", "--socket=server.sock", "--skip-name-resolve",
          "--skip-log-bin", "--performance-schema=0", "--innodb-buffer-pool-load-at-startup=0",
          "--character-set-server=utf8mb4", "--collation-server=utf8mb4_general_ci",
          "--log-warnings=1"]


class Unusable(Exception):
    """There is no database to be had."""


class Ended(BaseException):
    """Somebody wants this program to end."""

    def __init__(self, number):
        super().__init__(number)
        self.number = number


def end_by_signal(number, _frame):
    raise Ended(number)


def find_driver(name):
    machine = platform.machine()
    folders = [f"/usr/lib/{machine}-*/odbc", "/usr/lib/odbc", "/usr/lib64", "/usr/lib64/odbc",
               f"/usr/lib/{machine}-*", "/usr/local/lib", "/usr/local/lib/odbc", "/usr/lib"]
    for folder in folders:
        for path in glob.glob(f"{folder}/{name}"):
            return path
    raise missing(f"the ODBC driver {name}", name)


def find_program(name):
    path = shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin:/usr/local/sbin")
    if path is None:
        raise missing(name, name)
    return path


def missing(what, name):
    return Unusable(f"{what} is not installed (on Debian: apt-get install {PACKAGES[name]})")


def die_with_parent():
    """For a new process: its end when this one is killed."""
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)


def end(process, patience):
    """Ends a process; one that does not go within some seconds is killed."""
    if process.poll() is None and patience:
        process.terminate()
        with contextlib.suppress(subprocess.TimeoutExpired):
            process.wait(patience)
    if process.poll() is None:
        process.kill()
    process.wait()


@contextlib.contextmanager
def locked(path):
    """Waits for the file's lock and holds it."""
    with open(path, "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        yield


@contextlib.contextmanager
def run_folder(workdir):
    """A new folder. Those of runs that were killed are removed first: nobody locks them."""
    workdir.mkdir(parents=True, exist_ok=True)
    with contextlib.ExitStack() as stack:
        with locked(workdir / "lock"):
            for left in workdir.glob("run-*"):
                with open(left / "lock", "w", encoding="ascii") as lock:
                    with contextlib.suppress(BlockingIOError):
                        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                        shutil.rmtree(left)
            folder = pathlib.Path(tempfile.mkdtemp(prefix="run-", dir=workdir))
            stack.callback(shutil.rmtree, folder, ignore_errors=True)
            stack.enter_context(locked(folder / "lock"))
        yield folder


class Sqlite:
    kind = "sqlite"

    def __init__(self, _workdir, folder):
        self.connect = f"Driver={find_driver('libsqlite3odbc.so')};Database={folder / 'test.db'}"

    def open(self):
        pass

    def environment(self):
        return {}

    def serve(self, _folder):
        pass

    def stop(self):
        pass

    def explain(self):
        pass


class Mariadb:
    kind = "mariadb"

    def __init__(self, workdir, folder):
        self.driver = find_driver("libmaodbc.so")
        self.program = find_program("mariadbd")
        self.process = None
        self.port = None
        self.connect = None
        self.parent = workdir.parent
        self.folder = folder
        self.log = folder / "server.log"

    def open(self):
        (self.folder / "init.sql").write_text("CREATE DATABASE IF NOT EXISTS test;\n", "ascii")
        shutil.copytree(self.template(), self.folder / "data")
        self.start()
        self.connect = (f"Driver={self.driver};SERVER=127.0.0.1;PORT={self.port};UID=root;"
                        "DATABASE=test")

    def user(self):
        # As root it runs only when told to; everybody else is who he is.
        return ["--user=root"] if os.geteuid() == 0 else []

    def template(self):
        version = subprocess.run([self.program, "--no-defaults", "--version"], check=True,
                                 stdout=subprocess.PIPE, encoding="utf-8").stdout
        number = re.search(r"Ver (\S+?)-", version)
        if number is None:
            raise Unusable(f"this is no MariaDB: {version.strip()}")
        template = self.parent / f"mariadb-template-{number[1]}"
        with locked(self.parent / "mariadb-template.lock"):
            if not template.exists():
                self.make_template(template)
        return template

    def make_template(self, template):
        install = find_program("mariadb-install-db")
        with tempfile.TemporaryDirectory(prefix="mariadb-", dir=template.parent) as folder:
            made = subprocess.run(
                [install, "--no-defaults", *self.user(), f"--datadir={folder}/data",
                 "--auth-root-authentication-method=normal", "--skip-test-db",
                 "--skip-name-resolve", *STORAGE],
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                preexec_fn=die_with_parent)
            if made.returncode != 0:
                raise Unusable("mariadb-install-db failed:\n" + made.stdout.decode("utf-8", "replace"))
            os.rename(f"{folder}/data", template)

    def start(self):
        """Starts the server: the first time on a free port, which another program may take in the
        meantime; later on the same one."""
        attempts = 1 if self.port else PORT_ATTEMPTS
        for _ in range(attempts):
            port = self.port or free_port()
            if self.start_on(port):
                self.port = port
                return
        raise Unusable("the server does not start:\n" + self.log_end())

    def start_on(self, port):
        """Whether the server is ready; false when it ended."""
        with open(self.log, "wb") as log:
            self.process = subprocess.Popen(
                [self.program, "--no-defaults", *self.user(), f"--datadir={self.folder}/data",
                 f"--init-file={self.folder}/init.sql", f"--port={port}", *STORAGE, *SERVER],
                stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT,
                preexec_fn=die_with_parent)
        latest = time.monotonic() + START_SECONDS
        while time.monotonic() < latest:
            if b"ready for connections" in self.log.read_bytes():
                return True
            if self.process.poll() is not None:
                return False
            time.sleep(0.02)
        raise Unusable(f"the server is not ready after {START_SECONDS} seconds:\n" + self.log_end())

    def environment(self):
        return {"ZEL_TEST_SERVER_PID": str(self.process.pid)}

    def serve(self, folder):
        """Does what the command wants done with the server."""
        for name, action in (("server-kill", self.stop), ("server-start", self.restart)):
            if (folder / name).exists():
                action()
                (folder / name).unlink()

    def restart(self):
        if self.process.poll() is not None:
            self.start()

    def stop(self):
        # Nobody needs the data afterwards.
        if self.process is not None:
            end(self.process, 0)

    def log_end(self):
        return "".join(self.log.read_text("utf-8", "replace").splitlines(True)[-20:])

    def explain(self):
        """What the server reported, for whoever looks for the reason of a failure."""
        reports = [line for line in self.log.read_text("utf-8", "replace").splitlines()
                   if "[ERROR]" in line]
        if reports:
            print("with_database.py: reports of the server:", *reports, sep="\n", file=sys.stderr)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def write_source(database, path):
    attributes = database.connect.replace(";", "\n")
    path.write_text(f"[zel_test]\n{attributes}\n", "utf-8")


def run(database, folder, command):
    environment = {**os.environ, "ZEL_TEST_DATABASE": database.kind,
                   "ZEL_TEST_CONNECT": database.connect, "ZEL_TEST_FOLDER": str(folder),
                   "ODBCINI": str(folder.parent / "odbc.ini"), **database.environment()}
    try:
        process = subprocess.Popen(command, env=environment, preexec_fn=die_with_parent)
    except OSError as e:
        raise Unusable(f"{command[0]} cannot be run: {e.strerror}") from e
    try:
        while True:
            with contextlib.suppress(subprocess.TimeoutExpired):
                return process.wait(0.02)
            database.serve(folder)
    finally:
        end(process, 5)


def main(arguments):
    kinds = {kind.kind: kind for kind in (Sqlite, Mariadb)}
    if len(arguments) < 4 or arguments[0] not in kinds or arguments[2] != "--":
        print(__doc__.splitlines()[0], file=sys.stderr)
        return 64
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        signal.signal(number, end_by_signal)
    workdir = pathlib.Path(arguments[1]).resolve()
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(run_folder(workdir))
        if re.search("[;{}]", str(folder)):
            raise Unusable(f"{folder}: ODBC cannot take such a path")
        database = kinds[arguments[0]](workdir, folder)
        stack.callback(database.stop)
        database.open()
        write_source(database, folder / "odbc.ini")
        files = folder / "files"
        files.mkdir()
        status = run(database, files, arguments[3:])
        if status != 0:
            database.explain()
        return status if status >= 0 else 128 - status


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except Unusable as e:
        print(f"with_database.py: {e}", file=sys.stderr)
        sys.exit(70)
    except Ended as e:
        sys.exit(128 + e.number)
