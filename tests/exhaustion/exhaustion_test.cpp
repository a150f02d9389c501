// Memory exhaustion at every allocation: only this allocation fails, or this and
// all later ones.
//
// The allocations of the parser and of the host framework fail. A json11 that is
// built without exceptions, like Debian's, cannot be unwound: allocations inside
// Json::parse and Json::dump succeed here, and the last test shows what happens
// if they do not.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "tests/support/counted_allocations.h"
#include "tests/support/temporary_folder.h"

using json11::Json;

// ---- Calls into json11, through the linker's --wrap ------------------------

Json realParse(const std::string& text,
               std::string& error,
               json11::JsonParse strategy) __asm__("__real_" QVGRAPH_JSON11_PARSE);
Json wrappedParse(const std::string& text,
                  std::string& error,
                  json11::JsonParse strategy) __asm__("__wrap_" QVGRAPH_JSON11_PARSE);
void realDump(const Json* value, std::string& text) __asm__("__real_" QVGRAPH_JSON11_DUMP);
void wrappedDump(const Json* value, std::string& text) __asm__("__wrap_" QVGRAPH_JSON11_DUMP);

namespace {

bool failsInsideJson11 = false;

// During its lifetime, no allocation fails.
class WithMemory {
public:
    WithMemory() : left(failsInsideJson11 ? -1 : allocations.untilFailure.exchange(-1)) {}
    ~WithMemory() {
        if (!failsInsideJson11) {
            allocations.untilFailure = left;
        }
    }
    WithMemory(const WithMemory&) = delete;
    WithMemory& operator=(const WithMemory&) = delete;

private:
    const int left;
};

}  // namespace

Json wrappedParse(const std::string& text, std::string& error, json11::JsonParse strategy) {
    const WithMemory memory;
    return realParse(text, error, strategy);
}

void wrappedDump(const Json* value, std::string& text) {
    const WithMemory memory;
    realDump(value, text);
}

// ---- The tests ---------------------------------------------------------------

namespace {

// Members of an option object: more than a store holds without allocating.
std::string manyOptions() {
    std::string members;
    for (int i = 0; i < 30; ++i) {
        members += "\"option " + std::to_string(i) + "\": \"" + std::string(100, 'x') + "\", ";
    }
    return members;
}

// Names, formats and options that are too long for a string's internal buffer.
const std::string DOCUMENT =
    R"({"pipe_0": {
    "default_mode_link": "a link mode that is not kept in place",
    "thread_opts": {"exec_thread_num": 4},
    "executor_1": {"executor_opts": {)" +
    manyOptions() + R"("name": "a name that is not kept in place", "priority": 3}},
    "link_2": {)" +
    manyOptions() +
    R"("depth": "int64:0x10", "gain": "double:0.5", "a key that is not kept in place": 1},
    "node_3": {
        "node_opts": {"node_name": "a class that is not kept in place", "fps": "int32:25"},
        "node_opts_extra": {"gain": "float:0.5", "too long": "0123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789"},
        "stream_opts": {
            "stream_input_of_the_left_side": "the stream from the left side",
            "stream_fmt_in_of_the_left_side": "a format of the left side",
            "stream_input_of_the_right_side": "the stream from the right side",
            "stream_fmt_in_of_the_right_side": "a format of the right side",
            "stream_mode_in": "remain_newest",
            "stream_output": "the stream of what comes out of it",
            "stream_fmt_out": "the format of what comes out of it"}}}})";

const char* const OTHER_DOCUMENT = R"({"pipe_0": {}, "pipe_1": {"node_0": {}}})";

class ExhaustionTest : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        QVNodeRegistry::instance().setStub(true);
        ASSERT_EQ(loaded.parseConfigText(DOCUMENT.c_str()), 0);
    }
    void TearDown() override { QVNodeRegistry::instance().setStub(false); }

    using Step = std::function<void()>;

    // Runs `operation` with its first allocation failing, then with its second,
    // and so on until none fails. Each time, std::bad_alloc propagates, nothing
    // leaks, and `check` passes. At least `fewest` allocations fail.
    void AssertStandsExhaustion(
        int fewest, const Step& operation, const Step& check = [] {}) {
        operation();  // creates what is kept for the lifetime of the process
        for (const bool once : {true, false}) {
            allocations.failsOnce = once;
            int number = 0;
            while (number < 10000 && FailsAt(number, operation) && !HasFatalFailure()) {
                check();
                ++number;
            }
            EXPECT_GE(number, fewest);
            EXPECT_LT(number, 10000);
        }
    }

    const QVLogScope log{GetParam(), [](const QVLogRecord&) {}};
    QVGraphParser loaded;

