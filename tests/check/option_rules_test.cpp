// Options that do not reach their store, or not whole, or not for good; or that
// are not found there.
#include <string>

#include "tests/check/node_test.h"

namespace {

class OptionRulesTest : public NodeTest {
protected:
    // Expects two nodes, the first with these further option objects, to have
    // these findings. The objects stand in lines of their own from the fourth
    // line on.
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

std::string text(size_t bytes) {
    return '"' + std::string(bytes, 'x') + '"';
}

TEST_F(OptionRulesTest, LooksAtTheOptionsOfNodesExecutorsAndLinks) {
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
        "'a' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "3:17-3:21 warning option-not-stored /pipe_0/link_0/b: "
        "'b' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "5:47-5:51 warning option-not-stored /pipe_0/node_0/node_opts/c: "
        "'c' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "6:80-6:84 warning option-not-stored /pipe_0/node_0/stream_opts/d: "
        "'d' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "7:30-7:34 warning option-not-stored /pipe_0/node_0/node_opts_extra/e: "
        "'e' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "8:32-8:36 warning option-not-stored /pipe_0/node_0/stream_opts_extra/f: "
        "'f' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n");
}

TEST_F(OptionRulesTest, LooksAtNothingThatIsNotCopied) {
    AssertPipe(R"("thread_opts": {"exec_thread_num": 2},
"executor_0": {"executor_opts": {"a": 1}},
"default_mode_link": "Int32:5")",
               "");
}

// ---- option-too-long ---------------------------------------------------------

TEST_F(OptionRulesTest, ATextOf128BytesIsTooLong) {
    AssertPipe(R"("link_0": {"model": )" + text(128) + '}',
               "2:21-2:151 error option-too-long /pipe_0/link_0/model: "
               "'model' is not stored: its text has 128 bytes, and 127 are the most\n"
               "  hint: shorten the text by 1 byte\n");
}

TEST_F(OptionRulesTest, ATextOf127BytesIsNot) {
    AssertPipe(R"("link_0": {"model": )" + text(127) + '}', "");
}

TEST_F(OptionRulesTest, LettersCountByTheirBytes) {
    std::string umlauts;
    for (int i = 0; i < 64; ++i) {
        umlauts += "\u00fc";
    }
    AssertPipe(R"("link_0": {"model": ")" + umlauts + "\"}",
               "2:21-2:87 error option-too-long /pipe_0/link_0/model: "
               "'model' is not stored: its text has 128 bytes, and 127 are the most\n"
               "  hint: shorten the text by 1 byte\n");
}

TEST_F(OptionRulesTest, ATextIsMeasuredUpToItsNul) {
    AssertPipe(R"("link_0": {"model": "x\u0000)" + std::string(200, 'y') + "\"}",
               "2:21-2:230 warning nul-in-option /pipe_0/link_0/model: "
               "'model' is cut to 'x': a text ends at its NUL\n"
               "  hint: remove the NUL from the text\n");
}

TEST_F(OptionRulesTest, WhatIsTooLongIsNothingElse) {
    const std::string zeros(130, '0');
    AssertPipe(R"("link_0": {"a": "int32:)" + zeros + R"(ms"})",
               "2:17-2:157 error option-too-long /pipe_0/link_0/a: "
               "'a' is not stored: its text has 138 bytes, and 127 are the most\n"
               "  hint: shorten the text by 11 bytes\n");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a": "Int32:)" + zeros + R"("}}})"),
              "option-too-long");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a": ")" + zeros + R"(\u0000"}}})"),
              "option-too-long");
}

// ---- option-not-stored -------------------------------------------------------

TEST_F(OptionRulesTest, ABooleanIsNotStored) {
    AssertPipe(R"("link_0": {"sync": true, "late": false})",
               "2:20-2:24 warning option-not-stored /pipe_0/link_0/sync: "
               "'sync' is not stored: an option is a number or a text, not a boolean\n"
               "  hint: write 1 in place of true\n"
               "2:34-2:39 warning option-not-stored /pipe_0/link_0/late: "
               "'late' is not stored: an option is a number or a text, not a boolean\n"
               "  hint: write 0 in place of false\n");
}

TEST_F(OptionRulesTest, AnArrayIsNotStored) {
    AssertPipe(R"("link_0": {"size": [640, 480]})",
               "2:20-2:30 warning option-not-stored /pipe_0/link_0/size: "
               "'size' is not stored: an option is a number or a text, not an array\n"
               "  hint: give each element a key of its own\n");
}

TEST_F(OptionRulesTest, AnObjectIsNotStored) {
    AssertPipe(R"("link_0": {"size": {"width": 640, "height": null}})",
               "2:20-2:50 warning option-not-stored /pipe_0/link_0/size: "
               "'size' is not stored: an option is a number or a text, not an object\n"
               "  hint: move its members up, to the options beside it\n");
}

// ---- nul-in-option -----------------------------------------------------------

