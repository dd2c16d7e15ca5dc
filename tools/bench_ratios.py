#!/usr/bin/env python3
"""Prints the speed of the library relative to each peer.

    bench_ratios.py RESULTS...

RESULTS are the JSON files of the benchmarks. Rows to compare have names like Family/Who/Case; the
first Who of a family is the library. Compared are the medians of the repetitions in processor time:
on a busy machine wall-clock time also measures other programs. If another process does the work, the
counter `milliseconds` is used instead. For several cases with the same beginning the geometric mean
is printed too, for both of their counters `peak` and `allowed`.
"""

import json
import statistics
import sys
from collections import defaultdict


def columns(*texts):
    widths = (18, 24, 14)
    return "".join(f"{text:{width}}" for text, width in zip(texts, widths))


def read(results):
    """The medians of every benchmark by name, in the order of registration."""
    rows = defaultdict(list)
    order = {}
    for row in results["benchmarks"]:
        if row.get("run_type") != "iteration" or row.get("error_occurred"):
            continue
        name = row["run_name"].replace("/iterations:1", "")
        rows[name].append(row)
        # Random interleaving mixes the rows.
        order.setdefault(name, (row["family_index"], row["per_family_instance_index"]))

    def median(name, field):
        values = [row[field] for row in rows[name] if field in row]
        return statistics.median(values) if values else None

    for name in sorted(rows, key=order.get):
        time = median(name, "milliseconds") or median(name, "cpu_time")
        yield name, time, median(name, "peak"), median(name, "allowed")


def print_ratios(family, who, own, theirs):
    groups = defaultdict(list)
    for case in (each for each in own if each in theirs):
        ratio = theirs[case] / own[case]
        groups[case.rpartition("/")[2]].append(ratio)
        print(f"{columns(family, case, who)}{ratio:8.2f}")
    for size, ratios in groups.items():
        if len(ratios) > 1 and size.isdigit():
            mean = statistics.geometric_mean(ratios)
            print(f"{columns(family, 'mean of ' + size, who)}{mean:8.2f}")


def main():
    rows = []
    for path in sys.argv[1:]:
        with open(path, encoding="utf-8") as file:
            rows.extend(read(json.load(file)))
    families = defaultdict(lambda: defaultdict(dict))
    peaks = []
    for name, time, peak, allowed in rows:
        family, who, *case = name.split("/") + [""]
        case = "/".join(case).rstrip("/")
        if who and not who.isdigit(): # otherwise an argument: nobody is compared
            families[family][who][case] = time
        if allowed:
            peaks.append(f"{columns(family, case, 'peak MB')}{peak:8.1f} of {allowed:.1f}")
    for family, members in families.items():
        (_, own), *peers = members.items()
        for who, theirs in peers:
            print_ratios(family, who, own, theirs)
    print("\n".join(peaks))


if __name__ == "__main__":
    main()
