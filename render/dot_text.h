// Text in the syntax of Graphviz; part of render.
#ifndef QVGRAPH_RENDER_DOT_TEXT_H_
#define QVGRAPH_RENDER_DOT_TEXT_H_

#include <string>
#include <utility>
#include <vector>

#include "render/palette.h"

namespace qvgraph {

// A printable text as a quoted string, for names, tooltips and other attributes.
std::string dotString(const std::string& printable);

// A printable text within an HTML-like label.
std::string dotHtml(const std::string& printable);

// An HTML-like label as the value of an attribute.
inline std::string dotLabel(const std::string& html) {
    return '<' + html + '>';
}

// Parts of labels, built from parts of labels. Graphviz rejects elements without
// content, so an empty part stays empty.
std::string dotBold(const std::string& html);
std::string dotFont(const Colour& colour, int size, const std::string& html);
std::string dotLines(const std::vector<std::string>& lines);  // one per line
std::string dotPadded(const std::string& html);               // with padding around it
std::string dotRows(const std::vector<std::string>& rows);    // with space between them

// The attributes of a node, an edge or a graph: "[name=value, name=value]".
class DotAttributes {
public:
    // A value that needs no quotes: a word, a number, a label in angle brackets.
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
