// Edge cases of the host framework's logger: the neighbours of the escaped
// characters, and formats that the C library rejects.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/qv_host_log.h"

namespace {

// The data as it appears in a line.
std::string shown(const std::string& data) {
    const std::string line = qv_log_line({1, 2, "tag", "%s", "function", 7, data.c_str()}, false);
    const std::string start = "tag error function:7: ";
    EXPECT_EQ(line.substr(0, start.size()), start);
    return line.substr(start.size());
}

struct Character {
    const char* text;
    const char* shown;
};

}  // namespace

TEST(LogLimitsTest, LineAndDirectionControlCharactersAreEscaped) {
    for (const Character& character : std::vector<Character>{
             {"\u009f", "\\xc2\\x9f"},
             {"\u200e", "\\xe2\\x80\\x8e"},
             {"\u200f", "\\xe2\\x80\\x8f"},
             {"\u2028", "\\xe2\\x80\\xa8"},
             {"\u2029", "\\xe2\\x80\\xa9"},
             {"\u202a", "\\xe2\\x80\\xaa"},
             {"\u202e", "\\xe2\\x80\\xae"},
             {"\u2066", "\\xe2\\x81\\xa6"},
             {"\u2069", "\\xe2\\x81\\xa9"},
         }) {
        EXPECT_EQ(shown(character.text), character.shown);
    }
}

TEST(LogLimitsTest, TheirNeighboursAreUnchanged) {
    for (const char* text : {" ",
                             "~",
                             "\u00a0",
                             "\u200d",
                             "\u2010",
                             "\u2027",
                             "\u202f",
                             "\u2065",
                             "\u206a",
                             "\u2070"}) {
        EXPECT_EQ(shown(text), text);
    }
}

TEST(LogLimitsTest, OnlyTheColourOfTheFormatIsRemoved) {
    const QVLogRecord record = {1, 2, "tag", QV_LOG_RED "%s", "function", 7, "no colour"};
    EXPECT_EQ(qv_log_line(record, false), "tag error function:7: no colour");
}

// An invalid wide character cannot be formatted.
TEST(LogLimitsTest, RecordThatCannotBeFormattedShowsItsFormat) {
    std::string message;
    const QVLogScope log(QV_LOG_ERROR,
                         [&](const QVLogRecord& record) { message = record.message; });
    qv_err(1, QV_LOG_ERROR, "tag", "no character: %lc", "function", 1, wint_t{0x7fffffff});
    EXPECT_EQ(message, "no character: %lc");
}
