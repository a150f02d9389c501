#include "bench/document.h"

#include <algorithm>

namespace {

// The start of a pipe, and one of its nodes. '@p', '@n' and '@m' are replaced
// with the numbers of the pipe, the node and the next node.
struct Pattern {
    const char* begin;
    const char* pipeSeparator;
    const char* pipe;
    const char* node;
    const char* pipeEnd;
    const char* end;
};

const Pattern JSON = {
    "{",
    ",",
    R"(
  "pipe_@p": {
    "thread_opts": {"exec_thread_num": 4},
    "default_mode_link": "async",
    "executor_0": {"executor_opts": {"priority": 80, "cpu_mask": "int64:0xf"}},
    "link_0": {"depth": 8, "mode": "sync"})",
    R"(,
    "node_@n": {
      "node_opts": {
        "node_name": "Detector#@n",
        "width": 1280,
        "height": 720,
        "depth": "int32:8",
        "target_bitrate": "int64:0x200000",
        "sharpness": "float:0.75",
        "model": "/opt/models/v1.bin"
      },
      "stream_opts": {
        "stream_input": "p@p_s@n",
        "stream_fmt_in": "image:nv12",
        "stream_output": "p@p_s@m",
        "stream_fmt_out": "image:nv12"
      }
    })",
    "\n  }",
    "\n}\n",
};

const Pattern YAML = {
    "",
    "",
    R"(pipe_@p:
  thread_opts:
    exec_thread_num: 4
  default_mode_link: async
  executor_0:
    executor_opts:
      priority: 80
      cpu_mask: int64:0xf
  link_0:
    depth: 8
    mode: sync
)",
    R"(  node_@n:
    node_opts:
      node_name: "Detector#@n"
      width: 1280
      height: 720
      depth: int32:8
      target_bitrate: int64:0x200000
      sharpness: float:0.75
      model: /opt/models/v1.bin
    stream_opts:
      stream_input: p@p_s@n
      stream_fmt_in: image:nv12
      stream_output: p@p_s@m
      stream_fmt_out: image:nv12
)",
    "",
    "",
};

const Pattern PROTOBUF_TEXT = {
    "",
    "",
    R"(pipe {
  exec_thread_num: 4
  default_mode_link: "async"
  executor { priority: 80 cpu_mask: 0xf }
  link { depth: 8 mode: "sync" }
)",
    R"(  node {
    id: @n
    node_opts {
      node_name: "Detector#@n"
      width: 1280
      height: 720
      depth: 8
      target_bitrate: 0x200000
      sharpness: 0.75
      model: "/opt/models/v1.bin"
    }
    stream_opts {
      stream_input: "p@p_s@n"
      stream_fmt_in: "image:nv12"
      stream_output: "p@p_s@m"
      stream_fmt_out: "image:nv12"
    }
  }
)",
    "}\n",
    "",
};

const Pattern& patternOf(Language language) {
    switch (language) {
        case Language::YAML:
            return YAML;
        case Language::PROTOBUF_TEXT:
            return PROTOBUF_TEXT;
        case Language::JSON:
            break;
    }
    return JSON;
}

void append(const char* pattern, int pipe, int node, std::string* text) {
    for (; *pattern != '\0'; ++pattern) {
        if (*pattern != '@') {
            *text += *pattern;
            continue;
        }
        ++pattern;
        *text += std::to_string(*pattern == 'p' ? pipe : *pattern == 'n' ? node : node + 1);
    }
}

}  // namespace

std::string typicalDocument(int nodes, int pipeSize, Language language) {
    const Pattern& pattern = patternOf(language);
    std::string text = pattern.begin;
    for (int first = 0, pipe = 0; first < nodes; first += pipeSize, ++pipe) {
        text += pipe == 0 ? "" : pattern.pipeSeparator;
        append(pattern.pipe, pipe, 0, &text);
        for (int node = 0; node < std::min(pipeSize, nodes - first); ++node) {
            append(pattern.node, pipe, node, &text);
        }
        text += pattern.pipeEnd;
    }
    return text + pattern.end;
}
