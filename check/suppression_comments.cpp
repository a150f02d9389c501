#include "check/suppression_comments.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "survey/words.h"

namespace qvgraph {

namespace {

const std::string_view BLANKS = " \t\r\n";

std::string_view withoutBlanksBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(BLANKS), text.size()));
}

std::string_view withoutBlanksAround(std::string_view text) {
    const std::string_view rest = withoutBlanksBefore(text);
    return rest.substr(0, rest.find_last_not_of(BLANKS) + 1);
}

// Removes a word and the blanks before it from the front of a text, if it begins
// with that word in any letter case.
bool removeWord(std::string_view word, std::string_view* text) {
    const std::string_view rest = withoutBlanksBefore(*text);
    if (lowerCase(rest.substr(0, word.size())) != word) {
        return false;
    }
    *text = rest.substr(word.size());
    return true;
}

// The content of a comment, from its first word on; "/**" and "///" may open it.
std::string_view contentOf(std::string_view comment) {
    const bool isBlock = comment.starts_with("/*");
    const std::string_view inside = comment.substr(2, comment.size() - (isBlock ? 4 : 2));
    return inside.substr(std::min(inside.find_first_not_of(" \t\r\n*/"), inside.size()));
}

bool isSuppression(std::string_view content) {
    if (!removeWord("qvgraph", &content) || !removeWord(":", &content) ||
        !removeWord("ignore", &content)) {
        return false;
    }
    const char next = content.empty() ? ' ' : content.front();
    return !((next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z'));
}

// The list between the brackets; nothing if the comment is malformed.
std::optional<std::string_view> listIn(std::string_view content) {
    const std::string_view start = "qvgraph:";
    const std::string_view word = "ignore";
    if (!content.starts_with(start)) {
        return std::nullopt;
    }
    const std::string_view after = content.substr(start.size());
    const std::string_view rest = withoutBlanksBefore(after);
    if (rest.size() == after.size() || !rest.starts_with(word)) {
        return std::nullopt;
    }
    const std::string_view list = withoutBlanksBefore(rest.substr(word.size()));
    const size_t end = list.find(']');
    if (!list.starts_with("[") || end == std::string_view::npos) {
        return std::nullopt;
    }
    return list.substr(1, end - 1);
}

// The codes in a list that is separated by commas.
std::vector<std::string_view> codesIn(std::string_view list) {
    std::vector<std::string_view> codes;
    for (size_t begin = 0; begin <= list.size();) {
        const size_t end = std::min(list.find(',', begin), list.size());
        const std::string_view code = withoutBlanksAround(list.substr(begin, end - begin));
        if (!code.empty()) {
            codes.push_back(code);
        }
        begin = end + 1;
    }
    return codes;
}

}  // namespace

std::vector<SuppressionComment> suppressionComments(const Source& source) {
    const std::string_view text = source.text();
    std::vector<SuppressionComment> comments;
    for (const Span& span : source.comments()) {
        const std::string_view content = contentOf(text.substr(span.begin, span.end - span.begin));
        if (!isSuppression(content)) {
            continue;
        }
        comments.push_back({span, {}});
        for (const std::string_view code : codesIn(listIn(content).value_or(""))) {
            const auto begin = static_cast<size_t>(code.data() - text.data());
            comments.back().codes.emplace_back(begin, begin + code.size());
        }
    }
    return comments;
}

}  // namespace qvgraph
