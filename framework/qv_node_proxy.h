/// @file
/// The node proxy, through which the parser has task nodes created.
///
/// A framework defines the two functions below once for the whole program. The
/// parser calls each of them once per node, from the thread that called
/// QVGraphParser::initTaskNode:
/// @code
/// node_proxy_parse_stub_uid(info, "Camera#front");  // resolves the name
/// info->nodeId, inputNum, outputNum = ...;          // set by the parser
/// node_proxy_node_create(info);                     // creates the node
/// @endcode
#ifndef QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_
#define QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/qv_stream_manager.h"
#include "framework/qv_task_node.h"

/// The node creation record. The caller of QVGraphParser::initTaskNode owns the
/// record and everything that the proxy puts into it; the parser and the proxy
/// fill it in turn.
///
/// The order of the fields is part of the contract. A framework may add fields
/// at the end; the parser does not touch them.
struct _QVNodeInfo {
    /// The number in the node's `node_<n>` key. Written by the parser, after
    /// node_proxy_parse_stub_uid returns.
    int32_t nodeId = 0;

    /// The number of input streams that "stream_opts" declares: the number of
    /// its keys that begin with "stream_input". Written by the parser. The proxy
    /// may create a different number of managers.
    int32_t inputNum = 0;

    /// As inputNum, for output streams: keys that begin with "stream_output".
    int32_t outputNum = 0;

    /// Identifies the node's implementation, in a form that the proxy chooses.
    /// Written by node_proxy_parse_stub_uid; the parser neither reads nor
    /// writes it.
    int32_t stubUid = 0;

    /// The created node. Written by the proxy; null if creation failed.
    QVTaskNodeBase* node = nullptr;

    /// One manager for each input, in order. Written by the proxy. The size of
    /// the vector, not inputNum, determines how the parser looks up stream
    /// names: under the plain key if there is exactly one manager, under the
    /// indexed keys if there are several.
    std::vector<QVInputStreamManager*> inputStreams;

    /// As inputStreams, for the outputs.
    std::vector<QVOutputStreamManager*> outputStreams;
};

// On 32-bit ARM, these are the offsets 16, 20 and 32.
static_assert(offsetof(_QVNodeInfo, node) == 16, "the node follows four 32-bit fields");
static_assert(offsetof(_QVNodeInfo, inputStreams) == 16 + sizeof(void*),
              "the input managers follow the node");
static_assert(offsetof(_QVNodeInfo, outputStreams) == 16 + 4 * sizeof(void*),
              "the output managers follow a vector of three pointers");

/// Resolves the node's implementation from its name and stores it in the
/// record.
///
/// `name` is the "node_name" of the node's "node_opts"; it is never null, and
/// empty if "node_name" is missing. It points into the parsed document and is
/// released with it. At this point, the record contains only what its owner put
/// there.
void node_proxy_parse_stub_uid(_QVNodeInfo* info, const char* name);

/// Creates the task node in `info->node` and its stream managers in
/// `info->inputStreams` and `info->outputStreams`.
///
/// Leave the node null if it cannot be created: initTaskNode then returns -1. A
/// created node has an option store (QVTaskNodeBase::mOptions). No manager may
/// be null.
void node_proxy_node_create(_QVNodeInfo* info);

#endif  // QVGRAPH_FRAMEWORK_QV_NODE_PROXY_H_
