// The ends of the streams of a node: the keys, names and formats of its inputs and
// outputs.
#include <string>
#include <string_view>
#include <vector>

#include "tests/model/model_test.h"

namespace {

using qvgraph::Node;

class NodeEndsTest : public ModelTest {
protected:
    void AssertEndsOfStub(const std::string& streamOpts, const std::string& ends) {
        AssertEnds("Filter", streamOpts, ends);
    }

    static std::string KeysOf(qvgraph::Members members) {
        std::string keys;
        for (const qvgraph::Value* member : members) {
            keys += (keys.empty() ? "" : ", ") + std::string(member->key);
        }
        return keys;
    }
};

// ---- keys ----------------------------------------------------------------------------

TEST_F(NodeEndsTest, OneStreamHasTheSingleKeys) {
    AssertEndsOfStub(R"({"stream_input": "a", "stream_fmt_in": "f",
                         "stream_output": "b", "stream_fmt_out": "g"})",
                     R"(
in 0 stream_input "a", stream_fmt_in "f"
out 0 stream_output "b", stream_fmt_out "g"
)");
}

TEST_F(NodeEndsTest, SeveralStreamsHaveTheIndexedKeysInTheirOrder) {
    AssertEndsOfStub(R"({
        "stream_input_10": "x", "stream_input_2": "y",
        "stream_fmt_in_7": "f", "stream_fmt_in_8": "g",
        "stream_output_b": "p", "stream_output_a": "q",
        "stream_fmt_out_2": "h", "stream_fmt_out_1": "i"
    })",
                     R"(
in 0 stream_input_10 "x", stream_fmt_in_7 "f"
in 1 stream_input_2 "y", stream_fmt_in_8 "g"
out 0 stream_output_a "q", stream_fmt_out_1 "i"
out 1 stream_output_b "p", stream_fmt_out_2 "h"
)");
}

TEST_F(NodeEndsTest, ASideKnowsTheMembersThatDeclareItsStreams) {
    const Node& node = NodeOf(R"({"stream_opts": {
        "stream_input": "a", "stream_input_1": "b", "stream_inputs": "c", "stream_inpu": "d",
        "stream_fmt_in": "f", "stream_fmt_in_1": "g", "stream_output_": "e",
        "stream_fmt_out_9": "h"
    }})");
    EXPECT_EQ(KeysOf(node.inputs.declared), "stream_input, stream_input_1, stream_inputs");
    EXPECT_EQ(KeysOf(node.inputs.nameMembers), "stream_input_1");
    EXPECT_EQ(KeysOf(node.inputs.formatMembers), "stream_fmt_in_1");
    EXPECT_EQ(KeysOf(node.outputs.declared), "stream_output_");
    EXPECT_EQ(KeysOf(node.outputs.nameMembers), "stream_output_");
    EXPECT_EQ(KeysOf(node.outputs.formatMembers), "stream_fmt_out_9");
    EXPECT_STREQ(node.inputs.word, "input");
    EXPECT_STREQ(node.outputs.word, "output");
}

TEST_F(NodeEndsTest, OnlyStreamOptsDeclaresStreams) {
    const Node& node = NodeOf(R"({
        "node_opts": {"node_name": "Filter", "stream_input": "a"},
        "stream_opts_extra": {"stream_output": "b"}
    })");
    EXPECT_EQ(endsOf(node), "\n");
}

TEST_F(NodeEndsTest, AnotherObjectMayNameAStream) {
    const Node& node = NodeOf(R"({
        "node_opts": {"node_name": "Filter", "stream_fmt_in": "f"},
        "stream_opts": {"stream_input": "a"},
        "stream_opts_extra": {"stream_input": "b"}
    })");
    EXPECT_EQ(endsOf(node), R"(
in 0 stream_input "b", stream_fmt_in "f"
)");
    const qvgraph::StreamEnd& end = node.inputs.ends.at(0);
    EXPECT_EQ(pathOf(node, end.nameOption), "stream_opts_extra.stream_input");
    EXPECT_EQ(pathOf(node, end.formatOption), "node_opts.stream_fmt_in");
}

