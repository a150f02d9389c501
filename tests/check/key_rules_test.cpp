// Keys and sections that are left out without a word.
#include <string>

#include "tests/check/check_test.h"

namespace {

class KeyRulesTest : public CheckTest {
protected:
    // Expects a member of a pipe, alone in line 2, to be unknown there.
    static void AssertUnknown(const std::string& key, const std::string& hint) {
        AssertPipe('"' + key + "\": {}",
                   "2:1-2:" + std::to_string(3 + key.size()) + " warning unknown-key /pipe_0/" +
                       key + ": '" + key +
                       "' is no key of a pipe: a device ignores it\n  hint: " + hint + '\n');
    }

    // Expects options of streams beside those of two outputs to have these
    // findings. They stand in line 5.
    static void AssertStreamOptions(const std::string& options, const std::string& findings) {
        AssertPipe(R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {
)" + options + R"(,
    "stream_output_0": "a", "stream_fmt_out_0": "f",
    "stream_output_1": "b", "stream_fmt_out_1": "f"
  }
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                  "stream_input_1": "b", "stream_fmt_in_1": "f"}
})",
                   findings);
    }
};

// ---- unknown-key ------------------------------------------------------------

TEST_F(KeyRulesTest, AKeyThatIsNearlyKnownIsTold) {
    AssertUnknown("default_mode_lnk", R"(write "default_mode_link")");
    AssertUnknown("thread_opt", R"(write "thread_opts")");
    AssertUnknown("thread_options", R"(write "thread_opts")");
    AssertUnknown("Thread_Opts", R"(write "thread_opts")");
    AssertUnknown("threadOpts", R"(write "thread_opts")");
}

TEST_F(KeyRulesTest, WordsInAnotherOrderAreTold) {
    AssertUnknown("default_link_mode", R"(write "default_mode_link")");
    AssertUnknown("opts_thread", R"(write "thread_opts")");
}

TEST_F(KeyRulesTest, TheIndexOfANearlyKnownKeyIsKept) {
    AssertUnknown("Node_0", "write 'node_0'");
    AssertUnknown("node1", "write 'node_1'");
    AssertUnknown("node-12", "write 'node_12'");
    AssertUnknown("nodes_3", "write 'node_3'");
    AssertUnknown("excutor_2", "write 'executor_2'");
    AssertUnknown("LINK_7", "write 'link_7'");
    AssertUnknown("lnik_7", "write 'link_7'");
}

TEST_F(KeyRulesTest, WithoutAnIndexTheFirstThatIsFreeIsProposed) {
    AssertUnknown("node", "write 'node_0'");
    AssertPipe(
        R"("link_0": {}, "link_1": {}, "links": {}, "Link_1": {})",
        R"(2:29-2:36 warning unknown-key /pipe_0/links: 'links' is no key of a pipe: a device ignores it
  hint: write 'link_2'
2:42-2:50 warning unknown-key /pipe_0/Link_1: 'Link_1' is no key of a pipe: a device ignores it
  hint: write 'link_2'
)");
}

TEST_F(KeyRulesTest, AmongManyMembersNoFreeIndexIsLookedFor) {
    std::string members = R"("links": {})";
    for (int id = 0; id < 100; ++id) {
        members += ", \"link_" + std::to_string(id) + "\": {}";
    }
    // The note, key-order, is that of "link_10".
    AssertPipe(
        members,
        R"(2:1-2:8 warning unknown-key /pipe_0/links: 'links' is no key of a pipe: a device ignores it
  hint: write 'link_<l>' with a number that is free
2:154-2:163 note key-order /pipe_0/link_10: 'link_10' comes before 'link_2': keys count in the order of their bytes
  2:42-2:50 this one comes later
  hint: where the order matters, number them from 'link_10' on
)");
}

TEST_F(KeyRulesTest, AKeyThatStandsThereAsWellIsNotProposed) {
    AssertPipe(
        R"("thread_opts": {}, "thread_options": {})",
        R"(2:20-2:36 warning unknown-key /pipe_0/thread_options: 'thread_options' is no key of a pipe: a device ignores it
  hint: remove it; "thread_opts" is there as well
)");
}

TEST_F(KeyRulesTest, AKeyOfAnotherLevelIsToldWhereItBelongs) {
    AssertUnknown("pipe_1", "move it to the root");
    AssertUnknown("stream_opts", "move it into a node");
    AssertUnknown("stream_opts_extra", "move it into a node");
    AssertUnknown("stream_input_0", R"(move it into "stream_opts")");
    AssertUnknown("stream_fmt_in_left", R"(move it into "stream_opts")");
    AssertUnknown("exec_thread_num", R"(move it into "thread_opts")");
}

