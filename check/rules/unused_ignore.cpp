#include "check/rules.h"

namespace qvgraph {

constinit const Rule UNUSED_IGNORE = {
    .code = "unused-ignore",
    .severity = Severity::Warning,
    .family = "comments",
    .title = "A suppression comment suppresses no finding",
    .explanation =
        "A comment \"qvgraph: ignore[code] reason\" suppresses the warnings and notes with that "
        "code that start on its line or, if no other text is on that line, on the next line. It "
        "also suppresses findings that have a related location there, such as the option that "
        "overrides another. This comment suppresses no finding, names a rule that does not exist, "
        "or is malformed. Errors are never suppressed.",
    .device = "The device skips comments, so they change nothing.",
    .fix = "Remove the comment, or correct its code or its location.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  // qvgraph: ignore[duplicate-key] on purpose
  "default_mode_link": "sync"
}})",
            .fixed = R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
        },
};

}  // namespace qvgraph
