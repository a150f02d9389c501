// The contract headers on their own.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "framework/qv_log.h"
#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_stream_manager.h"
#include "framework/qv_task_graph.h"
#include "framework/qv_task_node.h"
#include "tests/support/aborts.h"
#include "tests/support/recording_framework.h"

// As a source file of the parser defines them.
#define QV_LOG_MODULE 0x18181802U
#define QV_LOG_TAG "QVGraphParser"
#define QV_LOG_FUNCTION "contract"

namespace {

// ---- Signatures -------------------------------------------------------------

template <typename Promised, typename Actual>
constexpr bool hasType(Actual /*function*/) {
    return std::is_same<Promised, Actual>::value;
}

using LogFunction = int (*)(uint32_t, int, const char*, const char*, const char*, int, ...);
using Inputs = std::vector<QVInputStreamManager*>;
using Outputs = std::vector<QVOutputStreamManager*>;
using Name = const std::string&;

static_assert(hasType<LogFunction>(&qv_log));
static_assert(hasType<LogFunction>(&qv_err));
static_assert(hasType<int (*)(char*, size_t, const char*, ...)>(&util_snprintf));
static_assert(hasType<std::string (*)(int)>(&util_to_string));
static_assert(hasType<int (*)(const char*, const char*)>(&util_strcasecmp));
static_assert(hasType<void* (*)(void*, int, size_t)>(&qv_memset));
static_assert(hasType<void (*)(_QVNodeInfo*, const char*)>(&node_proxy_parse_stub_uid));
static_assert(hasType<void (*)(_QVNodeInfo*)>(&node_proxy_node_create));

using M = QvMetaData;
static_assert(hasType<int (M::*)(const char*, const char*)>(&M::setCString));
static_assert(hasType<int (M::*)(const char*, int32_t)>(&M::setInt32));
static_assert(hasType<int (M::*)(const char*, int64_t)>(&M::setInt64));
static_assert(hasType<int (M::*)(const char*, float)>(&M::setFloat));
static_assert(hasType<int (M::*)(const char*, const char**)>(&M::findCString));

using G = QVTaskGraphConfig;
static_assert(hasType<int (G::*)(std::string)>(&G::addInputStream));
static_assert(hasType<int (G::*)(std::string)>(&G::addOutputStream));

using I = QVInputStreamManager;
static_assert(hasType<int (I::*)(Name, int, int)>(&I::initialize));
static_assert(hasType<int (I::*)(Name)>(&I::setStreamType));
static_assert(hasType<int32_t I::*>(&I::mRemainNewest));

using O = QVOutputStreamManager;
static_assert(hasType<int (O::*)(Name, int, int)>(&O::initialize));
static_assert(hasType<std::string O::*>(&O::mStreamType));

using N = QVTaskNodeBase;
static_assert(
    hasType<int (N::*)(int, _QVTaskNodeInfo*, const Inputs&, const Outputs&)>(&N::initialize));
static_assert(hasType<QvMetaData * N::*>(&N::mOptions));

// Frameworks derive from all of these, and destroy objects through their bases.
template <typename Base>
constexpr bool isBase() {
    return std::is_abstract<Base>::value && std::has_virtual_destructor<Base>::value &&
           !std::is_copy_constructible<Base>::value && !std::is_copy_assignable<Base>::value;
}
static_assert(isBase<M>() && isBase<G>() && isBase<I>() && isBase<O>() && isBase<N>());

// ---- The records ------------------------------------------------------------

static_assert(offsetof(_QVNodeInfo, nodeId) == 0);
static_assert(offsetof(_QVNodeInfo, inputNum) == 4);
static_assert(offsetof(_QVNodeInfo, outputNum) == 8);
static_assert(offsetof(_QVNodeInfo, stubUid) == 12);
static_assert(offsetof(_QVNodeInfo, node) == 16);
static_assert(offsetof(_QVTaskNodeInfo, nodeId) == 0);
static_assert(offsetof(_QVTaskNodeInfo, nodeName) == alignof(std::string));

TEST(RecordTest, NodeRecordStartsEmpty) {
    alignas(_QVNodeInfo) unsigned char memory[sizeof(_QVNodeInfo)];
    memset(memory, 0xff, sizeof(memory));
    auto* const info = new (memory) _QVNodeInfo;
    EXPECT_EQ(info->nodeId, 0);
    EXPECT_EQ(info->inputNum, 0);
    EXPECT_EQ(info->outputNum, 0);
    EXPECT_EQ(info->stubUid, 0);
    EXPECT_EQ(info->node, nullptr);
    EXPECT_TRUE(info->inputStreams.empty());
    EXPECT_TRUE(info->outputStreams.empty());
    info->~_QVNodeInfo();
}

TEST(RecordTest, TaskNodeRecordStartsEmpty) {
    const _QVTaskNodeInfo info;
    EXPECT_EQ(info.nodeId, 0);
    EXPECT_EQ(info.nodeName, "");
}

TEST(RecordTest, ManagersAndNodesStartEmpty) {
    RecordingFramework framework;
    framework.inputManagers = 1;
    framework.outputManagers = 1;
    _QVNodeInfo info;
    node_proxy_node_create(&info);
    EXPECT_EQ(info.inputStreams.at(0)->mRemainNewest, 0);
    EXPECT_EQ(info.outputStreams.at(0)->mStreamType, "");

    struct BareNode : QVTaskNodeBase {
        int initialize(int, _QVTaskNodeInfo*, const Inputs&, const Outputs&) override { return 0; }
    };
    EXPECT_EQ(BareNode().mOptions, nullptr);
}

// ---- The virtual table of the store -----------------------------------------

// Overrides every operation that has its own slot in the table.
class SlotStore : public QvMetaData {
public:
    explicit SlotStore(std::string* report) : ran(report) {}
    ~SlotStore() override { *ran += "destructor "; }

