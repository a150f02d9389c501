#include "tests/support/literal_parser.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "framework/qv_log.h"

using json11::Json;

namespace {

const uint32_t MODULE = 0x18181802;
const char* const TAG = "QVGraphParser";

#define RED "\033[31m\033[1m"
#define BLUE "\033[34m\033[1m"
#define PLAIN "\033[0m"

bool startsWith(const std::string& text, const std::string& start) {
    return text.find(start) == 0;
}

// The keys that start with `tag`, in the order of their indexes.
std::vector<std::string> familyOf(const Json& object, const std::string& tag) {
    std::vector<std::string> keys;
    for (const auto& member : object.object_items()) {
        if (startsWith(member.first, tag)) {
            keys.push_back(member.first);
        }
    }
    return keys;
}

int saturated(long double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 2147483647.0L) {
        return 2147483647;
    }
    if (value <= -2147483648.0L) {
        return -2147483647 - 1;
    }
    return static_cast<int>(value);
}

// The number at the start of a string: white space, a sign, digits.
int leadingInteger(const std::string& text) {
    size_t at = text.find_first_not_of(" \t\n\v\f\r");
    if (at == std::string::npos) {
        return 0;
    }
    const bool negative = text[at] == '-';
    if (text[at] == '-' || text[at] == '+') {
        ++at;
    }
    long double value = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        value = value * 10 + (text[at] - '0');
    }
    return saturated(negative ? -value : value);
}

// `text` up to its first NUL.
std::string upToNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

// With ASCII letters in lower case.
std::string lowered(std::string key) {
    for (char& c : key) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return key;
}

}  // namespace

// ---- Loading ----------------------------------------------------------------

int LiteralParser::parseConfigText(const char* text) {
    std::string error;
    if (text == nullptr) {
        document = Json();
        error = "null input";
    } else {
        document = Json::parse(std::string(text), error, json11::JsonParse::COMMENTS);
    }
    if (document.is_null()) {
        qv_err(MODULE,
               2,
               TAG,
               RED "failed to json11::Json::parse(...), err=%s" PLAIN,
               "parseConfigText",
               0,
               error.c_str());
        return -1;
    }
    return summary();
}

int LiteralParser::parseConfigFile(const char* path) {
    namespace fs = std::filesystem;
    if (!fs::exists(path)) {
        qv_err(MODULE, 2, TAG, RED "failed to fopen(%s)" PLAIN, "parseConfigFile", 0, path);
        return -5;
    }
    std::ostringstream content;
    if (fs::is_regular_file(path) && fs::file_size(path) > 0) {
        content << std::ifstream(path, std::ios::binary).rdbuf();
    }
    return parseConfigText(content.str().c_str());
}

int LiteralParser::saveConfig(const char* /*path*/) const {
    return -10;
}

int LiteralParser::summary() const {
    return 0;
}

// ---- Families of keys -------------------------------------------------------

int LiteralParser::getItemNum(const Json& items, const std::string& tag) const {
    for (const auto& member : items.object_items()) {
        qv_log(MODULE,
               6,
               TAG,
               BLUE "item name=%s , \t tag=%s" PLAIN,
               "getItemNum",
               0,
               member.first.c_str(),
               tag.c_str());
    }
    return static_cast<int>(familyOf(items, tag).size());
}

int LiteralParser::getItemIDByIndex(const Json& items, int index, const std::string& tag) const {
    if (!items.is_object()) {
        qv_err(MODULE,
               2,
               TAG,
               RED "get item id by index failed, index=%d" PLAIN,
               "getItemIDByIndex",
               0,
               index);
        return 0;
    }
    const std::vector<std::string> keys = familyOf(items, tag);
    if (index < 0 || static_cast<size_t>(index) >= keys.size()) {
        return 0;
    }
    return leadingInteger(upToNul(keys[static_cast<size_t>(index)].substr(tag.size())));
}

