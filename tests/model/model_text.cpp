#include "tests/model/model_text.h"

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

#include "survey/option_value.h"
#include "survey/words.h"

namespace {

using qvgraph::Comment;
using qvgraph::Endpoint;
using qvgraph::inDoubleQuotes;
using qvgraph::Model;
using qvgraph::Node;
using qvgraph::Option;
using qvgraph::OptionObject;
using qvgraph::OptionSet;
using qvgraph::Pipe;
using qvgraph::Side;
using qvgraph::Stream;
using qvgraph::StreamEnd;

std::string keyText(std::string_view key) {
    std::string text;
    for (const char byte : key) {
        text += byte == '\0' ? "\\0" : std::string(1, byte);
    }
    return text;
}

// The id of a member, and which other member it maps to.
template <typename Item>
std::string headText(const Item& item) {
    const std::string head = keyText(item.value->key) + " id " + std::to_string(item.id);
    return item.canonical ? head : head + " (not canonical: " + item.key.value_or("-") + ')';
}

std::string setText(const OptionSet& set) {
    return "  " + headText(set) + ' ' + textOf(set.object, nullptr) + '\n';
}

// A key, whether an option has it, and the string that was found.
std::string lookupText(std::string_view key, const Option* option, const std::string* string) {
    std::string found = string == nullptr ? "-" : inDoubleQuotes(*string);
    if (key.empty() && option == nullptr) {
        return found;
    }
    return (key.empty() ? "\"\"" : keyText(key)) + (option == nullptr ? " (no option) " : " ") +
           found;
}

std::string endText(const StreamEnd& end) {
    return lookupText(end.nameKey, end.nameOption, end.name) + ", " +
           lookupText(end.formatKey, end.formatOption, end.format) +
           (end.latestOnly ? " latest" : "");
}

std::string positionText(const Side& side, size_t index) {
    const std::string prefix = side.word == std::string("input") ? "in " : "out ";
    return prefix + (index < side.managers ? std::to_string(index) : "+");
}

std::string sideText(const Side& side, const std::string& indent) {
    std::string text;
    for (size_t i = 0; i < side.ends.size(); ++i) {
        text += indent + positionText(side, i) + ' ' + endText(side.ends[i]) + '\n';
    }
    return text;
}

std::string nodeText(const Node& node) {
    std::string text = "  " + headText(node) + ' ' + inDoubleQuotes(node.name) + " of " +
                       inDoubleQuotes(node.className) + ": " + toText(node.outcome) + '\n';
    for (size_t i = 0; i < node.objects.size(); ++i) {
        if (node.objects[i].value != nullptr) {
            text += std::string("    ") + qvgraph::OPTION_OBJECTS[i] + ' ' +
                    textOf(node.objects[i], &node) + '\n';
        }
    }
    return text + sideText(node.inputs, "    ") + sideText(node.outputs, "    ");
}

// By its addresses: the side is one of its node's, and the end one of the side's.
std::string endpointText(const Pipe& pipe, const Endpoint& endpoint) {
    const Node& node = pipe.nodes.at(endpoint.node);
    const std::string text = keyText(node.value->key) + ' ';
    for (const Side* side : {&node.inputs, &node.outputs}) {
        for (size_t i = 0; i < side->ends.size(); ++i) {
            if (endpoint.side == side && endpoint.end == &side->ends[i]) {
                const bool isWired = i < side->managers;
                return text + positionText(*side, i) + (isWired ? "" : std::to_string(i));
            }
        }
    }
    return text + "?";
}

std::string endpointsText(const Pipe& pipe, const std::vector<Endpoint>& endpoints) {
    std::string text;
    for (const Endpoint& endpoint : endpoints) {
        text += (text.empty() ? "" : ", ") + endpointText(pipe, endpoint);
    }
    return text.empty() ? "-" : text;
}

std::string pipeText(const Pipe& pipe) {
    std::string text = "pipe " + std::to_string(pipe.index) + " threads " +
                       std::to_string(pipe.threads) + " links " + pipe.linkMode + '\n';
    for (const OptionSet& executor : pipe.executors) {
        text += setText(executor);
    }
    for (const OptionSet& link : pipe.links) {
        text += setText(link);
    }
    for (const Node& node : pipe.nodes) {
        text += nodeText(node);
    }
    for (const Stream& stream : pipe.streams) {
        text += "  stream " + inDoubleQuotes(stream.name) + ": " +
                endpointsText(pipe, stream.producers) + " > " +
                endpointsText(pipe, stream.consumers) + '\n';
    }
    return text;
}

std::string commentText(const Model& model, const Comment& comment) {
    const qvgraph::Position begin = model.source().position(comment.span.begin);
    return "comment " + std::to_string(begin.line) + ':' + std::to_string(begin.column) + ' ' +
           inDoubleQuotes(model.source().text(comment.span)) + ' ' +
           (comment.member == nullptr ? "-" : pointerTo(*comment.member)) + '\n';
}

}  // namespace

std::string textOf(const Model& model) {
    std::string text = "\n";
    if (!model.loads()) {
        text +=
            "does not load" + (model.jsonError().empty() ? "" : ": " + model.jsonError()) + '\n';
    }
    for (const Pipe& pipe : model.pipes()) {
        text += pipeText(pipe);
    }
    for (const Comment& comment : model.comments()) {
        text += commentText(model, comment);
    }
    return text;
}

std::string endsOf(const Node& node) {
    return '\n' + sideText(node.inputs, "") + sideText(node.outputs, "");
}

std::string textOf(const OptionObject& object, const Node* node) {
    std::string text;
    for (const Option& option : object.options) {
        text +=
            (text.empty() ? "" : ", ") + keyText(option.member->key) + ' ' + textOf(option.stored);
        if (option.overriddenBy != nullptr) {
            text += " (overridden by " + pathOf(*node, option.overriddenBy) + ')';
        }
    }
    return '{' + text + '}';
}

std::string textOf(const std::optional<qvgraph::OptionValue>& stored) {
    if (!stored) {
        return "-";
    }
    if (const auto* string = std::get_if<std::string>(&*stored)) {
        return inDoubleQuotes(*string);
    }
    return qvgraph::typeName(*stored) + (' ' + qvgraph::valueText(*stored));
}

std::string pathOf(const Node& node, const Option* option) {
    for (size_t i = 0; i < node.objects.size(); ++i) {
        for (const Option& one : node.objects[i].options) {
            if (&one == option) {
                return std::string(qvgraph::OPTION_OBJECTS[i]) + '.' + keyText(one.member->key);
            }
        }
    }
    return option == nullptr ? "-" : "?";
}
