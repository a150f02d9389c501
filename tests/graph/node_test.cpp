// Node set-up: how a node is wired, and every way in which set-up fails.

#include <cstdio>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "tests/graph/parser_test.h"
#include "tests/support/aborts.h"

namespace {

class NodeTest : public ParserTest {
protected:
    // Loads a pipe whose only node is 'node_3'.
    void LoadNode(const std::string& node) { Load(R"({"pipe_0": {"node_3": )" + node + "}}"); }

    int Init() { return reader.initTaskNode(&framework.graph, 0, 3, &info); }

    // The calls from the first lookup in the store, which follows the copying
    // of options.
    std::string Wiring() {
        const std::string trace = framework.takeTrace();
        const size_t first = trace.find("\nstore.findCString");
        return first != std::string::npos ? trace.substr(first) : "\n";
    }

    void AssertWires(const std::string& calls) {
        EXPECT_EQ(Init(), 0);
        EXPECT_EQ(Wiring(), calls);
    }

    // Aborts after the record of the assertion with this text, which is the
    // only error record.
    // NOLINTNEXTLINE(readability-function-size): the macro nests its blocks.
    void AssertAborts(const std::string& condition) {
        framework.errorsToStderr = true;
        const std::string record =
            "18181802 2 QVGraphParser initTaskNode:<line> \033[31m\033[1mAssertion " + condition +
            " failed at initTaskNode:<line>\n\033[0m";
        EXPECT_EXIT(Init(), testing::KilledBySignal(SIGABRT), standardErrorIs(withAnyLine(record)));
    }

    // Throws the specified exception for a missing format, after these calls.
    void AssertThrows(const std::string& calls) {
        try {
            Init();
            ADD_FAILURE() << "no exception";
        } catch (const std::exception& error) {
            EXPECT_EQ(typeid(error), typeid(std::logic_error));
            EXPECT_STREQ(error.what(), "basic_string::_M_construct null not valid");
        }
        EXPECT_EQ(Wiring(), calls);
    }

    // Logs a refused stream after these calls, and returns success.
    void AssertRefused(const std::string& calls) {
        EXPECT_EQ(Init(), 0);
        ASSERT_FALSE(framework.records.empty());
        const std::string line = std::to_string(framework.records.back().line);
        EXPECT_EQ(Wiring(),
                  calls + "qv_err 2 initTaskNode \"\\033[31m\\033[1minitTaskNode(" + line +
                      "): CHECK_UE failed. actual -1 vs exp -1\\n\\033[0m\"\n");
    }

    _QVNodeInfo info;
};

const char* const IN_AND_OUT = R"({
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {"stream_input": "in0", "stream_fmt_in": "fmtA",
                    "stream_output": "out0", "stream_fmt_out": "fmtB"}})";

const char* const TWO_INPUTS = R"({"stream_opts": {
    "stream_input_b": "y", "stream_input_a": "x",
    "stream_fmt_in_a": "f1", "stream_fmt_in_b": "f2"}})";

const char* const TWO_OUTPUTS = R"({"stream_opts": {
    "stream_output_b": "y", "stream_output_a": "x",
    "stream_fmt_out_a": "f1", "stream_fmt_out_b": "f2"}})";

}  // namespace

// ---- One stream on a side ---------------------------------------------------

TEST_F(NodeTest, OneInputAndOneOutputUseThePlainKeys) {
    LoadNode(IN_AND_OUT);
    framework.inputManagers = 1;
    framework.outputManagers = 1;
    AssertWires(R"(
store.findCString "stream_input" -> "in0"
store.findCString "stream_fmt_in" -> "fmtA"
graph.addInputStream "in0" -> 100
input0.initialize "in0" 100 3
input0.setStreamType "fmtA"
store.findCString "stream_mode_in" -> none
store.findCString "stream_output" -> "out0"
store.findCString "stream_fmt_out" -> "fmtB"
graph.addOutputStream "out0" -> 101
output0.initialize "out0" 101 3 format=""
node.initialize 3 {3 "Filter"} input0 newest=0 output0 format="fmtB"
)");
}

