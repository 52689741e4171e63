#!/usr/bin/env python3
"""Runs the benchmark programs and shows what they measured, as Markdown.

    report.py measure BUILD RESULTS.json [--repetitions N] [--filter REGEX]
    report.py table RESULTS.json [OLD.json]

measure runs every row and size in a process of its own. The repetitions of the library and of what it is compared
with are mixed at random, so that a disturbance affects them in the same way. The result is the median of the
repetitions. The rows "growth" are run one by one, with fewer repetitions. table shows the figures that have a target.
With OLD.json it also shows the older figures, and every other benchmark that has changed by more than a tenth.
"""
import argparse
import datetime
import glob
import json
import os
import re
import statistics
import subprocess
import sys

MINUTES = 60
COUNTERS = ("items", "bytes", "texts", "resident", "heap")


# ---- measuring

def groups(program, wanted):
    """The filters under which the benchmarks of a program are run together, in the program's order."""
    listed = subprocess.run([program, "--benchmark_list_tests"], check=True, capture_output=True, text=True)
    found = {}
    for line in listed.stdout.split():
        row, who, size = line.split("/")[:3]
        if re.search(wanted, f"{row}/{who}/{size}"):
            found[f"^{row}/{who if row == 'growth' else '[^/]*'}/{size}/"] = row
    return found


def run(program, pattern, repetitions):
    """name -> figures of one benchmark, with times in nanoseconds for a repetition."""
    done = subprocess.run(
        [program, f"--benchmark_filter={pattern}", f"--benchmark_repetitions={repetitions}",
         "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.02",
         "--benchmark_format=json"],
        capture_output=True, text=True, timeout=30 * MINUTES,
        preexec_fn=lambda: os.sched_setaffinity(0, {max(os.sched_getaffinity(0))}))
    if done.returncode != 0:
        sys.exit(f"{program} fails at {pattern}:\n{done.stdout}{done.stderr}")
    times, figures = {}, {}
    for entry in json.loads(done.stdout)["benchmarks"]:
        if entry["run_type"] != "iteration":
            continue
        name = "/".join(entry["name"].split("/")[:3])
        times.setdefault(name, []).append(entry["real_time"])
        figures[name] = {key: entry[key] for key in COUNTERS if key in entry}
    for name, all_times in times.items():
        figures[name]["ns"] = statistics.median(all_times)
        figures[name]["spread"] = (max(all_times) - min(all_times)) / figures[name]["ns"]
        figures[name]["repetitions"] = len(all_times)
    return figures


def context(build):
    """The machine, the compiler and the day."""
    with open("/proc/cpuinfo") as f:
        cpu = re.search(r"model name\s*: (.*)", f.read())
    with open(os.path.join(build, "CMakeCache.txt")) as f:
        cache = dict(re.findall(r"^(CMAKE_CXX_COMPILER|CMAKE_CXX_FLAGS_RELEASE):\w+=(.*)$", f.read(), re.M))
    version = subprocess.run([cache["CMAKE_CXX_COMPILER"], "--version"], capture_output=True, text=True)
    return {"date": datetime.date.today().isoformat(),
            "machine": f"{cpu[1] if cpu else 'unknown'}, {os.cpu_count()} cores",
            "compiler": version.stdout.splitlines()[0] + ", " + cache["CMAKE_CXX_FLAGS_RELEASE"]}


