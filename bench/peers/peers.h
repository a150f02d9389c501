// One function for each library; those that are not installed are not defined.
#ifndef QVGRAPH_BENCH_PEERS_PEERS_H_
#define QVGRAPH_BENCH_PEERS_PEERS_H_

#include "bench/cases.h"

// Parse the typical document, or the same in another language, and free it.
Work parseWithNlohmann(const Size& size);
Work parseWithRapidJson(const Size& size);
Work parseWithJsonCpp(const Size& size);
Work parseWithSimdJson(const Size& size);
Work parseWithYamlCpp(const Size& size);
Work parseWithProtobuf(const Size& size);

// Create a chain of as many filters or elements, with options, and free it.
Work createFFmpegGraph(const Size& size);
Work createGStreamerPipeline(const Size& size);

#endif  // QVGRAPH_BENCH_PEERS_PEERS_H_
