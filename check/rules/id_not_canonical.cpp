#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/families.h"
#include "check/key_hints.h"
#include "check/rules.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// The ids of a family, and which of them are free.
class Ids {
public:
    explicit Ids(const Family& family) {
        for (const Member& member : family.members) {
            if (member.canonical) {
                mTaken.insert(member.id);
                mCanonical.emplace(member.id, member.value);
            }
            mMembers[member.id].push_back(member.value);
        }
    }

    // The member that an id maps to; null for none.
    const Value* memberWith(int id) const {
        const auto found = mCanonical.find(id);
        return found == mCanonical.end() ? nullptr : found->second;
    }

    // Another member whose key has the same id; null for none.
    const Value* otherThan(const Member& member) const {
        if (const Value* canonical = memberWith(member.id)) {
            return canonical;
        }
        const std::vector<const Value*>& same = mMembers.find(member.id)->second;
        if (same.size() == 1) {
            return nullptr;
        }
        return same[0] == member.value ? same[1] : same[0];
    }

    // Reserves `id` if it is free, otherwise the first free id, and returns it.
    int reserve(std::optional<int> id) {
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
    std::map<int, std::vector<const Value*>> mMembers;
    int mNext = 0;
};

// The id that a key was intended to have: the one that the parser reads in it,
// if it contains a number that fits.
std::optional<int> intendedId(const Family& family, const Member& member) {
    const std::string_view suffix =
        std::string_view(member.value->key).substr(std::string_view(family.prefix).size());
    const bool hasNumber = suffix.find_first_of("0123456789") != std::string_view::npos &&
                           (member.id != 0 || suffix.find('0') != std::string_view::npos);
    const bool isCut = member.id == std::numeric_limits<int>::max() ||
                       member.id == std::numeric_limits<int>::min();
    return hasNumber && !isCut ? std::optional<int>(member.id) : std::nullopt;
}

void reportId(const Family& family, const Member& member, Ids* ids, Reporter* report) {
    const std::string key = quoted(member.value->key);
    const std::string target = quoted(indexedKey(family.prefix, member.id));
    const std::string outcome = ids->memberWith(member.id) == nullptr
                                    ? "but there is no " + target + ": " + family.outcomeIfNone
                                    : "which maps to " + target + ": " + family.outcomeIfOther;
    Finding& finding =
        report->atKey(*member.value, key + " has id " + std::to_string(member.id) + ", " + outcome);
    if (const ReservedKey* elsewhere = keyElsewhere(Level::Pipe, member.value->key)) {
        finding.hint = hintToMove(elsewhere->level);
        return;
    }
    if (const Value* other = ids->otherThan(member)) {
        finding.related.push_back({"has the same id", other->keySpan});
    }
    const int free = ids->reserve(intendedId(family, member));
    finding.hint = "rename it to " + quoted(indexedKey(family.prefix, free));
}

void checkFamily(const Family& family, Reporter* report) {
    Ids ids(family);
    for (const Member& member : family.members) {
        if (!member.canonical) {
            reportId(family, member, &ids, report);
        }
    }
}

void idNotCanonical(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        for (const Family& family : familiesOf(pipe)) {
            checkFamily(family, report);
        }
    }
}

}  // namespace

constinit const Rule ID_NOT_CANONICAL = {
    .code = "id-not-canonical",
    .severity = Severity::Error,
    .family = "ids",
    .title = "The id in a key does not map back to the key",
    .explanation =
        "The id of a node, an executor or a link is the decimal number after the prefix of its "
        "key, or 0 if there is no number. The device looks the member up again by its id, as "
        "'node_7' for 7, so it never finds 'node_07', 'node_+7' or 'node_x'.",
    .device = "The device uses another member with that id, or none.",
    .fix = "Give the member its own decimal number, without a sign, blanks or leading zeros.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_x": {"mode": "sync"}
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {"mode": "sync"}
}})",
        },
    .find = idNotCanonical,
};

}  // namespace qvgraph