TEST_F(NodeTest, NodeMayHaveOnlyInputs) {
    LoadNode(IN_AND_OUT);
    framework.inputManagers = 1;
    AssertWires(R"(
store.findCString "stream_input" -> "in0"
store.findCString "stream_fmt_in" -> "fmtA"
graph.addInputStream "in0" -> 100
input0.initialize "in0" 100 3
input0.setStreamType "fmtA"
store.findCString "stream_mode_in" -> none
node.initialize 3 {3 "Filter"} input0 newest=0
)");
}

TEST_F(NodeTest, NodeMayHaveOnlyOutputs) {
    LoadNode(IN_AND_OUT);
    framework.outputManagers = 1;
    AssertWires(R"(
store.findCString "stream_output" -> "out0"
store.findCString "stream_fmt_out" -> "fmtB"
graph.addOutputStream "out0" -> 100
output0.initialize "out0" 100 3 format=""
node.initialize 3 {3 "Filter"} output0 format="fmtB"
)");
}

TEST_F(NodeTest, NamesAndFormatsMayBeEmpty) {
    LoadNode(R"({"stream_opts": {"stream_input": "", "stream_fmt_in": ""}})");
    framework.inputManagers = 1;
    AssertWires(R"(
store.findCString "stream_input" -> ""
store.findCString "stream_fmt_in" -> ""
graph.addInputStream "" -> 100
input0.initialize "" 100 3
input0.setStreamType ""
store.findCString "stream_mode_in" -> none
node.initialize 3 {3 ""} input0 newest=0
)");
}

// ---- Several streams on a side ----------------------------------------------

TEST_F(NodeTest, SeveralInputsUseTheirKeyFamiliesInKeyOrder) {
    LoadNode(TWO_INPUTS);
    framework.inputManagers = 2;
    AssertWires(R"(
store.findCString "stream_input_a" -> "x"
store.findCString "stream_fmt_in_a" -> "f1"
graph.addInputStream "x" -> 100
input0.initialize "x" 100 3
input0.setStreamType "f1"
store.findCString "stream_mode_in" -> none
store.findCString "stream_input_b" -> "y"
store.findCString "stream_fmt_in_b" -> "f2"
graph.addInputStream "y" -> 101
input1.initialize "y" 101 3
input1.setStreamType "f2"
store.findCString "stream_mode_in" -> none
node.initialize 3 {3 ""} input0 newest=0 input1 newest=0
)");
}

TEST_F(NodeTest, SeveralOutputsUseTheirKeyFamiliesInKeyOrder) {
    LoadNode(TWO_OUTPUTS);
    framework.outputManagers = 2;
    AssertWires(R"(
store.findCString "stream_output_a" -> "x"
store.findCString "stream_fmt_out_a" -> "f1"
graph.addOutputStream "x" -> 100
output0.initialize "x" 100 3 format=""
store.findCString "stream_output_b" -> "y"
store.findCString "stream_fmt_out_b" -> "f2"
graph.addOutputStream "y" -> 101
output1.initialize "y" 101 3 format=""
node.initialize 3 {3 ""} output0 format="f1" output1 format="f2"
)");
}

TEST_F(NodeTest, NamesAndFormatsAreIndexedSeparately) {
    LoadNode(R"({"stream_opts": {
        "stream_input_10": "ten", "stream_input_2": "two",
        "stream_fmt_in_x": "f1", "stream_fmt_in_y": "f2", "stream_input": "not read",
        "stream_fmt_in": "not read"}})");
    framework.inputManagers = 2;
    AssertWires(R"(
store.findCString "stream_input_10" -> "ten"
store.findCString "stream_fmt_in_x" -> "f1"
graph.addInputStream "ten" -> 100
input0.initialize "ten" 100 3
input0.setStreamType "f1"
store.findCString "stream_mode_in" -> none
store.findCString "stream_input_2" -> "two"
store.findCString "stream_fmt_in_y" -> "f2"
graph.addInputStream "two" -> 101
input1.initialize "two" 101 3
input1.setStreamType "f2"
store.findCString "stream_mode_in" -> none
node.initialize 3 {3 ""} input0 newest=0 input1 newest=0
)");
}

