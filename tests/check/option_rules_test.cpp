// Options that the parser does not store, cuts or overrides, and options that a
// lookup does not find.
#include <string>

#include "tests/check/node_test.h"

namespace {

class OptionRulesTest : public NodeTest {
protected:
    // Expects two nodes, the first with these additional option objects, to have
    // these findings. The objects are on separate lines, from line 4 on.
    static void AssertNode(const std::string& objects, const std::string& findings) {
        AssertPipe(R"("node_0": {
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image"},
)" + objects + R"(
},
"node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
})",
                   findings);
    }
};

std::string stringOf(size_t bytes) {
    return '"' + std::string(bytes, 'x') + '"';
}

TEST_F(OptionRulesTest, ChecksTheOptionsOfNodesExecutorsAndLinks) {
    AssertPipe(
        R"("executor_0": {"executor_opts": {"a": null}},
"link_0": {"b": null},
"node_0": {
    "node_opts": {"node_name": "Camera", "c": null},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image", "d": null},
    "node_opts_extra": {"e": null},
    "stream_opts_extra": {"f": null}
},
"node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
})",
        "2:39-2:43 warning option-not-stored /pipe_0/executor_0/executor_opts/a: "
        "'a' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "3:17-3:21 warning option-not-stored /pipe_0/link_0/b: "
        "'b' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "5:47-5:51 warning option-not-stored /pipe_0/node_0/node_opts/c: "
        "'c' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "6:80-6:84 warning option-not-stored /pipe_0/node_0/stream_opts/d: "
        "'d' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "7:30-7:34 warning option-not-stored /pipe_0/node_0/node_opts_extra/e: "
        "'e' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "8:32-8:36 warning option-not-stored /pipe_0/node_0/stream_opts_extra/f: "
        "'f' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n");
}

TEST_F(OptionRulesTest, IgnoresMembersThatAreNotOptions) {
    AssertPipe(R"("thread_opts": {"exec_thread_num": 2},
"executor_0": {"executor_opts": {"a": 1}},
"default_mode_link": "Int32:5")",
               "");
}

// ---- option-too-long ---------------------------------------------------------

TEST_F(OptionRulesTest, AStringOf128BytesIsTooLong) {
    AssertPipe(R"("link_0": {"model": )" + stringOf(128) + '}',
               "2:21-2:151 error option-too-long /pipe_0/link_0/model: "
               "'model' is a string of 128 bytes, but the maximum is 127: it is not stored\n"
               "  hint: shorten the string by 1 byte\n");
}

TEST_F(OptionRulesTest, AStringOf127BytesIsStored) {
    AssertPipe(R"("link_0": {"model": )" + stringOf(127) + '}', "");
}

TEST_F(OptionRulesTest, TheLimitIsInBytesNotInCharacters) {
    std::string umlauts;
    for (int i = 0; i < 64; ++i) {
        umlauts += "\u00fc";
    }
    AssertPipe(R"("link_0": {"model": ")" + umlauts + "\"}",
               "2:21-2:87 error option-too-long /pipe_0/link_0/model: "
               "'model' is a string of 128 bytes, but the maximum is 127: it is not stored\n"
               "  hint: shorten the string by 1 byte\n");
}

TEST_F(OptionRulesTest, AStringIsMeasuredUpToItsNul) {
    AssertPipe(R"("link_0": {"model": "x\u0000)" + std::string(200, 'y') + "\"}",
               "2:21-2:230 warning nul-in-option /pipe_0/link_0/model: "
               "'model' has a NUL in its string: it is stored as 'x'\n"
               "  hint: remove the NUL from the string\n");
}

TEST_F(OptionRulesTest, AStringThatIsTooLongHasNoOtherFinding) {
    const std::string zeros(130, '0');
    AssertPipe(R"("link_0": {"a": "int32:)" + zeros + R"(ms"})",
               "2:17-2:157 error option-too-long /pipe_0/link_0/a: "
               "'a' is a string of 138 bytes, but the maximum is 127: it is not stored\n"
               "  hint: shorten the string by 11 bytes\n");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a": "Int32:)" + zeros + R"("}}})"),
              "option-too-long");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a": ")" + zeros + R"(\u0000"}}})"),
              "option-too-long");
}

// ---- option-not-stored -------------------------------------------------------

TEST_F(OptionRulesTest, ABooleanIsNotStored) {
    AssertPipe(R"("link_0": {"sync": true, "late": false})",
               "2:20-2:24 warning option-not-stored /pipe_0/link_0/sync: "
               "'sync' is a boolean, not a number or a string: it is not stored\n"
               "  hint: write 1 instead of true\n"
               "2:34-2:39 warning option-not-stored /pipe_0/link_0/late: "
               "'late' is a boolean, not a number or a string: it is not stored\n"
               "  hint: write 0 instead of false\n");
}

TEST_F(OptionRulesTest, AnArrayIsNotStored) {
    AssertPipe(R"("link_0": {"size": [640, 480]})",
               "2:20-2:30 warning option-not-stored /pipe_0/link_0/size: "
               "'size' is an array, not a number or a string: it is not stored\n"
               "  hint: give each element its own key\n");
}

