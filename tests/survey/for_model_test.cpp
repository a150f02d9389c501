// What a survey for a model records in addition to what a framework queries.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/survey/survey_test.h"

namespace {

using qvgraph::StreamLookup;
using qvgraph::SurveyedEnd;
using qvgraph::SurveyedNode;
using qvgraph::SurveyedPipe;
using qvgraph::SurveyedText;

class ForModelTest : public SurveyTest {
protected:
    ForModelTest() { request.forModel = true; }

    // The keys and indexes of the pipes that are surveyed.
    void AssertPipes(const std::string& text, const std::string& pipes) {
        std::string found;
        for (const SurveyedPipe& pipe : SurveyOf(text).pipes) {
            found += (found.empty() ? "" : ", ") + std::to_string(pipe.index) + ' ' +
                     pipe.key.value_or("-");
        }
        EXPECT_EQ(found, pipes) << text;
    }
};

// ---- pipes --------------------------------------------------------------------

TEST_F(ForModelTest, EveryPipeThatAnIndexMapsToIsSurveyed) {
    AssertPipes(R"({"pipe_10": {}, "pipe_0": {}, "pipe_9": 5})", "0 pipe_0, 9 pipe_9, 10 pipe_10");
    AssertPipes(R"({"pipe_2147483647": {}})", "2147483647 pipe_2147483647");
}

TEST_F(ForModelTest, NoOtherMemberIsSurveyed) {
    AssertPipes(R"({"pipe_00": {}, "pipe_+1": {}, "pipe_-1": {}, "pipe_": {}, "pipe_1x": {},
                    "pipe_2147483648": {}, "Pipe_1": {}, "pipes": {}, "": {}})",
                "");
    AssertPipes(R"([{"pipe_0": {}}])", "");
}

TEST_F(ForModelTest, ProgressCountsThesePipes) {
    std::string progress;
    request.progress = [&progress](size_t done, size_t total) {
        progress += std::to_string(done) + " of " + std::to_string(total) + '\n';
    };
    SurveyOf(R"({"pipe_0": {}, "pipe_7": {}, "other": {}})");
    EXPECT_EQ(progress, "1 of 2\n2 of 2\n");
}

// ---- members -------------------------------------------------------------------

TEST_F(ForModelTest, MembersAreRecordedWithTheKeysThatTheirIdsMapTo) {
    const SurveyedPipe pipe =
        SurveyOf(R"({"pipe_0": {"node_07": {}, "node_7": {}, "executor_x": {}, "link_+1": {},
                                "link_1": {}}})")
            .pipes.at(0);
    EXPECT_EQ(pipe.nodes.at(0).member, "node_07");
    EXPECT_EQ(pipe.nodes.at(0).key, "node_7");
    EXPECT_EQ(pipe.nodes.at(1).member, "node_7");
    EXPECT_EQ(pipe.nodes.at(1).key, "node_7");
    EXPECT_EQ(pipe.executors.at(0).member, "executor_x");
    EXPECT_EQ(pipe.executors.at(0).key, std::nullopt);
    EXPECT_EQ(pipe.links.at(0).member, "link_+1");
    EXPECT_EQ(pipe.links.at(0).key, "link_1");
    EXPECT_EQ(pipe.links.at(1).member, "link_1");
}

// ---- conversions ------------------------------------------------------------------

TEST_F(ForModelTest, ConversionsAreRecordedPerObjectAndMember) {
    const SurveyedNode node = NodeOf(R"({
        "node_opts": {"node_name": "Filter", "a": 1, "b": true, "c": 1},
        "stream_opts": {"stream_input": "s", "b": "int64:2", "d": null},
        "node_opts_extra": {"c": "three"},
        "stream_opts_extra": ["e"]
    })");
    EXPECT_EQ(textOf(node.conversions[0]), R"(1, -, 1, "Filter")");
    EXPECT_EQ(textOf(node.conversions[1]), R"(int64 2, -, "s")");
    EXPECT_EQ(textOf(node.conversions[2]), R"("three")");
    EXPECT_EQ(textOf(node.conversions[3]), "");
}

TEST_F(ForModelTest, ConversionsAreRecordedForExecutorsAndLinks) {
    const SurveyedPipe pipe = SurveyOf(R"({"pipe_0": {
        "executor_0": {"a": 1, "executor_opts": {"b": "float:0.5", "c": []}},
        "link_0": {"depth": 3, "mode": "sync", "executor_opts": {}}
    }})")
                                  .pipes.at(0);
    EXPECT_EQ(textOf(pipe.executors.at(0).conversions), "float 0.5, -");
    EXPECT_EQ(textOf(pipe.links.at(0).conversions), R"(3, -, "sync")");
}

