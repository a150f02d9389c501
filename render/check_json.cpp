#include "render/check_json.h"

#include <algorithm>
#include <string>

#include "render/json_text.h"
#include "render/text.h"

namespace qvgraph {

namespace {

const char* const FORMAT_VERSION = "1.0";

Json jsonOf(const Position& position) {
    return {{"line", position.line}, {"column", position.column}, {"byte", position.byte}};
}

Json rangeOf(const Source& source, const Span& span) {
    return {{"start", jsonOf(source.position(span.begin))},
            {"end", jsonOf(source.position(span.end))}};
}

Json jsonOf(const CheckedFile& file, const Related& related) {
    return {{"message", printable(related.message)},
            {"file", file.name},
            {"range", rangeOf(*file.source, related.span)}};
}

Json jsonOf(const CheckedFile& file, const Finding& finding) {
    return {{"code", finding.code},
            {"severity", toText(finding.severity)},
            {"message", printable(finding.message)},
            {"file", file.name},
            {"pointer", finding.pointer},
            {"range", rangeOf(*file.source, finding.span)},
            {"related",
             jsonArrayOf(finding.related,
                         [&](const Related& related) { return jsonOf(file, related); })},
            {"hint", finding.hint.empty() ? Json() : Json(printable(finding.hint))}};
}

size_t countIn(const std::vector<CheckedFile>& files, Severity severity) {
    size_t count = 0;
    for (const CheckedFile& file : files) {
        count += countOf(file.findings, severity);
    }
    return count;
}

bool isValid(const CheckedFile& file) {
    return countOf(file.findings, Severity::Error) == 0;
}

}  // namespace

void renderCheckJson(std::ostream& out, const std::vector<CheckedFile>& files) {
    Json diagnostics = Json::array();
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings) {
            diagnostics.push_back(jsonOf(file, finding));
        }
    }
    writeJson(out,
              {{"format_version", FORMAT_VERSION},
               {"valid", std::all_of(files.begin(), files.end(), isValid)},
               {"error_count", countIn(files, Severity::Error)},
               {"warning_count", countIn(files, Severity::Warning)},
               {"note_count", countIn(files, Severity::Note)},
               {"files",
                jsonArrayOf(files,
                            [](const CheckedFile& file) {
                                return Json{{"file", file.name}, {"valid", isValid(file)}};
                            })},
               {"diagnostics", std::move(diagnostics)}});
}

}  // namespace qvgraph
