// What the host framework allocates and frees, counted for the whole program.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <utility>

#include "framework/qv_log.h"
#include "framework/qv_node_proxy.h"
#include "host/qv_host_log.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "tests/host/registry_test.h"
#include "tests/support/counted_allocations.h"

namespace {

class BareNode : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }
};

class OwnerAllocationTest : public RegistryTest {
protected:
    void SetUp() override {
        RegistryTest::SetUp();
        registry.registerClass(
            {"Bare", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new BareNode; }});
        SetUpAndEnd();  // the proxy keeps the name and its tables
    }

    // Sets up a node without its own store, and destroys its owner.
    static void SetUpAndEnd() {
        QVNodeOwner owner;
        node_proxy_parse_stub_uid(owner.info(), "Bare");
        owner.info()->inputNum = 3;
        owner.info()->outputNum = 2;
        node_proxy_node_create(owner.info());
        owner.info()->node->mOptions->setCString("key", "a value that is not kept in place");
    }
};

}  // namespace

TEST_F(OwnerAllocationTest, OwnerFreesEverythingThatItsRecordReceived) {
    const int before = allocations.living;
    SetUpAndEnd();
    EXPECT_EQ(allocations.living, before);
}

TEST_F(OwnerAllocationTest, OwnerFreesWhatWasCreatedBeforeMemoryRanOut) {
    const int before = allocations.living;
    int failures = 0;
    bool failed = true;
    while (failed && failures < 100) {
        allocations.untilFailure = failures;
        try {
            SetUpAndEnd();
            failed = false;
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        allocations.untilFailure = -1;
        ASSERT_EQ(allocations.living, before) << "allocation " << failures << " failed";
    }
    EXPECT_FALSE(failed);
    // A node, its store, two vectors, five managers, one of two options.
    EXPECT_GE(failures, 10);
}

// If a stream cannot be added, it does not exist, and its id remains free.
TEST(TaskGraphAllocationTest, NoPartialStreamRemainsAfterMemoryRanOut) {
    QVHostTaskGraph graph;
    for (int stream = 0; stream < 40; ++stream) {
        const std::string name = "a name that is not kept in place: " + std::to_string(stream);
        int failures = 0;
        int id = -1;
        while (id == -1 && failures < 100) {
            std::string copy = name;
            allocations.untilFailure = failures;
            try {
                id = graph.addOutputStream(std::move(copy));
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            allocations.untilFailure = -1;
            const int added = id == -1 ? stream : stream + 1;
            ASSERT_EQ(graph.streams().size(), static_cast<size_t>(added)) << failures;
        }
        EXPECT_EQ(id, stream);
        EXPECT_GE(failures, 2);  // the name in its entry, the name in the stream
    }
}

TEST(LogAllocationTest, RecordBelowTheFilterAllocatesNothing) {
    const std::string text(10000, 'x');
    const int before = allocations.made;
    qv_log(1, QV_LOG_INFO, "tag", "%s", "function", 1, text.c_str());
    qv_log(1, QV_LOG_NOTICE, "tag", "%s", "function", 1, text.c_str());
    EXPECT_EQ(allocations.made, before);
}
