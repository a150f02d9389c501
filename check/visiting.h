// Calls a function for each part of a model that rules examine.
#ifndef QVGRAPH_CHECK_VISITING_H_
#define QVGRAPH_CHECK_VISITING_H_

#include <algorithm>

#include "check/key_hints.h"
#include "model/model.h"

namespace qvgraph {

// Whether the key of a pipe's member is reserved at another level, although it
// has the prefix of nodes or executors: "node_opts".
inline bool isMisplaced(const Value& member) {
    return keyElsewhere(Level::Pipe, member.key) != nullptr;
}

// Every node that is an object and whose key is not misplaced.
template <typename Function>
void forEachNode(const Model& model, Function function) {
    for (const Pipe& pipe : model.pipes()) {
        for (const Node& node : pipe.nodes) {
            // A canonical key is never misplaced: a cheaper answer for most nodes.
            if (node.value->isObject() && (node.canonical || !isMisplaced(*node.value))) {
                function(node);
            }
        }
    }
}

// The inputs and the outputs of every such node.
template <typename Function>
void forEachSide(const Model& model, Function function) {
    forEachNode(model, [&](const Node& node) {
        function(node, node.inputs);
        function(node, node.outputs);
    });
}

// The same for nodes that are not ready. A node that is ready has everything that
// it needs, whether from the configuration or from its class.
template <typename Function>
void forEachUnreadySide(const Model& model, Function function) {
    forEachSide(model, [&](const Node& node, const Side& side) {
        if (!node.isReady()) {
            function(node, side);
        }
    });
}

// Every stream of every pipe, with the pipe.
template <typename Function>
void forEachStream(const Model& model, Function function) {
    for (const Pipe& pipe : model.pipes()) {
        for (const Stream& stream : pipe.streams) {
            function(pipe, stream);
        }
    }
}

// Every option object of every node, with the node.
template <typename Function>
void forEachNodeOptions(const Model& model, Function function) {
    const auto visit = [&function](const Node& node) {
        for (const OptionObject& object : node.objects) {
            if (object.value != nullptr) {
                function(node, object);
            }
        }
    };
    for (const Pipe& pipe : model.pipes()) {
        std::ranges::for_each(pipe.nodes, visit);
    }
}

// Every option of nodes, executors and links.
template <typename Function>
void forEachOption(const Model& model, Function function) {
    const auto visit = [&function](const OptionObject& object) {
        for (const Option& option : object.options) {
            function(option);
        }
    };
    for (const Pipe& pipe : model.pipes()) {
        for (const Node& node : pipe.nodes) {
            for (const OptionObject& object : node.objects) {
                visit(object);
            }
        }
        for (const OptionSet& executor : pipe.executors) {
            visit(executor.object);
        }
        for (const OptionSet& link : pipe.links) {
            visit(link.object);
        }
    }
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_VISITING_H_
