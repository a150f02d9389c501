#include <nlohmann/json.hpp>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"

Work parseWithNlohmann(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize)] {
        const auto root = nlohmann::json::parse(text, nullptr, true, true);
        require(root.is_object());
    };
}
