// The samples in the headers of reports are what the code writes.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "render/check_gcc.h"
#include "render/check_github.h"
#include "render/check_text.h"
#include "render/rules_text.h"
#include "tests/render/small_check.h"
#include "tests/render/small_rules.h"
#include "tests/support/temporary_folder.h"

namespace {

using qvgraph::CheckedFile;

// The only sample of a header, with a newline before it. A sample is a comment
// with an indent of three; empty comments within it are empty lines. A line with
// a deeper indent may continue the one before it: see joined().
std::string sampleOf(const std::string& header) {
    const std::string begin = "//   ";
    std::istringstream text(readFile(std::string(QVGRAPH_SOURCE_DIR) + '/' + header));
    std::string sample = "\n";
    std::string emptyLines;
    for (std::string line; std::getline(text, line);) {
        if (line.compare(0, begin.size(), begin) == 0) {
            sample += emptyLines + line.substr(begin.size()) + '\n';
            emptyLines.clear();
        } else if (line == "//" && sample.size() > 1) {
            emptyLines += '\n';
        } else {
            emptyLines.clear();
        }
    }
    return sample;
}

// A sample without the line breaks before indented lines.
std::string joined(std::string sample) {
    const std::string wrap = "\n    ";
    for (size_t at = sample.find(wrap); at != std::string::npos; at = sample.find(wrap, at)) {
        sample.erase(at, wrap.size());
    }
    return sample;
}

std::vector<CheckedFile> files() {
    return filesOf(doorFile());
}

TEST(HeaderSamplesTest, CheckText) {
    std::ostringstream out;
    qvgraph::renderCheckText(out, files(), false);
    EXPECT_EQ(sampleOf("render/check_text.h"), '\n' + out.str());
}

TEST(HeaderSamplesTest, CheckGcc) {
    std::ostringstream out;
    qvgraph::renderCheckGcc(out, files());
    EXPECT_EQ(sampleOf("render/check_gcc.h"), '\n' + out.str());
}

TEST(HeaderSamplesTest, CheckGithub) {
    std::ostringstream out;
    qvgraph::renderCheckGithub(out, files());
    EXPECT_EQ(joined(sampleOf("render/check_github.h")), '\n' + out.str());
}

TEST(HeaderSamplesTest, RulesText) {
    std::ostringstream out;
    qvgraph::renderRuleText(out, explainedTwice());
    EXPECT_EQ(sampleOf("render/rules_text.h"), '\n' + out.str());
}

}  // namespace
