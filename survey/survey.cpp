#include "survey/survey.h"

#include <algorithm>
#include <utility>

#include "host/qv_host_task_graph.h"
#include "host/qv_node_registry.h"
#include "survey/node_setup.h"

namespace qvgraph {

namespace {

std::string indexedKey(const char* prefix, int number) {
    return prefix + std::to_string(number);
}

// The key that an index or id leads to; nothing when there is no such member.
std::optional<std::string> keyIn(const json11::Json& object, const char* prefix, int number) {
    std::string key = indexedKey(prefix, number);
    if (object.object_items().count(key) == 0) {
        return std::nullopt;
    }
    return key;
}

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

OptionSet surveyExecutor(const QVGraphParser& parser, const Pipe& pipe, int index) {
    OptionSet executor;
    executor.index = index;
    executor.id = parser.getExecIDByIndex(pipe.index, index);
    executor.key = keyIn(parser.root()[indexedKey("pipe_", pipe.index)], "executor_", executor.id);
    QVHostMetaData store;
    parser.syncExecOptions(&store, pipe.index, executor.id);
    executor.options = store.entries();
    return executor;
}

OptionSet surveyLink(const QVGraphParser& parser, const Pipe& pipe, int index) {
    OptionSet link;
    link.index = index;
    link.id = parser.getLinkIDByIndex(pipe.index, index);
    link.key = keyIn(parser.root()[indexedKey("pipe_", pipe.index)], "link_", link.id);
    QVHostMetaData store;
    parser.syncLinkOptions(&store, pipe.index, link.id);
    link.options = store.entries();
    return link;
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
    const int executors = parser.getExecNum(index);
    for (int i = 0; i < executors; ++i) {
        pipe.executors.push_back(surveyExecutor(parser, pipe, i));
    }
    const int links = parser.getLinkNum(index);
    for (int i = 0; i < links; ++i) {
        pipe.links.push_back(surveyLink(parser, pipe, i));
    }
    QVHostTaskGraph graph;
    const int nodes = parser.getNodeNum(index);
    for (int i = 0; i < nodes; ++i) {
        const int id = parser.getNodeIDByIndex(index, i);
        Node node = setUpNode(parser, index, id, &graph);
        node.index = i;
        node.key = keyIn(parser.root()[indexedKey("pipe_", index)], "node_", id);
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
    return jsonError.empty() ? "the document is null" : jsonError;
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
