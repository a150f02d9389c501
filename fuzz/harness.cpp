#include "fuzz/harness.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <typeinfo>

namespace {

struct AssertionFailed {};

struct Counts {
    unsigned long calls = 0;
    unsigned long assertions = 0;
    unsigned long missingFormats = 0;

    ~Counts() {
        if (calls + assertions + missingFormats == 0) {
            return;  // the target does not call the parser
        }
        fprintf(
            stderr,
            "%lu calls returned; %lu would have aborted, %lu threw because of a missing format\n",
            calls,
            assertions,
            missingFormats);
    }
};

Counts counts;

void look(const QVLogRecord& record) {
    requireHarmless(qv_log_line(record, false));
    if (qv_log_is_assertion(record)) {
        throw AssertionFailed();
    }
}

}  // namespace

void require(bool condition, const char* what) {
    if (!condition) {
        fprintf(stderr, "fuzz target: %s\n", what);
        abort();
    }
}

void requireHarmless(const std::string& line) {
    unsigned before = 0;
    for (const char character : line) {
        const unsigned c = static_cast<unsigned char>(character);
        require(c >= 0x20 && c != 0x7f, "a line contains a control character");
        // U+0080 to U+009F, in UTF-8.
        require(before != 0xc2 || c >= 0xa0, "a line contains a C1 control character");
        before = c;
    }
}

FuzzLog::FuzzLog() : scope(QV_LOG_INFO, look) {}

void run(const std::function<void()>& call) {
    try {
        call();
        ++counts.calls;
    } catch (const AssertionFailed&) {
        ++counts.assertions;
    } catch (const std::logic_error& error) {
        require(typeid(error) == typeid(std::logic_error) &&
                    strcmp(error.what(), "basic_string::_M_construct null not valid") == 0,
                "the exception is not that of a missing format");
        ++counts.missingFormats;
    }
}
