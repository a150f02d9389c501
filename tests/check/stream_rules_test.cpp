// What is wrong with the names, formats and modes of a node's streams.
#include "tests/check/node_test.h"

namespace {

using StreamRulesTest = NodeTest;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

// A node whose store keeps no texts.
class ForgetfulNode : public QVHostTaskNode {
public:
    ForgetfulNode() { mOptions = &mNumbers; }

private:
    class Numbers : public QVHostMetaData {
    public:
        int setCString(const char* /*key*/, const char* /*value*/) override { return -1; }
    };

    Numbers mNumbers;
};

// ---- single-stream-key -------------------------------------------------------

TEST_F(StreamRulesTest, TheOnlyOutputHasNoIndex) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                "3:18-3:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_0: "
                "'stream_output_0' is the node's only output, whose name is looked up as "
                "\"stream_output\": aborts the process\n"
                "  hint: rename it to \"stream_output\", and 'stream_fmt_out_0' to "
                "\"stream_fmt_out\"\n");
}

TEST_F(StreamRulesTest, TheOnlyInputHasNoIndex) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
                "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
                "'stream_input_0' is the node's only input, whose name is looked up as "
                "\"stream_input\": aborts the process\n"
                "  hint: rename it to \"stream_input\", and 'stream_fmt_in_0' to "
                "\"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, AnyOtherEndingIsOne) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_x": "a", "stream_fmt_out": "f"}})",
                "3:18-3:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_x: "
                "'stream_output_x' is the node's only output, whose name is looked up as "
                "\"stream_output\": aborts the process\n"
                "  hint: rename it to \"stream_output\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_inputs": "a", "stream_fmt_in": "f"}})",
                "3:18-3:33 error single-stream-key /pipe_0/node_0/stream_opts/stream_inputs: "
                "'stream_inputs' is the node's only input, whose name is looked up as "
                "\"stream_input\": aborts the process\n"
                "  hint: rename it to \"stream_input\"\n");
}

TEST_F(StreamRulesTest, BothSidesAreLookedAt) {
    AssertTaker(R"({"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in": "f",
                 "stream_output_0": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
                "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
                "'stream_input_0' is the node's only input, whose name is looked up as "
                "\"stream_input\": aborts the process\n"
                "  hint: rename it to \"stream_input\"\n"
                "4:18-4:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_0: "
                "'stream_output_0' is the node's only output, whose name is looked up as "
                "\"stream_output\": aborts the process\n"
                "  hint: rename it to \"stream_output\"\n");
}

TEST_F(StreamRulesTest, AnotherStreamMayBeMistyped) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inptu_1": "a", "stream_fmt_in_1": "f"}})",
                "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
                "'stream_input_0' is the node's only input, whose name is looked up as "
                "\"stream_input\": aborts the process\n"
                "  4:18-4:34 this is nearly 'stream_input_1'\n"
                "  hint: rename 'stream_inptu_1' to 'stream_input_1'\n");
}

TEST_F(StreamRulesTest, AnotherStreamMayStandElsewhere) {
    AssertTaker(R"({"node_opts": {"node_name": "Display", "stream_input_0": "a"},
 "stream_opts": {"stream_input_1": "a", "stream_fmt_in_0": "f", "stream_fmt_in_1": "f"}})",
                "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_1: "
                "'stream_input_1' is the node's only input, whose name is looked up as "
                "\"stream_input\": aborts the process\n"
                "  2:50-2:66 this does not count here\n"
                "  hint: move 'stream_input_0' to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayHaveThePlainKey) {
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "b", "stream_fmt_in": "f"},
 "stream_opts_extra": {"stream_input": "a"}})",
        "3:36-3:39 warning no-producer /pipe_0/node_0/stream_opts/stream_input_0: "
        "no node of the pipe gives the stream 'b'\n"
        "  hint: name a stream that a node of the pipe gives, or add a node that "
        "gives it\n"
        "4:24-4:38 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_input: "
        "'stream_input' does not count in \"stream_opts_extra\": streams are "
        "declared in \"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, OneOfSeveralHasAnIndex) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                 "stream_output_1": "a1", "stream_fmt_out_1": "f"}})",
                "4:37-4:41 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
                "no node of the pipe takes the stream 'a1'\n"
                "  hint: add a node that takes it, unless something outside the pipe does\n");
}

