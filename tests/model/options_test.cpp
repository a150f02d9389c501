// The options of a model: what is stored of each, and which one takes effect.
#include <string>
#include <string_view>

#include "tests/model/model_test.h"

namespace {

using qvgraph::Node;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

class OptionsTest : public ModelTest {
protected:
    // What is stored of the option "a" of 'node_3' with this value.
    std::string StoredOf(const std::string& value) {
        const Node& node = NodeOf(R"({"node_opts": {"a": )" + value + "}}");
        return textOf(node.objects[0].options.at(0).stored);
    }

    // The options that take effect, by their paths and values.
    static std::string StoredOptionsOf(const Node& node) {
        std::string text;
        for (const qvgraph::Option* option : storedOptions(node)) {
            text += pathOf(node, option) + ' ' + textOf(option->stored) + '\n';
        }
        return '\n' + text;
    }
};

// ---- stored values ------------------------------------------------------------------

TEST_F(OptionsTest, ANumberIsStoredAsAnInt32) {
    EXPECT_EQ(StoredOf("25"), "int32 25");
    EXPECT_EQ(StoredOf("-0.9"), "int32 0");
    EXPECT_EQ(StoredOf("3000000000"), "int32 2147483647");
}

TEST_F(OptionsTest, ATypedStringIsStoredAsItsType) {
    EXPECT_EQ(StoredOf(R"("int32:30")"), "int32 30");
    EXPECT_EQ(StoredOf(R"("int64:3000000000")"), "int64 3000000000");
    EXPECT_EQ(StoredOf(R"("float:0.5")"), "float 0.5");
    EXPECT_EQ(StoredOf(R"("double:0.25")"), "float 0.25");
    EXPECT_EQ(StoredOf(R"("int32")"), "int32 0");
}

TEST_F(OptionsTest, AnyOtherStringIsStoredAsItIs) {
    EXPECT_EQ(StoredOf(R"("fast")"), R"("fast")");
    EXPECT_EQ(StoredOf(R"("int:5")"), R"("int:5")");
    EXPECT_EQ(StoredOf(R"(" int32:5")"), R"(" int32:5")");
    EXPECT_EQ(StoredOf(R"("")"), R"("")");
}

TEST_F(OptionsTest, AStringIsStoredUpToItsFirstNul) {
    EXPECT_EQ(StoredOf(R"("fast\u0000er")"), R"("fast")");
}

TEST_F(OptionsTest, AStringThatIsTooLongIsNotStored) {
    const std::string longest(127, 'x');
    EXPECT_EQ(StoredOf('"' + longest + '"'), '"' + longest + '"');
    EXPECT_EQ(StoredOf('"' + longest + "x\""), "-");
}

TEST_F(OptionsTest, NothingElseIsStored) {
    for (const char* value : {"null", "true", "[]", R"(["a"])", "{}", R"({"a": 1})"}) {
        EXPECT_EQ(StoredOf(value), "-") << value;
    }
}

// ---- option objects -----------------------------------------------------------------

TEST_F(OptionsTest, OptionsAreInTheByteOrderOfTheirKeysWithTheirMembers) {
    const Node& node = NodeOf(R"({"node_opts": {"b": 1, "a": 2, "B": 3, "": 4}})");
    EXPECT_EQ(textOf(node.objects[0], &node), "{ int32 4, B int32 3, a int32 2, b int32 1}");
    for (const qvgraph::Option& option : node.objects[0].options) {
        EXPECT_EQ(option.member, node.nodeOptions()->member(option.member->key));
    }
}

TEST_F(OptionsTest, OfMembersWithTheSameKeyTheLastIsTheOption) {
    const Node& node = NodeOf(R"({"node_opts": {"a": 1, "a": 2}})");
    EXPECT_EQ(textOf(node.objects[0], &node), "{a int32 2}");
}

TEST_F(OptionsTest, AnObjectThatIsMissingOrNotAnObjectHasNoOptions) {
    const Node& node = NodeOf(R"({"node_opts": ["a"], "stream_opts": {}})");
    EXPECT_EQ(node.objects[0].value, nullptr);
    EXPECT_NE(node.objects[1].value, nullptr);
    EXPECT_TRUE(node.objects[1].options.empty());
    EXPECT_EQ(node.objects[2].value, nullptr);
}

// ---- overriding ---------------------------------------------------------------------

TEST_F(OptionsTest, AnOptionIsOverriddenByTheNextOneThatIsStored) {
    NodeOf(R"({
        "stream_opts_extra": {"a": 4},
        "node_opts_extra": {"a": 3},
        "stream_opts": {"a": 2, "b": 2},
        "node_opts": {"a": 1, "b": 1, "c": 1}
    })");
    EXPECT_EQ(textOf(model),
              R"(
pipe 0 threads 0 links none
  node_3 id 3 "" of "": not created
    node_opts {a int32 1 (overridden by stream_opts.a), )"
              R"(b int32 1 (overridden by stream_opts.b), c int32 1}
    stream_opts {a int32 2 (overridden by node_opts_extra.a), b int32 2}
    node_opts_extra {a int32 3 (overridden by stream_opts_extra.a)}
    stream_opts_extra {a int32 4}
)");
}