TEST_F(OptionRulesTest, AnObjectIsNotStored) {
    AssertPipe(R"("link_0": {"size": {"width": 640, "height": null}})",
               "2:20-2:50 warning option-not-stored /pipe_0/link_0/size: "
               "'size' is an object, not a number or a string: it is not stored\n"
               "  hint: move its members up, next to the other options\n");
}

// ---- nul-in-option -----------------------------------------------------------

TEST_F(OptionRulesTest, AStringEndsAtItsNul) {
    AssertPipe(R"("link_0": {"names": "left\u0000right"})",
               "2:21-2:38 warning nul-in-option /pipe_0/link_0/names: "
               "'names' has a NUL in its string: it is stored as 'left'\n"
               "  hint: remove the NUL from the string\n");
}

TEST_F(OptionRulesTest, AKeyEndsAtItsNul) {
    const std::string nul(1, '\0');
    AssertPipe(R"("link_0": {"name\u0000s": 1})",
               "2:12-2:25 warning nul-in-option /pipe_0/link_0/name" + nul +
                   "s: 'name' has a NUL in its key: the device ignores the rest of the key\n"
                   "  hint: remove the NUL from the key\n");
    AssertPipe(R"("link_0": {"name": 1,
"name\u0000s": 2})",
               "3:1-3:14 warning nul-in-option /pipe_0/link_0/name" + nul +
                   "s: 'name' has a NUL in its key: the device ignores the rest of the key\n"
                   "  2:12-2:18 stored under the same key\n"
                   "  hint: remove the NUL from the key\n");
}

TEST_F(OptionRulesTest, ANulHidesTheEmptyValueThatItCauses) {
    AssertPipe(R"("link_0": {"size": "int32:\u00005"})",
               "2:20-2:35 warning nul-in-option /pipe_0/link_0/size: "
               "'size' has a NUL in its string: it is stored as 'int32:'\n"
               "  hint: remove the NUL from the string\n");
}

TEST_F(OptionRulesTest, ANulInAnOptionThatIsNotStoredIsNotReported) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a\u0000": null}}})"), "option-not-stored");
}

// ---- option-overridden -------------------------------------------------------

TEST_F(OptionRulesTest, ALaterObjectOverridesAnEarlierOne) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "rate": 25},
    "node_opts_extra": {"rate": "float:29.97"})",
        "4:42-4:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden by \"node_opts_extra\": the device stores float 29.97\n"
        "  5:25-5:31 overridden here\n"
        "  hint: remove the one that you did not intend\n");
}

TEST_F(OptionRulesTest, TheOrderInTheSourceIsIrrelevant) {
    AssertNode(
        R"(    "stream_opts_extra": {"rate": 3},
    "node_opts_extra": {"rate": 2},
    "node_opts": {"node_name": "Camera", "rate": 1})",
        "5:25-5:31 note option-overridden /pipe_0/node_0/node_opts_extra/rate: "
        "'rate' is overridden by \"stream_opts_extra\": the device stores int32 3\n"
        "  4:27-4:33 overridden here\n"
        "  hint: remove the one that you did not intend\n"
        "6:42-6:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden by \"stream_opts_extra\": the device stores int32 3\n"
        "  4:27-4:33 overridden here\n"
        "  hint: remove the one that you did not intend\n");
}

TEST_F(OptionRulesTest, TheNameOfANodeCanBeOverriddenInItsStore) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera"},
    "node_opts_extra": {"node_name": "Door"})",
        "4:19-4:30 note option-overridden /pipe_0/node_0/node_opts/node_name: "
        "'node_name' is overridden by \"node_opts_extra\": the device stores 'Door'\n"
        "  5:25-5:36 overridden here\n"
        "  hint: remove the one that you did not intend\n");
}

TEST_F(OptionRulesTest, AnEqualValueIsNotAnOverride) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera"},
    "stream_opts_extra": {"a": 16, "b": "x", "c": "float:nan", "d": "int64:16"},
    "node_opts_extra": {"a": "int32:16", "b": "x", "c": "float:nan", "d": "int64:0x10"})",
        "");
}

TEST_F(OptionRulesTest, ADifferentTypeIsADifferentValue) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "rate": 25},
    "node_opts_extra": {"rate": "int64:25"})",
        "4:42-4:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden by \"node_opts_extra\": the device stores int64 25\n"
        "  5:25-5:31 overridden here\n"
        "  hint: remove the one that you did not intend\n");
}

TEST_F(OptionRulesTest, AnOptionThatIsNotStoredNeitherOverridesNorIsOverridden) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "a": 1, "b": null},
    "node_opts_extra": {"a": null, "b": 1})",
        "4:55-4:59 warning option-not-stored /pipe_0/node_0/node_opts/b: "
        "'b' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n"
        "5:30-5:34 warning option-not-stored /pipe_0/node_0/node_opts_extra/a: "
        "'a' is null, not a number or a string: it is not stored\n"
        "  hint: write a number or a string, or remove it\n");
}

