// A node class of your own: blends two streams into one.
//
//   "node_2": {
//     "node_opts": {"node_name": "Blender", "ratio": "float:0.25"},
//     "stream_opts": {
//       "stream_input_0": "day_frames",   "stream_fmt_in_0": "image:rgb24",
//       "stream_input_1": "night_frames", "stream_fmt_in_1": "image:rgb24",
//       "stream_output": "blended_frames", "stream_fmt_out": "image:rgb24"
//     }
//   }
//
// A node class needs only the headers of framework/ and host/qv_node_class.h, no
// library. own_node.cpp builds this class into a program, own_plugin.cpp into a
// shared library.
#ifndef QVGRAPH_EXAMPLES_BLENDER_H_
#define QVGRAPH_EXAMPLES_BLENDER_H_

#include <vector>

#include "host/qv_node_class.h"

class Blender : public QVTaskNodeBase {
public:
    // Called once, after the options are stored and the streams are bound.
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        mFirst = inputs[0];
        mSecond = inputs[1];
        mOutput = outputs[0];
        mOptions->findFloat("ratio", &mRatio);  // unchanged if there is none
        return 0;
    }

    // The share of the second stream, from 0 to 1: the float option "ratio", or
    // 0.5 if it is missing.
    float ratio() const { return mRatio; }

    // Blends two pixel values.
    float blend(float first, float second) const { return first + mRatio * (second - first); }

    // The node's streams: null before initialize; the framework owns them.
    const QVInputStreamManager* first() const { return mFirst; }
    const QVInputStreamManager* second() const { return mSecond; }
    const QVOutputStreamManager* output() const { return mOutput; }

private:
    float mRatio = 0.5F;
    QVInputStreamManager* mFirst = nullptr;
    QVInputStreamManager* mSecond = nullptr;
    QVOutputStreamManager* mOutput = nullptr;
};

// Describes the class to a registry. The class always has two inputs and one
// output, whatever a configuration declares, so initialize can rely on them.
inline QVNodeClass blenderClass() {
    QVNodeClass blender;
    blender.name = "Blender";
    blender.create = [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new Blender; };
    blender.inputNum = 2;
    blender.outputNum = 1;
    return blender;
}

#endif  // QVGRAPH_EXAMPLES_BLENDER_H_
