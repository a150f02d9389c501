#include <json/json.h>

#include <memory>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"

Work parseWithJsonCpp(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
        Json::Value root;
        std::string error;
        require(reader->parse(text.data(), text.data() + text.size(), &root, &error));
    };
}
