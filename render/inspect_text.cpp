#include "render/inspect_text.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "render/text.h"
#include "survey/option_value.h"

namespace qvgraph {

namespace {

using Row = std::vector<std::string>;  // printable cells

// The indents of the lines of a pipe, by depth.
const size_t SECTION = 2;
const size_t ITEM = 4;
const size_t DETAIL = 9;

// A cell wider than this does not widen its column.
const size_t MAX_ALIGNED = 28;

// The maximum number of columns before the last cell of a row.
const size_t MAX_BEFORE_LAST = 60;

class Report {
public:
    Report(std::ostream& out, bool colour) : mOut(out), mColour(colour) {}

    void write(const std::string& file, const Survey& survey);
    void writeClasses(const NodeClasses& classes);

private:
    void writePipe(const SurveyedPipe& pipe);
    void writeSets(const char* title, const std::vector<SurveyedOptionSet>& sets);
    void writeNodes(const std::vector<SurveyedNode>& nodes);
    void writeNode(const SurveyedNode& node, const Row& head, const std::vector<size_t>& widths);
    void writeStreams(const std::vector<SurveyedStream>& streams);
    void writeRows(const std::vector<Row>& rows, size_t indent);
    void writeRow(const Row& row, const std::vector<size_t>& widths, size_t indent);

    std::string bold(const std::string& text) const { return paint(text, "\033[1m"); }
    std::string good(const std::string& text) const { return paint(text, "\033[32m"); }
    std::string bad(const std::string& text) const { return paint(text, "\033[1;31m"); }
    std::string paint(const std::string& text, const char* colour) const {
        return mColour ? colour + text + "\033[0m" : text;
    }

    std::ostream& mOut;
    bool mColour;
    std::vector<NodeClass> mClasses;  // the registered ones
};

std::string counted(size_t number, const std::string& thing) {
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

std::string blanks(size_t number) {
    return std::string(number, ' ');
}

std::string quoted(const std::string& text) {
    return '"' + printable(text) + '"';
}

std::vector<size_t> widthsOf(const std::vector<Row>& rows) {
    std::vector<size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(columnsOf(row[i]), MAX_ALIGNED));
        }
    }
    return widths;
}

std::string valueText(const OptionValue& value) {
    return std::visit(
        [](const auto& plain) -> std::string {
            using Plain = std::decay_t<decltype(plain)>;
            if constexpr (std::is_same_v<Plain, std::string>) {
                return quoted(plain);
            } else if constexpr (std::is_same_v<Plain, float>) {
                return floatText(plain);
            } else {
                return std::to_string(plain);
            }
        },
        value);
}

std::vector<Row> rowsOf(const Options& options) {
    std::vector<Row> rows;
    for (const auto& [key, value] : options) {
        rows.push_back({printable(key), typeName(value), valueText(value)});
    }
    return rows;
}

Row rowOf(const char* side, const SurveyedEnd& end) {
    if (!end.name) {
        return {side, "-", "(not wired)"};
    }
    Row row = {side,
               std::to_string(*end.id),
               printable(*end.name),
               !end.format           ? "(no format)"
               : end.format->empty() ? "\"\""
                                     : printable(*end.format)};
    if (end.remainNewest) {
        row.emplace_back("latest only");
    }
    return row;
}

std::vector<Row> wiringOf(const SurveyedNode& node) {
    std::vector<Row> rows;
    for (const SurveyedEnd& input : node.inputEnds) {
        rows.push_back(rowOf("in", input));
    }
    for (const SurveyedEnd& output : node.outputEnds) {
        rows.push_back(rowOf("out", output));
    }
    return rows;
}

bool isRegistered(const std::string& className, const std::vector<NodeClass>& classes) {
    return std::any_of(classes.begin(), classes.end(), [&](const NodeClass& nodeClass) {
        return nodeClass.name == className;
    });
}

// Marks stubs only if there are classes. A class is marked as registered even if
// it created no node.
std::string nameOf(const SurveyedNode& node, const std::vector<NodeClass>& classes) {
    if (node.name.empty()) {
        return "(no name)";
    }
    std::string name = printable(node.name);
    if (node.name != node.className) {
        name += ", class " + printable(node.className);
    }
    if (isRegistered(node.className, classes)) {
        return name + " (registered)";
    }
    return name + (!classes.empty() && node.outcome != Outcome::NotCreated ? " (stub)" : "");
}

template <typename Item>
Row headOf(const Item& item) {
    return {std::to_string(item.index),
            item.key.value_or("(no such key)"),
            "id " + std::to_string(item.id)};
}

template <typename Item>
std::vector<Row> headsOf(const std::vector<Item>& items) {
    std::vector<Row> heads(items.size());
    std::transform(items.begin(), items.end(), heads.begin(), headOf<Item>);
    return heads;
}

std::string joined(const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts) {
        line += (line.empty() ? "" : ", ") + text;
    }
    return line;
}

void Report::write(const std::string& file, const Survey& survey) {
    mClasses = survey.nodeClasses.classes;
    mOut << printable(file) << ": " << counted(survey.pipes.size(), "pipe") << ", "
         << textOf(readinessOf(survey)) << '\n';
    for (const SurveyedPipe& pipe : survey.pipes) {
        writePipe(pipe);
    }
}