TEST_F(KeyRulesTest, AKeyThatIsNearlyOneOfAnotherLevelIsToldWhereItBelongs) {
    AssertUnknown("Exec_Thread_Num", R"(write "exec_thread_num", and move it into "thread_opts")");
    AssertUnknown("stream_options", R"(write "stream_opts", and move it into a node)");
}

TEST_F(KeyRulesTest, WhatStandsInAMemberTellsWhatItWasMeantToBe) {
    AssertPipe(
        R"("camera": {"node_opts": {}},
"fast": {"executor_opts": {}},
"cores": {"exec_thread_num": 4},
"node_0": {
  "config": {"node_name": "Camera"},
  "node_opts": {"node_name": "Camera"},
  "outputs": {"stream_output": "a", "stream_fmt_out": "f"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
})",
        R"(2:1-2:9 warning unknown-key /pipe_0/camera: 'camera' is no key of a pipe: a device ignores it
  hint: write 'node_2'
3:1-3:7 warning unknown-key /pipe_0/fast: 'fast' is no key of a pipe: a device ignores it
  hint: write 'executor_0'
4:1-4:8 warning unknown-key /pipe_0/cores: 'cores' is no key of a pipe: a device ignores it
  hint: write "thread_opts"
6:3-6:11 warning unknown-key /pipe_0/node_0/config: 'config' is no key of a node: a device ignores it
  hint: move its members into "node_opts"
8:3-8:12 warning unknown-key /pipe_0/node_0/outputs: 'outputs' is no key of a node: a device ignores it
  hint: move its members into "stream_opts"
)");
}

TEST_F(KeyRulesTest, ForAnyOtherKeyTheKnownOnesAreTold) {
    AssertUnknown(
        "camera",
        "remove it; \"thread_opts\", \"default_mode_link\", 'executor_<e>', 'link_<l>' and "
        "'node_<n>' are known here");
    AssertUnknown(
        "",
        "remove it; \"thread_opts\", \"default_mode_link\", 'executor_<e>', 'link_<l>' and "
        "'node_<n>' are known here");
}

TEST_F(KeyRulesTest, ANodeHasNoOptionsOfItsOwn) {
    AssertPipe(
        R"("node_0": {
  "fps": 30,
  "node_name": "Camera",
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
  "stream_opt_extra": {}
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
})",
        R"(3:3-3:8 warning unknown-key /pipe_0/node_0/fps: 'fps' is no key of a node: a device ignores it
  hint: if it is an option, move it into "node_opts"
4:3-4:14 warning unknown-key /pipe_0/node_0/node_name: 'node_name' is no key of a node: a device ignores it
  hint: move it into "node_opts"
7:3-7:21 warning unknown-key /pipe_0/node_0/stream_opt_extra: 'stream_opt_extra' is no key of a node: a device ignores it
  hint: write "stream_opts_extra"
)");
}

TEST_F(KeyRulesTest, AnExecutorHasNoOptionsOfItsOwn) {
    AssertPipe(
        R"("executor_0": {"priority": 10},
"executor_1": {"executor_options": {"priority": 10}})",
        R"(2:16-2:26 warning unknown-key /pipe_0/executor_0/priority: 'priority' is no key of an executor: a device ignores it
  hint: if it is an option, move it into "executor_opts"
3:16-3:34 warning unknown-key /pipe_0/executor_1/executor_options: 'executor_options' is no key of an executor: a device ignores it
  hint: write "executor_opts"
)");
}

TEST_F(KeyRulesTest, ThreadOptionsHaveOneKey) {
    AssertPipe(
        R"("thread_opts": {"EXEC_thread_num": 4, "exec_threads_num": 4, "priority": 3})",
        R"(2:39-2:57 warning unknown-key /pipe_0/thread_opts/exec_threads_num: 'exec_threads_num' is no key of "thread_opts": a device ignores it
  hint: write "exec_thread_num"
2:62-2:72 warning unknown-key /pipe_0/thread_opts/priority: 'priority' is no key of "thread_opts": a device ignores it
  hint: remove it; "exec_thread_num" alone is known here
)");
}

