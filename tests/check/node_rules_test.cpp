// What keeps a node from being created: its name, its class, and the number of
// streams of its class.
#include <map>
#include <stdexcept>

#include "tests/check/node_test.h"

namespace {

QVTaskNodeBase* createOrThrow(const _QVNodeInfo* /*info*/) {
    throw std::runtime_error("no licence");
}

// A node that names its own output.
class SelfNamingNode : public QVHostTaskNode {
public:
    SelfNamingNode() {
        mOptions->setCString("stream_output", "a");
        mOptions->setCString("stream_fmt_out", "f");
    }
};

// A node whose option store names its outputs, whatever the configuration says.
class FixedOutputsNode : public QVHostTaskNode {
public:
    FixedOutputsNode() { mOptions = &mStore; }

private:
    class Store : public QVHostMetaData {
    public:
        int findCString(const char* key, const char** value) override {
            static const std::map<std::string, const char*> STRINGS = {{"stream_output_0", "a"},
                                                                       {"stream_fmt_out_0", "f"},
                                                                       {"stream_output_1", "b"},
                                                                       {"stream_fmt_out_1", "g"}};
            const auto found = STRINGS.find(key);
            *value = found == STRINGS.end() ? nullptr : found->second;
            return found == STRINGS.end() ? 0 : 1;
        }
    };

    Store mStore;
};

// ---- what the tests expect ---------------------------------------------------

class NodeRulesTest : public NodeTest {
protected:
    // Expects a producer with these members, in addition to its "stream_opts" on
    // the last line, to have these findings.
    static void AssertMembers(const std::string& members, const std::string& findings) {
        AssertProducer("{" + members + OUTPUT, findings);
    }

    static void AssertMembersCodes(const std::string& members, const std::string& codes) {
        AssertProducerCodes("{" + members + OUTPUT, codes);
    }

    // Expects a node without "node_opts" to have the finding for that, followed by
    // these lines.
    static void AssertNoNodeOptions(const std::string& members, const std::string& rest) {
        AssertMembers(members, NO_NODE_OPTIONS + rest);
    }

    // Expects a "node_name", in JSON, to have one finding with this message after
    // the key.
    static void AssertName(const std::string& name, const std::string& message) {
        AssertMembers(R"("node_opts": {"node_name": )" + name + '}',
                      "2:39-2:" + std::to_string(39 + name.size()) +
                          " error node-name /pipe_0/node_0/node_opts/node_name: \"node_name\" " +
                          message + "\n  hint: write the name of the node's class as a string\n");
    }

    // Expects a producer of class 'Broken' to have one finding with this message
    // after the class.
    static void AssertFails(const std::string& message) {
        AssertNodes("Broken > a:f; a:f > Display",
                    "2:39-2:47 error node-class-failed /pipe_0/node_0/node_opts/node_name: "
                    "class 'Broken' " +
                        message + "\n  hint: check which options and streams the class requires\n");
    }

