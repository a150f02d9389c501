// The desk's logger: qv_log and qv_err with a level filter and a sink.
//
// Level and sink belong to the whole process. At first, records up to
// QV_LOG_ERROR go to standard error, one line each.
//
// Thread safety: everything here may be called from any thread. A sink is
// called by the thread that logs; several threads may be in it at once.
#ifndef QVGRAPH_HOST_QV_HOST_LOG_H_
#define QVGRAPH_HOST_QV_HOST_LOG_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "framework/qv_log.h"

// One record, as a sink receives it. The pointers are valid during that call.
struct QVLogRecord {
    uint32_t module;       // 0x18181802 in the parser's records
    int level;             // lower is more severe
    const char* tag;       // who logs
    const char* format;    // as the caller wrote it, colour included
    const char* function;  // the function that reports
    int line;              // the line of the source at which it reports
    const char* message;   // the format with its arguments filled in
};

// Takes a record. What it throws goes to the caller of qv_log or qv_err: a
// sink that throws at the record of a failed assertion keeps the process from
// being aborted, provided that the level lets errors pass.
using QVLogSink = std::function<void(const QVLogRecord&)>;

// Lets records of `level` and more severe ones pass; others cost next to
// nothing.
void qv_log_set_level(int level);
int qv_log_level();

// Replaces the sink; an empty one stands for standard error. Returns the sink
// that was there. A record that another thread is logging may still go to it.
QVLogSink qv_log_set_sink(QVLogSink sink);

// Whether the record tells of a failed assertion (QV_ASSERT), behind which the
// process is aborted.
bool qv_log_is_assertion(const QVLogRecord& record);

// The record as one line, without a newline at its end:
//
//   QVGraphParser error parseConfigFile:68: failed to fopen(pipes.json)
//
// in the colour of its format when `colour` is set. Control characters, those
// that set the direction of text, and bytes that are not UTF-8 appear as \xNN:
// text from a configuration can neither add lines nor steer a terminal.
std::string qv_log_line(const QVLogRecord& record, bool colour);

// Sets level and sink, and at the end of its scope puts back what was there.
class QVLogScope {
public:
    // As qv_log_set_level and qv_log_set_sink.
    QVLogScope(int level, QVLogSink sink);
    ~QVLogScope();

    // It stands for its scope and cannot leave it.
    QVLogScope(const QVLogScope&) = delete;
    QVLogScope& operator=(const QVLogScope&) = delete;

private:
    int mLevel;
    std::shared_ptr<const QVLogSink> mSink;  // null: standard error
};

#endif  // QVGRAPH_HOST_QV_HOST_LOG_H_
