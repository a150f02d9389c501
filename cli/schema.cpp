#include "cli/schema.h"

#include <memory>
#include <string>

#include "cli/output.h"
#include "schema/schema.h"

namespace qvgraph {

namespace {

const char* const DESCRIPTION =
    "Print the JSON Schema of a configuration, for editors.\n"
    "\n"
    "Examples:\n"
    "  qvgraph schema -o graph.schema.json     the schema (draft-07) as a file\n"
    "\n"
    "A configuration cannot name its schema: every member of its root counts as a\n"
    "pipe. Tell the editor which files the schema is for.\n"
    "\n"
    "Exit codes: 0; 2 for wrong usage, or a file that cannot be written.\n";

}  // namespace

void addSchema(CLI::App* app, ExitCode* code) {
    auto output = std::make_shared<std::string>();
    Verb verb(app, "schema", DESCRIPTION);
    verb.addOption("-o,--output", output.get(), "Write the schema to this file", "FILE");
    verb.setWork([output, code] {
        writeOutput(*output, graphSchema());
        *code = ExitCode::Clean;
    });
}

}  // namespace qvgraph
