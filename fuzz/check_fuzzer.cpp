// From any text to every report of it, and to every picture that needs no other
// program: nothing crashes, hangs, or writes what is not UTF-8.
#include <utf8cpp/utf8.h>

#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "fuzz/harness.h"
#include "host/qv_node_registry.h"
#include "render/check_gcc.h"
#include "render/check_github.h"
#include "render/check_json.h"
#include "render/check_sarif.h"
#include "render/check_text.h"
#include "render/draw_dot.h"
#include "render/draw_html.h"
#include "render/draw_mermaid.h"
#include "render/inspect_json.h"
#include "render/inspect_text.h"

namespace {

void look(const std::ostringstream& report) {
    const std::string text = report.str();
    require(utf8::is_valid(text.begin(), text.end()), "a report that is not UTF-8");
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        requireHarmless(line);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QVNodeRegistry::instance().setStub(true);
    const std::string text(data, data + size);
    const std::vector<qvgraph::CheckedFile> files = {
        qvgraph::checkConfiguration("fuzz.json", text, {})};

    std::ostringstream findings;
    qvgraph::renderCheckText(findings, files, false);
    qvgraph::renderCheckGcc(findings, files);
    qvgraph::renderCheckJson(findings, files);
    qvgraph::renderCheckSarif(findings, files, qvgraph::rules(), "0");
    qvgraph::renderCheckGithub(findings, files);
    look(findings);

    if (files[0].loads) {
        std::ostringstream graph;
        qvgraph::renderInspectText(graph, "fuzz.json", files[0].survey, false);
        qvgraph::renderInspectJson(graph, "fuzz.json", files[0].survey);
        const qvgraph::Drawing drawing = qvgraph::drawingOf(files[0], {});
        qvgraph::renderDrawDot(graph, drawing, {true});
        qvgraph::renderDrawMermaid(graph, drawing, {true});
        qvgraph::renderDrawHtml(graph, drawing, "<svg/>");
        look(graph);
    }
    return 0;
}
