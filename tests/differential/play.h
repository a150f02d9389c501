// Runs one scenario on a parser, and records everything that the parser does.
#ifndef QVGRAPH_TESTS_DIFFERENTIAL_PLAY_H_
#define QVGRAPH_TESTS_DIFFERENTIAL_PLAY_H_

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <json11.hpp>
#include <limits>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include "tests/differential/configurations.h"
#include "tests/support/recording_framework.h"

struct Scenario {
    uint64_t seed;     // for everything except the text
    std::string text;  // of the configuration
    std::string file;  // path of a file that contains the text; empty: load from text
    bool faults;       // framework functions occasionally throw
};

// One line for each call of the parser, each call that the parser makes, and
// each result:
//
//   > initTaskNode 0 3
//   node_proxy_node_create id=3 in=1 out=0
//   qv_err 2 18181802 QVGraphParser initTaskNode "..." of <format>
//   = throws std::logic_error: basic_string::_M_construct null not valid
//
// Line numbers of the parser's sources appear as <line>.
using Transcript = std::vector<std::string>;

// A log record; its line number is also removed from its text.
inline std::string textOf(const LogRecord& record) {
    std::string text = record.text;
    const std::string line = std::to_string(record.line);
    for (const std::string& place : {record.function + "(" + line + "): CHECK_UE failed",
                                     " failed at " + record.function + ":" + line + "\n"}) {
        const size_t at = text.find(place);
        if (at != std::string::npos) {
            text.replace(at + place.find(line), line.size(), "<line>");
        }
    }
    char module[16];
    snprintf(module, sizeof(module), "%x", record.module);
    return std::string(record.fromErr ? "qv_err " : "qv_log ") + std::to_string(record.level) +
           " " + module + " " + record.tag + " " + record.function + " " + inQuotes(text) + " of " +
           record.format;
}

// Their addresses are logged, so all parsers must receive the same ones.
struct NeverAsked {
    struct Graph : QVTaskGraphConfig {
        int addInputStream(std::string /*name*/) override { abort(); }
        int addOutputStream(std::string /*name*/) override { abort(); }
    };
    Graph graph;
    _QVNodeInfo info;
};
inline NeverAsked& neverAsked() {
    static NeverAsked instance;
    return instance;
}

template <class Parser>
class Player {
public:
    explicit Player(const Scenario& played) : scenario(played), random(played.seed) {
        framework.ignoredResult = random.oneIn(2) ? 0 : -1;
        framework.newestAtStart = random.oneIn(4) ? 7 : 0;
        framework.store.keepsFirst = random.oneIn(4);
        framework.store.found = random.oneIn(4) ? -5 : 1;
        framework.graph.ids = {{"small frames", random.oneIn(3) ? -1 : -2}};
        framework.onCall = [this](const std::string& call) { atCall(call); };
    }

    Transcript play() {
        call("saveConfig", [this] { return parser.saveConfig(nullptr); });
        askPipe(0);
        load();
        const int pipes = std::min(parser.getPipeNum(), 4);
        for (int pipe = 0; pipe <= pipes; ++pipe) {
            askPipe(pipe);
            syncPipe(pipe);
            setUpPipe(pipe);
        }
        if (random.oneIn(8)) {
            askPipe(random.oneIn(2) ? -1 : std::numeric_limits<int>::max());
        }
        askValues();
        setUpNothing();
        loadAgain();
        return lines;
    }

private:
    struct AssertionFailed {};
    struct FrameworkFault : std::runtime_error {
        using runtime_error::runtime_error;
    };

    // Called at the end of each framework function.
    void atCall(const std::string& call) {
        const std::string assertion = "qv_err 2 initTaskNode \"\\033[31m\\033[1mAssertion ";
        if (call.compare(0, assertion.size(), assertion) == 0) {
            throw AssertionFailed();
        }
        if (scenario.faults && random.oneIn(60)) {
            throw FrameworkFault("of the framework");
        }
    }

    template <class Function>
    void call(const std::string& what, Function function) {
        lines.push_back("> " + what);
        std::string result;
        try {
            result = shown(function());
        } catch (const AssertionFailed&) {
            result = "aborts";
        } catch (const FrameworkFault& fault) {
            result = std::string("throws a fault ") + fault.what();
        } catch (const std::exception& error) {
            const bool logic = typeid(error) == typeid(std::logic_error);
            result = (logic ? "throws std::logic_error: " : "throws another: ") +
                     std::string(error.what());
        }
        auto record = framework.records.begin();
        for (const std::string& line : framework.calls) {
            const bool logged = line.compare(0, 3, "qv_") == 0;
            lines.push_back(logged ? textOf(*record++) : line);
        }
        lines.push_back("= " + result);
        framework.records.clear();
        framework.calls.clear();
        framework.helperCalls.clear();
    }

    static std::string shown(int number) { return std::to_string(number); }
    static std::string shown(const std::string& text) { return inQuotes(text); }

    void load() {
        if (scenario.file.empty()) {
            call("parseConfigText",
                 [this] { return parser.parseConfigText(scenario.text.c_str()); });
        } else {
            call("parseConfigFile",
                 [this] { return parser.parseConfigFile(scenario.file.c_str()); });
        }
        call("root", [this] { return parser.root().dump(); });
        call("summary", [this] { return parser.summary(); });
        call("getPipeNum", [this] { return parser.getPipeNum(); });
    }

    void loadAgain() {
        switch (random.below(4)) {
            case 0:
                call("parseConfigText null", [this] { return parser.parseConfigText(nullptr); });
                break;
            case 1:
                call("parseConfigFile missing",
                     [this] { return parser.parseConfigFile("/nowhere/%s"); });
                break;
            case 2:
                call("parseConfigFile /", [this] { return parser.parseConfigFile("/"); });
                break;
            default:
                call("parseConfigText {}", [this] { return parser.parseConfigText("{}"); });
        }
        call("root", [this] { return parser.root().dump(); });
    }

