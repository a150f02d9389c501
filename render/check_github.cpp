#include "render/check_github.h"

#include <string>
#include <string_view>

#include "render/text.h"

namespace qvgraph {

namespace {

const char* commandOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Note:
            return "notice";
    }
    return "";
}

// A text in which the characters of `special` are percent-encoded.
std::string encoded(const std::string& text, std::string_view special) {
    static const char* const DIGITS = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        if (special.find(c) == std::string_view::npos) {
            out += c;
        } else {
            const auto number = static_cast<unsigned char>(c);
            out += {'%', DIGITS[number / 16], DIGITS[number % 16]};
        }
    }
    return out;
}

std::string encodedProperty(const std::string& text) {
    return encoded(printable(text), "%:,\r\n");
}

std::string annotationOf(const CheckedFile& file, const Finding& finding) {
    std::string text = printable(finding.message);
    for (const Related& related : finding.related) {
        const Position position = file.source->position(related.span.begin);
        text += '\n' + std::to_string(position.line) + ':' + std::to_string(position.column) +
                ": " + printable(related.message);
    }
    if (!finding.hint.empty()) {
        text += "\nhint: " + printable(finding.hint);
    }
    return encoded(text, "%\r\n");
}

void write(std::ostream& out, const CheckedFile& file, const Finding& finding) {
    const Position begin = file.source->position(finding.span.begin);
    const Position end = file.source->position(finding.span.end);
    out << "::" << commandOf(finding.severity) << " file=" << encodedProperty(file.name)
        << ",line=" << begin.line;
    if (begin.line == end.line) {
        out << ",col=" << begin.column << ",endLine=" << end.line << ",endColumn=" << end.column;
    } else {
        out << ",endLine=" << end.line;
    }
    out << ",title=" << encodedProperty(std::string(finding.code))
        << "::" << annotationOf(file, finding) << '\n';
}

}  // namespace

void renderCheckGithub(std::ostream& out, const std::vector<CheckedFile>& files) {
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings) {
            write(out, file, finding);
        }
    }
}

}  // namespace qvgraph