    static void operator delete(void* memory) {
        deleted += "delete ";
        ::operator delete(memory);
    }

    int setCString(const char*, const char*) override { return say("setCString"); }
    int setInt32(const char*, int32_t) override { return say("setInt32"); }
    int setInt64(const char*, int64_t) override { return say("setInt64"); }
    int setFloat(const char*, float) override { return say("setFloat"); }
    int remove(const char*) override { return say("remove"); }
    int findCString(const char*, const char**) override { return say("findCString"); }

    static std::string deleted;

private:
    int say(const char* operation) {
        *ran = operation;
        return 7;
    }

    std::string* ran;
};
std::string SlotStore::deleted;

// The operation at `slot` of the object's virtual table, as a function whose
// first argument is the object.
template <typename Function>
Function operationAt(const QvMetaData& object, size_t slot) {
    void* const* table = nullptr;
    memcpy(&table, static_cast<const void*>(&object), sizeof(table));
    Function function = nullptr;
    static_assert(sizeof(function) == sizeof(table[slot]));
    memcpy(&function, &table[slot], sizeof(function));
    return function;
}

class SlotTest : public testing::Test {
protected:
    template <typename... Arguments>
    void AssertSlot(size_t slot, const std::string& operation, Arguments... arguments) {
        using Function = int (*)(QvMetaData*, const char*, Arguments...);
        ran.clear();
        EXPECT_EQ(operationAt<Function>(store, slot)(&store, "key", arguments...), 7);
        EXPECT_EQ(ran, operation);
    }

    std::string ran;
    SlotStore store{&ran};
};

}  // namespace

TEST_F(SlotTest, OperationsFollowTheDestructorsInOrder) {
    const char* text = nullptr;
    AssertSlot(2, "setCString", "value");
    AssertSlot(3, "setInt32", int32_t{1});
    AssertSlot(4, "setInt64", int64_t{1});
    AssertSlot(5, "setFloat", 1.0F);
    AssertSlot(6, "remove");
    AssertSlot(7, "findCString", &text);
}

TEST_F(SlotTest, DestructorsComeFirst) {
    using Destructor = void (*)(QvMetaData*);
    SlotStore::deleted.clear();

    alignas(SlotStore) unsigned char memory[sizeof(SlotStore)];
    QvMetaData* const placed = new (memory) SlotStore(&ran);
    operationAt<Destructor>(*placed, 0)(placed);
    EXPECT_EQ(ran + SlotStore::deleted, "destructor ");

    ran.clear();
    QvMetaData* const owned = new SlotStore(&ran);
    operationAt<Destructor>(*owned, 1)(owned);
    EXPECT_EQ(ran + SlotStore::deleted, "destructor delete ");
}

TEST(StoreTest, DefaultOperationsFindAndRemoveNothing) {
    RecordingFramework framework;
    QvMetaData& store = framework.store;
    store.setInt32("key", 1);
    EXPECT_EQ(store.remove("key"), 0);

    int32_t int32 = 32;
    int64_t int64 = 64;
    float real = 0.5F;
    EXPECT_EQ(store.findInt32("key", &int32), 0);
    EXPECT_EQ(store.findInt64("key", &int64), 0);
    EXPECT_EQ(store.findFloat("key", &real), 0);
    EXPECT_EQ(int32, 32);
    EXPECT_EQ(int64, 64);
    EXPECT_EQ(real, 0.5F);
}