TEST_F(OptionRulesTest, LongStringsAreComparedToTheirEnd) {
    const std::string start(100, 'x');
    AssertNode(R"(    "node_opts": {"node_name": "Camera", "a": ")" + start + R"(1"},
    "node_opts_extra": {"a": ")" +
                   start + R"(2"})",
               "4:42-4:45 note option-overridden /pipe_0/node_0/node_opts/a: "
               "'a' is overridden by \"node_opts_extra\": the device stores '" +
                   start.substr(0, 60) + R"(...'
  5:25-5:28 overridden here
  hint: remove the one that you did not intend
)");
}

// ---- option-type -------------------------------------------------------------

// A node that looks up option 'gain' as one type when it is initialised.
template <typename Value, int (QvMetaData::*find)(const char*, Value*)>
class LookupNode : public QVHostTaskNode {
public:
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        Value value = {};
        (mOptions->*find)("gain", &value);
        return QVHostTaskNode::initialize(nodeId, info, inputs, outputs);
    }
};

using StringNode = LookupNode<const char*, &QvMetaData::findCString>;
using Int32Node = LookupNode<int32_t, &QvMetaData::findInt32>;
using Int64Node = LookupNode<int64_t, &QvMetaData::findInt64>;
using FloatNode = LookupNode<float, &QvMetaData::findFloat>;

class OptionTypeTest : public OptionRulesTest {
protected:
    // Expects option 'gain', with this JSON value, to have one finding if a node
    // looks it up as a different type. Both types are given with their article.
    template <typename Node>
    static void AssertMissed(const std::string& value,
                             const std::string& stored,
                             const std::string& lookedUp,
                             const std::string& hint) {
        AssertLookup<Node>("\"gain\": " + value,
                           "4:50-4:" + std::to_string(50 + value.size()) +
                               " warning option-type /pipe_0/node_0/node_opts/gain: "
                               "'gain' is stored as " +
                               stored + ", but class 'Camera' looks it up as " + lookedUp +
                               ": the lookup finds nothing\n  hint: " + hint + '\n');
    }

    // Expects a node that looks up 'gain' to have these findings if it has this
    // option.
    template <typename Node>
    static void AssertLookup(const std::string& option, const std::string& findings) {
        RegisterCreator("Camera", create<Node>, 0, 1);
        AssertNode(R"(    "node_opts": {"node_name": "Camera", )" + option + '}', findings);
        QVNodeRegistry::instance().unregisterClass("Camera");
    }
};

TEST_F(OptionTypeTest, AJsonNumberIsAnInt32) {
    AssertMissed<FloatNode>("2", "an int32", "a float", R"(write "float:2")");
    AssertMissed<Int64Node>("-2", "an int32", "an int64", R"(write "int64:-2")");
    AssertMissed<StringNode>("2", "an int32", "a string", R"(write "2")");
}

TEST_F(OptionTypeTest, AQuotedNumberIsAString) {
    AssertMissed<Int32Node>(R"("25")", "a string", "an int32", R"(write "int32:25")");
    AssertMissed<FloatNode>(R"("0.5")", "a string", "a float", R"(write "float:0.5")");
}

TEST_F(OptionTypeTest, ATypeWordDeterminesTheType) {
    AssertMissed<Int32Node>(R"("int64:25")", "an int64", "an int32", R"(write "int32:25")");
    AssertMissed<StringNode>(R"("float:0.5")", "a float", "a string", R"(write "0.5")");
}

TEST_F(OptionTypeTest, TheHintProposesOnlyValuesThatTheTypeHolds) {
    const char* const hint = R"(write "int32:" followed by a number)";
    AssertMissed<Int32Node>(R"("fast")", "a string", "an int32", hint);
    AssertMissed<Int32Node>(R"("")", "a string", "an int32", hint);
    AssertMissed<Int32Node>(R"("int64:3000000000")", "an int64", "an int32", hint);
    AssertMissed<Int32Node>(R"("float:0.5")", "a float", "an int32", hint);
}

TEST_F(OptionTypeTest, TheOptionThatIsStoredIsReported) {
    RegisterCreator("Camera", create<FloatNode>, 0, 1);
    AssertNode(R"(    "node_opts": {"node_name": "Camera", "gain": 2},
    "node_opts_extra": {"gain": 2})",
               "5:33-5:34 warning option-type /pipe_0/node_0/node_opts_extra/gain: "
               "'gain' is stored as an int32, but class 'Camera' looks it up as a float: "
               "the lookup finds nothing\n"
               "  hint: write \"float:2\"\n");
}

TEST_F(OptionTypeTest, AnOptionThatIsFoundOrMissingIsAccepted) {
    AssertLookup<FloatNode>(R"("gain": "float:2")", "");
    AssertLookup<FloatNode>(R"("rate": 25)", "");
}

TEST_F(OptionTypeTest, ANumberWithAFractionIsReportedOnce) {
    AssertLookup<FloatNode>(R"("gain": 0.5)",
                            "4:50-4:53 warning number-lost /pipe_0/node_0/node_opts/gain: "
                            "'gain' is stored as 0: the device drops the fraction of '0.5'\n"
                            "  hint: write \"float:0.5\"\n");
}

}  // namespace
