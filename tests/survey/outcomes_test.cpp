// The outcome of setting a node up, and its message.
#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

#include "tests/survey/survey_test.h"

namespace {

using qvgraph::Options;
using qvgraph::Survey;
using qvgraph::SurveyedNode;

class OutcomeOfSetUpTest : public SurveyTest {
protected:
    // Sets up a node of class Filter with these stream options.
    void AssertWired(const std::string& streamOpts, const std::string& outcome) {
        AssertOutcome(
            R"({"node_opts": {"node_name": "Filter"}, "stream_opts": )" + streamOpts + '}',
            outcome);
    }

    // Sets up a node that has this name and one output.
    void AssertNamed(const std::string& name, const std::string& outcome) {
        AssertOutcome(R"({"node_opts": {"node_name": )" + name + R"(},
            "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}})",
                      outcome);
    }

    void AssertOutcome(const std::string& node, const std::string& outcome) {
        EXPECT_EQ(outcomeOf(NodeOf(node)), outcome) << node;
    }
};

// ---- Ready ------------------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, ANodeIsReadyWithAllOfItsStreams) {
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f",
                    "stream_output": "b", "stream_fmt_out": "g"})",
                R"(
ready (0)
in 0 "a" "f"
out 1 "b" "g"
)");
}

TEST_F(OutcomeOfSetUpTest, InputsOrOutputsAreEnough) {
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f"})", R"(
ready (0)
in 0 "a" "f"
)");
    AssertWired(R"({"stream_output": "a", "stream_fmt_out": "f"})", R"(
ready (0)
out 0 "a" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, NamesAndFormatsOfSeveralStreamsArePairedInOrder) {
    AssertWired(R"({
        "stream_input_10": "x", "stream_input_2": "y",
        "stream_fmt_in_7": "f", "stream_fmt_in_8": "g",
        "stream_output_b": "p", "stream_output_a": "q",
        "stream_fmt_out_2": "h", "stream_fmt_out_1": "i"
    })",
                R"(
ready (0)
in 0 "x" "f"
in 1 "y" "g"
out 2 "q" "i"
out 3 "p" "h"
)");
}

TEST_F(OutcomeOfSetUpTest, TheModeAppliesToEveryInput) {
    const std::string streams = R"({"stream_input_0": "a", "stream_fmt_in_0": "f",
        "stream_input_1": "b", "stream_fmt_in_1": "f",
        "stream_output": "c", "stream_fmt_out": "f", "stream_mode_in": )";
    AssertWired(streams + R"("remain_newest"})", R"(
ready (0)
in 0 "a" "f" latest
in 1 "b" "f" latest
out 2 "c" "f"
)");
    AssertWired(streams + R"("Remain_Newest"})", R"(
ready (0)
in 0 "a" "f"
in 1 "b" "f"
out 2 "c" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, AFormatMayBeEmpty) {
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "",
                    "stream_output": "b", "stream_fmt_out": ""})",
                R"(
ready (0)
in 0 "a" ""
out 1 "b" ""
)");
}

TEST_F(OutcomeOfSetUpTest, TheReturnValueOfANodesInitialisationIsIgnored) {
    struct Grumpy : QVHostTaskNode {
        int initialize(int /*nodeId*/,
                       _QVTaskNodeInfo* /*info*/,
                       const std::vector<QVInputStreamManager*>& /*inputs*/,
                       const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
            return -1;
        }
    };
    Register<Grumpy>("Grumpy");
    AssertNamed(R"("Grumpy")", R"(
ready (0)
out 0 "s" "f"
)");
}

// ---- Not created ------------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, ANodeWithoutANameIsNotCreated) {
    const char* const NO_NAME = "\nnot created (-1): it has no \"node_name\" that is a string\n";
    AssertOutcome("{}", NO_NAME);
    AssertOutcome(R"("Filter")", NO_NAME);
    AssertOutcome(R"({"node_name": "Filter"})", NO_NAME);
    AssertOutcome(R"({"node_opts": {"Node_Name": "Filter"}})", NO_NAME);
    AssertNamed(R"("")", NO_NAME);
    AssertNamed("7", NO_NAME);
    AssertNamed("null", NO_NAME);
    AssertNamed(R"(["Filter"])", NO_NAME);
}

