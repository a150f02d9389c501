// Configurations made up at random: sound ones, and the same with mistakes as
// people make them. A seed always leads to the same ones, on every machine.
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

// A configuration as it is written: members have an order, keys may be there
// twice, and numbers keep their digits.
struct ConfigurationTree {
    bool isObject = true;
    std::string scalar;                        // of what is no object: its JSON text
    std::vector<ConfigurationMember> members;  // of an object
};

struct ConfigurationMember {
    std::string key;  // may hold a NUL, but nothing else that needs an escape
    ConfigurationTree value;
};

// The JSON text of a tree, a line for each member.
std::string textOf(const ConfigurationTree& tree);

// Whether some object has one key twice.
bool hasDuplicates(const ConfigurationTree& tree);

// A node class with a fixed number of streams.
struct SizedClass {
    std::string name;
    size_t inputs;
    size_t outputs;
};

class RandomConfigurations {
public:
    // Sound nodes may be of the sized classes, spoiled ones also of the failing.
    explicit RandomConfigurations(unsigned seed,
                                  std::vector<SizedClass> sized = {},
                                  std::vector<std::string> failing = {});

    // Pipes with nodes that have up to three inputs and outputs, executors and
    // links, and options of every type. Every stream that is taken is given in
    // the same pipe, with one format.
    ConfigurationTree sound();

    // Makes one mistake somewhere.
    void spoil(ConfigurationTree* tree);

    // Brings the members of every object into another order.
    void shuffle(ConfigurationTree* tree);

    size_t below(size_t limit) { return mNumbers() % limit; }

private:
    // A member, with the object that it stands in.
    struct Place {
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

    static std::vector<Place> placesIn(ConfigurationTree* tree);
    std::string mistyped(std::string key);
    std::string renamed(const std::string& key);
    std::string otherClass();
    ConfigurationTree otherValue(const std::string& key);
    static void erase(const Place& place);
    ConfigurationMember anyMember(ConfigurationTree* tree);
    void spoilMember(const Place& place, ConfigurationTree* tree);
    void moveMember(const Place& place, ConfigurationTree* tree);

    std::mt19937 mNumbers;
    std::vector<SizedClass> mSized;
    std::vector<std::string> mFailing;
    size_t mStreams = 0;  // given so far in the pipe that is made
};

#endif  // QVGRAPH_TESTS_SUPPORT_CONFIGURATIONS_H_
