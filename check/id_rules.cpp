// Whether ids lead back to the members that they stand in, and in which order
// members count.
#include <algorithm>
#include <charconv>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/key_hints.h"
#include "check/rule.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// A member of a family, with the id that the parser reads in its key.
struct Member {
    const Value* value = nullptr;
    int id = 0;
    bool canonical = false;  // the id leads to it
};

// The nodes, executors or links of a pipe, in the parser's order.
struct Family {
    const char* prefix;
    const char* instead;  // what a device does where the id leads elsewhere
    const char* nothing;  // and where it leads nowhere
    std::vector<Member> members;
};

std::vector<Member> membersOf(const std::vector<const Value*>& values,
                              const std::vector<OptionSet>& sets) {
    std::vector<Member> members;
    for (size_t i = 0; i < values.size(); ++i) {
        members.push_back({values[i], sets[i].id, sets[i].key == sets[i].member});
    }
    return members;
}

std::vector<Family> familiesOf(const PipeSubject& pipe) {
    std::vector<Member> nodes;
    for (const NodeSubject& node : pipe.nodes) {
        nodes.push_back({node.value, node.node->id, node.canonical});
    }
    return {{"node_", "a device sets that one up instead", "a device makes no node of it", nodes},
            {"executor_",
             "a device takes the options of that one instead",
             "a device finds no options for it",
             membersOf(pipe.executors, pipe.pipe->executors)},
            {"link_",
             "a device takes the options of that one instead",
             "a device finds no options for it",
             membersOf(pipe.links, pipe.pipe->links)}};
}

// ---- id-not-canonical -------------------------------------------------------

// The ids of a family, and which are free.
class Ids {
public:
    explicit Ids(const Family& family) {
        for (const Member& member : family.members) {
            if (member.canonical) {
                mTaken.insert(member.id);
                mCanonical.emplace(member.id, member.value);
            }
            mOthers[member.id].push_back(member.value);
        }
    }

    // The member that an id leads to; null for none.
    const Value* leadsTo(int id) const {
        const auto found = mCanonical.find(id);
        return found == mCanonical.end() ? nullptr : found->second;
    }

    // Another member whose key has the same id; null for none.
    const Value* otherThan(const Member& member) const {
        if (const Value* canonical = leadsTo(member.id)) {
            return canonical;
        }
        const std::vector<const Value*>& same = mOthers.find(member.id)->second;
        if (same.size() == 1) {
            return nullptr;
        }
        return same[0] == member.value ? same[1] : same[0];
    }

    // Takes the id itself if it is free, otherwise the first that is.
    int take(std::optional<int> id) {
        if (id && mTaken.insert(*id).second) {
            return *id;
        }
        while (!mTaken.insert(mNext).second) {
            ++mNext;
        }
        return mNext;
    }

private:
    std::set<int> mTaken;
    std::map<int, const Value*> mCanonical;
    std::map<int, std::vector<const Value*>> mOthers;
    int mNext = 0;
};

// The id that a key was meant to have: what the parser reads in it, if there is
// a number at all that an id can hold.
std::optional<int> meantId(const Family& family, const Member& member) {
    const std::string_view suffix =
        std::string_view(member.value->key).substr(std::string_view(family.prefix).size());
    const bool hasNumber = suffix.find_first_of("0123456789") != std::string_view::npos &&
                           (member.id != 0 || suffix.find('0') != std::string_view::npos);
    const bool isCut = member.id == std::numeric_limits<int>::max() ||
                       member.id == std::numeric_limits<int>::min();
    return hasNumber && !isCut ? std::optional<int>(member.id) : std::nullopt;
}

void reportId(const Family& family, const Member& member, Ids* ids, Reporter* report) {
    const std::string target = indexedKey(family.prefix, member.id);
    const Value* other = ids->otherThan(member);
    Finding& finding =
        report->atKey(*member.value,
                      quoted(member.value->key) + " has the id " + std::to_string(member.id) +
                          (ids->leadsTo(member.id) != nullptr
                               ? ", which leads to '" + target + "': " + family.instead
                               : ", and there is no '" + target + "': " + family.nothing));
    if (const KnownKey* elsewhere = keyElsewhere(Level::Pipe, member.value->key)) {
        finding.hint = hintToMove(elsewhere->level);
        return;
    }
    if (other != nullptr) {
        finding.related.push_back({"this one has the same id", other->keySpan});
    }
    finding.hint =
        "rename it to '" + indexedKey(family.prefix, ids->take(meantId(family, member))) + "'";
}

void idNotCanonical(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const Family& family : familiesOf(pipe)) {
            Ids ids(family);
            for (const Member& member : family.members) {
                if (!member.canonical) {
                    reportId(family, member, &ids, report);
                }
            }
        }
    }
}

