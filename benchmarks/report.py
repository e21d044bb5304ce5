#!/usr/bin/env python3
"""Writes what the benchmarks measured as one page: docs/performance.md.

    benchmarks/report.py [--results FOLDER] [--output FILE]

The folder holds what bench.sh leaves in it: program.json and windows.json of run.py --json,
recordsets.txt and zelconv.txt as those scripts print them, instructions.csv and startup.csv. What
is missing is left out. Why a bar is missed comes from notes.md beside this script, and what an
older state needed from the folder before.
"""

import argparse
import csv
import datetime
import fnmatch
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

import run

ROOT = run.ROOT
# Topics in the page's order, by what the names of their jobs begin with.
TOPICS = (
    ("Decimals", r"decimal|(text|sql|extern)-to-decimal"),
    ("Value objects", r"(value|long|short|double|error)/"),
    ("Texts", r"string/|quote|sortorder/|codepage|integer|text-to-(integer|long|double)|double-"),
    ("Display", r"(format|display)/"),
    ("Archives", r"archive/"),
    ("Dates", r"date|text-to-date"),
    ("More", r""),
)
# What the figures depend on, by the package that brings it.
PACKAGES = {
    "Google Benchmark": "libbenchmark-dev", "ICU": "libicu-dev", "fmt": "libfmt-dev",
    "cereal": "libcereal-dev", "Boost": "libboost-dev", "decNumber (libdfp)": "libdfp-dev",
    "Hinnant's date": "libhowardhinnant-date-dev", "rust_decimal": "librust-rust-decimal-dev",
    "SOCI": "libsoci-dev", "unixODBC": "unixodbc-dev", "SQLite": "sqlite3",
    "MariaDB": "mariadb-server", "Wine": "wine64",
}


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--results", type=pathlib.Path, metavar="FOLDER",
                        default=ROOT / "build/results")
    parser.add_argument("--output", type=pathlib.Path, metavar="FILE",
                        default=ROOT / "docs/performance.md")
    return parser.parse_args()


# The machine

def first_line(*command):
    """What a program says first; nothing where it is missing."""
    try:
        answer = subprocess.run(command, check=True, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, encoding="utf-8").stdout
    except (OSError, subprocess.CalledProcessError):
        return ""
    return answer.splitlines()[0].strip() if answer else ""


def entry(path, key):
    """The value behind `key` in a file of keys and values."""
    try:
        text = pathlib.Path(path).read_text(encoding="utf-8")
    except OSError:
        return ""
    found = re.search(rf'^{key}\s*[:=]\s*"?([^"\n]*)', text, re.MULTILINE)
    return found[1] if found else ""


def version_of(package):
    """The version of a package as its makers count it, without what Debian adds."""
    full = first_line("dpkg-query", "-W", "-f", "${Version}\n", package)
    return re.sub(r"^\d+:|([-+]|~deb|~rc).*$", "", full)


