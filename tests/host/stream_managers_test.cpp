// The desk's stream managers.
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
    QVHostInputStreamManager desk;

    // As the parser sees it.
    QVInputStreamManager& manager = desk;
};

class OutputManagerTest : public testing::Test {
protected:
    QVHostOutputStreamManager desk;
    QVOutputStreamManager& manager = desk;
};

}  // namespace

TEST_F(InputManagerTest, StartsUnboundWithoutAFormatAndKeepsAllData) {
    EXPECT_FALSE(desk.binding().has_value());
    EXPECT_FALSE(desk.format().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, HoldsWhatItWasBoundTo) {
    EXPECT_EQ(manager.initialize("frames", 3, 10), 0);
    AssertBound(desk.binding(), "frames", 3, 10);
    EXPECT_FALSE(desk.format().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, HoldsItsFormat) {
    EXPECT_EQ(manager.setStreamType("nv12"), 0);
    EXPECT_EQ(desk.format(), "nv12");
    EXPECT_FALSE(desk.binding().has_value());
    EXPECT_EQ(manager.mRemainNewest, 0);
}

TEST_F(InputManagerTest, EmptyTextsAreHeldToo) {
    manager.initialize("", INT_MIN, INT_MAX);
    manager.setStreamType("");
    AssertBound(desk.binding(), "", INT_MIN, INT_MAX);
    EXPECT_EQ(desk.format(), "");
}

TEST_F(InputManagerTest, CopiesNameAndFormat) {
    std::string name = "frames";
    std::string format = "nv12";
    manager.initialize(name, 0, 0);
    manager.setStreamType(format);
    name[0] = format[0] = '?';
    AssertBound(desk.binding(), "frames", 0, 0);
    EXPECT_EQ(desk.format(), "nv12");
}

TEST_F(OutputManagerTest, StartsUnboundWithoutAFormat) {
    EXPECT_FALSE(desk.binding().has_value());
    EXPECT_EQ(manager.mStreamType, "");
}

TEST_F(OutputManagerTest, HoldsWhatItWasBoundTo) {
    EXPECT_EQ(manager.initialize("boxes", 3, 10), 0);
    AssertBound(desk.binding(), "boxes", 3, 10);
    EXPECT_EQ(manager.mStreamType, "");
}

TEST_F(OutputManagerTest, EmptyNameIsHeldToo) {
    manager.initialize("", INT_MIN, INT_MAX);
    AssertBound(desk.binding(), "", INT_MIN, INT_MAX);
}

TEST_F(OutputManagerTest, CopiesItsName) {
    std::string name = "boxes";
    manager.initialize(name, 0, 0);
    name[0] = '?';
    AssertBound(desk.binding(), "boxes", 0, 0);
}
