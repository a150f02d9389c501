// Pipes that no index maps to, and sections that are not objects.
#include <string>

#include "tests/check/check_test.h"

namespace {

using PipeRulesTest = CheckTest;

// ---- pipe-not-addressable ---------------------------------------------------

TEST_F(PipeRulesTest, IndexMapsOnlyToItsPlainDecimalForm) {
    AssertFinds(
        R"({"pipe_00": {}})",
        R"(1:2-1:11 error pipe-not-addressable /pipe_00: 'pipe_00' is treated as a pipe, but no index maps to it: the device ignores it
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
                      "' is treated as a pipe, but no index maps to it: the device ignores it\n"
                      "  hint: rename it to 'pipe_0'\n");
    }
}

TEST_F(PipeRulesTest, NegativeIndexIsNotAddressable) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_-1": {}})",
        R"(1:16-1:25 error pipe-not-addressable /pipe_-1: 'pipe_-1' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, MemberWithKeysOfAPipeIsIntendedAsAPipe) {
    AssertFinds(
        R"({"pipe_0": {}, "camera": {"default_mode_link": "sync"}})",
        R"(1:16-1:24 error pipe-not-addressable /camera: 'camera' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, HintDoesNotProposeAnIndexInUse) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_00": {}, "pipe_000": {}})",
        R"(1:16-1:25 error pipe-not-addressable /pipe_00: 'pipe_00' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_1'
1:31-1:41 error pipe-not-addressable /pipe_000: 'pipe_000' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_2'
)");
}

TEST_F(PipeRulesTest, HintDoesNotProposeAnIndexAfterAGap) {
    AssertFinds(
        R"({"pipe_0": {}, "Pipe_7": {}})",
        R"(1:16-1:24 error pipe-not-addressable /Pipe_7: 'Pipe_7' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, MemberOfAnInnerObjectHasItsLocationAsAHint) {
    AssertFinds(
        R"({"pipe_0": {}, "link_0": {"mode": "sync"}})",
        R"(1:16-1:24 error pipe-not-addressable /link_0: 'link_0' is treated as a pipe, but no index maps to it: the device ignores it
  hint: move it into a pipe
)");
    AssertFinds(
        R"({"pipe_0": {}, "node_0": {"node_opts": {"node_name": "Camera"}}})",
        R"(1:16-1:24 error pipe-not-addressable /node_0: 'node_0' is treated as a pipe, but no index maps to it: the device ignores it
  hint: move it into a pipe
)");
    AssertFinds(
        R"({"pipe_0": {}, "exec_thread_num": 4})",
        R"(1:16-1:33 error pipe-not-addressable /exec_thread_num: 'exec_thread_num' is treated as a pipe, but no index maps to it: the device ignores it
  hint: move it into "thread_opts"
)");
}

TEST_F(PipeRulesTest, AnyOtherMemberOfTheRootIsToBeRemoved) {
    AssertFinds(
        R"({"version": 3, "pipe_0": {}})",
        R"(1:2-1:11 error pipe-not-addressable /version: 'version' is treated as a pipe, but no index maps to it: the device ignores it
  hint: remove it; the root contains only pipes
)");
}

TEST_F(PipeRulesTest, NothingInAnUnaddressableMemberIsReported) {
    EXPECT_EQ(CodesIn(R"({"Pipe_0": {"node_x": 3, "threads": 4}})"), "pipe-not-addressable");
    EXPECT_EQ(CodesIn(R"({"Pipe_0": null})"), "pipe-not-addressable");
}

// ---- pipe-gap ---------------------------------------------------------------

TEST_F(PipeRulesTest, PipesAreNumberedWithoutGaps) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_2": {}})",
        R"(1:16-1:24 error pipe-gap /pipe_2: index 1 has no pipe: the device queries indexes 0 to 1, and never reads 'pipe_2'
  hint: rename 'pipe_2' to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, PipesAreNumberedFromZero) {
    AssertFinds(
        R"({"pipe_1": {}})",
        R"(1:2-1:10 error pipe-gap /pipe_1: index 0 has no pipe: the device queries only index 0, and never reads 'pipe_1'
  hint: rename 'pipe_1' to 'pipe_0'
)");
}

