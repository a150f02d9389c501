#include "host/qv_host_log.h"

#include <unistd.h>
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>

namespace {

std::atomic<int> passing_level{QV_LOG_ERROR};

using SharedSink = std::shared_ptr<const QVLogSink>;

std::mutex sink_mutex;
SharedSink current_sink;  // null: standard error

bool takePrefix(std::string_view* text, std::string_view prefix) {
    if (text->substr(0, prefix.size()) != prefix) {
        return false;
    }
    text->remove_prefix(prefix.size());
    return true;
}

bool takeSuffix(std::string_view* text, std::string_view suffix) {
    if (text->size() < suffix.size() || text->substr(text->size() - suffix.size()) != suffix) {
        return false;
    }
    text->remove_suffix(suffix.size());
    return true;
}

// The message without the colour and the newline of its format, and that colour.
// Only what the format itself contains is removed, since the message's data may
// begin or end with the same bytes.
struct Body {
    std::string_view text;
    std::string_view colour;
};

Body bodyOf(const QVLogRecord& record) {
    Body body = {record.message, ""};
    std::string_view format = record.format;
    for (const std::string_view colour : {QV_LOG_RED, QV_LOG_BLUE}) {
        if (takePrefix(&format, colour) && takePrefix(&body.text, colour)) {
            body.colour = colour;
        }
    }
    for (const std::string_view end : {QV_LOG_PLAIN, "\n"}) {
        if (takeSuffix(&format, end)) {
            takeSuffix(&body.text, end);
        }
    }
    return body;
}

void appendEscaped(const char* begin, const char* end, std::string* out) {
    for (; begin != end; ++begin) {
        char escaped[5];
        snprintf(escaped, sizeof(escaped), "\\x%02x", static_cast<unsigned char>(*begin));
        *out += escaped;
    }
}

// Includes line separators and the characters that set the direction of text.
bool isControl(uint32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7f && codePoint < 0xa0) || codePoint == 0x200e ||
           codePoint == 0x200f || (codePoint >= 0x2028 && codePoint <= 0x202e) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

void appendPrintable(std::string_view text, std::string* out) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        const char* const valid = utf8::find_invalid(at, end);
        while (at != valid) {
            const char* const begin = at;
            if (isControl(utf8::unchecked::next(at))) {
                appendEscaped(begin, at, out);
            } else {
                out->append(begin, at);
            }
        }
        if (at != end) {
            appendEscaped(at, at + 1, out);
            ++at;
        }
    }
}

std::string levelName(int level) {
    switch (level) {
        case QV_LOG_ERROR:
            return "error";
        case QV_LOG_NOTICE:
            return "notice";
        case QV_LOG_INFO:
            return "info";
        default:
            return "level " + std::to_string(level);
    }
}

void writeToStandardError(const QVLogRecord& record) {
    const std::string line = qv_log_line(record, isatty(STDERR_FILENO) != 0) + '\n';
    fwrite(line.data(), 1, line.size(), stderr);
}

SharedSink shared(QVLogSink sink) {
    return sink ? std::make_shared<const QVLogSink>(std::move(sink)) : nullptr;
}

SharedSink sharedSink() {
    const std::lock_guard<std::mutex> lock(sink_mutex);
    return current_sink;
}

// Replaces the sink and returns the previous one.
SharedSink exchangeSink(SharedSink sink) {
    const std::lock_guard<std::mutex> lock(sink_mutex);
    current_sink.swap(sink);
    return sink;
}

// Returns the format with its arguments filled in; the plain format if that
// fails.
QV_PRINTF_FORMAT(1, 0)
std::string formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    char text[512];
    const int length = vsnprintf(text, sizeof(text), format, arguments);
    std::string message;
    if (length >= static_cast<int>(sizeof(text))) {
        message.resize(static_cast<size_t>(length));
        vsnprintf(message.data(), message.size() + 1, format, again);
    } else {
        message = length >= 0 ? text : format;
    }
    va_end(again);
    return message;
}