def machine():
    """Rows of what was measured on."""
    processor = entry("/proc/cpuinfo", "model name") or platform.processor()
    memory = int((entry("/proc/meminfo", "MemTotal") or "0 kB").split()[0]) / 1024**2
    peers = [f"{name} {version}" for name, package in PACKAGES.items()
             if (version := version_of(package))]
    return [
        ("date", datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d")),
        ("processor", f"{processor}, {os.cpu_count()} cores"),
        ("memory", f"{memory:.0f} GiB"),
        ("system", f"{entry('/etc/os-release', 'PRETTY_NAME')}, {platform.system()} "
                   f"{platform.release()}"),
        ("compilers", ", ".join(filter(None, (first_line("g++", "--version"),
                                              first_line("x86_64-w64-mingw32-g++-posix",
                                                         "--version"),
                                              first_line("rustc", "--version"))))),
        ("versions", ", ".join(peers)),
    ]


# Why bars are missed

class Notes:
    """Reasons from a file of paragraphs: `job` peer: reason. * stands for any part of a name."""

    def __init__(self, text):
        found = (re.fullmatch(r"`([^`\n]+)` (\S+): (.+)", paragraph.strip(), re.DOTALL)
                 for paragraph in text.split("\n\n"))
        self.reasons = [match.groups() for match in found if match]

    def reason(self, job, peer):
        for jobs, peers, reason in self.reasons:
            if fnmatch.fnmatchcase(job, jobs) and fnmatch.fnmatchcase(peer, peers):
                return " ".join(reason.split())
        print(f"report.py: notes.md has no reason for {job} against {peer}", file=sys.stderr)
        return "not known"


# Tables

def table(headings, rows, numbers):
    """Lines of a table; the columns from `numbers` on are aligned right."""
    aligned = ["---:" if numbers <= i else "---" for i in range(len(headings))]
    lines = [headings, aligned, *rows]
    return ["| " + " | ".join(str(cell) for cell in cells) + " |" for cells in lines] + [""]


def topic_of(job):
    return next(name for name, pattern in TOPICS if re.match(pattern, job))


def with_bars(rows):
    return table(("job", "peer", "ours (ns)", "peer (ns)", "peer/ours", "bar", "reached"),
                 [(f"`{row.job}`", row.peer, run.number(row.ours), run.number(row.time),
                   f"{row.ratio:.2f}", f"{row.bar:.2f}", row.verdict) for row in rows], 2)


def missed(rows, notes):
    """A list of those that miss their bar and why; one reason for several peers stands once."""
    reasons = {}
    for row in rows:
        if row.verdict == "no":
            reasons.setdefault((row.job, notes.reason(row.job, row.peer)), []).append(row.peer)
    return [*(f"- `{job}`, {', '.join(peers)}: {reason}"
              for (job, reason), peers in reasons.items()), ""]


def without_bars(rows):
    """One line a job with all its peers."""
    jobs = {}
    for row in rows:
        jobs.setdefault((row.job, row.ours), []).append(
            f"{row.peer} {run.number(row.time)} ({row.ratio:.2f})")
    return table(("job", "peers (ns, peer/ours)", "ours (ns)"),
                 [(f"`{job}`", ", ".join(peers), run.number(ours))
                  for (job, ours), peers in jobs.items()], 2)


def by_topic(rows):
    """[(topic, rows)] of the topics that have any."""
    topics = [(name, [row for row in rows if topic_of(row.job) == name]) for name, _ in TOPICS]
    return [(name, found) for name, found in topics if found]


def bars_section(rows, notes):
    lines = []
    for topic, found in by_topic([row for row in rows if row.bar is not None]):
        lines += [f"### {topic}", "", *with_bars(found)]
        if any(row.verdict == "no" for row in found):
            lines += ["Where a bar is missed, this is why:", "", *missed(found, notes)]
    return lines


def information_section(rows):
    lines = []
    for topic, found in by_topic([row for row in rows if row.bar is None]):
        lines += [f"### {topic}", "", *without_bars(found)]
    return lines


def columns_table(text, numbers):
    """A table from one that a script printed in columns of fixed width, which its first line
    names. Nothing where there is no such text."""
    lines = [line for line in text.splitlines() if line.strip()]
    if not lines:
        return []
    cells = [re.split(r"  +", line.strip()) for line in lines]
    width = len(cells[0])
    return table(cells[0], [row + [""] * (width - len(row)) for row in cells[1:]], numbers)


def missed_imports(text, notes):
    """The same for what recordsets.py printed; a job is database/job here."""
    cells = [line.split() for line in text.splitlines()]
    return [*(f"- `{row[0]}/{row[1]}`, {row[2]}: {notes.reason(f'{row[0]}/{row[1]}', row[2])}"
              for row in cells if row and row[-1] == "no"), ""]


# The page

def summary(rows):
    judged = [row for row in rows if row.bar is not None]
    reached = sum(row.verdict == "yes" for row in judged)
    return f"{reached} of {len(judged)} bars of the jobs below are reached."


def page(results, notes):
    """The lines of the page."""
    lines = ["# Performance", "",
             "Made by `./bench.sh`; [benchmarks.md](benchmarks.md) tells what the jobs and their "
             "peers do and how to read the tables.", ""]
    lines += table(("measured on", ""), machine(), 2)
    program = results / "program.json"
    if program.exists():
        rows = run.compare(json.loads(program.read_text()))
        lines += ["## Bars", "", summary(rows), "", *bars_section(rows, notes)]
    lines += scripts_section(results, notes)
    lines += growth_section()
    if program.exists():
        lines += ["## For information", "",
                  "Lines without a bar. Behind a peer's time stands how many times ours it is.", "",
                  *information_section(rows)]
    windows = results / "windows.json"
    if windows.exists():
        rows = run.compare(json.loads(windows.read_text()), run.WINDOWS_BARS)
        lines += ["## Windows programs under Wine", "",
                  "The same program made for Windows. Wine's heap and runtime are not those of "
                  "Windows: the figures compare with each other alone. Times are by the clock on "
                  "the wall.", "", *with_bars([row for row in rows if row.bar is not None]),
                  *missed(rows, notes), *without_bars([row for row in rows if row.bar is None])]
    return "\n".join(lines).rstrip() + "\n"


def scripts_section(results, notes):
    """What other scripts measured."""
    lines = []
    for name, heading, numbers, explanation in (
            ("recordsets.txt", "Record sets", 3,
             "Seconds for 1,000,000 rows; here `ratio` is ours by the peer's, and the bar its "
             "upper limit."),
            ("zelconv.txt", "zelconv", 2,
             "From CSV to SQL, against a program made for this one table.")):
        path = results / name
        if path.exists():
            lines += [f"### {heading}", "", explanation, "",
                      *columns_table(path.read_text(encoding="utf-8"), numbers),
                      *missed_imports(path.read_text(encoding="utf-8"), notes)]
    for name, heading, explanation in (
            ("instructions.csv", "Instructions",
             "The processor's instructions for one operation, as `benchmarks/instructions.py` "
             "counts them; no noise disturbs these."),
            ("startup.csv", "Size and start-up",
             "Bytes of each library without symbols and of its code, and microseconds of loading "
             "`ZELQRNDT017` with all it needs, as `benchmarks/startup/run.py` measures them.")):
        path = results / name
        if path.exists():
            lines += [f"## {heading}", "", explanation,
                      "[Before](../benchmarks/before/README.md) is an older state.", "",
                      *with_before(path, ROOT / "benchmarks/before" / name)]
    return lines


def figures_of(path):
    """The headings of a CSV file, and its last column by the cells in front of it."""
    with open(path, encoding="ascii", newline="") as source:
        headings, *rows = csv.reader(source)
    return headings, {tuple(cells): figure for *cells, figure in rows}


def with_before(path, before):
    """A table of the figures with those of an older state and what became of them."""
    headings, now = figures_of(path)
    _, old = figures_of(before)
    rows = [(*cells, old[cells], figure, f"{float(figure) / float(old[cells]):.2f}")
            if cells in old else (*cells, "", figure, "") for cells, figure in now.items()]
    return table((*headings[:-1], "before", "now", "now/before"), rows, len(headings) - 1)


def growth_section():
    """The plots that scaling.py drew."""
    plots = sorted((ROOT / "docs/performance").glob("*.svg"))
    if not plots:
        return []
    lines = ["## Growth", "",
             "How the cost grows with the work, drawn by `benchmarks/scaling.py`; the dotted line "
             "is an ideal linear one. The numbers lie beside the pictures.", ""]
    for plot in plots:
        lines += [f"![{plot.stem.replace('-', ' ')}](performance/{plot.name})", ""]
    return lines


def main():
    arguments = parse_arguments()
    if not arguments.results.is_dir():
        sys.exit(f"report.py: {arguments.results} is missing; bench.sh makes it")
    notes = Notes((ROOT / "benchmarks/notes.md").read_text(encoding="utf-8"))
    arguments.output.write_text(page(arguments.results, notes), encoding="utf-8")


if __name__ == "__main__":
    main()
