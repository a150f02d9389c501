// Node classes from shared libraries.
#include "host/qv_node_plugin.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "host/qv_node_owner.h"
#include "tests/host/registry_test.h"

namespace {

namespace fs = std::filesystem;

class NodePluginTest : public RegistryTest {
protected:
    static std::string Path(const std::string& name) {
        return std::string(QVGRAPH_TEST_PLUGINS) + '/' + name + ".so";
    }

    void AssertLoads(const std::string& path) {
        EXPECT_EQ(qv_load_node_plugin(path, &registry), std::nullopt);
    }

    // Fails with this reason, and leaves the registry unchanged.
    void AssertFails(const std::string& path, const std::string& reason) {
        const std::vector<std::string> before = ClassNames();
        EXPECT_EQ(qv_load_node_plugin(path, &registry), "cannot load " + path + ": " + reason);
        EXPECT_EQ(ClassNames(), before);
    }
};

}  // namespace

TEST_F(NodePluginTest, RegistersItsClassesWithItsPathAsTheirOrigin) {
    AssertLoads(Path("blender"));
    const std::vector<QVNodeRegistry::Entry> classes = registry.classes();
    ASSERT_EQ(classes.size(), 2U);
    EXPECT_EQ(classes[0].name, "Blender");
    EXPECT_EQ(classes[0].origin, Path("blender"));
    EXPECT_EQ(classes[1].name, "Splitter");
    EXPECT_EQ(classes[1].origin, Path("blender"));
}

TEST_F(NodePluginTest, CreatesNodesWithTheNumbersOfTheClass) {
    AssertLoads(Path("blender"));
    QVNodeOwner owner;
    node_proxy_parse_stub_uid(owner.info(), "Blender#main");
    owner.info()->inputNum = 5;
    node_proxy_node_create(owner.info());
    ASSERT_NE(owner.info()->node, nullptr);
    EXPECT_NE(owner.info()->node->mOptions, nullptr);
    EXPECT_EQ(owner.info()->inputStreams.size(), 2U);
    EXPECT_EQ(owner.info()->outputStreams.size(), 1U);
}

TEST_F(NodePluginTest, PathMayBeRelative) {
    const fs::path before = fs::current_path();
    fs::current_path(QVGRAPH_TEST_PLUGINS);
    AssertLoads("blender.so");
    fs::current_path(before);
    EXPECT_EQ(registry.classes().at(0).origin, "blender.so");
}

TEST_F(NodePluginTest, MissingLibraryFails) {
    AssertFails("/nowhere/blender.so",
                "/nowhere/blender.so: cannot open shared object file: No such file or directory");
}

TEST_F(NodePluginTest, EmptyPathFails) {
    EXPECT_EQ(qv_load_node_plugin("", &registry), "cannot load '': Invalid argument");
    EXPECT_EQ(ClassNames(), std::vector<std::string>{});
}

TEST_F(NodePluginTest, FileThatIsNotALibraryFails) {
    AssertFails(__FILE__, std::string(__FILE__) + ": invalid ELF header");
}

TEST_F(NodePluginTest, LibraryWithAnUndefinedSymbolFails) {
    AssertFails(Path("undefined"), Path("undefined") + ": undefined symbol: camera::open(int)");
    AssertFails(Path("undefined_c"), Path("undefined_c") + ": undefined symbol: camera_open");
}

TEST_F(NodePluginTest, LibraryWithoutTheEntryPointFails) {
    AssertFails(Path("no_function"), "the library does not export qvgraph_register_nodes");
}

TEST_F(NodePluginTest, LibraryThatRegistersANameTwiceFails) {
    AssertFails(Path("same_class_twice"), "the library registers class 'Mixer' twice");
}

TEST_F(NodePluginTest, SecondLoadOfALibraryFails) {
    AssertLoads(Path("blender"));
    AssertFails(Path("blender"), "class 'Blender' is already registered by " + Path("blender"));
}

TEST_F(NodePluginTest, LibraryWithAClassOfTheProgramFails) {
    registry.registerClass(
        {"Blender", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; }});
    AssertFails(Path("blender"), "class 'Blender' is already registered by the program");
}

TEST_F(NodePluginTest, LibraryWithAClassOfAnotherLibraryFails) {
    registry.registerClass(
        {"Splitter", [](const _QVNodeInfo*) -> QVTaskNodeBase* { return nullptr; }}, "split.so");
    AssertFails(Path("blender"), "class 'Splitter' is already registered by split.so");
}

TEST_F(NodePluginTest, LibraryWithAnInvalidClassFails) {
    AssertFails(Path("no_name"),
                "class '' cannot be registered: it has no name "
                "(see host/qv_node_class.h)");
}

TEST_F(NodePluginTest, LibraryThatRegistersNothingFails) {
    AssertFails(Path("no_class"), "the library registers no class");
}

TEST_F(NodePluginTest, EntryPointThatReturnsAnErrorFails) {
    AssertFails(Path("returns_error"), "qvgraph_register_nodes returned 7");
}

TEST_F(NodePluginTest, EntryPointThatThrowsFails) {
    AssertFails(Path("throws"), "qvgraph_register_nodes threw: no licence for the mixer");
}

TEST_F(NodePluginTest, EntryPointThatThrowsANonExceptionFails) {
    setenv("QVGRAPH_TEST_THROWS_INT", "1", 1);
    AssertFails(Path("throws"), "qvgraph_register_nodes threw");
    unsetenv("QVGRAPH_TEST_THROWS_INT");
}