void Report::writeClasses(const NodeClasses& classes) {
    std::vector<Row> rows;
    for (const NodeClass& nodeClass : classes.classes) {
        rows.push_back({printable(nodeClass.name),
                        nodeClass.origin.empty() ? "the program" : printable(nodeClass.origin)});
    }
    writeRows(rows, 0);
    if (rows.empty()) {
        mOut << "no node classes are registered\n";
    }
    mOut << (classes.stub ? "a stub stands in for all other classes\n"
                          : "there is no stub for other classes\n");
}

void Report::writePipe(const SurveyedPipe& pipe) {
    mOut << '\n';
    if (!pipe.key) {
        mOut << bold("pipe " + std::to_string(pipe.index)) << ": there is no \"pipe_" << pipe.index
             << "\"\n";
        return;
    }
    mOut << bold(*pipe.key) << ": index " << pipe.index << ", " << pipe.threads
         << (pipe.threads == 1 ? " executor thread" : " executor threads") << ", default link mode "
         << printable(pipe.linkMode) << '\n';
    writeSets("executors", pipe.executors);
    writeSets("links", pipe.links);
    writeNodes(pipe.nodes);
    writeStreams(pipe.streams);
}

void Report::writeSets(const char* title, const std::vector<SurveyedOptionSet>& sets) {
    if (sets.empty()) {
        return;
    }
    const std::vector<Row> heads = headsOf(sets);
    mOut << '\n' << blanks(SECTION) << title << '\n';
    const std::vector<size_t> widths = widthsOf(heads);
    for (size_t i = 0; i < sets.size(); ++i) {
        writeRow(heads[i], widths, ITEM);
        writeRows(rowsOf(sets[i].options), DETAIL);
    }
}

void Report::writeNodes(const std::vector<SurveyedNode>& nodes) {
    if (nodes.empty()) {
        return;
    }
    std::vector<Row> heads = headsOf(nodes);
    const std::vector<size_t> widths = widthsOf(heads);
    mOut << '\n' << blanks(SECTION) << "nodes\n";
    for (size_t i = 0; i < nodes.size(); ++i) {
        mOut << (i > 0 ? "\n" : "");
        heads[i].push_back(nameOf(nodes[i], mClasses));
        writeNode(nodes[i], heads[i], widths);
    }
}

void Report::writeNode(const SurveyedNode& node,
                       const Row& head,
                       const std::vector<size_t>& widths) {
    writeRow(head, widths, ITEM);
    mOut << blanks(DETAIL);
    const std::string outcome = toText(node.outcome);
    mOut << (node.outcome == Outcome::Ready ? good(outcome) : bad(outcome));
    if (node.message.empty()) {
        mOut << '\n';
    } else {
        mOut << ": ";
        writeWrapped(mOut, printable(node.message), DETAIL + columnsOf(outcome) + 2);
    }
    writeRows(wiringOf(node), DETAIL);
    writeRows(rowsOf(node.options), DETAIL);
}

void Report::writeStreams(const std::vector<SurveyedStream>& streams) {
    if (streams.empty()) {
        return;
    }
    std::vector<Row> rows = {{"id", "name", "producer", "consumers"}};
    for (const SurveyedStream& stream : streams) {
        rows.push_back({std::to_string(stream.id),
                        printable(stream.name),
                        stream.producer.value_or("(none)"),
                        stream.consumers.empty() ? "(none)" : joined(stream.consumers)});
    }
    mOut << '\n' << blanks(SECTION) << "streams\n";
    writeRows(rows, ITEM);
}

void Report::writeRows(const std::vector<Row>& rows, size_t indent) {
    const std::vector<size_t> widths = widthsOf(rows);
    for (const Row& row : rows) {
        writeRow(row, widths, indent);
    }
}

// The last cell takes the rest of the line and of further lines. If the cells
// before it leave too little space, the entire row is wrapped.
void Report::writeRow(const Row& row, const std::vector<size_t>& widths, size_t indent) {
    std::string line = blanks(indent);
    for (size_t i = 0; i + 1 < row.size(); ++i) {
        line += padded(row[i], widths[i]) + "  ";
    }
    if (columnsOf(line) <= MAX_BEFORE_LAST) {
        mOut << line;
        writeWrapped(mOut, row.back(), columnsOf(line));
    } else {
        mOut << blanks(indent);
        writeWrapped(mOut, line.substr(indent) + row.back(), indent);
    }
}

}  // namespace

std::string textOf(const Readiness& readiness) {
    if (readiness.nodes == 0) {
        return "no nodes";
    }
    const std::string nodes = counted(readiness.nodes, "node") + ", ";
    if (readiness.nodes == 1) {
        return nodes + (readiness.notReady == 0 ? "ready" : "not ready");
    }
    return nodes + (readiness.notReady == 0
                        ? "all ready"
                        : std::to_string(readiness.notReady) + " of them not ready");
}

void renderClassesText(std::ostream& out, const NodeClasses& classes) {
    Report(out, false).writeClasses(classes);
}

void renderInspectText(std::ostream& out,
                       const std::string& file,
                       const Survey& survey,
                       bool colour) {
    Report(out, colour).write(file, survey);
}

}  // namespace qvgraph