// ---- stream-keys-mixed -------------------------------------------------------

TEST_F(StreamRulesTest, OfSeveralOutputsEachHasAnIndex) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "stream_output_1": "b", "stream_fmt_out_1": "f"}})",
                "3:18-3:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_output: "
                "'stream_output' is one of 2 outputs, but several are looked up as "
                "'stream_output_<k>' alone: aborts the process\n"
                "  4:18-4:35 another output is here\n"
                "  hint: rename it to 'stream_output_0', and its format likewise\n"
                "4:37-4:40 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
                "no node of the pipe takes the stream 'b'\n"
                "  hint: add a node that takes it, unless something outside the pipe does\n");
}

TEST_F(StreamRulesTest, OfSeveralInputsEachHasAnIndex) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inputs": "a", "stream_fmt_ins": "f"}})",
                "4:18-4:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_inputs: "
                "'stream_inputs' is one of 2 inputs, but several are looked up as "
                "'stream_input_<k>' alone: aborts the process\n"
                "  3:18-3:34 another input is here\n"
                "  hint: rename it to 'stream_input_1', and its format likewise\n"
                "4:40-4:56 warning unknown-key /pipe_0/node_0/stream_opts/stream_fmt_ins: "
                "'stream_fmt_ins' is nearly \"stream_fmt_in\", but is stored as an option "
                "like any other\n"
                "  hint: write \"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, TheFirstFreeIndexIsNamed) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                "4:18-4:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
                "'stream_input' is one of 3 inputs, but several are looked up as "
                "'stream_input_<k>' alone: aborts the process\n"
                "  3:18-3:34 another input is here\n"
                "  hint: rename it to 'stream_input_2', and its format likewise\n");
}

TEST_F(StreamRulesTest, NoneMayHaveAnIndex) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_input2": "a", "stream_fmt_in2": "f"}})",
                "3:18-3:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
                "'stream_input' is one of 2 inputs, but several are looked up as "
                "'stream_input_<k>' alone: aborts the process\n"
                "  4:18-4:33 another input is here\n"
                "  hint: rename it to 'stream_input_0', and its format likewise\n"
                "4:40-4:56 warning unknown-key /pipe_0/node_0/stream_opts/stream_fmt_in2: "
                "'stream_fmt_in2' is nearly 'stream_fmt_in_2', but is stored as an option "
                "like any other\n"
                "  hint: write 'stream_fmt_in_2'\n");
}

TEST_F(StreamRulesTest, WhereAnEmptyKeyGivesANameNothingIsAborted) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "b", "stream_output_1": "a",
                 "stream_fmt_out_1": "f", "": "c"}})",
                "3:18-3:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_output: "
                "'stream_output' is one of 2 outputs, but several are looked up as "
                "'stream_output_<k>' alone: it is left out\n"
                "  3:40-3:57 another output is here\n"
                "  hint: rename it to 'stream_output_0', and its format likewise\n"
                "3:35-3:38 note no-consumer /pipe_0/node_0/stream_opts/stream_output: "
                "no node of the pipe takes the stream 'b'\n"
                "  hint: add a node that takes it, unless something outside the pipe does\n"
                "4:47-4:50 note no-consumer /pipe_0/node_0/stream_opts/: "
                "no node of the pipe takes the stream 'c'\n"
                "  hint: add a node that takes it, unless something outside the pipe does\n");
}

TEST_F(StreamRulesTest, WhatElseIsWrongWithTheFormatsFollows) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                "3:18-3:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
                "'stream_input' is one of 2 inputs, but several are looked up as "
                "'stream_input_<k>' alone: aborts the process\n"
                "  4:18-4:34 another input is here\n"
                "  hint: rename it to 'stream_input_0', and its format likewise\n");
}

