// The names, formats and modes of a node's streams, and what may be wrong with them.
#include "tests/check/node_test.h"

namespace {

using StreamRulesTest = NodeTest;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

// A node whose store rejects strings.
class RejectingNode : public QVHostTaskNode {
public:
    RejectingNode() { mOptions = &mNumbers; }

private:
    class Numbers : public QVHostMetaData {
    public:
        int setCString(const char* /*key*/, const char* /*value*/) override { return -1; }
    };

    Numbers mNumbers;
};

// ---- single-stream-key -------------------------------------------------------

TEST_F(StreamRulesTest, TheKeyOfTheOnlyOutputMustNotHaveAnIndex) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                   "3:18-3:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_0: "
                   "'stream_output_0' declares the node's only output, but its name is looked up "
                   "under \"stream_output\": the device aborts\n"
                   "  hint: rename it to \"stream_output\", and 'stream_fmt_out_0' to "
                   "\"stream_fmt_out\"\n");
}

TEST_F(StreamRulesTest, TheKeyOfTheOnlyInputMustNotHaveAnIndex) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
        "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
        "'stream_input_0' declares the node's only input, but its name is looked up under "
        "\"stream_input\": the device aborts\n"
        "  hint: rename it to \"stream_input\", and 'stream_fmt_in_0' to "
        "\"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, AnyOtherSuffixIsReportedToo) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_x": "a", "stream_fmt_out": "f"}})",
                   "3:18-3:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_x: "
                   "'stream_output_x' declares the node's only output, but its name is looked up "
                   "under \"stream_output\": the device aborts\n"
                   "  hint: rename it to \"stream_output\"\n");
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_inputs": "a", "stream_fmt_in": "f"}})",
        "3:18-3:33 error single-stream-key /pipe_0/node_0/stream_opts/stream_inputs: "
        "'stream_inputs' declares the node's only input, but its name is looked up under "
        "\"stream_input\": the device aborts\n"
        "  hint: rename it to \"stream_input\"\n");
}

TEST_F(StreamRulesTest, BothSidesOfANodeAreChecked) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in": "f",
                 "stream_output_0": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
        "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
        "'stream_input_0' declares the node's only input, but its name is looked up under "
        "\"stream_input\": the device aborts\n"
        "  hint: rename it to \"stream_input\"\n"
        "4:18-4:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_0: "
        "'stream_output_0' declares the node's only output, but its name is looked up "
        "under \"stream_output\": the device aborts\n"
        "  hint: rename it to \"stream_output\"\n");
}

TEST_F(StreamRulesTest, TheKeyOfAnotherStreamMayBeMisspelt) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inptu_1": "a", "stream_fmt_in_1": "f"}})",
        "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_0: "
        "'stream_input_0' declares the node's only input, but its name is looked up under "
        "\"stream_input\": the device aborts\n"
        "  4:18-4:34 probably a misspelling of 'stream_input_1'\n"
        "  hint: rename 'stream_inptu_1' to 'stream_input_1'\n");
}

TEST_F(StreamRulesTest, TheKeyOfAnotherStreamMayBeMisplaced) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display", "stream_input_0": "a"},
 "stream_opts": {"stream_input_1": "a", "stream_fmt_in_0": "f", "stream_fmt_in_1": "f"}})",
        "3:18-3:34 error single-stream-key /pipe_0/node_0/stream_opts/stream_input_1: "
        "'stream_input_1' declares the node's only input, but its name is looked up under "
        "\"stream_input\": the device aborts\n"
        "  2:50-2:66 this has no effect here\n"
        "  hint: move 'stream_input_0' into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayHaveTheKeyWithoutAnIndex) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "b", "stream_fmt_in": "f"},
 "stream_opts_extra": {"stream_input": "a"}})",
        "3:36-3:39 warning no-producer /pipe_0/node_0/stream_opts/stream_input_0: "
        "stream 'b' has no producer in this pipe: no data ever arrives\n"
        "  hint: name a stream that a node of the pipe produces, or add a producer\n"
        "4:24-4:38 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_input: "
        "'stream_input' in \"stream_opts_extra\" is an ordinary option: streams are declared only "
        "in \"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, SeveralOutputsHaveIndexes) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                 "stream_output_1": "a1", "stream_fmt_out_1": "f"}})",
                   "4:37-4:41 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
                   "stream 'a1' has no consumer in this pipe: no node receives its data\n"
                   "  hint: add a consumer, unless something outside the pipe consumes it\n");
}

