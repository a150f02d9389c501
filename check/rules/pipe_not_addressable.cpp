#include <map>

#include "check/key_hints.h"
#include "check/pipe_indexes.h"
#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void pipeNotAddressable(const Model& model, Reporter* report) {
    std::map<const Value*, size_t> indexes;
    for (const auto& [index, member] : intendedPipes(model)) {
        indexes.emplace(member, index);
    }
    for (const Value* member : unaddressableMembers(model)) {
        const auto index = indexes.find(member);
        report
            ->atKey(*member,
                    quoted(member->key) +
                        " is treated as a pipe, but no index maps to it: the device ignores it")
            .hint = index != indexes.end() ? "rename it to " + quotedPipeKey(index->second)
                                           : hintForUnknown(Level::Root, *member);
    }
}

}  // namespace

constinit const Rule PIPE_NOT_ADDRESSABLE = {
    .code = "pipe-not-addressable",
    .severity = Severity::Error,
    .family = "pipes",
    .title = "No index maps to a member of the root",
    .explanation =
        "Every member of the root is treated as a pipe, but an index maps only to the key "
        "'pipe_<p>', with the index in decimal. No index maps to 'pipe_00', 'Pipe_0' or "
        "'pipe_-1'.",
    .device =
        "The member is never read, but it adds one to the number of pipes that the device "
        "queries.",
    .fix = "Rename the member, or move it to where it belongs.",
    .example =
        {
            .wrong = R"({
  "pipe_00": {"default_mode_link": "sync"}
})",
            .fixed = R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
        },
    .scope = Scope::Unread,
    .find = pipeNotAddressable,
};

}  // namespace qvgraph
