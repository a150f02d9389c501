#include "render/draw_mermaid.h"

#include <cctype>
#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "render/draw_dot.h"
#include "render/draw_words.h"
#include "render/palette.h"
#include "render/text.h"

namespace qvgraph {

namespace {

const size_t LEGEND_COLUMNS = 90;

using Lines = std::vector<std::string>;

bool isAlphanumeric(char c) {
    return isalnum(static_cast<unsigned char>(c)) != 0;
}

bool isWithinWord(const std::string& text, size_t at) {
    return at > 0 && at + 1 < text.size() && isAlphanumeric(text[at - 1]) &&
           isAlphanumeric(text[at + 1]);
}

bool isSafe(const std::string& text, size_t at) {
    const char c = text[at];
    return static_cast<unsigned char>(c) >= 0x80 || isAlphanumeric(c) ||
           strchr(" _,/()=", c) != nullptr || ((c == '-' || c == '.') && isWithinWord(text, at));
}

// A printable text in a label. A character that has a meaning in Mermaid, in its
// Markdown or in HTML is written as the number of its code point. A text with such
// numbers must not contain a colon either.
std::string labelText(const std::string& printable) {
    std::string text;
    for (size_t i = 0; i < printable.size(); ++i) {
        if (isSafe(printable, i)) {
            text += printable[i];
        } else {
            text += '#' + std::to_string(static_cast<unsigned char>(printable[i])) + ';';
        }
    }
    return text;
}

// A quoted label of several lines.
std::string label(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "<br/>") + labelText(line);
    }
    return '"' + text + '"';
}

void append(const std::vector<Remark>& remarks, Lines* lines) {
    for (const Remark& remark : remarks) {
        lines->push_back(remark.text);
    }
}

const char* classOf(const Findings& findings) {
    const auto worst = worstOf(findings);
    return !worst ? "" : *worst == Severity::Error ? ":::error" : ":::warning";
}

class Flowchart {
public:
    Flowchart(std::ostream& out, const Drawing& drawing, const MermaidRequest& request)
        : mOut(out), mDrawing(drawing), mRequest(request) {}

    void write() {
        // Labels do not wrap their lines.
        mOut << "%%{init: {\"flowchart\": {\"wrappingWidth\": 900}}}%%\nflowchart LR\n";
        writeLegend("legend", legendOf(mDrawing));
        for (const DrawnPipe& pipe : mDrawing.pipes) {
            writePipe(pipe);
        }
        writeStyles();
    }

private:
    void writePipe(const DrawnPipe& pipe) {
        const std::string id = elementIdOf(pipe);
        mOut << "  subgraph " << id << '[' << label({keyOf(pipe) + ": " + factsOf(pipe)})
             << "]\n    direction LR\n";
        if (writeLegend(id + "legend", legendOf(mDrawing, pipe)) && !pipe.nodes.empty()) {
            // An invisible edge keeps the legend before the nodes.
            mOut << "    " << id << "legend ~~~ " << nodeElementId(pipe, 0) << '\n';
            ++mEdges;
        }
        for (size_t i = 0; i < pipe.nodes.size(); ++i) {
            writeNode(pipe, i);
        }
        for (size_t i = 0; i < pipe.streams.size(); ++i) {
            writeStream(pipe, i);
        }
        mOut << "  end\n";
    }

    // Returns whether there is one.
    bool writeLegend(const std::string& id, const std::vector<LegendLine>& legend) {
        Lines lines;
        for (const LegendLine& line : legend) {
            for (const std::string& text :
                 linesOf(line.head + (line.head.empty() ? "" : ": ") + line.text, LEGEND_COLUMNS)) {
                lines.push_back(text);
            }
        }
        if (!lines.empty()) {
            mOut << "    " << id << '[' << label(lines) << "]:::legend\n";
        }
        return !lines.empty();
    }

    void writeNode(const DrawnPipe& pipe, size_t index) {
        const DrawnNode& node = pipe.nodes[index];
        const NodeName name = nameOf(*node.node);
        Lines lines = {clipped(name.className + name.label, 2 * NAME_COLUMNS),
                       keyTextOf(*node.node)};
        append(remarksOn(node.findings), &lines);
        if (mRequest.options) {
            for (const OptionLine& line : optionLinesOf(*node.node)) {
                lines.push_back(line.key + (line.key.empty() ? "" : " ") + line.value);
            }
        }
        mOut << "    " << nodeElementId(pipe, index) << '[' << label(lines) << ']'
             << classOf(node.findings) << '\n';
    }

