"""Compares counts with a baseline and with their limits: see scripts/bench-gate."""

import collections
import json
import platform
import subprocess
import sys

from callgrind import Run, cases, count_all

GROWTH = 1.01  # what instructions may grow by; allocations may not grow

OPTIONS = ["option plain", "option int32", "option int64", "option float", "option double"]

RUNS = (
    [Run("desk", case, nodes) for case in ("json11", "text", "file", "live") for nodes in (100, 1000)]
    + [Run("barest", "live", nodes) for nodes in (100, 1000)]
    + [Run("desk", "live", 10000), Run("desk", "log", 1000)]
    + [Run("barest", case, 10) for case in ("init", "copies", "queries")]
    + [Run("barest", case, 1000) for case in [*OPTIONS, "leadingInt32", "atoi"]]
)

FFMPEG = [Run("peers", "ffmpeg", nodes) for nodes in (100, 1000)]

# What is measured, what it is, what it may be; an absolute number of instructions
# means something with the baseline's tools alone.
Limit = collections.namedtuple("Limit", "what value most absolute", defaults=[False])


def name_of(run):
    return f"{run.program} {run.case} {run.nodes}"


def first_line(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.split("\n")[0]


def tools():
    """What the counts depend on. The C library has functions for processors with
    AVX2; of what came later valgrind knows nothing."""
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
        json11 = instructions("desk", "json11", nodes)
        for program, case, most in (("desk", "text", 1.01), ("desk", "file", 1.02),
                                    ("barest", "live", 1.60), ("desk", "live", 1.80)):
            yield Limit(f"{program} {case} {nodes} to json11",
                        instructions(program, case, nodes) / json11, most)
    yield Limit("live at 10000 nodes to 100",
                instructions("desk", "live", 10000) / instructions("desk", "live", 100), 105)
    yield Limit("a record below the filter", instructions("desk", "log", 1000) / 1000, 25, True)
    yield Limit("an int32 option's number to atoi",
                instructions("barest", "leadingInt32", 1000) / instructions("barest", "atoi", 1000),
                1.5)
    yield Limit("allocations of initTaskNode besides its two copies",
                allocations("barest", "init", 10) - allocations("barest", "copies", 10), 4)
    yield Limit("allocations of queries", allocations("barest", "queries", 10), 0)
    yield Limit("allocations of options",
                sum(allocations("barest", case, 1000) for case in OPTIONS), 0)
    for run in FFMPEG:
        if run in counts:
            yield Limit(f"desk live {run.nodes} to FFmpeg's graph",
                        instructions("desk", "live", run.nodes) / counts[run].instructions, 0.95)


def growths(counts, baseline):
    """What has grown since the baseline: name, then and now."""
    for run, now in counts.items():
        then = baseline.get(name_of(run))
        if then is None:
            continue
        if now.instructions > then["instructions"] * GROWTH:
            yield f"instructions of {name_of(run)}", then["instructions"], now.instructions
        if now.allocations > then["allocations"]:
            yield f"allocations of {name_of(run)}", then["allocations"], now.allocations


def faults(counts, baseline, same_tools):
    """What is above its limit or has grown, each in a line; prints what is asked."""
    for limit in limits(counts):
        if limit.absolute and not same_tools:
            continue
        above = limit.value > limit.most
        print(f"{limit.what:52} {limit.value:8.3f}  at most {limit.most:<6g} "
              f"{'TOO MUCH' if above else 'ok'}")
        if above:
            yield f"{limit.what} is above its limit"
    if same_tools:
        for what, then, now in growths(counts, baseline):
            yield f"{what} have grown from {then} to {now}"


def write_baseline(path, counts):
    table = {name_of(run): now._asdict() for run, now in counts.items() if run not in FFMPEG}
    with open(path, "w", encoding="utf-8") as file:
        json.dump({"tools": tools(), "counts": table}, file, indent=2)
        file.write("\n")
    print(f"{path} is renewed")


def main(folder, path, renew):
    peers = FFMPEG if "ffmpeg" in cases(folder, "peers") else []
    counts = count_all(folder, RUNS + peers)
    if renew:
        write_baseline(path, counts)
    with open(path, encoding="utf-8") as file:
        baseline = json.load(file)
    same_tools = baseline["tools"] == tools()
    found = list(faults(counts, baseline["counts"], same_tools))
    if not same_tools:
        print(f"The tools are not those of {path}: only ratios and allocations are limited.")
    if not peers:
        print("FFmpeg's libavfilter is not installed: not compared (scripts/bootstrap bench)")
    for fault in found:
        print(f"FAILED: {fault}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], "--renew" in sys.argv[3:]))
