#include "model/streams.h"

#include <unordered_map>
#include <utility>

namespace qvgraph {

namespace {

// Collects streams by their names.
class StreamTable {
public:
    void addEnds(size_t node, const Side& side, std::vector<Endpoint> Stream::*endpoints) {
        for (const StreamEnd& end : side.ends) {
            if (end.name != nullptr && !end.name->empty()) {
                (streamNamed(*end.name).*endpoints).push_back({node, &side, &end});
            }
        }
    }

    std::vector<Stream> take() { return std::move(mStreams); }

private:
    Stream& streamNamed(std::string_view name) {
        const auto [found, isNew] = mIndexes.emplace(name, mStreams.size());
        if (isNew) {
            mStreams.emplace_back().name = name;
        }
        return mStreams[found->second];
    }

    std::vector<Stream> mStreams;
    std::unordered_map<std::string_view, size_t> mIndexes;
};

}  // namespace

std::vector<Stream> streamsOf(const std::vector<Node>& nodes) {
    StreamTable table;
    for (size_t i = 0; i < nodes.size(); ++i) {
        table.addEnds(i, nodes[i].inputs, &Stream::consumers);
        table.addEnds(i, nodes[i].outputs, &Stream::producers);
    }
    return table.take();
}

const Value& nameLocation(const Pipe& pipe, const Endpoint& endpoint) {
    const Option* const option = endpoint.end->nameOption;
    return option != nullptr ? *option->member : *pipe.nodes[endpoint.node].value;
}

}  // namespace qvgraph
