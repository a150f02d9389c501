#include "render/dot_text.h"

#include <cstddef>
#include <cstring>

namespace qvgraph {

namespace {

const char* const REPLACEMENT = "\xef\xbf\xbd";

const char* const WORD_JOINER = "\xe2\x81\xa0";  // invisible

const char* const TABLE_BEGIN =
    "<TABLE BORDER=\"0\" CELLBORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"2\">";

// Two code points that are fit to print are not fit for XML.
void replaceNonXml(std::string* text) {
    for (const char* none : {"\xef\xbf\xbe", "\xef\xbf\xbf"}) {
        for (size_t at = text->find(none); at != std::string::npos; at = text->find(none, at)) {
            text->replace(at, 3, REPLACEMENT);
        }
    }
}

// Whether Graphviz would put a name in place of what begins here, \N or the
// like. In such a label nothing keeps it from that but to part the two.
bool beginsEscape(const std::string& text, size_t at) {
    return text[at] == '\\' && at + 1 < text.size() && strchr("EGHLNT", text[at + 1]) != nullptr;
}

}  // namespace

std::string dotString(const std::string& printable) {
    std::string text = "\"";
    for (const char c : printable) {
        if (c == '&') {
            text += "&amp;";  // or else it may begin an entity
            continue;
        }
        if (c == '"' || c == '\\') {
            text += '\\';
        }
        text += c;
    }
    replaceNonXml(&text);
    return text + '"';
}

std::string dotHtml(const std::string& printable) {
    std::string text;
    for (size_t i = 0; i < printable.size(); ++i) {
        switch (printable[i]) {
            case '&':
                text += "&amp;";
                break;
            case '<':
                text += "&lt;";
                break;
            case '>':
                text += "&gt;";
                break;
            default:
                text += printable[i];
        }
        if (beginsEscape(printable, i)) {
            text += WORD_JOINER;
        }
    }
    replaceNonXml(&text);
    return text;
}

std::string dotBold(const std::string& html) {
    return html.empty() ? "" : "<B>" + html + "</B>";
}

std::string dotFont(const Colour& colour, int size, const std::string& html) {
    if (html.empty()) {
        return "";
    }
    return "<FONT COLOR=\"" + std::string(colour.light) + "\" POINT-SIZE=\"" +
           std::to_string(size) + "\">" + html + "</FONT>";
}

std::string dotLines(const std::vector<std::string>& lines) {
    std::string html;
    for (const std::string& line : lines) {
        html += (html.empty() ? "" : "<BR/>") + line;
    }
    return html;
}

std::string dotPadded(const std::string& html) {
    return TABLE_BEGIN + ("<TR><TD>" + html) + "</TD></TR></TABLE>";
}

std::string dotRows(const std::vector<std::string>& rows) {
    std::string html = TABLE_BEGIN;
    for (const std::string& row : rows) {
        html += "<TR><TD ALIGN=\"LEFT\" BALIGN=\"LEFT\">" + row + "</TD></TR>";
    }
    return html + "</TABLE>";
}

std::string DotAttributes::text() const {
    std::string text = "[";
    for (const auto& [name, value] : mAll) {
        text += (text.size() == 1 ? "" : ", ") + std::string(name) + '=' + value;
    }
    return text + ']';
}

}  // namespace qvgraph
