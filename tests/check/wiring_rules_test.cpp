// How the nodes of a pipe are connected, and what may be wrong with that.
#include <string>

#include "tests/check/check_test.h"

namespace {

class WiringRulesTest : public CheckTest {
protected:
    // Expects a configuration with these two pipes to have these findings.
    static void AssertPipes(const std::string& first,
                            const std::string& second,
                            const std::string& findings) {
        AssertPipe(nodesOf(first) + "\n},\n\"pipe_1\": {\n" + nodesOf(second), findings);
    }
};

// ---- two-producers -----------------------------------------------------------

TEST_F(WiringRulesTest, TheSecondProducerIsRefused) {
    AssertNodes("Camera#left > a:f; Camera#right > a:f; a:f > Display",
                "5:45-5:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_1 is silently left uninitialised\n"
                "  3:45-3:48 first produced here\n"
                "  hint: give each stream a unique name\n");
}

TEST_F(WiringRulesTest, EveryFurtherProducerIsReported) {
    AssertNodes("Camera > a:f; Camera > a:f; Camera > a:f; a:f > Display",
                "5:45-5:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_1 is silently left uninitialised\n"
                "  3:45-3:48 first produced here\n"
                "  hint: give each stream a unique name\n"
                "7:45-7:48 error two-producers /pipe_0/node_2/stream_opts/stream_output: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_2 is silently left uninitialised\n"
                "  3:45-3:48 first produced here\n"
                "  hint: give each stream a unique name\n");
}

TEST_F(WiringRulesTest, TheFirstProducerIsTheFirstInTheOrderOfKeys) {
    AssertPipe(R"("node_2": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_10": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "3:45-3:48 error two-producers /pipe_0/node_2/stream_opts/stream_output: "
               "stream 'a' already has a producer, 'node_10'; the task graph refuses the second "
               "one, and node_2 is silently left uninitialised\n"
               "  5:45-5:48 first produced here\n"
               "  hint: give each stream a unique name\n"
               "4:1-4:10 note key-order /pipe_0/node_10: "
               "'node_10' sorts before 'node_2': the device reads keys in byte order\n"
               "  2:1-2:9 sorts later\n"
               "  hint: if the order matters, number the keys from 'node_10'\n");
}

TEST_F(WiringRulesTest, ANodeCannotProduceAStreamTwice) {
    AssertNodes("Stereo > a:f, a:f; a:f > Display",
                "3:96-3:99 error two-producers /pipe_0/node_0/stream_opts/stream_output_1: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_0 is silently left uninitialised\n"
                "  3:47-3:50 first produced here\n"
                "  hint: give each stream a unique name\n");
}

TEST_F(WiringRulesTest, TwoPipesMayProduceStreamsWithTheSameName) {
    AssertPipes("Camera > a:f; a:f > Display", "Camera > a:f; a:f > Display", "");
}

TEST_F(WiringRulesTest, ASecondProducerExplainsAMissingOne) {
    AssertNodes("Camera > left:f; Camera > left:f; left:f, right:f > Join",
                "5:45-5:51 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
                "stream 'left' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_1 is silently left uninitialised\n"
                "  3:45-3:51 first produced here\n"
                "  hint: give each stream a unique name\n");
}

// ---- no-producer -------------------------------------------------------------

TEST_F(WiringRulesTest, AConsumedStreamNeedsAProducer) {
    AssertNodes("frames:f > Display",
                "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "stream 'frames' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

TEST_F(WiringRulesTest, AnOverriddenNameProducesNoStream) {
    AssertNodes("a:f > Display",
                "3:44-3:47 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "stream 'a' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n"
                "5:28-5:43 note option-overridden /pipe_0/node_1/stream_opts/stream_output: "
                "'stream_output' is overridden by \"stream_opts_extra\": the device stores 'b'\n"
                "  6:34-6:49 overridden here\n"
                "  hint: remove the one that you did not intend\n"
                "6:51-6:54 note no-consumer /pipe_0/node_1/stream_opts_extra/stream_output: "
                "stream 'b' has no consumer in this pipe: no node receives its data\n"
                "  hint: add a consumer, unless something outside the pipe consumes it\n",
                R"("node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
           "stream_opts_extra": {"stream_output": "b"}})");
}

TEST_F(WiringRulesTest, AnOverriddenNameConsumesNoStream) {
    AssertNodes("Camera > a:f",
                "3:45-3:48 note no-consumer /pipe_0/node_0/stream_opts/stream_output: "
                "stream 'a' has no consumer in this pipe: no node receives its data\n"
                "  hint: add a consumer, unless something outside the pipe consumes it\n"
                "4:50-4:64 note option-overridden /pipe_0/node_1/node_opts/stream_input: "
                "'stream_input' is overridden by \"stream_opts\": the device stores 'b'\n"
                "  5:28-5:42 overridden here\n"
                "  hint: remove the one that you did not intend\n"
                "5:44-5:47 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
                "stream 'b' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n",
                R"("node_1": {"node_opts": {"node_name": "Display", "stream_input": "a"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})");
}

TEST_F(WiringRulesTest, ASimilarStreamIsSuggestedAndNotReportedItself) {
    AssertNodes("Camera > frames:f; frame:f > Display",
                "5:44-5:51 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
                "stream 'frame' has no producer in this pipe: no data ever arrives\n"
                "  hint: write 'frames' if you intended that stream\n");
}

TEST_F(WiringRulesTest, AStreamWithoutAConsumerIsSuggestedFirst) {
    AssertNodes("Camera > frame1x:f, frame2x:f; frame1x:f > Display; frameX:f > Display",
                "7:44-7:52 warning no-producer /pipe_0/node_2/stream_opts/stream_input: "
                "stream 'frameX' has no producer in this pipe: no data ever arrives\n"
                "  hint: write 'frame2x' if you intended that stream\n");
}

TEST_F(WiringRulesTest, NamesThatDifferInDigitsAreNotSimilar) {
    AssertNodes("Camera > frames_0:f; frames_0:f, frames_1:f > Display",
                "5:100-5:110 warning no-producer /pipe_0/node_1/stream_opts/stream_input_1: "
                "stream 'frames_1' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

TEST_F(WiringRulesTest, ShortNamesAreNotSimilar) {
    AssertNodes("Camera > ab:f; ab:f, ac:f > Display",
                "5:94-5:98 warning no-producer /pipe_0/node_1/stream_opts/stream_input_1: "
                "stream 'ac' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

TEST_F(WiringRulesTest, StreamsDoNotCrossPipes) {
    AssertPipes("frames:f > Display",
                "Camera > frames:f; frames:f > Display",
                "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "stream 'frames' has no producer in this pipe: no data ever arrives\n"
                "  hint: produce it in this pipe as well: streams do not cross pipes, and its "
                "producer is in 'pipe_1'\n");
}

TEST_F(WiringRulesTest, EveryOtherConsumerIsRelated) {
    AssertNodes("frames:f > Display; frames:f > Filter > b:f; b:f, frames:f > Display",
                "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "stream 'frames' has no producer in this pipe: no data ever arrives\n"
                "  5:44-5:52 also consumed here\n"
                "  7:93-7:101 also consumed here\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

TEST_F(WiringRulesTest, AtMostSevenOtherConsumersAreRelated) {
    AssertNodes(
        "frames:f, frames:f, frames:f, frames:f, frames:f, "
        "frames:f, frames:f, frames:f, frames:f, frames:f > Display",
        "3:46-3:54 warning no-producer /pipe_0/node_0/stream_opts/stream_input_0: "
        "stream 'frames' has no producer in this pipe: no data ever arrives\n"
        "  3:98-3:106 also consumed here\n"
        "  3:150-3:158 also consumed here\n"
        "  3:202-3:210 also consumed here\n"
        "  3:254-3:262 also consumed here\n"
        "  3:306-3:314 also consumed here\n"
        "  3:358-3:366 also consumed here\n"
        "  3:410-3:418 also consumed here\n"
        "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

// ---- no-consumer -------------------------------------------------------------

TEST_F(WiringRulesTest, AStreamWithoutAConsumerIsNoted) {
    AssertNodes("Camera > frames:f, sound:f; frames:f > Display",
                "3:101-3:108 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
                "stream 'sound' has no consumer in this pipe: no node receives its data\n"
                "  hint: add a consumer, unless something outside the pipe consumes it\n");
}

// ---- Broken neighbours -------------------------------------------------------

TEST_F(WiringRulesTest, AMisspeltOutputKeyIsNotReportedAtTheConsumer) {
    AssertNodes(
        "a:f > Filter > b:f",
        "6:28-6:42 warning unknown-key /pipe_0/node_1/stream_opts/stream_ouput: "
        "'stream_ouput' is not a reserved key, but resembles \"stream_output\": the device stores "
        "it as an ordinary option\n"
        "  hint: rename it to \"stream_output\"\n",
        R"("node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_ouput": "a", "stream_fmt_out": "f"}})");
}

TEST_F(WiringRulesTest, AMisspeltInputKeyIsNotReportedAtTheProducer) {
    AssertNodes(
        "b:f > Filter > a:f",
        "6:28-6:42 warning unknown-key /pipe_0/node_1/stream_opts/stream_inptu: "
        "'stream_inptu' is not a reserved key, but resembles \"stream_input\": the device stores "
        "it as an ordinary option\n"
        "  hint: rename it to \"stream_input\"\n",
        R"("node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f",
                           "stream_inptu": "a", "stream_fmt_in": "f"}})");
}

TEST_F(WiringRulesTest, AMisplacedOutputKeyIsNotReportedAtTheConsumer) {
    AssertNodes("a:f > Filter > b:f",
                "4:49-4:64 warning stream-key-in-extra /pipe_0/node_1/node_opts/stream_output: "
                "'stream_output' in \"node_opts\" is an ordinary option: streams are declared "
                "only in \"stream_opts\"\n"
                "  hint: move it into \"stream_opts\"\n",
                R"("node_1": {"node_opts": {"node_name": "Filter", "stream_output": "a"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})");
    AssertNodes("a:f > Filter > b:f",
                "4:50-4:65 warning unknown-key /pipe_0/node_1/stream_output: "
                "'stream_output' is not a reserved key of a node: the device ignores it\n"
                "  hint: move it into \"stream_opts\"\n",
                R"("node_1": {"node_opts": {"node_name": "Filter"}, "stream_output": "a",
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})");
}

TEST_F(WiringRulesTest, AMisspeltNodeKeyIsNotReportedAtItsNeighbours) {
    AssertNodes("Camera > a:f; b:f > Display",
                "6:1-6:8 warning unknown-key /pipe_0/nod_2: "
                "'nod_2' is not a reserved key of a pipe: the device ignores it\n"
                "  hint: rename it to 'node_2'\n",
                R"("nod_2": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}})");
}

TEST_F(WiringRulesTest, AMisplacedNodeIsNotReportedAtItsNeighbours) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:1-4:9 warning unknown-key /pipe_0/node_0/node_1: "
               "'node_1' is not a reserved key of a node: the device ignores it\n"
               "  hint: move it into a pipe\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"link_0": {"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:22-6:73 warning option-not-stored /pipe_0/link_0/node_1: "
               "'node_1' is an object, not a number or a string: it is not stored\n"
               "  hint: move its members up, next to the other options\n");
}

TEST_F(WiringRulesTest, ABrokenNodeIsNotReportedAtItsNeighbours) {
    AssertNodes("Camera > a:f; b:f > Display",
                "6:11-6:19 error section-not-object /pipe_0/node_2: "
                "'node_2' is a string, not an object: no node is created\n"
                "  hint: write an object, {...}\n",
                R"("node_2": "Filter")");
    AssertNodes("Camera > a:f; b:f > Display",
                "6:1-6:9 error no-streams /pipe_0/node_2: "
                "'node_2' has neither inputs nor outputs: node set-up fails\n"
                "  hint: add \"stream_input\" or \"stream_output\" to \"stream_opts\"\n",
                R"("node_2": {"node_opts": {"node_name": "Filter"}})");
    AssertNodes("Camera > a:f; b:f > Display",
                "7:44-7:45 error stream-not-text /pipe_0/node_2/stream_opts/stream_input: "
                "the name of the input stream is a number, not a string: the device aborts\n"
                "  hint: write a plain string of at most 127 bytes\n"
                "8:45-8:49 error stream-not-text /pipe_0/node_2/stream_opts/stream_output: "
                "the name of the output stream is null, not a string: the device aborts\n"
                "  hint: write a plain string of at most 127 bytes\n",
                R"("node_2": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": 5, "stream_fmt_in": "f",
                           "stream_output": null, "stream_fmt_out": "f"}})");
}

TEST_F(WiringRulesTest, ANodeThatIsNotSetUpKeepsItsStreams) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Camera", 0, 1});
    Register({"Display", 1, 0});
    AssertNodes("Camera > a:f; a:f > Filter > b:f; b:f > Display",
                "4:39-4:47 error node-class /pipe_0/node_1/node_opts/node_name: "
                "class 'Filter' is not registered: no node is created\n"
                "  hint: use --plugin to load the library that registers it\n");
    AssertNodes("Camera > a:f",
                "4:1-4:9 error id-not-canonical /pipe_0/node_x: "
                "'node_x' has id 0, which maps to 'node_0': the device sets up that node instead\n"
                "  2:1-2:9 has the same id\n"
                "  hint: rename it to 'node_1'\n",
                R"("node_x": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})");
}

TEST_F(WiringRulesTest, AMisspeltStreamIsReportedInAdditionToABrokenNode) {
    AssertNodes("Camera > frames:f; frame:f > Display",
                "5:44-5:51 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
                "stream 'frame' has no producer in this pipe: no data ever arrives\n"
                "  hint: write 'frames' if you intended that stream\n"
                "6:11-6:12 error section-not-object /pipe_0/node_2: "
                "'node_2' is a number, not an object: no node is created\n"
                "  hint: write an object, {...}\n",
                R"("node_2": 5)");
}

// ---- format-mismatch ---------------------------------------------------------

TEST_F(WiringRulesTest, BothEndsMustHaveTheSameFormat) {
    AssertNodes("Camera > a:image:nv12; a:image:rgb24 > Display",
                "5:66-5:79 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
                "stream 'a' is consumed as 'image:rgb24', but 'node_0' produces it as "
                "'image:nv12': the device does not convert it\n"
                "  3:68-3:80 format of the producer\n"
                "  hint: use the same format at both ends of the stream\n");
}

TEST_F(WiringRulesTest, EveryConsumerWithADifferentFormatIsReported) {
    AssertNodes("Camera > a:nv12; a:rgb24 > Display; a:nv12 > Display; a:NV12 > Display",
                "5:66-5:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
                "stream 'a' is consumed as 'rgb24', but 'node_0' produces it as 'nv12': the device "
                "does not convert it\n"
                "  3:68-3:74 format of the producer\n"
                "  hint: use the same format at both ends of the stream\n"
                "9:66-9:72 warning format-mismatch /pipe_0/node_3/stream_opts/stream_fmt_in: "
                "stream 'a' is consumed as 'NV12', but 'node_0' produces it as 'nv12': the device "
                "does not convert it\n"
                "  3:68-3:74 format of the producer\n"
                "  hint: use the same format at both ends of the stream\n");
}

TEST_F(WiringRulesTest, TheProducerIsReportedIfAllConsumersAgree) {
    AssertNodes("Camera > a:nv12; a:rgb24 > Display; a:rgb24 > Display",
                "3:68-3:74 warning format-mismatch /pipe_0/node_0/stream_opts/stream_fmt_out: "
                "stream 'a' is produced as 'nv12', but 2 inputs consume it as 'rgb24': the device "
                "does not convert it\n"
                "  5:66-5:73 consumed here by 'node_1'\n"
                "  7:66-7:73 consumed here by 'node_2'\n"
                "  hint: use the same format at all ends of the stream\n");
}

TEST_F(WiringRulesTest, AFormatInAnotherObjectIsCompared) {
    AssertNodes("a:rgb24 > Display",
                "",
                R"("node_1": {"node_opts": {"node_name": "Camera", "stream_fmt_out": "rgb24"},
           "stream_opts": {"stream_output": "a"}})");
}

TEST_F(WiringRulesTest, AnUnknownFormatIsNotCompared) {
    AssertNodes("Camera > a:nv12; a > Display",
                "5:28-5:42 error stream-format-missing /pipe_0/node_1/stream_opts/stream_input: "
                "input stream 'a' has no format: \"stream_fmt_in\" is missing, and node set-up "
                "throws\n"
                "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n");
    AssertNodes("a:nv12 > Display",
                "5:68-5:69 error stream-not-text /pipe_0/node_1/stream_opts/stream_fmt_out: "
                "the format of the output stream is a number, not a string: node set-up throws\n"
                "  hint: write a plain string of at most 127 bytes\n",
                R"("node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": 5}})");
}

TEST_F(WiringRulesTest, WronglyPairedFormatsAreNotCompared) {
    AssertNodes(
        "Camera > a:nv12; Camera > b:rgb24",
        "8:51-8:69 warning stream-families-differ /pipe_0/node_2/stream_opts/stream_fmt_in_00: "
        "'stream_fmt_in_00' becomes the format of 'stream_input_1': names and formats are paired "
        "in the order of their keys\n"
        "  8:28-8:44 paired with this name\n"
        "  hint: give each name and its format the same suffix\n",
        R"("node_2": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "nv12",
                           "stream_input_1": "b", "stream_fmt_in_00": "rgb24"}})");
}

