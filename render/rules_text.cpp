#include "render/rules_text.h"

#include <algorithm>
#include <string>

#include "render/excerpt.h"
#include "render/text.h"

namespace qvgraph {

namespace {

// The indent of everything that is not prose.
const size_t INDENT = 2;

// The columns of the list.
const size_t CODE = 2;
const size_t SEVERITY_WIDTH = 7;

std::string blanks(size_t number) {
    return std::string(number, ' ');
}

void writeParagraph(std::ostream& out, const std::string& text) {
    writeWrapped(out, printable(text), 0);
}

// Writes "warning: message" with the indent.
void writeLabelled(std::ostream& out, const std::string& label, const std::string& text) {
    out << blanks(INDENT) << label << ": ";
    writeWrapped(out, printable(text), INDENT + label.size() + 2);
}

// Writes a marker for each finding that begins on the line.
void writeMarkers(std::ostream& out, const CheckedFile& example, size_t line) {
    for (const Finding& finding : example.findings) {
        if (example.source->position(finding.span.begin).line == line) {
            out << gutterBelow(line) << excerptOf(*example.source, finding.span).marker << '\n';
        }
    }
}

// Writes the example with a marker for each finding.
void writeMarked(std::ostream& out, const CheckedFile& example) {
    const Source& source = *example.source;
    for (size_t line = 1; line <= source.lineCount(); ++line) {
        const auto begin = static_cast<size_t>(source.line(line).data() - source.text().data());
        out << gutterOf(line) << excerptOf(source, {begin, begin}).line << '\n';
        writeMarkers(out, example, line);
    }
}

void writeFindings(std::ostream& out, const ExplainedRule& explained) {
    for (const Finding& finding : explained.example.findings) {
        out << '\n';
        writeLabelled(out, toText(finding.severity), finding.message);
        if (!finding.hint.empty()) {
            writeLabelled(out, "hint", finding.hint);
        }
    }
}

void writeHead(std::ostream& out, const Rule& rule) {
    writeParagraph(out, std::string(rule.code) + " (" + toText(rule.severity) + "): " + rule.title);
}

size_t widthOfCodes(const std::vector<const Rule*>& known) {
    size_t width = 0;
    for (const Rule* rule : known) {
        width = std::max(width, std::string_view(rule->code).size());
    }
    return width;
}

}  // namespace

void renderRuleText(std::ostream& out, const ExplainedRule& explained) {
    const Rule& rule = *explained.rule;
    writeHead(out, rule);
    out << '\n';
    writeParagraph(out, rule.explanation);
    out << '\n';
    writeParagraph(out, std::string("On a device: ") + rule.device);

    const std::string conditions = conditionsOf(rule.example);
    out << '\n';
    writeParagraph(out, "Example" + (conditions.empty() ? "" : ", " + conditions) + ":");
    out << '\n';
    writeMarked(out, explained.example);
    writeFindings(out, explained);

    out << "\nFixed:\n\n";
    for (const std::string& line : exampleLines(rule.example.fixed)) {
        out << blanks(line.empty() ? 0 : INDENT) << line << '\n';
    }
    out << '\n';
    writeParagraph(out, rule.fix);
}

void renderRuleListText(std::ostream& out, const std::vector<const Rule*>& known) {
    const size_t width = widthOfCodes(known);
    std::string family;
    for (const Rule* each : known) {
        const Rule& rule = *each;
        if (rule.family != family) {
            out << (family.empty() ? "" : "\n") << headingOf(rule.family) << '\n';
            family = rule.family;
        }
        out << blanks(CODE) << padded(rule.code, width) << "  "
            << padded(toText(rule.severity), SEVERITY_WIDTH) << "  ";
        writeWrapped(out, printable(rule.title), CODE + width + 2 + SEVERITY_WIDTH + 2);
    }
}

}  // namespace qvgraph
