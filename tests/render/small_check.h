// Small findings, for the tests of their reports.
#ifndef QVGRAPH_TESTS_RENDER_SMALL_CHECK_H_
#define QVGRAPH_TESTS_RENDER_SMALL_CHECK_H_

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "check/check.h"

// The span of the nth occurrence of `part` in a text, from 1.
inline qvgraph::Span spanOf(const std::string& text, const std::string& part, int nth = 1) {
    size_t at = text.find(part);
    for (int i = 1; i < nth && at != std::string::npos; ++i) {
        at = text.find(part, at + 1);
    }
    if (at == std::string::npos) {
        throw std::logic_error("not in the text: " + part);
    }
    return {at, at + part.size()};
}

inline qvgraph::Finding findingAt(qvgraph::Span span,
                                  qvgraph::Severity severity,
                                  const char* code,
                                  const std::string& message,
                                  const std::string& pointer = "/pipe_0") {
    qvgraph::Finding finding;
    finding.code = code;
    finding.severity = severity;
    finding.message = message;
    finding.pointer = pointer;
    finding.span = span;
    return finding;
}

inline qvgraph::CheckedFile fileWith(const std::string& name,
                                     const std::string& text,
                                     std::vector<qvgraph::Finding> findings) {
    qvgraph::CheckedFile file;
    file.name = name;
    file.source = std::make_shared<const qvgraph::Source>(text);
    file.findings = std::move(findings);
    return file;
}

// Files can be moved, but not copied.
template <typename... Files>
std::vector<qvgraph::CheckedFile> filesOf(Files... files) {
    std::vector<qvgraph::CheckedFile> all;
    (all.push_back(std::move(files)), ...);
    return all;
}

// A file with an error, and a warning that has everything.
inline qvgraph::CheckedFile doorFile() {
    const std::string text = R"({"pipe_0": {
  "link_0": {"fps": 25,
             "fps": 30},
  "link_x": {}
}}
)";
    qvgraph::Finding twice = findingAt(spanOf(text, "\"fps\"", 2),
                                       qvgraph::Severity::Warning,
                                       "twice",
                                       "'fps' is already in this object",
                                       "/pipe_0/link_0/fps");
    twice.related.push_back({"overridden here", spanOf(text, "\"fps\"")});
    twice.hint = "remove one of the two";
    return fileWith("door.json",
                    text,
                    {twice,
                     findingAt(spanOf(text, "\"link_x\""),
                               qvgraph::Severity::Error,
                               "no-number",
                               "'link_x' has no number",
                               "/pipe_0/link_x")});
}

// A file of one line, with a note at its end.
inline qvgraph::CheckedFile gateFile() {
    return fileWith(
        "gate.json",
        "{}",
        {findingAt({2, 2}, qvgraph::Severity::Note, "no-line-end", "the last line does not end")});
}

// A file whose name, text and findings contain what a terminal must not receive.
inline qvgraph::CheckedFile hostileFile() {
    const std::string evil = "\033[2J\n\xff\u009b";
    const std::string text = "\"\x1b\xff\u009b\u202e\" x\n";
    qvgraph::Finding finding =
        findingAt({0, 3}, qvgraph::Severity::Error, "evil", evil, "/" + evil);
    finding.related.push_back({evil, {10, 11}});
    finding.hint = evil;
    return fileWith(evil, text, {finding});
}

// What is shown for `evil` above.
inline const char* const SHOWN_EVIL = "\\x1b[2J\\x0a\ufffd\\x9b";

#endif  // QVGRAPH_TESTS_RENDER_SMALL_CHECK_H_
