// The host framework's node proxy, and the owner that frees what it creates.
#include "framework/qv_node_proxy.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "host/qv_host_meta_data.h"
#include "host/qv_host_stream_managers.h"
#include "host/qv_host_task_node.h"
#include "host/qv_node_owner.h"
#include "tests/host/in_threads.h"
#include "tests/host/registry_test.h"

namespace {

static_assert(!std::is_copy_constructible<QVNodeOwner>::value);
static_assert(!std::is_copy_assignable<QVNodeOwner>::value);

// Counts the objects that contain one, and records the order of their
// destruction.
class Life {
public:
    explicit Life(const char* name) : mName(name) { ++living; }
    ~Life() {
        --living;
        ended += mName + ' ';
    }
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

    static int living;
    static std::string ended;

private:
    std::string mName;
};
int Life::living = 0;
std::string Life::ended;

// A node without its own option store. Its destructor reports the option
// "last word".
class BareNode : public QVTaskNodeBase {
public:
    ~BareNode() override {
        const char* word = nullptr;
        if (mOptions != nullptr && mOptions->findCString("last word", &word) != 0) {
            Life::ended += std::string(word) + ' ';
        }
    }

    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }

private:
    Life mLife{"node"};
};

struct CountedStore : QVHostMetaData {
    Life life{"store"};
};

class NodeWithStore : public BareNode {
public:
    NodeWithStore() { mOptions = &mStore; }

    // Its store is already destroyed when the base's destructor runs.
    ~NodeWithStore() override { mOptions = nullptr; }

private:
    CountedStore mStore;
};

struct CountedInput : QVHostInputStreamManager {
    Life life{"manager"};
};
struct CountedOutput : QVHostOutputStreamManager {
    Life life{"manager"};
};

QVTaskNodeBase* createBare(const _QVNodeInfo* /*info*/) {
    return new BareNode;
}
QVTaskNodeBase* createWithStore(const _QVNodeInfo* /*info*/) {
    return new NodeWithStore;
}
QVTaskNodeBase* createNone(const _QVNodeInfo* /*info*/) {
    return nullptr;
}
QVTaskNodeBase* createThrowing(const _QVNodeInfo* /*info*/) {
    throw std::runtime_error("no camera is plugged in");
}

class NodeProxyTest : public RegistryTest {
protected:
    void SetUp() override {
        RegistryTest::SetUp();
        ASSERT_EQ(Life::living, 0);
        Life::ended.clear();
    }

    void TearDown() override {
        RegistryTest::TearDown();
        EXPECT_EQ(Life::living, 0);
    }

    // Creates a node as the parser does.
    static void Create(_QVNodeInfo* info, const char* name, int inputs = 0, int outputs = 0) {
        node_proxy_parse_stub_uid(info, name);
        info->nodeId = 7;
        info->inputNum = inputs;
        info->outputNum = outputs;
        node_proxy_node_create(info);
    }

    static int32_t UidOf(const char* name) {
        _QVNodeInfo info;
        node_proxy_parse_stub_uid(&info, name);
        return info.stubUid;
    }

    static void AssertNothingCreated(const _QVNodeInfo& info) {
        EXPECT_EQ(info.node, nullptr);
        EXPECT_TRUE(info.inputStreams.empty());
        EXPECT_TRUE(info.outputStreams.empty());
    }

    static void AssertNoNode(const char* name) {
        SCOPED_TRACE(name);
        QVNodeOwner owner;
        Create(owner.info(), name, 2, 1);
        AssertNothingCreated(*owner.info());
    }

    // A class with these numbers, in a node that declares those, has the expected
    // number of managers.
    void AssertManagers(const QVNodeClass& nodeClass,
                        int declaredInputs,
                        int declaredOutputs,
                        size_t inputs,
                        size_t outputs) {
        ASSERT_EQ(registry.registerClass(nodeClass), 0);
        QVNodeOwner owner;
        Create(owner.info(), nodeClass.name, declaredInputs, declaredOutputs);
        EXPECT_NE(owner.info()->node, nullptr);
        EXPECT_EQ(owner.info()->inputStreams.size(), inputs);
        EXPECT_EQ(owner.info()->outputStreams.size(), outputs);
        EXPECT_EQ(owner.info()->inputNum, declaredInputs);
        EXPECT_EQ(owner.info()->outputNum, declaredOutputs);
        registry.unregisterClass(nodeClass.name);
    }
};

}  // namespace

// ---- Names ------------------------------------------------------------------

