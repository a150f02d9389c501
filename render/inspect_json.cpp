#include "render/inspect_json.h"

#include <cmath>
#include <optional>
#include <type_traits>
#include <variant>

#include "render/json_text.h"
#include "survey/option_value.h"

namespace qvgraph {

namespace {

const char* const FORMAT_VERSION = "1.0";

template <typename Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

// A float is converted through its shortest text: the double nearest to that text
// is written like the text, but a widened float would have more digits.
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

Json jsonOfOptions(const Options& options) {
    return jsonArrayOf(options, [](const auto& option) {
        return Json{{"key", option.first},
                    {"type", typeName(option.second)},
                    {"value", jsonOf(option.second)}};
    });
}

Json jsonOfSet(const SurveyedOptionSet& set) {
    return {{"index", set.index},
            {"id", set.id},
            {"key", orNull(set.key)},
            {"options", jsonOfOptions(set.options)}};
}

Json jsonOfOutput(const SurveyedEnd& end) {
    return {{"name", orNull(end.name)}, {"id", orNull(end.id)}, {"format", orNull(end.format)}};
}

Json jsonOfInput(const SurveyedEnd& end) {
    Json input = jsonOfOutput(end);
    input["remain_newest"] = end.remainNewest;
    return input;
}

Json jsonOfNode(const SurveyedNode& node) {
    return {{"index", node.index},
            {"id", node.id},
            {"key", orNull(node.key)},
            {"name", node.name},
            {"class", node.className},
            {"outcome", toText(node.outcome)},
            {"result", orNull(node.result)},
            {"message", node.message.empty() ? Json() : Json(node.message)},
            {"options", jsonOfOptions(node.options)},
            {"inputs", jsonArrayOf(node.inputEnds, jsonOfInput)},
            {"outputs", jsonArrayOf(node.outputEnds, jsonOfOutput)}};
}

Json jsonOfStream(const SurveyedStream& stream) {
    return {{"name", stream.name},
            {"id", stream.id},
            {"producer", orNull(stream.producer)},
            {"consumers", stream.consumers}};
}

Json jsonOfClass(const NodeClass& nodeClass) {
    return {{"name", nodeClass.name},
            {"origin", nodeClass.origin.empty() ? Json() : Json(nodeClass.origin)}};
}

Json jsonOfPipe(const SurveyedPipe& pipe) {
    return {{"index", pipe.index},
            {"key", orNull(pipe.key)},
            {"threads", pipe.threads},
            {"link_mode", pipe.linkMode},
            {"executors", jsonArrayOf(pipe.executors, jsonOfSet)},
            {"links", jsonArrayOf(pipe.links, jsonOfSet)},
            {"nodes", jsonArrayOf(pipe.nodes, jsonOfNode)},
            {"streams", jsonArrayOf(pipe.streams, jsonOfStream)}};
}

}  // namespace

void renderInspectJson(std::ostream& out, const std::string& file, const Survey& survey) {
    writeJson(out,
              {{"format_version", FORMAT_VERSION},
               {"file", file},
               {"pipes", jsonArrayOf(survey.pipes, jsonOfPipe)}});
}

void renderClassesJson(std::ostream& out, const NodeClasses& classes) {
    writeJson(out,
              {{"format_version", FORMAT_VERSION},
               {"classes", jsonArrayOf(classes.classes, jsonOfClass)},
               {"stub", classes.stub}});
}

}  // namespace qvgraph
