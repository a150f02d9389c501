"""Compares counts with the baseline and with their limits. See scripts/bench-gate."""

import collections
import json
import platform
import subprocess
import sys
import tempfile

import commands
from callgrind import Run, cases, count_all

GROWTH = 1.01  # the factor by which instructions may grow; allocations may not grow

OPTIONS = ["option plain", "option int32", "option int64", "option float", "option double"]

RUNS = (
    [Run("host", case, nodes) for case in ("json11", "text", "file", "live") for nodes in (100, 1000)]
    + [Run("minimal", "live", nodes) for nodes in (100, 1000)]
    + [Run("host", "live", 10000), Run("host", "log", 1000)]
    + [Run("minimal", case, 10) for case in ("init", "copies", "queries")]
    + [Run("minimal", case, 1000) for case in [*OPTIONS, "leadingInt32", "atoi"]]
)

FFMPEG = [Run("peers", "ffmpeg", nodes) for nodes in (100, 1000)]

# A measured value and its maximum. An absolute number of instructions can only be
# compared if the tools are those of the baseline.
Limit = collections.namedtuple("Limit", "what value maximum absolute", defaults=[False])


def name_of(run):
    return f"{run.program} {run.case} {run.nodes}"


def first_line(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.split("\n")[0]


def tools():
    """Everything that the counts depend on. The C library selects functions for the
    processor; under valgrind, only AVX2 makes a difference."""
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        avx2 = " avx2 " in file.read()
    return {"compiler": first_line("c++", "--version"), "libc": first_line("ldd", "--version"),
            "valgrind": first_line("valgrind", "--version"),
            "processor": platform.machine() + (" with AVX2" if avx2 else "")}


def limits(counts):
    def instructions(program, case, nodes):
        return counts[Run(program, case, nodes)].instructions

    def allocations(program, case, nodes):
        return counts[Run(program, case, nodes)].allocations

    for nodes in (100, 1000):
        json11 = instructions("host", "json11", nodes)
        for program, case, maximum in (("host", "text", 1.01), ("host", "file", 1.02),
                                       ("minimal", "live", 1.60), ("host", "live", 1.80)):
            yield Limit(f"{program} {case} {nodes}, relative to json11",
                        instructions(program, case, nodes) / json11, maximum)
    yield Limit("live at 10000 nodes, relative to 100",
                instructions("host", "live", 10000) / instructions("host", "live", 100), 105)
    yield Limit("a record below the filter", instructions("host", "log", 1000) / 1000, 25, True)
    yield Limit("leadingInt32, relative to atoi",
                instructions("minimal", "leadingInt32", 1000) / instructions("minimal", "atoi", 1000),
                1.5)
    yield Limit("allocations of initTaskNode without its two copies",
                allocations("minimal", "init", 10) - allocations("minimal", "copies", 10), 4)
    yield Limit("allocations of queries", allocations("minimal", "queries", 10), 0)
    yield Limit("allocations of options",
                sum(allocations("minimal", case, 1000) for case in OPTIONS), 0)
    for run in FFMPEG:
        if run in counts:
            yield Limit(f"host live {run.nodes}, relative to FFmpeg's graph",
                        instructions("host", "live", run.nodes) / counts[run].instructions, 0.95)


def command_limits(costs):
    """The limits of the qvgraph command; `costs` is one table of commands.measure."""
    for ratio in commands.RATIOS:
        yield Limit(commands.name_of(ratio), commands.ratio_of(costs, ratio), ratio.maximum)


def growths(counts, baseline):
    """Everything that has grown since the baseline: name, then and now."""
    for run, now in counts.items():
        then = baseline.get(name_of(run))
        if then is None:
            continue
        if now.instructions > then["instructions"] * GROWTH:
            yield f"instructions of {name_of(run)}", then["instructions"], now.instructions
        if now.allocations > then["allocations"]:
            yield f"allocations of {name_of(run)}", then["allocations"], now.allocations


def faults(counts, costs, baseline, same_tools):
    """Prints each value with its limit, and yields a line for each value that is
    above its limit or has grown."""
    for limit in [*limits(counts), *command_limits(costs)]:
        if limit.absolute and not same_tools:
            continue
        above = limit.value > limit.maximum
        print(f"{limit.what:52} {limit.value:8.3f}  limit {limit.maximum:<6g} "
              f"{'EXCEEDED' if above else 'ok'}")
        if above:
            yield f"{limit.what}: {limit.value:.3f} is above the limit, {limit.maximum:g}"
    if same_tools:
        for what, then, now in growths(counts, baseline):
            yield f"{what} have grown from {then} to {now}"


def write_baseline(path, counts):
    table = {name_of(run): now._asdict() for run, now in counts.items() if run not in FFMPEG}
    with open(path, "w", encoding="utf-8") as file:
        json.dump({"tools": tools(), "counts": table}, file, indent=2)
        file.write("\n")
    print(f"{path} is updated")


def main(folder, qvgraph, path, renew):
    peers = FFMPEG if "ffmpeg" in cases(folder, "peers") else []
    counts = count_all(folder, RUNS + peers)
    with tempfile.TemporaryDirectory() as work:
        costs = commands.measure(folder, qvgraph, work, [commands.PIPE_SIZE])[commands.PIPE_SIZE]
    if renew:
        write_baseline(path, counts)
    with open(path, encoding="utf-8") as file:
        baseline = json.load(file)
    same_tools = baseline["tools"] == tools()
    found = list(faults(counts, costs, baseline["counts"], same_tools))
    if not same_tools:
        print(f"The tools differ from those of {path}: only ratios and allocations are checked")
    if not peers:
        print("FFmpeg's libavfilter is not installed: not compared (scripts/bootstrap bench)")
    for fault in found:
        print(f"FAILED: {fault}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3], "--renew" in sys.argv[4:]))
