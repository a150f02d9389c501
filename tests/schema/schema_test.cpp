// The schema accepts every configuration in which the check finds no mistakes, and
// rejects every mistake that a schema can express.
#include "schema/schema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>
#include <vector>

#include "check/check.h"
#include "check/reserved_keys.h"
#include "check/rules.h"
#include "host/qv_node_registry.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using qvgraph::Level;

using Adapter = valijson::adapters::NlohmannJsonAdapter;

const json& schemaText() {
    static const json TEXT = json::parse(qvgraph::graphSchema());
    return TEXT;
}

const valijson::Schema& schema() {
    static const valijson::Schema* const SCHEMA = [] {
        auto* parsed = new valijson::Schema;
        valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
        parser.populateSchema(Adapter(schemaText()), *parsed);
        return parsed;
    }();
    return *SCHEMA;
}

bool accepts(std::string_view text) {
    const json document = json::parse(text, nullptr, true, true);
    valijson::Validator validator;
    return validator.validate(schema(), Adapter(document), nullptr);
}

// ---- Correct configurations -------------------------------------------------

std::vector<std::string> examples() {
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(fs::path(QVGRAPH_SOURCE_DIR) / "examples")) {
        if (entry.path().extension() == ".json") {
            paths.push_back(entry.path());
        }
    }
    return paths;
}

TEST(SchemaTest, AcceptsEveryExample) {
    ASSERT_GE(examples().size(), 5U);
    for (const std::string& path : examples()) {
        std::stringstream text;
        text << std::ifstream(path).rdbuf();
        EXPECT_TRUE(accepts(text.str())) << path;
    }
}

TEST(SchemaTest, AcceptsTheFixedExampleOfEveryRule) {
    for (const qvgraph::Rule* rule : qvgraph::rules()) {
        EXPECT_TRUE(accepts(rule->example.fixed)) << rule->code;
    }
}

TEST(SchemaTest, AcceptsUnusualButCorrectConfigurations) {
    for (const char* text : {
             "{}",
             R"({"pipe_0": {}})",
             R"({"pipe_0": {"link_-1": {"mode": "int64:0x10"}}})",
             R"({"pipe_0": {"thread_opts": {"EXEC_Thread_num": 2}, "default_mode_link": ""}})",
             R"({"pipe_0": {"node_0": {"node_opts": {"node_name": "int33:"},
                 "stream_opts": {"stream_output": "doubles", "any": -2147483648},
                 "stream_opts_extra": {"stream_fmt_out": ""}}}})",
             R"({"pipe_0": {"node_-5": {"node_opts": {"node_name": "N"},
                 "stream_opts": {"stream_input_b": "x", "stream_fmt_in_b": "f",
                                 "stream_input_a": "y", "stream_fmt_in_a": "f"}}}})",
         }) {
        EXPECT_TRUE(accepts(text)) << text;
    }
}

// ---- Mistakes ---------------------------------------------------------------

// Rules, including warnings, whose example the schema rejects too.
const std::set<std::string> EXPRESSED = {
    "root-not-object",
    "pipe-not-addressable",
    "section-not-object",
    "id-not-canonical",
    "option-too-long",
    "node-name",
    "no-streams",
    "stream-keys-mixed",
    "stream-not-text",
    "stream-name-empty",
    "stream-format-missing",
    "no-document",
};

// Errors that a schema cannot express, each with the reason.
const std::map<std::string, std::string> NOT_EXPRESSED = {
    {"syntax", "a schema sees the document, not its text"},
    {"nul-in-text", "a schema sees the document, not its text"},
    {"byte-order-mark", "a schema sees the document, not its text"},
    {"pipe-gap", "a schema cannot count pipes"},
    {"single-stream-key", "a schema cannot count the keys of a family"},
    {"node-class", "a schema knows no node classes"},
    {"node-class-failed", "a schema knows no node classes"},
    {"stream-count", "a schema knows no node classes"},
    {"stream-name-missing", "a schema knows no node classes"},
    {"two-producers", "a schema cannot compare values at different locations"},
};

TEST(SchemaTest, RejectsTheExampleOfEveryErrorThatItCanExpress) {
    for (const std::string& code : EXPRESSED) {
        EXPECT_FALSE(accepts(qvgraph::findRule(code)->example.wrong)) << code;
    }
}

