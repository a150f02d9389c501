#include "tests/support/configurations.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

using Texts = std::vector<std::string>;
using namespace std::string_literals;  // NOLINT(google-build-using-namespace)

const Texts OPTION_KEYS = {"fps", "gain", "model", "threshold", "rate", "é", "a b"};
const Texts OPTION_VALUES = {"25",
                             "-1",
                             "0",
                             "\"fast\"",
                             "\"\"",
                             "\"camera:front\"",
                             "\"int32:-7\"",
                             "\"int64:0x10\"",
                             "\"float:0.5\"",
                             "\"double:0.25\""};

// Names of classes that are not registered.
const Texts CLASSES = {"Camera", "Filter", "Display", "Camera#front", "Filter#1"};

// New names for keys.
const Texts KEYS = {"",
                    "pipe_0",
                    "pipe_7",
                    "pipe_01",
                    "node_0",
                    "node_x",
                    "node_07",
                    "node_+1",
                    "node_-1",
                    "node_10",
                    "node_99999999999",
                    "node_1\0"s,
                    "executor_0",
                    "link_0",
                    "thread_opts",
                    "node_opts",
                    "stream_opts",
                    "node_opts_extra",
                    "stream_opts_extra",
                    "node_name",
                    "node_name\0x"s,
                    "stream_input",
                    "stream_input\0x"s,
                    "stream_input_0",
                    "stream_input_1",
                    "stream_input_x",
                    "stream_inputs",
                    "stream_output",
                    "stream_output_0",
                    "stream_output_0\0"s,
                    "stream_output_1",
                    "stream_fmt_in",
                    "stream_fmt_in_0",
                    "stream_fmt_in_2",
                    "stream_fmt_out",
                    "stream_fmt_out_1",
                    "stream_fmt_out\0"s,
                    "stream_mode_in",
                    "comment"};

const Texts VALUES = {"null",
                      "true",
                      "5",
                      "3.5",
                      "1e999",
                      "-3000000000",
                      "[]",
                      "[1]",
                      "{}",
                      "{\"a\": \"s0\"}",
                      "\"\"",
                      "\"s0\"",
                      "\"s1\"",
                      "\"#\"",
                      "\"\\u0000s0\"",
                      "\"s0\\u0000\"",
                      "\"int32\"",
                      "\"int32:5\"",
                      "\"int64:9\"",
                      "\"float:x\"",
                      "\"double:1e99\"",
                      "\"Int32:5\"",
                      std::string("\"im\xf7") + "32:5\"",  // has the hash of "int32"
                      "\":5\"",
                      "\"remain_newest\"",
                      "\"Remain-Newest\"",
                      '"' + std::string(127, 'x') + '"',
                      '"' + std::string(128, 'x') + '"'};

ConfigurationTree scalar(std::string text) {
    ConfigurationTree tree;
    tree.isObject = false;
    tree.scalar = std::move(text);
    return tree;
}

std::string inQuotes(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        quoted += letter == '\0' ? "\\u0000" : std::string(1, letter);
    }
    return quoted + '"';
}

void append(const ConfigurationTree& tree, const std::string& indentation, std::string* text) {
    if (!tree.isObject) {
        *text += tree.scalar;
        return;
    }
    *text += '{';
    const char* separator = "\n";
    for (const ConfigurationMember& member : tree.members) {
        *text += separator + indentation + "  " + inQuotes(member.key) + ": ";
        append(member.value, indentation + "  ", text);
        separator = ",\n";
    }
    *text += tree.members.empty() ? "}" : "\n" + indentation + '}';
}

void addMember(std::string key, ConfigurationTree value, ConfigurationTree* object) {
    object->members.push_back({std::move(key), std::move(value)});
}

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

// The key with "input" and "output", or "_in" and "_out", swapped.
std::string otherFamily(std::string key) {
    const std::pair<const char*, const char*> swaps[] = {
        {"input", "output"}, {"output", "input"}, {"_in", "_out"}, {"_out", "_in"}};
    for (const auto& [from, to] : swaps) {
        const size_t at = key.find(from);
        if (at != std::string::npos) {
            return key.replace(at, std::string(from).size(), to);
        }
    }
    return key;
}

// "node" for "node_12".
std::string withoutNumber(std::string key) {
    while (!key.empty() && (isDigit(key.back()) || key.back() == '_')) {
        key.pop_back();
    }
    return key;
}

}  // namespace