TEST_F(OutcomeOfSetUpTest, ANodeWithOnlyALabelIsNotCreated) {
    AssertNamed(R"("#door")", "\nnot created (-1): its name '#door' has no class before the '#'\n");
    AssertNamed(R"("#")", "\nnot created (-1): its name '#' has no class before the '#'\n");
}

TEST_F(OutcomeOfSetUpTest, ANodeOfAnUnknownClassIsNotCreatedWithoutTheStub) {
    QVNodeRegistry::instance().setStub(false);
    Register<QVStubTaskNode>("Camera");
    AssertNamed(R"("Filter#2")", "\nnot created (-1): its class 'Filter' is not registered\n");
    AssertNamed(R"("camera")", "\nnot created (-1): its class 'camera' is not registered\n");
    AssertNamed(R"("Camera#2")", R"(
ready (0)
out 0 "s" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, AClassMayCreateNoNode) {
    RegisterCreator("Filter", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; });
    AssertNamed(R"("Filter#2")", "\nnot created (-1): its class 'Filter' created no node\n");
}

TEST_F(OutcomeOfSetUpTest, ANodeThatIsNotCreatedHasNoOptions) {
    EXPECT_EQ(NodeOf(R"({"node_opts": {"node_name": "#x", "fps": 25}})").options, Options());
}

TEST_F(OutcomeOfSetUpTest, TheClassEndsAtTheFirstHashAndTheNameDoesNot) {
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Camera#a#b"}})");
    EXPECT_EQ(node.name, "Camera#a#b");
    EXPECT_EQ(node.className, "Camera");
}

TEST_F(OutcomeOfSetUpTest, TheClassAlsoEndsAtANul) {
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Camera\u0000Man#a"}})");
    EXPECT_EQ(node.name, std::string("Camera\0Man#a", 12));
    EXPECT_EQ(node.className, "Camera");
}

// ---- No streams -------------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, ANodeWithNeitherInputsNorOutputsHasNoStreams) {
    const char* const NO_STREAMS = "\nno streams (-1): it has neither inputs nor outputs\n";
    AssertWired("{}", NO_STREAMS);
    AssertWired(R"(["stream_input"])", NO_STREAMS);
    AssertWired(R"({"stream_fmt_in": "f", "stream_mode_in": "remain_newest"})", NO_STREAMS);
    AssertWired(R"({"Stream_Input": "a", "a_stream_output": "b"})", NO_STREAMS);
}

TEST_F(OutcomeOfSetUpTest, ANodeWithoutStreamsHasItsOptions) {
    EXPECT_EQ(textOf(NodeOf(R"({"node_opts": {"node_name": "Idle", "fps": 25}})").options),
              R"({fps 25, node_name "Idle"})");
}

// ---- Stream refused ---------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, AnEmptyNameIsRefused) {
    AssertWired(R"({"stream_input": "", "stream_fmt_in": "f",
                    "stream_output": "b", "stream_fmt_out": "g"})",
                R"(
stream refused (0): the name of its input stream is empty
in - - -
out - - -
)");
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f",
                    "stream_output": "", "stream_fmt_out": "g"})",
                R"(
stream refused (0): the name of its output stream is empty
in 0 "a" "f"
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, TheStreamsAfterARefusedOneAreNotWired) {
    AssertWired(R"({
        "stream_input_0": "a", "stream_fmt_in_0": "f",
        "stream_input_1": "", "stream_fmt_in_1": "f",
        "stream_input_2": "c", "stream_fmt_in_2": "f",
        "stream_output": "d", "stream_fmt_out": "f",
        "stream_mode_in": "remain_newest"
    })",
                R"(