std::string LiteralParser::getItemNameByIndex(const Json& items,
                                              int index,
                                              const std::string& tag) const {
    if (!items.is_object()) {
        qv_err(MODULE,
               2,
               TAG,
               RED "get item id by index failed, index=%d" PLAIN,
               "getItemNameByIndex",
               0,
               index);
        return "";
    }
    const std::vector<std::string> keys = familyOf(items, tag);
    if (index < 0 || static_cast<size_t>(index) >= keys.size()) {
        return "";
    }
    return keys[static_cast<size_t>(index)];
}

// ---- Queries ----------------------------------------------------------------

Json LiteralParser::pipeAt(int pipe) const {
    return document["pipe_" + std::to_string(pipe)];
}

int LiteralParser::getPipeNum() const {
    return static_cast<int>(document.object_items().size());
}

int LiteralParser::getNodeNum(int pipe) const {
    return getItemNum(pipeAt(pipe), "node_");
}

int LiteralParser::getExecNum(int pipe) const {
    return getItemNum(pipeAt(pipe), "executor_");
}

int LiteralParser::getLinkNum(int pipe) const {
    return getItemNum(pipeAt(pipe), "link_");
}

int LiteralParser::getNodeIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeAt(pipe), index, "node_");
}

int LiteralParser::getExecIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeAt(pipe), index, "executor_");
}

int LiteralParser::getLinkIDByIndex(int pipe, int index) const {
    return getItemIDByIndex(pipeAt(pipe), index, "link_");
}

int LiteralParser::getThreadNum(int pipe) const {
    const Json options = pipeAt(pipe)["thread_opts"];
    for (const auto& member : options.object_items()) {
        const std::string key = lowered(upToNul(member.first));
        if (key == "exec_thread_num" && member.second.is_number()) {
            return saturated(static_cast<long double>(member.second.number_value()));
        }
    }
    return 0;
}

std::string LiteralParser::getDefaultLinkMode(int pipe) const {
    const Json mode = pipeAt(pipe)["default_mode_link"];
    qv_log(MODULE,
           6,
           TAG,
           BLUE "default link mode %s" PLAIN,
           "getDefaultLinkMode",
           0,
           mode.string_value().c_str());
    return mode.string_value().empty() ? "none" : mode.string_value();
}

// ---- Options ----------------------------------------------------------------

namespace {

// The part of an option string before its first colon, and the part from there to
// the next colon.
struct Typed {
    std::string type;
    std::string value;
};

// Both parts are empty if the string starts with a colon.
Typed split(const std::string& text) {
    if (startsWith(text, ":")) {
        return {};
    }
    const size_t colon = text.find(':');
    if (colon == std::string::npos) {
        return {text, ""};
    }
    const std::string rest = text.substr(colon + 1);
    return {text.substr(0, colon), rest.substr(0, rest.find(':'))};
}

uint64_t hashOf(const std::string& word) {
    uint64_t hash = 0;
    for (const char c : word) {
        hash = hash * 131 + static_cast<unsigned char>(c);
    }
    return hash;
}

int storeString(QvMetaData* meta, const char* key, const std::string& text) {
    if (text.size() + 1 > 128) {
        qv_err(MODULE, 2, TAG, RED "value %s is too long!" PLAIN, "parseOptions", 0, text.c_str());
        return -68;
    }
    const Typed typed = split(text);
    const char* const value = typed.value.c_str();
    const uint64_t hash = hashOf(typed.type);
    if (hash == 0x741fb9a32) {
        const int number = leadingInteger(value);
        meta->setInt32(key, number);
        qv_log(MODULE, 6, TAG, BLUE "key=%s value=%d" PLAIN, "parseOptions", 0, key, number);
    } else if (hash == 0x741fb9bbd) {
        const long long number = static_cast<long long>(strtoull(value, nullptr, 0));
        meta->setInt64(key, number);
        qv_log(MODULE, 6, TAG, BLUE "key=%s value=%lld" PLAIN, "parseOptions", 0, key, number);
    } else if (hash == 0x70d0ca4a8) {
        const float number = static_cast<float>(atof(value));
        meta->setFloat(key, number);
        qv_log(MODULE,
               6,
               TAG,
               BLUE "key=%s value=%f" PLAIN,
               "parseOptions",
               0,
               key,
               static_cast<double>(number));
    } else if (hash == 0x389ebe6defd) {
        const double number = atof(value);
        meta->setFloat(key, static_cast<float>(number));
        qv_log(MODULE, 6, TAG, BLUE "key=%s value=%f" PLAIN, "parseOptions", 0, key, number);
    } else {
        meta->setCString(key, text.c_str());
    }
    return 0;
}

}  // namespace

