// Node classes of the host framework.
#include "host/qv_host_task_node.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "host/qv_host_stream_managers.h"

namespace {

using Inputs = std::vector<QVInputStreamManager*>;
using Outputs = std::vector<QVOutputStreamManager*>;

static_assert(std::is_base_of<QVHostTaskNode, QVStubTaskNode>::value);
static_assert(std::is_final<QVStubTaskNode>::value);

class TaskNodeTest : public testing::Test {
protected:
    // Initialises the node with a record that is destroyed afterwards.
    int Initialize(int nodeId,
                   const std::string& name,
                   const Inputs& inputs,
                   const Outputs& outputs) {
        _QVTaskNodeInfo info;
        info.nodeId = nodeId;
        info.nodeName = name;
        QVTaskNodeBase& base = node;
        return base.initialize(nodeId, &info, inputs, outputs);
    }

    QVHostTaskNode node;
    QVHostInputStreamManager firstInput;
    QVHostInputStreamManager secondInput;
    QVHostOutputStreamManager output;
};

}  // namespace

TEST_F(TaskNodeTest, StartsUninitializedAndEmpty) {
    EXPECT_FALSE(node.isInitialized());
    EXPECT_EQ(node.nodeId(), 0);
    EXPECT_EQ(node.nodeName(), "");
    EXPECT_EQ(node.inputs(), Inputs());
    EXPECT_EQ(node.outputs(), Outputs());
}

TEST_F(TaskNodeTest, HasItsOwnOptionStore) {
    QVHostTaskNode other;
    ASSERT_NE(node.mOptions, nullptr);
    EXPECT_NE(node.mOptions, other.mOptions);

    int32_t value = 0;
    node.mOptions->setInt32("fps", 30);
    EXPECT_NE(node.mOptions->findInt32("fps", &value), 0);
    EXPECT_EQ(value, 30);
    EXPECT_EQ(other.mOptions->findInt32("fps", &value), 0);
}

TEST_F(TaskNodeTest, RemembersItsInitializeArguments) {
    EXPECT_EQ(Initialize(10, "Tracker#2", {&firstInput, &secondInput}, {&output}), 0);
    EXPECT_TRUE(node.isInitialized());
    EXPECT_EQ(node.nodeId(), 10);
    EXPECT_EQ(node.nodeName(), "Tracker#2");
    EXPECT_EQ(node.inputs(), (Inputs{&firstInput, &secondInput}));
    EXPECT_EQ(node.outputs(), Outputs{&output});
}

TEST_F(TaskNodeTest, CanBeInitializedWithoutStreamsAndName) {
    EXPECT_EQ(Initialize(0, "", {}, {}), 0);
    EXPECT_TRUE(node.isInitialized());
    EXPECT_EQ(node.nodeName(), "");
    EXPECT_EQ(node.inputs(), Inputs());
    EXPECT_EQ(node.outputs(), Outputs());
}

TEST_F(TaskNodeTest, InitializeDoesNotChangeTheOptions) {
    QvMetaData* const options = node.mOptions;
    options->setInt32("fps", 30);
    Initialize(1, "Camera", {}, {&output});
    int32_t value = 0;
    EXPECT_EQ(node.mOptions, options);
    EXPECT_NE(options->findInt32("fps", &value), 0);
}

TEST_F(TaskNodeTest, DerivedClassMayExtendInitialize) {
    struct Camera : QVHostTaskNode {
        int initialize(int nodeId,
                       _QVTaskNodeInfo* info,
                       const Inputs& inputs,
                       const Outputs& outputs) override {
            const int result = QVHostTaskNode::initialize(nodeId, info, inputs, outputs);
            greeting = "I am " + nodeName();
            return result;
        }
        std::string greeting;
    };
    _QVTaskNodeInfo info;
    info.nodeName = "Camera#front";
    Camera camera;
    EXPECT_EQ(camera.initialize(3, &info, {}, {&output}), 0);
    EXPECT_EQ(camera.greeting, "I am Camera#front");
    EXPECT_EQ(camera.outputs(), Outputs{&output});
}

TEST_F(TaskNodeTest, StubIsAnOrdinaryNode) {
    const std::unique_ptr<QVTaskNodeBase> stub = std::make_unique<QVStubTaskNode>();
    _QVTaskNodeInfo info;
    info.nodeName = "Unknown";
    ASSERT_NE(stub->mOptions, nullptr);
    EXPECT_EQ(stub->initialize(2, &info, {&firstInput}, {}), 0);
    const auto& hostNode = dynamic_cast<const QVHostTaskNode&>(*stub);
    EXPECT_TRUE(hostNode.isInitialized());
    EXPECT_EQ(hostNode.nodeId(), 2);
    EXPECT_EQ(hostNode.nodeName(), "Unknown");
    EXPECT_EQ(hostNode.inputs(), Inputs{&firstInput});
}
