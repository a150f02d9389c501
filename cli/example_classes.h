// Registers the node classes that the examples of the rules require.
#ifndef QVGRAPH_CLI_EXAMPLE_CLASSES_H_
#define QVGRAPH_CLI_EXAMPLE_CLASSES_H_

#include "check/rule.h"

namespace qvgraph {

// Like QVNodeRegistry::registerClass, in the registry of the process.
int registerExampleClass(const ExampleClass& example);

// Registers the classes of an example during its lifetime. Sets the stub as the
// example requires, and does not restore it.
class ExampleClasses {
public:
    explicit ExampleClasses(const RuleExample& example);
    ~ExampleClasses();

    // Not copyable: each registration has one owner.
    ExampleClasses(const ExampleClasses&) = delete;
    ExampleClasses& operator=(const ExampleClasses&) = delete;

private:
    const RuleExample& mExample;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_EXAMPLE_CLASSES_H_