TEST_F(KeyRulesTest, AnOptionOfAStreamThatIsNearlyAKnownKeyIsTold) {
    AssertStreamOptions(
        R"("stream_mod_in": "remain_newest")",
        R"(5:1-5:16 warning unknown-key /pipe_0/node_0/stream_opts/stream_mod_in: 'stream_mod_in' is nearly "stream_mode_in", but is stored as an option like any other
  hint: write "stream_mode_in"
)");
    AssertStreamOptions(
        R"("STREAM_MODE_IN": "remain_newest")",
        R"(5:1-5:17 warning unknown-key /pipe_0/node_0/stream_opts/STREAM_MODE_IN: 'STREAM_MODE_IN' is nearly "stream_mode_in", but is stored as an option like any other
  hint: write "stream_mode_in"
)");
    AssertStreamOptions(
        R"("stream_fmt_out2": "g")",
        R"(5:1-5:18 warning unknown-key /pipe_0/node_0/stream_opts/stream_fmt_out2: 'stream_fmt_out2' is nearly 'stream_fmt_out_2', but is stored as an option like any other
  hint: write 'stream_fmt_out_2'
)");
    AssertStreamOptions(
        R"("stream_ouput_left": "c")",
        R"(5:1-5:20 warning unknown-key /pipe_0/node_0/stream_opts/stream_ouput_left: 'stream_ouput_left' is nearly 'stream_output_left', but is stored as an option like any other
  hint: write 'stream_output_left'
)");
}

TEST_F(KeyRulesTest, NoInputHasAModeOfItsOwn) {
    AssertStreamOptions(
        R"("stream_mode_in_1": "remain_newest")",
        R"(5:1-5:19 warning unknown-key /pipe_0/node_0/stream_opts/stream_mode_in_1: 'stream_mode_in_1' is stored as an option like any other: no input has a mode of its own
  hint: write "stream_mode_in" if all inputs are meant: it counts for each
)");
    AssertStreamOptions(
        R"("stream_mode_in_left": "remain_newest", "stream_mode_in": "remain_newest")",
        R"(5:1-5:22 warning unknown-key /pipe_0/node_0/stream_opts/stream_mode_in_left: 'stream_mode_in_left' is stored as an option like any other: no input has a mode of its own
  hint: remove it; "stream_mode_in" is there, and counts for all inputs
)");
    AssertStreamOptions(
        R"("stream_mode_in2": "remain_newest")",
        R"(5:1-5:18 warning unknown-key /pipe_0/node_0/stream_opts/stream_mode_in2: 'stream_mode_in2' is stored as an option like any other: no input has a mode of its own
  hint: write "stream_mode_in" if all inputs are meant: it counts for each
)");
}

TEST_F(KeyRulesTest, EveryOtherOptionOfAStreamIsFine) {
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

TEST_F(KeyRulesTest, OptionsHaveAnyKey) {
    AssertPipe(R"("link_0": {"node_0": "a", "stream_opt": "b"},
"executor_0": {"executor_opts": {"exec_thread_num": 3, "executor_opt": "a"}})",
               "");
}

// ---- section-ignored --------------------------------------------------------

TEST_F(KeyRulesTest, ALinkIsAnObject) {
    AssertPipe(
        R"("link_0": ["sync"])",
        R"(2:11-2:19 warning section-ignored /pipe_0/link_0: 'link_0' is an array, not an object: the link has no options
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, AnExecutorAndItsOptionsAreObjects) {
    AssertPipe(
        R"("executor_0": null,
"executor_1": {"executor_opts": 10})",
        R"(2:15-2:19 warning section-ignored /pipe_0/executor_0: 'executor_0' is null, not an object: the executor has no options
  hint: write an object, {...}, or remove it
3:33-3:35 warning section-ignored /pipe_0/executor_1/executor_opts: "executor_opts" is a number, not an object: the executor has no options
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, ThreadOptionsAreAnObject) {
    AssertPipe(
        R"("thread_opts": 4)",
        R"(2:16-2:17 warning section-ignored /pipe_0/thread_opts: "thread_opts" is a number, not an object: a device gets 0 threads
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, FurtherOptionsOfANodeAreObjects) {
    AssertPipe(
        R"("node_0": {
  "node_opts": {"node_name": "Camera"},
  "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
  "node_opts_extra": "fps",
  "stream_opts_extra": true
},
"node_1": {
  "node_opts": {"node_name": "Display"},
  "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
})",
        R"(5:22-5:27 warning section-ignored /pipe_0/node_0/node_opts_extra: "node_opts_extra" is a string, not an object: nothing is copied from it
  hint: write an object, {...}, or remove it
6:24-6:28 warning section-ignored /pipe_0/node_0/stream_opts_extra: "stream_opts_extra" is a boolean, not an object: nothing is copied from it
  hint: write an object, {...}, or remove it
)");
}

TEST_F(KeyRulesTest, EmptySectionsAreFine) {
    AssertPipe(R"("link_0": {}, "executor_0": {"executor_opts": {}}, "thread_opts": {})", "");
}

