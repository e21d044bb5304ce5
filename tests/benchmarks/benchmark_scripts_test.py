#!/usr/bin/env python3
"""The parts of the benchmarks' scripts that compute and write, with fixed input."""

import importlib.util
import pathlib
import sys
import tempfile
import unittest
import xml.etree.ElementTree

BENCHMARKS = pathlib.Path(__file__).resolve().parent.parent.parent / "benchmarks"
sys.path.insert(0, str(BENCHMARKS))
import instructions
import plot
import report
import run
import scaling


def load(path):
    """A script whose name another one has too."""
    spec = importlib.util.spec_from_file_location("_".join(path.parts[-2:]), path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


startup = load(BENCHMARKS / "startup/run.py")


def result(name, family, rate, aggregate="median"):
    return {"run_name": name, "family_index": family, "aggregate_name": aggregate,
            "items_per_second": rate}


class Medians(unittest.TestCase):
    def test_are_nanoseconds_of_an_item_by_job_and_contender_in_the_programs_order(self):
        found = run.medians([result("quote/14/naive", 2, 5e7), result("quote/14/ours", 1, 1e8),
                             result("value/add/ours", 0, 2e9)])
        self.assertEqual(found, {"value/add": {"ours": 0.5},
                                 "quote/14": {"ours": 10, "naive": 20}})
        self.assertEqual(list(found), ["value/add", "quote/14"])

    def test_other_aggregates_and_single_runs_do_not_count(self):
        single = result("job/ours", 0, 1e9)
        del single["aggregate_name"]
        self.assertEqual(run.medians([single, result("job/ours", 0, 1e8, "mean"),
                                      result("job/ours", 0, 1e7, "stddev")]), {})


class Bars(unittest.TestCase):
    BARS = {"a/*": {("x", "y"): 2.0}, "a/b": {"z": 0.5}}

    def test_stand_at_the_fastest_of_several_peers(self):
        times = {"ours": 1, "x": 3, "y": 2, "z": 1}
        self.assertEqual(run.bars_of_peers("a/b", times, self.BARS), {"y": 2.0, "z": 0.5})
        times["y"] = 4
        self.assertEqual(run.bars_of_peers("a/c", times, self.BARS), {"x": 2.0})

    def test_go_to_the_next_peer_where_one_is_missing(self):
        self.assertEqual(run.bars_of_peers("a/b", {"ours": 1, "x": 3}, self.BARS), {"x": 2.0})
        self.assertEqual(run.bars_of_peers("a/b", {"ours": 1, "w": 3}, self.BARS), {})

    def test_the_higher_of_two_at_one_peer_counts(self):
        bars = {"a/*": {"x": 2.0}, "a/b": {"x": 3.0}, "*/b": {"x": 1.0}}
        self.assertEqual(run.bars_of_peers("a/b", {"ours": 1, "x": 1}, bars), {"x": 3.0})

    def test_name_only_peers_by_text_or_several(self):
        for wanted in (*run.BARS.values(), *run.WINDOWS_BARS.values()):
            for peers, bar in wanted.items():
                self.assertGreater(bar, 0)
                for peer in [peers] if isinstance(peers, str) else peers:
                    self.assertRegex(peer, r"^[a-z0-9_-]+$")


class Rows(unittest.TestCase):
    def test_a_bar_is_reached_when_the_ratio_equals_it(self):
        rows = run.compare({"job": {"ours": 2.0, "x": 5.0, "y": 3.0, "z": 4.0}},
                           {"job": {"x": 2.5, "y": 1.75}})
        self.assertEqual([row.cells() for row in rows],
                         [("job", "2.0", "x", "5.0", "2.50", "2.50", "yes"),
                          ("job", "2.0", "y", "3.0", "1.50", "1.75", "no"),
                          ("job", "2.0", "z", "4.0", "2.00", "", "")])

    def test_jobs_without_the_library_have_none(self):
        self.assertEqual(run.compare({"job": {"x": 5.0}}, {}), [])

    def test_times_from_a_microsecond_on_have_no_places(self):
        self.assertEqual([run.number(time) for time in (0.26, 999.94, 1000, 123456.7)],
                         ["0.3", "999.9", "1000", "123457"])


class Page(unittest.TestCase):
    MISSED = run.Row("display/show-long", 4.0, "fmt", 2.0, 1.0)

    def test_every_job_has_the_topic_of_its_name(self):
        topics = {"decimal96/add-28": "Decimals", "decimal-to-sql": "Decimals",
                  "text-to-decimal": "Decimals", "extern-to-decimal": "Decimals",
                  "value/add": "Value objects", "error/guard": "Value objects",
                  "double/sum": "Value objects", "double-digits-money": "Texts",
                  "text-to-double-number": "Texts", "integer-digits": "Texts",
                  "quote-value/14": "Texts", "codepage-call/plain-4KB": "Texts",
                  "format/read-date": "Display", "archive/read-plain": "Archives",
                  "date-to-text": "Dates", "text-to-date-fields": "Dates", "other": "More"}
        self.assertEqual({job: report.topic_of(job) for job in topics}, topics)

    def test_reasons_are_found_by_job_and_peer(self):
        notes = report.Notes("# Title\n\nWords.\n\n`quote/14` naive: one\nreason\n\n"
                             "`display/*` fmt: another\n\n`display/*` *: `a` third\n`one`\n")
        self.assertEqual(notes.reason("display/show-long", "fmt"), "another")
        self.assertEqual(notes.reason("display/show-long", "icu"), "`a` third `one`")
        self.assertEqual(notes.reason("quote/14", "naive"), "one reason")
        self.assertEqual(notes.reasons[-1], ("display/*", "*", "`a` third\n`one`"))

    def test_tells_of_missed_bars_only_why(self):
        notes = report.Notes("`*` *: because\n")
        reached = self.MISSED._replace(time=4.0, peer="icu")
        another = self.MISSED._replace(peer="snprintf")
        self.assertEqual(report.missed([self.MISSED, reached, another], notes),
                         ["- `display/show-long`, fmt, snprintf: because", ""])

    def test_tells_of_slow_imports_why(self):
        notes = report.Notes("`sqlite/import` sqlite3: because\n")
        printed = ("database  job  contender  ratio  bar  reached\n"
                   "sqlite  import  ours\nsqlite  import  sqlite3  3.88  2.00  no\n"
                   "mariadb  import  mariadb  1.93  2.00  yes\n")
        self.assertEqual(report.missed_imports(printed, notes),
                         ["- `sqlite/import`, sqlite3: because", ""])
        self.assertEqual(report.missed_imports("", notes), [""])

    def test_rows_with_bars(self):
        self.assertEqual(report.with_bars([self.MISSED]), [
            "| job | peer | ours (ns) | peer (ns) | peer/ours | bar | reached |",
            "| --- | --- | ---: | ---: | ---: | ---: | ---: |",
            "| `display/show-long` | fmt | 4.0 | 2.0 | 0.50 | 1.00 | no |", ""])

    def test_rows_without_bars_share_a_line(self):
        rows = [run.Row("a", 4.0, "x", 2.0, None), run.Row("a", 4.0, "y", 6.0, None)]
        self.assertEqual(report.without_bars(rows)[2], "| `a` | x 2.0 (0.50), y 6.0 (1.50) | 4.0 |")

    def test_counts_the_bars_that_are_reached(self):
        rows = [self.MISSED, self.MISSED._replace(time=4.0), self.MISSED._replace(bar=None)]
        self.assertEqual(report.summary(rows), "1 of 2 bars of the jobs below are reached.")

    def test_columns_become_cells(self):
        text = "\nrows  contender  ratio\n  10  ours\n  10  a peer      1.50\n"
        self.assertEqual(report.columns_table(text, 1), [
            "| rows | contender | ratio |", "| --- | ---: | ---: |", "| 10 | ours |  |",
            "| 10 | a peer | 1.50 |", ""])
        self.assertEqual(report.columns_table("", 1), [])

    def test_figures_stand_beside_those_of_an_older_state(self):
        with tempfile.TemporaryDirectory() as folder:
            now, before = (pathlib.Path(folder) / name for name in ("now.csv", "before.csv"))
            now.write_text('system,what,now\nLinux,"a, bytes",50\nLinux,new,7\n')
            before.write_text('system,what,now\nLinux,"a, bytes",200\nWindows,new,9\n')
            self.assertEqual(report.with_before(now, before), [
                "| system | what | before | now | now/before |",
                "| --- | --- | ---: | ---: | ---: |",
                "| Linux | a, bytes | 200 | 50 | 0.25 |", "| Linux | new |  | 7 |  |", ""])

    def test_the_older_state_has_figures_of_everything_that_is_counted(self):
        headings, counts = report.figures_of(BENCHMARKS / "before/instructions.csv")
        self.assertEqual(headings, ["operation", "now"])
        self.assertGreaterEqual(len(counts), 10)
        headings, figures = report.figures_of(BENCHMARKS / "before/startup.csv")
        self.assertEqual(headings, ["system", "what", "now"])
        self.assertEqual({system for system, _ in figures}, {"Linux", "Windows"})

    def test_the_notes_of_the_benchmarks_can_be_read(self):
        text = (BENCHMARKS / "notes.md").read_text(encoding="utf-8")
        self.assertEqual(len(report.Notes(text).reasons),
                         sum(part.startswith("`") for part in text.split("\n\n")))


class Counts(unittest.TestCase):
    def test_the_total_of_callgrind_is_found(self):
        self.assertEqual(instructions.total("events: Ir\nsummary: 12345\nfn=(1)\n"), 12345)
        self.assertEqual(instructions.total("events: Ir\nfn=(1)\n1 2\n\ntotals: 99\n"), 99)
        with self.assertRaises(ValueError):
            instructions.total("events: Ir\n")

    def test_a_line_has_both_counts_and_their_ratio(self):
        self.assertEqual(instructions.line("add", 50, None), ["add", "50.0"])
        self.assertEqual(instructions.line("add", 50, 200), ["add", "200.0", "50.0", "0.25"])

    def test_the_size_of_the_code_is_found(self):
        listing = "lib.so  :\nsection  size  addr\n.rodata  7  1\n.text  4711  16\nTotal  4718\n"
        self.assertEqual(startup.code_size(listing), 4711)
        self.assertEqual(startup.code_size(""), 0)


class Plots(unittest.TestCase):
    def test_labels_have_the_unit_of_the_fewest_digits(self):
        times = (1e-9, 1e-8, 1e-6, 1e-3, 1e-1, 1, 100)
        self.assertEqual([plot.time_label(time) for time in times],
                         ["1 ns", "10 ns", "1 µs", "1 ms", "100 ms", "1 s", "100 s"])
        self.assertEqual(plot.time_label(1e-10), "0.1 ns")
        self.assertEqual([plot.count_label(count) for count in (1, 100, 1e3, 1e5, 1e6, 1e9)],
                         ["1", "100", "1 k", "100 k", "1 M", "1 G"])

    def test_the_axes_span_whole_decades(self):
        self.assertEqual(plot.decades([10, 1000]), (1, 3))
        self.assertEqual(plot.decades([0.2, 30]), (-1, 2))
        self.assertEqual(plot.decades([100]), (2, 3))

    def test_points_lie_where_their_logarithms_are(self):
        drawing = plot.Plot("A & B", "size", "time", plot.time_label)
        root = xml.etree.ElementTree.fromstring(drawing.draw({"<one>": [(10, 0.1), (1000, 10)]}))
        namespace = "{http://www.w3.org/2000/svg}"
        line = root.find(f"{namespace}polyline").get("points")
        self.assertEqual(line, f"{plot.LEFT}.0,{plot.HEIGHT - plot.BOTTOM}.0 "
                               f"{plot.WIDTH - plot.RIGHT}.0,{plot.TOP}.0")
        words = [text.text for text in root.iter(f"{namespace}text")]
        for expected in ("A & B", "<one>", "ideal: linear", "size", "time", "10", "1 k", "10 s"):
            self.assertIn(expected, words)

    def test_every_curve_is_drawn_in_a_colour_of_its_own(self):
        drawing = plot.Plot("title", "size", "time", plot.time_label)
        curves = {str(i): [(10, 1), (100, 1 + i)] for i in range(len(plot.COLOURS))}
        svg = drawing.draw(curves)
        self.assertEqual(svg.count("<polyline"), len(plot.COLOURS))
        for colour in plot.COLOURS:
            self.assertEqual(svg.count(f'fill="none" stroke="{colour}"'), 1)
        curves["one more"] = [(10, 1)]
        with self.assertRaises(ValueError):
            drawing.draw(curves)

    def test_rows_become_curves(self):
        self.assertEqual(scaling.curves_of([("a", "10", "0.5"), ("b", "10", "1"), ("a", "100", "5")]),
                         {"a": [(10, 0.5), (100, 5.0)], "b": [(10, 1.0)]})


if __name__ == "__main__":
    unittest.main()
