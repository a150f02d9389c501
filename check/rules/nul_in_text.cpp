#include <string>
#include <string_view>

#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

using namespace std::string_view_literals;

namespace {

// Whether the text begins as UTF-16 does: with its byte-order mark, or with a
// NUL in its first character.
bool looksLikeUtf16(const std::string& text) {
    const std::string start = text.substr(0, 2);
    return start == "\xff\xfe" || start == "\xfe\xff" || start.find('\0') != std::string::npos;
}

void nulInText(const Model& model, Reporter* report) {
    const std::string& text = model.source().text();
    const size_t nul = text.find('\0');
    if (nul == std::string::npos) {
        return;
    }
    const size_t ignored = text.size() - nul - 1;
    std::string message = "the text contains a NUL byte: the device stops reading there";
    if (ignored > 0) {
        message += " and ignores the " + counted(ignored, "byte") + " after it";
    }
    report->at({nul, nul + 1}, "", message).hint =
        looksLikeUtf16(text) ? "save the file as UTF-8; it seems to be UTF-16"
                             : "remove the NUL byte";
}

}  // namespace

constinit const Rule NUL_IN_TEXT = {
    .code = "nul-in-text",
    .severity = Severity::Error,
    .family = "text",
    .title = "The text contains a NUL byte",
    .explanation =
        "The parser reads a text or a file up to its first NUL byte. An editor may show the byte "
        "as a blank, or not at all.",
    .device =
        "Everything after the NUL byte is ignored: the load fails, or it yields a different "
        "document.",
    .fix = "Remove the byte. If every second byte is NUL, the file is UTF-16: save it as UTF-8.",
    .example =
        {
            .wrong = "{\"pipe_0\": {}}\n\0\n{\"pipe_1\": {}}"sv,
            .fixed = R"({"pipe_0": {}})",
        },
    .consequences = {&SYNTAX},
    .find = nulInText,
};

}  // namespace qvgraph
