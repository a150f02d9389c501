#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/families.h"
#include "check/rules.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// A key with a number that maps back to it.
struct NumberedKey {
    const Value* value = nullptr;
    int number = 0;
};

std::vector<NumberedKey> numberedKeys(const Family& family) {
    std::vector<NumberedKey> keys;
    for (const Member& member : family.members) {
        if (member.canonical) {
            keys.push_back({member.value, member.id});
        }
    }
    return keys;
}

std::vector<NumberedKey> numberedKeys(Members members, const char* prefix) {
    std::vector<NumberedKey> keys;
    for (const Value* value : members) {
        const std::string_view key = value->key;
        int number = 0;
        std::from_chars(
            key.data() + std::string_view(prefix).size(), key.data() + key.size(), number);
        if (key == indexedKey(prefix, number)) {
            keys.push_back({value, number});
        }
    }
    return keys;
}

// The first key that sorts before one with a smaller number, and the next key
// with a smaller number; nothing if keys and numbers sort alike.
std::optional<std::pair<NumberedKey, NumberedKey>> firstOutOfOrder(
    const std::vector<NumberedKey>& keys) {
    std::vector<int> smallest(keys.size() + 1, std::numeric_limits<int>::max());
    for (size_t i = keys.size(); i-- > 0;) {
        smallest[i] = std::min(smallest[i + 1], keys[i].number);
    }
    for (size_t i = 0; i < keys.size(); ++i) {
        if (smallest[i + 1] >= keys[i].number) {
            continue;
        }
        size_t smaller = i + 1;
        while (keys[smaller].number >= keys[i].number) {
            ++smaller;
        }
        return std::make_pair(keys[i], keys[smaller]);
    }
    return std::nullopt;
}

// The number of digits of the longest number, at least 1.
size_t maxDigits(const std::vector<NumberedKey>& keys) {
    size_t digits = 1;
    for (const NumberedKey& key : keys) {
        const std::string number = std::to_string(key.number);
        digits = std::max(digits, number.size() - (number[0] == '-' ? 1U : 0U));
    }
    return digits;
}

void checkOrder(const std::vector<NumberedKey>& keys, const std::string& hint, Reporter* report) {
    if (const auto pair = firstOutOfOrder(keys)) {
        const auto& [greater, smaller] = *pair;
        Finding& finding =
            report->atKey(*greater.value,
                          quoted(greater.value->key) + " sorts before " +
                              quoted(smaller.value->key) + ": the device reads keys in byte order");
        finding.related.push_back({"sorts later", smaller.value->keySpan});
        finding.hint = hint;
    }
}

// An id cannot have leading zeros, so the hint starts at 10, 100 and so on.
void checkIds(const Family& family, Reporter* report) {
    const std::vector<NumberedKey> keys = numberedKeys(family);
    const std::string first = '1' + std::string(maxDigits(keys) - 1, '0');
    checkOrder(keys,
               "if the order matters, number the keys from '" + (family.prefix + first) + "'",
               report);
}

// The suffix of a stream's key can be any string.
void checkStreams(const Side& side, Reporter* report) {
    const std::vector<NumberedKey> keys = numberedKeys(side.nameMembers, side.nameFamily);
    const std::string first(maxDigits(keys), '0');
    checkOrder(keys,
               "if the order matters, number the keys from '" + (side.nameFamily + first) +
                   "', and their formats likewise",
               report);
}

void keyOrder(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        for (const Family& family : familiesOf(pipe)) {
            checkIds(family, report);
        }
        for (const Node& node : pipe.nodes) {
            checkStreams(node.inputs, report);
            checkStreams(node.outputs, report);
        }
    }
}

}  // namespace

constinit const Rule KEY_ORDER = {
    .code = "key-order",
    .severity = Severity::Note,
    .family = "ids",
    .title = "Keys do not sort in the order of their numbers",
    .explanation =
        "The device reads members in the byte order of their keys, whatever their order in the "
        "text: 'node_10' comes before 'node_2'. This order determines the order of set-up, the "
        "ids by index, and the order of the streams of a node.",
    .device = "The device sets up nodes, and numbers ids and streams, in that order.",
    .fix = "If the order matters, give all numbers the same number of digits.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_2": {"mode": "sync"},
  "link_10": {"mode": "sync"}
}})",
            .fixed = R"({"pipe_0": {
  "link_10": {"mode": "sync"},
  "link_11": {"mode": "sync"}
}})",
        },
    .find = keyOrder,
};

}  // namespace qvgraph
