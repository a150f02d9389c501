// The parser on a recording framework: the fixture that the tests of this
// directory share.
#ifndef QVGRAPH_TESTS_GRAPH_PARSER_TEST_H_
#define QVGRAPH_TESTS_GRAPH_PARSER_TEST_H_

#include <gtest/gtest.h>

#include <json11.hpp>
#include <string>

#include "framework/qv_log.h"
#include "graph/qv_graph_parser.h"
#include "tests/support/recording_framework.h"

class ParserTest : public testing::Test {
protected:
    // Every record of every test follows the rules for all records.
    void TearDown() override {
        for (const LogRecord& record : framework.records) {
            ExpectWellFormed(record);
        }
    }

    // Loads a valid configuration.
    void Load(const std::string& text) {
        ASSERT_EQ(parser.parseConfigText(text.c_str()), 0);
        ASSERT_EQ(framework.takeTrace(), "\n");
    }

    // Parses a value of a configuration.
    static json11::Json Value(const std::string& text) {
        std::string error;
        json11::Json value = json11::Json::parse(text, error);
        EXPECT_EQ(error, "") << text;
        return value;
    }

    RecordingFramework framework;
    QVGraphParser parser;

    // A const parser: everything except loading.
    const QVGraphParser& reader = parser;

private:
    static void ExpectWellFormed(const LogRecord& record) {
        SCOPED_TRACE(record.text);
        EXPECT_EQ(record.module, 0x18181802U);
        EXPECT_EQ(record.tag, "QVGraphParser");
        EXPECT_GT(record.line, 0);
        EXPECT_LT(record.line, 1000) << "no source of the parser is that long";
        EXPECT_EQ(record.fromErr, record.level == 2);
        ExpectColoured(record);
    }

    static void ExpectColoured(const LogRecord& record) {
        const bool hasEscape = record.format.find('\033') != std::string::npos;
        const std::string start = record.format.substr(0, 9);
        switch (record.level) {
            case 2:
                EXPECT_EQ(start, "\033[31m\033[1m");
                break;
            case 6:
                EXPECT_EQ(start, "\033[34m\033[1m");
                break;
            default:
                EXPECT_EQ(record.level, 5);
                EXPECT_FALSE(hasEscape);
                return;
        }
        ASSERT_GE(record.format.size(), 13U);
        EXPECT_EQ(record.format.substr(record.format.size() - 4), "\033[0m");
    }
};

#endif  // QVGRAPH_TESTS_GRAPH_PARSER_TEST_H_
