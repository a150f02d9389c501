// Calls every query of the parser on a configuration:
//
//   ask_everything door-camera.json
//
// The queries appear in the order in which a framework needs them: pipes, their
// threads and link modes, executors and links with their options, nodes and the
// keys of their streams. No node is set up; for that, see own_node.cpp.
//
// The program exits with 0, or with 2 if the configuration cannot be loaded.
#include <cstdint>
#include <iostream>
#include <string>
#include <variant>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_meta_data.h"

namespace {

// ---- Options ----------------------------------------------------------------

void printValue(const QVHostMetaData::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        std::cout << "string \"" << *text << '"';
    } else if (const auto* int32 = std::get_if<int32_t>(&value)) {
        std::cout << "int32 " << *int32;
    } else if (const auto* int64 = std::get_if<int64_t>(&value)) {
        std::cout << "int64 " << *int64;
    } else if (const auto* real = std::get_if<float>(&value)) {
        std::cout << "float " << *real;
    }
}

// Prints what the parser has stored: typed values, in key order.
void printOptions(const QVHostMetaData& options) {
    for (const auto& [key, value] : options.entries()) {
        std::cout << "      " << key << " = ";
        printValue(value);
        std::cout << '\n';
    }
}

// ---- Executors and links ----------------------------------------------------

// Queries take an index and return an id; option operations take the id.
void printExecutors(const QVGraphParser& parser, int pipe) {
    const int number = parser.getExecNum(pipe);
    std::cout << "  executors: " << number << '\n';
    for (int i = 0; i < number; ++i) {
        const int id = parser.getExecIDByIndex(pipe, i);
        QVHostMetaData options;
        parser.syncExecOptions(&options, pipe, id);
        std::cout << "    executor " << i << ": id " << id << '\n';
        printOptions(options);
    }
}

void printLinks(const QVGraphParser& parser, int pipe) {
    const int number = parser.getLinkNum(pipe);
    std::cout << "  links: " << number << '\n';
    for (int i = 0; i < number; ++i) {
        const int id = parser.getLinkIDByIndex(pipe, i);
        QVHostMetaData options;
        parser.syncLinkOptions(&options, pipe, id);
        std::cout << "    link " << i << ": id " << id << '\n';
        printOptions(options);
    }
}

// ---- Nodes ------------------------------------------------------------------

// Prints the keys of a family, in the order in which the parser assigns streams
// to a node.
void printFamily(const QVGraphParser& parser, const json11::Json& items, const std::string& tag) {
    const int number = parser.getItemNum(items, tag);
    for (int i = 0; i < number; ++i) {
        const std::string key = parser.getItemNameByIndex(items, i, tag);
        std::cout << "      " << key << ": " << items[key].string_value() << '\n';
    }
}

void printNodes(const QVGraphParser& parser, int pipe) {
    const int number = parser.getNodeNum(pipe);
    std::cout << "  nodes: " << number << '\n';
    for (int i = 0; i < number; ++i) {
        const int id = parser.getNodeIDByIndex(pipe, i);
        const json11::Json& node =
            parser.root()["pipe_" + std::to_string(pipe)]["node_" + std::to_string(id)];
        std::cout << "    node " << i << ": id " << id << ", "
                  << node["node_opts"]["node_name"].string_value() << '\n';
        printFamily(parser, node["stream_opts"], "stream_input");
        printFamily(parser, node["stream_opts"], "stream_output");
    }
}

// ---- The document -----------------------------------------------------------

// The item functions accept every object of the document, including the root.
// Every key begins with the empty tag.
void printRoot(const QVGraphParser& parser) {
    const json11::Json& root = parser.root();
    std::cout << "members of the root: " << parser.getItemNum(root, "") << '\n';
    for (int i = 0; i < parser.getItemNum(root, "pipe_"); ++i) {
        std::cout << "  " << parser.getItemNameByIndex(root, i, "pipe_") << ": id "
                  << parser.getItemIDByIndex(root, i, "pipe_") << '\n';
    }
}

void printPipe(const QVGraphParser& parser, int pipe) {
    std::cout << "\npipe " << pipe << '\n'
              << "  executor threads: " << parser.getThreadNum(pipe) << '\n'
              << "  default link mode: " << parser.getDefaultLinkMode(pipe) << '\n';
    printExecutors(parser, pipe);
    printLinks(parser, pipe);
    printNodes(parser, pipe);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: ask_everything FILE\n";
        return 2;
    }
    QVGraphParser parser;
    // The parser logs the reason to standard error: see host/qv_host_log.h.
    if (parser.parseConfigFile(argv[1]) != 0) {
        std::cerr << "ask_everything: " << argv[1] << " contains no configuration\n";
        return 2;
    }
    printRoot(parser);
    std::cout << "pipes: " << parser.getPipeNum() << '\n';
    for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
        printPipe(parser, pipe);
    }
    return 0;
}
