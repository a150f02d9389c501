#include "tests/support/process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <map>
#include <utility>

#include "cli/descriptor.h"

namespace {

using qvgraph::checked;
using qvgraph::Descriptor;
using Kind = ProcessStream::Kind;

const unsigned SECONDS_TO_RUN = 60;

// The two ends of a standard stream.
struct Ends {
    Descriptor program;
    Descriptor test;
};

Ends openPipe(bool programReads) {
    int pair[2];
    checked(pipe2(pair, O_CLOEXEC), "pipe2");
    Descriptor reading(pair[0]);
    Descriptor writing(pair[1]);
    return programReads ? Ends{std::move(reading), std::move(writing)}
                        : Ends{std::move(writing), std::move(reading)};
}

// Opens a pseudo-terminal that passes every byte on unchanged.
Ends openTerminal() {
    Ends ends;
    ends.test = Descriptor(checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt"));
    checked(grantpt(ends.test.number()), "grantpt");
    checked(unlockpt(ends.test.number()), "unlockpt");
    const char* name = ptsname(ends.test.number());
    ends.program = Descriptor(
        checked(open(name != nullptr ? name : "", O_RDWR | O_NOCTTY | O_CLOEXEC), "the terminal"));
    termios settings = {};
    checked(tcgetattr(ends.program.number(), &settings), "tcgetattr");
    cfmakeraw(&settings);
    checked(tcsetattr(ends.program.number(), TCSANOW, &settings), "tcsetattr");
    return ends;
}

Ends openStream(const ProcessStream& stream, bool programReads) {
    switch (stream.kind) {
        case Kind::Pipe:
            return openPipe(programReads);
        case Kind::Terminal:
            return openTerminal();
        case Kind::File: {
            const int flags = (programReads ? O_RDONLY : O_WRONLY) | O_CLOEXEC;
            return {Descriptor(checked(open(stream.path.c_str(), flags), "open")), Descriptor()};
        }
        case Kind::Closed:
            break;
    }
    return {};
}

std::vector<std::string> environmentOf(const ProcessRequest& request) {
    std::map<std::string, std::string> variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        variables[text.substr(0, text.find('='))] = text;
    }
    for (const std::string& name : request.withoutEnvironment) {
        variables.erase(name);
    }
    for (const std::string& text : request.environment) {
        variables[text.substr(0, text.find('='))] = text;
    }
    std::vector<std::string> texts;
    texts.reserve(variables.size());
    for (const auto& variable : variables) {
        texts.push_back(variable.second);
    }
    return texts;
}

std::vector<char*> pointersTo(std::vector<std::string>* texts) {
    std::vector<char*> pointers;
    for (std::string& text : *texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

void limit(__rlimit_resource resource, unsigned long maximum) {
    if (maximum > 0) {
        const rlimit value = {maximum, maximum};
        setrlimit(resource, &value);
    }
}

// Makes the descriptor the standard stream `stream`; without a descriptor, closes
// that stream.
void useAs(int stream, const Descriptor& descriptor) {
    if (descriptor.isOpen()) {
        dup2(descriptor.number(), stream);
    } else {
        close(stream);
    }
}

// Everything that the new process needs, allocated before the fork: after it, only
// async-signal-safe functions may be called.
struct Launch {
    explicit Launch(const ProcessRequest& processRequest)
        : request(processRequest),
          command(request.command),
          environment(environmentOf(request)),
          arguments(pointersTo(&command)),
          variables(pointersTo(&environment)),
          in(openStream(request.in, true)),
          out(openStream(request.out, false)),
          err(openStream(request.err, false)) {}

    [[noreturn]] void becomeProgram() const {
        useAs(STDIN_FILENO, in.program);
        useAs(STDOUT_FILENO, out.program);
        useAs(STDERR_FILENO, err.program);
        if (!request.folder.empty() && chdir(request.folder.c_str()) != 0) {
            _exit(127);
        }
        signal(SIGPIPE, SIG_DFL);
        signal(SIGXFSZ, SIG_IGN);  // the write fails instead
        limit(RLIMIT_FSIZE, request.maxFileSize);
        limit(RLIMIT_AS, request.maxMemory);
        alarm(SECONDS_TO_RUN);
        execve(arguments[0], arguments.data(), variables.data());
        _exit(127);
    }

    const ProcessRequest& request;
    std::vector<std::string> command;
    std::vector<std::string> environment;
    std::vector<char*> arguments;
    std::vector<char*> variables;
    Ends in;
    Ends out;
    Ends err;
};

// Reads what is available. Reading from a terminal whose program has ended is an
// error, which is treated as the end.
void readSome(Descriptor* from, std::string* text) {
    char chunk[65536];
    const ssize_t size = read(from->number(), chunk, sizeof(chunk));
    if (size > 0) {
        text->append(chunk, static_cast<size_t>(size));
    } else {
        from->close();
    }
}

// Writes the rest of the text, or as much of it as fits. A program need not read
// its input.
void writeSome(Descriptor* to, const std::string& text, size_t* written) {
    const ssize_t size = write(to->number(), text.data() + *written, text.size() - *written);
    *written += size > 0 ? static_cast<size_t>(size) : 0;
    if ((size < 0 && errno != EAGAIN) || *written == text.size()) {
        to->close();
    }
}

// Writes and reads until the program has closed its outputs.
void exchange(Launch* launch, ProcessResult* result) {
    size_t written = 0;
    if (launch->in.test.isOpen()) {
        checked(fcntl(launch->in.test.number(), F_SETFL, O_NONBLOCK), "fcntl");
    }
    while (launch->out.test.isOpen() || launch->err.test.isOpen()) {
        // poll ignores negative descriptors.
        pollfd waiting[] = {{launch->in.test.number(), POLLOUT, 0},
                            {launch->out.test.number(), POLLIN, 0},
                            {launch->err.test.number(), POLLIN, 0}};
        checked(poll(waiting, 3, -1), "poll");
        if (waiting[0].revents != 0) {
            writeSome(&launch->in.test, launch->request.input, &written);
        }
        if (waiting[1].revents != 0) {
            readSome(&launch->out.test, &result->out);
        }
        if (waiting[2].revents != 0) {
            readSome(&launch->err.test, &result->err);
        }
    }
}

}  // namespace

ProcessResult runProcess(const ProcessRequest& request) {
    Launch launch(request);
    signal(SIGPIPE, SIG_IGN);
    const pid_t child = checked(fork(), "fork");
    if (child == 0) {
        launch.becomeProgram();
    }
    launch.in.program.close();
    launch.out.program.close();
    launch.err.program.close();

    ProcessResult result;
    exchange(&launch, &result);
    launch.in.test.close();
    int status = 0;
    checked(waitpid(child, &status, 0), "waitpid");
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return result;
}
