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

#include "cli/descriptor.h"

namespace qvgraph {

namespace {

using Clock = std::chrono::steady_clock;
using End = ChildResult::End;

// The intervals at which the parent checks whether the child has ended: a child can
// end while other processes hold its streams open, and can continue after it has
// closed them.
const int INTERVAL_MS = 50;
const int INTERVAL_WITHOUT_STREAMS_MS = 2;

const int NOT_RUN = 127;  // exit code of a child that cannot run the program

struct Pipe {
    Descriptor reading;
    Descriptor writing;
};

Pipe openPipe() {
    int pair[2];
    checked(pipe2(pair, O_CLOEXEC), "pipe2");
    return {Descriptor(pair[0]), Descriptor(pair[1])};
}

// An unnamed file with this content. Unlike a pipe, a file needs no writer while the
// child runs, and the child need not read all of it.
Descriptor fileWith(const std::string& text) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(tmpfile(), fclose);
    if (!file || fwrite(text.data(), 1, text.size(), file.get()) != text.size() ||
        fflush(file.get()) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot write a temporary file");
    }
    rewind(file.get());
    return Descriptor(
        checked(fcntl(fileno(file.get()), F_DUPFD_CLOEXEC, STDERR_FILENO + 1), "fcntl"));
}

// Everything that the new process needs, allocated before the fork: after it, only
// async-signal-safe functions may be called.
struct Launch {
    explicit Launch(const ChildRequest& request)
        : words(request.command), in(fileWith(request.input)) {
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
    }

    // Returns only if the program cannot be run.
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
    Pipe failure = openPipe();  // closed when the program runs; otherwise carries errno
};

[[noreturn]] void giveUp(const Descriptor& failure, int error) {
    while (write(failure.number(), &error, sizeof(error)) < 0 && errno == EINTR) {
    }
    _exit(NOT_RUN);
}

// Reads what is available; closes the descriptor at the end of the stream.
void readSome(Descriptor* from, std::string* text) {
    char chunk[65536];
    const ssize_t size = read(from->number(), chunk, sizeof(chunk));
    if (size > 0) {
        text->append(chunk, static_cast<size_t>(size));
    } else if (size == 0 || (errno != EINTR)) {
        from->close();
    }
}

// A running child. The destructor kills it if it still runs, and leaves no zombie.
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
        while (!hasEnded() && !hasWrittenOutputLimit()) {
            const auto elapsed =
                std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
            if (elapsed >= mRequest.timeLimit) {
                return endedAs(End::TimedOut, 0);
            }
            if (mRequest.onWait) {
                mRequest.onWait(elapsed);
            }
            exchange(mOut.isOpen() || mErr.isOpen() ? INTERVAL_MS : INTERVAL_WITHOUT_STREAMS_MS);
        }
        if (hasWrittenOutputLimit()) {
            return endedAs(End::OutputLimit, 0);
        }
        return WIFEXITED(*mStatus) ? endedAs(End::Exited, WEXITSTATUS(*mStatus))
                                   : endedAs(End::Signalled, WTERMSIG(*mStatus));
    }

private:
    // Also reads what the child wrote last. Its streams may stay open, in a process
    // that it has started.
    bool hasEnded() {
        int status = 0;
        if (!mStatus && waitpid(mId, &status, WNOHANG) == mId) {
            mStatus = status;
            while (!hasWrittenOutputLimit() && exchange(0)) {
            }
        }
        return mStatus.has_value();
    }

    bool hasWrittenOutputLimit() const {
        return mResult.out.size() + mResult.err.size() > mRequest.maxOutput;
    }

    // Waits for output and reads it. Returns whether there was any.
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
