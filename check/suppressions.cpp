#include "check/suppressions.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <utility>

#include "check/rules.h"
#include "check/similar.h"
#include "check/suppression_comments.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

// A code in a comment, and the line whose findings it suppresses.
struct Suppression {
    std::string_view code;
    Span span;
    size_t line = 0;       // 0 if no line follows
    bool isAbove = false;  // it is on a line before the one whose findings it suppresses
};

// ---- Lines ------------------------------------------------------------------

// The lines of a text, and which of them have more than suppression comments.
class Lines {
public:
    Lines(const std::string& text, const std::vector<SuppressionComment>& comments) {
        std::string rest = text;
        for (const SuppressionComment& comment : comments) {
            std::replace_if(
                rest.begin() + static_cast<std::ptrdiff_t>(comment.span.begin),
                rest.begin() + static_cast<std::ptrdiff_t>(comment.span.end),
                [](char c) { return c != '\n'; },
                ' ');
        }
        std::vector<bool> hasMore;
        for (size_t begin = 0; begin <= rest.size();) {
            const size_t end = std::min(rest.find('\n', begin), rest.size());
            const std::string_view line = std::string_view(rest).substr(begin, end - begin);
            mBegins.push_back(begin);
            hasMore.push_back(line.find_first_not_of(" \t\r\n") != std::string_view::npos);
            begin = end + 1;
        }
        mNextWithMore.assign(mBegins.size() + 1, 0);
        for (size_t line = mBegins.size(); line > 0; --line) {
            mNextWithMore[line - 1] = hasMore[line - 1] ? line : mNextWithMore[line];
        }
    }

    size_t lineOf(size_t byte) const {
        const auto next = std::upper_bound(mBegins.begin(), mBegins.end(), byte);
        return static_cast<size_t>(next - mBegins.begin());
    }

    size_t count() const { return mBegins.size(); }

    // The first line from this one on that has more; 0 for none.
    size_t nextWithMore(size_t line) const { return mNextWithMore[line - 1]; }

private:
    std::vector<size_t> mBegins;        // of the lines
    std::vector<size_t> mNextWithMore;  // from each line on; the first line is 1
};

std::vector<Suppression> suppressionsIn(const Source& source,
                                        const Lines& lines,
                                        const std::vector<SuppressionComment>& comments) {
    std::vector<Suppression> suppressions;
    for (const SuppressionComment& comment : comments) {
        const size_t first = lines.lineOf(comment.span.begin);
        const bool isAbove = lines.nextWithMore(first) != first;
        const size_t line =
            isAbove ? lines.nextWithMore(lines.lineOf(comment.span.end - 1)) : first;
        for (const Span& code : comment.codes) {
            const std::string_view text =
                std::string_view(source.text()).substr(code.begin, code.end - code.begin);
            suppressions.push_back({text, code, line, isAbove});
        }
    }
    return suppressions;
}

// ---- What is not read -------------------------------------------------------

// The lines with values that no other rule examines: members that a later member
// with the same key overrides, and values that are there in place of an object. A
// finding at the value reports that the device does not read it.
class UnreadLines {
public:
    // REQUIRES: the text is JSON.
    UnreadLines(const Source& source, const Lines& lines, const std::vector<Finding>& findings)
        : mIsRootRead(source.values().front().isObject()), mChanges(lines.count() + 2) {
        std::set<size_t> begins;
        for (const Finding& finding : findings) {
            if (findRule(finding.code)->scope == Scope::Unread) {
                begins.insert(finding.span.begin);
            }
        }
        for (const Value& value : source.values()) {
            const bool isUnread = value.overriddenBy != nullptr ||
                                  begins.count(value.keySpan.begin) != 0 ||
                                  begins.count(value.span.begin) != 0;
            if (isUnread) {
                add(lines, {value.keySpan.begin, value.span.end});
            }
        }
        std::partial_sum(mChanges.begin(), mChanges.end(), mChanges.begin());
    }

    bool has(size_t line) const { return !mIsRootRead || mChanges[line] > 0; }

private:
    void add(const Lines& lines, Span span) {
        ++mChanges[lines.lineOf(span.begin)];
        --mChanges[lines.lineOf(span.end - 1) + 1];
    }

