// A framework for tests: it defines every function that the parser calls, and
// the classes that a framework derives, and writes each call down as one line.
//
//   qv_log 6 getItemNum "\033[34m\033[1mitem name=node_0 , \t tag=node_\033[0m"
//   node_proxy_node_create id=3 in=1 out=0
//   store.setInt32 "fps" 30
//   graph.addInputStream "raw" -> 100
//   input0.initialize "raw" 100 3
//
// Texts are quoted and escaped as in C++ (anything but ASCII as \xNN). All
// objects write into one trace, so that the order of calls across them shows.
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

// What one call of qv_log or qv_err received.
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

    // Whether a key that holds a value keeps it, or takes the new one.
    bool keepsFirst = false;

    // What findCString returns for a string that it finds.
    int found = 1;

    // Where set, answers findCString in place of the entries.
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

    // The ids of these names; -1 refuses one. All others count from 100.
    std::map<std::string, int> ids;

private:
    int idOf(const std::string& name);

    RecordingFramework* framework;
    int nextId = 100;
};

// While one exists, the functions that the parser calls are its.
class RecordingFramework {
public:
    RecordingFramework();
    ~RecordingFramework();
    RecordingFramework(const RecordingFramework&) = delete;
    RecordingFramework& operator=(const RecordingFramework&) = delete;

    // ---- How it behaves ----------------------------------------------------

    // What the node proxy makes of any name.
    bool createsNode = true;
    size_t inputManagers = 0;
    size_t outputManagers = 0;

    // The flag that input managers start with.
    int32_t newestAtStart = 0;

    // What every operation returns whose result the parser ignores.
    int ignoredResult = 0;

    // Runs after each call has been written down; what it throws leaves that
    // call.
    std::function<void(const std::string& call)> onCall;

    // Writes each record of qv_err to standard error, as
    //   18181802 2 QVGraphParser initTaskNode:<line> <text>
    bool errorsToStderr = false;

    // The store of every node that the proxy creates; tests of options use it
    // by itself.
    RecordingStore store{this};
    RecordingGraph graph{this};

    // ---- What it saw -------------------------------------------------------

    // Returns all calls since the last take, one a line, with a newline before
    // the first and after each: the shape of a raw literal.
    std::string takeTrace();

    std::vector<std::string> calls;
    std::vector<LogRecord> records;

    // Calls of the string and memory helpers, which are in no trace.
    std::vector<std::string> helperCalls;

    // ---- For its own parts -------------------------------------------------

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

// A regular expression for exactly `text`, in which each "<line>" stands for a
// line number.
std::string withAnyLine(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_RECORDING_FRAMEWORK_H_