stream refused (0): the name of its input stream is empty
in 0 "a" "f" latest
in - - -
in - - -
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, ASecondProducerIsRefused) {
    AssertSurveys(R"({"pipe_0": {
        "node_4": {"node_opts": {"node_name": "First"},
                   "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}},
        "node_5": {"node_opts": {"node_name": "Second"},
                   "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}}
    }})",
                  R"(
pipe 0 pipe_0 threads 0 links none
  node 0 id 4 node_4 "First" of "First": ready (0)
    {node_name "First", stream_fmt_out "f", stream_output "s"}
    out 0 "s" "f"
  node 1 id 5 node_5 "Second" of "Second": )"
                  R"(stream refused (0): stream 's' already has a producer, 'node_4'
    {node_name "Second", stream_fmt_out "f", stream_output "s"}
    out - - -
  stream 0 "s" node_4 > -
)");
}

TEST_F(OutcomeOfSetUpTest, ANodeThatProducesAStreamTwiceIsRefused) {
    AssertWired(R"({"stream_output_0": "s", "stream_fmt_out_0": "f",
                    "stream_output_1": "s", "stream_fmt_out_1": "f"})",
                R"(
stream refused (0): it produces stream 's' twice
out 0 "s" "f"
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, ANodeMayConsumeWhatItProduces) {
    AssertWired(R"({"stream_input": "s", "stream_fmt_in": "f",
                    "stream_output": "s", "stream_fmt_out": "f"})",
                R"(
ready (0)
in 0 "s" "f"
out 0 "s" "f"
)");
}

// ---- Would abort ------------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, AStreamWhoseNameIsNotAStringAborts) {
    AssertWired(R"({"stream_input": 5, "stream_fmt_in": "f"})", R"(
would abort (-): no name for its input stream
in - - -
)");
    AssertWired(R"({"stream_input": "int32:5", "stream_fmt_in": "f"})", R"(
would abort (-): no name for its input stream
in - - -
)");
    AssertWired(R"({"stream_output": true, "stream_fmt_out": "f"})", R"(
would abort (-): no name for its output stream
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, AnIndexedNameForTheOnlyStreamAborts) {
    AssertWired(R"({"stream_input_0": "a", "stream_fmt_in_0": "f"})", R"(
would abort (-): no name for its input stream
in - - -
)");
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f",
                    "stream_output_0": "b", "stream_fmt_out_0": "f"})",
                R"(
would abort (-): no name for its output stream
in 0 "a" "f"
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, OfSeveralStreamsTheOneThatAbortsIsReported) {
    AssertWired(R"({
        "stream_input": "plain",
        "stream_input_0": "a", "stream_fmt_in_0": "f",
        "stream_input_1": "b", "stream_fmt_in_1": "g",
        "stream_output": "c", "stream_fmt_out": "h"
    })",
                R"(
would abort (-): no name for its input stream 3 of 3
in 0 "a" "f"
in 1 "b" "g"
in - - -
out - - -
)");
    AssertWired(R"({
        "stream_input": "a", "stream_fmt_in": "f",
        "stream_output_0": 0, "stream_fmt_out_0": "f",
        "stream_output_1": "b", "stream_fmt_out_1": "f"
    })",
                R"(
would abort (-): no name for its output stream 1 of 2
in 0 "a" "f"
out - - -
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, AClassWithMoreStreamsThanDeclaredAborts) {
    RegisterCreator(
        "Filter", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new QVHostTaskNode; }, 2, 1);
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f",
                    "stream_output": "b", "stream_fmt_out": "f"})",
                R"(
would abort (-): no name for its input stream 1 of 2: its class has 2 inputs, but "stream_opts" declares 1
in - - -
in - - -
out - - -
)");
}

TEST_F(OutcomeOfSetUpTest, OneStreamIsReportedInTheSingular) {
    RegisterCreator(
        "Filter", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new QVHostTaskNode; }, 1, 0);
    AssertWired(R"({"stream_output": "b", "stream_fmt_out": "f"})", R"(
would abort (-): no name for its input stream: its class has 1 input, but "stream_opts" declares 0
in - - -
)");
}

TEST_F(OutcomeOfSetUpTest, ANodeThatWouldAbortHasItsOptions) {
    EXPECT_EQ(textOf(NodeOf(R"({"node_opts": {"node_name": "Filter"},
                               "stream_opts": {"stream_input": 5}})")
                         .options),
              R"({node_name "Filter", stream_input 5})");
}

// ---- Ready, with streams that are not wired ---------------------------------

