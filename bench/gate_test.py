"""Tests that the gate fails when it should, with invented counts."""

import contextlib
import io
import unittest

import gate
from callgrind import Count, Run
from commands import Cost

JSON11 = 1000000


def good_counts():
    """Every count at its limit."""
    counts = {run: Count(1000, 0) for run in gate.RUNS}
    for nodes in (100, 1000):
        size = JSON11 * nodes // 100
        for program, case, factor in (("host", "json11", 1), ("host", "text", 1.01),
                                      ("host", "file", 1.02), ("minimal", "live", 1.60),
                                      ("host", "live", 1.80)):
            counts[Run(program, case, nodes)] = Count(int(size * factor), nodes)
    counts[Run("host", "live", 10000)] = Count(int(JSON11 * 1.80 * 105), 10000)
    counts[Run("host", "log", 1000)] = Count(25000, 0)
    counts[Run("minimal", "leadingInt32", 1000)] = Count(1500, 0)
    counts[Run("minimal", "copies", 10)] = Count(1000, 8)
    counts[Run("minimal", "init", 10)] = Count(1000, 12)
    return counts


GOOD_COSTS = {"jq": Cost(1000000, 20000), "check": Cost(1000000, 44000),
              "inspect": Cost(800000, 90000)}


def baseline_of(counts):
    return {gate.name_of(run): count._asdict() for run, count in counts.items()}


class GateTest(unittest.TestCase):
    def assert_faults(self, changes, expected, same_tools=True):
        """Compares the faults that the gate reports after some counts or costs
        have changed: `changes` is keyed by run, or by the name of a command."""
        before = good_counts()
        counts = {**before, **{run: now for run, now in changes.items() if isinstance(run, Run)}}
        costs = {name: changes.get(name, cost) for name, cost in GOOD_COSTS.items()}
        with contextlib.redirect_stdout(io.StringIO()):
            found = list(gate.faults(counts, costs, baseline_of(before), same_tools))
        self.assertEqual(found, expected)

    def test_values_at_their_limits_pass(self):
        self.assert_faults({}, [])

    def test_one_per_cent_more_instructions_pass(self):
        self.assert_faults({Run("minimal", "queries", 10): Count(1010, 0)}, [])

    def test_more_than_one_per_cent_fails(self):
        self.assert_faults({Run("minimal", "queries", 10): Count(1011, 0)},
                           ["instructions of minimal queries 10 have grown from 1000 to 1011"])

    def test_one_more_allocation_fails(self):
        self.assert_faults({Run("host", "live", 100): Count(1800000, 101)},
                           ["allocations of host live 100 have grown from 100 to 101"])

    def test_fewer_of_both_pass(self):
        self.assert_faults({Run("host", "file", 100): Count(1000000, 99)}, [])

    def test_above_a_limit_fails_even_without_growth(self):
        self.assert_faults({Run("host", "text", 100): Count(1011000, 100)},
                           ["host text 100, relative to json11: 1.011 is above the limit, 1.01"])

    def test_a_slower_log_record_fails(self):
        self.assert_faults({Run("host", "log", 1000): Count(25001, 0)},
                           ["a record below the filter: 25.001 is above the limit, 25"])

    def test_with_other_tools_counts_are_not_compared(self):
        self.assert_faults({Run("minimal", "queries", 10): Count(2000, 0),
                            Run("host", "log", 1000): Count(40000, 0)}, [], same_tools=False)

    def test_with_other_tools_ratios_and_allocations_are_limited(self):
        self.assert_faults({Run("host", "live", 100): Count(1801000, 100),
                            Run("minimal", "option plain", 1000): Count(1000, 1)},
                           ["host live 100, relative to json11: 1.801 is above the limit, 1.8",
                            "allocations of options: 1.000 is above the limit, 0"],
                           same_tools=False)

    def test_ffmpeg_is_compared_if_it_was_counted(self):
        self.assert_faults({Run("peers", "ffmpeg", 1000): Count(18000000, 0)},
                           ["host live 1000, relative to FFmpeg's graph: 1.000 is above the limit, "
                            "0.95"])

    def test_more_instructions_of_check_than_of_jq_fail(self):
        self.assert_faults({"check": Cost(1001000, 44000)},
                           ["instructions of check, relative to jq: 1.001 is above the limit, 1"])

    def test_too_much_memory_of_check_fails(self):
        self.assert_faults({"check": Cost(1000000, 44020)},
                           ["peak memory of check, relative to jq: 2.201 is above the limit, 2.2"])

    def test_too_many_instructions_of_inspect_fail(self):
        self.assert_faults({"inspect": Cost(801000, 90000)},
                           ["instructions of inspect, relative to jq: 0.801 is above the limit, "
                            "0.8"])

    def test_memory_of_inspect_is_not_limited(self):
        self.assert_faults({"inspect": Cost(800000, 900000)}, [])

    def test_a_cheaper_jq_lowers_every_limit_of_the_command(self):
        self.assert_faults({"jq": Cost(500000, 10000)},
                           ["instructions of check, relative to jq: 2.000 is above the limit, 1",
                            "peak memory of check, relative to jq: 4.400 is above the limit, 2.2",
                            "instructions of inspect, relative to jq: 1.600 is above the limit, "
                            "0.8"])

    def test_with_other_tools_the_command_is_limited(self):
        self.assert_faults({"check": Cost(1001000, 44000)},
                           ["instructions of check, relative to jq: 1.001 is above the limit, 1"],
                           same_tools=False)


if __name__ == "__main__":
    unittest.main()
