#include "cli/node_classes.h"

#include "cli/file_error.h"
#include "host/qv_node_plugin.h"
#include "host/qv_node_registry.h"

namespace qvgraph {

void addNodeClassOptions(Verb* verb, NodeClassArguments* arguments) {
    verb->addList(
        "--plugin", &arguments->plugins, "A shared library with node classes; repeatable", "LIB");
    verb->addFlag("--stub", &arguments->stub, "Have stubs for unknown classes; the default");
    verb->addFlag("--no-stub", &arguments->noStub, "Have none: no nodes of unknown classes");
    verb->excludeEachOther("--no-stub", "--stub");
}

void provideNodeClasses(const NodeClassArguments& arguments) {
    QVNodeRegistry& registry = QVNodeRegistry::instance();
    for (const std::string& plugin : arguments.plugins) {
        if (const auto error = qv_load_node_plugin(plugin, &registry)) {
            throw FileError(*error);
        }
    }
    registry.setStub(!arguments.noStub);
}

}  // namespace qvgraph
