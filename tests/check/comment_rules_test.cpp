// Comments that suppress findings.
#include <string>

#include "tests/check/check_test.h"

namespace {

using CommentRulesTest = CheckTest;

// ---- What is suppressed -----------------------------------------------------

TEST_F(CommentRulesTest, ACommentAtTheEndOfALineAppliesToThatLine) {
    AssertPipe(R"("threads": 4, // qvgraph: ignore[unknown-key] of the old firmware
"default_mode_link": "sync")",
               "");
}

TEST_F(CommentRulesTest, ACommentOnItsOwnLineAppliesToTheNext) {
    AssertPipe(R"(// qvgraph: ignore[unknown-key] of the old firmware
"threads": 4)",
               "");
}

TEST_F(CommentRulesTest, BlockCommentsSuppressToo) {
    AssertPipe(R"("threads": 4 /* qvgraph: ignore[unknown-key] */)", "");
    AssertPipe(R"(/* qvgraph: ignore[unknown-key] */ "threads": 4)", "");
    AssertPipe(R"(/* qvgraph: ignore[unknown-key]
   of the old firmware */
"threads": 4)",
               "");
    AssertPipe(R"(/* qvgraph: ignore[unknown-key]
   of the old firmware */ "threads": 4)",
               "");
}

TEST_F(CommentRulesTest, NotesAreSuppressedToo) {
    AssertPipe(R"("executor_0": {} // qvgraph: ignore[executor-without-options] as it is)", "");
}

TEST_F(CommentRulesTest, EmptyLinesAreSkipped) {
    AssertPipe("// qvgraph: ignore[unknown-key]\r\n\r\n \t\r\n\"threads\": 4", "");
}

TEST_F(CommentRulesTest, SeveralCodesAreSeparatedByCommas) {
    AssertPipe(
        R"("executor_0": {}, "threads": 4 // qvgraph: ignore[unknown-key,executor-without-options])",
        "");
}

TEST_F(CommentRulesTest, BlanksAndTheStyleOfTheCommentDoNotMatter) {
    AssertPipe("\"threads\": 4 //qvgraph: \t ignore [ unknown-key\t, ]no reason", "");
    AssertPipe("\"threads\": 4 /**\n * qvgraph: ignore[unknown-key]*/", "");
    AssertPipe(R"("threads": 4 /// qvgraph: ignore[unknown-key])", "");
}

TEST_F(CommentRulesTest, CommentsOnTheirOwnLinesAddUp) {
    AssertPipe(R"(// qvgraph: ignore[unknown-key] of the old firmware
/* qvgraph: ignore[executor-without-options] as it is */

// qvgraph: ignore[link-mode-not-text] as it was
"executor_0": {}, "threads": 4, "default_mode_link": 1)",
               "");
}

TEST_F(CommentRulesTest, EveryFindingOnTheLineIsSuppressed) {
    AssertPipe(R"("a": 1, "b": 2, "c": 3 // qvgraph: ignore[unknown-key] generated)", "");
}

TEST_F(CommentRulesTest, OnlyFindingsThatStartOnTheLineAreSuppressed) {
    AssertPipe(
        R"("a": 1,
"b": 2, // qvgraph: ignore[unknown-key]
"c": 3)",
        R"(2:1-2:4 warning unknown-key /pipe_0/a: 'a' is not a reserved key of a pipe: the device ignores it
  hint: remove it; the reserved keys of a pipe are "thread_opts", "default_mode_link", 'executor_<e>', 'link_<l>' and 'node_<n>'
4:1-4:4 warning unknown-key /pipe_0/c: 'c' is not a reserved key of a pipe: the device ignores it
  hint: remove it; the reserved keys of a pipe are "thread_opts", "default_mode_link", 'executor_<e>', 'link_<l>' and 'node_<n>'
)");
}

TEST_F(CommentRulesTest, ACommentAtARelatedLocationSuppressesToo) {
    AssertPipe(R"("node_0": {"node_opts": {"node_name": "Camera", "fps": 25},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"},
           // qvgraph: ignore[option-overridden] the board's sensor is slower
           "node_opts_extra": {"fps": 15}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
               "");
    AssertPipe(R"("default_mode_link": "sync", // qvgraph: ignore[duplicate-key] once
"default_mode_link": "async")",
               "");
}

TEST_F(CommentRulesTest, CommentsAtBothLocationsAreUsed) {
    AssertPipe(R"("default_mode_link": "sync", // qvgraph: ignore[duplicate-key] once
"default_mode_link": "async" // qvgraph: ignore[duplicate-key] now)",
               "");
}

TEST_F(CommentRulesTest, OnlyFindingsWithTheCodeAreSuppressed) {
    AssertPipe(
        R"("executor_0": {}, "threads": 4 // qvgraph: ignore[unknown-key])",
        R"(2:1-2:13 note executor-without-options /pipe_0/executor_0: 'executor_0' has no "executor_opts": the executor has no options
  hint: add "executor_opts": {...} if you intended it to have options
)");
}

