// Text that is safe for a terminal.
#include "render/text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

namespace {

using qvgraph::columnsOf;
using qvgraph::padded;
using qvgraph::printable;
using namespace std::string_view_literals;  // NOLINT(google-build-using-namespace)

// ---- printable --------------------------------------------------------------

TEST(PrintableTest, LeavesPrintableTextUnchanged) {
    EXPECT_EQ(printable(""), "");
    EXPECT_EQ(printable("raw_frames"), "raw_frames");
    EXPECT_EQ(printable(" ~\\\"'\\x00"), " ~\\\"'\\x00");
    EXPECT_EQ(printable("Türkamera 扉 🚪"), "Türkamera 扉 🚪");
    EXPECT_EQ(printable("\u00a0\u2030\ufffd\U0010ffff"), "\u00a0\u2030\ufffd\U0010ffff");
}

TEST(PrintableTest, ShowsControlCharactersByTheirNumber) {
    EXPECT_EQ(printable("a\nb\rc\td"), R"(a\x0ab\x0dc\x09d)");
    EXPECT_EQ(printable("\0\x01\x1f"sv), R"(\x00\x01\x1f)");
    EXPECT_EQ(printable("\033[31mred\033[0m"), R"(\x1b[31mred\x1b[0m)");
    EXPECT_EQ(printable("\x7f"), R"(\x7f)");
    EXPECT_EQ(printable("\u0080\u009b2J\u009f"), R"(\x80\x9b2J\x9f)");
}

TEST(PrintableTest, ShowsWhatSetsTheDirectionOfTextByItsNumber) {
    EXPECT_EQ(printable("a\u202eb\u200f\u2028\u2066\u2069"),
              "a\\x202eb\\x200f\\x2028\\x2066\\x2069");
    EXPECT_EQ(printable("\u2027\u202f\u2065\u206a\u200d\u2010"),
              "\u2027\u202f\u2065\u206a\u200d\u2010");
}

TEST(PrintableTest, ReplacesWhatIsNotUtf8) {
    EXPECT_EQ(printable("caf\xe9!"), "caf\ufffd!");
    EXPECT_EQ(printable("\xff\xfe"), "\ufffd\ufffd");
    EXPECT_EQ(printable("\x9b"), "\ufffd") << "a lone continuation byte";
    EXPECT_EQ(printable("\xc0\xaf"), "\ufffd") << "a '/' in more bytes than it needs";
    EXPECT_EQ(printable("\xed\xa0\x80"), "\ufffd") << "a surrogate";
    EXPECT_EQ(printable("\xf4\x90\x80\x80"), "\ufffd") << "beyond the last code point";
}

TEST(PrintableTest, ReplacesACharacterThatIsCutOff) {
    EXPECT_EQ(printable("caf\xc3"), "caf\ufffd");
    EXPECT_EQ(printable("\xf0\x9f\x9a"), "\ufffd");
    EXPECT_EQ(printable("\xe6\x89 door"), "\ufffd door");
    EXPECT_EQ(printable("\xe6\n"), "\ufffd\\x0a");
}

// ---- Columns ----------------------------------------------------------------

TEST(ColumnsTest, AreOneForEachCodePoint) {
    EXPECT_EQ(columnsOf(""), 0U);
    EXPECT_EQ(columnsOf("frames"), 6U);
    EXPECT_EQ(columnsOf("Tür"), 3U);
    EXPECT_EQ(columnsOf("扉🚪"), 2U);
}

TEST(PaddedTest, EndsWithBlanks) {
    EXPECT_EQ(padded("", 3), "   ");
    EXPECT_EQ(padded("Tür", 5), "Tür  ");
    EXPECT_EQ(padded("Tür", 3), "Tür");
    EXPECT_EQ(padded("door", 3), "door");
    EXPECT_EQ(padded("", 0), "");
}

// ---- writeWrapped -----------------------------------------------------------

std::string wrapped(const std::string& text, size_t indent) {
    std::ostringstream out;
    qvgraph::writeWrapped(out, text, indent);
    return out.str();
}

std::string xs(size_t number) {
    return std::string(number, 'x');
}

std::string blanks(size_t number) {
    return std::string(number, ' ');
}

TEST(WrappedTest, AnEmptyTextIsAnEmptyLine) {
    EXPECT_EQ(wrapped("", 0), "\n");
    EXPECT_EQ(wrapped("", 9), "\n");
}

TEST(WrappedTest, TextThatFitsStaysOnItsLine) {
    EXPECT_EQ(wrapped("one two", 0), "one two\n");
    EXPECT_EQ(wrapped(xs(80), 0), xs(80) + "\n");
    EXPECT_EQ(wrapped(xs(39) + " " + xs(40), 0), xs(39) + " " + xs(40) + "\n");
    EXPECT_EQ(wrapped(xs(71), 9), xs(71) + "\n");
}

TEST(WrappedTest, BreaksAtTheLastBlankThatFits) {
    EXPECT_EQ(wrapped(xs(40) + " " + xs(30) + " " + xs(20), 0),
              xs(40) + " " + xs(30) + "\n" + xs(20) + "\n");
    EXPECT_EQ(wrapped(xs(80) + " y", 0), xs(80) + "\ny\n");
    EXPECT_EQ(wrapped(xs(79) + " y", 0), xs(79) + "\ny\n");
    EXPECT_EQ(wrapped(xs(78) + " y", 0), xs(78) + " y\n");
}

TEST(WrappedTest, TheBlanksAtABreakAreOmitted) {
    EXPECT_EQ(wrapped(xs(70) + blanks(5) + xs(20), 0), xs(70) + "\n" + xs(20) + "\n");
    EXPECT_EQ(wrapped(xs(80) + blanks(5) + "y", 0), xs(80) + "\ny\n");
}

TEST(WrappedTest, BlanksAtTheEndAddNoLine) {
    EXPECT_EQ(wrapped(xs(80) + "  ", 0), xs(80) + "\n");
}

TEST(WrappedTest, BreaksWithinAWordIfThereIsNoBlank) {
    EXPECT_EQ(wrapped(xs(81), 0), xs(80) + "\nx\n");
    EXPECT_EQ(wrapped(xs(160), 0), xs(80) + "\n" + xs(80) + "\n");
    EXPECT_EQ(wrapped("one " + xs(90), 0), "one\n" + xs(80) + "\n" + xs(10) + "\n");
}

TEST(WrappedTest, FurtherLinesHaveTheSameIndent) {
    EXPECT_EQ(wrapped(xs(60) + " " + xs(60) + " " + xs(60), 10),
              xs(60) + "\n" + blanks(10) + xs(60) + "\n" + blanks(10) + xs(60) + "\n");
    EXPECT_EQ(wrapped(xs(141), 10),
              xs(70) + "\n" + blanks(10) + xs(70) + "\n" + blanks(10) + "x\n");
}

TEST(WrappedTest, CountsCodePointsAndCutsNone) {
    std::string doors;
    for (int i = 0; i < 81; ++i) {
        doors += "扉";
    }
    EXPECT_EQ(wrapped(doors, 0), doors.substr(0, 80 * 3) + "\n扉\n");
}

// A line that is too long is better than a column that is too narrow.
TEST(WrappedTest, ADeepIndentLeavesTwentyColumns) {
    EXPECT_EQ(wrapped(xs(22), 59), xs(21) + "\n" + blanks(59) + "x\n");
    EXPECT_EQ(wrapped(xs(22), 60), xs(20) + "\n" + blanks(60) + "xx\n");
    EXPECT_EQ(wrapped(xs(22), 75), xs(20) + "\n" + blanks(75) + "xx\n");
    EXPECT_EQ(wrapped(xs(22), 200), xs(20) + "\n" + blanks(200) + "xx\n");
}

}  // namespace
