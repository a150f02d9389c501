// The page around a picture.
#include "render/draw_html.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "render/draw_page.h"
#include "render/draw_svg.h"
#include "tests/render/draw_test.h"

namespace {

using qvgraph::Severity;

const char* const SVG = "<?xml?>\n<svg viewBox=\"0 0 1 1\"><g/></svg>\n";

// The bytes of a text in base 64, as hexadecimal digits.
std::string FromBase64(const std::string& text) {
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bits;
    for (const char c : text.substr(0, text.find('='))) {
        for (size_t i = 6; i-- > 0;) {
            bits += (letters.find(c) >> i & 1U) == 1U ? '1' : '0';
        }
    }
    std::string digits;
    for (size_t i = 0; i < bits.size() / 8 * 8; i += 4) {
        digits += "0123456789abcdef"[std::stoul(bits.substr(i, 4), nullptr, 2)];
    }
    return digits;
}

class DrawHtmlTest : public DrawTest {
protected:
    std::string Page() const {
        std::ostringstream out;
        renderDrawHtml(out, Drawn(), SVG);
        return out.str();
    }

    // The text between two texts.
    std::string Between(const std::string& begin, const std::string& end) const {
        const std::string page = Page();
        const size_t from = page.find(begin) + begin.size();
        return page.substr(from, page.find(end, from) - from);
    }

    nlohmann::json Data() const {
        return nlohmann::json::parse(
            Between("<script type=\"application/json\" id=\"ui-data\">", "</script>"));
    }
};

TEST_F(DrawHtmlTest, ContainsThePictureUnchanged) {
    Load(SMALL_PIPE);
    EXPECT_EQ(Between("<div id=\"ui-stage\">\n", "\n</div>"),
              "<svg viewBox=\"0 0 1 1\"><g/></svg>");
}

TEST_F(DrawHtmlTest, ContainsItsStyleAndItsScript) {
    Load(SMALL_PIPE);
    EXPECT_EQ(Between("<style>\n", "</style>"),
              qvgraph::PAGE_STYLE + qvgraph::darkStyle(":root[data-theme=dark] svg ") +
                  "@media (prefers-color-scheme: dark) {\n" +
                  qvgraph::darkStyle(":root[data-theme=auto] svg ") + "}\n");
    EXPECT_EQ(Between("<script>", "</script>"), qvgraph::PAGE_SCRIPT);
}

TEST_F(DrawHtmlTest, AllowsOnlyItsOwnScript) {
    Load(SMALL_PIPE);
    const std::string policy = Between("http-equiv=\"Content-Security-Policy\" content=\"", "\"");
    const size_t hash = policy.find("sha256-") + 7;
    EXPECT_EQ(policy.substr(0, hash),
              "default-src 'none'; style-src 'unsafe-inline'; script-src 'sha256-");
    EXPECT_EQ(policy.substr(policy.find('\'', hash)), "'; base-uri 'none'; form-action 'none'");
    EXPECT_EQ(FromBase64(policy.substr(hash, policy.find('\'', hash) - hash)),
              qvgraph::PAGE_SCRIPT_SHA256);
}

TEST_F(DrawHtmlTest, NamesTheFileAndSummarisesIt) {
    Load(R"({"pipe_0": {}})", {At("", "a")});
    file->name = "<b>&amp;\033.json";
    EXPECT_EQ(Between("<title>", "</title>"), "&lt;b&gt;&amp;amp;\\x1b.json - qvgraph");
    EXPECT_EQ(Between("<h1>", "</h1>"), "&lt;b&gt;&amp;amp;\\x1b.json");
    EXPECT_EQ(Between("<p>", "</p>"), "1 pipe, 0 nodes, 1 error");
}

TEST_F(DrawHtmlTest, HasTheDataOfPipesNodesAndStreams) {
    Load(R"({"pipe_0": {
      "thread_opts": {"exec_thread_num": 1},
      "executor_0": {"executor_opts": {"name": "a"}},
      "link_0": {"depth": "int64:3"},
      "node_0": {"node_opts": {"node_name": "Camera#1"},
                 "stream_opts": {"stream_output": "s", "stream_fmt_out": "f"}},
      "node_1": {"node_opts": {"node_name": "View"},
                 "stream_opts": {"stream_input": "s", "stream_mode_in": "remain_newest"}}}})",
         {At("/pipe_0/node_1/stream_opts/stream_input", "no-format")});
    EXPECT_EQ(Data(), nlohmann::json::parse(R"json({
      "title": "door.json", "findings": [],
      "pipes": [{
        "id": "p0", "key": "pipe_0", "facts": "1 executor thread, default link mode none",
        "findings": [{"severity": "error", "place": "1:1", "code": "no-format",
                      "message": "it is wrong", "hint": ""}],
        "executors": [{"key": "executor_0", "options": [["name", "string", "\"a\""]]}],
        "links": [{"key": "link_0", "options": [["depth", "int64", "3"]]}],
        "nodes": [
          {"id": "p0n0", "key": "node_0", "number": 0, "name": "Camera#1", "class": "Camera",
           "outcome": "ready", "findings": [],
           "options": [["node_name", "string", "\"Camera#1\""],
                       ["stream_fmt_out", "string", "\"f\""],
                       ["stream_output", "string", "\"s\""]],
           "inputs": [], "outputs": [{"id": "p0s0", "format": "f", "newest": false}]},
          {"id": "p0n1", "key": "node_1", "number": 1, "name": "View", "class": "View",
           "outcome": "would throw: no format for its input stream 's'", "findings": [],
           "options": [["node_name", "string", "\"View\""],
                       ["stream_input", "string", "\"s\""],
                       ["stream_mode_in", "string", "\"remain_newest\""]],
           "inputs": [{"id": "p0s0", "format": "(no format)", "newest": true
}],
           "outputs": []
}],
        "streams": [
          {"id": "p0s0", "name": "s",
           "findings": [{"severity": "error", "place": "1:1", "code": "no-format",
                         "message": "it is wrong", "hint": ""}],
           "producers": [{"id": "p0n0", "format": "f", "newest": false}],
           "consumers": [{"id": "p0n1", "format": "(no format)", "newest": true}]}]
}]
})json"));
}

