// What the rules about nodes and streams share; part of the check.
#ifndef QVGRAPH_CHECK_NODE_ACCESS_H_
#define QVGRAPH_CHECK_NODE_ACCESS_H_

#include <map>
#include <string>
#include <vector>

#include "check/finding.h"
#include "check/subject.h"
#include "check/words.h"

namespace qvgraph {

// ---- visiting ---------------------------------------------------------------

// Every node that is an object, and meant as a node.
template <typename Function>
void forEachNode(const Subject& subject, Function function) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const NodeSubject& node : pipe.nodes) {
            if (node.isMeant && node.value->isObject()) {
                function(node);
            }
        }
    }
}

template <typename Function>
void forEachSide(const Subject& subject, Function function) {
    forEachNode(subject, [&](const NodeSubject& node) {
        function(node, node.inputs);
        function(node, node.outputs);
    });
}

// The sides where set-up may have failed: a node that is ready has all that it
// needs, wherever its class takes it from.
template <typename Function>
void forEachUnreadySide(const Subject& subject, Function function) {
    forEachSide(subject, [&](const NodeSubject& node, const Side& side) {
        if (!node.isReady()) {
            function(node, side);
        }
    });
}

// ---- streams ------------------------------------------------------------------

// Whether something names a stream of the node.
inline bool hasStreams(const NodeSubject& node) {
    return !node.inputs.streams.empty() || !node.outputs.streams.empty();
}

// Whether a key of "stream_opts" declares a stream.
bool isStreamKey(const std::string& key);

// Whether a key does not, but nearly is "stream_input" or "stream_output", its
// index aside.
bool isNearlyStreamKey(const std::string& key);

// What is wrong with which streams a side names. Each has a rule of its own.
enum class Naming {
    Right,
    SingleIndexed,  // single-stream-key
    Mixed,          // stream-keys-mixed
    TooMany,        // stream-count
    TooFew,         // stream-name-missing
};

// A name that nothing in the node is meant to give.
bool isNameless(const DeclaredEnd& end);

Naming namingOf(const NodeSubject& node, const Side& side);

// The key of the family of names with the first index that no other has.
std::string freeNameKey(const Side& side);

// ---- what is meant --------------------------------------------------------------

// A member that was probably meant to be a key that is not there, and what to do
// about it: "rename", "'stream_ouput'", "to \"stream_output\"".
struct MeantMember {
    Related place;
    std::string verb;
    std::string key;
    std::string target;
    bool isReported = false;  // it has a finding of its own
};

// What was meant as "node_opts" or "stream_opts", or as a member of them.
std::vector<MeantMember> meantAsNodeName(const NodeSubject& node);
std::vector<MeantMember> meantAsNames(const NodeSubject& node, const Side& side);

// The same for the formats of a side, by the key that was meant.
std::map<std::string, std::vector<MeantMember>> meantAsFormats(const NodeSubject& node,
                                                               const Side& side);

// Adds the places, each once, and puts their fixes into the hint, if there are
// any.
void relate(const std::vector<MeantMember>& meant, Finding* finding);

// ---- words ------------------------------------------------------------------------

std::string inDoubleQuotes(const std::string& key);

// A key of streams: "stream_input" in double quotes, 'stream_input_0' in single
// ones.
std::string nameOfKey(const Side& side, const std::string& key);

// "the class 'Camera'".
std::string classOf(const NodeSubject& node);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_NODE_ACCESS_H_
