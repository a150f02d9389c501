// Who receives the parser's records during a survey, and the state of the log
// afterwards.
#include <new>
#include <stdexcept>
#include <string>

#include "framework/qv_log.h"
#include "tests/survey/survey_test.h"

namespace {

using qvgraph::loadConfiguration;
using qvgraph::Outcome;
using qvgraph::surveyConfiguration;

void replaceAll(const std::string& from, const std::string& to, std::string* text) {
    for (size_t at = text->find(from); at != std::string::npos; at = text->find(from, at)) {
        text->replace(at, from.size(), to);
        at += to.size();
    }
}

// "level function message", with words for its colours and its line.
std::string recordText(const QVLogRecord& record) {
    std::string message = record.message;
    replaceAll(QV_LOG_RED, "<red>", &message);
    replaceAll(QV_LOG_BLUE, "<blue>", &message);
    replaceAll(QV_LOG_PLAIN, "<plain>", &message);
    replaceAll("\n", "<newline>", &message);
    replaceAll("\t", "<tab>", &message);
    replaceAll(':' + std::to_string(record.line), ":<line>", &message);
    return std::to_string(record.level) + ' ' + record.function + ' ' + message + '\n';
}

class RecordsTest : public SurveyTest {
protected:
    // Collects the records up to a level.
    void Observe(int level) {
        request.records.level = level;
        request.records.sink = [this](const QVLogRecord& record) { records += recordText(record); };
    }

    // The records of a survey that observes this level.
    std::string RecordsUpTo(int level, const std::string& text) {
        Load(text);
        records.clear();
        Observe(level);
        surveyConfiguration(parser, request);
        return records;
    }

    std::string records;
};

// A node without a name, and one whose stream has no name.
const char* const CONFIGURATION = R"({"pipe_0": {
    "link_0": {"depth": "int64:5"},
    "node_0": {},
    "node_1": {"node_opts": {"node_name": "B"}, "stream_opts": {"stream_input": 5}}
}})";

const char* const NO_NODE = "5 initTaskNode failed to node_proxy_node_create(...) for node:\n";

const char* const NO_STREAM_NAME =
    "2 initTaskNode <red>Assertion options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName) "
    "failed at initTaskNode:<line><newline><plain>\n";

TEST_F(RecordsTest, OnlyErrors) {
    EXPECT_EQ(RecordsUpTo(QV_LOG_ERROR, CONFIGURATION), NO_STREAM_NAME);
}

TEST_F(RecordsTest, ErrorsAndNotices) {
    EXPECT_EQ(RecordsUpTo(QV_LOG_NOTICE, CONFIGURATION), std::string(NO_NODE) + NO_STREAM_NAME);
}

TEST_F(RecordsTest, AllRecords) {
    EXPECT_EQ(RecordsUpTo(QV_LOG_INFO, CONFIGURATION),
              R"(6 getDefaultLinkMode <blue>default link mode <plain>
6 getItemNum <blue>item name=link_0 , <tab> tag=executor_<plain>
6 getItemNum <blue>item name=node_0 , <tab> tag=executor_<plain>
6 getItemNum <blue>item name=node_1 , <tab> tag=executor_<plain>
6 getItemNum <blue>item name=link_0 , <tab> tag=link_<plain>
6 getItemNum <blue>item name=node_0 , <tab> tag=link_<plain>
6 getItemNum <blue>item name=node_1 , <tab> tag=link_<plain>
6 syncOptions <blue>sync to node options, node info:<plain>
6 syncOptions <blue>option: key = depth           , opt = "int64:5"       <plain>
6 parseOptions <blue>key=depth value=5<plain>
6 getItemNum <blue>item name=link_0 , <tab> tag=node_<plain>
6 getItemNum <blue>item name=node_0 , <tab> tag=node_<plain>
6 getItemNum <blue>item name=node_1 , <tab> tag=node_<plain>
6 initTaskNode <blue>node proxy: create task node(name=)<plain>
)" + std::string(NO_NODE) +
                  R"(6 getItemNum <blue>item name=stream_input , <tab> tag=stream_input<plain>
6 getItemNum <blue>item name=stream_input , <tab> tag=stream_output<plain>
6 initTaskNode <blue>node proxy: create task node(name=B)<plain>
6 syncOptions <blue>sync to node options, node info:<plain>
6 syncOptions <blue>option: key = node_name       , opt = "B"             <plain>
6 syncOptions <blue>sync to node options, node info:<plain>
6 syncOptions <blue>option: key = stream_input    , opt = 5               <plain>
6 syncOptions <blue>sync to node options, node info:<plain>
6 syncOptions <blue>sync to node options, node info:<plain>
)" + NO_STREAM_NAME);
}