// ---- stream-keys-mixed -------------------------------------------------------

TEST_F(StreamRulesTest, EachOfSeveralOutputsNeedsAnIndex) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "stream_output_1": "b", "stream_fmt_out_1": "f"}})",
        "3:18-3:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_output: "
        "'stream_output' declares one of 2 outputs, whose names are looked up only under "
        "'stream_output_<k>': the device aborts\n"
        "  4:18-4:35 another output is declared here\n"
        "  hint: rename it to 'stream_output_0', and its format likewise\n"
        "4:37-4:40 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
        "stream 'b' has no consumer in this pipe: no node receives its data\n"
        "  hint: add a consumer, unless something outside the pipe consumes it\n");
}

TEST_F(StreamRulesTest, EachOfSeveralInputsNeedsAnIndex) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inputs": "a", "stream_fmt_ins": "f"}})",
        "4:18-4:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_inputs: "
        "'stream_inputs' declares one of 2 inputs, whose names are looked up only under "
        "'stream_input_<k>': the device aborts\n"
        "  3:18-3:34 another input is declared here\n"
        "  hint: rename it to 'stream_input_1', and its format likewise\n"
        "4:40-4:56 warning unknown-key /pipe_0/node_0/stream_opts/stream_fmt_ins: "
        "'stream_fmt_ins' is not a reserved key, but resembles \"stream_fmt_in\": the device "
        "stores it as an ordinary option\n"
        "  hint: rename it to \"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, TheFirstFreeIndexIsSuggested) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                   "4:18-4:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
                   "'stream_input' declares one of 3 inputs, whose names are looked up only under "
                   "'stream_input_<k>': the device aborts\n"
                   "  3:18-3:34 another input is declared here\n"
                   "  hint: rename it to 'stream_input_2', and its format likewise\n");
}

TEST_F(StreamRulesTest, AllInputsMayLackAnIndex) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_input2": "a", "stream_fmt_in2": "f"}})",
        "3:18-3:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
        "'stream_input' declares one of 2 inputs, whose names are looked up only under "
        "'stream_input_<k>': the device aborts\n"
        "  4:18-4:33 another input is declared here\n"
        "  hint: rename it to 'stream_input_0', and its format likewise\n"
        "4:40-4:56 warning unknown-key /pipe_0/node_0/stream_opts/stream_fmt_in2: "
        "'stream_fmt_in2' is not a reserved key, but resembles 'stream_fmt_in_2': the device "
        "stores it as an ordinary option\n"
        "  hint: rename it to 'stream_fmt_in_2'\n");
}

TEST_F(StreamRulesTest, AnEmptyKeyThatNamesAStreamPreventsTheAbort) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "b", "stream_output_1": "a",
                 "stream_fmt_out_1": "f", "": "c"}})",
        "3:18-3:33 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_output: "
        "'stream_output' declares one of 2 outputs, whose names are looked up only under "
        "'stream_output_<k>': the device ignores it\n"
        "  3:40-3:57 another output is declared here\n"
        "  hint: rename it to 'stream_output_0', and its format likewise\n"
        "3:35-3:38 note no-consumer /pipe_0/node_0/stream_opts/stream_output: "
        "stream 'b' has no consumer in this pipe: no node receives its data\n"
        "  hint: add a consumer, unless something outside the pipe consumes it\n"
        "4:47-4:50 note no-consumer /pipe_0/node_0/stream_opts/: "
        "stream 'c' has no consumer in this pipe: no node receives its data\n"
        "  hint: add a consumer, unless something outside the pipe consumes it\n");
}

