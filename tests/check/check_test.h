// The fixture of the tests of the check: findings as text.
#ifndef QVGRAPH_TESTS_CHECK_CHECK_TEST_H_
#define QVGRAPH_TESTS_CHECK_CHECK_TEST_H_

#include <gtest/gtest.h>

#include <string>

#include "check/check.h"
#include "host/qv_node_registry.h"
#include "tests/support/pipe_notation.h"

// The stub replaces every class, unless a test changes that.
class CheckTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }
    void TearDown() override;

    // Registers a node class that creates these numbers of stream managers.
    static void Register(const qvgraph::ExampleClass& nodeClass);

    // The findings of a text, each as
    //
    //   2:3-2:9 warning duplicate-key /pipe_0/a: message
    //     1:3-1:9 message of a related location
    //     hint: hint
    static std::string FindingsIn(const std::string& text);

    // The code of each finding, separated by blanks.
    static std::string CodesIn(const std::string& text);

    // Expects a pipe with these members to have these findings. The members
    // begin in the second line:
    //
    //   {"pipe_0": {
    //   ...
    //   }}
    static void AssertPipe(const std::string& members, const std::string& findings);

    // The same for a pipe in the one-line notation of
    // tests/support/pipe_notation.h, followed by further members.
    static void AssertNodes(const std::string& notation,
                            const std::string& findings,
                            const std::string& members = "") {
        AssertPipe(nodesOf(notation) + (members.empty() ? "" : ",\n" + members), findings);
    }

    static void AssertFinds(const std::string& text, const std::string& findings) {
        EXPECT_EQ(FindingsIn(text), findings) << text;
    }
};

#endif  // QVGRAPH_TESTS_CHECK_CHECK_TEST_H_