    static const std::string OUTPUT;
    static const std::string NO_NODE_OPTIONS;
    static const std::string NO_STREAMS_AT_NODE;
    static const std::string NO_STREAMS_AT_OPTIONS;
    static const std::string HINT_TO_ADD_STREAMS;
};

const std::string NodeRulesTest::OUTPUT =
    ",\n \"stream_opts\": {\"stream_output\": \"a\", \"stream_fmt_out\": \"f\"}}";
const std::string NodeRulesTest::NO_NODE_OPTIONS =
    "2:1-2:9 error node-name /pipe_0/node_0: "
    "'node_0' has no \"node_opts\": no node is created\n";
const std::string NodeRulesTest::NO_STREAMS_AT_NODE =
    "2:1-2:9 error no-streams /pipe_0/node_0: "
    "'node_0' has neither inputs nor outputs: node set-up fails\n";
const std::string NodeRulesTest::NO_STREAMS_AT_OPTIONS =
    "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
    "'node_0' has neither inputs nor outputs: node set-up fails\n";
const std::string NodeRulesTest::HINT_TO_ADD_STREAMS =
    "  hint: add \"stream_input\" or \"stream_output\" to \"stream_opts\"\n";

// ---- node-name ---------------------------------------------------------------

TEST_F(NodeRulesTest, ANodeNeedsNodeOptions) {
    AssertProducer(R"({"stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   NO_NODE_OPTIONS +
                       "  hint: add \"node_opts\": {\"node_name\": \"...\"} with the node's "
                       "class\n");
}

TEST_F(NodeRulesTest, NodeOptionsNeedAName) {
    AssertMembers(R"("node_opts": {"fps": 25})",
                  "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                  "'node_0' has no \"node_name\" in \"node_opts\": no node is created\n"
                  "  hint: add \"node_name\": \"...\" with the node's class\n");
}

TEST_F(NodeRulesTest, ANameHasToBeAString) {
    AssertName("7", "is a number, not a string: no node is created");
    AssertName("null", "is null, not a string: no node is created");
    AssertName("true", "is a boolean, not a string: no node is created");
    AssertName(R"(["Camera"])", "is an array, not a string: no node is created");
    AssertName(R"({"class": "Camera"})", "is an object, not a string: no node is created");
}

TEST_F(NodeRulesTest, ANameMustNotBeEmpty) {
    AssertName(R"("")", "is empty: no node is created");
    // The parser does not read beyond a NUL.
    AssertName(R"("\u0000Camera")", "is empty: no node is created");
}

TEST_F(NodeRulesTest, ANameThatStartsWithATypeWordIsStoredAsANumber) {
    AssertName(R"("int32:5")",
               "is 'int32:5', which starts with a type word: it is stored as a number");
    AssertName(R"("float")", "is 'float', which starts with a type word: it is stored as a number");
}

TEST_F(NodeRulesTest, AnyOtherStringIsAName) {
    for (const char* name : {"Camera", "Camera#left", "camera:front", ":int32", "C"}) {
        AssertMembers(std::string(R"("node_opts": {"node_name": ")") + name + "\"}", "");
    }
}

TEST_F(NodeRulesTest, AMisspeltNameIsFound) {
    AssertMembers(R"("node_opts": {"Node-Name": "Camera"})",
                  "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                  "'node_0' has no \"node_name\" in \"node_opts\": no node is created\n"
                  "  2:26-2:37 probably a misspelling of \"node_name\"\n"
                  "  hint: rename 'Node-Name' to \"node_name\"\n");
    AssertMembers(R"("node_opts": {"nodename": 7, "nodename2": "x"})",
                  "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                  "'node_0' has no \"node_name\" in \"node_opts\": no node is created\n"
                  "  2:41-2:52 probably a misspelling of \"node_name\"\n"
                  "  hint: rename 'nodename2' to \"node_name\"\n");
}

TEST_F(NodeRulesTest, AMisplacedNameIsFound) {
    AssertNoNodeOptions(R"("node_name": "Camera")",
                        "  2:12-2:23 this has no effect here\n"
                        "  hint: move 'node_name' into \"node_opts\"\n");
    AssertNoNodeOptions(R"("node_opts_extra": {"node_name": "Camera"})",
                        "  2:32-2:43 this has no effect here\n"
                        "  hint: move 'node_name' into \"node_opts\"\n");
    AssertProducer(R"({"node_opts": {},
 "stream_opts": {"node_name": "Camera", "stream_output": "a", "stream_fmt_out": "f"}})",
                   "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                   "'node_0' has no \"node_name\" in \"node_opts\": no node is created\n"
                   "  3:18-3:29 this has no effect here\n"
                   "  hint: move 'node_name' into \"node_opts\"\n");
}

