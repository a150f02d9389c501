// From any text to every report of its findings: nothing crashes, hangs, or
// writes what is not UTF-8.
#include <utf8cpp/utf8.h>

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "host/qv_node_registry.h"
#include "render/check_gcc.h"
#include "render/check_github.h"
#include "render/check_json.h"
#include "render/check_sarif.h"
#include "render/check_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QVNodeRegistry::instance().setStub(true);
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::vector<qvgraph::CheckedFile> files = {
        qvgraph::checkConfiguration("fuzz.json", text, {})};
    std::ostringstream reports;
    qvgraph::renderCheckText(reports, files, true);
    qvgraph::renderCheckGcc(reports, files);
    qvgraph::renderCheckJson(reports, files);
    qvgraph::renderCheckSarif(reports, files, qvgraph::rules(), "0");
    qvgraph::renderCheckGithub(reports, files);
    const std::string written = reports.str();
    if (!utf8::is_valid(written.begin(), written.end())) {
        abort();
    }
    return 0;
}
