#include "render/draw_html.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "render/draw_dot.h"
#include "render/draw_page.h"
#include "render/draw_svg.h"
#include "render/draw_words.h"
#include "render/json_text.h"
#include "render/text.h"
#include "survey/option_value.h"

namespace qvgraph {

namespace {

// A printable text as the text of a page.
std::string htmlText(const std::string& text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

// Bytes given as hexadecimal digits, in base 64.
std::string base64Of(std::string_view digits) {
    const char* const letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    uint32_t bits = 0;
    int count = 0;
    for (const char digit : digits) {
        bits = bits << 4U | static_cast<uint32_t>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
        count += 4;
        if (count >= 6) {
            count -= 6;
            text += letters[bits >> static_cast<uint32_t>(count) & 63U];
        }
    }
    if (count > 0) {
        text += letters[bits << static_cast<uint32_t>(6 - count) & 63U];
    }
    return text + std::string((4 - text.size() % 4) % 4, '=');
}

Json jsonOf(const Drawing& drawing, const Findings& findings) {
    return jsonArrayOf(findings, [&](const Finding* finding) {
        return Json{{"severity", toText(finding->severity)},
                    {"place", locationOf(drawing, *finding)},
                    {"code", finding->code},
                    {"message", printable(finding->message)},
                    {"hint", printable(finding->hint)}};
    });
}

Json jsonOf(const Options& options) {
    return jsonArrayOf(options, [](const auto& option) {
        return Json::array(
            {printable(option.first), typeName(option.second), valueTextOf(option.second)});
    });
}

std::string formatText(const DrawnEnd& end) {
    return end.end->format != nullptr ? printable(*end.end->format) : "(no format)";
}

// An end as shown at the node or the stream on its other side, which has this id.
Json jsonOf(const std::string& id, const DrawnEnd& end) {
    return {{"id", id}, {"format", formatText(end)}, {"newest", end.end->latestOnly}};
}

// The streams of each node of a pipe.
struct NodeStreams {
    Json inputs = Json::array();
    Json outputs = Json::array();
};

std::vector<NodeStreams> streamsByNode(const DrawnPipe& pipe) {
    std::vector<NodeStreams> nodes(pipe.nodes.size());
    for (size_t i = 0; i < pipe.streams.size(); ++i) {
        const std::string id = streamElementId(pipe, i);
        for (const DrawnEnd& end : pipe.streams[i].producers) {
            nodes[end.node].outputs.push_back(jsonOf(id, end));
        }
        for (const DrawnEnd& end : pipe.streams[i].consumers) {
            nodes[end.node].inputs.push_back(jsonOf(id, end));
        }
    }
    return nodes;
}

Json jsonOf(const std::vector<const Option*>& options) {
    return jsonArrayOf(options, [](const Option* option) {
        return Json::array({printable(untilNul(option->member->key)),
                            typeName(*option->stored),
                            valueTextOf(*option->stored)});
    });
}

std::string outcomeTextOf(const Node& node) {
    if (node.key != node.member) {
        return "not set up: its id maps to a different key";
    }
    const std::string outcome = toText(node.outcome);
    return node.message.empty() ? outcome : outcome + ": " + printable(node.message);
}

Json jsonOf(const Drawing& drawing,
            const std::string& id,
            const DrawnNode& drawn,
            const NodeStreams& streams) {
    const Node& node = *drawn.node;
    const NodeName name = nameOf(node);
    return {{"id", id},
            {"key", keyTextOf(node)},
            {"number", node.id},
            {"name", name.className + name.label},
            {"class", name.className},
            {"outcome", outcomeTextOf(node)},
            {"findings", jsonOf(drawing, drawn.findings)},
            {"options", jsonOf(storedOptions(node))},
            {"inputs", streams.inputs},
            {"outputs", streams.outputs}};
}

// The findings of a stream and of its ends.
Findings findingsOf(const DrawnStream& stream) {
    Findings findings = stream.findings;
    for (const auto* ends : {&stream.producers, &stream.consumers}) {
        for (const DrawnEnd& end : *ends) {
            findings.insert(findings.end(), end.findings.begin(), end.findings.end());
        }
    }
    return findings;
}

Json jsonOf(const Drawing& drawing, const DrawnPipe& pipe, size_t index) {
    const DrawnStream& stream = pipe.streams[index];
    const auto toJson = [&](const DrawnEnd& end) {
        return jsonOf(nodeElementId(pipe, end.node), end);
    };
    return {{"id", streamElementId(pipe, index)},
            {"name", printable(stream.stream->name)},
            {"findings", jsonOf(drawing, findingsOf(stream))},
            {"producers", jsonArrayOf(stream.producers, toJson)},
            {"consumers", jsonArrayOf(stream.consumers, toJson)}};
}

Json jsonOf(const std::vector<DrawnSet>& sets) {
    return jsonArrayOf(sets, [](const DrawnSet& set) {
        return Json{{"key", keyTextOf(*set.set)}, {"options", jsonOf(set.set->options)}};
    });
}

Json jsonOf(const Drawing& drawing, const DrawnPipe& pipe) {
    Json nodes = Json::array();
    const std::vector<NodeStreams> streams = streamsByNode(pipe);
    for (size_t i = 0; i < pipe.nodes.size(); ++i) {
        nodes.push_back(jsonOf(drawing, nodeElementId(pipe, i), pipe.nodes[i], streams[i]));
    }
    Json allStreams = Json::array();
    for (size_t i = 0; i < pipe.streams.size(); ++i) {
        allStreams.push_back(jsonOf(drawing, pipe, i));
    }
    return {{"id", elementIdOf(pipe)},
            {"key", keyOf(pipe)},
            {"facts", factsOf(pipe)},
            {"findings", jsonOf(drawing, pipe.allFindings)},
            {"executors", jsonOf(pipe.executors)},
            {"links", jsonOf(pipe.links)},
            {"nodes", std::move(nodes)},
            {"streams", std::move(allStreams)}};
}

// JSON without a '<', so that nothing in it ends the element around it.
std::string dataOf(const Drawing& drawing) {
    const Json data = {{"title", drawing.title},
                       {"findings", jsonOf(drawing, drawing.findings)},
                       {"pipes", jsonArrayOf(drawing.pipes, [&](const DrawnPipe& pipe) {
                            return jsonOf(drawing, pipe);
                        })}};
    std::string text;
    for (const char c : data.dump()) {
        if (c == '<') {
            text += "\\u003c";
        } else {
            text += c;
        }
    }
    return text;
}

const char* const BODY_BEGIN = R"html(</p>
<div id="ui-find">
<input id="ui-search" type="search" placeholder="Search nodes and streams ( / )" aria-label="Search nodes and streams" autocomplete="off" spellcheck="false">
<ul id="ui-results" hidden></ul>
</div>
<button id="ui-out" type="button" title="Zoom out ( - )" aria-label="Zoom out">-</button>
<button id="ui-in" type="button" title="Zoom in ( + )" aria-label="Zoom in">+</button>
<button id="ui-fit" type="button" title="Show everything ( 0 )">Fit</button>
<button id="ui-theme" type="button" title="Light, dark, or the theme of the system">Theme: auto</button>
</header>
<main>
<div id="ui-stage">
)html";

const char* const BODY_END = R"html(
</div>
<aside id="ui-panel" aria-live="polite" hidden></aside>
</main>
)html";

}  // namespace

void renderDrawHtml(std::ostream& out, const Drawing& drawing, const std::string& svg) {
    const std::string title = htmlText(drawing.title);
    out << "<!DOCTYPE html>\n<html lang=\"en\" data-theme=\"auto\">\n<head>\n"
        << "<meta charset=\"utf-8\">\n"
        << "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        << "style-src 'unsafe-inline'; script-src 'sha256-" << base64Of(PAGE_SCRIPT_SHA256)
        << "'; base-uri 'none'; form-action 'none'\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        << "<title>" << title << " - qvgraph</title>\n<style>\n"
        << PAGE_STYLE << darkStyle(":root[data-theme=dark] svg ")
        << "@media (prefers-color-scheme: dark) {\n"
        << darkStyle(":root[data-theme=auto] svg ") << "}\n</style>\n</head>\n<body>\n<header>\n"
        << "<h1>" << title << "</h1>\n<p>" << htmlText(summaryOf(drawing)) << BODY_BEGIN
        << svgElementIn(svg) << BODY_END << "<script type=\"application/json\" id=\"ui-data\">"
        << dataOf(drawing) << "</script>\n<script>" << PAGE_SCRIPT
        << "</script>\n</body>\n</html>\n";
}

}  // namespace qvgraph
