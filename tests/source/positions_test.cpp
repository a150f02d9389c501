// Lines and columns of bytes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "source/source.h"

namespace {

using qvgraph::Position;
using qvgraph::Source;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

// "line:column" of every byte of a text, and of its end.
std::string positionsIn(const std::string& text) {
    const Source source(text);
    std::string all;
    for (size_t byte = 0; byte <= text.size(); ++byte) {
        const Position position = source.position(byte);
        EXPECT_EQ(position.byte, byte);
        all += (all.empty() ? "" : " ") + std::to_string(position.line) + ':' +
               std::to_string(position.column);
    }
    return all;
}

std::vector<std::string> linesOf(const std::string& text) {
    const Source source(text);
    std::vector<std::string> lines;
    for (size_t number = 1; number <= source.lineCount(); ++number) {
        lines.emplace_back(source.line(number));
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(PositionTest, CountsFromOne) {
    EXPECT_EQ(positionsIn(""), "1:1");
    EXPECT_EQ(positionsIn("[]"), "1:1 1:2 1:3");
}

TEST(PositionTest, ALineEndBelongsToItsLine) {
    EXPECT_EQ(positionsIn("a\nb"), "1:1 1:2 2:1 2:2");
    EXPECT_EQ(positionsIn("a\r\nb"), "1:1 1:2 1:3 2:1 2:2");
    EXPECT_EQ(positionsIn("\n\n"), "1:1 2:1 3:1");
}

TEST(PositionTest, ALoneCarriageReturnEndsNoLine) {
    EXPECT_EQ(positionsIn("a\rb"), "1:1 1:2 1:3 1:4");
    EXPECT_EQ(positionsIn("\r\r\n"), "1:1 1:2 1:3 2:1");
}

TEST(PositionTest, ATabIsOneColumn) {
    EXPECT_EQ(positionsIn("\t\ta"), "1:1 1:2 1:3 1:4");
}

TEST(PositionTest, ACodePointIsOneColumn) {
    EXPECT_EQ(positionsIn("é!"), "1:1 1:1 1:2 1:3");
    EXPECT_EQ(positionsIn("扉!"), "1:1 1:1 1:1 1:2 1:3");
    EXPECT_EQ(positionsIn("🚪!"), "1:1 1:1 1:1 1:1 1:2 1:3");
    EXPECT_EQ(positionsIn("\u07ff\uffff\U0010ffff"), "1:1 1:1 1:2 1:2 1:2 1:3 1:3 1:3 1:3 1:4");
    EXPECT_EQ(positionsIn("\u0080\u0800\U00010000"), "1:1 1:1 1:2 1:2 1:2 1:3 1:3 1:3 1:3 1:4");
    EXPECT_EQ(positionsIn("\ue000\ud7ff"), "1:1 1:1 1:1 1:2 1:2 1:2 1:3");
}

TEST(PositionTest, AByteThatIsNotUtf8IsOneColumn) {
    EXPECT_EQ(positionsIn("\xff!"), "1:1 1:2 1:3");
    EXPECT_EQ(positionsIn("\x80\x80"), "1:1 1:2 1:3") << "continuations of nothing";
    EXPECT_EQ(positionsIn("\xc3!"), "1:1 1:2 1:3") << "cut off";
    EXPECT_EQ(positionsIn("\xe6\x89"), "1:1 1:2 1:3") << "cut off by the end";
    EXPECT_EQ(positionsIn("\xe6\x89\n"), "1:1 1:2 1:3 2:1") << "cut off by the line's end";
    EXPECT_EQ(positionsIn("\xc0\xaf"), "1:1 1:2 1:3") << "longer than it needs to be";
    EXPECT_EQ(positionsIn("\xe0\x9f\xbf"), "1:1 1:2 1:3 1:4") << "longer than it needs to be";
    EXPECT_EQ(positionsIn("\xf0\x8f\xbf\xbf"), "1:1 1:2 1:3 1:4 1:5") << "the same";
    EXPECT_EQ(positionsIn("\xed\xa0\x80"), "1:1 1:2 1:3 1:4") << "a surrogate";
    EXPECT_EQ(positionsIn("\xf4\x90\x80\x80"), "1:1 1:2 1:3 1:4 1:5") << "beyond the last";
    EXPECT_EQ(positionsIn("\xf5\x80\x80\x80"), "1:1 1:2 1:3 1:4 1:5") << "beyond the last";
}

TEST(PositionTest, FindsALineAmongMany) {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += "[\n";
    }
    const Source source(text);
    EXPECT_EQ(source.position(1998).line, 1000U);
    EXPECT_EQ(source.position(1999).line, 1000U);
    EXPECT_EQ(source.position(1999).column, 2U);
    EXPECT_EQ(source.position(2000).line, 1001U);
}

TEST(LinesTest, AreSeparatedByLineEnds) {
    EXPECT_EQ(linesOf(""), Lines({""}));
    EXPECT_EQ(linesOf("{}"), Lines({"{}"}));
    EXPECT_EQ(linesOf("{}\n"), Lines({"{}", ""}));
    EXPECT_EQ(linesOf("{\r\n\r\n}\n"), Lines({"{", "", "}", ""}));
    EXPECT_EQ(linesOf("\n{\n}"), Lines({"", "{", "}"}));
}

TEST(LinesTest, ExcludeOneCarriageReturnBeforeALineFeed) {
    EXPECT_EQ(linesOf("a\r\r\nb\rc\n\r"), Lines({"a\r", "b\rc", "\r"}));
}

TEST(LinesTest, CountFromTheBeginningOfTheTextWhateverPartIsScanned) {
    const Source source("a\n[1]\nb", 2, 5);
    EXPECT_EQ(source.lineCount(), 3U);
    EXPECT_EQ(source.line(2), "[1]");
    EXPECT_EQ(source.position(source.root()->span.begin).line, 2U);
}

}  // namespace