// Does what vsnprintf does for the format "%s".
int copyText(char* buffer, size_t size, const char* text) {
    const size_t length = strlen(text);
    if (size != 0) {
        const size_t copied = std::min(length, size - 1);
        memcpy(buffer, text, copied);
        buffer[copied] = '\0';
    }
    return static_cast<int>(length);
}

int asciiLower(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    return code >= 'A' && code <= 'Z' ? code + ('a' - 'A') : code;
}

bool passes(int level) {
    return level <= passing_level.load(std::memory_order_relaxed);
}

// Calls va_end, also if a sink throws.
struct EndOfArguments {
    va_list& arguments;
    ~EndOfArguments() { va_end(arguments); }
};

// Passes a record that the filter lets through to the sink. Not inlined, so that
// a filtered record costs nothing more than the comparison.
[[gnu::noinline]] QV_PRINTF_FORMAT(1, 0) int emitRecord(const char* format,
                                                        va_list arguments,
                                                        QVLogRecord record) {
    const std::string message = formatted(format, arguments);
    record.message = message.c_str();
    if (const auto sink = sharedSink()) {
        (*sink)(record);
    } else {
        writeToStandardError(record);
    }
    return 0;
}

}  // namespace

int qv_log(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) {
    if (!passes(level)) {
        return 0;
    }
    va_list arguments;
    va_start(arguments, line);
    const EndOfArguments end = {arguments};
    return emitRecord(format, arguments, {module, level, tag, format, function, line, nullptr});
}

int qv_err(uint32_t module,
           int level,
           const char* tag,
           const char* format,
           const char* function,
           int line,
           ...) {
    if (!passes(level)) {
        return 0;
    }
    va_list arguments;
    va_start(arguments, line);
    const EndOfArguments end = {arguments};
    return emitRecord(format, arguments, {module, level, tag, format, function, line, nullptr});
}

// The parser uses only the format "%s". Copying the string takes a tenth of the
// time of vsnprintf.
int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = strcmp(format, "%s") == 0
                           ? copyText(buffer, size, va_arg(arguments, const char*))
                           : vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

std::string util_to_string(int value) {
    return std::to_string(value);
}

// strcasecmp depends on the locale.
int util_strcasecmp(const char* a, const char* b) {
    while (*a != '\0' && asciiLower(*a) == asciiLower(*b)) {
        ++a;
        ++b;
    }
    return asciiLower(*a) - asciiLower(*b);
}

void* qv_memset(void* memory, int value, size_t size) {
    return memset(memory, value, size);
}

void qv_log_set_level(int level) {
    passing_level.store(level, std::memory_order_relaxed);
}

int qv_log_level() {
    return passing_level.load(std::memory_order_relaxed);
}

QVLogSink qv_log_set_sink(QVLogSink sink) {
    const auto previous = exchangeSink(shared(std::move(sink)));
    return previous ? *previous : QVLogSink();
}

bool qv_log_is_assertion(const QVLogRecord& record) {
    return strcmp(record.format, QV_ASSERT_FORMAT) == 0;
}

std::string qv_log_line(const QVLogRecord& record, bool colour) {
    const Body body = bodyOf(record);
    std::string line;
    appendPrintable(record.tag, &line);
    line += ' ' + levelName(record.level) + ' ';
    appendPrintable(record.function, &line);
    line += ':' + std::to_string(record.line) + ": ";
    appendPrintable(body.text, &line);
    if (!colour || body.colour.empty()) {
        return line;
    }
    return std::string(body.colour) + line + QV_LOG_PLAIN;
}

QVLogScope::QVLogScope(int level, QVLogSink sink)
    : mLevel(qv_log_level()), mSink(exchangeSink(shared(std::move(sink)))) {
    qv_log_set_level(level);
}

QVLogScope::~QVLogScope() {
    qv_log_set_level(mLevel);
    exchangeSink(std::move(mSink));
}