TEST_F(NodeTest, StreamsWithoutAManagerAreIgnored) {
    LoadNode(R"({"stream_opts": {"stream_output_a": "x", "stream_output_b": "y",
        "stream_output_c": "z", "stream_fmt_out_a": "f1", "stream_fmt_out_b": "f2",
        "stream_output": "not read", "stream_fmt_out": "not read"}})");
    framework.outputManagers = 2;
    AssertWires(R"(
store.findCString "stream_output_a" -> "x"
store.findCString "stream_fmt_out_a" -> "f1"
graph.addOutputStream "x" -> 100
output0.initialize "x" 100 3 format=""
store.findCString "stream_output_b" -> "y"
store.findCString "stream_fmt_out_b" -> "f2"
graph.addOutputStream "y" -> 101
output1.initialize "y" 101 3 format=""
node.initialize 3 {3 ""} output0 format="f1" output1 format="f2"
)");
    EXPECT_EQ(info.outputNum, 4);
}

TEST_F(NodeTest, NumberOfManagersSelectsPlainOrIndexedKeys) {
    LoadNode(R"({"stream_opts": {
        "stream_input": "plain", "stream_input_a": "x", "stream_input_b": "y",
        "stream_fmt_in": "f0", "stream_fmt_in_a": "f1", "stream_fmt_in_b": "f2"}})");
    framework.inputManagers = 1;
    AssertWires(R"(
store.findCString "stream_input" -> "plain"
store.findCString "stream_fmt_in" -> "f0"
graph.addInputStream "plain" -> 100
input0.initialize "plain" 100 3
input0.setStreamType "f0"
store.findCString "stream_mode_in" -> none
node.initialize 3 {3 ""} input0 newest=0
)");
    EXPECT_EQ(info.inputNum, 3);
}

// ---- The record -------------------------------------------------------------

TEST_F(NodeTest, RecordReceivesTheIdAndTheDeclaredStreams) {
    LoadNode(R"({"stream_opts": {"stream_input": 1, "stream_input_0": 2, "stream_inputs": 3,
                                 "stream_output": 4, "stream_fmt_in": 5, "Stream_Input": 6},
                 "stream_opts_extra": {"stream_input_9": 7}})");
    framework.createsNode = false;
    info.stubUid = 77;
    EXPECT_EQ(Init(), -1);
    EXPECT_EQ(info.nodeId, 3);
    EXPECT_EQ(info.inputNum, 3);
    EXPECT_EQ(info.outputNum, 1);
    EXPECT_EQ(info.stubUid, 77) << "the proxy's own";
}

TEST_F(NodeTest, IdIsWrittenAfterTheProxyHasSeenTheName) {
    LoadNode("{}");
    framework.createsNode = false;
    framework.onCall = [this](const std::string& call) {
        if (call == R"(node_proxy_parse_stub_uid id=0 in=0 out=0 "")") {
            info.nodeId = 5;
            info.inputNum = 6;
            info.outputNum = 7;
        }
    };
    EXPECT_EQ(Init(), -1);
    EXPECT_EQ(info.nodeId, 3);
    EXPECT_EQ(info.inputNum, 0);
    EXPECT_EQ(info.outputNum, 0);
}

TEST_F(NodeTest, NodeIsFoundByTheIdInItsKey) {
    Load(R"({"pipe_7": {"node_-12": {"node_opts": {"node_name": "Minus"}}}})");
    framework.createsNode = false;
    EXPECT_EQ(reader.initTaskNode(&framework.graph, 7, -12, &info), -1);
    EXPECT_EQ(framework.calls.front(), R"(node_proxy_parse_stub_uid id=0 in=0 out=0 "Minus")");
    EXPECT_EQ(info.nodeId, -12);
    EXPECT_EQ(framework.helperCalls,
              (std::vector<std::string>{"util_to_string 7", "util_to_string -12"}));
}

TEST_F(NodeTest, NodeReceivesItsNameIncludingNul) {
    LoadNode(R"({"node_opts": {"node_name": "Cam\u0000era"},
                 "stream_opts": {"stream_output": "x", "stream_fmt_out": "f"}})");
    framework.outputManagers = 1;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.calls.back(), R"(node.initialize 3 {3 "Cam\x00era"} output0 format="f")");
}