TEST_F(OptionsTest, AnOptionThatIsNotStoredNeitherOverridesNorIsOverridden) {
    NodeOf(R"({
        "node_opts": {"a": 1, "b": null},
        "stream_opts": {"a": null, "b": 2},
        "node_opts_extra": {"a": 3}
    })");
    EXPECT_EQ(textOf(model), R"(
pipe 0 threads 0 links none
  node_3 id 3 "" of "": not created
    node_opts {a int32 1 (overridden by node_opts_extra.a), b -}
    stream_opts {a -, b int32 2}
    node_opts_extra {a int32 3}
)");
}

TEST_F(OptionsTest, KeysThatDifferOnlyAfterANulOverrideEachOther) {
    NodeOf(R"({
        "node_opts": {"a\u0000z": 1, "a": 2, "ab": 3},
        "stream_opts": {"a\u0000b": 4}
    })");
    EXPECT_EQ(textOf(model),
              R"(
pipe 0 threads 0 links none
  node_3 id 3 "" of "": not created
    node_opts {a int32 2 (overridden by node_opts.a\0z), )"
              R"(a\0z int32 1 (overridden by stream_opts.a\0b), ab int32 3}
    stream_opts {a\0b int32 4}
)");
}

TEST_F(OptionsTest, TheOptionsOfExecutorsAndLinksDoNotOverrideEachOther) {
    AssertModel(R"({"pipe_0": {"link_0": {"a": 1}, "link_1": {"a": 2}}})", R"(
pipe 0 threads 0 links none
  link_0 id 0 {a int32 1}
  link_1 id 1 {a int32 2}
)");
}

// ---- queries ------------------------------------------------------------------------

TEST_F(OptionsTest, TheOptionUnderAKeyIsTheLastOneThatIsStored) {
    const Node& node = NodeOf(R"({
        "node_opts": {"a": 1, "b": 1, "c": null, "d\u0000x": 5},
        "stream_opts": {"a": 2, "b": null, "c": true, "d": null}
    })");
    EXPECT_EQ(pathOf(node, optionUnder(node, "a")), "stream_opts.a");
    EXPECT_EQ(pathOf(node, optionUnder(node, "b")), "node_opts.b");
    EXPECT_EQ(pathOf(node, optionUnder(node, "c")), "stream_opts.c");
    EXPECT_EQ(pathOf(node, optionUnder(node, "d")), R"(node_opts.d\0x)");
    EXPECT_EQ(pathOf(node, optionUnder(node, "e")), "-");
}

TEST_F(OptionsTest, AKeyIsLookedUpUpToItsFirstNul) {
    const Node& node = NodeOf(R"({"node_opts": {"a": 1, "b\u0000c": 2}})");
    EXPECT_EQ(pathOf(node, optionUnder(node, "a\0b"s)), "node_opts.a");
    EXPECT_EQ(pathOf(node, optionUnder(node, "b")), R"(node_opts.b\0c)");
    EXPECT_EQ(qvgraph::untilNul("a\0b"s), "a");
    EXPECT_EQ(qvgraph::untilNul("ab"), "ab");
}

TEST_F(OptionsTest, TheStoredOptionsAreThoseThatTakeEffectInTheOrderOfTheirKeys) {
    EXPECT_EQ(StoredOptionsOf(NodeOf(R"({
        "node_opts": {"c": 1, "a": 1, "d": null},
        "stream_opts": {"b": "two", "a": "float:2"},
        "stream_opts_extra": {"a\u0000x": 4}
    })")),
              R"(
stream_opts_extra.a\0x int32 4
stream_opts.b "two"
node_opts.c int32 1
)");
}

TEST_F(OptionsTest, AStoredStringIsFoundAndANumberIsNot) {
    const Node& node = NodeOf(R"({
        "node_opts": {"text": "t", "number": 5, "typed": "int32:5", "none": null, "both": "t"},
        "stream_opts": {"both": 5}
    })");
    ASSERT_NE(storedString(node, "text"), nullptr);
    EXPECT_EQ(*storedString(node, "text"), "t");
    for (const char* key : {"number", "typed", "none", "both", "missing", ""}) {
        EXPECT_EQ(storedString(node, key), nullptr) << key;
    }
}

}  // namespace
