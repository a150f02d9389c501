// A verb of the command: what it takes, and what it does.
//
// CLI11 stands behind it. Its header costs every file that includes it many
// seconds of compilation, so that only verb.cpp and main.cpp do.
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

// Arguments that make no sense. what() says why, naming the argument.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Names are as CLI11 has them: "-o,--output" for an option, "FILE" for an
// argument that stands by itself. What values go to must outlive the parsing. The
// placeholder is what the help shows for a value.
class Verb {
public:
    // Adds the verb to the command. The first line of the description is what
    // the command's own help says of it.
    Verb(CLI::App* command, const std::string& name, const std::string& description);

    void addArgument(const std::string& name, std::string* value, const std::string& description);

    // One or more.
    void addArguments(const std::string& name,
                      std::vector<std::string>* values,
                      const std::string& description);

    void addOption(const std::string& name,
                   std::string* value,
                   const std::string& description,
                   const std::string& placeholder);

    // Takes one of `choices`, and nothing else.
    void addChoice(const std::string& name,
                   std::string* value,
                   const std::vector<std::string>& choices,
                   const std::string& description,
                   const std::string& placeholder);

    // May be given again and again, with one value each time.
    void addList(const std::string& name,
                 std::vector<std::string>* values,
                 const std::string& description,
                 const std::string& placeholder);

    // Calls `read` with the value, which throws UsageError where it is none.
    void addParsed(const std::string& name,
                   const std::function<void(const std::string&)>& read,
                   const std::string& description,
                   const std::string& placeholder);

    void addFlag(const std::string& name, bool* flag, const std::string& description);

    // Counts how often it is given.
    void addCount(const std::string& name, int* count, const std::string& description);

    // What has been added before:
    void require(const std::string& name);
    void excludeEachOther(const std::string& name, const std::string& other);
    bool isGiven(const std::string& name) const;

    // What the verb does, once all arguments are read.
    void setWork(const std::function<void()>& work);

private:
    CLI::App* mVerb;  // the command's
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_VERB_H_
