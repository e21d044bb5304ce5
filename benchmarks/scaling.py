#!/usr/bin/env python3
"""Measures how the cost grows with the work, and draws it.

    benchmarks/scaling.py [--quick] [--topic NAME] [--output FOLDER] [--program FILE]
                          [--zelconv FILE]

For every topic the numbers are written as CSV and drawn as SVG, over logarithmic axes, into
docs/performance: a curve as steep as the dotted one grows in proportion to the work. --quick takes
smaller sizes; then only a folder of one's own is written.
"""

import argparse
import csv
import pathlib
import statistics
import subprocess
import sys
import tempfile

import plot

ROOT = pathlib.Path(__file__).resolve().parent.parent
COLUMNS = ("NUMBER:long,QUANTITY:short,PRICE:decimal(2),WEIGHT:double,NAME:string,GRADE:char,"
           "MOMENT:datetime,EXPRESS:bool")
# What the program measures: the largest size, also that of --quick, and how it is drawn.
TOPICS = {
    "texts": (10**8, 10**6, plot.Plot("Whole texts", "bytes", "time of one operation",
                                      plot.time_label)),
    "edits": (10**6, 10**4, plot.Plot("A text edited in a loop", "edits", "time of all edits",
                                      plot.time_label)),
    "archives": (10**6, 10**5, plot.Plot("Archives in memory", "objects", "time of all objects",
                                         plot.time_label)),
    "decimals": (10**7, 10**5, plot.Plot("Totals of decimal values", "values",
                                         "time of the total", plot.time_label)),
}
ZELCONV = "zelconv"
ZELCONV_MOST = (10**7, 10**5)
ZELCONV_PLOTS = {
    "seconds": plot.Plot("zelconv, from CSV", "rows", "processor time", plot.time_label),
    "megabytes": plot.Plot("zelconv, from CSV", "rows", "peak memory",
                           lambda megabytes: f"{megabytes:g} MB", slope=0),
}
# A work that takes longer is not repeated.
REPEATED_SECONDS = 2
REPETITIONS = 3


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true", help="smaller sizes")
    parser.add_argument("--topic", choices=(*TOPICS, ZELCONV), action="append",
                        help="only this topic")
    parser.add_argument("--output", type=pathlib.Path, metavar="FOLDER",
                        help="where to (default: docs/performance, with --quick build/scaling)")
    parser.add_argument("--program", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/bench/bin/zel_scaling")
    parser.add_argument("--zelconv", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "build/release/bin/zelconv")
    arguments = parser.parse_args()
    if arguments.output is None:
        arguments.output = ROOT / ("build/scaling" if arguments.quick else "docs/performance")
    return arguments


def curves_of(rows):
    """{series: [(size, figure), ...]} in the order of the rows."""
    curves = {}
    for series, size, figure in rows:
        curves.setdefault(series, []).append((int(size), float(figure)))
    return curves


def write(folder, name, figure, rows, drawn):
    """The rows (series, size, figure) as a table and as a picture."""
    folder.mkdir(parents=True, exist_ok=True)
    with open(folder / f"{name}.csv", "w", encoding="ascii", newline="") as out:
        table = csv.writer(out, lineterminator="\n")
        table.writerow(("series", "size", figure))
        table.writerows(rows)
    (folder / f"{name}.svg").write_text(drawn.draw(curves_of(rows)), encoding="utf-8")


def measure(arguments, topic):
    most, quick_most, drawn = TOPICS[topic]
    text = subprocess.run([arguments.program, topic, str(quick_most if arguments.quick else most)],
                          check=True, stdout=subprocess.PIPE, encoding="ascii").stdout
    rows = list(csv.reader(text.splitlines()))
    write(arguments.output, topic, "seconds", rows, drawn)
    print_growth(topic, curves_of(rows))


def run_measured(program, command):
    """Processor seconds and the most memory in MB."""
    answer = subprocess.run([program, "run", *command], check=True, stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE, encoding="utf-8").stderr
    return [float(figure) for figure in answer.splitlines()[-1].split(",")]


def repeated(program, command):
    """The medians of several runs, or one long one."""
    runs = [run_measured(program, command)]
    while len(runs) < REPETITIONS and runs[0][0] < REPEATED_SECONDS:
        runs.append(run_measured(program, command))
    return [statistics.median(column) for column in zip(*runs)]


def measure_zelconv(arguments):
    targets = {"to SQL": ["sql", "--table", "READING"], "to an archive": ["archive"]}
    seconds, megabytes = [], []
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "rows.csv"
        size = 1000
        while size <= ZELCONV_MOST[arguments.quick]:
            subprocess.run([arguments.program, "rows", str(size), source], check=True)
            for name, words in targets.items():
                used, memory = repeated(
                    arguments.program,
                    [arguments.zelconv, "--columns", COLUMNS, "--numbers", "plain",
                     "--from", "csv", "--to", *words, source, "-"])
                seconds.append((name, size, f"{used:.4f}"))
                megabytes.append((name, size, f"{memory:.1f}"))
            size *= 10
    for figure, rows in (("seconds", seconds), ("megabytes", megabytes)):
        name = f"{ZELCONV}-{figure}"
        rows.sort(key=lambda row: list(targets).index(row[0]))
        write(arguments.output, name, figure, rows, ZELCONV_PLOTS[figure])
        print_growth(name, curves_of(rows))


def print_growth(topic, curves):
    """What the largest size costs, and how many times the cost grew in the last steps of ten."""
    for series, points in curves.items():
        size, figure = points[-1]
        steps = " ".join(f"x{after[1] / before[1]:.1f}"
                         for before, after in zip(points[-3:], points[-2:]))
        print(f"{topic:<18}{series:<20}{plot.count_label(size):>8}{figure:>14.6g}  {steps}",
              flush=True)


def main():
    arguments = parse_arguments()
    for needed in (arguments.program, arguments.zelconv):
        if not needed.exists():
            sys.exit(f"scaling.py: {needed} is missing; build the presets 'bench' and 'release'")
    for topic in arguments.topic or (*TOPICS, ZELCONV):
        if topic == ZELCONV:
            measure_zelconv(arguments)
        else:
            measure(arguments, topic)


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as error:
        sys.exit(f"scaling.py: a program failed ({error.returncode})")