// ---- unused-ignore ----------------------------------------------------------

TEST_F(CommentRulesTest, AnUnusedCommentIsReported) {
    AssertPipe(R"("default_mode_link": "sync" // qvgraph: ignore[unknown-key] once)",
               R"(2:48-2:59 warning unused-ignore : this line has no 'unknown-key' to suppress
  hint: remove it
)");
    AssertPipe(R"(// qvgraph: ignore[unknown-key] once
"default_mode_link": "sync")",
               R"(2:20-2:31 warning unused-ignore : the line below has no 'unknown-key' to suppress
  hint: remove it
)");
}

TEST_F(CommentRulesTest, EveryUnusedCodeIsReported) {
    AssertPipe(R"("threads": 4 // qvgraph: ignore[thread-count, unknown-key, invalid-utf8])",
               R"(2:33-2:45 warning unused-ignore : this line has no 'thread-count' to suppress
  hint: remove it
2:60-2:72 warning unused-ignore : this line has no 'invalid-utf8' to suppress
  hint: remove it
)");
}

TEST_F(CommentRulesTest, ACommentAfterTheLineDoesNotApply) {
    AssertPipe(
        R"("threads": 4
// qvgraph: ignore[unknown-key])",
        R"(2:1-2:10 warning unknown-key /pipe_0/threads: 'threads' is not a reserved key of a pipe: the device ignores it
  hint: remove it; the reserved keys of a pipe are "thread_opts", "default_mode_link", 'executor_<e>', 'link_<l>' and 'node_<n>'
3:20-3:31 warning unused-ignore : the line below has no 'unknown-key' to suppress
  hint: remove it
)");
}

TEST_F(CommentRulesTest, ACommentAfterTheLastLineIsUnused) {
    AssertFinds("{\"pipe_0\": {}}\n// qvgraph: ignore[unknown-key]",
                R"(2:20-2:31 warning unused-ignore : the line below has no 'unknown-key' to suppress
  hint: remove it
)");
}

TEST_F(CommentRulesTest, AnOrdinaryCommentIsANextLine) {
    AssertPipe(R"(// qvgraph: ignore[unknown-key]
// of the old firmware
"threads": 4)",
               R"(2:20-2:31 warning unused-ignore : the line below has no 'unknown-key' to suppress
  hint: remove it
4:1-4:10 warning unknown-key /pipe_0/threads: 'threads' is not a reserved key of a pipe: the device ignores it
  hint: remove it; the reserved keys of a pipe are "thread_opts", "default_mode_link", 'executor_<e>', 'link_<l>' and 'node_<n>'
)");
}

TEST_F(CommentRulesTest, ErrorsAreNeverSuppressed) {
    AssertFinds(
        R"({"Pipe_0": {}} // qvgraph: ignore[pipe-not-addressable])",
        R"(1:2-1:10 error pipe-not-addressable /Pipe_0: 'Pipe_0' is treated as a pipe, but no index maps to it: the device ignores it
  hint: rename it to 'pipe_0'
1:35-1:55 warning unused-ignore : 'pipe-not-addressable' is an error, and errors are never suppressed
  hint: remove it, and fix the error
)");
}

TEST_F(CommentRulesTest, AnUnknownCodeIsReported) {
    AssertPipe(
        R"("threads": 4 // qvgraph: ignore[unknown-keys, W12])",
        R"(2:1-2:10 warning unknown-key /pipe_0/threads: 'threads' is not a reserved key of a pipe: the device ignores it
  hint: remove it; the reserved keys of a pipe are "thread_opts", "default_mode_link", 'executor_<e>', 'link_<l>' and 'node_<n>'
2:33-2:45 warning unused-ignore : there is no rule 'unknown-keys'
  hint: write 'unknown-key'
2:47-2:50 warning unused-ignore : there is no rule 'W12'
  hint: remove it
)");
}

TEST_F(CommentRulesTest, AMalformedCommentIsReported) {
    for (const char* comment : {"// qvgraph: ignore",
                                "// qvgraph: ignore unknown-key",
                                "// qvgraph: ignore[]",
                                "// qvgraph: ignore[ , ]",
                                "// qvgraph: ignore[unknown-key",
                                "// qvgraph:ignore[unknown-key]",
                                "// qvgraph : ignore[unknown-key]",
                                "// QVGraph: ignore[unknown-key]",
                                "// qvgraph: Ignore[unknown-key]",
                                "// qvgraph: ignore(unknown-key)",
                                "/* qvgraph: ignore */"}) {
        AssertFinds("{\"pipe_0\": {}}\n" + std::string(comment),
                    "2:1-2:" + std::to_string(1 + std::string(comment).size()) +
                        " warning unused-ignore : "
                        "this comment names no rule and suppresses nothing\n"
                        "  hint: write \"qvgraph: ignore[code] reason\"\n");
    }
}