TEST_F(NodeProxyTest, NameHasOneUid) {
    const int32_t front = UidOf("Camera#front");
    const int32_t rear = UidOf("Camera#rear");
    EXPECT_NE(front, rear);
    EXPECT_EQ(UidOf("Camera#front"), front);
    EXPECT_EQ(UidOf(std::string("Camera#rear").c_str()), rear);
    EXPECT_EQ(UidOf("Camera#front"), front);
}

TEST_F(NodeProxyTest, NamesAreComparedByteForByte) {
    std::set<int32_t> uids;
    for (const char* const name : {"", " ", "Camera", "camera", "Camera#", "#", "\xff"}) {
        uids.insert(UidOf(name));
    }
    EXPECT_EQ(uids.size(), 7U);
}

TEST_F(NodeProxyTest, ParsingANameWritesOnlyItsUid) {
    _QVNodeInfo info;
    info.nodeId = 1;
    info.inputNum = 2;
    info.outputNum = 3;
    node_proxy_parse_stub_uid(&info, "Camera");
    EXPECT_EQ(info.nodeId, 1);
    EXPECT_EQ(info.inputNum, 2);
    EXPECT_EQ(info.outputNum, 3);
    AssertNothingCreated(info);
}

TEST_F(NodeProxyTest, NameIsCopied) {
    registry.registerClass({"Camera", createBare});
    char name[] = "Camera";
    QVNodeOwner owner;
    node_proxy_parse_stub_uid(owner.info(), name);
    name[0] = '?';
    node_proxy_node_create(owner.info());
    EXPECT_NE(owner.info()->node, nullptr);
}

TEST_F(NodeProxyTest, NewRecordCreatesNoNode) {
    registry.setStub(true);
    UidOf("Camera");
    QVNodeOwner owner;
    node_proxy_node_create(owner.info());
    AssertNothingCreated(*owner.info());
}

TEST_F(NodeProxyTest, UnknownUidCreatesNoNode) {
    registry.setStub(true);
    static int run = 0;  // makes the name new each time
    const int32_t newest = UidOf(("newest " + std::to_string(++run)).c_str());
    for (const int32_t uid : {newest + 1, -1, INT_MIN, INT_MAX}) {
        QVNodeOwner owner;
        owner.info()->stubUid = uid;
        owner.info()->inputNum = 1;
        node_proxy_node_create(owner.info());
        AssertNothingCreated(*owner.info());
    }
}

// ---- Classes ----------------------------------------------------------------

TEST_F(NodeProxyTest, NodeHasTheClassInItsName) {
    registry.registerClass({"Bare", createBare});
    registry.registerClass({"Stored", createWithStore});
    QVNodeOwner bare;
    QVNodeOwner stored;
    Create(bare.info(), "Bare");
    Create(stored.info(), "Stored");
    EXPECT_EQ(dynamic_cast<NodeWithStore*>(bare.info()->node), nullptr);
    EXPECT_NE(dynamic_cast<BareNode*>(bare.info()->node), nullptr);
    EXPECT_NE(dynamic_cast<NodeWithStore*>(stored.info()->node), nullptr);
}

TEST_F(NodeProxyTest, LabelAfterTheClassDistinguishesNodes) {
    registry.registerClass({"Camera", createBare});
    for (const char* const name : {"Camera", "Camera#", "Camera#front", "Camera#front#left"}) {
        QVNodeOwner owner;
        Create(owner.info(), name);
        EXPECT_NE(dynamic_cast<BareNode*>(owner.info()->node), nullptr) << name;
    }
}

TEST_F(NodeProxyTest, NamesWithoutARegisteredClassCreateNoNode) {
    registry.registerClass({"Camera", createBare});
    for (const char* const name :
         {"", "#", "#Camera", "camera", "Camera ", "Cam", "Camera2", "Display"}) {
        AssertNoNode(name);
    }
}

TEST_F(NodeProxyTest, FactoryReceivesTheNodesIdAndStreamNumbers) {
    static const _QVNodeInfo* received;
    static std::string told;
    registry.registerClass({"Camera", [](const _QVNodeInfo* info) -> QVTaskNodeBase* {
                                received = info;
                                told = std::to_string(info->nodeId) + ' ' +
                                       std::to_string(info->inputNum) + ' ' +
                                       std::to_string(info->outputNum);
                                return new BareNode;
                            }});
    QVNodeOwner owner;
    Create(owner.info(), "Camera", 2, 3);
    EXPECT_EQ(received, owner.info());
    EXPECT_EQ(told, "7 2 3");
}

