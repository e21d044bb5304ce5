#!/usr/bin/env python3
"""Measures zelconv against a program made for one table, from CSV to SQL.

    benchmarks/zelconv/run.py [--rows N ...] [--repetitions N] [--folder FOLDER]
                              [--zelconv FILE] [--peer FILE]

Both read the same rows of eight columns and write INSERT statements and the rows that they reject;
what they wrote is compared byte by byte first. Every repetition runs both, one behind the other in
turning order. `processor` and the rows a second are by the processor's time, `seconds` by the clock
on the wall; `ratio` is the median over the repetitions of the peer's processor time by ours: above
1 zelconv is faster.
"""

import argparse
import filecmp
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
OURS = "ours"
PEER = "peer"
COLUMNS = ("NUMBER:long,QUANTITY:short,PRICE:decimal(2),WEIGHT:double,NAME:string,GRADE:char,"
           "MOMENT:datetime,EXPRESS:bool")
HEADINGS = ("rows", "contender", "seconds", "processor", "rows/s", "memory", "ratio")
NAMES = ("Dübel", "Gießkanne", "Bügelsäge", "Klappstuhl", "Maßband 5 m", '"Türgriff; verzinkt"',
         '"Lampe ""Süd"""', "Kanne d'eau", "Bohrer 8 mm", "Winkel", "Schraube M6", '"Brett, 2 m"')
# One row in so many is wrong, each time in another way.
ROWS_TO_A_FAULT = 10000
FAULTS = ((0, "2147483648"), (0, "12a"), (1, "-32769"), (2, "1.2.3"), (2, "1" * 29),
          (3, "0.1234567890123456"), (4, 'Lampe "Süd"'), (4, "Größe Ω"), (5, "AB"),
          (6, "29.02.2001 10:00"), (6, "01.13.2001 10:00"), (6, "05.03.2000 10:07:30"),
          (6, "05.03.2000 24:00"), (7, "vielleicht"))
