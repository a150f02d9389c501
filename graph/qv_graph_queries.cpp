#include <cstring>
#include <string>

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

namespace {

using Members = Json::object;

bool belongsTo(const std::string& key, const std::string& tag) {
    return key.size() >= tag.size() && memcmp(key.data(), tag.data(), tag.size()) == 0;
}

// Returns the member at `index` of the family of `tag`; the end if there is
// none. In key order, a family is contiguous and starts at the lower bound of
// its tag.
Members::const_iterator findByIndex(const Members& members, int index, const std::string& tag) {
    auto member = members.lower_bound(tag);
    for (; index > 0 && member != members.end(); --index) {
        ++member;
    }
    const bool found = index == 0 && member != members.end() && belongsTo(member->first, tag);
    return found ? member : members.end();
}

}  // namespace

// The contract fixes that tags are passed by value.
// cppcheck-suppress passedByValue
int QVGraphParser::getItemNum(Json items, std::string tag) const {
    if (!items.is_object()) {
        return 0;
    }
    int num = 0;
    // A copy, so that the loop stays valid whatever the logger does.
    for (const auto& member : Members(items.object_items())) {
        qv_log(QV_INFO("item name=%s , \t tag=%s"), member.first.c_str(), tag.c_str());
        if (belongsTo(member.first, tag)) {
            ++num;
        }
    }
    return num;
}

// cppcheck-suppress passedByValue
int QVGraphParser::getItemIDByIndex(Json items, int index, std::string tag) const {
    if (!items.is_object()) {
        qv_err(QV_ERROR("get item id by index failed, index=%d"), index);
        return 0;
    }
    const Members& members = items.object_items();
    const auto found = findByIndex(members, index, tag);
    return found != members.end() ? leadingInt32(found->first.c_str() + tag.size()) : 0;
}

// Also reports "item id": both lookups share one message, so that a search for
// it finds either.
// cppcheck-suppress passedByValue
std::string QVGraphParser::getItemNameByIndex(Json items, int index, std::string tag) const {
    if (!items.is_object()) {
        qv_err(QV_ERROR("get item id by index failed, index=%d"), index);
        return std::string();
    }
    const Members& members = items.object_items();
    const auto found = findByIndex(members, index, tag);
    return found != members.end() ? found->first : std::string();
}

int QVGraphParser::getPipeNum() const {
    return static_cast<int>(mRoot.object_items().size());
}

int QVGraphParser::getNodeNum(int pipe) const {
    return getItemNum(pipeOf(mRoot, pipe), "node_");
}

int QVGraphParser::getExecNum(int pipe) const {
    return getItemNum(pipeOf(mRoot, pipe), "executor_");
}

int QVGraphParser::getLinkNum(int pipe) const {
    return getItemNum(pipeOf(mRoot, pipe), "link_");
}

int QVGraphParser::getNodeIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeOf(mRoot, pipe), index, "node_");
}

int QVGraphParser::getExecIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeOf(mRoot, pipe), index, "executor_");
}

int QVGraphParser::getLinkIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeOf(mRoot, pipe), index, "link_");
}

int QVGraphParser::getThreadNum(int pipe) const {
    const Json& threadOpts = pipeOf(mRoot, pipe)["thread_opts"];
    for (const auto& member : threadOpts.object_items()) {
        if (util_strcasecmp(member.first.c_str(), "exec_thread_num") == 0 &&
            member.second.is_number()) {
            return toInt32(member.second.number_value());
        }
    }
    return 0;
}

std::string QVGraphParser::getDefaultLinkMode(int pipe) const {
    const Json modeLink = memberUnder(pipeOf(mRoot, pipe), "default_mode_link");
    const std::string& mode = modeLink.string_value();
    qv_log(QV_INFO("default link mode %s"), mode.c_str());
    return mode.empty() ? "none" : mode;
}
