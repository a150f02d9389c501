// What keeps a node from being made: its name, its class, and how many streams
// the class has.
#include <map>
#include <stdexcept>

#include "tests/check/node_test.h"

namespace {

using NodeRulesTest = NodeTest;

QVTaskNodeBase* createOrThrow(const _QVNodeInfo* /*info*/) {
    throw std::runtime_error("no licence");
}

// A node that names its output itself.
class KnowingNode : public QVHostTaskNode {
public:
    KnowingNode() {
        mOptions->setCString("stream_output", "a");
        mOptions->setCString("stream_fmt_out", "f");
    }
};

// A node whose store answers for its outputs by itself.
class AnsweringNode : public QVHostTaskNode {
public:
    AnsweringNode() { mOptions = &mAnswers; }

private:
    class Answers : public QVHostMetaData {
    public:
        int findCString(const char* key, const char** value) override {
            static const std::map<std::string, const char*> ANSWERS = {{"stream_output_0", "a"},
                                                                       {"stream_fmt_out_0", "f"},
                                                                       {"stream_output_1", "b"},
                                                                       {"stream_fmt_out_1", "g"}};
            const auto answer = ANSWERS.find(key);
            *value = answer == ANSWERS.end() ? nullptr : answer->second;
            return answer == ANSWERS.end() ? 0 : 1;
        }
    };

    Answers mAnswers;
};

// ---- node-name ---------------------------------------------------------------

TEST_F(NodeRulesTest, ANodeNeedsOptionsWithAName) {
    AssertGiver(R"({"stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  hint: add \"node_opts\": {\"node_name\": \"...\"} with the node's class\n");
}

TEST_F(NodeRulesTest, TheOptionsNeedAName) {
    AssertGiver(R"({"node_opts": {"fps": 25},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                "\"node_name\" is missing: no node is made\n"
                "  hint: add \"node_name\": \"...\" with the node's class\n");
}

TEST_F(NodeRulesTest, ANameIsAText) {
    AssertGiver(R"({"node_opts": {"node_name": 7},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:40 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is a number, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": null},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:43 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is null, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": true},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:43 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is a boolean, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": ["Camera"]},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:49 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is an array, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": {"class": "Camera"}},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:58 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is an object, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
}

TEST_F(NodeRulesTest, ANameIsNotEmpty) {
    AssertGiver(R"({"node_opts": {"node_name": ""},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:41 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is empty: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
    // What follows a NUL is not read.
    AssertGiver(R"({"node_opts": {"node_name": "\u0000Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:53 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is empty: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
}

TEST_F(NodeRulesTest, ANameThatBeginsWithATypeIsStoredAsANumber) {
    AssertGiver(R"({"node_opts": {"node_name": "int32:5"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:48 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is 'int32:5', stored as a number because 'int32' is a type\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": "float"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:46 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is 'float', stored as a number because 'float' is a type\n"
                "  hint: write the name of the node's class, as a text\n");
}

TEST_F(NodeRulesTest, OtherTextsAreNames) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertGiver(R"({"node_opts": {"node_name": "Camera#left"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertGiver(R"({"node_opts": {"node_name": "camera:front"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertGiver(R"({"node_opts": {"node_name": ":int32"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertGiver(R"({"node_opts": {"node_name": "C"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
}

TEST_F(NodeRulesTest, TheNameMayStandUnderAKeyThatIsNearlyIt) {
    AssertGiver(R"({"node_opts": {"Node-Name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                "\"node_name\" is missing: no node is made\n"
                "  2:26-2:37 this is nearly \"node_name\"\n"
                "  hint: rename 'Node-Name' to \"node_name\"\n");
    AssertGiver(R"({"node_opts": {"nodename": 7, "nodename2": "x"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                "\"node_name\" is missing: no node is made\n"
                "  2:41-2:52 this is nearly \"node_name\"\n"
                "  hint: rename 'nodename2' to \"node_name\"\n");
}

TEST_F(NodeRulesTest, TheNameMayStandElsewhereInTheNode) {
    AssertGiver(R"({"node_name": "Camera",
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  2:12-2:23 this does not count here\n"
                "  hint: move 'node_name' to \"node_opts\"\n");
    AssertGiver(R"({"node_opts": {},
 "stream_opts": {"node_name": "Camera", "stream_output": "a", "stream_fmt_out": "f"}})",
                "2:12-2:23 error node-name /pipe_0/node_0/node_opts: "
                "\"node_name\" is missing: no node is made\n"
                "  3:18-3:29 this does not count here\n"
                "  hint: move 'node_name' to \"node_opts\"\n");
    AssertGiver(R"({"node_opts_extra": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  2:32-2:43 this does not count here\n"
                "  hint: move 'node_name' to \"node_opts\"\n");
}

