// A model as a whole: whether it loads, and that it can be moved.
#include "tests/model/model_test.h"

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using qvgraph::Model;

class WholeModelTest : public ModelTest {};

// ---- loading -------------------------------------------------------------------------

TEST_F(WholeModelTest, AnEmptyDocumentLoads) {
    AssertModel("{}", "\n");
}

TEST_F(WholeModelTest, ATextThatIsNotJsonDoesNotLoadAndHasNoPipes) {
    AssertModel(R"({"pipe_0": {})", R"(
does not load: unexpected end of input
)");
}

TEST_F(WholeModelTest, NullDoesNotLoadWithoutAnError) {
    AssertModel("null", "\ndoes not load\n");
}

TEST_F(WholeModelTest, TheSourceOfATextThatDoesNotLoadIsKept) {
    const Model broken = ModelOf("{\n  x");
    EXPECT_EQ(broken.source().root(), nullptr);
    ASSERT_TRUE(broken.source().error().has_value());
    EXPECT_EQ(broken.source().text(), "{\n  x");
}

static_assert(!std::is_copy_constructible_v<Model> && !std::is_copy_assignable_v<Model>);

// ---- moving --------------------------------------------------------------------------

// Has short and long keys and names, an end of every kind, and options that
// override each other.
const char* const CONFIGURATION = R"({"pipe_0": {  // the only one
    "executor_0": {"executor_opts": {"name": "fast"}},
    "link_0": {"depth": 4},
    "node_0": {"node_opts": {"node_name": "Bound", "fps": 25},
               "stream_opts": {"fps": "int64:30", "stream_mode_in": "remain_newest"}},
    "node_1": {"node_opts": {"node_name": "Join"},
               "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                               "stream_input_1": "a-name-that-no-short-string-can-hold",
                               "stream_fmt_in_1": "g", "stream_input": "c"}},
    "node_2": {"stream_opts": {"stream_output": "a"}}
}})";

const char* const TEXT =
    R"(
pipe 0 threads 0 links none
  executor_0 id 0 {name "fast"}
  link_0 id 0 {depth int32 4}
  node_0 id 0 "Bound" of "Bound": ready
    node_opts {fps int32 25 (overridden by stream_opts.fps), node_name "Bound"}
    stream_opts {fps int64 30, stream_mode_in "remain_newest"}
    out 0 stream_output (no option) "own", stream_fmt_out (no option) "own"
  node_1 id 1 "Join" of "Join": would abort
    node_opts {node_name "Join"}
    stream_opts {stream_fmt_in_0 "f", stream_fmt_in_1 "g", stream_input "c", )"
    R"(stream_input_0 "a", stream_input_1 "a-name-that-no-short-string-can-hold"}
    in 0 stream_input_0 "a", stream_fmt_in_0 "f"
    in 1 stream_input_1 "a-name-that-no-short-string-can-hold", stream_fmt_in_1 "g"
    in 2 -, -
    in + stream_input "c", -
  node_2 id 2 "" of "": not created
    stream_opts {stream_output "a"}
    out 0 stream_output "a", stream_fmt_out (no option) -
  stream "own": node_0 out 0 > -
  stream "a": node_2 out 0 > node_1 in 0
  stream "a-name-that-no-short-string-can-hold": - > node_1 in 1
  stream "c": - > node_1 in +3
comment 1:15 "// the only one" /pipe_0
)";

// A store that has "own" under every key, however it is set.
class OwnStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* /*value*/) override { return 0; }
    int setInt32(const char* /*key*/, int32_t /*value*/) override { return 0; }
    int setInt64(const char* /*key*/, int64_t /*value*/) override { return 0; }
    int setFloat(const char* /*key*/, float /*value*/) override { return 0; }
    int findCString(const char* /*key*/, const char** value) override {
        *value = "own";
        return 1;
    }
};

class BoundNode : public QVHostTaskNode {
public:
    BoundNode() { mOptions = &mOwn; }

private:
    OwnStore mOwn;
};

// Every address that the parts of a model refer to.
std::vector<const void*> addressesIn(const Model& model) {
    const qvgraph::Pipe& pipe = model.pipes().at(0);
    std::vector<const void*> addresses = {&model.source(), pipe.value, model.pipes().data()};
    for (const qvgraph::Node& node : pipe.nodes) {
        addresses.insert(addresses.end(), {&node, node.value, node.inputs.ends.data()});
        for (const qvgraph::OptionObject& object : node.objects) {
            for (const qvgraph::Option& option : object.options) {
                addresses.insert(addresses.end(), {&option, option.member, option.overriddenBy});
            }
        }
        for (const qvgraph::Side* side : {&node.inputs, &node.outputs}) {
            for (const qvgraph::StreamEnd& end : side->ends) {
                addresses.insert(addresses.end(),
                                 {&end, end.nameKey.data(), end.nameOption, end.name});
                addresses.insert(addresses.end(),
                                 {end.formatKey.data(), end.formatOption, end.format});
            }
        }
    }
    for (const qvgraph::Stream& stream : pipe.streams) {
        addresses.push_back(stream.name.data());
        for (const qvgraph::Endpoint& endpoint : stream.producers) {
            addresses.insert(addresses.end(), {endpoint.side, endpoint.end});
        }
        for (const qvgraph::Endpoint& endpoint : stream.consumers) {
            addresses.insert(addresses.end(), {endpoint.side, endpoint.end});
        }
    }
    return addresses;
}

TEST_F(WholeModelTest, AMovedModelRefersToTheSameParts) {
    Register<BoundNode>("Bound", 0, 1);
    auto original = std::make_unique<Model>(ModelOf(CONFIGURATION));
    EXPECT_EQ(textOf(*original), TEXT);
    const std::vector<const void*> addresses = addressesIn(*original);

    Model constructed(std::move(*original));
    original.reset();
    EXPECT_EQ(textOf(constructed), TEXT);
    EXPECT_EQ(addressesIn(constructed), addresses);

    Model assigned;
    {
        Model temporary(std::move(constructed));
        assigned = std::move(temporary);
    }
    EXPECT_EQ(textOf(assigned), TEXT);
    EXPECT_EQ(addressesIn(assigned), addresses);
}

}  // namespace
