#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what a run of ks-benchmarks under callgrind has counted, and holds it against limits.

usage: judge.py RESULTS LIMITS

RESULTS is a folder with the run's report (report.json) and its dumps (callgrind.out.*); LIMITS is a JSON file:
  "ratio"                   case: how often the instructions of the hand-written code the library may take
  "growth"                  pattern: how much the most expensive of these cases may exceed the cheapest, as a factor
  "allocations as by hand"  cases in which the library may allocate no more often than the hand-written code
  "no allocations"          cases in which the library may not allocate at all
Exits with 1 when a limit is broken, or names a case that has not been measured.
"""
import fnmatch
import json
import pathlib
import re
import sys


def instructions_by_name(folder):
    """The instructions in each dump that the program asked for, by the name that it gave the dump."""
    counts = {}
    for path in folder.glob("callgrind.out.*"):
        text = path.read_text()
        name = re.search(r"^desc: Trigger: Client Request: (.+)$", text, re.MULTILINE)
        total = re.search(r"^(?:summary|totals): (\d+)", text, re.MULTILINE)
        if name and total:
            counts[name[1]] = int(total[1])
    return counts


def read_cases(folder):
    """For each case, in the order of the run: for each way, its instructions, allocations and bytes."""
    instructions = instructions_by_name(folder)
    cases = {}
    for entry in json.loads((folder / "report.json").read_text())["benchmarks"]:
        name = entry["name"].split("/iterations:")[0]
        if entry.get("error_occurred"):
            sys.exit(f"{name}: {entry['error_message']}")
        case, way = name.rsplit("/", 1)
        per_operation = instructions[name] / entry["operations"]
        cases.setdefault(case, {})[way] = (per_operation, entry["allocations"], entry["bytes"])
    return cases


def print_table(cases):
    rows = [("case", "instructions", "by hand", "ratio", "allocations", "by hand", "bytes", "by hand")]
    for case, ways in cases.items():
        ours, theirs = ways["ksundo"], ways["hand"]
        row = [case, f"{ours[0]:,.0f}", f"{theirs[0]:,.0f}", f"{ours[0] / theirs[0]:.3f}"]
        for i in (1, 2):
            row += [f"{ours[i]:,.2f}", f"{theirs[i]:,.2f}"]
        rows.append(tuple(row))
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    rows.insert(1, ("-" * widths[0],) + tuple("-" * (width - 1) + ":" for width in widths[1:]))
    for row in rows:
        cells = [row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        print("| " + " | ".join(cells) + " |")


def checks(cases, limits):
    """Each limit as a sentence, the measured value and the highest one allowed."""
    for case, limit in limits["ratio"].items():
        ways = cases[case]
        yield f"{case}: instructions, as a multiple of those by hand", ways["ksundo"][0] / ways["hand"][0], limit
    for pattern, limit in limits["growth"].items():
        costs = [cases[case]["ksundo"][0] for case in fnmatch.filter(cases, pattern)]
        if len(costs) < 2:
            raise KeyError(pattern)
        yield f"{pattern}: instructions at most, as a multiple of the least", max(costs) / min(costs), limit
    for case in limits["allocations as by hand"]:
        yield f"{case}: allocations, those by hand being the limit", cases[case]["ksundo"][1], cases[case]["hand"][1]
    for case in limits["no allocations"]:
        yield f"{case}: allocations", cases[case]["ksundo"][1], 0


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    cases = read_cases(pathlib.Path(sys.argv[1]))
    print_table(cases)
    print()
    broken = 0
    try:
        for what, value, limit in checks(cases, json.loads(pathlib.Path(sys.argv[2]).read_text())):
            holds = value <= limit
            broken += not holds
            print(f"{'holds ' if holds else 'BROKEN'} {what}: {value:.3f} (limit {limit:.3f})")
    except KeyError as missing:
        sys.exit(f"not measured: {missing}")
    if broken:
        sys.exit(f"broken limits: {broken}")


main()
