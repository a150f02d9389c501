#include "source/scanner.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>

#include "source/hint.h"
#include "source/utf8.h"

namespace qvgraph {

namespace {

// json11 takes a value in at most so many objects and arrays.
const size_t MOST_AROUND_A_VALUE = 200;

const std::string_view VALUE_STARTS = "{[\"tfn-0123456789";
const char* const BLANKS = " \t\r\n";
const char* const HEX_DIGITS = "0123456789abcdefABCDEF";

// What may follow a backslash, besides 'u', and what it stands for.
const std::string_view ESCAPES = "\"\\/bfnrt";
const std::string_view ESCAPED = "\"\\/\b\f\n\r\t";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Whether a byte stands for itself in a string.
bool isPlain(char c) {
    return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
}

bool isHighSurrogate(uint32_t unit) {
    return unit >= 0xd800 && unit <= 0xdbff;
}

bool isLowSurrogate(uint32_t unit) {
    return unit >= 0xdc00 && unit <= 0xdfff;
}

// How many hexadecimal digits an escape's four begin with.
size_t hexDigitsIn(std::string_view four) {
    return std::min(four.find_first_not_of(HEX_DIGITS), four.size());
}

uint32_t numberIn(std::string_view hexDigits) {
    uint32_t number = 0;
    std::from_chars(hexDigits.data(), hexDigits.data() + hexDigits.size(), number, 16);
    return number;
}

// A short integer is an int for json11, so that -0 is 0.
double numberIn(const std::string& token, bool isInteger) {
    if (isInteger && token.size() <= std::numeric_limits<int>::digits10) {
        return std::atoi(token.c_str());
    }
    return std::strtod(token.c_str(), nullptr);
}

// An object or array that is not closed yet.
struct Container {
    Value* value = nullptr;
    std::vector<Value*> values;  // right in it, in the order of the text
};

// Finishes an object whose members are `members`.
void settleMembers(std::vector<Value*> members, Value* object) {
    std::stable_sort(members.begin(), members.end(), [](const Value* a, const Value* b) {
        return a->key < b->key;
    });
    for (size_t i = 0; i < members.size(); ++i) {
        if (i + 1 < members.size() && members[i]->key == members[i + 1]->key) {
            members[i]->overriddenBy = members[i + 1];
        } else {
            object->children.push_back(members[i]);
        }
    }
}

// Each function named take... begins at the first byte of what it takes and
// ends behind the last one. It returns false where the text is no JSON, at the
// first byte that does not fit.
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
    bool takeString(std::string* decoded);
    bool takeEscape(std::string* decoded);
    bool takeCodeUnit(std::string* decoded);

    bool atEnd() const { return mAt == mText.size(); }
    bool sees(char c) const { return !atEnd() && mText[mAt] == c; }
    bool seesDigit() const { return !atEnd() && isDigit(mText[mAt]); }

    // Passes over a byte where it is there.
    bool skip(char c) {
        const bool there = sees(c);
        mAt += there ? 1U : 0U;
        return there;
    }

    Value& add(ValueKind kind);
    void finish(Value* value);
    bool fail(Awaited awaited);
    std::optional<Span> openedFor(Awaited awaited) const;
    size_t indentOfLine(size_t byte) const;
    std::optional<size_t> indentBefore(size_t byte) const;
    std::optional<Span> outdented() const;

