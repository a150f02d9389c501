// The parser splits any string option as sscanf does with the pattern
// "%[^:]:%[^:]".
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/same_as_scan.h"

namespace {

// The bytes that matter, and their neighbours inside and outside ASCII.
const std::vector<std::string> PIECES = {":",
                                         "int32",
                                         "int64",
                                         "float",
                                         "double",
                                         " ",
                                         "\t",
                                         "7",
                                         "0x1F",
                                         "-1.5",
                                         "1e39",
                                         "inf",
                                         "\n",
                                         "%s",
                                         "\xff",
                                         "x",
                                         "99999999999"};

// Calls `visit` with every string of up to `length` of the pieces.
template <typename Visit>
void forEachText(const std::string& begin, int length, const Visit& visit) {
    visit(begin);
    if (length == 0) {
        return;
    }
    for (const std::string& piece : PIECES) {
        forEachText(begin + piece, length - 1, visit);
    }
}

TEST(OptionScanTest, ShortStringsAreSplitAsSscanfDoes) {
    int texts = 0;
    forEachText("", 4, [&](const std::string& text) {
        ++texts;
        ASSERT_EQ(differenceFromScan(text), "");
    });
    EXPECT_EQ(texts, 1 + 17 + 17 * 17 + 17 * 17 * 17 + 17 * 17 * 17 * 17);
}

TEST(OptionScanTest, StringsAroundTheMaximumLengthAreSplitAsSscanfDoes) {
    for (size_t colon = 0; colon <= 129; ++colon) {
        for (size_t length = 120; length <= 130; ++length) {
            std::string text(length, '1');
            if (colon < length) {
                text[colon] = ':';
            }
            ASSERT_EQ(differenceFromScan(text), "");
            ASSERT_EQ(differenceFromScan("int32:" + text), "");
        }
    }
}

TEST(OptionScanTest, ArbitraryBytesAreSplitAsSscanfDoes) {
    std::mt19937 random(20261121);
    for (int i = 0; i < 50000; ++i) {
        std::string text(random() % 140, '\0');
        for (char& byte : text) {
            const auto drawn = static_cast<unsigned>(random());
            byte = drawn % 8 == 0 ? ':' : static_cast<char>(drawn >> 8);
        }
        ASSERT_EQ(differenceFromScan(text), "");
        ASSERT_EQ(differenceFromScan("int64:" + text), "");
    }
}

}  // namespace
