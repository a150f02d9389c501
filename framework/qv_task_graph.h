// The task graph that a pipe's streams are registered with.
#ifndef QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_
#define QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_

#include <string>

// The caller of QVGraphParser::initTaskNode owns it and passes it in; the
// parser keeps no pointer to it.
//
// For each node the parser registers all inputs, then all outputs, each before
// its manager is bound. Nothing is undone: the streams of a node whose set-up
// fails later stay registered.
class QVTaskGraphConfig {
public:
    QVTaskGraphConfig() = default;
    virtual ~QVTaskGraphConfig() = default;

    // A task graph is used through pointers to this base; a copy would cut it.
    QVTaskGraphConfig(const QVTaskGraphConfig&) = delete;
    QVTaskGraphConfig& operator=(const QVTaskGraphConfig&) = delete;

    // Registers `name` as a stream that a node takes, and returns the stream's
    // id. Returning -1 refuses it: the parser logs that and leaves the node at
    // once, half wired, yet reports success. Every other number is passed on
    // to the stream manager, unread.
    //
    // `name` is empty where a configuration says "": refuse it, or nodes that
    // have nothing to do with each other share that stream.
    virtual int addInputStream(std::string name) = 0;

    // As addInputStream, for a stream that a node gives.
    virtual int addOutputStream(std::string name) = 0;
};

#endif  // QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_
