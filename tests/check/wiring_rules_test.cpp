// What is wrong with how the nodes of a pipe are connected.
#include "tests/check/check_test.h"

namespace {

using WiringRulesTest = CheckTest;

// ---- two-producers -----------------------------------------------------------

TEST_F(WiringRulesTest, TheSecondNodeThatGivesAStreamIsRefused) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera#left"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Camera#right"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "5:45-5:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_0' already: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  3:45-3:48 given here first\n"
               "  hint: give each stream a name of its own\n");
}

TEST_F(WiringRulesTest, EachFurtherOneIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "5:45-5:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_0' already: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  3:45-3:48 given here first\n"
               "  hint: give each stream a name of its own\n"
               "7:45-7:48 error two-producers /pipe_0/node_2/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_0' already: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  3:45-3:48 given here first\n"
               "  hint: give each stream a name of its own\n");
}

TEST_F(WiringRulesTest, TheFirstIsTheFirstByKeyAndNotInTheText) {
    AssertPipe(R"("node_2": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_10": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "3:45-3:48 error two-producers /pipe_0/node_2/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_10' already: it is refused, the node is "
               "not initialised, and success is reported\n"
               "  5:45-5:48 given here first\n"
               "  hint: give each stream a name of its own\n"
               "4:1-4:10 note key-order /pipe_0/node_10: "
               "'node_10' comes before 'node_2': keys count in the order of their bytes\n"
               "  2:1-2:9 this one comes later\n"
               "  hint: where the order matters, number them from 'node_10' on\n");
}

TEST_F(WiringRulesTest, ANodeMayGiveAStreamTwiceItself) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Stereo"},
           "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f",
                           "stream_output_1": "a", "stream_fmt_out_1": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "4:47-4:50 error two-producers /pipe_0/node_0/stream_opts/stream_output_1: "
               "the stream 'a' is given by this node already: it is refused, the node is "
               "not initialised, and success is reported\n"
               "  3:47-3:50 given here first\n"
               "  hint: give each stream a name of its own\n");
}

TEST_F(WiringRulesTest, PipesMayGiveStreamsOfOneName) {
    AssertFinds(R"({"pipe_0": {
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
},
"pipe_1": {
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
}})",
                "");
}

TEST_F(WiringRulesTest, TheStreamThatIsMissingWasProbablyMeant) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "left", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "left", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "left", "stream_fmt_in_0": "f",
                           "stream_input_1": "right", "stream_fmt_in_1": "f"}})",
               "5:45-5:51 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
               "the stream 'left' is given by 'node_0' already: it is refused, the node is "
               "not initialised, and success is reported\n"
               "  3:45-3:51 given here first\n"
               "  hint: give each stream a name of its own\n");
}

// ---- no-producer -------------------------------------------------------------

TEST_F(WiringRulesTest, AStreamNeedsAProducer) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}})",
               "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'frames'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, ANameThatIsOverriddenGivesNothing) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
           "stream_opts_extra": {"stream_output": "b"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "3:28-3:43 note option-overridden /pipe_0/node_0/stream_opts/stream_output: "
               "'stream_output' is overridden: \"stream_opts_extra\" sets it to 'b' later\n"
               "  4:34-4:49 it is overridden here\n"
               "  hint: remove the one that is not meant\n"
               "4:51-4:54 note no-consumer /pipe_0/node_0/stream_opts_extra/stream_output: "
               "no node of the pipe takes the stream 'b'\n"
               "  hint: add a node that takes it, unless something outside the pipe does\n"
               "6:44-6:47 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'a'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, ANameThatIsOverriddenTakesNothing) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display", "stream_input": "a"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "3:45-3:48 note no-consumer /pipe_0/node_0/stream_opts/stream_output: "
               "no node of the pipe takes the stream 'a'\n"
               "  hint: add a node that takes it, unless something outside the pipe does\n"
               "4:50-4:64 note option-overridden /pipe_0/node_1/node_opts/stream_input: "
               "'stream_input' is overridden: \"stream_opts\" sets it to 'b' later\n"
               "  5:28-5:42 it is overridden here\n"
               "  hint: remove the one that is not meant\n"
               "5:44-5:47 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'b'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, TheNearestStreamIsNamedAndNotReportedAgain) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frame", "stream_fmt_in": "f"}})",
               "5:44-5:51 warning no-producer /pipe_0/node_1/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'frame'\n"
               "  hint: write 'frames', if that stream is meant\n");
}

