// The registry of node classes.
#include "host/qv_node_registry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "host/qv_host_task_node.h"
#include "tests/host/in_threads.h"
#include "tests/host/registry_test.h"

namespace {

using Names = std::vector<std::string>;

static_assert(!std::is_copy_constructible<QVNodeRegistry>::value);
static_assert(!std::is_copy_assignable<QVNodeRegistry>::value);
static_assert(!std::is_default_constructible<QVNodeRegistry>::value);

class Camera : public QVHostTaskNode {};
class Display : public QVHostTaskNode {};

QVTaskNodeBase* createCamera(const _QVNodeInfo* /*info*/) {
    return new Camera;
}
QVTaskNodeBase* createDisplay(const _QVNodeInfo* /*info*/) {
    return new Display;
}

class NodeRegistryTest : public RegistryTest {
protected:
    // Registers a class through the interface, as a provider of classes does.
    int Register(const char* name, decltype(QVNodeClass::create) create = createCamera) {
        QVNodeClassRegistry& provided = registry;
        return provided.registerClass({name, create});
    }

    void AssertNames(const Names& expected) { EXPECT_EQ(ClassNames(), expected); }

    // `create` creates the nodes of the class `name`; null: there is no such class.
    void AssertMadeBy(const char* name, decltype(QVNodeClass::create) create) {
        const std::optional<QVNodeClass> found = registry.find(name);
        EXPECT_EQ(found.has_value(), create != nullptr) << name;
        EXPECT_EQ(found ? found->create : nullptr, create) << name;
    }

    void AssertStubbed(const char* name) {
        const std::optional<QVNodeClass> found = registry.find(name);
        ASSERT_TRUE(found.has_value()) << name;
        EXPECT_EQ(found->name, nullptr);
        EXPECT_EQ(found->inputNum, QV_AS_DECLARED);
        EXPECT_EQ(found->outputNum, QV_AS_DECLARED);
        const _QVNodeInfo info;
        const std::unique_ptr<QVTaskNodeBase> node(found->create(&info));
        EXPECT_NE(dynamic_cast<QVStubTaskNode*>(node.get()), nullptr);
    }
};

}  // namespace

// ---- Registering ------------------------------------------------------------

TEST_F(NodeRegistryTest, IsProcessWide) {
    EXPECT_EQ(&QVNodeRegistry::instance(), &registry);
}

TEST_F(NodeRegistryTest, StartsEmptyWithoutAStub) {
    AssertNames({});
    EXPECT_FALSE(registry.stub());
    AssertMadeBy("Camera", nullptr);
    AssertMadeBy("", nullptr);
}

TEST(NodeClassTest, HasAsManyStreamsAsDeclaredByDefault) {
    const QVNodeClass nodeClass;
    EXPECT_EQ(nodeClass.name, nullptr);
    EXPECT_EQ(nodeClass.create, nullptr);
    EXPECT_EQ(nodeClass.inputNum, QV_AS_DECLARED);
    EXPECT_EQ(nodeClass.outputNum, QV_AS_DECLARED);
}

TEST_F(NodeRegistryTest, RegisteredClassIsFound) {
    EXPECT_EQ(Register("Camera", createCamera), 0);
    EXPECT_EQ(Register("Display", createDisplay), 0);
    AssertMadeBy("Camera", createCamera);
    AssertMadeBy("Display", createDisplay);
    AssertMadeBy("Cam", nullptr);
    AssertMadeBy("camera", nullptr);
    AssertMadeBy("Camera2", nullptr);
}

TEST_F(NodeRegistryTest, ReportsWhetherAClassIsRegistered) {
    EXPECT_EQ(Register("Camera", createCamera), 0);
    EXPECT_TRUE(registry.isRegistered("Camera"));
    EXPECT_FALSE(registry.isRegistered("Display"));
}

TEST_F(NodeRegistryTest, FoundClassHasItsStreamNumbersAndNoName) {
    registry.registerClass({"Camera", createCamera, 0, 3});
    const std::optional<QVNodeClass> found = registry.find("Camera");
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->name, nullptr);
    EXPECT_EQ(found->inputNum, 0);
    EXPECT_EQ(found->outputNum, 3);
}

TEST_F(NodeRegistryTest, NameIsCopied) {
    char name[] = "Camera";
    Register(name);
    name[0] = '?';
    AssertNames({"Camera"});
    AssertMadeBy("Camera", createCamera);
}

