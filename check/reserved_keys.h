// The keys that have a meaning to the parser: one table for the rules about
// keys, the schema and the documentation.
#ifndef QVGRAPH_CHECK_RESERVED_KEYS_H_
#define QVGRAPH_CHECK_RESERVED_KEYS_H_

#include <string>
#include <vector>

#include "source/source.h"

namespace qvgraph {

// The level of an object in a configuration.
enum class Level {
    Root,
    Pipe,
    ThreadOptions,    // "thread_opts"
    Executor,         // 'executor_<e>'
    ExecutorOptions,  // "executor_opts"
    Link,             // 'link_<l>'
    Node,             // 'node_<n>'
    NodeOptions,      // "node_opts"
    StreamOptions,    // "stream_opts"
    ExtraOptions,     // "node_opts_extra" and "stream_opts_extra"
};

// "the root", "a pipe", "\"thread_opts\"", "an executor" and so on.
const char* toText(Level level);

struct ReservedKey {
    Level level;
    const char* name;  // "thread_opts"; for a family, its prefix: "node_"
    bool family;       // an index or another suffix follows the name
    ValueKind kind;    // that its value must have
    const char* meaning;
};

// Every reserved key, by level, in the order in which authors write them.
const std::vector<ReservedKey>& reservedKeys();

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_RESERVED_KEYS_H_