TEST_F(NodeRulesTest, NodeOptionsUnderAnotherKeyAreFound) {
    AssertNoNodeOptions(R"("node_opt": {"node_name": "Camera"})",
                        "  2:12-2:22 probably intended as \"node_opts\"\n"
                        "  hint: rename 'node_opt' to \"node_opts\"\n");
    AssertNoNodeOptions(R"("options": {"node_name": "Camera"})",
                        "  2:12-2:21 probably intended as \"node_opts\"\n"
                        "  hint: rename 'options' to \"node_opts\"\n");
    AssertNoNodeOptions(R"("executor_opts": {"node_name": "Camera"})",
                        "  2:12-2:27 probably intended as \"node_opts\"\n"
                        "  hint: rename 'executor_opts' to \"node_opts\"\n");
    // This one was intended as "node_opts_extra".
    AssertMembersCodes(R"("node_opt_extra": {"fps": 25})", "node-name unknown-key");
}

TEST_F(NodeRulesTest, NodeOptionsWithinStreamOptionsAreFound) {
    AssertProducer(R"({"stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "node_opts": {"node_name": "Camera"}}})",
                   NO_NODE_OPTIONS +
                       "  3:31-3:54 this has no effect here\n"
                       "  hint: move \"node_opts\" out of \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, NodeOptionsThatAreNotAnObjectAreReportedOnce) {
    AssertMembersCodes(R"("node_opts": "Camera")", "section-not-object");
}

TEST_F(NodeRulesTest, NodeOptionsOutsideANodeAreNotANode) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"node_opts": {"node_name": "Camera"}}})"), "id-not-canonical");
}

TEST_F(NodeRulesTest, TheClassOfAFaultyNameIsNotReported) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertName(R"("int32:5")",
               "is 'int32:5', which starts with a type word: it is stored as a number");
    AssertName("null", "is null, not a string: no node is created");
}

// ---- node-class --------------------------------------------------------------

TEST_F(NodeRulesTest, WithoutAStubAClassHasToBeRegistered) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    Register({"Camera", 0, 1});
    AssertNodes("Microphone > a:f; a:f > Display",
                "2:39-2:51 error node-class /pipe_0/node_0/node_opts/node_name: "
                "class 'Microphone' is not registered: no node is created\n"
                "  hint: use --plugin to load the library that registers it\n");
    AssertNodes("Camera > a:f; a:f > Display", "");
    AssertNodes("Camera#left > a:f; a:f > Display", "");
}

TEST_F(NodeRulesTest, TheHintNamesTheMostSimilarRegisteredClass) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    Register({"Camera", 0, 1});
    AssertNodes("Camara#left > a:f; a:f > Display",
                "2:39-2:52 error node-class /pipe_0/node_0/node_opts/node_name: "
                "class 'Camara' is not registered: no node is created\n"
                "  hint: write 'Camera' if you intended that class\n");
    AssertNodes("CAmera > a:f; a:f > Display",
                "2:39-2:47 error node-class /pipe_0/node_0/node_opts/node_name: "
                "class 'CAmera' is not registered: no node is created\n"
                "  hint: write 'Camera' if you intended that class\n");
}

TEST_F(NodeRulesTest, ALabelWithoutAClassCreatesNoNode) {
    const std::string leftHasNoClass =
        "2:39-2:46 error node-class /pipe_0/node_0/node_opts/node_name: "
        "'#left' has no class before the '#': no node is created\n"
        "  hint: write the class before the '#' and the label after it\n";
    AssertNodes("#left > a:f; a:f > Display", leftHasNoClass);
    AssertNodes("# > a:f; a:f > Display",
                "2:39-2:42 error node-class /pipe_0/node_0/node_opts/node_name: "
                "'#' has no class before the '#': no node is created\n"
                "  hint: write the class before the '#' and the label after it\n");
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertNodes("#left > a:f; a:f > Display", leftHasNoClass);
}

TEST_F(NodeRulesTest, AMissingClassDoesNotHideOtherMistakes) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertProducerCodes(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                        "node-class single-stream-key");
}

// ---- node-class-stub ---------------------------------------------------------

