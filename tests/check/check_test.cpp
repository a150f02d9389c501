#include "tests/check/check_test.h"

#include <algorithm>

#include "cli/example_classes.h"

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

}  // namespace

void CheckTest::TearDown() {
    QVNodeRegistry::instance().setStub(false);
    for (const QVNodeRegistry::Entry& entry : QVNodeRegistry::instance().classes()) {
        QVNodeRegistry::instance().unregisterClass(entry.name);
    }
}

void CheckTest::Register(const qvgraph::ExampleClass& nodeClass) {
    ASSERT_EQ(qvgraph::registerExampleClass(nodeClass), 0);
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
