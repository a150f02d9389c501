"""Changes the sources in small ways, one at a time, and reports the changes that
the tests do not detect.

Works on a copy of the project in build/mutate. Results are kept in
build/mutate/results.tsv: a run that was stopped, or that reached its limit,
continues with the next call. A line that has changed since is tried again.
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
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build/mutate"
COPY = WORK / "project"
BUILD = WORK / "build"
RESULTS = WORK / "results.tsv"

# The modules, and the test programs outside of tests/MODULE that also cover each
# of them. Programs that do not exist are skipped.
MODULES = {
    "graph": ["exhaustion_tests", "differential_tests"],
    "host": ["harmless_tests", "exhaustion_tests"],
    "source": [],
    "survey": ["check_tests", "render_tests"],
    "model": ["check_tests", "render_tests"],
    "check": ["schema_tests", "cli_tests"],
    "compare": ["render_tests"],
    "trace": ["render_tests"],
    "render": [],
}
FILTERS = {"cli_tests": "ExplainTest.*"}  # compare the texts of all rules
SCENARIOS = "300"  # random configurations
SECONDS = 120  # for one program; an endless loop is detected

# The occurrence counts the same change of the same line in one file, from 0.
Mutant = collections.namedtuple("Mutant", "file number column kind before after occurrence")

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

# Comments, and literals of strings and characters.
TOKEN = re.compile(r'''//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:[^"\\\n]|\\.)*"'''
                   r"""|(?<!\w)'(?:[^'\\\n]|\\[^'\n]+|\\')'""", re.DOTALL)


# ---- Changes -----------------------------------------------------------------

def blanked(match):
    """Blanks in place of a comment, a raw string, or the inside of a literal."""
    token = match[0]
    if token[0] in "\"'":
        return token[0] + " " * (len(token) - 2) + token[-1]
    return re.sub(r"[^\n]", " ", token)


def changes_of(line, code):
    """Each small change of one line, as (column, kind, changed line). `code` is the
    line without comments and the insides of literals; columns are the same."""
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "namespace", "using")):
        return
    for kind, pattern, replacement in SWAPS:
        for match in re.finditer(pattern, code):
            start, end = match.span(1)
            yield start, kind, line[:start] + replacement + line[end:]
    for match in re.finditer(r"(?<![\w.])(0[xX][0-9a-fA-F]+|[1-9]\d*|0)(?![\w.])", code):
        number = int(match[0], 0) + 1
        yield match.start(), "constant", line[:match.start()] + str(number) + line[match.end():]
    for match in re.finditer(r'"( +)"', code):
        yield match.start(), "string", line[:match.end() - 1] + "!" + line[match.end() - 1:]
    for match in re.finditer(r"\b(if|while) \((.*)\) \{$", code.rstrip()):
        start, end = match.span(2)
        yield start, "negation", line[:start] + "!(" + line[start:end] + ")" + line[end:]
    statement = code.strip()
    if re.fullmatch(r"[\w.*>\-\[\]():]+ ?(=|\+=|\(|\+\+|--).*;|(\+\+|--)[\w.]+;", statement) and \
            not re.match(r"(return|throw|const|using|typedef|virtual|static|case)\b", statement) and \
            statement.count("(") == statement.count(")"):
        indent = len(line) - len(line.lstrip())
        yield indent, "dropped", line[:indent] + ";"


def mutants_in(name, text):
    """Each mutant of a source file with this text."""
    codes = TOKEN.sub(blanked, text).split("\n")
    seen = collections.Counter()
    for number, (line, code) in enumerate(zip(text.split("\n"), codes), 1):
        for column, kind, changed in changes_of(line, code):
            change = (kind, line.strip(), changed.strip())
            yield Mutant(name, number, column, kind, line, changed, seen[change])
            seen[change] += 1


def mutants_of(module):
    """Each mutant of the sources of a module, in folders of any depth."""
    folder = ROOT / module
    for path in sorted([*folder.rglob("*.cpp"), *folder.rglob("*.h")]):
        yield from mutants_in(str(path.relative_to(ROOT)), path.read_text())


# ---- Results -----------------------------------------------------------------

def key_of(mutant):
    """Identifies a mutant wherever its line moves within the file."""
    return "\t".join([mutant.file, mutant.kind, mutant.before.strip(), mutant.after.strip(),
                      str(mutant.occurrence)])


def module_of(name):
    return name.split("/", 1)[0]


def text_of(mutant):
    return (f"{mutant.file}:{mutant.number}: {mutant.kind}: "
            f"{mutant.before.strip()}  ->  {mutant.after.strip()}")


def read_results():
    if not RESULTS.exists():
        return {}
    lines = RESULTS.read_text().split("\n")
    return dict(line.rsplit("\t", 1) for line in lines if line)


def print_report(mutants, results, modules):
    """Prints the survivors among the present mutants, and a table of all outcomes."""
    table = {module: collections.Counter() for module in modules}
    survivors = []
    for mutant in mutants:
        outcome = results.get(key_of(mutant), "left")
        table[module_of(mutant.file)][outcome] += 1
        if outcome == "survived":
            survivors.append(mutant)
    if survivors:
        print("\nSurvivors:")
    for mutant in survivors:
        print(text_of(mutant))
    print(f"\n{'module':<8}{'detected':>10}{'survived':>10}{'not built':>11}{'left':>8}"
          f"{'detected of built':>19}")
    for module, counts in table.items():
        built = counts["detected"] + counts["survived"]
        share = f"{100 * counts['detected'] / built:.1f} %" if built else "-"
        print(f"{module:<8}{counts['detected']:>10}{counts['survived']:>10}"
              f"{counts['not built']:>11}{counts['left']:>8}{share:>19}")


