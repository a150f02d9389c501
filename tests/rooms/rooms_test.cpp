// The direction in which the rooms of the project include each other.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

// Each room with the rooms that it may include, besides itself.
const std::map<std::string, Names> ROOMS = {
    {"framework", {}},
    {"graph", {"framework"}},
    {"host", {"framework"}},
    {"source", {}},
    {"survey", {"framework", "graph", "host"}},
    {"check", {"source", "survey"}},
    {"render", {"check", "source", "survey"}},
    {"schema", {}},
    {"cli", {"framework", "graph", "host", "source", "survey", "check", "render", "schema"}},
};

// The rooms that know nothing of JSON.
const Names WITHOUT_JSON11 = {"framework", "host", "source"};

// What is wrong with one line of a file in `room`; empty when nothing is.
std::string faultOf(const std::string& room, const std::string& line) {
    const std::string directive = "#include ";
    if (line.compare(0, directive.size(), directive) != 0) {
        return "";
    }
    const std::string header = line.substr(directive.size());
    if (header == "<json11.hpp>") {
        return WITHOUT_JSON11.count(room) != 0 ? "json11 in " + room : "";
    }
    if (header.front() != '"') {
        const std::string folder = header.substr(1, header.find('/') - 1);
        return ROOMS.count(folder) != 0 ? "a header of ours in angle brackets" : "";
    }
    const std::string included = header.substr(1, header.find('/') - 1);
    if (ROOMS.count(included) == 0) {
        return "not relative to the root";
    }
    const bool allowed = included == room || ROOMS.at(room).count(included) != 0;
    return allowed ? "" : room + " includes " + included;
}

std::vector<fs::path> sourcesOf(const std::string& room) {
    std::vector<fs::path> sources;
    const fs::path folder = fs::path(QVGRAPH_SOURCE_DIR) / room;
    if (fs::exists(folder)) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const std::string ending = entry.path().extension();
            if (ending == ".h" || ending == ".cpp") {
                sources.push_back(entry.path());
            }
        }
    }
    return sources;
}

TEST(RoomsTest, EveryRoomIncludesOnlyWhatItMay) {
    for (const auto& [room, allowed] : ROOMS) {
        for (const fs::path& source : sourcesOf(room)) {
            std::ifstream file(source);
            std::string line;
            for (int number = 1; std::getline(file, line); ++number) {
                EXPECT_EQ(faultOf(room, line), "") << source.string() << ':' << number;
            }
        }
    }
}

// Every match of an arrow's expression in a file of docs/, as "from -> to".
Names arrowsIn(const std::string& name, const char* expression) {
    std::ifstream file(fs::path(QVGRAPH_SOURCE_DIR) / "docs" / name);
    std::ostringstream text;
    text << file.rdbuf();
    const std::string content = text.str();
    const std::regex arrow(expression);
    Names arrows;
    for (std::sregex_iterator match(content.begin(), content.end(), arrow), end; match != end;
         ++match) {
        arrows.insert(match->format("$1 -> $2"));
    }
    return arrows;
}

TEST(RoomsTest, ThePictureOfTheDesignIsOfThisRule) {
    Names rule;
    for (const auto& [room, allowed] : ROOMS) {
        for (const std::string& other : allowed) {
            rule.insert((room + " -> ").append(other));
        }
    }
    EXPECT_EQ(arrowsIn("design.dot", "\"?([a-z]+)\"? -> \"?([a-z]+)\"?"), rule);
    EXPECT_EQ(arrowsIn("design.svg", "<title>([a-z]+)&#45;&gt;([a-z]+)</title>"), rule);
}

TEST(RoomsTest, TheRoomsOfTheDeviceAreThere) {
    EXPECT_EQ(sourcesOf("framework").size(), 6U);
    EXPECT_GT(sourcesOf("graph").size(), 1U);
    EXPECT_GT(sourcesOf("host").size(), 1U);
}

TEST(RoomsTest, AWrongIncludeIsTold) {
    EXPECT_EQ(faultOf("host", R"(#include "graph/qv_graph_parser.h")"), "host includes graph");
    EXPECT_EQ(faultOf("graph", R"(#include "host/qv_host_log.h")"), "graph includes host");
    EXPECT_EQ(faultOf("render", R"(#include "host/qv_host_log.h")"), "render includes host");
    EXPECT_EQ(faultOf("survey", R"(#include "cli/input.h")"), "survey includes cli");
    EXPECT_EQ(faultOf("cli", R"(#include "tests/support/process.h")"), "not relative to the root");
    EXPECT_EQ(faultOf("graph", R"(#include "qv_graph_parser.h")"), "not relative to the root");
    EXPECT_EQ(faultOf("host", "#include <json11.hpp>"), "json11 in host");
    EXPECT_EQ(faultOf("cli", "#include <graph/qv_graph_parser.h>"),
              "a header of ours in angle brackets");
}

TEST(RoomsTest, ARightIncludeIsNot) {
    EXPECT_EQ(faultOf("graph", R"(#include "framework/qv_log.h")"), "");
    EXPECT_EQ(faultOf("graph", R"(#include "graph/qv_graph_parser.h")"), "");
    EXPECT_EQ(faultOf("graph", "#include <json11.hpp>"), "");
    EXPECT_EQ(faultOf("cli", "#include <CLI/CLI.hpp>"), "");
    EXPECT_EQ(faultOf("host", "#include <string>"), "");
}

}  // namespace
