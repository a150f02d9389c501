// A node class of one's own: mixes two streams into one.
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
// A node class needs the contracts and host/qv_node_class.h, no library.
// own_node.cpp builds this one into a program, own_plugin.cpp into a shared
// library.
#ifndef QVGRAPH_EXAMPLES_BLENDER_H_
#define QVGRAPH_EXAMPLES_BLENDER_H_

#include <vector>

#include "host/qv_node_class.h"

class Blender : public QVTaskNodeBase {
public:
    // Called once, when the options are stored and the streams are bound.
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        mFirst = inputs[0];
        mSecond = inputs[1];
        mOutput = outputs[0];
        mOptions->findFloat("ratio", &mRatio);  // leaves it alone where there is none
        return 0;
    }

    // How much of the second stream there is in the mix, from 0 to 1. The
    // option "ratio", a float; half of it without one.
    float ratio() const { return mRatio; }

    // What the node makes of two pixels.
    float blend(float first, float second) const { return first + mRatio * (second - first); }

    // Its streams: null before initialize, the framework's afterwards.
    const QVInputStreamManager* first() const { return mFirst; }
    const QVInputStreamManager* second() const { return mSecond; }
    const QVOutputStreamManager* output() const { return mOutput; }

private:
    float mRatio = 0.5F;
    QVInputStreamManager* mFirst = nullptr;
    QVInputStreamManager* mSecond = nullptr;
    QVOutputStreamManager* mOutput = nullptr;
};

// What a registry is told. Because the class has two inputs and one output
// whatever a configuration declares, initialize finds as many.
inline QVNodeClass blenderClass() {
    QVNodeClass blender;
    blender.name = "Blender";
    blender.create = [](const _QVNodeInfo*) -> QVTaskNodeBase* { return new Blender; };
    blender.inputNum = 2;
    blender.outputNum = 1;
    return blender;
}

#endif  // QVGRAPH_EXAMPLES_BLENDER_H_
