// The reports and exit codes of `qvgraph check`.
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using Kind = ProcessStream::Kind;

class CheckTest : public CommandTest {
protected:
    CheckTest() {
        folder.write("clean.json", CLEAN);
        folder.write("noted.json", NOTED);
        folder.write("warned.json", WARNED);
        folder.write("broken.json", BROKEN);
    }

    // Returns only the exit code.
    int ExitCodeOf(const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {"check"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return Run(all).exitCode;
    }

    // Expects these findings, one per line, and this summary.
    void AssertFinds(std::vector<std::string> arguments,
                     int exitCode,
                     const std::string& findings,
                     const std::string& summary) {
        arguments.insert(arguments.begin(), {"check", "--format", "gcc"});
        AssertRuns(arguments, exitCode, findings, "qvgraph: " + summary + '\n');
    }

    static constexpr const char* CLEAN = "{\"pipe_0\": {\"link_0\": {\"fps\": 25}}}\n";
    static constexpr const char* NOTED = "{\"pipe_0\": {\"executor_0\": {}}}\n";
    static constexpr const char* WARNED =
        "{\"pipe_0\": {\n  \"link_0\": {\"fps\": 25, \"fps\": 30}}}\n";
    static constexpr const char* BROKEN = "{\"pipe_0\": {}\n";

    const std::string NOTE =
        "noted.json:1:13: note: 'executor_0' has no \"executor_opts\": "
        "the executor has no options; hint: add \"executor_opts\": {...} if you intended it to "
        "have options [executor-without-options]\n";
    const std::string TWICE =
        "'fps' is already in this object: the device discards the earlier value and uses this one; "
        "hint: remove or rename one of them [duplicate-key]\n";
    const std::string WARNING = "warned.json:2:25: warning: " + TWICE;
    const std::string UNCLOSED =
        ":2:1: error: unexpected end of input; hint: close the object with } [syntax]\n";
    const std::string ERROR = "broken.json" + UNCLOSED;
};

// ---- Findings and exit codes ------------------------------------------------

TEST_F(CheckTest, ReportsNothingForACleanFile) {
    AssertRuns({"check", "clean.json"}, 0, "", "qvgraph: 1 file, no findings\n");
}

TEST_F(CheckTest, ShowsAFindingWithItsSource) {
    AssertRuns({"check", "broken.json"},
               1,
               R"(broken.json:2:1: error: unexpected end of input [syntax]
    2 | )"
               R"(
      | ^
broken.json:1:1: note: opened here
    1 | {"pipe_0": {}
      | ^
      = hint: close the object with }
)",
               "qvgraph: 1 error in 1 file\n");
}

TEST_F(CheckTest, FailsOnlyOnErrorsByDefault) {
    AssertFinds({"noted.json"}, 0, NOTE, "1 note in 1 file");
    AssertFinds({"warned.json"}, 0, WARNING, "1 warning in 1 file");
    AssertFinds({"broken.json"}, 1, ERROR, "1 error in 1 file");
}

TEST_F(CheckTest, ReportsFilesInTheOrderOfTheArguments) {
    AssertFinds({"warned.json", "clean.json", "broken.json", "noted.json"},
                1,
                WARNING + ERROR + NOTE,
                "1 error, 1 warning and 1 note in 4 files");
    AssertFinds({"noted.json", "warned.json", "noted.json"},
                0,
                NOTE + WARNING + NOTE,
                "1 warning and 2 notes in 3 files");
    AssertFinds({"clean.json", "clean.json"}, 0, "", "2 files, no findings");
}

TEST_F(CheckTest, FailsAtOrAboveTheRequestedSeverity) {
    const std::vector<std::string> files = {
        "clean.json", "noted.json", "warned.json", "broken.json"};
    const auto exitCodes = [&](const std::string& severity) {
        std::vector<int> codes;
        codes.reserve(files.size());
        for (const std::string& file : files) {
            codes.push_back(ExitCodeOf({"--fail-on", severity, file}));
        }
        return codes;
    };
    EXPECT_EQ(exitCodes("error"), (std::vector<int>{0, 0, 0, 1}));
    EXPECT_EQ(exitCodes("warning"), (std::vector<int>{0, 0, 1, 1}));
    EXPECT_EQ(exitCodes("note"), (std::vector<int>{0, 1, 1, 1}));
}

TEST_F(CheckTest, StrictReportsWarningsAsErrors) {
    AssertFinds({"--strict", "warned.json", "noted.json"},
                1,
                "warned.json:2:25: error: " + TWICE + NOTE,
                "1 error and 1 note in 2 files");
}

