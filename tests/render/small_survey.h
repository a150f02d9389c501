// Small surveys, for the tests of the reports.
#ifndef QVGRAPH_TESTS_RENDER_SMALL_SURVEY_H_
#define QVGRAPH_TESTS_RENDER_SMALL_SURVEY_H_

#include <cstdint>
#include <string>

#include "survey/survey.h"

// An input or output that was wired.
inline qvgraph::SurveyedEnd wiredTo(const std::string& name, int id, const std::string& format) {
    qvgraph::SurveyedEnd end;
    end.name = name;
    end.id = id;
    end.format = format;
    return end;
}

// A node that is ready, with its name and nothing else.
inline qvgraph::SurveyedNode nodeNamed(int index, int id, const std::string& name) {
    qvgraph::SurveyedNode node;
    node.index = index;
    node.id = id;
    node.key = "node_" + std::to_string(id);
    node.name = name;
    node.className = name.substr(0, name.find('#'));
    node.result = 0;
    return node;
}

inline qvgraph::SurveyedPipe pipeAt(int index) {
    qvgraph::SurveyedPipe pipe;
    pipe.index = index;
    pipe.key = "pipe_" + std::to_string(index);
    pipe.linkMode = "none";
    return pipe;
}

inline qvgraph::Survey surveyOf(const qvgraph::SurveyedPipe& pipe) {
    qvgraph::Survey survey;
    survey.pipes.push_back(pipe);
    return survey;
}

// One pipe with one or more of everything, all ready.
inline qvgraph::Survey smallSurvey() {
    qvgraph::SurveyedPipe pipe = pipeAt(0);
    pipe.threads = 4;
    pipe.linkMode = "async";

    qvgraph::SurveyedOptionSet executor;
    executor.key = "executor_0";
    executor.options = {{"name", std::string("fast")}, {"priority", int32_t{80}}};
    qvgraph::SurveyedOptionSet link;
    link.id = 12;
    link.key = "link_12";
    link.options = {{"depth", int64_t{16}}, {"drop_after_s", 0.5F}};
    pipe.executors = {executor};
    pipe.links = {link, {.index = 1, .options = {}}};

    qvgraph::SurveyedNode camera = nodeNamed(0, 10, "Camera#door");
    camera.options = {{"fps", int32_t{25}}, {"node_name", std::string("Camera#door")}};
    camera.outputEnds = {wiredTo("raw", 0, "nv12")};
    qvgraph::SurveyedNode display = nodeNamed(1, 2, "Display");
    display.options = {{"node_name", std::string("Display")}};
    display.inputEnds = {wiredTo("raw", 0, "nv12"), wiredTo("overlay", 1, "argb")};
    display.inputEnds[0].remainNewest = true;
    pipe.nodes = {camera, display};

    pipe.streams = {{0, "raw", "node_10", {"node_2"}}, {1, "overlay", std::nullopt, {"node_2"}}};
    return surveyOf(pipe);
}

// One pipe with a node for each way of not being ready.
inline qvgraph::Survey unreadySurvey() {
    qvgraph::SurveyedPipe pipe = pipeAt(0);

    qvgraph::SurveyedNode nameless = nodeNamed(0, 0, "");
    nameless.key.reset();
    nameless.outcome = qvgraph::Outcome::NotCreated;
    nameless.result = -1;
    nameless.message = "it has no \"node_name\" that is a string";
    qvgraph::SurveyedNode idle = nodeNamed(1, 1, "Idle");
    idle.outcome = qvgraph::Outcome::NoStreams;
    idle.result = -1;
    idle.message = "it has neither inputs nor outputs";
    qvgraph::SurveyedNode refused = nodeNamed(2, 2, "Refused");
    refused.outcome = qvgraph::Outcome::StreamRefused;
    refused.message = "the name of its output stream is empty";
    refused.inputEnds = {wiredTo("a", 0, "f")};
    refused.outputEnds = {{}};
    qvgraph::SurveyedNode aborts = nodeNamed(3, 3, "Aborts");
    aborts.outcome = qvgraph::Outcome::WouldAbort;
    aborts.result.reset();
    aborts.message = "no name for its input stream";
    aborts.inputEnds = {{}};
    qvgraph::SurveyedNode throws = nodeNamed(4, 4, "Throws");
    throws.outcome = qvgraph::Outcome::WouldThrow;
    throws.result.reset();
    throws.message = "no format for its output stream 'b'";
    throws.outputEnds = {wiredTo("b", 1, "")};
    throws.outputEnds[0].format.reset();

    pipe.nodes = {nameless, idle, refused, aborts, throws};
    pipe.streams = {{0, "a", std::nullopt, {"node_2"}}, {1, "b", "node_4", {}}};
    return surveyOf(pipe);
}

#endif  // QVGRAPH_TESTS_RENDER_SMALL_SURVEY_H_
