// The configurations that are measured.
#ifndef QVGRAPH_BENCH_DOCUMENT_H_
#define QVGRAPH_BENCH_DOCUMENT_H_

#include <string>

enum class Language { JSON, YAML, PROTOBUF_TEXT };

// A typical configuration of `nodes` nodes, in pipes of `pipeSize`. A pipe is a
// chain with a "thread_opts", a default link mode, an executor and a link; a
// node has a name, six options, an input and an output. In JSON it is about 478
// bytes of text for each node, all told; in the other languages it says the
// same.
std::string typicalDocument(int nodes, int pipeSize, Language language = Language::JSON);

#endif  // QVGRAPH_BENCH_DOCUMENT_H_
