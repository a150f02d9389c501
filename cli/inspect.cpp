#include "cli/inspect.h"

#include <unistd.h>

#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "cli/crash_report.h"
#include "cli/file_error.h"
#include "cli/input.h"
#include "cli/node_classes.h"
#include "cli/output.h"
#include "cli/pipe_argument.h"
#include "cli/terminal.h"
#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "render/inspect_json.h"
#include "render/inspect_text.h"
#include "survey/survey.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Show how the framework interprets a configuration.\n"
    "\n"
    "Examples:\n"
    "  qvgraph inspect pipes.json                     show all pipes\n"
    "  qvgraph inspect --pipe 1 pipes.json            show one pipe\n"
    "  qvgraph inspect --format json -o out.json pipes.json\n"
    "  make-pipes | qvgraph inspect -                 read standard input\n"
    "  qvgraph inspect --plugin ./libmine.so a.json   use your own node classes\n"
    "\n"
    "The report shows the answer to every query, every option as it is stored,\n"
    "every node as it is set up, and every stream with its producer and consumers. An\n"
    "option that is not stored does not appear; -v reports options that are too long.\n"
    "Stubs stand in for node classes that are not registered, unless you use\n"
    "--no-stub.\n"
    "\n"
    "Exit codes: 0 every node is ready; 1 a node is not ready; 2 wrong usage, a file\n"
    "that cannot be read or written, or a document that does not load.\n";

struct Arguments {
    std::string file;
    std::string format = "text";
    std::string output;
    std::optional<int> pipe;
    NodeClassArguments nodeClasses;
    bool listClasses = false;
    std::string colour = "auto";
    int verbosity = 0;
    bool quiet = false;
};

// Prints the records of the parser and of node classes on standard error: errors and
// failures with -v, all records with -vv.
RecordObserver recordsOf(const Arguments& arguments) {
    RecordObserver records;
    if (arguments.verbosity > 0) {
        const bool colour = usesColour(arguments.colour, STDERR_FILENO);
        records.level = arguments.verbosity > 1 ? QV_LOG_INFO : QV_LOG_NOTICE;
        records.sink = [colour](const QVLogRecord& record) {
            std::cerr << qv_log_line(record, colour) + '\n';
        };
    }
    return records;
}

std::string noSuchPipe(const Input& input, int pipe, int pipes) {
    const std::string missing =
        input.name + ": there is no pipe " + std::to_string(pipe) + ": the configuration has ";
    if (pipes == 0) {
        return missing + "no pipes";
    }
    return missing + counted(static_cast<size_t>(pipes), "pipe") +
           (pipes == 1 ? ", with the index 0"
                       : ", with the indexes 0 to " + std::to_string(pipes - 1));
}

std::string render(const Arguments& arguments, const Input& input, const Survey& survey) {
    std::ostringstream report;
    if (arguments.format == "json") {
        renderInspectJson(report, input.name, survey);
    } else {
        const int descriptor = isStandardOutput(arguments.output) ? STDOUT_FILENO : -1;
        renderInspectText(report, input.name, survey, usesColour(arguments.colour, descriptor));
    }
    return report.str();
}

ExitCode listClasses(const Arguments& arguments) {
    std::ostringstream report;
    if (arguments.format == "json") {
        renderClassesJson(report, surveyNodeClasses());
    } else {
        renderClassesText(report, surveyNodeClasses());
    }
    writeOutput(arguments.output, report.str());
    return ExitCode::Clean;
}

ExitCode inspect(const Arguments& arguments) {
    if (isSameFile(arguments.file, arguments.output)) {
        throw FileError("cannot write " + arguments.output + ": it is the configuration");
    }
    const Input input = readInput(arguments.file);
    SurveyRequest request;
    request.records = recordsOf(arguments);
    QVGraphParser parser;
    if (const auto error = loadConfiguration(input.text, request.records, &parser)) {
        printMessage(input.name + ": " + *error + " (see qvgraph check)");
        return ExitCode::Failed;
    }
    const int pipes = parser.getPipeNum();
    if (arguments.pipe && *arguments.pipe >= pipes) {
        printMessage(noSuchPipe(input, *arguments.pipe, pipes));
        return ExitCode::Failed;
    }

    Survey survey;
    {
        Progress progress(!arguments.quiet && arguments.verbosity == 0);
        request.pipe = arguments.pipe;
        request.progress = [&](size_t done, size_t total) { progress.show("pipe", done, total); };
        reportCrashesIn(input.name);
        survey = surveyConfiguration(parser, request);
    }
    writeOutput(arguments.output, render(arguments, input, survey));

    const Readiness readiness = readinessOf(survey);
    if (readiness.notReady == 0) {
        return ExitCode::Clean;
    }
    if (!arguments.quiet) {
        printMessage(input.name + ": " + textOf(readiness));
    }
    return ExitCode::Findings;
}

}  // namespace

void addInspect(CLI::App* app, ExitCode* code) {
    auto arguments = std::make_shared<Arguments>();
    Verb verb(app, "inspect", DESCRIPTION);
    verb.addArgument("FILE", &arguments->file, "The configuration; - is standard input");
    verb.addChoice(
        "--format", &arguments->format, {"text", "json"}, "text (the default) or json", "FORMAT");
    verb.addOption("-o,--output", &arguments->output, "Write the report to this file", "FILE");
    addPipeOption(&verb, &arguments->pipe, "Show only the pipe with this index, counted from 0");
    addNodeClassOptions(&verb, &arguments->nodeClasses);
    verb.addFlag("--classes", &arguments->listClasses, "List the registered node classes and exit");
    verb.excludeEachOther("--classes", "FILE");
    verb.addChoice("--color",
                   &arguments->colour,
                   {"auto", "always", "never"},
                   "auto (the default), always or never",
                   "WHEN");
    verb.addCount(
        "-v,--verbose", &arguments->verbosity, "Also print errors and failures; -vv: all records");
    verb.addFlag("-q,--quiet", &arguments->quiet, "Print only errors on standard error");
    verb.setAction([arguments, code, verb] {
        if (!verb.isGiven("FILE") && !arguments->listClasses) {
            throw UsageError("FILE is required");
        }
        provideNodeClasses(arguments->nodeClasses);
        *code = arguments->listClasses ? listClasses(*arguments) : inspect(*arguments);
    });
}

}  // namespace qvgraph
