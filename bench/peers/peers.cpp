#include "bench/peers/peers.h"

Cases peerCases() {
    return {
#ifdef QVGRAPH_BENCH_NLOHMANN
        {"nlohmann", parseWithNlohmann},
#endif
#ifdef QVGRAPH_BENCH_RAPIDJSON
        {"rapidjson", parseWithRapidJson},
#endif
#ifdef QVGRAPH_BENCH_JSONCPP
        {"jsoncpp", parseWithJsonCpp},
#endif
#ifdef QVGRAPH_BENCH_SIMDJSON
        {"simdjson", parseWithSimdJson},
#endif
#ifdef QVGRAPH_BENCH_YAML
        {"yaml-cpp", parseWithYamlCpp},
#endif
#ifdef QVGRAPH_BENCH_PROTOBUF
        {"protobuf", parseWithProtobuf},
#endif
#ifdef QVGRAPH_BENCH_FFMPEG
        {"ffmpeg", createFFmpegGraph},
#endif
#ifdef QVGRAPH_BENCH_GSTREAMER
        {"gstreamer", createGStreamerPipeline},
#endif
    };
}
