// Ids that do not map back to their keys, and the order of keys.
#include <string>

#include "tests/check/check_test.h"

namespace {

using IdRulesTest = CheckTest;

// ---- id-not-canonical -------------------------------------------------------

TEST_F(IdRulesTest, KeyWithoutANumberHasIdZero) {
    AssertPipe(
        R"("link_x": {})",
        R"(2:1-2:9 error id-not-canonical /pipe_0/link_x: 'link_x' has id 0, but there is no 'link_0': the device finds no options for it
  hint: rename it to 'link_0'
)");
}

TEST_F(IdRulesTest, IdMapsOnlyToItsPlainDecimalForm) {
    for (const std::string key : {"link_07", "link_+7", "link_ 7", "link_7x", "link_7.5"}) {
        std::string expected = "2:1-2:" + std::to_string(3 + key.size());
        expected += " error id-not-canonical /pipe_0/" + key;
        expected += ": '" + key;
        expected += R"(' has id 7, but there is no 'link_7': the device finds no options for it
  hint: rename it to 'link_7'
)";
        AssertPipe('"' + key + "\": {}", expected);
    }
}

TEST_F(IdRulesTest, EveryIdThatFitsIsAccepted) {
    AssertPipe(R"("link_-1": {}, "link_0": {}, "link_2147483647": {})", "");
    AssertPipe(R"("link_-2147483648": {})", "");
}

TEST_F(IdRulesTest, IdThatDoesNotFitSaturates) {
    AssertPipe(
        R"("link_2147483648": {})",
        R"(2:1-2:18 error id-not-canonical /pipe_0/link_2147483648: 'link_2147483648' has id 2147483647, but there is no 'link_2147483647': the device finds no options for it
  hint: rename it to 'link_0'
)");
}

TEST_F(IdRulesTest, NodeThatItsIdMapsToIsSetUpInstead) {
    AssertPipe(
        R"("node_1": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
},
"node_01": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
})",
        R"(6:1-6:10 error id-not-canonical /pipe_0/node_01: 'node_01' has id 1, which maps to 'node_1': the device sets up that node instead
  2:1-2:9 has the same id
  hint: rename it to 'node_0'
)");
}

TEST_F(IdRulesTest, NodeThatNoIdMapsToIsNotCreated) {
    AssertPipe(
        R"("node_x": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
})",
        R"(2:1-2:9 error id-not-canonical /pipe_0/node_x: 'node_x' has id 0, but there is no 'node_0': no node is created
  hint: rename it to 'node_0'
)");
}

TEST_F(IdRulesTest, ExecutorThatItsIdMapsToIsUsedInstead) {
    AssertPipe(
        R"("executor_+1": {"executor_opts": {}},
"executor_1": {"executor_opts": {}})",
        R"(2:1-2:14 error id-not-canonical /pipe_0/executor_+1: 'executor_+1' has id 1, which maps to 'executor_1': the device uses the options of that executor instead
  3:1-3:13 has the same id
  hint: rename it to 'executor_0'
)");
}

TEST_F(IdRulesTest, KeysWithTheSameIdAreRelated) {
    AssertPipe(
        R"("link_07": {},
"link_007": {},
"link_0007": {})",
        R"(2:1-2:10 error id-not-canonical /pipe_0/link_07: 'link_07' has id 7, but there is no 'link_7': the device finds no options for it
  4:1-4:12 has the same id
  hint: rename it to 'link_1'
3:1-3:11 error id-not-canonical /pipe_0/link_007: 'link_007' has id 7, but there is no 'link_7': the device finds no options for it
  4:1-4:12 has the same id
  hint: rename it to 'link_0'
4:1-4:12 error id-not-canonical /pipe_0/link_0007: 'link_0007' has id 7, but there is no 'link_7': the device finds no options for it
  3:1-3:11 has the same id
  hint: rename it to 'link_7'
)");
}

TEST_F(IdRulesTest, SectionWithThePrefixOfNodesIsNotANode) {
    AssertPipe(
        R"("node_opts": {"node_name": "Camera"},
"executor_opts": {"priority": 10})",
        R"(2:1-2:12 error id-not-canonical /pipe_0/node_opts: 'node_opts' has id 0, but there is no 'node_0': no node is created
  hint: move it into a node
3:1-3:16 error id-not-canonical /pipe_0/executor_opts: 'executor_opts' has id 0, but there is no 'executor_0': the device finds no options for it
  hint: move it into an executor
)");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"node_opts": 3}})"), "id-not-canonical");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"executor_opts": 3}})"), "id-not-canonical");
}

