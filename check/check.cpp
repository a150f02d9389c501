#include "check/check.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "check/ignores.h"
#include "check/subject.h"

namespace qvgraph {

namespace {

// The pointers at and above a pointer, itself first, the root's last.
std::vector<std::string> upwards(std::string pointer) {
    std::vector<std::string> pointers = {pointer};
    while (!pointer.empty()) {
        pointer.resize(pointer.rfind('/'));
        pointers.push_back(pointer);
    }
    return pointers;
}

// Which findings only follow from others: a code is silent at a place, below it
// and above it, or at a related place.
class Silences {
public:
    explicit Silences(const std::vector<Finding>& causes) {
        for (const Finding& cause : causes) {
            const Rule& rule = *findRule(cause.code);
            for (const char* code : rule.silences) {
                mAt[code].insert(cause.pointer);
                for (const std::string& above : upwards(cause.pointer)) {
                    mAbove[code].insert(above);
                }
            }
            for (const char* code : rule.silencesRelated) {
                for (const Related& related : cause.related) {
                    mRelated.emplace(code, related.span.begin);
                }
            }
        }
    }

    bool cover(const Finding& finding) const {
        return coverPointer(finding) || mRelated.count({finding.code, finding.span.begin}) != 0;
    }

private:
    using Places = std::map<std::string_view, std::set<std::string>>;

    bool coverPointer(const Finding& finding) const {
        const auto at = mAt.find(finding.code);
        if (at == mAt.end()) {
            return false;
        }
        if (mAbove.find(finding.code)->second.count(finding.pointer) != 0) {
            return true;
        }
        const std::vector<std::string> pointers = upwards(finding.pointer);
        return std::any_of(pointers.begin(), pointers.end(), [&](const std::string& pointer) {
            return at->second.count(pointer) != 0;
        });
    }

    Places mAt;
    Places mAbove;
    std::set<std::pair<std::string_view, size_t>> mRelated;
};

template <typename Condition>
void removeWhere(std::vector<Finding>* findings, Condition condition) {
    findings->erase(std::remove_if(findings->begin(), findings->end(), condition), findings->end());
}

// In the order of the text; at one place, in that of the registry.
void sortByPlace(std::vector<Finding>* findings) {
    std::stable_sort(findings->begin(), findings->end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.span.begin, a.span.end) < std::tie(b.span.begin, b.span.end);
    });
}

std::vector<Finding> findAll(const Subject& subject) {
    std::vector<Finding> findings;
    for (const Rule& rule : rules()) {
        if (rule.run != nullptr) {
            Reporter report(rule, &findings);
            rule.run(subject, &report);
        }
    }
    const Silences silences(findings);
    removeWhere(&findings, [&](const Finding& finding) { return silences.cover(finding); });
    return findings;
}

// What the parser sees of a text: up to a NUL. A byte-order mark is left out so
// that the mistakes behind it are found as well.
Span seenOf(const std::string& text) {
    const bool hasMark = text.compare(0, 3, "\xef\xbb\xbf") == 0;
    const size_t nul = text.find('\0');
    return {hasMark ? size_t{3} : 0, nul == std::string::npos ? text.size() : nul};
}

}  // namespace

CheckedFile checkConfiguration(const std::string& name,
                               const std::string& text,
                               const CheckRequest& request) {
    SurveyRequest surveyRequest;
    surveyRequest.everyMember = true;
    surveyRequest.progress = request.progress;
    const Span seen = seenOf(text);
    SurveyedText surveyed =
        surveyText(text.substr(seen.begin, seen.end - seen.begin), surveyRequest);

    CheckedFile file;
    file.name = name;
    file.source = std::make_shared<const Source>(text, seen.begin, seen.end);
    file.loads = surveyed.loads && seen.begin == 0;
    file.survey = std::move(surveyed.survey);
    const Subject subject(*file.source, file.survey, surveyed.jsonError);
    file.findings = findAll(subject);
    applyIgnores(*file.source, request.selects, &file.findings);
    removeWhere(&file.findings,
                [&](const Finding& finding) { return !request.selects(finding.code); });
    sortByPlace(&file.findings);
    return file;
}

size_t countOf(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<size_t>(
        std::count_if(findings.begin(), findings.end(), [severity](const Finding& finding) {
            return finding.severity == severity;
        }));
}

void makeStrict(std::vector<Finding>* findings) {
    for (Finding& finding : *findings) {
        if (finding.severity == Severity::Warning) {
            finding.severity = Severity::Error;
        }
    }
}

}  // namespace qvgraph