TEST_F(WiringRulesTest, ConsumersWithoutAProducerAreNotCompared) {
    AssertNodes("a:nv12 > Display; a:rgb24 > Display",
                "3:44-3:47 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "stream 'a' has no producer in this pipe: no data ever arrives\n"
                "  5:44-5:47 also consumed here\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
}

// ---- self-loop ---------------------------------------------------------------

TEST_F(WiringRulesTest, ANodeThatConsumesItsOwnStreamIsReported) {
    AssertNodes("a:f > Filter > a:f",
                "3:44-3:47 warning self-loop /pipe_0/node_0/stream_opts/stream_input: "
                "'node_0' consumes stream 'a', which it produces itself: it waits for its own "
                "output\n"
                "  3:88-3:91 produced here\n"
                "  hint: consume a stream of another node, unless the class supports feedback\n");
}

TEST_F(WiringRulesTest, EveryInputThatLoopsIsReported) {
    AssertNodes("a:f, b:f, a:f > Filter > a:f; Camera > b:f",
                "3:46-3:49 warning self-loop /pipe_0/node_0/stream_opts/stream_input_0: "
                "'node_0' consumes stream 'a', which it produces itself: it waits for its own "
                "output\n"
                "  3:186-3:189 produced here\n"
                "  hint: consume a stream of another node, unless the class supports feedback\n"
                "3:140-3:143 warning self-loop /pipe_0/node_0/stream_opts/stream_input_2: "
                "'node_0' consumes stream 'a', which it produces itself: it waits for its own "
                "output\n"
                "  3:186-3:189 produced here\n"
                "  hint: consume a stream of another node, unless the class supports feedback\n");
}

TEST_F(WiringRulesTest, TheSecondProducerOfAStreamCanLoop) {
    AssertNodes("Camera > a:f; a:f > Filter > a:f",
                "5:44-5:47 warning self-loop /pipe_0/node_1/stream_opts/stream_input: "
                "'node_1' consumes stream 'a', which it produces itself: it waits for its own "
                "output\n"
                "  5:88-5:91 produced here\n"
                "  hint: consume a stream of another node, unless the class supports feedback\n"
                "5:88-5:91 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_1 is silently left uninitialised\n"
                "  3:45-3:48 first produced here\n"
                "  hint: give each stream a unique name\n");
}

// ---- cycle -------------------------------------------------------------------

TEST_F(WiringRulesTest, ACycleOfTwoNodesIsReported) {
    AssertNodes("b:f > Filter > a:f; a:f > Filter > b:f",
                "3:44-3:47 warning cycle /pipe_0/node_0/stream_opts/stream_input: "
                "'pipe_0' has a cycle of 2 nodes, which wait for each other: 'node_0' -> 'node_1' "
                "-> 'node_0'\n"
                "  5:44-5:47 'node_1' consumes stream 'a'\n"
                "  hint: break the cycle, unless one of the classes supports feedback\n");
}

TEST_F(WiringRulesTest, TheShortestCycleIsReported) {
    AssertNodes("b:f, c:f > Mix > a:f; a:f > Filter > b:f; b:f > Filter > c:f",
                "3:46-3:49 warning cycle /pipe_0/node_0/stream_opts/stream_input_0: "
                "'pipe_0' has a cycle of 2 nodes, which wait for each other: 'node_0' -> 'node_1' "
                "-> 'node_0'\n"
                "  5:44-5:47 'node_1' consumes stream 'a'\n"
                "  hint: break the cycle, unless one of the classes supports feedback\n");
}

TEST_F(WiringRulesTest, ALongCycleIsShortened) {
    AssertNodes(
        "s0:f > Filter > s1:f; s1:f > Filter > s2:f; s2:f > Filter > s3:f; "
        "s3:f > Filter > s4:f; s4:f > Filter > s5:f; s5:f > Filter > s6:f; "
        "s6:f > Filter > s7:f; s7:f > Filter > s8:f; s8:f > Filter > s9:f; "
        "s9:f > Filter > s0:f",
        "3:44-3:48 warning cycle /pipe_0/node_0/stream_opts/stream_input: "
        "'pipe_0' has a cycle of 10 nodes, which wait for each other: 'node_0' -> 'node_1' -> "
        "'node_2' -> 'node_3' -> 'node_4' -> 'node_5' -> 'node_6' -> 'node_7' -> ... -> 'node_0'\n"
        "  5:44-5:48 'node_1' consumes stream 's1'\n"
        "  7:44-7:48 'node_2' consumes stream 's2'\n"
        "  9:44-9:48 'node_3' consumes stream 's3'\n"
        "  11:44-11:48 'node_4' consumes stream 's4'\n"
        "  13:44-13:48 'node_5' consumes stream 's5'\n"
        "  15:44-15:48 'node_6' consumes stream 's6'\n"
        "  17:44-17:48 'node_7' consumes stream 's7'\n"
        "  19:44-19:48 'node_8' consumes stream 's8'\n"
        "  hint: break the cycle, unless one of the classes supports feedback\n");
}

TEST_F(WiringRulesTest, EachGroupOfNodesHasItsOwnCycle) {
    AssertNodes(
        "b:f > Filter > a:f; a:f > Split > b:f, c:f; c:f, e:f > Filter > d:f; "
        "d:f > Filter > e:f",
        "3:44-3:47 warning cycle /pipe_0/node_0/stream_opts/stream_input: "
        "'pipe_0' has a cycle of 2 nodes, which wait for each other: 'node_0' -> 'node_1' -> "
        "'node_0'\n"
        "  5:44-5:47 'node_1' consumes stream 'a'\n"
        "  hint: break the cycle, unless one of the classes supports feedback\n"
        "7:93-7:96 warning cycle /pipe_0/node_2/stream_opts/stream_input_1: "
        "'pipe_0' has a cycle of 2 nodes, which wait for each other: 'node_2' -> 'node_3' -> "
        "'node_2'\n"
        "  9:44-9:47 'node_3' consumes stream 'd'\n"
        "  hint: break the cycle, unless one of the classes supports feedback\n");
}

TEST_F(WiringRulesTest, ADiamondIsNotACycle) {
    AssertNodes("Camera > a:f; a:f > Split > b:f, c:f; b:f > Filter > d:f; c:f, d:f > Join", "");
}

// ---- disconnected ------------------------------------------------------------

TEST_F(WiringRulesTest, GroupsThatNoStreamConnectsAreNoted) {
    AssertNodes("Camera > a:f; a:f > Display; Microphone > b:f; b:f > Speaker",
                "1:2-1:10 note disconnected /pipe_0: "
                "'pipe_0' has groups of nodes that no stream connects: ('node_0' and 'node_1') and "
                "('node_2' and 'node_3')\n"
                "  hint: connect them if they belong together\n");
}

TEST_F(WiringRulesTest, LongListsOfGroupsAndNodesAreShortened) {
    AssertNodes(
        "Camera > a:f; a:f > Display; Camera > b:f; b:f > Display; "
        "Camera > c:f; c:f > Display; Camera > d:f; d:f > Display; "
        "Camera > e:f; e:f > Display",
        "1:2-1:10 note disconnected /pipe_0: "
        "'pipe_0' has groups of nodes that no stream connects: ('node_0' and 'node_1'), "
        "('node_2' and 'node_3'), ('node_4' and 'node_5'), ('node_6' and 'node_7') and 1 more\n"
        "  hint: connect them if they belong together\n");
    AssertNodes(
        "Camera > a:f; a:f > Display; a:f > Display; a:f > Display; a:f > Display; "
        "a:f > Display; Camera > b:f; b:f > Display",
        "1:2-1:10 note disconnected /pipe_0: "
        "'pipe_0' has groups of nodes that no stream connects: ('node_0', 'node_1', "
        "'node_2', 'node_3' and 2 more) and ('node_6' and 'node_7')\n"
        "  hint: connect them if they belong together\n");
}

TEST_F(WiringRulesTest, ASingleNodeIsNotAGroup) {
    AssertNodes("Camera > a:f; a:f > Display; Microphone > b:f",
                "7:45-7:48 note no-consumer /pipe_0/node_2/stream_opts/stream_output: "
                "stream 'b' has no consumer in this pipe: no node receives its data\n"
                "  hint: add a consumer, unless something outside the pipe consumes it\n");
}

TEST_F(WiringRulesTest, AnUnknownStreamMayConnectGroups) {
    AssertNodes("Camera > a:f; a:f > Display; Microphone > b:f; b:f > Speaker; sound > Clock",
                "11:28-11:42 error stream-format-missing /pipe_0/node_4/stream_opts/stream_input: "
                "input stream 'sound' has no format: \"stream_fmt_in\" is missing, and node set-up "
                "throws\n"
                "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n"
                "11:44-11:51 warning no-producer /pipe_0/node_4/stream_opts/stream_input: "
                "stream 'sound' has no producer in this pipe: no data ever arrives\n"
                "  hint: name a stream that a node of the pipe produces, or add a producer\n");
    AssertNodes("Camera > a:f; a:f > Display; Microphone > b:f; b:f > Speaker",
                "10:11-10:13 error section-not-object /pipe_0/node_4: "
                "'node_4' is an array, not an object: no node is created\n"
                "  hint: write an object, {...}\n",
                R"("node_4": [])");
}

TEST_F(WiringRulesTest, AStreamConnectsAllItsProducers) {
    AssertNodes("Camera > a:f; b:f > Filter > a:f; a:f > Display; Camera > b:f",
                "5:88-5:91 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
                "stream 'a' already has a producer, 'node_0'; the task graph refuses the second "
                "one, and node_1 is silently left uninitialised\n"
                "  3:45-3:48 first produced here\n"
                "  hint: give each stream a unique name\n");
}

TEST_F(WiringRulesTest, PipesNeedNotBeConnected) {
    AssertPipes("Camera > a:f; a:f > Display", "Camera > b:f; b:f > Display", "");
}

}  // namespace
