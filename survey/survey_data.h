// The result of a survey: how the parser and the host framework interpret a
// configuration, as plain data.
//
// Thread safety: may be read from any thread.
#ifndef QVGRAPH_SURVEY_SURVEY_DATA_H_
#define QVGRAPH_SURVEY_SURVEY_DATA_H_

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/qv_host_meta_data.h"
#include "host/qv_lookup_scope.h"

namespace qvgraph {

// A string, a 32-bit or 64-bit integer, or a 32-bit float.
using OptionValue = QVHostMetaData::Value;

// What a store holds, in key order.
using Options = std::map<std::string, OptionValue, std::less<>>;

// What the parser's conversion of each member of an option object leaves in a
// store, in the parser's order of the members; nothing for a member that is not
// stored. Empty if there is no such object.
using Conversions = std::vector<std::optional<OptionValue>>;

// The option objects of a node, in the order in which they are copied.
constexpr std::array<const char*, 4> OPTION_OBJECTS = {
    "node_opts", "stream_opts", "node_opts_extra", "stream_opts_extra"};

// The outcome of setting a node up.
enum class Outcome {
    Ready,          // initialised with all of its streams
    NotCreated,     // the node proxy created no node
    NoStreams,      // the node has neither inputs nor outputs
    StreamRefused,  // the task graph refused a stream; the device reports success
    WouldAbort,     // a stream without a name: the device aborts the process
    WouldThrow,     // a stream without a format: an exception propagates to the caller
};

// "ready", "not created", "no streams", "stream refused", "would abort" or
// "would throw".
const char* toText(Outcome outcome);

// A lookup of a stream's name or format.
struct StreamLookup {
    std::string key;
    bool found = false;  // as a string
};

// One end of a stream at a node: one of its stream managers, as far as set-up
// wired it.
struct SurveyedEnd {
    std::optional<std::string> name;
    std::optional<int> id;
    std::optional<std::string> format;
    bool remainNewest = false;  // inputs only

    // Set-up's lookups of name and format in the node's store. Nothing if set-up
    // did not get that far, or if the store is not the host's own.
    std::optional<StreamLookup> nameLookup = {};
    std::optional<StreamLookup> formatLookup = {};
};

// An executor or a link. `key` is the member that its id maps to; empty if there
// is no such member (as for 'link_x', whose id is 0, without a 'link_0').
struct SurveyedOptionSet {
    int index = 0;
    int id = 0;
    std::optional<std::string> key = {};
    Options options = {};          // those of `key`
    std::string member = {};       // its own key
    Conversions conversions = {};  // of its own option object; if requested
};

struct SurveyedNode {
    int index = 0;
    int id = 0;
    std::string member;              // its own key
    std::optional<std::string> key;  // as in SurveyedOptionSet
    std::string name;                // "node_name", empty if there is none
    std::string className;           // the name up to a '#'
    bool registered = false;         // it is of that class, and not a stub
    bool created = false;            // the node proxy created a node
    Outcome outcome = Outcome::Ready;
    std::optional<int> result;   // of initTaskNode; empty if it does not return
    std::string message;         // why it is not ready, or which declared streams are not
                                 // wired if it is; empty if all is well
    bool failedByClass = false;  // its class created no node, threw or asserted something
    Options options;             // what its store holds under the keys of its objects; with
                                 // conversions, only if the store is not watched
    std::array<Conversions, OPTION_OBJECTS.size()> conversions;  // if requested

    // Whether its store is the host's own, so that lookups are known: every one
    // during set-up, and the keys that were looked up as a different type from what
    // is stored.
    bool watched = false;
    std::vector<QVLookupScope::Lookup> lookups;
    std::vector<QVLookupScope::Miss> misses;

    std::vector<SurveyedEnd> inputEnds;
    std::vector<SurveyedEnd> outputEnds;
};

struct SurveyedStream {
    int id = 0;
    std::string name;
    std::optional<std::string> producer;  // a node's key
    std::vector<std::string> consumers;   // nodes' keys, each once
};

// A pipe, its members in the parser's own order. `key` is empty if the index
// maps to no member of the root; everything else is then as in an empty pipe.
struct SurveyedPipe {
    int index = 0;
    std::optional<std::string> key;
    int threads = 0;
    std::string linkMode;
    std::vector<SurveyedOptionSet> executors;
    std::vector<SurveyedOptionSet> links;
    std::vector<SurveyedNode> nodes;
    std::vector<SurveyedStream> streams;  // by id
};

// A node class that is registered, and the library that it comes from; empty
// for the program itself.
struct NodeClass {
    std::string name;
    std::string origin;
};

// The classes of which nodes can be created.
struct NodeClasses {
    std::vector<NodeClass> classes;  // in the byte order of their names
    bool stub = false;               // whether a stub stands in for all others
};

struct Survey {
    std::vector<SurveyedPipe> pipes;
    NodeClasses nodeClasses;
};

// The number of nodes in a survey, and how many of them are not ready.
struct Readiness {
    size_t nodes = 0;
    size_t notReady = 0;
};
Readiness readinessOf(const Survey& survey);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_SURVEY_DATA_H_
