// What keeps a text from being read, or from being read as it is meant.
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "check/rule.h"
#include "check/words.h"

namespace qvgraph {

using namespace std::string_view_literals;

namespace {

const std::string_view BYTE_ORDER_MARK = "\xef\xbb\xbf";

// The root of a document that loads; null where none does.
const Value* documentOf(const Subject& subject) {
    const Value* root = subject.source().root();
    return root == nullptr || root->kind == ValueKind::Null ? nullptr : root;
}

std::string_view textAt(const Source& source, Span span) {
    return std::string_view(source.text()).substr(span.begin, span.end - span.begin);
}

// ---- syntax -----------------------------------------------------------------

// The code point, or the byte that is no UTF-8, that stands at a place.
Span characterAt(const std::string& text, size_t byte) {
    const std::string_view behind = std::string_view(text).substr(byte, 4);
    for (size_t length = 0; length < behind.size(); ++length) {
        if (utf8::is_valid(behind.substr(0, length + 1))) {
            return {byte, byte + length + 1};
        }
    }
    return {byte, byte + (behind.empty() ? 0 : 1)};
}

void syntax(const Subject& subject, Reporter* report) {
    const Source& source = subject.source();
    if (!source.error()) {
        return;
    }
    const SyntaxError& error = *source.error();
    Finding& finding = report->at(characterAt(source.text(), error.byte), "", subject.jsonError());
    finding.hint = error.hint;
    if (error.opened) {
        finding.related.push_back({"opened here", *error.opened});
    }
    if (error.outdented) {
        finding.related.push_back(
            {"by its indent this belongs further out: is a } missing before it?",
             *error.outdented});
    }
}

const Rule SYNTAX = {
    "syntax",
    Severity::Error,
    "text",
    "The text is not JSON",
    "A configuration is one JSON document. Comments, // and /* */, may stand between its tokens; "
    "everything else that JSON does not know, such as a comma behind the last member, is refused.",
    "The load fails with -1, and the document before it is gone.",
    "Correct the text at the place that is named; what is open there may have been opened long "
    "before.",
    {R"({
  "pipe_0": {"default_mode_link": "sync"},
})",
     R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
     {}},
    {},
    syntax};

// ---- no-document ------------------------------------------------------------

void noDocument(const Subject& subject, Reporter* report) {
    const Value* root = subject.source().root();
    if (root != nullptr && root->kind == ValueKind::Null) {
        report->atValue(*root, "the document is null, which does not load").hint =
            R"(write an object with at least one pipe: {"pipe_0": {...}})";
    }
}

const Rule NO_DOCUMENT = {
    "no-document",
    Severity::Error,
    "text",
    "The document is null",
    "The text is JSON, but its value is null, which the parser cannot tell from having no document "
    "at all.",
    "The load fails with -1, and the document before it is gone.",
    "Write an object with the pipes.",
    {"null", R"({"pipe_0": {}})", {}},
    {},
    noDocument};

// ---- root-not-object --------------------------------------------------------

void rootNotObject(const Subject& subject, Reporter* report) {
    const Value* root = documentOf(subject);
    if (root != nullptr && !root->isObject()) {
        report
            ->atValue(*root,
                      std::string("the root is ") + toText(root->kind) +
                          ", not an object: it loads, and has no pipes")
            .hint = R"(write an object with at least one pipe: {"pipe_0": {...}})";
    }
}

const Rule ROOT_NOT_OBJECT = {
    "root-not-object",
    Severity::Error,
    "text",
    "The root is not an object",
    "The members of the root are the pipes, so the root has to be an object.",
    "The load succeeds, and the configuration has no pipes.",
    "Write an object with the pipes.",
    {R"([
  {"default_mode_link": "sync"}
])",
     R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
     {}},
    {"no-pipes"},
    rootNotObject};

// ---- no-pipes ---------------------------------------------------------------

