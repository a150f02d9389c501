// Keys and sections that the device silently ignores.
#include <string>

#include "tests/check/check_test.h"

namespace {

class KeyRulesTest : public CheckTest {
protected:
    // Expects a pipe whose only member, in line 2, has this key to have this
    // finding.
    static void AssertUnknown(const std::string& key, const std::string& hint) {
        AssertPipe('"' + key + "\": {}",
                   "2:1-2:" + std::to_string(3 + key.size()) + " warning unknown-key /pipe_0/" +
                       key + ": '" + key +
                       "' is not a reserved key of a pipe: the device ignores it\n  hint: " + hint +
                       '\n');
    }

    // Expects these stream options, in line 5, of a node with two outputs to
    // have these findings.
    static void AssertStreamOptions(const std::string& options, const std::string& findings) {
        AssertNodes("a:f, b:f > Display",
                    findings,
                    R"("node_1": {"node_opts": {"node_name": "Camera"}, "stream_opts": {
)" + options + R"(,
           "stream_output_0": "a", "stream_fmt_out_0": "f",
           "stream_output_1": "b", "stream_fmt_out_1": "f"}})");
    }
};

// ---- unknown-key ------------------------------------------------------------

TEST_F(KeyRulesTest, KeyThatResemblesAReservedKeyIsReported) {
    AssertUnknown("default_mode_lnk", R"(rename it to "default_mode_link")");
    AssertUnknown("thread_opt", R"(rename it to "thread_opts")");
    AssertUnknown("thread_options", R"(rename it to "thread_opts")");
    AssertUnknown("Thread_Opts", R"(rename it to "thread_opts")");
    AssertUnknown("threadOpts", R"(rename it to "thread_opts")");
}

TEST_F(KeyRulesTest, ReservedKeyWithItsWordsReorderedIsReported) {
    AssertUnknown("default_link_mode", R"(rename it to "default_mode_link")");
    AssertUnknown("opts_thread", R"(rename it to "thread_opts")");
}

TEST_F(KeyRulesTest, HintKeepsTheIndexOfTheKey) {
    AssertUnknown("Node_0", "rename it to 'node_0'");
    AssertUnknown("node1", "rename it to 'node_1'");
    AssertUnknown("node-12", "rename it to 'node_12'");
    AssertUnknown("nodes_3", "rename it to 'node_3'");
    AssertUnknown("excutor_2", "rename it to 'executor_2'");
    AssertUnknown("LINK_7", "rename it to 'link_7'");
    AssertUnknown("lnik_7", "rename it to 'link_7'");
}

TEST_F(KeyRulesTest, HintProposesTheFirstFreeIndex) {
    AssertUnknown("node", "rename it to 'node_0'");
    AssertPipe(
        R"("link_0": {}, "link_1": {}, "links": {}, "Link_1": {})",
        R"(2:29-2:36 warning unknown-key /pipe_0/links: 'links' is not a reserved key of a pipe: the device ignores it
  hint: rename it to 'link_2'
2:42-2:50 warning unknown-key /pipe_0/Link_1: 'Link_1' is not a reserved key of a pipe: the device ignores it
  hint: rename it to 'link_2'
)");
}

TEST_F(KeyRulesTest, HintProposesNoIndexAmongManyMembers) {
    std::string members = R"("links": {})";
    for (int id = 0; id < 100; ++id) {
        members += ", \"link_" + std::to_string(id) + "\": {}";
    }
    // The note, key-order, is that of "link_10".
    AssertPipe(
        members,
        R"(2:1-2:8 warning unknown-key /pipe_0/links: 'links' is not a reserved key of a pipe: the device ignores it
  hint: rename it to 'link_<l>' with a free number
2:154-2:163 note key-order /pipe_0/link_10: 'link_10' sorts before 'link_2': the device reads keys in byte order
  2:42-2:50 sorts later
  hint: if the order matters, number the keys from 'link_10'
)");
}

TEST_F(KeyRulesTest, HintDoesNotProposeAKeyInUse) {
    AssertPipe(
        R"("thread_opts": {}, "thread_options": {})",
        R"(2:20-2:36 warning unknown-key /pipe_0/thread_options: 'thread_options' is not a reserved key of a pipe: the device ignores it
  hint: remove it; "thread_opts" is already present
)");
}

TEST_F(KeyRulesTest, KeyOfAnotherLevelIsToBeMoved) {
    AssertUnknown("pipe_1", "move it to the root");
    AssertUnknown("stream_opts", "move it into a node");
    AssertUnknown("stream_opts_extra", "move it into a node");
    AssertUnknown("stream_input_0", R"(move it into "stream_opts")");
    AssertUnknown("stream_fmt_in_left", R"(move it into "stream_opts")");
    AssertUnknown("exec_thread_num", R"(move it into "thread_opts")");
}

