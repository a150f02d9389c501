// The node classes that the examples of the rules ask for.
#ifndef QVGRAPH_CLI_EXAMPLE_CLASSES_H_
#define QVGRAPH_CLI_EXAMPLE_CLASSES_H_

#include "check/rule.h"

namespace qvgraph {

// As QVNodeRegistry::registerClass, in the registry of the program.
int registerExampleClass(const ExampleClass& example);

// Has the registry as an example asks for it, as long as it stands. The stub
// stays as it is set.
class ExampleClasses {
public:
    explicit ExampleClasses(const RuleExample& example);
    ~ExampleClasses();

    // Stands for its scope.
    ExampleClasses(const ExampleClasses&) = delete;
    ExampleClasses& operator=(const ExampleClasses&) = delete;

private:
    const RuleExample& mExample;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_EXAMPLE_CLASSES_H_