MASK = (1 << 64) - 1
# Between two looks at a program that runs.
PAUSE = 0.002


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rows", type=int, nargs="+", default=[1000, 10000, 100000, 1000000])
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--folder", type=pathlib.Path,
                        help="where the files lie meanwhile (default: a temporary one)")
    parser.add_argument("--zelconv", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/release/bin/zelconv")
    parser.add_argument("--peer", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/bench/bin/zel_zelconv_peer")
    return parser.parse_args()


def scattered(number):
    bits = number * 0x9E3779B97F4A7C15 & MASK
    bits ^= bits >> 29
    return (bits * 0xBF58476D1CE4E5B9 & MASK) >> 8


def make_row(number):
    """The cells of a row; the same for the same number."""
    dice = scattered(number)
    price = dice % 9999991
    # Two places, sometimes one or three, and amounts below zero.
    places = (2, 2, 2, 2, 2, 2, 2, 2, 1, 3)[dice % 10]
    sign = "-" if dice % 11 == 0 else ""
    weight = "" if dice % 13 == 0 else f"{dice % 1000003 / 1000:.15g}"
    return [str(dice % 4294967291 - 2147483645), str(dice % 65521 - 32760),
            f"{sign}{price // 10**places}.{price % 10**places:0{places}d}", weight,
            f"{NAMES[dice % len(NAMES)]}"[:40] if dice % 3 == 0 else f"Artikel {dice % 99991}",
            chr(ord("A") + dice % 26),
            f"{1 + dice % 28:02d}.{1 + dice % 12:02d}.{1990 + dice % 39} "
            f"{dice % 24:02d}:{dice % 59:02d}", ("Ja", "Nein")[dice % 2]]


def write_rows(count, path):
    with open(path, "w", encoding="utf-8", newline="") as out:
        out.write("NUMBER;QUANTITY;PRICE;WEIGHT;NAME;GRADE;MOMENT;EXPRESS\n")
        for number in range(1, count + 1):
            cells = make_row(number)
            if number % ROWS_TO_A_FAULT == 0:
                column, text = FAULTS[number // ROWS_TO_A_FAULT % len(FAULTS)]
                cells[column] = text
            out.write(";".join(cells) + "\n")


def most_memory(process):
    """In KB; what the system tells of ended ones would be at least our own."""
    with open(f"/proc/{process}/status", encoding="ascii", errors="replace") as status:
        return next((int(line.split()[1]) for line in status if line.startswith("VmHWM:")), None)


class Bench:
    """Both programs on the rows of one file."""

    def __init__(self, arguments, folder, rows):
        self.arguments = arguments
        self.folder = folder
        self.rows = rows
        write_rows(rows, folder / "rows.csv")

    def path(self, name, ending):
        return self.folder / f"{name}.{ending}"

    def command(self, name):
        source, target, rejects = (self.folder / "rows.csv", self.path(name, "sql"),
                                   self.path(name, "rejects"))
        if name == PEER:
            return [self.arguments.peer, source, target, rejects]
        return [self.arguments.zelconv, "--columns", COLUMNS, "--numbers", "plain", "--from", "csv",
                "--to", "sql", "--table", "READING", "--rejects", rejects, source, target]

    def run(self, name):
        """Seconds, processor seconds and the most memory in MB."""
        begin = time.monotonic()
        process = subprocess.Popen(self.command(name), stderr=subprocess.DEVNULL)
        ended, memory = 0, 0
        while not ended:
            memory = most_memory(process.pid) or memory
            time.sleep(PAUSE)
            ended, status, usage = os.wait4(process.pid, os.WNOHANG)
        seconds = time.monotonic() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
        # zelconv tells of rejects by its exit status.
        if process.returncode not in ((0, 1) if name == OURS else (0,)):
            raise subprocess.CalledProcessError(process.returncode, process.args)
        return seconds, usage.ru_utime + usage.ru_stime, memory / 1024

    def compare(self):
        for name in (OURS, PEER):
            self.run(name)
        if not filecmp.cmp(self.path(OURS, "sql"), self.path(PEER, "sql"), shallow=False):
            sys.exit("run.py: the statements differ")
        with open(self.path(OURS, "rejects"), "rb") as lines:
            rejected = b"".join(line for line in lines if not line.startswith(b"#zelconv\t"))
        if rejected != self.path(PEER, "rejects").read_bytes():
            sys.exit("run.py: the rejected rows differ")

    def measure(self):
        results = {OURS: [], PEER: []}
        for repetition in range(self.arguments.repetitions):
            for name in (OURS, PEER) if repetition % 2 == 0 else (PEER, OURS):
                results[name].append(self.run(name))
        return results

    def report(self, results):
        ratio = statistics.median(theirs[1] / ours[1]
                                  for ours, theirs in zip(results[OURS], results[PEER]))
        for name, times in results.items():
            seconds, processor, memory = (statistics.median(column) for column in zip(*times))
            print_row(self.rows, name, f"{seconds:.3f}", f"{processor:.3f}",
                      f"{self.rows / processor:.0f}", f"{memory:.1f} MB",
                      f"{ratio:.2f}" if name == PEER else "")


def print_row(*cells):
    widths = (9, 9, 8, 9, 9, 8, 5)
    print("  ".join(str(cell).rjust(width) for cell, width in zip(cells, widths)).rstrip(),
          flush=True)


def main():
    arguments = parse_arguments()
    for program in (arguments.zelconv, arguments.peer):
        if not program.exists():
            sys.exit(f"run.py: {program} is missing; build the presets 'release' and 'bench'")
    print_row(*HEADINGS)
    with tempfile.TemporaryDirectory(dir=arguments.folder) as folder:
        for rows in arguments.rows:
            bench = Bench(arguments, pathlib.Path(folder), rows)
            bench.compare()
            bench.report(bench.measure())


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as error:
        sys.exit(f"run.py: a program failed ({error.returncode})")