// ---- link-mode-not-text -----------------------------------------------------

TEST_F(KeyRulesTest, TheDefaultLinkModeIsAText) {
    AssertPipe(
        R"("default_mode_link": 5)",
        R"(2:22-2:23 warning link-mode-not-text /pipe_0/default_mode_link: "default_mode_link" is a number, not a text: a device takes 'none'
  hint: write the mode as a text, or remove the member
)");
    for (const char* value : {"null", "true", "[\"sync\"]", "{}"}) {
        EXPECT_EQ(CodesIn("{\"pipe_0\": {\"default_mode_link\": " + std::string(value) + "}}"),
                  "link-mode-not-text");
    }
}

TEST_F(KeyRulesTest, AnEmptyLinkModeIsFine) {
    AssertPipe(R"("default_mode_link": "")", "");
}

// ---- thread-count -----------------------------------------------------------

TEST_F(KeyRulesTest, TheNumberOfThreadsIsANumber) {
    AssertPipe(
        R"("thread_opts": {"exec_thread_num": "4"})",
        R"(2:36-2:39 warning thread-count /pipe_0/thread_opts/exec_thread_num: 'exec_thread_num' is a string, not a number: a device gets 0 threads
  hint: write a whole number from 1 on, without quotes
)");
    AssertPipe(
        R"("thread_opts": {"Exec_Thread_Num": null})",
        R"(2:36-2:40 warning thread-count /pipe_0/thread_opts/Exec_Thread_Num: 'Exec_Thread_Num' is null, not a number: a device gets 0 threads
  hint: write a whole number from 1 on, without quotes
)");
}

TEST_F(KeyRulesTest, TheNumberOfThreadsIsWholeAndAboveZero) {
    const auto assertThreads = [](const std::string& number, const std::string& threads) {
        AssertPipe("\"thread_opts\": {\"exec_thread_num\": " + number + '}',
                   "2:36-2:" + std::to_string(36 + number.size()) +
                       " warning thread-count /pipe_0/thread_opts/exec_thread_num: "
                       "'exec_thread_num' is " +
                       number + ": a device gets " + threads +
                       "\n  hint: write a whole number from 1 on\n");
    };
    assertThreads("2.5", "2 threads");
    assertThreads("1.9", "1 thread");
    assertThreads("0.9", "0 threads");
    assertThreads("0", "0 threads");
    assertThreads("-2", "-2 threads");
    assertThreads("2147483648", "2147483647 threads");
    assertThreads("-1e999", "-2147483648 threads");
}

TEST_F(KeyRulesTest, WholeNumbersOfThreadsAreFine) {
    for (const char* number : {"1", "4", "4.0", "2e1", "2147483647"}) {
        AssertPipe("\"thread_opts\": {\"Exec_Thread_NUM\": " + std::string(number) + '}', "");
    }
}

TEST_F(KeyRulesTest, ALongNumberIsCut) {
    AssertPipe("\"thread_opts\": {\"exec_thread_num\": 1." + std::string(80, '5') + '}',
               "2:36-2:118 warning thread-count /pipe_0/thread_opts/exec_thread_num: "
               "'exec_thread_num' is 1." +
                   std::string(58, '5') +
                   "...: a device gets 1 thread\n  hint: write a whole number from 1 on\n");
}

TEST_F(KeyRulesTest, OfSeveralSpellingsTheFirstNumberCounts) {
    AssertPipe(
        R"("thread_opts": {
  "exec_thread_num": 3,
  "Exec_Thread_Num": "2",
  "EXEC_THREAD_NUM": 4
})",
        R"(3:3-3:20 warning thread-count /pipe_0/thread_opts/exec_thread_num: 'exec_thread_num' stands beside 'EXEC_THREAD_NUM': a device gets 4 threads
  5:3-5:20 this one counts: the first number in key order
  hint: remove one of them
4:3-4:20 warning thread-count /pipe_0/thread_opts/Exec_Thread_Num: 'Exec_Thread_Num' stands beside 'EXEC_THREAD_NUM': a device gets 4 threads
  5:3-5:20 this one counts: the first number in key order
  hint: remove one of them
)");
}

// ---- executor-without-options -----------------------------------------------

TEST_F(KeyRulesTest, AnExecutorHasOptions) {
    AssertPipe(
        R"("executor_0": {})",
        R"(2:1-2:13 note executor-without-options /pipe_0/executor_0: 'executor_0' has no "executor_opts": a device copies nothing for it
  hint: add "executor_opts": {...} if it is meant to have options
)");
}

}  // namespace
