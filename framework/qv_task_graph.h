/// @file
/// The task graph in which the parser registers the streams of a pipe.
#ifndef QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_
#define QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_

#include <string>

/// The base class of task graphs. The caller of QVGraphParser::initTaskNode
/// owns the graph and passes it in; the parser keeps no pointer to it.
///
/// For each node, the parser registers all inputs, then all outputs, and
/// registers each stream before it binds the stream's manager. Nothing is
/// undone: if the node's set-up fails later, its streams stay registered.
class QVTaskGraphConfig {
public:
    QVTaskGraphConfig() = default;
    virtual ~QVTaskGraphConfig() = default;

    /// Not copyable: a task graph is used through pointers to this base class,
    /// and a copy would slice it.
    QVTaskGraphConfig(const QVTaskGraphConfig&) = delete;
    /// Not assignable, for the same reason.
    QVTaskGraphConfig& operator=(const QVTaskGraphConfig&) = delete;

    /// Registers `name` as a stream that a node consumes, and returns the
    /// stream's id. The parser passes the id to the stream manager unchanged.
    ///
    /// Return -1 to refuse the stream. The parser then logs an error and
    /// abandons the node's set-up immediately, with only the earlier streams
    /// bound, but initTaskNode still returns 0.
    ///
    /// `name` is empty if the configuration contains "". Refuse it; otherwise
    /// unrelated nodes share one stream.
    virtual int addInputStream(std::string name) = 0;

    /// As addInputStream, for a stream that a node produces.
    virtual int addOutputStream(std::string name) = 0;
};

#endif  // QVGRAPH_FRAMEWORK_QV_TASK_GRAPH_H_
