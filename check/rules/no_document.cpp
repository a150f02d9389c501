#include "check/rules.h"

namespace qvgraph {

namespace {

void noDocument(const Model& model, Reporter* report) {
    const Value* root = model.source().root();
    if (root != nullptr && root->kind == ValueKind::Null) {
        report->atValue(*root, "the document is null: the load fails").hint =
            R"(write an object with at least one pipe: {"pipe_0": {...}})";
    }
}

}  // namespace

constinit const Rule NO_DOCUMENT = {
    .code = "no-document",
    .severity = Severity::Error,
    .family = "text",
    .title = "The document is null",
    .explanation =
        "The text is JSON, but its value is null, which the parser cannot distinguish from a "
        "missing document.",
    .device = "The load fails with -1, and the previous document is discarded.",
    .fix = "Write an object that contains the pipes.",
    .example =
        {
            .wrong = "null",
            .fixed = R"({"pipe_0": {}})",
        },
    .find = noDocument,
};

}  // namespace qvgraph
