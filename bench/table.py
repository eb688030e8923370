#!/usr/bin/env python3
"""Turns what the benchmarks measured into one Markdown table: table.py DATA BIN BUILD.

Measures by itself what takes a process of its own: the memory of a load, and the program's whole run on the sample."""

import json
import os
import pathlib
import re
import statistics
import subprocess
import sys
import time

RUNS = 21


def at_most(what, ours, other, limit, name):
    return {"what": what, "ours": ours, "other": other, "limit": limit, "name": name, "faster": False}


def faster(what, ours, other, limit, name):
    return {"what": what, "ours": ours, "other": other, "limit": limit, "name": name, "faster": True}


PASS = "one pass: lines, group codes, reals"
PLAIN = "plain loop"
LINES = [
    at_most("Load 10 MB", "Load/10MB", "Pass/10MB", 1.5, PASS),
    faster("Load 10 MB", "Load/10MB", "Dxflib/10MB", 9, "dxflib, listener that does nothing"),
    at_most("Load 100 MB", "Load/100MB", "Pass/100MB", 1.5, PASS),
    faster("Load 100 MB", "Load/100MB", "Dxflib/100MB", 9, "dxflib, listener that does nothing"),
    at_most("Save 10 MB after drawing", "Save/10MB", "PlainWrite/10MB", 1.3, "write and fsync of the same bytes"),
    at_most("Save 100 MB after drawing", "Save/100MB", "PlainWrite/100MB", 1.3, "write and fsync of the same bytes"),
]
for size, limit in (("100x1000", None), ("1000x10000", 150), ("2000x100000", 1000)):
    sections, polylines = (f"{int(n):,}" for n in size.split("x"))
    what = f"Crossings, {sections} sections × {polylines} polylines"
    LINES += [
        faster(what, f"Indexed/{size}", f"Plain/{size}", limit, PLAIN),
        faster(what, f"Indexed/{size}", f"StrTree/{size}", 1, "GEOS STRtree"),
        faster(what, f"Indexed/{size}", f"RTree/{size}", 1, "Boost.Geometry R-tree"),
    ]
LINES += [
    at_most("Whole scan, 10 km", "Scan/10km", "Load/10km", 2, "load of the same drawing"),
    at_most("RefreshAllSections, 1,000 sections", "Refresh/1000", "Positions/1000", 3, "one pass that reads every position"),
    faster("RefreshAllSections, 1,000 sections", "Refresh/1000", "RefreshPlain/1000", 100, "every object for every section"),
    faster("10,000 sections through 1,000,000 triangles", "CutSections/10000x1000000", "CutSectionsPlain/10000x1000000",
           None, PLAIN),
    at_most("Read LandXML, 100 MB of triangles", "LandXml/triangles", "Pugixml/triangles", 1.5, "pugixml, its parse alone"),
]
# Times by themselves: the benchmark, what one item is, how the measured rate is shown and what it must be.
RATES = [
    ("Draw, 10 km", "Draw/10km", lambda s: f"{s['items_per_second']:,.0f} entities/s", "≥ 500,000 entities/s",
     lambda s: s["items_per_second"] >= 500_000),
    ("FindGroundPoint, line of 100 vertices", "GroundPoint/100", lambda s: f"{s['time'] * 1e9:.1f} ns", "≤ 50 ns",
     lambda s: s["time"] <= 50e-9),
    ("Vertex test, 100,000 points × 1,000,000 vertices", "VertexTest", lambda s: show(s["time"]), "< 1 s",
     lambda s: s["time"] < 1),
    ("10,000 sections through 1,000,000 triangles", "CutSections/10000x1000000", lambda s: show(s["time"]), "< 2 s",
     lambda s: s["time"] < 2),
    ("Triangles over 1,000,000 points and 20,000 segments", "Triangulate", lambda s: show(s["time"]), "≤ 30 s",
     lambda s: s["time"] <= 30),
] + [(f"Read LandXML, 100 MB of {what}", f"LandXml/{name}", lambda s: f"{s['bytes_per_second'] / 1e6:,.0f} MB/s", "≥ 100 MB/s",
      lambda s: s["bytes_per_second"] >= 100e6) for what, name in (("triangles", "triangles"), ("break lines", "lines"),
                                                                   ("points", "points"))]

UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def medians(path):
    """By name without suffixes: time in seconds (the wall's where the benchmark asks for it, else the processor's)."""
    found = {}
    for run in json.loads(path.read_text())["benchmarks"]:
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        if run.get("aggregate_name") != "median":
            continue
        wall = re.search(r"/(real|manual)_time", run["run_name"])
        name = re.sub(r"/(real|manual)_time|/repeats:\d+|/iterations:\d+", "", run["run_name"])
        found[name] = dict(run, time=run["real_time" if wall else "cpu_time"] * UNITS[run["time_unit"]])
    return found


def show(seconds):
    for unit, factor in (("s", 1.0), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= factor:
            return f"{seconds / factor:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def mark(limit, met):
    return "" if limit is None else "yes" if met else "**no**"


def compared(line, found):
    ours, other = found[line["ours"]]["time"], found[line["other"]]["time"]
    limit = line["limit"]
    if line["faster"]:
        ratio = other / ours
        return [line["what"], show(ours), line["name"], show(other), f"{ratio:,.0f} × faster" if ratio >= 100 else f"{ratio:.3g} × faster",
                "" if limit is None else "faster" if limit == 1 else f"≥ {limit:,} × faster", mark(limit, ratio >= (limit or 0))]
    ratio = ours / other
    return [line["what"], show(ours), line["name"], show(other), f"{ratio:.2f} ×", f"≤ {limit} ×", mark(limit, ratio <= limit)]


def memory(bin_folder, drawing, what):
    runs = [json.loads(subprocess.check_output([bin_folder / "veloxa_memory", drawing])) for _ in range(5)]
    growth = statistics.median(run["growth"] for run in runs)
    file, entities = runs[0]["file"], runs[0]["entities"]
    each = (growth - file) / entities
    return [what, f"{growth / 1e6:.1f} MB", f"the file: {entities:,} entities", f"{file / 1e6:.1f} MB",
            f"file + {each:.0f} bytes an entity", "≤ file + 80 bytes an entity", mark(80, each <= 80)]


def whole_run(program, drawing):
    """Seconds of the program from start to end, its output thrown away."""
    times = []
    for _ in range(RUNS):
        start = time.perf_counter()
        subprocess.run([program, "scan", drawing], stdout=subprocess.DEVNULL, check=True)
        times.append(time.perf_counter() - start)
    return statistics.median(times)


def machine(build):
    cpu = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text()).group(1)
    kilobytes = int(re.search(r"MemTotal:\s*(\d+)", pathlib.Path("/proc/meminfo").read_text()).group(1))
    cache = (build / "CMakeCache.txt").read_text()
    compiler = re.search(r"CMAKE_CXX_COMPILER:\w+=(.*)", cache).group(1)
    version = subprocess.check_output([compiler, "--version"], text=True).splitlines()[0]
    flags = " ".join(re.findall(r"CMAKE_CXX_FLAGS(?:_RELEASE)?:STRING=(.*)", cache)).strip()
    return f"{cpu}, {os.cpu_count()} cores, {kilobytes / 2**20:.0f} GiB; {version}, {flags}"


def main():
    data, bin_folder, build = (pathlib.Path(argument) for argument in sys.argv[1:])
    found = medians(data / "times.json")
    rows = [compared(line, found) for line in LINES if line["ours"] in found and line["other"] in found]
    for what, name, shown, limit, met in RATES:
        if name in found:
            rows.append([what, shown(found[name]), "", "", "", limit, mark(limit, met(found[name]))])
    for name in ("10mb", "100mb"):
        rows.append(memory(bin_folder, data / f"{name}.dxf", f"Memory of a load, {name[:-2]} MB"))
    program, sample = bin_folder / "veloxa", pathlib.Path("samples/road.dxf")
    if program.exists():
        seconds = whole_run(program, sample)
        rows.append([f"`veloxa scan {sample}`, whole process", show(seconds), "", "", "", "< 50 ms",
                     mark(50, seconds < 0.05)])
    print(machine(build) + "\n")
    print("| what | measured | beside | measured | ratio | must be | met |")
    print("|---|---|---|---|---|---|---|")
    for row in rows:
        print("| " + " | ".join(row) + " |")


main()
