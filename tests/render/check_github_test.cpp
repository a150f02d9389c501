// Findings as annotations of a workflow.
#include "render/check_github.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/render/small_check.h"

namespace {

using qvgraph::CheckedFile;
using qvgraph::Finding;
using qvgraph::Severity;

std::string reportOf(const std::vector<CheckedFile>& files) {
    std::ostringstream out;
    qvgraph::renderCheckGithub(out, files);
    return out.str();
}

TEST(CheckGithubTest, ShowsAFindingOnOneLine) {
    EXPECT_EQ(reportOf(filesOf(doorFile(), fileWith("clean.json", "{}", {}), gateFile())),
              "::warning file=door.json,line=3,col=14,endLine=3,endColumn=19,title=twice"
              "::'fps' is already in this object%0A2:14: overridden here"
              "%0Ahint: remove one of the two\n"
              "::error file=door.json,line=4,col=3,endLine=4,endColumn=11,title=no-number"
              "::'link_x' has no number\n"
              "::notice file=gate.json,line=1,col=3,endLine=1,endColumn=3,title=no-line-end"
              "::the last line does not end\n");
}

TEST(CheckGithubTest, WritesNothingWithoutFindings) {
    EXPECT_EQ(reportOf(filesOf(fileWith("a.json", "{}", {}))), "");
}

TEST(CheckGithubTest, AFindingOfSeveralLinesHasNoColumns) {
    EXPECT_EQ(reportOf(filesOf(fileWith(
                  "a.json", "{\n\n}", {findingAt({0, 4}, Severity::Note, "n", "it is empty")}))),
              "::notice file=a.json,line=1,endLine=3,title=n::it is empty\n");
}

TEST(CheckGithubTest, EncodesWhatHasAMeaningInACommand) {
    Finding finding = findingAt({0, 2}, Severity::Error, "e", "100 %, a:b::c");
    finding.hint = "write 5%";
    EXPECT_EQ(reportOf(filesOf(fileWith("a,b:c%d.json", "{}", {finding}))),
              "::error file=a%2Cb%3Ac%25d.json,line=1,col=1,endLine=1,endColumn=3,title=e"
              "::100 %25, a:b::c%0Ahint: write 5%25\n");
}

TEST(CheckGithubTest, NothingOfAConfigurationReachesTheLogRaw) {
    const std::string shown = SHOWN_EVIL;
    EXPECT_EQ(reportOf(filesOf(hostileFile())),
              "::error file=" + shown + ",line=1,col=1,endLine=1,endColumn=4,title=evil::" + shown +
                  "%0A1:8: " + shown + "%0Ahint: " + shown + '\n');
}

}  // namespace
