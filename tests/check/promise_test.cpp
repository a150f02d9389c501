// What the check promises, on random configurations: the parser sets up every node
// without an error, and a node with an error about set-up is not set up.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/qv_log.h"
#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_host_task_node.h"
#include "host/qv_node_owner.h"
#include "tests/check/check_test.h"
#include "tests/support/configurations.h"

namespace {

using qvgraph::CheckedFile;
using qvgraph::Finding;
using qvgraph::Severity;
using qvgraph::Span;
using qvgraph::Value;

// ---- What the parser does ---------------------------------------------------

struct ProcessAborted {};

// The result of setting up a node. An uninitialised node is reported as success.
enum class Result { Initialised, Uninitialised, Failed, Thrown, Aborted };

// A node by the index that the parser was queried with, and its result.
struct NodeResult {
    std::string pipe;
    std::string node;
    bool isCanonical;  // its id maps back to this member
    Result result;
};

Result setUp(const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph) {
    QVNodeOwner owner;
    graph->beginNode(id);
    try {
        if (parser.initTaskNode(graph, pipe, id, owner.info()) != 0) {
            return Result::Failed;
        }
    } catch (const ProcessAborted&) {
        return Result::Aborted;
    } catch (const std::exception&) {
        return Result::Thrown;
    }
    const auto* node = static_cast<const QVHostTaskNode*>(owner.info()->node);
    return node->isInitialized() ? Result::Initialised : Result::Uninitialised;
}

// Sets up every node of every pipe that an index maps to.
std::vector<NodeResult> setUpAll(const std::string& text) {
    const QVLogScope scope(QV_LOG_ERROR, [](const QVLogRecord& record) {
        if (qv_log_is_assertion(record)) {
            throw ProcessAborted();
        }
    });
    std::vector<NodeResult> all;
    QVGraphParser parser;
    parser.parseConfigText(text.c_str());
    for (int pipe = 0; pipe < 100; ++pipe) {
        const std::string key = "pipe_" + std::to_string(pipe);
        const json11::Json& members = parser.root()[key];
        QVHostTaskGraph graph;
        for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
            const std::string node = parser.getItemNameByIndex(members, i, "node_");
            const int id = parser.getNodeIDByIndex(pipe, i);
            const bool isCanonical = node == "node_" + std::to_string(id);
            all.push_back({key, node, isCanonical, setUp(parser, pipe, id, &graph)});
        }
    }
    return all;
}

// ---- What the check reports -------------------------------------------------

bool isWithin(const Span& inner, const Span& outer) {
    return outer.begin <= inner.begin && inner.end <= outer.end;
}

// Whether a finding is at a member or below it.
bool concerns(const Finding& finding, const Value& member) {
    const std::string pointer = pointerTo(member);
    const bool isBelow = finding.pointer.compare(0, pointer.size() + 1, pointer + '/') == 0;
    return isBelow || finding.pointer == pointer;
}

// Whether a finding has a related location in a member.
bool relates(const Finding& finding, const Value& member) {
    return std::any_of(
        finding.related.begin(), finding.related.end(), [&](const qvgraph::Related& related) {
            return isWithin(related.span, member.span) || isWithin(related.span, member.keySpan);
        });
}

// Whether a finding is an error about set-up that does not succeed.
bool reportsFailure(const Finding& finding) {
    static const std::set<std::string_view> CODES = {"node-class",
                                                     "node-class-failed",
                                                     "no-streams",
                                                     "single-stream-key",
                                                     "stream-name-missing",
                                                     "stream-not-text",
                                                     "stream-name-empty",
                                                     "stream-format-missing"};
    return CODES.count(finding.code) != 0;
}

// The code, pointer, message, hint and related messages of every finding:
// everything except the locations in the text.
std::multiset<std::string> withoutLocations(const std::vector<Finding>& findings) {
    std::multiset<std::string> texts;
    for (const Finding& finding : findings) {
        std::string text = std::string(finding.code) + ' ' + finding.pointer + ": " +
                           finding.message + "\n  " + finding.hint;
        for (const qvgraph::Related& related : finding.related) {
            text += "\n  " + related.message;
        }
        texts.insert(text);
    }
    return texts;
}

// ---- Classes ------------------------------------------------------------------

struct ThrowingNode : QVHostTaskNode {
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        throw std::runtime_error("no licence");
    }
};

struct AssertingNode : QVHostTaskNode {
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        const int line = 12;
        qv_err(7, QV_LOG_ERROR, "Lens", QV_ASSERT_FORMAT, "open", line, "mLens", "open", line);
        abort();
    }
};

// A store that rejects a key that it already has, and every string with a '1'.
struct OddStore : QVHostMetaData {
    int setCString(const char* key, const char* value) override {
        const char* stored = nullptr;
        const bool isStored = findCString(key, &stored) != 0;
        const bool isRejected = isStored || std::string(value).find('1') != std::string::npos;
        return isRejected ? -1 : QVHostMetaData::setCString(key, value);
    }
};

