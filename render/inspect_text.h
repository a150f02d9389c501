// The resolved configuration as text for a terminal of 80 columns.
#ifndef QVGRAPH_RENDER_INSPECT_TEXT_H_
#define QVGRAPH_RENDER_INSPECT_TEXT_H_

#include <ostream>
#include <string>

#include "survey/survey.h"

namespace qvgraph {

// Writes the report, with colours if `colour` is set.
void renderInspectText(std::ostream& out,
                       const std::string& file,
                       const Survey& survey,
                       bool colour);

// Writes the registered node classes and their origins.
void renderClassesText(std::ostream& out, const NodeClasses& classes);

// "no nodes", "1 node, ready", "14 nodes, all ready", "14 nodes, 2 of them not
// ready".
std::string textOf(const Readiness& readiness);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_INSPECT_TEXT_H_