TEST_F(StreamRulesTest, WrongFormatsAreAConsequenceOfMixedKeys) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                   "3:18-3:32 error stream-keys-mixed /pipe_0/node_0/stream_opts/stream_input: "
                   "'stream_input' declares one of 2 inputs, whose names are looked up only under "
                   "'stream_input_<k>': the device aborts\n"
                   "  4:18-4:34 another input is declared here\n"
                   "  hint: rename it to 'stream_input_0', and its format likewise\n");
}

// ---- stream-not-text ---------------------------------------------------------

TEST_F(StreamRulesTest, ANameMustBeAString) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": 5, "stream_fmt_out": "f"}})",
                   "3:35-3:36 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is a number, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": null, "stream_fmt_out": "f"}})",
                   "3:35-3:39 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is null, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": true, "stream_fmt_out": "f"}})",
                   "3:35-3:39 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is a boolean, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": ["a"], "stream_fmt_out": "f"}})",
                   "3:35-3:40 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is an array, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": {"name": "a"}, "stream_fmt_out": "f"}})",
                   "3:35-3:48 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is an object, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AFormatMustBeAString) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": 1.5}})",
                   "3:58-3:61 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
                   "the format of the output stream is a number, not a string: node set-up throws\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": null}})",
                   "3:58-3:62 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
                   "the format of the output stream is null, not a string: node set-up throws\n"
                   "  hint: write a plain string of at most 127 bytes\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": false}})",
                   "3:56-3:61 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_in: "
                   "the format of the input stream is a boolean, not a string: node set-up throws\n"
                   "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AStringThatBeginsWithATypeWordIsStoredAsANumber) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "int32:5", "stream_fmt_out": "float"}})",
        "3:35-3:44 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
        "the name of the output stream is 'int32:5', which is stored as a number because 'int32' "
        "is a type word: the device aborts\n"
        "  hint: write a plain string of at most 127 bytes\n"
        "3:64-3:71 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
        "the format of the output stream is 'float', which is stored as a number because 'float' "
        "is a type word: node set-up throws\n"
        "  hint: write a plain string of at most 127 bytes\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "int64:x", "stream_fmt_in": "f"}})",
                   "3:34-3:43 error stream-not-text /pipe_0/node_0/stream_opts/stream_input: "
                   "the name of the input stream is 'int64:x', which is stored as a number "
                   "because 'int64' is a type word: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AStringOf128BytesIsNotStored) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": ")" +
            std::string(128, 'x') + R"(", "stream_fmt_out": "f"}})",
        "3:35-3:165 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
        "the name of the output stream has 128 bytes, but the maximum is 127: the device "
        "aborts\n"
        "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AnyOtherStringIsANameOrAFormat) {
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

TEST_F(StreamRulesTest, EachOfSeveralStreamsIsChecked) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": 5, "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": null}})",
                   "3:36-3:37 error stream-not-text /pipe_0/node_0/stream_opts/stream_input_0: "
                   "the name of the input stream is a number, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n"
                   "4:60-4:64 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_in_1: "
                   "the format of the input stream is null, not a string: node set-up throws\n"
                   "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayOverrideAStringWithANumber) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": 5}})",
        "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
        "'stream_output' is overridden by \"stream_opts_extra\": the device stores int32 5\n"
        "  4:24-4:39 overridden here\n"
        "  hint: remove the one that you did not intend\n"
        "4:41-4:42 error stream-not-text /pipe_0/node_0/stream_opts_extra/stream_output: "
        "the name of the output stream is a number, not a string: the device aborts\n"
        "  hint: write a plain string of at most 127 bytes\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayOverrideANumberWithAString) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": 5, "stream_fmt_out": "f"},
 "node_opts_extra": {"stream_output": "a"}})",
                   "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
                   "'stream_output' is overridden by \"node_opts_extra\": the device stores 'a'\n"
                   "  4:22-4:37 overridden here\n"
                   "  hint: remove the one that you did not intend\n");
}

