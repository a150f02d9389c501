// The desk's task graph.
#include "host/qv_host_task_graph.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>
#include <vector>

namespace {

using Refusal = QVHostTaskGraph::Refusal;

class TaskGraphTest : public testing::Test {
protected:
    // All streams: "id name: producer > consumers", one a line, '-' for a
    // producer that is not there.
    void AssertStreams(const std::string& expected) {
        std::string actual;
        for (const QVHostTaskGraph::Stream& stream : desk.streams()) {
            actual += std::to_string(stream.id) + ' ' + stream.name + ": ";
            actual += stream.producer ? std::to_string(*stream.producer) : "-";
            actual += " >";
            for (const int consumer : stream.consumers) {
                actual += ' ' + std::to_string(consumer);
            }
            actual += '\n';
        }
        EXPECT_EQ(actual, expected);
    }

    void AssertRefused(const std::string& name, bool input, std::optional<int> producer) {
        ASSERT_TRUE(desk.refusal().has_value());
        EXPECT_EQ(desk.refusal()->name, name);
        EXPECT_EQ(desk.refusal()->input, input);
        EXPECT_EQ(desk.refusal()->producer, producer);
    }

    void AssertNothingRefused() { EXPECT_FALSE(desk.refusal().has_value()); }

    QVHostTaskGraph desk;

    // As the parser sees it.
    QVTaskGraphConfig& graph = desk;
};

}  // namespace

TEST_F(TaskGraphTest, StartsWithoutStreams) {
    AssertStreams("");
    AssertNothingRefused();
}

// ---- Ids --------------------------------------------------------------------

TEST_F(TaskGraphTest, IdsCountFromZeroInTheOrderOfFirstMention) {
    EXPECT_EQ(graph.addOutputStream("zebra"), 0);
    EXPECT_EQ(graph.addInputStream("ant"), 1);
    EXPECT_EQ(graph.addOutputStream("mole"), 2);
    AssertStreams(
        "0 zebra: 0 >\n"
        "1 ant: - > 0\n"
        "2 mole: 0 >\n");
}

TEST_F(TaskGraphTest, NameHasOneIdWhoeverGivesOrTakesIt) {
    desk.beginNode(1);
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    EXPECT_EQ(graph.addOutputStream("meta"), 1);
    desk.beginNode(2);
    EXPECT_EQ(graph.addInputStream("meta"), 1);
    EXPECT_EQ(graph.addInputStream("raw"), 0);
    AssertStreams(
        "0 raw: 1 > 2\n"
        "1 meta: 1 > 2\n");
}

TEST_F(TaskGraphTest, EachGraphCountsFromZero) {
    QVHostTaskGraph other;
    graph.addOutputStream("raw");
    EXPECT_EQ(other.addOutputStream("boxes"), 0);
    EXPECT_EQ(other.addOutputStream("raw"), 1);
    AssertStreams("0 raw: 0 >\n");
}

TEST_F(TaskGraphTest, NamesAreEqualOnlyByteForByte) {
    const std::vector<std::string> names = {
        "raw", "Raw", "raw ", " raw", "ra", "raw0", std::string("raw\0x", 5), "\xff"};
    for (size_t id = 0; id < names.size(); ++id) {
        EXPECT_EQ(graph.addOutputStream(names[id]), static_cast<int>(id)) << names[id];
    }
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, StreamStandsAtItsId) {
    for (int number = 0; number < 5000; ++number) {
        graph.addInputStream("stream " + std::to_string(number));
    }
    ASSERT_EQ(desk.streams().size(), 5000U);
    for (int number = 0; number < 5000; ++number) {
        const auto& stream = desk.streams()[static_cast<size_t>(number)];
        EXPECT_EQ(stream.id, number);
        EXPECT_EQ(stream.name, "stream " + std::to_string(number));
    }
}

// ---- Who gives and who takes ------------------------------------------------

TEST_F(TaskGraphTest, NodeIsZeroBeforeTheFirstOneBegins) {
    graph.addInputStream("in");
    graph.addOutputStream("out");
    AssertStreams("0 in: - > 0\n1 out: 0 >\n");
}