TEST_F(NodeRegistryTest, AcceptsTheseNames) {
    const Names names = {"C", " ", "Camera:front", "node_0", "\xc3\x84", "\x80", "\x01", "a\nb"};
    for (const std::string& name : names) {
        EXPECT_EQ(Register(name.c_str()), 0) << name;
        AssertMadeBy(name.c_str(), createCamera);
    }
    EXPECT_EQ(registry.classes().size(), names.size());
}

TEST_F(NodeRegistryTest, KeepsTheOriginOfAClass) {
    EXPECT_EQ(registry.registerClass({"Display", createDisplay}), 0);
    EXPECT_EQ(registry.registerClass({"Camera", createCamera}, "/opt/libcamera.so"), 0);
    const std::vector<QVNodeRegistry::Entry> classes = registry.classes();
    ASSERT_EQ(classes.size(), 2U);
    EXPECT_EQ(classes[0].name, "Camera");
    EXPECT_EQ(classes[0].origin, "/opt/libcamera.so");
    EXPECT_EQ(classes[1].name, "Display");
    EXPECT_EQ(classes[1].origin, "");
}

TEST_F(NodeRegistryTest, RejectsTheseNumbersOfStreams) {
    EXPECT_EQ(registry.registerClass({"Camera", createCamera, -2, 0}), -2);
    EXPECT_EQ(registry.registerClass({"Camera", createCamera, 0, -100}), -2);
    EXPECT_EQ(registry.registerClass({"Camera", createCamera, 0, QV_AS_DECLARED}), 0);
}

TEST_F(NodeRegistryTest, RejectsTheseNames) {
    for (const char* const name : {"", "#", "#Camera", "Camera#", "Camera#front", "##"}) {
        EXPECT_EQ(Register(name), -2) << name;
    }
    EXPECT_EQ(Register(nullptr), -2);
    AssertNames({});
}

TEST_F(NodeRegistryTest, RejectsAClassWithoutAFactory) {
    EXPECT_EQ(Register("Camera", nullptr), -2);
    AssertNames({});
    AssertMadeBy("Camera", nullptr);
}

TEST_F(NodeRegistryTest, RejectsASecondClassOfTheSameNameAndKeepsTheFirst) {
    registry.registerClass({"Camera", createCamera, 0, 1});
    EXPECT_EQ(registry.registerClass({"Camera", createCamera, 0, 1}), -1);
    EXPECT_EQ(registry.registerClass({"Camera", createDisplay, 2, 2}), -1);
    AssertNames({"Camera"});
    AssertMadeBy("Camera", createCamera);
    EXPECT_EQ(registry.find("Camera")->inputNum, 0);
    EXPECT_EQ(registry.find("Camera")->outputNum, 1);
}

TEST_F(NodeRegistryTest, NamesAreInByteOrder) {
    for (const char* const name : {"\xff", "b", "\x80", "a", "Z", "aa", "\x7f", "\xc3\xa4"}) {
        Register(name);
    }
    AssertNames({"Z", "a", "aa", "b", "\x7f", "\x80", "\xc3\xa4", "\xff"});
}

// ---- Unregistering ----------------------------------------------------------

TEST_F(NodeRegistryTest, UnregisteredClassIsNotFound) {
    Register("Camera");
    Register("Display", createDisplay);
    EXPECT_TRUE(registry.unregisterClass("Camera"));
    AssertNames({"Display"});
    AssertMadeBy("Camera", nullptr);
    AssertMadeBy("Display", createDisplay);
}

TEST_F(NodeRegistryTest, UnregisteringAMissingClassIsReported) {
    Register("Camera");
    for (const char* const name : {"", "Cam", "Camera2", "camera", "Camera#front"}) {
        EXPECT_FALSE(registry.unregisterClass(name)) << name;
    }
    EXPECT_TRUE(registry.unregisterClass("Camera"));
    EXPECT_FALSE(registry.unregisterClass("Camera"));
}

TEST_F(NodeRegistryTest, NameCanBeReusedAfterItsClassIsUnregistered) {
    Register("Camera", createCamera);
    registry.unregisterClass("Camera");
    EXPECT_EQ(Register("Camera", createDisplay), 0);
    AssertMadeBy("Camera", createDisplay);
}

TEST_F(NodeRegistryTest, NodesOutliveTheirClass) {
    Register("Camera");
    const _QVNodeInfo info;
    const std::unique_ptr<QVTaskNodeBase> node(registry.find("Camera")->create(&info));
    registry.unregisterClass("Camera");
    EXPECT_EQ(node->mOptions->setInt32("fps", 30), 0);
}