TEST_F(StreamRulesTest, AnOptionThatIsNotStoredOverridesNothing) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": null}})",
        "4:41-4:45 warning option-not-stored /pipe_0/node_0/stream_opts_extra/stream_output: "
        "'stream_output' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n");
}

TEST_F(StreamRulesTest, TheStoreOfAClassMayRejectStrings) {
    RegisterCreator("Rejecting", create<RejectingNode>);
    AssertProducer(R"({"node_opts": {"node_name": "Rejecting"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   "3:35-3:38 error stream-not-text /pipe_0/node_0/stream_opts/stream_output: "
                   "the name of the output stream is not found in the options of class "
                   "'Rejecting': the device aborts\n"
                   "  hint: check which options the class keeps in its store\n");
}

TEST_F(StreamRulesTest, AKeyEndsAtANul) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output\u0000": 5, "stream_fmt_out": "f"}})",
                   "3:41-3:42 error stream-not-text /pipe_0/node_0/stream_opts/stream_output\0: "
                   "the name of the output stream is a number, not a string: the device aborts\n"
                   "  hint: write a plain string of at most 127 bytes\n"s);
}

// ---- stream-name-empty -------------------------------------------------------

TEST_F(StreamRulesTest, AStreamNeedsAName) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "", "stream_fmt_out": "f"}})",
               "3:35-3:37 error stream-name-empty /pipe_0/node_0/stream_opts/stream_output: "
               "the name of the output stream is empty; the task graph refuses it, and node_0 is "
               "silently left uninitialised\n"
               "  hint: name the stream\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "", "stream_fmt_in": "f"}})",
               "3:34-3:36 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input: "
               "the name of the input stream is empty; the task graph refuses it, and node_0 is "
               "silently left uninitialised\n"
               "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, EachOfSeveralStreamsNeedsAName) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f",
                 "stream_input_2": "", "stream_fmt_in_2": "f"}})",
        "3:36-3:38 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input_0: "
        "the name of the input stream is empty; the task graph refuses it, and node_0 is "
        "silently left uninitialised\n"
        "  hint: name the stream\n"
        "5:36-5:38 error stream-name-empty /pipe_0/node_0/stream_opts/stream_input_2: "
        "the name of the input stream is empty; the task graph refuses it, and node_0 is "
        "silently left uninitialised\n"
        "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, ANameEndsAtANul) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "\u0000a", "stream_fmt_out": "f"}})",
               "3:35-3:44 error stream-name-empty /pipe_0/node_0/stream_opts/stream_output: "
               "the name of the output stream is empty; the task graph refuses it, and node_0 is "
               "silently left uninitialised\n"
               "  hint: name the stream\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayReplaceAnEmptyName) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": "a"}})",
                   "3:18-3:33 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
                   "'stream_output' is overridden by \"stream_opts_extra\": the device stores "
                   "'a'\n"
                   "  4:24-4:39 overridden here\n"
                   "  hint: remove the one that you did not intend\n");
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
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"}})",
        "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
        "output stream 'a' has no format: \"stream_fmt_out\" is missing, and node set-up "
        "throws\n"
        "  hint: add \"stream_fmt_out\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnInputNeedsAFormat) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a"}})",
                   "3:18-3:32 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input: "
                   "input stream 'a' has no format: \"stream_fmt_in\" is missing, and node set-up "
                   "throws\n"
                   "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, EachOfSeveralStreamsNeedsAFormat) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_output_1": "b", "stream_output_2": "c"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "3:18-3:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_0: "
               "output stream 'a' has no format: 'stream_fmt_out_0' is missing, and node set-up "
               "throws\n"
               "  hint: add \"stream_fmt_out_0\": \"...\" to \"stream_opts\"\n"
               "3:42-3:59 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_1: "
               "output stream 'b' has no format: 'stream_fmt_out_1' is missing, and node set-up "
               "throws\n"
               "  hint: add \"stream_fmt_out_1\": \"...\" to \"stream_opts\"\n"
               "3:66-3:83 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_2: "
               "output stream 'c' has no format: 'stream_fmt_out_2' is missing, and node set-up "
               "throws\n"
               "  hint: add \"stream_fmt_out_2\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, TheNameWithoutAFormatOfTheSameSuffixIsReported) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                 "stream_output_1": "b",
                 "stream_output_2": "c", "stream_fmt_out_2": "f"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "4:18-4:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_1: "
               "output stream 'b' has no format: 'stream_fmt_out_1' is missing, and node set-up "
               "throws\n"
               "  hint: add \"stream_fmt_out_1\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, TheLastNameIsReportedIfNoSuffixMatches) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_a": "f",
                 "stream_output_1": "b", "stream_fmt_out_b": "f",
                 "stream_output_2": "c"}},
