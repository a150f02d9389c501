// A verb of the command: its arguments and its action.
//
// It is implemented with CLI11, whose header takes many seconds to compile: only
// verb.cpp and main.cpp include it.
#ifndef QVGRAPH_CLI_VERB_H_
#define QVGRAPH_CLI_VERB_H_

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qvgraph {

// Invalid arguments. what() names the argument and says what is wrong.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Names have the form that CLI11 expects: "-o,--output" for an option, "FILE" for a
// positional argument. Pointers to values must outlive the parsing. The help shows the
// placeholder in place of a value.
class Verb {
public:
    // Adds the verb to the command. The command's own help shows the first line of the
    // description.
    Verb(CLI::App* command, const std::string& name, const std::string& description);

    void addArgument(const std::string& name, std::string* value, const std::string& description);

    // Accepts one or more values.
    void addArguments(const std::string& name,
                      std::vector<std::string>* values,
                      const std::string& description);

    void addOption(const std::string& name,
                   std::string* value,
                   const std::string& description,
                   const std::string& placeholder);

    // Accepts only one of `choices`.
    void addChoice(const std::string& name,
                   std::string* value,
                   const std::vector<std::string>& choices,
                   const std::string& description,
                   const std::string& placeholder);

    // Can be repeated, with one value each time.
    void addList(const std::string& name,
                 std::vector<std::string>* values,
                 const std::string& description,
                 const std::string& placeholder);

    // Passes the value to `parse`. It throws UsageError if the value is invalid.
    void addParsed(const std::string& name,
                   const std::function<void(const std::string&)>& parse,
                   const std::string& description,
                   const std::string& placeholder);

    void addFlag(const std::string& name, bool* flag, const std::string& description);

    // Counts how often the option appears.
    void addCount(const std::string& name, int* count, const std::string& description);

    // REQUIRES: the following functions name options that have been added.
    void require(const std::string& name);
    void excludeEachOther(const std::string& name, const std::string& other);
    bool isGiven(const std::string& name) const;

    // Sets the action, which runs after all arguments have been parsed.
    void setAction(const std::function<void()>& action);

private:
    CLI::App* mVerb;  // owned by the command
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_VERB_H_
