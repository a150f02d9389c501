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

// A sink that passes on the records that the observer requests.
QVLogSink observed(const RecordObserver& records) {
    return [records](const QVLogRecord& record) {
        if (records.sink && record.level <= records.level) {
            records.sink(record);
        }
    };
}

// The survey needs the errors, even if the observer does not request them.
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

// json11's text in the record that the parser logs.
std::string jsonErrorIn(const QVLogRecord& record) {
    const std::string message = plainMessage(record);
    const std::string before = "err=";
    return message.substr(message.find(before) + before.size());
}

// What json11's text does not say about a document that does not load.
std::string hintFor(const std::string& text) {
    if (text.compare(0, 3, "\xef\xbb\xbf") == 0) {
        return " (the text begins with a byte-order mark)";
    }
    const size_t nul = text.find('\0');
    if (nul != std::string::npos) {
        return " (the text ends at the NUL at byte " + std::to_string(nul) + ")";
    }
    return "";
}

// A member of a family, with the id that the parser reads in its key.
struct FamilyMember {
    std::string key;
    int id = 0;
};

// The members of a family in the parser's order. Each id is queried in an object
// that has only this member, because the parser's lookup by index walks the
// entire object every time.
std::vector<FamilyMember> membersOf(const QVGraphParser& parser,
                                    const json11::Json& object,
                                    const char* prefix) {
    std::vector<FamilyMember> members;
    for (const auto& member : object.object_items()) {
        if (hasPrefix(member.first, prefix)) {
            const json11::Json single = json11::Json::object{{member.first, nullptr}};
            members.push_back({member.first, parser.getItemIDByIndex(single, 0, prefix)});
        }
    }
    return members;
}

// How the parser is queried for a kind of members with options.
struct SetKind {
    const char* prefix;
    const char* section;  // of a member, with its options; "" for the member itself
    int (QVGraphParser::*num)(int pipe) const;
    int (QVGraphParser::*syncOptions)(QvMetaData* meta, int pipe, int id) const;
};

const SetKind EXECUTORS = {
    "executor_", "executor_opts", &QVGraphParser::getExecNum, &QVGraphParser::syncExecOptions};
const SetKind LINKS = {"link_", "", &QVGraphParser::getLinkNum, &QVGraphParser::syncLinkOptions};

Options optionsOf(const QVHostMetaData& store) {
    return {store.entries().begin(), store.entries().end()};
}

// Keeps the last value that is stored in it.
class SingleValueStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* value) override { return keep(value); }
    int setInt32(const char* /*key*/, int32_t value) override { return keep(value); }
    int setInt64(const char* /*key*/, int64_t value) override { return keep(value); }
    int setFloat(const char* /*key*/, float value) override { return keep(value); }
    int findCString(const char* /*key*/, const char** /*value*/) override { return 0; }

    std::optional<OptionValue> take() { return std::exchange(mValue, std::nullopt); }

private:
    template <typename Type>
    int keep(Type value) {
        mValue = value;
        return 0;
    }

    std::optional<OptionValue> mValue;
};

Conversions convert(const QVGraphParser& parser, const json11::Json& object) {
    SingleValueStore store;
    Conversions conversions;
    conversions.reserve(object.object_items().size());
    for (const auto& [key, value] : object.object_items()) {
        parser.parseOptions(&store, key.c_str(), value);
        conversions.push_back(store.take());
    }
    return conversions;
}

std::vector<SurveyedOptionSet> surveySets(const QVGraphParser& parser,
                                          int pipe,
                                          const SetKind& kind,
                                          bool forModel) {
    const json11::Json& members = parser.root()[indexedKey("pipe_", pipe)];
    (parser.*kind.num)(pipe);  // for its records
    std::vector<SurveyedOptionSet> sets;
    for (const FamilyMember& member : membersOf(parser, members, kind.prefix)) {
        SurveyedOptionSet set;
        set.index = static_cast<int>(sets.size());
        set.id = member.id;
        set.member = member.key;
        set.key = keyIn(members, kind.prefix, set.id);
        QVHostMetaData store;
        (parser.*kind.syncOptions)(&store, pipe, set.id);
        set.options = optionsOf(store);
        if (forModel) {
            const json11::Json& own = members[member.key];
            set.conversions = convert(parser, *kind.section == '\0' ? own : own[kind.section]);
        }
        sets.push_back(std::move(set));
    }
    return sets;
}

