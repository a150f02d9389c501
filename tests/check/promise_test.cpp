// What the check promises, on configurations that nobody thought of: a node
// without an error is set up by the parser, and a node that is not has one.
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

// ---- what the parser does ---------------------------------------------------

struct ProcessAborted {};

// How the parser ends when a device's framework would set a node up.
enum class End { Initialised, LeftOut, Failed, Thrown, Aborted };

// The member of a pipe that was asked for, and how that ended.
struct NodeEnd {
    std::string pipe;
    std::string node;
    bool leadsBack;  // its id leads to this member
    End end;
};

// A node that is left out is reported as success all the same.
End setUp(const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph) {
    QVNodeOwner owner;
    graph->beginNode(id);
    try {
        if (parser.initTaskNode(graph, pipe, id, owner.info()) != 0) {
            return End::Failed;
        }
    } catch (const ProcessAborted&) {
        return End::Aborted;
    } catch (const std::exception&) {
        return End::Thrown;
    }
    const auto* node = static_cast<const QVHostTaskNode*>(owner.info()->node);
    return node->isInitialized() ? End::Initialised : End::LeftOut;
}

// Sets up every node of every pipe that an index leads to.
std::vector<NodeEnd> setUpAll(const std::string& text) {
    const QVLogScope scope(QV_LOG_ERROR, [](const QVLogRecord& record) {
        if (qv_log_is_assertion(record)) {
            throw ProcessAborted();
        }
    });
    std::vector<NodeEnd> all;
    QVGraphParser parser;
    parser.parseConfigText(text.c_str());
    for (int pipe = 0; pipe < 100; ++pipe) {
        const std::string key = "pipe_" + std::to_string(pipe);
        const json11::Json& members = parser.root()[key];
        QVHostTaskGraph graph;
        for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
            const std::string node = parser.getItemNameByIndex(members, i, "node_");
            const int id = parser.getNodeIDByIndex(pipe, i);
            const bool leadsBack = node == "node_" + std::to_string(id);
            all.push_back({key, node, leadsBack, setUp(parser, pipe, id, &graph)});
        }
    }
    return all;
}

// ---- what the check says ----------------------------------------------------

bool isWithin(const Span& inner, const Span& outer) {
    return outer.begin <= inner.begin && inner.end <= outer.end;
}

// Whether a finding stands at a member or below it.
bool concerns(const Finding& finding, const Value& member) {
    const std::string pointer = pointerTo(member);
    const bool isBelow = finding.pointer.compare(0, pointer.size() + 1, pointer + '/') == 0;
    return isBelow || finding.pointer == pointer;
}

// Whether a finding names a member as a related place.
bool names(const Finding& finding, const Value& member) {
    return std::any_of(
        finding.related.begin(), finding.related.end(), [&](const qvgraph::Related& related) {
            return isWithin(related.span, member.span) || isWithin(related.span, member.keySpan);
        });
}

// Errors that tell of a set-up that does not succeed.
bool tellsOfFailure(const Finding& finding) {
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

// Code, message, pointer, hint and the messages of related places of every
// finding: all but the places in the text.
std::multiset<std::string> withoutPlaces(const std::vector<Finding>& findings) {
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

// ---- classes ------------------------------------------------------------------

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

// A store that replaces nothing, and keeps no text with a 1.
struct OddStore : QVHostMetaData {
    int setCString(const char* key, const char* value) override {
        const char* text = nullptr;
        const bool isTaken = findCString(key, &text) != 0;
        const bool isRefused = isTaken || std::string(value).find('1') != std::string::npos;
        return isRefused ? -1 : QVHostMetaData::setCString(key, value);
    }
};

struct OddNode : QVHostTaskNode {
    OddNode() { mOptions = &mOddStore; }

private:
    OddStore mOddStore;
};

template <typename Node>
QVTaskNodeBase* create(const _QVNodeInfo* /*info*/) {
    return new Node;
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
        return qvgraph::checkConfiguration("made", textOf(tree), {});
    }

    // Holds what the check says of every node against what the parser does.
    void AssertPromise(const CheckedFile& file) {
        for (const NodeEnd& node : setUpAll(file.source->text())) {
            const Value& member = *file.source->root()->member(node.pipe)->member(node.node);
            AssertNode(file, member, node);
            ++ends[node.end];
        }
    }

    std::map<End, int> ends;

private:
    void AssertNode(const CheckedFile& file, const Value& member, const NodeEnd& node) {
        const bool isInitialised = node.end == End::Initialised;
        bool hasError = false;
        for (const Finding& finding : file.findings) {
            if (finding.severity != Severity::Error) {
                continue;
            }
            const bool isHere = concerns(finding, member);
            hasError = hasError || isHere || names(finding, member);
            EXPECT_FALSE(isHere && tellsOfFailure(finding) && node.leadsBack && isInitialised)
                << node.node << ": " << finding.message << '\n'
                << file.source->text();
        }
        EXPECT_TRUE(hasError || isInitialised)
            << node.node << " ends with " << static_cast<int>(node.end) << '\n'
            << FindingsIn(file.source->text()) << file.source->text();
    }
};

TEST_F(PromiseTest, ASoundConfigurationHasNoErrorsAndIsSetUp) {
    RandomConfigurations random(1, SIZED);
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        const CheckedFile file = Check(random.sound());
        AssertPromise(file);
        EXPECT_EQ(countOf(file.findings, Severity::Error), 0U) << FindingsIn(file.source->text());
    }
    EXPECT_GT(ends[End::Initialised], 500);
}

TEST_F(PromiseTest, ANodeThatIsNotSetUpHasAnErrorAndOneWithoutAnErrorIsSetUp) {
    RandomConfigurations random(2, SIZED, FAILING);
    for (int i = 0; i < 2000 && !HasFailure(); ++i) {
        ConfigurationTree tree = random.sound();
        for (size_t mistakes = 1 + random.below(6); mistakes > 0; --mistakes) {
            random.spoil(&tree);
        }
        AssertPromise(Check(tree));
    }
    for (const End end : {End::Initialised, End::LeftOut, End::Failed, End::Thrown, End::Aborted}) {
        EXPECT_GT(ends[end], 20) << static_cast<int>(end);
    }
}

TEST_F(PromiseTest, TheOrderOfMembersInTheTextChangesNothingButPlaces) {
    RandomConfigurations random(3, SIZED, FAILING);
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        ConfigurationTree tree = random.sound();
        for (size_t mistakes = random.below(6); mistakes > 0; --mistakes) {
            random.spoil(&tree);
        }
        if (hasDuplicates(tree)) {
            continue;  // the order says which of them counts
        }
        const CheckedFile before = Check(tree);
        random.shuffle(&tree);
        const CheckedFile after = Check(tree);
        EXPECT_EQ(withoutPlaces(before.findings), withoutPlaces(after.findings))
            << before.source->text() << after.source->text();
    }
}

}  // namespace
