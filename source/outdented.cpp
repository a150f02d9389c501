#include "source/outdented.h"

#include <algorithm>
#include <unordered_map>

namespace qvgraph {

namespace {

// The keys of one object that begin a line, as far as they have been seen.
struct Layout {
    std::optional<size_t> deepest;  // indent of any of them
    std::optional<size_t> opening;  // indent of the line that opens the object
};

class Indents {
public:
    Indents(std::string_view text, size_t begin) : mText(text), mBegin(begin) {}

    // Whether a member is outdented. Indents that are all equal show nothing: an
    // earlier member of the object must be indented deeper or, if this key has an
    // indent at all, must be on the line that opens the object.
    bool isOutdented(const Value& member) {
        const auto indent = before(member.keySpan.begin);
        const auto [found, isFirst] = mLayouts.emplace(member.parent, Layout{indent, std::nullopt});
        if (isFirst || !indent) {
            return false;
        }
        Layout& layout = found->second;
        if (!layout.opening) {
            layout.opening = ofLine(member.parent->span.begin);
        }
        const bool isLeft = layout.deepest ? *indent < *layout.deepest : *indent > 0;
        layout.deepest = std::max(layout.deepest.value_or(0), *indent);
        return isLeft && *indent <= *layout.opening;
    }

private:
    // The number of blanks at the beginning of the line of a byte.
    size_t ofLine(size_t byte) const {
        const std::string_view before = mText.substr(mBegin, byte - mBegin);
        const size_t end = before.rfind('\n');
        const std::string_view line = before.substr(end == std::string_view::npos ? 0 : end + 1);
        return std::min(line.find_first_not_of(" \t"), line.size());
    }

    // The number of blanks before a byte; nothing if it does not begin its line.
    std::optional<size_t> before(size_t byte) const {
        size_t begin = byte;
        while (begin > mBegin && (mText[begin - 1] == ' ' || mText[begin - 1] == '\t')) {
            --begin;
        }
        const bool isFirst = begin == mBegin || mText[begin - 1] == '\n';
        return isFirst ? std::optional(byte - begin) : std::nullopt;
    }

    std::string_view mText;
    size_t mBegin;
    std::unordered_map<const Value*, Layout> mLayouts;  // by object
};

// Members of the root are skipped: there is no object around it to close.
bool isNestedMember(const Value& value) {
    return value.parent != nullptr && value.parent->parent != nullptr && value.parent->isObject();
}

}  // namespace

std::optional<Span> firstOutdented(std::string_view text,
                                   size_t begin,
                                   const std::deque<Value>& values) {
    Indents indents(text, begin);
    for (const Value& value : values) {
        if (isNestedMember(value) && indents.isOutdented(value)) {
            return value.keySpan;
        }
    }
    return std::nullopt;
}

}  // namespace qvgraph