TEST_F(ForModelTest, ConversionsAreRecordedForANodeThatIsNotCreated) {
    const SurveyedNode node = NodeOf(R"({"stream_opts": {"stream_input": "s"}})");
    EXPECT_FALSE(node.created);
    EXPECT_EQ(textOf(node.conversions[1]), R"("s")");
}

TEST_F(ForModelTest, ConversionsAreThoseOfTheMemberEvenIfItsIdMapsToAnother) {
    const SurveyedPipe pipe = SurveyOf(R"({"pipe_0": {
        "node_1": {"node_opts": {"node_name": "Camera", "of": "node_1"}},
        "node_1b": {"node_opts": {"node_name": "Camera", "of": "node_1b"}},
        "link_x": {"of": "link_x"}
    }})")
                                  .pipes.at(0);
    EXPECT_EQ(pipe.nodes.at(1).key, "node_1");
    EXPECT_EQ(textOf(pipe.nodes.at(1).conversions[0]), R"("Camera", "node_1b")");
    EXPECT_EQ(textOf(pipe.links.at(0).conversions), R"("link_x")");
    EXPECT_EQ(textOf(pipe.links.at(0).options), "{}");
}

TEST_F(ForModelTest, ConversionsReplaceTheOptions) {
    const char* const node = R"({"node_opts": {"node_name": "Filter"}})";
    EXPECT_EQ(textOf(NodeOf(node).options), "{}");
    request.forModel = false;
    EXPECT_EQ(textOf(NodeOf(node).conversions[0]), "");
    EXPECT_EQ(textOf(NodeOf(node).options), R"({node_name "Filter"})");
}

// ---- lookups ------------------------------------------------------------------------

// "key" or "key (not found)"; "-" for no lookup.
std::string lookupText(const std::optional<StreamLookup>& lookup) {
    return lookup ? lookup->key + (lookup->found ? "" : " (not found)") : "-";
}

std::string lookupsOf(const std::vector<SurveyedEnd>& ends) {
    std::string text;
    for (const SurveyedEnd& end : ends) {
        text += (text.empty() ? "" : "; ") + lookupText(end.nameLookup) + ", " +
                lookupText(end.formatLookup);
    }
    return text;
}

TEST_F(ForModelTest, TheLookupsOfEachStreamAreRecorded) {
    const SurveyedNode node = NodeOf(R"({
        "node_opts": {"node_name": "Join"},
        "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                        "stream_input_1": "b", "stream_fmt_in_1": "f",
                        "stream_output": "c", "stream_fmt_out": "f"}
    })");
    EXPECT_TRUE(node.watched);
    EXPECT_EQ(lookupsOf(node.inputEnds),
              "stream_input_0, stream_fmt_in_0; stream_input_1, stream_fmt_in_1");
    EXPECT_EQ(lookupsOf(node.outputEnds), "stream_output, stream_fmt_out");
}

TEST_F(ForModelTest, LookupsThatFindNothingAreRecorded) {
    const auto inputs = [this](const std::string& streamOptions) {
        return lookupsOf(NodeOf(R"({"node_opts": {"node_name": "Filter"}, "stream_opts": )" +
                                streamOptions + '}')
                             .inputEnds);
    };
    EXPECT_EQ(inputs(R"({"stream_input": "a"})"), "stream_input, stream_fmt_in (not found)");
    EXPECT_EQ(inputs(R"({"stream_input": 5})"), "stream_input (not found), -");
    EXPECT_EQ(inputs(R"({"stream_input_0": "a"})"), "stream_input (not found), -");
    EXPECT_EQ(inputs(R"({"stream_input_0": "", "stream_fmt_in_0": "f", "stream_input_1": "b"})"),
              "stream_input_0, stream_fmt_in_0; -, -");
}

// Looks up one option as a float.
class GainNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        float gain = 0;
        mOptions->findFloat("gain", &gain);
        return 0;
    }
};

TEST_F(ForModelTest, TheLookupsOfTheClassAreRecorded) {
    Register<GainNode>("Gain");
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Gain", "gain": 2},
        "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}})");
    EXPECT_EQ(node.lookups.back().key, "gain");
    EXPECT_EQ(node.lookups.back().result, QVLookupScope::Result::DifferentType);
    ASSERT_EQ(node.misses.size(), 1U);
    EXPECT_EQ(node.misses[0].key, "gain");
}

