// Words of messages, and names that resemble each other.
#include "check/similar.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "survey/words.h"

namespace {

using qvgraph::counted;
using qvgraph::distanceBetween;
using qvgraph::listOf;
using qvgraph::nearestTo;

TEST(WordsTest, QuotesAString) {
    EXPECT_EQ(qvgraph::quoted(""), "''");
    EXPECT_EQ(qvgraph::quoted("node_0"), "'node_0'");
    EXPECT_EQ(qvgraph::quoted(std::string(60, 'x')), "'" + std::string(60, 'x') + "'");
}

TEST(WordsTest, CutsALongString) {
    EXPECT_EQ(qvgraph::quoted(std::string(61, 'x')), "'" + std::string(60, 'x') + "...'");
}

TEST(WordsTest, CutsBetweenCodePoints) {
    const std::string start(57, 'x');
    EXPECT_EQ(qvgraph::quoted(start + "\u20ac!"), "'" + start + "\u20ac...'");
    EXPECT_EQ(qvgraph::quoted(start + "x\u20ac"), "'" + start + "x...'");
    EXPECT_EQ(qvgraph::quoted(start + "xx\u20ac"), "'" + start + "xx...'");
    EXPECT_EQ(qvgraph::quoted(start + "xxx\u20ac"), "'" + start + "xxx...'");
}

TEST(WordsTest, ListsWords) {
    EXPECT_EQ(listOf({}), "");
    EXPECT_EQ(listOf({"a"}), "a");
    EXPECT_EQ(listOf({"a", "b"}), "a and b");
    EXPECT_EQ(listOf({"a", "b", "c"}), "a, b and c");
    EXPECT_EQ(listOf({"a", "b", "c", "d", "e", "f"}), "a, b, c, d, e and f");
}

TEST(WordsTest, ListsOnlyTheFirstOfManyWords) {
    EXPECT_EQ(listOf({"a", "b", "c", "d", "e", "f", "g"}), "a, b, c, d, e, f and 1 more");
    EXPECT_EQ(listOf({"a", "b", "c", "d"}, 1), "a and 3 more");
}

TEST(WordsTest, CountsThings) {
    EXPECT_EQ(counted(0, "node"), "0 nodes");
    EXPECT_EQ(counted(1, "node"), "1 node");
    EXPECT_EQ(counted(2, "node"), "2 nodes");
}

TEST(SimilarTest, CountsChangesBetweenStrings) {
    EXPECT_EQ(distanceBetween("", "", 3), 0U);
    EXPECT_EQ(distanceBetween("frames", "frames", 3), 0U);
    EXPECT_EQ(distanceBetween("frames", "framess", 3), 1U);
    EXPECT_EQ(distanceBetween("frames", "fraes", 3), 1U);
    EXPECT_EQ(distanceBetween("frames", "frumes", 3), 1U);
    EXPECT_EQ(distanceBetween("frames", "farmes", 3), 1U);
    EXPECT_EQ(distanceBetween("frames", "rfames", 3), 1U);
    EXPECT_EQ(distanceBetween("frames", "framse", 3), 1U);
    EXPECT_EQ(distanceBetween("", "abc", 3), 3U);
    EXPECT_EQ(distanceBetween("kitten", "sitting", 3), 3U);
}

TEST(SimilarTest, OnlyNeighbouringLettersSwap) {
    EXPECT_EQ(distanceBetween("abc", "bca", 3), 2U);
    EXPECT_EQ(distanceBetween("ca", "abc", 3), 3U);
}

TEST(SimilarTest, StopsCountingAtTheLimit) {
    EXPECT_EQ(distanceBetween("kitten", "sitting", 2), 3U);
    EXPECT_EQ(distanceBetween("a", "abcdef", 3), 4U);
    EXPECT_EQ(distanceBetween("abcdef", "uvwxyz", 3), 4U);
    EXPECT_EQ(distanceBetween("a", "b", 0), 1U);
    EXPECT_EQ(distanceBetween("a", "a", 0), 0U);
}

TEST(SimilarTest, FindsTheNearestName) {
    EXPECT_EQ(nearestTo("stream_inptu", {"stream_output", "stream_input"}), "stream_input");
    EXPECT_EQ(nearestTo("frames", {"frame", "frames"}), "frames");
}

TEST(SimilarTest, FindsTheFirstOfEquallyNearNames) {
    EXPECT_EQ(nearestTo("frame_x", {"frame_2", "frame_1"}), "frame_2");
}

TEST(SimilarTest, LimitDependsOnTheLengthOfTheName) {
    EXPECT_EQ(nearestTo("ab", {"ax"}), "ax");
    EXPECT_EQ(nearestTo("abcde", {"abcxy"}), "");
    EXPECT_EQ(nearestTo("abcdef", {"abcdxy"}), "abcdxy");
    EXPECT_EQ(nearestTo("abcdefghi", {"abcdefxyz"}), "abcdefxyz");
    EXPECT_EQ(nearestTo("abcdefghijklm", {"abcdefghiwxyz"}), "");
}

TEST(SimilarTest, FindsNothingWithoutCandidates) {
    EXPECT_EQ(nearestTo("frames", {}), "");
}

}  // namespace
