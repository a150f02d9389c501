#include "render/draw_words.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <set>
#include <type_traits>
#include <variant>
#include <vector>

#include "render/text.h"
#include "survey/keys.h"
#include "survey/option_value.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const char* const CUT = "...";
const size_t MAX_CODES = 4;
const size_t MAX_SETS = 40;
const size_t MAX_FINDINGS = 12;
const size_t MAX_OPTIONS = 30;
const size_t VALUE_COLUMNS = 32;

bool isOf(const Finding& finding, Severity severity) {
    return finding.severity == severity;
}

size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<size_t>(
        std::count_if(findings.begin(), findings.end(), [severity](const Finding* finding) {
            return isOf(*finding, severity);
        }));
}

// The byte at which the code point at a column begins; the text must be longer.
size_t byteOf(const std::string& printable, size_t column) {
    size_t byte = 0;
    for (; column > 0; --column) {
        do {
            ++byte;
        } while ((static_cast<unsigned char>(printable[byte]) & 0xC0) == 0x80);
    }
    return byte;
}

// Whether the title of a node or its streams show the option.
bool isShownElsewhere(std::string_view key) {
    return key == "node_name" || key == "stream_mode_in" || hasPrefix(key, "stream_input") ||
           hasPrefix(key, "stream_output") || hasPrefix(key, "stream_fmt_in") ||
           hasPrefix(key, "stream_fmt_out");
}

// If the id maps to a different key, the node that is set up is not this member.
std::string nameIn(const Node& node) {
    if (node.key == node.member) {
        return node.name;
    }
    const std::string* const name = storedString(node, "node_name");
    return name == nullptr ? "" : *name;
}

bool hasLatestOnlyConsumer(const DrawnStream& stream) {
    return std::any_of(stream.consumers.begin(), stream.consumers.end(), [](const DrawnEnd& end) {
        return end.end->latestOnly;
    });
}

template <typename Item>
std::string keyText(const Item& item) {
    const std::string member = clipped(item.member, NAME_COLUMNS);
    return item.key == item.member ? member : member + " (id " + std::to_string(item.id) + ')';
}

std::string andMore(size_t all, size_t max) {
    return "and " + std::to_string(all - max) + " more";
}

void appendSets(const std::vector<DrawnSet>& sets, std::vector<LegendLine>* lines) {
    for (size_t i = 0; i < std::min(sets.size(), MAX_SETS); ++i) {
        lines->push_back({worstOf(sets[i].findings),
                          keyTextOf(*sets[i].set),
                          optionsTextOf(sets[i].set->options)});
    }
    if (sets.size() > MAX_SETS) {
        lines->push_back({std::nullopt, "", andMore(sets.size(), MAX_SETS)});
    }
}

void appendFindings(const Drawing& drawing,
                    const Findings& findings,
                    std::vector<LegendLine>* lines) {
    const Findings painted = paintedOf(findings);
    for (size_t i = 0; i < std::min(painted.size(), MAX_FINDINGS); ++i) {
        const Finding& finding = *painted[i];
        lines->push_back({finding.severity,
                          toText(finding.severity) + (' ' + locationOf(drawing, finding)),
                          printable(finding.message) + " [" + std::string(finding.code) + ']'});
    }
    if (painted.size() > MAX_FINDINGS) {
        lines->push_back({std::nullopt, "", andMore(painted.size(), MAX_FINDINGS)});
    }
}

}  // namespace

std::optional<Severity> worstOf(const Findings& findings) {
    for (const Severity severity : {Severity::Error, Severity::Warning}) {
        if (countOf(findings, severity) > 0) {
            return severity;
        }
    }
    return std::nullopt;
}

Findings paintedOf(const Findings& findings) {
    Findings painted;
    for (const Severity severity : {Severity::Error, Severity::Warning}) {
        std::copy_if(findings.begin(),
                     findings.end(),
                     std::back_inserter(painted),
                     [severity](const Finding* finding) { return isOf(*finding, severity); });
    }
    return painted;
}

std::vector<Remark> remarksOn(const Findings& findings) {
    std::vector<Remark> remarks;
    std::set<std::string_view> codes;
    for (const Finding* finding : paintedOf(findings)) {
        if (codes.insert(finding->code).second && codes.size() <= MAX_CODES) {
            remarks.push_back({finding->severity,
                               toText(finding->severity) + (": " + std::string(finding->code))});
        }
    }
    if (codes.size() > MAX_CODES) {
        remarks.push_back({std::nullopt, andMore(codes.size(), MAX_CODES)});
    }
    return remarks;
}

std::vector<Remark> remarksOn(const DrawnStream& stream, const DrawnEnd& end, const char* verb) {
    std::vector<Remark> remarks = remarksOn(end.findings);
    if (formatTextOf(end.end->format) != formatTextOf(formatOf(stream))) {
        remarks.insert(remarks.begin(),
                       {std::nullopt, verb + (' ' + formatTextOf(end.end->format))});
    }
    return remarks;
}

std::vector<Remark> remarksOnLoose(const DrawnStream& stream, const char* what) {
    const std::vector<Remark> remarks = remarksOn(stream.findings);
    return remarks.empty() ? std::vector<Remark>{{std::nullopt, what}} : remarks;
}