std::string textOf(const ConfigurationTree& tree) {
    std::string text;
    append(tree, "", &text);
    return text;
}

bool hasDuplicates(const ConfigurationTree& tree) {
    std::set<std::string> keys;
    return std::any_of(
        tree.members.begin(), tree.members.end(), [&](const ConfigurationMember& member) {
            return !keys.insert(member.key).second || hasDuplicates(member.value);
        });
}

RandomConfigurations::RandomConfigurations(unsigned seed,
                                           std::vector<SizedClass> sized,
                                           std::vector<std::string> failing)
    : mNumbers(seed), mSized(std::move(sized)), mFailing(std::move(failing)) {}

ConfigurationMember& RandomConfigurations::Position::member() const {
    return object->members[index];
}

const std::string& RandomConfigurations::oneOf(const Texts& texts) {
    return texts[below(texts.size())];
}

// ---- Correct configurations -------------------------------------------------

void RandomConfigurations::addOptions(ConfigurationTree* object) {
    for (const std::string& key : OPTION_KEYS) {
        if (below(4) == 0) {
            addMember(key, scalar(oneOf(OPTION_VALUES)), object);
        }
    }
}

// Each output produces a new stream, s0, s1 and so on; an input consumes any stream
// that has been produced. The format of a stream is f0 or f1, by its number.
void RandomConfigurations::addStreams(size_t number,
                                      bool isInput,
                                      ConfigurationTree* streamOptions) {
    const std::string name = isInput ? "stream_input" : "stream_output";
    const std::string format = isInput ? "stream_fmt_in" : "stream_fmt_out";
    for (size_t i = 0; i < number; ++i) {
        const size_t stream = isInput ? below(mStreams) : mStreams++;
        const std::string suffix = number == 1 ? "" : '_' + std::to_string(i);
        addMember(name + suffix, scalar("\"s" + std::to_string(stream) + '"'), streamOptions);
        addMember(format + suffix, scalar("\"f" + std::to_string(stream % 2) + '"'), streamOptions);
    }
}

std::string RandomConfigurations::className(size_t inputs, size_t outputs) {
    for (const SizedClass& sized : mSized) {
        if (sized.inputs == inputs && sized.outputs == outputs && below(2) == 0) {
            return sized.name;
        }
    }
    return oneOf(CLASSES);
}

ConfigurationTree RandomConfigurations::node() {
    const size_t outputs = below(4);
    const size_t inputs = mStreams == 0 ? 0 : below(4);
    ConfigurationTree options;
    ConfigurationTree streams;
    addStreams(inputs, true, &streams);
    addStreams(inputs + outputs == 0 ? 1 : outputs, false, &streams);
    if (inputs > 0 && below(3) == 0) {
        addMember("stream_mode_in", scalar("\"remain_newest\""), &streams);
    }
    const std::string name = className(inputs, inputs + outputs == 0 ? 1 : outputs);
    addMember("node_name", scalar(inQuotes(name)), &options);
    addOptions(&options);

    ConfigurationTree node;
    addMember("node_opts", options, &node);
    addMember("stream_opts", streams, &node);
    for (const char* extra : {"node_opts_extra", "stream_opts_extra"}) {
        if (below(4) == 0) {
            ConfigurationTree more;
            addOptions(&more);
            addMember(extra, more, &node);
        }
    }
    return node;
}

ConfigurationTree RandomConfigurations::pipe() {
    mStreams = 0;
    ConfigurationTree pipe;
    const size_t first = below(2) * 8;
    const size_t nodes = below(5);
    for (size_t i = 0; i < nodes; ++i) {
        addMember("node_" + std::to_string(first + i), node(), &pipe);
    }
    for (size_t i = below(3); i > 0; --i) {
        ConfigurationTree options;
        addOptions(&options);
        ConfigurationTree executor;
        addMember("executor_opts", options, &executor);
        addMember("executor_" + std::to_string(i), executor, &pipe);
        addMember("link_" + std::to_string(i), options, &pipe);
    }
    if (below(2) == 0) {
        ConfigurationTree threads;
        addMember("exec_thread_num", scalar("4"), &threads);
        addMember("thread_opts", threads, &pipe);
        addMember("default_mode_link", scalar("\"async\""), &pipe);
    }
    return pipe;
}

