#include "check/families.h"

namespace qvgraph {

namespace {

template <typename Item>
std::vector<Member> membersOf(const std::vector<Item>& items) {
    std::vector<Member> members;
    members.reserve(items.size());
    for (const Item& item : items) {
        members.push_back({item.value, item.id, item.canonical});
    }
    return members;
}

}  // namespace

std::vector<Family> familiesOf(const Pipe& pipe) {
    return {{"node_",
             "the device sets up that node instead",
             "no node is created",
             membersOf(pipe.nodes)},
            {"executor_",
             "the device uses the options of that executor instead",
             "the device finds no options for it",
             membersOf(pipe.executors)},
            {"link_",
             "the device uses the options of that link instead",
             "the device finds no options for it",
             membersOf(pipe.links)}};
}

}  // namespace qvgraph
