#!/usr/bin/env python3
"""Runs the benchmarks and prints one table of ratios.

    benchmarks/run.py [--quick] [--windows] [--filter REGEX] [--program FILE] [--json FILE]

Every row compares the library ("ours") with one peer in one job: median times of an item in
nanoseconds, how many times the peer takes as long, the least ratio that is wanted, and whether it
was reached. The ratios travel between machines, the times do not. With --windows the program is the
one for Windows, run by Wine, which has bars of its own.
"""

import argparse
import fnmatch
import json
import pathlib
import subprocess
import sys
import tempfile
from typing import NamedTuple, Optional

ROOT = pathlib.Path(__file__).resolve().parent.parent
OURS = "ours"

# Decimal numbers that round as the library's do, or carry more digits; with the one that cuts.
ROUNDING = ("decimal128-34", "decimal128-34-inline", "decnumber", "rust-29")
DECIMALS = (*ROUNDING, "boost-48", "boost-48-inline")
# Those behind a call, as the library's are.
CALLED = ("decimal128-34", "decnumber", "rust-29", "boost-48")

# Who writes or reads the displayed form of each kind of value, separators included. Those that only
# mark what the bare digits cost, to_chars and from_chars, have no bar.
SHOWING = ("snprintf", "strftime", "fmt", "fmt-locale", "fmt-chrono", "icu", "icu-unumf")
READING = ("sscanf", "strptime", "icu")
DISPLAYED = ("long", "long-groups", "double-money", "double-rounded", "double", "decimal-money",
             "date", "date-time", "time")

# The least ratio peer / ours that is wanted, by job; * stands for any part of a name. Below 1 the
# peer is a limit that does less. A bar for several peers stands at the fastest of them.
BARS = {
    "value/add": {"malloc": 3.5, "bare": 1 / 2.2},
    "decimal/sum-1000000": {"engine": 1 / 3},
    "decimal96/add-same": {DECIMALS: 3.0},
    "decimal96/add-mixed": {DECIMALS: 2.5},
    "decimal96/add-28": {ROUNDING: 1.2},
    "decimal96/multiply-money": {DECIMALS: 3.0},
    "decimal96/multiply-28": {ROUNDING: 2.0},
    "decimal96/divide-money": {ROUNDING: 1.9},
    "decimal96/divide-28": {ROUNDING: 2.5},
    "decimal96/chain": {CALLED: 2.5},
    "decimal96/compare-same": {DECIMALS: 1.5},
    "decimal96/compare-mixed": {DECIMALS: 1.0},
    "decimal96/parse-money": {DECIMALS: 1.5},
    "decimal96/parse-28": {DECIMALS: 1.5},
    "decimal96/print-money": {DECIMALS: 2.0},
    "decimal96/print-28": {DECIMALS: 2.0},
    "double-digits": {"to_chars": 3.0},
    "double-digits-money": {"to_chars": 3.0},
    "text-to-double-number": {"from_chars": 1.0},
    "integer-digits": {"to_chars": 1.0},
    "text-to-integer": {"from_chars": 1.0},
    "text-to-integer-many": {"from_chars": 1.0},
    "date-digits": {"fmt": 4.0, "strftime": 4.0},
    "text-to-date-fields": {"strptime": 4.0},
    "quote/14": {"naive": 2.0},
    "quote/1000": {"naive": 15.0},
    "sortorder/compare": {"memcmp": 1 / 1.3, "icu": 7.0},
    "sortorder/compare-neighbours": {"memcmp": 1 / 1.3, "icu": 7.0},
    "sortorder/compare-many": {"memcmp": 1 / 1.3, "icu": 7.0},
    "codepage*/*": {"icu": 5.0},
    # Plain text is hardly more than copied.
    "codepage/plain-4KB": {"memcpy": 1 / 2},
    "archive/write-nullables": {"cereal": 5.0, "boost": 5.0},
    "archive/read-nullables": {"cereal": 5.0, "boost": 5.0},
    "archive/write-records": {"cereal": 5.0, "boost": 5.0},
    "archive/read-records": {"cereal": 5.0, "boost": 5.0},
    "archive/write-plain": {"cereal": 5.0, "boost": 5.0},
    "archive/read-plain": {"cereal": 5.0, "boost": 5.0},
    "archive/write-decimals": {"memcpy": 1 / 3.3},
    "archive/read-objects": {"malloc": 2.0},
    "archive/read-million-*": {"malloc": 2.0},
    "format/show-double": {"to_chars": 1.0},
    **{f"{way}/show-{kind}": {SHOWING: 1.0} for way in ("format", "display") for kind in DISPLAYED},
    **{f"{way}/read-{kind}": {READING: 1.0} for way in ("format", "display") for kind in DISPLAYED},
}
# Under Wine memory costs more and the peers are fewer.
WINDOWS_BARS = {"value/add": {"malloc": 10.0}}

