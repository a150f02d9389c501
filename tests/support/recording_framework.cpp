#include "tests/support/recording_framework.h"

#include <gtest/gtest.h>
#include <strings.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "framework/qv_log.h"

namespace {

RecordingFramework* installed = nullptr;

std::string formatted(const char* format, va_list arguments) QV_PRINTF_FORMAT(1, 0);
std::string formatted(const char* format, va_list arguments) {
    va_list measured;
    va_copy(measured, arguments);
    const int length = vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    vsnprintf(buffer.data(), buffer.size(), format, arguments);
    return std::string(buffer.data());
}

// Nine digits distinguish every float from its neighbours.
std::string textOf(float value) {
    char buffer[32];
    snprintf(buffer, sizeof(buffer), "%.9g", static_cast<double>(value));
    return buffer;
}

class RecordingInput : public QVInputStreamManager {
public:
    RecordingInput(RecordingFramework* owner, const std::string& name)
        : framework(owner), label(name) {}

    int initialize(const std::string& name, int streamId, int nodeId) override {
        framework->write(label + ".initialize " + inQuotes(name) + " " + std::to_string(streamId) +
                         " " + std::to_string(nodeId));
        return framework->ignoredResult;
    }

    int setStreamType(const std::string& format) override {
        framework->write(label + ".setStreamType " + inQuotes(format));
        return framework->ignoredResult;
    }

    std::string state() const { return label + " newest=" + std::to_string(mRemainNewest); }

private:
    RecordingFramework* framework;
    std::string label;
};

class RecordingOutput : public QVOutputStreamManager {
public:
    RecordingOutput(RecordingFramework* owner, const std::string& name)
        : framework(owner), label(name) {}

    int initialize(const std::string& name, int streamId, int nodeId) override {
        framework->write(label + ".initialize " + inQuotes(name) + " " + std::to_string(streamId) +
                         " " + std::to_string(nodeId) + " format=" + inQuotes(mStreamType));
        return framework->ignoredResult;
    }

    std::string state() const { return label + " format=" + inQuotes(mStreamType); }

private:
    RecordingFramework* framework;
    std::string label;
};

class RecordingNode : public QVTaskNodeBase {
public:
    explicit RecordingNode(RecordingFramework* owner) : framework(owner) {
        mOptions = &owner->store;
    }

    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        std::string call = "node.initialize " + std::to_string(nodeId) + " {" +
                           std::to_string(info->nodeId) + " " + inQuotes(info->nodeName) + "}";
        for (const QVInputStreamManager* input : inputs) {
            call += " " + dynamic_cast<const RecordingInput&>(*input).state();
        }
        for (const QVOutputStreamManager* output : outputs) {
            call += " " + dynamic_cast<const RecordingOutput&>(*output).state();
        }
        framework->write(call);
        return framework->ignoredResult;
    }

private:
    RecordingFramework* framework;
};

std::string textOf(const _QVNodeInfo& info) {
    return "id=" + std::to_string(info.nodeId) + " in=" + std::to_string(info.inputNum) +
           " out=" + std::to_string(info.outputNum);
}

}  // namespace

// ---- The functions that the parser calls -----------------------------------

int qv_log(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) {
    va_list arguments;
    va_start(arguments, line);
    const std::string text = formatted(format, arguments);
    va_end(arguments);
    return RecordingFramework::current().log(
        {false, module, level, tag, function, line, format, text});
}

int qv_err(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) {
    va_list arguments;
    va_start(arguments, line);
    const std::string text = formatted(format, arguments);
    va_end(arguments);
    return RecordingFramework::current().log(
        {true, module, level, tag, function, line, format, text});
}

int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    RecordingFramework& framework = RecordingFramework::current();
    framework.helperCalls.push_back("util_snprintf " + std::to_string(size) + " " +
                                    inQuotes(format));
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return framework.ignoredResult;
}

std::string util_to_string(int value) {
    RecordingFramework::current().helperCalls.push_back("util_to_string " + std::to_string(value));
    return std::to_string(value);
}

int util_strcasecmp(const char* a, const char* b) {
    RecordingFramework::current().helperCalls.push_back("util_strcasecmp " + inQuotes(a) + " " +
                                                        inQuotes(b));
    return strcasecmp(a, b);
}

void* qv_memset(void* memory, int value, size_t size) {
    RecordingFramework::current().helperCalls.push_back("qv_memset " + std::to_string(value) + " " +
                                                        std::to_string(size));
    return memset(memory, value, size);
}

void node_proxy_parse_stub_uid(_QVNodeInfo* info, const char* name) {
    RecordingFramework::current().write("node_proxy_parse_stub_uid " + textOf(*info) + " " +
                                        inQuotes(name));
}

void node_proxy_node_create(_QVNodeInfo* info) {
    RecordingFramework::current().write("node_proxy_node_create " + textOf(*info));
    RecordingFramework::current().create(info);
}

// ---- The store --------------------------------------------------------------

int RecordingStore::setCString(const char* key, const char* value) {
    framework->write("store.setCString " + inQuotes(key) + " " + inQuotes(value));
    return put(key, {true, value});
}

