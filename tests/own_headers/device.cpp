// A framework with its own contracts: classes without virtual operations, an
// additional field in the creation record, no colours in log records.
#include <strings.h>

#include <cstdarg>
#include <cstring>

#include "framework/qv_log.h"
#include "graph/qv_graph_parser.h"

int qv_log(uint32_t, int, const char*, const char*, const char*, int, ...) {
    return 0;
}

int qv_err(uint32_t, int, const char*, const char* format, const char* function, int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    printf("%s: ", function);
    vprintf(format, arguments);
    printf("\n");
    va_end(arguments);
    return 0;
}

int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

std::string util_to_string(int value) {
    return std::to_string(value);
}
int util_strcasecmp(const char* a, const char* b) {
    return strcasecmp(a, b);
}
void* qv_memset(void* memory, int value, size_t size) {
    return memset(memory, value, size);
}

static QvMetaData store;
static QVTaskNodeBase node;
static QVOutputStreamManager output;

void node_proxy_parse_stub_uid(_QVNodeInfo*, const char*) {}

void node_proxy_node_create(_QVNodeInfo* info) {
    node.mOptions = &store;
    info->node = &node;
    info->outputStreams = {&output};
    printf("%s\n", info->board);
}

int main() {
    QVGraphParser parser;
    parser.parseConfigText("{");
    parser.parseConfigText(R"({"pipe_0": {"node_8": {
        "node_opts": {"node_name": "Camera"},
        "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}
    }}})");
    QVTaskGraphConfig graph;
    _QVNodeInfo info;
    return parser.initTaskNode(&graph, 0, 8, &info);
}
