// Comments that silence findings.
#include "check/rule.h"

namespace qvgraph {

namespace {

const Rule UNUSED_IGNORE = {
    "unused-ignore",
    Severity::Warning,
    "comments",
    "A comment that silences findings silences none",
    "A comment \"qvgraph: ignore[code] reason\" silences the warnings and notes of that code which "
    "start on its line or, where it has the line for itself, on the next. A finding that names "
    "another place besides, such as the option that overrides one, is silenced from there as well. "
    "Here none is silenced, there is no such rule, or the comment is not written so. Errors are "
    "never silenced.",
    "Comments are skipped; a device behaves as without them.",
    "Remove the comment, or correct its code or its place.",
    {R"({"pipe_0": {
  // qvgraph: ignore[duplicate-key] on purpose
  "default_mode_link": "sync"
}})",
     R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
     {}},
    {},
    nullptr};

}  // namespace

std::vector<Rule> commentRules() {
    return {UNUSED_IGNORE};
}

}  // namespace qvgraph