HEADINGS = ("job", "ours (ns)", "peer", "peer (ns)", "peer/ours", "bar", "reached")
LEFT_ALIGNED = {0, 2}


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true",
                        help="3 short repetitions instead of 7: about two minutes, less exact")
    parser.add_argument("--windows", action="store_true",
                        help="measure the program for Windows under Wine")
    parser.add_argument("--filter", default=".", metavar="REGEX",
                        help="only benchmarks whose name matches")
    parser.add_argument("--program", type=pathlib.Path, metavar="FILE",
                        help="the benchmark program (default: that of the preset 'bench', with "
                        "--windows of 'bench-windows')")
    parser.add_argument("--json", type=pathlib.Path, metavar="FILE",
                        help="write the medians there too")
    arguments = parser.parse_args()
    if arguments.program is None:
        arguments.program = ROOT / ("build/bench-windows/bin/zel_benchmarks.exe"
                                    if arguments.windows else "build/bench/bin/zel_benchmarks")
    return arguments


def run(arguments):
    """The medians by job and contender, in the program's order: {job: {contender: ns}}."""
    repetitions, min_time = (3, "0.04") if arguments.quick else (7, "0.1")
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder) / "report.json"
        # To Wine the whole file system is a drive.
        drive = "Z:" if arguments.windows else ""
        subprocess.run(
            [*([ROOT / "cmake/run-under-wine.sh"] if arguments.windows else []),
             arguments.program,
             f"--benchmark_filter={arguments.filter}",
             f"--benchmark_repetitions={repetitions}",
             f"--benchmark_min_time={min_time}",
             "--benchmark_enable_random_interleaving=true",
             "--benchmark_report_aggregates_only=true",
             "--benchmark_out_format=json",
             f"--benchmark_out={drive}{report}"],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8")
        text = report.read_text()
    # The report is empty when no benchmark matches the filter.
    return medians(json.loads(text)["benchmarks"]) if text else {}


def medians(results):
    rows = {}
    for result in sorted(results, key=lambda entry: entry["family_index"]):
        if result.get("aggregate_name") != "median":
            continue
        job, contender = result["run_name"].rsplit("/", 1)
        rows.setdefault(job, {})[contender] = 1e9 / result["items_per_second"]
    return rows


class Row(NamedTuple):
    """The library and one peer in one job."""
    job: str
    ours: float
    peer: str
    time: float
    bar: Optional[float]

    @property
    def ratio(self):
        return self.time / self.ours

    @property
    def verdict(self):
        return "" if self.bar is None else "yes" if self.ratio >= self.bar else "no"

    def cells(self):
        return (self.job, number(self.ours), self.peer, number(self.time), f"{self.ratio:.2f}",
                "" if self.bar is None else f"{self.bar:.2f}", self.verdict)


def compare(jobs, bars=BARS):
    """The rows of all jobs that the library takes part in."""
    rows = []
    for job, times in jobs.items():
        ours = times.get(OURS)
        if ours is None:
            continue
        found = bars_of_peers(job, times, bars)
        rows += [Row(job, ours, peer, time, found.get(peer))
                 for peer, time in times.items() if peer != OURS]
    return rows


def bars_of_peers(job, times, bars=BARS):
    """The bars of a job by the peer at which each stands; where several do, the highest."""
    found = {}
    for pattern, wanted in bars.items():
        if not fnmatch.fnmatchcase(job, pattern):
            continue
        for peers, bar in wanted.items():
            candidates = [peer for peer in ([peers] if isinstance(peers, str) else peers)
                          if peer in times]
            if candidates:
                fastest = min(candidates, key=times.get)
                found[fastest] = max(bar, found.get(fastest, 0))
    return found


def number(nanoseconds):
    return f"{nanoseconds:.1f}" if nanoseconds < 1000 else f"{nanoseconds:.0f}"


def print_table(rows):
    widths = [max(len(row[i]) for row in [HEADINGS, *rows]) for i in range(len(HEADINGS))]
    rule = tuple("-" * width for width in widths)
    for row in [HEADINGS, rule, *rows]:
        cells = [cell.ljust(width) if i in LEFT_ALIGNED else cell.rjust(width)
                 for i, (cell, width) in enumerate(zip(row, widths))]
        print("  ".join(cells).rstrip())


def main():
    arguments = parse_arguments()
    if not arguments.program.exists():
        preset = "bench-windows" if arguments.windows else "bench"
        sys.exit(f"run.py: {arguments.program} is missing; build it with "
                 f"cmake --preset {preset} && cmake --build --preset {preset}")
    try:
        jobs = run(arguments)
    except subprocess.CalledProcessError as error:
        sys.stderr.write(error.stderr)
        sys.exit(f"run.py: the benchmark program failed ({error.returncode})")
    rows = compare(jobs, WINDOWS_BARS if arguments.windows else BARS)
    if not rows:
        sys.exit("run.py: no benchmark matches")
    print_table([row.cells() for row in rows])
    if arguments.json:
        arguments.json.write_text(json.dumps(jobs, indent=1) + "\n")


if __name__ == "__main__":
    main()