TEST_F(NodeRulesTest, TheOptionsMayStandUnderAnotherKey) {
    AssertGiver(R"({"node_opt": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  2:12-2:22 this is probably meant\n"
                "  hint: rename 'node_opt' to \"node_opts\"\n");
    AssertGiver(R"({"options": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  2:12-2:21 this is probably meant\n"
                "  hint: rename 'options' to \"node_opts\"\n");
    AssertGiver(R"({"executor_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  2:12-2:27 this is probably meant\n"
                "  hint: rename 'executor_opts' to \"node_opts\"\n");
    // This one is not meant.
    AssertGiver(R"({"node_opt_extra": {"fps": 25},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  hint: add \"node_opts\": {\"node_name\": \"...\"} with the node's class\n"
                "2:12-2:28 warning unknown-key /pipe_0/node_0/node_opt_extra: "
                "'node_opt_extra' is no key of a node: a device ignores it\n"
                "  hint: write \"node_opts_extra\"\n");
}

TEST_F(NodeRulesTest, TheOptionsMayStandWithinOthers) {
    AssertGiver(R"({"stream_opts": {"stream_output": "a", "stream_fmt_out": "f",
                 "node_opts": {"node_name": "Camera"}}})",
                "2:1-2:9 error node-name /pipe_0/node_0: "
                "'node_0' has no \"node_opts\": no node is made\n"
                "  3:31-3:54 this does not count here\n"
                "  hint: move \"node_opts\" out of \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, OptionsThatAreNoObjectAreReportedAlone) {
    AssertGiver(R"({"node_opts": "Camera",
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:25-2:33 error section-not-object /pipe_0/node_0/node_opts: "
                "\"node_opts\" is a string, not an object: the node has no name, and is not "
                "made\n"
                "  hint: write an object, {...}\n");
}

TEST_F(NodeRulesTest, NodeOptionsOutsideOfANodeAreNoNode) {
    AssertPipe(R"("node_opts": {"node_name": "Camera"})",
               "2:1-2:12 error id-not-canonical /pipe_0/node_opts: "
               "'node_opts' has the id 0, and there is no 'node_0': a device makes no node "
               "of it\n"
               "  hint: move it into a node\n");
}

TEST_F(NodeRulesTest, ANameThatIsNoTextHasNoClassThatCouldBeMissing) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertGiver(R"({"node_opts": {"node_name": "int32:5"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:48 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is 'int32:5', stored as a number because 'int32' is a type\n"
                "  hint: write the name of the node's class, as a text\n");
    AssertGiver(R"({"node_opts": {"node_name": null},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:43 error node-name /pipe_0/node_0/node_opts/node_name: "
                "\"node_name\" is null, not a text: no node is made\n"
                "  hint: write the name of the node's class, as a text\n");
}

// ---- node-class --------------------------------------------------------------

