// Which member a comment describes.
#include <string>

#include "tests/model/model_test.h"

namespace {

class CommentsTest : public ModelTest {
protected:
    // The comments of a text that has no pipes.
    static void AssertComments(const std::string& text, const std::string& comments) {
        AssertModel(text, comments);
    }
};

TEST_F(CommentsTest, ACommentAfterAMemberOnItsLineDescribesIt) {
    AssertComments(R"({
  "a": 1,  // one
  "b": {
    "c": 2  /* two */
  },  // an object
  "d": 3
})",
                   R"(
comment 2:12 "// one" /a
comment 4:13 "/* two */" /b/c
comment 5:7 "// an object" /b
)");
}

TEST_F(CommentsTest, NoBlankIsNeededBeforeAComment) {
    AssertComments(R"({"a":{/*in a*/"b":1/*b*/}/*a*/,"c"/*c*/:2})", R"(
comment 1:7 "/*in a*/" /a
comment 1:20 "/*b*/" /a/b
comment 1:26 "/*a*/" /a
comment 1:35 "/*c*/" /c
)");
}

TEST_F(CommentsTest, ACommentAfterAnOpeningBraceOnItsLineDescribesTheObject) {
    AssertComments(R"({
  "a": {  // an object
    "b": 1
  },
  "c": {  // an empty one
  }
})",
                   R"(
comment 2:11 "// an object" /a
comment 5:11 "// an empty one" /c
)");
}

TEST_F(CommentsTest, ACommentOnALineBeforeAMemberDescribesIt) {
    AssertComments(R"({
  // first
  "a": 1,
  // second
  /* and
     more */
  "b": {
    // nested
    "c": 2
  }
})",
                   R"(
comment 2:3 "// first" /a
comment 4:3 "// second" /b
comment 5:3 "/* and
     more */" /b
comment 8:5 "// nested" /b/c
)");
}

TEST_F(CommentsTest, ACommentBeforeAMemberOnItsLineDescribesItUnlessItFollowsAnother) {
    AssertComments(R"({
  /* first */ "a": 1,
  /* second */ "b": 2, /* still b */ "c": 3
})",
                   R"(
comment 2:3 "/* first */" /a
comment 3:3 "/* second */" /b
comment 3:24 "/* still b */" /b
)");
}

TEST_F(CommentsTest, ACommentBetweenAKeyAndItsValueDescribesTheMember) {
    AssertComments(R"({
  "a" /* before the colon */ : // after it
    1,
  "b":
    /* an object */ {}
})",
                   R"(
comment 2:7 "/* before the colon */" /a
comment 2:32 "// after it" /a
comment 5:5 "/* an object */" /b
)");
}

TEST_F(CommentsTest, ACommentOnALineAtTheEndOfAnObjectDescribesNothing) {
    AssertComments(R"({
  "a": {
    "b": 1
    // the end of a
  }
  // the end
})",
                   R"(
comment 4:5 "// the end of a" -
comment 6:3 "// the end" -
)");
}

TEST_F(CommentsTest, ACommentAlongsideTheRootDescribesNothing) {
    AssertComments(R"(// before
{ // within
} // after
// the end)",
                   R"(
comment 1:1 "// before" -
comment 2:3 "// within" -
comment 3:3 "// after" -
comment 4:1 "// the end" -
)");
}

TEST_F(CommentsTest, ACommentInAnArrayDescribesNothingUnlessItFollowsTheBracket) {
    AssertComments(R"({
  "a": [  // an array
    // an element
    1,  // one
    2
    // the end of the array
  ],  // after the array
  "b": [{
    // within an element
    "c": 1
  }]
})",
                   R"(
comment 2:11 "// an array" /a
comment 3:5 "// an element" -
comment 4:9 "// one" -
comment 6:5 "// the end of the array" -
comment 7:7 "// after the array" /a
comment 9:5 "// within an element" /b/0/c
)");
}

TEST_F(CommentsTest, ACommentMayDescribeAMemberThatIsOverridden) {
    const qvgraph::Model overridden = ModelOf("{\n\"a\": 1, // first\n\"a\": 2 // second\n}");
    ASSERT_EQ(overridden.comments().size(), 2U);
    const qvgraph::Value* const last = overridden.source().root()->member("a");
    EXPECT_EQ(overridden.comments()[0].member->overriddenBy, last);
    EXPECT_EQ(overridden.comments()[1].member, last);
}

TEST_F(CommentsTest, TheCommentsOfATextThatIsNotJsonDescribeNothing) {
    const qvgraph::Model broken = ModelOf("{\"a\": 1, // one\n\"b\"}");
    EXPECT_EQ(textOf(broken), R"(
does not load: expected ':' in object, got '}' (125)
comment 1:10 "// one" -
)");
}

}  // namespace
