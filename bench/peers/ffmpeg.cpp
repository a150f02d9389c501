#include <cstdint>  // FFmpeg's headers need UINT64_C

extern "C" {
#include <libavfilter/avfilter.h>
}

#include "bench/peers/peers.h"
#include "bench/require.h"

Work createFFmpegGraph(const Size& size) {
    std::string chain;
    for (int i = 0; i < size.nodes; ++i) {
        chain += i == 0 ? "" : ",";
        chain += "deband=1thr=0.03:2thr=0.04:3thr=0.05:4thr=0.06:range=24:blur=0";
    }
    return [chain, filters = static_cast<unsigned>(size.nodes)] {
        AVFilterGraph* graph = avfilter_graph_alloc();
        AVFilterInOut* inputs = nullptr;
        AVFilterInOut* outputs = nullptr;
        require(avfilter_graph_parse2(graph, chain.c_str(), &inputs, &outputs) == 0);
        require(graph->nb_filters == filters);
        avfilter_inout_free(&inputs);
        avfilter_inout_free(&outputs);
        avfilter_graph_free(&graph);
    };
}