TEST_F(NodeRulesTest, WithoutTheStubAClassHasToBeRegistered) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    Register({"Camera", 0, 1});
    AssertGiver(R"({"node_opts": {"node_name": "Microphone"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:51 error node-class /pipe_0/node_0/node_opts/node_name: "
                "the class 'Microphone' is not registered: no node is made\n"
                "  hint: load the library that has it with --plugin\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertGiver(R"({"node_opts": {"node_name": "Camera#left"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
}

TEST_F(NodeRulesTest, TheNearestRegisteredClassIsNamed) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    Register({"Camera", 0, 1});
    AssertGiver(R"({"node_opts": {"node_name": "Camara#left"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:52 error node-class /pipe_0/node_0/node_opts/node_name: "
                "the class 'Camara' is not registered: no node is made\n"
                "  hint: write 'Camera', if that class is meant\n");
    AssertGiver(R"({"node_opts": {"node_name": "camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:47 error node-class /pipe_0/node_0/node_opts/node_name: "
                "the class 'camera' is not registered: no node is made\n"
                "  hint: write 'Camera', if that class is meant\n");
}

TEST_F(NodeRulesTest, AStubForAClassThatNearlyIsARegisteredOneIsTold) {
    Register({"Tone", 0, 1});
    AssertGiver(R"({"node_opts": {"node_name": "Tne#low"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:48 warning node-class-stub /pipe_0/node_0/node_opts/node_name: "
                "the class 'Tne' is not registered, but 'Tone' is: a stub stands in for it\n"
                "  hint: write 'Tone', if that class is meant\n");
}

TEST_F(NodeRulesTest, AStubForAnyOtherClassIsNotTold) {
    Register({"Tone", 0, 1});
    AssertGiver(R"({"node_opts": {"node_name": "Microphone"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
}

TEST_F(NodeRulesTest, AClassOfItsOwnIsNoStubHoweverNearAnother) {
    Register({"Tone", 0, 1});
    Register({"Tune", 0, 1});
    AssertGiver(R"({"node_opts": {"node_name": "Tune"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
}

TEST_F(NodeRulesTest, TheStubStandsInForEveryClass) {
    AssertGiver(R"({"node_opts": {"node_name": "Microphone"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
}

TEST_F(NodeRulesTest, ALabelAloneIsNoClass) {
    AssertGiver(R"({"node_opts": {"node_name": "#left"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:46 error node-class /pipe_0/node_0/node_opts/node_name: "
                "'#left' has no class before the '#'\n"
                "  hint: put the class before the '#' and the label behind it\n");
    AssertGiver(R"({"node_opts": {"node_name": "#"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:42 error node-class /pipe_0/node_0/node_opts/node_name: "
                "'#' has no class before the '#'\n"
                "  hint: put the class before the '#' and the label behind it\n");
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertGiver(R"({"node_opts": {"node_name": "#left"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:46 error node-class /pipe_0/node_0/node_opts/node_name: "
                "'#left' has no class before the '#'\n"
                "  hint: put the class before the '#' and the label behind it\n");
}

TEST_F(NodeRulesTest, OtherMistakesOfTheNodeAreReportedBesidesItsClass) {
    QVNodeRegistry::instance().setStub(false);
    Register({"Display", 1, 0});
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                "2:39-2:47 error node-class /pipe_0/node_0/node_opts/node_name: "
                "the class 'Camera' is not registered: no node is made\n"
                "  hint: load the library that has it with --plugin\n"
                "3:18-3:35 error single-stream-key /pipe_0/node_0/stream_opts/stream_output_0: "
                "'stream_output_0' is the node's only output, whose name is looked up as "
                "\"stream_output\": aborts the process\n"
                "  hint: rename it to \"stream_output\", and 'stream_fmt_out_0' to "
                "\"stream_fmt_out\"\n");
}

// ---- node-class-failed -------------------------------------------------------

TEST_F(NodeRulesTest, AClassMayMakeNoNode) {
    Register({"Broken", 0, 1, false});
    AssertGiver(R"({"node_opts": {"node_name": "Broken#1"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:49 error node-class-failed /pipe_0/node_0/node_opts/node_name: "
                "the class 'Broken' makes no node\n"
                "  hint: see what the class wants of its options and streams\n");
}

TEST_F(NodeRulesTest, AClassMayThrow) {
    RegisterCreator("Broken", create<ThrowingNode>);
    AssertGiver(R"({"node_opts": {"node_name": "Broken"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:47 error node-class-failed /pipe_0/node_0/node_opts/node_name: "
                "the class 'Broken' throws: no licence\n"
                "  hint: see what the class wants of its options and streams\n");
}

TEST_F(NodeRulesTest, AClassMayThrowInsteadOfMakingANode) {
    RegisterCreator("Broken", createOrThrow);
    AssertGiver(R"({"node_opts": {"node_name": "Broken"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:47 error node-class-failed /pipe_0/node_0/node_opts/node_name: "
                "the class 'Broken' throws: no licence\n"
                "  hint: see what the class wants of its options and streams\n");
}

TEST_F(NodeRulesTest, AClassMayAssertSomething) {
    RegisterCreator("Broken", create<AssertingNode>);
    AssertGiver(R"({"node_opts": {"node_name": "Broken"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:39-2:47 error node-class-failed /pipe_0/node_0/node_opts/node_name: "
                "the class 'Broken' aborts the process: Assertion mLens failed at open:12\n"
                "  hint: see what the class wants of its options and streams\n");
}

TEST_F(NodeRulesTest, AClassThatIsNotReachedDoesNotFail) {
    RegisterCreator("Broken", create<ThrowingNode>);
    AssertGiver(R"({"node_opts": {"node_name": "Broken"}, "stream_opts": {"stream_output": "a"}})",
                "2:66-2:81 error stream-format-missing /pipe_0/node_0/stream_opts/stream_output: "
                "the output stream 'a' has no format: \"stream_fmt_out\" is missing, which "
                "throws\n"
                "  hint: add \"stream_fmt_out\": \"...\" to \"stream_opts\"\n");
}

// ---- no-streams --------------------------------------------------------------

TEST_F(NodeRulesTest, ANodeNeedsStreams) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"}, "stream_opts": {}})",
               "2:50-2:63 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"}})",
               "2:1-2:9 error no-streams /pipe_0/node_0: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"fps": 25, "stream_mode_in": "remain_newest"}})",
               "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
}

