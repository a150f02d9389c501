#include "cli/draw.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "cli/crash_report.h"
#include "cli/file_error.h"
#include "cli/input.h"
#include "cli/layout.h"
#include "cli/node_classes.h"
#include "cli/number.h"
#include "cli/output.h"
#include "cli/pipe_argument.h"
#include "cli/terminal.h"
#include "graph/qv_graph_parser.h"
#include "render/draw_dot.h"
#include "render/draw_html.h"
#include "render/draw_mermaid.h"
#include "render/draw_svg.h"
#include "render/draw_words.h"
#include "render/drawing.h"
#include "survey/survey.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Draw the nodes and streams of a configuration.\n"
    "\n"
    "Examples:\n"
    "  qvgraph draw -o pipes.svg pipes.json      draw a picture\n"
    "  qvgraph draw -o pipes.html pipes.json     write a page to pan, zoom and search\n"
    "  qvgraph draw --pipe 1 --options -o one.png pipes.json\n"
    "  qvgraph draw --format mermaid pipes.json  print text for a README\n"
    "  qvgraph draw pipes.json | dot -Tpdf -o pipes.pdf\n"
    "\n"
    "Errors and warnings of the check appear on their node or stream. A stream\n"
    "without a producer or a consumer has a loose end.\n"
    "\n"
    "Formats: dot, for Graphviz; svg; png; mermaid; html, a page that works offline.\n"
    "Without --format, the extension of the output file decides: .dot or .gv, .svg,\n"
    ".png, .mmd or .mermaid, .html or .htm. On standard output, the default is dot.\n"
    "For svg, png and html, the program \"dot\" of Graphviz computes the layout.\n"
    "\n"
    "Exit codes: 0 the picture is written; 2 wrong usage, a file that cannot be read\n"
    "or written, a document that does not load, or a picture that cannot be laid out.\n";

const int MAX_SECONDS = 86400;

struct Arguments {
    std::string file;
    std::string format;
    std::string output;
    std::optional<int> pipe;
    bool options = false;
    int timeout = 60;
    NodeClassArguments nodeClasses;
    bool quiet = false;
};

// The format for the extension of a file; "" if there is none.
std::string formatByExtension(const std::string& path) {
    static const std::map<std::string, std::string> FORMATS = {{".dot", "dot"},
                                                               {".gv", "dot"},
                                                               {".svg", "svg"},
                                                               {".png", "png"},
                                                               {".mmd", "mermaid"},
                                                               {".mermaid", "mermaid"},
                                                               {".html", "html"},
                                                               {".htm", "html"}};
    std::string extension = std::filesystem::path(path).extension();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) {
        return static_cast<char>(tolower(c));
    });
    const auto found = FORMATS.find(extension);
    return found == FORMATS.end() ? "" : found->second;
}

std::string formatOf(const Arguments& arguments) {
    if (!arguments.format.empty()) {
        return arguments.format;
    }
    if (isStandardOutput(arguments.output)) {
        return "dot";
    }
    std::string format = formatByExtension(arguments.output);
    if (format.empty()) {
        throw UsageError("--output: the extension of '" + arguments.output +
                         "' does not tell the format; use --format");
    }
    return format;
}

std::string noSuchPipe(const Input& input, int pipe, const Model& model) {
    std::vector<std::string> keys;
    for (const Pipe& each : model.pipes()) {
        keys.emplace_back(each.value->key);
    }
    return input.name + ": there is no \"pipe_" + std::to_string(pipe) +
           "\": the configuration has " + (keys.empty() ? "no pipes" : listOf(keys));
}

bool hasPipe(const Model& model, int pipe) {
    return std::ranges::any_of(model.pipes(),
                               [pipe](const Pipe& each) { return each.index == pipe; });
}

// Why the parser does not load a text; nothing if it does.
std::optional<std::string> loadError(const std::string& text) {
    QVGraphParser parser;
    return loadConfiguration(text, {}, &parser);
}

