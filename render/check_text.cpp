#include "render/check_text.h"

#include <string>

#include "render/excerpt.h"
#include "render/text.h"

namespace qvgraph {

namespace {

const char* const BOLD = "\033[1m";
const char* const GREEN = "\033[1;32m";

const char* colourOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "\033[1;31m";
        case Severity::Warning:
            return "\033[1;35m";
        case Severity::Note:
            return "\033[1;36m";
    }
    return "";
}

// The findings of one file.
class Report {
public:
    Report(std::ostream& out, const CheckedFile& file, bool colour)
        : mOut(out), mFile(file), mColour(colour) {}

    void write(const Finding& finding);

private:
    void writeHead(const Span& span, Severity severity, const std::string& message);
    void writeExcerpt(const Span& span, Severity severity);

    std::string paint(const std::string& text, const char* colour) const {
        return mColour ? colour + text + "\033[0m" : text;
    }

    std::ostream& mOut;
    const CheckedFile& mFile;
    bool mColour;
};

void Report::write(const Finding& finding) {
    writeHead(finding.span, finding.severity, finding.message);
    mOut << " [" << paint(std::string(finding.code), colourOf(finding.severity)) << "]\n";
    writeExcerpt(finding.span, finding.severity);
    size_t line = mFile.source->position(finding.span.begin).line;
    for (const Related& related : finding.related) {
        writeHead(related.span, Severity::Note, related.message);
        mOut << '\n';
        writeExcerpt(related.span, Severity::Note);
        line = mFile.source->position(related.span.begin).line;
    }
    if (!finding.hint.empty()) {
        const std::string indent(gutterBelow(line).size() - 2, ' ');
        mOut << indent << "= " << paint("hint:", GREEN) << ' ';
        writeWrapped(mOut, printable(finding.hint), indent.size() + 8);
    }
}

void Report::writeHead(const Span& span, Severity severity, const std::string& message) {
    const Position position = mFile.source->position(span.begin);
    const std::string location = printable(mFile.name) + ':' + std::to_string(position.line) + ':' +
                                 std::to_string(position.column) + ':';
    mOut << paint(location, BOLD) << ' '
         << paint(std::string(toText(severity)) + ':', colourOf(severity)) << ' '
         << printable(message);
}

void Report::writeExcerpt(const Span& span, Severity severity) {
    const size_t line = mFile.source->position(span.begin).line;
    const Excerpt excerpt = excerptOf(*mFile.source, span);
    mOut << gutterOf(line) << excerpt.line << '\n';
    const size_t blanks = excerpt.marker.find('^');
    mOut << gutterBelow(line) << std::string(blanks, ' ')
         << paint(excerpt.marker.substr(blanks), colourOf(severity)) << '\n';
}

}  // namespace

void renderCheckText(std::ostream& out, const std::vector<CheckedFile>& files, bool colour) {
    bool isFirst = true;
    for (const CheckedFile& file : files) {
        Report report(out, file, colour);
        for (const Finding& finding : file.findings) {
            out << (isFirst ? "" : "\n");
            isFirst = false;
            report.write(finding);
        }
    }
}

}  // namespace qvgraph
