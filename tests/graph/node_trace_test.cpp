// One node with everything that a node can have: all calls, in order.
#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/graph/parser_test.h"

namespace {

class NodeTraceTest : public ParserTest {
protected:
    NodeTraceTest() {
        framework.inputManagers = 2;
        framework.outputManagers = 2;
        framework.graph.ids = {{"boxes", -3}, {"frames", 20}, {"tracks", 0}, {"overlay", -2}};
    }

    void LoadRichNode() {
        Load(R"({"pipe_1": {"node_10": {
            "node_opts": {
                "node_name": "Tracker#2", "fps": 29.97, "bitrate": "int64:0x100000000",
                "depth": "int32:-8", "gain": "float:0.5", "drift": "double:16777217",
                "live": true, "size": [1920, 1080]
            },
            "stream_opts": {
                "stream_input_2": "boxes", "stream_input_10": "frames",
                "stream_fmt_in_2": "box", "stream_fmt_in_10": "nv12",
                "stream_mode_in": "remain_newest",
                "stream_output_a": "tracks", "stream_output_b": "overlay",
                "stream_fmt_out_a": "track", "stream_fmt_out_b": "argb"
            },
            "node_opts_extra": {"depth": 4},
            "stream_opts_extra": {"stream_fmt_out_b": "rgba"}
        }}})");
    }

    int Init() { return reader.initTaskNode(&framework.graph, 1, 10, &info); }

    _QVNodeInfo info;
};

const char* const RICH_TRACE = R"(
node_proxy_parse_stub_uid id=0 in=0 out=0 "Tracker#2"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_in_10 , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_in_2 , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_out_a , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_out_b , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_input_10 , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_input_2 , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_mode_in , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_output_a , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_output_b , \t tag=stream_input\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_in_10 , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_in_2 , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_out_a , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_fmt_out_b , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_input_10 , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_input_2 , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_mode_in , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_output_a , \t tag=stream_output\033[0m"
qv_log 6 getItemNum "\033[34m\033[1mitem name=stream_output_b , \t tag=stream_output\033[0m"
qv_log 6 initTaskNode "\033[34m\033[1mnode proxy: create task node(name=Tracker#2)\033[0m"
node_proxy_node_create id=10 in=2 out=2
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = bitrate         , opt = \"int64:0x100000000\"\033[0m"
store.setInt64 "bitrate" 4294967296
qv_log 6 parseOptions "\033[34m\033[1mkey=bitrate value=4294967296\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = depth           , opt = \"int32:-8\"      \033[0m"
store.setInt32 "depth" -8
qv_log 6 parseOptions "\033[34m\033[1mkey=depth value=-8\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = drift           , opt = \"double:16777217\"\033[0m"
store.setFloat "drift" 16777216
qv_log 6 parseOptions "\033[34m\033[1mkey=drift value=16777217.000000\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = fps             , opt = 29.969999999999999\033[0m"
store.setInt32 "fps" 29
qv_log 6 syncOptions "\033[34m\033[1moption: key = gain            , opt = \"float:0.5\"     \033[0m"
store.setFloat "gain" 0.5
qv_log 6 parseOptions "\033[34m\033[1mkey=gain value=0.500000\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = live            , opt = true            \033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = node_name       , opt = \"Tracker#2\"     \033[0m"
store.setCString "node_name" "Tracker#2"
qv_log 6 syncOptions "\033[34m\033[1moption: key = size            , opt = [1920, 1080]    \033[0m"
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_fmt_in_10, opt = \"nv12\"          \033[0m"
store.setCString "stream_fmt_in_10" "nv12"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_fmt_in_2 , opt = \"box\"           \033[0m"
store.setCString "stream_fmt_in_2" "box"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_fmt_out_a, opt = \"track\"         \033[0m"
store.setCString "stream_fmt_out_a" "track"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_fmt_out_b, opt = \"argb\"          \033[0m"
store.setCString "stream_fmt_out_b" "argb"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_input_10 , opt = \"frames\"        \033[0m"
store.setCString "stream_input_10" "frames"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_input_2  , opt = \"boxes\"         \033[0m"
store.setCString "stream_input_2" "boxes"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_mode_in  , opt = \"remain_newest\" \033[0m"
store.setCString "stream_mode_in" "remain_newest"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_output_a , opt = \"tracks\"        \033[0m"
store.setCString "stream_output_a" "tracks"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_output_b , opt = \"overlay\"       \033[0m"
store.setCString "stream_output_b" "overlay"
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = depth           , opt = 4               \033[0m"
store.setInt32 "depth" 4
qv_log 6 syncOptions "\033[34m\033[1msync to node options, node info:\033[0m"
qv_log 6 syncOptions "\033[34m\033[1moption: key = stream_fmt_out_b, opt = \"rgba\"          \033[0m"
store.setCString "stream_fmt_out_b" "rgba"
store.findCString "stream_input_10" -> "frames"
store.findCString "stream_fmt_in_10" -> "nv12"
graph.addInputStream "frames" -> 20
input0.initialize "frames" 20 10
input0.setStreamType "nv12"
store.findCString "stream_mode_in" -> "remain_newest"
store.findCString "stream_input_2" -> "boxes"
store.findCString "stream_fmt_in_2" -> "box"
graph.addInputStream "boxes" -> -3
input1.initialize "boxes" -3 10
input1.setStreamType "box"
store.findCString "stream_mode_in" -> "remain_newest"
store.findCString "stream_output_a" -> "tracks"
store.findCString "stream_fmt_out_a" -> "track"
graph.addOutputStream "tracks" -> 0
output0.initialize "tracks" 0 10 format=""
store.findCString "stream_output_b" -> "overlay"
store.findCString "stream_fmt_out_b" -> "rgba"
graph.addOutputStream "overlay" -> -2
output1.initialize "overlay" -2 10 format=""
node.initialize 10 {10 "Tracker#2"} input0 newest=1 input1 newest=1 output0 format="track" output1 format="rgba"
)";

}  // namespace

