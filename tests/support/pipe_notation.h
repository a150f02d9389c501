// A notation for pipes in one line, for tests.
#ifndef QVGRAPH_TESTS_SUPPORT_PIPE_NOTATION_H_
#define QVGRAPH_TESTS_SUPPORT_PIPE_NOTATION_H_

#include <string>

// The nodes of a pipe as members 'node_0', 'node_1' and so on. The notation separates
// nodes with semicolons. Each node lists the streams that it consumes, its class, and
// the streams that it produces; each stream has a name and a format:
//
//   "Camera > a:nv12; a:nv12 > Filter > b:f; b:f, c:f > Display"
//
// begins with
//
//   "node_0": {"node_opts": {"node_name": "Camera"},
//              "stream_opts": {"stream_output": "a", "stream_fmt_out": "nv12"}},
//
// Each node is two lines long, with all of its streams on the second. A single input or
// output has the plain keys, several have keys with an index. A node without streams
// has an empty "stream_opts". A stream without ':' has no format.
std::string nodesOf(const std::string& notation);

// {"pipe_0": {NODES}}; the nodes start on the second line.
std::string pipeOf(const std::string& notation);

#endif  // QVGRAPH_TESTS_SUPPORT_PIPE_NOTATION_H_