private:
    // Whether an allocation failed when only `number` could succeed.
    static bool FailsAt(int number, const Step& operation) {
        const int failed = allocations.failed;
        const int living = allocations.living;
        bool thrown = false;
        allocations.untilFailure = number;
        try {
            operation();
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
        allocations.untilFailure = -1;
        const int left = allocations.living;
        EXPECT_EQ(left, living) << "allocation " << number << " failed";
        EXPECT_EQ(thrown, allocations.failed > failed) << "allocation " << number;
        return thrown;
    }
};

// With and without log records that reach the sink.
INSTANTIATE_TEST_SUITE_P(Logging,
                         ExhaustionTest,
                         testing::Values(0, int{QV_LOG_INFO}),
                         [](const auto& level) {
                             return std::string(level.param == 0 ? "NoRecords" : "AllRecords");
                         });

// After a load that ran out of memory, the parser has the previous document or
// none.
class LoadingExhaustionTest : public ExhaustionTest {
protected:
    using Load = std::function<void(QVGraphParser*)>;

    void AssertLoadStandsExhaustion(int fewest, const Load& load) {
        AssertStandsExhaustion(
            fewest,
            [&] {
                QVGraphParser parser = loaded;
                try {
                    load(&parser);
                } catch (const std::bad_alloc&) {
                    inOrder = parser.root().is_null() || parser.getPipeNum() == 1;
                    throw;
                }
            },
            [&] { EXPECT_TRUE(inOrder); });
        QVGraphParser parser = loaded;
        EXPECT_EQ(parser.parseConfigText(OTHER_DOCUMENT), 0);
        EXPECT_EQ(parser.getPipeNum(), 2);
    }

    const TemporaryFolder folder;

private:
    bool inOrder = false;
};

INSTANTIATE_TEST_SUITE_P(Logging,
                         LoadingExhaustionTest,
                         testing::Values(0, int{QV_LOG_INFO}),
                         [](const auto& level) {
                             return std::string(level.param == 0 ? "NoRecords" : "AllRecords");
                         });

TEST_P(LoadingExhaustionTest, LoadingTextFailsCleanly) {
    AssertLoadStandsExhaustion(
        1, [](QVGraphParser* parser) { parser->parseConfigText(OTHER_DOCUMENT); });
}

TEST_P(LoadingExhaustionTest, LoadingMalformedTextFailsCleanly) {
    AssertLoadStandsExhaustion(1, [](QVGraphParser* parser) {
        parser->parseConfigText("a text that is no JSON and is not kept in place");
    });
}

TEST_P(LoadingExhaustionTest, LoadingNullTextFailsCleanly) {
    AssertLoadStandsExhaustion(GetParam() == 0 ? 0 : 1,
                               [](QVGraphParser* parser) { parser->parseConfigText(nullptr); });
}

TEST_P(LoadingExhaustionTest, LoadingAFileFailsCleanly) {
    const std::string path = folder.write("graph.json", OTHER_DOCUMENT);
    AssertLoadStandsExhaustion(
        1, [&](QVGraphParser* parser) { parser->parseConfigFile(path.c_str()); });
}

TEST_P(LoadingExhaustionTest, LoadingAMissingFileFailsCleanly) {
    const std::string path = folder.path("missing.json");
    AssertLoadStandsExhaustion(GetParam() == 0 ? 0 : 1, [&](QVGraphParser* parser) {
        parser->parseConfigFile(path.c_str());
    });
}

TEST_P(ExhaustionTest, CountingFailsCleanly) {
    AssertStandsExhaustion(GetParam() == 0 ? 0 : 1, [this] {
        loaded.getNodeNum(0);
        loaded.getExecNum(0);
        loaded.getLinkNum(0);
        loaded.getPipeNum();
        loaded.getThreadNum(0);
    });
}

TEST_P(ExhaustionTest, LookingUpIdsFailsCleanly) {
    AssertStandsExhaustion(GetParam() == 0 ? 0 : 1, [this] {
        loaded.getNodeIDByIndex(0, 0);
        loaded.getExecIDByIndex(0, 0);
        loaded.getLinkIDByIndex(0, 0);
        loaded.getLinkIDByIndex(7, 0);
    });
}

