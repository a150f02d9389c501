#include "render/inspect_json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

#include "render/option_value.h"

namespace qvgraph {

namespace {

using Json = nlohmann::ordered_json;

const char* const FORMAT_VERSION = "1.0";

template <typename Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

// A float goes through its shortest text: the double nearest to that prints
// as it, where the float widened would print digits that it does not have.
Json jsonOf(const OptionValue& value) {
    return std::visit(
        [](const auto& plain) -> Json {
            using Plain = std::decay_t<decltype(plain)>;
            if constexpr (std::is_same_v<Plain, float>) {
                const std::string text = floatText(plain);
                return std::isfinite(plain) ? Json::parse(text) : Json(text);
            } else {
                return plain;
            }
        },
        value);
}

template <typename Items, typename ToJson>
Json arrayOf(const Items& items, ToJson toJson) {
    Json array = Json::array();
    for (const auto& item : items) {
        array.push_back(toJson(item));
    }
    return array;
}

Json jsonOfOptions(const Options& options) {
    return arrayOf(options, [](const auto& option) {
        return Json{{"key", option.first},
                    {"type", typeName(option.second)},
                    {"value", jsonOf(option.second)}};
    });
}

Json jsonOfSet(const OptionSet& set) {
    return {{"index", set.index},
            {"id", set.id},
            {"key", orNull(set.key)},
            {"options", jsonOfOptions(set.options)}};
}

Json jsonOfOutput(const StreamEnd& end) {
    return {{"name", orNull(end.name)}, {"id", orNull(end.id)}, {"format", orNull(end.format)}};
}

Json jsonOfInput(const StreamEnd& end) {
    Json input = jsonOfOutput(end);
    input["remain_newest"] = end.remainNewest;
    return input;
}

Json jsonOfNode(const Node& node) {
    return {{"index", node.index},
            {"id", node.id},
            {"key", orNull(node.key)},
            {"name", node.name},
            {"class", node.className},
            {"outcome", toText(node.outcome)},
            {"result", orNull(node.result)},
            {"message", node.message.empty() ? Json() : Json(node.message)},
            {"options", jsonOfOptions(node.options)},
            {"inputs", arrayOf(node.inputs, jsonOfInput)},
            {"outputs", arrayOf(node.outputs, jsonOfOutput)}};
}

Json jsonOfStream(const Stream& stream) {
    return {{"name", stream.name},
            {"id", stream.id},
            {"producer", orNull(stream.producer)},
            {"consumers", stream.consumers}};
}

Json jsonOfClass(const NodeClass& nodeClass) {
    return {{"name", nodeClass.name},
            {"origin", nodeClass.origin.empty() ? Json() : Json(nodeClass.origin)}};
}

Json jsonOfPipe(const Pipe& pipe) {
    return {{"index", pipe.index},
            {"key", orNull(pipe.key)},
            {"threads", pipe.threads},
            {"link_mode", pipe.linkMode},
            {"executors", arrayOf(pipe.executors, jsonOfSet)},
            {"links", arrayOf(pipe.links, jsonOfSet)},
            {"nodes", arrayOf(pipe.nodes, jsonOfNode)},
            {"streams", arrayOf(pipe.streams, jsonOfStream)}};
}

void write(std::ostream& out, const Json& report) {
    out << report.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace

void renderInspectJson(std::ostream& out, const std::string& file, const Survey& survey) {
    write(out,
          {{"format_version", FORMAT_VERSION},
           {"file", file},
           {"pipes", arrayOf(survey.pipes, jsonOfPipe)}});
}

void renderClassesJson(std::ostream& out, const NodeClasses& classes) {
    write(out,
          {{"format_version", FORMAT_VERSION},
           {"classes", arrayOf(classes.classes, jsonOfClass)},
           {"stub", classes.stub}});
}

}  // namespace qvgraph
