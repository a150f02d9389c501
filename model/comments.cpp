#include "model/comments.h"

#include <algorithm>
#include <deque>

namespace qvgraph {

namespace {

size_t lineOf(const Source& source, size_t byte) {
    return source.position(byte).line;
}

// The value if it is a member of an object; otherwise null.
const Value* asMember(const Value* value) {
    const bool isMember = value->parent != nullptr && value->parent->isObject();
    return isMember ? value : nullptr;
}

// The value that a comment follows: the container that it begins, or the value
// that ends last before it in the same container.
struct Place {
    const Value* container = nullptr;
    const Value* previous = nullptr;
    size_t previousEnd = 0;  // the byte after what the comment follows
};

// `last` is the last value that begins before the comment.
Place placeAfter(const Value* last, Span comment) {
    if (last->span.end > comment.begin) {
        return {last, last, last->span.begin + 1};
    }
    while (last->parent != nullptr && last->parent->span.end <= comment.begin) {
        last = last->parent;
    }
    return {last->parent, last, last->span.end};
}

const Value* memberOf(const Source& source, Span comment) {
    const std::deque<Value>& values = source.values();
    const auto next =
        std::partition_point(values.begin(), values.end(), [comment](const Value& value) {
            return value.span.begin < comment.begin;
        });
    const bool isAfterKey = next != values.end() && next->keySpan.end > next->keySpan.begin &&
                            next->keySpan.begin < comment.begin;
    if (isAfterKey) {
        return &*next;
    }
    if (next == values.begin()) {
        return nullptr;  // before the root
    }
    const Place place = placeAfter(&*std::prev(next), comment);
    if (lineOf(source, place.previousEnd - 1) == lineOf(source, comment.begin)) {
        return asMember(place.previous);
    }
    const bool isFollowed = next != values.end() && next->parent == place.container;
    return isFollowed ? asMember(&*next) : nullptr;
}

}  // namespace

std::vector<Comment> commentsOf(const Source& source) {
    std::vector<Comment> comments;
    comments.reserve(source.comments().size());
    for (const Span& span : source.comments()) {
        comments.push_back({span, source.root() == nullptr ? nullptr : memberOf(source, span)});
    }
    return comments;
}

}  // namespace qvgraph
