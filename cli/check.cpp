#include "cli/check.h"

#include <unistd.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/check.h"
#include "check/rules.h"
#include "cli/crash_report.h"
#include "cli/file_error.h"
#include "cli/input.h"
#include "cli/node_classes.h"
#include "cli/output.h"
#include "cli/rule_codes.h"
#include "cli/terminal.h"
#include "render/check_gcc.h"
#include "render/check_github.h"
#include "render/check_json.h"
#include "render/check_sarif.h"
#include "render/check_text.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Find the mistakes in configurations.\n"
    "\n"
    "Examples:\n"
    "  qvgraph check pipes.json                        report every finding\n"
    "  qvgraph check --fail-on warning a.json b.json   fail on warnings too\n"
    "  qvgraph check --ignore key-order pipes.json     apply all rules except one\n"
    "  qvgraph check --format sarif -o out.sarif *.json\n"
    "  make-pipes | qvgraph check --stdin-filename pipes.json -\n"
    "  qvgraph check --plugin ./libmine.so pipes.json  use your own node classes\n"
    "\n"
    "Severities:\n"
    "  error      the device aborts, fails, or silently drops something\n"
    "  warning    the device continues with a different value\n"
    "  note       worth knowing\n"
    "\n"
    "To learn more about a finding, run \"qvgraph explain CODE\". A comment suppresses\n"
    "a warning or a note:\n"
    "  \"stream_input\": \"raw\"  // qvgraph: ignore[no-producer] the bridge produces it\n"
    "\n"
    "Formats: text; gcc, one line per finding; json; sarif, SARIF 2.1.0; github,\n"
    "annotations of a GitHub workflow.\n"
    "\n"
    "Exit codes: 0 no findings at or above --fail-on; 1 findings at or above it;\n"
    "2 wrong usage, or a file that cannot be read or written (the other files are\n"
    "still reported).\n";

const char* const STANDARD_INPUT = "-";

struct Arguments {
    std::vector<std::string> files;
    std::string stdinName;
    std::string format = "text";
    std::string output;
    std::string failOn = "error";
    std::vector<std::string> select;
    std::vector<std::string> ignore;
    bool strict = false;
    NodeClassArguments nodeClasses;
    std::string colour = "auto";
    bool quiet = false;
};

// The results of all files.
struct Checked {
    std::vector<CheckedFile> files;
    bool couldReadAll = true;
};

// Whether --select and --ignore select a code.
std::function<bool(std::string_view)> selectionOf(const Arguments& arguments) {
    const Codes selected = codesIn("--select", arguments.select);
    const Codes ignored = codesIn("--ignore", arguments.ignore);
    return [selected, ignored](std::string_view code) {
        return (selected.empty() || selected.count(code) != 0) && ignored.count(code) == 0;
    };
}

// Reads a file; prints a message and returns nothing if it cannot be read.
std::optional<Input> readOrReport(const Arguments& arguments, const std::string& path) {
    try {
        Input input = readInput(path);
        if (path == STANDARD_INPUT && !arguments.stdinName.empty()) {
            input.name = arguments.stdinName;
        }
        return input;
    } catch (const FileError& error) {
        printMessage(error.what());
        return std::nullopt;
    }
}

CheckedFile checkInput(const Arguments& arguments, Input input, const CheckRequest& request) {
    reportCrashesIn(input.name);
    CheckedFile file = checkConfiguration(input.name, std::move(input.text), request);
    file.model = {};  // the models of many files would need much memory
    if (arguments.strict) {
        makeStrict(&file.findings);
    }
    return file;
}

Checked checkFiles(const Arguments& arguments, CheckRequest request) {
    Checked checked;
    Progress progress(!arguments.quiet);
    request.progress = [&](size_t done, size_t total) { progress.show("pipe", done, total); };
    for (const std::string& path : arguments.files) {
        if (auto input = readOrReport(arguments, path)) {
            checked.files.push_back(checkInput(arguments, *std::move(input), request));
        } else {
            checked.couldReadAll = false;
        }
        progress.show("file", checked.files.size(), arguments.files.size());
    }
    return checked;
}

