#include "source/scanner.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

#include "source/hint.h"
#include "source/outdented.h"
#include "source/utf8.h"

namespace qvgraph {

namespace {

// The maximum number of objects and arrays around a value in json11.
const size_t MAX_AROUND_A_VALUE = 200;

const std::string_view VALUE_STARTS = "{[\"tfn-0123456789";
const char* const BLANKS = " \t\r\n";
const char* const HEX_DIGITS = "0123456789abcdefABCDEF";

// What may follow a backslash, except 'u', and what it represents.
const std::string_view ESCAPES = "\"\\/bfnrt";
const std::string_view ESCAPED = "\"\\/\b\f\n\r\t";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Whether a byte represents itself in a string.
bool isPlain(char c) {
    return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
}

bool isHighSurrogate(uint32_t unit) {
    return unit >= 0xd800 && unit <= 0xdbff;
}

bool isLowSurrogate(uint32_t unit) {
    return unit >= 0xdc00 && unit <= 0xdfff;
}

// The number of hexadecimal digits that the four characters begin with.
size_t hexDigitsIn(std::string_view four) {
    return std::min(four.find_first_not_of(HEX_DIGITS), four.size());
}

uint32_t numberIn(std::string_view hexDigits) {
    uint32_t number = 0;
    std::from_chars(hexDigits.data(), hexDigits.data() + hexDigits.size(), number, 16);
    return number;
}

// For json11, a short integer is an int, so -0 is 0.
double numberIn(const std::string& token, bool isInteger) {
    if (isInteger && token.size() <= std::numeric_limits<int>::digits10) {
        return std::atoi(token.c_str());
    }
    return std::strtod(token.c_str(), nullptr);
}

// An object or array that is not closed yet.
struct Container {
    Value* value = nullptr;
    std::vector<Value*> values;  // directly in it, in the order of the text
};

// Sorts the members of an object, and links those that have the same key. Keeps
// the last of these.
void settleMembers(std::vector<Value*>* members) {
    std::stable_sort(members->begin(), members->end(), [](const Value* a, const Value* b) {
        return a->key < b->key;
    });
    size_t kept = 0;
    for (size_t i = 0; i < members->size(); ++i) {
        Value* const member = (*members)[i];
        if (i + 1 < members->size() && member->key == (*members)[i + 1]->key) {
            member->overriddenBy = (*members)[i + 1];
        } else {
            (*members)[kept++] = member;
        }
    }
    members->resize(kept);
}

// Each function named take... begins at the first byte of what it takes and
// ends after the last one. If the text is not JSON, it stops at the first byte
// that does not fit and returns false.
class Scanner {
public:
    Scanner(std::string_view text, size_t begin) : mText(text), mBegin(begin), mAt(begin) {}

    Scan scan();

private:
    bool takeGap();
    bool takeComment();
    bool takeToken();
    bool takeMark(Awaited next);
    bool takeValue();
    bool takeOpening(ValueKind kind, Awaited next);
    bool takeClosing();
    bool takeWord(std::string_view word, ValueKind kind);
    bool takeNumber();
    bool takeDigits();
    bool takeKey();
    bool takeStringValue();
    bool takeString(std::string_view* decoded);
    bool takeEscapedString(std::string_view* decoded);
    void skipPlain();
    bool takeEscape(std::string* decoded);
    bool takeCodeUnit(std::string* decoded);

    bool atEnd() const { return mAt == mText.size(); }
    bool sees(char c) const { return !atEnd() && mText[mAt] == c; }
    bool seesDigit() const { return !atEnd() && isDigit(mText[mAt]); }

    // Skips the byte if it is next; whether it was.
    bool skip(char c) {
        const bool there = sees(c);
        mAt += there ? 1U : 0U;
        return there;
    }

    Value& add(ValueKind kind);
    void finish(Value* value);
    bool fail(Awaited awaited);
    std::optional<Span> openedFor(Awaited awaited) const;

