#include "check/words.h"

#include <algorithm>

namespace qvgraph {

namespace {

const size_t LONGEST_QUOTE = 60;

// Where to end a text that is longer than `most` bytes: not within a code point,
// as far as it has such.
size_t cutOf(std::string_view text, size_t most) {
    const size_t longestRest = 3;
    for (size_t cut = most; cut + longestRest >= most; --cut) {
        if ((static_cast<unsigned char>(text[cut]) & 0xC0) != 0x80) {
            return cut;
        }
    }
    return most;
}

}  // namespace

std::string quoted(std::string_view text) {
    if (text.size() <= LONGEST_QUOTE) {
        return "'" + std::string(text) + "'";
    }
    return "'" + std::string(text.substr(0, cutOf(text, LONGEST_QUOTE))) + "...'";
}

std::string listOf(const std::vector<std::string>& words, size_t most) {
    const bool isCut = words.size() > most;
    const size_t shown = isCut ? most : words.size();
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

// The optimal string alignment distance, row by row.
size_t distanceBetween(std::string_view a, std::string_view b, size_t limit) {
    const size_t longer = std::max(a.size(), b.size());
    if (longer - std::min(a.size(), b.size()) > limit) {
        return limit + 1;
    }
    std::vector<size_t> before;
    std::vector<size_t> last(b.size() + 1);
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (size_t i = 1; i <= a.size(); ++i) {
        before = last;
        last = row;
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
    }
    return std::min(row.back(), limit + 1);
}

std::string nearestTo(std::string_view text, const std::vector<std::string>& candidates) {
    const size_t limit = std::clamp<size_t>(text.size() / 3, 1, 3);
    std::string nearest;
    size_t least = limit + 1;
    for (const std::string& candidate : candidates) {
        const size_t distance = distanceBetween(text, candidate, limit);
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

}  // namespace qvgraph