TEST_F(CommentRulesTest, OtherCommentsAreNotReported) {
    for (const char* comment : {"//",
                                "/**/",
                                "// qvgraph",
                                "// qvgraph: the door",
                                "// ignore[unknown-key]",
                                "// qvgraph ignores this",
                                "// qvgraph: ignores this",
                                "// see qvgraph: ignore[code]",
                                "// qvgraph: ignoreX[unknown-key]"}) {
        AssertFinds("{\"pipe_0\": {}}\n" + std::string(comment), "");
    }
}

TEST_F(CommentRulesTest, TheReportOfAnUnusedCommentCanBeSuppressed) {
    AssertPipe(
        R"("default_mode_link": "sync" // qvgraph: ignore[unknown-key, unused-ignore] on some devices)",
        "");
    AssertPipe(R"("default_mode_link": "sync" // qvgraph: ignore[unused-ignore])",
               R"(2:48-2:61 warning unused-ignore : this line has no 'unused-ignore' to suppress
  hint: remove it
)");
}

TEST_F(CommentRulesTest, UnusedCommentsAreNotReportedInTextThatIsNotJson) {
    EXPECT_EQ(CodesIn("// qvgraph: ignore[unknown-key]\n{"), "syntax");
}

TEST_F(CommentRulesTest, UnusedCommentsAreNotReportedInAnOverriddenMember) {
    AssertPipe(
        R"("link_0": {"rate": 25},
"node_0": {
  // qvgraph: ignore[unknown-key] of the old firmware
  "threads": 4,
  "node_opts": {"fps": 1.5} // qvgraph: ignore[number-lost] enough
},
"node_0": {"node_opts": {"node_name": "Camera"},
           "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
"node_1": {"node_opts": {"node_name": "Display"},
           "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}})",
        "8:1-8:9 warning duplicate-key /pipe_0/node_0: 'node_0' is already in this object: the device discards the earlier value and uses this one\n"
        "  3:1-3:9 the earlier value\n"
        "  hint: remove or rename one of them\n");
}

TEST_F(CommentRulesTest, UnusedCommentsAreNotReportedInAValueThatIsNotRead) {
    EXPECT_EQ(CodesIn("[\n  {\"threads\": 4} // qvgraph: ignore[unknown-key]\n]"),
              "root-not-object");
    EXPECT_EQ(CodesIn("null // qvgraph: ignore[no-pipes]"), "no-document");
    EXPECT_EQ(CodesIn("[]\n// qvgraph: ignore[no-pipes]"), "root-not-object");
    EXPECT_EQ(CodesIn(R"({"Pipe_0": {"a": 4}} // qvgraph: ignore[unknown-key])"),
              "pipe-not-addressable");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"node_0": [
  {"threads": 4} // qvgraph: ignore[unknown-key]
]}})"),
              "section-not-object");
    EXPECT_EQ(CodesIn(R"({"pipe_0": {"link_0": [
  {"rate": 2.5} // qvgraph: ignore[number-lost]
]}})"),
              "section-ignored");
}

TEST_F(CommentRulesTest, UnusedCommentsAreReportedNextToAnOverriddenMember) {
    AssertPipe(
        R"("link_0": {"rate": 25},
"link_0": {
  "rate": 30 // qvgraph: ignore[number-lost]
})",
        "3:1-3:9 warning duplicate-key /pipe_0/link_0: "
        "'link_0' is already in this object: the device discards the earlier value and uses this one\n"
        "  2:1-2:9 the earlier value\n"
        "  hint: remove or rename one of them\n"
        "4:33-4:44 warning unused-ignore : this line has no 'number-lost' to suppress\n"
        "  hint: remove it\n");
}

TEST_F(CommentRulesTest, UnusedCommentsAreNotReportedForADeselectedRule) {
    qvgraph::CheckRequest request;
    request.selects = [](std::string_view code) { return code != "unknown-key"; };
    const std::string text = R"({"pipe_0": {}} // qvgraph: ignore[unknown-key])";
    EXPECT_TRUE(qvgraph::checkConfiguration("test.json", text, request).findings.empty());
}

TEST_F(CommentRulesTest, ACommentForADeselectedRuleIsUsed) {
    qvgraph::CheckRequest request;
    request.selects = [](std::string_view code) { return code == "unused-ignore"; };
    const std::string text = R"({"pipe_0": {"threads": 4}} // qvgraph: ignore[unknown-key])";
    EXPECT_TRUE(qvgraph::checkConfiguration("test.json", text, request).findings.empty());
}

}  // namespace