// ---- key-order --------------------------------------------------------------

TEST_F(IdRulesTest, TenSortsBeforeTwo) {
    AssertPipe(
        R"("link_1": {},
"link_2": {},
"link_10": {})",
        R"(4:1-4:10 note key-order /pipe_0/link_10: 'link_10' sorts before 'link_2': the device reads keys in byte order
  3:1-3:9 sorts later
  hint: if the order matters, number the keys from 'link_10'
)");
}

TEST_F(IdRulesTest, EveryFamilyOfAPipeIsChecked) {
    AssertPipe(
        R"("executor_100": {"executor_opts": {}},
"executor_20": {"executor_opts": {}},
"link_9": {},
"link_10": {})",
        R"(2:1-2:15 note key-order /pipe_0/executor_100: 'executor_100' sorts before 'executor_20': the device reads keys in byte order
  3:1-3:14 sorts later
  hint: if the order matters, number the keys from 'executor_100'
5:1-5:10 note key-order /pipe_0/link_10: 'link_10' sorts before 'link_9': the device reads keys in byte order
  4:1-4:9 sorts later
  hint: if the order matters, number the keys from 'link_10'
)");
}

TEST_F(IdRulesTest, FirstKeyInTheParsersOrderIsReported) {
    AssertPipe(
        R"("link_3": {}, "link_30": {}, "link_2": {}, "link_20": {}, "link_1": {}, "link_11": {})",
        R"(2:73-2:82 note key-order /pipe_0/link_11: 'link_11' sorts before 'link_2': the device reads keys in byte order
  2:30-2:38 sorts later
  hint: if the order matters, number the keys from 'link_10'
)");
}

TEST_F(IdRulesTest, StreamsOfANodeAreChecked) {
    AssertPipe(
        R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output_9": "a", "stream_fmt_out_9": "f",
                  "stream_output_10": "b", "stream_fmt_out_10": "f"}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input_2": "a", "stream_fmt_in_2": "f",
                  "stream_input_100": "b", "stream_fmt_in_100": "f"}
})",
        R"(5:19-5:37 note key-order /pipe_0/node_0/stream_opts/stream_output_10: 'stream_output_10' sorts before 'stream_output_9': the device reads keys in byte order
  4:19-4:36 sorts later
  hint: if the order matters, number the keys from 'stream_output_00', and their formats likewise
10:19-10:37 note key-order /pipe_0/node_1/stream_opts/stream_input_100: 'stream_input_100' sorts before 'stream_input_2': the device reads keys in byte order
  9:19-9:35 sorts later
  hint: if the order matters, number the keys from 'stream_input_000', and their formats likewise
)");
}

TEST_F(IdRulesTest, NegativeIdsSortByTheirDigits) {
    AssertPipe(
        R"("link_-1": {}, "link_-20": {}, "link_0": {})",
        R"(2:1-2:10 note key-order /pipe_0/link_-1: 'link_-1' sorts before 'link_-20': the device reads keys in byte order
  2:16-2:26 sorts later
  hint: if the order matters, number the keys from 'link_10'
)");
}

TEST_F(IdRulesTest, NumbersWithTheSameNumberOfDigitsKeepTheirOrder) {
    AssertPipe(R"("link_12": {}, "link_11": {}, "link_10": {})", "");
    AssertPipe(R"("link_0": {}, "link_1": {}, "link_2": {}, "link_9": {})", "");
    AssertPipe(R"("link_1": {}, "link_10": {}, "link_100": {})", "");
}

TEST_F(IdRulesTest, LeadingZerosKeepTheOrderOfStreams) {
    AssertPipe(R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output_02": "a", "stream_fmt_out_02": "f",
                  "stream_output_10": "b", "stream_fmt_out_10": "f"}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input_left": "a", "stream_fmt_in_left": "f",
                  "stream_input_right": "b", "stream_fmt_in_right": "f"}
})",
               "");
}

}  // namespace
