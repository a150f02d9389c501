// Random configurations: correct ones, and the same with mistakes that authors
// make. The same seed generates the same ones on every machine.
//
//   RandomConfigurations random(seed);
//   ConfigurationTree tree = random.sound();
//   random.spoil(&tree);
//   std::string text = textOf(tree);
#ifndef QVGRAPH_TESTS_SUPPORT_CONFIGURATIONS_H_
#define QVGRAPH_TESTS_SUPPORT_CONFIGURATIONS_H_

#include <cstddef>
#include <random>
#include <string>
#include <vector>

struct ConfigurationMember;

// A configuration as an author writes it: members have an order, keys may appear
// twice, and numbers keep their digits.
struct ConfigurationTree {
    bool isObject = true;
    std::string scalar;                        // the JSON text of a value that is not an object
    std::vector<ConfigurationMember> members;  // the members of an object
};

struct ConfigurationMember {
    std::string key;  // may contain a NUL, but no other character that needs an escape
    ConfigurationTree value;
};

// The JSON text of a tree, with one line per member.
std::string textOf(const ConfigurationTree& tree);

// Whether an object has the same key twice.
bool hasDuplicates(const ConfigurationTree& tree);

// A node class with a fixed number of streams.
struct SizedClass {
    std::string name;
    size_t inputs;
    size_t outputs;
};

class RandomConfigurations {
public:
    // Nodes may be of the sized classes; mistakes also use the failing classes.
    explicit RandomConfigurations(unsigned seed,
                                  std::vector<SizedClass> sized = {},
                                  std::vector<std::string> failing = {});

    // Pipes with nodes that have up to three inputs and outputs, executors and
    // links, and options of every type. Every stream that a node consumes has a
    // producer in the same pipe, with the same format.
    ConfigurationTree sound();

    // Makes one mistake somewhere.
    void spoil(ConfigurationTree* tree);

    // Shuffles the members of every object.
    void shuffle(ConfigurationTree* tree);

    size_t below(size_t limit) { return mNumbers() % limit; }

private:
    // A member of an object, by its index.
    struct Position {
        ConfigurationTree* object;
        size_t index;

        ConfigurationMember& member() const;
    };

    const std::string& oneOf(const std::vector<std::string>& texts);
    void addOptions(ConfigurationTree* object);
    void addStreams(size_t number, bool isInput, ConfigurationTree* streamOptions);
    std::string className(size_t inputs, size_t outputs);
    ConfigurationTree node();
    ConfigurationTree pipe();

    static std::vector<Position> positionsIn(ConfigurationTree* tree);
    std::string mistyped(std::string key);
    std::string renamed(const std::string& key);
    std::string otherClass();
    ConfigurationTree otherValue(const std::string& key);
    static void erase(const Position& position);
    ConfigurationMember anyMember(ConfigurationTree* tree);
    void spoilMember(const Position& position, ConfigurationTree* tree);
    void moveMember(const Position& position, ConfigurationTree* tree);

    std::mt19937 mNumbers;
    std::vector<SizedClass> mSized;
    std::vector<std::string> mFailing;
    size_t mStreams = 0;  // produced so far in the present pipe
};

#endif  // QVGRAPH_TESTS_SUPPORT_CONFIGURATIONS_H_
