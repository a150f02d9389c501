#include <simdjson.h>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"

Work parseWithSimdJson(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        simdjson::dom::parser parser;
        require(parser.parse(text).is_object());
    };
}
