// Surveys a configuration: every query is answered, every option copied and
// every node set up, and the results are recorded as plain data.
//
// The parser itself runs, as a framework runs it, and the survey watches its
// calls and its records. Except for names and keys, nothing here reads the
// configuration itself.
//
// Thread safety: while a survey runs, it replaces the log level and the sink of
// the process (host/qv_host_log.h). Run one at a time, with no other logging.
#ifndef QVGRAPH_SURVEY_SURVEY_H_
#define QVGRAPH_SURVEY_SURVEY_H_

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "survey/node_in_set_up.h"
#include "survey/survey_data.h"

namespace qvgraph {

// The classes in the registry.
NodeClasses surveyNodeClasses();

// Receives the parser's records; without a sink, none.
struct RecordObserver {
    int level = QV_LOG_ERROR;  // records of this level and more severe ones
    QVLogSink sink;
};

struct SurveyRequest {
    std::optional<int> pipe;  // only this pipe, from 0 to getPipeNum() - 1
    RecordObserver records;

    // For a model of the configuration: surveys exactly those pipes that an index
    // maps to, even if it is not below getPipeNum(), and records conversions
    // instead of the nodes' options.
    bool forModel = false;

    // Called after each pipe with the number of pipes that are done, and of all;
    // may be empty.
    std::function<void(size_t done, size_t total)> progress;
};

// Loads `text`, up to its first NUL, into `parser`. Returns nothing on success,
// otherwise the reason why it is not a document.
std::optional<std::string> loadConfiguration(const std::string& text,
                                             const RecordObserver& records,
                                             QVGraphParser* parser);

// Surveys what the parser has loaded. Each pipe has its own task graph. Its nodes
// are set up one by one, in order, whatever the outcome of the earlier ones. Node
// classes are those of QVNodeRegistry.
//
// If a node class throws while its node is set up, the outcome is WouldThrow;
// only std::bad_alloc propagates to the caller.
Survey surveyConfiguration(const QVGraphParser& parser, const SurveyRequest& request);

// A text, loaded and surveyed.
struct SurveyedText {
    bool loads = false;
    std::string jsonError;  // json11's text if it does not load; empty for null
    Survey survey;
};

// Loads and surveys a text, up to its first NUL, with its own parser.
SurveyedText surveyText(const char* text, const SurveyRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_SURVEY_H_