// ---- stream-not-text ---------------------------------------------------------

TEST_F(StreamRulesTest, ANameIsAText) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": 5, "stream_fmt_out": "f"}})",
                "3:35-3:36 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is a number, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": null, "stream_fmt_out": "f"}})",
                "3:35-3:39 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is null, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": true, "stream_fmt_out": "f"}})",
                "3:35-3:39 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is a boolean, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": ["a"], "stream_fmt_out": "f"}})",
                "3:35-3:40 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is an array, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": {"name": "a"}, "stream_fmt_out": "f"}})",
                "3:35-3:48 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is an object, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AFormatIsAText) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": 1.5}})",
                "3:58-3:61 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
                "the format of the output stream is a number, not a text: throws\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": null}})",
                "3:58-3:62 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
                "the format of the output stream is null, not a text: throws\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": false}})",
                "3:56-3:61 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_in: "
                "the format of the input stream is a boolean, not a text: throws\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, ATextThatBeginsWithATypeIsStoredAsANumber) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "int32:5", "stream_fmt_out": "float"}})",
                "3:35-3:44 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is 'int32:5', stored as a number because "
                "'int32' is a type: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n"
                "3:64-3:71 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
                "the format of the output stream is 'float', stored as a number because "
                "'float' is a type: throws\n"
                "  hint: write a plain text of at most 127 bytes\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "int64:x", "stream_fmt_in": "f"}})",
                "3:34-3:43 error stream-not-text /pipe_0/node_0/stream_opts/stream_input: "
                "the name of the input stream is 'int64:x', stored as a number because "
                "'int64' is a type: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, ATextOf128BytesIsNotStored) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": ")" +
                    std::string(128, 'x') + R"(", "stream_fmt_out": "f"}})",
                "3:35-3:165 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream has 128 bytes, and 127 are the most: aborts "
                "the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, OtherTextsAreNames) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": ")" +
                   std::string(127, 'x') + R"(", "stream_fmt_out_0": ":5",
                 "stream_output_1": "rtsp://camera", "stream_fmt_out_1": "image:nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": ")" +
                   std::string(127, 'x') + R"(", "stream_fmt_in_0": ":5",
                 "stream_input_1": "rtsp://camera", "stream_fmt_in_1": "image:nv12"}})",
               "");
}

TEST_F(StreamRulesTest, SeveralStreamsAreLookedAtOneByOne) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": 5, "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": null}})",
                "3:36-3:37 error stream-not-text /pipe_0/node_0/stream_opts/stream_input_0: "
                "the name of the input stream is a number, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n"
                "4:60-4:64 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_in_1: "
                "the format of the input stream is null, not a text: throws\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayReplaceATextByWhatIsNone) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": 5}})",
                "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
                "'stream_output' is overridden: \"stream_opts_extra\" sets it to int32 5 "
                "later\n"
                "  4:24-4:39 it is overridden here\n"
                "  hint: remove the one that is not meant\n"
                "4:41-4:42 error stream-not-text /pipe_0/node_0/stream_opts_extra/stream_output: "
                "the name of the output stream is a number, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayReplaceWhatIsNoTextByOne) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": 5, "stream_fmt_out": "f"},
 "node_opts_extra": {"stream_output": "a"}})",
                "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
                "'stream_output' is overridden: \"node_opts_extra\" sets it to 'a' later\n"
                "  4:22-4:37 it is overridden here\n"
                "  hint: remove the one that is not meant\n");
}

TEST_F(StreamRulesTest, WhatIsNotStoredReplacesNothing) {
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": null}})",
        "4:41-4:45 warning option-not-stored /pipe_0/node_0/stream_opts_extra/stream_output: "
        "'stream_output' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n");
}

TEST_F(StreamRulesTest, TheStoreOfAClassMayKeepNoTexts) {
    RegisterCreator("Forgetful", create<ForgetfulNode>);
    AssertGiver(R"({"node_opts": {"node_name": "Forgetful"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "3:35-3:38 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                "the name of the output stream is not found in the options of the class "
                "'Forgetful': aborts the process\n"
                "  hint: see what the class keeps in its option store\n");
}