TEST_F(NodeTest, NamesAndKeysOfStreamsEndAtTheirFirstNul) {
    LoadNode(R"({"stream_opts": {
        "stream_output_a\u0000b": "x\u0000tail", "stream_output_c": "y",
        "stream_fmt_out_a\u0000b": "f1\u0000tail", "stream_fmt_out_c": "f2"}})");
    framework.outputManagers = 2;
    AssertWires(R"(
store.findCString "stream_output_a" -> "x"
store.findCString "stream_fmt_out_a" -> "f1"
graph.addOutputStream "x" -> 100
output0.initialize "x" 100 3 format=""
store.findCString "stream_output_c" -> "y"
store.findCString "stream_fmt_out_c" -> "f2"
graph.addOutputStream "y" -> 101
output1.initialize "y" 101 3 format=""
node.initialize 3 {3 ""} output0 format="f1" output1 format="f2"
)");
}

TEST_F(NodeTest, ProxyReceivesTheNameUpToItsFirstNul) {
    LoadNode(R"({"node_opts": {"node_name": "Cam\u0000era"}})");
    framework.createsNode = false;
    EXPECT_EQ(Init(), -1);
    EXPECT_EQ(framework.takeTrace(), R"(
node_proxy_parse_stub_uid id=0 in=0 out=0 "Cam"
qv_log 6 initTaskNode "\033[34m\033[1mnode proxy: create task node(name=Cam)\033[0m"
node_proxy_node_create id=3 in=0 out=0
qv_log 5 initTaskNode "failed to node_proxy_node_create(...) for node:Cam"
)");
}

// ---- Options ----------------------------------------------------------------

TEST_F(NodeTest, LaterObjectsWinIfTheStoreReplacesValues) {
    LoadNode(R"({"stream_opts_extra": {"stream_output": "extra", "stream_fmt_out": "f2"},
                 "stream_opts": {"stream_output": "plain", "stream_fmt_out": "f1"}})");
    framework.outputManagers = 1;
    AssertWires(R"(
store.findCString "stream_output" -> "extra"
store.findCString "stream_fmt_out" -> "f2"
graph.addOutputStream "extra" -> 100
output0.initialize "extra" 100 3 format=""
node.initialize 3 {3 ""} output0 format="f2"
)");
}

TEST_F(NodeTest, EarlierObjectsWinIfTheStoreKeepsValues) {
    LoadNode(R"({"stream_opts_extra": {"stream_output": "extra", "stream_fmt_out": "f2"},
                 "stream_opts": {"stream_output": "plain", "stream_fmt_out": "f1"}})");
    framework.outputManagers = 1;
    framework.store.keepsFirst = true;
    AssertWires(R"(
store.findCString "stream_output" -> "plain"
store.findCString "stream_fmt_out" -> "f1"
graph.addOutputStream "plain" -> 100
output0.initialize "plain" 100 3 format=""
node.initialize 3 {3 ""} output0 format="f1"
)");
}

TEST_F(NodeTest, NameAndFormatMayBeInAnyOptionObject) {
    LoadNode(R"({"node_opts": {"stream_fmt_in": "f"}, "node_opts_extra": {"stream_input": "x"}})");
    framework.inputManagers = 1;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(info.inputNum, 0);
    EXPECT_EQ(framework.calls.back(), R"(node.initialize 3 {3 ""} input0 newest=0)");
}

TEST_F(NodeTest, AnyNonZeroLookupResultMeansFound) {
    for (const int truth : {-1, 2, 256}) {
        LoadNode(IN_AND_OUT);
        framework.outputManagers = 1;
        framework.store.found = truth;
        _QVNodeInfo fresh;
        EXPECT_EQ(reader.initTaskNode(&framework.graph, 0, 3, &fresh), 0);
        EXPECT_EQ(framework.calls.back(),
                  R"(node.initialize 3 {3 "Filter"} output0 format="fmtB")");
        framework.takeTrace();
    }
}

TEST_F(NodeTest, FormatAndModeAreUsedWhateverTheLookupReturns) {
    LoadNode("{}");
    framework.inputManagers = 1;
    framework.store.onFind = [](const std::string& key, const char** value) {
        *value = key == "stream_mode_in" ? "remain_newest" : "left";
        return key == "stream_input" ? 1 : 0;
    };
    AssertWires(R"(
store.findCString "stream_input" -> "left"
store.findCString "stream_fmt_in" -> "left"
graph.addInputStream "left" -> 100
input0.initialize "left" 100 3
input0.setStreamType "left"
store.findCString "stream_mode_in" -> "remain_newest"
node.initialize 3 {3 ""} input0 newest=1
)");
}

