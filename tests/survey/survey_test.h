// Surveys configurations; shared by the tests of this folder.
#ifndef QVGRAPH_TESTS_SURVEY_SURVEY_TEST_H_
#define QVGRAPH_TESTS_SURVEY_SURVEY_TEST_H_

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "host/qv_host_log.h"
#include "host/qv_host_task_node.h"
#include "host/qv_node_registry.h"
#include "survey/survey.h"
#include "tests/survey/survey_text.h"

// The stub stands in for every class, unless a test says otherwise.
class SurveyTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }

    // Registry, level and sink belong to the process.
    void TearDown() override {
        QVNodeRegistry::instance().setStub(false);
        for (const QVNodeRegistry::Entry& entry : QVNodeRegistry::instance().classes()) {
            QVNodeRegistry::instance().unregisterClass(entry.name);
        }
        qv_log_set_level(QV_LOG_ERROR);
        qv_log_set_sink(nullptr);
    }

    // Registers a node class with as many streams as are declared.
    template <typename NodeClass>
    static void Register(const char* name) {
        RegisterCreator(name, [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new NodeClass; });
    }

    static void RegisterCreator(const char* name,
                                QVTaskNodeBase* (*create)(const _QVNodeInfo*),
                                int inputs = QV_AS_DECLARED,
                                int outputs = QV_AS_DECLARED) {
        ASSERT_EQ(QVNodeRegistry::instance().registerClass({name, create, inputs, outputs}), 0);
    }

    void Load(const std::string& text) {
        ASSERT_EQ(qvgraph::loadConfiguration(text, {}, &parser), std::nullopt) << text;
    }

    qvgraph::Survey SurveyOf(const std::string& text) {
        Load(text);
        return qvgraph::surveyConfiguration(parser, request);
    }

    void AssertSurveys(const std::string& text, const std::string& survey) {
        EXPECT_EQ(textOf(SurveyOf(text)), survey);
    }

    // The survey of a pipe with the one node 'node_3'.
    qvgraph::SurveyedNode NodeOf(const std::string& node) {
        qvgraph::Survey survey = SurveyOf(R"({"pipe_0": {"node_3": )" + node + "}}");
        return survey.pipes.at(0).nodes.at(0);
    }

    QVGraphParser parser;
    qvgraph::SurveyRequest request;
};

#endif  // QVGRAPH_TESTS_SURVEY_SURVEY_TEST_H_