TEST_F(StreamRulesTest, AKeyEndsAtItsNul) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output\u0000": 5, "stream_fmt_out": "f"}})",
                "3:41-3:42 error stream-not-text /pipe_0/node_0/stream_opts/stream_output\0: "
                "the name of the output stream is a number, not a text: aborts the process\n"
                "  hint: write a plain text of at most 127 bytes\n"s);
}

// ---- stream-name-empty -------------------------------------------------------

TEST_F(StreamRulesTest, AStreamNeedsAName) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "", "stream_fmt_out": "f"}})",
               "3:35-3:37 error stream-name-empty /pipe_0/node_0/stream_opts/stream_output: "
               "the name of the output stream is empty: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  hint: name the stream\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "", "stream_fmt_in": "f"}})",
               "3:34-3:36 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input: "
               "the name of the input stream is empty: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, EachOfSeveralNeedsOne) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f",
                 "stream_input_2": "", "stream_fmt_in_2": "f"}})",
                "3:36-3:38 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input_0: "
                "the name of the input stream is empty: it is refused, the node is not "
                "initialised, and success is reported\n"
                "  hint: name the stream\n"
                "5:36-5:38 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input_2: "
                "the name of the input stream is empty: it is refused, the node is not "
                "initialised, and success is reported\n"
                "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, WhatFollowsANulIsNotRead) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "\u0000a", "stream_fmt_out": "f"}})",
               "3:35-3:44 error stream-name-empty /pipe_0/node_0/stream_opts/stream_output: "
               "the name of the output stream is empty: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayGiveTheName) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": "a"}})",
                "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
                "'stream_output' is overridden: \"stream_opts_extra\" sets it to 'a' later\n"
                "  4:24-4:39 it is overridden here\n"
                "  hint: remove the one that is not meant\n");
}

TEST_F(StreamRulesTest, AFormatMayBeEmpty) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": ""}},
"node_1": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": ""}})",
               "");
}

// ---- stream-format-missing ---------------------------------------------------

TEST_F(StreamRulesTest, AnOutputNeedsAFormat) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"}})",
                "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  hint: add \"stream_fmt_out\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnInputNeedsAFormat) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a"}})",
                "3:18-3:32 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input: "
                "the input stream 'a' has no format: \"stream_fmt_in\" is missing, which "
                "throws\n"
                "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, EachOfSeveralNeedsAFormat) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_output_1": "b", "stream_output_2": "c"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "3:18-3:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_0: "
               "the output stream 'a' has no format: 'stream_fmt_out_0' is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_out_0\": \"...\" to \"stream_opts\"\n"
               "3:42-3:59 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_1: "
               "the output stream 'b' has no format: 'stream_fmt_out_1' is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_out_1\": \"...\" to \"stream_opts\"\n"
               "3:66-3:83 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_2: "
               "the output stream 'c' has no format: 'stream_fmt_out_2' is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_out_2\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, TheOneWithoutAFormatOfItsEndingIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                 "stream_output_1": "b",
                 "stream_output_2": "c", "stream_fmt_out_2": "f"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "4:18-4:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_1: "
               "the output stream 'b' has no format: 'stream_fmt_out_1' is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_out_1\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, WhereEndingsDoNotHelpItIsTheLast) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_a": "f",
                 "stream_output_1": "b", "stream_fmt_out_b": "f",
                 "stream_output_2": "c"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "5:18-5:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_2: "
               "the output stream 'c' has no format: 'stream_fmt_out_2' is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_out_2\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayGiveThePlainFormat) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"},
 "node_opts_extra": {"stream_fmt_out": "f"}})",
                "");
}