// ---- ends with a fault ------------------------------------------------------------------

TEST_F(NodeEndsTest, AnOptionThatIsNotAStringNamesNothing) {
    AssertEndsOfStub(R"({"stream_input": 5, "stream_fmt_in": "f"})", R"(
in 0 stream_input -, stream_fmt_in "f"
)");
    AssertEndsOfStub(R"({"stream_output": "a", "stream_fmt_out": "int32:5"})", R"(
out 0 stream_output "a", stream_fmt_out -
)");
}

TEST_F(NodeEndsTest, AMissingFormatHasTheKeyThatSetUpLookedUp) {
    AssertEndsOfStub(R"({"stream_input": "a"})", R"(
in 0 stream_input "a", stream_fmt_in (no option) -
)");
}

TEST_F(NodeEndsTest, WithTooFewFormatsSetUpLooksUpTheEmptyKey) {
    AssertEndsOfStub(R"({"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "b"})",
                     R"(
in 0 stream_input_0 "a", stream_fmt_in_0 "f"
in 1 stream_input_1 "b", -
)");
    AssertEndsOfStub(R"({"stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "b",
                         "": "g"})",
                     R"(
in 0 stream_input_0 "a", stream_fmt_in_0 "f"
in 1 stream_input_1 "b", "" "g"
)");
}

TEST_F(NodeEndsTest, TheEndsAfterTheOneThatAbortsAreNamed) {
    AssertEndsOfStub(R"({
        "stream_input_0": 5, "stream_fmt_in_0": "f",
        "stream_input_1": "b", "stream_fmt_in_1": "g",
        "stream_output": "c", "stream_fmt_out": "h"
    })",
                     R"(
in 0 stream_input_0 -, stream_fmt_in_0 "f"
in 1 stream_input_1 "b", stream_fmt_in_1 "g"
out 0 stream_output "c", stream_fmt_out "h"
)");
}

TEST_F(NodeEndsTest, TheEndsOfANodeThatIsNotCreatedAreThoseThatItDeclares) {
    AssertEnds("",
               R"({
        "stream_input_0": "a", "stream_fmt_in_0": "f", "stream_input_1": "b",
        "stream_output": "c", "stream_fmt_out": "h"
    })",
               R"(
in 0 stream_input_0 "a", stream_fmt_in_0 "f"
in 1 stream_input_1 "b", -
out 0 stream_output "c", stream_fmt_out "h"
)");
}

// ---- declared ends without a manager -----------------------------------------------------

TEST_F(NodeEndsTest, AnIndexedKeyForTheOnlyStreamHasNoManager) {
    AssertEndsOfStub(R"({"stream_input_0": "a", "stream_fmt_in_0": "f"})", R"(
in 0 stream_input (no option) -, stream_fmt_in (no option) -
in + stream_input_0 "a", stream_fmt_in_0 "f"
)");
}

TEST_F(NodeEndsTest, ASingleKeyNextToIndexedOnesHasNoManager) {
    AssertEndsOfStub(R"({
        "stream_output": "a", "stream_fmt_out": "f",
        "stream_output_0": "b", "stream_fmt_out_0": "f"
    })",
                     R"(
out 0 stream_output_0 "b", stream_fmt_out_0 "f"
out 1 -, -
out + stream_output "a", stream_fmt_out "f"
)");
}

TEST_F(NodeEndsTest, AKeyThatOnlyBeginsLikeADeclarationHasNoManager) {
    AssertEndsOfStub(R"({"stream_inputs": "a", "stream_fmt_ins": "f"})", R"(
in 0 stream_input (no option) -, stream_fmt_in (no option) -
in + stream_inputs "a", stream_fmt_ins "f"
)");
}

TEST_F(NodeEndsTest, KeysThatDifferOnlyAfterANulAreOneEnd) {
    AssertEndsOfStub(R"({"stream_input": "a", "stream_input\u0000x": "b", "stream_fmt_in": "f"})",
                     R"(
in 0 -, -
in 1 -, -
in + stream_input "b", stream_fmt_in "f"
)");
    const Node& node = model.pipes().at(0).nodes.at(0);
    EXPECT_EQ(pathOf(node, node.inputs.ends.at(2).nameOption), R"(stream_opts.stream_input\0x)");
}

