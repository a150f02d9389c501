// Configurations to draw; shared by the tests of pictures.
#ifndef QVGRAPH_TESTS_RENDER_DRAW_TEST_H_
#define QVGRAPH_TESTS_RENDER_DRAW_TEST_H_

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/check.h"
#include "host/qv_node_registry.h"
#include "render/drawing.h"
#include "tests/render/small_check.h"

// Three nodes in a row and a fourth one, with one or more of everything and
// without faults.
inline const char* const SMALL_PIPE = R"({"pipe_0": {
  "thread_opts": {"exec_thread_num": 2},
  "default_mode_link": "async",
  "executor_0": {"executor_opts": {"name": "fast", "priority": 80}},
  "link_0": {"depth": 3, "mode": "sync"},
  "node_0": {"node_opts": {"node_name": "Camera#door", "fps": 25},
             "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}},
  "node_1": {"node_opts": {"node_name": "Tuner"},
             "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12",
                             "stream_output": "tuned", "stream_fmt_out": "nv12"}},
  "node_2": {"node_opts": {"node_name": "Display", "gamma": "float:2.2"},
             "stream_opts": {"stream_input": "tuned", "stream_fmt_in": "nv12",
                             "stream_mode_in": "remain_newest"}},
  "node_3": {"node_opts": {"node_name": "Recorder"},
             "stream_opts": {"stream_input": "tuned", "stream_fmt_in": "nv12"}}
}})";

class DrawTest : public testing::Test {
protected:
    void SetUp() override { QVNodeRegistry::instance().setStub(true); }
    void TearDown() override { QVNodeRegistry::instance().setStub(false); }

    // Loads a text with these findings instead of those of the check.
    void Load(const std::string& text, const std::vector<qvgraph::Finding>& findings = {}) {
        qvgraph::CheckRequest request;
        request.selects = [](std::string_view) { return false; };
        file = std::make_unique<qvgraph::CheckedFile>(
            qvgraph::checkConfiguration("folder/door.json", text, request));
        file->findings = findings;
    }

    // A finding at the beginning of the text.
    static qvgraph::Finding At(const std::string& pointer,
                               const char* code,
                               qvgraph::Severity severity = qvgraph::Severity::Error) {
        return findingAt({0, 1}, severity, code, "it is wrong", pointer);
    }

    qvgraph::Drawing Drawn(std::optional<int> pipe = std::nullopt) const {
        return qvgraph::drawingOf(*file, pipe);
    }

    std::unique_ptr<qvgraph::CheckedFile> file;
};

#endif  // QVGRAPH_TESTS_RENDER_DRAW_TEST_H_