TEST_F(OutcomeOfSetUpTest, AReadyNodeReportsTheDeclaredStreamsThatAreNotWired) {
    RegisterCreator(
        "Tone", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new QVHostTaskNode; }, 0, 2);
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Tone"},
                                "stream_opts": {"stream_input": "low", "stream_fmt_in": "f",
                                                "stream_output_0": "a", "stream_fmt_out_0": "f",
                                                "stream_output_1": "b", "stream_fmt_out_1": "f",
                                                "stream_output_2": "c", "stream_output_3": "d"}})");
    EXPECT_EQ(outcomeOf(node),
              "\nready (0): 1 declared input is not wired: its class has 0 inputs; "
              "2 declared outputs are not wired: its class has 2 outputs\n"
              "out 0 \"a\" \"f\"\n"
              "out 1 \"b\" \"f\"\n");
}

TEST_F(OutcomeOfSetUpTest, AReadyNodeWithAsManyStreamsAsDeclaredReportsNothing) {
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Tone"},
                                "stream_opts": {"stream_input": "low", "stream_fmt_in": "f"}})");
    EXPECT_EQ(outcomeOf(node), R"(
ready (0)
in 0 "low" "f"
)");
}

// ---- Would throw ------------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, AStreamWithoutAFormatThrows) {
    AssertWired(R"({"stream_input": "a", "stream_output": "b", "stream_fmt_out": "f"})", R"(
would throw (-): no format for its input stream 'a'
in 0 "a" -
out - - -
)");
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": "f", "stream_output": "b"})", R"(
would throw (-): no format for its output stream 'b'
in 0 "a" "f"
out 1 "b" -
)");
}

TEST_F(OutcomeOfSetUpTest, AStreamWhoseFormatIsNotAStringThrows) {
    AssertWired(R"({"stream_input": "a", "stream_fmt_in": 5})", R"(
would throw (-): no format for its input stream 'a'
in 0 "a" -
)");
    AssertWired(R"({"stream_output": "a", "stream_fmt_out": "int32:5"})", R"(
would throw (-): no format for its output stream 'a'
out 0 "a" -
)");
}

TEST_F(OutcomeOfSetUpTest, OfSeveralStreamsTheOneThatThrowsIsReported) {
    AssertWired(R"({
        "stream_input_0": "a", "stream_fmt_in_0": "f",
        "stream_input_1": "b",
        "stream_input_2": "c",
        "stream_output": "d", "stream_fmt_out": "f"
    })",
                R"(
would throw (-): no format for its input stream 2 of 3 'b'
in 0 "a" "f"
in 1 "b" -
in - - -
out - - -
)");
    AssertWired(R"({
        "stream_output_0": "a", "stream_fmt_out_0": "f",
        "stream_output_1": "b"
    })",
                R"(
would throw (-): no format for its output stream 2 of 2 'b'
out 0 "a" "f"
out 1 "b" -
)");
}

TEST_F(OutcomeOfSetUpTest, AnInputThatThrowsIsNotLatestOnlyYet) {
    AssertWired(R"({"stream_input": "a", "stream_mode_in": "remain_newest"})", R"(
would throw (-): no format for its input stream 'a'
in 0 "a" -
)");
}

// A node that throws while it is initialised.
template <typename Thrown>
class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw Thrown();
    }
};

struct SensorIsMissing : std::runtime_error {
    SensorIsMissing() : std::runtime_error("there is no sensor") {}
};

