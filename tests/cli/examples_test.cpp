// Every node of the examples is ready. tests/data/inspect contains the expected reports.
#include <string>

#include "tests/cli/command_test.h"

namespace {

class ExamplesTest : public CommandTest {
protected:
    ExamplesTest() { request.folder = QVGRAPH_EXAMPLES; }

    // The expected report in this file.
    static std::string Expected(const std::string& name) {
        return readFile(QVGRAPH_TEST_DATA "/inspect/" + name);
    }
};

TEST_F(ExamplesTest, TheFirstExampleIsReady) {
    AssertRuns({"inspect", "first.json"}, 0, Expected("first.txt"), "");
    AssertRuns({"inspect", "--format", "json", "first.json"}, 0, Expected("first.json"), "");
}

TEST_F(ExamplesTest, TheDoorCameraIsReady) {
    AssertRuns({"inspect", "door-camera.json"}, 0, Expected("door-camera.txt"), "");
    AssertRuns(
        {"inspect", "--format", "json", "door-camera.json"}, 0, Expected("door-camera.json"), "");
}

}  // namespace
