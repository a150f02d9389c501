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
#include "check/words.h"
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

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Draw a configuration: its nodes, and the streams between them.\n"
    "\n"
    "Examples:\n"
    "  qvgraph draw -o pipes.svg pipes.json       a picture\n"
    "  qvgraph draw -o pipes.html pipes.json      a page to look around in\n"
    "  qvgraph draw --pipe 1 --options -o one.png pipes.json\n"
    "  qvgraph draw --format mermaid pipes.json   for a README\n"
    "  qvgraph draw pipes.json | dot -Tpdf -o pipes.pdf\n"
    "\n"
    "Formats: dot, for Graphviz; svg; png; mermaid; html, one page that needs nothing\n"
    "else. Without --format the ending of the file decides: .dot or .gv, .svg, .png,\n"
    ".mmd or .mermaid, .html or .htm. For svg, png and html the program \"dot\" of\n"
    "Graphviz lays the picture out.\n"
    "\n"
    "Mistakes are drawn where they are: what \"qvgraph check\" calls an error or a\n"
    "warning is painted on its node or stream, and a stream without a producer or a\n"
    "consumer has a loose end.\n"
    "\n"
    "Exit codes: 0; 2 for wrong usage, a file that cannot be read or written, a\n"
    "document that does not load, or a picture that cannot be laid out.\n";

const int MOST_SECONDS = 86400;

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

// The format that a file's ending tells; "" for none.
std::string formatByEnding(const std::string& path) {
    static const std::map<std::string, std::string> FORMATS = {{".dot", "dot"},
                                                               {".gv", "dot"},
                                                               {".svg", "svg"},
                                                               {".png", "png"},
                                                               {".mmd", "mermaid"},
                                                               {".mermaid", "mermaid"},
                                                               {".html", "html"},
                                                               {".htm", "html"}};
    std::string ending = std::filesystem::path(path).extension();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) {
        return static_cast<char>(tolower(c));
    });
    const auto found = FORMATS.find(ending);
    return found == FORMATS.end() ? "" : found->second;
}

std::string formatOf(const Arguments& arguments) {
    if (!arguments.format.empty()) {
        return arguments.format;
    }
    if (isStandardOutput(arguments.output)) {
        return "dot";
    }
    std::string format = formatByEnding(arguments.output);
    if (format.empty()) {
        throw UsageError("--output: the ending of '" + arguments.output +
                         "' tells no format; give --format");
    }
    return format;
}

std::string noSuchPipe(const Input& input, int pipe, const Survey& survey) {
    std::vector<std::string> keys;
    for (const Pipe& each : survey.pipes) {
        keys.push_back(*each.key);
    }
    return input.name + ": there is no \"pipe_" + std::to_string(pipe) +
           "\": the configuration has " + (keys.empty() ? "no pipes" : listOf(keys));
}

bool hasPipe(const Survey& survey, int pipe) {
    return std::any_of(survey.pipes.begin(), survey.pipes.end(), [pipe](const Pipe& each) {
        return each.index == pipe;
    });
}

// Why the parser gets no document out of a text; nothing when it does.
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
        throw FileError("cannot write a png to a terminal: give -o FILE");
    }
    const Input input = readInput(arguments.file);
    if (const auto error = loadError(input.text)) {
        complain(input.name + ": " + *error + " (see qvgraph check)");
        return ExitCode::Failed;
    }
    const CheckedFile file = checkInput(arguments, input);
    if (arguments.pipe && !hasPipe(file.survey, *arguments.pipe)) {
        complain(noSuchPipe(input, *arguments.pipe, file.survey));
        return ExitCode::Failed;
    }
    const Drawing drawing = drawingOf(file, arguments.pipe);
    writeOutput(arguments.output, render(arguments, format, drawing));

    const std::string mistakes = mistakesIn(drawing);
    if (!mistakes.empty() && !arguments.quiet) {
        complain(input.name + ": " + mistakes + " (see qvgraph check)");
    }
    return ExitCode::Clean;
}

void addTimeout(Verb* verb, int* seconds) {
    verb->addParsed(
        "--timeout",
        [seconds](const std::string& text) {
            const std::optional<int> number = numberIn(text, 1, MOST_SECONDS);
            if (!number) {
                throw UsageError("--timeout: '" + text + "' is no number of seconds from 1 to " +
                                 std::to_string(MOST_SECONDS));
            }
            *seconds = *number;
        },
        "How long the layout may take; 60 seconds by default",
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
                   "dot, svg, png, mermaid or html; dot by default",
                   "FORMAT");
    verb.addOption("-o,--output", &arguments->output, "Write the picture to this file", "FILE");
    addPipeOption(&verb, &arguments->pipe);
    verb.addFlag("--options", &arguments->options, "Show the options of nodes in their boxes");
    addTimeout(&verb, &arguments->timeout);
    addNodeClassOptions(&verb, &arguments->nodeClasses);
    verb.addFlag("-q,--quiet", &arguments->quiet, "Nothing on standard error but errors");
    verb.setWork([arguments, code] {
        provideNodeClasses(arguments->nodeClasses);
        *code = draw(*arguments);
    });
}

}  // namespace qvgraph
