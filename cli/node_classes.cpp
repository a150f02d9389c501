#include "cli/node_classes.h"

#include "cli/file_error.h"
#include "host/qv_node_plugin.h"
#include "host/qv_node_registry.h"

namespace qvgraph {

void addNodeClassOptions(CLI::App* verb, NodeClassArguments* arguments) {
    verb->add_option(
            "--plugin", arguments->plugins, "A shared library with node classes; repeatable")
        ->type_name("LIB")
        ->option_text("LIB")
        ->take_all()
        ->allow_extra_args(false);
    CLI::Option* stub =
        verb->add_flag("--stub", "Have stubs for unknown classes; the default")->option_text(" ");
    verb->add_flag("--no-stub", arguments->noStub, "Have none: no nodes of unknown classes")
        ->excludes(stub)
        ->option_text(" ");
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
