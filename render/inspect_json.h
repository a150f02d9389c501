// The resolved configuration as JSON.
#ifndef QVGRAPH_RENDER_INSPECT_JSON_H_
#define QVGRAPH_RENDER_INSPECT_JSON_H_

#include <ostream>
#include <string>

#include "survey/survey.h"

namespace qvgraph {

// Writes one object and a newline, always valid UTF-8:
//
//   {"format_version": "1.0", "file": "door.json", "pipes": [
//     {"index", "key", "threads", "link_mode",
//      "executors": [{"index", "id", "key", "options"}],
//      "links": [{"index", "id", "key", "options"}],
//      "nodes": [{"index", "id", "key", "name", "class",
//                 "outcome", "result", "message", "options",
//                 "inputs": [{"name", "id", "format", "remain_newest"}],
//                 "outputs": [{"name", "id", "format"}]}],
//      "streams": [{"name", "id", "producer", "consumers"}]}]}
//
// "options" is an array of {"key", "type", "value"} in key order. Absent values are
// null: "key" if an index or id maps to no member, "result" if set-up does not
// return, "message" for a ready node with all its declared streams wired, "name",
// "id" and "format" of an end that is not wired, "producer" if there is none.
// Floats that JSON cannot express are the strings "inf", "-inf" and "nan".
void renderInspectJson(std::ostream& out, const std::string& file, const Survey& survey);

// Writes one object and a newline:
//
//   {"format_version": "1.0", "classes": [{"name", "origin"}], "stub": true}
//
// "origin" is the path of a library; null for a class of the program itself.
void renderClassesJson(std::ostream& out, const NodeClasses& classes);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_INSPECT_JSON_H_
