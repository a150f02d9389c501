// A model says what the survey recorded: it reads no value of the text again, and
// derives no key that set-up looked up.
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/model/model_test.h"
#include "tests/support/configurations.h"

namespace {

using qvgraph::Node;
using qvgraph::Outcome;
using qvgraph::Pipe;
using qvgraph::Side;
using qvgraph::StreamEnd;
using qvgraph::SurveyedEnd;
using qvgraph::SurveyedNode;
using qvgraph::SurveyedPipe;
using qvgraph::SurveyedText;

class RecordedTest : public ModelTest {};

// ---- changed records ---------------------------------------------------------------------

const char* const CONFIGURATION = R"({"pipe_0": {
    "executor_0": {"executor_opts": {"cores": 2}},
    "node_0": {"node_opts": {"node_name": "Filter", "fps": 42},
               "stream_opts": {"stream_input": "a", "stream_fmt_in": "f", "other": "b"}}
}})";

TEST_F(RecordedTest, WithoutAChangeTheModelSaysWhatTheTextSays) {
    AssertModel(CONFIGURATION, R"(
pipe 0 threads 0 links none
  executor_0 id 0 {cores int32 2}
  node_0 id 0 "Filter" of "Filter": ready
    node_opts {fps int32 42, node_name "Filter"}
    stream_opts {other "b", stream_fmt_in "f", stream_input "a"}
    in 0 stream_input "a", stream_fmt_in "f"
  stream "a": - > node_0 in 0
)");
}

TEST_F(RecordedTest, AValueIsTheOneThatTheSurveyRecorded) {
    SurveyedText surveyed = Surveyed(CONFIGURATION);
    SurveyedPipe& pipe = surveyed.survey.pipes.at(0);
    pipe.executors.at(0).conversions.at(0) = int64_t{3};
    pipe.nodes.at(0).conversions[0].at(0) = int32_t{41};       // "fps"
    pipe.nodes.at(0).conversions[1].at(0) = std::nullopt;      // "other"
    pipe.nodes.at(0).conversions[1].at(2) = std::string("c");  // "stream_input"
    EXPECT_EQ(textOf(ModelOf(CONFIGURATION, surveyed)), R"(
pipe 0 threads 0 links none
  executor_0 id 0 {cores int64 3}
  node_0 id 0 "Filter" of "Filter": ready
    node_opts {fps int32 41, node_name "Filter"}
    stream_opts {other -, stream_fmt_in "f", stream_input "c"}
    in 0 stream_input "c", stream_fmt_in "f"
  stream "c": - > node_0 in 0
)");
}

TEST_F(RecordedTest, AKeyIsTheOneThatTheSurveyRecorded) {
    SurveyedText surveyed = Surveyed(CONFIGURATION);
    SurveyedEnd& end = surveyed.survey.pipes.at(0).nodes.at(0).inputEnds.at(0);
    end.nameLookup->key = "other";
    end.formatLookup->key = "node_name";
    const qvgraph::Model changed = ModelOf(CONFIGURATION, surveyed);
    EXPECT_EQ(endsOf(changed.pipes().at(0).nodes.at(0)), R"(
in 0 other "b", node_name "Filter"
in + stream_input "a", stream_fmt_in "f"
)");
}

TEST_F(RecordedTest, AStringThatTheSurveyDidNotFindIsAbsent) {
    SurveyedText surveyed = Surveyed(CONFIGURATION);
    SurveyedEnd& end = surveyed.survey.pipes.at(0).nodes.at(0).inputEnds.at(0);
    end.name.reset();
    end.nameLookup->found = false;
    end.format.reset();
    end.formatLookup->found = false;
    const qvgraph::Model changed = ModelOf(CONFIGURATION, surveyed);
    EXPECT_EQ(endsOf(changed.pipes().at(0).nodes.at(0)), R"(
in 0 stream_input -, stream_fmt_in -
)");
    EXPECT_TRUE(changed.pipes().at(0).streams.empty());
}

TEST_F(RecordedTest, EverythingElseIsTheSurveysToo) {
    SurveyedText surveyed = Surveyed(CONFIGURATION);
    SurveyedPipe& pipe = surveyed.survey.pipes.at(0);
    pipe.threads = 7;
    pipe.linkMode = "ring";
    pipe.executors.at(0).id = 5;
    pipe.executors.at(0).key = "executor_5";
    pipe.nodes.at(0).name = "Blur#1";
    pipe.nodes.at(0).className = "Blur";
    pipe.nodes.at(0).outcome = Outcome::NoStreams;
    pipe.nodes.at(0).inputEnds.clear();
    EXPECT_EQ(textOf(ModelOf(CONFIGURATION, surveyed)), R"(
pipe 0 threads 7 links ring
  executor_0 id 5 (not canonical: executor_5) {cores int32 2}
  node_0 id 0 "Blur#1" of "Blur": no streams
    node_opts {fps int32 42, node_name "Filter"}
    stream_opts {other "b", stream_fmt_in "f", stream_input "a"}
    in + stream_input "a", stream_fmt_in "f"
  stream "a": - > node_0 in +0
)");
}