TEST_F(WiringRulesTest, AStreamThatNobodyTakesIsNearer) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output_0": "frame1x", "stream_fmt_out_0": "f",
                           "stream_output_1": "frame2x", "stream_fmt_out_1": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frame1x", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frameX", "stream_fmt_in": "f"}})",
               "8:44-8:52 warning no-producer /pipe_0/node_2/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'frameX'\n"
               "  hint: write 'frame2x', if that stream is meant\n");
}

TEST_F(WiringRulesTest, NamesThatDifferInNumbersAreNotNear) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "frames_0", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input_0": "frames_0", "stream_fmt_in_0": "f",
                           "stream_input_1": "frames_1", "stream_fmt_in_1": "f"}})",
               "6:46-6:56 warning no-producer /pipe_0/node_1/stream_opts/stream_input_1: "
               "no node of the pipe gives the stream 'frames_1'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, ShortNamesAreNotNear) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "ab", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input_0": "ab", "stream_fmt_in_0": "f",
                           "stream_input_1": "ac", "stream_fmt_in_1": "f"}})",
               "6:46-6:50 warning no-producer /pipe_0/node_1/stream_opts/stream_input_1: "
               "no node of the pipe gives the stream 'ac'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, AStreamOfAnotherPipeIsNoProducer) {
    AssertFinds(R"({"pipe_0": {
"node_0": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}}
},
"pipe_1": {
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}}
}})",
                "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
                "no node of the pipe gives the stream 'frames'\n"
                "  hint: give it in this pipe as well: streams do not cross pipes, and this "
                "one is in 'pipe_1'\n");
}

TEST_F(WiringRulesTest, EveryNodeThatTakesItIsRelated) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input_0": "b", "stream_fmt_in_0": "f",
                           "stream_input_1": "frames", "stream_fmt_in_1": "f"}})",
               "3:44-3:52 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'frames'\n"
               "  5:44-5:52 taken here as well\n"
               "  9:46-9:54 taken here as well\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

TEST_F(WiringRulesTest, NoMoreThanSevenAreRelated) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input_0": "frames", "stream_fmt_in_0": "f",
                           "stream_input_1": "frames", "stream_fmt_in_1": "f",
                           "stream_input_2": "frames", "stream_fmt_in_2": "f",
                           "stream_input_3": "frames", "stream_fmt_in_3": "f",
                           "stream_input_4": "frames", "stream_fmt_in_4": "f",
                           "stream_input_5": "frames", "stream_fmt_in_5": "f",
                           "stream_input_6": "frames", "stream_fmt_in_6": "f",
                           "stream_input_7": "frames", "stream_fmt_in_7": "f",
                           "stream_input_8": "frames", "stream_fmt_in_8": "f",
                           "stream_input_9": "frames", "stream_fmt_in_9": "f"}})",
               "3:46-3:54 warning no-producer /pipe_0/node_0/stream_opts/stream_input_0: "
               "no node of the pipe gives the stream 'frames'\n"
               "  4:46-4:54 taken here as well\n"
               "  5:46-5:54 taken here as well\n"
               "  6:46-6:54 taken here as well\n"
               "  7:46-7:54 taken here as well\n"
               "  8:46-8:54 taken here as well\n"
               "  9:46-9:54 taken here as well\n"
               "  10:46-10:54 taken here as well\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

// ---- no-consumer -------------------------------------------------------------

