// The parts of a model, as plain data.
#ifndef QVGRAPH_MODEL_MODEL_DATA_H_
#define QVGRAPH_MODEL_MODEL_DATA_H_

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "source/value.h"
#include "survey/survey_data.h"

namespace qvgraph {

// A member of an option object.
struct Option {
    const Value* member = nullptr;         // its key and its value in the text
    std::optional<OptionValue> stored;     // what its conversion leaves in a store; nothing if
                                           // nothing is stored
    const Option* overriddenBy = nullptr;  // of a node: the later option that replaces it in
                                           // the node's store
};

// An object whose members are options.
struct OptionObject {
    const Value* value = nullptr;  // null if there is none that is an object
    std::vector<Option> options;   // in the parser's order: the byte order of their keys
};

// One end of a stream at a node. An end that set-up looked up has the keys that
// it looked up; any other has those that the author probably intended.
struct StreamEnd {
    std::string_view nameKey;            // "stream_input"; "" if there are too few keys
    const Option* nameOption = nullptr;  // the option that names it; null for none
    const std::string* name = nullptr;   // the string that the store has under the key, or
                                         // that the node's class bound; null for none
    std::string_view formatKey;          // as for the name
    const Option* formatOption = nullptr;
    const std::string* format = nullptr;
    bool latestOnly = false;  // inputs: it keeps the latest item only
};

// Members of an object, which are in the byte order of their keys.
using Members = std::span<const Value* const>;

// The inputs or the outputs of a node.
struct Side {
    const char* word = "";          // "input" or "output"
    const char* nameKey = "";       // "stream_input": the single key, and the prefix of all that
                                    // declare a stream
    const char* nameFamily = "";    // "stream_input_"
    const char* formatKey = "";     // "stream_fmt_in"
    const char* formatFamily = "";  // "stream_fmt_in_"

    Members declared = {};       // members of "stream_opts" that declare a stream
    Members nameMembers = {};    // those of the indexed family of names
    Members formatMembers = {};  // those of the indexed family of formats
    size_t managers = 0;  // that the node's class created; as many as declared if no node was

    // First one end for each manager, then one for each other declaration: every
    // end that the configuration names, however far set-up came.
    std::vector<StreamEnd> ends = {};

    // The ends of the managers.
    std::span<const StreamEnd> wired() const { return {ends.data(), managers}; }
};

// A member of a pipe whose key begins with "node_": what the survey recorded for
// the id in its key, and what is at the member itself.
struct Node : SurveyedNode {
    const Value* value = nullptr;
    bool canonical = true;  // the id maps back to this member

    // In the order of OPTION_OBJECTS.
    std::array<OptionObject, OPTION_OBJECTS.size()> objects;
    Side inputs;
    Side outputs;

    bool isReady() const { return canonical && outcome == Outcome::Ready; }
    const Value* nodeOptions() const { return objects[0].value; }
    const Value* streamOptions() const { return objects[1].value; }
};

// A member of a pipe whose key begins with "executor_" or "link_".
struct OptionSet : SurveyedOptionSet {
    const Value* value = nullptr;
    bool canonical = true;  // as in Node
    OptionObject object;
};

// Which end of which node is an end of a stream.
struct Endpoint {
    size_t node = 0;  // its position in the pipe
    const Side* side = nullptr;
    const StreamEnd* end = nullptr;
};

// A stream of a pipe, by its name, with the nodes that produce and consume it
// according to the configuration, however far set-up came: one broken node does
// not make its neighbours look broken.
struct Stream {
    std::string_view name;
    std::vector<Endpoint> producers;  // in the parser's order of the nodes
    std::vector<Endpoint> consumers;
};

// A pipe that an index maps to. Everything is empty if it is not an object.
struct Pipe {
    const Value* value = nullptr;
    int index = 0;
    int threads = 0;                   // that its executors request
    std::string linkMode;              // by default
    std::vector<OptionSet> executors;  // in the parser's order, as the links and nodes
    std::vector<OptionSet> links;
    std::vector<Node> nodes;
    std::vector<Stream> streams;  // in the order in which the nodes name them, inputs first
};

// A comment, and the member that it describes: the one that it follows on its
// line, otherwise the next member of the same object. Null if there is neither.
struct Comment {
    Span span;
    const Value* member = nullptr;
};

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_MODEL_DATA_H_
