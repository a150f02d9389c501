#include "render/dot_text.h"

#include <cstddef>
#include <cstring>

namespace qvgraph {

namespace {

const char* const REPLACEMENT = "\xef\xbf\xbd";

const char* const WORD_JOINER = "\xe2\x81\xa0";  // invisible

const char* const TABLE_BEGIN =
    "<TABLE BORDER=\"0\" CELLBORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"2\">";

// XML does not allow two of the printable code points.
void replaceNonXml(std::string* text) {
    for (const char* invalid : {"\xef\xbf\xbe", "\xef\xbf\xbf"}) {
        for (size_t at = text->find(invalid); at != std::string::npos;
             at = text->find(invalid, at)) {
            text->replace(at, 3, REPLACEMENT);
        }
    }
}

// Whether Graphviz would replace what begins here, such as \N, with a name. In an
// HTML-like label, only a character in between prevents that.
bool beginsEscape(const std::string& text, size_t at) {
    return text[at] == '\\' && at + 1 < text.size() && strchr("EGHLNT", text[at + 1]) != nullptr;
}

}  // namespace

std::string dotString(const std::string& printable) {
    std::string text = "\"";
    for (const char c : printable) {
        if (c == '&') {
            text += "&amp;";  // otherwise it may begin an entity
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