TEST_F(OutcomeOfSetUpTest, WhatANodeThrowsIsReported) {
    Register<ThrowingNode<SensorIsMissing>>("Camera");
    AssertNamed(R"("Camera")", R"(
would throw (-): there is no sensor
out 0 "s" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, ANodeOfARegisteredClassIsMarked) {
    Register<QVHostTaskNode>("Camera");
    const auto isRegistered = [this](const std::string& name) {
        const std::string text =
            R"({"pipe_0": {"node_0": {"node_opts": {"node_name": ")" + name + R"("}}}})";
        EXPECT_EQ(parser.parseConfigText(text.c_str()), 0);
        return qvgraph::surveyConfiguration(parser, {}).pipes.at(0).nodes.at(0).registered;
    };
    EXPECT_TRUE(isRegistered("Camera#door"));
    EXPECT_FALSE(isRegistered("Microphone"));
    EXPECT_FALSE(isRegistered(""));
}

TEST_F(OutcomeOfSetUpTest, ClassesAreListedWithTheirOrigins) {
    Register<QVHostTaskNode>("Camera");
    QVNodeRegistry::instance().registerClass(
        {"Blender", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; }}, "blend.so");
    const qvgraph::NodeClasses all = qvgraph::surveyNodeClasses();
    EXPECT_TRUE(all.stub);
    ASSERT_EQ(all.classes.size(), 2U);
    EXPECT_EQ(all.classes[0].name, "Blender");
    EXPECT_EQ(all.classes[0].origin, "blend.so");
    EXPECT_EQ(all.classes[1].name, "Camera");
    EXPECT_EQ(all.classes[1].origin, "");
}

struct PromisedText : std::logic_error {
    PromisedText() : std::logic_error("basic_string::_M_construct null not valid") {}
};

TEST_F(OutcomeOfSetUpTest, WhatAWiredNodeThrowsIsNotReportedAsAMissingFormat) {
    Register<ThrowingNode<PromisedText>>("Camera");
    AssertNamed(R"("Camera")", R"(
would throw (-): basic_string::_M_construct null not valid
out 0 "s" "f"
)");
}

// A node with an assertion that fails while it is initialised.
class AssertingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        const int line = 12;
        qv_err(7, QV_LOG_ERROR, "Lens", QV_ASSERT_FORMAT, "open", line, "mLens", "open", line);
        abort();
    }
};

TEST_F(OutcomeOfSetUpTest, AFailedAssertionOfANodeIsReported) {
    Register<AssertingNode>("Camera");
    AssertNamed(R"("Camera")", R"(
would abort (-): Assertion mLens failed at open:12
out 0 "s" "f"
)");
}

struct Silent : std::exception {
    const char* what() const noexcept override { return ""; }
};

TEST_F(OutcomeOfSetUpTest, AnExceptionMayHaveNoMessage) {
    Register<ThrowingNode<Silent>>("Camera");
    AssertNamed(R"("Camera")", R"(
would throw (-): an exception without a message
out 0 "s" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, ANodeMayThrowWhatIsNotAStdException) {
    Register<ThrowingNode<int>>("Camera");
    AssertNamed(R"("Camera")", R"(
would throw (-): an exception that is not a std::exception
out 0 "s" "f"
)");
}

TEST_F(OutcomeOfSetUpTest, AClassMayThrowInsteadOfCreatingANode) {
    RegisterCreator("Camera",
                    [](const _QVNodeInfo*) -> QVTaskNodeBase* { throw SensorIsMissing(); });
    AssertNamed(R"("Camera")", "\nwould throw (-): there is no sensor\n");
}

TEST_F(OutcomeOfSetUpTest, RunningOutOfMemoryPropagatesToTheCaller) {
    Register<ThrowingNode<std::bad_alloc>>("Camera");
    EXPECT_THROW(NodeOf(R"({"node_opts": {"node_name": "Camera"},
                            "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}})"),
                 std::bad_alloc);
}

// ---- Stores -----------------------------------------------------------------

// Has no option store.
class BareNode : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }
};

TEST_F(OutcomeOfSetUpTest, ANodeWithoutAStoreGetsOne) {
    Register<BareNode>("Bare");
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Bare"},
                                "stream_opts": {"stream_input": "s", "stream_fmt_in": "f"}})");
    EXPECT_EQ(textOf(node.options), R"({node_name "Bare", stream_fmt_in "f", stream_input "s"})");
    EXPECT_EQ(outcomeOf(node), R"(
ready (0)
in 0 "s" "f"
)");
}

// Stores nothing, and finds the name "s" and the format "f" for every stream.
class ForeignStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* /*value*/) override { return 0; }
    int setInt32(const char* /*key*/, int32_t /*value*/) override { return 0; }
    int setInt64(const char* /*key*/, int64_t /*value*/) override { return 0; }
    int setFloat(const char* /*key*/, float /*value*/) override { return 0; }
    int findCString(const char* key, const char** value) override {
        *value = std::string(key).find("fmt") == std::string::npos ? "s" : "f";
        return 1;
    }
};