TEST_F(CheckTest, PrintsNoSummaryIfQuiet) {
    AssertRuns({"check", "-q", "--format", "gcc", "broken.json"}, 1, ERROR, "");
    AssertRuns({"check", "--quiet", "clean.json"}, 0, "", "");
    AssertRuns({"check", "-q", "missing.json"},
               2,
               "",
               "qvgraph: cannot read missing.json: No such file or directory\n");
}

// ---- Rules ------------------------------------------------------------------

TEST_F(CheckTest, AppliesOnlyTheSelectedRules) {
    const std::vector<std::string> files = {"noted.json", "warned.json", "broken.json"};
    const auto with = [&](std::vector<std::string> options) {
        options.insert(options.end(), files.begin(), files.end());
        return options;
    };
    AssertFinds(with({"--select", "syntax"}), 1, ERROR, "1 error in 3 files");
    AssertFinds(with({"--select", "duplicate-key,syntax"}),
                1,
                WARNING + ERROR,
                "1 error and 1 warning in 3 files");
    AssertFinds(with({"--select", "duplicate-key", "--select=executor-without-options"}),
                0,
                NOTE + WARNING,
                "1 warning and 1 note in 3 files");
    AssertFinds(with({"--ignore", "syntax,duplicate-key"}), 0, NOTE, "1 note in 3 files");
    AssertFinds(with({"--select", "syntax,duplicate-key", "--ignore", "syntax"}),
                0,
                WARNING,
                "1 warning in 3 files");
}

TEST_F(CheckTest, RejectsUnknownCodes) {
    AssertFails({"check", "--select", "duplicate-kye", "clean.json"},
                "--select: there is no rule 'duplicate-kye'; did you mean 'duplicate-key'?"
                " (see qvgraph check --help)");
    AssertFails({"check", "--ignore", "syntax,sintax", "clean.json"},
                "--ignore: there is no rule 'sintax'; did you mean 'syntax'?"
                " (see qvgraph check --help)");
    AssertFails({"check", "--ignore", "everything", "clean.json"},
                "--ignore: there is no rule 'everything'; run qvgraph explain to list the rules"
                " (see qvgraph check --help)");
    AssertFails({"check", "--select", "syntax,", "clean.json"},
                "--select: there is no rule ''; run qvgraph explain to list the rules"
                " (see qvgraph check --help)");
}

TEST_F(CheckTest, ACommentSuppressesAFinding) {
    folder.write("suppressed.json",
                 "{\"pipe_0\": {\n"
                 "  // qvgraph: ignore[duplicate-key] the second one was measured\n"
                 "  \"link_0\": {\"fps\": 25, \"fps\": 30}}}\n");
    AssertFinds({"suppressed.json"}, 0, "", "1 file, no findings");
}

// ---- Node classes -----------------------------------------------------------

TEST_F(CheckTest, UsesTheClassesOfALibrary) {
    folder.write("blend.json", R"({"pipe_0": {
  "node_0": {"node_opts": {"node_name": "Blender"},
             "stream_opts": {"stream_input": "a", "stream_fmt_in": "f",
                             "stream_output": "a", "stream_fmt_out": "f"}}}})");
    const std::string library = QVGRAPH_TEST_PLUGINS "/blender.so";
    AssertFinds({"--select", "stream-name-missing", "blend.json"}, 0, "", "1 file, no findings");
    AssertFinds({"--select", "stream-name-missing", "--plugin", library, "blend.json"},
                1,
                "blend.json:3:14: error: class 'Blender' has 2 inputs, but none is named: "
                "the device aborts; hint: name each input in \"stream_opts\" as "
                "'stream_input_<k>' [stream-name-missing]\n",
                "1 error in 1 file");
    AssertFinds(
        {"--select", "node-class", "--no-stub", "blend.json"},
        1,
        "blend.json:2:41: error: class 'Blender' is not registered: no node is created; hint: "
        "use --plugin to load the library that registers it [node-class]\n",
        "1 error in 1 file");
    AssertFails({"check", "--plugin", "/missing.so", "blend.json"},
                "cannot load /missing.so: /missing.so: cannot open shared object file: "
                "No such file or directory");
}

// ---- Formats ----------------------------------------------------------------