TEST_F(NodeTest, NameIsUsedOnlyIfTheLookupFoundIt) {
    LoadNode("{}");
    framework.outputManagers = 1;
    framework.store.onFind = [](const char* /*key*/, const char** value) {
        *value = "left";
        return 0;
    };
    AssertAborts("options->findCString(OPT_STREAM_OUTPUT_NAME, &outputStreamName)");
}

// ---- Latest only ------------------------------------------------------------

TEST_F(NodeTest, ModeSetsTheFlagOfEveryInput) {
    LoadNode(R"({"node_opts_extra": {"stream_mode_in": "remain_newest"}, "stream_opts": {
        "stream_input_a": "x", "stream_input_b": "y",
        "stream_fmt_in_a": "f1", "stream_fmt_in_b": "f2"}})");
    framework.inputManagers = 2;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.calls.back(),
              R"(node.initialize 3 {3 ""} input0 newest=1 input1 newest=1)");
}

TEST_F(NodeTest, OnlyRemainNewestSetsTheFlag) {
    for (const char* mode : {R"("Remain_Newest")",
                             R"("remain_newest ")",
                             R"(" remain_newest")",
                             R"("remain_newes")",
                             R"("remain_newest2")",
                             R"("")",
                             "1",
                             "true",
                             R"("int32:1")"}) {
        LoadNode(R"({"stream_opts": {"stream_input": "x", "stream_fmt_in": "f",
                                     "stream_mode_in": )" +
                 std::string(mode) + "}}");
        framework.inputManagers = 1;
        _QVNodeInfo fresh;
        EXPECT_EQ(reader.initTaskNode(&framework.graph, 0, 3, &fresh), 0);
        EXPECT_EQ(framework.calls.back(), R"(node.initialize 3 {3 ""} input0 newest=0)") << mode;
        framework.takeTrace();
    }
}

TEST_F(NodeTest, FlagIsNeverCleared) {
    LoadNode(IN_AND_OUT);
    framework.inputManagers = 1;
    framework.newestAtStart = 5;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.calls.back(), R"(node.initialize 3 {3 "Filter"} input0 newest=5)");
}

// ---- Failures with a code ---------------------------------------------------

TEST_F(NodeTest, NullArgumentsAreRejectedBeforeAnyCall) {
    LoadNode(IN_AND_OUT);
    const std::pair<QVTaskGraphConfig*, _QVNodeInfo*> cases[] = {
        {nullptr, &info}, {&framework.graph, nullptr}, {nullptr, nullptr}};
    for (const auto& [graph, record] : cases) {
        EXPECT_EQ(reader.initTaskNode(graph, 0, 3, record), -2);
        char text[128];
        snprintf(text,
                 sizeof(text),
                 "invailed input params config %p, info %p",
                 static_cast<void*>(graph),
                 static_cast<void*>(record));
        EXPECT_EQ(
            framework.takeTrace(),
            "\nqv_err 2 initTaskNode \"\\033[31m\\033[1m" + std::string(text) + "\\033[0m\"\n");
    }
    EXPECT_EQ(info.nodeId, 0);
}

TEST_F(NodeTest, NodeThatIsNotCreatedIsReported) {
    LoadNode(IN_AND_OUT);
    framework.createsNode = false;
    EXPECT_EQ(Init(), -1);
    EXPECT_EQ(framework.calls.back(),
              R"(qv_log 5 initTaskNode "failed to node_proxy_node_create(...) for node:Filter")");
    EXPECT_EQ(info.node, nullptr);
}

TEST_F(NodeTest, MissingNodeIsTreatedAsAnEmptyNode) {
    const char* const documents[] = {
        "{}", "[]", R"({"pipe_0": {}})", R"({"pipe_0": {"node_3": 5}})"};
    for (const char* document : documents) {
        Load(document);
        framework.createsNode = false;
        EXPECT_EQ(Init(), -1);
        EXPECT_EQ(framework.takeTrace(), R"(
node_proxy_parse_stub_uid id=0 in=0 out=0 ""
qv_log 6 initTaskNode "\033[34m\033[1mnode proxy: create task node(name=)\033[0m"
node_proxy_node_create id=3 in=0 out=0
qv_log 5 initTaskNode "failed to node_proxy_node_create(...) for node:"
)") << document;
        info = _QVNodeInfo();
    }
}