int LiteralParser::parseOptions(QvMetaData* meta, const char* key, const Json& value) const {
    if (value.is_number()) {
        meta->setInt32(key, saturated(static_cast<long double>(value.number_value())));
        return 0;
    }
    if (value.is_string()) {
        return storeString(meta, key, upToNul(value.string_value()));
    }
    return 0;
}

int LiteralParser::syncOptions(QvMetaData* meta, const Json& opts) const {
    qv_log(MODULE, 6, TAG, BLUE "sync to node options, node info:" PLAIN, "syncOptions", 0);
    for (const auto& member : opts.object_items()) {
        qv_log(MODULE,
               6,
               TAG,
               BLUE "option: key = %-16s, opt = %-16s" PLAIN,
               "syncOptions",
               0,
               member.first.c_str(),
               member.second.dump().c_str());
        parseOptions(meta, member.first.c_str(), member.second);
    }
    return 0;
}

int LiteralParser::syncExecOptions(QvMetaData* meta, int pipe, int execId) const {
    return syncOptions(meta, pipeAt(pipe)["executor_" + std::to_string(execId)]["executor_opts"]);
}

int LiteralParser::syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const {
    return syncOptions(meta, pipeAt(pipe)["link_" + std::to_string(linkId)]);
}

// ---- Node set-up ------------------------------------------------------------