int RecordingStore::setInt32(const char* key, int32_t value) {
    framework->write("store.setInt32 " + inQuotes(key) + " " + std::to_string(value));
    return put(key, {false, ""});
}

int RecordingStore::setInt64(const char* key, int64_t value) {
    framework->write("store.setInt64 " + inQuotes(key) + " " + std::to_string(value));
    return put(key, {false, ""});
}

int RecordingStore::setFloat(const char* key, float value) {
    framework->write("store.setFloat " + inQuotes(key) + " " + textOf(value));
    return put(key, {false, ""});
}

int RecordingStore::findCString(const char* key, const char** value) {
    EXPECT_EQ(*value, nullptr) << "each lookup starts from a null pointer";
    const int result = onFind ? onFind(key, value) : lookUp(key, value);
    framework->write("store.findCString " + inQuotes(key) + " -> " +
                     (*value != nullptr ? inQuotes(*value) : "none"));
    return result;
}

int RecordingStore::put(const char* key, const Entry& entry) {
    if (keepsFirst) {
        entries.insert({key, entry});
    } else {
        entries[key] = entry;
    }
    return framework->ignoredResult;
}

int RecordingStore::lookUp(const char* key, const char** value) const {
    const auto entry = entries.find(key);
    if (entry == entries.end() || !entry->second.isString) {
        return 0;
    }
    *value = entry->second.text.c_str();
    return found;
}

// ---- The task graph ---------------------------------------------------------

int RecordingGraph::addInputStream(std::string name) {
    const int id = idOf(name);
    framework->write("graph.addInputStream " + inQuotes(name) + " -> " + std::to_string(id));
    return id;
}

int RecordingGraph::addOutputStream(std::string name) {
    const int id = idOf(name);
    framework->write("graph.addOutputStream " + inQuotes(name) + " -> " + std::to_string(id));
    return id;
}

int RecordingGraph::idOf(const std::string& name) {
    const auto fixed = ids.find(name);
    return fixed != ids.end() ? fixed->second : nextId++;
}

// ---- The framework ----------------------------------------------------------

RecordingFramework::RecordingFramework() {
    if (installed != nullptr) {
        abort();  // only one can receive the calls
    }
    installed = this;
}

RecordingFramework::~RecordingFramework() {
    installed = nullptr;
}

RecordingFramework& RecordingFramework::current() {
    if (installed == nullptr) {
        abort();
    }
    return *installed;
}

std::string RecordingFramework::takeTrace() {
    std::string trace = "\n";
    for (const std::string& call : calls) {
        trace += call + "\n";
    }
    calls.clear();
    return trace;
}

void RecordingFramework::write(const std::string& call) {
    calls.push_back(call);
    if (onCall) {
        onCall(call);
    }
}

int RecordingFramework::log(LogRecord record) {
    if (record.fromErr && errorsToStderr) {
        fprintf(stderr,
                "%x %d %s %s:%d %s",
                record.module,
                record.level,
                record.tag.c_str(),
                record.function.c_str(),
                record.line,
                record.text.c_str());
        fflush(stderr);
    }
    const std::string call = std::string(record.fromErr ? "qv_err " : "qv_log ") +
                             std::to_string(record.level) + " " + record.function + " " +
                             inQuotes(record.text);
    records.push_back(std::move(record));
    write(call);
    return ignoredResult;
}

void RecordingFramework::create(_QVNodeInfo* info) {
    if (!createsNode) {
        return;
    }
    nodes.push_back(std::make_unique<RecordingNode>(this));
    info->node = nodes.back().get();
    for (size_t i = 0; i < inputManagers; ++i) {
        inputs.push_back(std::make_unique<RecordingInput>(this, "input" + std::to_string(i)));
        inputs.back()->mRemainNewest = newestAtStart;
        info->inputStreams.push_back(inputs.back().get());
    }
    for (size_t j = 0; j < outputManagers; ++j) {
        outputs.push_back(std::make_unique<RecordingOutput>(this, "output" + std::to_string(j)));
        info->outputStreams.push_back(outputs.back().get());
    }
}

// ---- Strings ----------------------------------------------------------------

std::string inQuotes(const std::string& text) {
    static const std::map<char, std::string> ESCAPES = {
        {'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\t', "\\t"}, {'\033', "\\033"}};
    std::string result = "\"";
    for (const char c : text) {
        const auto escape = ESCAPES.find(c);
        if (escape != ESCAPES.end()) {
            result += escape->second;
        } else if (c >= ' ' && c <= '~') {
            result += c;
        } else {
            char hex[8];
            snprintf(hex, sizeof(hex), "\\x%02X", static_cast<unsigned char>(c));
            result += hex;
        }
    }
    return result + "\"";
}

std::string withAnyLine(const std::string& text) {
    const std::string placeholder = "<line>";
    std::string pattern;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, placeholder.size(), placeholder) == 0) {
            pattern += "[1-9][0-9]*";
            i += placeholder.size() - 1;
            continue;
        }
        if (strchr("\\^$.[]|()*+?{}", text[i]) != nullptr) {
            pattern += '\\';
        }
        pattern += text[i];
    }
    return pattern;
}