TEST_F(WiringRulesTest, AStreamMayGoNowhere) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output_0": "frames", "stream_fmt_out_0": "f",
                           "stream_output_1": "sound", "stream_fmt_out_1": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}})",
               "4:47-4:54 note no-consumer /pipe_0/node_0/stream_opts/stream_output_1: "
               "no node of the pipe takes the stream 'sound'\n"
               "  hint: add a node that takes it, unless something outside the pipe does\n");
}

// ---- what is not where it has a meaning --------------------------------------

TEST_F(WiringRulesTest, AMistypedOutputKeyLeavesTheConsumerAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_ouput": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}})",
               "4:28-4:42 warning unknown-key /pipe_0/node_0/stream_opts/stream_ouput: "
               "'stream_ouput' is nearly \"stream_output\", but is stored as an option like "
               "any other\n"
               "  hint: write \"stream_output\"\n");
}

TEST_F(WiringRulesTest, AMistypedInputKeyLeavesTheProducerAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f",
                           "stream_inptu": "a", "stream_fmt_in": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}})",
               "4:28-4:42 warning unknown-key /pipe_0/node_0/stream_opts/stream_inptu: "
               "'stream_inptu' is nearly \"stream_input\", but is stored as an option like "
               "any other\n"
               "  hint: write \"stream_input\"\n");
}

TEST_F(WiringRulesTest, AStreamInAnotherSectionLeavesTheConsumerAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter", "stream_output": "a"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}})",
               "2:49-2:64 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_output: "
               "'stream_output' does not count in \"node_opts\": streams are declared in "
               "\"stream_opts\" alone\n"
               "  hint: move it to \"stream_opts\"\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"}, "stream_output": "a",
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}})",
               "2:50-2:65 warning unknown-key /pipe_0/node_0/stream_output: "
               "'stream_output' is no key of a node: a device ignores it\n"
               "  hint: move it into \"stream_opts\"\n");
}

TEST_F(WiringRulesTest, AMistypedNodeLeavesItsNeighboursAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"nod_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:1-4:8 warning unknown-key /pipe_0/nod_1: "
               "'nod_1' is no key of a pipe: a device ignores it\n"
               "  hint: write 'node_1'\n");
}

TEST_F(WiringRulesTest, ANodeWithinAnotherLeavesItsNeighboursAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:1-4:9 warning unknown-key /pipe_0/node_0/node_1: "
               "'node_1' is no key of a node: a device ignores it\n"
               "  hint: move it into a pipe\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"link_0": {"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:22-6:73 warning option-not-stored /pipe_0/link_0/node_1: "
               "'node_1' is not stored: an option is a number or a text, not an object\n"
               "  hint: move its members up, to the options beside it\n");
}

TEST_F(WiringRulesTest, ABrokenNodeLeavesItsNeighboursAlone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": "Filter",
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:11-4:19 error section-not-object /pipe_0/node_1: "
               "'node_1' is a string, not an object: no node is made of it\n"
               "  hint: write an object, {...}\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:1-4:9 error no-streams /pipe_0/node_1: "
               "'node_1' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": 5, "stream_fmt_in": "f",
                           "stream_output": null, "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "5:44-5:45 error stream-not-text /pipe_0/node_1/stream_opts/stream_input: "
               "the name of the input stream is a number, not a text: aborts the process\n"
               "  hint: write a plain text of at most 127 bytes\n"
               "6:45-6:49 error stream-not-text /pipe_0/node_1/stream_opts/stream_output: "
               "the name of the output stream is null, not a text: aborts the process\n"
               "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(WiringRulesTest, ANodeThatIsNotSetUpStillHasItsStreams) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Camera", 0, 1});
    Register({"Display", 1, 0});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "4:39-4:47 error node-class /pipe_0/node_1/node_opts/node_name: "
               "the class 'Filter' is not registered: no node is made\n"
               "  hint: load the library that has it with --plugin\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_x": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "4:1-4:9 error id-not-canonical /pipe_0/node_x: "
               "'node_x' has the id 0, which leads to 'node_0': a device sets that one up "
               "instead\n"
               "  2:1-2:9 this one has the same id\n"
               "  hint: rename it to 'node_1'\n");
}

