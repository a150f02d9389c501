// Parsers in several threads. Under ThreadSanitizer, these tests show that there
// are no data races; without it, only that the results are correct.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "tests/host/in_threads.h"

using json11::Json;

namespace {

const int THREADS = 4;
const int ROUNDS = 50;

const char* const DOCUMENT = R"({"pipe_0": {
    "thread_opts": {"exec_thread_num": 3},
    "default_mode_link": "sync",
    "executor_1": {"executor_opts": {"name": "realtime", "priority": "int64:80"}},
    "node_2": {
        "node_opts": {"node_name": "Camera", "fps": 25},
        "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}},
    "node_5": {
        "node_opts": {"node_name": "Display"},
        "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12"}}}})";

class ThreadsTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }
    void TearDown() override { QVNodeRegistry::instance().setStub(false); }

    // The records of loads that fail.
    const QVLogScope quiet{0, [](const QVLogRecord&) {}};

    // What one thread computes from the document, from loading to the last node.
    static std::string Everything(const QVGraphParser& parser) {
        std::string text = std::to_string(parser.getPipeNum()) + " " +
                           std::to_string(parser.getThreadNum(0)) + " " +
                           parser.getDefaultLinkMode(0);
        QVHostMetaData store;
        parser.syncExecOptions(&store, 0, parser.getExecIDByIndex(0, 0));
        text += " options " + std::to_string(store.entries().size());
        QVHostTaskGraph graph;
        for (int i = 0; i < parser.getNodeNum(0); ++i) {
            QVNodeOwner node;
            const int id = parser.getNodeIDByIndex(0, i);
            text += " node " + std::to_string(id) + ":" +
                    std::to_string(parser.initTaskNode(&graph, 0, id, node.info()));
        }
        return text + " streams " + std::to_string(graph.streams().size());
    }

    static inline const std::string EVERYTHING = "1 3 sync options 2 node 2:0 node 5:0 streams 1";
};

}  // namespace

TEST_F(ThreadsTest, EachThreadHasItsOwnParser) {
    std::atomic<int> right{0};
    inThreads(THREADS, [&](int) {
        for (int round = 0; round < ROUNDS; ++round) {
            QVGraphParser parser;
            const bool loaded = parser.parseConfigText(DOCUMENT) == 0;
            right += loaded && Everything(parser) == EVERYTHING ? 1 : 0;
        }
    });
    EXPECT_EQ(right, THREADS * ROUNDS);
}

TEST_F(ThreadsTest, CopiesOfAParserAnswerQueriesConcurrently) {
    QVGraphParser original;
    ASSERT_EQ(original.parseConfigText(DOCUMENT), 0);
    std::atomic<int> right{0};
    inThreads(THREADS, [&](int) {
        for (int round = 0; round < ROUNDS; ++round) {
            QVGraphParser copy;
            copy = original;
            right += Everything(copy) == EVERYTHING ? 1 : 0;
        }
    });
    EXPECT_EQ(right, THREADS * ROUNDS);
}

TEST_F(ThreadsTest, RecordsOfAllThreadsReachTheSink) {
    std::atomic<int> records{0};
    const QVLogScope log(QV_LOG_INFO, [&](const QVLogRecord&) { ++records; });
    QVGraphParser parser;
    ASSERT_EQ(parser.parseConfigText(DOCUMENT), 0);
    Everything(parser);
    const int ofOne = records.exchange(0);
    inThreads(THREADS, [&](int) {
        QVGraphParser copy;
        copy = parser;
        Everything(copy);
    });
    EXPECT_GT(ofOne, 10);
    EXPECT_EQ(records, THREADS * ofOne);
}

TEST_F(ThreadsTest, ValueOutlivesReloadsInAnotherThread) {
    QVGraphParser parser;
    ASSERT_EQ(parser.parseConfigText(DOCUMENT), 0);
    const std::string expected = parser.root()["pipe_0"].dump();
    std::atomic<int> right{0};
    for (int round = 0; round < ROUNDS; ++round) {
        ASSERT_EQ(parser.parseConfigText(DOCUMENT), 0);
        // After the reload, the thread's handle is the last one.
        std::thread reader([&right, &expected, value = Json(parser.root()["pipe_0"])] {
            const QVGraphParser asked;
            for (int i = 0; i < 5; ++i) {
                const bool same = value.dump() == expected &&
                                  asked.getItemNum(value, "node_") == 2 &&
                                  asked.getItemIDByIndex(value, 1, "node_") == 5;
                right += same ? 1 : 0;
            }
        });
        EXPECT_EQ(parser.parseConfigText(round % 2 == 0 ? "{}" : "{"), round % 2 == 0 ? 0 : -1);
        reader.join();
    }
    EXPECT_EQ(right, ROUNDS * 5);
}

TEST_F(ThreadsTest, CopyOfAParserOutlivesTheOriginal) {
    std::atomic<int> right{0};
    std::vector<std::thread> readers;
    for (int number = 0; number < THREADS; ++number) {
        QVGraphParser original;
        ASSERT_EQ(original.parseConfigText(DOCUMENT), 0);
        readers.emplace_back(
            [&right, copy = original] { right += Everything(copy) == EVERYTHING ? 1 : 0; });
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(right, THREADS);
}