void noPipes(const Subject& subject, Reporter* report) {
    const Value* root = documentOf(subject);
    if (root != nullptr && (!root->isObject() || root->children.empty())) {
        report->atValue(*root, "the configuration has no pipes").hint =
            R"(add a pipe: "pipe_0": {...})";
    }
}

const Rule NO_PIPES = {"no-pipes",
                       Severity::Warning,
                       "text",
                       "The root has no members",
                       "Each member of the root is a pipe; here there is none.",
                       "The load succeeds, and there is nothing to set up.",
                       "Add a pipe under the key 'pipe_0'.",
                       {"{}", R"({"pipe_0": {}})", {}},
                       {},
                       noPipes};

// ---- duplicate-key ----------------------------------------------------------

// Whether an object around a value is lost to a later one itself.
bool isInLost(const Value& value) {
    const Value* above = value.parent;
    while (above != nullptr && above->overriddenBy == nullptr) {
        above = above->parent;
    }
    return above != nullptr;
}

void duplicateKey(const Subject& subject, Reporter* report) {
    for (const Value& lost : subject.source().values()) {
        if (lost.overriddenBy == nullptr || isInLost(lost)) {
            continue;
        }
        const Value& later = *lost.overriddenBy;
        const bool wins = later.overriddenBy == nullptr;
        Finding& finding = report->atKey(
            later,
            quoted(later.key) + " stands in this object already: " +
                (wins ? "this one wins, and the one before is lost" : "both lose to a later one"));
        finding.related.push_back({"this one is lost", lost.keySpan});
        finding.hint = "remove one of them, or rename it";
    }
}

const Rule DUPLICATE_KEY = {
    "duplicate-key",
    Severity::Warning,
    "text",
    "An object has two members of one key",
    "Of several members of one object with the same key, the last in the text wins. The others are "
    "lost, with everything in them.",
    "Only the last one is there; nothing is logged.",
    "Remove one of the members, or give it a key of its own.",
    {R"({"pipe_0": {
  "default_mode_link": "sync",
  "default_mode_link": "async"
}})",
     R"({"pipe_0": {
  "default_mode_link": "async"
}})",
     {}},
    {},
    duplicateKey};

// ---- nul-in-text ------------------------------------------------------------

// ASCII with a NUL beside each character.
bool looksLikeUtf16(const std::string& text) {
    const std::string start = text.substr(0, 2);
    return start == "\xff\xfe" || start == "\xfe\xff" || start.find('\0') != std::string::npos;
}

void nulInText(const Subject& subject, Reporter* report) {
    const std::string& text = subject.source().text();
    const size_t nul = text.find('\0');
    if (nul == std::string::npos) {
        return;
    }
    const size_t behind = text.size() - nul - 1;
    std::string message = "the text has a NUL byte: a device reads up to it";
    if (behind > 0) {
        message += ", and not the " + counted(behind, "byte") + " behind it";
    }
    report->at({nul, nul + 1}, "", message).hint =
        looksLikeUtf16(text) ? "save the file as UTF-8; it seems to be UTF-16" : "remove it";
}

const Rule NUL_IN_TEXT = {
    "nul-in-text",
    Severity::Error,
    "text",
    "The text has a NUL byte",
    "To the parser a text ends at its first NUL byte, that of a file too. An editor may show the "
    "byte as a blank, or not at all.",
    "Everything behind the NUL is not read: the load fails, or the document is another one.",
    "Remove the byte. Where every second byte is a NUL, the file is UTF-16: save it as UTF-8.",
    {"{\"pipe_0\": {}}\n\0\n{\"pipe_1\": {}}"sv, R"({"pipe_0": {}})", {}},
    {"syntax"},
    nulInText};

// ---- byte-order-mark --------------------------------------------------------

void byteOrderMark(const Subject& subject, Reporter* report) {
    const std::string& text = subject.source().text();
    if (text.compare(0, BYTE_ORDER_MARK.size(), BYTE_ORDER_MARK) == 0) {
        report
            ->at({0, BYTE_ORDER_MARK.size()},
                 "",
                 "the text begins with a byte-order mark, with which it does not load")
            .hint = "save the file as UTF-8 without a byte-order mark";
    }
}