TEST_F(NodeRulesTest, AStubForAMisspeltClassIsReported) {
    Register({"Tone", 0, 1});
    AssertNodes("Tne#low > a:f; a:f > Display",
                "2:39-2:48 warning node-class-stub /pipe_0/node_0/node_opts/node_name: "
                "class 'Tne' is not registered, but 'Tone' is: a stub replaces it\n"
                "  hint: write 'Tone' if you intended that class\n");
}

TEST_F(NodeRulesTest, AStubForAnyOtherClassIsNotReported) {
    AssertNodes("Microphone > a:f; a:f > Display", "");
    Register({"Tone", 0, 1});
    AssertNodes("Microphone > a:f; a:f > Display", "");
}

TEST_F(NodeRulesTest, ARegisteredClassMayResembleAnother) {
    Register({"Tone", 0, 1});
    Register({"Tune", 0, 1});
    AssertNodes("Tune > a:f; a:f > Display", "");
}

// ---- node-class-failed -------------------------------------------------------

TEST_F(NodeRulesTest, AClassThatCreatesNoNodeIsReported) {
    Register({"Broken", 0, 1, false});
    AssertFails("creates no node: node set-up fails");
}

TEST_F(NodeRulesTest, AClassWhoseNodeThrowsIsReported) {
    RegisterCreator("Broken", create<ThrowingNode>);
    AssertFails("throws during node set-up: no licence");
}

TEST_F(NodeRulesTest, AClassThatThrowsInsteadOfCreatingANodeIsReported) {
    RegisterCreator("Broken", createOrThrow);
    AssertFails("throws during node set-up: no licence");
}

TEST_F(NodeRulesTest, AClassThatFailsAnAssertionIsReported) {
    RegisterCreator("Broken", create<AssertingNode>);
    AssertFails("aborts the device: Assertion mLens failed at open:12");
}

TEST_F(NodeRulesTest, AClassThatSetUpDoesNotReachIsNotReported) {
    RegisterCreator("Broken", create<ThrowingNode>);
    AssertProducerCodes(
        R"({"node_opts": {"node_name": "Broken"}, "stream_opts": {"stream_output": "a"}})",
        "stream-format-missing");
}

// ---- no-streams --------------------------------------------------------------

TEST_F(NodeRulesTest, ANodeNeedsStreams) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"}})",
               NO_STREAMS_AT_NODE + HINT_TO_ADD_STREAMS);
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {}})",
               NO_STREAMS_AT_OPTIONS + HINT_TO_ADD_STREAMS);
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"fps": 25, "stream_mode_in": "remain_newest"}})",
               NO_STREAMS_AT_OPTIONS + HINT_TO_ADD_STREAMS);
}

TEST_F(NodeRulesTest, InputsOrOutputsAreEnough) {
    AssertNodes("Camera > a:f; a:f > Display", "");
}

TEST_F(NodeRulesTest, AClassWithoutStreamsIsReported) {
    Register({"Clock", 0, 0});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Clock"},
 "stream_opts": {}})",
               NO_STREAMS_AT_OPTIONS + HINT_TO_ADD_STREAMS);
}

TEST_F(NodeRulesTest, AClassMayNameItsOwnStreams) {
    RegisterCreator("Clock", create<SelfNamingNode>, 0, 1);
    AssertNodes("Clock; a:f > Display", "");
    AssertProducer(R"({"node_opts": {"node_name": "Clock"}})", "");
}

TEST_F(NodeRulesTest, AFormatDeclaresNoStream) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_fmt_out": "f"}})",
               NO_STREAMS_AT_OPTIONS + HINT_TO_ADD_STREAMS);
}