TEST_F(TaskGraphTest, AnyNumberTellsANode) {
    desk.beginNode(INT_MIN);
    graph.addOutputStream("out");
    desk.beginNode(INT_MAX);
    graph.addInputStream("out");
    AssertStreams("0 out: -2147483648 > 2147483647\n");
}

TEST_F(TaskGraphTest, StreamMayBeTakenBeforeItIsGiven) {
    desk.beginNode(10);
    EXPECT_EQ(graph.addInputStream("raw"), 0);
    AssertStreams("0 raw: - > 10\n");
    desk.beginNode(2);
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    AssertStreams("0 raw: 2 > 10\n");
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, NodeMayTakeWhatItGives) {
    desk.beginNode(3);
    EXPECT_EQ(graph.addInputStream("loop"), 0);
    EXPECT_EQ(graph.addOutputStream("loop"), 0);
    AssertStreams("0 loop: 3 > 3\n");
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, ConsumersStandOnceEachInTheOrderInWhichTheyCame) {
    for (const int node : {9, 1, 5, 1, 9}) {
        desk.beginNode(node);
        EXPECT_EQ(graph.addInputStream("raw"), 0);
        EXPECT_EQ(graph.addInputStream("raw"), 0);
    }
    AssertStreams("0 raw: - > 9 1 5\n");
    AssertNothingRefused();
}

// ---- Refusals ---------------------------------------------------------------

TEST_F(TaskGraphTest, InputWithoutANameIsRefused) {
    EXPECT_EQ(graph.addInputStream(""), -1);
    AssertStreams("");
    AssertRefused("", true, std::nullopt);
}

TEST_F(TaskGraphTest, OutputWithoutANameIsRefused) {
    EXPECT_EQ(graph.addOutputStream(""), -1);
    AssertStreams("");
    AssertRefused("", false, std::nullopt);
}

TEST_F(TaskGraphTest, NameOfOneNulIsNotEmpty) {
    EXPECT_EQ(graph.addOutputStream(std::string(1, '\0')), 0);
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, SecondProducerIsRefused) {
    desk.beginNode(4);
    graph.addOutputStream("other");
    graph.addOutputStream("raw");
    desk.beginNode(5);
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertStreams("0 other: 4 >\n1 raw: 4 >\n");
    AssertRefused("raw", false, 4);
}

TEST_F(TaskGraphTest, SecondProducerIsRefusedWhenItIsTheSameNode) {
    desk.beginNode(4);
    graph.addOutputStream("raw");
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertStreams("0 raw: 4 >\n");
    AssertRefused("raw", false, 4);
}

TEST_F(TaskGraphTest, ProducerZeroIsAProducer) {
    desk.beginNode(0);
    graph.addOutputStream("raw");
    desk.beginNode(1);
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertRefused("raw", false, 0);
}

TEST_F(TaskGraphTest, RefusedStreamIsTakenAndFurtherOnesAreCountedAsBefore) {
    graph.addInputStream("");
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    graph.addOutputStream("raw");
    EXPECT_EQ(graph.addOutputStream("meta"), 1);
    EXPECT_EQ(graph.addInputStream("raw"), 0);
    AssertStreams("0 raw: 0 > 0\n1 meta: 0 >\n");
}

TEST_F(TaskGraphTest, LastRefusalOfTheNodeIsKept) {
    desk.beginNode(1);
    graph.addOutputStream("raw");
    graph.addOutputStream("raw");
    graph.addInputStream("fine");
    AssertRefused("raw", false, 1);
    graph.addInputStream("");
    AssertRefused("", true, std::nullopt);
    graph.addOutputStream("raw");
    AssertRefused("raw", false, 1);
}

TEST_F(TaskGraphTest, NodeBeginsWithoutARefusal) {
    desk.beginNode(1);
    graph.addInputStream("");
    desk.beginNode(2);
    AssertNothingRefused();

    graph.addInputStream("");
    desk.beginNode(2);
    AssertNothingRefused();
    AssertStreams("");
}

TEST_F(TaskGraphTest, TellsTheLastOfSeveralRefusals) {
    desk.beginNode(3);
    EXPECT_EQ(graph.addInputStream(""), -1);
    EXPECT_EQ(graph.addOutputStream(""), -1);
    AssertRefused("", false, std::nullopt);
}
