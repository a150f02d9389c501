#include <gst/gst.h>

#include "bench/peers/peers.h"
#include "bench/require.h"

Work createGStreamerPipeline(const Size& size) {
    gst_registry_fork_set_enabled(FALSE);
    require(gst_init_check(nullptr, nullptr, nullptr) != 0);
    std::string chain;
    for (int i = 0; i < size.nodes; ++i) {
        chain += i == 0 ? "" : " ! ";
        chain +=
            "identity silent=true sync=false sleep-time=0 datarate=1280 drop-probability=0.75 "
            "single-segment=false";
    }
    return [chain] {
        GError* error = nullptr;
        GstElement* const pipeline = gst_parse_launch(chain.c_str(), &error);
        require(pipeline != nullptr && error == nullptr);
        gst_object_unref(pipeline);
    };
}