TEST_F(NodeRulesTest, AMisspeltStreamKeyIsFound) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_ouput": "a", "stream_fmt_out": "f"}})",
                   NO_STREAMS_AT_OPTIONS +
                       "  3:18-3:32 probably a misspelling of \"stream_output\"\n"
                       "  hint: rename 'stream_ouput' to \"stream_output\"\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"Stream_Output_0": "a", "stream_fmt_out_0": "f",
                 "stream_outpt_1": "b", "stream_fmt_out_1": "f"}})",
                   NO_STREAMS_AT_OPTIONS +
                       "  3:18-3:35 probably a misspelling of 'stream_output_0'\n"
                       "  4:18-4:34 probably a misspelling of 'stream_output_1'\n"
                       "  hint: rename 'Stream_Output_0' to 'stream_output_0' and rename "
                       "'stream_outpt_1' to 'stream_output_1'\n");
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"input_stream": "a"}})",
                   NO_STREAMS_AT_OPTIONS +
                       "  3:18-3:32 probably a misspelling of \"stream_input\"\n"
                       "  hint: rename 'input_stream' to \"stream_input\"\n");
}

TEST_F(NodeRulesTest, AMisplacedStreamKeyIsFound) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"}, "stream_output": "a"})",
                   NO_STREAMS_AT_NODE +
                       "  2:50-2:65 this has no effect here\n"
                       "  hint: move 'stream_output' into \"stream_opts\"\n");
    AssertProducer(
        R"({"node_opts": {"node_name": "Camera", "stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts": {}})",
        NO_STREAMS_AT_OPTIONS +
            "  2:49-2:64 this has no effect here\n"
            "  2:71-2:87 this has no effect here\n"
            "  hint: move 'stream_output' and 'stream_fmt_out' into \"stream_opts\"\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts_extra": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   NO_STREAMS_AT_NODE +
                       "  3:24-3:39 this has no effect here\n"
                       "  3:46-3:62 this has no effect here\n"
                       "  hint: move 'stream_output' and 'stream_fmt_out' into \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, StreamOptionsUnderAnotherKeyAreFound) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "stream_opt": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   NO_STREAMS_AT_NODE +
                       "  3:2-3:14 probably intended as \"stream_opts\"\n"
                       "  hint: rename 'stream_opt' to \"stream_opts\"\n");
    AssertProducer(R"({"node_opts": {"node_name": "Camera"},
 "streams": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   NO_STREAMS_AT_NODE +
                       "  3:2-3:11 probably intended as \"stream_opts\"\n"
                       "  hint: rename 'streams' to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, StreamOptionsWithinNodeOptionsAreFound) {
    AssertProducer(R"({"node_opts": {"node_name": "Camera",
               "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}}})",
                   NO_STREAMS_AT_NODE +
                       "  3:31-3:76 this has no effect here\n"
                       "  hint: move \"stream_opts\" out of \"node_opts\"\n");
}

TEST_F(NodeRulesTest, StreamOptionsThatAreNotAnObjectAreReportedOnce) {
    AssertProducerCodes(R"({"node_opts": {"node_name": "Camera"}, "stream_opts": ["a"]})",
                        "section-not-object");
}

// ---- stream-count ------------------------------------------------------------

const char* const OR_ANOTHER_CLASS =
    ", choose a different class, or correct the numbers in the registration of the class\n";

TEST_F(NodeRulesTest, MoreOutputsThanTheClassHasAreReported) {
    Register({"Stereo", 0, 2});
    AssertNodes("Stereo > a:f, b:f, c:f; a:f, b:f, c:f > Display",
                "3:126-3:143 error stream-count /pipe_0/node_0/stream_opts/stream_output_2: "
                "class 'Stereo' has 2 outputs, but 3 are declared: the device does not wire "
                "'stream_output_2'\n"
                "  hint: declare as many as the class has" +
                    std::string(OR_ANOTHER_CLASS));
}

