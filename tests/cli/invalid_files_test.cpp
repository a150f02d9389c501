// Every file of tests/data/invalid has the report next to it, and the examples have only
// notes.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> filesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") {
            names.push_back(entry.path().stem());
        }
    }
    return names;
}

class InvalidFilesTest : public CommandTest {};

TEST_F(InvalidFilesTest, EveryInvalidFileHasItsReport) {
    const std::string invalid = QVGRAPH_TEST_DATA "/invalid";
    ASSERT_GE(filesIn(invalid).size(), 10U);
    request.folder = invalid;
    for (const std::string& name : filesIn(invalid)) {
        const std::string report = QVGRAPH_TEST_DATA "/invalid/" + name + ".txt";
        EXPECT_EQ(Run({"check", "-q", name + ".json"}).out, readFile(report)) << name;
    }
}

TEST_F(InvalidFilesTest, TheExamplesHaveOnlyNotes) {
    ASSERT_GE(filesIn(QVGRAPH_EXAMPLES).size(), 5U);
    for (const std::string& name : filesIn(QVGRAPH_EXAMPLES)) {
        const std::string path = QVGRAPH_EXAMPLES "/" + name + ".json";
        EXPECT_EQ(Run({"check", "-q", "--fail-on", "warning", path}).exitCode, 0) << name;
    }
}

}  // namespace
