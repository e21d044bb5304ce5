#!/usr/bin/env python3
"""Measures record sets on SQLite and MariaDB, and zelconv against the databases' own imports.

    benchmarks/recordsets.py [--rows N] [--repetitions N] [--database sqlite|mariadb]
                             [--job read|write|import] [--program FILE] [--zelconv FILE]

Every repetition runs all contenders of a job one behind the other. `ratio` is the median over the
repetitions of our seconds by those of the peer: above 1 the library is slower. Before a contender
is timed, what it reads or has written is compared.
"""

import argparse
import os
import pathlib
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
OURS = "ours"
# The largest ratio that is wanted.
BARS = {("read", "bare"): 1.3, ("import", "sqlite3"): 2.0, ("import", "mariadb"): 2.0}
ROWS_COMPARED = 20000
COLUMNS = ("NUMBER:long,QUANTITY:short,PRICE:decimal(2),WEIGHT:double,NAME:string,GRADE:char,"
           "MOMENT:datetime,EXPRESS:bool")
HEADINGS = ("database", "job", "contender", "seconds", "processor", "ratio", "bar", "reached")


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rows", type=int, default=1000000)
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--database", choices=("sqlite", "mariadb"), action="append")
    parser.add_argument("--job", choices=("read", "write", "import"), action="append")
    parser.add_argument("--program", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/bench/bin/zel_recordset_benchmarks")
    parser.add_argument("--zelconv", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/release/bin/zelconv",
                        help="left out where it is missing (default: that of the preset 'release')")
    return parser.parse_args()


class Bench:
    """The jobs on the database of the environment."""

    def __init__(self, arguments, folder):
        self.arguments = arguments
        self.kind = os.environ["ZEL_TEST_DATABASE"]
        self.connect = os.environ["ZEL_TEST_CONNECT"]
        if self.kind == "mariadb":
            # For the peers; our library sets it for itself.
            os.environ["ZEL_TEST_CONNECT"] += ";CHARSET=utf8mb4"
        self.folder = folder

    def program(self, *words):
        return subprocess.run([self.arguments.program, *map(str, words)], check=True,
                              stdout=subprocess.PIPE, encoding="ascii").stdout.split()

    def attribute(self, name):
        return re.search(f"(?i)(?:^|;){name}=([^;]*)", self.connect)[1]

    def compare(self, contenders):
        self.program("fill", ROWS_COMPARED)
        shown = {name: self.program("show", name) for name in contenders}
        for name, found in shown.items():
            if found != shown["bare"]:
                sys.exit(f"recordsets.py: {name} reads other rows: {found}, {shown['bare']}")
        for name in contenders:
            self.program("empty")
            self.program("write", name, ROWS_COMPARED)
            self.program("compare", ROWS_COMPARED)

    def read(self, name):
        rows, seconds, processor = self.program("read", name)
        if int(rows) != self.arguments.rows:
            sys.exit(f"recordsets.py: {name} reads {rows} rows")
        return float(seconds), float(processor)

    def write(self, name):
        self.program("empty")
        _, seconds, processor = self.program("write", name, self.arguments.rows)
        return float(seconds), float(processor)

    # zelconv

    def prepare_import(self):
        """The rows as zelconv and as the database's own program like them."""
        with open(self.folder / "rows.csv", "wb") as out:
            self.zelconv("--from", f"odbc:{self.connect}", "--table", "READING", "--to", "csv", "-",
                         stdout=out)
        null = "" if self.kind == "sqlite" else "NULL"
        moment = re.compile(r";(\d\d)\.(\d\d)\.(\d{4}) (\d\d:\d\d)(:\d\d)?;(Ja|Nein)$")
        weight = re.compile(r"^(\d+;\d+;[\d.]+;);")
        with open(self.folder / "rows.csv", encoding="utf-8") as source, \
                open(self.folder / "import.csv", "w", encoding="utf-8") as target:
            next(source)
            for line in source:
                line = moment.sub(lambda part: f";{part[3]}-{part[2]}-{part[1]} {part[4]}"
                                  f"{part[5] or ':00'};{int(part[6] == 'Ja')}", line.rstrip("\n"))
                target.write(weight.sub(rf"\g<1>{null};", line) + "\n")

    def zelconv(self, *arguments, **streams):
        subprocess.run([self.arguments.zelconv, "--columns", COLUMNS, "--numbers", "plain",
                        *arguments], check=True, **streams)

    def run_zelconv(self):
        self.zelconv("--from", "csv", "--to", f"odbc:{self.connect}", "--table", "WRITING",
                     str(self.folder / "rows.csv"))

    def run_import(self):
        file = self.folder / "import.csv"
        if self.kind == "sqlite":
            subprocess.run(["sqlite3", self.attribute("Database")], check=True, encoding="utf-8",
                           input=f".mode csv\n.separator ;\n.import {file} WRITING\n")
            return
        subprocess.run(
            ["mariadb", "--no-defaults", "--local-infile=1", "--protocol=tcp", "-h127.0.0.1",
             f"-P{self.attribute('PORT')}", "-uroot", "test"], check=True, encoding="utf-8",
            input=f"LOAD DATA LOCAL INFILE '{file}' INTO TABLE WRITING CHARACTER SET utf8mb4 "
                  "FIELDS TERMINATED BY ';' OPTIONALLY ENCLOSED BY '\"' ESCAPED BY '';\n")

    def fill(self, name):
        """Time of writing the table by zelconv or by the database's own program."""
        self.program("empty")
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        begin = time.monotonic()
        self.run_zelconv() if name == OURS else self.run_import()
        seconds = time.monotonic() - begin
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return seconds, (after.ru_utime + after.ru_stime) - (before.ru_utime + before.ru_stime)

    def run(self):
        contenders = self.program("contenders")
        self.compare(contenders)
        self.program("fill", self.arguments.rows)
        jobs = {"read": (self.read, contenders), "write": (self.write, contenders)}
        if self.arguments.zelconv.exists() and self.is_wanted("import"):
            self.prepare_import()
            self.program("empty")
            self.run_zelconv()
            self.program("compare", self.arguments.rows)
            self.program("fill", self.arguments.rows)
            importer = "sqlite3" if self.kind == "sqlite" else "mariadb"
            jobs["import"] = (self.fill, [OURS, importer])
        for job, (work, names) in jobs.items():
            if self.is_wanted(job):
                self.report(job, names, self.measure(work, names))

    def is_wanted(self, job):
        return self.arguments.job is None or job in self.arguments.job

    def measure(self, work, names):
        """(seconds, processor seconds) of all repetitions by contender."""
        times = {name: [] for name in names}
        for repetition in range(self.arguments.repetitions):
            for name in names if repetition % 2 == 0 else reversed(names):
                times[name].append(work(name))
        return times

    def report(self, job, names, times):
        for name in names:
            seconds, processor = (statistics.median(column) for column in zip(*times[name]))
            ratio = statistics.median(ours[0] / peer[0]
                                      for ours, peer in zip(times[OURS], times[name]))
            bar = BARS.get((job, name))
            print_row(self.kind, job, name, f"{seconds:.2f}", f"{processor:.2f}",
                      "" if name == OURS else f"{ratio:.2f}", "" if bar is None else f"{bar:.2f}",
                      "" if bar is None else "yes" if ratio <= bar else "no")


def print_row(*cells):
    widths = (8, 6, 9, 7, 9, 5, 4, 7)
    print("  ".join(cell.ljust(width) if i < 3 else cell.rjust(width)
                    for i, (cell, width) in enumerate(zip(cells, widths))).rstrip(), flush=True)


def main():
    arguments = parse_arguments()
    if "ZEL_TEST_CONNECT" in os.environ:
        with tempfile.TemporaryDirectory() as folder:
            Bench(arguments, pathlib.Path(folder)).run()
        return
    if not arguments.program.exists():
        sys.exit(f"recordsets.py: {arguments.program} is missing; build it with "
                 "cmake --preset bench && cmake --build --preset bench")
    print_row(*HEADINGS)
    for kind in arguments.database or ("sqlite", "mariadb"):
        work = arguments.program.parent.parent / "databases"
        subprocess.run([sys.executable, ROOT / "tests/support/with_database.py", kind, work, "--",
                        sys.executable, *sys.argv], check=True)


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as error:
        sys.exit(f"recordsets.py: a program failed ({error.returncode})")
