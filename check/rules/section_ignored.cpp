#include <string>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void checkSection(const Value* section,
                  const std::string& name,
                  const char* outcome,
                  Reporter* report) {
    if (section != nullptr && !section->isObject()) {
        report->atWrongType(*section, name, "an object", outcome).hint =
            "write an object, {...}, or remove it";
    }
}

void checkExecutor(const Value& executor, Reporter* report) {
    if (isMisplaced(executor)) {
        return;
    }
    const char* outcome = "the executor has no options";
    checkSection(&executor, quoted(executor.key), outcome, report);
    checkSection(executor.member("executor_opts"), "\"executor_opts\"", outcome, report);
}

void checkExtraOptions(const Value& node, const char* key, Reporter* report) {
    checkSection(node.member(key), inDoubleQuotes(key), "the device ignores it", report);
}

void sectionIgnored(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        checkSection(pipe.value->member("thread_opts"),
                     "\"thread_opts\"",
                     "the device uses a thread count of 0",
                     report);
        for (const OptionSet& executor : pipe.executors) {
            checkExecutor(*executor.value, report);
        }
        for (const OptionSet& link : pipe.links) {
            checkSection(link.value, quoted(link.value->key), "the link has no options", report);
        }
        for (const Node& node : pipe.nodes) {
            checkExtraOptions(*node.value, "node_opts_extra", report);
            checkExtraOptions(*node.value, "stream_opts_extra", report);
        }
    }
}

}  // namespace

constinit const Rule SECTION_IGNORED = {
    .code = "section-ignored",
    .severity = Severity::Warning,
    .family = "keys",
    .title = "A section of options is not an object",
    .explanation =
        "Executors, links, \"executor_opts\", \"thread_opts\", \"node_opts_extra\" and "
        "\"stream_opts_extra\" are objects. A value of any other type reads as if it were "
        "missing.",
    .device = "The device ignores the section, and nothing is logged.",
    .fix = "Write an object, or remove the member.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": "sync"
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {"mode": "sync"}
}})",
        },
    .scope = Scope::Unread,
    .find = sectionIgnored,
};

}  // namespace qvgraph
