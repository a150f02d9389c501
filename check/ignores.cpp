#include "check/ignores.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "check/rule.h"
#include "check/words.h"

namespace qvgraph {

namespace {

const std::string_view BLANKS = " \t\r\n";
const std::string_view CODE = "unused-ignore";

// A comment that is meant to silence findings.
struct IgnoreComment {
    Span span;
    std::vector<Span> codes;  // none where it is not written as it has to be
};

// A code in such a comment, and the line whose findings it silences.
struct Ignore {
    std::string_view code;
    Span span;
    size_t line = 0;       // 0 where none follows
    bool isAbove = false;  // the comment has its line for itself
};

// ---- Reading comments -------------------------------------------------------

bool beginsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

std::string_view withoutBlanksBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(BLANKS), text.size()));
}

std::string_view withoutBlanksAround(std::string_view text) {
    const std::string_view rest = withoutBlanksBefore(text);
    return rest.substr(0, rest.find_last_not_of(BLANKS) + 1);
}

bool equalsAsideFromCase(std::string_view text, std::string_view lower) {
    const auto isEqual = [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    };
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), isEqual);
}

// Takes a word off the front, and the blanks before it; letter case aside.
bool takeWord(std::string_view word, std::string_view* text) {
    const std::string_view rest = withoutBlanksBefore(*text);
    if (!equalsAsideFromCase(rest.substr(0, word.size()), word)) {
        return false;
    }
    *text = rest.substr(word.size());
    return true;
}

// What a comment says, from the first word on; "/**" and "///" begin one too.
std::string_view saidIn(std::string_view comment) {
    const bool isBlock = beginsWith(comment, "/*");
    const std::string_view inside = comment.substr(2, comment.size() - (isBlock ? 4 : 2));
    return inside.substr(std::min(inside.find_first_not_of(" \t\r\n*/"), inside.size()));
}

