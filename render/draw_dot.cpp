#include "render/draw_dot.h"

#include <vector>

#include "render/dot_labels.h"
#include "render/dot_text.h"
#include "render/draw_words.h"
#include "render/palette.h"
#include "render/text.h"

namespace qvgraph {

namespace {

// DejaVu and Verdana have the same widths: text that is laid out in one fits its
// box in the other.
const char* const FONT = "DejaVu Sans,Verdana,sans-serif";

// With more nodes, the layout may be worse but takes less time.
const size_t MANY_NODES = 400;

size_t countNodes(const Drawing& drawing) {
    size_t nodes = 0;
    for (const DrawnPipe& pipe : drawing.pipes) {
        nodes += pipe.nodes.size();
    }
    return nodes;
}

// The tooltip of a thing: its description and its findings.
std::string tooltipOf(const std::string& thing, const Findings& findings) {
    std::string text = thing;
    for (const Finding* finding : paintedOf(findings)) {
        text += std::string("; ") + toText(finding->severity) + ": " + printable(finding->message);
    }
    return text;
}

std::string tooltipOf(const DrawnNode& drawn) {
    const Node& node = *drawn.node;
    const NodeName name = nameOf(node);
    return tooltipOf(keyTextOf(node) + ": " + name.className + name.label + ", class " +
                         name.className + ", id " + std::to_string(node.id),
                     drawn.findings);
}

// The name of a node in the graph: its key if its id maps back to it, otherwise
// its position.
std::string nameInGraph(const DrawnPipe& pipe, size_t index) {
    const Node& node = *pipe.nodes[index].node;
    return keyOf(pipe) + '/' +
           (node.key == node.member ? node.member : '#' + std::to_string(index));
}

// Writes one stream: its text, and the lines to and from the text.
class StreamWriter {
public:
    StreamWriter(std::ostream& out, const DrawnPipe& pipe, size_t index)
        : mOut(out),
          mPipe(pipe),
          mStream(pipe.streams[index]),
          mName(keyOf(pipe) + "/stream_" + std::to_string(index)),
          mId(streamElementId(pipe, index)) {}

    void write() {
        writeText(mName,
                  DotAttributes()
                      .set("label", dotLabel(streamLabel(mStream)))
                      .setString("tooltip", "stream " + printable(mStream.stream->name))
                      .setString("id", mId));
        for (const DrawnEnd& end : mStream.producers) {
            writeProducer(end);
        }
        for (const DrawnEnd& end : mStream.consumers) {
            writeConsumer(end);
        }
        if (mStream.producers.empty()) {
            writeLoose("no producer");
            writeLine(mName + "/loose", mName, looseLine());
        }
        if (mStream.consumers.empty()) {
            writeLoose("no consumer");
            writeLine(mName, mName + "/loose", looseLine());
        }
    }

private:
    void writeText(const std::string& name, DotAttributes attributes) {
        attributes.set("shape", "plain")
            .set("fontsize", "10")
            .set("style", "\"\"")
            .setString("class", "stream");
        mOut << "    " << dotString(name) << ' ' << attributes.text() << '\n';
    }

    void writeLine(const std::string& from, const std::string& to, DotAttributes attributes) {
        attributes.setString("id", mId + 'e' + std::to_string(mLines++))
            .setString("class", "stream");
        mOut << "    " << dotString(from) << " -> " << dotString(to) << ' ' << attributes.text()
             << '\n';
    }

    // Writes the box at a missing end.
    void writeLoose(const char* what) {
        mOut << "    " << dotString(mName + "/loose") << ' '
             << DotAttributes()
                    .set("label", dotLabel(remarkLabel(remarksOnLoose(mStream, what))))
                    .setString("id", mId + "loose")
                    .setString("tooltip", tooltipOf(what, mStream.findings))
                    .setString("style", "rounded,dashed")
                    .setString("margin", "0.06,0.03")
                    .set("height", "0.3")
                    .setString("color", lineColourOf(mStream.findings, FAINT_INK).light)
                    .setString("class", "stream")
                    .text()
             << '\n';
    }

    DotAttributes looseLine() const { return lineOf(mStream.findings).set("arrowhead", "none"); }

    static DotAttributes lineOf(const Findings& findings) {
        DotAttributes line;
        if (worstOf(findings)) {
            line.setString("color", lineColourOf(findings, STREAM_LINE).light)
                .set("penwidth", "2.2");
        }
        return line;
    }

    // Writes the remarks on one end, which are in the middle of its line. Returns the
    // name of the graph's node that the line leads to.
    std::string writeRemark(const DrawnEnd& end, const char* verb) {
        const std::vector<Remark> remarks = remarksOn(mStream, end, verb);
        if (remarks.empty()) {
            return mName;
        }
        const std::string number = std::to_string(mRemarks++);
        std::string name = mName + "/remark_" + number;
        writeText(
            name,
            DotAttributes()
                .set("label", dotLabel(remarkLabel(remarks)))
                .setString("id", mId + 'r' + number)
                .setString("tooltip",
                           tooltipOf("stream " + printable(mStream.stream->name), end.findings)));
        return name;
    }

