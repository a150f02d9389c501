#include "render/explained_rule.h"

#include <sstream>

#include "render/text.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

std::string textOf(int number, const char* side) {
    return number == 0 ? std::string("no ") + side + 's'
                       : counted(static_cast<size_t>(number), side);
}

// "class Join (2 inputs, 1 output)".
std::string textOf(const ExampleClass& nodeClass) {
    const std::string name = std::string("class ") + nodeClass.name;
    if (!nodeClass.createsNode) {
        return name + " (creates no node)";
    }
    return name + " (" + textOf(nodeClass.inputs, "input") + ", " +
           textOf(nodeClass.outputs, "output") +
           (nodeClass.looksUpGain ? ", looks up 'gain' as a float)" : ")");
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
