#include "tests/support/same_as_json11.h"

#include <cmath>
#include <json11.hpp>
#include <map>
#include <utility>
#include <vector>

#include "source/source.h"

using json11::Json;
using qvgraph::Source;
using qvgraph::Span;
using qvgraph::Value;
using qvgraph::ValueKind;

namespace {

std::string partOf(const std::string& text, Span span) {
    return text.substr(span.begin, span.end - span.begin);
}

// The end of a message: the location of the difference.
std::string at(size_t byte) {
    return " at byte " + std::to_string(byte);
}

Json::Type typeOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Null:
            return Json::NUL;
        case ValueKind::Bool:
            return Json::BOOL;
        case ValueKind::Number:
            return Json::NUMBER;
        case ValueKind::String:
            return Json::STRING;
        case ValueKind::Array:
            return Json::ARRAY;
        case ValueKind::Object:
            return Json::OBJECT;
    }
    return Json::NUL;
}

bool isContainer(const Value& value) {
    return value.kind == ValueKind::Object || value.kind == ValueKind::Array;
}

// Whether a value has the content of json11's, not comparing its children.
bool hasSameContent(const Value& value, const Json& json) {
    return json.type() == typeOf(value.kind) && json.string_value() == value.text &&
           json.number_value() == value.number &&
           std::signbit(json.number_value()) == std::signbit(value.number);
}

// ---- Values -----------------------------------------------------------------

// The values that take effect, each with json11's.
using Counterparts = std::map<const Value*, const Json*>;

std::string pairElements(const Value& array, const Json& json, Counterparts* counterparts) {
    const std::vector<Json>& elements = json.array_items();
    if (elements.size() != array.children.size()) {
        return "a different number of elements" + at(array.span.begin);
    }
    for (size_t i = 0; i < elements.size(); ++i) {
        (*counterparts)[array.children[i]] = &elements[i];
    }
    return "";
}

std::string pairMembers(const Value& object, const Json& json, Counterparts* counterparts) {
    const std::map<std::string, Json>& members = json.object_items();
    if (members.size() != object.children.size()) {
        return "a different number of members" + at(object.span.begin);
    }
    size_t i = 0;
    for (const auto& [key, member] : members) {
        const Value* const child = object.children[i++];
        if (child->key != key || object.member(key) != child) {
            return "a different key" + at(child->keySpan.begin);
        }
        (*counterparts)[child] = &member;
    }
    return "";
}

// Compares the span of a value with the value.
std::string differenceInPart(const std::string& text, const Value& value) {
    const std::string part = partOf(text, value.span);
    if (isContainer(value)) {
        const std::string brackets = {part.front(), part.back()};
        return brackets == (value.isObject() ? "{}" : "[]") ? "" : "no brackets";
    }
    std::string error;
    const Json json = Json::parse(part, error, json11::STANDARD);
    const bool trimmed =
        part.find_first_of(" \t\r\n") != 0 && part.find_last_of(" \t\r\n") != part.size() - 1;
    return error.empty() && trimmed && hasSameContent(value, json)
               ? ""
               : "a value that its span does not contain";
}

std::string differenceInKey(const std::string& text, const Value& value) {
    if (value.parent == nullptr || !value.parent->isObject()) {
        return value.key.empty() && value.keySpan.end == 0 ? "" : "an element with a key";
    }
    std::string error;
    const Json key = Json::parse(partOf(text, value.keySpan), error, json11::STANDARD);
    const bool same = error.empty() && key.is_string() && key.string_value() == value.key &&
                      value.keySpan.end < value.span.begin;
    return same ? "" : "a key that its span does not contain";
}

std::string differenceInValues(const Source& source, const Json& json) {
    Counterparts counterparts = {{source.root(), &json}};
    for (const Value& value : source.values()) {
        std::string difference = differenceInPart(source.text(), value);
        if (difference.empty()) {
            difference = differenceInKey(source.text(), value);
        }
        const auto found = counterparts.find(&value);
        if (difference.empty() && found != counterparts.end()) {
            const Json& counterpart = *found->second;
            if (!hasSameContent(value, counterpart)) {
                difference = "a different value";
            } else if (value.isObject()) {
                difference = pairMembers(value, counterpart, &counterparts);
            } else {
                difference = pairElements(value, counterpart, &counterparts);
            }
        }
        if (!difference.empty()) {
            return difference + at(value.span.begin);
        }
    }
    return "";
}

