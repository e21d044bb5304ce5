#!/usr/bin/env python3
"""Counts the processor's instructions for one operation of the library.

    benchmarks/instructions.py [--build FOLDER] [--before FOLDER] [--filter REGEX] [--csv FILE]

Every operation runs N and 2 N times under valgrind; what the second run takes more, divided by N,
is what one operation takes. Unlike times the counts do not depend on what else the machine does.
With --before a second build folder is counted too, of an older state for example.
"""

import argparse
import csv
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = "bin/zel_instructions"
TIMES = 20 * 1024


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/bench",
                        metavar="FOLDER",
                        help="build folder (default: that of the preset 'bench')")
    parser.add_argument("--before", type=pathlib.Path, metavar="FOLDER",
                        help="a build folder to compare with")
    parser.add_argument("--filter", default=".", metavar="REGEX",
                        help="only operations whose name matches")
    parser.add_argument("--csv", type=pathlib.Path, metavar="FILE",
                        help="write the counts there too")
    return parser.parse_args()


def total(report):
    """The instructions that a report of callgrind counts in all."""
    found = re.search(r"^(?:totals|summary): (\d+)", report, re.MULTILINE)
    if found is None:
        raise ValueError("callgrind's report has no total")
    return int(found[1])


def instructions(program, operation, times):
    """The instructions of a whole run."""
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder) / "report"
        subprocess.run(["valgrind", "--quiet", "--tool=callgrind",
                        f"--callgrind-out-file={report}", program, operation, str(times)],
                       check=True, stdout=subprocess.DEVNULL)
        return total(report.read_text())


def per_operation(program, operation):
    once = instructions(program, operation, TIMES)
    twice = instructions(program, operation, 2 * TIMES)
    return (twice - once) / TIMES


def operations(program):
    return subprocess.run([program], check=True, stdout=subprocess.PIPE,
                          encoding="ascii").stdout.split()


def line(name, now, before):
    """The cells of an operation; `before` is None where there is nothing to compare with."""
    cells = [name]
    if before is not None:
        cells.append(f"{before:.1f}")
    cells.append(f"{now:.1f}")
    if before is not None:
        cells.append(f"{now / before:.2f}")
    return cells


def print_line(cells):
    print("  ".join([cells[0].ljust(20), *(cell.rjust(8) for cell in cells[1:])]), flush=True)


def main():
    arguments = parse_arguments()
    if shutil.which("valgrind") is None:
        sys.exit("instructions.py: valgrind is missing; "
                 "cmake/install-packages.sh bench installs it")
    program = arguments.build / PROGRAM
    before = arguments.before / PROGRAM if arguments.before else None
    for needed in filter(None, (program, before)):
        if not needed.exists():
            sys.exit(f"instructions.py: {needed} is missing; build it with "
                     "cmake --preset bench && cmake --build --preset bench")
    names = [name for name in operations(program) if re.search(arguments.filter, name)]
    if not names:
        sys.exit("instructions.py: no operation matches")
    headings = ["operation", "now"] if before is None else ["operation", "before", "now", "ratio"]
    print_line(headings)
    lines = [headings]
    for name in names:
        cells = line(name, per_operation(program, name),
                     None if before is None else per_operation(before, name))
        print_line(cells)
        lines.append(cells)
    if arguments.csv:
        with open(arguments.csv, "w", encoding="ascii", newline="") as out:
            csv.writer(out, lineterminator="\n").writerows(lines)


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as error:
        sys.exit(f"instructions.py: a program failed ({error.returncode})")
