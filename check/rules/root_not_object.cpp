#include "check/document.h"
#include "check/rules.h"

namespace qvgraph {

namespace {

void rootNotObject(const Model& model, Reporter* report) {
    const Value* root = documentOf(model);
    if (root != nullptr && !root->isObject()) {
        report
            ->atWrongType(*root, "the root", "an object", "the document loads, but it has no pipes")
            .hint = R"(write an object with at least one pipe: {"pipe_0": {...}})";
    }
}

}  // namespace

constinit const Rule ROOT_NOT_OBJECT = {
    .code = "root-not-object",
    .severity = Severity::Error,
    .family = "text",
    .title = "The root is not an object",
    .explanation = "The members of the root are the pipes, so the root must be an object.",
    .device = "The load succeeds, and the configuration has no pipes.",
    .fix = "Write an object that contains the pipes.",
    .example =
        {
            .wrong = R"([
  {"default_mode_link": "sync"}
])",
            .fixed = R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
        },
    .consequences = {&NO_PIPES},
    .find = rootNotObject,
};

}  // namespace qvgraph
