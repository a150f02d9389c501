// Cycles and connected groups of directed graphs.
#include "check/directed_graph.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using qvgraph::cyclesIn;
using qvgraph::Edges;
using qvgraph::groupsIn;

// "0 1 0, 2 3 2".
std::string textOf(const std::vector<std::vector<size_t>>& lists) {
    std::string text;
    for (const std::vector<size_t>& list : lists) {
        text += text.empty() ? "" : ",";
        for (const size_t number : list) {
            text += (text.empty() ? "" : " ") + std::to_string(number);
        }
    }
    return text;
}

void assertCycles(const Edges& edges, const std::string& cycles) {
    EXPECT_EQ(textOf(cyclesIn(edges)), cycles);
}

void assertGroups(const Edges& edges, const std::string& groups) {
    EXPECT_EQ(textOf(groupsIn(edges)), groups);
}

// A chain of nodes, each with an edge to the next.
Edges chainOf(size_t nodes) {
    Edges edges(nodes);
    for (size_t i = 0; i + 1 < nodes; ++i) {
        edges[i] = {i + 1};
    }
    return edges;
}

const size_t MANY = 200000;

TEST(CyclesTest, AGraphMayHaveNoCycle) {
    assertCycles({}, "");
    assertCycles({{}}, "");
    assertCycles({{1, 2}, {2}, {}}, "");
    assertCycles({{1, 2}, {3}, {3}, {}}, "");
}

TEST(CyclesTest, AnEdgeFromANodeToItselfIsNotACycle) {
    assertCycles({{0}}, "");
    assertCycles({{0, 1}, {1}}, "");
}

TEST(CyclesTest, ACycleBeginsAndEndsWithItsFirstNode) {
    assertCycles({{1}, {0}}, "0 1 0");
    assertCycles({{2}, {0}, {1}}, "0 2 1 0");
    assertCycles({{0, 1}, {1, 0}}, "0 1 0");
}

TEST(CyclesTest, TheShortestCycleThroughANodeIsReported) {
    assertCycles({{1}, {2, 0}, {0}}, "0 1 0");
    assertCycles({{1, 3}, {2}, {0}, {0}}, "0 3 0");
}

TEST(CyclesTest, EachGroupHasOneCycle) {
    assertCycles({{1}, {0, 2}, {3}, {2}}, "0 1 0, 2 3 2");
    assertCycles({{1}, {2}, {1, 3}, {0}}, "0 1 2 3 0");
    assertCycles({{1}, {2}, {3}, {2}}, "2 3 2");
}

TEST(CyclesTest, EdgesMayBeDuplicate) {
    assertCycles({{1, 1}, {0, 0}}, "0 1 0");
}

TEST(CyclesTest, LongChainsDoNotOverflowTheStack) {
    Edges edges = chainOf(MANY);
    assertCycles(edges, "");
    edges.back() = {0};
    ASSERT_EQ(cyclesIn(edges).size(), 1U);
    EXPECT_EQ(cyclesIn(edges)[0].size(), MANY + 1);
}

TEST(GroupsTest, ANodeWithoutEdgesIsAGroup) {
    assertGroups({}, "");
    assertGroups({{}, {}, {}}, "0, 1, 2");
    assertGroups({{0}, {}}, "0, 1");
}

TEST(GroupsTest, EdgesConnectInEitherDirection) {
    assertGroups({{1}, {}, {}}, "0 1, 2");
    assertGroups({{}, {0}, {}}, "0 1, 2");
    assertGroups({{}, {}, {0, 1}}, "0 1 2");
}

TEST(GroupsTest, GroupsAreInTheOrderOfTheirFirstNodes) {
    assertGroups({{3}, {2}, {}, {}, {1}}, "0 3, 1 2 4");
    assertGroups({{}, {3}, {0}, {}, {}}, "0 2, 1 3, 4");
}

TEST(GroupsTest, LongChainsDoNotOverflowTheStack) {
    const std::vector<std::vector<size_t>> groups = groupsIn(chainOf(MANY));
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].size(), MANY);
}

}  // namespace
