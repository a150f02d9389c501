#include "tests/support/pipe_notation.h"

#include <algorithm>
#include <vector>

namespace {

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    for (size_t begin = 0; begin <= text.size();) {
        const size_t end = std::min(text.find(separator, begin), text.size());
        parts.push_back(trimmed(text.substr(begin, end - begin)));
        begin = end + 1;
    }
    return parts;
}

// A member with ", " after it.
std::string memberOf(const std::string& key, const std::string& value) {
    return '"' + key + "\": \"" + value + "\", ";
}

// The members of "stream_opts" for one side of a node, each with ", " after it.
std::string membersOf(const std::string& streams,
                      const std::string& nameKey,
                      const std::string& formatKey) {
    const std::vector<std::string> parts = split(streams, ',');
    std::string members;
    for (size_t i = 0; i < parts.size(); ++i) {
        const std::string suffix = parts.size() == 1 ? "" : '_' + std::to_string(i);
        const size_t colon = parts[i].find(':');
        members.append(memberOf(nameKey + suffix, parts[i].substr(0, colon)));
        if (colon != std::string::npos) {
            members.append(memberOf(formatKey + suffix, parts[i].substr(colon + 1)));
        }
    }
    return members;
}

// A node of one to three parts, separated by '>': inputs, class, outputs. A class begins
// with a capital letter or a '#', a stream does not.
std::string nodeOf(const std::string& notation, size_t index) {
    const std::vector<std::string> parts = split(notation, '>');
    const bool hasInputs = !(parts[0][0] == '#' || (parts[0][0] >= 'A' && parts[0][0] <= 'Z'));
    const size_t name = hasInputs ? 1 : 0;
    std::string members = hasInputs ? membersOf(parts[0], "stream_input", "stream_fmt_in") : "";
    if (parts.size() > name + 1) {
        members += membersOf(parts[name + 1], "stream_output", "stream_fmt_out");
    }
    members.resize(members.empty() ? 0 : members.size() - 2);
    return "\"node_" + std::to_string(index) + R"(": {"node_opts": {"node_name": ")" + parts[name] +
           "\"},\n           \"stream_opts\": {" + members + "}}";
}

}  // namespace

std::string nodesOf(const std::string& notation) {
    std::string nodes;
    size_t index = 0;
    for (const std::string& node : split(notation, ';')) {
        nodes += (nodes.empty() ? "" : ",\n") + nodeOf(node, index++);
    }
    return nodes;
}

std::string pipeOf(const std::string& notation) {
    return "{\"pipe_0\": {\n" + nodesOf(notation) + "\n}}";
}
