#include <string>

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

int QVGraphParser::syncOptions(QvMetaData* meta, Json opts) const {
    qv_log(QV_INFO("sync to node options, node info:"));
    std::string text;
    for (const auto& member : opts.object_items()) {
        text.clear();
        member.second.dump(text);
        qv_log(QV_INFO("option: key = %-16s, opt = %-16s"), member.first.c_str(), text.c_str());
        storeOption(meta, member.first.c_str(), member.second);
    }
    return 0;
}

int QVGraphParser::syncExecOptions(QvMetaData* meta, int pipe, int execId) const {
    return syncOptions(meta, pipeOf(mRoot, pipe)[indexedKey("executor_", execId)]["executor_opts"]);
}

int QVGraphParser::syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const {
    return syncOptions(meta, pipeOf(mRoot, pipe)[indexedKey("link_", linkId)]);
}
