#include "render/check_gcc.h"

#include "render/text.h"

namespace qvgraph {

namespace {

void write(std::ostream& out, const CheckedFile& file, const Finding& finding) {
    const Position position = file.source->position(finding.span.begin);
    out << printable(file.name) << ':' << position.line << ':' << position.column << ": "
        << toText(finding.severity) << ": " << printable(finding.message);
    if (!finding.hint.empty()) {
        out << "; hint: " << printable(finding.hint);
    }
    out << " [" << finding.code << "]\n";
}

}  // namespace

void renderCheckGcc(std::ostream& out, const std::vector<CheckedFile>& files) {
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings) {
            write(out, file, finding);
        }
    }
}

}  // namespace qvgraph
