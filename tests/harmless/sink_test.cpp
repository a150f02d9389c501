// Every record of the parser through the host framework's default sink, which
// writes to standard error: one line each, without any control character of the
// configuration.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"
#include "tests/support/harmful_text.h"

namespace {

class SinkTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }
    void TearDown() override { QVNodeRegistry::instance().setStub(false); }

    // Provokes every record except that of a failed assertion.
    static void AskEverything(const std::string& document) {
        QVGraphParser parser;
        ASSERT_EQ(parser.parseConfigText(document.c_str()), 0);
        parser.getDefaultLinkMode(0);
        parser.getNodeNum(0);
        parser.getNodeIDByIndex(7, 0);
        QVHostMetaData store;
        parser.syncExecOptions(&store, 0, 1);
        parser.syncLinkOptions(&store, 0, 1);
        QVHostTaskGraph graph;
        for (const int id : {0, 1, 4, 5}) {
            QVNodeOwner node;
            parser.initTaskNode(&graph, 0, id, node.info());
        }
        QVNodeOwner node;
        EXPECT_THROW(parser.initTaskNode(&graph, 0, 3, node.info()), std::logic_error);
        parser.initTaskNode(nullptr, 0, 0, nullptr);
        parser.parseConfigText(("[" + document).c_str());
        parser.parseConfigFile((document + "/nowhere").c_str());
    }

    // Returns the number of records; `written` receives what the sink wrote.
    static size_t RecordsOf(const std::string& document, std::string* written) {
        size_t records = 0;
        {
            const QVLogScope log(QV_LOG_INFO, [&](const QVLogRecord&) { ++records; });
            AskEverything(document);
        }
        const QVLogScope log(QV_LOG_INFO, nullptr);
        testing::internal::CaptureStderr();
        AskEverything(document);
        *written = testing::internal::GetCapturedStderr();
        return records;
    }
};

TEST_F(SinkTest, EachRecordIsOneHarmlessLine) {
    std::string written;
    const size_t records = RecordsOf(fullOf(HARMFUL), &written);
    EXPECT_GT(records, 80U);
    EXPECT_EQ(linesOf(written), records);
    EXPECT_EQ(harmIn(written), "");
}

TEST_F(SinkTest, ConversionsAreNotInterpreted) {
    std::string plain;
    std::string written;
    const size_t records = RecordsOf(fullOf("QQQQ"), &plain);
    EXPECT_EQ(RecordsOf(fullOf("%n%s"), &written), records);
    for (size_t at = written.find("%n%s"); at != std::string::npos; at = written.find("%n%s", at)) {
        written.replace(at, 4, "QQQQ");
    }
    EXPECT_EQ(written, plain);
}

}  // namespace