TEST_F(NodeRulesTest, OneSideIsEnough) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
                "");
}

TEST_F(NodeRulesTest, AClassMayHaveNone) {
    Register({"Clock", 0, 0});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Clock"},
 "stream_opts": {}})",
               "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
}

TEST_F(NodeRulesTest, AClassMayHaveSomeByItself) {
    RegisterCreator("Clock", create<KnowingNode>, 0, 1);
    AssertGiver(R"({"node_opts": {"node_name": "Clock"},
 "stream_opts": {}})",
                "");
}

TEST_F(NodeRulesTest, AFormatAloneIsNoStream) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_fmt_out": "f"}})",
               "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
               "'node_0' has neither inputs nor outputs: its set-up fails\n"
               "  hint: name its streams in \"stream_opts\": \"stream_input\", "
               "\"stream_output\"\n");
}

TEST_F(NodeRulesTest, AStreamMayStandUnderAKeyThatIsNearlyIt) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"stream_ouput": "a", "stream_fmt_out": "f"}})",
                "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:18-3:32 this is nearly \"stream_output\"\n"
                "  hint: rename 'stream_ouput' to \"stream_output\"\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts": {"Stream_Output_0": "a", "stream_fmt_out_0": "f",
                 "stream_outpt_1": "b", "stream_fmt_out_1": "f"}})",
                "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:18-3:35 this is nearly 'stream_output_0'\n"
                "  4:18-4:34 this is nearly 'stream_output_1'\n"
                "  hint: rename 'Stream_Output_0' to 'stream_output_0' and rename "
                "'stream_outpt_1' to 'stream_output_1'\n");
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"input_stream": "a"}})",
                "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:18-3:32 this is nearly \"stream_input\"\n"
                "  hint: rename 'input_stream' to \"stream_input\"\n");
}

