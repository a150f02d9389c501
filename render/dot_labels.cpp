#include "render/dot_labels.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "check/directed_graph.h"
#include "render/dot_text.h"
#include "render/draw_words.h"
#include "render/text.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const size_t LEGEND_COLUMNS = 110;

const int HEADING = 16;
const int SMALL = 10;
const int TINY = 9;

using Lines = std::vector<std::string>;

const Colour& lineColourOf(Severity severity) {
    return severity == Severity::Error ? ERROR_LINE : WARNING_LINE;
}

std::string shown(std::string_view text) {
    return dotHtml(clipped(text, NAME_COLUMNS));
}

Lines linesOn(const std::vector<Remark>& remarks) {
    Lines lines;
    for (const Remark& remark : remarks) {
        const Colour& colour = remark.severity ? lineColourOf(*remark.severity) : FAINT_INK;
        lines.push_back(dotFont(colour, SMALL, dotHtml(remark.text)));
    }
    return lines;
}

void appendLegend(const std::vector<LegendLine>& legend, Lines* rows) {
    for (const LegendLine& line : legend) {
        Lines texts;
        for (const std::string& text : linesOf(line.text, LEGEND_COLUMNS)) {
            texts.push_back(dotHtml(text));
        }
        const Colour& colour = line.severity ? lineColourOf(*line.severity) : INK;
        const std::string head = dotBold(dotHtml(line.head));
        rows->push_back(
            dotFont(colour, SMALL, head + (head.empty() ? "" : "  ") + dotLines(texts)));
    }
}

std::string headingRow(const Colour& colour, const std::string& head, const std::string& text) {
    return dotFont(colour, HEADING, dotBold(shown(head))) + "  " +
           dotFont(FAINT_INK, SMALL, dotHtml(text));
}

// Whether the pipe has a cycle. A stream is a vertex, after the nodes, since many
// nodes may produce and consume it.
bool hasCycle(const DrawnPipe& pipe) {
    const size_t nodes = pipe.nodes.size();
    Edges edges(nodes + pipe.streams.size());
    for (size_t i = 0; i < pipe.streams.size(); ++i) {
        for (const DrawnEnd& producer : pipe.streams[i].producers) {
            edges[producer.node].push_back(nodes + i);
        }
        for (const DrawnEnd& consumer : pipe.streams[i].consumers) {
            edges[nodes + i].push_back(consumer.node);
        }
    }
    return !cyclesIn(edges).empty();
}

// An empty row. The feedback of a cycle is drawn as an arc above the nodes, which
// would cross the text there.
std::string spaceForArcs() {
    return dotFont(INK, 2 * HEADING, "&#160;");
}

}  // namespace

const Colour& lineColourOf(const Findings& findings, const Colour& otherwise) {
    const std::optional<Severity> worst = worstOf(findings);
    return worst ? lineColourOf(*worst) : otherwise;
}

std::string titleLabel(const Drawing& drawing) {
    Lines rows = {headingRow(INK, drawing.title, summaryOf(drawing))};
    if (hasLatestOnly(drawing)) {
        rows.push_back(
            dotFont(FAINT_INK, SMALL, dotHtml("- - - >>  input keeps the latest item only")));
    }
    appendLegend(legendOf(drawing), &rows);
    return dotRows(rows);
}

std::string pipeLabel(const Drawing& drawing, const DrawnPipe& pipe) {
    Lines rows = {headingRow(lineColourOf(pipe.findings, INK), keyOf(pipe), factsOf(pipe))};
    appendLegend(legendOf(drawing, pipe), &rows);
    if (hasCycle(pipe)) {
        rows.push_back(spaceForArcs());
    }
    return dotRows(rows);
}

std::string nodeLabel(const DrawnNode& node, bool options) {
    const NodeName name = nameOf(*node.node);
    const std::string className = clipped(name.className, NAME_COLUMNS);
    const std::string rest = clipped(name.label, NAME_COLUMNS);
    Lines lines = {dotBold(dotHtml(className)) + dotHtml(rest),
                   dotFont(FAINT_INK, TINY, dotHtml(keyTextOf(*node.node)))};
    const Lines remarks = linesOn(remarksOn(node.findings));
    lines.insert(lines.end(), remarks.begin(), remarks.end());
    Lines rows = {dotLines(lines)};
    for (const OptionLine& line : options ? optionLinesOf(*node.node) : std::vector<OptionLine>()) {
        rows.push_back(dotFont(FAINT_INK, TINY, dotHtml(line.key)) +
                       dotFont(INK, TINY, (line.key.empty() ? "" : "  ") + dotHtml(line.value)));
    }
    return rows.size() == 1 ? rows.front() : dotRows(rows);
}

std::string streamLabel(const DrawnStream& stream) {
    const std::string format = formatTextOf(formatOf(stream));
    return dotPadded(
        dotLines({shown(stream.stream->name), dotFont(FAINT_INK, TINY, dotHtml(format))}));
}

std::string remarkLabel(const std::vector<Remark>& remarks) {
    return dotPadded(dotLines(linesOn(remarks)));
}

}  // namespace qvgraph
