#include "render/check_gcc.h"

#include "render/text.h"

namespace qvgraph {

void renderCheckGcc(std::ostream& out, const std::vector<CheckedFile>& files) {
    for (const CheckedFile& file : files) {
        const std::string name = printable(file.name);
        for (const Finding& finding : file.findings) {
            const Position position = file.source->position(finding.span.begin);
            out << name << ':' << position.line << ':' << position.column << ": "
                << toText(finding.severity) << ": " << printable(finding.message);
            if (!finding.hint.empty()) {
                out << "; hint: " << printable(finding.hint);
            }
            out << " [" << finding.code << "]\n";
        }
    }
}

}  // namespace qvgraph
