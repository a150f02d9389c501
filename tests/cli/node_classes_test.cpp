// The node classes with which `qvgraph inspect` sets up nodes.
#include <string>

#include "tests/cli/command_test.h"

namespace {

const std::string BLENDER = std::string(QVGRAPH_TEST_PLUGINS) + "/blender.so";

class NodeClassesTest : public CommandTest {
protected:
    NodeClassesTest() {
        folder.write("blend.json", R"({"pipe_0": {
            "node_0": {
                "node_opts": {"node_name": "Blender#main"},
                "stream_opts": {"stream_input_0": "a", "stream_fmt_in_0": "f",
                                "stream_input_1": "b", "stream_fmt_in_1": "f",
                                "stream_output": "c", "stream_fmt_out": "f"}},
            "node_1": {
                "node_opts": {"node_name": "Display"},
                "stream_opts": {"stream_input": "c", "stream_fmt_in": "f"}}}})");
    }

    // The report on the nodes of blend.json, without their options.
    std::string NodesWith(const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {"inspect", "-q", "blend.json"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const std::string out = Run(all).out;
        std::string nodes = "\n";
        size_t begin = out.find("    0  node_0");
        for (size_t end = 0; begin < out.size(); begin = end + 1) {
            end = out.find('\n', begin);
            const std::string line = out.substr(begin, end - begin);
            if (line == "  streams") {
                break;
            }
            const bool isOption = line.find("  string  ") != std::string::npos;
            nodes += isOption || line.empty() ? "" : line + '\n';
        }
        return nodes;
    }
};

TEST_F(NodeClassesTest, StubsStandInForUnregisteredClasses) {
    const std::string nodes = R"(
    0  node_0  id 0  Blender#main, class Blender
         ready
         in   0  a  f
         in   1  b  f
         out  2  c  f
    1  node_1  id 1  Display
         ready
         in  2  c  f
)";
    EXPECT_EQ(NodesWith({}), nodes);
    EXPECT_EQ(NodesWith({"--stub"}), nodes);
}

TEST_F(NodeClassesTest, NodesOfRegisteredClassesAreMarked) {
    EXPECT_EQ(NodesWith({"--plugin", BLENDER}), R"(
    0  node_0  id 0  Blender#main, class Blender (registered)
         ready
         in   0  a  f
         in   1  b  f
         out  2  c  f
    1  node_1  id 1  Display (stub)
         ready
         in  2  c  f
)");
}

TEST_F(NodeClassesTest, WithoutStubsNodesOfUnregisteredClassesAreNotCreated) {
    EXPECT_EQ(NodesWith({"--no-stub", "--plugin", BLENDER}), R"(
    0  node_0  id 0  Blender#main, class Blender (registered)
         ready
         in   0  a  f
         in   1  b  f
         out  2  c  f
    1  node_1  id 1  Display
         not created: its class 'Display' is not registered
)");
    EXPECT_EQ(Run({"inspect", "--no-stub", "--plugin", BLENDER, "blend.json"}).exitCode, 1);
}

// The library uses the framework functions of the command, but its own option store.
TEST_F(NodeClassesTest, AClassMayHaveItsOwnStore) {
    const std::string options =
        R"("stream_opts": {"stream_output": "image", "stream_fmt_out": "f"},
           "node_opts_extra": {"i": 5, "l": "int64:6", "r": "float:0.5", "no": true})";
    folder.write(
        "lens.json",
        R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "Lens"}, )" + options + "}}}");
    const std::string lens = std::string(QVGRAPH_TEST_PLUGINS) + "/device_class.so";
    const ProcessResult result = Run({"inspect", "-v", "--plugin", lens, "lens.json"});
    EXPECT_EQ(result.out, R"(lens.json: 1 pipe, 1 node, ready

pipe_0: index 0, 0 executor threads, default link mode none

  nodes
    0  node_0  id 0  Lens (registered)
         ready
         out  0  image  f
         i               int32   5
         l               int64   6
         node_name       string  "Lens"
         r               float   0.5
         stream_fmt_out  string  "f"
         stream_output   string  "image"

  streams
    id  name   producer  consumers
    0   image  node_0    (none)
)");
    EXPECT_EQ(WithoutLines(result.err), "Lens error initialize:<line>: node 0 has no lens\n");
}

TEST_F(NodeClassesTest, AFailedAssertionOfAClassIsReported) {
    folder.write("lens.json", R"({"pipe_0": {"node_1": {
        "node_opts": {"node_name": "Lens"},
        "stream_opts": {"stream_output": "image", "stream_fmt_out": "f"}}}})");
    const std::string lens = std::string(QVGRAPH_TEST_PLUGINS) + "/device_class.so";
    const ProcessResult result = Run({"inspect", "--plugin", lens, "lens.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(WithoutLines(result.out)
                  .find("would abort: Assertion nodeId != 1 failed at initialize:<line>\n"),
              std::string::npos);
}

TEST_F(NodeClassesTest, ListsClassesWithTheirLibraries) {
    AssertRuns({"inspect", "--classes"},
               0,
               "no node classes are registered\n"
               "a stub stands in for all other classes\n",
               "");
    AssertRuns({"inspect", "--classes", "--plugin", BLENDER, "--no-stub"},
               0,
               "Blender   " + BLENDER +
                   "\n"
                   "Splitter  " +
                   BLENDER +
                   "\n"
                   "there is no stub for other classes\n",
               "");
}

TEST_F(NodeClassesTest, ListsClassesAsJson) {
    AssertRuns({"inspect", "--classes", "--format", "json", "-o", "classes.json"}, 0, "", "");
    EXPECT_EQ(folder.read("classes.json"), R"({
  "format_version": "1.0",
  "classes": [],
  "stub": true
}
)");
}

TEST_F(NodeClassesTest, FailsIfALibraryCannotBeLoaded) {
    folder.write("text.so", "not a library");
    AssertFails({"inspect", "--plugin", "text.so", "blend.json"},
                "cannot load text.so: " + folder.path("text.so") + ": file too short");
    AssertFails({"inspect", "--plugin", "", "blend.json"}, "cannot load '': Invalid argument");
    AssertFails({"inspect", "--plugin", BLENDER, "--plugin", BLENDER, "blend.json"},
                "cannot load " + BLENDER + ": class 'Blender' is already registered by " + BLENDER);
}

TEST_F(NodeClassesTest, RejectsOptionsThatExcludeEachOther) {
    AssertFails({"inspect", "--stub", "--no-stub", "blend.json"},
                "--stub excludes --no-stub (see qvgraph inspect --help)");
    AssertFails({"inspect", "--classes", "blend.json"},
                "FILE excludes --classes (see qvgraph inspect --help)");
    AssertFails({"inspect", "blend.json", "--plugin"},
                "--plugin: 1 required LIB missing (see qvgraph inspect --help)");
}

}  // namespace
