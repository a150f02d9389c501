// The host framework's stream managers.
#include "host/qv_host_stream_managers.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>

namespace {

void AssertBound(const std::optional<QVStreamBinding>& binding,
                 const std::string& name,
                 int streamId,
                 int nodeId) {
    ASSERT_TRUE(binding.has_value());
    EXPECT_EQ(binding->name, name);
    EXPECT_EQ(binding->streamId, streamId);
    EXPECT_EQ(binding->nodeId, nodeId);
}

class InputManagerTest : public testing::Test {
protected:
    QVHostInputStreamManager hostManager;

    // As the parser sees it.
    QVInputStreamManager& manager = hostManager;
};

class OutputManagerTest : public testing::Test {
protected:
    QVHostOutputStreamManager hostManager;
    QVOutputStreamManager& manager = hostManager;
};

}  // namespace

TEST_F(InputManagerTest, StartsUnboundWithoutAFormatAndKeepsAllData) {
    EXPECT_FALSE(hostManager.binding().has_value());
    EXPECT_FALSE(hostManager.format().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, StoresItsBinding) {
    EXPECT_EQ(manager.initialize("frames", 3, 10), 0);
    AssertBound(hostManager.binding(), "frames", 3, 10);
    EXPECT_FALSE(hostManager.format().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, StoresItsFormat) {
    EXPECT_EQ(manager.setStreamType("nv12"), 0);
    EXPECT_EQ(hostManager.format(), "nv12");
    EXPECT_FALSE(hostManager.binding().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, EmptyStringsAreStored) {
    manager.initialize("", INT_MIN, INT_MAX);
    manager.setStreamType("");
    AssertBound(hostManager.binding(), "", INT_MIN, INT_MAX);
    EXPECT_EQ(hostManager.format(), "");
}

TEST_F(InputManagerTest, CopiesNameAndFormat) {
    std::string name = "frames";
    std::string format = "nv12";
    manager.initialize(name, 0, 0);
    manager.setStreamType(format);
    name[0] = format[0] = '?';
    AssertBound(hostManager.binding(), "frames", 0, 0);
    EXPECT_EQ(hostManager.format(), "nv12");
}

TEST_F(OutputManagerTest, StartsUnboundWithoutAFormat) {
    EXPECT_FALSE(hostManager.binding().has_value());
    EXPECT_EQ(manager.mStreamType, "");
}

TEST_F(OutputManagerTest, StoresItsBinding) {
    EXPECT_EQ(manager.initialize("boxes", 3, 10), 0);
    AssertBound(hostManager.binding(), "boxes", 3, 10);
    EXPECT_EQ(manager.mStreamType, "");
}

TEST_F(OutputManagerTest, EmptyNameIsStored) {
    manager.initialize("", INT_MIN, INT_MAX);
    AssertBound(hostManager.binding(), "", INT_MIN, INT_MAX);
}

TEST_F(OutputManagerTest, CopiesItsName) {
    std::string name = "boxes";
    manager.initialize(name, 0, 0);
    name[0] = '?';
    AssertBound(hostManager.binding(), "boxes", 0, 0);
}