TEST_F(WiringRulesTest, AMistypedNameIsToldOfBesidesABrokenNode) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}},
"node_1": 5,
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "frame", "stream_fmt_in": "f"}})",
               "4:11-4:12 error section-not-object /pipe_0/node_1: "
               "'node_1' is a number, not an object: no node is made of it\n"
               "  hint: write an object, {...}\n"
               "6:44-6:51 warning no-producer /pipe_0/node_2/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'frame'\n"
               "  hint: write 'frames', if that stream is meant\n");
}

// ---- format-mismatch ---------------------------------------------------------

TEST_F(WiringRulesTest, BothEndsHaveOneFormat) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "image:nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "image:rgb24"}})",
               "5:66-5:79 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
               "the stream 'a' is taken as 'image:rgb24', but 'node_0' gives it as "
               "'image:nv12'\n"
               "  3:68-3:80 its format is given here\n"
               "  hint: give both ends of the stream one format\n");
}

TEST_F(WiringRulesTest, EachEndThatDiffersIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "rgb24"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "nv12"}},
"node_3": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "NV12"}})",
               "5:66-5:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
               "the stream 'a' is taken as 'rgb24', but 'node_0' gives it as 'nv12'\n"
               "  3:68-3:74 its format is given here\n"
               "  hint: give both ends of the stream one format\n"
               "9:66-9:72 warning format-mismatch /pipe_0/node_3/stream_opts/stream_fmt_in: "
               "the stream 'a' is taken as 'NV12', but 'node_0' gives it as 'nv12'\n"
               "  3:68-3:74 its format is given here\n"
               "  hint: give both ends of the stream one format\n");
}

TEST_F(WiringRulesTest, WhereAllThatTakeItAgreeTheOtherEndIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "rgb24"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "rgb24"}})",
               "3:68-3:74 warning format-mismatch /pipe_0/node_0/stream_opts/stream_fmt_out: "
               "the stream 'a' is given as 'nv12', but 2 inputs take it as 'rgb24'\n"
               "  5:66-5:73 taken here by 'node_1'\n"
               "  7:66-7:73 taken here by 'node_2'\n"
               "  hint: give all ends of the stream one format\n");
}

TEST_F(WiringRulesTest, AFormatOfAnExtraObjectCounts) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera", "stream_fmt_out": "rgb24"},
           "stream_opts": {"stream_output": "a"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "rgb24"}})",
               "");
}

TEST_F(WiringRulesTest, AFormatThatIsNotKnownIsNotCompared) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a"}})",
               "5:28-5:42 error stream-format-missing /pipe_0/node_1/stream_opts/stream_input: "
               "the input stream 'a' has no format: \"stream_fmt_in\" is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": 5}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "nv12"}})",
               "3:68-3:69 error stream-not-text /pipe_0/node_0/stream_opts/stream_fmt_out: "
               "the format of the output stream is a number, not a text: throws\n"
               "  hint: write a plain text of at most 127 bytes\n");
}

TEST_F(WiringRulesTest, FormatsThatArePairedWronglyAreNotCompared) {
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "nv12"}},
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "rgb24"}},
"node_2": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "nv12",
                           "stream_input_1": "b", "stream_fmt_in_00": "rgb24"}})",
        "8:51-8:69 warning stream-families-differ /pipe_0/node_2/stream_opts/stream_fmt_in_00: "
        "'stream_fmt_in_00' is the format of 'stream_input_1': the two families are "
        "paired in the order of their keys\n"
        "  8:28-8:44 it is paired with this\n"
        "  hint: give each name and its format the same ending\n");
}

TEST_F(WiringRulesTest, AStreamThatNobodyGivesHasNoFormatToCompare) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "nv12"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "rgb24"}})",
               "3:44-3:47 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'a'\n"
               "  5:44-5:47 taken here as well\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
}

