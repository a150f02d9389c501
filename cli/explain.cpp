#include "cli/explain.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "check/rules.h"
#include "cli/example_classes.h"
#include "cli/output.h"
#include "cli/rule_codes.h"
#include "render/explained_rule.h"
#include "render/rules_markdown.h"
#include "render/rules_text.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Explain the rules of the check.\n"
    "\n"
    "Examples:\n"
    "  qvgraph explain                      list all rules, one per line\n"
    "  qvgraph explain no-producer          explain one rule\n"
    "  qvgraph explain --format markdown    write all explanations on one page\n"
    "\n"
    "An explanation says what a rule finds, what the device does, and how to fix the\n"
    "mistake.\n"
    "\n"
    "Exit codes: 0 the explanation is written; 2 wrong usage, an unknown code, or a\n"
    "file that cannot be written.\n";

struct Arguments {
    std::string code;
    std::string format = "text";
    std::string output;
};

ExplainedRule explained(const Rule& rule) {
    const ExampleClasses classes(rule.example);
    return {&rule, checkConfiguration("example.json", std::string(rule.example.wrong), {})};
}

std::string explainOne(const Arguments& arguments) {
    const ExplainedRule rule = explained(ruleOf("CODE", arguments.code));
    std::ostringstream report;
    if (arguments.format == "markdown") {
        renderRuleMarkdown(report, rule);
    } else {
        renderRuleText(report, rule);
    }
    return report.str();
}

std::string explainAll(const Arguments& arguments) {
    std::ostringstream report;
    if (arguments.format == "markdown") {
        std::vector<ExplainedRule> all;
        for (const Rule* rule : rules()) {
            all.push_back(explained(*rule));
        }
        renderRulesMarkdown(report, all);
    } else {
        renderRuleListText(report, rules());
    }
    return report.str();
}

}  // namespace

void addExplain(CLI::App* app, ExitCode* code) {
    auto arguments = std::make_shared<Arguments>();
    Verb verb(app, "explain", DESCRIPTION);
    verb.addArgument("CODE", &arguments->code, "The code of a rule; without it, list all rules");
    verb.addChoice("--format",
                   &arguments->format,
                   {"text", "markdown"},
                   "text (the default) or markdown",
                   "FORMAT");
    verb.addOption("-o,--output", &arguments->output, "Write the explanation to this file", "FILE");
    verb.setAction([arguments, code, verb] {
        writeOutput(arguments->output,
                    verb.isGiven("CODE") ? explainOne(*arguments) : explainAll(*arguments));
        *code = ExitCode::Clean;
    });
}

}  // namespace qvgraph