const Rule BYTE_ORDER_MARK_RULE = {
    "byte-order-mark",
    Severity::Error,
    "text",
    "The text begins with a byte-order mark",
    "Some editors put three invisible bytes, EF BB BF, before a text in UTF-8. JSON does not begin "
    "with them.",
    "The load fails with -1, and the document before it is gone.",
    "Save the file as UTF-8 without a byte-order mark.",
    {"\xef\xbb\xbf{\"pipe_0\": {}}", R"({"pipe_0": {}})", {}},
    {"syntax"},
    byteOrderMark};

// ---- invalid-utf8 -----------------------------------------------------------

// The first bytes in a part of the text that are no UTF-8; an empty span where
// there are none.
Span firstInvalid(const Source& source, Span span) {
    const std::string_view text = textAt(source, span);
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
    const char* what;
    Span span;
    std::string_view decoded;  // what its escapes make of it
    const Value* value;        // whose it is; null for a comment's
};

void reportPiece(const Source& source, const Piece& piece, Reporter* report) {
    const std::string pointer = piece.value == nullptr ? "" : pointerTo(*piece.value);
    const Span invalid = firstInvalid(source, piece.span);
    if (invalid.begin != invalid.end) {
        const bool isOne = invalid.end - invalid.begin == 1;
        report
            ->at(invalid,
                 pointer,
                 std::string("this ") + piece.what + " is not UTF-8: it has the " +
                     (isOne ? "byte " : "bytes ") + hexOf(textAt(source, invalid)))
            .hint = "save the file as UTF-8";
    } else {
        report
            ->at(piece.span,
                 pointer,
                 std::string("an escape in this ") + piece.what +
                     " is half of a surrogate pair, and read as bytes that are not UTF-8")
            .hint = "write the character itself, or both halves of the pair";
    }
}

bool isValid(const Source& source, const Piece& piece) {
    return utf8::is_valid(textAt(source, piece.span)) && utf8::is_valid(piece.decoded);
}

void invalidUtf8(const Subject& subject, Reporter* report) {
    if (documentOf(subject) == nullptr) {
        return;
    }
    const Source& source = subject.source();
    std::vector<Piece> pieces;
    for (const Value& value : source.values()) {
        pieces.push_back({"key", value.keySpan, value.key, &value});
        if (value.isString()) {
            pieces.push_back({"string", value.span, value.text, &value});
        }
    }
    for (const Span& comment : source.comments()) {
        pieces.push_back({"comment", comment, "", nullptr});
    }
    for (const Piece& piece : pieces) {
        if (!isValid(source, piece)) {
            reportPiece(source, piece, report);
        }
    }
}

const Rule INVALID_UTF8 = {
    "invalid-utf8",
    Severity::Warning,
    "text",
    "A key, a string or a comment is not UTF-8",
    "JSON is UTF-8. The parser does not look at that: it takes other bytes as they stand, and "
    "writes half of a surrogate pair, which an escape may stand for, as three bytes of its own.",
    "The bytes reach the option stores unchanged, and whoever shows or compares them may fail.",
    "Save the file as UTF-8; write surrogates in pairs.",
    {"{\"pipe_0\": {\n"
     "  \"default_mode_link\": \"caf\xe9\"\n"
     "}}",
     "{\"pipe_0\": {\n"
     "  \"default_mode_link\": \"caf\xc3\xa9\"\n"
     "}}",
     {}},
    {},
    invalidUtf8};

}  // namespace

std::vector<Rule> textRules() {
    return {SYNTAX,
            NO_DOCUMENT,
            ROOT_NOT_OBJECT,
            NO_PIPES,
            DUPLICATE_KEY,
            NUL_IN_TEXT,
            BYTE_ORDER_MARK_RULE,
            INVALID_UTF8};
}

}  // namespace qvgraph