TEST_F(StreamRulesTest, AnExtraObjectGivesNoneOfSeveralFormats) {
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "a"},
 "stream_opts_extra": {"stream_fmt_in_1": "f"}})",
                "3:65-3:81 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_1: "
                "the input stream 'a' has no format: 'stream_fmt_in_1' is missing, which "
                "throws\n"
                "  4:24-4:41 this does not count here\n"
                "  hint: move 'stream_fmt_in_1' to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AFormatMayStandInTheNodeItself) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"}, "stream_fmt_out": "f"})",
                "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  3:41-3:57 this does not count here\n"
                "  hint: move 'stream_fmt_out' to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AFormatMayBeMistyped) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_uot": "f"}})",
                "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  3:40-3:56 this is nearly \"stream_fmt_out\"\n"
                "  hint: rename 'stream_fmt_uot' to \"stream_fmt_out\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_inn_1": "f"}})",
                "4:18-4:34 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_1: "
                "the input stream 'a' has no format: 'stream_fmt_in_1' is missing, which "
                "throws\n"
                "  4:41-4:59 this is nearly 'stream_fmt_in_1'\n"
                "  hint: rename 'stream_fmt_inn_1' to 'stream_fmt_in_1'\n");
}

TEST_F(StreamRulesTest, AFormatMayBeThatOfTheOtherSide) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_in": "f"}})",
                "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  3:40-3:55 there is no input for this\n"
                "  hint: rename 'stream_fmt_in' to \"stream_fmt_out\"\n");
}

TEST_F(StreamRulesTest, AFormatMayHaveAnIndexThatTheOnlyOneHasNot) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out_0": "f"}})",
                "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  3:40-3:58 such a key is for nodes with several outputs\n"
                "  hint: rename 'stream_fmt_out_0' to \"stream_fmt_out\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_1": "f"}})",
                "3:18-3:32 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input: "
                "the input stream 'a' has no format: \"stream_fmt_in\" is missing, which "
                "throws\n"
                "  3:39-3:56 such a key is for nodes with several inputs\n"
                "  hint: rename 'stream_fmt_in_1' to \"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, AFormatMayLackTheIndexThatOneOfSeveralHas) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                "3:18-3:34 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_0: "
                "the input stream 'a' has no format: 'stream_fmt_in_0' is missing, which "
                "throws\n"
                "  3:41-3:56 this key is for nodes with one input\n"
                "  hint: rename 'stream_fmt_in' to 'stream_fmt_in_0'\n");
}

TEST_F(StreamRulesTest, AnEmptyKeyGivesAFormatWhereTheFamilyIsTooShort) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "a", "": "f"}})",
                "");
}

TEST_F(StreamRulesTest, AStreamWithoutANameIsNotMissingItsFormat) {
    Register({"Join", 2, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but only 1 is named: aborts the process\n"
                "  hint: add \"stream_input_1\": \"...\" to \"stream_opts\", and its format\n");
}

// ---- stream-families-differ --------------------------------------------------

TEST_F(StreamRulesTest, EachFormatHasTheEndingOfItsName) {
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                 "stream_output_1": "b", "stream_fmt_out_2": "f",
                 "stream_output_2": "c", "stream_fmt_out_3": "f"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
        "4:42-4:60 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_out_2: "
        "'stream_fmt_out_2' is the format of 'stream_output_1': the two families are "
        "paired in the order of their keys\n"
        "  4:18-4:35 it is paired with this\n"
        "  hint: give each name and its format the same ending\n");
}

TEST_F(StreamRulesTest, EndingsAreComparedInTheOrderOfTheKeys) {
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_9": "a", "stream_fmt_in_9": "f",
                 "stream_input_10": "a", "stream_fmt_in_010": "f"}})",
        "4:18-4:35 note key-order /pipe_0/node_0/stream_opts/stream_input_10: "
        "'stream_input_10' comes before 'stream_input_9': keys count in the order of "
        "their bytes\n"
        "  3:18-3:34 this one comes later\n"
        "  hint: where the order matters, number them from 'stream_input_00' on, and "
        "their formats likewise\n"
        "4:42-4:61 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in_010: "
        "'stream_fmt_in_010' is the format of 'stream_input_10': the two families "
        "are paired in the order of their keys\n"
        "  4:18-4:35 it is paired with this\n"
        "  hint: give each name and its format the same ending\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_9": "a", "stream_fmt_in_9": "f",
                 "stream_input_x": "a", "stream_fmt_in_x": "f"}})",
                "");
}

