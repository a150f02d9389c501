#include "survey/survey.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "host/qv_host_task_graph.h"
#include "host/qv_node_registry.h"
#include "survey/keys.h"
#include "survey/node_setup.h"

namespace qvgraph {

namespace {

// A sink that passes on what the observer asked for.
QVLogSink observed(const RecordObserver& records) {
    return [records](const QVLogRecord& record) {
        if (records.sink && record.level <= records.level) {
            records.sink(record);
        }
    };
}

// Errors are watched even where the observer does not want them.
int levelFor(const RecordObserver& records) {
    return records.sink ? std::max<int>(records.level, QV_LOG_ERROR) : QV_LOG_ERROR;
}

// The message of an error record, without colour and newline.
std::string plainMessage(const QVLogRecord& record) {
    std::string message = record.message;
    message.erase(0, std::string(QV_LOG_RED).size());
    message.resize(message.size() - std::string(QV_LOG_PLAIN).size());
    if (!message.empty() && message.back() == '\n') {
        message.pop_back();
    }
    return message;
}

// What json11 says of a text, in the record that the parser makes of it.
std::string jsonErrorIn(const QVLogRecord& record) {
    const std::string message = plainMessage(record);
    const std::string before = "err=";
    return message.substr(message.find(before) + before.size());
}

// What json11's own text does not say of a document that does not load.
std::string hintFor(const std::string& text) {
    if (text.compare(0, 3, "\xef\xbb\xbf") == 0) {
        return " (the text begins with a byte-order mark)";
    }
    const size_t nul = text.find('\0');
    if (nul != std::string::npos) {
        return " (the text ends at a NUL, the byte " + std::to_string(nul) + ")";
    }
    return "";
}

// A member of a family, with the id that the parser reads in its key.
struct FamilyMember {
    std::string key;
    int id = 0;
};

// The members of a family in the parser's order. The parser is asked for the id
// in each key by itself: its lookup by index walks the object every time.
std::vector<FamilyMember> membersOf(const QVGraphParser& parser,
                                    const json11::Json& object,
                                    const char* prefix) {
    std::vector<FamilyMember> members;
    for (const auto& member : object.object_items()) {
        if (hasPrefix(member.first, prefix)) {
            const json11::Json alone = json11::Json::object{{member.first, nullptr}};
            members.push_back({member.first, parser.getItemIDByIndex(alone, 0, prefix)});
        }
    }
    return members;
}

// How a kind of members with options is asked for.
struct SetKind {
    const char* prefix;
    int (QVGraphParser::*num)(int pipe) const;
    int (QVGraphParser::*syncOptions)(QvMetaData* meta, int pipe, int id) const;
};

const SetKind EXECUTORS = {
    "executor_", &QVGraphParser::getExecNum, &QVGraphParser::syncExecOptions};
const SetKind LINKS = {"link_", &QVGraphParser::getLinkNum, &QVGraphParser::syncLinkOptions};

Options optionsOf(const QVHostMetaData& store) {
    return {store.entries().begin(), store.entries().end()};
}

std::vector<OptionSet> surveySets(const QVGraphParser& parser, int pipe, const SetKind& kind) {
    const json11::Json& members = parser.root()[indexedKey("pipe_", pipe)];
    (parser.*kind.num)(pipe);  // for its records
    std::vector<OptionSet> sets;
    for (const FamilyMember& member : membersOf(parser, members, kind.prefix)) {
        OptionSet set;
        set.index = static_cast<int>(sets.size());
        set.id = member.id;
        set.member = member.key;
        set.key = keyIn(members, kind.prefix, set.id);
        QVHostMetaData store;
        (parser.*kind.syncOptions)(&store, pipe, set.id);
        set.options = optionsOf(store);
        sets.push_back(std::move(set));
    }
    return sets;
}

// What the four option objects of a node leave in a store.
Options storedOptions(const QVGraphParser& parser, const json11::Json& node) {
    QVHostMetaData store;
    for (const char* object :
         {"node_opts", "stream_opts", "node_opts_extra", "stream_opts_extra"}) {
        parser.syncOptions(&store, node[object]);
    }
    return optionsOf(store);
}

Stream surveyStream(const QVHostTaskGraph::Stream& registered) {
    Stream stream;
    stream.id = registered.id;
    stream.name = registered.name;
    if (registered.producer) {
        stream.producer = indexedKey("node_", *registered.producer);
    }
    for (const int consumer : registered.consumers) {
        stream.consumers.push_back(indexedKey("node_", consumer));
    }
    return stream;
}

Pipe surveyPipe(const QVGraphParser& parser, int index, bool stored) {
    const json11::Json& members = parser.root()[indexedKey("pipe_", index)];
    Pipe pipe;
    pipe.index = index;
    pipe.key = keyIn(parser.root(), "pipe_", index);
    pipe.threads = parser.getThreadNum(index);
    pipe.linkMode = parser.getDefaultLinkMode(index);
    pipe.executors = surveySets(parser, index, EXECUTORS);
    pipe.links = surveySets(parser, index, LINKS);
    QVHostTaskGraph graph;
    parser.getNodeNum(index);  // for its records
    for (const FamilyMember& member : membersOf(parser, members, "node_")) {
        Node node = setUpNode(parser, index, member.id, &graph);
        node.index = static_cast<int>(pipe.nodes.size());
        node.member = member.key;
        if (stored) {
            node.stored = storedOptions(parser, members[member.key]);
        }
        pipe.nodes.push_back(std::move(node));
    }
    for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
        pipe.streams.push_back(surveyStream(stream));
    }
    return pipe;
}

// Nothing on success; otherwise json11's text, which is empty for null.
std::optional<std::string> load(const std::string& text,
                                const RecordObserver& records,
                                QVGraphParser* parser) {
    std::string jsonError;
    const QVLogSink observer = observed(records);
    const QVLogScope scope(levelFor(records), [&](const QVLogRecord& record) {
        observer(record);
        jsonError = jsonErrorIn(record);
    });
    if (parser->parseConfigText(text.c_str()) == 0) {
        return std::nullopt;
    }
    return jsonError;
}

// The indexes of the pipes to survey.
std::vector<int> pipesFor(const QVGraphParser& parser, const SurveyRequest& request) {
    std::vector<int> pipes;
    if (request.everyMember) {
        for (const FamilyMember& member : membersOf(parser, parser.root(), "pipe_")) {
            if (member.id >= 0 && member.key == indexedKey("pipe_", member.id)) {
                pipes.push_back(member.id);
            }
        }
        std::sort(pipes.begin(), pipes.end());
    } else if (request.pipe) {
        pipes.push_back(*request.pipe);
    } else {
        pipes.resize(static_cast<size_t>(parser.getPipeNum()));
        std::iota(pipes.begin(), pipes.end(), 0);
    }
    return pipes;
}

}  // namespace

