#include <utf8cpp/utf8.h>

#include <string>
#include <string_view>

#include "check/rules.h"

namespace qvgraph {

namespace {

// The code point at a location, or the byte if it is not UTF-8; empty at the
// end of the text.
Span characterAt(const std::string& text, size_t byte) {
    const std::string_view rest = std::string_view(text).substr(byte, 4);
    for (size_t length = 1; length <= rest.size(); ++length) {
        if (utf8::is_valid(rest.substr(0, length))) {
            return {byte, byte + length};
        }
    }
    return {byte, byte + (rest.empty() ? 0 : 1)};
}

void syntax(const Model& model, Reporter* report) {
    const Source& source = model.source();
    if (!source.error()) {
        return;
    }
    const SyntaxError& error = *source.error();
    Finding& finding = report->at(characterAt(source.text(), error.byte), "", model.jsonError());
    finding.hint = error.hint;
    if (error.opened) {
        finding.related.push_back({"opened here", *error.opened});
    }
    if (error.outdented) {
        finding.related.push_back({"indented as if a } were missing before it", *error.outdented});
    }
}

}  // namespace

constinit const Rule SYNTAX = {
    .code = "syntax",
    .severity = Severity::Error,
    .family = "text",
    .title = "The text is not valid JSON",
    .explanation =
        "A configuration is one JSON document. Comments, // and /* */, may appear between its "
        "tokens. Everything else that JSON does not allow, such as a comma after the last "
        "member, is refused.",
    .device = "The load fails with -1, and the previous document is discarded.",
    .fix =
        "Correct the text at the location that is reported. The bracket or string that is open "
        "there may begin many lines above.",
    .example =
        {
            .wrong = R"({
  "pipe_0": {"default_mode_link": "sync"},
})",
            .fixed = R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
        },
    .find = syntax,
};

}  // namespace qvgraph
