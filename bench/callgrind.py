"""Runs programs under callgrind and reads the counts that it writes."""

import collections
import os
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor

# One case of the program count_PROGRAM, for a number of nodes in pipes of
# `pipe_size` nodes each.
Run = collections.namedtuple("Run", "program case nodes pipe_size", defaults=[10])

# Instructions, and calls of malloc and the other allocation functions.
Count = collections.namedtuple("Count", "instructions allocations")

ALLOCATORS = {"malloc", "calloc", "realloc", "posix_memalign", "aligned_alloc"}


def read(path):
    """The totals of a file that callgrind wrote."""
    names = {}
    callee = None
    instructions = allocations = 0
    with open(path, encoding="utf-8", errors="replace") as lines:
        for line in lines:
            function = re.match(r"c?fn=\((\d+)\)(?: (.*))?", line)
            if function:
                if function.group(2):
                    names[function.group(1)] = function.group(2).split("'")[0]
                callee = names[function.group(1)] if line.startswith("c") else None
            elif line.startswith("calls=") and callee in ALLOCATORS:
                allocations += int(line[6:].split()[0])
            elif line.startswith("totals:"):
                instructions = int(line.split()[1])
    return Count(instructions, allocations)


def count(folder, run):
    """Counts one run of a case, without the set-up of the case."""
    with tempfile.TemporaryDirectory() as temporary:
        out = os.path.join(temporary, "out")
        subprocess.run(
            ["valgrind", "--tool=callgrind", "--instr-atstart=no", f"--callgrind-out-file={out}",
             os.path.join(folder, "count_" + run.program), run.case, str(run.nodes),
             str(run.pipe_size)],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return read(out)


def count_command(*command):
    """Counts a program from its start to its end. Raises CalledProcessError
    unless the program exits with 0."""
    with tempfile.TemporaryDirectory() as temporary:
        out = os.path.join(temporary, "out")
        subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", *command],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return read(out)


def count_all(folder, runs):
    """Counts the runs, as many at a time as there are processors."""
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        return dict(zip(runs, pool.map(lambda run: count(folder, run), runs)))


def cases(folder, program):
    """The names of a program's cases."""
    listing = subprocess.run([os.path.join(folder, "count_" + program)], check=False,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return listing.stdout.splitlines()