// ---- self-loop ---------------------------------------------------------------

TEST_F(WiringRulesTest, ANodeMayTakeWhatItGives) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}})",
               "3:44-3:47 warning self-loop /pipe_0/node_0/stream_opts/stream_input: "
               "'node_0' takes the stream 'a' that it gives itself\n"
               "  4:45-4:48 given here\n"
               "  hint: take the stream of another node\n");
}

TEST_F(WiringRulesTest, EachInputIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                           "stream_input_1": "b", "stream_fmt_in_1": "f",
                           "stream_input_2": "a", "stream_fmt_in_2": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}})",
               "3:46-3:49 warning self-loop /pipe_0/node_0/stream_opts/stream_input_0: "
               "'node_0' takes the stream 'a' that it gives itself\n"
               "  6:45-6:48 given here\n"
               "  hint: take the stream of another node\n"
               "5:46-5:49 warning self-loop /pipe_0/node_0/stream_opts/stream_input_2: "
               "'node_0' takes the stream 'a' that it gives itself\n"
               "  6:45-6:48 given here\n"
               "  hint: take the stream of another node\n");
}

TEST_F(WiringRulesTest, AStreamThatIsGivenTwiceMayLoopToo) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}})",
               "5:44-5:47 warning self-loop /pipe_0/node_1/stream_opts/stream_input: "
               "'node_1' takes the stream 'a' that it gives itself\n"
               "  6:45-6:48 given here\n"
               "  hint: take the stream of another node\n"
               "6:45-6:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_0' already: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  3:45-3:48 given here first\n"
               "  hint: give each stream a name of its own\n");
}

// ---- cycle -------------------------------------------------------------------

TEST_F(WiringRulesTest, NodesMayWaitForEachOther) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}})",
               "3:44-3:47 warning cycle /pipe_0/node_0/stream_opts/stream_input: "
               "2 nodes wait for each other: 'node_0' -> 'node_1' -> 'node_0'\n"
               "  6:44-6:47 'node_1' takes 'a'\n"
               "  hint: break the cycle, unless one of the classes is made for it\n");
}

TEST_F(WiringRulesTest, TheShortestWayIsTold) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Mix"},
           "stream_opts": {"stream_input_0": "b", "stream_fmt_in_0": "f",
                           "stream_input_1": "c", "stream_fmt_in_1": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "c", "stream_fmt_out": "f"}})",
               "3:46-3:49 warning cycle /pipe_0/node_0/stream_opts/stream_input_0: "
               "2 nodes wait for each other: 'node_0' -> 'node_1' -> 'node_0'\n"
               "  7:44-7:47 'node_1' takes 'a'\n"
               "  hint: break the cycle, unless one of the classes is made for it\n");
}

TEST_F(WiringRulesTest, ALongWayIsCut) {
    AssertPipe(R"("node_10": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s0", "stream_fmt_in": "f",
                           "stream_output": "s1", "stream_fmt_out": "f"}},
"node_11": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s1", "stream_fmt_in": "f",
                           "stream_output": "s2", "stream_fmt_out": "f"}},
"node_12": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s2", "stream_fmt_in": "f",
                           "stream_output": "s3", "stream_fmt_out": "f"}},
"node_13": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s3", "stream_fmt_in": "f",
                           "stream_output": "s4", "stream_fmt_out": "f"}},
"node_14": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s4", "stream_fmt_in": "f",
                           "stream_output": "s5", "stream_fmt_out": "f"}},
"node_15": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s5", "stream_fmt_in": "f",
                           "stream_output": "s6", "stream_fmt_out": "f"}},
"node_16": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s6", "stream_fmt_in": "f",
                           "stream_output": "s7", "stream_fmt_out": "f"}},
"node_17": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s7", "stream_fmt_in": "f",
                           "stream_output": "s8", "stream_fmt_out": "f"}},
