// Prints the heap bytes per node: of json11's tree, and of the rest of a live
// graph on the host framework.
#include <malloc.h>

#include <cstdio>
#include <json11.hpp>
#include <string>

#include "bench/document.h"
#include "bench/host_graph.h"
#include "host/qv_node_registry.h"

namespace {

size_t bytesInUse() {
    return mallinfo2().uordblks;
}

}  // namespace

int main() {
    QVNodeRegistry::instance().setStub(true);
    const int nodes = 1000;
    const std::string text = typicalDocument(nodes, 10);
    { const HostGraph graph(text.c_str()); }  // allocates what lives as long as the process
    std::string error;
    const size_t before = bytesInUse();
    const auto root = json11::Json::parse(text.c_str(), error, json11::COMMENTS);
    const size_t tree = bytesInUse() - before;
    const HostGraph graph(text.c_str());
    const size_t live = bytesInUse() - before - tree;
    printf("json11's tree %zu\nlive graph without its tree %zu\n",
           tree / nodes,
           (live - tree) / nodes);
    return 0;
}
