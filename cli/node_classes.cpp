#include "cli/node_classes.h"

#include "cli/file_error.h"
#include "host/qv_node_plugin.h"
#include "host/qv_node_registry.h"

namespace qvgraph {

void addNodeClassOptions(Verb* verb, NodeClassArguments* arguments) {
    verb->addList("--plugin",
                  &arguments->plugins,
                  "Load node classes from this shared library; repeatable",
                  "LIB");
    verb->addFlag("--stub", &arguments->stub, "Use stubs for unregistered classes; the default");
    verb->addFlag(
        "--no-stub", &arguments->noStub, "Use no stubs: nodes of such classes are not created");
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
