#include "source/hint.h"

#include <algorithm>
#include <cstdio>

namespace qvgraph {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Letters of other alphabets are more than one byte, of 0x80 and above.
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isWordCharacter(char c) {
    return isLetter(c) || isDigit(c);
}

// The text before and after the byte at which scanning stopped.
struct Found {
    explicit Found(const Stop& stop)
        : before(stop.text.substr(stop.begin, stop.byte - stop.begin)),
          text(stop.text.substr(stop.byte)) {}

    bool atEnd() const { return text.empty(); }

    // REQUIRES, for these: not at the end.
    char first() const { return text[0]; }
    bool beginsWith(std::string_view what) const { return text.substr(0, what.size()) == what; }
    bool isOneOf(std::string_view what) const { return what.find(first()) != what.npos; }
    bool beginsWord() const { return isLetter(first()); }
    bool beginsNumber() const { return isDigit(first()) || first() == '-'; }
    bool beginsFraction() const { return first() == '.' && text.size() > 1 && isDigit(text[1]); }
    bool beginsValue() const { return isOneOf("\"{[") || beginsNumber() || beginsWord(); }

    bool isRightAfter(char c) const { return !before.empty() && before.back() == c; }
    bool isRightAfterWord() const { return !before.empty() && isWordCharacter(before.back()); }

    // After the number 0, but not after a number that ends with a 0.
    bool isRightAfterZero() const {
        return isRightAfter('0') &&
               (before.size() == 1 || !isWordCharacter(before[before.size() - 2]));
    }

