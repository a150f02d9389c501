#include "survey/node_in_set_up.h"

#include <atomic>

namespace qvgraph {

namespace {

std::atomic<const NodeInSetUp*> currentNode{nullptr};

}  // namespace

const NodeInSetUp* nodeInSetUp() {
    return currentNode;
}

SetUpScope::SetUpScope(const NodeInSetUp& node) : mNode(node) {
    currentNode = &mNode;
}

SetUpScope::~SetUpScope() {
    currentNode = nullptr;
}

}  // namespace qvgraph