ConfigurationTree RandomConfigurations::sound() {
    ConfigurationTree root;
    const size_t pipes = 1 + below(3);
    for (size_t i = 0; i < pipes; ++i) {
        addMember("pipe_" + std::to_string(i), pipe(), &root);
    }
    return root;
}

// ---- Mistakes ---------------------------------------------------------------

std::vector<RandomConfigurations::Position> RandomConfigurations::positionsIn(
    ConfigurationTree* tree) {
    std::vector<Position> positions;
    std::vector<ConfigurationTree*> waiting = {tree};
    while (!waiting.empty()) {
        ConfigurationTree* object = waiting.back();
        waiting.pop_back();
        for (size_t i = 0; i < object->members.size(); ++i) {
            positions.push_back({object, i});
            waiting.push_back(&object->members[i].value);
        }
    }
    return positions;
}

void RandomConfigurations::erase(const Position& position) {
    std::vector<ConfigurationMember>& members = position.object->members;
    members.erase(members.begin() + static_cast<std::ptrdiff_t>(position.index));
}

// A copy of any member.
ConfigurationMember RandomConfigurations::anyMember(ConfigurationTree* tree) {
    const std::vector<Position> positions = positionsIn(tree);
    return positions[below(positions.size())].member();
}

// The key with one letter omitted, doubled, swapped with the next, or in upper case.
std::string RandomConfigurations::mistyped(std::string key) {
    if (key.empty()) {
        return "x";
    }
    const size_t at = below(key.size());
    switch (below(4)) {
        case 0:
            return key.erase(at, 1);
        case 1:
            return key.insert(at, 1, key[at]);
        case 2:
            std::swap(key[at], key[std::min(at + 1, key.size() - 1)]);
            return key;
        default:
            if (key[at] >= 'a' && key[at] <= 'z') {
                key[at] = static_cast<char>(key[at] - 'a' + 'A');
            }
            return key;
    }
}

std::string RandomConfigurations::renamed(const std::string& key) {
    switch (below(4)) {
        case 0:
            return oneOf(KEYS);
        case 1:
            return otherFamily(key);
        case 2:
            return below(2) == 0 ? withoutNumber(key)
                                 : withoutNumber(key) + '_' + std::to_string(below(12));
        default:
            return mistyped(key);
    }
}

// The name of a class that does not fit most nodes.
std::string RandomConfigurations::otherClass() {
    const size_t at = below(mSized.size() + mFailing.size());
    return at < mSized.size() ? mSized[at].name : mFailing[at - mSized.size()];
}

ConfigurationTree RandomConfigurations::otherValue(const std::string& key) {
    const bool hasClasses = !mSized.empty() || !mFailing.empty();
    if (hasClasses && below(key == "node_name" ? 2 : 12) == 0) {
        return scalar(inQuotes(otherClass()));
    }
    return scalar(oneOf(VALUES));
}

// Moves a member into any object, possibly its own.
void RandomConfigurations::moveMember(const Position& position, ConfigurationTree* tree) {
    const ConfigurationMember moved = position.member();
    erase(position);
    const std::vector<Position> positions = positionsIn(tree);
    ConfigurationTree* target =
        positions.empty() ? tree : positions[below(positions.size())].object;
    addMember(moved.key, moved.value, target);
}

void RandomConfigurations::spoilMember(const Position& position, ConfigurationTree* tree) {
    ConfigurationMember& member = position.member();
    switch (below(6)) {
        case 0:
            erase(position);
            break;
        case 1:
            member.key = renamed(member.key);
            break;
        case 2:
            addMember(member.key, otherValue(member.key), position.object);
            break;
        case 3:
            member.value = otherValue(member.key);
            break;
        case 4:
            moveMember(position, tree);
            break;
        default:
            member.value = anyMember(tree).value;
            break;
    }
}

void RandomConfigurations::spoil(ConfigurationTree* tree) {
    const std::vector<Position> positions = positionsIn(tree);
    if (!positions.empty()) {
        spoilMember(positions[below(positions.size())], tree);
    }
}

void RandomConfigurations::shuffle(ConfigurationTree* tree) {
    for (size_t i = tree->members.size(); i > 1; --i) {
        std::swap(tree->members[i - 1], tree->members[below(i)]);
    }
    for (ConfigurationMember& member : tree->members) {
        shuffle(&member.value);
    }
}