TEST(SchemaTest, EveryErrorIsListedAsExpressibleOrNot) {
    for (const qvgraph::Rule* rule : qvgraph::rules()) {
        const bool isExpressed = EXPRESSED.count(rule->code) != 0;
        const bool isInexpressible = NOT_EXPRESSED.count(rule->code) != 0;
        if (rule->severity == qvgraph::Severity::Error) {
            EXPECT_NE(isExpressed, isInexpressible) << rule->code;
        }
        if (isInexpressible && json::accept(rule->example.wrong, true)) {
            EXPECT_TRUE(accepts(rule->example.wrong)) << rule->code;
        }
    }
}

TEST(SchemaTest, RejectsWhatTheCheckReports) {
    const std::string node = R"("node_opts": {"node_name": "N"})";
    for (const std::string& text : std::vector<std::string>{
             "[]",
             R"({"$schema": "graph.schema.json"})",
             R"({"pipe_01": {}})",
             R"({"pipe_-1": {}})",
             R"({"pipe_0": []})",
             R"({"pipe_0": {"node_x": {}}})",
             R"({"pipe_0": {"node_07": {}}})",
             R"({"pipe_0": {"nodes": {}}})",
             R"({"pipe_0": {"link_0": 5}})",
             R"({"pipe_0": {"link_0": {"a": true}}})",
             R"({"pipe_0": {"link_0": {"a": 0.5}}})",
             R"({"pipe_0": {"link_0": {"a": 2147483648}}})",
             R"({"pipe_0": {"thread_opts": {"exec_thread_num": "4"}}})",
             R"({"pipe_0": {"thread_opts": {"exec_thread_num": 4, "Exec_Thread_Num": 2}}})",
             R"({"pipe_0": {"default_mode_link": 5}})",
             R"({"pipe_0": {"executor_0": {"options": {}}}})",
             R"({"pipe_0": {"node_0": {)" + node + "}}}",
             R"({"pipe_0": {"node_0": {)" + node + R"(, "stream_opts": {}}}})",
             R"({"pipe_0": {"node_0": {)" + node + R"(, "stream_opts": {"stream_outputs": "a"}}}})",
         }) {
        EXPECT_FALSE(accepts(text)) << text;
    }
}

// ---- The table of reserved keys ---------------------------------------------

const char* definitionOf(Level level) {
    switch (level) {
        case Level::Root:
            return "";
        case Level::Pipe:
            return "pipe";
        case Level::ThreadOptions:
            return "threadOptions";
        case Level::Executor:
            return "executor";
        case Level::ExecutorOptions:
        case Level::ExtraOptions:
            return "options";
        case Level::Link:
            return "link";
        case Level::Node:
            return "node";
        case Level::NodeOptions:
            return "nodeOptions";
        case Level::StreamOptions:
            return "streamOptions";
    }
    return "";
}

// Whether a definition describes a key, or a family of keys by its prefix.
bool describes(const json& definition, const qvgraph::ReservedKey& reserved) {
    if (!reserved.family) {
        return definition.value("properties", json::object()).contains(reserved.name);
    }
    const json patterns = definition.value("patternProperties", json::object());
    return std::any_of(patterns.items().begin(), patterns.items().end(), [&](const auto& pattern) {
        return pattern.key().rfind("^" + std::string(reserved.name), 0) == 0 &&
               pattern.value() != json(false);
    });
}

TEST(SchemaTest, DescribesEveryReservedKey) {
    for (const qvgraph::ReservedKey& reserved : qvgraph::reservedKeys()) {
        const std::string name = definitionOf(reserved.level);
        const json& definition = name.empty() ? schemaText() : schemaText()["definitions"][name];
        EXPECT_TRUE(describes(definition, reserved)) << name << ' ' << reserved.name;
    }
}

// Editors show both when the user hovers over a key.
TEST(SchemaTest, EveryDefinitionHasATitleAndADescription) {
    for (const auto& definition : schemaText()["definitions"].items()) {
        EXPECT_TRUE(definition.value().contains("title")) << definition.key();
        EXPECT_TRUE(definition.value().contains("description")) << definition.key();
    }
}

}  // namespace
