#include "cli/layout.h"

#include <csignal>
#include <cstring>
#include <string_view>

#include "cli/child_process.h"
#include "cli/file_error.h"
#include "cli/terminal.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

using End = ChildResult::End;

const char* const PROGRAM = "dot";
const char* const ALTERNATIVES = "; the formats dot and mermaid do not need it";

const std::string_view PNG_BEGIN = {"\x89PNG\r\n\x1a\n", 8};
const std::string_view PNG_END = {"IEND\xae\x42\x60\x82", 8};

[[noreturn]] void fail(const std::string& why) {
    throw FileError("cannot lay out the picture: " + why);
}

std::string firstLineOf(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// Whether the picture begins and ends as a complete one does.
bool isPicture(const std::string& format, const std::string& picture) {
    if (format == "png") {
        return picture.compare(0, PNG_BEGIN.size(), PNG_BEGIN) == 0 && endsWith(picture, PNG_END);
    }
    return picture.find("<svg") != std::string::npos &&
           endsWith(picture.substr(0, picture.find_last_not_of('\n') + 1), "</svg>");
}

// Throws if "dot" ended with an error; the first line on its standard error says why.
void expectSuccess(const ChildResult& result) {
    const std::string reason = firstLineOf(result.err);
    const std::string why = reason.empty() ? "" : ": " + reason;
    if (result.end == End::Signalled) {
        fail("dot was terminated by signal " + std::to_string(result.code) + why);
    }
    if (result.code != 0) {
        fail("dot failed with exit code " + std::to_string(result.code) + why);
    }
}

}  // namespace

std::string layOut(const LayoutRequest& request) {
    ChildRequest child;
    child.command = {PROGRAM, "-T" + request.format};
    if (request.format == "png") {
        child.command.emplace_back("-Gdpi=144");
    }
    child.input = request.graph;
    child.timeLimit = request.timeLimit;
    Progress progress(request.showProgress);
    const auto limit = static_cast<size_t>(request.timeLimit.count());
    child.onWait = [&](std::chrono::seconds elapsed) {
        progress.show("layout, second", static_cast<size_t>(elapsed.count()), limit);
    };
    ChildResult result = runChild(child);
    switch (result.end) {
        case End::NotRun:
            fail("cannot run the program dot of Graphviz (" + std::string(strerror(result.code)) +
                 ")" + ALTERNATIVES);
        case End::TimedOut:
            fail("dot took more than " + counted(limit, "second") +
                 "; allow more with --timeout, or draw one pipe with --pipe");
        case End::OutputLimit:
            fail("dot wrote more than 256 MiB");
        case End::Exited:
        case End::Signalled:
            expectSuccess(result);
    }
    if (!isPicture(request.format, result.out)) {
        fail("the output of dot is not a complete " + request.format + " file");
    }
    return std::move(result.out);
}

}  // namespace qvgraph