// ---- random configurations ---------------------------------------------------------------

class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw std::runtime_error("no licence");
    }
};

class RandomModelTest : public ModelTest {
protected:
    void SetUp() override {
        ModelTest::SetUp();
        Register<QVHostTaskNode>("Join", 2, 1);
        Register<QVHostTaskNode>("Source", 0, 1);
        Register<ThrowingNode>("Throwing");
    }

    // Compares every end that set-up reached with what the survey recorded of it.
    void AssertRecorded(const std::string& text) {
        const SurveyedText surveyed = Surveyed(text);
        const qvgraph::Model built = ModelOf(text, surveyed);
        ASSERT_EQ(built.pipes().size(), surveyed.survey.pipes.size()) << text;
        for (size_t i = 0; i < built.pipes().size(); ++i) {
            const Pipe& pipe = built.pipes()[i];
            const SurveyedPipe& recorded = surveyed.survey.pipes[i];
            ASSERT_EQ(pipe.nodes.size(), recorded.nodes.size()) << text;
            for (size_t k = 0; k < pipe.nodes.size(); ++k) {
                if (pipe.nodes[k].canonical && recorded.nodes[k].created) {
                    SCOPED_TRACE(text + pointerTo(*pipe.nodes[k].value));
                    AssertNode(pipe.nodes[k], recorded.nodes[k]);
                }
            }
        }
    }

    std::map<Outcome, size_t> outcomes;
    size_t keys = 0;   // that set-up looked up
    size_t names = 0;  // that were bound

private:
    void AssertNode(const Node& node, const SurveyedNode& recorded) {
        ++outcomes[recorded.outcome];
        AssertSide(node.inputs, recorded.inputEnds);
        AssertSide(node.outputs, recorded.outputEnds);
        AssertLookedUp(node, recorded);
    }

    void AssertSide(const Side& side, const std::vector<SurveyedEnd>& recorded) {
        ASSERT_EQ(side.wired().size(), recorded.size());
        for (size_t i = 0; i < recorded.size(); ++i) {
            const StreamEnd& end = side.wired()[i];
            AssertLookup(end.nameKey, end.name, recorded[i].nameLookup);
            AssertLookup(end.formatKey, end.format, recorded[i].formatLookup);
            if (recorded[i].name) {
                ++names;
                ASSERT_NE(end.name, nullptr);
                EXPECT_EQ(*end.name, *recorded[i].name);
            }
            if (recorded[i].format) {
                ASSERT_NE(end.format, nullptr);
                EXPECT_EQ(*end.format, *recorded[i].format);
            }
        }
    }

    void AssertLookup(std::string_view key,
                      const std::string* string,
                      const std::optional<qvgraph::StreamLookup>& lookup) {
        if (lookup) {
            ++keys;
            EXPECT_EQ(key, lookup->key);
            EXPECT_EQ(string != nullptr, lookup->found) << key;
        }
    }

    // Each key of a stream that set-up looked up in the store is that of an end
    // with a manager.
    static void AssertLookedUp(const Node& node, const SurveyedNode& recorded) {
        std::set<std::string_view> wired = {"stream_mode_in"};
        for (const Side* side : {&node.inputs, &node.outputs}) {
            for (const StreamEnd& end : side->wired()) {
                wired.insert({end.nameKey, end.formatKey});
            }
        }
        for (const QVLookupScope::Lookup& lookup : recorded.lookups) {
            EXPECT_TRUE(wired.contains(lookup.key)) << lookup.key;
        }
    }
};

TEST_F(RandomModelTest, EveryEndThatSetUpReachedIsTheOneThatItLookedUp) {
    RandomConfigurations random(4, {{"Join", 2, 1}, {"Source", 0, 1}}, {"Throwing"});
    for (int i = 0; i < 1000 && !HasFailure(); ++i) {
        ConfigurationTree tree = random.sound();
        for (size_t mistakes = random.below(6); mistakes > 0; --mistakes) {
            random.spoil(&tree);
        }
        AssertRecorded(textOf(tree));
    }
    EXPECT_GT(keys, 5000U);
    EXPECT_GT(names, 2000U);
    for (const Outcome outcome : {Outcome::Ready,
                                  Outcome::NoStreams,
                                  Outcome::StreamRefused,
                                  Outcome::WouldAbort,
                                  Outcome::WouldThrow}) {
        EXPECT_GT(outcomes[outcome], 5U) << toText(outcome);
    }
}

}  // namespace
