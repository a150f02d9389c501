#include "check/check.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "check/rules.h"
#include "check/suppressions.h"

namespace qvgraph {

namespace {

// A pointer and all pointers above it, the root's last.
std::vector<std::string> selfAndAbove(std::string pointer) {
    std::vector<std::string> pointers = {pointer};
    while (!pointer.empty()) {
        pointer.resize(pointer.rfind('/'));
        pointers.push_back(pointer);
    }
    return pointers;
}

// The findings that merely follow from others: those of a rule at a pointer,
// below it and above it, or at a related location.
class Consequences {
public:
    explicit Consequences(const std::vector<Finding>& causes) {
        for (const Finding& cause : causes) {
            add(cause, *findRule(cause.code));
        }
    }

    bool contain(const Finding& finding) const {
        const Rule* rule = findRule(finding.code);
        return containPointer(rule, finding.pointer) ||
               mRelated.count({rule, finding.span.begin}) != 0;
    }

private:
    using Pointers = std::map<const Rule*, std::set<std::string>>;

    void add(const Finding& cause, const Rule& rule) {
        for (const Rule* consequence : rule.consequences) {
            mAt[consequence].insert(cause.pointer);
            for (const std::string& above : selfAndAbove(cause.pointer)) {
                mAbove[consequence].insert(above);
            }
        }
        for (const Rule* consequence : rule.relatedConsequences) {
            for (const Related& related : cause.related) {
                mRelated.emplace(consequence, related.span.begin);
            }
        }
    }

    bool containPointer(const Rule* rule, const std::string& pointer) const {
        const auto at = mAt.find(rule);
        if (at == mAt.end()) {
            return false;
        }
        return mAbove.find(rule)->second.count(pointer) != 0 ||
               std::ranges::any_of(selfAndAbove(pointer), [&](const std::string& above) {
                   return at->second.count(above) != 0;
               });
    }

    Pointers mAt;
    Pointers mAbove;
    std::set<std::pair<const Rule*, size_t>> mRelated;
};

// In the order of the text; findings at the same location, in that of the
// registry.
void sortByLocation(std::vector<Finding>* findings) {
    std::stable_sort(findings->begin(), findings->end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.span.begin, a.span.end) < std::tie(b.span.begin, b.span.end);
    });
}

std::vector<Finding> findAll(const Model& model) {
    std::vector<Finding> findings;
    for (const Rule* rule : rules()) {
        if (rule->find != nullptr) {
            Reporter report(*rule, &findings);
            rule->find(model, &report);
        }
    }
    const Consequences consequences(findings);
    std::erase_if(findings, [&](const Finding& finding) { return consequences.contain(finding); });
    return findings;
}

// The part of a text that the parser sees: up to its first NUL. A byte-order
// mark is skipped, so that the mistakes after it are found, too.
Span parsedSpan(const std::string& text) {
    const bool hasMark = text.compare(0, 3, "\xef\xbb\xbf") == 0;
    const size_t nul = text.find('\0');
    return {hasMark ? size_t{3} : 0, nul == std::string::npos ? text.size() : nul};
}

}  // namespace

CheckedFile checkConfiguration(const std::string& name,
                               std::string text,
                               const CheckRequest& request) {
    SurveyRequest surveyRequest;
    surveyRequest.forModel = true;
    surveyRequest.progress = request.progress;
    const Span parsed = parsedSpan(text);
    // The parser stops at a NUL by itself.
    SurveyedText surveyed = surveyText(text.c_str() + parsed.begin, surveyRequest);

    CheckedFile file;
    file.name = name;
    file.source = std::make_shared<const Source>(std::move(text), parsed.begin, parsed.end);
    file.model = Model({.source = file.source,
                        .survey = std::move(surveyed.survey),
                        .loads = surveyed.loads && parsed.begin == 0,
                        .jsonError = std::move(surveyed.jsonError)});
    file.findings = findAll(file.model);
    applySuppressions(*file.source, request.selects, &file.findings);
    std::erase_if(file.findings,
                  [&](const Finding& finding) { return !request.selects(finding.code); });
    sortByLocation(&file.findings);
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
