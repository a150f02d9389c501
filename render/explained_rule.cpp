#include "render/explained_rule.h"

#include <sstream>

#include "check/words.h"
#include "render/text.h"

namespace qvgraph {

namespace {

std::string textOf(const ExampleClass& nodeClass) {
    if (!nodeClass.makesNode) {
        return std::string("a class ") + nodeClass.name + " that makes no node";
    }
    const auto streams = [](int number, const char* side) {
        return number == 0 ? std::string("no ") + side + 's'
                           : counted(static_cast<size_t>(number), side);
    };
    return std::string("a class ") + nodeClass.name + " of " + streams(nodeClass.inputs, "input") +
           " and " + streams(nodeClass.outputs, "output") +
           (nodeClass.looksForGain ? " that looks for a float under 'gain'" : "");
}

}  // namespace

std::string conditionsOf(const RuleExample& example) {
    std::vector<std::string> classes;
    for (const ExampleClass& nodeClass : example.classes) {
        classes.push_back(textOf(nodeClass));
    }
    std::string with = classes.empty() ? "" : "with " + listOf(classes, classes.size());
    if (example.stub) {
        return with;
    }
    return with + (with.empty() ? "" : ", and ") + "without stubs for unknown classes";
}

std::vector<std::string> exampleLines(std::string_view example) {
    std::vector<std::string> lines;
    std::istringstream text{std::string(example)};
    for (std::string line; std::getline(text, line);) {
        lines.push_back(printable(line));
    }
    return lines;
}

std::string headingOf(const char* family) {
    std::string heading = family;
    if (!heading.empty() && heading[0] >= 'a' && heading[0] <= 'z') {
        heading[0] = static_cast<char>(heading[0] - 'a' + 'A');
    }
    return heading;
}

}  // namespace qvgraph
