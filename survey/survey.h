// What the parser and the desk's framework make of a configuration: every
// query answered, every option copied, every node set up, as plain data.
//
// Beyond names and keys, nothing here reads the configuration a second time:
// the parser itself is run as a framework runs it, and its calls and records
// are watched.
//
// Thread safety: a survey takes the process's log level and sink for its own
// while it runs (host/qv_host_log.h): one at a time, and no other logging.
#ifndef QVGRAPH_SURVEY_SURVEY_H_
#define QVGRAPH_SURVEY_SURVEY_H_

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_lookup_scope.h"

namespace qvgraph {

// What a store holds, in key order.
using Options = std::map<std::string, QVHostMetaData::Value, std::less<>>;

// How setting a node up ended.
enum class Outcome {
    Ready,          // initialised with all of its streams
    NotCreated,     // the node proxy made no node
    NoStreams,      // the node has neither inputs nor outputs
    StreamRefused,  // the task graph refused a stream; the device calls it success
    WouldAbort,     // a stream without a name: the device aborts the process
    WouldThrow,     // a stream without a format: the device gets an exception
};

// "ready", "not created", "no streams", "stream refused", "would abort" or
// "would throw".
const char* toText(Outcome outcome);

// One end of a stream at a node, as far as it was wired.
struct StreamEnd {
    std::optional<std::string> name;
    std::optional<int> id;
    std::optional<std::string> format;
    bool remainNewest = false;  // inputs only
};

// An executor or a link. `key` is where its id leads; empty when there is no
// such member (as for 'link_x', whose id is 0, without a 'link_0').
struct OptionSet {
    int index = 0;
    int id = 0;
    std::optional<std::string> key;
    Options options;
    std::string member = {};  // its own key
};

struct Node {
    int index = 0;
    int id = 0;
    std::string member;              // its own key
    std::optional<std::string> key;  // as in OptionSet
    std::string name;                // "node_name", empty when there is none
    std::string className;           // the name up to a '#'
    bool registered = false;         // it is of that class, and no stub
    bool created = false;            // the node proxy made a node
    Outcome outcome = Outcome::Ready;
    std::optional<int> result;   // of initTaskNode; empty where it does not return
    std::string message;         // why it is not ready, or which declared streams are not
                                 // wired where it is; empty when all is well
    bool failedByClass = false;  // its class made no node, threw or asserted something
    Options options;             // what its store holds under the keys of its objects
    Options stored;              // what the member's four objects leave in any store;
                                 // where SurveyRequest asks for it
    // What it looked up as another type than is stored, where its store is the
    // desk's.
    std::vector<QVLookupScope::Miss> misses;
    std::vector<StreamEnd> inputs;
    std::vector<StreamEnd> outputs;
};

struct Stream {
    int id = 0;
    std::string name;
    std::optional<std::string> producer;  // a node's key
    std::vector<std::string> consumers;   // nodes' keys, each once
};

// A pipe, its members in the parser's own order. `key` is empty when the index
// leads to no member of the root; everything else is then as in an empty pipe.
struct Pipe {
    int index = 0;
    std::optional<std::string> key;
    int threads = 0;
    std::string linkMode;
    std::vector<OptionSet> executors;
    std::vector<OptionSet> links;
    std::vector<Node> nodes;
    std::vector<Stream> streams;  // by id
};

// A node class that is registered, and the library that it comes from; empty
// for the program itself.
struct NodeClass {
    std::string name;
    std::string origin;
};

// What nodes can be made of.
struct NodeClasses {
    std::vector<NodeClass> classes;  // in the byte order of their names
    bool stub = false;               // whether a stub stands in for all others
};

struct Survey {
    std::vector<Pipe> pipes;
    NodeClasses nodeClasses;
};

// How many nodes a survey has, and how many of them are not ready.
struct Readiness {
    size_t nodes = 0;
    size_t notReady = 0;
};
Readiness readinessOf(const Survey& survey);

// Surveys the registry of node classes.
NodeClasses surveyNodeClasses();

// Receives the parser's records as it is run; an empty one receives nothing.
struct RecordObserver {
    int level = QV_LOG_ERROR;  // records of this level and more severe ones
    QVLogSink sink;
};

struct SurveyRequest {
    std::optional<int> pipe;  // only this pipe, from 0 to getPipeNum() - 1
    RecordObserver records;

    // Every pipe that some index leads to, be it below getPipeNum() or not, and
    // no other; and Node::stored is filled.
    bool everyMember = false;

    // Told after each pipe how many are done, of how many; may be empty.
    std::function<void(size_t done, size_t total)> progress;
};

// Loads `text`, up to its first NUL, into `parser`. Returns nothing on success,
// otherwise why there is no document in it.
std::optional<std::string> loadConfiguration(const std::string& text,
                                             const RecordObserver& records,
                                             QVGraphParser* parser);

// Surveys what the parser has loaded. Each pipe has a task graph of its own,
// and its nodes are set up one by one, in order, whatever became of those
// before. Node classes are those of QVNodeRegistry.
//
// What a node class throws while its node is set up is told as WouldThrow;
// std::bad_alloc is passed on.
Survey surveyConfiguration(const QVGraphParser& parser, const SurveyRequest& request);

// The node whose class's code runs at this moment: it is being made, set up,
// asked for its options or deleted.
struct NodeInSetUp {
    const char* className;
    int pipe;
    int id;
};

// Null where there is none. For a handler of signals, in which it may be called.
const NodeInSetUp* nodeInSetUp();

// A text, loaded and surveyed.
struct SurveyedText {
    bool loads = false;
    std::string jsonError;  // json11's text where it does not load; empty for null
    Survey survey;
};

// Does both with a parser of its own.
SurveyedText surveyText(const std::string& text, const SurveyRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_SURVEY_H_
