#!/usr/bin/env python3
"""Measures how large the libraries are and how long loading the value classes takes.

    benchmarks/startup/run.py [--program FILE] [--times N] [--csv FILE] [FOLDER...]

For each build folder (default: that of the preset 'bench'): bytes of every library without symbols
and of its code; medians in microseconds of loading and unloading the library of the value classes
with all it needs, the first time in a process and again, and of a whole program that does nothing.
The libraries of a Windows folder are loaded under Wine.
"""

import argparse
import csv
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
LIBRARY = "ZELQRNDT017"
# Processes, each of which loads for a first time.
STARTS = 15


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folders", nargs="*", type=pathlib.Path, metavar="FOLDER",
                        default=[ROOT / "build/bench"], help="build folders")
    parser.add_argument("--program", type=pathlib.Path, metavar="FILE",
                        help="the program that loads (default: zel_startup of the folder)")
    parser.add_argument("--times", type=int, default=100, metavar="N",
                        help="loads in one process")
    parser.add_argument("--csv", type=pathlib.Path, metavar="FILE",
                        help="write the figures there too")
    return parser.parse_args()


class Target:
    """The libraries of one build folder, and how programs for its system are run."""

    def __init__(self, folder, program):
        self.bin = folder.resolve() / "bin"
        self.is_windows = (self.bin / f"{LIBRARY}.dll").exists()
        suffix = ".dll" if self.is_windows else ".so"
        self.prefix = "" if self.is_windows else "lib"
        self.tools = "x86_64-w64-mingw32-" if self.is_windows else ""
        self.libraries = sorted(self.bin.glob(f"{self.prefix}ZELQRN*{suffix}"))
        self.library = self.bin / f"{self.prefix}{LIBRARY}{suffix}"
        own = self.bin / ("zel_startup.exe" if self.is_windows else "zel_startup")
        self.program = program.resolve() if program else own
        for needed in (self.library, self.program):
            if not needed.exists():
                sys.exit(f"startup/run.py: {needed} is missing")

    def run(self, *words):
        emulator = [ROOT / "cmake/run-under-wine.sh"] if self.is_windows else []
        return subprocess.run([*emulator, self.program, *words], check=True,
                              stdout=subprocess.PIPE, encoding="ascii", cwd=self.bin).stdout

    def load(self, times):
        """The microseconds of each load."""
        # Beside the program Windows finds it by its name.
        library = self.library.name if self.is_windows else self.library
        return [float(line) for line in self.run(library, str(times)).split()]

    def start(self):
        begin = time.monotonic()
        self.run()
        return 1e6 * (time.monotonic() - begin)


def sizes(library, tools):
    """Bytes of the file without symbols, and of its code."""
    with tempfile.TemporaryDirectory() as folder:
        stripped = pathlib.Path(folder) / library.name
        shutil.copyfile(library, stripped)
        subprocess.run([f"{tools}strip", stripped], check=True)
        listing = subprocess.run([f"{tools}size", "-A", stripped], check=True,
                                 stdout=subprocess.PIPE, encoding="ascii").stdout
        return stripped.stat().st_size, code_size(listing)


def code_size(listing):
    """The size of the section .text in the output of size -A."""
    for line in listing.splitlines():
        cells = line.split()
        if cells and cells[0] == ".text":
            return int(cells[1])
    return 0


def figures(folder, arguments):
    """Yields (system, what, figure), each when it is known."""
    target = Target(folder, arguments.program)
    system = "Windows" if target.is_windows else "Linux"
    for library in target.libraries:
        size, code = sizes(library.resolve(), target.tools)
        yield system, f"{library.name}, bytes", size
        yield system, f"{library.name}, code", code
    # The first process makes the prefix for Wine.
    target.run()
    first = [target.load(1)[0] for _ in range(STARTS)]
    yield system, "first load (us)", round(statistics.median(first))
    again = target.load(arguments.times)[1:]
    yield system, "load again (us)", round(statistics.median(again))
    empty = [target.start() for _ in range(STARTS)]
    yield system, "empty program (us)", round(statistics.median(empty))


def main():
    arguments = parse_arguments()
    lines = []
    for folder in arguments.folders:
        for system, what, figure in figures(folder, arguments):
            print(f"{system:<8}  {what:<32}{figure:>10}", flush=True)
            lines.append((system, what, figure))
    if arguments.csv:
        with open(arguments.csv, "w", encoding="ascii", newline="") as out:
            csv.writer(out, lineterminator="\n").writerows([("system", "what", "now"), *lines])


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as error:
        sys.exit(f"startup/run.py: a program failed ({error.returncode})")