    const std::string_view mText;
    const size_t mBegin;
    size_t mAt;
    size_t mToken = 0;  // where the latest token that can break off began
    Awaited mAwaited = Awaited::Document;
    std::vector<Container> mOpen;
    std::string mKey;  // of the member whose value comes next
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
        mScan.comments.push_back({mToken, crlf ? mAt - 1 : mAt});
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
    mScan.comments.push_back({mToken, mAt});
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
    if (mOpen.size() > MOST_AROUND_A_VALUE) {
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
        settleMembers(std::move(closed.values), closed.value);
    } else {
        closed.value->children.assign(closed.values.begin(), closed.values.end());
    }
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

// At least one.
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
    if (mOpen.size() > MOST_AROUND_A_VALUE) {
        return fail(Awaited::Shallower);
    }
    mKey.clear();
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

bool Scanner::takeString(std::string* decoded) {
    mToken = mAt++;
    for (;;) {
        const size_t plain = mAt;
        while (!atEnd() && isPlain(mText[mAt])) {
            ++mAt;
        }
        decoded->append(mText.substr(plain, mAt - plain));
        if (skip('"')) {
            return true;
        }
        if (!skip('\\')) {
            return fail(Awaited::Character);
        }
        if (!takeEscape(decoded)) {
            return false;
        }
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

// Takes four hexadecimal digits. Behind a high surrogate, takes the escape of
// the low one that completes it as well.
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

// A new value that begins here, within the innermost open container.
Value& Scanner::add(ValueKind kind) {
    Value& value = mScan.values.emplace_back();
    value.kind = kind;
    value.span.begin = mAt;
    if (!mOpen.empty()) {
        value.parent = mOpen.back().value;
        mOpen.back().values.push_back(&value);
        if (value.parent->isObject()) {
            value.key = std::move(mKey);
            value.keySpan = mKeySpan;
        }
    }
    return value;
}

void Scanner::finish(Value* value) {
    value->span.end = mAt;
    if (mOpen.empty()) {
        mAwaited = Awaited::End;
    } else {
        mAwaited = mOpen.back().value->isObject() ? Awaited::MemberEnd : Awaited::ElementEnd;
    }
}

bool Scanner::fail(Awaited awaited) {
    mScan.error = SyntaxError{mAt,
                              openedFor(awaited),
                              awaited == Awaited::MemberEnd && atEnd() ? outdented() : std::nullopt,
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
            // A string that reaches the end of its line has lost its quote.
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

// How many blanks the line of a byte begins with.
size_t Scanner::indentOfLine(size_t byte) const {
    const std::string_view before = mText.substr(mBegin, byte - mBegin);
    const size_t end = before.rfind('\n');
    const std::string_view line = before.substr(end == std::string_view::npos ? 0 : end + 1);
    return std::min(line.find_first_not_of(" \t"), line.size());
}

// How many blanks stand before a byte on its line; nothing where more does.
std::optional<size_t> Scanner::indentBefore(size_t byte) const {
    size_t begin = byte;
    while (begin > mBegin && (mText[begin - 1] == ' ' || mText[begin - 1] == '\t')) {
        --begin;
    }
    const bool isFirst = begin == mBegin || mText[begin - 1] == '\n';
    return isFirst ? std::optional(byte - begin) : std::nullopt;
}

// Keys that all stand equally far left tell nothing: an earlier member has to
// stand deeper or, before a key that has an indent at all, on the line that
// opens the object. Around the root there is nothing to belong to.
std::optional<Span> Scanner::outdented() const {
    const size_t beside = std::string_view::npos;
    struct Layout {
        size_t deepest;                 // of the keys that begin a line; `beside` before the first
        std::optional<size_t> opening;  // the indent of the line that opens the object
    };
    std::unordered_map<const Value*, Layout> layouts;
    for (const Value& value : mScan.values) {
        const Value* object = value.parent;
        if (object == nullptr || object->parent == nullptr || !object->isObject()) {
            continue;
        }
        const auto indent = indentBefore(value.keySpan.begin);
        const auto [found, isFirst] =
            layouts.emplace(object, Layout{indent.value_or(beside), std::nullopt});
        Layout& layout = found->second;
        if (!isFirst && indent) {
            if (!layout.opening) {
                layout.opening = indentOfLine(object->span.begin);
            }
            const bool isLeft = layout.deepest == beside ? *indent > 0 : *indent < layout.deepest;
            if (isLeft && *indent <= *layout.opening) {
                return value.keySpan;
            }
            layout.deepest = layout.deepest == beside ? *indent : std::max(layout.deepest, *indent);
        }
    }
    return std::nullopt;
}

}  // namespace

Scan scanText(std::string_view text, size_t begin) {
    return Scanner(text, begin).scan();
}

}  // namespace qvgraph
