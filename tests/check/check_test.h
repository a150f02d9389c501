// Findings as text: what the tests of this folder share.
#ifndef QVGRAPH_TESTS_CHECK_CHECK_TEST_H_
#define QVGRAPH_TESTS_CHECK_CHECK_TEST_H_

#include <gtest/gtest.h>

#include <string>

#include "check/check.h"
#include "host/qv_node_registry.h"

// The stub stands in for every class, unless a test says otherwise.
class CheckTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }
    void TearDown() override;

    // Makes node classes known that make these numbers of stream managers.
    static void Register(const qvgraph::ExampleClass& nodeClass);

    // The findings of a text, each as
    //
    //   2:3-2:9 warning duplicate-key /pipe_0/a: message
    //     1:3-1:9 message of a related place
    //     hint: hint
    static std::string FindingsIn(const std::string& text);

    // The codes alone, one for each finding, with blanks between them.
    static std::string CodesIn(const std::string& text);

    // Expects a pipe with these members to have these findings. The members
    // stand in lines of their own from the second line on:
    //
    //   {"pipe_0": {
    //   ...
    //   }}
    static void AssertPipe(const std::string& members, const std::string& findings);

    static void AssertFinds(const std::string& text, const std::string& findings) {
        EXPECT_EQ(FindingsIn(text), findings) << text;
    }
};

#endif  // QVGRAPH_TESTS_CHECK_CHECK_TEST_H_
