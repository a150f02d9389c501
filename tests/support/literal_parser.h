// A second implementation of the parser's contract: as simple as possible, without
// regard to speed or size, and without any code of graph/. The differential tests
// compare the two, call by call.
//
// LiteralParser has the member functions of QVGraphParser and makes the same calls
// to the framework. The only difference: the line in its log records is 0.
#ifndef QVGRAPH_TESTS_SUPPORT_LITERAL_PARSER_H_
#define QVGRAPH_TESTS_SUPPORT_LITERAL_PARSER_H_

#include <json11.hpp>
#include <string>

#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_task_graph.h"

class LiteralParser {
public:
    int parseConfigText(const char* text);

    // REQUIRES: `path` is that of a regular file or a directory, or of nothing.
    int parseConfigFile(const char* path);
    int saveConfig(const char* path) const;
    int summary() const;
    const json11::Json& root() const { return document; }

    int getItemNum(const json11::Json& items, const std::string& tag) const;
    int getItemIDByIndex(const json11::Json& items, int index, const std::string& tag) const;
    std::string getItemNameByIndex(const json11::Json& items,
                                   int index,
                                   const std::string& tag) const;

    int getPipeNum() const;
    int getNodeNum(int pipe) const;
    int getExecNum(int pipe) const;
    int getLinkNum(int pipe) const;
    int getNodeIDByIndex(int pipe, int index) const;
    int getExecIDByIndex(int pipe, int index) const;
    int getLinkIDByIndex(int pipe, int index) const;
    int getThreadNum(int pipe) const;
    std::string getDefaultLinkMode(int pipe) const;

    int parseOptions(QvMetaData* meta, const char* key, const json11::Json& value) const;
    int syncOptions(QvMetaData* meta, const json11::Json& opts) const;
    int syncExecOptions(QvMetaData* meta, int pipe, int execId) const;
    int syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const;

    int initTaskNode(QVTaskGraphConfig* config, int pipe, int nodeId, _QVNodeInfo* info) const;

private:
    json11::Json pipeAt(int pipe) const;

    json11::Json document;
};

#endif  // QVGRAPH_TESTS_SUPPORT_LITERAL_PARSER_H_
