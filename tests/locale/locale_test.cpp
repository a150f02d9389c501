// A host program that calls setlocale: in a locale with a decimal comma, options
// of type float and double need a comma, and records contain one. Except for
// numbers with a fraction and an exponent, nothing else changes.
// `scripts/locale` creates such a locale and runs these tests in it.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"

namespace {

class LocaleTest : public testing::Test {
protected:
    void SetUp() override {
        setlocale(LC_ALL, "");
        if (std::string(localeconv()->decimal_point) != ",") {
            GTEST_SKIP() << "the environment has no locale with a decimal comma";
        }
    }
    void TearDown() override { setlocale(LC_ALL, "C"); }

    // The stored value of one option, and its log record.
    std::string Stored(const std::string& json) {
        std::string records;
        const QVLogScope log(QV_LOG_INFO, [&](const QVLogRecord& record) {
            const std::string line = qv_log_line(record, false);
            records += line.substr(line.find(": ") + 2);
        });
        EXPECT_EQ(parser.parseConfigText(("{\"key\": " + json + "}").c_str()), 0);
        QVHostMetaData store;
        parser.parseOptions(&store, "key", parser.root()["key"]);
        int32_t number = 0;
        float real = 0;
        if (store.findInt32("key", &number) != 0) {
            return std::to_string(number) + " " + records;
        }
        if (store.findFloat("key", &real) != 0) {
            return std::to_string(static_cast<int>(real * 1000)) + "/1000 " + records;
        }
        return "neither";
    }

    QVGraphParser parser;
};

}  // namespace

TEST_F(LocaleTest, NumbersKeepTheirIntegerPart) {
    EXPECT_EQ(Stored("25"), "25 ");
    EXPECT_EQ(Stored("3.9"), "3 ");
    EXPECT_EQ(Stored("-3.9"), "-3 ");
    EXPECT_EQ(Stored("12345678901"), "2147483647 ");
    EXPECT_EQ(Stored("1e3"), "1000 ");
}

// The exponent comes after the part that strtod reads.
TEST_F(LocaleTest, NumberWithFractionAndExponentIsTruncatedAtItsPoint) {
    EXPECT_EQ(Stored("1.5e3"), "1 ");
}

TEST_F(LocaleTest, IntegerOptionsDoNotChange) {
    EXPECT_EQ(Stored("\"int32:42\""), "42 key=key value=42");
}

TEST_F(LocaleTest, FloatOptionsEndAtTheirPoint) {
    EXPECT_EQ(Stored("\"float:1.5\""), "1000/1000 key=key value=1,000000");
    EXPECT_EQ(Stored("\"double:1.5\""), "1000/1000 key=key value=1,000000");
}

TEST_F(LocaleTest, FloatOptionsAcceptAComma) {
    EXPECT_EQ(Stored("\"float:1,5\""), "1500/1000 key=key value=1,500000");
}
