#include "survey/survey.h"

#include <algorithm>
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

// How a kind of members with options is asked for.
struct SetKind {
    const char* prefix;
    int (QVGraphParser::*num)(int pipe) const;
    int (QVGraphParser::*idByIndex)(int pipe, int index) const;
    int (QVGraphParser::*syncOptions)(QvMetaData* meta, int pipe, int id) const;
};

const SetKind EXECUTORS = {"executor_",
                           &QVGraphParser::getExecNum,
                           &QVGraphParser::getExecIDByIndex,
                           &QVGraphParser::syncExecOptions};
const SetKind LINKS = {"link_",
                       &QVGraphParser::getLinkNum,
                       &QVGraphParser::getLinkIDByIndex,
                       &QVGraphParser::syncLinkOptions};

std::vector<OptionSet> surveySets(const QVGraphParser& parser, int pipe, const SetKind& kind) {
    const json11::Json& members = parser.root()[indexedKey("pipe_", pipe)];
    std::vector<OptionSet> sets(static_cast<size_t>((parser.*kind.num)(pipe)));
    for (size_t i = 0; i < sets.size(); ++i) {
        sets[i].index = static_cast<int>(i);
        sets[i].id = (parser.*kind.idByIndex)(pipe, sets[i].index);
        sets[i].key = keyIn(members, kind.prefix, sets[i].id);
        QVHostMetaData store;
        (parser.*kind.syncOptions)(&store, pipe, sets[i].id);
        sets[i].options = store.entries();
    }
    return sets;
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

Pipe surveyPipe(const QVGraphParser& parser, int index) {
    Pipe pipe;
    pipe.index = index;
    pipe.key = keyIn(parser.root(), "pipe_", index);
    pipe.threads = parser.getThreadNum(index);
    pipe.linkMode = parser.getDefaultLinkMode(index);
    pipe.executors = surveySets(parser, index, EXECUTORS);
    pipe.links = surveySets(parser, index, LINKS);
    QVHostTaskGraph graph;
    const int nodes = parser.getNodeNum(index);
    for (int i = 0; i < nodes; ++i) {
        const int id = parser.getNodeIDByIndex(index, i);
        Node node = setUpNode(parser, index, id, &graph);
        node.index = i;
        pipe.nodes.push_back(std::move(node));
    }
    for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
        pipe.streams.push_back(surveyStream(stream));
    }
    return pipe;
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
    std::string jsonError;
    const QVLogSink observer = observed(records);
    const QVLogScope scope(levelFor(records), [&](const QVLogRecord& record) {
        observer(record);
        jsonError = jsonErrorIn(record);
    });
    if (parser->parseConfigText(text.c_str()) == 0) {
        return std::nullopt;
    }
    if (jsonError.empty()) {
        return "the document is null";
    }
    return jsonError + hintFor(text);
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
    const int first = request.pipe.value_or(0);
    const int end = request.pipe ? first + 1 : parser.getPipeNum();
    for (int index = first; index < end; ++index) {
        survey.pipes.push_back(surveyPipe(parser, index));
        if (request.progress) {
            request.progress(survey.pipes.size(), static_cast<size_t>(end - first));
        }
    }
    return survey;
}

}  // namespace qvgraph