struct OddNode : QVHostTaskNode {
    OddNode() { mOptions = &mOddStore; }

private:
    OddStore mOddStore;
};

template <typename SurveyedNode>
QVTaskNodeBase* create(const _QVNodeInfo* /*info*/) {
    return new SurveyedNode;
}

const std::vector<SizedClass> SIZED = {
    {"Source", 0, 1}, {"Sink", 1, 0}, {"One", 1, 1}, {"Two", 2, 2}};
const std::vector<std::string> FAILING = {"Fails", "Throws", "Asserts", "None", "Odd", "Fails#1"};

class PromiseTest : public CheckTest {
protected:
    void SetUp() override {
        CheckTest::SetUp();
        for (const SizedClass& sized : SIZED) {
            Register({sized.name.c_str(),
                      static_cast<int>(sized.inputs),
                      static_cast<int>(sized.outputs)});
        }
        Register({"Fails", QV_AS_DECLARED, QV_AS_DECLARED, false});
        Register({"None", 0, 0});
        RegisterCreator("Throws", create<ThrowingNode>);
        RegisterCreator("Asserts", create<AssertingNode>);
        RegisterCreator("Odd", create<OddNode>);
    }

    static void RegisterCreator(const char* name, QVTaskNodeBase* (*creator)(const _QVNodeInfo*)) {
        ASSERT_EQ(QVNodeRegistry::instance().registerClass(
                      {name, creator, QV_AS_DECLARED, QV_AS_DECLARED}),
                  0);
    }

    static CheckedFile Check(const ConfigurationTree& tree) {
        return qvgraph::checkConfiguration("random", textOf(tree), {});
    }

    // Compares the findings about every node with what the parser does.
    void AssertPromise(const CheckedFile& file) {
        for (const NodeResult& node : setUpAll(file.source->text())) {
            const Value& member = *file.source->root()->member(node.pipe)->member(node.node);
            AssertNode(file, member, node);
            ++results[node.result];
        }
    }

    std::map<Result, int> results;

private:
    void AssertNode(const CheckedFile& file, const Value& member, const NodeResult& node) {
        const bool isInitialised = node.result == Result::Initialised;
        bool hasError = false;
        for (const Finding& finding : file.findings) {
            if (finding.severity != Severity::Error) {
                continue;
            }
            const bool isHere = concerns(finding, member);
            hasError = hasError || isHere || relates(finding, member);
            EXPECT_FALSE(isHere && reportsFailure(finding) && node.isCanonical && isInitialised)
                << node.node << ": " << finding.message << '\n'
                << file.source->text();
        }
        EXPECT_TRUE(hasError || isInitialised)
            << node.node << " results in " << static_cast<int>(node.result) << '\n'
            << FindingsIn(file.source->text()) << file.source->text();
    }
};

TEST_F(PromiseTest, AValidConfigurationHasNoErrorsAndIsSetUp) {
    RandomConfigurations random(1, SIZED);
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        const CheckedFile file = Check(random.sound());
        AssertPromise(file);
        EXPECT_EQ(countOf(file.findings, Severity::Error), 0U) << FindingsIn(file.source->text());
    }
    EXPECT_GT(results[Result::Initialised], 500);
}

TEST_F(PromiseTest, ErrorsOfNodesAgreeWithTheirSetUp) {
    RandomConfigurations random(2, SIZED, FAILING);
    for (int i = 0; i < 2000 && !HasFailure(); ++i) {
        ConfigurationTree tree = random.sound();
        for (size_t mistakes = 1 + random.below(6); mistakes > 0; --mistakes) {
            random.spoil(&tree);
        }
        AssertPromise(Check(tree));
    }
    for (const Result result : {Result::Initialised,
                                Result::Uninitialised,
                                Result::Failed,
                                Result::Thrown,
                                Result::Aborted}) {
        EXPECT_GT(results[result], 20) << static_cast<int>(result);
    }
}

TEST_F(PromiseTest, TheOrderOfMembersInTheTextChangesOnlyLocations) {
    RandomConfigurations random(3, SIZED, FAILING);
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        ConfigurationTree tree = random.sound();
        for (size_t mistakes = random.below(6); mistakes > 0; --mistakes) {
            random.spoil(&tree);
        }
        if (hasDuplicates(tree)) {
            continue;  // the order decides which of them wins
        }
        const CheckedFile before = Check(tree);
        random.shuffle(&tree);
        const CheckedFile after = Check(tree);
        EXPECT_EQ(withoutLocations(before.findings), withoutLocations(after.findings))
            << before.source->text() << after.source->text();
    }
}

}  // namespace