bool isMeantToIgnore(std::string_view said) {
    if (!takeWord("qvgraph", &said) || !takeWord(":", &said) || !takeWord("ignore", &said)) {
        return false;
    }
    const char next = said.empty() ? ' ' : said.front();
    return !((next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z'));
}

// The list between the brackets; nothing where it is not written so.
std::optional<std::string_view> listIn(std::string_view said) {
    const std::string_view start = "qvgraph:";
    const std::string_view word = "ignore";
    if (!beginsWith(said, start)) {
        return std::nullopt;
    }
    const std::string_view behind = said.substr(start.size());
    const std::string_view rest = withoutBlanksBefore(behind);
    if (rest.size() == behind.size() || !beginsWith(rest, word)) {
        return std::nullopt;
    }
    const std::string_view list = withoutBlanksBefore(rest.substr(word.size()));
    const size_t end = list.find(']');
    if (!beginsWith(list, "[") || end == std::string_view::npos) {
        return std::nullopt;
    }
    return list.substr(1, end - 1);
}

// The codes in a list that is separated by commas.
std::vector<std::string_view> codesIn(std::string_view list) {
    std::vector<std::string_view> codes;
    for (size_t begin = 0; begin <= list.size();) {
        const size_t end = std::min(list.find(',', begin), list.size());
        const std::string_view code = withoutBlanksAround(list.substr(begin, end - begin));
        if (!code.empty()) {
            codes.push_back(code);
        }
        begin = end + 1;
    }
    return codes;
}

std::vector<IgnoreComment> ignoreComments(const Source& source) {
    const std::string_view text = source.text();
    std::vector<IgnoreComment> comments;
    for (const Span& span : source.comments()) {
        const std::string_view said = saidIn(text.substr(span.begin, span.end - span.begin));
        if (!isMeantToIgnore(said)) {
            continue;
        }
        comments.push_back({span, {}});
        for (const std::string_view code : codesIn(listIn(said).value_or(""))) {
            const auto begin = static_cast<size_t>(code.data() - text.data());
            comments.back().codes.push_back({begin, begin + code.size()});
        }
    }
    return comments;
}

// ---- Lines ------------------------------------------------------------------

// Which lines have something besides the comments that silence findings.
class Lines {
public:
    Lines(const std::string& text, const std::vector<IgnoreComment>& comments) {
        std::string rest = text;
        for (const IgnoreComment& comment : comments) {
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
            hasMore.push_back(line.find_first_not_of(BLANKS) != std::string_view::npos);
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
    std::vector<size_t> mNextWithMore;  // from each line on; lines count from 1
};

std::vector<Ignore> ignoresIn(const Source& source,
                              const Lines& lines,
                              const std::vector<IgnoreComment>& comments) {
    std::vector<Ignore> ignores;
    for (const IgnoreComment& comment : comments) {
        const size_t first = lines.lineOf(comment.span.begin);
        const bool isAbove = lines.nextWithMore(first) != first;
        const size_t line =
            isAbove ? lines.nextWithMore(lines.lineOf(comment.span.end - 1)) : first;
        for (const Span& code : comment.codes) {
            const std::string_view text =
                std::string_view(source.text()).substr(code.begin, code.end - code.begin);
            ignores.push_back({text, code, line, isAbove});
        }
    }
    return ignores;
}

// ---- What is not read -------------------------------------------------------

// The lines with values that no other rule looks into: members that are lost to
// a later one of the same key, and what stands in place of an object. That they
// are not read is told there.
class UnreadLines {
public:
    // REQUIRES: the text is JSON.
    UnreadLines(const Source& source, const Lines& lines, const std::vector<Finding>& findings)
        : mIsRootRead(source.values().front().isObject()), mChanges(lines.count() + 2) {
        std::set<size_t> keys;
        for (const Finding& finding : findings) {
            if (finding.code == "pipe-not-addressable") {
                keys.insert(finding.span.begin);
            } else if (finding.code == "section-not-object" || finding.code == "section-ignored") {
                add(lines, finding.span);
            }
        }
        for (const Value& value : source.values()) {
            if (value.overriddenBy != nullptr || keys.count(value.keySpan.begin) != 0) {
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
    std::vector<int> mChanges;  // from line to line; in the end, how many values there are
};

// ---- Silencing --------------------------------------------------------------

// Whether codes are silenced, by line and code.
using Uses = std::map<std::pair<size_t, std::string_view>, bool>;

// The lines on which a comment silences a finding: those of its place and of
// the places related to it.
std::vector<size_t> linesOf(const Lines& lines, const Finding& finding) {
    std::vector<size_t> found = {lines.lineOf(finding.span.begin)};
    for (const Related& related : finding.related) {
        found.push_back(lines.lineOf(related.span.begin));
    }
    return found;
}

// Removes what `ignores` silence, and tells which of them do.
Uses silence(const Lines& lines,
             const std::vector<Ignore>& ignores,
             std::vector<Finding>* findings) {
    Uses uses;
    for (const Ignore& ignore : ignores) {
        uses.emplace(std::make_pair(ignore.line, ignore.code), false);
    }
    const auto isSilenced = [&](const Finding& finding) {
        if (finding.severity == Severity::Error) {
            return false;
        }
        bool isUsed = false;
        for (const size_t line : linesOf(lines, finding)) {
            const auto use = uses.find({line, finding.code});
            if (use != uses.end()) {
                use->second = true;
                isUsed = true;
            }
        }
        return isUsed;
    };
    findings->erase(std::remove_if(findings->begin(), findings->end(), isSilenced),
                    findings->end());
    return uses;
}

std::vector<std::string> everyCode() {
    std::vector<std::string> codes;
    for (const Rule& rule : rules()) {
        codes.emplace_back(rule.code);
    }
    return codes;
}

void reportUnused(const Ignore& ignore, const UnreadLines& unread, Reporter* report) {
    static const std::vector<std::string> CODES = everyCode();
    const Rule* rule = findRule(ignore.code);
    if (rule == nullptr) {
        const std::string nearest = nearestTo(ignore.code, CODES);
        report->at(ignore.span, "", "there is no rule " + quoted(ignore.code)).hint =
            nearest.empty() ? "remove it" : "write " + quoted(nearest);
    } else if (rule->severity == Severity::Error) {
        report->at(ignore.span, "", quoted(ignore.code) + " is an error, and no error is silenced")
            .hint = "remove it, and correct what is found";
    } else if (!unread.has(ignore.line)) {
        report
            ->at(ignore.span,
                 "",
                 "no " + quoted(ignore.code) + " is found " +
                     (ignore.isAbove ? "on the line below" : "on this line"))
            .hint = "remove it";
    }
}

void reportMalformed(const std::vector<IgnoreComment>& comments, Reporter* report) {
    for (const IgnoreComment& comment : comments) {
        if (comment.codes.empty()) {
            report->at(comment.span, "", "this comment names no rule, and silences nothing").hint =
                "write \"qvgraph: ignore[code] reason\"";
        }
    }
}

}  // namespace

void applyIgnores(const Source& source,
                  const std::function<bool(std::string_view code)>& selects,
                  std::vector<Finding>* findings) {
    const std::vector<IgnoreComment> comments = ignoreComments(source);
    if (comments.empty() || source.root() == nullptr) {
        return;  // of a text that is no JSON, only that is known
    }
    const Lines lines(source.text(), comments);
    const UnreadLines unread(source, lines, *findings);
    std::vector<Ignore> ignores = ignoresIn(source, lines, comments);
    // Those of comments come last: they silence what the others have to say.
    const auto last = std::stable_partition(
        ignores.begin(), ignores.end(), [](const Ignore& ignore) { return ignore.code != CODE; });
    const std::vector<Ignore> usual(ignores.begin(), last);
    const std::vector<Ignore> own(last, ignores.end());

    Reporter report(*findRule(CODE), findings);
    reportMalformed(comments, &report);
    for (const std::vector<Ignore>& some : {usual, own}) {
        const Uses uses = silence(lines, some, findings);
        for (const Ignore& ignore : some) {
            const bool isWanted = findRule(ignore.code) == nullptr || selects(ignore.code);
            if (!uses.at({ignore.line, ignore.code}) && isWanted) {
                reportUnused(ignore, unread, &report);
            }
        }
    }
}

}  // namespace qvgraph
