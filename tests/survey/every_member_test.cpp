// What a survey of every member tells beyond what a framework would ask for.
#include <stdexcept>
#include <string>

#include "tests/survey/survey_test.h"

namespace {

using qvgraph::Node;
using qvgraph::Pipe;
using qvgraph::SurveyedText;

class EveryMemberTest : public SurveyTest {
protected:
    EveryMemberTest() { request.everyMember = true; }

    // The keys and indexes of the pipes that are surveyed.
    void AssertPipes(const std::string& text, const std::string& pipes) {
        std::string found;
        for (const Pipe& pipe : SurveyOf(text).pipes) {
            found += (found.empty() ? "" : ", ") + std::to_string(pipe.index) + ' ' +
                     pipe.key.value_or("-");
        }
        EXPECT_EQ(found, pipes) << text;
    }
};

// ---- pipes --------------------------------------------------------------------

TEST_F(EveryMemberTest, EveryPipeThatAnIndexLeadsToIsSurveyed) {
    AssertPipes(R"({"pipe_10": {}, "pipe_0": {}, "pipe_9": 5})", "0 pipe_0, 9 pipe_9, 10 pipe_10");
    AssertPipes(R"({"pipe_2147483647": {}})", "2147483647 pipe_2147483647");
}

TEST_F(EveryMemberTest, NoOtherMemberIs) {
    AssertPipes(R"({"pipe_00": {}, "pipe_+1": {}, "pipe_-1": {}, "pipe_": {}, "pipe_1x": {},
                    "pipe_2147483648": {}, "Pipe_1": {}, "pipes": {}, "": {}})",
                "");
    AssertPipes(R"([{"pipe_0": {}}])", "");
}

TEST_F(EveryMemberTest, ProgressCountsThesePipes) {
    std::string told;
    request.progress = [&told](size_t done, size_t total) {
        told += std::to_string(done) + " of " + std::to_string(total) + '\n';
    };
    SurveyOf(R"({"pipe_0": {}, "pipe_7": {}, "other": {}})");
    EXPECT_EQ(told, "1 of 2\n2 of 2\n");
}

// ---- members -------------------------------------------------------------------

TEST_F(EveryMemberTest, MembersAreToldApartFromWhereTheirIdsLead) {
    const Pipe pipe =
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

// ---- what would be stored --------------------------------------------------------

TEST_F(EveryMemberTest, WhatAnyStoreWouldHoldIsTold) {
    const Node node = NodeOf(R"({
        "node_opts": {"node_name": "Filter", "a": 1, "b": 1, "c": 1},
        "stream_opts": {"stream_input": "s", "b": "int64:2", "d": null},
        "node_opts_extra": {"c": "three"},
        "stream_opts_extra": ["e"]
    })");
    EXPECT_EQ(textOf(node.stored),
              R"({a 1, b int64 2, c "three", node_name "Filter", stream_input "s"})");
}

TEST_F(EveryMemberTest, SoItIsOfANodeThatIsNotMade) {
    EXPECT_EQ(textOf(NodeOf(R"({"stream_opts": {"stream_input": "s"}})").stored),
              R"({stream_input "s"})");
}

TEST_F(EveryMemberTest, SoItIsOfAMemberThatNoIdLeadsTo) {
    const Pipe pipe = SurveyOf(R"({"pipe_0": {
        "node_1": {"node_opts": {"node_name": "Camera", "of": "node_1"}},
        "node_1b": {"node_opts": {"node_name": "Camera", "of": "node_1b"}}
    }})")
                          .pipes.at(0);
    EXPECT_EQ(textOf(pipe.nodes.at(1).stored), R"({node_name "Camera", of "node_1b"})");
    EXPECT_EQ(textOf(pipe.nodes.at(1).options), R"({node_name "Camera", of "node_1"})");
}

TEST_F(EveryMemberTest, AnotherSurveyDoesNotTellIt) {
    request.everyMember = false;
    EXPECT_EQ(textOf(NodeOf(R"({"node_opts": {"node_name": "Filter"}})").stored), "{}");
}

// ---- what the class does ----------------------------------------------------------

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

TEST_F(EveryMemberTest, ANodeIsMadeOrNot) {
    RegisterCreator("Broken", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; });
    const auto isMade = [this](const std::string& name) {
        return NodeOf(R"({"node_opts": {"node_name": ")" + name + "\"}}").created;
    };
    EXPECT_TRUE(isMade("Camera"));
    EXPECT_FALSE(isMade(""));
    EXPECT_FALSE(isMade("#door"));
    EXPECT_FALSE(isMade("Broken"));
}

TEST_F(EveryMemberTest, AClassMayFailByItself) {
    Register<ThrowingNode>("Throwing");
    RegisterCreator("Broken", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; });
    RegisterCreator("Wild", [](const _QVNodeInfo*) -> QVTaskNodeBase* { throw 5; });
    for (const char* name : {"Throwing", "Broken", "Wild"}) {
        const Node node =
            NodeOf(std::string(R"({"node_opts": {"node_name": ")") + name + "\"}, " + OUTPUT + '}');
        EXPECT_TRUE(node.failedByClass) << name;
    }
}

TEST_F(EveryMemberTest, WhatTheConfigurationLacksIsNoFailureOfTheClass) {
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

TEST_F(EveryMemberTest, ATextIsLoadedAndSurveyed) {
    const SurveyedText surveyed = surveyText(R"({"pipe_3": {}, "other": {}})", request);
    EXPECT_TRUE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "");
    EXPECT_EQ(textOf(surveyed.survey), "\npipe 3 pipe_3 threads 0 links none\n");
}

TEST_F(EveryMemberTest, ATextThatDoesNotLoadHasNoSurvey) {
    const SurveyedText surveyed = qvgraph::surveyText("{", request);
    EXPECT_FALSE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "unexpected end of input");
    EXPECT_EQ(textOf(surveyed.survey), "\n");
}

TEST_F(EveryMemberTest, NullDoesNotLoadAndIsNoError) {
    const SurveyedText surveyed = qvgraph::surveyText("null", request);
    EXPECT_FALSE(surveyed.loads);
    EXPECT_EQ(surveyed.jsonError, "");
}

}  // namespace
