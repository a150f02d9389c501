// The pictures of `qvgraph draw`, and failed layouts.
#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;
using Kind = ProcessStream::Kind;

const char* const DOT_BEGIN = "digraph \"door.json\" {\n";
const char* const MERMAID_BEGIN = "%%{init: ";
const char* const SVG_BEGIN = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- Laid out by ";
const char* const PNG_BEGIN = "\x89PNG\r\n\x1a\n";
const char* const HTML_BEGIN = "<!DOCTYPE html>\n";

class DrawTest : public CommandTest {
protected:
    DrawTest() {
        folder.write("door.json", READY);
        fs::create_directory(folder.path("bin"));
    }

    // Replaces the program "dot" by a script.
    void UseDot(const std::string& script) {
        const std::string path = folder.write("bin/dot", "#!/bin/sh\n" + script + '\n');
        ASSERT_EQ(chmod(path.c_str(), 0755), 0);
        UsePath(folder.path("bin") + ":/usr/bin:/bin");
    }

    void UsePath(const std::string& path) { request.environment = {"TERM=xterm", "PATH=" + path}; }

    // Draws without messages, and returns the picture.
    std::string Drawn(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "draw");
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
        return result.out;
    }

    // Writes a picture that begins with `begin`.
    void AssertWrites(const std::string& name, const std::string& begin) {
        EXPECT_EQ(Drawn({"-o", name, "door.json"}), "");
        EXPECT_EQ(folder.read(name).substr(0, begin.size()), begin) << name;
    }
};

// ---- Formats ----------------------------------------------------------------

TEST_F(DrawTest, DrawsForGraphvizByDefault) {
    const std::string dot = Drawn({"door.json"});
    EXPECT_EQ(dot.substr(0, strlen(DOT_BEGIN)), DOT_BEGIN);
    EXPECT_EQ(Drawn({"--format", "dot", "door.json"}), dot);
    EXPECT_EQ(Drawn({"-o", "-", "door.json"}), dot);
}

TEST_F(DrawTest, TheExtensionOfTheFileDeterminesTheFormat) {
    AssertWrites("a.dot", DOT_BEGIN);
    AssertWrites("a.gv", DOT_BEGIN);
    AssertWrites("a.mmd", MERMAID_BEGIN);
    AssertWrites("a.mermaid", MERMAID_BEGIN);
    AssertWrites("a.svg", SVG_BEGIN);
    AssertWrites("a.png", PNG_BEGIN);
    AssertWrites("a.html", HTML_BEGIN);
    AssertWrites("a.htm", HTML_BEGIN);
    AssertWrites("a.b.SVG", SVG_BEGIN);
}

TEST_F(DrawTest, TheFormatOptionOverridesTheExtension) {
    EXPECT_EQ(Drawn({"-o", "a.svg", "--format", "dot", "door.json"}), "");
    EXPECT_EQ(folder.read("a.svg"), Drawn({"door.json"}));
    const std::string png = Drawn({"--format", "png", "door.json"});
    EXPECT_EQ(png.substr(0, 8), PNG_BEGIN);
    const std::string html = Drawn({"--format", "html", "door.json"});
    EXPECT_EQ(html.substr(0, strlen(HTML_BEGIN)), HTML_BEGIN);
}

TEST_F(DrawTest, TheSameInputProducesTheSameBytes) {
    for (const char* format : {"dot", "mermaid", "svg", "html"}) {
        EXPECT_EQ(Drawn({"--format", format, "door.json"}),
                  Drawn({"--format", format, "door.json"}))
            << format;
    }
}

TEST_F(DrawTest, ReadsStandardInput) {
    request.input = READY;
    const std::string begin = "digraph \"<stdin>\" {\n";
    EXPECT_EQ(Drawn({"-"}).substr(0, begin.size()), begin);
}

TEST_F(DrawTest, ThePictureInTheDocumentationIsUpToDate) {
    const std::string drawn =
        Drawn({"--format", "svg", QVGRAPH_SOURCE_DIR "/examples/door-camera.json"});
    const std::string committed = readFile(QVGRAPH_SOURCE_DIR "/docs/door-camera.svg");
    const std::string version = drawn.substr(0, drawn.find("<svg"));
    if (committed.compare(0, version.size(), version) != 0) {
        GTEST_SKIP() << "another version of Graphviz laid it out";
    }
    EXPECT_EQ(drawn, committed);
}

// ---- Content ----------------------------------------------------------------

TEST_F(DrawTest, DrawsOnePipe) {
    folder.write("three.json", R"({"pipe_0": {}, "pipe_1": {}, "pipe_3": {}})");
    const std::string dot = Drawn({"-q", "--pipe", "3", "three.json"});
    EXPECT_NE(dot.find("subgraph \"cluster_pipe_3\""), std::string::npos);
    EXPECT_EQ(dot.find("subgraph \"cluster_pipe_0\""), std::string::npos);
    folder.write("half.json",
                 R"({"pipe_0": {"node_0": {}}, "pipe_1": {"default_mode_link": "async"}})");
    EXPECT_EQ(Run({"draw", "--pipe", "1", "half.json"}).err, "");
    AssertFails({"draw", "--pipe", "2", "three.json"},
                "three.json: there is no \"pipe_2\": "
                "the configuration has pipe_0, pipe_1 and pipe_3");
    folder.write("empty.json", "{}");
    AssertFails({"draw", "--pipe", "0", "empty.json"},
                "empty.json: there is no \"pipe_0\": the configuration has no pipes");
}