TEST_F(CheckTest, ReportsAsJson) {
    AssertRuns({"check", "--format", "json", "clean.json"},
               0,
               R"({
  "format_version": "1.0",
  "valid": true,
  "error_count": 0,
  "warning_count": 0,
  "note_count": 0,
  "files": [
    {
      "file": "clean.json",
      "valid": true
    }
  ],
  "diagnostics": []
}
)",
               "qvgraph: 1 file, no findings\n");
    const ProcessResult result = Run({"check", "--format", "json", "warned.json", "broken.json"});
    const json report = json::parse(result.out);
    EXPECT_EQ(report.at("valid"), false);
    EXPECT_EQ(report.at("/diagnostics/0/code"_json_pointer), "duplicate-key");
    EXPECT_EQ(report.at("/diagnostics/1/code"_json_pointer), "syntax");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(CheckTest, ReportsAsSarifWithEveryRule) {
    const ProcessResult result = Run({"check", "--format", "sarif", "warned.json", "broken.json"});
    const json run = json::parse(result.out).at("/runs/0"_json_pointer);
    EXPECT_EQ(run.at("/tool/driver/version"_json_pointer), QVGRAPH_VERSION);
    std::set<std::string> rules;
    for (const json& rule : run.at("/tool/driver/rules"_json_pointer)) {
        rules.insert(rule.at("id").get<std::string>());
    }
    std::vector<std::string> found;
    for (const json& each : run.at("results")) {
        found.push_back(each.at("ruleId"));
        EXPECT_EQ(rules.count(found.back()), 1U) << found.back();
    }
    EXPECT_EQ(found, (std::vector<std::string>{"duplicate-key", "syntax"}));
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(CheckTest, ReportsAsAnnotations) {
    AssertRuns({"check", "--format", "github", "broken.json"},
               1,
               "::error file=broken.json,line=2,col=1,endLine=2,endColumn=1,title=syntax"
               "::unexpected end of input%0A1:1: opened here%0Ahint: close the object with }\n",
               "qvgraph: 1 error in 1 file\n");
}

TEST_F(CheckTest, UsesColourOnATerminal) {
    const std::string plain = Run({"check", "broken.json"}).out;
    const std::string coloured = Run({"check", "--color", "always", "broken.json"}).out;
    EXPECT_EQ(coloured.substr(0, coloured.find(" unexpected")),
              "\033[1mbroken.json:2:1:\033[0m \033[1;31merror:\033[0m");
    request.out.kind = Kind::Terminal;
    EXPECT_EQ(Run({"check", "broken.json"}).out, coloured);
    EXPECT_EQ(Run({"check", "--color", "never", "broken.json"}).out, plain);
    EXPECT_EQ(Run({"check", "--format", "gcc", "broken.json"}).out, ERROR);
    request.environment.emplace_back("NO_COLOR=1");
    EXPECT_EQ(Run({"check", "broken.json"}).out, plain);
}

// ---- Input ------------------------------------------------------------------

TEST_F(CheckTest, ReadsStandardInput) {
    request.input = BROKEN;
    AssertFinds({"-"}, 1, "<stdin>" + UNCLOSED, "1 error in 1 file");
    AssertFinds(
        {"clean.json", "--stdin-filename", "broken.json", "-"}, 1, ERROR, "1 error in 2 files");
}

TEST_F(CheckTest, TheNameForStandardInputIsNotRead) {
    AssertFinds({"--stdin-filename", "broken.json", "clean.json"}, 0, "", "1 file, no findings");
}

TEST_F(CheckTest, ReadsStandardInputOnlyOnce) {
    AssertFails({"check", "-", "clean.json", "-"},
                "FILE: standard input can be read only once (see qvgraph check --help)");
}

TEST_F(CheckTest, ReportsTheOtherFilesIfOneCannotBeRead) {
    AssertRuns({"check", "--format", "gcc", "missing.json", "broken.json", ".", "noted.json"},
               2,
               ERROR + NOTE,
               "qvgraph: cannot read missing.json: No such file or directory\n"
               "qvgraph: cannot read .: Is a directory\n"
               "qvgraph: 1 error and 1 note in 2 files\n");
    AssertRuns({"check", "clean.json", "missing.json"},
               2,
               "",
               "qvgraph: cannot read missing.json: No such file or directory\n"
               "qvgraph: 1 file, no findings\n");
}

TEST_F(CheckTest, WritesNoReportIfNoFileCanBeRead) {
    folder.write("report.json", "old");
    AssertFails({"check", "--format", "json", "-o", "report.json", "missing.json"},
                "cannot read missing.json: No such file or directory");
    EXPECT_EQ(folder.read("report.json"), "old");
}

TEST_F(CheckTest, RequiresAFile) {
    AssertFails({"check"}, "FILE is required (see qvgraph check --help)");
}

// ---- Output -----------------------------------------------------------------

TEST_F(CheckTest, WritesAFile) {
    AssertRuns({"check", "--format", "gcc", "-o", "report.txt", "broken.json", "noted.json"},
               1,
               "",
               "qvgraph: 1 error and 1 note in 2 files\n");
    EXPECT_EQ(folder.read("report.txt"), ERROR + NOTE);
    AssertRuns(
        {"check", "--output=report.txt", "clean.json"}, 0, "", "qvgraph: 1 file, no findings\n");
    EXPECT_EQ(folder.read("report.txt"), "");
}

TEST_F(CheckTest, UsesNoColourInAFile) {
    request.out.kind = Kind::Terminal;
    Run({"check", "-o", "report.txt", "broken.json"});
    EXPECT_EQ(folder.read("report.txt").find('\033'), std::string::npos);
}

TEST_F(CheckTest, DoesNotReplaceItsInputs) {
    fs::create_symlink("noted.json", folder.path("link.json"));
    AssertFails({"check", "-o", "noted.json", "clean.json", "noted.json", "missing.json"},
                "cannot write noted.json: it is the configuration");
    AssertFails({"check", "-o", "link.json", "noted.json"},
                "cannot write link.json: it is the configuration");
    EXPECT_EQ(folder.read("noted.json"), NOTED);
}

TEST_F(CheckTest, FailsIfTheReportCannotBeWritten) {
    AssertFails(
        {"check", "-o", folder.path("missing/report.txt"), "broken.json"},
        "cannot write " + folder.path("missing/report.txt") + ": No such file or directory");
    request.out = {Kind::File, "/dev/full"};
    AssertFails({"check", "broken.json"}, "cannot write standard output: No space left on device");
}

// ---- Control characters -----------------------------------------------------

TEST_F(CheckTest, StringsOfAConfigurationAreEscapedOnTheTerminal) {
    const std::string evil = "\033[2J\r\x7f\xff\u009b";
    folder.write("evil.json", "{\"pipe_0\": {\"" + evil + "\": 1, /*" + evil + "*/ \"x\": ");
    for (const char* format : {"text", "gcc", "json", "sarif", "github"}) {
        const ProcessResult result = Run({"check", "--format", format, "evil.json"});
        for (const std::string& shown : {result.out, result.err}) {
            EXPECT_EQ(shown.find_first_of("\033\r\x7f\xff"), std::string::npos) << shown;
            EXPECT_EQ(shown.find("\u009b"), std::string::npos) << shown;
        }
        EXPECT_EQ(result.exitCode, 1);
    }
}

TEST_F(CheckTest, AFileNameIsEscapedOnTheTerminal) {
    const std::string name = "a\033[2J\n\xff.json";
    const std::string shown = "a\\x1b[2J\\x0a\ufffd.json";
    folder.write(name, BROKEN);
    AssertFinds({name}, 1, shown + UNCLOSED, "1 error in 1 file");
    AssertFails({"check", name + "x"}, "cannot read " + shown + "x: No such file or directory");
}

// ---- Help -------------------------------------------------------------------

TEST_F(CheckTest, HelpBeginsWithExamples) {
    const std::string beginning =
        R"(Find the mistakes in configurations.

Examples:
  qvgraph check pipes.json                        report every finding
)";
    const ProcessResult result = Run({"check", "--help"});
    EXPECT_EQ(result.out.substr(0, beginning.size()), beginning);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(CheckTest, HelpNamesEveryOption) {
    const std::string help = Run({"check", "--help"}).out;
    for (const char* option : {"\n  FILE ... ",
                               "\n  -h,--help  ",
                               "\n  --stdin-filename NAME ",
                               "\n  --format FORMAT  ",
                               "\n  -o,--output FILE  ",
                               "\n  --color WHEN  ",
                               "\n  -q,--quiet  ",
                               "\n  --fail-on SEVERITY  ",
                               "\n  --select CODES  ",
                               "\n  --ignore CODES  ",
                               "\n  --strict  ",
                               "\n  --plugin LIB  ",
                               "\n  --stub  ",
                               "\n  --no-stub  "}) {
        EXPECT_NE(help.find(option), std::string::npos) << option << '\n' << help;
    }
}

TEST_F(CheckTest, RejectsUnknownArguments) {
    AssertFails({"check", "--format", "xml", "clean.json"},
                "--format: xml not in {text,gcc,json,sarif,github} (see qvgraph check --help)");
    AssertFails({"check", "--fail-on", "info", "clean.json"},
                "--fail-on: info not in {error,warning,note} (see qvgraph check --help)");
    AssertFails({"check", "--loud", "clean.json"},
                "The following argument was not expected: --loud (see qvgraph check --help)");
}

// ---- The examples -----------------------------------------------------------

TEST_F(CheckTest, TheExamplesHaveNeitherErrorsNorWarnings) {
    for (const auto& entry : fs::directory_iterator(QVGRAPH_EXAMPLES)) {
        if (entry.path().extension() == ".json") {
            const ProcessResult result = Run({"check", "--fail-on", "warning", entry.path()});
            EXPECT_EQ(result.exitCode, 0) << result.out;
        }
    }
}

}  // namespace