TEST_F(NodeTest, NodeWithoutManagersIsReportedAfterItsOptionsAreCopied) {
    LoadNode(R"({"node_opts": {"node_name": "Lonely"}})");
    EXPECT_EQ(Init(), -1);
    EXPECT_EQ(framework.takeTrace(), R"(
node_proxy_parse_stub_uid id=0 in=0 out=0 "Lonely"
qv_log 6 initTaskNode "\033[34m\033[1mnode proxy: create task node(name=Lonely)\033[0m"
node_proxy_node_create id=3 in=0 out=0
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = node_name       , opt = \"Lonely\"        \033[0m"
store.setCString "node_name" "Lonely"
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 5 initTaskNode "failed to initialize task node(Lonely) with none input/output stream manager"
)");
    EXPECT_NE(info.node, nullptr) << "nothing is undone";
}

// ---- Refused streams --------------------------------------------------------

TEST_F(NodeTest, RefusalOfTheOnlyInputSkipsTheRest) {
    LoadNode(IN_AND_OUT);
    framework.inputManagers = 1;
    framework.outputManagers = 1;
    framework.graph.ids["in0"] = -1;
    AssertRefused(R"(
store.findCString "stream_input" -> "in0"
store.findCString "stream_fmt_in" -> "fmtA"
graph.addInputStream "in0" -> -1
)");
}

TEST_F(NodeTest, RefusalOfTheOnlyOutputSkipsTheRest) {
    LoadNode(IN_AND_OUT);
    framework.inputManagers = 1;
    framework.outputManagers = 1;
    framework.graph.ids["out0"] = -1;
    AssertRefused(R"(
store.findCString "stream_input" -> "in0"
store.findCString "stream_fmt_in" -> "fmtA"
graph.addInputStream "in0" -> 100
input0.initialize "in0" 100 3
input0.setStreamType "fmtA"
store.findCString "stream_mode_in" -> none
store.findCString "stream_output" -> "out0"
store.findCString "stream_fmt_out" -> "fmtB"
graph.addOutputStream "out0" -> -1
)");
}

TEST_F(NodeTest, RefusalOfOneOfSeveralInputsSkipsTheRest) {
    LoadNode(TWO_INPUTS);
    framework.inputManagers = 2;
    framework.outputManagers = 1;
    framework.graph.ids["y"] = -1;
    AssertRefused(R"(
store.findCString "stream_input_a" -> "x"
store.findCString "stream_fmt_in_a" -> "f1"
graph.addInputStream "x" -> 100
input0.initialize "x" 100 3
input0.setStreamType "f1"
store.findCString "stream_mode_in" -> none
store.findCString "stream_input_b" -> "y"
store.findCString "stream_fmt_in_b" -> "f2"
graph.addInputStream "y" -> -1
)");
}

TEST_F(NodeTest, RefusalOfOneOfSeveralOutputsSkipsTheRest) {
    LoadNode(TWO_OUTPUTS);
    framework.outputManagers = 2;
    framework.graph.ids["x"] = -1;
    AssertRefused(R"(
store.findCString "stream_output_a" -> "x"
store.findCString "stream_fmt_out_a" -> "f1"
graph.addOutputStream "x" -> -1
)");
}

TEST_F(NodeTest, StreamsBeforeARefusedOneStayBound) {
    LoadNode(R"({"node_opts": {"stream_mode_in": "remain_newest"}, "stream_opts": {
        "stream_input_a": "x", "stream_input_b": "y",
        "stream_fmt_in_a": "f1", "stream_fmt_in_b": "f2"}})");
    framework.inputManagers = 2;
    framework.graph.ids["y"] = -1;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(info.inputStreams.at(0)->mRemainNewest, 1);
    EXPECT_EQ(info.inputStreams.at(1)->mRemainNewest, 0);
}