TEST_F(PipeRulesTest, ConsecutiveMissingIndexesAreOneGap) {
    AssertFinds(
        R"({"pipe_0": {}, "pipe_5": {}, "pipe_2147483647": {}})",
        R"(1:16-1:24 error pipe-gap /pipe_5: indexes 1 to 4 have no pipe: the device queries indexes 0 to 2, and never reads 'pipe_5' and 'pipe_2147483647'
  hint: rename 'pipe_5' to 'pipe_1', and renumber the pipes after it
)");
}

TEST_F(PipeRulesTest, EveryGapBelowTheNumberOfPipesIsReported) {
    AssertFinds(
        R"({
  "pipe_1": {},
  "pipe_3": {},
  "pipe_4": {}
})",
        R"(2:3-2:11 error pipe-gap /pipe_1: index 0 has no pipe: the device queries indexes 0 to 2, and never reads 'pipe_3' and 'pipe_4'
  hint: rename 'pipe_1' to 'pipe_0', and renumber the pipes after it
3:3-3:11 error pipe-gap /pipe_3: index 2 has no pipe: the device queries indexes 0 to 2, and never reads 'pipe_3' and 'pipe_4'
  hint: rename 'pipe_3' to 'pipe_1', and renumber the pipes after it
)");
}

TEST_F(PipeRulesTest, OtherMembersOfTheRootAreTreatedAsPipes) {
    AssertFinds(
        R"({
  "pipe_0": {},
  "pipe_2": {},
  "version": 3
})",
        R"(3:3-3:11 error pipe-gap /pipe_2: index 1 has no pipe: the device finds no nodes there
  hint: rename 'pipe_2' to 'pipe_1'
4:3-4:12 error pipe-not-addressable /version: 'version' is treated as a pipe, but no index maps to it: the device ignores it
  hint: remove it; the root contains only pipes
)");
}

TEST_F(PipeRulesTest, GapThatAMistypedPipeWouldFillIsNotReported) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {}, "pipe_01": {}, "pipe_2": {}})"), "pipe-not-addressable");
    EXPECT_EQ(CodesIn(R"({"Pipe_0": {}, "pipe_1": {}})"), "pipe-not-addressable");
}

TEST_F(PipeRulesTest, GapBeforeAMistypedPipeIsNotReported) {
    AssertFinds(
        R"({"Pipe_1": {}, "pipe_5": {}})",
        R"(1:2-1:10 error pipe-not-addressable /Pipe_1: 'Pipe_1' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_1'
)");
}

TEST_F(PipeRulesTest, OrderInTheTextDoesNotMatter) {
    AssertFinds(R"({"pipe_2": {}, "pipe_0": {}, "pipe_1": {}})", "");
    AssertFinds(
        R"({"pipe_10": {}, "pipe_9": {}, "pipe_8": {}, "pipe_7": {}, "pipe_6": {}, "pipe_5": {},
                    "pipe_4": {}, "pipe_3": {}, "pipe_2": {}, "pipe_1": {}, "pipe_0": {}})",
        "");
}

// ---- section-not-object -----------------------------------------------------

TEST_F(PipeRulesTest, PipeMustBeAnObject) {
    AssertFinds(
        R"({"pipe_0": ["node_0"]})",
        R"(1:12-1:22 error section-not-object /pipe_0: 'pipe_0' is an array, not an object: the device reads it as an empty pipe
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, NodeMustBeAnObject) {
    AssertPipe(
        R"("node_0": null)",
        R"(2:11-2:15 error section-not-object /pipe_0/node_0: 'node_0' is null, not an object: no node is created
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, OptionsOfANodeMustBeAnObject) {
    AssertNodes(
        "a:f, b:f > Display",
        R"(5:16-5:24 error section-not-object /pipe_0/node_1/node_opts: "node_opts" is a string, not an object: the node has no name, and no node is created
  hint: write an object, {...}
)",
        R"("node_1": {
  "node_opts": "Camera",
  "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                  "stream_output_1": "b", "stream_fmt_out_1": "f"}
})");
}

TEST_F(PipeRulesTest, StreamsOfANodeMustBeAnObject) {
    AssertPipe(
        R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": [{"stream_output": "a", "stream_fmt_out": "f"}]
})",
        R"(4:18-4:65 error section-not-object /pipe_0/node_0/stream_opts: "stream_opts" is an array, not an object: the node has no streams
  hint: write an object, {...}
)");
}

TEST_F(PipeRulesTest, EverySectionIsReported) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"node_0": {"node_opts": 1, "stream_opts": 2}}})"),
              "section-not-object section-not-object");
}

}  // namespace
