#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Counts what the cases of ks-benchmarks cost, each in a process of its own under callgrind, and holds it against limits.

usage: measure.py PROGRAM LIMITS [quick]

LIMITS is a JSON file; its cases are patterns as in a shell:
  "quick leaves out"        cases that take long to set up
  "ratio"                   case: how often the instructions of the hand-written code the library may take
  "growth"                  pattern: how much the most expensive of these cases may exceed the cheapest, as a factor
  "per size"                pattern with one *, the size: how many instructions it may cost more for each further unit of it
  "same"                    case: a case that costs the same, but for what the place of the heap moves
  "instructions", "allocations", "kept"
                            case: the most that the library may spend; or "case - other": the most that it may spend beyond
                            the other
  "kept beyond by hand"     case: how many bytes more than the hand-written code the library may keep
  "allocations as by hand"  cases in which the library may allocate no more often than the hand-written code
Of a program that another compiler than GCC built, "ratio", "per size" and "instructions" are not judged: their numbers are GCC's.
Exits with 1 when a limit is broken, or names a case that has not been measured.
"""
import concurrent.futures
import fnmatch
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

# Symbols are bound and hashes seeded the same way in every run, so that the counts repeat.
ENVIRONMENT = {**os.environ, "LD_BIND_NOW": "1", "QT_HASH_SEED": "0", "QT_QPA_PLATFORM": "offscreen"}
MEASURES = ("instructions", "allocations", "bytes", "kept")
# The place of the heap moves short cases by up to two percent.
SAME = 1.05


def run(command, **options):
    return subprocess.run(command, env=ENVIRONMENT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def measure(program, name):
    """What one operation of the benchmark takes, by measure."""
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder, "report.json")
        result = run(["valgrind", "--tool=callgrind", "--instr-atstart=no", f"--callgrind-out-file={folder}/out", program,
                      f"--benchmark_filter=^{name}/iterations", f"--benchmark_out={report}", "--benchmark_out_format=json"])
        if result.returncode != 0:
            sys.exit(f"{name}:\n{result.stdout}")
        content = json.loads(report.read_text())
        entry = content["benchmarks"][0]
        if entry.get("error_occurred"):
            sys.exit(f"{name}: {entry['error_message']}")
        dumps = [path.read_text() for path in pathlib.Path(folder).glob("out*")]
    total = next(re.search(r"^(?:summary|totals): (\d+)", dump, re.MULTILINE) for dump in dumps if "Client Request" in dump)
    return {
        "compiler": content["context"]["compiler"],
        "instructions": int(total[1]) / entry["operations"],
        **{key: entry[key] for key in MEASURES[1:]},
    }


def measure_all(program, left_out):
    """Which compiler built the program; and for each case, for each way, what it takes."""
    listed = run([program, "--benchmark_list_tests"], check=True).stdout
    names = [line.split("/iterations:")[0] for line in listed.splitlines() if "/iterations:" in line]
    names = [name for name in names if not any(fnmatch.fnmatchcase(name.rsplit("/", 1)[0], pattern) for pattern in left_out)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        results = list(workers.map(lambda name: measure(program, name), names))
    cases = {}
    for name, result in zip(names, results):
        case, way = name.rsplit("/", 1)
        cases.setdefault(case, {})[way] = result
    return results[0]["compiler"], cases


def print_table(cases):
    rows = [("case", "instructions", "by hand", "ratio", "allocations", "by hand", "bytes kept", "by hand")]
    for case, ways in cases.items():
        ours, theirs = ways.get("ksundo"), ways.get("hand")
        row = [case]
        for key, form in (("instructions", "{:,.0f}"), ("allocations", "{:,.2f}"), ("kept", "{:,.0f}")):
            row += [form.format(way[key]) if way else "" for way in (ours, theirs)]
            if key == "instructions":
                row.append(f"{ours[key] / theirs[key]:.2f}" if ours and theirs else "")
        rows.append(tuple(row))
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    rows.insert(1, ("-" * widths[0],) + tuple("-" * (width - 1) + ":" for width in widths[1:]))
    for row in rows:
        cells = [row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        print("| " + " | ".join(cells) + " |")


def checks(cases, limits):
    """Each limit as a sentence, the measured value and the highest one allowed."""
    def matching(pattern):
        found = [case for case in cases if fnmatch.fnmatchcase(case, pattern)]
        if not found:
            raise KeyError(pattern)
        return found

    def spent(case, key, way="ksundo"):
        return cases[case][way][key]

    for pattern, limit in limits["ratio"].items():
        for case in matching(pattern):
            yield (f"{case}: instructions, as a multiple of those by hand",
                   spent(case, "instructions") / spent(case, "instructions", "hand"), limit)
    for pattern, limit in limits["growth"].items():
        costs = [spent(case, "instructions") for case in matching(pattern)]
        if len(costs) < 2:
            raise KeyError(pattern)
        yield f"{pattern}: instructions at most, as a multiple of the least", max(costs) / min(costs), limit
    for pattern, limit in limits["per size"].items():
        size = re.compile(re.escape(pattern).replace(r"\*", r"(\d+)"))
        found = {case: size.fullmatch(case) for case in matching(pattern)}
        points = sorted((int(match[1]), spent(case, "instructions")) for case, match in found.items() if match)
        (least, low), (most, high) = points[0], points[-1]
        yield f"{pattern}: instructions for each further one", (high - low) / (most - least), limit
    for case, other in limits["same"].items():
        yield f"{case}: instructions, as a multiple of {other}", spent(case, "instructions") / spent(other, "instructions"), SAME
    for key in ("instructions", "allocations", "kept"):
        for term, limit in limits[key].items():
            case, _, other = term.partition(" - ")
            yield f"{term}: {key}", spent(case, key) - (spent(other, key) if other else 0), limit
    for pattern, limit in limits["kept beyond by hand"].items():
        for case in matching(pattern):
            yield f"{case}: bytes kept beyond those by hand", spent(case, "kept") - spent(case, "kept", "hand"), limit
    for pattern in limits["allocations as by hand"]:
        for case in matching(pattern):
            yield (f"{case}: allocations, those by hand being the limit",
                   spent(case, "allocations"), spent(case, "allocations", "hand"))


def main():
    if len(sys.argv) not in (3, 4) or sys.argv[3:] not in ([], ["quick"]):
        sys.exit(__doc__)
    limits = json.loads(pathlib.Path(sys.argv[2]).read_text())
    compiler, cases = measure_all(sys.argv[1], limits["quick leaves out"] if sys.argv[3:] else [])
    print_table(cases)
    print()
    if compiler != "GNU":
        print(f"Built by {compiler}: the limits of instructions are for GCC, and are not judged.")
        limits.update({"ratio": {}, "per size": {}, "instructions": {}})
    try:
        judged = [(value <= limit, f"{what}: {value:.3f} (limit {limit:.3f})") for what, value, limit in checks(cases, limits)]
    except KeyError as missing:
        sys.exit(f"not measured: {missing}")
    # What is broken comes last, where it is seen.
    judged.sort(key=lambda one: not one[0])
    for holds, line in judged:
        print("holds " if holds else "BROKEN", line)
    broken = sum(not holds for holds, _ in judged)
    if broken:
        sys.exit(f"broken limits: {broken}")
    print("All limits hold.")


main()
