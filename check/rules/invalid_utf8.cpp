#include <utf8cpp/utf8.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "check/document.h"
#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The first run of bytes in a span that are not UTF-8; empty if there are none.
Span firstInvalid(const Source& source, Span span) {
    const std::string_view text = source.text(span);
    const size_t begin = std::min(utf8::find_invalid(text), text.size());
    size_t end = begin;
    while (end < text.size() && utf8::find_invalid(text.substr(end, 4)) == 0) {
        ++end;
    }
    return {span.begin + begin, span.begin + end};
}

std::string hexOf(std::string_view bytes) {
    const std::string_view digits = "0123456789abcdef";
    std::vector<std::string> words;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        words.push_back(std::string("0x") + digits[byte / 16] + digits[byte % 16]);
    }
    return listOf(words, 4);
}

// A key, a string or a comment.
struct Piece {
    const char* name;
    Span span;
    std::string_view decoded;  // with its escapes replaced
    const Value* value;        // that it belongs to; null for a comment
};

void reportBytes(const Source& source, const Piece& piece, Span invalid, Reporter* report) {
    const bool isOne = invalid.end - invalid.begin == 1;
    const std::string bytes = isOne ? "byte" : "bytes";
    const std::string outcome =
        piece.value == nullptr ? "the device ignores the comment" : "the device keeps the " + bytes;
    report
        ->at(invalid,
             piece.value == nullptr ? "" : pointerTo(*piece.value),
             std::string("this ") + piece.name + " contains the " + bytes + ' ' +
                 hexOf(source.text(invalid)) + ", which " + (isOne ? "is" : "are") +
                 " not UTF-8: " + outcome)
        .hint = "save the file as UTF-8";
}

void reportSurrogate(const Piece& piece, Reporter* report) {
    report
        ->at(piece.span,
             pointerTo(*piece.value),
             std::string("this ") + piece.name +
                 " contains an escape for half of a surrogate pair: the device reads it as bytes "
                 "that are not UTF-8")
        .hint = "write the character itself, or both halves of the pair";
}

void checkPiece(const Source& source, const Piece& piece, Reporter* report) {
    const Span invalid = firstInvalid(source, piece.span);
    if (invalid.begin != invalid.end) {
        reportBytes(source, piece, invalid, report);
    } else if (!utf8::is_valid(piece.decoded)) {
        reportSurrogate(piece, report);
    }
}

void invalidUtf8(const Model& model, Reporter* report) {
    if (documentOf(model) == nullptr) {
        return;
    }
    const Source& source = model.source();
    for (const Value& value : source.values()) {
        checkPiece(source, {"key", value.keySpan, value.key, &value}, report);
        if (value.isString()) {
            checkPiece(source, {"string", value.span, value.text, &value}, report);
        }
    }
    for (const Span& comment : source.comments()) {
        checkPiece(source, {"comment", comment, "", nullptr}, report);
    }
}

}  // namespace

constinit const Rule INVALID_UTF8 = {
    .code = "invalid-utf8",
    .severity = Severity::Warning,
    .family = "text",
    .title = "A key, a string or a comment is not valid UTF-8",
    .explanation =
        "JSON is UTF-8, but the parser does not check the encoding. It keeps other bytes "
        "unchanged, and it reads an escape for half of a surrogate pair as three bytes that are "
        "not UTF-8.",
    .device =
        "The bytes reach the option stores unchanged. Code that displays or compares them may "
        "fail.",
    .fix = "Save the file as UTF-8, and write surrogates in pairs.",
    .example =
        {
            .wrong = "{\"pipe_0\": {\n"
                     "  \"default_mode_link\": \"caf\xe9\"\n"
                     "}}",
            .fixed = "{\"pipe_0\": {\n"
                     "  \"default_mode_link\": \"caf\xc3\xa9\"\n"
                     "}}",
        },
    .find = invalidUtf8,
};

}  // namespace qvgraph
