/// @file
/// The logger and the small helper functions that the parser requires.
///
/// This header only declares them. A framework defines the six functions below
/// once for the whole program; on a workstation, host/ does.
///
/// Thread safety: the parser calls these functions only from the thread that
/// called the parser. A framework that runs parsers in several threads must
/// make them thread-safe.
///
/// Exceptions: the parser passes on whatever these functions throw, and leaks
/// nothing when they do.
#ifndef QVGRAPH_FRAMEWORK_QV_LOG_H_
#define QVGRAPH_FRAMEWORK_QV_LOG_H_

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

/// Lets the compiler check the arguments of every record against its format.
#if defined(__GNUC__)
#define QV_PRINTF_FORMAT(text, first) __attribute__((format(printf, text, first)))
#else
#define QV_PRINTF_FORMAT(text, first)
#endif

/// The levels that the parser uses. A lower number is more severe.
enum : int {
    QV_LOG_ERROR = 2,   ///< errors, failed assertions and refused streams; bold red
    QV_LOG_NOTICE = 5,  ///< a node that cannot be created or has no streams; uncoloured
    QV_LOG_INFO = 6,    ///< option values, enumeration, node creation; bold blue
};

/// Begins the format of an error. Colour is part of a record's format: a
/// coloured format begins with QV_LOG_RED or QV_LOG_BLUE and ends with
/// QV_LOG_PLAIN.
///
/// A format contains no newline, so a logger that writes lines adds one. The
/// exceptions are the formats of QV_ASSERT and CHECK_UE: they contain a newline
/// before QV_LOG_PLAIN.
#define QV_LOG_RED "\033[31m\033[1m"
/// Begins the format of an information record.
#define QV_LOG_BLUE "\033[34m\033[1m"
/// Ends every coloured format.
#define QV_LOG_PLAIN "\033[0m"

/// Emits one record.
///
/// The parser passes:
/// - `module`: 0x18181802 in every record
/// - `level`: QV_LOG_NOTICE or QV_LOG_INFO
/// - `tag`: "QVGraphParser" in every record
/// - `format`: a printf format, colour included; a string literal
/// - `function`: the name of the reporting member function, without its class
/// - `line`: the source line that reports
/// - the arguments of the format
///
/// The parser ignores the result. Pointers among the arguments are valid only
/// during the call: a logger that defers its output must format first. Strings
/// from a configuration are passed unchanged, control characters included.
int qv_log(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) QV_PRINTF_FORMAT(4, 7);

/// As qv_log, for errors: the parser passes QV_LOG_ERROR as the level.
///
/// A failed assertion is reported here too, and the parser aborts the process
/// as soon as this function returns. Write the record immediately; do not
/// queue it.
int qv_err(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) QV_PRINTF_FORMAT(4, 7);

/// Formats into `buffer` and writes at most `size` bytes, including the
/// terminating NUL. The parser passes a buffer that is large enough and ignores
/// the result.
int util_snprintf(char* buffer, size_t size, const char* format, ...) QV_PRINTF_FORMAT(3, 4);

/// Returns `value` in decimal, without padding or separators, with a leading
/// '-' if it is negative. The parser uses it to build keys such as `pipe_0`.
std::string util_to_string(int value);

/// Returns 0 if and only if the two NUL-terminated strings are equal, ignoring
/// the case of ASCII letters. The parser uses no other property of the result.
/// Neither pointer is null.
int util_strcasecmp(const char* a, const char* b);

/// Sets `size` bytes at `memory` to `value`. The parser ignores the result.
void* qv_memset(void* memory, int value, size_t size);

// The two checks below report on behalf of the source file that uses them.

/// The format of QV_ASSERT's record.
#define QV_ASSERT_FORMAT QV_LOG_RED "Assertion %s failed at %s:%d\n" QV_LOG_PLAIN
/// The format of CHECK_UE's record.
#define CHECK_UE_FORMAT QV_LOG_RED "%s(%d): %s failed. actual %d vs exp %d\n" QV_LOG_PLAIN

/// If `condition` is false, logs `text` as the failed condition and aborts the
/// process. Control leaves the check only if qv_err throws.
///
/// REQUIRES: the source file defines QV_LOG_MODULE (the module word),
/// QV_LOG_TAG (the tag) and QV_LOG_FUNCTION (the name of the reporting
/// function).
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

/// If the int `actual` equals `unexpected`, logs both and returns from the
/// enclosing function with the current value of its variable `result`.
/// Evaluates both arguments more than once.
///
/// REQUIRES: the enclosing function has a variable `result`; the source file
/// defines the same macros as for QV_ASSERT.
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
