"""The gate fails where it should: counts are made up here."""

import contextlib
import io
import unittest

import gate
from callgrind import Count, Run

JSON11 = 1000000


def good_counts():
    """Every count as it may just be."""
    counts = {run: Count(1000, 0) for run in gate.RUNS}
    for nodes in (100, 1000):
        size = JSON11 * nodes // 100
        for program, case, most in (("desk", "json11", 1), ("desk", "text", 1.01),
                                    ("desk", "file", 1.02), ("barest", "live", 1.60),
                                    ("desk", "live", 1.80)):
            counts[Run(program, case, nodes)] = Count(int(size * most), nodes)
    counts[Run("desk", "live", 10000)] = Count(int(JSON11 * 1.80 * 105), 10000)
    counts[Run("desk", "log", 1000)] = Count(25000, 0)
    counts[Run("barest", "leadingInt32", 1000)] = Count(1500, 0)
    counts[Run("barest", "copies", 10)] = Count(1000, 8)
    counts[Run("barest", "init", 10)] = Count(1000, 12)
    return counts


def baseline_of(counts):
    return {gate.name_of(run): count._asdict() for run, count in counts.items()}


class GateTest(unittest.TestCase):
    def assert_faults(self, changes, expected, same_tools=True):
        """What the gate says when some of the counts are not as they were."""
        before = good_counts()
        with contextlib.redirect_stdout(io.StringIO()):
            found = list(gate.faults({**before, **changes}, baseline_of(before), same_tools))
        self.assertEqual(found, expected)

    def test_counts_at_their_limits_pass(self):
        self.assert_faults({}, [])

    def test_one_per_cent_more_instructions_pass(self):
        self.assert_faults({Run("barest", "queries", 10): Count(1010, 0)}, [])

    def test_more_than_one_per_cent_fails(self):
        self.assert_faults({Run("barest", "queries", 10): Count(1011, 0)},
                           ["instructions of barest queries 10 have grown from 1000 to 1011"])

    def test_one_more_allocation_fails(self):
        self.assert_faults({Run("desk", "live", 100): Count(1800000, 101)},
                           ["allocations of desk live 100 have grown from 100 to 101"])

    def test_fewer_of_both_pass(self):
        self.assert_faults({Run("desk", "file", 100): Count(1000000, 99)}, [])

    def test_above_a_limit_fails_without_having_grown(self):
        self.assert_faults({Run("desk", "text", 100): Count(1010001, 100)},
                           ["desk text 100 to json11 is above its limit"])

    def test_a_slower_record_fails(self):
        self.assert_faults({Run("desk", "log", 1000): Count(25001, 0)},
                           ["a record below the filter is above its limit"])

    def test_with_other_tools_counts_are_not_compared(self):
        self.assert_faults({Run("barest", "queries", 10): Count(2000, 0),
                            Run("desk", "log", 1000): Count(40000, 0)}, [], same_tools=False)

    def test_with_other_tools_ratios_and_allocations_are_limited(self):
        self.assert_faults({Run("desk", "live", 100): Count(1800001, 100),
                            Run("barest", "option plain", 1000): Count(1000, 1)},
                           ["desk live 100 to json11 is above its limit",
                            "allocations of options is above its limit"], same_tools=False)

    def test_ffmpeg_is_compared_where_it_is(self):
        self.assert_faults({Run("peers", "ffmpeg", 1000): Count(18000000, 0)},
                           ["desk live 1000 to FFmpeg's graph is above its limit"])


if __name__ == "__main__":
    unittest.main()
