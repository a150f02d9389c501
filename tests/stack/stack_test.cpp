// The stack that the parser needs to load the deepest possible text, run all
// queries, and set up a node.
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

namespace {

const size_t KIB = 1024;

// The deepest nesting that json11 accepts.
const int DEEPEST = 201;

std::string deepestText() {
    return std::string(DEEPEST, '[') + std::string(DEEPEST, ']');
}

const char* const ONE_OF_ALL = R"({"pipe_0": {
    "thread_opts": {"exec_thread_num": 2},
    "default_mode_link": "sync",
    "executor_0": {"executor_opts": {"gain": "double:0.5"}},
    "link_0": {"mode": "int32:1"},
    "node_0": {
        "node_opts": {"node_name": "Filter", "size": "int64:0x10"},
        "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                        "stream_input_1": "b", "stream_fmt_in_1": "f",
                        "stream_output": "c", "stream_fmt_out": "f"}}}})";

void useAll(const QVGraphParser& parser) {
    parser.getPipeNum();
    parser.getNodeNum(0);
    parser.getExecNum(0);
    parser.getLinkNum(0);
    parser.getNodeIDByIndex(0, 0);
    parser.getExecIDByIndex(0, 0);
    parser.getLinkIDByIndex(0, 0);
    parser.getThreadNum(0);
    parser.getDefaultLinkMode(0);
    parser.getItemNameByIndex(parser.root()["pipe_0"], 0, "node_");
    QVHostMetaData options;
    parser.syncExecOptions(&options, 0, 0);
    parser.syncLinkOptions(&options, 0, 0);
    QVHostTaskGraph graph;
    QVNodeOwner owner;
    parser.initTaskNode(&graph, 0, 0, owner.info());
}

// The work of one thread; returns whether it succeeded.
void* work(void* ok) {
    QVGraphParser parser;
    const bool deepest = parser.parseConfigText(deepestText().c_str()) == 0;
    const bool all = parser.parseConfigText(ONE_OF_ALL) == 0;
    useAll(parser);
    *static_cast<bool*>(ok) = deepest && all;
    return nullptr;
}

class Stack {
public:
    explicit Stack(size_t size)
        : mSize(size),
          mMemory(static_cast<unsigned char*>(mmap(nullptr,
                                                   size,
                                                   PROT_READ | PROT_WRITE,
                                                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK,
                                                   -1,
                                                   0))) {
        memset(mMemory, PAINT, mSize);
    }
    ~Stack() { munmap(mMemory, mSize); }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;

    // Runs the work on this stack. Returns whether it succeeded.
    bool run() {
        bool ok = false;
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        EXPECT_EQ(pthread_attr_setstack(&attributes, mMemory, mSize), 0);
        pthread_t thread = {};
        EXPECT_EQ(pthread_create(&thread, &attributes, work, &ok), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
        return ok;
    }

    // The number of bytes from the top to the lowest byte that was written.
    size_t used() const {
        const unsigned char* const end = mMemory + mSize;
        const unsigned char* const lowest =
            std::find_if(mMemory, mMemory + mSize, [](unsigned char c) { return c != PAINT; });
        return static_cast<size_t>(end - lowest);
    }

private:
    static const unsigned char PAINT = 0xa5;

    size_t mSize;
    unsigned char* mMemory;
};

class StackTest : public testing::Test {
protected:
    void SetUp() override {
        QVNodeRegistry::instance().setStub(true);
        qv_log_set_level(0);
    }
    void TearDown() override {
        QVNodeRegistry::instance().setStub(false);
        qv_log_set_level(QV_LOG_ERROR);
    }
};

}  // namespace

TEST_F(StackTest, FitsASmallThread) {
    Stack large(1024 * KIB);
    ASSERT_TRUE(large.run());
    RecordProperty("bytes", static_cast<int>(large.used()));
    printf("stack used: %zu bytes, the thread's own data included\n", large.used());
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // With pointers of half the size, most of json11's frames are half as large.
    const size_t small = sizeof(void*) == 4 ? 64 * KIB : 128 * KIB;
    EXPECT_LT(large.used(), small);
    Stack tight(small);
    EXPECT_TRUE(tight.run());
#endif
}
