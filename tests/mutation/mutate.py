"""Changes the sources in small ways, one at a time, and tells which changes the
tests do not notice.

Works on a copy of the project in build/mutate. What has been tried is kept in
build/mutate/results.tsv, so that a run that was stopped goes on where it was;
a line that has changed since is tried anew.
"""
import argparse
import collections
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build/mutate"
COPY = WORK / "project"
BUILD = WORK / "build"
RESULTS = WORK / "results.tsv"

# The tests of each room, in the order in which they are run: the quick and
# close ones first. Those that are not there are left out.
TESTS = {
    "graph": ["graph_tests", "allocation_tests", "changing_files_tests", "exhaustion_tests",
              "differential_tests"],
    "host": ["host_tests", "host_allocation_tests", "harmless_tests", "exhaustion_tests"],
    "source": ["source_tests"],
    "check": ["check_tests", "schema_tests", "cli_tests"],
}
FILTERS = {"cli_tests": "ExplainTest.*"}  # compare the texts of all rules
SCENARIOS = "300"  # of random configurations
SECONDS = 120  # for one program; an endless loop counts as noticed

Mutant = collections.namedtuple("Mutant", "file number column kind before after")

SWAPS = [
    ("relation", r" (==) ", "!="), ("relation", r" (!=) ", "=="),
    ("relation", r" (<) ", "<="), ("relation", r" (<=) ", "<"),
    ("relation", r" (>) ", ">="), ("relation", r" (>=) ", ">"),
    ("logic", r" (&&) ", "||"), ("logic", r" (\|\|) ", "&&"),
    ("off by one", r" (\+ 1)\b", "+ 0"), ("off by one", r" (- 1)\b", "- 0"),
    ("arithmetic", r"\w (\+) \w", "-"), ("arithmetic", r"\w (-) \w", "+"),
    ("step", r"(\+\+)", "--"), ("step", r"(--)", "++"),
    ("constant", r"\b(true)\b", "false"), ("constant", r"\b(false)\b", "true"),
]


def code_of(line):
    """The line with its comment and the insides of its texts blanked out, so
    that columns stay."""
    blank = re.sub(r'"(?:[^"\\]|\\.)*"', lambda m: '"' + " " * (len(m[0]) - 2) + '"', line)
    blank = re.sub(r"'(?:[^'\\]|\\.)'", lambda m: "'" + " " * (len(m[0]) - 2) + "'", blank)
    return re.sub(r"//.*", lambda m: " " * len(m[0]), blank)


def changes_of(line):
    """Each small change of one line, as (column, kind, changed line)."""
    code = code_of(line)
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "namespace", "using")):
        return
    for kind, pattern, replacement in SWAPS:
        for match in re.finditer(pattern, code):
            start, end = match.span(1)
            yield start, kind, line[:start] + replacement + line[end:]
    for match in re.finditer(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+)(?![\w.])", code):
        number = int(match[0], 0) + 1
        yield match.start(), "constant", line[:match.start()] + str(number) + line[match.end():]
    for match in re.finditer(r'"( +)"', code):
        yield match.start(), "text", line[:match.end() - 1] + "!" + line[match.end() - 1:]
    for match in re.finditer(r"\b(if|while) \((.*)\) \{$", code.rstrip()):
        start, end = match.span(2)
        yield start, "negation", line[:start] + "!(" + line[start:end] + ")" + line[end:]
    statement = code.strip()
    if re.fullmatch(r"[\w.*>\-\[\]():]+ ?(=|\+=|\(|\+\+|--).*;|(\+\+|--)[\w.]+;", statement) and \
            not re.match(r"(return|throw|const|using|typedef|virtual|static|case)\b", statement) and \
            statement.count("(") == statement.count(")"):
        indent = len(line) - len(line.lstrip())
        yield indent, "dropped", line[:indent] + ";"


def mutants_of(room):
    for path in sorted((ROOT / room).glob("*.cpp")) + sorted((ROOT / room).glob("*.h")):
        name = str(path.relative_to(ROOT))
        for number, line in enumerate(path.read_text().split("\n"), 1):
            for column, kind, changed in changes_of(line):
                if changed != line:
                    yield Mutant(name, number, column, kind, line, changed)


def key_of(mutant):
    return "\t".join([mutant.file, mutant.kind, mutant.before.strip(), mutant.after.strip()])


def read_results():
    if not RESULTS.exists():
        return {}
    lines = RESULTS.read_text().split("\n")
    return dict(line.rsplit("\t", 1) for line in lines if line)


def run(command, seconds=None):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          cwd=WORK, timeout=seconds, check=False,
                          env={**os.environ, "QVGRAPH_TEST_SCENARIOS": SCENARIOS})


