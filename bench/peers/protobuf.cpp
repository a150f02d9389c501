#include <google/protobuf/text_format.h>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"
#include "pipes.pb.h"

Work parseWithProtobuf(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize, Language::PROTOBUF_TEXT)] {
        qvgraph::bench::Document document;
        require(google::protobuf::TextFormat::ParseFromString(text, &document));
    };
}