# ---- Builds and runs ---------------------------------------------------------

def run(command, seconds=None):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          cwd=WORK, timeout=seconds, check=False,
                          env={**os.environ, "QVGRAPH_TEST_SCENARIOS": SCENARIOS})


def copy_project():
    """Brings the copy up to date, so that files without a change keep their times."""
    COPY.mkdir(parents=True, exist_ok=True)
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
        cwd=ROOT, stdout=subprocess.PIPE, check=True).stdout.decode().split("\0")
    names = {name for name in listed if name and (ROOT / name).is_file()}
    for name in names:
        source, target = ROOT / name, COPY / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for path in COPY.rglob("*"):
        if path.is_file() and str(path.relative_to(COPY)) not in names:
            path.unlink()


def programs_of(module, known):
    """The test programs of a module, in the order in which they run: its own ones
    first. `known` lists all targets of the build."""
    own = re.findall(rf"^tests/{module}/(\w+_tests): CXX_EXECUTABLE_LINKER", known, re.MULTILINE)
    own.sort(key=lambda name: (name != f"{module}_tests", name))
    return own + [name for name in MODULES[module] if re.search(rf"/{name}: ", known)]


def prepare(modules):
    """Copies the project, and builds and runs the tests of each module unchanged."""
    copy_project()
    launcher = ["-D", "CMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    configured = run(["cmake", "-S", str(COPY), "--preset", "debug", "-B", str(BUILD),
                      "-D", "CMAKE_CXX_FLAGS=-g0", "-D", "QVGRAPH_WERROR=OFF",
                      "-D", "QVGRAPH_WARNINGS=OFF", *launcher])
    if configured.returncode != 0:
        sys.exit(configured.stdout.decode())
    known = run(["ninja", "-C", str(BUILD), "-t", "targets", "all"]).stdout.decode()
    tests = {module: programs_of(module, known) for module in modules}
    for module, programs in tests.items():
        if not programs:
            sys.exit(f"no test program covers the module '{module}'")
    for program in dict.fromkeys(sum(tests.values(), [])):
        outcome = outcome_of(program)
        if outcome != "survived":
            sys.exit(f"{program} fails without any change: {outcome}")
    return tests


def outcome_of(test):
    """Builds and runs a test program on the present copy."""
    built = run(["ninja", "-C", str(BUILD), test])
    if built.returncode != 0:
        return "not built"
    program = next(path for path in (BUILD / "tests").rglob(test) if path.is_file())
    try:
        ran = run([str(program), "--gtest_fail_fast", "--gtest_brief=1",
                   "--gtest_filter=" + FILTERS.get(test, "*")], SECONDS)
    except subprocess.TimeoutExpired:
        return "detected"
    return "survived" if ran.returncode == 0 else "detected"


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


def try_all(mutants, tests, results, minutes):
    """Tries the mutants until the time is over, and records each outcome at once."""
    end = time.monotonic() + minutes * 60 if minutes is not None else float("inf")
    with RESULTS.open("a") as file:
        for count, mutant in enumerate(mutants, 1):
            if time.monotonic() >= end:
                print(f"the time limit is reached; {len(mutants) - count + 1} mutants are left")
                return
            outcome = try_mutant(mutant, tests[module_of(mutant.file)])
            results[key_of(mutant)] = outcome
            file.write(key_of(mutant) + "\t" + outcome + "\n")
            file.flush()
            print(f"{count}/{len(mutants)} {outcome:<9} {text_of(mutant)}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--module", action="append", choices=MODULES,
                        help="default: all modules; may be repeated")
    parser.add_argument("--limit", type=int, metavar="NUMBER", help="try at most NUMBER mutants")
    parser.add_argument("--minutes", type=float, metavar="NUMBER",
                        help="stop after NUMBER minutes, not counting the first build; the next "
                             "run continues")
    parser.add_argument("--survivors", action="store_true",
                        help="try the survivors again, for example after adding tests")
    parser.add_argument("--report", action="store_true",
                        help="only print the survivors and the table, and try nothing")
    parser.add_argument("--fresh", action="store_true", help="discard all earlier results first")
    arguments = parser.parse_args()
    modules = arguments.module or [name for name in MODULES if (ROOT / name).is_dir()]
    for module in modules:
        if not (ROOT / module).is_dir():
            parser.error(f"there is no module '{module}'")

    WORK.mkdir(parents=True, exist_ok=True)
    if arguments.fresh:
        RESULTS.unlink(missing_ok=True)
    results = read_results()
    mutants = [mutant for module in modules for mutant in mutants_of(module)]
    if not arguments.report:
        wanted = "survived" if arguments.survivors else None
        left = [mutant for mutant in mutants if results.get(key_of(mutant)) == wanted]
        # The same order in each run, but spread over the modules.
        random.Random(1).shuffle(left)
        left = left[:arguments.limit]
        print(f"{len(mutants)} mutants, {len(left)} to try now", flush=True)
        try_all(left, prepare(modules), results, arguments.minutes)
    print_report(mutants, results, modules)


if __name__ == "__main__":
    main()