    bool mIsRootRead;
    // The change of the number of values from line to line; after the constructor,
    // the numbers themselves.
    std::vector<int> mChanges;
};

// ---- Suppressing ------------------------------------------------------------

// Whether each suppression suppresses a finding, by line and code.
using Uses = std::map<std::pair<size_t, std::string_view>, bool>;

// The lines on which a comment can suppress a finding: that of the finding, and
// those of its related locations.
std::vector<size_t> linesOf(const Lines& lines, const Finding& finding) {
    std::vector<size_t> found = {lines.lineOf(finding.span.begin)};
    for (const Related& related : finding.related) {
        found.push_back(lines.lineOf(related.span.begin));
    }
    return found;
}

// Removes the findings that are suppressed. Returns which suppressions are used.
Uses suppress(const Lines& lines,
              const std::vector<Suppression>& suppressions,
              std::vector<Finding>* findings) {
    Uses uses;
    for (const Suppression& suppression : suppressions) {
        uses.emplace(std::make_pair(suppression.line, suppression.code), false);
    }
    const auto isSuppressed = [&](const Finding& finding) {
        if (finding.severity == Severity::Error) {
            return false;
        }
        bool isFound = false;
        for (const size_t line : linesOf(lines, finding)) {
            const auto use = uses.find({line, finding.code});
            if (use != uses.end()) {
                use->second = true;
                isFound = true;
            }
        }
        return isFound;
    };
    std::erase_if(*findings, isSuppressed);
    return uses;
}

void reportUnused(const Suppression& suppression, const UnreadLines& unread, Reporter* report) {
    const Rule* rule = findRule(suppression.code);
    if (rule == nullptr) {
        const std::string nearest = nearestTo(suppression.code, ruleCodes());
        report->at(suppression.span, "", "there is no rule " + quoted(suppression.code)).hint =
            nearest.empty() ? "remove it" : "write " + quoted(nearest);
    } else if (rule->severity == Severity::Error) {
        report
            ->at(suppression.span,
                 "",
                 quoted(suppression.code) + " is an error, and errors are never suppressed")
            .hint = "remove it, and fix the error";
    } else if (!unread.has(suppression.line)) {
        report
            ->at(suppression.span,
                 "",
                 std::string(suppression.isAbove ? "the line below" : "this line") + " has no " +
                     quoted(suppression.code) + " to suppress")
            .hint = "remove it";
    }
}

void reportMalformed(const std::vector<SuppressionComment>& comments, Reporter* report) {
    for (const SuppressionComment& comment : comments) {
        if (comment.codes.empty()) {
            report->at(comment.span, "", "this comment names no rule and suppresses nothing").hint =
                "write \"qvgraph: ignore[code] reason\"";
        }
    }
}

}  // namespace

void applySuppressions(const Source& source,
                       const std::function<bool(std::string_view code)>& selects,
                       std::vector<Finding>* findings) {
    const std::vector<SuppressionComment> comments = suppressionComments(source);
    if (comments.empty() || source.root() == nullptr) {
        return;  // without JSON, it is unknown whether a comment is used
    }
    const Lines lines(source.text(), comments);
    const UnreadLines unread(source, lines, *findings);
    // Suppressions of "unused-ignore" come last, because they suppress findings
    // about the others.
    std::vector<Suppression> others;
    std::vector<Suppression> last;
    for (const Suppression& suppression : suppressionsIn(source, lines, comments)) {
        (suppression.code == UNUSED_IGNORE.code ? last : others).push_back(suppression);
    }

    Reporter report(UNUSED_IGNORE, findings);
    reportMalformed(comments, &report);
    for (const auto& suppressions : {others, last}) {
        const Uses uses = suppress(lines, suppressions, findings);
        for (const Suppression& suppression : suppressions) {
            const bool isSelected =
                findRule(suppression.code) == nullptr || selects(suppression.code);
            if (!uses.at({suppression.line, suppression.code}) && isSelected) {
                reportUnused(suppression, unread, &report);
            }
        }
    }
}

}  // namespace qvgraph
