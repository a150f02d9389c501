// The JSON Schema of a configuration, for editors and other programs.
#ifndef QVGRAPH_SCHEMA_SCHEMA_H_
#define QVGRAPH_SCHEMA_SCHEMA_H_

#include <string>

namespace qvgraph {

// The text of schema/graph.schema.json (draft-07), with a newline at its end.
const std::string& graphSchema();

}  // namespace qvgraph

#endif  // QVGRAPH_SCHEMA_SCHEMA_H_
