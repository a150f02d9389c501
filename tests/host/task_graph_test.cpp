// The host framework's task graph.
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
    // All streams: "id name: producer > consumers", one per line, '-' for a
    // missing producer.
    void AssertStreams(const std::string& expected) {
        std::string actual;
        for (const QVHostTaskGraph::Stream& stream : hostGraph.streams()) {
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
        ASSERT_TRUE(hostGraph.refusal().has_value());
        EXPECT_EQ(hostGraph.refusal()->name, name);
        EXPECT_EQ(hostGraph.refusal()->input, input);
        EXPECT_EQ(hostGraph.refusal()->producer, producer);
    }

    void AssertNothingRefused() { EXPECT_FALSE(hostGraph.refusal().has_value()); }

    QVHostTaskGraph hostGraph;

    // As the parser sees it.
    QVTaskGraphConfig& graph = hostGraph;
};

}  // namespace

TEST_F(TaskGraphTest, StartsWithoutStreams) {
    AssertStreams("");
    AssertNothingRefused();
}

// ---- Ids --------------------------------------------------------------------

TEST_F(TaskGraphTest, IdsCountFromZeroInOrderOfFirstUse) {
    EXPECT_EQ(graph.addOutputStream("zebra"), 0);
    EXPECT_EQ(graph.addInputStream("ant"), 1);
    EXPECT_EQ(graph.addOutputStream("mole"), 2);
    AssertStreams(
        "0 zebra: 0 >\n"
        "1 ant: - > 0\n"
        "2 mole: 0 >\n");
}

TEST_F(TaskGraphTest, NameHasOneIdForProducersAndConsumers) {
    hostGraph.beginNode(1);
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    EXPECT_EQ(graph.addOutputStream("meta"), 1);
    hostGraph.beginNode(2);
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

TEST_F(TaskGraphTest, NamesAreComparedByteForByte) {
    const std::vector<std::string> names = {
        "raw", "Raw", "raw ", " raw", "ra", "raw0", std::string("raw\0x", 5), "\xff"};
    for (size_t id = 0; id < names.size(); ++id) {
        EXPECT_EQ(graph.addOutputStream(names[id]), static_cast<int>(id)) << names[id];
    }
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, StreamIsStoredAtItsId) {
    for (int number = 0; number < 5000; ++number) {
        graph.addInputStream("stream " + std::to_string(number));
    }
    ASSERT_EQ(hostGraph.streams().size(), 5000U);
    for (int number = 0; number < 5000; ++number) {
        const auto& stream = hostGraph.streams()[static_cast<size_t>(number)];
        EXPECT_EQ(stream.id, number);
        EXPECT_EQ(stream.name, "stream " + std::to_string(number));
    }
}

// ---- Producers and consumers ------------------------------------------------

TEST_F(TaskGraphTest, NodeIsZeroBeforeTheFirstOneBegins) {
    graph.addInputStream("in");
    graph.addOutputStream("out");
    AssertStreams("0 in: - > 0\n1 out: 0 >\n");
}

TEST_F(TaskGraphTest, AnyNumberIdentifiesANode) {
    hostGraph.beginNode(INT_MIN);
    graph.addOutputStream("out");
    hostGraph.beginNode(INT_MAX);
    graph.addInputStream("out");
    AssertStreams("0 out: -2147483648 > 2147483647\n");
}

TEST_F(TaskGraphTest, StreamMayBeConsumedBeforeItIsProduced) {
    hostGraph.beginNode(10);
    EXPECT_EQ(graph.addInputStream("raw"), 0);
    AssertStreams("0 raw: - > 10\n");
    hostGraph.beginNode(2);
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    AssertStreams("0 raw: 2 > 10\n");
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, NodeMayConsumeItsOwnStream) {
    hostGraph.beginNode(3);
    EXPECT_EQ(graph.addInputStream("loop"), 0);
    EXPECT_EQ(graph.addOutputStream("loop"), 0);
    AssertStreams("0 loop: 3 > 3\n");
    AssertNothingRefused();
}

TEST_F(TaskGraphTest, EachConsumerIsListedOnceInOrderOfRegistration) {
    for (const int node : {9, 1, 5, 1, 9}) {
        hostGraph.beginNode(node);
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
    hostGraph.beginNode(4);
    graph.addOutputStream("other");
    graph.addOutputStream("raw");
    hostGraph.beginNode(5);
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertStreams("0 other: 4 >\n1 raw: 4 >\n");
    AssertRefused("raw", false, 4);
}

TEST_F(TaskGraphTest, SecondProducerIsRefusedEvenIfItIsTheSameNode) {
    hostGraph.beginNode(4);
    graph.addOutputStream("raw");
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertStreams("0 raw: 4 >\n");
    AssertRefused("raw", false, 4);
}

TEST_F(TaskGraphTest, ProducerZeroIsAProducer) {
    hostGraph.beginNode(0);
    graph.addOutputStream("raw");
    hostGraph.beginNode(1);
    EXPECT_EQ(graph.addOutputStream("raw"), -1);
    AssertRefused("raw", false, 0);
}

TEST_F(TaskGraphTest, RefusalAffectsNeitherConsumersNorLaterIds) {
    graph.addInputStream("");
    EXPECT_EQ(graph.addOutputStream("raw"), 0);
    graph.addOutputStream("raw");
    EXPECT_EQ(graph.addOutputStream("meta"), 1);
    EXPECT_EQ(graph.addInputStream("raw"), 0);
    AssertStreams("0 raw: 0 > 0\n1 meta: 0 >\n");
}

TEST_F(TaskGraphTest, LastRefusalOfANodeIsKept) {
    hostGraph.beginNode(1);
    graph.addOutputStream("raw");
    graph.addOutputStream("raw");
    graph.addInputStream("fine");
    AssertRefused("raw", false, 1);
    graph.addInputStream("");
    AssertRefused("", true, std::nullopt);
    graph.addOutputStream("raw");
    AssertRefused("raw", false, 1);
}

TEST_F(TaskGraphTest, NodeStartsWithoutARefusal) {
    hostGraph.beginNode(1);
    graph.addInputStream("");
    hostGraph.beginNode(2);
    AssertNothingRefused();

    graph.addInputStream("");
    hostGraph.beginNode(2);
    AssertNothingRefused();
    AssertStreams("");
}

TEST_F(TaskGraphTest, ReportsTheLastOfSeveralRefusals) {
    hostGraph.beginNode(3);
    EXPECT_EQ(graph.addInputStream(""), -1);
    EXPECT_EQ(graph.addOutputStream(""), -1);
    AssertRefused("", false, std::nullopt);
}