TEST_F(NodeRulesTest, AStreamMayStandElsewhereInTheNode) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"}, "stream_output": "a"})",
                "2:1-2:9 error no-streams /pipe_0/node_0: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  2:50-2:65 this does not count here\n"
                "  hint: move 'stream_output' to \"stream_opts\"\n");
    AssertGiver(
        R"({"node_opts": {"node_name": "Camera", "stream_output": "a", "stream_fmt_out": "f"},
 "stream_opts": {}})",
        "3:2-3:15 error no-streams /pipe_0/node_0/stream_opts: "
        "'node_0' has neither inputs nor outputs: its set-up fails\n"
        "  2:49-2:64 this does not count here\n"
        "  2:71-2:87 this does not count here\n"
        "  hint: move 'stream_output' and 'stream_fmt_out' to \"stream_opts\"\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opts_extra": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error no-streams /pipe_0/node_0: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:24-3:39 this does not count here\n"
                "  3:46-3:62 this does not count here\n"
                "  hint: move 'stream_output' and 'stream_fmt_out' to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, TheOptionsOfStreamsMayStandUnderAnotherKey) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "stream_opt": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error no-streams /pipe_0/node_0: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:2-3:14 this is probably meant\n"
                "  hint: rename 'stream_opt' to \"stream_opts\"\n");
    AssertGiver(R"({"node_opts": {"node_name": "Camera"},
 "streams": {"stream_output": "a", "stream_fmt_out": "f"}})",
                "2:1-2:9 error no-streams /pipe_0/node_0: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:2-3:11 this is probably meant\n"
                "  hint: rename 'streams' to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, TheOptionsOfStreamsMayStandWithinOthers) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera",
               "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}}})",
                "2:1-2:9 error no-streams /pipe_0/node_0: "
                "'node_0' has neither inputs nor outputs: its set-up fails\n"
                "  3:31-3:76 this does not count here\n"
                "  hint: move \"stream_opts\" out of \"node_opts\"\n");
}

TEST_F(NodeRulesTest, OptionsOfStreamsThatAreNoObjectAreReportedAlone) {
    AssertGiver(R"({"node_opts": {"node_name": "Camera"}, "stream_opts": ["a"]})",
                "2:65-2:70 error section-not-object /pipe_0/node_0/stream_opts: "
                "\"stream_opts\" is an array, not an object: the node has no streams\n"
                "  hint: write an object, {...}\n");
}

// ---- stream-count ------------------------------------------------------------

TEST_F(NodeRulesTest, AClassMayHaveFewerOutputsThanAreDeclared) {
    Register({"Stereo", 0, 2});
    AssertPipe(
        R"("node_0": {"node_opts": {"node_name": "Stereo"},
 "stream_opts": {
  "stream_output_0": "a", "stream_fmt_out_0": "f",
  "stream_output_1": "b", "stream_fmt_out_1": "f",
  "stream_output_2": "c", "stream_fmt_out_2": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
 "stream_opts": {
  "stream_input_0": "a", "stream_fmt_in_0": "f",
  "stream_input_1": "b", "stream_fmt_in_1": "f",
  "stream_input_2": "c", "stream_fmt_in_2": "f"}})",
        "6:3-6:20 error stream-count /pipe_0/node_0/stream_opts/stream_output_2: "
        "the class 'Stereo' has 2 outputs, but 3 are declared\n"
        "  hint: declare as many as the class has, name another class, or correct the numbers where the class is registered\n");
}

TEST_F(NodeRulesTest, AClassMayHaveNoInputsAtAll) {
    Register({"Source", 0, 1});
    AssertGiver(
        R"({"node_opts": {"node_name": "Source"},
 "stream_opts": {"stream_input": "b", "stream_fmt_in": "f",
                 "stream_output": "a", "stream_fmt_out": "f"}})",
        "3:18-3:32 error stream-count /pipe_0/node_0/stream_opts/stream_input: "
        "the class 'Source' has no input, but 1 is declared\n"
        "  hint: remove it, name another class, or correct the numbers where the class is registered\n"
        "3:34-3:37 warning no-producer /pipe_0/node_0/stream_opts/stream_input: "
        "no node of the pipe gives the stream 'b'\n"
        "  hint: name a stream that a node of the pipe gives, or add a node that "
        "gives it\n");
    AssertGiver(
        R"({"node_opts": {"node_name": "Source"},
 "stream_opts": {"stream_input_0": "b", "stream_input_1": "c",
                 "stream_output": "a", "stream_fmt_out": "f"}})",
        "3:18-3:34 error stream-count /pipe_0/node_0/stream_opts/stream_input_0: "
        "the class 'Source' has no input, but 2 are declared\n"
        "  hint: remove them, name another class, or correct the numbers where the class is registered\n"
        "3:36-3:39 warning no-producer /pipe_0/node_0/stream_opts/stream_input_0: "
        "no node of the pipe gives the stream 'b'\n"
        "  hint: name a stream that a node of the pipe gives, or add a node that "
        "gives it\n"
        "3:59-3:62 warning no-producer /pipe_0/node_0/stream_opts/stream_input_1: "
        "no node of the pipe gives the stream 'c'\n"
        "  hint: name a stream that a node of the pipe gives, or add a node that "
        "gives it\n");
}