TEST_F(NodeRulesTest, InputsOfAClassWithoutInputsAreReported) {
    Register({"Source", 0, 1});
    AssertNodes("b:f > Source > a:f; a:f > Display; Camera > b:f",
                "3:28-3:42 error stream-count /pipe_0/node_0/stream_opts/stream_input: "
                "class 'Source' has no input, but 1 is declared: the device does not wire "
                "'stream_input'\n"
                "  hint: remove it" +
                    std::string(OR_ANOTHER_CLASS));
    AssertNodes("b:f, c:f > Source > a:f; a:f > Display; Camera > b:f, c:f",
                "3:28-3:44 error stream-count /pipe_0/node_0/stream_opts/stream_input_0: "
                "class 'Source' has no input, but 2 are declared: the device does not wire "
                "'stream_input_0'\n"
                "  hint: remove them" +
                    std::string(OR_ANOTHER_CLASS));
}

TEST_F(NodeRulesTest, AClassWithOneInputIgnoresIndexedKeys) {
    Register({"Display", 1, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                   "4:18-4:34 error stream-count /pipe_0/node_0/stream_opts/stream_input_1: "
                   "class 'Display' has 1 input, but 2 are declared: the device does not wire "
                   "'stream_input_1'\n"
                   "  hint: declare only \"stream_input\"" +
                       std::string(OR_ANOTHER_CLASS));
}

TEST_F(NodeRulesTest, AClassWithOneInputAbortsTheDeviceWithoutThePlainKey) {
    Register({"Display", 1, 0});
    AssertNodes("a:f, a:f > Display; Camera > a:f",
                "3:28-3:44 error stream-count /pipe_0/node_0/stream_opts/stream_input_0: "
                "class 'Display' has 1 input, but 2 are declared: the device aborts\n"
                "  hint: declare only \"stream_input\"" +
                    std::string(OR_ANOTHER_CLASS));
}

TEST_F(NodeRulesTest, TheFindingIsAtTheKeyThatIsNotWired) {
    Register({"Join", 2, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_0": "f",
                 "stream_input_0": "a", "stream_fmt_in_1": "f", "stream_input_1": "a"}})",
                   "3:18-3:32 error stream-count /pipe_0/node_0/stream_opts/stream_input: "
                   "class 'Join' has 2 inputs, but 3 are declared: the device does not wire "
                   "'stream_input'\n"
                   "  hint: declare as many as the class has" +
                       std::string(OR_ANOTHER_CLASS));
}

TEST_F(NodeRulesTest, AsManyStreamsAsTheClassHasAreAccepted) {
    Register({"Display", 1, 0});
    AssertNodes("a:f > Display; Camera > a:f", "");
}

// ---- stream-name-missing -----------------------------------------------------