TEST_F(KeyRulesTest, KeyThatResemblesOneOfAnotherLevelIsToBeRenamedAndMoved) {
    AssertUnknown("Exec_Thread_Num",
                  R"(rename it to "exec_thread_num" and move it into "thread_opts")");
    AssertUnknown("stream_options", R"(rename it to "stream_opts" and move it into a node)");
}

TEST_F(KeyRulesTest, MembersOfAValueShowWhatItWasIntendedToBe) {
    AssertNodes(
        "a:f > Display",
        R"(4:1-4:9 warning unknown-key /pipe_0/camera: 'camera' is not a reserved key of a pipe: the device ignores it
  hint: rename it to 'node_2'
5:1-5:7 warning unknown-key /pipe_0/fast: 'fast' is not a reserved key of a pipe: the device ignores it
  hint: rename it to 'executor_0'
6:1-6:8 warning unknown-key /pipe_0/cores: 'cores' is not a reserved key of a pipe: the device ignores it
  hint: rename it to "thread_opts"
8:3-8:11 warning unknown-key /pipe_0/node_1/config: 'config' is not a reserved key of a node: the device ignores it
  hint: move its members into "node_opts"
10:3-10:12 warning unknown-key /pipe_0/node_1/outputs: 'outputs' is not a reserved key of a node: the device ignores it
  hint: move its members into "stream_opts"
)",
        R"("camera": {"node_opts": {}},
"fast": {"executor_opts": {}},
"cores": {"exec_thread_num": 4},
"node_1": {
  "config": {"node_name": "Camera"},
  "node_opts": {"node_name": "Camera"},
  "outputs": {"stream_output": "a", "stream_fmt_out": "f"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
})");
}

TEST_F(KeyRulesTest, HintListsTheReservedKeysForAnyOtherKey) {
    AssertUnknown(
        "camera",
        "remove it; the reserved keys of a pipe are \"thread_opts\", \"default_mode_link\", 'executor_<e>', 'link_<l>' and "
        "'node_<n>'");
    AssertUnknown(
        "",
        "remove it; the reserved keys of a pipe are \"thread_opts\", \"default_mode_link\", 'executor_<e>', 'link_<l>' and "
        "'node_<n>'");
}

TEST_F(KeyRulesTest, NodeHasNoOptionsOutsideItsSections) {
    AssertNodes(
        "a:f > Display",
        R"(5:3-5:8 warning unknown-key /pipe_0/node_1/fps: 'fps' is not a reserved key of a node: the device ignores it
  hint: move it into "node_opts" if it is an option
6:3-6:14 warning unknown-key /pipe_0/node_1/node_name: 'node_name' is not a reserved key of a node: the device ignores it
  hint: move it into "node_opts"
9:3-9:21 warning unknown-key /pipe_0/node_1/stream_opt_extra: 'stream_opt_extra' is not a reserved key of a node: the device ignores it
  hint: rename it to "stream_opts_extra"
)",
        R"("node_1": {
  "fps": 30,
  "node_name": "Camera",
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
  "stream_opt_extra": {}
})");
}

TEST_F(KeyRulesTest, ExecutorHasNoOptionsOutsideExecutorOpts) {
    AssertPipe(
        R"("executor_0": {"priority": 10},
"executor_1": {"executor_options": {"priority": 10}})",
        R"(2:16-2:26 warning unknown-key /pipe_0/executor_0/priority: 'priority' is not a reserved key of an executor: the device ignores it
  hint: move it into "executor_opts" if it is an option
3:16-3:34 warning unknown-key /pipe_0/executor_1/executor_options: 'executor_options' is not a reserved key of an executor: the device ignores it
  hint: rename it to "executor_opts"
)");
}

TEST_F(KeyRulesTest, ThreadOptionsHaveOneReservedKey) {
    AssertPipe(
        R"("thread_opts": {"EXEC_thread_num": 4, "exec_threads_num": 4, "priority": 3})",
        R"(2:39-2:57 warning unknown-key /pipe_0/thread_opts/exec_threads_num: 'exec_threads_num' is not a reserved key of "thread_opts": the device ignores it
  hint: rename it to "exec_thread_num"
2:62-2:72 warning unknown-key /pipe_0/thread_opts/priority: 'priority' is not a reserved key of "thread_opts": the device ignores it
  hint: remove it; the only reserved key of "thread_opts" is "exec_thread_num"
)");
}

