#include <algorithm>
#include <string>

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

namespace {

// Returns whether JSON text represents the string unchanged between quotes: it
// consists of printable ASCII without '"' and '\\'.
bool isPlain(const std::string& string) {
    return std::all_of(string.begin(), string.end(), [](char byte) {
        return (byte >= ']' && byte <= '~') || (byte >= '#' && byte <= '[') || byte == ' ' ||
               byte == '!';
    });
}

// Returns whether JSON text represents the value as an integer. Excludes zero,
// which may have a sign.
bool isInteger(const Json& value) {
    const double number = value.number_value();
    return number != 0 && number == toInt32(number);
}

// Replaces `text` with what Json::dump writes. Json::dump copies strings byte by
// byte and formats numbers with printf; most options need neither.
void writeJson(const Json& value, std::string* text) {
    text->clear();
    const std::string& string = value.string_value();
    if (value.is_string() && isPlain(string)) {
        *text += '"';
        *text += string;
        *text += '"';
    } else if (isInteger(value)) {
        *text += std::to_string(toInt32(value.number_value()));
    } else {
        value.dump(*text);
    }
}

}  // namespace

int QVGraphParser::syncOptions(QvMetaData* meta, Json opts) const {
    qv_log(QV_INFO("sync to node options, node info:"));
    std::string text;
    for (const auto& member : opts.object_items()) {
        writeJson(member.second, &text);
        qv_log(QV_INFO("option: key = %-16s, opt = %-16s"), member.first.c_str(), text.c_str());
        storeOption(meta, member.first.c_str(), member.second);
    }
    return 0;
}

int QVGraphParser::syncExecOptions(QvMetaData* meta, int pipe, int execId) const {
    return syncOptions(meta, pipeOf(mRoot, pipe)[indexedKey("executor_", execId)]["executor_opts"]);
}

int QVGraphParser::syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const {
    return syncOptions(meta, pipeOf(mRoot, pipe)[indexedKey("link_", linkId)]);
}
