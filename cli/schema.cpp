#include "cli/schema.h"

#include <memory>
#include <string>

#include "cli/output.h"
#include "schema/schema.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Print the JSON Schema of a configuration.\n"
    "\n"
    "Examples:\n"
    "  qvgraph schema -o graph.schema.json    write the schema (draft-07) to a file\n"
    "\n"
    "With the schema, an editor completes keys and describes them. A configuration\n"
    "cannot name its schema, because every member of its root is treated as a pipe:\n"
    "set the files that the schema applies to in the editor.\n"
    "\n"
    "Exit codes: 0 the schema is written; 2 wrong usage, or a file that cannot be\n"
    "written.\n";

}  // namespace

void addSchema(CLI::App* app, ExitCode* code) {
    auto output = std::make_shared<std::string>();
    Verb verb(app, "schema", DESCRIPTION);
    verb.addOption("-o,--output", output.get(), "Write the schema to this file", "FILE");
    verb.setAction([output, code] {
        writeOutput(*output, graphSchema());
        *code = ExitCode::Clean;
    });
}

}  // namespace qvgraph
