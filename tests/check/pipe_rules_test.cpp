// Pipes that no index leads to, and sections that are no objects.
#include <string>

#include "tests/check/check_test.h"

namespace {

using PipeRulesTest = CheckTest;

// ---- pipe-not-addressable ---------------------------------------------------

TEST_F(PipeRulesTest, APipeNeedsItsIndexInItsOneDecimalForm) {
    AssertFinds(
        R"({"pipe_00": {}})",
        R"(1:2-1:11 error pipe-not-addressable /pipe_00: 'pipe_00' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_0'
)");
    for (const char* key : {"pipe_",
                            "pipe_x",
                            "pipe_+0",
                            "pipe_ 0",
                            "pipe_0 ",
                            "pipe_0x",
                            "pipe_2147483648",
                            "Pipe_0",
                            "PIPE_0",
                            "pipe0",
                            "pipes",
                            "pip_0",
                            ""}) {
        const std::string text = "{\"" + std::string(key) + "\": {\"link_0\": {}}}";
        EXPECT_EQ(FindingsIn(text),
                  "1:2-1:" + std::to_string(4 + std::string(key).size()) +
                      " error pipe-not-addressable /" + key + ": '" + key +
                      "' counts as a pipe, but no index leads to it\n"
                      "  hint: rename it to 'pipe_0'\n");
    }
}

TEST_F(PipeRulesTest, NoIndexIsNegative) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_-1": {}})",
        R"(1:16-1:25 error pipe-not-addressable /pipe_-1: 'pipe_-1' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, AMemberThatHoldsNodesIsMeantAsAPipe) {
    AssertFinds(
        R"({"pipe_0": {}, "camera": {"default_mode_link": "sync"}})",
        R"(1:16-1:24 error pipe-not-addressable /camera: 'camera' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, AnIndexThatIsTakenIsNotProposed) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_00": {}, "pipe_000": {}})",
        R"(1:16-1:25 error pipe-not-addressable /pipe_00: 'pipe_00' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_1'
1:31-1:41 error pipe-not-addressable /pipe_000: 'pipe_000' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_2'
)");
}

TEST_F(PipeRulesTest, AnIndexThatWouldLeaveAGapIsNotProposed) {
    AssertFinds(
        R"({"pipe_0": {}, "Pipe_7": {}})",
        R"(1:16-1:24 error pipe-not-addressable /Pipe_7: 'Pipe_7' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, WhatBelongsIntoAPipeIsToldSo) {
    AssertFinds(
        R"({"pipe_0": {}, "link_0": {"mode": "sync"}})",
        R"(1:16-1:24 error pipe-not-addressable /link_0: 'link_0' counts as a pipe, but no index leads to it
  hint: move it into a pipe
)");
    AssertFinds(
        R"({"pipe_0": {}, "node_0": {"node_opts": {"node_name": "Camera"}}})",
        R"(1:16-1:24 error pipe-not-addressable /node_0: 'node_0' counts as a pipe, but no index leads to it
  hint: move it into a pipe
)");
    AssertFinds(
        R"({"pipe_0": {}, "exec_thread_num": 4})",
        R"(1:16-1:33 error pipe-not-addressable /exec_thread_num: 'exec_thread_num' counts as a pipe, but no index leads to it
  hint: move it into "thread_opts"
)");
}

TEST_F(PipeRulesTest, WhateverElseStandsAtTheRootHasToGo) {
    AssertFinds(
        R"({"version": 3, "pipe_0": {}})",
        R"(1:2-1:11 error pipe-not-addressable /version: 'version' counts as a pipe, but no index leads to it
  hint: remove it; the root holds nothing but pipes
)");
}

TEST_F(PipeRulesTest, NothingInSuchAMemberIsToldAsWell) {
    EXPECT_EQ(CodesIn(R"({"Pipe_0": {"node_x": 3, "threads": 4}})"), "pipe-not-addressable");
    EXPECT_EQ(CodesIn(R"({"Pipe_0": null})"), "pipe-not-addressable");
}

// ---- pipe-gap ---------------------------------------------------------------

TEST_F(PipeRulesTest, PipesAreNumberedWithoutGaps) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_2": {}})",
        R"(1:16-1:24 error pipe-gap /pipe_2: the index 1 has no pipe: a device asks for the indexes 0 to 1, and never for 'pipe_2'
  hint: rename 'pipe_2' to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, PipesAreNumberedFromZero) {
    AssertFinds(
        R"({"pipe_1": {}})",
        R"(1:2-1:10 error pipe-gap /pipe_1: the index 0 has no pipe: a device asks for the index 0 alone, and never for 'pipe_1'
  hint: rename 'pipe_1' to 'pipe_0'
)");
}

