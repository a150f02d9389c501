// A rule of the check: what it finds, what the device does, and how to fix it.
#ifndef QVGRAPH_CHECK_RULE_H_
#define QVGRAPH_CHECK_RULE_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "model/model.h"

namespace qvgraph {

struct Rule;

// Collects the findings of one rule.
class Reporter {
public:
    Reporter(const Rule& rule, std::vector<Finding>* findings) : mRule(rule), mFindings(findings) {}

    // Adds a finding at the span of a value, without its key. Use the result to
    // add related locations and a hint; it is valid until the next finding.
    Finding& atValue(const Value& value, std::string message);

    // Adds a finding at a value of the wrong type: "NAME is a number, not
    // EXPECTED: OUTCOME".
    Finding& atWrongType(const Value& value,
                         const std::string& name,
                         const char* expected,
                         const std::string& outcome);

    // Adds a finding at the key of a member.
    Finding& atKey(const Value& member, std::string message);

    Finding& at(Span span, std::string pointer, std::string message);

private:
    const Rule& mRule;
    std::vector<Finding>* mFindings;
};

// A node class that an example requires, with its number of stream managers.
struct ExampleClass {
    const char* name;
    int inputs;
    int outputs;
    bool createsNode = true;
    bool looksUpGain = false;  // its nodes look up a float under "gain"
};

// The smallest configuration that provokes a rule, and the same configuration
// fixed. They document the rule, and a test checks both.
struct RuleExample {
    std::string_view wrong;
    std::string_view fixed;
    std::initializer_list<ExampleClass> classes = {};  // registered; a stub replaces all others
    bool stub = true;
};

// What a finding of the rule applies to, for other rules and for pictures.
enum class Scope {
    Location,  // only this location
    Stream,    // the entire stream of which the location is one end
    Unread,    // the device does not read the value at the location
};

// Each rule is one constant in check/rules/<code>.cpp and one line in
// check/rules.h.
struct Rule {
    const char* code;  // "duplicate-key"
    Severity severity;
    const char* family;       // "text", "pipes", "ids", "keys", "options", "nodes", "streams",
                              // "wiring" or "comments"
    const char* title;        // what is wrong: one line, without a full stop
    const char* explanation;  // what the rule examines, and why it is wrong: sentences
    const char* device;       // what the device does: sentences
    const char* fix;          // how to fix it: sentences
    RuleExample example;
    Scope scope = Scope::Location;

    // Rules whose findings merely follow from a finding of this one. They are
    // dropped at its pointer, above it and below it ...
    std::initializer_list<const Rule*> consequences = {};

    // ... and at its related locations.
    std::initializer_list<const Rule*> relatedConsequences = {};

    // Reports every case in the model. Null if the check itself finds them.
    void (*find)(const Model& model, Reporter* report) = nullptr;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_RULE_H_