// ---- classes with their own numbers of streams ----------------------------------------------

TEST_F(NodeEndsTest, AClassWithFewerStreamsThanDeclaredLeavesSomeWithoutAManager) {
    Register<QVHostTaskNode>("Tone", 0, 2);
    AssertEnds("Tone",
               R"({
        "stream_input": "low", "stream_fmt_in": "f",
        "stream_output_0": "a", "stream_fmt_out_0": "f",
        "stream_output_1": "b", "stream_fmt_out_1": "g",
        "stream_output_2": "c"
    })",
               R"(
in + stream_input "low", stream_fmt_in "f"
out 0 stream_output_0 "a", stream_fmt_out_0 "f"
out 1 stream_output_1 "b", stream_fmt_out_1 "g"
out + stream_output_2 "c", -
)");
}

TEST_F(NodeEndsTest, AClassWithMoreStreamsThanDeclaredHasEndsWithoutAKey) {
    Register<QVHostTaskNode>("Join", 3, 0);
    AssertEnds("Join",
               R"({
        "stream_input_0": "a", "stream_fmt_in_0": "f",
        "stream_input_1": "b", "stream_fmt_in_1": "g"
    })",
               R"(
in 0 stream_input_0 "a", stream_fmt_in_0 "f"
in 1 stream_input_1 "b", stream_fmt_in_1 "g"
in 2 -, -
)");
}

TEST_F(NodeEndsTest, AClassWithTwoStreamsLooksUpIndexedKeys) {
    Register<QVHostTaskNode>("Join", 2, 1);
    AssertEnds("Join",
               R"({"stream_input": "a", "stream_fmt_in": "f",
                           "stream_output": "b", "stream_fmt_out": "g"})",
               R"(
in 0 -, -
in 1 -, -
in + stream_input "a", stream_fmt_in "f"
out 0 stream_output "b", stream_fmt_out "g"
)");
}

TEST_F(NodeEndsTest, TheWiredEndsAreThoseOfTheManagers) {
    Register<QVHostTaskNode>("Tone", 0, 1);
    const Node& node = NodeOf(R"({"node_opts": {"node_name": "Tone"}, "stream_opts":
        {"stream_input": "low", "stream_output": "a", "stream_output_1": "b"}})");
    EXPECT_TRUE(node.inputs.wired().empty());
    EXPECT_EQ(node.inputs.ends.size(), 1U);
    EXPECT_EQ(node.outputs.wired().size(), 1U);
    EXPECT_EQ(node.outputs.wired().data(), node.outputs.ends.data());
    EXPECT_EQ(node.outputs.ends.size(), 2U);
}

// ---- classes with their own store ---------------------------------------------------------

// A store that is not the host's own, so that nothing watches its lookups. What
// findCString returns is that of the derived class.
class OwnStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* /*value*/) override { return 0; }
    int setInt32(const char* /*key*/, int32_t /*value*/) override { return 0; }
    int setInt64(const char* /*key*/, int64_t /*value*/) override { return 0; }
    int setFloat(const char* /*key*/, float /*value*/) override { return 0; }
};

// Has no value under any key.
class EmptyStore : public OwnStore {
public:
    int findCString(const char* /*key*/, const char** /*value*/) override { return 0; }
};

// Has the string "own" under every key.
class ConstantStore : public OwnStore {
public:
    int findCString(const char* /*key*/, const char** value) override {
        *value = "own";
        return 1;
    }
};

template <typename Store>
class NodeWith : public QVTaskNodeBase {
public:
    NodeWith() { mOptions = &mStore; }
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }

private:
    Store mStore;
};

TEST_F(NodeEndsTest, AStoreThatKeepsNothingNamesNoStream) {
    Register<NodeWith<EmptyStore>>("Forgetful");
    AssertEnds("Forgetful", R"({"stream_input": "a", "stream_fmt_in": "f"})", R"(
in 0 stream_input -, stream_fmt_in -
)");
    EXPECT_FALSE(model.pipes().at(0).nodes.at(0).watched);
}

