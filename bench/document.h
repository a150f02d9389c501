// The configurations that the measurements use.
#ifndef QVGRAPH_BENCH_DOCUMENT_H_
#define QVGRAPH_BENCH_DOCUMENT_H_

#include <string>

enum class Language { JSON, YAML, PROTOBUF_TEXT };

// A typical configuration of `nodes` nodes, in pipes of `pipeSize`. Each pipe is a
// chain, with a "thread_opts", a default link mode, an executor and a link; each
// node has a name, six options, an input and an output. In JSON, the text has
// about 478 bytes per node; the other languages express the same.
std::string typicalDocument(int nodes, int pipeSize, Language language = Language::JSON);

#endif  // QVGRAPH_BENCH_DOCUMENT_H_
