// What the rules look at: the source of a configuration side by side with what
// the parser and the desk's framework make of it.
#ifndef QVGRAPH_CHECK_SUBJECT_H_
#define QVGRAPH_CHECK_SUBJECT_H_

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "source/source.h"
#include "survey/survey.h"

namespace qvgraph {

// A node's four option objects, in the order in which they are copied.
constexpr std::array<const char*, 4> OPTION_OBJECTS = {
    "node_opts", "stream_opts", "node_opts_extra", "stream_opts_extra"};

// One end of a stream at a node: a key that gives it its name, and the key of
// the format that belongs to it by position.
struct DeclaredEnd {
    std::string key;                     // "stream_input"; empty where the family is too short
    const Value* place = nullptr;        // the member that gives the name; null for none
    std::optional<std::string> name;     // what the store has under the key, if it is a text
    std::string formatKey;               // as `key`
    const Value* formatPlace = nullptr;  // as `place`
    std::optional<std::string> format;   // as `name`
};

// A format, and the name that it is paired with.
struct FormatPair {
    const Value* format = nullptr;
    const Value* name = nullptr;  // null: it is spare, there are fewer names
};

// The inputs or the outputs of a node.
struct Side {
    const char* word = "";          // "input" or "output"
    const char* nameKey = "";       // "stream_input": the single key, and the prefix that counts
    const char* nameFamily = "";    // "stream_input_"
    const char* formatKey = "";     // "stream_fmt_in"
    const char* formatFamily = "";  // "stream_fmt_in_"

    std::vector<const Value*> declared;       // members of "stream_opts" that count, in key order
    std::vector<const Value*> nameMembers;    // those of the indexed family of names
    std::vector<const Value*> formatMembers;  // those of the indexed family of formats
    size_t managers = 0;  // made by the node's class; as many as declared where none was made

    // The ends that set-up looks at, one for each manager.
    std::vector<DeclaredEnd> ends;

    // The ends of every key that names a stream here, whatever set-up reached:
    // those declared, and those that set-up looks at.
    std::vector<DeclaredEnd> streams;

    // The first format that goes with a name of another ending, or with none.
    // Nothing where formats are missing: which of them is not known.
    std::optional<FormatPair> differing;

    bool hasSpareFormat() const { return differing && differing->name == nullptr; }
};

// A member of a pipe whose key begins with "node_".
struct NodeSubject {
    const Value* value = nullptr;
    const Node* node = nullptr;  // what became of the id in its key
    bool canonical = true;       // the id leads to this very member
    bool isMeant = true;         // it is no "node_opts", which only begins as nodes do

    // The node's option objects, in the order of OPTION_OBJECTS; null where
    // there is none that is an object.
    std::array<const Value*, 4> objects = {};
    Side inputs;
    Side outputs;

    bool isReady() const { return canonical && node->outcome == Outcome::Ready; }
    const Value* nodeOptions() const { return objects[0]; }
    const Value* streamOptions() const { return objects[1]; }
};

// The member that gives a key its value in the node's store: the last that is
// stored, otherwise the last of all. Null for none.
const Value* placeOf(const NodeSubject& node, const std::string& key);

struct WireEnd {
    size_t node = 0;  // its position in the pipe
    const DeclaredEnd* end = nullptr;
    const Side* side = nullptr;
};

// A stream of a pipe, by its name: who is meant to give and to take it, whatever
// set-up reached. One broken node does not make its neighbours look broken.
struct Wire {
    std::string name;
    std::vector<WireEnd> producers;  // in the parser's order, as the consumers
    std::vector<WireEnd> consumers;

    // It may have ends that are not known: a key that has no meaning seems to
    // name it, or a node does not say which streams it has.
    bool isUncertain = false;

    // Of a stream that nobody gives: the one that is probably meant; "" for none.
    std::string meant;
    // It is such a one.
    bool isMeant = false;
};

// An addressable pipe that is an object.
struct PipeSubject {
    const Value* value = nullptr;
    const Pipe* pipe = nullptr;
    std::vector<NodeSubject> nodes;       // in the parser's order
    std::vector<const Value*> executors;  // members of the family, in key order
    std::vector<const Value*> links;

    // Every stream, in the order in which the nodes name them, inputs first.
    std::vector<Wire> wires;
};

// An object whose members are options.
struct OptionObject {
    const Value* value = nullptr;
    const NodeSubject* node = nullptr;  // whose it is; null for an executor's and a link's
};

class Subject {
public:
    // `jsonError` is json11's text where it refuses the document. All must
    // outlive the subject.
    Subject(const Source& source, const Survey& survey, const std::string& jsonError);

    Subject(const Subject&) = delete;  // its parts point to each other
    Subject& operator=(const Subject&) = delete;

    const Source& source() const { return mSource; }
    const Survey& survey() const { return mSurvey; }
    const std::string& jsonError() const { return mJsonError; }

    // Empty where the document does not load.
    const std::vector<PipeSubject>& pipes() const { return mPipes; }

    // Every option object that the parser copies, in the order of the pipes and
    // their members: nodes', executors' and links'.
    const std::vector<OptionObject>& optionObjects() const { return mOptionObjects; }

private:
    const Source& mSource;
    const Survey& mSurvey;
    const std::string& mJsonError;
    std::vector<PipeSubject> mPipes;
    std::vector<OptionObject> mOptionObjects;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_SUBJECT_H_