def measure(args):
    results = {"context": context(args.build), "benchmarks": {}}
    programs = [path for path in sorted(glob.glob(os.path.join(args.build, "bench", "wexcorin_bench*")))
                if os.path.isfile(path) and os.access(path, os.X_OK)]
    for program in programs:
        for pattern, row in groups(program, args.filter).items():
            print(pattern.strip("^"), file=sys.stderr)
            repetitions = args.repetitions if row != "growth" else max(1, args.repetitions // 3)
            results["benchmarks"].update(run(program, pattern, repetitions))
            # after each group, so that the results so far are kept if the run is interrupted
            with open(args.results, "w") as out:
                json.dump(results, out, indent=1)
                out.write("\n")
    if not results["benchmarks"]:
        sys.exit(f"no benchmark is called {args.filter}")


# ---- showing

class Figures:
    """The figures that were measured, with queries on them; a figure that was not measured is None."""

    def __init__(self, results):
        self.all = results["benchmarks"]

    def ratio(self, row, who, other, size):
        above, below = self.all.get(f"{row}/{who}/{size}"), self.all.get(f"{row}/{other}/{size}")
        return above["ns"] / above["items"] / (below["ns"] / below["items"]) if above and below else None

    def each(self, name):
        entry = self.all.get(name)
        return entry["ns"] / entry["items"] if entry else None

    def counter(self, name, key):
        return self.all.get(name, {}).get(key)

    def rate(self, name):
        entry = self.all.get(name)
        return entry["bytes"] / entry["ns"] * 1000 if entry and "bytes" in entry else None


def targets(figures):
    """(what, size, wanted, unit, value) of each figure that has a target."""
    rows = [(work, size, wanted, "x floor", figures.ratio(row, "wexcorin", "floor", size))
            for row, work, sizes, wanted in (
                ("definition", "read the definition", (500, 10000, 100000), "1.9 [1.5]"),
                ("parameters", "read as many assignments", (500, 10000, 100000), "1.7 [1.4]"),
                ("million", "read them to 500 options", (1000000,), "1.5 [1.2]"),
                ("query_typed", "query by name, find and get", (500, 10000, 100000), "1.5 [1.2]"),
                ("query_text", "query by name, as text", (500, 10000, 100000), "2"),
                ("process", "whole process, to one that reads the files", (1,), "1.2"))
            for size in sizes]
    for size in (500,):
        rows.append(("memory beyond texts", size, "180 [150]", "bytes an option",
                     figures.counter(f"memory/wexcorin/{size}", "resident")))
    create = figures.each("create/wexcorin/100")
    rows.append(("create and free a handle", 1, "2000", "ns", create))
    for who, wanted in (("dot", "3"), ("indicator", "-"), ("unknown", "1"), ("refused", "1")):
        rows.append((f"{who} lines", 1000000, wanted, "x assignments",
                     figures.ratio("lines", who, "assignment", 1000000)))
    rows.append(("memory beyond texts", 1000000, "200", "bytes a dot entry",
                 figures.counter("dotmemory/wexcorin/1000000", "resident")))
    for name, work in (("summary/500", "help, summary"), ("descriptions/500", "help, descriptions"),
                       ("file/500", "as many bytes by the system alone"), ("parameters/500", "option file"),
                       ("parameters/100000", "option file"),
                       ("definition/100000", "definition file"), ("pascal/100000", "Pascal include file"),
                       ("html/100000", "HTML table")):
        wanted = "-" if name.startswith("file") else "100"
        rows.append((f"write {work}", int(name.split("/")[1]), wanted, "MB/s", figures.rate(f"output/{name}")))
    few = {"getint": "6", "getdbl": "6", "getstr": "-", "setint": "-", "setdbl": "-"}
    for who, wanted in few.items():
        rows.append((f"{who} by number", 500, wanted, "ns", figures.each(f"family/{who}/500")))
    return rows


def short(value):
    if value is None:
        return "-"
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def print_targets(figures, old):
    print("| work | N | wanted | unit |" + (" before | after |" if old else " measured |"))
    print("|---|--:|--:|---|" + ("--:|--:|" if old else "--:|"))
    before = targets(old) if old else None
    for i, (work, size, wanted, unit, value) in enumerate(targets(figures)):
        cells = ([short(before[i][4])] if old else []) + [short(value)]
        print(f"| {work} | {size:,} | {wanted} | {unit} | " + " | ".join(cells) + " |")


def print_peers(figures):
    names = [name for name in figures.all if name.startswith("peer_")]
    if not names:
        return
    print("\n| work | N | who | x floor |\n|---|--:|---|--:|")
    for name in names:
        row, who, size = name.split("/")
        if who != "floor":
            print(f"| {row[5:]} | {int(size):,} | {who} | {short(figures.ratio(row, who, 'floor', size))} |")


def print_changes(figures, old):
    print("\n| benchmark | before ns | after ns | after / before |\n|---|--:|--:|--:|")
    for name in figures.all:
        if name in old.all and "memory" not in name:
            before, after = old.each(name), figures.each(name)
            if abs(after / before - 1) > 0.1:
                print(f"| {name} | {short(before)} | {short(after)} | {after / before:.2f} |")


def load(path):
    with open(path) as f:
        return json.load(f)


def table(args):
    results = load(args.results)
    old = Figures(load(args.old)) if args.old else None
    figures = Figures(results)
    print(", ".join(results["context"].values()) + "\n")
    print_targets(figures, old)
    print_peers(figures)
    if old:
        print_changes(figures, old)


def main():
    parser = argparse.ArgumentParser(description="Runs the benchmarks and shows what they measured.")
    commands = parser.add_subparsers(required=True)
    command = commands.add_parser("measure")
    command.add_argument("build")
    command.add_argument("results")
    command.add_argument("--repetitions", type=int, default=9)
    command.add_argument("--filter", default=".")
    command.set_defaults(run=measure)
    command = commands.add_parser("table")
    command.add_argument("results")
    command.add_argument("old", nargs="?")
    command.set_defaults(run=table)
    args = parser.parse_args()
    args.run(args)


if __name__ == "__main__":
    main()