TEST_F(DrawHtmlTest, IncludesNotes) {
    Load(R"({"pipe_0": {"node_0": {}}})", {At("/pipe_0/node_0", "a", Severity::Note)});
    EXPECT_EQ(Data()["pipes"][0]["nodes"][0]["findings"][0]["severity"], "note");
}

TEST_F(DrawHtmlTest, AMemberWhoseIdMapsToADifferentKeyIsNotSetUp) {
    Load(R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "A"}},
                        "node_00": {"node_opts": {"node_name": "B"}}}})");
    EXPECT_EQ(Data()["pipes"][0]["nodes"][1]["name"], "B");
    EXPECT_EQ(Data()["pipes"][0]["nodes"][1]["outcome"],
              "not set up: its id maps to a different key");
}

// ---- Hostile configurations -------------------------------------------------

TEST_F(DrawHtmlTest, NothingInAConfigurationIsMarkup) {
    Load(R"({"pipe_0": {"default_mode_link": "</script><script>alert(1)</script>",
      "node_0": {"node_opts": {"node_name": "</script><!--<script>", "<b>": "\u2028]]>\u0000"},
                 "stream_opts": {"stream_output": "<svg onload=alert(1)>"}}}})");
    const std::string page = Page();
    const std::string head = page.substr(0, page.find("<script type"));
    EXPECT_EQ(head.find("alert"), std::string::npos);
    const std::string data = Between("id=\"ui-data\">", "</script>");
    EXPECT_EQ(std::count(data.begin(), data.end(), '<'), 0);
    EXPECT_EQ(Data()["pipes"][0]["nodes"][0]["name"], "</script><!--<script>");
    EXPECT_EQ(Data()["pipes"][0]["streams"][0]["name"], "<svg onload=alert(1)>");
    EXPECT_EQ(Data()["pipes"][0]["nodes"][0]["options"][0][2], "\"\\x2028]]>\"");
}

TEST_F(DrawHtmlTest, EveryTextIsPrintable) {
    Load("{\"pipe_0\": {\"node_0\": {\"node_opts\": {\"node_name\": \"\xff\u202e\"}}}}",
         {findingAt({0, 1}, Severity::Error, "a", "\xff\033", "")});
    EXPECT_EQ(Data()["pipes"][0]["nodes"][0]["name"], "\ufffd\\x202e");
    EXPECT_EQ(Data()["findings"][0]["message"], "\ufffd\\x1b");
}

}  // namespace