TEST_F(NodeRulesTest, AStreamWithoutANameIsReported) {
    Register({"Camera", 0, 1});
    AssertNodes("Camera",
                "3:12-3:25 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "class 'Camera' has 1 output, but none is named: the device aborts\n"
                "  hint: add \"stream_output\": \"...\" and its format to \"stream_opts\"\n");
    Register({"Display", 1, 0});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"}})",
               "2:1-2:9 error stream-name-missing /pipe_0/node_0: "
               "class 'Display' has 1 input, but none is named: the device aborts\n"
               "  hint: add \"stream_input\": \"...\" and its format to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, TheHintNamesTheKeyOfTheMissingStream) {
    Register({"Join", 2, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Join' has 2 inputs, but only 1 is named: the device aborts\n"
                   "  hint: add \"stream_input_1\": \"...\" and its format to \"stream_opts\"\n");
    Register({"Mix", 3, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_1": "a", "stream_fmt_in_1": "f",
                 "stream_input_2": "a", "stream_fmt_in_2": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Mix' has 3 inputs, but only 2 are named: the device aborts\n"
                   "  hint: add \"stream_input_0\": \"...\" and its format to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, TheHintNamesTheFamilyOfSeveralMissingStreams) {
    Register({"Mix", 0, 4});
    AssertProducer(R"({"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Mix' has 4 outputs, but only 1 is named: the device aborts\n"
                   "  hint: name each output in \"stream_opts\" as 'stream_output_<k>'\n");
}

TEST_F(NodeRulesTest, ThePlainKeyNamesOnlyASingleStream) {
    Register({"Join", 2, 0});
    AssertNodes("a:f > Join; Camera > a:f",
                "3:12-3:25 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "class 'Join' has 2 inputs, but none is named: the device aborts\n"
                "  3:28-3:42 applies only to a single input\n"
                "  hint: name each input in \"stream_opts\" as 'stream_input_<k>'\n");
}

TEST_F(NodeRulesTest, AMisplacedStreamNameIsFound) {
    Register({"Join", 2, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"},
 "stream_opts_extra": {"stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Join' has 2 inputs, but only 1 is named: the device aborts\n"
                   "  4:24-4:40 this has no effect here\n"
                   "  4:47-4:64 this has no effect here\n"
                   "  hint: move 'stream_input_1' and 'stream_fmt_in_1' into \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, AMisspeltStreamNameIsFound) {
    Register({"Display", 1, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_inptu": "a", "stream_fmt_in": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Display' has 1 input, but none is named: the device aborts\n"
                   "  3:18-3:32 probably a misspelling of \"stream_input\"\n"
                   "  hint: rename 'stream_inptu' to \"stream_input\"\n");
    Register({"Join", 2, 0});
    AssertConsumer(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inptu_1": "a", "stream_fmt_in_1": "f"}})",
                   "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                   "class 'Join' has 2 inputs, but only 1 is named: the device aborts\n"
                   "  4:18-4:34 probably a misspelling of 'stream_input_1'\n"
                   "  hint: rename 'stream_inptu_1' to 'stream_input_1'\n");
}

TEST_F(NodeRulesTest, ThePlainKeyMayBeInAnotherOptionObject) {
    Register({"Display", 1, 0});
    AssertConsumerCodes(
        R"({"node_opts": {"node_name": "Display", "stream_input": "a", "stream_fmt_in": "f"}})",
        "stream-key-in-extra");
}

TEST_F(NodeRulesTest, AnEmptyKeyNamesAStreamIfTheFamilyIsTooSmall) {
    Register({"Join", 2, 0});
    AssertConsumerCodes(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "": "a", "stream_fmt_in_1": "f"}})",
                        "stream-families-differ");
    // Its value has to be a string.
    AssertConsumerCodes(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "": 5, "stream_fmt_in_1": "f"}})",
                        "stream-name-missing");
}

TEST_F(NodeRulesTest, FormatsThatAClassSetsAreCompared) {
    RegisterCreator("Clock", create<SelfNamingNode>, 0, 1);
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Clock"}, "stream_opts": {"fps": 25}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "x"}})",
        "4:66-4:69 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
        "stream 'a' is consumed as 'x', but 'node_0' produces it as 'f': the device does not "
        "convert it\n"
        "  2:11-2:76 format of the producer\n"
        "  hint: use the same format at both ends of the stream\n");
}

TEST_F(NodeRulesTest, FormatsFromAStoreAreComparedForEachStream) {
    RegisterCreator("Split", create<FixedOutputsNode>, 0, 2);
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Split"},
 "stream_opts": {"stream_output_0": 1, "stream_fmt_out_0": 1,
                 "stream_output_1": 2, "stream_fmt_out_1": 2}},
"node_1": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "x",
                           "stream_input_1": "b", "stream_fmt_in_1": "y"}})",
        "6:70-6:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in_0: "
        "stream 'a' is consumed as 'x', but 'node_0' produces it as 'f': the device does not "
        "convert it\n"
        "  3:60-3:61 format of the producer\n"
        "  hint: use the same format at both ends of the stream\n"
        "7:70-7:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in_1: "
        "stream 'b' is consumed as 'y', but 'node_0' produces it as 'g': the device does not "
        "convert it\n"
        "  4:60-4:61 format of the producer\n"
        "  hint: use the same format at both ends of the stream\n");
}

}  // namespace
