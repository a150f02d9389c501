#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "graph/qv_graph_internal.h"

namespace {

const int32_t MIN_INT32 = std::numeric_limits<int32_t>::min();
const int32_t MAX_INT32 = std::numeric_limits<int32_t>::max();

}  // namespace

// strtoll saturates too, so a number of any length gives the right result.
int32_t leadingInt32(const char* text) {
    const long long number = strtoll(text, nullptr, 10);
    return static_cast<int32_t>(
        std::max<long long>(MIN_INT32, std::min<long long>(number, MAX_INT32)));
}

int32_t toInt32(double number) {
    if (number >= MAX_INT32) {
        return MAX_INT32;
    }
    if (number <= MIN_INT32) {
        return MIN_INT32;
    }
    return std::isnan(number) ? 0 : static_cast<int32_t>(number);
}
