// The cost of the parser, without that of a framework.
#include <cstdint>
#include <cstdlib>
#include <json11.hpp>
#include <memory>
#include <string>
#include <vector>

#include "bench/cases.h"
#include "bench/document.h"
#include "bench/live_graph.h"
#include "bench/minimal_framework.h"
#include "bench/require.h"
#include "graph/qv_graph_internal.h"

using json11::Json;

namespace {

using MinimalLiveGraph = LiveGraph<MinimalGraph, MinimalStore, MinimalOwner>;

// A parser that has loaded the document.
std::shared_ptr<const QVGraphParser> loaded(const Size& size) {
    const auto parser = std::make_shared<QVGraphParser>();
    require(parser->parseConfigText(typicalDocument(size.nodes, size.pipeSize).c_str()) == 0);
    return parser;
}

Work createLiveGraph(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        const MinimalLiveGraph graph(text.c_str());
    };
}

// Sets up the first node of the first pipe.
Work initNode(const Size& size) {
    return [parser = loaded(size)] {
        MinimalGraph graph;
        require(parser->initTaskNode(&graph, 0, 0, MinimalOwner::info()) == 0);
    };
}

// The two copies of the members of "stream_opts" that the contract requires of
// each node set-up.
Work copyMembers(const Size& size) {
    return [parser = loaded(size)] {
        const Json& streams = parser->root()["pipe_0"]["node_0"]["stream_opts"];
        for (int copies = 0; copies < 2; ++copies) {
            require(Json::object(streams.object_items()).size() == 4);
        }
    };
}

// Runs the queries that count nothing: counting copies the members.
Work runQueries(const Size& size) {
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

// Converts one option per node.
MakeWork convert(const char* text) {
    return [text](const Size& size) -> Work {
        return [value = Json(text), options = size.nodes] {
            const QVGraphParser parser;
            MinimalStore store;
            for (int i = 0; i < options; ++i) {
                parser.parseOptions(&store, "key", value);
            }
        };
    };
}

// The integer conversion of the parser; the C library's is next to it in the table.
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
    return {{"live", createLiveGraph},
            {"init", initNode},
            {"copies", copyMembers},
            {"queries", runQueries},
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
