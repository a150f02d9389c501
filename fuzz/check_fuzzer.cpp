// From any text to every report of it, and to every picture that needs no other
// program: nothing crashes, hangs, or writes what is not UTF-8.
//
// The text may name classes that are registered here; those of other names are
// stubs, unless "no stub" stands somewhere in it.
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "check/check.h"
#include "check/rules.h"
#include "fuzz/harness.h"
#include "host/qv_host_task_node.h"
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
#include "survey/survey.h"

namespace {

class ThrowingNode : public QVHostTaskNode {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        if (outputs.empty()) {
            throw 1;
        }
        throw std::runtime_error("no lens");
    }
};

// Looks for an option of each type.
class LookingNode : public QVHostTaskNode {
public:
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        const char* text = nullptr;
        int32_t int32 = 0;
        int64_t int64 = 0;
        float real = 0;
        mOptions->findCString("name", &text);
        mOptions->findInt32("rate", &int32);
        mOptions->findInt64("size", &int64);
        mOptions->findFloat("gain", &real);
        return QVHostTaskNode::initialize(nodeId, info, inputs, outputs);
    }
};

template <class SurveyedNode>
QVTaskNodeBase* create(const _QVNodeInfo* /*info*/) {
    return new SurveyedNode;
}

QVTaskNodeBase* createNone(const _QVNodeInfo* /*info*/) {
    return nullptr;
}

bool registerClasses() {
    QVNodeRegistry& registry = QVNodeRegistry::instance();
    registry.registerClass({"Camera", create<LookingNode>, 0, 1});
    registry.registerClass({"Blender", create<QVHostTaskNode>, 3, 2});
    registry.registerClass({"Thrower", create<ThrowingNode>});
    registry.registerClass({"Nothing", createNone});
    return true;
}

const bool registered = registerClasses();

// Returns the rules that have findings. Rendering the descriptions of all rules
// would take most of the time.
std::vector<const qvgraph::Rule*> rulesOf(const std::vector<qvgraph::Finding>& findings) {
    std::vector<const qvgraph::Rule*> found;
    std::copy_if(qvgraph::rules().begin(),
                 qvgraph::rules().end(),
                 std::back_inserter(found),
                 [&findings](const qvgraph::Rule* rule) {
                     return std::any_of(
                         findings.begin(), findings.end(), [rule](const qvgraph::Finding& finding) {
                             return finding.code == rule->code;
                         });
                 });
    return found;
}

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
    const std::string text(data, data + size);
    QVNodeRegistry::instance().setStub(text.find("no stub") == std::string::npos);
    std::vector<qvgraph::CheckedFile> files;
    files.push_back(qvgraph::checkConfiguration("fuzz.json", text, {}));

    std::ostringstream findings;
    qvgraph::renderCheckText(findings, files, false);
    qvgraph::renderCheckGcc(findings, files);
    qvgraph::renderCheckJson(findings, files);
    qvgraph::renderCheckSarif(findings, files, rulesOf(files[0].findings), "0");
    qvgraph::renderCheckGithub(findings, files);
    look(findings);

    const auto lookAtRecord = [](const QVLogRecord& record) {
        requireHarmless(qv_log_line(record, false));
    };
    qvgraph::SurveyRequest request;
    request.records = {QV_LOG_INFO, lookAtRecord};
    const qvgraph::SurveyedText surveyed = qvgraph::surveyText(text.c_str(), request);
    require(surveyed.loads == files[0].model.loads(),
            "check and survey disagree on whether the text loads");
    if (surveyed.loads) {
        std::ostringstream graph;
        qvgraph::renderInspectText(graph, "fuzz.json", surveyed.survey, false);
        qvgraph::renderInspectJson(graph, "fuzz.json", surveyed.survey);
        const qvgraph::Drawing drawing = qvgraph::drawingOf(files[0], {});
        qvgraph::renderDrawDot(graph, drawing, {true});
        qvgraph::renderDrawMermaid(graph, drawing, {true});
        qvgraph::renderDrawHtml(graph, drawing, "<svg/>");
        look(graph);
    }
    return 0;
}
