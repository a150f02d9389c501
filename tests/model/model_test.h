// Builds models of configurations; shared by the tests of this folder.
#ifndef QVGRAPH_TESTS_MODEL_MODEL_TEST_H_
#define QVGRAPH_TESTS_MODEL_MODEL_TEST_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "host/qv_host_task_node.h"
#include "host/qv_node_registry.h"
#include "model/model.h"
#include "tests/model/model_text.h"

// The stub stands in for every class, unless a test says otherwise.
class ModelTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }

    // The registry belongs to the process.
    void TearDown() override {
        QVNodeRegistry::instance().setStub(false);
        for (const QVNodeRegistry::Entry& entry : QVNodeRegistry::instance().classes()) {
            QVNodeRegistry::instance().unregisterClass(entry.name);
        }
    }

    // Registers a node class that creates these numbers of stream managers.
    template <typename NodeClass>
    static void Register(const char* name,
                         int inputs = QV_AS_DECLARED,
                         int outputs = QV_AS_DECLARED) {
        const auto create = [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new NodeClass; };
        ASSERT_EQ(QVNodeRegistry::instance().registerClass({name, create, inputs, outputs}), 0);
    }

    static qvgraph::SurveyedText Surveyed(const std::string& text) {
        qvgraph::SurveyRequest request;
        request.forModel = true;
        return surveyText(text.c_str(), request);
    }

    // The model of a text for which a survey recorded this.
    static qvgraph::Model ModelOf(const std::string& text, qvgraph::SurveyedText surveyed) {
        return qvgraph::Model({.source = std::make_shared<const qvgraph::Source>(text),
                               .survey = std::move(surveyed.survey),
                               .loads = surveyed.loads,
                               .jsonError = std::move(surveyed.jsonError)});
    }

    static qvgraph::Model ModelOf(const std::string& text) { return ModelOf(text, Surveyed(text)); }

    // Builds the model of a pipe with the one node 'node_3'.
    const qvgraph::Node& NodeOf(const std::string& node) {
        model = ModelOf(R"({"pipe_0": {"node_3": )" + node + "}}");
        return model.pipes().at(0).nodes.at(0);
    }

    static void AssertModel(const std::string& text, const std::string& expected) {
        EXPECT_EQ(textOf(ModelOf(text)), expected) << text;
    }

    // The ends of a node of this class with these stream options.
    void AssertEnds(const std::string& className,
                    const std::string& streamOpts,
                    const std::string& ends) {
        const std::string node = R"({"node_opts": {"node_name": ")" + className +
                                 R"("}, "stream_opts": )" + streamOpts + '}';
        EXPECT_EQ(endsOf(NodeOf(node)), ends) << node;
    }

    qvgraph::Model model;
};

#endif  // QVGRAPH_TESTS_MODEL_MODEL_TEST_H_