namespace {

// The names that set-up uses for inputs, or for outputs.
struct Side {
    std::string name;  // key of the stream's name, if the node has only one stream
    std::string format;
    const char* onlyAssertion;
    const char* indexedAssertion;
};

const Side INPUT = {"stream_input",
                    "stream_fmt_in",
                    "options->findCString(OPT_STREAM_INPUT_NAME, &inputStreamName)",
                    "options->findCString(inputNameTag.c_str(), &inputStreamName)"};
const Side OUTPUT = {"stream_output",
                     "stream_fmt_out",
                     "options->findCString(OPT_STREAM_OUTPUT_NAME, &outputStreamName)",
                     "options->findCString(outputNameTag.c_str(), &outputStreamName)"};

struct Stream {
    std::string name;
    const char* format;
};

// The set-up of one node.
struct SetUp {
    const LiteralParser& parser;
    QVTaskGraphConfig* config;
    Json node;
    std::string name;
    int nodeId;
    _QVNodeInfo* info;
};

Stream findStream(const SetUp& setUp, const Side& side, size_t count, size_t index) {
    const Json& streams = setUp.node["stream_opts"];
    const int k = static_cast<int>(index);
    const std::string nameKey =
        count == 1 ? side.name : setUp.parser.getItemNameByIndex(streams, k, side.name + "_");
    const std::string formatKey =
        count == 1 ? side.format : setUp.parser.getItemNameByIndex(streams, k, side.format + "_");

    QvMetaData* const options = setUp.info->node->mOptions;
    const char* name = nullptr;
    const char* format = nullptr;
    if (options->findCString(nameKey.c_str(), &name) == 0) {
        qv_err(MODULE,
               2,
               TAG,
               RED "Assertion %s failed at %s:%d\n" PLAIN,
               "initTaskNode",
               0,
               count == 1 ? side.onlyAssertion : side.indexedAssertion,
               "initTaskNode",
               0);
        abort();
    }
    options->findCString(formatKey.c_str(), &format);
    return {name, format};
}

// Whether the graph has refused the stream; logs it if so.
bool refused(int id) {
    if (id != -1) {
        return false;
    }
    qv_err(MODULE,
           2,
           TAG,
           RED "%s(%d): %s failed. actual %d vs exp %d\n" PLAIN,
           "initTaskNode",
           0,
           "initTaskNode",
           0,
           "CHECK_UE",
           id,
           -1);
    return true;
}

std::string textOf(const char* format) {
    if (format == nullptr) {
        throw std::logic_error("basic_string::_M_construct null not valid");
    }
    return format;
}

// Creates the node. Returns whether there is one.
bool createNode(const SetUp& setUp) {
    _QVNodeInfo* const info = setUp.info;
    node_proxy_parse_stub_uid(info, setUp.name.c_str());
    info->nodeId = setUp.nodeId;
    info->inputNum = setUp.parser.getItemNum(setUp.node["stream_opts"], "stream_input");
    info->outputNum = setUp.parser.getItemNum(setUp.node["stream_opts"], "stream_output");
    qv_log(MODULE,
           6,
           TAG,
           BLUE "node proxy: create task node(name=%s)" PLAIN,
           "initTaskNode",
           0,
           setUp.name.c_str());
    node_proxy_node_create(info);
    if (info->node == nullptr) {
        qv_log(MODULE,
               5,
               TAG,
               "failed to node_proxy_node_create(...) for node:%s",
               "initTaskNode",
               0,
               setUp.name.c_str());
    }
    return info->node != nullptr;
}

// Returns whether the graph has accepted all streams.
bool wireInputs(const SetUp& setUp) {
    const std::vector<QVInputStreamManager*>& managers = setUp.info->inputStreams;
    for (size_t i = 0; i < managers.size(); ++i) {
        const Stream stream = findStream(setUp, INPUT, managers.size(), i);
        const int id = setUp.config->addInputStream(stream.name);
        if (refused(id)) {
            return false;
        }
        managers[i]->initialize(stream.name, id, setUp.nodeId);
        managers[i]->setStreamType(textOf(stream.format));
        const char* mode = nullptr;
        setUp.info->node->mOptions->findCString("stream_mode_in", &mode);
        if (mode != nullptr && std::string(mode) == "remain_newest") {
            managers[i]->mRemainNewest = 1;
        }
    }
    return true;
}

bool wireOutputs(const SetUp& setUp) {
    const std::vector<QVOutputStreamManager*>& managers = setUp.info->outputStreams;
    for (size_t j = 0; j < managers.size(); ++j) {
        const Stream stream = findStream(setUp, OUTPUT, managers.size(), j);
        const int id = setUp.config->addOutputStream(stream.name);
        if (refused(id)) {
            return false;
        }
        managers[j]->initialize(stream.name, id, setUp.nodeId);
        managers[j]->mStreamType = textOf(stream.format);
    }
    return true;
}

// Initialises the node, unless it has no streams.
int initializeNode(const SetUp& setUp) {
    _QVNodeInfo* const info = setUp.info;
    if (info->inputStreams.empty() && info->outputStreams.empty()) {
        qv_log(MODULE,
               5,
               TAG,
               "failed to initialize task node(%s) with none input/output stream manager",
               "initTaskNode",
               0,
               setUp.name.c_str());
        return -1;
    }
    _QVTaskNodeInfo taskInfo;
    taskInfo.nodeId = setUp.nodeId;
    taskInfo.nodeName = setUp.name;
    info->node->initialize(setUp.nodeId, &taskInfo, info->inputStreams, info->outputStreams);
    return 0;
}

}  // namespace

int LiteralParser::initTaskNode(QVTaskGraphConfig* config,
                                int pipe,
                                int nodeId,
                                _QVNodeInfo* info) const {
    if (info == nullptr || config == nullptr) {
        qv_err(MODULE,
               2,
               TAG,
               RED "invailed input params config %p, info %p" PLAIN,
               "initTaskNode",
               0,
               static_cast<void*>(config),
               static_cast<void*>(info));
        return -2;
    }
    const Json node = pipeAt(pipe)["node_" + std::to_string(nodeId)];
    const std::string name = node["node_opts"]["node_name"].string_value();
    const SetUp setUp = {*this, config, node, name, nodeId, info};
    if (!createNode(setUp)) {
        return -1;
    }
    for (const char* group : {"node_opts", "stream_opts", "node_opts_extra", "stream_opts_extra"}) {
        syncOptions(info->node->mOptions, node[group]);
    }
    if (!wireInputs(setUp) || !wireOutputs(setUp)) {
        return 0;
    }
    return initializeNode(setUp);
}
