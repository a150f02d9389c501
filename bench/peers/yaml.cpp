#include <yaml-cpp/yaml.h>

#include "bench/document.h"
#include "bench/peers/peers.h"
#include "bench/require.h"

Work parseWithYamlCpp(const Size& size) {
    return [text = typicalDocument(size.nodes, size.pipeSize, Language::YAML)] {
        require(YAML::Load(text).IsMap());
    };
}