def prepare(rooms):
    """Copies the project, and builds and runs the tests unchanged."""
    COPY.mkdir(parents=True, exist_ok=True)
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
        cwd=ROOT, stdout=subprocess.PIPE, check=True).stdout.decode().split("\0")
    for name in filter(None, listed):
        source, target = ROOT / name, COPY / name
        if source.is_file() and (not target.exists() or
                                 source.read_bytes() != target.read_bytes()):
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    configured = run(["cmake", "-S", str(COPY), "--preset", "debug", "-B", str(BUILD),
                      "-D", "CMAKE_CXX_FLAGS=-g0", "-D", "QVGRAPH_WERROR=OFF",
                      "-D", "QVGRAPH_WARNINGS=OFF"])
    if configured.returncode != 0:
        sys.exit(configured.stdout.decode())
    known = run(["ninja", "-C", str(BUILD), "-t", "targets", "all"]).stdout.decode()
    tests = {}
    for room in rooms:
        tests[room] = [test for test in TESTS[room] if re.search(rf"/{test}: ", known)]
        for test in tests[room]:
            outcome = outcome_of(test)
            if outcome != "survived":
                sys.exit(f"{test} does not pass as it is: {outcome}")
    return tests


def outcome_of(test):
    built = run(["ninja", "-C", str(BUILD), test])
    if built.returncode != 0:
        return "not built"
    program = next(path for path in (BUILD / "tests").rglob(test) if path.is_file())
    try:
        ran = run([str(program), "--gtest_fail_fast", "--gtest_brief=1",
                   "--gtest_filter=" + FILTERS.get(test, "*")], SECONDS)
    except subprocess.TimeoutExpired:
        return "noticed"
    return "survived" if ran.returncode == 0 else "noticed"


def try_mutant(mutant, tests):
    path = COPY / mutant.file
    original = path.read_text()
    lines = original.split("\n")
    lines[mutant.number - 1] = mutant.after
    path.write_text("\n".join(lines))
    try:
        for test in tests:
            outcome = outcome_of(test)
            if outcome != "survived":
                return outcome
        return "survived"
    finally:
        path.write_text(original)


def print_table(results, rooms):
    table = {room: collections.Counter() for room in rooms}
    for key, outcome in results.items():
        room = key.split("/", 1)[0]
        if room in table:
            table[room][outcome] += 1
    print(f"\n{'room':<8}{'tried':>8}{'noticed':>9}{'survived':>10}{'not built':>11}{'noticed of built':>18}")
    for room, counts in table.items():
        built = counts["noticed"] + counts["survived"]
        share = f"{100 * counts['noticed'] / built:.1f} %" if built else "-"
        print(f"{room:<8}{sum(counts.values()):>8}{counts['noticed']:>9}{counts['survived']:>10}"
              f"{counts['not built']:>11}{share:>18}")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--room", action="append", choices=TESTS, help="default: all that there are")
    parser.add_argument("--limit", type=int, help="try so many at most")
    parser.add_argument("--survivors", action="store_true",
                        help="try those again that were not noticed, after new tests")
    parser.add_argument("--fresh", action="store_true", help="forget what has been tried")
    arguments = parser.parse_args()
    rooms = arguments.room or [room for room in TESTS if any((ROOT / room).glob("*.cpp"))]

    WORK.mkdir(parents=True, exist_ok=True)
    if arguments.fresh:
        RESULTS.unlink(missing_ok=True)
    results = read_results()
    mutants = [mutant for room in rooms for mutant in mutants_of(room)]
    wanted = "survived" if arguments.survivors else None
    left = [mutant for mutant in mutants if results.get(key_of(mutant)) == wanted]
    # In an order that is the same each time, but spread over the rooms.
    random.Random(1).shuffle(left)
    left = left[:arguments.limit]
    print(f"{len(mutants)} mutants, {len(left)} to be tried now", flush=True)

    tests = prepare(rooms)
    with RESULTS.open("a") as file:
        for count, mutant in enumerate(left, 1):
            outcome = try_mutant(mutant, tests[mutant.file.split("/", 1)[0]])
            results[key_of(mutant)] = outcome
            file.write(key_of(mutant) + "\t" + outcome + "\n")
            file.flush()
            print(f"{count}/{len(left)} {outcome:<9} {mutant.file}:{mutant.number}: {mutant.kind}: "
                  f"{mutant.before.strip()}  ->  {mutant.after.strip()}", flush=True)
    current = {key_of(mutant) for mutant in mutants}
    print_table({key: outcome for key, outcome in results.items() if key in current}, rooms)


if __name__ == "__main__":
    main()
