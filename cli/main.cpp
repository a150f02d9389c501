// The qvgraph command.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "cli/check.h"
#include "cli/draw.h"
#include "cli/exit_code.h"
#include "cli/explain.h"
#include "cli/file_error.h"
#include "cli/inspect.h"
#include "cli/schema.h"
#include "cli/terminal.h"

namespace {

using qvgraph::ExitCode;

const char* const DESCRIPTION =
    "Inspect, check and draw graph configurations.\n"
    "\n"
    "Examples:\n"
    "  qvgraph inspect pipes.json        show how the framework interprets it\n"
    "  qvgraph check pipes.json          find the mistakes in it\n"
    "  qvgraph draw -o a.svg pipes.json  draw its nodes and streams\n"
    "  qvgraph explain no-producer       explain a finding and its fix\n"
    "  qvgraph inspect --help            show the options of a verb\n";

// Lists each verb by the first line of its description.
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() {
        column_width(24);
        label("SUBCOMMAND", "VERB");
    }

    std::string make_subcommand(const CLI::App* verb) const override {
        const std::string description = verb->get_description();
        std::ostringstream line;
        CLI::detail::format_help(line,
                                 verb->get_name(),
                                 description.substr(0, description.find('\n')),
                                 get_column_width());
        return line.str();
    }
};

// The versions of the command and of the libraries that it contains.
std::string versions() {
    std::ostringstream text;
    text << "qvgraph " QVGRAPH_VERSION "\n"
         << "json11 " QVGRAPH_JSON11_VERSION ", CLI11 " CLI11_VERSION ", nlohmann_json "
         << NLOHMANN_JSON_VERSION_MAJOR << '.' << NLOHMANN_JSON_VERSION_MINOR << '.'
         << NLOHMANN_JSON_VERSION_PATCH;
    return text.str();
}

// What is wrong with the arguments, and which help to read.
std::string explain(const CLI::App& app, const std::exception& error) {
    const auto verbs = app.get_subcommands();
    if (!verbs.empty()) {
        return std::string(error.what()) + " (see qvgraph " + verbs[0]->get_name() + " --help)";
    }
    const auto words = app.remaining();
    const bool isVerb = !words.empty() && words[0].compare(0, 1, "-") != 0;
    if (isVerb) {
        return "there is no verb '" + words[0] + "' (see qvgraph --help)";
    }
    return (words.empty() ? "a verb is missing" : "there is no option '" + words[0] + "'") +
           std::string(" (see qvgraph --help)");
}

ExitCode run(int argc, char** argv) {
    CLI::App app(DESCRIPTION, "qvgraph");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag(
        "--version", versions(), "Print the versions of command and libraries and exit");
    app.require_subcommand(1);
    app.formatter(std::make_shared<HelpFormatter>());
    ExitCode code = ExitCode::Clean;
    qvgraph::addInspect(&app, &code);
    qvgraph::addCheck(&app, &code);
    qvgraph::addDraw(&app, &code);
    qvgraph::addExplain(&app, &code);
    qvgraph::addSchema(&app, &code);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {  // --help and --version
        return app.exit(success) == 0 ? ExitCode::Clean : ExitCode::Failed;
    } catch (const CLI::ParseError& error) {
        qvgraph::printMessage(explain(app, error));
        return ExitCode::Failed;
    } catch (const qvgraph::UsageError& error) {
        qvgraph::printMessage(explain(app, error));
        return ExitCode::Failed;
    } catch (const qvgraph::FileError& error) {
        qvgraph::printMessage(error.what());
        return ExitCode::Failed;
    }
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const std::bad_alloc&) {
        fputs("qvgraph: out of memory\n", stderr);
    } catch (const std::exception& error) {
        fprintf(stderr, "qvgraph: %s\n", error.what());
    }
    return static_cast<int>(ExitCode::Failed);
}
