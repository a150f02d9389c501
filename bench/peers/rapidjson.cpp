#include <rapidjson/document.h>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"

Work parseWithRapidJson(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        rapidjson::Document root;
        root.Parse<rapidjson::kParseCommentsFlag>(text.c_str(), text.size());
        require(root.IsObject());
    };
}