TEST_F(NodeRulesTest, AClassWithOneInputTakesThePlainKey) {
    Register({"Display", 1, 0});
    // It is set up, with the plain key.
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
        "4:18-4:34 error stream-count /pipe_0/node_0/stream_opts/stream_input_1: "
        "the class 'Display' has 1 input, but 2 are declared\n"
        "  hint: declare \"stream_input\" alone, name another class, or correct the numbers where the class is registered\n");
    // The process is aborted.
    AssertTaker(
        R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_input_1": "a", "stream_fmt_in_1": "f"}})",
        "3:18-3:34 error stream-count /pipe_0/node_0/stream_opts/stream_input_0: "
        "the class 'Display' has 1 input, but 2 are declared\n"
        "  hint: declare \"stream_input\" alone, name another class, or correct the numbers where the class is registered\n");
}

TEST_F(NodeRulesTest, TheKeyThatIsNotLookedUpIsTheOneTooMany) {
    Register({"Join", 2, 0});
    AssertTaker(
        R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in_0": "f",
                 "stream_input_0": "a", "stream_fmt_in_1": "f", "stream_input_1": "a"}})",
        "3:18-3:32 error stream-count /pipe_0/node_0/stream_opts/stream_input: "
        "the class 'Join' has 2 inputs, but 3 are declared\n"
        "  hint: declare as many as the class has, name another class, or correct the numbers where the class is registered\n");
}

TEST_F(NodeRulesTest, AsManyAsAreDeclaredAreRight) {
    Register({"Display", 1, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
                "");
}

// ---- stream-name-missing -----------------------------------------------------

TEST_F(NodeRulesTest, AClassMayHaveAStreamThatIsNotNamed) {
    Register({"Camera", 0, 1});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera"},
 "stream_opts": {}})",
               "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
               "the class 'Camera' has 1 output, but none is named: aborts the process\n"
               "  hint: add \"stream_output\": \"...\" to \"stream_opts\", and its format\n");
    Register({"Display", 1, 0});
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Display"}})",
               "2:1-2:9 error stream-name-missing /pipe_0/node_0: "
               "the class 'Display' has 1 input, but none is named: aborts the process\n"
               "  hint: add \"stream_input\": \"...\" to \"stream_opts\", and its format\n");
}