TEST_F(KeyRulesTest, StreamOptionThatResemblesAReservedKeyIsReported) {
    AssertStreamOptions(
        R"("stream_mod_in": "remain_newest")",
        R"(5:1-5:16 warning unknown-key /pipe_0/node_1/stream_opts/stream_mod_in: 'stream_mod_in' is not a reserved key, but resembles "stream_mode_in": the device stores it as an ordinary option
  hint: rename it to "stream_mode_in"
)");
    AssertStreamOptions(
        R"("STREAM_MODE_IN": "remain_newest")",
        R"(5:1-5:17 warning unknown-key /pipe_0/node_1/stream_opts/STREAM_MODE_IN: 'STREAM_MODE_IN' is not a reserved key, but resembles "stream_mode_in": the device stores it as an ordinary option
  hint: rename it to "stream_mode_in"
)");
    AssertStreamOptions(
        R"("stream_fmt_out2": "g")",
        R"(5:1-5:18 warning unknown-key /pipe_0/node_1/stream_opts/stream_fmt_out2: 'stream_fmt_out2' is not a reserved key, but resembles 'stream_fmt_out_2': the device stores it as an ordinary option
  hint: rename it to 'stream_fmt_out_2'
)");
    AssertStreamOptions(
        R"("stream_ouput_left": "c")",
        R"(5:1-5:20 warning unknown-key /pipe_0/node_1/stream_opts/stream_ouput_left: 'stream_ouput_left' is not a reserved key, but resembles 'stream_output_left': the device stores it as an ordinary option
  hint: rename it to 'stream_output_left'
)");
}

TEST_F(KeyRulesTest, ModeOfOneInputIsReported) {
    AssertStreamOptions(
        R"("stream_mode_in_1": "remain_newest")",
        R"(5:1-5:19 warning unknown-key /pipe_0/node_1/stream_opts/stream_mode_in_1: 'stream_mode_in_1' is not a reserved key, because all inputs share one mode: the device stores it as an ordinary option
  hint: rename it to "stream_mode_in" to set the mode of all inputs
)");
    AssertStreamOptions(
        R"("stream_mode_in_left": "remain_newest", "stream_mode_in": "remain_newest")",
        R"(5:1-5:22 warning unknown-key /pipe_0/node_1/stream_opts/stream_mode_in_left: 'stream_mode_in_left' is not a reserved key, because all inputs share one mode: the device stores it as an ordinary option
  hint: remove it; "stream_mode_in" already sets the mode of all inputs
)");
    AssertStreamOptions(
        R"("stream_mode_in2": "remain_newest")",
        R"(5:1-5:18 warning unknown-key /pipe_0/node_1/stream_opts/stream_mode_in2: 'stream_mode_in2' is not a reserved key, because all inputs share one mode: the device stores it as an ordinary option
  hint: rename it to "stream_mode_in" to set the mode of all inputs
)");
}

TEST_F(KeyRulesTest, AnyOtherStreamOptionIsAccepted) {
    for (const char* key : {"fps",
                            "mode",
                            "stream",
                            "stream_mode_out",
                            "stream_depth",
                            "fmt_in",
                            "stream_mode",
                            "stream_mode_interval",
                            "in_mode_stream",
                            ""}) {
        AssertStreamOptions('"' + std::string(key) + "\": \"x\"", "");
    }
}

TEST_F(KeyRulesTest, OptionsCanHaveAnyKey) {
    AssertPipe(R"("link_0": {"node_0": "a", "stream_opt": "b"},
"executor_0": {"executor_opts": {"exec_thread_num": 3, "executor_opt": "a"}})",
               "");
}

// ---- section-ignored --------------------------------------------------------

TEST_F(KeyRulesTest, LinkMustBeAnObject) {
    AssertPipe(
        R"("link_0": ["sync"])",
        R"(2:11-2:19 warning section-ignored /pipe_0/link_0: 'link_0' is an array, not an object: the link has no options
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, ExecutorAndItsOptionsMustBeObjects) {
    AssertPipe(
        R"("executor_0": null,
"executor_1": {"executor_opts": 10})",
        R"(2:15-2:19 warning section-ignored /pipe_0/executor_0: 'executor_0' is null, not an object: the executor has no options
  hint: write an object, {...}, or remove it
3:33-3:35 warning section-ignored /pipe_0/executor_1/executor_opts: "executor_opts" is a number, not an object: the executor has no options
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, ThreadOptionsMustBeAnObject) {
    AssertPipe(
        R"("thread_opts": 4)",
        R"(2:16-2:17 warning section-ignored /pipe_0/thread_opts: "thread_opts" is a number, not an object: the device uses a thread count of 0
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, ExtraOptionsMustBeObjects) {
    AssertNodes(
        "a:f > Display",
        R"(7:22-7:27 warning section-ignored /pipe_0/node_1/node_opts_extra: "node_opts_extra" is a string, not an object: the device ignores it
  hint: write an object, {...}, or remove it
8:24-8:28 warning section-ignored /pipe_0/node_1/stream_opts_extra: "stream_opts_extra" is a boolean, not an object: the device ignores it
  hint: write an object, {...}, or remove it
)",
        R"("node_1": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
  "node_opts_extra": "fps",
  "stream_opts_extra": true
})");
}