    // Streams stay close to their producers: these lines have more weight.
    void writeProducer(const DrawnEnd& end) {
        const std::string remark = writeRemark(end, "produces");
        const DotAttributes line = lineOf(end.findings).set("arrowhead", "none").set("weight", "4");
        writeLine(nameInGraph(mPipe, end.node), remark, line);
        if (remark != mName) {
            writeLine(remark, mName, line);
        }
    }

    void writeConsumer(const DrawnEnd& end) {
        const std::string remark = writeRemark(end, "consumes");
        DotAttributes line = lineOf(end.findings);
        if (end.end->latestOnly) {
            line.set("style", "dashed");
        }
        if (remark != mName) {
            writeLine(mName, remark, DotAttributes(line).set("arrowhead", "none"));
        }
        if (end.end->latestOnly) {
            line.set("arrowhead", "normalnormal");
        }
        writeLine(remark, nameInGraph(mPipe, end.node), line);
    }

    std::ostream& mOut;
    const DrawnPipe& mPipe;
    const DrawnStream& mStream;
    std::string mName;
    std::string mId;
    size_t mLines = 0;
    size_t mRemarks = 0;
};

void writeNode(std::ostream& out, const DrawnPipe& pipe, size_t index, bool options) {
    const DrawnNode& node = pipe.nodes[index];
    DotAttributes attributes;
    attributes.set("label", dotLabel(nodeLabel(node, options)))
        .setString("tooltip", tooltipOf(node))
        .setString("id", nodeElementId(pipe, index))
        .setString("class", "node");
    if (const auto worst = worstOf(node.findings)) {
        const bool isError = *worst == Severity::Error;
        attributes.setString("color", lineColourOf(node.findings, NODE_LINE).light)
            .setString("fillcolor", (isError ? ERROR_FILL : WARNING_FILL).light)
            .set("penwidth", "2.2")
            .set("peripheries", isError ? "2" : "1");
    }
    out << "    " << dotString(nameInGraph(pipe, index)) << ' ' << attributes.text() << '\n';
}

void writePipe(std::ostream& out, const Drawing& drawing, const DrawnPipe& pipe, bool options) {
    out << "  subgraph " << dotString("cluster_" + keyOf(pipe)) << " {\n    graph "
        << DotAttributes()
               .set("label", dotLabel(pipeLabel(drawing, pipe)))
               .set("margin", "14")
               .setString("tooltip", keyOf(pipe))
               .setString("id", elementIdOf(pipe))
               .setString("class", "pipe")
               .text()
        << '\n';
    for (size_t i = 0; i < pipe.nodes.size(); ++i) {
        writeNode(out, pipe, i, options);
    }
    for (size_t i = 0; i < pipe.streams.size(); ++i) {
        StreamWriter(out, pipe, i).write();
    }
    if (pipe.nodes.empty()) {
        out << "    " << dotString(keyOf(pipe) + "/empty") << ' '
            << DotAttributes()
                   .set("label", dotLabel(dotFont(FAINT_INK, 10, "no nodes")))
                   .set("shape", "plain")
                   .set("style", "\"\"")
                   .text()
            << '\n';
    }
    out << "  }\n";
}

void writeDefaults(std::ostream& out, const Drawing& drawing) {
    DotAttributes graph;
    graph.set("label", dotLabel(titleLabel(drawing)))
        .set("labelloc", "t")
        .set("labeljust", "l")
        .set("rankdir", "LR")
        .set("nodesep", "0.2")
        .set("ranksep", "0.5")
        .set("pad", "0.2")
        .setString("fontname", FONT)
        .setString("bgcolor", PAPER.light)
        .setString("style", "rounded,filled")
        .setString("color", PIPE_LINE.light)
        .setString("fillcolor", PIPE_FILL.light);
    if (countNodes(drawing) > MANY_NODES) {
        graph.set("mclimit", "0.3").set("nslimit", "1");
    }
    DotAttributes node;
    node.set("shape", "box")
        .setString("style", "rounded,filled")
        .setString("fontname", FONT)
        .set("fontsize", "12")
        .setString("fontcolor", INK.light)
        .setString("color", NODE_LINE.light)
        .setString("fillcolor", NODE_FILL.light)
        .set("penwidth", "1.2")
        .setString("margin", "0.14,0.07");
    DotAttributes edge;
    edge.setString("color", STREAM_LINE.light)
        .set("arrowsize", "0.8")
        .set("tailport", "e")
        .set("headport", "w");
    out << "  graph " << graph.text() << "\n  node " << node.text() << "\n  edge " << edge.text()
        << '\n';
}

}  // namespace

std::string elementIdOf(const DrawnPipe& pipe) {
    return 'p' + std::to_string(pipe.pipe->index);
}

std::string nodeElementId(const DrawnPipe& pipe, size_t node) {
    return elementIdOf(pipe) + 'n' + std::to_string(node);
}

std::string streamElementId(const DrawnPipe& pipe, size_t stream) {
    return elementIdOf(pipe) + 's' + std::to_string(stream);
}

// Graphviz places the last of several clusters on top.
void renderDrawDot(std::ostream& out, const Drawing& drawing, const DotRequest& request) {
    out << "digraph " << dotString(drawing.title) << " {\n";
    writeDefaults(out, drawing);
    for (auto pipe = drawing.pipes.rbegin(); pipe != drawing.pipes.rend(); ++pipe) {
        writePipe(out, drawing, *pipe, request.options);
    }
    out << "}\n";
}

}  // namespace qvgraph