    std::string_view before;
    std::string_view text;
};

// ---- Words and odd characters -----------------------------------------------

// The characters of a word that a text begins with, in lower case.
std::string wordIn(std::string_view text) {
    const auto* const end = std::find_if_not(text.begin(), text.end(), isWordCharacter);
    std::string word(text.begin(), end);
    std::transform(word.begin(), word.end(), word.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return word;
}

// For a word where a value is awaited, or that begins like one.
std::string hintForWord(const std::string& word) {
    for (const std::string intended : {"true", "false", "null"}) {
        if (word.size() > 1 && intended.compare(0, word.size(), word) == 0) {
            return "write " + intended;
        }
    }
    if (word == "none" || word == "nil" || word == "undefined") {
        return "write null";
    }
    if (word == "nan" || word == "inf" || word == "infinity") {
        return "write a number: JSON has neither NaN nor Infinity";
    }
    return "put the string in double quotes";
}

struct OddCharacter {
    std::string_view bytes;
    const char* hint;
};

const char* const PLAIN_QUOTE = "replace this with a plain double quote";

// Characters that never belong between tokens.
const OddCharacter ODD_CHARACTERS[] = {
    {"'", "use double quotes instead of single quotes"},
    {"`", "use double quotes instead of backticks"},
    {"#", "begin a comment with // instead of #"},
    {"*/", "remove this */: comments do not nest"},
    {{"\0", 1}, "remove this NUL byte"},
    {"\u201c", PLAIN_QUOTE},
    {"\u201d", PLAIN_QUOTE},
    {"\u201e", PLAIN_QUOTE},
    {"\u2018", PLAIN_QUOTE},
    {"\u2019", PLAIN_QUOTE},
    {"\u201a", PLAIN_QUOTE},
    {"\u00ab", PLAIN_QUOTE},
    {"\u00bb", PLAIN_QUOTE},
    {"\uff0c", "replace this with a plain comma"},
    {"\uff1a", "replace this with a plain colon"},
    {"\u00a0", "replace this no-break space with a plain space"},
    {"\u200b", "remove this invisible character"},
    {"\ufeff", "remove this invisible character"},
};

std::string hintForOddCharacter(const Found& found) {
    if (found.before.empty()) {
        if (found.beginsWith("\ufeff")) {
            return "remove the byte-order mark";
        }
        if (found.beginsWith("\xff\xfe") || found.beginsWith("\xfe\xff")) {
            return "save the file as UTF-8";
        }
    }
    for (const OddCharacter& odd : ODD_CHARACTERS) {
        if (found.beginsWith(odd.bytes)) {
            return odd.hint;
        }
    }
    return "";
}

// What follows a string or a word without a blank was probably intended as a
// part of it.
std::string hintForTail(const Found& found) {
    if (found.isRightAfter('"') && found.beginsWord()) {
        return "write \\\" for a double quote within a string";
    }
    if (!found.isRightAfterWord()) {
        return "";
    }
    if (found.isRightAfterZero() && found.isOneOf("xX")) {
        return "write the number in decimal";
    }
    if (found.beginsWord() || found.isOneOf(".:+-")) {
        return "put the string in double quotes";
    }
    return "";
}

// ---- Between tokens ---------------------------------------------------------

std::string hintForEnd(Awaited awaited) {
    switch (awaited) {
        case Awaited::Document:
            return "write an object, at least {}";
        case Awaited::FirstElement:
        case Awaited::ElementEnd:
            return "close the array with ]";
        case Awaited::NextElement:
            return "replace the comma with ]";
        case Awaited::FirstKey:
        case Awaited::MemberEnd:
            return "close the object with }";
        case Awaited::NextKey:
            return "replace the comma with }";
        case Awaited::Colon:
            return "add a colon and a value after the key";
        default:
            return "add a value after the colon";
    }
}

// For a bracket where an element is awaited.
std::string hintForElement(const Found& found, bool first) {
    if (found.first() == ']') {
        return "remove the comma before this bracket";
    }
    return first ? "close the array with ] here" : "replace the comma with ]";
}

// For anything else where a value is awaited.
std::string hintForValue(const Found& found, Awaited awaited) {
    if (found.beginsWord()) {
        return hintForWord(wordIn(found.text));
    }
    if (found.beginsFraction()) {
        return "write a 0 before the decimal point";
    }
    switch (found.first()) {
        case '+':
            return "remove the plus sign";
        case ':':
            return "remove this colon";
        case ',':
            return awaited == Awaited::MemberValue ? "add a value after the colon"
                                                   : "remove this comma";
        case ']':
        case '}':
            break;
        default:
            return "";
    }
    if (awaited == Awaited::MemberValue) {
        return "add a value after the colon";
    }
    if (awaited == Awaited::Document) {
        return "remove this bracket: nothing is open";
    }
    return hintForElement(found, awaited == Awaited::FirstElement);
}

// For anything else where a key is awaited.
std::string hintForKey(const Found& found, bool first) {
    switch (found.first()) {
        case '}':
            return "remove the comma before this bracket";
        case ']':
            return first ? "close the object with } here" : "replace the comma with }";
        case ',':
            return "remove this comma";
        case ':':
            return "add a key in double quotes before the colon";
        case '{':
        case '[':
            return "add a key and a colon before this value";
        default:
            return found.beginsWord() || found.beginsNumber() ? "put the key in double quotes" : "";
    }
}

std::string hintForColon(const Found& found) {
    if (found.isOneOf(",}]")) {
        return "add a colon and a value after the key";
    }
    if (found.first() == '=') {
        return "replace the equals sign with a colon";
    }
    if (found.first() == ';') {
        return "replace the semicolon with a colon";
    }
    return found.beginsValue() ? "add a colon between the key and its value" : "";
}

std::string hintForElementEnd(const Found& found) {
    switch (found.first()) {
        case '}':
            return "close the array with ] here";
        case ':':
            return "write members in { and } instead of [ and ]";
        case ';':
            return "replace the semicolon with a comma";
        default:
            return found.beginsValue() ? "add a comma before this value" : "";
    }
}

std::string hintForMemberEnd(const Found& found) {
    if (found.first() == ']') {
        return "close the object with } here";
    }
    if (found.first() == ';') {
        return "replace the semicolon with a comma";
    }
    if (found.first() == '"' || found.beginsWord()) {
        return "add a comma before this key";
    }
    return found.beginsValue() ? "add a comma and a key before this value" : "";
}

// Whether more members follow the bracket that closes the root: there is one
// bracket too many before them.
bool continuesWithMembers(const Found& found) {
    const char* const BLANKS = " \t\r\n";
    const size_t last = found.before.find_last_not_of(BLANKS);
    const size_t next = found.text.find_first_not_of(BLANKS, found.first() == ',' ? 1 : 0);
    return last != std::string_view::npos && found.before[last] == '}' &&
           next != std::string_view::npos && found.text[next] == '"';
}

std::string hintForTrailing(const Found& found) {
    if (found.isOneOf("]}")) {
        return "remove this bracket: nothing is open";
    }
    if (found.first() == ':' && found.isRightAfter('"')) {
        return "put the members in { and }";
    }
    if (continuesWithMembers(found)) {
        return "remove one } before this; it closes the document";
    }
    return "remove the text after the document";
}

std::string hintBetweenTokens(const Stop& stop) {
    const Found found(stop);
    if (found.atEnd()) {
        return hintForEnd(stop.awaited);
    }
    std::string hint = hintForOddCharacter(found);
    if (hint.empty()) {
        hint = hintForTail(found);
    }
    if (!hint.empty()) {
        return hint;
    }
    switch (stop.awaited) {
        case Awaited::FirstKey:
        case Awaited::NextKey:
            return hintForKey(found, stop.awaited == Awaited::FirstKey);
        case Awaited::Colon:
            return hintForColon(found);
        case Awaited::ElementEnd:
            return hintForElementEnd(found);
        case Awaited::MemberEnd:
            return hintForMemberEnd(found);
        case Awaited::End:
            return hintForTrailing(found);
        default:
            return hintForValue(found, stop.awaited);
    }
}

// ---- Within a token ---------------------------------------------------------

std::string hintForSign(const Found& found) {
    if (!found.atEnd() && found.beginsFraction()) {
        return "write a 0 before the decimal point";
    }
    if (!found.atEnd() && found.beginsWord()) {
        return hintForWord(wordIn(found.text));
    }
    return "add a digit after the minus sign";
}

// For a control character, or a string that does not end.
std::string hintForString(const Found& found) {
    if (found.atEnd()) {
        return "close the string with \"";
    }
    if (found.isOneOf("\n\r")) {
        return "close the string on its line, or write \\n for a line break";
    }
    if (found.first() == '\t') {
        return "write \\t for a tab";
    }
    char hint[64];
    const unsigned byte = static_cast<unsigned char>(found.first());
    std::snprintf(hint, sizeof(hint), "write \\u%04x for this control character", byte);
    return hint;
}

std::string hintForEscape(const Found& found) {
    if (found.atEnd() || found.isOneOf("\n\r")) {
        return hintForString(found);
    }
    if (found.first() == '\'') {
        return "write ' without a backslash";
    }
    if (found.first() == 'x') {
        return "write \\u00 instead of \\x";
    }
    return "write \\\\ for a backslash";
}

std::string hintForHexDigit(const Found& found) {
    if (found.atEnd() || found.isOneOf("\n\r")) {
        return hintForString(found);
    }
    return "write four hexadecimal digits after \\u, or \\\\ for a backslash";
}

}  // namespace

std::string hintFor(const Stop& stop) {
    switch (stop.awaited) {
        case Awaited::Letter:
            return hintForWord(wordIn(stop.text.substr(stop.token)));
        case Awaited::IntegerDigit:
            return hintForSign(Found(stop));
        case Awaited::NoMoreDigit:
            return "remove the leading zero";
        case Awaited::FractionDigit:
            return "add a digit after the decimal point";
        case Awaited::ExponentDigit:
            return "add a digit to the exponent";
        case Awaited::Character:
            return hintForString(Found(stop));
        case Awaited::Escape:
            return hintForEscape(Found(stop));
        case Awaited::HexDigit:
            return hintForHexDigit(Found(stop));
        case Awaited::CommentStart:
            return "begin a comment with // or /*";
        case Awaited::CommentEnd:
            return "close the comment with */";
        case Awaited::Shallower:
            return "nest at most 200 objects and arrays";
        default:
            return hintBetweenTokens(stop);
    }
}

}  // namespace qvgraph