class ForeignNode : public BareNode {
public:
    ForeignNode() { mOptions = &mStore; }

private:
    ForeignStore mStore;
};

TEST_F(OutcomeOfSetUpTest, TheOptionsOfAStoreOfAClassAreThoseThatItFinds) {
    Register<ForeignNode>("Foreign");
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Foreign"},
                                "stream_opts": {"stream_input": "a"}})");
    EXPECT_EQ(textOf(node.options), R"({node_name "s", stream_input "s"})");
    EXPECT_EQ(outcomeOf(node), R"(
ready (0)
in 0 "s" "f"
)");
}

// ---- The other nodes --------------------------------------------------------

TEST_F(OutcomeOfSetUpTest, TheNodesAfterOneThatIsNotReadyAreStillSetUp) {
    Register<ThrowingNode<int>>("Wild");
    const Survey survey = SurveyOf(R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "#door"}},
        "node_1": {"node_opts": {"node_name": "Idle"}},
        "node_2": {"node_opts": {"node_name": "Refused"},
                   "stream_opts": {"stream_input": "", "stream_fmt_in": "f"}},
        "node_3": {"node_opts": {"node_name": "Nameless"}, "stream_opts": {"stream_input": 1}},
        "node_4": {"node_opts": {"node_name": "Formatless"}, "stream_opts": {"stream_output": "s"}},
        "node_5": {"node_opts": {"node_name": "Wild"},
                   "stream_opts": {"stream_output": "t", "stream_fmt_out": "f"}},
        "node_6": {"node_opts": {"node_name": "Sound"}, "stream_opts": {
                   "stream_input_0": "s", "stream_fmt_in_0": "f",
                   "stream_input_1": "t", "stream_fmt_in_1": "f"}}
    }})");
    std::string outcomes;
    for (const SurveyedNode& node : survey.pipes.at(0).nodes) {
        outcomes += outcomeOf(node);
    }
    EXPECT_EQ(outcomes, R"(
not created (-1): its name '#door' has no class before the '#'

no streams (-1): it has neither inputs nor outputs

stream refused (0): the name of its input stream is empty
in - - -

would abort (-): no name for its input stream
in - - -

would throw (-): no format for its output stream 's'
out 0 "s" -

would throw (-): an exception that is not a std::exception
out 1 "t" "f"

ready (0)
in 0 "s" "f"
in 1 "t" "f"
)");
}

// On a device, the streams of a node whose set-up failed stay registered.
TEST_F(OutcomeOfSetUpTest, StreamsOfANodeThatIsNotReadyStayRegistered) {
    AssertSurveys(R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Formatless"}, "stream_opts": {"stream_output": "s"}},
        "node_1": {"node_opts": {"node_name": "Late"},
                   "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}}
    }})",
                  R"(
pipe 0 pipe_0 threads 0 links none
  node 0 id 0 node_0 "Formatless" of "Formatless": )"
                  R"(would throw (-): no format for its output stream 's'
    {node_name "Formatless", stream_output "s"}
    out 0 "s" -
  node 1 id 1 node_1 "Late" of "Late": )"
                  R"(stream refused (0): stream 's' already has a producer, 'node_0'
    {node_name "Late", stream_fmt_out "f", stream_output "s"}
    out - - -
  stream 0 "s" node_0 > -
)");
}

TEST_F(OutcomeOfSetUpTest, ARefusalDoesNotAffectTheNextNode) {
    const Survey survey = SurveyOf(R"({"pipe_0": {
        "node_0": {"node_opts": {"node_name": "Refused"},
                   "stream_opts": {"stream_input": "", "stream_fmt_in": "f"}},
        "node_1": {"node_opts": {"node_name": "Sound"},
                   "stream_opts": {"stream_input": "s", "stream_fmt_in": "f"}}
    }})");
    EXPECT_EQ(outcomeOf(survey.pipes.at(0).nodes.at(1)), R"(
ready (0)
in 0 "s" "f"
)");
}

}  // namespace
