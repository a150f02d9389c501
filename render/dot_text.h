// Texts as Graphviz reads them; part of render.
#ifndef QVGRAPH_RENDER_DOT_TEXT_H_
#define QVGRAPH_RENDER_DOT_TEXT_H_

#include <string>
#include <utility>
#include <vector>

#include "render/palette.h"

namespace qvgraph {

// A printable text as a quoted string, for names, tooltips and other attributes.
std::string dotString(const std::string& printable);

// A printable text within a label of HTML's kind.
std::string dotHtml(const std::string& printable);

// A label of HTML's kind as the value of an attribute.
inline std::string dotLabel(const std::string& html) {
    return '<' + html + '>';
}

// Parts of labels; what they take is HTML of that kind already. Graphviz does
// not want elements without content: nothing stays nothing.
std::string dotBold(const std::string& html);
std::string dotFont(const Colour& colour, int size, const std::string& html);
std::string dotLines(const std::vector<std::string>& lines);  // under each other
std::string dotPadded(const std::string& html);               // with some room around it
std::string dotRows(const std::vector<std::string>& rows);    // with room between them

// The attributes of a node, an edge or a graph: "[name=value, name=value]".
class DotAttributes {
public:
    // A value of ours: a word, a number, a label between angle brackets.
    DotAttributes& set(const char* name, std::string value) {
        mAll.emplace_back(name, std::move(value));
        return *this;
    }
    DotAttributes& setString(const char* name, const std::string& printable) {
        return set(name, dotString(printable));
    }
    std::string text() const;

private:
    std::vector<std::pair<const char*, std::string>> mAll;
};

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DOT_TEXT_H_
