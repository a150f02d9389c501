// The node proxy: how the parser has a task node created.
//
// A framework defines the two functions below, once for the whole program. The
// parser calls each once for every node, from the thread that called
// QVGraphParser::initTaskNode:
//
//   node_proxy_parse_stub_uid(info, "Camera#front")   the name, into the record
//   info->nodeId, inputNum, outputNum = ...           by the parser
//   node_proxy_node_create(info)                      the node, into the record
#ifndef QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_
#define QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/qv_stream_manager.h"
#include "framework/qv_task_node.h"

// The node creation record. The caller of QVGraphParser::initTaskNode owns it
// and what the proxy puts into it; the parser and the proxy fill it in turn.
//
// The order of the fields is part of the contract. A framework may add fields
// at the end; the parser touches none of them.
struct _QVNodeInfo {
    // The number in the node's 'node_<n>' key. Written by the parser, after
    // node_proxy_parse_stub_uid has returned.
    int32_t nodeId = 0;

    // How many input and output streams "stream_opts" declares: its keys that
    // begin with "stream_input" and with "stream_output". Written by the
    // parser. The proxy may create other numbers of managers.
    int32_t inputNum = 0;
    int32_t outputNum = 0;

    // The node's implementation, in whatever way the proxy identifies one.
    // Written by node_proxy_parse_stub_uid; the parser neither reads nor
    // writes it.
    int32_t stubUid = 0;

    // The created node. Written by the proxy; null when creation failed.
    QVTaskNodeBase* node = nullptr;

    // One manager for each input and each output, in order. Written by the
    // proxy. Their numbers, not inputNum and outputNum, decide how the parser
    // looks for stream names: under the plain key where there is exactly one,
    // under the indexed keys where there are several.
    std::vector<QVInputStreamManager*> inputStreams;
    std::vector<QVOutputStreamManager*> outputStreams;
};

// On 32-bit ARM these are the offsets 16, 20 and 32.
static_assert(offsetof(_QVNodeInfo, node) == 16, "the node follows four 32-bit fields");
static_assert(offsetof(_QVNodeInfo, inputStreams) == 16 + sizeof(void*),
              "the input managers follow the node");
static_assert(offsetof(_QVNodeInfo, outputStreams) == 16 + 4 * sizeof(void*),
              "the output managers follow a vector of three pointers");

// Resolves the node's implementation from its name into the record.
//
// `name` is the "node_name" of the node's "node_opts", never null, empty when
// it is missing. It points into the parsed document and is released with it.
// Of the record, only what its owner put there can be read.
void node_proxy_parse_stub_uid(_QVNodeInfo* info, const char* name);

// Creates the task node into `info->node`, and its stream managers into
// `info->inputStreams` and `info->outputStreams`.
//
// Leaves the node null when it cannot be created: the parser then reports -1.
// A node comes with its option store (QVTaskNodeBase::mOptions). No manager
// may be null.
void node_proxy_node_create(_QVNodeInfo* info);

#endif  // QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_
