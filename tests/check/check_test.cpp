#include "tests/check/check_test.h"

#include <algorithm>

#include "host/qv_host_task_node.h"

namespace {

using qvgraph::Finding;
using qvgraph::Source;

std::string textOf(const Source& source, const qvgraph::Span& span) {
    const qvgraph::Position begin = source.position(span.begin);
    const qvgraph::Position end = source.position(span.end);
    return std::to_string(begin.line) + ':' + std::to_string(begin.column) + '-' +
           std::to_string(end.line) + ':' + std::to_string(end.column);
}

std::string textOf(const Source& source, const Finding& finding) {
    std::string text = textOf(source, finding.span) + ' ' + toText(finding.severity) + ' ' +
                       std::string(finding.code) + ' ' + finding.pointer + ": " + finding.message +
                       '\n';
    for (const qvgraph::Related& related : finding.related) {
        text += "  " + textOf(source, related.span) + ' ' + related.message + '\n';
    }
    return finding.hint.empty() ? text : text + "  hint: " + finding.hint + '\n';
}

QVTaskNodeBase* createStub(const _QVNodeInfo* /*info*/) {
    return new QVStubTaskNode;
}

QVTaskNodeBase* createNothing(const _QVNodeInfo* /*info*/) {
    return nullptr;
}

// Looks for the one option of its kind.
class GainNode : public QVHostTaskNode {
public:
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        float gain = 0;
        mOptions->findFloat("gain", &gain);
        return QVHostTaskNode::initialize(nodeId, info, inputs, outputs);
    }
};

QVTaskNodeBase* createGain(const _QVNodeInfo* /*info*/) {
    return new GainNode;
}

}  // namespace

void CheckTest::TearDown() {
    QVNodeRegistry::instance().setStub(false);
    for (const QVNodeRegistry::Entry& entry : QVNodeRegistry::instance().classes()) {
        QVNodeRegistry::instance().unregisterClass(entry.name);
    }
}

void CheckTest::Register(const qvgraph::ExampleClass& nodeClass) {
    const auto creator = !nodeClass.makesNode     ? createNothing
                         : nodeClass.looksForGain ? createGain
                                                  : createStub;
    ASSERT_EQ(QVNodeRegistry::instance().registerClass(
                  {nodeClass.name, creator, nodeClass.inputs, nodeClass.outputs}),
              0);
}

std::string CheckTest::FindingsIn(const std::string& text) {
    const qvgraph::CheckedFile file = qvgraph::checkConfiguration("test.json", text, {});
    std::string findings;
    for (const Finding& finding : file.findings) {
        findings += textOf(*file.source, finding);
    }
    return findings;
}

std::string CheckTest::CodesIn(const std::string& text) {
    std::string codes;
    for (const Finding& finding : qvgraph::checkConfiguration("test.json", text, {}).findings) {
        codes += (codes.empty() ? "" : " ") + std::string(finding.code);
    }
    return codes;
}

void CheckTest::AssertPipe(const std::string& members, const std::string& findings) {
    AssertFinds("{\"pipe_0\": {\n" + members + "\n}}", findings);
}