std::vector<LegendLine> legendOf(const Drawing& drawing, const DrawnPipe& pipe) {
    std::vector<LegendLine> lines;
    appendSets(pipe.executors, &lines);
    appendSets(pipe.links, &lines);
    appendFindings(drawing, pipe.allFindings, &lines);
    return lines;
}

std::vector<LegendLine> legendOf(const Drawing& drawing) {
    std::vector<LegendLine> lines;
    appendFindings(drawing, drawing.findings, &lines);
    return lines;
}

const std::string* formatOf(const DrawnStream& stream) {
    return (stream.producers.empty() ? stream.consumers : stream.producers).front().end->format;
}

std::string formatTextOf(const std::string* format) {
    if (format == nullptr) {
        return "(no format)";
    }
    return clipped(*format, NAME_COLUMNS);
}

std::string factsOf(const DrawnPipe& pipe) {
    const int threads = pipe.pipe->threads;
    return std::to_string(threads) + (threads == 1 ? " executor thread" : " executor threads") +
           ", default link mode " + clipped(pipe.pipe->linkMode, NAME_COLUMNS);
}

bool hasLatestOnly(const Drawing& drawing) {
    return std::any_of(drawing.pipes.begin(), drawing.pipes.end(), [](const DrawnPipe& pipe) {
        return std::any_of(pipe.streams.begin(), pipe.streams.end(), hasLatestOnlyConsumer);
    });
}

std::string locationOf(const Drawing& drawing, const Finding& finding) {
    const Position position = drawing.file->source->position(finding.span.begin);
    return std::to_string(position.line) + ':' + std::to_string(position.column);
}

std::string mistakesIn(const Drawing& drawing) {
    Findings findings = drawing.findings;
    for (const DrawnPipe& pipe : drawing.pipes) {
        findings.insert(findings.end(), pipe.allFindings.begin(), pipe.allFindings.end());
    }
    std::vector<std::string> counts;
    for (const Severity severity : {Severity::Error, Severity::Warning}) {
        if (const size_t count = countOf(findings, severity)) {
            counts.push_back(counted(count, toText(severity)));
        }
    }
    return listOf(counts);
}

std::string summaryOf(const Drawing& drawing) {
    size_t nodes = 0;
    for (const DrawnPipe& pipe : drawing.pipes) {
        nodes += pipe.nodes.size();
    }
    const std::string mistakes = mistakesIn(drawing);
    return counted(drawing.pipes.size(), "pipe") + ", " + counted(nodes, "node") +
           (mistakes.empty() ? "" : ", " + mistakes);
}

NodeName nameOf(const Node& node) {
    const std::string name = nameIn(node);
    if (name.empty()) {
        return {"(no name)", ""};
    }
    const size_t label = std::min(name.find('#'), name.size());
    return {printable(name.substr(0, label)), printable(name.substr(label))};
}

std::string keyOf(const DrawnPipe& pipe) {
    return std::string(pipe.pipe->value->key);
}

std::string keyTextOf(const Node& node) {
    return keyText(node);
}

std::string keyTextOf(const OptionSet& set) {
    return keyText(set);
}

std::string valueTextOf(const OptionValue& value) {
    return std::visit(
        [](const auto& plain) -> std::string {
            using Plain = std::decay_t<decltype(plain)>;
            if constexpr (std::is_same_v<Plain, std::string>) {
                return '"' + printable(plain) + '"';
            } else if constexpr (std::is_same_v<Plain, float>) {
                return floatText(plain);
            } else {
                return std::to_string(plain);
            }
        },
        value);
}

std::string optionsTextOf(const Options& options) {
    std::string text;
    for (const auto& [key, value] : options) {
        text += (text.empty() ? "" : ", ") + clipped(key, NAME_COLUMNS) + ' ' + valueTextOf(value);
    }
    return text;
}

std::vector<OptionLine> optionLinesOf(const Node& node) {
    std::vector<OptionLine> lines;
    size_t count = 0;
    for (const Option* option : storedOptions(node)) {
        const std::string_view key = untilNul(option->member->key);
        if (!isShownElsewhere(key) && ++count <= MAX_OPTIONS) {
            lines.push_back(
                {clipped(key, NAME_COLUMNS), clipped(valueTextOf(*option->stored), VALUE_COLUMNS)});
        }
    }
    if (count > MAX_OPTIONS) {
        lines.push_back({"", andMore(count, MAX_OPTIONS)});
    }
    return lines;
}

std::string clipped(std::string_view text, size_t columns) {
    std::string all = printable(text);
    if (columnsOf(all) > columns) {
        all.resize(byteOf(all, columns - strlen(CUT)));
        all += CUT;
    }
    return all;
}

std::vector<std::string> linesOf(std::string_view text, size_t columns) {
    std::string rest = printable(text);
    std::vector<std::string> lines;
    while (columnsOf(rest) > columns) {
        const size_t fits = byteOf(rest, columns);
        const size_t blank = rest.rfind(' ', fits);
        const bool breaks = blank != std::string::npos && blank > 0;
        lines.push_back(rest.substr(0, breaks ? blank : fits));
        rest.erase(0, breaks ? blank + 1 : fits);
    }
    lines.push_back(rest);
    return lines;
}

}  // namespace qvgraph