    const std::string_view mText;
    const size_t mBegin;
    size_t mAt;
    size_t mToken = 0;  // where the latest token that may be incomplete began
    Awaited mAwaited = Awaited::Document;
    std::vector<Container> mOpen;
    std::string_view mKey;  // of the member whose value comes next
    Span mKeySpan;
    Scan mScan;
};

Scan Scanner::scan() {
    while (takeGap() && !atEnd() && takeToken()) {
    }
    if (!mScan.error && mAwaited != Awaited::End) {
        fail(mAwaited);
    }
    if (mScan.error) {
        mScan.values.clear();
    }
    return std::move(mScan);
}

// ---- Between tokens ---------------------------------------------------------

bool Scanner::takeGap() {
    do {
        mAt = std::min(mText.find_first_not_of(BLANKS, mAt), mText.size());
    } while (sees('/') && takeComment());
    return !mScan.error;
}

bool Scanner::takeComment() {
    mToken = mAt++;
    if (sees('/')) {
        mAt = std::min(mText.find('\n', mAt), mText.size());
        const bool crlf = !atEnd() && mText[mAt - 1] == '\r';
        mScan.comments.emplace_back(mToken, crlf ? mAt - 1 : mAt);
        return true;
    }
    if (!sees('*')) {
        return fail(Awaited::CommentStart);
    }
    const size_t end = mText.find("*/", mAt + 1);
    if (end == std::string_view::npos) {
        mAt = mText.size();
        return fail(Awaited::CommentEnd);
    }
    mAt = end + 2;
    mScan.comments.emplace_back(mToken, mAt);
    return true;
}

bool Scanner::takeToken() {
    switch (mAwaited) {
        case Awaited::FirstElement:
            return sees(']') ? takeClosing() : takeValue();
        case Awaited::FirstKey:
            return sees('}') ? takeClosing() : takeKey();
        case Awaited::NextKey:
            return takeKey();
        case Awaited::Colon:
            return sees(':') ? takeMark(Awaited::MemberValue) : fail(mAwaited);
        case Awaited::ElementEnd:
            if (sees(']')) {
                return takeClosing();
            }
            return sees(',') ? takeMark(Awaited::NextElement) : fail(mAwaited);
        case Awaited::MemberEnd:
            if (sees('}')) {
                return takeClosing();
            }
            return sees(',') ? takeMark(Awaited::NextKey) : fail(mAwaited);
        case Awaited::End:
            return fail(mAwaited);
        default:
            return takeValue();
    }
}

// Takes a comma or a colon.
bool Scanner::takeMark(Awaited next) {
    ++mAt;
    mAwaited = next;
    return true;
}

// ---- Values -----------------------------------------------------------------

bool Scanner::takeValue() {
    if (VALUE_STARTS.find(mText[mAt]) == std::string_view::npos) {
        return fail(mAwaited);
    }
    if (mOpen.size() > MAX_AROUND_A_VALUE) {
        return fail(Awaited::Shallower);
    }
    switch (mText[mAt]) {
        case '{':
            return takeOpening(ValueKind::Object, Awaited::FirstKey);
        case '[':
            return takeOpening(ValueKind::Array, Awaited::FirstElement);
        case '"':
            return takeStringValue();
        case 't':
            return takeWord("true", ValueKind::Bool);
        case 'f':
            return takeWord("false", ValueKind::Bool);
        case 'n':
            return takeWord("null", ValueKind::Null);
        default:
            return takeNumber();
    }
}

bool Scanner::takeOpening(ValueKind kind, Awaited next) {
    Value& value = add(kind);
    mOpen.push_back({&value, {}});
    return takeMark(next);
}

bool Scanner::takeClosing() {
    ++mAt;
    Container closed = std::move(mOpen.back());
    mOpen.pop_back();
    if (closed.value->isObject()) {
        settleMembers(&closed.values);
    }
    // Arrays of their own: values without children, which most are, stay small.
    const size_t count = closed.values.size();
    auto& children = mScan.children.emplace_back(std::make_unique<const Value*[]>(count));
    std::copy(closed.values.begin(), closed.values.end(), children.get());
    closed.value->children = {children.get(), count};
    finish(closed.value);
    return true;
}

// As in json11, a word ends with its last letter, whatever follows it.
bool Scanner::takeWord(std::string_view word, ValueKind kind) {
    Value& value = add(kind);
    mToken = mAt;
    for (const char letter : word) {
        if (!sees(letter)) {
            return fail(Awaited::Letter);
        }
        ++mAt;
    }
    finish(&value);
    return true;
}

bool Scanner::takeNumber() {
    Value& value = add(ValueKind::Number);
    mToken = mAt;
    skip('-');
    const bool isZero = skip('0');
    if (isZero && seesDigit()) {
        return fail(Awaited::NoMoreDigit);
    }
    if (!isZero && !takeDigits()) {
        return fail(Awaited::IntegerDigit);
    }
    bool isInteger = true;
    if (skip('.')) {
        isInteger = false;
        if (!takeDigits()) {
            return fail(Awaited::FractionDigit);
        }
    }
    if (skip('e') || skip('E')) {
        isInteger = false;
        if (!skip('+')) {
            skip('-');
        }
        if (!takeDigits()) {
            return fail(Awaited::ExponentDigit);
        }
    }
    value.number = numberIn(std::string(mText.substr(mToken, mAt - mToken)), isInteger);
    finish(&value);
    return true;
}

// Takes at least one digit.
bool Scanner::takeDigits() {
    const size_t begin = mAt;
    while (seesDigit()) {
        ++mAt;
    }
    return mAt > begin;
}

// ---- Strings ----------------------------------------------------------------

bool Scanner::takeKey() {
    if (!sees('"')) {
        return fail(mAwaited);
    }
    if (mOpen.size() > MAX_AROUND_A_VALUE) {
        return fail(Awaited::Shallower);
    }
    if (!takeString(&mKey)) {
        return false;
    }
    mKeySpan = {mToken, mAt};
    mAwaited = Awaited::Colon;
    return true;
}

bool Scanner::takeStringValue() {
    Value& value = add(ValueKind::String);
    if (!takeString(&value.text)) {
        return false;
    }
    finish(&value);
    return true;
}

// Most strings have no escapes; their value is the text between the quotes.
bool Scanner::takeString(std::string_view* decoded) {
    mToken = mAt++;
    const size_t begin = mAt;
    skipPlain();
    if (!sees('"')) {
        return takeEscapedString(decoded);
    }
    *decoded = mText.substr(begin, mAt - begin);
    ++mAt;
    return true;
}

// Takes the rest of a string, and decodes all of it.
bool Scanner::takeEscapedString(std::string_view* decoded) {
    std::string& string = mScan.decoded.emplace_back(mText.substr(mToken + 1, mAt - mToken - 1));
    while (!skip('"')) {
        if (!skip('\\')) {
            return fail(Awaited::Character);
        }
        if (!takeEscape(&string)) {
            return false;
        }
        const size_t plain = mAt;
        skipPlain();
        string.append(mText.substr(plain, mAt - plain));
    }
    *decoded = string;
    return true;
}

void Scanner::skipPlain() {
    while (!atEnd() && isPlain(mText[mAt])) {
        ++mAt;
    }
}

bool Scanner::takeEscape(std::string* decoded) {
    if (skip('u')) {
        return takeCodeUnit(decoded);
    }
    const size_t which = atEnd() ? std::string_view::npos : ESCAPES.find(mText[mAt]);
    if (which == std::string_view::npos) {
        return fail(Awaited::Escape);
    }
    ++mAt;
    decoded->push_back(ESCAPED[which]);
    return true;
}

// Takes four hexadecimal digits. After a high surrogate, also takes the escape of
// the low surrogate that completes it.
bool Scanner::takeCodeUnit(std::string* decoded) {
    const std::string_view digits = mText.substr(mAt, 4);
    mAt += hexDigitsIn(digits);
    if (hexDigitsIn(digits) < 4) {
        return fail(Awaited::HexDigit);
    }
    uint32_t codePoint = numberIn(digits);
    const std::string_view next = mText.substr(mAt, 6);
    if (isHighSurrogate(codePoint) && next.substr(0, 2) == "\\u" &&
        hexDigitsIn(next.substr(2)) == 4 && isLowSurrogate(numberIn(next.substr(2)))) {
        codePoint = 0x10000 + ((codePoint - 0xd800) << 10) + (numberIn(next.substr(2)) - 0xdc00);
        mAt += next.size();
    }
    appendUtf8(codePoint, decoded);
    return true;
}

// ---- Results ----------------------------------------------------------------

// Adds a value that begins here to the innermost open container.
Value& Scanner::add(ValueKind kind) {
    Value& value = mScan.values.emplace_back();
    value.kind = kind;
    value.span = {mAt, mAt};
    if (!mOpen.empty()) {
        value.parent = mOpen.back().value;
        mOpen.back().values.push_back(&value);
        if (value.parent->isObject()) {
            value.key = mKey;
            value.keySpan = mKeySpan;
        }
    }
    return value;
}

void Scanner::finish(Value* value) {
    value->span = {value->span.begin, mAt};
    if (mOpen.empty()) {
        mAwaited = Awaited::End;
    } else {
        mAwaited = mOpen.back().value->isObject() ? Awaited::MemberEnd : Awaited::ElementEnd;
    }
}

bool Scanner::fail(Awaited awaited) {
    mScan.error = SyntaxError{mAt,
                              openedFor(awaited),
                              awaited == Awaited::MemberEnd && atEnd()
                                  ? firstOutdented(mText, mBegin, mScan.values)
                                  : std::nullopt,
                              hintFor({mText, mBegin, mAt, mToken, awaited})};
    return false;
}

std::optional<Span> Scanner::openedFor(Awaited awaited) const {
    switch (awaited) {
        case Awaited::CommentEnd:
            return Span{mToken, mToken + 2};
        case Awaited::Character:
        case Awaited::Escape:
        case Awaited::HexDigit:
            // A string that reaches the end of its line lacks its closing quote.
            if (atEnd() || sees('\n') || sees('\r')) {
                return Span{mToken, mToken + 1};
            }
            return std::nullopt;
        default:
            break;
    }
    if (mOpen.empty()) {
        return std::nullopt;
    }
    const Value& innermost = *mOpen.back().value;
    if (atEnd() || sees(innermost.isObject() ? ']' : '}')) {
        return Span{innermost.span.begin, innermost.span.begin + 1};
    }
    return std::nullopt;
}

}  // namespace

Scan scanText(std::string_view text, size_t begin) {
    return Scanner(text, begin).scan();
}

}  // namespace qvgraph
