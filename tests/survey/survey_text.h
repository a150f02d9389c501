// A survey as compact text, so that tests read as tables:
//
//   pipe 0 pipe_0 threads 4 links async
//     executor 0 id 0 executor_0 {name "fast", priority 80}
//     link 0 id 0 link_0 {depth int64 16, drop float 0.5}
//     node 0 id 7 node_7 "Camera#door" of "Camera": ready (0)
//       {node_name "Camera#door", stream_output "raw", ...}
//       out 0 "raw" "nv12"
//     node 1 id 8 node_8 "Display" of "Display": would throw (-): no format ...
//       {}
//       in 0 "raw" - latest
//     stream 0 "raw" node_7 > node_8, node_9
//
// "-" means absent.
#ifndef QVGRAPH_TESTS_SURVEY_SURVEY_TEXT_H_
#define QVGRAPH_TESTS_SURVEY_SURVEY_TEXT_H_

#include <string>

#include "survey/survey.h"

// With a newline before the first line and after each: the shape of a raw
// literal.
std::string textOf(const qvgraph::Survey& survey);

// One line in braces.
std::string textOf(const qvgraph::Options& options);

// What is stored of each member, or "-": '25, -, "raw"'.
std::string textOf(const qvgraph::Conversions& conversions);

// Outcome, result and message, and a line for each end of a stream; the shape
// of a raw literal.
std::string outcomeOf(const qvgraph::SurveyedNode& node);

#endif  // QVGRAPH_TESTS_SURVEY_SURVEY_TEXT_H_
