#include "check/stream_guesses.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "check/similar.h"
#include "check/stream_naming.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// The maximum number of streams without a producer for which an intended stream
// is sought: each is compared with every produced stream.
const size_t MAX_GUESSES = 50;

// The guesses for the streams of one pipe.
class Guesses {
public:
    explicit Guesses(const Pipe& pipe) : mPipe(pipe), mGuesses(pipe.streams.size()) {
        for (size_t i = 0; i < pipe.streams.size(); ++i) {
            mIndexes.emplace(pipe.streams[i].name, i);
        }
    }

    // The guess for the stream of that name; null for none.
    StreamGuess* find(std::string_view name) {
        const auto found = mIndexes.find(name);
        return found == mIndexes.end() ? nullptr : &mGuesses[found->second];
    }

    const Pipe& pipe() const { return mPipe; }
    StreamGuess& at(size_t stream) { return mGuesses[stream]; }
    std::vector<StreamGuess> take() { return std::move(mGuesses); }

private:
    const Pipe& mPipe;
    std::vector<StreamGuess> mGuesses;
    std::unordered_map<std::string_view, size_t> mIndexes;
};

// ---- Unknown ends -----------------------------------------------------------

const int MAX_DEPTH = 3;  // of a node: its sections, and their options

// Marks the streams that strings name: the value itself, and the values in it, up
// to `depth` levels below.
void markNamed(const Value& value, int depth, Guesses* guesses) {
    if (StreamGuess* guess = value.isString() ? guesses->find(value.text) : nullptr) {
        guess->isUncertain = true;
    }
    for (const Value* child : value.children) {
        if (depth > 0) {
            markNamed(*child, depth - 1, guesses);
        }
    }
}

// Whether a key names a stream of the node: its value is the name of a stream, or
// is overridden by one.
bool isNamingKey(const Node& node, std::string_view key) {
    for (const Side* side : {&node.inputs, &node.outputs}) {
        for (const StreamEnd& end : side->ends) {
            if (end.name != nullptr && end.nameKey == key) {
                return true;
            }
        }
    }
    return false;
}

// Whether an option that does not name a stream was probably intended to name one.
bool mayName(const Node& node, const Value& option) {
    return (isStreamKey(option.key) || isNearlyStreamKey(option.key)) &&
           !isNamingKey(node, option.key);
}

void markNamedByOptions(const Node& node, const Value& object, Guesses* guesses) {
    for (const Value* option : object.children) {
        const bool isStream = option->isString() && guesses->find(option->text) != nullptr;
        if (option->isObject() || (isStream && mayName(node, *option))) {
            markNamed(*option, MAX_DEPTH, guesses);
        }
    }
}

void markNamedIn(const Node& node, Guesses* guesses) {
    for (const Value* member : node.value->children) {
        const bool isOptions = std::ranges::any_of(
            node.objects, [member](const OptionObject& object) { return object.value == member; });
        if (isOptions) {
            markNamedByOptions(node, *member, guesses);
        } else {
            markNamed(*member, MAX_DEPTH, guesses);
        }
    }
}

// An option of an executor or a link is never an object. An object was probably
// intended for another location.
void markNamedByObjects(const Value& member, Guesses* guesses) {
    for (const Value* option : member.children) {
        if (option->isObject()) {
            markNamed(*option, MAX_DEPTH, guesses);
        }
    }
}

bool hasOptions(const Value& member) {
    return hasPrefix(member.key, "executor_") || hasPrefix(member.key, "link_") ||
           member.key == "thread_opts" || member.key == "default_mode_link";
}

// Marks the streams named by values that have no meaning at their location.
void markMisplaced(Guesses* guesses) {
    const Pipe& pipe = guesses->pipe();
    for (const Value* member : pipe.value->children) {
        if (hasOptions(*member)) {
            markNamedByObjects(*member, guesses);
        } else if (!hasPrefix(member->key, "node_")) {
            markNamed(*member, MAX_DEPTH, guesses);
        }
    }
    for (const Node& node : pipe.nodes) {
        markNamedIn(node, guesses);
    }
}

