/// @file
/// The logger of the host framework: qv_log and qv_err with a level filter and
/// a sink.
///
/// Level and sink apply to the whole process. By default, records up to
/// QV_LOG_ERROR go to standard error, one line each.
///
/// Thread safety: all functions may be called from any thread. A sink runs in
/// the thread that logs, and several threads may call it at the same time.
#ifndef QVGRAPH_HOST_QV_HOST_LOG_H_
#define QVGRAPH_HOST_QV_HOST_LOG_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "framework/qv_log.h"

/// One record, as a sink receives it. The pointers are valid only during that
/// call.
struct QVLogRecord {
    uint32_t module;       ///< 0x18181802 in the parser's records
    int level;             ///< lower is more severe
    const char* tag;       ///< the component that logs
    const char* format;    ///< as the caller passed it, colour included
    const char* function;  ///< the function that reports
    int line;              ///< the source line that reports
    const char* message;   ///< the format with its arguments filled in
};

/// Receives a record. An exception that the sink throws propagates to the
/// caller of qv_log or qv_err: a sink that throws on the record of a failed
/// assertion prevents the abort, provided that the level passes errors.
using QVLogSink = std::function<void(const QVLogRecord&)>;

/// Passes only records of `level` and more severe ones. All others cost next to
/// nothing.
void qv_log_set_level(int level);
/// Returns the current level.
int qv_log_level();

/// Replaces the sink and returns the previous one. An empty sink represents
/// standard error. Another thread may still be passing a record to the previous
/// sink when this function returns.
QVLogSink qv_log_set_sink(QVLogSink sink);

/// Returns whether the record reports a failed assertion (QV_ASSERT), after
/// which the process aborts.
bool qv_log_is_assertion(const QVLogRecord& record);

/// Returns the record as one line, without a newline at the end:
/// @code{.unparsed}
/// QVGraphParser error parseConfigFile:68: failed to fopen(pipes.json)
/// @endcode
/// If `colour` is true, the line has the colour of the record's format. Control
/// characters, characters that set the direction of text, and bytes that are
/// not UTF-8 appear as `\xNN`, so that a string from a configuration can
/// neither add lines nor control a terminal.
std::string qv_log_line(const QVLogRecord& record, bool colour);

/// Sets level and sink, and restores the previous ones at the end of its scope.
class QVLogScope {
public:
    /// As qv_log_set_level and qv_log_set_sink.
    QVLogScope(int level, QVLogSink sink);
    /// Restores the previous level and sink.
    ~QVLogScope();

    /// Not copyable: the object is tied to its scope.
    QVLogScope(const QVLogScope&) = delete;
    /// Not assignable, for the same reason.
    QVLogScope& operator=(const QVLogScope&) = delete;

private:
    int mLevel;
    std::shared_ptr<const QVLogSink> mSink;  // null: standard error
};

#endif  // QVGRAPH_HOST_QV_HOST_LOG_H_