TEST_F(OptionRulesTest, ATextEndsAtItsNul) {
    AssertPipe(R"("link_0": {"names": "left\u0000right"})",
               "2:21-2:38 warning nul-in-option /pipe_0/link_0/names: "
               "'names' is cut to 'left': a text ends at its NUL\n"
               "  hint: remove the NUL from the text\n");
}

TEST_F(OptionRulesTest, AKeyEndsAtItsNul) {
    const std::string nul(1, '\0');
    AssertPipe(R"("link_0": {"name\u0000s": 1})",
               "2:12-2:25 warning nul-in-option /pipe_0/link_0/name" + nul +
                   "s: the key of an option is cut to 'name': it ends at its NUL\n"
                   "  hint: remove the NUL from the key\n");
    AssertPipe(R"("link_0": {"name": 1,
"name\u0000s": 2})",
               "3:1-3:14 warning nul-in-option /pipe_0/link_0/name" + nul +
                   "s: the key of an option is cut to 'name': it ends at its NUL\n"
                   "  2:12-2:18 this option has that key too\n"
                   "  hint: remove the NUL from the key\n");
}

TEST_F(OptionRulesTest, ANulIsTheCauseOfAnEmptyValue) {
    AssertPipe(R"("link_0": {"size": "int32:\u00005"})",
               "2:20-2:35 warning nul-in-option /pipe_0/link_0/size: "
               "'size' is cut to 'int32:': a text ends at its NUL\n"
               "  hint: remove the NUL from the text\n");
}

TEST_F(OptionRulesTest, ANulInAnOptionThatIsNotStoredDoesNotCount) {
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": {"a\u0000": null}}})"), "option-not-stored");
}

// ---- option-overridden -------------------------------------------------------

TEST_F(OptionRulesTest, ALaterObjectOverridesAnEarlierOne) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "rate": 25},
    "node_opts_extra": {"rate": "float:29.97"})",
        "4:42-4:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden: \"node_opts_extra\" sets it to float 29.97 later\n"
        "  5:25-5:31 it is overridden here\n"
        "  hint: remove the one that is not meant\n");
}

TEST_F(OptionRulesTest, TheOrderOfTheTextDoesNotCount) {
    AssertNode(
        R"(    "stream_opts_extra": {"rate": 3},
    "node_opts_extra": {"rate": 2},
    "node_opts": {"node_name": "Camera", "rate": 1})",
        "5:25-5:31 note option-overridden /pipe_0/node_0/node_opts_extra/rate: "
        "'rate' is overridden: \"stream_opts_extra\" sets it to int32 3 later\n"
        "  4:27-4:33 it is overridden here\n"
        "  hint: remove the one that is not meant\n"
        "6:42-6:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden: \"stream_opts_extra\" sets it to int32 3 later\n"
        "  4:27-4:33 it is overridden here\n"
        "  hint: remove the one that is not meant\n");
}

TEST_F(OptionRulesTest, ANodesNameIsOverriddenInItsStore) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera"},
    "node_opts_extra": {"node_name": "Door"})",
        "4:19-4:30 note option-overridden /pipe_0/node_0/node_opts/node_name: "
        "'node_name' is overridden: \"node_opts_extra\" sets it to 'Door' later\n"
        "  5:25-5:36 it is overridden here\n"
        "  hint: remove the one that is not meant\n");
}

TEST_F(OptionRulesTest, TheSameValueOverridesNothing) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera"},
    "stream_opts_extra": {"a": 16, "b": "x", "c": "float:nan", "d": "int64:16"},
    "node_opts_extra": {"a": "int32:16", "b": "x", "c": "float:nan", "d": "int64:0x10"})",
        "");
}

TEST_F(OptionRulesTest, AnotherTypeIsAnotherValue) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "rate": 25},
    "node_opts_extra": {"rate": "int64:25"})",
        "4:42-4:48 note option-overridden /pipe_0/node_0/node_opts/rate: "
        "'rate' is overridden: \"node_opts_extra\" sets it to int64 25 later\n"
        "  5:25-5:31 it is overridden here\n"
        "  hint: remove the one that is not meant\n");
}

TEST_F(OptionRulesTest, WhatIsNotStoredNeitherOverridesNorIsOverridden) {
    AssertNode(
        R"(    "node_opts": {"node_name": "Camera", "a": 1, "b": null},
    "node_opts_extra": {"a": null, "b": 1})",
        "4:55-4:59 warning option-not-stored /pipe_0/node_0/node_opts/b: "
        "'b' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n"
        "5:30-5:34 warning option-not-stored /pipe_0/node_0/node_opts_extra/a: "
        "'a' is not stored: an option is a number or a text, not null\n"
        "  hint: give it a value, or remove it\n");
}

TEST_F(OptionRulesTest, LongTextsThatDifferLateAreDifferent) {
    const std::string start(100, 'x');
    AssertNode(R"(    "node_opts": {"node_name": "Camera", "a": ")" + start + R"(1"},
    "node_opts_extra": {"a": ")" +
                   start + R"(2"})",
               "4:42-4:45 note option-overridden /pipe_0/node_0/node_opts/a: "
               "'a' is overridden: \"node_opts_extra\" sets it to '" +
                   start.substr(0, 60) + R"(...' later
  5:25-5:28 it is overridden here
  hint: remove the one that is not meant
)");
}