"node_18": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s8", "stream_fmt_in": "f",
                           "stream_output": "s9", "stream_fmt_out": "f"}},
"node_19": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s9", "stream_fmt_in": "f",
                           "stream_output": "s10", "stream_fmt_out": "f"}},
"node_20": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s10", "stream_fmt_in": "f",
                           "stream_output": "s11", "stream_fmt_out": "f"}},
"node_21": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s11", "stream_fmt_in": "f",
                           "stream_output": "s0", "stream_fmt_out": "f"}})",
               "3:44-3:48 warning cycle /pipe_0/node_10/stream_opts/stream_input: "
               "12 nodes wait for each other: 'node_10' -> 'node_11' -> 'node_12' -> "
               "'node_13' -> 'node_14' -> 'node_15' -> 'node_16' -> 'node_17' -> ... -> "
               "'node_10'\n"
               "  6:44-6:48 'node_11' takes 's1'\n"
               "  9:44-9:48 'node_12' takes 's2'\n"
               "  12:44-12:48 'node_13' takes 's3'\n"
               "  15:44-15:48 'node_14' takes 's4'\n"
               "  18:44-18:48 'node_15' takes 's5'\n"
               "  21:44-21:48 'node_16' takes 's6'\n"
               "  24:44-24:48 'node_17' takes 's7'\n"
               "  27:44-27:48 'node_18' takes 's8'\n"
               "  hint: break the cycle, unless one of the classes is made for it\n");
}

TEST_F(WiringRulesTest, EachGroupHasItsOwn) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Split"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output_0": "b", "stream_fmt_out_0": "f",
                           "stream_output_1": "c", "stream_fmt_out_1": "f"}},
"node_2": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input_0": "c", "stream_fmt_in_0": "f",
                           "stream_input_1": "e", "stream_fmt_in_1": "f",
                           "stream_output": "d", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "d", "stream_fmt_in": "f",
                           "stream_output": "e", "stream_fmt_out": "f"}})",
               "3:44-3:47 warning cycle /pipe_0/node_0/stream_opts/stream_input: "
               "2 nodes wait for each other: 'node_0' -> 'node_1' -> 'node_0'\n"
               "  6:44-6:47 'node_1' takes 'a'\n"
               "  hint: break the cycle, unless one of the classes is made for it\n"
               "11:46-11:49 warning cycle /pipe_0/node_2/stream_opts/stream_input_1: "
               "2 nodes wait for each other: 'node_2' -> 'node_3' -> 'node_2'\n"
               "  14:44-14:47 'node_3' takes 'd'\n"
               "  hint: break the cycle, unless one of the classes is made for it\n");
}

TEST_F(WiringRulesTest, AWayThatDoesNotLeadBackIsNone) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Split"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output_0": "b", "stream_fmt_out_0": "f",
                           "stream_output_1": "c", "stream_fmt_out_1": "f"}},
"node_2": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "d", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "c", "stream_fmt_in_0": "f",
                           "stream_input_1": "d", "stream_fmt_in_1": "f"}})",
               "");
}

// ---- disconnected ------------------------------------------------------------

TEST_F(WiringRulesTest, NoStreamMayConnectTwoGroups) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Microphone"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Speaker"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "1:2-1:10 note disconnected /pipe_0: "
               "no stream connects these groups of nodes: ('node_0' and 'node_1') and "
               "('node_2' and 'node_3')\n"
               "  hint: connect them, unless they have nothing to do with each other\n");
}

TEST_F(WiringRulesTest, LargeGroupsAndManyAreCut) {
    AssertPipe(R"("node_10": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "s0", "stream_fmt_out": "f"}},
"node_11": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s0", "stream_fmt_in": "f",
                           "stream_output": "t0", "stream_fmt_out": "f"}},
"node_12": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "t0", "stream_fmt_in": "f"}},
"node_13": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "s1", "stream_fmt_out": "f"}},
"node_14": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s1", "stream_fmt_in": "f",
                           "stream_output": "t1", "stream_fmt_out": "f"}},
