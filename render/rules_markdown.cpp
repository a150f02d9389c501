#include "render/rules_markdown.h"

#include <cctype>
#include <string>
#include <string_view>

#include "render/text.h"

namespace qvgraph {

namespace {

const char* const INTRODUCTION =
    "# Rules\n"
    "\n"
    "The rules of `qvgraph check`. `qvgraph explain CODE` explains a rule on a\n"
    "terminal, and `qvgraph explain --format markdown` writes this page.\n"
    "\n"
    "- **error**: the device aborts, fails, or silently drops something.\n"
    "- **warning**: the device continues with a different value.\n"
    "- **note**: worth knowing.\n"
    "\n"
    "A comment suppresses the warnings and notes of a rule that start on the same\n"
    "line or, if the comment is alone on its line, on the next line:\n"
    "\n"
    "```jsonc\n"
    "// qvgraph: ignore[no-consumer] a recorder is plugged in here\n"
    "```\n"
    "\n";

bool isWordCharacter(char c) {
    return isalnum(static_cast<unsigned char>(c)) != 0;
}

// Printable text that Markdown shows as it is. An underscore within a word has no
// meaning in Markdown.
std::string escaped(const std::string& text) {
    std::string out;
    char before = ' ';
    for (const char c : printable(text)) {
        const bool isMark = std::string_view("\\`*<>[]|&#").find(c) != std::string_view::npos;
        out += isMark || (c == '_' && !isWordCharacter(before)) ? "\\" : "";
        out += c;
        before = c;
    }
    return out;
}

void writeCode(std::ostream& out, std::string_view example) {
    out << "```jsonc\n";
    for (const std::string& line : exampleLines(example)) {
        out << line << '\n';
    }
    out << "```\n";
}

void writeFinding(std::ostream& out, const CheckedFile& example, const Finding& finding) {
    const Position position = example.source->position(finding.span.begin);
    out << "\n> " << position.line << ':' << position.column << ": " << toText(finding.severity)
        << ": " << escaped(finding.message) << '\n';
    if (!finding.hint.empty()) {
        out << ">\n> hint: " << escaped(finding.hint) << '\n';
    }
}

void writeTable(std::ostream& out, const std::vector<ExplainedRule>& explained) {
    out << "| code | severity | what is wrong |\n|---|---|---|\n";
    for (const ExplainedRule& each : explained) {
        const Rule& rule = *each.rule;
        out << "| [" << rule.code << "](#" << rule.code << ") | " << toText(rule.severity) << " | "
            << escaped(rule.title) << " |\n";
    }
}

}  // namespace

void renderRuleMarkdown(std::ostream& out, const ExplainedRule& explained) {
    const Rule& rule = *explained.rule;
    out << "### " << rule.code << "\n\n**" << toText(rule.severity) << "**: " << escaped(rule.title)
        << "\n\n"
        << escaped(rule.explanation) << "\n\nOn a device: " << escaped(rule.device)
        << "\n\nExample";
    const std::string conditions = conditionsOf(rule.example);
    out << (conditions.empty() ? "" : ", " + escaped(conditions)) << ":\n\n";
    writeCode(out, rule.example.wrong);
    for (const Finding& finding : explained.example.findings) {
        writeFinding(out, explained.example, finding);
    }
    out << "\nFixed:\n\n";
    writeCode(out, rule.example.fixed);
    out << '\n' << escaped(rule.fix) << '\n';
}

void renderRulesMarkdown(std::ostream& out, const std::vector<ExplainedRule>& explained) {
    out << INTRODUCTION;
    writeTable(out, explained);
    std::string family;
    for (const ExplainedRule& each : explained) {
        if (each.rule->family != family) {
            family = each.rule->family;
            out << "\n## " << headingOf(each.rule->family) << '\n';
        }
        out << '\n';
        renderRuleMarkdown(out, each);
    }
}

}  // namespace qvgraph