const Rule ID_NOT_CANONICAL = {
    "id-not-canonical",
    Severity::Error,
    "ids",
    "The id in a key does not lead back to it",
    "The id of a node, an executor or a link is the decimal number that follows the prefix of its "
    "key, and 0 where there is none. With the id alone the member is looked up again, as 'node_7' "
    "for 7: 'node_07', 'node_+7' and 'node_x' are never found.",
    "Another member with that number is taken in its place, or none at all.",
    "Give the member a number of its own, in decimal, without a sign, blanks or leading zeros.",
    {R"({"pipe_0": {
  "link_x": {"mode": "sync"}
}})",
     R"({"pipe_0": {
  "link_0": {"mode": "sync"}
}})",
     {}},
    {},
    idNotCanonical};

// ---- key-order --------------------------------------------------------------

// A key with a number that leads back to it.
struct Numbered {
    const Value* value = nullptr;
    int number = 0;
};

std::vector<Numbered> numberedIn(const Family& family) {
    std::vector<Numbered> keys;
    for (const Member& member : family.members) {
        if (member.canonical) {
            keys.push_back({member.value, member.id});
        }
    }
    return keys;
}

std::vector<Numbered> numberedIn(const std::vector<const Value*>& values, const char* prefix) {
    std::vector<Numbered> keys;
    for (const Value* value : values) {
        const std::string& key = value->key;
        int number = 0;
        std::from_chars(
            key.data() + std::string_view(prefix).size(), key.data() + key.size(), number);
        if (key == indexedKey(prefix, number)) {
            keys.push_back({value, number});
        }
    }
    return keys;
}

// The first key that comes before one with a smaller number, and the next such
// key behind it; nothing where the orders are the same.
std::optional<std::pair<Numbered, Numbered>> firstOutOfOrder(const std::vector<Numbered>& keys) {
    std::vector<int> least(keys.size() + 1, std::numeric_limits<int>::max());
    for (size_t i = keys.size(); i-- > 0;) {
        least[i] = std::min(least[i + 1], keys[i].number);
    }
    for (size_t i = 0; i < keys.size(); ++i) {
        if (least[i + 1] < keys[i].number) {
            size_t smaller = i + 1;
            while (keys[smaller].number >= keys[i].number) {
                ++smaller;
            }
            return std::make_pair(keys[i], keys[smaller]);
        }
    }
    return std::nullopt;
}

// How many digits the longest number has, at least one.
size_t mostDigits(const std::vector<Numbered>& keys) {
    size_t most = 1;
    for (const Numbered& key : keys) {
        const std::string number = std::to_string(key.number);
        most = std::max(most, number.size() - (number[0] == '-' ? 1U : 0U));
    }
    return most;
}

void checkOrder(const std::vector<Numbered>& keys, const std::string& hint, Reporter* report) {
    if (const auto pair = firstOutOfOrder(keys)) {
        const auto& [greater, smaller] = *pair;
        Finding& finding = report->atKey(*greater.value,
                                         quoted(greater.value->key) + " comes before " +
                                             quoted(smaller.value->key) +
                                             ": keys count in the order of their bytes");
        finding.related.push_back({"this one comes later", smaller.value->keySpan});
        finding.hint = hint;
    }
}

// An id may have no leading zeros.
void checkIds(const Family& family, Reporter* report) {
    const std::vector<Numbered> keys = numberedIn(family);
    const std::string first = '1' + std::string(mostDigits(keys) - 1, '0');
    checkOrder(keys,
               "where the order matters, number them from '" + (family.prefix + first) + "' on",
               report);
}

// The suffix of a stream's key may be any text.
void checkStreams(const Side& side, Reporter* report) {
    const std::vector<Numbered> keys = numberedIn(side.nameMembers, side.nameFamily);
    const std::string zeros(mostDigits(keys) - 1, '0');
    checkOrder(keys,
               "where the order matters, number them from '" + (side.nameFamily + zeros) +
                   "0' on, and their formats likewise",
               report);
}

void keyOrder(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const Family& family : familiesOf(pipe)) {
            checkIds(family, report);
        }
        for (const NodeSubject& node : pipe.nodes) {
            checkStreams(node.inputs, report);
            checkStreams(node.outputs, report);
        }
    }
}

const Rule KEY_ORDER = {
    "key-order",
    Severity::Note,
    "ids",
    "Keys do not count in the order of their numbers",
    "Members count in the byte order of their keys, whatever their order in the text: 'node_10' "
    "comes before 'node_2'. That is the order of set-up, of ids by index, and of the streams of a "
    "node.",
    "Nodes are set up, and ids and streams numbered, in that order.",
    "Where the order matters, give all numbers equally many digits.",
    {R"({"pipe_0": {
  "link_2": {"mode": "sync"},
  "link_10": {"mode": "sync"}
}})",
     R"({"pipe_0": {
  "link_10": {"mode": "sync"},
  "link_11": {"mode": "sync"}
}})",
     {}},
    {},
    keyOrder};

}  // namespace

std::vector<Rule> idRules() {
    return {ID_NOT_CANONICAL, KEY_ORDER};
}

}  // namespace qvgraph
