// What the author probably intended with streams that have no producer or no
// consumer.
#ifndef QVGRAPH_CHECK_STREAM_GUESSES_H_
#define QVGRAPH_CHECK_STREAM_GUESSES_H_

#include <string_view>
#include <vector>

#include "model/model.h"

namespace qvgraph {

struct StreamGuess {
    // The stream may have unknown ends: a key without a meaning seems to name it,
    // or the streams of a node are unknown.
    bool isUncertain = false;

    // If the stream has no producer: the produced stream that the author probably
    // intended; "" for none.
    std::string_view intended = {};

    // The author probably intended this stream where another, without a producer,
    // is named.
    bool isIntended = false;
};

// A guess for each stream of a pipe.
std::vector<StreamGuess> guessesOf(const Pipe& pipe);

// Whether a stream of the pipe has no producer or no consumer.
bool hasLooseEnds(const Pipe& pipe);

// Whether the names of all streams that the nodes consume (inputs) or produce
// (outputs) are known.
bool knowsEvery(Side Node::*side, const Pipe& pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_STREAM_GUESSES_H_
