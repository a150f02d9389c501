// The examples, inspected: every node of them is ready.
//
// The reports stand in tests/data/inspect, where they are read and changed by
// hand.
#include <string>

#include "tests/cli/command_test.h"

namespace {

class ExamplesTest : public CommandTest {
protected:
    ExamplesTest() { request.folder = QVGRAPH_EXAMPLES; }

    // The report that an example has, by the name of its file.
    static std::string Expected(const std::string& name) {
        return readFile(QVGRAPH_TEST_DATA "/inspect/" + name);
    }
};

TEST_F(ExamplesTest, TheFirstOneIsReady) {
    AssertRuns({"inspect", "first.json"}, 0, Expected("first.txt"), "");
    AssertRuns({"inspect", "--format", "json", "first.json"}, 0, Expected("first.json"), "");
}

TEST_F(ExamplesTest, TheDoorCameraIsReady) {
    AssertRuns({"inspect", "door-camera.json"}, 0, Expected("door-camera.txt"), "");
    AssertRuns(
        {"inspect", "--format", "json", "door-camera.json"}, 0, Expected("door-camera.json"), "");
}

}  // namespace