// ---- Levels, colours and formats --------------------------------------------

TEST(LogTest, LevelsHaveTheSpecifiedValues) {
    EXPECT_EQ(QV_LOG_ERROR, 2);
    EXPECT_EQ(QV_LOG_NOTICE, 5);
    EXPECT_EQ(QV_LOG_INFO, 6);
}

TEST(LogTest, ColoursHaveTheSpecifiedValues) {
    EXPECT_STREQ(QV_LOG_RED, "\x1b[31m\x1b[1m");
    EXPECT_STREQ(QV_LOG_BLUE, "\x1b[34m\x1b[1m");
    EXPECT_STREQ(QV_LOG_PLAIN, "\x1b[0m");
}

TEST(LogTest, FormatsOfTheChecksHaveTheNewlineBeforeTheColourReset) {
    EXPECT_STREQ(QV_ASSERT_FORMAT, "\x1b[31m\x1b[1mAssertion %s failed at %s:%d\n\x1b[0m");
    EXPECT_STREQ(CHECK_UE_FORMAT, "\x1b[31m\x1b[1m%s(%d): %s failed. actual %d vs exp %d\n\x1b[0m");
}

// ---- Assertion --------------------------------------------------------------

namespace {

class ChecksTest : public testing::Test {
protected:
    void AssertRecord(const std::string& text) {
        ASSERT_EQ(framework.records.size(), 1U);
        const LogRecord& record = framework.records.front();
        EXPECT_TRUE(record.fromErr);
        EXPECT_EQ(record.module, 0x18181802U);
        EXPECT_EQ(record.level, 2);
        EXPECT_EQ(record.tag, "QVGraphParser");
        EXPECT_EQ(record.function, "contract");
        EXPECT_EQ(record.text, text);
    }

    RecordingFramework framework;
};

int checkedLine = 0;

// Returns early if `actual` is unexpected.
int leaveAt(int actual, int unexpected) {
    int result = 7;
    checkedLine = __LINE__ + 1;
    CHECK_UE(actual, unexpected);
    result = 8;
    return result;
}

}  // namespace

TEST_F(ChecksTest, AssertionThatHoldsLogsNothingAndEvaluatesOnce) {
    int looks = 0;
    QV_ASSERT(++looks, "++looks");
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(framework.takeTrace(), "\n");
}

TEST_F(ChecksTest, AssertionThatFailsIsLoggedAndAborts) {
    framework.errorsToStderr = true;
    EXPECT_EXIT(QV_ASSERT(1 == 2, "1 == 2 (%d)"),
                testing::KilledBySignal(SIGABRT),
                standardErrorIs(withAnyLine(
                    "18181802 2 QVGraphParser contract:<line> \033[31m\033[1mAssertion 1 == 2 (%d) "
                    "failed at contract:<line>\n\033[0m")));
}

TEST_F(ChecksTest, AssertionWithAnEmptyRecordStillAborts) {
    EXPECT_EXIT(QV_ASSERT(false, "false"), testing::KilledBySignal(SIGABRT), standardErrorIs(""));
}

TEST_F(ChecksTest, ExceptionFromTheLoggerPreventsTheAbort) {
    framework.onCall = [](const std::string& call) { throw std::runtime_error(call); };
    int line = 0;
    try {
        line = __LINE__ + 1;
        QV_ASSERT(false, "false");
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error&) {
        AssertRecord("\033[31m\033[1mAssertion false failed at contract:" + std::to_string(line) +
                     "\n\033[0m");
        EXPECT_EQ(framework.records.front().line, line);
    }
}

TEST_F(ChecksTest, UnexpectedNumberIsLoggedAndReturnsTheCurrentResult) {
    EXPECT_EQ(leaveAt(-1, -1), 7);
    AssertRecord("\033[31m\033[1mcontract(" + std::to_string(checkedLine) +
                 "): CHECK_UE failed. actual -1 vs exp -1\n\033[0m");
    EXPECT_EQ(framework.records.front().line, checkedLine);
}

TEST_F(ChecksTest, AnyOtherNumberContinuesWithoutALog) {
    for (const int actual : {0, 1, -2}) {
        EXPECT_EQ(leaveAt(actual, -1), 8);
    }
    EXPECT_EQ(framework.takeTrace(), "\n");
}