"node_1": {"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "b", "stream_fmt_in_1": "f",
                 "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
               "5:18-5:35 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output_2: "
               "output stream 'c' has no format: 'stream_fmt_out_2' is missing, and node set-up "
               "throws\n"
               "  hint: add \"stream_fmt_out_2\": \"...\" to \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AnExtraObjectMayHaveTheFormatOfTheOnlyStream) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"},
 "node_opts_extra": {"stream_fmt_out": "f"}})",
                   "");
}

TEST_F(StreamRulesTest, AnExtraObjectCannotHaveTheFormatOfOneOfSeveralStreams) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "a"},
 "stream_opts_extra": {"stream_fmt_in_1": "f"}})",
        "3:65-3:81 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_1: "
        "input stream 'a' has no format: 'stream_fmt_in_1' is missing, and node set-up throws\n"
        "  4:24-4:41 this has no effect here\n"
        "  hint: move 'stream_fmt_in_1' into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, AFormatMayBeMisplacedInTheNodeItself) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a"}, "stream_fmt_out": "f"})",
        "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
        "output stream 'a' has no format: \"stream_fmt_out\" is missing, and node set-up throws\n"
        "  3:41-3:57 this has no effect here\n"
        "  hint: move 'stream_fmt_out' into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, TheKeyOfAFormatMayBeMisspelt) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_uot": "f"}})",
        "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
        "output stream 'a' has no format: \"stream_fmt_out\" is missing, and node set-up "
        "throws\n"
        "  3:40-3:56 probably a misspelling of \"stream_fmt_out\"\n"
        "  hint: rename 'stream_fmt_uot' to \"stream_fmt_out\"\n");
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_inn_1": "f"}})",
        "4:18-4:34 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_1: "
        "input stream 'a' has no format: 'stream_fmt_in_1' is missing, and node set-up "
        "throws\n"
        "  4:41-4:59 probably a misspelling of 'stream_fmt_in_1'\n"
        "  hint: rename 'stream_fmt_inn_1' to 'stream_fmt_in_1'\n");
}

TEST_F(StreamRulesTest, AFormatMayHaveTheKeyOfTheOtherSide) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_in": "f"}})",
        "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
        "output stream 'a' has no format: \"stream_fmt_out\" is missing, and node set-up "
        "throws\n"
        "  3:40-3:55 no input uses this format\n"
        "  hint: rename 'stream_fmt_in' to \"stream_fmt_out\"\n");
}