TEST_F(NodeTest, RefusalTakesPrecedenceOverAMissingFormat) {
    LoadNode(R"({"stream_opts": {"stream_output": "x"}})");
    framework.outputManagers = 1;
    framework.graph.ids["x"] = -1;
    AssertRefused(R"(
store.findCString "stream_output" -> "x"
store.findCString "stream_fmt_out" -> none
graph.addOutputStream "x" -> -1
)");
}

TEST_F(NodeTest, EveryOtherIdIsPassedOnUnchanged) {
    for (const int id : {0, -2, -2147483647 - 1, 2147483647}) {
        LoadNode(IN_AND_OUT);
        framework.outputManagers = 1;
        framework.graph.ids["out0"] = id;
        _QVNodeInfo fresh;
        EXPECT_EQ(reader.initTaskNode(&framework.graph, 0, 3, &fresh), 0);
        EXPECT_EQ(Wiring(),
                  R"(
store.findCString "stream_output" -> "out0"
store.findCString "stream_fmt_out" -> "fmtB"
graph.addOutputStream "out0" -> )" +
                      std::to_string(id) + R"(
output0.initialize "out0" )" +
                      std::to_string(id) +
                      R"( 3 format=""
node.initialize 3 {3 "Filter"} output0 format="fmtB"
)");
    }
}

// ---- Missing names ----------------------------------------------------------

TEST_F(NodeTest, MissingNameOfTheOnlyInputAborts) {
    LoadNode(R"({"stream_opts": {"stream_input_0": "x", "stream_fmt_in": "f"}})");
    framework.inputManagers = 1;
    AssertAborts("options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName)");
}

TEST_F(NodeTest, MissingNameOfOneOfSeveralInputsAborts) {
    LoadNode(R"({"stream_opts": {"stream_input": "x", "stream_input_a": "y",
                                 "stream_fmt_in_a": "f1", "stream_fmt_in_b": "f2"}})");
    framework.inputManagers = 2;
    AssertAborts("options->findCString(inputNameTag.c_str(), &inputStreamName)");
}

TEST_F(NodeTest, MissingNameOfTheOnlyOutputAborts) {
    LoadNode(R"({"stream_opts": {"stream_output_0": "x", "stream_fmt_out": "f"}})");
    framework.outputManagers = 1;
    AssertAborts("options->findCString(OPT_STREAM_OUTPUT_NAME, &outputStreamName)");
}

TEST_F(NodeTest, MissingNameOfOneOfSeveralOutputsAborts) {
    LoadNode(R"({"stream_opts": {"stream_output": "x", "stream_output_a": "y",
                                 "stream_fmt_out_a": "f1", "stream_fmt_out_b": "f2"}})");
    framework.outputManagers = 2;
    AssertAborts("options->findCString(outputNameTag.c_str(), &outputStreamName)");
}

TEST_F(NodeTest, NameThatIsStoredAsANumberAborts) {
    LoadNode(R"({"stream_opts": {"stream_input": "int32:5", "stream_fmt_in": "f"}})");
    framework.inputManagers = 1;
    AssertAborts("options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName)");
}

TEST_F(NodeTest, NameThatIsTooLongAborts) {
    LoadNode(R"({"stream_opts": {"stream_output": ")" + std::string(127, 'x') +
             R"(", "stream_fmt_out": "f"}, "node_opts": {"stream_output": 5}})");
    framework.outputManagers = 1;
    EXPECT_EQ(Init(), 0);
    framework.takeTrace();
    LoadNode(R"({"stream_opts": {"stream_output": ")" + std::string(128, 'x') +
             R"(", "stream_fmt_out": "f"}, "node_opts": {"stream_output": 5}})");
    _QVNodeInfo fresh;
    EXPECT_EXIT(reader.initTaskNode(&framework.graph, 0, 3, &fresh),
                testing::KilledBySignal(SIGABRT),
                standardErrorIs(""));
}

