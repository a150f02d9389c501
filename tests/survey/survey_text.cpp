#include "tests/survey/survey_text.h"

#include <cstdio>
#include <optional>
#include <variant>
#include <vector>

namespace {

using qvgraph::SurveyedEnd;
using qvgraph::SurveyedNode;
using qvgraph::SurveyedOptionSet;
using qvgraph::SurveyedPipe;
using qvgraph::SurveyedStream;

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

std::string keyText(const std::optional<std::string>& key) {
    return key.value_or("-");
}

std::string numberText(const std::optional<int>& number) {
    return number ? std::to_string(*number) : "-";
}

std::string valueText(const std::string& value) {
    return quoted(value);
}

std::string valueText(int32_t value) {
    return std::to_string(value);
}

std::string valueText(int64_t value) {
    return "int64 " + std::to_string(value);
}

std::string valueText(float value) {
    char text[32];
    snprintf(text, sizeof(text), "float %g", static_cast<double>(value));
    return text;
}

std::string valueText(const qvgraph::OptionValue& value) {
    return std::visit([](const auto& plain) { return valueText(plain); }, value);
}

std::string endText(const char* side, const SurveyedEnd& end) {
    return std::string(side) + ' ' + numberText(end.id) + ' ' +
           (end.name ? quoted(*end.name) : "-") + ' ' + (end.format ? quoted(*end.format) : "-") +
           (end.remainNewest ? " latest" : "");
}

std::string endsText(const SurveyedNode& node, const std::string& indent) {
    std::string text;
    for (const SurveyedEnd& input : node.inputEnds) {
        text += indent + endText("in", input) + '\n';
    }
    for (const SurveyedEnd& output : node.outputEnds) {
        text += indent + endText("out", output) + '\n';
    }
    return text;
}

std::string statusText(const SurveyedNode& node) {
    return std::string(toText(node.outcome)) + " (" + numberText(node.result) + ')' +
           (node.message.empty() ? "" : ": " + node.message);
}

template <typename Item>
std::string headText(const char* kind, const Item& item) {
    return std::string("  ") + kind + ' ' + std::to_string(item.index) + " id " +
           std::to_string(item.id) + ' ' + keyText(item.key) + ' ';
}

std::string nodeText(const SurveyedNode& node) {
    return headText("node", node) + quoted(node.name) + " of " + quoted(node.className) + ": " +
           statusText(node) + "\n    " + textOf(node.options) + '\n' + endsText(node, "    ");
}

std::string streamText(const SurveyedStream& stream) {
    std::string text = "  stream " + std::to_string(stream.id) + ' ' + quoted(stream.name) + ' ' +
                       keyText(stream.producer) + " >";
    const char* separator = " ";
    for (const std::string& consumer : stream.consumers) {
        text += separator + consumer;
        separator = ", ";
    }
    return text + (stream.consumers.empty() ? " -\n" : "\n");
}

std::string pipeText(const SurveyedPipe& pipe) {
    std::string text = "pipe " + std::to_string(pipe.index) + ' ' + keyText(pipe.key) +
                       " threads " + std::to_string(pipe.threads) + " links " + pipe.linkMode +
                       '\n';
    for (const SurveyedOptionSet& executor : pipe.executors) {
        text += headText("executor", executor) + textOf(executor.options) + '\n';
    }
    for (const SurveyedOptionSet& link : pipe.links) {
        text += headText("link", link) + textOf(link.options) + '\n';
    }
    for (const SurveyedNode& node : pipe.nodes) {
        text += nodeText(node);
    }
    for (const SurveyedStream& stream : pipe.streams) {
        text += streamText(stream);
    }
    return text;
}

}  // namespace

std::string textOf(const qvgraph::Survey& survey) {
    std::string text = "\n";
    for (const SurveyedPipe& pipe : survey.pipes) {
        text += pipeText(pipe);
    }
    return text;
}

std::string textOf(const qvgraph::Options& options) {
    std::string text = "{";
    const char* separator = "";
    for (const auto& [key, value] : options) {
        text += separator + key + ' ' + valueText(value);
        separator = ", ";
    }
    return text + '}';
}

std::string textOf(const qvgraph::Conversions& conversions) {
    std::string text;
    for (const auto& stored : conversions) {
        text += text.empty() ? "" : ", ";
        text += stored ? valueText(*stored) : "-";
    }
    return text;
}

std::string outcomeOf(const qvgraph::SurveyedNode& node) {
    return '\n' + statusText(node) + '\n' + endsText(node, "");
}
