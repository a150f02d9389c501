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

// What a complaint is about.
std::string at(size_t byte) {
    return " at the byte " + std::to_string(byte);
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

// Whether a value holds what json11's does, its children aside.
bool holdsTheSame(const Value& value, const Json& json) {
    return json.type() == typeOf(value.kind) && json.string_value() == value.text &&
           json.number_value() == value.number &&
           std::signbit(json.number_value()) == std::signbit(value.number);
}

// ---- Values -----------------------------------------------------------------

// The values that count, each with json11's.
using Counterparts = std::map<const Value*, const Json*>;

std::string pairElements(const Value& array, const Json& json, Counterparts* counterparts) {
    const std::vector<Json>& elements = json.array_items();
    if (elements.size() != array.children.size()) {
        return "another number of elements" + at(array.span.begin);
    }
    for (size_t i = 0; i < elements.size(); ++i) {
        (*counterparts)[array.children[i]] = &elements[i];
    }
    return "";
}

std::string pairMembers(const Value& object, const Json& json, Counterparts* counterparts) {
    const std::map<std::string, Json>& members = json.object_items();
    if (members.size() != object.children.size()) {
        return "another number of members" + at(object.span.begin);
    }
    size_t i = 0;
    for (const auto& [key, member] : members) {
        const Value* const child = object.children[i++];
        if (child->key != key || object.member(key) != child) {
            return "another key" + at(child->keySpan.begin);
        }
        (*counterparts)[child] = &member;
    }
    return "";
}

// A value's own text, without what stands around it.
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
    return error.empty() && trimmed && holdsTheSame(value, json) ? "" : "another text";
}

std::string differenceInKey(const std::string& text, const Value& value) {
    if (value.parent == nullptr || !value.parent->isObject()) {
        return value.key.empty() && value.keySpan.end == 0 ? "" : "a key that is none";
    }
    std::string error;
    const Json key = Json::parse(partOf(text, value.keySpan), error, json11::STANDARD);
    const bool same = error.empty() && key.is_string() && key.string_value() == value.key &&
                      value.keySpan.end < value.span.begin;
    return same ? "" : "another text of the key";
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
            if (!holdsTheSame(value, counterpart)) {
                difference = "another value";
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

// Each value stands within its parent; one that is not among its children is
// followed by a member of the same key.
std::string differenceInFamilies(const Source& source) {
    std::map<std::pair<const Value*, std::string>, const Value*> latest;
    std::map<const Value*, size_t> counting;
    for (const Value& value : source.values()) {
        const Value* const parent = value.parent;
        if ((parent == nullptr) != (&value == source.root())) {
            return "no parent" + at(value.span.begin);
        }
        if (parent != nullptr &&
            (value.span.begin <= parent->span.begin || value.span.end >= parent->span.end)) {
            return "not within its parent" + at(value.span.begin);
        }
        if (parent != nullptr && parent->isObject()) {
            const Value*& before = latest[{parent, value.key}];
            if (before != nullptr && before->overriddenBy != &value) {
                return "not overridden by the next" + at(before->span.begin);
            }
            before = &value;
        }
    }
    for (const auto& [place, value] : latest) {
        if (value->overriddenBy != nullptr || place.first->member(place.second) != value) {
            return "the last does not count" + at(value->span.begin);
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
            return "no comment" + at(comment.begin);
        }
        text.replace(comment.begin, comment.end - comment.begin, comment.end - comment.begin, ' ');
    }
    std::string error;
    const Json without = Json::parse(text, error, json11::STANDARD);
    return error.empty() && without == json ? "" : "other comments";
}

std::string differenceInError(const Source& source) {
    const std::string& text = source.text();
    const size_t byte = source.error()->byte;
    if (byte > text.size() || !source.values().empty() || source.root() != nullptr) {
        return "values beside an error";
    }
    const Source before(text.substr(0, byte));
    if (before.error() && before.error()->byte != byte) {
        return "an error" + at(byte) + " behind another one" + at(before.error()->byte);
    }
    const Source with(text.substr(0, byte + 1));
    if (!with.error() || with.error()->byte != byte) {
        return "an error" + at(byte) + " that is none";
    }
    if (!source.comments().empty() && source.comments().back().end > byte) {
        return "a comment behind the error" + at(byte);
    }
    return "";
}

// Scans the same text between two others, which do not count.
std::string differenceInTheMidst(const Source& source) {
    const std::string before = "[\"\n";
    const size_t size = source.text().size();
    const Source midst(before + source.text() + "\"], 1", before.size(), before.size() + size);
    if (midst.values().size() != source.values().size() ||
        midst.error().has_value() != source.error().has_value()) {
        return "another result in the midst of a text";
    }
    if (midst.error() && (midst.error()->byte != source.error()->byte + before.size() ||
                          midst.error()->hint != source.error()->hint)) {
        return "another error in the midst of a text";
    }
    for (size_t i = 0; i < midst.values().size(); ++i) {
        if (midst.values()[i].span.begin != source.values()[i].span.begin + before.size() ||
            midst.values()[i].span.end != source.values()[i].span.end + before.size() ||
            midst.values()[i].number != source.values()[i].number) {
            return "another value in the midst of a text" + at(source.values()[i].span.begin);
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
        return error.empty() ? "an error" + at(source.error()->byte) + " of none"
                             : "no error, but \"" + error + '"';
    }
    std::string difference = differenceInTheMidst(source);
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