TEST_F(KeyRulesTest, EmptySectionsAreAccepted) {
    AssertPipe(R"("link_0": {}, "executor_0": {"executor_opts": {}}, "thread_opts": {})", "");
}

// ---- link-mode-not-text -----------------------------------------------------

TEST_F(KeyRulesTest, DefaultLinkModeMustBeAString) {
    AssertPipe(
        R"("default_mode_link": 5)",
        R"(2:22-2:23 warning link-mode-not-text /pipe_0/default_mode_link: "default_mode_link" is a number, not a string: the device uses 'none'
  hint: write the mode as a string, or remove the member
)");
    for (const char* value : {"null", "true", "[\"sync\"]", "{}"}) {
        EXPECT_EQ(CodesIn("{\"pipe_0\": {\"default_mode_link\": " + std::string(value) + "}}"),
                  "link-mode-not-text");
    }
}

TEST_F(KeyRulesTest, EmptyLinkModeIsAccepted) {
    AssertPipe(R"("default_mode_link": "")", "");
}

// ---- thread-count -----------------------------------------------------------

TEST_F(KeyRulesTest, ThreadCountMustBeANumber) {
    AssertPipe(
        R"("thread_opts": {"exec_thread_num": "4"})",
        R"(2:36-2:39 warning thread-count /pipe_0/thread_opts/exec_thread_num: 'exec_thread_num' is a string, not a number: the device uses a thread count of 0
  hint: write a whole number of at least 1, without quotes
)");
    AssertPipe(
        R"("thread_opts": {"Exec_Thread_Num": null})",
        R"(2:36-2:40 warning thread-count /pipe_0/thread_opts/Exec_Thread_Num: 'Exec_Thread_Num' is null, not a number: the device uses a thread count of 0
  hint: write a whole number of at least 1, without quotes
)");
}

TEST_F(KeyRulesTest, ThreadCountMustBeAPositiveInteger) {
    const auto assertCount = [](const std::string& number, const std::string& count) {
        AssertPipe("\"thread_opts\": {\"exec_thread_num\": " + number + '}',
                   "2:36-2:" + std::to_string(36 + number.size()) +
                       " warning thread-count /pipe_0/thread_opts/exec_thread_num: "
                       "'exec_thread_num' is " +
                       number +
                       ", not a positive 32-bit integer: the device uses a thread count of " +
                       count + "\n  hint: write a whole number of at least 1\n");
    };
    assertCount("2.5", "2");
    assertCount("1.9", "1");
    assertCount("0.9", "0");
    assertCount("0", "0");
    assertCount("-2", "-2");
    assertCount("2147483648", "2147483647");
    assertCount("-1e999", "-2147483648");
}

TEST_F(KeyRulesTest, PositiveThreadCountsAreAccepted) {
    for (const char* number : {"1", "4", "4.0", "2e1", "2147483647"}) {
        AssertPipe("\"thread_opts\": {\"Exec_Thread_NUM\": " + std::string(number) + '}', "");
    }
}

TEST_F(KeyRulesTest, LongNumberIsCut) {
    AssertPipe("\"thread_opts\": {\"exec_thread_num\": 1." + std::string(80, '5') + '}',
               "2:36-2:118 warning thread-count /pipe_0/thread_opts/exec_thread_num: "
               "'exec_thread_num' is 1." +
                   std::string(58, '5') +
                   "..., not a positive 32-bit integer: the device uses a thread count of 1\n"
                   "  hint: write a whole number of at least 1\n");
}

TEST_F(KeyRulesTest, FirstNumberAmongSeveralSpellingsTakesEffect) {
    AssertPipe(
        R"("thread_opts": {
  "exec_thread_num": 3,
  "Exec_Thread_Num": "2",
  "EXEC_THREAD_NUM": 4
})",
        R"(3:3-3:20 warning thread-count /pipe_0/thread_opts/exec_thread_num: 'exec_thread_num' is overridden by 'EXEC_THREAD_NUM': the device uses a thread count of 4
  5:3-5:20 takes effect: the first number in key order
  hint: remove one of them
4:3-4:20 warning thread-count /pipe_0/thread_opts/Exec_Thread_Num: 'Exec_Thread_Num' is overridden by 'EXEC_THREAD_NUM': the device uses a thread count of 4
  5:3-5:20 takes effect: the first number in key order
  hint: remove one of them
)");
}

// ---- executor-without-options -----------------------------------------------

TEST_F(KeyRulesTest, ExecutorWithoutOptionsIsReported) {
    AssertPipe(
        R"("executor_0": {})",
        R"(2:1-2:13 note executor-without-options /pipe_0/executor_0: 'executor_0' has no "executor_opts": the executor has no options
  hint: add "executor_opts": {...} if you intended it to have options
)");
}

}  // namespace
