#include "survey/words.h"

namespace qvgraph {

namespace {

const size_t MAX_QUOTE = 60;

// Where to cut a string that is longer than `limit` bytes; never within a code
// point if it is UTF-8.
size_t cutOf(std::string_view string, size_t limit) {
    const size_t maxRest = 3;
    for (size_t cut = limit; cut + maxRest >= limit; --cut) {
        if ((static_cast<unsigned char>(string[cut]) & 0xC0) != 0x80) {
            return cut;
        }
    }
    return limit;
}

}  // namespace

std::string quoted(std::string_view string) {
    if (string.size() <= MAX_QUOTE) {
        return "'" + std::string(string) + "'";
    }
    return "'" + std::string(string.substr(0, cutOf(string, MAX_QUOTE))) + "...'";
}

std::string inDoubleQuotes(std::string_view key) {
    return '"' + std::string(key) + '"';
}

std::string listOf(const std::vector<std::string>& words, size_t limit) {
    const bool isCut = words.size() > limit;
    const size_t shown = isCut ? limit : words.size();
    std::string list;
    for (size_t i = 0; i < shown; ++i) {
        const bool isLast = i + 1 == shown && !isCut;
        list += (i == 0 ? "" : isLast ? " and " : ", ") + words[i];
    }
    return isCut ? list + " and " + std::to_string(words.size() - shown) + " more" : list;
}

std::string counted(size_t number, const std::string& thing) {
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

std::string lowerCase(std::string_view string) {
    std::string lower(string);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return lower;
}

}  // namespace qvgraph