TEST_F(NodeProxyTest, FactoryThatReturnsNullCreatesNoNode) {
    registry.registerClass({"Camera", createNone, 1, 1});
    registry.setStub(true);
    AssertNoNode("Camera");
}

TEST_F(NodeProxyTest, ExceptionFromAFactoryPropagates) {
    registry.registerClass({"Camera", createThrowing, 1, 1});
    QVNodeOwner owner;
    try {
        Create(owner.info(), "Camera");
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "no camera is plugged in");
    }
    AssertNothingCreated(*owner.info());
}

TEST_F(NodeProxyTest, StubHasAsManyManagersAsDeclared) {
    registry.setStub(true);
    QVNodeOwner owner;
    Create(owner.info(), "Unknown#1", 2, 1);
    EXPECT_NE(dynamic_cast<QVStubTaskNode*>(owner.info()->node), nullptr);
    EXPECT_EQ(owner.info()->inputStreams.size(), 2U);
    EXPECT_EQ(owner.info()->outputStreams.size(), 1U);
}

TEST_F(NodeProxyTest, StubNeverStandsInForANameWithoutAClass) {
    registry.setStub(true);
    AssertNoNode("");
    AssertNoNode("#");
    AssertNoNode("#front");
}

// ---- Managers ---------------------------------------------------------------

TEST_F(NodeProxyTest, ClassWithoutNumbersHasAsManyManagersAsDeclared) {
    const QVNodeClass any = {"Any", createBare};
    AssertManagers(any, 0, 0, 0, 0);
    AssertManagers(any, 1, 0, 1, 0);
    AssertManagers(any, 0, 1, 0, 1);
    AssertManagers(any, 3, 40, 3, 40);
}

TEST_F(NodeProxyTest, ClassWithNumbersHasThatManyManagers) {
    AssertManagers({"None", createBare, 0, 0}, 3, 2, 0, 0);
    AssertManagers({"Fewer", createBare, 1, 2}, 3, 4, 1, 2);
    AssertManagers({"More", createBare, 5, 4}, 3, 0, 5, 4);
    AssertManagers({"Source", createBare, 0, QV_AS_DECLARED}, 3, 2, 0, 2);
    AssertManagers({"Sink", createBare, QV_AS_DECLARED, 0}, 3, 2, 3, 0);
}

TEST_F(NodeProxyTest, ManagersAreNewHostManagers) {
    registry.registerClass({"Mixer", createBare});
    QVNodeOwner owner;
    Create(owner.info(), "Mixer", 2, 2);
    std::set<const void*> places;
    for (QVInputStreamManager* const manager : owner.info()->inputStreams) {
        const auto* const input = dynamic_cast<QVHostInputStreamManager*>(manager);
        ASSERT_NE(input, nullptr);
        EXPECT_FALSE(input->binding().has_value());
        EXPECT_EQ(input->mRemainNewest, 0);
        places.insert(input);
    }
    for (QVOutputStreamManager* const manager : owner.info()->outputStreams) {
        const auto* const output = dynamic_cast<QVHostOutputStreamManager*>(manager);
        ASSERT_NE(output, nullptr);
        EXPECT_FALSE(output->binding().has_value());
        places.insert(output);
    }
    EXPECT_EQ(places.size(), 4U);
}

// ---- Option stores ----------------------------------------------------------

TEST_F(NodeProxyTest, NodeWithoutAStoreGetsOne) {
    registry.registerClass({"Bare", createBare});
    QVNodeOwner owner;
    QVNodeOwner other;
    Create(owner.info(), "Bare");
    Create(other.info(), "Bare");
    ASSERT_NE(owner.info()->node->mOptions, nullptr);
    EXPECT_NE(owner.info()->node->mOptions, other.info()->node->mOptions);

    auto* const store = dynamic_cast<QVHostMetaData*>(owner.info()->node->mOptions);
    ASSERT_NE(store, nullptr);
    EXPECT_TRUE(store->entries().empty());
}

TEST_F(NodeProxyTest, NodeKeepsItsOwnStore) {
    registry.registerClass({"Stored", createWithStore});
    {
        QVNodeOwner owner;
        Create(owner.info(), "Stored");
        EXPECT_NE(dynamic_cast<CountedStore*>(owner.info()->node->mOptions), nullptr);
        EXPECT_EQ(Life::living, 2);
    }
    EXPECT_EQ(Life::ended, "store node ");
}

