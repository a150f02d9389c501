// The registry of node classes is process-wide: each test that uses it starts
// and ends with an empty registry.
#ifndef QVGRAPH_TESTS_HOST_REGISTRY_TEST_H_
#define QVGRAPH_TESTS_HOST_REGISTRY_TEST_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/qv_node_registry.h"

class RegistryTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(ClassNames(), std::vector<std::string>());
        ASSERT_FALSE(registry.stub());
    }

    void TearDown() override {
        for (const std::string& name : ClassNames()) {
            EXPECT_TRUE(registry.unregisterClass(name)) << name;
        }
        registry.setStub(false);
    }

    std::vector<std::string> ClassNames() const {
        std::vector<std::string> names;
        for (const QVNodeRegistry::Entry& entry : registry.classes()) {
            names.push_back(entry.name);
        }
        return names;
    }

    QVNodeRegistry& registry = QVNodeRegistry::instance();
};

#endif  // QVGRAPH_TESTS_HOST_REGISTRY_TEST_H_
