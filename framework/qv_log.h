// What the parser needs of the framework's logger and small helpers.
//
// The parser declares nothing of its own here: a framework defines the six
// functions below, once for the whole program. (On a desk, host/ does.)
//
// Thread safety: the parser calls these functions from the thread that called
// the parser, and from no other. A framework that runs one parser in each of
// several threads makes them safe for that.
//
// Exceptions: the parser passes on whatever these functions throw; it holds
// nothing then that would leak.
#ifndef QVGRAPH_FRAMEWORK_QV_LOG_H_
#define QVGRAPH_FRAMEWORK_QV_LOG_H_

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Lets the compiler check every record's arguments against its format.
#if defined(__GNUC__)
#define QV_PRINTF_FORMAT(text, first) __attribute__((format(printf, text, first)))
#else
#define QV_PRINTF_FORMAT(text, first)
#endif

// The levels that the parser uses; a lower number is more severe.
enum : int {
    QV_LOG_ERROR = 2,   // errors, failed assertions and refused streams, in bold red
    QV_LOG_NOTICE = 5,  // a node that could not be created or has no streams, uncoloured
    QV_LOG_INFO = 6,    // option values, enumeration, node creation, in bold blue
};

// Colour is part of a record's format: it opens with one of these and closes
// with QV_LOG_PLAIN. Before that, the formats of the two checks below have a
// newline: a logger that writes lines adds one to all others, which have none.
#define QV_LOG_RED "\033[31m\033[1m"
#define QV_LOG_BLUE "\033[34m\033[1m"
#define QV_LOG_PLAIN "\033[0m"

// Emits one record.
//
// The parser passes:
//   module    0x18181802 in every record
//   level     QV_LOG_NOTICE or QV_LOG_INFO
//   tag       "QVGraphParser" in every record
//   format    a printf format with its colour, a string literal
//   function  the name of the member function that reports, without its class
//   line      the line of the source at which it reports
//   ...       the format's arguments
// and ignores the result. What the arguments point to lives only as long as
// the call: a logger that defers its output formats first. Text from a
// configuration is passed as it stands there, control characters included.
int qv_log(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) QV_PRINTF_FORMAT(4, 7);

// As qv_log, for errors: the parser passes QV_LOG_ERROR as the level.
//
// A failed assertion is such a record too, and the parser aborts the process
// as soon as this function returns: write the record out, do not queue it.
int qv_err(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) QV_PRINTF_FORMAT(4, 7);

// Formats into `buffer` and writes at most `size` bytes there, the terminating
// NUL among them. The parser passes a buffer that is large enough and ignores
// the result.
int util_snprintf(char* buffer, size_t size, const char* format, ...) QV_PRINTF_FORMAT(3, 4);

// Returns `value` as decimal text, without padding or separators; with a '-'
// when it is negative. The parser makes keys such as 'pipe_0' with it.
std::string util_to_string(int value);

// Returns 0 exactly when the two NUL-terminated strings are equal but for the
// case of ASCII letters; the parser asks for nothing more. Neither is null.
int util_strcasecmp(const char* a, const char* b);

// Sets `size` bytes at `memory` to `value`. The parser ignores the result.
void* qv_memset(void* memory, int value, size_t size);

// The two checks below report on behalf of the file that uses them.
// REQUIRES: that file defines QV_LOG_MODULE (the module word), QV_LOG_TAG (the
// tag) and QV_LOG_FUNCTION (the name of the function that reports).

// The formats of their records.
#define QV_ASSERT_FORMAT QV_LOG_RED "Assertion %s failed at %s:%d\n" QV_LOG_PLAIN
#define CHECK_UE_FORMAT QV_LOG_RED "%s(%d): %s failed. actual %d vs exp %d\n" QV_LOG_PLAIN

// Where `condition` does not hold, logs `text` as what failed and aborts the
// process. Does not return then; only an exception out of qv_err gets past it.
#define QV_ASSERT(condition, text)   \
    do {                             \
        if (!(condition)) {          \
            qv_err(QV_LOG_MODULE,    \
                   QV_LOG_ERROR,     \
                   QV_LOG_TAG,       \
                   QV_ASSERT_FORMAT, \
                   QV_LOG_FUNCTION,  \
                   __LINE__,         \
                   text,             \
                   QV_LOG_FUNCTION,  \
                   __LINE__);        \
            abort();                 \
        }                            \
    } while (false)

// Where the int `actual` equals `unexpected`, logs that and leaves the
// enclosing function, which returns its variable `result` as it stands.
// Evaluates both more than once.
#define CHECK_UE(actual, unexpected)    \
    do {                                \
        if ((actual) == (unexpected)) { \
            qv_err(QV_LOG_MODULE,       \
                   QV_LOG_ERROR,        \
                   QV_LOG_TAG,          \
                   CHECK_UE_FORMAT,     \
                   QV_LOG_FUNCTION,     \
                   __LINE__,            \
                   QV_LOG_FUNCTION,     \
                   __LINE__,            \
                   "CHECK_UE",          \
                   (actual),            \
                   (unexpected));       \
            return result;              \
        }                               \
    } while (false)

#endif  // QVGRAPH_FRAMEWORK_QV_LOG_H_