CheckedFile checkInput(const Arguments& arguments, const Input& input) {
    Progress progress(!arguments.quiet);
    CheckRequest request;
    request.progress = [&](size_t done, size_t total) { progress.show("pipe", done, total); };
    reportCrashesIn(input.name);
    return checkConfiguration(input.name, input.text, request);
}

std::string layOut(const Arguments& arguments, const std::string& graph, const char* format) {
    LayoutRequest request;
    request.graph = graph;
    request.format = format;
    request.timeLimit = std::chrono::seconds(arguments.timeout);
    request.showProgress = !arguments.quiet;
    return layOut(request);
}

std::string render(const Arguments& arguments, const std::string& format, const Drawing& drawing) {
    std::ostringstream picture;
    if (format == "mermaid") {
        renderDrawMermaid(picture, drawing, {arguments.options});
        return picture.str();
    }
    renderDrawDot(picture, drawing, {arguments.options});
    if (format == "dot") {
        return picture.str();
    }
    if (format == "png") {
        return layOut(arguments, picture.str(), "png");
    }
    const std::string svg = layOut(arguments, picture.str(), "svg");
    std::ostringstream page;
    if (format == "svg") {
        renderDrawSvg(page, svg);
    } else {
        renderDrawHtml(page, drawing, svg);
    }
    return page.str();
}

ExitCode draw(const Arguments& arguments) {
    const std::string format = formatOf(arguments);
    if (isSameFile(arguments.file, arguments.output)) {
        throw FileError("cannot write " + arguments.output + ": it is the configuration");
    }
    if (format == "png" && isStandardOutput(arguments.output) && isatty(STDOUT_FILENO) != 0) {
        throw FileError("cannot write a png to a terminal; use -o FILE");
    }
    const Input input = readInput(arguments.file);
    if (const auto error = loadError(input.text)) {
        printMessage(input.name + ": " + *error + " (see qvgraph check)");
        return ExitCode::Failed;
    }
    const CheckedFile file = checkInput(arguments, input);
    if (arguments.pipe && !hasPipe(file.model, *arguments.pipe)) {
        printMessage(noSuchPipe(input, *arguments.pipe, file.model));
        return ExitCode::Failed;
    }
    const Drawing drawing = drawingOf(file, arguments.pipe);
    writeOutput(arguments.output, render(arguments, format, drawing));

    const std::string mistakes = mistakesIn(drawing);
    if (!mistakes.empty() && !arguments.quiet) {
        printMessage(input.name + ": " + mistakes + " (see qvgraph check)");
    }
    return ExitCode::Clean;
}

void addTimeout(Verb* verb, int* seconds) {
    verb->addParsed(
        "--timeout",
        [seconds](const std::string& text) {
            const std::optional<int> number = numberIn(text, 1, MAX_SECONDS);
            if (!number) {
                throw UsageError("--timeout: '" + text + "' is not a whole number from 1 to " +
                                 std::to_string(MAX_SECONDS));
            }
            *seconds = *number;
        },
        "Stop the layout after this time; the default is 60",
        "SECONDS");
}

}  // namespace

void addDraw(CLI::App* app, ExitCode* code) {
    auto arguments = std::make_shared<Arguments>();
    Verb verb(app, "draw", DESCRIPTION);
    verb.addArgument("FILE", &arguments->file, "The configuration; - is standard input");
    verb.require("FILE");
    verb.addChoice("--format",
                   &arguments->format,
                   {"dot", "svg", "png", "mermaid", "html"},
                   "dot, svg, png, mermaid or html",
                   "FORMAT");
    verb.addOption("-o,--output", &arguments->output, "Write the picture to this file", "FILE");
    addPipeOption(&verb, &arguments->pipe, "Draw only the pipe with this index, counted from 0");
    verb.addFlag("--options", &arguments->options, "Show the options of the nodes");
    addTimeout(&verb, &arguments->timeout);
    addNodeClassOptions(&verb, &arguments->nodeClasses);
    verb.addFlag("-q,--quiet", &arguments->quiet, "Print only errors on standard error");
    verb.setAction([arguments, code] {
        provideNodeClasses(arguments->nodeClasses);
        *code = draw(*arguments);
    });
}

}  // namespace qvgraph
