// The cost of the parser on the host framework.
#include "bench/host_cases.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <json11.hpp>
#include <memory>
#include <string>

#include "bench/document.h"
#include "bench/host_graph.h"
#include "bench/require.h"
#include "host/qv_host_log.h"
#include "host/qv_node_registry.h"

namespace {

std::string documentOf(const Size& size) {
    return typicalDocument(size.nodes, size.pipeSize);
}

// The path of a file with the document. The last owner removes the file.
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

// The cost that all others are compared with.
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

Work createLiveGraph(const Size& size) {
    QVNodeRegistry::instance().setStub(true);
    return [text = documentOf(size)] { const HostGraph graph(text.c_str()); };
}

// Logs one record per node.
Work logBelowTheFilter(const Size& size) {
    return [records = size.nodes] {
        for (int i = 0; i < records; ++i) {
            qv_log(0x18181802U, QV_LOG_INFO, "tag", "number %d of %s", "function", 1, i, "many");
        }
    };
}

}  // namespace

Cases hostCases() {
    return {{"json11", parseWithJson11},
            {"text", loadText},
            {"file", loadFile},
            {"live", createLiveGraph},
            {"log", logBelowTheFilter}};
}
