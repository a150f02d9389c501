// The rules of the check, and the one registry that findings, explanations,
// documentation and tests are driven from.
#ifndef QVGRAPH_CHECK_RULE_H_
#define QVGRAPH_CHECK_RULE_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "check/subject.h"

namespace qvgraph {

struct Rule;

// Takes the findings of one rule.
class Reporter {
public:
    Reporter(const Rule& rule, std::vector<Finding>* findings) : mRule(rule), mFindings(findings) {}

    // A finding at a value's own text. The result is for adding related places
    // and a hint; it is valid until the next finding.
    Finding& atValue(const Value& value, std::string message);

    // A finding at the key of a member.
    Finding& atKey(const Value& member, std::string message);

    Finding& at(Span span, std::string pointer, std::string message);

private:
    const Rule& mRule;
    std::vector<Finding>* mFindings;
};

// A node class that an example needs, with the numbers of its stream managers.
struct ExampleClass {
    const char* name;
    int inputs;
    int outputs;
    bool makesNode = true;
    bool looksForGain = false;  // its nodes look for a float under "gain"
};

// The smallest configuration that provokes a rule, and the same put right. They
// are the rule's documentation and its test.
struct RuleExample {
    std::string_view wrong;
    std::string_view right;
    std::initializer_list<ExampleClass> classes;  // registered; a stub stands in for all others
    bool stub = true;
};

// Rules are constants of the whole program: their lists are those that they are
// written with.
struct Rule {
    const char* code;
    Severity severity;
    const char*
        family;  // "text", "pipes", "ids", "keys", "options", "nodes", "streams", "wiring", "comments"
    const char* title;    // one line, without a full stop: what is wrong
    const char* meaning;  // whole sentences: what is looked at, and why it is wrong
    const char* device;   // whole sentences: what a device would do
    const char* remedy;   // whole sentences: how to mend it
    RuleExample example;

    // Codes of findings that only follow from this one, where one pointer leads
    // to the other or below it.
    std::initializer_list<const char*> silences;

    // Looks for the mistake. Null where the check itself finds it.
    void (*run)(const Subject& subject, Reporter* report);

    // Codes of findings that follow from this one where they stand at one of its
    // related places.
    std::initializer_list<const char*> silencesRelated = {};
};

// Every rule, family by family.
const std::vector<Rule>& rules();

// The rule of a code; null when there is none.
const Rule* findRule(std::string_view code);

// The rules of each family, for the registry.
std::vector<Rule> textRules();
std::vector<Rule> pipeRules();
std::vector<Rule> idRules();
std::vector<Rule> keyRules();
std::vector<Rule> optionRules();
std::vector<Rule> nodeRules();
std::vector<Rule> streamRules();
std::vector<Rule> wiringRules();
std::vector<Rule> commentRules();

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_RULE_H_
