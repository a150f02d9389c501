"""Compares counts with a baseline and with their limits: see scripts/bench-gate."""

import json
import subprocess
import sys

from callgrind import Run, cases, count_all

GROWTH = 1.01  # what instructions may grow by; allocations may not grow

JSON11 = {nodes: Run("desk", "json11", nodes) for nodes in (100, 1000)}

OPTIONS = ["option plain", "option int32", "option int64", "option float", "option double"]

RUNS = (
    [Run("desk", case, nodes) for case in ("json11", "text", "file", "live") for nodes in (100, 1000)]
    + [Run("barest", "live", nodes) for nodes in (100, 1000)]
    + [Run("desk", "live", 10000), Run("desk", "log", 1000)]
    + [Run("barest", case, 10) for case in ("init", "copies", "queries")]
    + [Run("barest", case, 1000) for case in [*OPTIONS, "leadingInt32", "atoi"]]
)

FFMPEG = Run("peers", "ffmpeg", 1000)


def name_of(run):
    return f"{run.program} {run.case} {run.nodes}"


def first_line(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.split("\n")[0]


def toolchain():
    return {"compiler": first_line("c++", "--version"), "libc": first_line("ldd", "--version"),
            "valgrind": first_line("valgrind", "--version")}


def limits(counts):
    """What is measured, what it is, and what it may be."""
    def instructions(program, case, nodes):
        return counts[Run(program, case, nodes)].instructions

    def allocations(program, case, nodes):
        return counts[Run(program, case, nodes)].allocations

    for nodes in (100, 1000):
        json11 = instructions("desk", "json11", nodes)
        for program, case, limit in (("desk", "text", 1.01), ("desk", "file", 1.02),
                                     ("barest", "live", 1.60), ("desk", "live", 2.06)):
            yield (f"{program} {case} {nodes} to json11", instructions(program, case, nodes) / json11,
                   limit)
    yield ("live at 10000 nodes to 100",
           instructions("desk", "live", 10000) / instructions("desk", "live", 100), 105)
    yield "a record below the filter", instructions("desk", "log", 1000) / 1000, 25
    yield ("an int32 option's number to atoi",
           instructions("barest", "leadingInt32", 1000) / instructions("barest", "atoi", 1000), 1.5)
    yield ("allocations of initTaskNode besides its two copies",
           allocations("barest", "init", 10) - allocations("barest", "copies", 10), 4)
    yield "allocations of queries", allocations("barest", "queries", 10), 0
    yield ("allocations of options",
           sum(allocations("barest", case, 1000) for case in OPTIONS), 0)
    if FFMPEG in counts:
        yield ("desk live 1000 to FFmpeg's graph",
               instructions("desk", "live", 1000) / counts[FFMPEG].instructions, 0.95)


def growths(counts, baseline):
    """What has grown since the baseline: name, then and now."""
    same = baseline["toolchain"] == toolchain()
    if not same:
        print("The tools are not the baseline's: only ratios to json11 are compared.")
    json11 = counts[JSON11[1000]].instructions
    old_json11 = baseline["counts"][name_of(JSON11[1000])]["instructions"]
    for run, now in counts.items():
        then = baseline["counts"].get(name_of(run))
        if then is None:
            continue
        scale = 1 if same else json11 / old_json11
        if now.instructions > then["instructions"] * scale * GROWTH:
            yield f"instructions of {name_of(run)}", round(then["instructions"] * scale), now.instructions
        if same and now.allocations > then["allocations"]:
            yield f"allocations of {name_of(run)}", then["allocations"], now.allocations


def main(folder, path, renew):
    runs = RUNS + ([FFMPEG] if "ffmpeg" in cases(folder, "peers") else [])
    counts = count_all(folder, runs)
    failed = False
    for what, value, limit in limits(counts):
        verdict = "ok" if value <= limit else "TOO MUCH"
        failed = failed or value > limit
        print(f"{what:52} {value:8.3f}  at most {limit:<6g} {verdict}")
    if renew:
        table = {name_of(run): now._asdict() for run, now in counts.items() if run != FFMPEG}
        with open(path, "w", encoding="utf-8") as file:
            json.dump({"toolchain": toolchain(), "counts": table}, file, indent=2)
            file.write("\n")
        print(f"{path} is renewed")
    else:
        with open(path, encoding="utf-8") as file:
            baseline = json.load(file)
        for what, then, now in growths(counts, baseline):
            failed = True
            print(f"{what} have grown from {then} to {now}")
    if FFMPEG not in counts:
        print("FFmpeg's libavfilter is not installed: not compared (scripts/bootstrap bench)")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], "--renew" in sys.argv[3:]))
