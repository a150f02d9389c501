// A node under test, and one that it is wired to: what the tests of the rules
// about nodes and streams share.
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

    // Expects a node beside one that takes the stream 'a', or one that gives
    // it, to have these findings. The node begins on the second line:
    //
    //   {"pipe_0": {
    //   "node_0": ...,
    //   "node_1": {"node_opts": {"node_name": "Display"},
    static void AssertGiver(const std::string& node, const std::string& findings) {
        AssertPipe("\"node_0\": " + node + R"(,
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
                   findings);
    }

    static void AssertTaker(const std::string& node, const std::string& findings) {
        AssertPipe("\"node_0\": " + node + R"(,
"node_1": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}})",
                   findings);
    }
};

class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw std::runtime_error("no licence");
    }
};

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
