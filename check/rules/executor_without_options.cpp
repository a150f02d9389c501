#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void checkExecutor(const Value& executor, Reporter* report) {
    if (executor.isObject() && executor.member("executor_opts") == nullptr &&
        !isMisplaced(executor)) {
        report
            ->atKey(executor,
                    quoted(executor.key) + " has no \"executor_opts\": the executor has no options")
            .hint = "add \"executor_opts\": {...} if you intended it to have options";
    }
}

void executorWithoutOptions(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        for (const OptionSet& executor : pipe.executors) {
            checkExecutor(*executor.value, report);
        }
    }
}

}  // namespace

constinit const Rule EXECUTOR_WITHOUT_OPTIONS = {
    .code = "executor-without-options",
    .severity = Severity::Note,
    .family = "keys",
    .title = "An executor has no options",
    .explanation =
        "The options of an executor are the members of its \"executor_opts\"; its other members "
        "are ignored.",
    .device = "The executor exists, but its options are empty.",
    .fix = "Add \"executor_opts\" if you intended the executor to have options.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "executor_0": {}
}})",
            .fixed = R"({"pipe_0": {
  "executor_0": {"executor_opts": {"priority": 10}}
}})",
        },
    .find = executorWithoutOptions,
};

}  // namespace qvgraph