// ---- option-type -------------------------------------------------------------

// A node that looks an option up as one type when it is initialised.
template <typename Value, int (QvMetaData::*find)(const char*, Value*)>
class LookingNode : public QVHostTaskNode {
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

using TextNode = LookingNode<const char*, &QvMetaData::findCString>;
using Int32Node = LookingNode<int32_t, &QvMetaData::findInt32>;
using Int64Node = LookingNode<int64_t, &QvMetaData::findInt64>;
using FloatNode = LookingNode<float, &QvMetaData::findFloat>;

class OptionTypeTest : public OptionRulesTest {
protected:
    // Expects one option of a node that looks for one of another type to have
    // such a finding. It begins at 4:48.
    template <typename Node>
    static void AssertMissed(const std::string& option,
                             const std::string& end,
                             const std::string& message,
                             const std::string& hint) {
        RegisterCreator("Camera", create<Node>, 0, 1);
        AssertNode(R"(    "node_opts": {"node_name": "Camera", "gain": )" + option + '}',
                   "4:50-4:" + end +
                       " warning option-type /pipe_0/node_0/node_opts/gain: 'gain' is stored as " +
                       message + ": it finds nothing\n  hint: " + hint + '\n');
        QVNodeRegistry::instance().unregisterClass("Camera");
    }

    template <typename Node>
    static void AssertNotTold(const std::string& option, const std::string& findings) {
        RegisterCreator("Camera", create<Node>, 0, 1);
        AssertNode(R"(    "node_opts": {"node_name": "Camera", )" + option + '}', findings);
        QVNodeRegistry::instance().unregisterClass("Camera");
    }
};

TEST_F(OptionTypeTest, ANumberIsAnInt32) {
    AssertMissed<FloatNode>(
        "2", "51", "an int32, but the class 'Camera' looks for a float", "write \"float:2\"");
    AssertMissed<Int64Node>(
        "-2", "52", "an int32, but the class 'Camera' looks for an int64", "write \"int64:-2\"");
    AssertMissed<TextNode>(
        "2", "51", "an int32, but the class 'Camera' looks for a text", "write \"2\"");
}

TEST_F(OptionTypeTest, QuotesMakeAText) {
    AssertMissed<Int32Node>(
        "\"25\"", "54", "a text, but the class 'Camera' looks for an int32", "write \"int32:25\"");
    AssertMissed<FloatNode>(
        "\"0.5\"", "55", "a text, but the class 'Camera' looks for a float", "write \"float:0.5\"");
}

TEST_F(OptionTypeTest, ATypeWordSaysTheType) {
    AssertMissed<Int32Node>("\"int64:25\"",
                            "60",
                            "an int64, but the class 'Camera' looks for an int32",
                            "write \"int32:25\"");
    AssertMissed<TextNode>(
        "\"float:0.5\"", "61", "a float, but the class 'Camera' looks for a text", "write \"0.5\"");
}

TEST_F(OptionTypeTest, WhatTheTypeCannotHoldIsNotProposed) {
    AssertMissed<Int32Node>("\"fast\"",
                            "56",
                            "a text, but the class 'Camera' looks for an int32",
                            "write \"int32:\" and a number");
    AssertMissed<Int32Node>("\"\"",
                            "52",
                            "a text, but the class 'Camera' looks for an int32",
                            "write \"int32:\" and a number");
    AssertMissed<Int32Node>("\"int64:3000000000\"",
                            "68",
                            "an int64, but the class 'Camera' looks for an int32",
                            "write \"int32:\" and a number");
    AssertMissed<Int32Node>("\"float:0.5\"",
                            "61",
                            "a float, but the class 'Camera' looks for an int32",
                            "write \"int32:\" and a number");
}

TEST_F(OptionTypeTest, TheOptionThatIsStoredIsTold) {
    RegisterCreator("Camera", create<FloatNode>, 0, 1);
    AssertNode(R"(    "node_opts": {"node_name": "Camera", "gain": 2},
    "node_opts_extra": {"gain": 2})",
               "5:33-5:34 warning option-type /pipe_0/node_0/node_opts_extra/gain: "
               "'gain' is stored as an int32, but the class 'Camera' looks for a float: "
               "it finds nothing\n"
               "  hint: write \"float:2\"\n");
}

TEST_F(OptionTypeTest, WhatIsFoundOrIsNotThereIsRight) {
    AssertNotTold<FloatNode>(R"("gain": "float:2")", "");
    AssertNotTold<FloatNode>(R"("rate": 25)", "");
}

TEST_F(OptionTypeTest, ANumberThatIsLostIsToldOnce) {
    AssertNotTold<FloatNode>(R"("gain": 0.5)",
                             "4:50-4:53 warning number-lost /pipe_0/node_0/node_opts/gain: "
                             "'gain' is stored as 0: the fraction of '0.5' is dropped\n"
                             "  hint: write \"float:0.5\"\n");
}

}  // namespace