TEST_F(NodeRulesTest, AClassMayHaveOneMoreThanAreNamed) {
    Register({"Join", 2, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but only 1 is named: aborts the process\n"
                "  hint: add \"stream_input_1\": \"...\" to \"stream_opts\", and its format\n");
    Register({"Mix", 3, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_input_1": "a", "stream_fmt_in_1": "f",
                 "stream_input_2": "a", "stream_fmt_in_2": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Mix' has 3 inputs, but only 2 are named: aborts the process\n"
                "  hint: add \"stream_input_0\": \"...\" to \"stream_opts\", and its format\n");
}

TEST_F(NodeRulesTest, AClassMayHaveMoreThanAreNamed) {
    Register({"Mix", 0, 4});
    AssertGiver(R"({"node_opts": {"node_name": "Mix"},
 "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Mix' has 4 outputs, but only 1 is named: aborts the process\n"
                "  hint: name each in \"stream_opts\", as 'stream_output_<k>'\n");
}

TEST_F(NodeRulesTest, ThePlainKeyNamesNoneOfSeveral) {
    Register({"Join", 2, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but none is named: aborts the process\n"
                "  3:18-3:32 this names the only input of a node\n"
                "  hint: name each in \"stream_opts\", as 'stream_input_<k>'\n");
}

TEST_F(NodeRulesTest, ANameMayStandElsewhereInTheNode) {
    Register({"Join", 2, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f"},
 "stream_opts_extra": {"stream_input_1": "a", "stream_fmt_in_1": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but only 1 is named: aborts the process\n"
                "  4:24-4:40 this does not count here\n"
                "  4:47-4:64 this does not count here\n"
                "  hint: move 'stream_input_1' and 'stream_fmt_in_1' to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, ANameMayStandUnderAKeyThatIsNearlyIt) {
    Register({"Display", 1, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Display"},
 "stream_opts": {"stream_inptu": "a", "stream_fmt_in": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Display' has 1 input, but none is named: aborts the process\n"
                "  3:18-3:32 this is nearly \"stream_input\"\n"
                "  hint: rename 'stream_inptu' to \"stream_input\"\n");
    Register({"Join", 2, 0});
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "stream_inptu_1": "a", "stream_fmt_in_1": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but only 1 is named: aborts the process\n"
                "  4:18-4:34 this is nearly 'stream_input_1'\n"
                "  hint: rename 'stream_inptu_1' to 'stream_input_1'\n");
}

TEST_F(NodeRulesTest, AKeyInAnExtraObjectNamesTheOnlyStream) {
    Register({"Display", 1, 0});
    AssertTaker(
        R"({"node_opts": {"node_name": "Display", "stream_input": "a", "stream_fmt_in": "f"}})",
        "2:50-2:64 warning stream-key-in-extra /pipe_0/node_0/node_opts/stream_input: "
        "'stream_input' does not count in \"node_opts\": streams are declared in "
        "\"stream_opts\" alone\n"
        "  hint: move it to \"stream_opts\"\n");
}

TEST_F(NodeRulesTest, AnEmptyKeyNamesAStreamWhereTheFamilyIsTooShort) {
    Register({"Join", 2, 0});
    AssertTaker(
        R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "": "a", "stream_fmt_in_1": "f"}})",
        "4:27-4:44 warning stream-families-differ /pipe_0/node_0/stream_opts/stream_fmt_in_1: "
        "'stream_fmt_in_1' belongs to no input stream\n"
        "  hint: add \"stream_input_1\": \"...\", or remove the format\n");
    // As a text alone.
    AssertTaker(R"({"node_opts": {"node_name": "Join"},
 "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                 "": 5, "stream_fmt_in_1": "f"}})",
                "3:2-3:15 error stream-name-missing /pipe_0/node_0/stream_opts: "
                "the class 'Join' has 2 inputs, but only 1 is named: aborts the process\n"
                "  hint: add \"stream_input_1\": \"...\" to \"stream_opts\", and its format\n");
}

TEST_F(NodeRulesTest, AClassMayNameItsStreamsItself) {
    RegisterCreator("Clock", create<KnowingNode>, 0, 1);
    AssertGiver(R"({"node_opts": {"node_name": "Clock"},
 "stream_opts": {"fps": 25}})",
                "");
}

TEST_F(NodeRulesTest, WhatAClassNamesItselfIsComparedToo) {
    RegisterCreator("Clock", create<KnowingNode>, 0, 1);
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Clock"}, "stream_opts": {"fps": 25}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "x"}})",
               "4:66-4:69 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in: "
               "the stream 'a' is taken as 'x', but 'node_0' gives it as 'f'\n"
               "  2:11-2:76 its format is given here\n"
               "  hint: give both ends of the stream one format\n");
}

TEST_F(NodeRulesTest, AStoreMayAnswerForEachStream) {
    RegisterCreator("Split", create<AnsweringNode>, 0, 2);
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Split"},
 "stream_opts": {"stream_output_0": 1, "stream_fmt_out_0": 1,
                 "stream_output_1": 2, "stream_fmt_out_1": 2}},
"node_1": {"node_opts": {"node_name": "Join"},
           "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "x",
                           "stream_input_1": "b", "stream_fmt_in_1": "y"}})",
               "6:70-6:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in_0: "
               "the stream 'a' is taken as 'x', but 'node_0' gives it as 'f'\n"
               "  3:60-3:61 its format is given here\n"
               "  hint: give both ends of the stream one format\n"
               "7:70-7:73 warning format-mismatch /pipe_0/node_1/stream_opts/stream_fmt_in_1: "
               "the stream 'b' is taken as 'y', but 'node_0' gives it as 'g'\n"
               "  4:60-4:61 its format is given here\n"
               "  hint: give both ends of the stream one format\n");
}

}  // namespace
