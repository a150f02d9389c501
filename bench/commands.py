"""The cost of the qvgraph command, compared with `jq . FILE` on the same document."""

import collections
import os
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor

from callgrind import count_command

# Instructions, and peak memory (maximum resident set size) in KiB.
Cost = collections.namedtuple("Cost", "instructions peak_memory")

# Two of these costs: what is divided by what, and the maximum of the quotient.
Ratio = collections.namedtuple("Ratio", "program quantity maximum")

NODES = 10000
PIPE_SIZE = 10  # the limits apply to pipes of this size

RATIOS = (
    Ratio("check", "instructions", 1.0),
    Ratio("check", "peak_memory", 2.2),
    Ratio("inspect", "instructions", 0.8),
)

# The peak of one run varies by some pages; the minimum of several does not.
MEMORY_RUNS = 5


def programs(qvgraph):
    """The commands that are compared, by the names that the ratios use."""
    return {"jq": ["jq", "."], "check": [qvgraph, "check"], "inspect": [qvgraph, "inspect"]}


def write_document(folder, work, nodes, pipe_size):
    """Writes a typical configuration into the folder `work` and returns its path."""
    path = os.path.join(work, f"document-{nodes}-{pipe_size}.json")
    with open(path, "w", encoding="utf-8") as file:
        subprocess.run([os.path.join(folder, "write_document"), str(nodes), str(pipe_size)],
                       check=True, stdout=file)
    return path


def peak_memory(*command):
    """The maximum resident set size of a program, in KiB. GNU time starts the
    program: a child of this interpreter would inherit the interpreter's peak."""
    with tempfile.NamedTemporaryFile("r") as report:
        peaks = []
        for _ in range(MEMORY_RUNS):
            subprocess.run(["time", "-f", "%M", "-o", report.name, *command],
                           check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            report.seek(0)
            peaks.append(int(report.read()))
        return min(peaks)


def measure(folder, qvgraph, work, pipe_sizes):
    """The costs for 10,000 nodes in pipes of each size: a table of size to
    table of program to Cost."""
    documents = {size: write_document(folder, work, NODES, size) for size in pipe_sizes}
    table = {size: programs(qvgraph) for size in pipe_sizes}
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = {(size, name): pool.submit(count_command, *command, documents[size])
                  for size, commands in table.items() for name, command in commands.items()}
        peaks = {(size, name): pool.submit(peak_memory, *command, documents[size])
                 for size, commands in table.items() for name, command in commands.items()}
        return {size: {name: Cost(counts[size, name].result().instructions,
                                  peaks[size, name].result()) for name in commands}
                for size, commands in table.items()}


def ratio_of(costs, ratio):
    """A quantity of a program, divided by that of jq."""
    return (getattr(costs[ratio.program], ratio.quantity)
            / getattr(costs["jq"], ratio.quantity))


def name_of(ratio):
    return f"{ratio.quantity.replace('_', ' ')} of {ratio.program}, relative to jq"
