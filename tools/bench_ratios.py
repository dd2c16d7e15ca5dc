#!/usr/bin/env python3
"""Prints how many times as fast as each peer the library is.

    bench_ratios.py RESULTS

RESULTS is what the benchmarks write with --benchmark_format=json. The rows that are compared bear
names like Family/Who/Case: the first Who of a family is the library. Medians of the repetitions,
in processor time: on a busy machine the clock on the wall measures the neighbours.
"""

import json
import statistics
import sys
from collections import defaultdict


def medians(results):
    times = defaultdict(list)
    for row in results["benchmarks"]:
        if row.get("run_type") == "iteration" and not row.get("error_occurred"):
            times[row["run_name"]].append(row["cpu_time"])
    return {name: statistics.median(values) for name, values in times.items()}


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        results = json.load(file)
    # Random interleaving mixes the rows; their family indexes keep the order of registration.
    order = {}
    for row in results["benchmarks"]:
        order.setdefault(row["run_name"], (row["family_index"], row["per_family_instance_index"]))
    times = medians(results)
    families = defaultdict(lambda: defaultdict(dict))
    for name in sorted(times, key=order.get):
        family, who, *case = name.split("/")
        families[family][who]["/".join(case)] = times[name]
    for family, members in families.items():
        (_, own), *peers = members.items()
        for who, theirs in peers:
            for case in (each for each in own if each in theirs):
                print(f"{family:12} {case:12} {who:12} {theirs[case] / own[case]:6.2f}")


if __name__ == "__main__":
    main()
