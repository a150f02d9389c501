#include "cli/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

namespace qvgraph {

namespace {

using Clock = std::chrono::steady_clock;
using End = ChildResult::End;

// How long it is before one looks again whether the child has ended: it may do
// so with its streams open, and go on for long after closing them.
const int SLICE_MS = 50;
const int LAST_SLICE_MS = 2;

const int NOT_RUN = 127;  // exit code of a child that cannot become the program

int checked(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return result;
}

// An open file descriptor, none of the standard ones: those are what the child
// gets its own as.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : mNumber(number) {
        if (number <= STDERR_FILENO) {
            mNumber = fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
            ::close(number);
            checked(mNumber, "fcntl");
        }
    }
    Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(mNumber, other.mNumber);
        return *this;
    }
    ~Descriptor() { close(); }

    void close() {
        if (mNumber >= 0) {
            ::close(std::exchange(mNumber, -1));
        }
    }
    int number() const { return mNumber; }
    bool isOpen() const { return mNumber >= 0; }

private:
    int mNumber = -1;
};

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

Pipe openPipe() {
    int pair[2];
    checked(pipe2(pair, O_CLOEXEC), "pipe2");
    return {Descriptor(pair[0]), Descriptor(pair[1])};
}

// A file without a name that holds a text. Unlike a pipe it takes all at once:
// there is nothing to write while the child is read from, and nobody to stop
// reading.
Descriptor fileOf(const std::string& text) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(tmpfile(), fclose);
    if (!file || fwrite(text.data(), 1, text.size(), file.get()) != text.size() ||
        fflush(file.get()) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot write a temporary file");
    }
    rewind(file.get());
    return Descriptor(
        checked(fcntl(fileno(file.get()), F_DUPFD_CLOEXEC, STDERR_FILENO + 1), "fcntl"));
}

// What the new process becomes the program with, made before there is one:
// behind the fork only plain system calls are safe.
struct Launch {
    explicit Launch(const ChildRequest& request)
        : words(request.command), in(fileOf(request.input)) {
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
    }

    // Returns only where the program cannot be run.
    void becomeProgram() const {
        dup2(in.number(), STDIN_FILENO);
        dup2(out.writing.number(), STDOUT_FILENO);
        dup2(err.writing.number(), STDERR_FILENO);
        signal(SIGPIPE, SIG_DFL);
        execvp(arguments[0], arguments.data());
    }

    std::vector<std::string> words;
    std::vector<char*> arguments;
    Descriptor in;
    Pipe out = openPipe();
    Pipe err = openPipe();
    Pipe failure = openPipe();  // closed by a program that runs; else tells why not
};

[[noreturn]] void giveUp(const Descriptor& failure, int error) {
    while (write(failure.number(), &error, sizeof(error)) < 0 && errno == EINTR) {
    }
    _exit(NOT_RUN);
}

// Takes what is there; closes at the end.
void readSome(Descriptor* from, std::string* text) {
    char chunk[65536];
    const ssize_t size = read(from->number(), chunk, sizeof(chunk));
    if (size > 0) {
        text->append(chunk, static_cast<size_t>(size));
    } else if (size == 0 || (errno != EINTR)) {
        from->close();
    }
}

// A running child. At the end of its scope there is none, and no zombie.
class Child {
public:
    Child(pid_t id, Descriptor out, Descriptor err, const ChildRequest& request)
        : mId(id), mOut(std::move(out)), mErr(std::move(err)), mRequest(request) {}
    ~Child() {
        if (!mStatus) {
            kill(mId, SIGKILL);
            while (waitpid(mId, nullptr, 0) < 0 && errno == EINTR) {
            }
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    ChildResult runToEnd() {
        const auto start = Clock::now();
        while (!hasEnded() && !hasWrittenTooMuch()) {
            const auto elapsed =
                std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
            if (elapsed >= mRequest.timeLimit) {
                return endedAs(End::TooLate, 0);
            }
            if (mRequest.waiting) {
                mRequest.waiting(elapsed);
            }
            exchange(mOut.isOpen() || mErr.isOpen() ? SLICE_MS : LAST_SLICE_MS);
        }
        if (hasWrittenTooMuch()) {
            return endedAs(End::TooMuch, 0);
        }
        return WIFEXITED(*mStatus) ? endedAs(End::Exited, WEXITSTATUS(*mStatus))
                                   : endedAs(End::Signalled, WTERMSIG(*mStatus));
    }

private:
    // Also takes what it wrote at last: who still holds its streams may be a
    // child of its own, which nobody waits for.
    bool hasEnded() {
        int status = 0;
        if (!mStatus && waitpid(mId, &status, WNOHANG) == mId) {
            mStatus = status;
            while (!hasWrittenTooMuch() && exchange(0)) {
            }
        }
        return mStatus.has_value();
    }

    bool hasWrittenTooMuch() const {
        return mResult.out.size() + mResult.err.size() > mRequest.mostOutput;
    }

    // Waits for output and takes it. Tells whether there was some.
    bool exchange(int milliseconds) {
        pollfd waiting[] = {{mOut.number(), POLLIN, 0}, {mErr.number(), POLLIN, 0}};
        if (poll(waiting, 2, milliseconds) <= 0) {
            return false;
        }
        if (waiting[0].revents != 0) {
            readSome(&mOut, &mResult.out);
        }
        if (waiting[1].revents != 0) {
            readSome(&mErr, &mResult.err);
        }
        return true;
    }

    ChildResult endedAs(End end, int code) {
        mResult.end = end;
        mResult.code = code;
        return std::move(mResult);
    }

    pid_t mId;
    Descriptor mOut;
    Descriptor mErr;
    const ChildRequest& mRequest;
    std::optional<int> mStatus;
    ChildResult mResult;
};

}  // namespace

ChildResult runChild(const ChildRequest& request) {
    Launch launch(request);
    const pid_t id = checked(fork(), "fork");
    if (id == 0) {
        launch.becomeProgram();
        giveUp(launch.failure.writing, errno);
    }
    launch.out.writing.close();
    launch.err.writing.close();
    launch.failure.writing.close();
    Child child(id, std::move(launch.out.reading), std::move(launch.err.reading), request);
    int error = 0;
    if (read(launch.failure.reading.number(), &error, sizeof(error)) == sizeof(error)) {
        ChildResult result;
        result.code = error;
        return result;
    }
    return child.runToEnd();
}

}  // namespace qvgraph
