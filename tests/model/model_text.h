// A model as compact text, so that tests read as tables:
//
//   pipe 0 threads 4 links async
//     executor_0 id 0 {name "fast", priority int32 80}
//     link_x id 0 (not canonical: -) {depth int64 16, drop -}
//     node_07 id 7 (not canonical: node_7) "Camera#door" of "Camera": ready
//       node_opts {node_name "Camera#door", fps int32 25 (overridden by stream_opts.fps)}
//       in 0 stream_input "a", stream_fmt_in "f" latest
//       in + stream_input_0 "b", -
//       out 0 stream_output -, stream_fmt_out (no option) -
//     stream "a": node_8 out 0 > node_07 in 0, node_9 in +1
//   comment 2:5 "// the door" /pipe_0/node_07
//
// After "not canonical:", the key that the id maps to. An end is "in +" or "out +"
// if it has no manager; an endpoint of a stream also has the position of that end in
// its side. "-" means absent: no value is stored, no string was found, no key is
// intended, no member is described. A NUL in a key is "\0".
#ifndef QVGRAPH_TESTS_MODEL_MODEL_TEXT_H_
#define QVGRAPH_TESTS_MODEL_MODEL_TEXT_H_

#include <string>
#include <string_view>

#include "model/model.h"

// With a newline before the first line and after each: the shape of a raw
// literal. Begins with "does not load" and json11's text if it does not load.
std::string textOf(const qvgraph::Model& model);

// The lines "in" and "out" of a node, in the shape of a raw literal.
std::string endsOf(const qvgraph::Node& node);

// One line in braces. `node` is the node whose options they are; null for none.
std::string textOf(const qvgraph::OptionObject& object, const qvgraph::Node* node);

// 'int32 5', '"text"'; "-" for nothing.
std::string textOf(const std::optional<qvgraph::OptionValue>& stored);

// "object.key" of an option of a node; "-" for null.
std::string pathOf(const qvgraph::Node& node, const qvgraph::Option* option);

#endif  // QVGRAPH_TESTS_MODEL_MODEL_TEXT_H_
