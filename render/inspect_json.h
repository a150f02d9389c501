// The survey of a configuration as JSON.
#ifndef QVGRAPH_RENDER_INSPECT_JSON_H_
#define QVGRAPH_RENDER_INSPECT_JSON_H_

#include <ostream>
#include <string>

#include "survey/survey.h"

namespace qvgraph {

// Writes one object with a newline behind it, always valid UTF-8:
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
// "options" is an array of {"key", "type", "value"} in key order. What is not
// there is null: a key that an index or id does not lead to, the result of a
// set-up that does not return, the message of a ready node all of whose declared
// streams are wired, the name, id and format of a stream end that was not wired,
// a missing producer. Floats that JSON cannot write are the strings "inf",
// "-inf" and "nan".
void renderInspectJson(std::ostream& out, const std::string& file, const Survey& survey);

// Writes one object with a newline behind it:
//
//   {"format_version": "1.0", "classes": [{"name", "origin"}], "stub": true}
//
// "origin" is the path of a library, null for a class of the program itself.
void renderClassesJson(std::ostream& out, const NodeClasses& classes);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_INSPECT_JSON_H_