// If qv_err throws, the process does not abort, and the test sees the calls
// before the assertion.
TEST_F(NodeTest, ExceptionFromAnAssertionsRecordPreventsTheAbort) {
    LoadNode(R"({"stream_opts": {"stream_fmt_in": "f"}})");
    framework.inputManagers = 1;
    framework.onCall = [](const std::string& call) {
        if (call.rfind("qv_err", 0) == 0) {
            throw std::runtime_error("would abort");
        }
    };
    EXPECT_THROW(Init(), std::runtime_error);
    const std::string line = std::to_string(framework.records.back().line);
    EXPECT_EQ(Wiring(),
              R"(
store.findCString "stream_input" -> none
qv_err 2 initTaskNode "\033[31m\033[1mAssertion options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName) failed at initTaskNode:)" +
                  line + R"(\n\033[0m"
)");
}

TEST_F(NodeTest, IndexedNamesAreLookedUpEvenIfStreamOptsIsNotAnObject) {
    LoadNode(R"({"stream_opts": ["x"]})");
    framework.outputManagers = 2;
    framework.onCall = [](const std::string& call) {
        if (call.rfind("qv_err 2 initTaskNode", 0) == 0) {
            throw std::runtime_error("would abort");
        }
    };
    EXPECT_THROW(Init(), std::runtime_error);
    const std::string trace = framework.takeTrace();
    const std::string line = std::to_string(framework.records.back().line);
    EXPECT_EQ(trace.substr(trace.find("\nqv_err")),
              R"(
qv_err 2 getItemNameByIndex "\033[31m\033[1mget item id by index failed, index=0\033[0m"
qv_err 2 getItemNameByIndex "\033[31m\033[1mget item id by index failed, index=0\033[0m"
store.findCString "" -> none
qv_err 2 initTaskNode "\033[31m\033[1mAssertion options->findCString(outputNameTag.c_str(), &outputStreamName) failed at initTaskNode:)" +
                  line + R"(\n\033[0m"
)");
}

TEST_F(NodeTest, StreamWithoutAKeyUsesTheEmptyKey) {
    LoadNode(R"({"node_opts": {"": "x"}})");
    framework.outputManagers = 2;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.calls.back(),
              R"(node.initialize 3 {3 ""} output0 format="x" output1 format="x")");
}

// ---- Missing formats --------------------------------------------------------

TEST_F(NodeTest, MissingFormatOfTheOnlyInputThrows) {
    LoadNode(R"({"stream_opts": {"stream_input": "x", "stream_fmt_in": 5}})");
    framework.inputManagers = 1;
    AssertThrows(R"(
store.findCString "stream_input" -> "x"
store.findCString "stream_fmt_in" -> none
graph.addInputStream "x" -> 100
input0.initialize "x" 100 3
)");
}

TEST_F(NodeTest, MissingFormatOfOneOfSeveralInputsThrows) {
    LoadNode(R"({"stream_opts": {"stream_input_a": "x", "stream_input_b": "y",
                                 "stream_fmt_in_b": "f"}})");
    framework.inputManagers = 2;
    AssertThrows(R"(
store.findCString "stream_input_a" -> "x"
store.findCString "stream_fmt_in_b" -> "f"
graph.addInputStream "x" -> 100
input0.initialize "x" 100 3
input0.setStreamType "f"
store.findCString "stream_mode_in" -> none
store.findCString "stream_input_b" -> "y"
store.findCString "" -> none
graph.addInputStream "y" -> 101
input1.initialize "y" 101 3
)");
}

TEST_F(NodeTest, MissingFormatOfTheOnlyOutputThrows) {
    LoadNode(R"({"stream_opts": {"stream_output": "x"}})");
    framework.outputManagers = 1;
    AssertThrows(R"(
store.findCString "stream_output" -> "x"
store.findCString "stream_fmt_out" -> none
graph.addOutputStream "x" -> 100
output0.initialize "x" 100 3 format=""
)");
}

TEST_F(NodeTest, MissingFormatOfOneOfSeveralOutputsThrows) {
    LoadNode(R"({"stream_opts": {"stream_output_a": "x", "stream_output_b": "y"}})");
    framework.outputManagers = 2;
    AssertThrows(R"(
store.findCString "stream_output_a" -> "x"
store.findCString "" -> none
graph.addOutputStream "x" -> 100
output0.initialize "x" 100 3 format=""
)");
    EXPECT_NE(info.node, nullptr) << "nothing is undone";
    EXPECT_EQ(info.outputStreams.size(), 2U);
}