TEST_F(PipeRulesTest, ARunOfEmptyIndexesIsOneGap) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_5": {}, "pipe_2147483647": {}})",
        R"(1:16-1:24 error pipe-gap /pipe_5: the indexes 1 to 4 have no pipe: a device asks for the indexes 0 to 2, and never for 'pipe_5' and 'pipe_2147483647'
  hint: rename 'pipe_5' to 'pipe_1', and those behind it accordingly
)");
}

TEST_F(PipeRulesTest, EveryGapBelowTheNumberOfPipesIsTold) {
    AssertFinds(
        R"({
  "pipe_1": {},
  "pipe_3": {},
  "pipe_4": {}
})",
        R"(2:3-2:11 error pipe-gap /pipe_1: the index 0 has no pipe: a device asks for the indexes 0 to 2, and never for 'pipe_3' and 'pipe_4'
  hint: rename 'pipe_1' to 'pipe_0', and those behind it accordingly
3:3-3:11 error pipe-gap /pipe_3: the index 2 has no pipe: a device asks for the indexes 0 to 2, and never for 'pipe_3' and 'pipe_4'
  hint: rename 'pipe_3' to 'pipe_1', and those behind it accordingly
)");
}

TEST_F(PipeRulesTest, OtherMembersOfTheRootCountToo) {
    AssertFinds(
        R"({
  "pipe_0": {},
  "pipe_2": {},
  "version": 3
})",
        R"(3:3-3:11 error pipe-gap /pipe_2: the index 1 has no pipe: a device finds nothing there
  hint: rename 'pipe_2' to 'pipe_1'
4:3-4:12 error pipe-not-addressable /version: 'version' counts as a pipe, but no index leads to it
  hint: remove it; the root holds nothing but pipes
)");
}

TEST_F(PipeRulesTest, AGapThatAMistypedPipeWouldFillIsNotToldAsWell) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {}, "pipe_01": {}, "pipe_2": {}})"), "pipe-not-addressable");
    EXPECT_EQ(CodesIn(R"({"Pipe_0": {}, "pipe_1": {}})"), "pipe-not-addressable");
}

TEST_F(PipeRulesTest, AGapBeforeAMistypedPipeIsNotToldAsWell) {
    AssertFinds(
        R"({"Pipe_1": {}, "pipe_5": {}})",
        R"(1:2-1:10 error pipe-not-addressable /Pipe_1: 'Pipe_1' counts as a pipe, but no index leads to it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, TheOrderInTheTextIsNoMatter) {
    AssertFinds(R"({"pipe_2": {}, "pipe_0": {}, "pipe_1": {}})", "");
    AssertFinds(
        R"({"pipe_10": {}, "pipe_9": {}, "pipe_8": {}, "pipe_7": {}, "pipe_6": {}, "pipe_5": {},
                    "pipe_4": {}, "pipe_3": {}, "pipe_2": {}, "pipe_1": {}, "pipe_0": {}})",
        "");
}

// ---- section-not-object -----------------------------------------------------

TEST_F(PipeRulesTest, APipeIsAnObject) {
    AssertFinds(
        R"({"pipe_0": ["node_0"]})",
        R"(1:12-1:22 error section-not-object /pipe_0: 'pipe_0' is an array, not an object: it reads as an empty pipe
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, ANodeIsAnObject) {
    AssertPipe(
        R"("node_0": null)",
        R"(2:11-2:15 error section-not-object /pipe_0/node_0: 'node_0' is null, not an object: no node is made of it
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, TheOptionsOfANodeAreAnObject) {
    AssertPipe(
        R"("node_0": {
  "node_opts": "Camera",
  "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                  "stream_output_1": "b", "stream_fmt_out_1": "f"}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                  "stream_input_1": "b", "stream_fmt_in_1": "f"}
})",
        R"(3:16-3:24 error section-not-object /pipe_0/node_0/node_opts: "node_opts" is a string, not an object: the node has no name, and is not made
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, TheStreamsOfANodeAreAnObject) {
    AssertPipe(
        R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": [{"stream_output": "a", "stream_fmt_out": "f"}]
})",
        R"(4:18-4:65 error section-not-object /pipe_0/node_0/stream_opts: "stream_opts" is an array, not an object: the node has no streams
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, TwoSectionsAreTwoMistakes) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"node_0": {"node_opts": 1, "stream_opts": 2}}})"),
              "section-not-object section-not-object");
}

}  // namespace
