#!/usr/bin/env python3
"""Runs the benchmarks and prints one table of ratios.

    benchmarks/run.py [--quick] [--filter REGEX] [--program FILE]

Every row compares the library ("ours") with one peer in one job: median times of an item in
nanoseconds, how many times the peer takes as long, the least ratio that is wanted, and whether it
was reached. The ratios travel between machines, the times do not.
"""

import argparse
import json
import pathlib
import subprocess
import sys
import tempfile

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

# The least ratio peer / ours that is wanted. Below 1 the peer is a limit that does less. A bar for
# several peers stands at the fastest of them.
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
    "integer-to-text": {"to_chars": 1.0},
    "text-to-integer": {"from_chars": 1.0},
    "text-to-integer-many": {"from_chars": 1.0},
    "date-digits": {"fmt": 4.0, "strftime": 4.0},
    "text-to-date-fields": {"strptime": 4.0},
    "quote/14": {"naive": 2.0},
    "quote/1000": {"naive": 15.0},
    "sortorder/compare": {"memcmp": 1 / 1.3, "icu": 7.0},
    "sortorder/compare-neighbours": {"memcmp": 1 / 1.3, "icu": 7.0},
    "sortorder/compare-many": {"memcmp": 1 / 1.3, "icu": 7.0},
    "codepage/plain-4KB": {"icu": 5.0},
    "codepage/german-4KB": {"icu": 5.0},
    "codepage/german-1MB": {"icu": 5.0},
    "archive/write-nullables": {"cereal": 5.0, "boost": 5.0},
    "archive/read-nullables": {"cereal": 5.0, "boost": 5.0},
    "archive/write-records": {"cereal": 5.0, "boost": 5.0},
    "archive/read-records": {"cereal": 5.0, "boost": 5.0},
    "archive/read-objects": {"malloc": 2.0},
    **{f"{way}/show-{kind}": {SHOWING: 1.0} for way in ("format", "display") for kind in DISPLAYED},
    **{f"{way}/read-{kind}": {READING: 1.0} for way in ("format", "display") for kind in DISPLAYED},
}

HEADINGS = ("job", "ours (ns)", "peer", "peer (ns)", "peer/ours", "bar", "reached")
LEFT_ALIGNED = {0, 2}


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true",
                        help="3 short repetitions instead of 7: about two minutes, less exact")
    parser.add_argument("--filter", default=".", metavar="REGEX",
                        help="only benchmarks whose name matches")
    parser.add_argument("--program", default=ROOT / "build/bench/bin/zel_benchmarks",
                        type=pathlib.Path, metavar="FILE",
                        help="the benchmark program (default: that of the preset 'bench')")
    return parser.parse_args()


def run(arguments):
    """The medians by job and contender, in the program's order: {job: {contender: ns}}."""
    repetitions, min_time = (3, "0.04") if arguments.quick else (7, "0.25")
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder) / "report.json"
        subprocess.run(
            [str(arguments.program),
             f"--benchmark_filter={arguments.filter}",
             f"--benchmark_repetitions={repetitions}",
             f"--benchmark_min_time={min_time}",
             "--benchmark_enable_random_interleaving=true",
             "--benchmark_report_aggregates_only=true",
             "--benchmark_out_format=json",
             f"--benchmark_out={report}"],
            check=True, stdout=subprocess.DEVNULL)
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


def table(jobs):
    """The cells of all rows."""
    rows = []
    for job, times in jobs.items():
        ours = times.get(OURS)
        if ours is None:
            continue
        bars = bars_of_peers(job, times)
        for peer, time in times.items():
            if peer == OURS:
                continue
            ratio = time / ours
            bar = bars.get(peer)
            verdict = "" if bar is None else "yes" if ratio >= bar else "no"
            rows.append((job, number(ours), peer, number(time), f"{ratio:.2f}",
                         "" if bar is None else f"{bar:.2f}", verdict))
    return rows


def bars_of_peers(job, times):
    """The bars of a job by the peer at which each stands."""
    bars = {}
    for peers, bar in BARS.get(job, {}).items():
        candidates = [peer for peer in ([peers] if isinstance(peers, str) else peers)
                      if peer in times]
        if candidates:
            bars[min(candidates, key=times.get)] = bar
    return bars


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
        sys.exit(f"run.py: {arguments.program} is missing; build it with "
                 "cmake --preset bench && cmake --build --preset bench")
    try:
        jobs = run(arguments)
    except subprocess.CalledProcessError as error:
        sys.exit(f"run.py: the benchmark program failed ({error.returncode})")
    rows = table(jobs)
    if not rows:
        sys.exit("run.py: no benchmark matches")
    print_table(rows)


if __name__ == "__main__":
    main()