TEST_F(RecordsTest, NoneBelowTheErrors) {
    EXPECT_EQ(RecordsUpTo(QV_LOG_ERROR - 1, CONFIGURATION), "");
}

TEST_F(RecordsTest, TheObservedLevelDoesNotChangeTheSurvey) {
    const std::string survey = textOf(SurveyOf(CONFIGURATION));
    for (int level = 0; level <= QV_LOG_INFO + 1; ++level) {
        Observe(level);
        EXPECT_EQ(textOf(surveyConfiguration(parser, request)), survey) << level;
    }
}

TEST_F(RecordsTest, ARecordHasAllItsFields) {
    request.records.sink = [](const QVLogRecord& record) {
        EXPECT_EQ(record.module, 0x18181802U);
        EXPECT_EQ(record.level, QV_LOG_ERROR);
        EXPECT_STREQ(record.tag, "QVGraphParser");
        EXPECT_STREQ(record.format, QV_ASSERT_FORMAT);
        EXPECT_STREQ(record.function, "initTaskNode");
        EXPECT_GT(record.line, 0);
    };
    EXPECT_EQ(SurveyOf(CONFIGURATION).pipes.at(0).nodes.at(1).outcome, Outcome::WouldAbort);
}

TEST_F(RecordsTest, TheSinkOfTheProcessReceivesNothingOfASurvey) {
    std::string others;
    qv_log_set_sink([&](const QVLogRecord& record) { others += recordText(record); });
    qv_log_set_level(QV_LOG_INFO);
    SurveyOf(CONFIGURATION);
    Observe(QV_LOG_INFO);
    SurveyOf(CONFIGURATION);
    EXPECT_NE(loadConfiguration("{", {}, &parser), std::nullopt);
    EXPECT_EQ(others, "");
}

// ---- Level and sink afterwards -----------------------------------------------

class LogStateTest : public RecordsTest {
protected:
    LogStateTest() {
        qv_log_set_level(4);
        qv_log_set_sink([this](const QVLogRecord& record) { others += recordText(record); });
    }

    // The level and the sink are those at the beginning of the test.
    void AssertAsBefore() {
        EXPECT_EQ(qv_log_level(), 4);
        others.clear();
        qv_log(1, 4, "test", "here", "AssertAsBefore", 1);
        EXPECT_EQ(others, "4 AssertAsBefore here\n");
    }

    std::string others;
};

TEST_F(LogStateTest, IsRestoredAfterASurvey) {
    SurveyOf(CONFIGURATION);
    AssertAsBefore();
    Observe(QV_LOG_INFO);
    SurveyOf(CONFIGURATION);
    AssertAsBefore();
}

TEST_F(LogStateTest, IsRestoredAfterALoad) {
    EXPECT_EQ(loadConfiguration("{}", request.records, &parser), std::nullopt);
    AssertAsBefore();
    EXPECT_NE(loadConfiguration("{", request.records, &parser), std::nullopt);
    AssertAsBefore();
}

TEST_F(LogStateTest, IsRestoredIfANodeRunsOutOfMemory) {
    RegisterCreator("Greedy",
                    [](const _QVNodeInfo*) -> QVTaskNodeBase* { throw std::bad_alloc(); });
    EXPECT_THROW(SurveyOf(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "Greedy"}}}})"),
                 std::bad_alloc);
    AssertAsBefore();
}

TEST_F(LogStateTest, IsRestoredIfTheProgressThrows) {
    request.progress = [](size_t /*done*/, size_t /*total*/) { throw std::runtime_error("stop"); };
    EXPECT_THROW(SurveyOf(R"({"pipe_0": {}})"), std::runtime_error);
    AssertAsBefore();
}

TEST_F(LogStateTest, IsRestoredIfTheObserverThrows) {
    request.records.level = QV_LOG_INFO;
    request.records.sink = [](const QVLogRecord& /*record*/) { throw std::runtime_error("stop"); };
    Load(CONFIGURATION);
    EXPECT_THROW(surveyConfiguration(parser, request), std::runtime_error);
    AssertAsBefore();
    EXPECT_THROW(loadConfiguration("{", request.records, &parser), std::runtime_error);
    AssertAsBefore();
}

}  // namespace
