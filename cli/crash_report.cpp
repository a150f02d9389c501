#include "cli/crash_report.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>

#include "render/text.h"
#include "survey/survey.h"

namespace qvgraph {

namespace {

struct Crash {
    int signal;
    const char* name;
};

const Crash CRASHES[] = {{SIGSEGV, "segmentation fault"},
                         {SIGBUS, "bus error"},
                         {SIGFPE, "arithmetic error"},
                         {SIGILL, "illegal instruction"},
                         {SIGABRT, "aborted"}};

std::string prefix;  // of the message, up to the class

// The handler has its own stack, because a class may have exhausted the normal one.
std::array<char, 65536> handlerStack;

// A line in a buffer of fixed size: a signal handler must not allocate. Text that does
// not fit is dropped.
class Line {
public:
    void add(const char* text) {
        for (; *text != '\0'; ++text) {
            addByte(*text);
        }
    }

    // Writes bytes that are not printable ASCII as "\xNN".
    void addEscaped(const char* text) {
        const char* const digits = "0123456789abcdef";
        for (; *text != '\0'; ++text) {
            const auto byte = static_cast<unsigned char>(*text);
            if (byte >= 0x20 && byte < 0x7f) {
                addByte(*text);
            } else {
                add("\\x");
                addByte(digits[byte / 16]);
                addByte(digits[byte % 16]);
            }
        }
    }

    void addNumber(int number) {
        if (number < 0) {
            addByte('-');
        }
        std::array<char, 12> digits = {};  // filled from the end, before a NUL
        size_t at = digits.size() - 1;
        for (int rest = number; at == digits.size() - 1 || rest != 0; rest /= 10) {
            const int digit = rest % 10;
            digits[--at] = static_cast<char>('0' + (digit < 0 ? -digit : digit));
        }
        add(&digits[at]);
    }

    void write() const {
        // The handler cannot do anything about a failure.
        static_cast<void>(!::write(STDERR_FILENO, mBytes.data(), mSize));
    }

private:
    void addByte(char byte) {
        if (mSize < mBytes.size()) {
            mBytes[mSize++] = byte;
        }
    }

    std::array<char, 4096> mBytes = {};
    size_t mSize = 0;
};

const char* nameOf(int number) {
    for (const Crash& crash : CRASHES) {
        if (crash.signal == number) {
            return crash.name;
        }
    }
    return "";
}

// Raises the signal again with its default action. The signal is blocked until the
// handler returns, and then ends the process.
extern "C" void reportCrash(int number) {
    if (const NodeInSetUp* node = nodeInSetUp()) {
        Line line;
        line.add(prefix.c_str());
        line.addEscaped(node->className);
        line.add("' of pipe_");
        line.addNumber(node->pipe);
        line.add("/node_");
        line.addNumber(node->id);
        line.add(" crashed (");
        line.add(nameOf(number));
        line.add(")\n");
        line.write();
    }
    signal(number, SIG_DFL);
    raise(number);
}

void useHandlerStack() {
    stack_t stack = {};
    if (sigaltstack(nullptr, &stack) == 0 && (stack.ss_flags & SS_DISABLE) != 0) {
        stack.ss_sp = handlerStack.data();
        stack.ss_size = handlerStack.size();
        stack.ss_flags = 0;
        sigaltstack(&stack, nullptr);
    }
}

void handle(int number) {
    struct sigaction action = {};
    if (sigaction(number, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) {
        return;
    }
    action.sa_handler = reportCrash;
    action.sa_flags = SA_ONSTACK;
    sigaction(number, &action, nullptr);
}

}  // namespace

void reportCrashesIn(const std::string& file) {
    prefix = "qvgraph: " + printable(file) + ": class '";
    useHandlerStack();
    for (const Crash& crash : CRASHES) {
        handle(crash.signal);
    }
}

}  // namespace qvgraph