    void writeStream(const DrawnPipe& pipe, size_t index) {
        const DrawnStream& stream = pipe.streams[index];
        const Lines lines = {clipped(stream.stream->name, NAME_COLUMNS),
                             formatTextOf(formatOf(stream))};
        if (stream.producers.size() == 1 && stream.consumers.size() == 1) {
            writeOneToOne(pipe, stream, lines);
            return;
        }
        const std::string id = streamElementId(pipe, index);
        mOut << "    " << id << "([" << label(lines) << "])\n";
        for (const DrawnEnd& end : stream.producers) {
            Lines remarks;
            append(remarksOn(stream, end, "produces"), &remarks);
            writeEdge({nodeElementId(pipe, end.node), "---", id, remarks, end.findings});
        }
        for (const DrawnEnd& end : stream.consumers) {
            Lines remarks;
            appendConsumer(stream, end, &remarks);
            writeEdge({id, arrowOf(end), nodeElementId(pipe, end.node), remarks, end.findings});
        }
        if (stream.producers.empty()) {
            writeLoose(id, stream, "no producer");
            writeEdge({id + "loose", "---", id, {}, stream.findings});
        }
        if (stream.consumers.empty()) {
            writeLoose(id, stream, "no consumer");
            writeEdge({id, "---", id + "loose", {}, stream.findings});
        }
    }

    void writeOneToOne(const DrawnPipe& pipe, const DrawnStream& stream, Lines lines) {
        const DrawnEnd& from = stream.producers.front();
        const DrawnEnd& to = stream.consumers.front();
        append(remarksOn(stream, from, "produces"), &lines);
        appendConsumer(stream, to, &lines);
        Findings findings = from.findings;
        findings.insert(findings.end(), to.findings.begin(), to.findings.end());
        writeEdge({nodeElementId(pipe, from.node),
                   arrowOf(to),
                   nodeElementId(pipe, to.node),
                   lines,
                   findings});
    }

    void writeLoose(const std::string& id, const DrawnStream& stream, const char* what) {
        Lines lines;
        append(remarksOnLoose(stream, what), &lines);
        mOut << "    " << id << "loose[" << label(lines) << ']' << classOf(stream.findings) << '\n'
             << "    style " << id << "loose stroke-dasharray:5 4\n";
    }

    static void appendConsumer(const DrawnStream& stream, const DrawnEnd& end, Lines* lines) {
        append(remarksOn(stream, end, "consumes"), lines);
        if (end.end->latestOnly) {
            lines->emplace_back("latest only");
        }
    }

    static const char* arrowOf(const DrawnEnd& consumer) {
        return consumer.end->latestOnly ? "-.->" : "-->";
    }

    struct Edge {
        std::string from;
        const char* arrow;
        std::string to;
        Lines lines;
        Findings findings;
    };

    void writeEdge(const Edge& edge) {
        mOut << "    " << edge.from << ' ' << edge.arrow
             << (edge.lines.empty() ? "" : '|' + label(edge.lines) + '|') << ' ' << edge.to << '\n';
        if (const auto worst = worstOf(edge.findings)) {
            mPainted[*worst] += (mPainted[*worst].empty() ? "" : ",") + std::to_string(mEdges);
        }
        ++mEdges;
    }

    void writeStyles() {
        const std::string text = std::string(",color:") + INK.light;
        mOut << "  classDef legend text-align:left\n  classDef error fill:" << ERROR_FILL.light
             << ",stroke:" << ERROR_LINE.light << ",stroke-width:3px" << text << '\n'
             << "  classDef warning fill:" << WARNING_FILL.light << ",stroke:" << WARNING_LINE.light
             << ",stroke-width:3px" << text << '\n';
        for (const auto& [severity, edges] : mPainted) {
            const Colour& colour = severity == Severity::Error ? ERROR_LINE : WARNING_LINE;
            mOut << "  linkStyle " << edges << " stroke:" << colour.light << ",stroke-width:3px\n";
        }
    }

    std::ostream& mOut;
    const Drawing& mDrawing;
    const MermaidRequest& mRequest;
    size_t mEdges = 0;
    std::map<Severity, std::string> mPainted;  // the numbers of edges, separated by commas
};

}  // namespace

void renderDrawMermaid(std::ostream& out, const Drawing& drawing, const MermaidRequest& request) {
    Flowchart(out, drawing, request).write();
}

}  // namespace qvgraph
