// Random configurations: the same ones for the same seed, on every machine.
#ifndef QVGRAPH_TESTS_DIFFERENTIAL_CONFIGURATIONS_H_
#define QVGRAPH_TESTS_DIFFERENTIAL_CONFIGURATIONS_H_

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// The standard library's distributions differ between implementations; this
// generator does not.
class Random {
public:
    explicit Random(uint64_t seed) : engine(seed) {}

    // From 0 to `end` - 1.
    size_t below(size_t end) { return static_cast<size_t>(engine() % end); }

    // True once in `times`, on average; never for 0.
    bool oneIn(size_t times) { return times != 0 && below(times) == 0; }

    template <typename T>
    const T& oneOf(const std::vector<T>& values) {
        return values[below(values.size())];
    }

private:
    std::mt19937_64 engine;
};

enum class Kind {
    Valid,    // what a pipeline author intends to write
    Odd,      // wrong types, unusual keys and values, duplicate and missing members
    Mutated,  // one of the above with some bytes changed
};

std::string randomConfiguration(Random* random, Kind kind);

// The string value of an option, usually with a type word.
std::string randomOptionText(Random* random);

// The beginning of a key or value, often one that has a meaning.
std::string randomTag(Random* random);

#endif  // QVGRAPH_TESTS_DIFFERENTIAL_CONFIGURATIONS_H_
