"""The tables of scripts/bench, and the plot of cost against size."""

import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from math import log10

import commands
from callgrind import Run, cases, count_all, count_command

SIZES = (100, 1000)
PLOT_SIZES = (100, 1000, 10000)

# case | name | result for the document
ROWS = (
    ("json11", "json11", "tree; the ratios are relative to it"),
    ("text", "parser: load", "tree"),
    ("live", "parser: live graph, host framework", "tree, all queries, all nodes set up"),
    ("nlohmann", "nlohmann::json", "tree"),
    ("rapidjson", "RapidJSON", "tree"),
    ("jsoncpp", "JsonCpp", "tree"),
    ("simdjson", "simdjson", "read-only document"),
    ("yaml-cpp", "yaml-cpp", "tree, from the same in YAML"),
    ("protobuf", "protobuf TextFormat", "message, from the same in its text format"),
    ("ffmpeg", "FFmpeg avfilter_graph_parse2", "chain of filters with 6 options each"),
    ("gstreamer", "GStreamer gst_parse_launch", "chain of elements with 6 options each"),
)
MINIMAL = ("live", "parser: live graph, minimal framework", "tree, all queries, all nodes set up")


def times(folder, work, program, case):
    """Microseconds by size, measured by Google Benchmark: the minimum of several
    repetitions, because other programs can only add time. Each case has its own
    process: some libraries start threads, which makes reference counting atomic."""
    out = os.path.join(work, f"time-{program}-{case}.json")
    subprocess.run([os.path.join(folder, f"time_{program}"), f"--benchmark_out={out}",
                    "--benchmark_min_time=0.05", "--benchmark_repetitions=9",
                    f"--benchmark_filter=^{case}/"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with open(out, encoding="utf-8") as file:
        rows = [row for row in json.load(file)["benchmarks"] if row["run_type"] == "iteration"]
    fastest = {}
    for row in rows:
        nodes = int(row["name"].split("/")[1])
        fastest[nodes] = min(row["real_time"], fastest.get(nodes, row["real_time"]))
    return fastest


def table(folder, work):
    installed = set(cases(folder, "peers"))
    rows = [("peers", *row) for row in ROWS]
    rows.insert(2, ("minimal", *MINIMAL))
    found = [row for row in rows if row[0] == "minimal" or row[1] in installed]
    counts = count_all(folder, [Run(row[0], row[1], nodes) for row in found for nodes in SIZES])
    clock = {row: times(folder, work, row[0], row[1]) for row in found}

    results = []
    print(f"| what | result | nodes | instructions | relative to json11 | time, µs | relative to json11 |\n"
          f"|---|---|---:|---:|---:|---:|---:|")
    for nodes in SIZES:
        json11 = counts[Run("peers", "json11", nodes)].instructions
        json11_time = clock[found[0]][nodes]
        for row in found:
            program, case, what, makes = row
            instructions = counts[Run(program, case, nodes)].instructions
            time = clock[row][nodes]
            print(f"| {what} | {makes} | {nodes} | {instructions:,} | {instructions / json11:.2f} "
                  f"| {time:,.0f} | {time / json11_time:.2f} |")
            results.append({"what": what, "nodes": nodes, "instructions": instructions, "us": time})
    for row in rows:
        if row not in found:
            print(f"\n{row[2]} is not installed: skipped")
    print("\nHeap bytes per node:")
    subprocess.run([os.path.join(folder, "bench_heap")], check=True)
    with open(os.path.join(work, "results.json"), "w", encoding="utf-8") as file:
        json.dump(results, file, indent=2)


# ---- The command -------------------------------------------------------------

VERBS = (["inspect"], ["check"], ["draw", "--format", "dot"])


def growth(folder, qvgraph, work, large):
    """Prints the instructions of the verbs of qvgraph, and of the usual calls of a
    framework, at 100 and 10,000 nodes: in pipes of ten, and in one pipe. `large`
    has the costs of `check` and `inspect` at 10,000 nodes."""
    sizes = [(100, 10), (10000, 10), (100, 100), (10000, 10000)]
    documents = {size: commands.write_document(folder, work, *size) for size in sizes}

    def count(verb, size):
        nodes, pipe_size = size
        if nodes == commands.NODES and verb[0] in large[pipe_size]:
            return large[pipe_size][verb[0]].instructions
        return count_command(qvgraph, *verb, documents[size]).instructions

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        rows = [("qvgraph " + " ".join(verb), [pool.submit(count, verb, size) for size in sizes])
                for verb in VERBS]
        rows = [(name, [count.result() for count in counts]) for name, counts in rows]
    for program in ("minimal", "host"):
        loop = count_all(folder, [Run(program, "live", *size) for size in sizes])
        rows.append((f"live graph, {program} framework",
                     [count.instructions for count in loop.values()]))
    print("| instructions | 100 nodes in pipes of ten | 10,000 | factor | 100 in one pipe "
          "| 10,000 | factor |\n|---|---:|---:|---:|---:|---:|---:|")
    for name, (tens, many_tens, one, many_in_one) in rows:
        print(f"| {name} | {tens:,} | {many_tens:,} | {many_tens / tens:.1f} "
              f"| {one:,} | {many_in_one:,} | {many_in_one / one:.1f} |")


LAYOUTS = {commands.PIPE_SIZE: "pipes of ten", commands.NODES: "one pipe"}


def comparison(large):
    """Prints the cost of the command side by side with that of jq."""
    print(f"\n| {commands.NODES:,} nodes | " + " | ".join(LAYOUTS.values()) + " | limit |\n"
          + "|---|" + "---:|" * (len(LAYOUTS) + 1))

    def row(name, cells, limit=""):
        print(f"| {name} | " + " | ".join(cells) + f" | {limit} |")

    for name, command in commands.programs("qvgraph").items():
        row(f"`{' '.join(command)} FILE`, instructions",
            [f"{costs[name].instructions:,}" for costs in large.values()])
    for name, command in commands.programs("qvgraph").items():
        row(f"`{' '.join(command)} FILE`, peak memory, KiB",
            [f"{costs[name].peak_memory:,}" for costs in large.values()])
    for ratio in commands.RATIOS:
        row(commands.name_of(ratio),
            [f"{commands.ratio_of(costs, ratio):.2f}" for costs in large.values()],
            ratio.maximum)
    print("\nThe limits apply to pipes of ten.")


# ---- The plot ---------------------------------------------------------------

# program | case | name | colour | maximum size
LINES = (("host", "json11", "json11", "#777777", 10000),
         ("minimal", "live", "live graph, minimal framework", "#2a6fbb", 10000),
         ("host", "live", "live graph, host framework", "#b5432a", 10000),
         ("peers", "ffmpeg", "FFmpeg, as many filters", "#3f8f46", 1000),
         ("peers", "gstreamer", "GStreamer, as many elements", "#8a5fb0", 100))

WIDTH, HEIGHT, LEFT, RIGHT, TOP, BOTTOM = 760, 420, 70, 230, 30, 50


def plot(folder, work, path):
    """Draws instructions per node against nodes: a flat line is a linear cost."""
    installed = set(cases(folder, "peers"))
    lines = [line for line in LINES if line[0] != "peers" or line[1] in installed]
    sizes = {line: [n for n in PLOT_SIZES if n <= line[4]] for line in lines}
    runs = [Run(line[0], line[1], nodes) for line in lines for nodes in sizes[line]]
    counts = count_all(folder, runs)
    series = {line: [(n, counts[Run(line[0], line[1], n)].instructions / n) for n in sizes[line]]
              for line in lines}
    with open(os.path.join(work, "plot.json"), "w", encoding="utf-8") as file:
        json.dump({line[2]: points for line, points in series.items()}, file, indent=2)
    with open(path, "w", encoding="utf-8") as file:
        file.write(svg(series))
    print(f"{path} is updated")


def svg(series):
    low, high = 4.3, 6.0  # the range of the vertical axis, as powers of ten

    def x(nodes):
        share = log10(nodes / PLOT_SIZES[0]) / log10(PLOT_SIZES[-1] / PLOT_SIZES[0])
        return LEFT + share * (WIDTH - LEFT - RIGHT)

    def y(cost):
        return TOP + (high - log10(cost)) / (high - low) * (HEIGHT - TOP - BOTTOM)

    out = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
           'font-family="sans-serif" font-size="12">',
           f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>',
           f'<text x="{LEFT}" y="18" font-size="14">Instructions per node, by the size of the '
           'configuration</text>']
    for cost in (20000, 50000, 100000, 200000, 500000, 1000000):
        out.append(f'<line x1="{LEFT}" x2="{WIDTH - RIGHT}" y1="{y(cost):.1f}" y2="{y(cost):.1f}" '
                   'stroke="#dddddd"/>')
        out.append(f'<text x="{LEFT - 6}" y="{y(cost) + 4:.1f}" text-anchor="end">'
                   f'{cost // 1000} k</text>')
    for nodes in PLOT_SIZES:
        out.append(f'<text x="{x(nodes):.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
                   f'{nodes}</text>')
    out.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2:.0f}" y="{HEIGHT - 10}" '
               'text-anchor="middle">nodes, in pipes of ten</text>')
    for (_, _, name, colour, _), points in series.items():
        path = " ".join(f"{x(n):.1f},{y(cost):.1f}" for n, cost in points)
        out.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        for nodes, cost in points:
            out.append(f'<circle cx="{x(nodes):.1f}" cy="{y(cost):.1f}" r="3" fill="{colour}"/>')
        nodes, cost = points[-1]
        out.append(f'<text x="{x(nodes) + 8:.1f}" y="{y(cost) + 4:.1f}" fill="{colour}">'
                   f'{name}</text>')
    return "\n".join([*out, "</svg>", ""])


def main(folder, work, picture, options):
    qvgraph = os.path.join(work, "cli", "qvgraph")
    if "--commands" in options:
        large = commands.measure(folder, qvgraph, work, LAYOUTS)
        growth(folder, qvgraph, work, large)
        comparison(large)
    elif "--plot" in options:
        plot(folder, work, picture)
    else:
        table(folder, work)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:])