TEST_F(StreamRulesTest, AFormatMayBeLeftOver) {
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_2": "a", "stream_fmt_in_1": "f", "stream_fmt_in_2": "f"}})",
        "4:41-4:58 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in_1: "
        "'stream_fmt_in_1' belongs to no input stream\n"
        "  hint: add \"stream_input_1\": \"...\", or remove the format\n");
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f", "stream_fmt_in": "f"}})",
        "3:63-3:78 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' belongs to no input stream\n"
        "  hint: add \"stream_input\": \"...\", or remove the format\n");
}

TEST_F(StreamRulesTest, AFormatMayBeOneTooMany) {
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f", "stream_fmt_out_0": "f"}})",
        "3:63-3:81 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_out_0: "
        "'stream_fmt_out_0' belongs to no output stream\n"
        "  hint: remove it\n");
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
        "3:65-3:80 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' belongs to no input stream\n"
        "  hint: remove it\n");
}

TEST_F(StreamRulesTest, TheNameMayBeMistypedWhichIsToldOfByItself) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                 "stream_ouput": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_output": "b", "stream_fmt_out": "f"}})",
               "4:18-4:32 warning unknown-key /pipe_0/node_0/stream_opts/stream_ouput: "
               "'stream_ouput' is nearly \"stream_output\", but is stored as an option like "
               "any other\n"
               "  hint: write \"stream_output\"\n");
}

TEST_F(StreamRulesTest, TheNameMayHardlyBeKnownAgain) {
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "stream_in": "b", "stream_fmt_in": "f"}})",
        "4:36-4:51 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' belongs to no input stream\n"
        "  4:18-4:29 this is nearly \"stream_input\"\n"
        "  hint: rename 'stream_in' to \"stream_input\"\n");
}

TEST_F(StreamRulesTest, FormatsOfANodeWithoutStreamsAreNotLookedAt) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_fmt_out": "f"}})",
               "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
}

// ---- stream-key-in-extra -----------------------------------------------------

TEST_F(StreamRulesTest, AStreamIsDeclaredInTheOptionsOfStreamsAlone) {
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Camera", "stream_output_0": "b"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "node_opts_extra": {"stream_input": "c"},
 "stream_opts_extra": {"stream_inputs": "d"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
        "2:49-2:66 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_output_0: "
        "'stream_output_0' does not count in \"node_opts\": streams are declared in "
        "\"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n"
        "4:22-4:36 warning stream-key-in-extra /pipe_0/node_0/node_opts_extra/stream_input: "
        "'stream_input' does not count in \"node_opts_extra\": streams are declared "
        "in \"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n"
        "5:24-5:39 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_inputs: "
        "'stream_inputs' does not count in \"stream_opts_extra\": streams are "
        "declared in \"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, SoIsAFormatWithAnIndex) {
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera", "stream_fmt_out_0": "f"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_fmt_in_0": "f"}})",
        "2:49-2:67 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_fmt_out_0: "
        "'stream_fmt_out_0' does not count in \"node_opts\": streams are declared in "
        "\"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n"
        "4:24-4:41 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_fmt_in_0: "
        "'stream_fmt_in_0' does not count in \"stream_opts_extra\": streams are "
        "declared in \"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, TheOtherKeysOfStreamsCountEverywhere) {
    AssertTaker(R"({"node_opts": {"node_name": "Display", "stream_fmt_in": "f"},
 "stream_opts": {"stream_input": "a"},
 "stream_opts_extra": {"stream_mode_in": "remain_newest"}})",
                "");
}

TEST_F(StreamRulesTest, AKeyThatIsDeclaredMayBeReplaced) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": "a"}})",
                "");
}