TEST_F(StreamRulesTest, TheFormatOfTheOnlyStreamMayHaveAnIndex) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out_0": "f"}})",
        "3:18-3:33 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
        "output stream 'a' has no format: \"stream_fmt_out\" is missing, and node set-up "
        "throws\n"
        "  3:40-3:58 only nodes with several outputs use such a key\n"
        "  hint: rename 'stream_fmt_out_0' to \"stream_fmt_out\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_1": "f"}})",
                   "3:18-3:32 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input: "
                   "input stream 'a' has no format: \"stream_fmt_in\" is missing, and node set-up "
                   "throws\n"
                   "  3:39-3:56 only nodes with several inputs use such a key\n"
                   "  hint: rename 'stream_fmt_in_1' to \"stream_fmt_in\"\n");
}

TEST_F(StreamRulesTest, TheFormatOfOneOfSeveralStreamsMayLackItsIndex) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
        "3:18-3:34 error stream-format-missing /pipe_0/node_0/stream_opts/stream_input_0: "
        "input stream 'a' has no format: 'stream_fmt_in_0' is missing, and node set-up "
        "throws\n"
        "  3:41-3:56 only nodes with one input use this key\n"
        "  hint: rename 'stream_fmt_in' to 'stream_fmt_in_0'\n");
}

TEST_F(StreamRulesTest, AnEmptyKeyIsTheFormatIfTooFewKeysHaveIndexes) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "a", "": "f"}})",
                   "");
}

TEST_F(StreamRulesTest, AMissingFormatIsNotReportedForAMissingName) {
    Register({"Join", 2, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Join' has 2 inputs, but only 1 is named: the device aborts\n"
                   "  hint: add \"stream_input_1\": \"...\" and its format to \"stream_opts\"\n");
}

// ---- stream-families-differ --------------------------------------------------

TEST_F(StreamRulesTest, EachFormatShouldHaveTheSuffixOfItsName) {
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
        "'stream_fmt_out_2' becomes the format of 'stream_output_1': names and formats are paired "
        "in the order of their keys\n"
        "  4:18-4:35 paired with this name\n"
        "  hint: give each name and its format the same suffix\n");
}

TEST_F(StreamRulesTest, SuffixesAreComparedInTheOrderOfKeys) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_9": "a", "stream_fmt_in_9": "f",
                 "stream_input_10": "a", "stream_fmt_in_010": "f"}})",
        "4:18-4:35 note key-order /pipe_0/node_0/stream_opts/stream_input_10: "
        "'stream_input_10' sorts before 'stream_input_9': the device reads keys in byte order\n"
        "  3:18-3:34 sorts later\n"
        "  hint: if the order matters, number the keys from 'stream_input_00', and their "
        "formats likewise\n"
        "4:42-4:61 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in_010: "
        "'stream_fmt_in_010' becomes the format of 'stream_input_10': names and formats are "
        "paired in the order of their keys\n"
        "  4:18-4:35 paired with this name\n"
        "  hint: give each name and its format the same suffix\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_9": "a", "stream_fmt_in_9": "f",
                 "stream_input_x": "a", "stream_fmt_in_x": "f"}})",
                   "");
}

TEST_F(StreamRulesTest, AFormatWithoutANameIsReported) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_2": "a", "stream_fmt_in_1": "f", "stream_fmt_in_2": "f"}})",
        "4:41-4:58 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in_1: "
        "'stream_fmt_in_1' does not belong to any input stream: the device ignores it\n"
        "  hint: add \"stream_input_1\": \"...\", or remove the format\n");
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f", "stream_fmt_in": "f"}})",
        "3:63-3:78 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' does not belong to any input stream: the device ignores it\n"
        "  hint: add \"stream_input\": \"...\", or remove the format\n");
}

TEST_F(StreamRulesTest, ASurplusFormatIsReported) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f", "stream_fmt_out_0": "f"}})",
        "3:63-3:81 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_out_0: "
        "'stream_fmt_out_0' does not belong to any output stream: the device ignores it\n"
        "  hint: remove it\n");
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
        "3:65-3:80 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' does not belong to any input stream: the device ignores it\n"
        "  hint: remove it\n");
}

