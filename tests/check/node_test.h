// A node under test and a node that it is connected to, for the tests of the rules
// about nodes and streams.
#ifndef QVGRAPH_TESTS_CHECK_NODE_TEST_H_
#define QVGRAPH_TESTS_CHECK_NODE_TEST_H_

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/qv_log.h"
#include "host/qv_host_task_node.h"
#include "tests/check/check_test.h"

class NodeTest : public CheckTest {
protected:
    static void RegisterCreator(const char* name,
                                QVTaskNodeBase* (*creator)(const _QVNodeInfo*),
                                int inputs = QV_AS_DECLARED,
                                int outputs = QV_AS_DECLARED) {
        ASSERT_EQ(QVNodeRegistry::instance().registerClass({name, creator, inputs, outputs}), 0);
    }

    template <typename Node>
    static QVTaskNodeBase* create(const _QVNodeInfo* /*info*/) {
        return new Node;
    }

    // Expects node 'node_0', next to a consumer of stream 'a', to have these
    // findings. The node begins at 2:11.
    static void AssertProducer(const std::string& node, const std::string& findings) {
        AssertPipe(NextToConsumer(node), findings);
    }

    static void AssertProducerCodes(const std::string& node, const std::string& codes) {
        EXPECT_EQ(CodesIn("{\"pipe_0\": {" + NextToConsumer(node) + "}}"), codes) << node;
    }

    // The same for a node next to a producer of stream 'a'.
    static void AssertConsumer(const std::string& node, const std::string& findings) {
        AssertPipe(NextToProducer(node), findings);
    }

    static void AssertConsumerCodes(const std::string& node, const std::string& codes) {
        EXPECT_EQ(CodesIn("{\"pipe_0\": {" + NextToProducer(node) + "}}"), codes) << node;
    }

private:
    static std::string NextToConsumer(const std::string& node) {
        return "\"node_0\": " + node + R"(,
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})";
    }

    static std::string NextToProducer(const std::string& node) {
        return "\"node_0\": " + node + R"(,
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})";
    }
};

// A node whose initialisation throws.
class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw std::runtime_error("no licence");
    }
};

// A node whose initialisation fails an assertion.
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

#endif  // QVGRAPH_TESTS_CHECK_NODE_TEST_H_
