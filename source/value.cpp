#include "source/value.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace qvgraph {

namespace {

// The elements of an array are in the order of the text.
size_t indexIn(const Value& array, const Value& element) {
    const auto found =
        std::lower_bound(array.children.begin(),
                         array.children.end(),
                         element.span.begin,
                         [](const Value* a, size_t begin) { return a->span.begin < begin; });
    return static_cast<size_t>(std::distance(array.children.begin(), found));
}

// A key as it is written in a pointer.
std::string escaped(std::string_view key) {
    std::string text;
    for (const char c : key) {
        if (c == '~') {
            text += "~0";
        } else if (c == '/') {
            text += "~1";
        } else {
            text += c;
        }
    }
    return text;
}

}  // namespace

const char* toText(ValueKind kind) {
    switch (kind) {
        case ValueKind::Null:
            return "null";
        case ValueKind::Bool:
            return "a boolean";
        case ValueKind::Number:
            return "a number";
        case ValueKind::String:
            return "a string";
        case ValueKind::Array:
            return "an array";
        case ValueKind::Object:
            return "an object";
    }
    return "";
}

const Value* Value::member(std::string_view wanted) const {
    if (!isObject()) {
        return nullptr;
    }
    const auto found = std::lower_bound(
        children.begin(), children.end(), wanted, [](const Value* a, std::string_view b) {
            return a->key < b;
        });
    return found != children.end() && (*found)->key == wanted ? *found : nullptr;
}

std::string pointerTo(const Value& value) {
    std::vector<std::string> tokens;
    for (const Value* at = &value; at->parent != nullptr; at = at->parent) {
        tokens.push_back(at->parent->isObject() ? escaped(at->key)
                                                : std::to_string(indexIn(*at->parent, *at)));
    }
    std::string pointer;
    for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
        pointer += '/' + *token;
    }
    return pointer;
}

}  // namespace qvgraph
