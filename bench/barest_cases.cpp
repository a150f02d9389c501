// What the parser costs by itself.
#include <cstdint>
#include <cstdlib>
#include <json11.hpp>
#include <memory>
#include <string>
#include <vector>

#include "bench/barest_framework.h"
#include "bench/cases.h"
#include "bench/document.h"
#include "bench/live_graph.h"
#include "bench/require.h"
#include "graph/qv_graph_internal.h"

using json11::Json;

namespace {

using BareGraph = LiveGraph<BarestGraph, BarestStore, BarestOwner>;

// A parser that has the document.
std::shared_ptr<const QVGraphParser> loaded(const Size& size) {
    const auto parser = std::make_shared<QVGraphParser>();
    require(parser->parseConfigText(typicalDocument(size.nodes, size.pipeSize).c_str()) == 0);
    return parser;
}

Work makeLiveGraph(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        const BareGraph graph(text.c_str());
    };
}

// The first node of the first pipe.
Work initNode(const Size& size) {
    return [parser = loaded(size)] {
        BarestGraph graph;
        require(parser->initTaskNode(&graph, 0, 0, BarestOwner::info()) == 0);
    };
}

// What of it the contract asks for: the copies of the members of "stream_opts".
Work copyMembers(const Size& size) {
    return [parser = loaded(size)] {
        const Json& streams = parser->root()["pipe_0"]["node_0"]["stream_opts"];
        for (int copies = 0; copies < 2; ++copies) {
            require(Json::object(streams.object_items()).size() == 4);
        }
    };
}

// Those that do not count: counting copies the members.
Work askQueries(const Size& size) {
    return [parser = loaded(size)] {
        for (int pipe = 0; pipe < parser->getPipeNum(); ++pipe) {
            require(parser->getThreadNum(pipe) == 4);
            require(parser->getDefaultLinkMode(pipe) == "async");
            require(parser->getNodeIDByIndex(pipe, 0) == 0);
            require(parser->getExecIDByIndex(pipe, 0) == 0);
            require(parser->getLinkIDByIndex(pipe, 0) == 0);
            const Json& streams = parser->root()["pipe_0"]["node_0"]["stream_opts"];
            require(parser->getItemNameByIndex(streams, 0, "stream_output") == "stream_output");
        }
    };
}

// One option for each node.
MakeWork convert(const char* text) {
    return [text](const Size& size) -> Work {
        return [value = Json(text), options = size.nodes] {
            const QVGraphParser parser;
            BarestStore store;
            for (int i = 0; i < options; ++i) {
                parser.parseOptions(&store, "key", value);
            }
        };
    };
}

// The one step that the parser has a function of its own for, and the library's.
Work readOwnInteger(const Size& size) {
    return [numbers = size.nodes] {
        for (int i = 0; i < numbers; ++i) {
            require(leadingInt32("1280") == 1280);
        }
    };
}

template <typename Number>
MakeWork readWith(Number (*convertText)(const char*), const char* text) {
    return [convertText, text](const Size& size) -> Work {
        return [convertText, text, numbers = size.nodes] {
            for (int i = 0; i < numbers; ++i) {
                require(convertText(text) != Number());
            }
        };
    };
}

unsigned long long readInt64(const char* text) {
    return strtoull(text, nullptr, 0);
}

}  // namespace

Cases cases() {
    return {{"live", makeLiveGraph},
            {"init", initNode},
            {"copies", copyMembers},
            {"queries", askQueries},
            {"option plain", convert("async")},
            {"option int32", convert("int32:1280")},
            {"option int64", convert("int64:0x200000")},
            {"option float", convert("float:0.75")},
            {"option double", convert("double:0.1")},
            {"leadingInt32", readOwnInteger},
            {"atoi", readWith<int>(atoi, "1280")},
            {"strtoull", readWith<unsigned long long>(readInt64, "0x200000")},
            {"atof", readWith<double>(atof, "0.75")}};
}