// ---- The stub ---------------------------------------------------------------

TEST_F(NodeRegistryTest, StubStandsInForEveryClassThatIsNotRegistered) {
    registry.setStub(true);
    EXPECT_TRUE(registry.stub());
    for (const char* const name : {"Camera", "Display", " ", "\xff"}) {
        AssertStubbed(name);
    }
}

TEST_F(NodeRegistryTest, StubNeverStandsInForAClassWithoutAName) {
    registry.setStub(true);
    AssertMadeBy("", nullptr);
}

TEST_F(NodeRegistryTest, RegisteredClassTakesPrecedenceOverTheStub) {
    registry.setStub(true);
    Register("Camera", createCamera);
    AssertMadeBy("Camera", createCamera);
    AssertStubbed("Display");
    registry.unregisterClass("Camera");
    AssertStubbed("Camera");
}

TEST_F(NodeRegistryTest, StubIsNotARegisteredClass) {
    registry.setStub(true);
    AssertNames({});
    EXPECT_FALSE(registry.unregisterClass("Camera"));
}

TEST_F(NodeRegistryTest, StubCanBeDisabled) {
    registry.setStub(true);
    registry.setStub(false);
    EXPECT_FALSE(registry.stub());
    AssertMadeBy("Camera", nullptr);
}

// ---- The class in a node's name ---------------------------------------------

TEST(NodeClassNameTest, IsThePartBeforeTheFirstHash) {
    EXPECT_EQ(qv_node_class_name("Camera"), "Camera");
    EXPECT_EQ(qv_node_class_name("Camera#front"), "Camera");
    EXPECT_EQ(qv_node_class_name("Camera#"), "Camera");
    EXPECT_EQ(qv_node_class_name("Camera#front#left"), "Camera");
    EXPECT_EQ(qv_node_class_name("Camera #front"), "Camera ");
    EXPECT_EQ(qv_node_class_name(""), "");
    EXPECT_EQ(qv_node_class_name("#"), "");
    EXPECT_EQ(qv_node_class_name("#front"), "");
}

// ---- Invalid classes ----------------------------------------------------------

TEST(NodeClassFaultTest, DescribesTheFault) {
    EXPECT_EQ(qv_node_class_fault({"Camera", createCamera, 0, 1}), "");
    EXPECT_EQ(qv_node_class_fault({nullptr, createCamera}), "it has no name");
    EXPECT_EQ(qv_node_class_fault({"", createCamera}), "it has no name");
    EXPECT_EQ(qv_node_class_fault({"Camera#", createCamera}),
              "its name contains '#', which ends a class name");
    EXPECT_EQ(qv_node_class_fault({"Camera", nullptr}), "it has no create function");
    EXPECT_EQ(qv_node_class_fault({"Camera", createCamera, -2, 1}),
              "its number of inputs is -2; it must be 0 or more, or QV_AS_DECLARED");
    EXPECT_EQ(qv_node_class_fault({"Camera", createCamera, 1, -7}),
              "its number of outputs is -7; it must be 0 or more, or QV_AS_DECLARED");
}

// ---- Threads ----------------------------------------------------------------

TEST_F(NodeRegistryTest, OnlyOneOfManyThreadsRegistersAName) {
    std::atomic<int> accepted{0};
    std::atomic<int> refused{0};
    inThreads(4, [&](int /*thread*/) {
        for (int number = 0; number < 200; ++number) {
            const int result = Register(("class " + std::to_string(number)).c_str());
            accepted += result == 0 ? 1 : 0;
            refused += result == -1 ? 1 : 0;
        }
    });
    EXPECT_EQ(accepted, 200);
    EXPECT_EQ(refused, 600);
    EXPECT_EQ(registry.classes().size(), 200U);
}

TEST_F(NodeRegistryTest, ThreadsDoNotAffectEachOthersClasses) {
    std::atomic<int> right{0};
    inThreads(4, [&](int thread) {
        const std::string name = "class " + std::to_string(thread);
        for (int round = 0; round < 200; ++round) {
            right += Register(name.c_str(), createDisplay) == 0 ? 1 : 0;
            right += registry.find(name)->create == createDisplay ? 1 : 0;
            right += registry.classes().empty() ? 0 : 1;
            registry.setStub(false);
            right += registry.stub() ? 0 : 1;
            right += registry.unregisterClass(name) ? 1 : 0;
            right += registry.find(name) ? 0 : 1;
        }
    });
    EXPECT_EQ(right, 4 * 200 * 6);
    AssertNames({});
}