    void askPipe(int pipe) {
        const std::string at = " " + std::to_string(pipe);
        call("getNodeNum" + at, [&] { return parser.getNodeNum(pipe); });
        call("getExecNum" + at, [&] { return parser.getExecNum(pipe); });
        call("getLinkNum" + at, [&] { return parser.getLinkNum(pipe); });
        call("getThreadNum" + at, [&] { return parser.getThreadNum(pipe); });
        call("getDefaultLinkMode" + at, [&] { return parser.getDefaultLinkMode(pipe); });
        const int first = random.oneIn(4) ? -1 : 0;
        for (int index = first; index < 4; ++index) {
            const std::string behind = at + " " + std::to_string(index);
            call("getNodeIDByIndex" + behind, [&] { return parser.getNodeIDByIndex(pipe, index); });
            call("getExecIDByIndex" + behind, [&] { return parser.getExecIDByIndex(pipe, index); });
            call("getLinkIDByIndex" + behind, [&] { return parser.getLinkIDByIndex(pipe, index); });
        }
    }

    // The distinct ids in the keys of this family that map back to a member, and
    // one that does not.
    std::vector<int> idsOf(int pipe, const std::string& tag) const {
        std::vector<int> ids = {77};
        const json11::Json& members = parser.root()["pipe_" + std::to_string(pipe)];
        for (int id : {0, 1, 2, 3, 5, 8, 9, 10, 11, -1}) {
            if (members.object_items().count(tag + std::to_string(id)) != 0) {
                ids.push_back(id);
            }
        }
        return ids;
    }

    void syncPipe(int pipe) {
        for (const int id : idsOf(pipe, "executor_")) {
            call("syncExecOptions " + std::to_string(pipe) + " " + std::to_string(id),
                 [&] { return parser.syncExecOptions(&framework.store, pipe, id); });
        }
        for (const int id : idsOf(pipe, "link_")) {
            call("syncLinkOptions " + std::to_string(pipe) + " " + std::to_string(id),
                 [&] { return parser.syncLinkOptions(&framework.store, pipe, id); });
        }
    }

    void setUpPipe(int pipe) {
        for (const int id : idsOf(pipe, "node_")) {
            const json11::Json& streams =
                parser.root()["pipe_" + std::to_string(pipe)]["node_" + std::to_string(id)]
                             ["stream_opts"];
            framework.createsNode = !random.oneIn(12);
            framework.inputManagers = managers(streams, "stream_input");
            framework.outputManagers = managers(streams, "stream_output");
            _QVNodeInfo info;
            info.nodeId = 5;
            info.inputNum = 6;
            info.stubUid = 8;
            const std::string call =
                "initTaskNode " + std::to_string(pipe) + " " + std::to_string(id);
            this->call(call,
                       [&] { return parser.initTaskNode(&framework.graph, pipe, id, &info); });
            lines.push_back(
                "left id=" + std::to_string(info.nodeId) + " in=" + std::to_string(info.inputNum) +
                " out=" + std::to_string(info.outputNum) + " stub=" + std::to_string(info.stubUid));
            for (const QVInputStreamManager* input : info.inputStreams) {
                lines.push_back("left newest=" + std::to_string(input->mRemainNewest));
            }
            for (const QVOutputStreamManager* output : info.outputStreams) {
                lines.push_back("left format=" + inQuotes(output->mStreamType));
            }
        }
    }

    // Usually as many as declared.
    size_t managers(const json11::Json& streams, const std::string& tag) {
        size_t count = 0;
        for (const auto& member : streams.object_items()) {
            count += member.first.compare(0, tag.size(), tag) == 0 ? 1U : 0U;
        }
        return random.oneIn(4) ? random.below(4) : std::min<size_t>(count, 5);
    }

    void setUpNothing() {
        QVTaskGraphConfig* const graph = random.oneIn(2) ? &neverAsked().graph : nullptr;
        _QVNodeInfo* const info =
            graph == nullptr && random.oneIn(2) ? &neverAsked().info : nullptr;
        call("initTaskNode of nothing", [&] { return parser.initTaskNode(graph, 0, 0, info); });
    }

    // Functions with a value argument, with values from anywhere in the document.
    void askValues() {
        json11::Json value = parser.root();
        for (int depth = 0; depth < 5; ++depth) {
            askValue(value);
            if (value.object_items().empty()) {
                return;
            }
            auto member = value.object_items().begin();
            std::advance(member, random.below(value.object_items().size()));
            const json11::Json next = member->second;
            value = next;
        }
    }

    void askValue(const json11::Json& value) {
        const std::string tag = randomTag(&random);
        const int index = static_cast<int>(random.below(4)) - 1;
        call("getItemNum " + inQuotes(tag), [&] { return parser.getItemNum(value, tag); });
        call("getItemIDByIndex " + inQuotes(tag),
             [&] { return parser.getItemIDByIndex(value, index, tag); });
        call("getItemNameByIndex " + inQuotes(tag),
             [&] { return parser.getItemNameByIndex(value, index, tag); });
        call("parseOptions", [&] { return parser.parseOptions(&framework.store, "own", value); });
        call("syncOptions", [&] { return parser.syncOptions(&framework.store, value); });
    }

    const Scenario& scenario;
    Random random;
    RecordingFramework framework;
    Parser parser;
    Transcript lines;
};

template <class Parser>
Transcript play(const Scenario& scenario) {
    return Player<Parser>(scenario).play();
}

#endif  // QVGRAPH_TESTS_DIFFERENTIAL_PLAY_H_
