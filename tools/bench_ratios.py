#!/usr/bin/env python3
"""Prints the speed of the library relative to each peer, and writes it as a page.

    bench_ratios.py [--page PAGE [--windows FILE]] RESULTS...

RESULTS are the JSON files of the benchmarks, FILE is the output of the programs with windows. Rows to
compare have names like Family/Who/Case; the first Who of a family is the library. Compared are the
medians of the repetitions in processor time: on a busy machine wall-clock time also measures other
programs. If the ratios of the single repetitions differ by more than a fifth, the lowest and the
highest follow. If another process does the work, the counter `milliseconds` is used instead. For
several cases with the same end the geometric mean is printed too, and for rows with a limit of
memory the counters `peak` and `allowed`.
"""

import argparse
import json
import statistics
from collections import defaultdict

from bench_page import write_page

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """What the benchmarks measured, by their names in the order of registration."""

    def __init__(self, paths):
        self.rows = {}
        self.machine = {}
        self.loads = []  # of the machine, before each program
        for path in paths:
            with open(path, encoding="utf-8") as file:
                results = json.load(file)
            self.machine = self.machine or results["context"]
            self.loads += results["context"].get("load_avg", [])[:1]
            self._read(results["benchmarks"])
        self.families = defaultdict(lambda: defaultdict(dict))
        for name, rows in self.rows.items():
            family, who, *case = name.split("/") + [""]
            if who and not who.isdigit():  # otherwise an argument: nobody is compared
                self.families[family][who]["/".join(case).rstrip("/")] = rows

    def _read(self, benchmarks):
        rows = defaultdict(list)
        order = {}
        for row in benchmarks:
            if row.get("run_type") != "iteration" or row.get("error_occurred"):
                continue
            name = row["run_name"].replace("/iterations:1", "")
            rows[name].append(row)
            # Random interleaving mixes the rows.
            order.setdefault(name, (row["family_index"], row["per_family_instance_index"]))
        for name in sorted(rows, key=order.get):
            self.rows[name] = sorted(rows[name], key=lambda row: row["repetition_index"])

    def counter(self, name, field):
        values = [row[field] for row in self.rows.get(name, []) if field in row]
        return statistics.median(values) if values else None

    def time(self, name):
        """The median in nanoseconds."""
        return statistics.median(times(self.rows[name])) if name in self.rows else None

    def ratios(self, family, who, case):
        """The ratio of the medians, the lowest and the highest of the repetitions; or None."""
        members = self.families.get(family, {})
        own = next(iter(members.values()), {}).get(case)
        theirs = members.get(who, {}).get(case)
        if not own or not theirs:
            return None
        single = [peer / mine for mine, peer in zip(times(own), times(theirs))]
        median = statistics.median(times(theirs)) / statistics.median(times(own))
        return median, min(single), max(single)


def times(rows):
    return [
        row["milliseconds"] * 1e6 if "milliseconds" in row
        else row["cpu_time"] * NANOSECONDS[row["time_unit"]]
        for row in rows
    ]


def columns(*texts):
    widths = (18, 36, 20)
    return "".join(f"{text:{width}}" for text, width in zip(texts, widths))


def print_ratios(results, family, who, own, theirs):
    groups = defaultdict(list)
    for case in (each for each in own if each in theirs):
        ratio, lowest, highest = results.ratios(family, who, case)
        groups[case.rpartition("/")[2]].append(ratio)
        spread = f"  ({lowest:.2f} to {highest:.2f})" if highest - lowest > ratio / 5 else ""
        print(f"{columns(family, case, who)}{ratio:8.2f}{spread}")
    for size, ratios in groups.items():
        if len(ratios) > 1 and size.isdigit():
            mean = statistics.geometric_mean(ratios)
            print(f"{columns(family, 'mean of ' + size, who)}{mean:8.2f}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--page")
    parser.add_argument("--windows")
    parser.add_argument("results", nargs="+")
    arguments = parser.parse_args()
    results = Results(arguments.results)
    for family, members in results.families.items():
        (_, own), *peers = members.items()
        for who, theirs in peers:
            print_ratios(results, family, who, own, theirs)
    for name in results.rows:
        allowed = results.counter(name, "allowed")
        if allowed:
            print(f"{columns(name, '', 'peak MB')}{results.counter(name, 'peak'):8.1f}"
                  f" of {allowed:.1f}")
    if arguments.page:
        write_page(arguments.page, results, arguments.windows)


if __name__ == "__main__":
    main()