std::string render(const Arguments& arguments, const std::vector<CheckedFile>& files) {
    std::ostringstream report;
    if (arguments.format == "gcc") {
        renderCheckGcc(report, files);
    } else if (arguments.format == "json") {
        renderCheckJson(report, files);
    } else if (arguments.format == "sarif") {
        renderCheckSarif(report, files, rules(), QVGRAPH_VERSION);
    } else if (arguments.format == "github") {
        renderCheckGithub(report, files);
    } else {
        const int descriptor = isStandardOutput(arguments.output) ? STDOUT_FILENO : -1;
        renderCheckText(report, files, usesColour(arguments.colour, descriptor));
    }
    return report.str();
}

size_t countIn(const std::vector<CheckedFile>& files, Severity severity) {
    size_t count = 0;
    for (const CheckedFile& file : files) {
        count += countOf(file.findings, severity);
    }
    return count;
}

// "3 errors, 1 warning and 2 notes in 2 files", "2 files, no findings".
std::string summaryOf(const std::vector<CheckedFile>& files) {
    std::vector<std::string> counts;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (const size_t count = countIn(files, severity)) {
            counts.push_back(counted(count, toText(severity)));
        }
    }
    const std::string where = counted(files.size(), "file");
    return counts.empty() ? where + ", no findings" : listOf(counts) + " in " + where;
}

bool hasFailed(const Arguments& arguments, const std::vector<CheckedFile>& files) {
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (countIn(files, severity) > 0) {
            return true;
        }
        if (arguments.failOn == toText(severity)) {
            return false;
        }
    }
    return false;
}

// Writes no report if no file could be read.
ExitCode check(const Arguments& arguments, const CheckRequest& request) {
    for (const std::string& file : arguments.files) {
        if (isSameFile(file, arguments.output)) {
            throw FileError("cannot write " + arguments.output + ": it is the configuration");
        }
    }
    const Checked checked = checkFiles(arguments, request);
    if (!checked.files.empty()) {
        writeOutput(arguments.output, render(arguments, checked.files));
        if (!arguments.quiet) {
            printMessage(summaryOf(checked.files));
        }
    }
    if (!checked.couldReadAll) {
        return ExitCode::Failed;
    }
    return hasFailed(arguments, checked.files) ? ExitCode::Findings : ExitCode::Clean;
}

void addInputOptions(Verb* verb, Arguments* arguments) {
    verb->addArguments("FILE", &arguments->files, "The configurations; - is standard input");
    verb->require("FILE");
    verb->addOption("--stdin-filename",
                    &arguments->stdinName,
                    "Use this name for standard input in the report",
                    "NAME");
}

void addReportOptions(Verb* verb, Arguments* arguments) {
    verb->addChoice("--format",
                    &arguments->format,
                    {"text", "gcc", "json", "sarif", "github"},
                    "text (the default), gcc, json, sarif or github",
                    "FORMAT");
    verb->addOption("-o,--output", &arguments->output, "Write the report to this file", "FILE");
    verb->addChoice("--color",
                    &arguments->colour,
                    {"auto", "always", "never"},
                    "auto (the default), always or never",
                    "WHEN");
    verb->addFlag("-q,--quiet", &arguments->quiet, "Print only errors on standard error");
}

void addRuleOptions(Verb* verb, Arguments* arguments) {
    verb->addChoice("--fail-on",
                    &arguments->failOn,
                    {"error", "warning", "note"},
                    "Fail at or above error (the default), warning or note",
                    "SEVERITY");
    verb->addList("--select",
                  &arguments->select,
                  "Apply only these rules, separated by commas; repeatable",
                  "CODES");
    verb->addList(
        "--ignore", &arguments->ignore, "Apply all rules except these; repeatable", "CODES");
    verb->addFlag("--strict", &arguments->strict, "Report warnings as errors");
}

}  // namespace

void addCheck(CLI::App* app, ExitCode* code) {
    auto arguments = std::make_shared<Arguments>();
    Verb verb(app, "check", DESCRIPTION);
    addInputOptions(&verb, arguments.get());
    addReportOptions(&verb, arguments.get());
    addRuleOptions(&verb, arguments.get());
    addNodeClassOptions(&verb, &arguments->nodeClasses);
    verb.setAction([arguments, code] {
        if (std::count(arguments->files.begin(), arguments->files.end(), STANDARD_INPUT) > 1) {
            throw UsageError("FILE: standard input can be read only once");
        }
        CheckRequest request;
        request.selects = selectionOf(*arguments);
        provideNodeClasses(arguments->nodeClasses);
        *code = check(*arguments, request);
    });
}

}  // namespace qvgraph
