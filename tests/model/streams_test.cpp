// The streams of a pipe, with the nodes that produce and consume them.
#include <string>

#include "tests/model/model_test.h"

namespace {

class StreamsTest : public ModelTest {
protected:
    // The lines of the streams of a pipe with these members.
    static void AssertStreams(const std::string& members, const std::string& streams) {
        const std::string text = textOf(ModelOf("{\"pipe_0\": {" + members + "}}"));
        const size_t begin = text.find("  stream \"");
        EXPECT_EQ('\n' + (begin == std::string::npos ? "" : text.substr(begin)), streams)
            << members;
    }
};

TEST_F(StreamsTest, StreamsAreInTheOrderInWhichTheNodesNameThemInputsFirst) {
    AssertStreams(R"(
        "node_2": {"node_opts": {"node_name": "Display"},
                   "stream_opts": {"stream_input": "small", "stream_fmt_in": "f"}},
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_output": "raw", "stream_fmt_out": "f"}},
        "node_1": {"node_opts": {"node_name": "Scale"},
                   "stream_opts": {"stream_output": "small", "stream_fmt_out": "f",
                                   "stream_input": "raw", "stream_fmt_in": "f"}}
    )",
                  R"(
  stream "raw": node_0 out 0 > node_1 in 0
  stream "small": node_1 out 0 > node_2 in 0
)");
}

TEST_F(StreamsTest, ProducersAndConsumersAreInTheOrderOfTheNodes) {
    AssertStreams(R"(
        "node_9": {"stream_opts": {"stream_output": "a"}},
        "node_10": {"stream_opts": {"stream_output": "a"}},
        "node_3": {"stream_opts": {"stream_input": "a"}},
        "node_20": {"stream_opts": {"stream_input": "a"}}
    )",
                  R"(
  stream "a": node_10 out 0, node_9 out 0 > node_20 in 0, node_3 in 0
)");
}

TEST_F(StreamsTest, AStreamMayHaveNoProducerOrNoConsumer) {
    AssertStreams(R"("node_0": {"stream_opts": {"stream_input": "a", "stream_output": "b"}})", R"(
  stream "a": - > node_0 in 0
  stream "b": node_0 out 0 > -
)");
}

TEST_F(StreamsTest, ANodeThatUsesAStreamTwiceIsAnEndpointTwice) {
    AssertStreams(R"("node_0": {"stream_opts": {
        "stream_input_0": "a", "stream_input_1": "a",
        "stream_output_0": "a", "stream_output_1": "a"
    }})",
                  R"(
  stream "a": node_0 out 0, node_0 out 1 > node_0 in 0, node_0 in 1
)");
}

TEST_F(StreamsTest, AnEmptyNameIsNotAStream) {
    AssertStreams(R"("node_0": {"stream_opts": {"stream_input": "", "stream_output": "b"}})", R"(
  stream "b": node_0 out 0 > -
)");
    AssertStreams(R"("node_0": {"stream_opts": {"stream_input": 5}})", "\n");
}

TEST_F(StreamsTest, ANameEndsAtItsFirstNul) {
    AssertStreams(R"(
        "node_0": {"stream_opts": {"stream_output": "a\u0000b"}},
        "node_1": {"stream_opts": {"stream_input": "a\u0000c"}}
    )",
                  R"(
  stream "a": node_0 out 0 > node_1 in 0
)");
}

TEST_F(StreamsTest, ANodeThatFailsStillProducesAndConsumes) {
    AssertStreams(R"(
        "node_0": {"node_opts": {"node_name": "Camera"},
                   "stream_opts": {"stream_input": 5, "stream_fmt_in": "f",
                                   "stream_output": "raw", "stream_fmt_out": "f"}},
        "node_1": {"stream_opts": {"stream_input": "raw"}}
    )",
                  R"(
  stream "raw": node_0 out 0 > node_1 in 0
)");
}

TEST_F(StreamsTest, AnEndWithoutAManagerIsAnEndpoint) {
    AssertStreams(R"(
        "node_0": {"node_opts": {"node_name": "Camera"}, "stream_opts": {"stream_output_0": "raw"}},
        "node_1": {"node_opts": {"node_name": "Join"},
                   "stream_opts": {"stream_input": "raw", "stream_input_0": "b",
                                   "stream_input_1": "c"}}
    )",
                  R"(
  stream "raw": node_0 out +1 > node_1 in +3
  stream "b": - > node_1 in 0
  stream "c": - > node_1 in 1
)");
}

TEST_F(StreamsTest, EveryPipeHasItsOwnStreams) {
    AssertModel(R"({
        "pipe_0": {"node_0": {"stream_opts": {"stream_output": "a"}}},
        "pipe_1": {"node_0": {"stream_opts": {"stream_input": "a"}}}
    })",
                R"(
pipe 0 threads 0 links none
  node_0 id 0 "" of "": not created
    stream_opts {stream_output "a"}
    out 0 stream_output "a", stream_fmt_out (no option) -
  stream "a": node_0 out 0 > -
pipe 1 threads 0 links none
  node_0 id 0 "" of "": not created
    stream_opts {stream_input "a"}
    in 0 stream_input "a", stream_fmt_in (no option) -
  stream "a": - > node_0 in 0
)");
}

}  // namespace