TEST_F(NodeTraceTest, CallsForOneNodeHaveThisOrder) {
    LoadRichNode();
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.takeTrace(), RICH_TRACE);
}

TEST_F(NodeTraceTest, IgnoredResultsChangeNothing) {
    LoadRichNode();
    framework.ignoredResult = -1;
    EXPECT_EQ(Init(), 0);
    EXPECT_EQ(framework.takeTrace(), RICH_TRACE);
}

TEST_F(NodeTraceTest, SecondNodeOfTheSameParserIsSetUpTheSameWay) {
    LoadRichNode();
    EXPECT_EQ(Init(), 0);
    const size_t calls = framework.calls.size();
    framework.takeTrace();
    _QVNodeInfo second;
    EXPECT_EQ(reader.initTaskNode(&framework.graph, 1, 10, &second), 0);
    EXPECT_EQ(framework.calls.size(), calls);
    EXPECT_NE(second.node, info.node);
}

// An exception that the framework throws propagates to the caller immediately.
TEST_F(NodeTraceTest, ExceptionFromAnyCallEndsTheTraceThere) {
    LoadRichNode();
    ASSERT_EQ(Init(), 0);
    const std::vector<std::string> all = framework.calls;
    for (size_t last = 0; last < all.size(); ++last) {
        framework.calls.clear();
        framework.onCall = [&](const std::string& call) {
            if (framework.calls.size() > last) {
                throw std::runtime_error(call);
            }
        };
        _QVNodeInfo fresh;
        EXPECT_THROW(reader.initTaskNode(&framework.graph, 1, 10, &fresh), std::runtime_error);
        ASSERT_EQ(framework.calls.size(), last + 1);
        EXPECT_TRUE(std::equal(framework.calls.begin(), framework.calls.end(), all.begin()))
            << framework.calls.back();
    }
}