// Checks that each value is inside its parent, and that a member that is not among
// the children of its parent is followed by another one with the same key.
std::string differenceInFamilies(const Source& source) {
    std::map<std::pair<const Value*, std::string>, const Value*> latest;
    for (const Value& value : source.values()) {
        const Value* const parent = value.parent;
        if ((parent == nullptr) != (&value == source.root())) {
            return "no parent" + at(value.span.begin);
        }
        if (parent != nullptr &&
            (value.span.begin <= parent->span.begin || value.span.end >= parent->span.end)) {
            return "not inside its parent" + at(value.span.begin);
        }
        if (parent != nullptr && parent->isObject()) {
            const Value*& before = latest[{parent, std::string(value.key)}];
            if (before != nullptr && before->overriddenBy != &value) {
                return "not overridden by the next member" + at(before->span.begin);
            }
            before = &value;
        }
    }
    for (const auto& [name, value] : latest) {
        if (value->overriddenBy != nullptr || name.first->member(name.second) != value) {
            return "the last member does not win" + at(value->span.begin);
        }
    }
    return "";
}

// ---- Comments and errors ----------------------------------------------------

std::string differenceWithoutComments(const Source& source, const Json& json) {
    std::string text = source.text();
    for (const Span comment : source.comments()) {
        const std::string begin = text.substr(comment.begin, 2);
        if (begin != "//" && begin != "/*") {
            return "a comment without its start" + at(comment.begin);
        }
        text.replace(comment.begin, comment.end - comment.begin, comment.end - comment.begin, ' ');
    }
    std::string error;
    const Json without = Json::parse(text, error, json11::STANDARD);
    return error.empty() && without == json ? "" : "different comments";
}

std::string differenceInError(const Source& source) {
    const std::string& text = source.text();
    const size_t byte = source.error()->byte;
    if (byte > text.size() || !source.values().empty() || source.root() != nullptr) {
        return "values in addition to an error";
    }
    const Source before(text.substr(0, byte));
    if (before.error() && before.error()->byte != byte) {
        return "an error" + at(byte) + " after another one" + at(before.error()->byte);
    }
    const Source with(text.substr(0, byte + 1));
    if (!with.error() || with.error()->byte != byte) {
        return "an error" + at(byte) + " that is not one";
    }
    if (!source.comments().empty() && source.comments().back().end > byte) {
        return "a comment after the error" + at(byte);
    }
    return "";
}

// Scans the same text between two others, which have no effect.
std::string differenceInsideAnotherText(const Source& source) {
    const std::string before = "[\"\n";
    const size_t size = source.text().size();
    const Source inner(before + source.text() + "\"], 1", before.size(), before.size() + size);
    if (inner.values().size() != source.values().size() ||
        inner.error().has_value() != source.error().has_value()) {
        return "a different result inside another text";
    }
    if (inner.error() && (inner.error()->byte != source.error()->byte + before.size() ||
                          inner.error()->hint != source.error()->hint)) {
        return "a different error inside another text";
    }
    for (size_t i = 0; i < inner.values().size(); ++i) {
        if (inner.values()[i].span.begin != source.values()[i].span.begin + before.size() ||
            inner.values()[i].span.end != source.values()[i].span.end + before.size() ||
            inner.values()[i].number != source.values()[i].number) {
            return "a different value inside another text" + at(source.values()[i].span.begin);
        }
    }
    return "";
}

}  // namespace

std::string differenceFromJson11(const std::string& text) {
    const Source source(text);
    std::string error;
    const Json json = Json::parse(text, error, json11::COMMENTS);
    if (error.empty() != !source.error()) {
        return error.empty()
                   ? "an error" + at(source.error()->byte) + ", but json11 accepts the text"
                   : "no error, but \"" + error + '"';
    }
    std::string difference = differenceInsideAnotherText(source);
    if (!difference.empty()) {
        return difference;
    }
    if (source.error()) {
        return differenceInError(source);
    }
    difference = differenceInValues(source, json);
    if (difference.empty()) {
        difference = differenceInFamilies(source);
    }
    return difference.empty() ? differenceWithoutComments(source, json) : difference;
}
