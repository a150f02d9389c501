// The words and marks of pictures, the same in each format; part of render.
//
// All texts are printable (render/text.h).
#ifndef QVGRAPH_RENDER_DRAW_WORDS_H_
#define QVGRAPH_RENDER_DRAW_WORDS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "render/drawing.h"

namespace qvgraph {

// The most of a name that a picture shows.
constexpr size_t NAME_COLUMNS = 40;

// The severity in which something is painted; nothing for notes alone.
std::optional<Severity> worstOf(const Findings& findings);

// Errors first, then warnings; without the notes.
Findings paintedOf(const Findings& findings);

// What stands on a thing in a picture, besides its name.
struct Remark {
    std::optional<Severity> severity;
    std::string text;
};

// "error: no-producer": each code of errors and warnings once, and only a few.
std::vector<Remark> remarksOn(const Findings& findings);

// The same of one end of a stream, and its format where that is not the one
// that the stream is shown with: "takes image:rgb24". Empty for most.
std::vector<Remark> remarksOn(const DrawnStream& stream, const DrawnEnd& end, const char* verb);

// On a dashed box where a stream has no end. `what` is "no producer" or "no
// consumer", which findings say as well.
std::vector<Remark> remarksOnLoose(const DrawnStream& stream, const char* what);

// A line of a legend: an executor, a link or a finding, or how many more.
struct LegendLine {
    std::optional<Severity> severity;
    std::string head;  // "link_0", "error 12:5"; empty for the last kind
    std::string text;
};

// Of a pipe: executors and links with their options, and findings. Of each only
// so many; the check tells all of them.
std::vector<LegendLine> legendOf(const Drawing& drawing, const DrawnPipe& pipe);

// Of the whole: what was found outside of the pipes.
std::vector<LegendLine> legendOf(const Drawing& drawing);

// The format that a stream is shown with: that of the one who gives it, or else
// of the first who takes it.
const std::optional<std::string>& formatOf(const DrawnStream& stream);

// "(no format)" where there is none.
std::string formatTextOf(const std::optional<std::string>& format);

// "4 executor threads, default link mode async".
std::string factsOf(const DrawnPipe& pipe);

// Whether some input takes the newest item only.
bool takesNewestOnly(const Drawing& drawing);

// "12:5", the line and column of a finding.
std::string placeOf(const Drawing& drawing, const Finding& finding);

// "1 error and 2 warnings", of all that is drawn; "" where there are neither.
std::string mistakesIn(const Drawing& drawing);

// "2 pipes, 20 nodes, 1 error and 2 warnings".
std::string summaryOf(const Drawing& drawing);

// The class of a node and what follows it in its name, "#door" or nothing.
struct NodeName {
    std::string className;
    std::string label;
};
NodeName nameOf(const Node& node);

// The key of a member, and the id in it where that leads elsewhere: "node_7",
// "node_x (id 0)".
std::string keyTextOf(const Node& node);
std::string keyTextOf(const OptionSet& set);

// An option's value as a picture shows it: 3, 0.5, "text".
std::string valueTextOf(const Options::mapped_type& value);

// Options one behind the other: "depth 2, mode "sync"".
std::string optionsTextOf(const Options& options);

// An option of a node as its box shows it.
struct OptionLine {
    std::string key;  // empty in the last line where there are more
    std::string value;
};

// Of a node's options those that its title and its streams do not show already,
// and of these only so many.
std::vector<OptionLine> optionLinesOf(const Node& node);

// A printable text of at most so many columns; what is cut off is "...".
std::string clipped(std::string_view text, size_t columns);

// A printable text in lines of at most so many columns, broken at blanks where
// there are any.
std::vector<std::string> linesOf(std::string_view text, size_t columns);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAW_WORDS_H_
