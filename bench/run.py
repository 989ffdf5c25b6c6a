#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs the benchmark programs and prints the ratios to the peers as a Markdown table.

    bench/run.py build/bench/bench                 # everything
    bench/run.py build/bench/bench strings csv     # some families
    bench/run.py build/bench/bench --repetitions 5 --json results.json

Repetitions of all contenders of a program are interleaved, so that a slow minute of the machine hits all alike; what is
compared are the medians of the processor time, or of the time by the clock where several threads work. A peer that was
not there when the benchmarks were built has no row.
"""

import argparse
import json
import os
import statistics
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

# ours and peer are names of benchmarks; a goal is the greatest ratio of ours to the peer that counts as met, or None.
Row = namedtuple("Row", "family workload ours peer floor aim")


def rows():
    """All comparisons, in the order in which they are printed."""
    table = []

    def add(family, workload, ours, peers):
        """peers: name: (floor, aim)"""
        for peer, (floor, aim) in peers.items():
            prefix = ours.rsplit("/", 1)[0]
            table.append(Row(family, workload, ours, f"{prefix}/{peer}", floor, aim))

    for kind, label in (("ours-data-table", "rich table"), ("ours-sheet", "sheet writer")):
        add("xlsx", f"table to xlsx, 100,000 x 20 ({label})", f"xlsx-table/{kind}", {"libxlsxwriter": (1.5, 0.8)})
    add("xlsx", "20,000 merged ranges", "xlsx-merges/20000/ours", {"libxlsxwriter": (1.2, 0.5)})
    for kind in ("file device", "string device", "path"):
        add("csv", f"CSV in, typed, 100 MB ({kind})", f"csv-in/ours-{kind.replace(' ', '-')}",
            {"QTextStream": (1, None), "heap-cells": (1.3, None), "libcsv": (None, 1)})
    add("csv", "CSV out, 100 MB (file device)", "csv-out/ours-file-device",
        {"QTextStream": (1, None), "ofstream": (1, None), "to_chars": (None, 1.5)})
    for operator, name in (("==", "equal"), ("<", "less")):
        for length in (8, 32, 256):
            add("strings", f"case-blind `{operator}`, {length} bytes", f"{name}/{length}/ours",
                {"QString": (1, None), "boost": (0.2, None), "strcasecmp": (None, 2)})
    for length in (10000, 100000):
        add("strings", f"find, case-blind, in {length:,} bytes", f"find/{length}/ours",
            {"QString": (1, None), "best of strcasestr std::search boost": (None, 1.5)})
    for count in (2000, 20000):
        add("strings", f"replace, case-blind, {count:,} places", f"replace/{count}/ours",
            {"QString": (1, None), "best of QString boost": (None, 1.5)})
    add("strings", "replace, same case, 2,000 places", "replace-case/2000/ours",
        {"QString": (1, None), "best of QString absl": (None, 1.5)})
    add("strings", "tokenize, lines of ten fields", "tokenize/lines/ours",
        {"QString": (1, None), "best of QString absl boost": (None, 1.5)})
    add("strings", "tokenize, case-blind, 20,000 pieces", "tokenize/20000/ours",
        {"QString": (1, None), "best of QString boost": (None, 1.5)})
    add("numbers", "`ToString` of a double", "real-to-text/ours", {"snprintf": (1, None), "to_chars": (None, 1.2)})
    add("numbers", "text of an integer", "integer-to-text/ours", {"snprintf": (1, None), "to_chars": (None, 1.2)})
    add("numbers", "`isDouble`", "is-double/ours", {"strtod": (1, None), "from_chars": (None, 1.2)})
    add("numbers", "`isInteger`", "is-integer/ours", {"strtol": (1, None), "from_chars": (None, 1.2)})
    for digits in ("17", "6"):
        add("numbers", f"`toDouble`, {digits} digits", f"to-double-{digits}/ours",
            {"strtod": (1, None), "from_chars": (None, 1.2)})
    add("base64", "Base64 of a double, encode", "base64-encode/ours", {"QByteArray": (1, None), "absl": (None, 1.5)})
    add("base64", "Base64 of a double, decode", "base64-decode/ours", {"QByteArray": (1, None), "absl": (None, 1.5)})
    for step in ("pack", "unpack"):
        for kind, label in (("10000", "10,000 files"), ("large", "tree of 1 GiB")):
            add("zip", f"zip: {step}, {label}", f"zip-{step}/{kind}/ours",
                {"minizip": (1.1, None), "Info-ZIP": (None, 1)})
    for count in (20, 2000):
        add("properties", f"value by name, {count:,} names", f"properties/{count}/ours",
            {"vector-strcasecmp": (1.5 if count == 20 else None, None), "map-strcasecmp": (None, None),
             "QHash-lower": (None, None)})
        add("properties", f"set of {count:,} names, filled", f"properties-fill/{count}/ours",
            {"vector-strcasecmp": (None, None)})
    for operation in ("get", "set"):
        add("properties", f"process-wide store, {operation} a double", f"global-{operation}/ours",
            {"unordered_map": (None, None), "map-of-deques": (None, None)})
    for column in ("mixed", "double"):
        add("tables", f"sort 100,000 rows, {column} column", f"sort/{column}/ours",
            {"QStandardItemModel": (0.1, None), "heap-cells": (None, 1.5)})
    for kind in ("deque", "vector", "list"):
        add("containers", f"walk 1e6, {kind}, direct", f"walk/{kind}/direct", {"std": (1.1, None)})
    for kind in ("deque", "vector"):
        add("containers", f"fill 1e6, {kind}", f"fill/{kind}/ours", {"std": (None, None)})
    for peer in ("fwrite", "ofstream", "QFile"):
        add("devices", "10,000,000 writes of 10 bytes, file", "small-writes/file/ours", {peer: (None, None)})
    add("devices", "10,000,000 writes of 10 bytes, memory", "small-writes/string/ours", {"QBuffer": (None, None)})
    for peer in ("fread", "QFile"):
        add("devices", "100 MB in blocks of 16 KiB", "blocks/file/ours", {peer: (None, None)})
    for peer in ("getline", "QFile"):
        add("devices", "100 MB line by line", "lines/file/ours", {peer: (None, None)})
    for kind, label in (("at-once", "at once"), ("lines", "by lines of 100 bytes")):
        add("devices", f"safe save of 10 MB, {label}", f"safe-save/{kind}/ours", {"QSaveFile": (1.1, None)})
    for kind in ("plain", "compressed"):
        add("dom", f"DOM: load 20 MB, {kind}", f"dom-load/{kind}/ours", {"QDomDocument": (1.1, None)})
        add("dom", f"DOM: save 20 MB, {kind}", f"dom-save/{kind}/ours", {"QDomDocument": (1.1, None)})
    add("msw", "result file, 10,000 runs x 10 parameters: write", "msw-write/10000/ours", {"QDomDocument": (1.3, None)})
    add("msw", "result file, 10,000 runs x 10 parameters: read and compute", "msw-read/10000/ours",
        {"QDomDocument": (1.3, None)})
    add("dom", "DOM: load, look at every real, save", "dom-visit/plain/ours", {"QDomDocument": (None, None)})
    add("html", "HTML log, 10,000 runs x 10 merit functions, 14 parameters", "html-log/ours",
        {"fprintf": (1, 0.5), "to_chars": (None, None), "ofstream": (None, None), "QTextStream": (None, None)})
    add("html", "HTML sensitivity page of the same runs", "html-sensitivity/ours", {"fprintf": (1, 0.5)})
    add("xml_load", "1,000,000 records into structs by rules", "xml-load/limits/ours",
        {"QXmlStreamReader": (2.5, 1.5), "property_tree": (1, None)})
    for rules in ("1", "21", "61"):
        add("xml_load", f"XML through the loader, 100 MB, {rules} rules", f"xml-rules/records/ours-{rules}",
            {"QXmlStreamReader": (3, 2)})
    add("xml_load", "the same, every attribute and text asked for", "xml-rules/records/ours-all",
        {"QXmlStreamReader": (3, 2)})
    add("xml_in", "XML in, 100 MB, elements, attributes and texts", "xml-in/ours", {"QXmlStreamReader": (2, 1.3)})
    add("xml_in", "16,000 attributes on one element", "xml-attributes/ours", {"QXmlStreamReader": (1.5, None)})
    for name in ("pow", "sqrt"):
        add("maths", f"guarded `{name.title()}`", f"guarded/{name}/ours", {"plain": (4, 2), "cfenv": (None, None)})
    add("maths", "guarded `Cosh`", "guarded/cosh/ours", {"plain": (None, None)})
    add("undo", "1,000,000 actions recorded, undone, redone", "undo-all/ours", {"QUndoStack": (1, None)})
    add("undo", "1,000,000 actions, the last 100 kept", "undo-record/ours", {"QUndoStack": (1, None)})
    add("kinds", "the kind of a file", "file-kind/ours", {"unordered_map": (None, None), "QMimeDatabase": (1, None)})
    add("faults", "a command for the host", "fenced-command/ours", {"function": (None, None)})
    for threads, label in (("1", "1 thread"), ("2", "2 threads")):
        add("threads", f"parallel problem, tiny items, {label}", f"parallel/tiny-{threads}/ours",
            {"TBB": (1, None), "OpenMP": (None, 2), "std-thread": (None, None)})
        add("threads", f"parallel problem, items of 10 µs, {label}", f"parallel/10us-{threads}/ours",
            {"TBB": (None, None), "OpenMP": (None, None), "std-thread": (None, None)})
    for count, label in (("1", "one by one"), ("64", "64 at a time")):
        add("threads", f"10,000 background runs, {label}", f"background/{count}/ours", {"thread-and-async": (1.3, None)})
    add("xml_out", "XML out, 100 MB, element writers", "xml-out/ours", {"QXmlStreamWriter": (1.3, 1)})
    return table


# What is not compared with a peer: label, benchmark, what is looked at, the greatest value that counts as met, unit.
# A pair of benchmarks stands for the second divided by the first, or less the first for memory.
Figure = namedtuple("Figure", "family label names kind limit unit")

FIGURES = [
    Figure("faults", "a command for the host that does nothing", ["fenced-command/ours"], "step", 5000, "ns"),
    Figure("faults", "a command that faults, with its report", ["faulting-command/ours"], "step", None, "ns"),
    Figure("kinds", "the kind of a file, by its path", ["file-kind/ours"], "step", 200, "ns"),
    Figure("kinds", "the same, the path made from text", ["file-kind/ours-from-text"], "step", None, "ns"),
    Figure("undo", "time of recording with a limit of 100 / without", ["undo-record/ours-no-limit", "undo-record/ours"],
           "time", 1.1, "x"),
    Figure("xml_load", "time of 61 rules / 1 rule", ["xml-rules/records/ours-1", "xml-rules/records/ours-61"], "time", 1.1,
           "x"),
] + [
    Figure("containers", f"walk through the interface, {kind}, a step", [f"walk/{kind}/interface"], "step", 20, "ns")
    for kind in ("deque", "vector", "list")
] + [
    Figure("xlsx", "memory: 200,000 rows above 10,000 rows", ["xlsx-memory/10000/ours", "xlsx-memory/200000/ours"],
           "memory", 8, "MiB"),
    Figure("xlsx", "the same of libxlsxwriter", ["xlsx-memory/10000/libxlsxwriter", "xlsx-memory/200000/libxlsxwriter"],
           "memory", None, "MiB"),
    Figure("xlsx", "time of 40,000 merges / 20,000", ["xlsx-merges/20000/ours", "xlsx-merges/40000/ours"], "time", 2.3, "x"),
    Figure("xlsx", "time of 80,000 merges / 40,000", ["xlsx-merges/40000/ours", "xlsx-merges/80000/ours"], "time", 2.3, "x"),
    Figure("xlsx", "a merge of 1,000,000 columns", ["xlsx-huge-merge/columns/ours"], "alone", None, "ms"),
    Figure("xlsx", "a merge of 1,000,000 rows", ["xlsx-huge-merge/rows/ours"], "alone", None, "ms"),
    Figure("xlsx", "the worksheet alone, no package", ["xlsx-table/ours-worksheet-alone"], "alone", None, "ms"),
    Figure("xlsx", "deflate alone of the same worksheet", ["xlsx-table/zlib"], "alone", None, "ms"),
    Figure("strings", "find: time of 100,000 bytes / 10,000", ["find/10000/ours", "find/100000/ours"], "time", 20, "x"),
    Figure("strings", "replace: time of 20,000 places / 2,000", ["replace/2000/ours", "replace/20000/ours"], "time", 20, "x"),
    Figure("strings", "tokenize: time of 20,000 pieces / 2,000", ["tokenize/2000/ours", "tokenize/20000/ours"], "time", 20,
           "x"),
    Figure("msw", "result file: writing 10,000 runs / 2,500", ["msw-write/2500/ours", "msw-write/10000/ours"], "time", 5, "x"),
    Figure("msw", "result file: reading 10,000 runs / 2,500", ["msw-read/2500/ours", "msw-read/10000/ours"], "time", 5, "x"),
    Figure("zip", "unpack: time of 10,000 entries / 1,000", ["zip-unpack/1000/ours", "zip-unpack/10000/ours"], "time", 20,
           "x"),
    Figure("zip", "memory: pack 1 GiB above pack 1,000 files", ["zip-pack/1000/ours", "zip-pack/large/ours"], "memory", 4,
           "MiB"),
    Figure("zip", "memory: unpack 1 GiB above unpack 1,000 files", ["zip-unpack/1000/ours", "zip-unpack/large/ours"],
           "memory", 4, "MiB"),
    Figure("zip", "memory: unpack 10,000 files above 1,000", ["zip-unpack/1000/ours", "zip-unpack/10000/ours"], "memory", 4,
           "MiB"),
    Figure("xml_in", "memory: 100 MB of XML in above 10 MB", ["xml-in-memory/10/ours", "xml-in-memory/100/ours"], "memory",
           8, "MiB"),
    Figure("csv", "peak memory, CSV in (file device)", ["csv-in/ours-file-device"], "peak", None, "MiB"),
    Figure("csv", "peak memory, CSV in (path)", ["csv-in/ours-path"], "peak", None, "MiB"),
    Figure("csv", "peak memory, heap cells by hand", ["csv-in/heap-cells"], "peak", None, "MiB"),
    Figure("csv", "peak memory, CSV out (file device)", ["csv-out/ours-file-device"], "peak", None, "MiB"),
] + [
    Figure("threads", f"parallel problem, a tiny item, threads: {threads}", [f"parallel/tiny-{threads}/ours"], "step", 20, "ns")
    for threads in (1, 2)
] + [
    # 1.9 times as fast on two free cores.
    Figure("threads", "items of 10 µs: time of 2 threads / 1", ["parallel/10us-1/ours", "parallel/10us-2/ours"], "time",
           0.526, "x"),
]

FAMILIES = sorted({row.family for row in rows()})


class Results:
    """Medians over the repetitions: nanoseconds, MiB of peak memory, items a run."""

    def __init__(self):
        self.time, self.peak, self.items = {}, {}, {}

    def take(self, report):
        samples = {}
        for run in report["benchmarks"]:
            if run.get("run_type") == "aggregate":
                continue
            if run.get("error_occurred"):
                print(f"{run['name']}: {run['error_message']}", file=sys.stderr)
                continue
            name = run["run_name"].replace("/iterations:1/manual_time", "").replace("/real_time", "")
            samples.setdefault(name, []).append(run)
        for name, runs in samples.items():
            # Jobs run in a child and report its processor time themselves; what threads do is told by the clock.
            field = "real_time" if runs[0]["run_name"].endswith(("/manual_time", "/real_time")) else "cpu_time"
            unit = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[runs[0]["time_unit"]]
            self.time[name] = statistics.median(run[field] for run in runs) * unit
            if "peak_MiB" in runs[0]:
                self.peak[name] = statistics.median(run["peak_MiB"] for run in runs)
            if "items_per_second" in runs[0]:
                self.items[name] = round(runs[0]["items_per_second"] * runs[0][field] * unit / 1e9)

    def best_of(self, prefix, names):
        """The quickest of the contenders that are there."""
        there = [f"{prefix}/{name}" for name in names if f"{prefix}/{name}" in self.time]
        return min(there, key=self.time.get) if there else None


def run_family(directory, family, options):
    program = Path(directory) / f"bench_{family}"
    if not program.exists():
        print(f"{program} is not there", file=sys.stderr)
        return {"benchmarks": []}
    command = [str(program), "--benchmark_format=json", f"--benchmark_repetitions={options.repetitions}",
               "--benchmark_enable_random_interleaving=true", f"--benchmark_min_time={options.min_time}"]
    if options.filter:
        command.append(f"--benchmark_filter={options.filter}")
    environment = dict(os.environ, QT_HASH_SEED="0", QT_QPA_PLATFORM="offscreen")
    print(f"bench_{family} ...", file=sys.stderr, flush=True)
    finished = subprocess.run(command, env=environment, stdout=subprocess.PIPE, check=False)
    if finished.returncode != 0:
        print(f"{program} has failed", file=sys.stderr)
        return {"benchmarks": []}
    return json.loads(finished.stdout)


def spell(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def verdict(value, limit):
    return "" if limit is None else "yes" if value <= limit else "**no**"


def goal(limit):
    return "" if limit is None else f"{limit:g}"


def print_rows(results, families):
    print("| workload | ours | peer | time of the peer | ours / peer | floor | met | aim | met |")
    print("|---|--:|---|--:|--:|--:|---|--:|---|")
    for row in rows():
        peer = row.peer
        if "/best of " in peer:
            prefix, names = peer.split("/best of ")
            peer = results.best_of(prefix, names.split())
        if row.family not in families or row.ours not in results.time or peer not in results.time:
            continue
        # Operations of a loop are told one by one, a job as a whole.
        ours, theirs = results.time[row.ours], results.time[peer]
        count = results.items.get(row.ours, 1)
        ratio = ours / theirs
        print(f"| {row.workload} | {spell(ours / count)} | {peer.rsplit('/', 1)[1]} | {spell(theirs / count)} "
              f"| {ratio:.2f} | {goal(row.floor)} | {verdict(ratio, row.floor)} "
              f"| {goal(row.aim)} | {verdict(ratio, row.aim)} |")


def figure_value(results, figure):
    source = results.peak if figure.kind in ("memory", "peak") else results.time
    if any(name not in source for name in figure.names):
        return None
    values = [source[name] for name in figure.names]
    if figure.kind == "memory":
        return values[1] - values[0]
    if figure.kind == "time":
        return values[1] / values[0]
    if figure.kind == "step":
        return values[0] / results.items[figure.names[0]]
    return values[0] if figure.kind == "peak" else values[0] / 1e6


def print_figures(results, families):
    print("\n| figure | measured | at most | met |")
    print("|---|--:|--:|---|")
    for figure in FIGURES:
        value = figure_value(results, figure) if figure.family in families else None
        if value is not None:
            print(f"| {figure.label} | {value:.3g} {figure.unit} | {goal(figure.limit)} | {verdict(value, figure.limit)} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("directory", help="where the programs are")
    parser.add_argument("families", nargs="*", help="which of them: " + " ".join(FAMILIES))
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--min-time", type=float, default=0.1, help="seconds a repetition of a small operation")
    parser.add_argument("--filter", default="", help="regular expression of the benchmarks to run")
    parser.add_argument("--json", help="keep what the programs report in this file; added to when it is there")
    parser.add_argument("--show", action="store_true", help="run nothing, print what the file of --json holds")
    options = parser.parse_args()
    families = options.families or FAMILIES
    reports = {}
    if options.json and Path(options.json).exists():
        reports = json.loads(Path(options.json).read_text())
    for family in [] if options.show else families:
        reports[family] = run_family(options.directory, family, options)
    if options.json and not options.show:
        Path(options.json).write_text(json.dumps(reports, indent=1))
    results = Results()
    for family in families:
        if family in reports:
            results.take(reports[family])
    print_rows(results, families)
    print_figures(results, families)


if __name__ == "__main__":
    main()