SurveyedStream surveyStream(const QVHostTaskGraph::Stream& registered) {
    SurveyedStream stream;
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

SurveyedPipe surveyPipe(const QVGraphParser& parser, int index, bool forModel) {
    const json11::Json& members = parser.root()[indexedKey("pipe_", index)];
    SurveyedPipe pipe;
    pipe.index = index;
    pipe.key = keyIn(parser.root(), "pipe_", index);
    pipe.threads = parser.getThreadNum(index);
    pipe.linkMode = parser.getDefaultLinkMode(index);
    pipe.executors = surveySets(parser, index, EXECUTORS, forModel);
    pipe.links = surveySets(parser, index, LINKS, forModel);
    WatchedTaskGraph graph;
    parser.getNodeNum(index);  // for its records
    const std::vector<FamilyMember> nodes = membersOf(parser, members, "node_");
    pipe.nodes.reserve(nodes.size());
    for (const FamilyMember& member : nodes) {
        SurveyedNode node = setUpNode(parser, index, member.id, &graph, !forModel);
        node.index = static_cast<int>(pipe.nodes.size());
        node.member = member.key;
        for (size_t i = 0; forModel && i < OPTION_OBJECTS.size(); ++i) {
            node.conversions[i] = convert(parser, members[member.key][OPTION_OBJECTS[i]]);
        }
        pipe.nodes.push_back(std::move(node));
    }
    if (!forModel) {
        for (const QVHostTaskGraph::Stream& stream : graph.streams()) {
            pipe.streams.push_back(surveyStream(stream));
        }
    }
    return pipe;
}

// Nothing on success; otherwise json11's text, which is empty for null.
std::optional<std::string> load(const char* text,
                                const RecordObserver& records,
                                QVGraphParser* parser) {
    std::string jsonError;
    const QVLogSink observer = observed(records);
    const QVLogScope scope(levelFor(records), [&](const QVLogRecord& record) {
        observer(record);
        jsonError = jsonErrorIn(record);
    });
    if (parser->parseConfigText(text) == 0) {
        return std::nullopt;
    }
    return jsonError;
}

// The index of every pipe that an index maps to, in ascending order.
std::vector<int> mappedPipes(const QVGraphParser& parser) {
    std::vector<int> pipes;
    for (const FamilyMember& member : membersOf(parser, parser.root(), "pipe_")) {
        if (member.id >= 0 && member.key == indexedKey("pipe_", member.id)) {
            pipes.push_back(member.id);
        }
    }
    std::sort(pipes.begin(), pipes.end());
    return pipes;
}

// The indexes of the pipes to survey.
std::vector<int> pipesFor(const QVGraphParser& parser, const SurveyRequest& request) {
    if (request.forModel) {
        return mappedPipes(parser);
    }
    if (request.pipe) {
        return {*request.pipe};
    }
    std::vector<int> pipes(static_cast<size_t>(parser.getPipeNum()));
    std::iota(pipes.begin(), pipes.end(), 0);
    return pipes;
}

}  // namespace

NodeClasses surveyNodeClasses() {
    const QVNodeRegistry& registry = QVNodeRegistry::instance();
    NodeClasses all;
    all.stub = registry.stub();
    for (const QVNodeRegistry::Entry& entry : registry.classes()) {
        all.classes.push_back({entry.name, entry.origin});
    }
    return all;
}

std::optional<std::string> loadConfiguration(const std::string& text,
                                             const RecordObserver& records,
                                             QVGraphParser* parser) {
    const std::optional<std::string> jsonError = load(text.c_str(), records, parser);
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
        survey.pipes.push_back(surveyPipe(parser, index, request.forModel));
        if (request.progress) {
            request.progress(survey.pipes.size(), pipes.size());
        }
    }
    return survey;
}

SurveyedText surveyText(const char* text, const SurveyRequest& request) {
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