TEST_F(StreamRulesTest, AMisspeltNameIsReportedInsteadOfItsFormat) {
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                 "stream_ouput": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_output": "b", "stream_fmt_out": "f"}})",
        "4:18-4:32 warning unknown-key /pipe_0/node_0/stream_opts/stream_ouput: "
        "'stream_ouput' is not a reserved key, but resembles \"stream_output\": the device stores "
        "it as an ordinary option\n"
        "  hint: rename it to \"stream_output\"\n");
}

TEST_F(StreamRulesTest, ABadlyMisspeltNameIsRelatedToItsFormat) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "stream_in": "b", "stream_fmt_in": "f"}})",
        "4:36-4:51 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in: "
        "'stream_fmt_in' does not belong to any input stream: the device ignores it\n"
        "  4:18-4:29 probably a misspelling of \"stream_input\"\n"
        "  hint: rename 'stream_in' to \"stream_input\"\n");
}

TEST_F(StreamRulesTest, FormatsOfANodeWithoutStreamsAreNotChecked) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_fmt_out": "f"}})",
               "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: node set-up fails\n"
               "  hint: add \"stream_input\" or \"stream_output\" to \"stream_opts\"\n");
}

// ---- stream-key-in-extra -----------------------------------------------------

TEST_F(StreamRulesTest, StreamsAreDeclaredOnlyInStreamOptions) {
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Camera", "stream_output_0": "b"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "node_opts_extra": {"stream_input": "c"},
 "stream_opts_extra": {"stream_inputs": "d"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
        "2:49-2:66 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_output_0: "
        "'stream_output_0' in \"node_opts\" is an ordinary option: streams are declared only in "
        "\"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n"
        "4:22-4:36 warning stream-key-in-extra /pipe_0/node_0/node_opts_extra/stream_input: "
        "'stream_input' in \"node_opts_extra\" is an ordinary option: streams are declared only "
        "in \"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n"
        "5:24-5:39 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_inputs: "
        "'stream_inputs' in \"stream_opts_extra\" is an ordinary option: streams are declared "
        "only in \"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, IndexedFormatsBelongOnlyInStreamOptions) {
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera", "stream_fmt_out_0": "f"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_fmt_in_0": "f"}})",
        "2:49-2:67 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_fmt_out_0: "
        "'stream_fmt_out_0' in \"node_opts\" is an ordinary option: streams are declared only in "
        "\"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n"
        "4:24-4:41 warning stream-key-in-extra /pipe_0/node_0/stream_opts_extra/stream_fmt_in_0: "
        "'stream_fmt_in_0' in \"stream_opts_extra\" is an ordinary option: streams are declared "
        "only in \"stream_opts\"\n"
        "  hint: move it into \"stream_opts\"\n");
}

TEST_F(StreamRulesTest, OtherKeysOfStreamsHaveAMeaningInAnyObject) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display", "stream_fmt_in": "f"},
 "stream_opts": {"stream_input": "a"},
 "stream_opts_extra": {"stream_mode_in": "remain_newest"}})",
                   "");
}

TEST_F(StreamRulesTest, ADeclaredKeyMayBeOverridden) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts_extra": {"stream_output": "a"}})",
                   "");
}

TEST_F(StreamRulesTest, OptionsOfExecutorsAndLinksAreNotChecked) {
    AssertPipe(R"("executor_0": {"executor_opts": {"stream_input": "a"}},
"link_0": {"stream_output_0": "a"})",
               "");
}

// ---- stream-mode -------------------------------------------------------------

TEST_F(StreamRulesTest, TheModeMustBeSpelledExactly) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "Remain_Newest"}})",
                   "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'Remain_Newest' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain-newest"}})",
                   "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'remain-newest' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain newest"}})",
                   "3:79-3:94 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'remain newest' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newst"}})",
                   "3:79-3:93 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'remain_newst' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newest "}})",
                   "3:79-3:95 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'remain_newest ' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "remain_newest"}})",
                   "");
}

