// The keys that the parser gives a meaning: one table for the rules about keys,
// the schema and the documentation.
#ifndef QVGRAPH_CHECK_KNOWN_KEYS_H_
#define QVGRAPH_CHECK_KNOWN_KEYS_H_

#include <string>
#include <vector>

#include "source/source.h"

namespace qvgraph {

// Where in a configuration an object stands.
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

struct KnownKey {
    Level level;
    const char* name;  // "thread_opts"; of a family its prefix, "node_"
    bool family;       // an index follows the name
    ValueKind kind;    // what its value has to be
    const char* meaning;
};

// Every key, level by level, in the order in which one would write them.
const std::vector<KnownKey>& knownKeys();

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_KNOWN_KEYS_H_
