// Random documents, and the same documents with mistakes. The seed is fixed: every run sees the same texts.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "source/source.h"
#include "tests/support/same_as_json11.h"

namespace {

using Texts = std::vector<std::string>;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

const Texts BLANKS = {" ", "\n", "\r\n", "\t", "\r", "  ", "// c\n", "//\r\n", "/* c */", "/**/"};
const Texts CHARACTERS = {"a",         "b",         "node_",     "é",         "扉",
                          "🚪",         "\xff",      "\xc3",      "\x7f",      "'",
                          "/",         "//",        "/*",        R"(\")",     R"(\\)",
                          R"(\/)",     R"(\b)",     R"(\n)",     R"(\u0061)", R"(\u0000)",
                          R"(\u00e9)", R"(\ud83d)", R"(\udeaa)", R"(\uFFFF)", R"(\u001f)",
                          "[",         "}",         ",",         ":",         "0"};
const Texts SCALARS = {"null",
                       "true",
                       "false",
                       "0",
                       "-0",
                       "7",
                       "-1",
                       "123456789",
                       "1234567890",
                       "-123456789",
                       "1.5",
                       "-0.0",
                       "1e999",
                       "-1E-999",
                       "12.5e+1",
                       "2147483648",
                       "0e0",
                       "0.1"};
const Texts TOKENS = {"{",       "}",    "[",      "]",   ",",  ":",  "\"",
                      "\"a\"",   "1",    "-",      "0",   ".",  "e",  "+",
                      "true",    "nul",  "//",     "/*",  "*/", "/",  "\n",
                      "\\",      "\\u",  "\xff",   "\0"s, "'",  "#",  "\xef\xbb\xbf",
                      "\\ud83d", "\x1f", "\"a\":", "NaN", "01", "[[", "]]"};

class RandomTexts {
public:
    explicit RandomTexts(unsigned seed) : mNumbers(seed) {}

    std::string document() {
        std::string text = gap();
        appendValue(3, &text);
        return text + gap();
    }

    // The text with one to three mistakes.
    std::string mutated(std::string text) {
        for (size_t i = below(3) + 1; i > 0; --i) {
            mutate(&text);
        }
        return text;
    }

private:
    size_t below(size_t limit) { return mNumbers() % limit; }
    const std::string& oneOf(const Texts& texts) { return texts[below(texts.size())]; }
    std::string gap() { return below(4) == 0 ? oneOf(BLANKS) + oneOf(BLANKS) : ""; }

    std::string string() {
        std::string text = "\"";
        for (size_t i = below(4); i > 0; --i) {
            text += oneOf(CHARACTERS);
        }
        return text + '"';
    }

    void appendValue(int depth, std::string* text) {
        switch (below(depth > 0 ? 4 : 2)) {
            case 0:
                *text += oneOf(SCALARS);
                break;
            case 1:
                *text += string();
                break;
            case 2:
                appendContainer("[]", depth, text);
                break;
            default:
                appendContainer("{}", depth, text);
                break;
        }
    }

    void appendContainer(const std::string& brackets, int depth, std::string* text) {
        *text += brackets[0] + gap();
        for (size_t i = 0, count = below(5); i < count; ++i) {
            *text += i > 0 ? gap() + ',' + gap() : "";
            if (brackets == "{}") {
                *text += string() + gap() + ':' + gap();
            }
            appendValue(depth - 1, text);
        }
        *text += gap() + brackets[1];
    }

    void mutate(std::string* text) {
        const size_t at = below(text->size() + 1);
        switch (below(5)) {
            case 0:
                text->insert(at, oneOf(TOKENS));
                break;
            case 1:
                text->erase(at, below(3) + 1);
                break;
            case 2:
                if (at < text->size()) {
                    (*text)[at] = static_cast<char>((*text)[at] ^ (1 << below(8)));
                }
                break;
            case 3:
                text->replace(at, 1, oneOf(TOKENS));
                break;
            default:
                swapParts(text);
                break;
        }
    }

    void swapParts(std::string* text) {
        const size_t cut = below(text->size() + 1);
        const size_t first = below(cut + 1);
        const std::string before = text->substr(first, cut - first);
        const size_t length = below(8);
        const std::string after = text->substr(cut, length);
        text->replace(first, before.size() + after.size(), after + before);
    }

    std::mt19937 mNumbers;
};

TEST(RandomTextsTest, DocumentsAreReadAsJson11ReadsThem) {
    RandomTexts texts(1);
    for (int i = 0; i < 8000; ++i) {
        const std::string text = texts.document();
        ASSERT_FALSE(qvgraph::Source(text).error()) << text;
        ASSERT_EQ(differenceFromJson11(text), "") << text;
    }
}

TEST(RandomTextsTest, MistakesAreErrorsIfTheyAreErrorsForJson11) {
    RandomTexts texts(2);
    int wrong = 0;
    for (int i = 0; i < 16000; ++i) {
        const std::string text = texts.mutated(texts.document());
        wrong += qvgraph::Source(text).error() ? 1 : 0;
        ASSERT_EQ(differenceFromJson11(text), "") << text;
    }
    EXPECT_GT(wrong, 8000) << "most mistakes do harm";
    EXPECT_LT(wrong, 15000) << "not all of them do";
}

TEST(RandomTextsTest, TokensInAnyOrderAreReadAsJson11ReadsThem) {
    std::mt19937 numbers(3);
    for (int i = 0; i < 8000; ++i) {
        std::string text;
        for (size_t length = numbers() % 8; length > 0; --length) {
            text += TOKENS[numbers() % TOKENS.size()];
        }
        ASSERT_EQ(differenceFromJson11(text), "") << text;
    }
}

}  // namespace
