// What the parser costs on the framework for the desk.
#include "bench/desk_cases.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <json11.hpp>
#include <memory>
#include <string>

#include "bench/desk_graph.h"
#include "bench/document.h"
#include "bench/require.h"
#include "host/qv_host_log.h"
#include "host/qv_node_registry.h"

namespace {

std::string documentOf(const Size& size) {
    return typicalDocument(size.nodes, size.pipeSize);
}

// The document in a file that is gone when its last user is.
std::shared_ptr<const std::string> fileOf(const Size& size) {
    std::string path = "/tmp/qvgraph-bench-XXXXXX";
    const int descriptor = mkstemp(path.data());
    require(descriptor != -1);
    FILE* const file = fdopen(descriptor, "w");
    require(file != nullptr && fputs(documentOf(size).c_str(), file) >= 0);
    require(fclose(file) == 0);
    return {new std::string(path), [](const std::string* name) {
                unlink(name->c_str());
                delete name;
            }};
}

// What everything is compared with.
Work parseWithJson11(const Size& size) {
    return [text = documentOf(size)] {
        std::string error;
        const auto root = json11::Json::parse(text.c_str(), error, json11::COMMENTS);
        require(root.is_object());
    };
}

Work loadText(const Size& size) {
    return [text = documentOf(size)] {
        QVGraphParser parser;
        require(parser.parseConfigText(text.c_str()) == 0);
    };
}

Work loadFile(const Size& size) {
    return [file = fileOf(size)] {
        QVGraphParser parser;
        require(parser.parseConfigFile(file->c_str()) == 0);
    };
}

Work makeLiveGraph(const Size& size) {
    QVNodeRegistry::instance().setStub(true);
    return [text = documentOf(size)] { const DeskGraph graph(text.c_str()); };
}

// One record for each node.
Work logBelowTheFilter(const Size& size) {
    return [records = size.nodes] {
        for (int i = 0; i < records; ++i) {
            qv_log(0x18181802U, QV_LOG_INFO, "tag", "number %d of %s", "function", 1, i, "many");
        }
    };
}

}  // namespace

Cases deskCases() {
    return {{"json11", parseWithJson11},
            {"text", loadText},
            {"file", loadFile},
            {"live", makeLiveGraph},
            {"log", logBelowTheFilter}};
}