TEST_F(DrawTest, ShowsOptionsIfRequested) {
    EXPECT_EQ(Drawn({"door.json"}).find("fps"), std::string::npos);
    EXPECT_NE(Drawn({"--options", "door.json"}).find("fps"), std::string::npos);
    EXPECT_NE(Drawn({"--options", "--format", "mermaid", "door.json"}).find("fps 25"),
              std::string::npos);
}

TEST_F(DrawTest, AConfigurationWithMistakesIsDrawn) {
    folder.write("wrong.json", R"({"pipe_0": {"node_0": {
        "node_opts": {"node_name": "View"},
        "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12"}}}}
)");
    const ProcessResult result = Run({"draw", "wrong.json"});
    EXPECT_NE(result.out.find(">warning: no-producer</FONT>"), std::string::npos);
    EXPECT_EQ(result.err, "qvgraph: wrong.json: 1 warning (see qvgraph check)\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(Drawn({"-q", "wrong.json"}), result.out);
}

TEST_F(DrawTest, AnUnregisteredClassIsDrawnAsAnError) {
    const ProcessResult result = Run({"draw", "--no-stub", "door.json"});
    EXPECT_NE(result.out.find(">error: node-class</FONT>"), std::string::npos);
    EXPECT_EQ(result.err, "qvgraph: door.json: 1 error (see qvgraph check)\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(DrawTest, ADocumentThatDoesNotLoadIsNotDrawn) {
    folder.write("broken.json", "{");
    folder.write("a.svg", "old");
    AssertFails({"draw", "broken.json"},
                "broken.json: unexpected end of input (see qvgraph check)");
    AssertFails({"draw", "-o", "a.svg", "broken.json"},
                "broken.json: unexpected end of input (see qvgraph check)");
    AssertFails({"draw", "missing.json"}, "cannot read missing.json: No such file or directory");
    EXPECT_EQ(folder.read("a.svg"), "old");
}

// Every string of the configuration contains characters that begin or end markup.
TEST_F(DrawTest, StringsOfAConfigurationAreNeverMarkup) {
    const std::string evil = R"(</text></svg>]]>-->\"'<script>alert(1)</script>&lt;\\N\\)";
    folder.write("evil.json",
                 R"({"pipe_0": {"default_mode_link": ")" + evil + R"(", "node_0": {"node_opts": {
                 "node_name": ")" +
                     evil + R"(", ")" + evil + R"(": ")" + evil + R"("},
                 "stream_opts": {"stream_output": ")" +
                     evil + R"(",
                 "stream_fmt_out": ")" +
                     evil + R"("}}, "link_0": {")" + evil + R"(": 1}}})");
    const std::string svg = Drawn({"-q", "--format", "svg", "evil.json"});
    EXPECT_EQ(svg.find("<script"), std::string::npos);
    EXPECT_EQ(svg.find("</svg>"), svg.size() - strlen("</svg>\n"));
    const std::string html = Drawn({"-q", "--format", "html", "evil.json"});
    EXPECT_EQ(html.find("<script>alert"), std::string::npos);
    EXPECT_EQ(html.find("</svg>"), html.rfind("</svg>"));
}

// ---- Arguments --------------------------------------------------------------

TEST_F(DrawTest, HelpNamesEveryOption) {
    const std::string help = Drawn({"--help"});
    const std::string begin = "Draw the nodes and streams of a configuration.\n";
    EXPECT_EQ(help.substr(0, begin.size()), begin);
    for (const char* option : {"\n  FILE  ",
                               "\n  --format FORMAT  ",
                               "\n  -o,--output FILE  ",
                               "\n  --pipe N  ",
                               "\n  --options  ",
                               "\n  --timeout SECONDS  ",
                               "\n  --plugin LIB  ",
                               "\n  -q,--quiet  "}) {
        EXPECT_NE(help.find(option), std::string::npos) << option << '\n' << help;
    }
}

TEST_F(DrawTest, RejectsUnknownArguments) {
    AssertFails({"draw"}, "FILE is required (see qvgraph draw --help)");
    AssertFails({"draw", "--format", "pdf", "door.json"},
                "--format: pdf not in {dot,svg,png,mermaid,html} (see qvgraph draw --help)");
    AssertFails(
        {"draw", "--pipe", "-1", "door.json"},
        "--pipe: '-1' is not a whole number from 0 to 2147483647 (see qvgraph draw --help)");
    for (const std::string seconds : {"0", "-1", "1.5", "soon", "86401"}) {
        AssertFails({"draw", "--timeout=" + seconds, "door.json"},
                    "--timeout: '" + seconds +
                        "' is not a whole number from 1 to 86400 (see qvgraph draw --help)");
    }
}