TEST_F(NodeEndsTest, ANameIsTheStringThatTheClassKeepsUnderTheKey) {
    Register<NodeWith<ConstantStore>>("Constant");
    AssertEnds("Constant", R"({"stream_input": "a", "stream_fmt_in": "f"})", R"(
in 0 stream_input "own", stream_fmt_in "own"
)");
}

TEST_F(NodeEndsTest, ANameThatTheClassBindsNeedsNoOption) {
    Register<NodeWith<ConstantStore>>("Constant", 0, 1);
    AssertEnds("Constant", "{}", R"(
out 0 stream_output (no option) "own", stream_fmt_out (no option) "own"
)");
}

// ---- the mode ----------------------------------------------------------------------------

TEST_F(NodeEndsTest, TheModeAppliesToEveryInputHoweverFarSetUpCame) {
    AssertEndsOfStub(R"({
        "stream_input_0": 5, "stream_fmt_in_0": "f",
        "stream_input_1": "b", "stream_fmt_in_1": "g",
        "stream_output": "c", "stream_fmt_out": "h",
        "stream_mode_in": "remain_newest"
    })",
                     R"(
in 0 stream_input_0 -, stream_fmt_in_0 "f" latest
in 1 stream_input_1 "b", stream_fmt_in_1 "g" latest
out 0 stream_output "c", stream_fmt_out "h"
)");
}

TEST_F(NodeEndsTest, AnyOtherModeIsNone) {
    for (const char* mode : {R"("Remain_Newest")", R"("")", "1", "true"}) {
        AssertEndsOfStub(R"({"stream_input": "a", "stream_fmt_in": "f", "stream_mode_in": )" +
                             std::string(mode) + '}',
                         R"(
in 0 stream_input "a", stream_fmt_in "f"
)");
    }
}

// Keeps only the latest item of its first input, whatever the mode is.
class LatestNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        inputs.at(0)->mRemainNewest = 1;
        inputs.at(1)->mRemainNewest = 0;
        return 0;
    }
};

TEST_F(NodeEndsTest, AClassMayChangeTheModeOfEachInput) {
    Register<LatestNode>("Latest", 2, 0);
    for (const char* mode : {"", R"(, "stream_mode_in": "remain_newest")"}) {
        AssertEnds("Latest",
                   R"({"stream_input_0": "a", "stream_fmt_in_0": "f",
                       "stream_input_1": "b", "stream_fmt_in_1": "g")" +
                       std::string(mode) + '}',
                   R"(
in 0 stream_input_0 "a", stream_fmt_in_0 "f" latest
in 1 stream_input_1 "b", stream_fmt_in_1 "g"
)");
    }
}

TEST_F(NodeEndsTest, TheModeIsThatOfTheStore) {
    Register<NodeWith<ConstantStore>>("Constant");
    AssertEnds("Constant", R"({"stream_input": "a", "stream_mode_in": "remain_newest"})", R"(
in 0 stream_input "own", stream_fmt_in (no option) "own"
)");
}

// ---- locations ----------------------------------------------------------------------------

TEST_F(NodeEndsTest, TheLocationOfANameIsItsOptionOtherwiseItsNode) {
    Register<NodeWith<ConstantStore>>("Constant", 1, 1);
    const Node& node = NodeOf(R"({"node_opts": {"node_name": "Constant"},
                                  "stream_opts": {"stream_input": "a"}})");
    const qvgraph::Pipe& pipe = model.pipes().at(0);
    const qvgraph::Endpoint input = {
        .node = 0, .side = &node.inputs, .end = &node.inputs.ends.at(0)};
    const qvgraph::Endpoint output = {
        .node = 0, .side = &node.outputs, .end = &node.outputs.ends.at(0)};
    EXPECT_EQ(pointerTo(nameLocation(pipe, input)), "/pipe_0/node_3/stream_opts/stream_input");
    EXPECT_EQ(pointerTo(nameLocation(pipe, output)), "/pipe_0/node_3");
}

}  // namespace
