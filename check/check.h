// Checks a configuration: every mistake, with its place, before it reaches a
// device.
#ifndef QVGRAPH_CHECK_CHECK_H_
#define QVGRAPH_CHECK_CHECK_H_

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/rule.h"
#include "source/source.h"
#include "survey/survey.h"

namespace qvgraph {

struct CheckRequest {
    // The codes that are reported.
    std::function<bool(std::string_view code)> selects = [](std::string_view) { return true; };

    // As in SurveyRequest.
    std::function<void(size_t done, size_t total)> progress;
};

struct CheckedFile {
    std::string name;  // under which reports speak of it
    std::shared_ptr<const Source> source;
    std::vector<Finding> findings;  // in the order of the text
    bool loads = false;             // whether a device would get a document out of it
    Survey survey;                  // of every pipe that an index leads to
};

// Checks a text. Node classes are those of QVNodeRegistry; as in
// surveyConfiguration, nothing else may log meanwhile.
CheckedFile checkConfiguration(const std::string& name,
                               const std::string& text,
                               const CheckRequest& request);

// How many findings of one severity there are.
size_t countOf(const std::vector<Finding>& findings, Severity severity);

// Turns warnings into errors.
void makeStrict(std::vector<Finding>* findings);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_CHECK_H_
