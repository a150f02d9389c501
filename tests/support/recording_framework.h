// A framework for tests. It defines every function that the parser calls, and the
// classes that a framework derives, and records each call as one line.
//
//   qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=node_\033[0m"
//   node_proxy_node_create id=3 in=1 out=0
//   store.setInt32 "fps" 30
//   graph.addInputStream "raw" -> 100
//   input0.initialize "raw" 100 3
//
// Strings are quoted and escaped as in C++ (bytes outside ASCII as \xNN). All objects
// record into the same trace, which shows the order of calls across them.
#ifndef QVGRAPH_TESTS_SUPPORT_RECORDING_FRAMEWORK_H_
#define QVGRAPH_TESTS_SUPPORT_RECORDING_FRAMEWORK_H_

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_stream_manager.h"
#include "framework/qv_task_graph.h"
#include "framework/qv_task_node.h"

class RecordingFramework;

// The arguments of one call of qv_log or qv_err.
struct LogRecord {
    bool fromErr;  // through qv_err
    uint32_t module;
    int level;
    std::string tag;
    std::string function;
    int line;
    std::string format;
    std::string text;  // the format with its arguments
};

class RecordingStore : public QvMetaData {
public:
    explicit RecordingStore(RecordingFramework* owner) : framework(owner) {}

    int setCString(const char* key, const char* value) override;
    int setInt32(const char* key, int32_t value) override;
    int setInt64(const char* key, int64_t value) override;
    int setFloat(const char* key, float value) override;
    int findCString(const char* key, const char** value) override;

    // Whether a key that has a value keeps it, or gets the new value.
    bool keepsFirst = false;

    // The result of findCString for a string that it finds.
    int found = 1;

    // If set, replaces the lookup of findCString.
    std::function<int(const char* key, const char** value)> onFind;

private:
    struct Entry {
        bool isString;
        std::string text;
    };
    int put(const char* key, const Entry& entry);
    int lookUp(const char* key, const char** value) const;

    RecordingFramework* framework;
    std::map<std::string, Entry> entries;
};

class RecordingGraph : public QVTaskGraphConfig {
public:
    explicit RecordingGraph(RecordingFramework* owner) : framework(owner) {}

    int addInputStream(std::string name) override;
    int addOutputStream(std::string name) override;

    // The ids of these names; -1 refuses a name. Other names get ids from 100 on.
    std::map<std::string, int> ids;

private:
    int idOf(const std::string& name);

    RecordingFramework* framework;
    int nextId = 100;
};

// While a RecordingFramework exists, it receives the calls of the parser. Only one
// can exist at a time.
class RecordingFramework {
public:
    RecordingFramework();
    ~RecordingFramework();
    RecordingFramework(const RecordingFramework&) = delete;
    RecordingFramework& operator=(const RecordingFramework&) = delete;

    // ---- Behaviour ---------------------------------------------------------

    // Whether the node proxy creates a node, and the stream managers of the node.
    bool createsNode = true;
    size_t inputManagers = 0;
    size_t outputManagers = 0;

    // The initial value of mRemainNewest of input managers.
    int32_t newestAtStart = 0;

    // The result of every operation whose result the parser ignores.
    int ignoredResult = 0;

    // Runs after each call has been recorded. Its exceptions propagate to the caller
    // of that call.
    std::function<void(const std::string& call)> onCall;

    // Whether each record of qv_err is also written to standard error, as
    //   18181802 2 QVGraphParser initTaskNode:<line> <text>
    bool errorsToStderr = false;

    // The store of every node that the proxy creates. Tests of options use it without
    // a node.
    RecordingStore store{this};
    RecordingGraph graph{this};

    // ---- Recorded calls ----------------------------------------------------

    // Returns all calls since the previous takeTrace, one per line, with a newline
    // before the first and after each: the layout of a raw string literal.
    std::string takeTrace();

    std::vector<std::string> calls;
    std::vector<LogRecord> records;

    // Calls of the string and memory helpers, which are not part of the trace.
    std::vector<std::string> helperCalls;

    // ---- For its stores, graphs and managers -------------------------------

    void write(const std::string& call);
    int log(LogRecord record);
    void create(_QVNodeInfo* info);

    static RecordingFramework& current();

private:
    std::vector<std::unique_ptr<QVTaskNodeBase>> nodes;
    std::vector<std::unique_ptr<QVInputStreamManager>> inputs;
    std::vector<std::unique_ptr<QVOutputStreamManager>> outputs;
};

// `text` in double quotes, escaped as in a trace.
std::string inQuotes(const std::string& text);

// A regular expression that matches exactly `text`, with any line number in place of
// each "<line>".
std::string withAnyLine(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_RECORDING_FRAMEWORK_H_