const char* toText(Outcome outcome) {
    switch (outcome) {
        case Outcome::Ready:
            return "ready";
        case Outcome::NotCreated:
            return "not created";
        case Outcome::NoStreams:
            return "no streams";
        case Outcome::StreamRefused:
            return "stream refused";
        case Outcome::WouldAbort:
            return "would abort";
        case Outcome::WouldThrow:
            return "would throw";
    }
    return "";
}

NodeClasses surveyNodeClasses() {
    const QVNodeRegistry& registry = QVNodeRegistry::instance();
    NodeClasses all;
    all.stub = registry.stub();
    for (const QVNodeRegistry::Entry& entry : registry.classes()) {
        all.classes.push_back({entry.name, entry.origin});
    }
    return all;
}

Readiness readinessOf(const Survey& survey) {
    Readiness readiness;
    for (const Pipe& pipe : survey.pipes) {
        for (const Node& node : pipe.nodes) {
            ++readiness.nodes;
            readiness.notReady += node.outcome == Outcome::Ready ? 0 : 1;
        }
    }
    return readiness;
}

std::optional<std::string> loadConfiguration(const std::string& text,
                                             const RecordObserver& records,
                                             QVGraphParser* parser) {
    const std::optional<std::string> jsonError = load(text, records, parser);
    if (!jsonError) {
        return std::nullopt;
    }
    return jsonError->empty() ? "the document is null" : *jsonError + hintFor(text);
}

Survey surveyConfiguration(const QVGraphParser& parser, const SurveyRequest& request) {
    const QVLogSink observer = observed(request.records);
    const QVLogScope scope(levelFor(request.records), [&](const QVLogRecord& record) {
        observer(record);
        if (qv_log_is_assertion(record)) {
            throw AssertionFailed{plainMessage(record)};
        }
    });
    Survey survey;
    survey.nodeClasses = surveyNodeClasses();
    const std::vector<int> pipes = pipesFor(parser, request);
    for (const int index : pipes) {
        survey.pipes.push_back(surveyPipe(parser, index, request.everyMember));
        if (request.progress) {
            request.progress(survey.pipes.size(), pipes.size());
        }
    }
    return survey;
}

SurveyedText surveyText(const std::string& text, const SurveyRequest& request) {
    QVGraphParser parser;
    SurveyedText surveyed;
    if (const auto jsonError = load(text, request.records, &parser)) {
        surveyed.jsonError = *jsonError;
        return surveyed;
    }
    surveyed.loads = true;
    surveyed.survey = surveyConfiguration(parser, request);
    return surveyed;
}

}  // namespace qvgraph
