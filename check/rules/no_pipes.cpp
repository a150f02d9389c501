#include "check/document.h"
#include "check/rules.h"

namespace qvgraph {

namespace {

void noPipes(const Model& model, Reporter* report) {
    const Value* root = documentOf(model);
    if (root != nullptr && (!root->isObject() || root->children.empty())) {
        report
            ->atValue(*root,
                      "the configuration has no pipes: the device loads it and sets up nothing")
            .hint = R"(add a pipe: "pipe_0": {...})";
    }
}

}  // namespace

constinit const Rule NO_PIPES = {
    .code = "no-pipes",
    .severity = Severity::Warning,
    .family = "text",
    .title = "The root has no members",
    .explanation = "Each member of the root is a pipe. This root has no members.",
    .device = "The load succeeds, but there is nothing to set up.",
    .fix = "Add a pipe under the key 'pipe_0'.",
    .example =
        {
            .wrong = "{}",
            .fixed = R"({"pipe_0": {}})",
        },
    .find = noPipes,
};

}  // namespace qvgraph
