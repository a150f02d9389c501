// The configuration as the tools see it: where each pipe, node, option and
// stream is in the text, and what the parser and the host framework did with
// it. Built once from the source and the survey, and never changed.
//
//   {"pipe_0": {
//     "node_0": {"node_opts": {"node_name": "Camera", "fps": "int32:30"},
//                "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}}
//   }}
//
// becomes a pipe with one node of class Camera, four options (of which "fps" is
// stored as the int32 30), and a stream "raw" that node_0 produces and no node
// consumes.
//
// Thread safety: may be read from any thread.
#ifndef QVGRAPH_MODEL_MODEL_H_
#define QVGRAPH_MODEL_MODEL_H_

#include <memory>
#include <string>
#include <vector>

#include "model/model_data.h"
#include "model/options.h"
#include "model/streams.h"
#include "source/source.h"
#include "survey/survey.h"

namespace qvgraph {

// What a model is built from.
struct ModelParts {
    std::shared_ptr<const Source> source;
    Survey survey;          // with SurveyRequest::forModel
    bool loads = false;     // whether the parser gets a document from the text
    std::string jsonError;  // json11's text if it rejects the document
};

// A model can be moved, which leaves everything that refers to its parts valid;
// it cannot be copied.
class Model {
public:
    Model() = default;  // of nothing: no other call is allowed
    explicit Model(ModelParts parts);

    Model(Model&&) = default;
    Model& operator=(Model&&) = default;

    const Source& source() const { return *mSource; }

    // Whether the parser gets a document from the text.
    bool loads() const { return mLoads; }
    const std::string& jsonError() const { return mJsonError; }

    // By index. Empty if the document does not load.
    const std::vector<Pipe>& pipes() const { return mPipes; }

    const NodeClasses& nodeClasses() const { return mNodeClasses; }
    const std::vector<Comment>& comments() const { return mComments; }

private:
    std::shared_ptr<const Source> mSource;
    bool mLoads = false;
    std::string mJsonError;
    std::vector<Pipe> mPipes;
    NodeClasses mNodeClasses;
    std::vector<Comment> mComments;
};

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_MODEL_H_