TEST_F(StreamRulesTest, AWordThatMeansLatestIsReported) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "newest_only"}})",
                   "3:79-3:92 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'newest_only' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "Latest"}})",
                   "3:79-3:87 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "mode 'Latest' is not \"remain_newest\": the device ignores it\n"
                   "  hint: write \"remain_newest\"\n");
}

TEST_F(StreamRulesTest, TheModeMustBeAString) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": 1}})",
                   "3:79-3:80 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
                   "  hint: write \"remain_newest\", or remove it\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": null}})",
                   "3:79-3:83 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
                   "  hint: write \"remain_newest\", or remove it\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": true}})",
                   "3:79-3:83 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
                   "  hint: write \"remain_newest\", or remove it\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "int32:1"}})",
                   "3:79-3:88 warning stream-mode /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
                   "  hint: write \"remain_newest\", or remove it\n");
}

TEST_F(StreamRulesTest, EveryOptionObjectOfANodeIsChecked) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display", "stream_mode_in": 1},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"},
 "node_opts_extra": {"stream_mode_in": 2},
 "stream_opts_extra": {"stream_mode_in": "remain_newest"}})",
        "2:50-2:66 note option-overridden /pipe_0/node_0/node_opts/stream_mode_in: "
        "'stream_mode_in' is overridden by \"stream_opts_extra\": the device stores "
        "'remain_newest'\n"
        "  5:24-5:40 overridden here\n"
        "  hint: remove the one that you did not intend\n"
        "2:68-2:69 warning stream-mode /pipe_0/node_0/node_opts/stream_mode_in: "
        "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
        "  hint: write \"remain_newest\", or remove it\n"
        "4:22-4:38 note option-overridden /pipe_0/node_0/node_opts_extra/stream_mode_in: "
        "'stream_mode_in' is overridden by \"stream_opts_extra\": the device stores "
        "'remain_newest'\n"
        "  5:24-5:40 overridden here\n"
        "  hint: remove the one that you did not intend\n"
        "4:40-4:41 warning stream-mode /pipe_0/node_0/node_opts_extra/stream_mode_in: "
        "\"stream_mode_in\" is not stored as a string: the device ignores it\n"
        "  hint: write \"remain_newest\", or remove it\n");
}

TEST_F(StreamRulesTest, ExecutorsAndLinksHaveNoMode) {
    AssertPipe(R"("executor_0": {"executor_opts": {"stream_mode_in": "newest"}},
"link_0": {"stream_mode_in": 1})",
               "");
}

// ---- stream-mode-unknown -----------------------------------------------------

TEST_F(StreamRulesTest, AnUnknownModeIsNoted) {
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": "all"}})",
        "3:79-3:84 note stream-mode-unknown /pipe_0/node_0/stream_opts/stream_mode_in: "
        "mode 'all' is unknown: the inputs keep every item\n"
        "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": ""}})",
        "3:79-3:81 note stream-mode-unknown /pipe_0/node_0/stream_opts/stream_mode_in: "
        "mode '' is unknown: the inputs keep every item\n"
        "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
    AssertConsumer(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"},
 "stream_opts_extra": {"stream_mode_in": "remain_oldest"}})",
        "4:42-4:57 note stream-mode-unknown "
        "/pipe_0/node_0/stream_opts_extra/stream_mode_in: "
        "mode 'remain_oldest' is unknown: the inputs keep every item\n"
        "  hint: write \"remain_newest\", or remove it unless the node's class reads it\n");
}

TEST_F(StreamRulesTest, AModeThatIsTooLongIsReportedAsSuch) {
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": ")" +
                       std::string(128, 'm') + R"("}})",
                   "3:79-3:209 error option-too-long /pipe_0/node_0/stream_opts/stream_mode_in: "
                   "'stream_mode_in' is a string of 128 bytes, but the maximum is 127: it is not "
                   "stored\n"
                   "  hint: shorten the string by 1 byte\n");
}

}  // namespace
