#!/usr/bin/env python3
"""Runs the benchmarks of a build tree and reports the ratios: a table, bench.json and bench.svg, beside the tree's bin/.

A figure is the median of the repetitions, each of them the median of its rounds. Nothing here fails: on a busy machine
a missed goal means little, and the ratios are to be read.
"""

import argparse
import json
import math
import pathlib
import statistics
import subprocess
import sys
from xml.sax.saxutils import escape

# In the order of the report.
PROGRAMS = {
    "Accessor": "getters and setters",
    "Peer": "other ways of sharing a message, per access",
    "RowEdit": "edits of lists",
    "Configuration": "loading the configurations",
    "Picture": "pictures",
    "Emission": "announcing a page, to the last callback",
    "Scenario": "scenarios",
    "PluginLoad": "the plugin, in a fresh process",
}


def run(program, bench_filter):
    """The repetitions of each of the program's benchmarks, as Google Benchmark's JSON has them, by name."""
    raw = program.parent.parent / f"{program.name}.json"
    finished = subprocess.run(
        [
            program,
            f"--benchmark_filter={bench_filter}",
            # The repetitions of a row are spread over the program's time.
            "--benchmark_enable_random_interleaving=true",
            f"--benchmark_out={raw}",
            "--benchmark_out_format=json",
        ],
        capture_output=True,
        check=False,
    )
    if finished.returncode != 0:
        sys.exit(f"{program.name} has failed:\n{finished.stderr.decode()}")
    repetitions = {}
    if raw.stat().st_size == 0:  # the filter has left nothing
        return repetitions
    entries = json.loads(raw.read_text())["benchmarks"]
    for entry in sorted(entries, key=lambda entry: entry["family_index"]):  # in the order of the source
        if entry["run_type"] == "iteration":
            name = entry["run_name"].split("/iterations:")[0]
            repetitions.setdefault(name, []).append(entry)
    return repetitions


def rows_of(group, repetitions):
    """One row of the report for each rival of each benchmark."""
    for name, entries in repetitions.items():
        median = {
            key: statistics.median(entry[key] for entry in entries)
            for key in entries[0]
            if ": " in key
        }
        unit = next(key for key in median if key.endswith(": ")).removesuffix(": ")
        for key, ratio in median.items():
            kind, rival = key.split(": ", 1)
            if kind != "ratio":
                continue
            goal = median[f"goal: {rival}"] or None
            yield {
                "group": group,
                "row": name,
                "against": rival,
                "unit": unit,
                "this": median[f"{unit}: "],
                "other": median[f"{unit}: {rival}"],
                "ratio": ratio,
                "goal": goal,
                "met": None if goal is None else ratio <= goal,
            }


def amount(value, unit):
    """The figure with three digits and a unit that suits it."""
    if unit == "ns":
        for bigger in ("µs", "ms", "s"):
            if value < 1000:
                break
            value, unit = value / 1000, bigger
    digits = max(0, 2 - int(math.log10(value))) if value >= 1 else 2
    return f"{value:.{digits}f} {unit}"


def verdict(row):
    return {None: "", True: "met", False: "MISSED"}[row["met"]]


def table(rows):
    widths = [max(len(row[key]) for row in rows) for key in ("row", "against")]
    lines = []
    group = None
    for row in rows:
        if row["group"] != group:
            group = row["group"]
            lines += ["", group]
        goal = "" if row["goal"] is None else f"<= {row['goal']:.2f}"
        lines.append(
            f"  {row['row']:{widths[0]}}  {row['against']:{widths[1]}}"
            f"  {amount(row['this'], row['unit']):>10}  {amount(row['other'], row['unit']):>10}"
            f"  {row['ratio']:>7.3f}  {goal:7}  {verdict(row)}".rstrip()
        )
    head = f"  {'':{widths[0]}}  {'against':{widths[1]}}  {'this':>10}  {'other':>10}  {'ratio':>7}  goal"
    return "\n".join([head, *lines])


def plot(rows):
    """A bar of the ratio for each row, on a logarithmic scale, since some ratios are tiny; the goal is a red line."""
    line, label, bars, right = 18, 560, 620, 190
    ratios = [row["ratio"] for row in rows] + [row["goal"] for row in rows if row["goal"]]
    low = min(math.floor(math.log10(min(ratios))), -1)
    high = max(math.log10(max(ratios)) + 0.1, math.log10(2))

    def x(ratio):
        return label + (math.log10(ratio) - low) / (high - low) * bars

    parts = []
    y = 54
    group = None
    for row in rows:
        if row["group"] != group:
            group = row["group"]
            y += 26
            parts.append(f'<text x="10" y="{y}" font-weight="bold">{escape(group)}</text>')
        y += line
        colour = {None: "#7f8fa6", True: "#3a8f5c", False: "#d08a1d"}[row["met"]]
        start, end = sorted((x(1), x(row["ratio"])))
        parts.append(f'<text x="{label - 10}" y="{y}" text-anchor="end">{escape(row["row"])} : {escape(row["against"])}</text>')
        parts.append(f'<rect x="{start:.1f}" y="{y - 11}" width="{max(end - start, 1.5):.1f}" height="13" fill="{colour}"/>')
        if row["goal"]:
            goal = x(row["goal"])
            parts.append(
                f'<line x1="{goal:.1f}" y1="{y - 14}" x2="{goal:.1f}" y2="{y + 4}" stroke="#c0232c" stroke-width="2"/>'
            )
        this, other = amount(row["this"], row["unit"]), amount(row["other"], row["unit"])
        parts.append(f'<text x="{label + bars + 10}" y="{y}">{row["ratio"]:.2f}   ({this} : {other})</text>')
    height = y + 30
    axis = []
    for exponent in range(low, math.floor(high) + 1):
        for factor in (1, 2, 5):
            tick = factor * 10.0**exponent
            if x(tick) <= label + bars:
                colour = "#222" if tick == 1 else "#ddd"
                axis.append(f'<line x1="{x(tick):.1f}" y1="50" x2="{x(tick):.1f}" y2="{height - 10}" stroke="{colour}"/>')
                axis.append(f'<text x="{x(tick):.1f}" y="44" text-anchor="middle">{tick:g}</text>')
    title = (
        "Time of this, divided by time of the other; left of 1 is faster. "
        "Red line: goal. Green: met. Orange: missed. Grey: no goal set."
    )
    width = label + bars + right
    return "\n".join(
        [
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" font-family="sans-serif" font-size="12">',
            f'<rect width="{width}" height="{height}" fill="white"/>',
            f'<text x="10" y="20" font-size="14">{title}</text>',
            *axis,
            *parts,
            "</svg>",
            "",
        ]
    )


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tree", type=pathlib.Path, help="build tree")
    parser.add_argument("filter", nargs="?", default=".", help="regular expression of the rows wanted")
    arguments = parser.parse_args()

    rows = []
    for number, (concern, group) in enumerate(PROGRAMS.items(), 1):
        print(f"bench: {number} of {len(PROGRAMS)}: {group}", file=sys.stderr)
        rows += rows_of(group, run(arguments.tree.resolve() / "bin" / f"{concern}Benchmark", arguments.filter))
    if not rows:
        sys.exit(f"no row matches {arguments.filter}")
    (arguments.tree / "bench.json").write_text(json.dumps(rows, indent=1, ensure_ascii=False) + "\n")
    (arguments.tree / "bench.svg").write_text(plot(rows))
    print(table(rows))
    print(f"\nwritten: {arguments.tree / 'bench.json'}, {arguments.tree / 'bench.svg'}")


main()
