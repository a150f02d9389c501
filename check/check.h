// Checks a configuration: finds every mistake, with its location, before the
// configuration reaches a device.
#ifndef QVGRAPH_CHECK_CHECK_H_
#define QVGRAPH_CHECK_CHECK_H_

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/rule.h"
#include "model/model.h"
#include "source/source.h"

namespace qvgraph {

struct CheckRequest {
    // Whether findings with this code are reported.
    std::function<bool(std::string_view code)> selects = [](std::string_view) { return true; };

    // As in SurveyRequest.
    std::function<void(size_t done, size_t total)> progress;
};

struct CheckedFile {
    std::string name;  // as reports show it
    std::shared_ptr<const Source> source;
    std::vector<Finding> findings;  // in the order of their locations
    Model model;                    // refers to the source
};

// Checks a text, with the node classes of QVNodeRegistry. As with
// surveyConfiguration, nothing else may log meanwhile.
CheckedFile checkConfiguration(const std::string& name,
                               std::string text,
                               const CheckRequest& request);

// The number of findings with this severity.
size_t countOf(const std::vector<Finding>& findings, Severity severity);

// Turns warnings into errors.
void makeStrict(std::vector<Finding>* findings);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_CHECK_H_