TEST_F(NodeProxyTest, StoreWithAnotherOwnerIsNotDeleted) {
    static CountedStore* shared;
    registry.registerClass({"Sharing", [](const _QVNodeInfo*) -> QVTaskNodeBase* {
                                auto* const node = new BareNode;
                                node->mOptions = shared;
                                return node;
                            }});
    CountedStore store;
    shared = &store;
    {
        QVNodeOwner owner;
        Create(owner.info(), "Sharing");
        EXPECT_EQ(owner.info()->node->mOptions, &store);
    }
    EXPECT_EQ(Life::ended, "node ");
    EXPECT_EQ(Life::living, 1);
    shared = nullptr;
}

// A node that uses the store of another node, which has a separate owner.
TEST_F(NodeProxyTest, StoreSuppliedToAnotherNodeIsNotDeleted) {
    registry.registerClass({"Bare", createBare});
    QVNodeOwner inner;
    Create(inner.info(), "Bare");
    {
        QVNodeOwner outer;
        Create(outer.info(), "Bare");
        outer.info()->node->mOptions = inner.info()->node->mOptions;
    }
    EXPECT_EQ(inner.info()->node->mOptions->setInt32("still there", 1), 0);
}

// ---- The owner --------------------------------------------------------------

TEST_F(NodeProxyTest, OwnersRecordStartsEmpty) {
    QVNodeOwner owner;
    const QVNodeOwner& reader = owner;
    EXPECT_EQ(reader.info(), owner.info());
    EXPECT_EQ(owner.info()->nodeId, 0);
    EXPECT_EQ(owner.info()->inputNum, 0);
    EXPECT_EQ(owner.info()->outputNum, 0);
    AssertNothingCreated(*owner.info());
}

TEST_F(NodeProxyTest, OwnerDeletesTheNodeBeforeItsManagers) {
    {
        QVNodeOwner owner;
        owner.info()->node = new BareNode;
        owner.info()->inputStreams = {new CountedInput, new CountedInput};
        owner.info()->outputStreams = {new CountedOutput};
        EXPECT_EQ(Life::living, 4);
    }
    EXPECT_EQ(Life::ended, "node manager manager manager ");
}

TEST_F(NodeProxyTest, OwnerDeletesManagersWithoutANode) {
    {
        QVNodeOwner owner;
        owner.info()->inputStreams = {new CountedInput};
        owner.info()->outputStreams = {new CountedOutput};
    }
    EXPECT_EQ(Life::ended, "manager manager ");
}

TEST_F(NodeProxyTest, SuppliedStoreLivesAsLongAsItsNode) {
    registry.registerClass({"Bare", createBare});
    {
        QVNodeOwner owner;
        Create(owner.info(), "Bare", 1, 1);
        owner.info()->node->mOptions->setCString("last word", "goodbye");
    }
    EXPECT_EQ(Life::ended, "goodbye node ");
}

// ---- Threads ----------------------------------------------------------------

TEST_F(NodeProxyTest, ThreadsAgreeOnTheUidsOfNames) {
    constexpr int THREADS = 4;
    constexpr int NAMES = 500;
    std::vector<std::map<std::string, int32_t>> uids(THREADS);
    inThreads(THREADS, [&uids](int thread) {
        for (int number = 0; number < NAMES; ++number) {
            // Each thread visits the names in a different order.
            const int shuffled = (number * (2 * thread + 3)) % 499;
            const std::string name = "Threaded#" + std::to_string(shuffled);
            uids[static_cast<size_t>(thread)][name] = UidOf(name.c_str());
        }
    });
    std::set<int32_t> distinct;
    for (const auto& [name, uid] : uids.front()) {
        distinct.insert(uid);
        EXPECT_EQ(UidOf(name.c_str()), uid);
    }
    EXPECT_EQ(distinct.size(), 499U);
    for (const auto& other : uids) {
        EXPECT_EQ(other, uids.front());
    }
}

TEST_F(NodeProxyTest, ThreadsCreateTheirOwnNodes) {
    registry.registerClass(
        {"Camera", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new QVHostTaskNode; }});
    std::vector<size_t> managers(4);
    inThreads(4, [&managers](int thread) {
        for (int number = 0; number < 200; ++number) {
            QVNodeOwner owner;
            const std::string name = "Camera#" + std::to_string(number);
            Create(owner.info(), name.c_str(), thread, 1);
            managers[static_cast<size_t>(thread)] +=
                owner.info()->node != nullptr ? owner.info()->inputStreams.size() : 0;
        }
    });
    EXPECT_EQ(managers, (std::vector<size_t>{0, 200, 400, 600}));
}