TEST_F(StreamRulesTest, OptionsOfExecutorsAndLinksAreNotLookedAt) {
    AssertPipe(R"("executor_0": {"executor_opts": {"stream_input": "a"}},
"link_0": {"stream_output_0": "a"})",
               "");
}

// ---- stream-mode -------------------------------------------------------------

TEST_F(StreamRulesTest, TheModeIsWrittenExactly) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "Remain_Newest"}})",
                "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'Remain_Newest' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain-newest"}})",
                "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'remain-newest' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain newest"}})",
                "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'remain newest' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newst"}})",
                "3:79-3:93 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'remain_newst' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newest "}})",
                "3:79-3:95 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'remain_newest ' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newest"}})",
                "");
}

TEST_F(StreamRulesTest, AnotherWordForTheNewestIsNoMode) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "newest_only"}})",
                "3:79-3:92 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'newest_only' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "Latest"}})",
                "3:79-3:87 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'Latest' is not \"remain_newest\": it has no effect\n"
                "  hint: write \"remain_newest\"\n");
}

TEST_F(StreamRulesTest, TheModeIsAText) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": 1}})",
                "3:79-3:80 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": null}})",
                "3:79-3:83 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": true}})",
                "3:79-3:83 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "int32:1"}})",
                "3:79-3:88 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n");
}

TEST_F(StreamRulesTest, EveryOptionObjectOfANodeIsLookedAt) {
    AssertTaker(R"({"node_opts": {"node_name": "Display", "stream_mode_in": 1},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"},
 "node_opts_extra": {"stream_mode_in": 2},
 "stream_opts_extra": {"stream_mode_in": "remain_newest"}})",
                "2:50-2:66 note option-overridden /pipe_0/node_0/node_opts/stream_mode_in: "
                "'stream_mode_in' is overridden: \"stream_opts_extra\" sets it to "
                "'remain_newest' later\n"
                "  5:24-5:40 it is overridden here\n"
                "  hint: remove the one that is not meant\n"
                "2:68-2:69 warning stream-mode /pipe_0/node_0/node_opts/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n"
                "4:22-4:38 note option-overridden /pipe_0/node_0/node_opts_extra/stream_mode_in: "
                "'stream_mode_in' is overridden: \"stream_opts_extra\" sets it to "
                "'remain_newest' later\n"
                "  5:24-5:40 it is overridden here\n"
                "  hint: remove the one that is not meant\n"
                "4:40-4:41 warning stream-mode /pipe_0/node_0/node_opts_extra/stream_mode_in: "
                "\"stream_mode_in\" is no plain text: it has no effect\n"
                "  hint: write \"remain_newest\", or remove it\n");
}

TEST_F(StreamRulesTest, ExecutorsAndLinksHaveNoMode) {
    AssertPipe(R"("executor_0": {"executor_opts": {"stream_mode_in": "newest"}},
"link_0": {"stream_mode_in": 1})",
               "");
}

// ---- stream-mode-unknown -----------------------------------------------------

TEST_F(StreamRulesTest, AnyOtherModeIsAnOptionLikeOthers) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "all"}})",
                "3:79-3:84 note stream-mode-unknown /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'all' is no mode: every item is kept\n"
                "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": ""}})",
                "3:79-3:81 note stream-mode-unknown /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'' is no mode: every item is kept\n"
                "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"},
 "stream_opts_extra": {"stream_mode_in": "remain_oldest"}})",
                "4:42-4:57 note stream-mode-unknown "
                "/pipe_0/node_0/stream_opts_extra/stream_mode_in: "
                "'remain_oldest' is no mode: every item is kept\n"
                "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
}

TEST_F(StreamRulesTest, AModeThatIsTooLongIsToldAsThat) {
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": ")" +
                    std::string(128, 'm') + R"("}})",
                "3:79-3:209 error option-too-long /pipe_0/node_0/stream_opts/stream_mode_in: "
                "'stream_mode_in' is not stored: its text has 128 bytes, and 127 are the most\n"
                "  hint: shorten the text by 1 byte\n");
}

}  // namespace
