#include "survey/survey_data.h"

namespace qvgraph {

const char* toText(Outcome outcome) {
    switch (outcome) {
        case Outcome::Ready:
            return "ready";
        case Outcome::NotCreated:
            return "not created";
        case Outcome::NoStreams:
            return "no streams";
        case Outcome::StreamRefused:
            return "stream refused";
        case Outcome::WouldAbort:
            return "would abort";
        case Outcome::WouldThrow:
            return "would throw";
    }
    return "";
}

Readiness readinessOf(const Survey& survey) {
    Readiness readiness;
    for (const SurveyedPipe& pipe : survey.pipes) {
        for (const SurveyedNode& node : pipe.nodes) {
            ++readiness.nodes;
            readiness.notReady += node.outcome == Outcome::Ready ? 0 : 1;
        }
    }
    return readiness;
}

}  // namespace qvgraph