TEST_P(ExhaustionTest, LookingUpNamesFailsCleanly) {
    const Json streams = loaded.root()["pipe_0"]["node_3"]["stream_opts"];
    AssertStandsExhaustion(1, [&] { loaded.getItemNameByIndex(streams, 1, "stream_input_"); });
}

TEST_P(ExhaustionTest, QueryingTheLinkModeFailsCleanly) {
    AssertStandsExhaustion(1, [this] { loaded.getDefaultLinkMode(0); });
}

TEST_P(ExhaustionTest, ConvertingSingleOptionsFailsCleanly) {
    const Json value = std::string(100, 'x');
    const std::vector<const char*> keys = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    AssertStandsExhaustion(1, [&] {
        QVHostMetaData store;
        for (const char* key : keys) {
            loaded.parseOptions(&store, key, value);
        }
    });
}

TEST_P(ExhaustionTest, CopyingExecutorOptionsFailsCleanly) {
    AssertStandsExhaustion(3, [this] {
        QVHostMetaData store;
        loaded.syncExecOptions(&store, 0, 1);
    });
}

TEST_P(ExhaustionTest, CopyingLinkOptionsFailsCleanly) {
    AssertStandsExhaustion(3, [this] {
        QVHostMetaData store;
        loaded.syncLinkOptions(&store, 0, 2);
    });
}

TEST_P(ExhaustionTest, NodeSetUpFailsCleanly) {
    AssertStandsExhaustion(20, [this] {
        QVHostTaskGraph graph;
        QVNodeOwner node;
        loaded.initTaskNode(&graph, 0, 3, node.info());
    });
}

TEST_P(ExhaustionTest, SetUpOfARefusedNodeFailsCleanly) {
    AssertStandsExhaustion(20, [this] {
        QVHostTaskGraph graph;
        graph.addOutputStream("the stream of what comes out of it");
        QVNodeOwner node;
        loaded.initTaskNode(&graph, 0, 3, node.info());
    });
}

TEST_P(ExhaustionTest, SetUpOfAMissingNodeFailsCleanly) {
    AssertStandsExhaustion(GetParam() == 0 ? 0 : 1, [this] {
        QVHostTaskGraph graph;
        QVNodeOwner node;
        loaded.initTaskNode(&graph, 0, 4, node.info());
    });
}

// ---- Inside json11 -----------------------------------------------------------

const int ALL_IN_ORDER = 0;
const int NOTHING_FAILED = 1;
const int OUT_OF_ORDER = 2;

// Replaces a document while only `number` allocations succeed, including those
// inside json11, and exits the process.
[[noreturn]] void loadAndLeave(int number, bool once) {
    QVGraphParser parser;
    parser.parseConfigText(DOCUMENT.c_str());
    failsInsideJson11 = true;
    allocations.failsOnce = once;
    allocations.untilFailure = number;
    bool thrown = false;
    try {
        parser.parseConfigText(OTHER_DOCUMENT);
    } catch (const std::bad_alloc&) {
        thrown = true;
    }
    allocations.untilFailure = -1;
    const bool inOrder = parser.root().is_null() || parser.getPipeNum() == 1;
    if (!thrown) {
        _exit(NOTHING_FAILED);
    }
    _exit(inOrder && parser.parseConfigText(OTHER_DOCUMENT) == 0 ? ALL_IN_ORDER : OUT_OF_ORDER);
}

// The process terminates if frames without unwind tables cannot be unwound.
bool isInOrder(int status) {
#ifdef __arm__
    if (WIFSIGNALED(status)) {
        return WTERMSIG(status) == SIGABRT;
    }
#endif
    return WIFEXITED(status) && WEXITSTATUS(status) == ALL_IN_ORDER;
}

TEST(Json11ExhaustionTest, FailureInsideJson11LeavesNoWrongDocument) {
    const QVLogScope log(0, [](const QVLogRecord&) {});
    QVGraphParser parser;
    parser.parseConfigText(OTHER_DOCUMENT);
    const int before = allocations.made;
    parser.parseConfigText(OTHER_DOCUMENT);
    const int all = allocations.made - before;
    EXPECT_GE(all, 8);
    for (const bool once : {true, false}) {
        for (int number = 0; number < all; ++number) {
            EXPECT_EXIT(loadAndLeave(number, once), isInOrder, "") << number;
        }
        EXPECT_EXIT(loadAndLeave(all, once), testing::ExitedWithCode(NOTHING_FAILED), "");
    }
}

}  // namespace