"node_15": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "t1", "stream_fmt_in": "f"}},
"node_16": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "s2", "stream_fmt_out": "f"}},
"node_17": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s2", "stream_fmt_in": "f",
                           "stream_output": "t2", "stream_fmt_out": "f"}},
"node_18": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "t2", "stream_fmt_in": "f"}},
"node_19": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "s3", "stream_fmt_out": "f"}},
"node_20": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s3", "stream_fmt_in": "f",
                           "stream_output": "t3", "stream_fmt_out": "f"}},
"node_21": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "t3", "stream_fmt_in": "f"}},
"node_22": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "s4", "stream_fmt_out": "f"}},
"node_23": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "s4", "stream_fmt_in": "f",
                           "stream_output": "t4", "stream_fmt_out": "f"}},
"node_24": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "t4", "stream_fmt_in": "f"}})",
               "1:2-1:10 note disconnected /pipe_0: "
               "no stream connects these groups of nodes: ('node_10', 'node_11' and "
               "'node_12'), ('node_13', 'node_14' and 'node_15'), ('node_16', 'node_17' and "
               "'node_18'), ('node_19', 'node_20' and 'node_21') and 1 more\n"
               "  hint: connect them, unless they have nothing to do with each other\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_3": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_4": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_5": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_6": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
"node_7": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}})",
               "1:2-1:10 note disconnected /pipe_0: "
               "no stream connects these groups of nodes: ('node_0', 'node_1', 'node_2', "
               "'node_3' and 2 more) and ('node_6' and 'node_7')\n"
               "  hint: connect them, unless they have nothing to do with each other\n");
}

TEST_F(WiringRulesTest, ANodeByItselfIsNoGroup) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Microphone"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}})",
               "7:45-7:48 note no-consumer /pipe_0/node_2/stream_opts/stream_output: "
               "no node of the pipe takes the stream 'b'\n"
               "  hint: add a node that takes it, unless something outside the pipe does\n");
}

TEST_F(WiringRulesTest, WhatIsNotKnownMayConnectThem) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Microphone"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Speaker"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}},
"node_4": {"node_opts": {"node_name": "Clock"},
           "stream_opts": {"stream_input": "sound"}})",
               "11:28-11:42 error stream-format-missing /pipe_0/node_4/stream_opts/stream_input: "
               "the input stream 'sound' has no format: \"stream_fmt_in\" is missing, which "
               "throws\n"
               "  hint: add \"stream_fmt_in\": \"...\" to \"stream_opts\"\n"
               "11:44-11:51 warning no-producer /pipe_0/node_4/stream_opts/stream_input: "
               "no node of the pipe gives the stream 'sound'\n"
               "  hint: name a stream that a node of the pipe gives, or add a node that "
               "gives it\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_2": {"node_opts": {"node_name": "Microphone"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
"node_3": {"node_opts": {"node_name": "Speaker"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}},
"node_4": [])",
               "10:11-10:13 error section-not-object /pipe_0/node_4: "
               "'node_4' is an array, not an object: no node is made of it\n"
               "  hint: write an object, {...}\n");
}

TEST_F(WiringRulesTest, BothProducersOfAStreamAreConnectedByIt) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Filter"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                           "stream_output": "a", "stream_fmt_out": "f"}},
"node_2": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}},
"node_3": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}})",
               "6:45-6:48 error two-producers /pipe_0/node_1/stream_opts/stream_output: "
               "the stream 'a' is given by 'node_0' already: it is refused, the node is not "
               "initialised, and success is reported\n"
               "  3:45-3:48 given here first\n"
               "  hint: give each stream a name of its own\n");
}

TEST_F(WiringRulesTest, PipesNeedNotBeConnected) {
    AssertFinds(R"({"pipe_0": {
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
},
"pipe_1": {
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}}
}})",
                "");
}

}  // namespace