// A store whose lookups nothing watches.
class OwnStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* /*value*/) override { return 0; }
    int setInt32(const char* /*key*/, int32_t /*value*/) override { return 0; }
    int setInt64(const char* /*key*/, int64_t /*value*/) override { return 0; }
    int setFloat(const char* /*key*/, float /*value*/) override { return 0; }
    int findCString(const char* /*key*/, const char** value) override {
        *value = "own";
        return 1;
    }
};

class NodeWithOwnStore : public QVTaskNodeBase {
public:
    NodeWithOwnStore() { mOptions = &mStore; }
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }

private:
    OwnStore mStore;
};

TEST_F(ForModelTest, TheOwnStoreOfAClassIsNotWatchedSoItsOptionsAreRead) {
    Register<NodeWithOwnStore>("Own");
    const SurveyedNode node = NodeOf(R"({"node_opts": {"node_name": "Own"},
        "stream_opts": {"stream_output": "s"}})");
    EXPECT_FALSE(node.watched);
    EXPECT_TRUE(node.lookups.empty());
    EXPECT_EQ(lookupsOf(node.outputEnds), "-, -");
    EXPECT_EQ(textOf(node.options), R"({node_name "own", stream_output "own"})");
    EXPECT_EQ(textOf(node.conversions[0]), R"("Own")");
}

// ---- failures of the class ----------------------------------------------------------

const char* const OUTPUT = R"("stream_opts": {"stream_output": "s", "stream_fmt_out": "f"})";

class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw std::runtime_error("no licence");
    }
};

TEST_F(ForModelTest, ANodeIsCreatedOrNot) {
    RegisterCreator("Broken", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; });
    const auto isCreated = [this](const std::string& name) {
        return NodeOf(R"({"node_opts": {"node_name": ")" + name + "\"}}").created;
    };
    EXPECT_TRUE(isCreated("Camera"));
    EXPECT_FALSE(isCreated(""));
    EXPECT_FALSE(isCreated("#door"));
    EXPECT_FALSE(isCreated("Broken"));
}

TEST_F(ForModelTest, AFailureOfTheClassIsRecorded) {
    Register<ThrowingNode>("Throwing");
    RegisterCreator("Broken", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; });
    RegisterCreator("Wild", [](const _QVNodeInfo*) -> QVTaskNodeBase* { throw 5; });
    for (const char* name : {"Throwing", "Broken", "Wild"}) {
        const SurveyedNode node =
            NodeOf(std::string(R"({"node_opts": {"node_name": ")") + name + "\"}, " + OUTPUT + '}');
        EXPECT_TRUE(node.failedByClass) << name;
    }
}

TEST_F(ForModelTest, AFaultOfTheConfigurationIsNotAFailureOfTheClass) {
    Register<ThrowingNode>("Throwing");
    for (const char* node :
         {R"({})",
          R"({"node_opts": {"node_name": "#"}})",
          R"({"node_opts": {"node_name": "Throwing"}})",
          R"({"node_opts": {"node_name": "Throwing"}, "stream_opts": {"stream_output": 5}})",
          R"({"node_opts": {"node_name": "Throwing"}, "stream_opts": {"stream_output": "s"}})",
          R"({"node_opts": {"node_name": "Throwing"}, "stream_opts": {"stream_output": ""}})"}) {
        EXPECT_FALSE(NodeOf(node).failedByClass) << node;
    }
}

// ---- texts ------------------------------------------------------------------------

TEST_F(ForModelTest, ATextIsLoadedAndSurveyed) {
    const SurveyedText surveyed = surveyText(R"({"pipe_3": {}, "other": {}})", request);
    EXPECT_TRUE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "");
    EXPECT_EQ(textOf(surveyed.survey), "\npipe 3 pipe_3 threads 0 links none\n");
}

TEST_F(ForModelTest, ATextThatDoesNotLoadHasNoSurvey) {
    const SurveyedText surveyed = qvgraph::surveyText("{", request);
    EXPECT_FALSE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "unexpected end of input");
    EXPECT_EQ(textOf(surveyed.survey), "\n");
}

TEST_F(ForModelTest, NullDoesNotLoadAndIsNotAnError) {
    const SurveyedText surveyed = qvgraph::surveyText("null", request);
    EXPECT_FALSE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "");
}

}  // namespace
