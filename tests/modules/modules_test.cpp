// The modules of the project: what each may include, and no cycle inside one.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/modules/include_cycles.h"

namespace {

namespace fs = std::filesystem;

// Each module with the modules directly below it. A module may include itself
// and everything that is below it, directly or not.
const Includes MODULES = {
    {"framework", {}},
    {"graph", {"framework"}},
    {"host", {"framework"}},
    {"source", {}},
    {"survey", {"graph", "host"}},
    {"model", {"source", "survey"}},
    {"check", {"model"}},
    {"compare", {"model"}},
    {"trace", {"model"}},
    {"render", {"check", "compare", "trace"}},
    {"server", {"check", "compare", "trace"}},
    {"schema", {}},
    {"cli", {"render", "schema", "server"}},
    {"web", {"render", "schema", "server"}},
};

// Top-level directories that no module includes.
const Names NOT_MODULES = {"tests", "fuzz", "bench", "examples"};

// The modules whose code may name json11.
const Names WITH_JSON11 = {"graph", "survey"};

// The header in quotes of an #include directive, such as "graph/qv_graph_parser.h".
std::optional<std::string> quotedHeader(const std::string& line) {
    static const std::regex DIRECTIVE(R"re(\s*#\s*include\s*"([^"]*)".*)re");
    std::smatch match;
    if (!std::regex_match(line, match, DIRECTIVE)) {
        return std::nullopt;
    }
    return match[1].str();
}

// The same for a header in angle brackets.
std::optional<std::string> bracketedHeader(const std::string& line) {
    static const std::regex DIRECTIVE(R"(\s*#\s*include\s*<([^>]*)>.*)");
    std::smatch match;
    if (!std::regex_match(line, match, DIRECTIVE)) {
        return std::nullopt;
    }
    return match[1].str();
}

std::string folderOf(const std::string& header) {
    return header.substr(0, header.find('/'));
}

std::string faultOfQuoted(const std::string& module, const std::string& header) {
    const std::string included = folderOf(header);
    if (!MODULES.contains(included) && !NOT_MODULES.contains(included)) {
        return "'" + header + "' is not relative to the root";
    }
    const bool allowed = included == module || reachableFrom(module, MODULES).contains(included);
    return allowed ? "" : module + " includes " + included;
}

// What is wrong with one line of a file in `module`; empty if nothing is.
std::string faultOf(const std::string& module, const std::string& line) {
    if (const auto header = quotedHeader(line)) {
        return faultOfQuoted(module, *header);
    }
    const auto header = bracketedHeader(line);
    const bool json11 = header == "json11.hpp" || line.find("json11::") != std::string::npos;
    if (json11 && !WITH_JSON11.contains(module)) {
        return "json11 in " + module;
    }
    const bool ours =
        header && header->find('/') != std::string::npos &&
        (MODULES.contains(folderOf(*header)) || NOT_MODULES.contains(folderOf(*header)));
    return ours ? "'" + *header + "' is in angle brackets" : "";
}

const Names CPP_FILES = {".h", ".cpp"};

fs::path root() {
    return QVGRAPH_SOURCE_DIR;
}

// "schema/schema.cpp" for its template schema/schema.cpp.in.
fs::path withoutTemplate(const fs::path& path) {
    return path.extension() == ".in" ? path.parent_path() / path.stem() : path;
}

// The headers and sources of a top-level directory, templates included.
std::vector<fs::path> sourcesOf(const std::string& module) {
    std::vector<fs::path> sources;
    if (!fs::exists(root() / module)) {
        return sources;
    }
    for (const auto& entry : fs::recursive_directory_iterator(root() / module)) {
        if (CPP_FILES.contains(withoutTemplate(entry.path()).extension())) {
            sources.push_back(entry.path());
        }
    }
    return sources;
}

std::vector<std::string> linesOf(const fs::path& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

// "check/rule" for check/rule.h and check/rule.cpp.
std::string unitOf(const fs::path& path) {
    return withoutTemplate(path).replace_extension().generic_string();
}

// The units of `module` that `source` includes.
Names unitsIncludedBy(const fs::path& source, const std::string& module) {
    Names units;
    for (const std::string& line : linesOf(source)) {
        const auto header = quotedHeader(line);
        if (header && folderOf(*header) == module) {
            units.insert(unitOf(*header));
        }
    }
    return units;
}

// What each unit of a module includes from the same module.
Includes includesInside(const std::string& module) {
    Includes includes;
    for (const fs::path& source : sourcesOf(module)) {
        includes[unitOf(fs::relative(source, root()))].merge(unitsIncludedBy(source, module));
    }
    return includes;
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

// The modules and arrows of a picture in docs/.
struct Picture {
    Names modules;
    Names arrows;  // "from -> to"
};

Names matchesOf(const std::string& content, const char* expression, const char* format) {
    const std::regex regex(expression);
    Names matches;
    for (std::sregex_iterator match(content.begin(), content.end(), regex), end; match != end;
         ++match) {
        matches.insert(match->format(format));
    }
    return matches;
}

Picture dotPicture() {
    const std::string content = contentOf(root() / "docs/design.dot");
    return {matchesOf(content, R"re("?([a-z]+)"? \[label="\1)re", "$1"),
            matchesOf(content, R"re("?([a-z]+)"? -> "?([a-z]+)"?)re", "$1 -> $2")};
}

Picture svgPicture() {
    const std::string content = contentOf(root() / "docs/design.svg");
    return {matchesOf(content, "class=\"node\">\n<title>([a-z]+)</title>", "$1"),
            matchesOf(content, "<title>([a-z]+)&#45;&gt;([a-z]+)</title>", "$1 -> $2")};
}

// The arrows of MODULES from `module` to the given modules.
Names arrowsFrom(const std::string& module, const Names& modules) {
    Names arrows;
    for (const std::string& other : MODULES.at(module)) {
        if (modules.contains(other)) {
            arrows.insert((module + " -> ").append(other));
        }
    }
    return arrows;
}

// The arrows of MODULES between the given modules.
Names arrowsBetween(const Names& modules) {
    Names arrows;
    for (const std::string& module : modules) {
        arrows.merge(arrowsFrom(module, modules));
    }
    return arrows;
}

// "FILE:LINE: what is wrong" for each wrong line of a file in `module`.
Names faultsIn(const fs::path& source, const std::string& module) {
    Names faults;
    int number = 0;
    for (const std::string& line : linesOf(source)) {
        ++number;
        const std::string fault = faultOf(module, line);
        if (!fault.empty()) {
            faults.insert(source.string() + ":" + std::to_string(number) + ": " + fault);
        }
    }
    return faults;
}

TEST(ModulesTest, EveryModuleIncludesOnlyWhatItMay) {
    for (const auto& [module, below] : MODULES) {
        for (const fs::path& source : sourcesOf(module)) {
            EXPECT_EQ(faultsIn(source, module), Names());
        }
    }
}

TEST(ModulesTest, TheFilesOfAModuleFormNoCycle) {
    for (const auto& [module, below] : MODULES) {
        EXPECT_EQ(includeCycles(includesInside(module)), Names());
    }
}

TEST(ModulesTest, TheModulesFormNoCycle) {
    EXPECT_EQ(includeCycles(MODULES), Names());
}

TEST(ModulesTest, ThePictureOfTheDesignShowsEveryModule) {
    const Names shown = dotPicture().modules;
    for (const auto& [module, below] : MODULES) {
        EXPECT_TRUE(sourcesOf(module).empty() || shown.contains(module)) << module;
    }
}

TEST(ModulesTest, ThePictureOfTheDesignShowsTheseRules) {
    EXPECT_EQ(dotPicture().arrows, arrowsBetween(dotPicture().modules));
    EXPECT_EQ(svgPicture().modules, dotPicture().modules);
    EXPECT_EQ(svgPicture().arrows, dotPicture().arrows);
}

TEST(ModulesTest, TheModulesOfTheDeviceExist) {
    EXPECT_EQ(sourcesOf("framework").size(), 6U);
    EXPECT_GT(sourcesOf("graph").size(), 1U);
    EXPECT_GT(sourcesOf("host").size(), 1U);
}

TEST(ModulesTest, EveryTopLevelDirectoryOfTheBuildIsKnown) {
    for (const auto& entry : fs::directory_iterator(root())) {
        if (fs::exists(entry.path() / "CMakeLists.txt")) {
            const std::string name = entry.path().filename();
            EXPECT_TRUE(MODULES.contains(name) || NOT_MODULES.contains(name)) << name;
        }
    }
}

TEST(FaultTest, ReportsAWrongInclude) {
    const std::vector<std::vector<std::string>> cases = {
        {"framework", R"(#include "host/qv_host_log.h")", "framework includes host"},
        {"host", R"(#include "graph/qv_graph_parser.h")", "host includes graph"},
        {"graph", R"(#include "host/qv_host_log.h")", "graph includes host"},
        {"source", R"(#include "framework/qv_log.h")", "source includes framework"},
        {"survey", R"(#include "source/source.h")", "survey includes source"},
        {"model", R"(#include "check/rule.h")", "model includes check"},
        {"check", R"(#include "compare/compare.h")", "check includes compare"},
        {"render", R"(#include "server/server.h")", "render includes server"},
        {"survey", R"(#include "cli/input.h")", "survey includes cli"},
        {"web", R"(#include "cli/input.h")", "web includes cli"},
        {"cli", R"(#include "tests/support/process.h")", "cli includes tests"},
        {"graph",
         R"(#  include "qv_graph_parser.h" // x)",
         "'qv_graph_parser.h' is not relative to the root"},
        {"cli",
         "#include <graph/qv_graph_parser.h>",
         "'graph/qv_graph_parser.h' is in angle brackets"},
    };
    for (const auto& fault : cases) {
        EXPECT_EQ(faultOf(fault[0], fault[1]), fault[2]);
    }
}

TEST(FaultTest, ReportsJson11OutsideGraphAndSurvey) {
    for (const std::string module : {"framework", "host", "source", "model", "check", "cli"}) {
        EXPECT_EQ(faultOf(module, "#include <json11.hpp>"), "json11 in " + module);
        EXPECT_EQ(faultOf(module, "void f(const json11::Json& value);"), "json11 in " + module);
    }
}

TEST(FaultTest, AcceptsARightInclude) {
    EXPECT_EQ(faultOf("graph", R"(#include "framework/qv_log.h")"), "");
    EXPECT_EQ(faultOf("graph", R"(#include "graph/qv_graph_parser.h")"), "");
    EXPECT_EQ(faultOf("check", R"(#include "source/source.h")"), "");
    EXPECT_EQ(faultOf("cli", R"(#include "graph/qv_graph_parser.h")"), "");
    EXPECT_EQ(faultOf("graph", "#include <json11.hpp>"), "");
    EXPECT_EQ(faultOf("survey", "json11::Json value;"), "");
    EXPECT_EQ(faultOf("source", "// as json11 does"), "");
    EXPECT_EQ(faultOf("cli", "#include <CLI/CLI.hpp>"), "");
    EXPECT_EQ(faultOf("host", "#include <string>"), "");
}

TEST(IncludeCyclesTest, FindsEveryCycle) {
    EXPECT_EQ(includeCycles({{"b", {"a"}}, {"a", {"b"}}}), Names{"a -> b -> a"});
    EXPECT_EQ(includeCycles({{"c", {"a"}}, {"a", {"b"}}, {"b", {"c"}}}), Names{"a -> b -> c -> a"});
    EXPECT_EQ(includeCycles({{"a", {"b", "c"}}, {"b", {"a"}}, {"c", {"a"}}}),
              (Names{"a -> b -> a", "a -> c -> a"}));
    EXPECT_EQ(includeCycles({{"x", {"a"}}, {"a", {"b"}}, {"b", {"a", "y"}}}), Names{"a -> b -> a"});
}

TEST(IncludeCyclesTest, FindsNoneInALayeredGraph) {
    EXPECT_EQ(includeCycles({{"a", {"a", "b", "c"}}, {"b", {"c"}}}), Names());
}

}  // namespace
