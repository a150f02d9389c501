#include "check/similar.h"

#include <algorithm>

namespace qvgraph {

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
            const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            const size_t swapped = isSwap ? before[j - 2] + 1 : replaced;
            row[j] = std::min({replaced, swapped, last[j] + 1, row[j - 1] + 1});
        }
    }
    return std::min(row.back(), limit + 1);
}

std::string nearestTo(std::string_view string, const std::vector<std::string>& candidates) {
    const size_t limit = std::clamp<size_t>(string.size() / 3, 1, 3);
    std::string nearest;
    size_t smallest = limit + 1;
    for (const std::string& candidate : candidates) {
        const size_t distance = distanceBetween(string, candidate, limit);
        if (distance < smallest) {
            smallest = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

}  // namespace qvgraph