// ---- Intended streams -------------------------------------------------------

std::string withoutDigits(std::string_view name) {
    std::string rest(name);
    std::erase_if(rest, [](char c) { return c >= '0' && c <= '9'; });
    return rest;
}

// A produced stream, with its name without digits.
struct Produced {
    std::string_view name;
    std::string plain;
};

// The produced streams of a pipe, those without a consumer first.
std::vector<Produced> producedIn(const Pipe& pipe) {
    std::vector<Produced> produced;
    for (const bool isConsumed : {false, true}) {
        for (const Stream& stream : pipe.streams) {
            if (!stream.producers.empty() && stream.consumers.empty() != isConsumed) {
                produced.push_back({stream.name, withoutDigits(stream.name)});
            }
        }
    }
    return produced;
}

// The produced stream that a name is probably a misspelling of; "" for none.
// Names that differ only in digits ('left_0' and 'left_1') are different streams,
// and names of one or two bytes are too short to compare.
std::string intendedBy(std::string_view name, const std::vector<Produced>& produced) {
    std::vector<std::string> candidates;
    const std::string plain = withoutDigits(name);
    for (const Produced& other : produced) {
        if (other.plain != plain && name.size() > 2) {
            candidates.emplace_back(other.name);
        }
    }
    return nearestTo(name, candidates);
}

void guessIntended(Guesses* guesses) {
    const std::vector<Stream>& streams = guesses->pipe().streams;
    std::vector<Produced> produced;
    size_t count = 0;
    for (size_t i = 0; i < streams.size(); ++i) {
        StreamGuess& guess = guesses->at(i);
        if (!streams[i].producers.empty() || guess.isUncertain || ++count > MAX_GUESSES) {
            continue;
        }
        if (count == 1) {
            produced = producedIn(guesses->pipe());
        }
        const std::string intended = intendedBy(streams[i].name, produced);
        const auto stream = std::ranges::find(streams, intended, &Stream::name);
        if (stream != streams.end()) {
            guess.intended = stream->name;
            guesses->at(static_cast<size_t>(stream - streams.begin())).isIntended = true;
        }
    }
}

// A node whose streams are unknown may have any stream.
void markUnknown(Guesses* guesses) {
    const Pipe& pipe = guesses->pipe();
    // One of two producers of a stream was probably intended to produce a
    // different stream.
    const bool producesTwice = std::ranges::any_of(
        pipe.streams, [](const Stream& stream) { return stream.producers.size() > 1; });
    const bool knowsConsumers = knowsEvery(&Node::inputs, pipe);
    const bool knowsProducers = knowsEvery(&Node::outputs, pipe);
    for (size_t i = 0; i < pipe.streams.size(); ++i) {
        const Stream& stream = pipe.streams[i];
        StreamGuess& guess = guesses->at(i);
        const bool mayBeProduced = stream.producers.empty() && guess.intended.empty() &&
                                   (producesTwice || !knowsProducers);
        const bool mayBeConsumed = stream.consumers.empty() && !knowsConsumers;
        guess.isUncertain = guess.isUncertain || mayBeProduced || mayBeConsumed;
    }
}

bool isNamed(const StreamEnd& end) {
    return end.name != nullptr && !end.name->empty();
}

}  // namespace

std::vector<StreamGuess> guessesOf(const Pipe& pipe) {
    Guesses guesses(pipe);
    markMisplaced(&guesses);
    guessIntended(&guesses);
    markUnknown(&guesses);
    return guesses.take();
}

bool hasLooseEnds(const Pipe& pipe) {
    return std::ranges::any_of(pipe.streams, [](const Stream& stream) {
        return stream.producers.empty() || stream.consumers.empty();
    });
}

bool knowsEvery(Side Node::*side, const Pipe& pipe) {
    return std::ranges::all_of(pipe.nodes, [side](const Node& node) {
        return hasStreams(node) && !hasSpareFormat(node, node.*side) &&
               std::ranges::all_of((node.*side).ends, isNamed);
    });
}

}  // namespace qvgraph
