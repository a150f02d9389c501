// The small helpers of framework/qv_log.h.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>

#include "framework/qv_log.h"

// ---- util_snprintf ----------------------------------------------------------

TEST(SnprintfTest, FormatsIntoTheBuffer) {
    char buffer[32];
    util_snprintf(buffer, sizeof(buffer), "%s_%d %5.2f%%", "pipe", -3, 2.5);
    EXPECT_STREQ(buffer, "pipe_-3  2.50%");
}

TEST(SnprintfTest, WritesAtMostTheSizeIncludingTheNul) {
    char buffer[] = "????????";
    util_snprintf(buffer, 4, "%s", "abcdef");
    EXPECT_EQ(std::string(buffer, sizeof(buffer)), std::string("abc\0????", 8) + '\0');
}

TEST(SnprintfTest, TextThatFillsTheBufferIsComplete) {
    char buffer[] = "????";
    util_snprintf(buffer, 4, "%s", "abc");
    EXPECT_EQ(std::string(buffer, sizeof(buffer)), std::string("abc\0", 4) + '\0');
}

TEST(SnprintfTest, SizeOfOneHoldsOnlyTheNul) {
    char buffer[] = "????";
    util_snprintf(buffer, 1, "%s", "abc");
    EXPECT_EQ(std::string(buffer, 4), std::string("\0???", 4));
}

TEST(SnprintfTest, SizeOfZeroWritesNothing) {
    char buffer[] = "????";
    util_snprintf(buffer, 0, "%s", "abc");
    EXPECT_STREQ(buffer, "????");
}

// ---- util_to_string ---------------------------------------------------------

TEST(ToStringTest, WritesPlainDecimalText) {
    EXPECT_EQ(util_to_string(0), "0");
    EXPECT_EQ(util_to_string(7), "7");
    EXPECT_EQ(util_to_string(-1), "-1");
    EXPECT_EQ(util_to_string(1234567), "1234567");
    EXPECT_EQ(util_to_string(INT_MAX), "2147483647");
    EXPECT_EQ(util_to_string(INT_MIN), "-2147483648");
}

// ---- util_strcasecmp --------------------------------------------------------

TEST(StrcasecmpTest, IgnoresTheCaseOfAsciiLetters) {
    EXPECT_EQ(util_strcasecmp("", ""), 0);
    EXPECT_EQ(util_strcasecmp("exec_thread_num", "exec_thread_num"), 0);
    EXPECT_EQ(util_strcasecmp("exec_thread_num", "EXEC_Thread_nUM"), 0);
    EXPECT_EQ(util_strcasecmp("abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"), 0);
    EXPECT_EQ(util_strcasecmp("\xc3\xa4x", "\xc3\xa4X"), 0);
}

TEST(StrcasecmpTest, DistinguishesOtherStrings) {
    EXPECT_NE(util_strcasecmp("", "a"), 0);
    EXPECT_NE(util_strcasecmp("a", ""), 0);
    EXPECT_NE(util_strcasecmp("exec_thread_num", "exec_thread_nums"), 0);
    EXPECT_NE(util_strcasecmp("exec_thread_num ", "exec_thread_num"), 0);
    EXPECT_NE(util_strcasecmp("exec_thread_num", "exec-thread-num"), 0);
    // Neighbours of the letters, 32 apart like the two cases.
    EXPECT_NE(util_strcasecmp("@", "`"), 0);
    EXPECT_NE(util_strcasecmp("[", "{"), 0);
    EXPECT_NE(util_strcasecmp("_", "\x7f"), 0);
    // The same letter in two cases in Latin-1 and in UTF-8, but not in ASCII.
    EXPECT_NE(util_strcasecmp("\xe4", "\xc4"), 0);
    EXPECT_NE(util_strcasecmp("\xc3\xa4", "\xc3\x84"), 0);
}

// ---- qv_memset --------------------------------------------------------------

TEST(MemsetTest, FillsTheGivenNumberOfBytes) {
    std::array<unsigned char, 4> memory = {1, 2, 3, 4};
    qv_memset(memory.data(), 0xab, 3);
    EXPECT_EQ(memory, (std::array<unsigned char, 4>{0xab, 0xab, 0xab, 4}));
    qv_memset(memory.data(), 0, 0);
    EXPECT_EQ(memory, (std::array<unsigned char, 4>{0xab, 0xab, 0xab, 4}));
}
