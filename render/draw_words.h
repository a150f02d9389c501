// Text that is the same in every format of a picture; part of render.
//
// All of it is printable (render/text.h).
#ifndef QVGRAPH_RENDER_DRAW_WORDS_H_
#define QVGRAPH_RENDER_DRAW_WORDS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "render/drawing.h"

namespace qvgraph {

// The maximum width of a name in a picture.
constexpr size_t NAME_COLUMNS = 40;

// The severity whose colour a thing has; nothing if it has only notes.
std::optional<Severity> worstOf(const Findings& findings);

// Errors first, then warnings; without the notes.
Findings paintedOf(const Findings& findings);

// A line of text on a thing in a picture, in addition to its name.
struct Remark {
    std::optional<Severity> severity;
    std::string text;
};

// "error: no-producer": each code of an error or a warning once, up to a maximum.
std::vector<Remark> remarksOn(const Findings& findings);

// The same for one end of a stream, preceded by its format if it differs from the
// one that is shown for the stream: "consumes image:rgb24".
std::vector<Remark> remarksOn(const DrawnStream& stream, const DrawnEnd& end, const char* verb);

// For the dashed box at a missing end of a stream: its findings, otherwise
// `what`, "no producer" or "no consumer".
std::vector<Remark> remarksOnLoose(const DrawnStream& stream, const char* what);

// A line of a legend: an executor, a link, a finding, or the number of omitted
// ones.
struct LegendLine {
    std::optional<Severity> severity;
    std::string head;  // "link_0", "error 12:5"; empty for the last kind
    std::string text;
};

// The legend of a pipe: executors and links with their options, and findings, up
// to a maximum of each.
std::vector<LegendLine> legendOf(const Drawing& drawing, const DrawnPipe& pipe);

// The legend of the drawing: findings outside of the pipes.
std::vector<LegendLine> legendOf(const Drawing& drawing);

// The format that is shown for a stream: that of its first producer, or of its
// first consumer if it has no producer.
const std::string* formatOf(const DrawnStream& stream);

// "(no format)" for null.
std::string formatTextOf(const std::string* format);

// "4 executor threads, default link mode async".
std::string factsOf(const DrawnPipe& pipe);

// Whether any input keeps only the latest item.
bool hasLatestOnly(const Drawing& drawing);

// "12:5", the line and column of a finding.
std::string locationOf(const Drawing& drawing, const Finding& finding);

// "1 error and 2 warnings" in the entire drawing; empty if there are neither.
std::string mistakesIn(const Drawing& drawing);

// "2 pipes, 20 nodes, 1 error and 2 warnings".
std::string summaryOf(const Drawing& drawing);

// The class of a node and the rest of its name, "#door" or nothing.
struct NodeName {
    std::string className;
    std::string label;
};
NodeName nameOf(const Node& node);

// The key of a pipe: "pipe_0".
std::string keyOf(const DrawnPipe& pipe);

// The key of a member, with its id if that maps to a different key: "node_7",
// "node_x (id 0)".
std::string keyTextOf(const Node& node);
std::string keyTextOf(const OptionSet& set);

// The value of an option as a picture shows it: 3, 0.5, "text".
std::string valueTextOf(const Options::mapped_type& value);

// Options on one line: 'depth 2, mode "sync"'.
std::string optionsTextOf(const Options& options);

// An option of a node as its box shows it.
struct OptionLine {
    std::string key;  // empty in a last line for the omitted ones
    std::string value;
};

// The options of a node that its title and its streams do not show already, up to
// a maximum.
std::vector<OptionLine> optionLinesOf(const Node& node);

// A printable text, cut to `columns` with "..." if it is longer.
std::string clipped(std::string_view text, size_t columns);

// A printable text in lines of at most `columns`, broken at blanks if possible.
std::vector<std::string> linesOf(std::string_view text, size_t columns);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_WORDS_H_