TEST_F(DrawTest, RejectsAnExtensionThatDoesNotTellTheFormat) {
    for (const std::string name : {"a.pdf", "a", "svg", "a.svg/b", ".svg", "/dev/null"}) {
        AssertFails({"draw", "-o", name, "door.json"},
                    "--output: the extension of '" + name +
                        "' does not tell the format; use --format (see qvgraph draw --help)");
    }
    EXPECT_EQ(Drawn({"-o", "/dev/null", "--format", "dot", "door.json"}), "");
}

TEST_F(DrawTest, DoesNotReplaceItsInput) {
    AssertFails({"draw", "--format", "dot", "-o", "door.json", "door.json"},
                "cannot write door.json: it is the configuration");
    EXPECT_EQ(folder.read("door.json"), READY);
}

TEST_F(DrawTest, PngIsNotWrittenToATerminal) {
    request.out.kind = Kind::Terminal;
    AssertFails({"draw", "--format", "png", "door.json"},
                "cannot write a png to a terminal; use -o FILE");
}

// ---- Failed layouts ---------------------------------------------------------

TEST_F(DrawTest, ReportsThatGraphvizIsMissing) {
    UsePath(folder.path("bin"));
    for (const char* format : {"svg", "png", "html"}) {
        AssertFails({"draw", "--format", format, "door.json"},
                    "cannot lay out the picture: cannot run the program dot of Graphviz "
                    "(No such file or directory); the formats dot and mermaid do not need it");
    }
    EXPECT_NE(Drawn({"door.json"}), "");
    EXPECT_NE(Drawn({"--format", "mermaid", "door.json"}), "");
}

TEST_F(DrawTest, ReportsThatGraphvizCannotBeExecuted) {
    folder.write("bin/dot", "#!/bin/sh\n");
    UsePath(folder.path("bin"));
    AssertFails(
        {"draw", "--format", "svg", "door.json"},
        "cannot lay out the picture: cannot run the program dot of Graphviz (Permission denied); "
        "the formats dot and mermaid do not need it");
}

TEST_F(DrawTest, ReportsAFailedLayout) {
    UseDot("echo 'Error: too \033[2Jhard' >&2; echo more >&2; exit 3");
    AssertFails({"draw", "--format", "svg", "door.json"},
                "cannot lay out the picture: dot failed with exit code 3: Error: too \\x1b[2Jhard");
    UseDot("exit 1");
    AssertFails({"draw", "--format", "svg", "door.json"},
                "cannot lay out the picture: dot failed with exit code 1");
}

TEST_F(DrawTest, ReportsACrashedLayout) {
    UseDot("kill -SEGV $$");
    AssertFails({"draw", "--format", "svg", "door.json"},
                "cannot lay out the picture: dot was terminated by signal 11");
}

TEST_F(DrawTest, ReportsALayoutThatTakesTooLong) {
    UseDot("exec sleep 1000");
    AssertFails({"draw", "--timeout", "1", "--format", "svg", "door.json"},
                "cannot lay out the picture: dot took more than 1 second; "
                "allow more with --timeout, or draw one pipe with --pipe");
}

TEST_F(DrawTest, ReportsAnIncompleteLayout) {
    for (const char* script : {"true", "echo '<svg'", "echo '</svg>'", "echo '<svg></svg> x'"}) {
        UseDot(script);
        AssertFails({"draw", "--format", "svg", "door.json"},
                    "cannot lay out the picture: the output of dot is not a complete svg file");
    }
    UseDot("echo '<svg></svg>'");
    AssertFails({"draw", "--format", "png", "door.json"},
                "cannot lay out the picture: the output of dot is not a complete png file");
    UseDot("printf '\\211PNG\\r\\n\\032\\nIEND'");
    AssertFails({"draw", "--format", "png", "door.json"},
                "cannot lay out the picture: the output of dot is not a complete png file");
}

TEST_F(DrawTest, NothingIsWrittenIfTheLayoutFails) {
    folder.write("a.html", "old");
    UseDot("echo '<svg>'; exit 1");
    AssertFails({"draw", "-o", "a.html", "door.json"},
                "cannot lay out the picture: dot failed with exit code 1");
    EXPECT_EQ(folder.read("a.html"), "old");
}

TEST_F(DrawTest, WarningsOfGraphvizAreNotShown) {
    UseDot("echo Warning >&2; echo '<svg></svg>'");
    EXPECT_NE(Drawn({"--format", "svg", "door.json"}), "");
}

TEST_F(DrawTest, GraphvizReceivesTheGraph) {
    UseDot("cat >seen.dot; echo \"$*\" >seen.txt; echo '<svg></svg>'");
    Drawn({"--format", "svg", "door.json"});
    EXPECT_EQ(folder.read("seen.dot"), Drawn({"door.json"}));
    EXPECT_EQ(folder.read("seen.txt"), "-Tsvg\n");
    UseDot("echo \"$*\" >seen.txt; exit 1");
    Run({"draw", "--format", "png", "door.json"});
    EXPECT_EQ(folder.read("seen.txt"), "-Tpng -Gdpi=144\n");
}

}  // namespace
