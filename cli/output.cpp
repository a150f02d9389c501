#include "cli/output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "cli/file_error.h"

namespace qvgraph {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& name, int error) {
    throw FileError("cannot write " + name + ": " + strerror(error));
}

// Writes everything to a descriptor. Returns 0 or what went wrong.
int writeAll(int descriptor, const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(descriptor, text.data() + done, text.size() - done);
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        done += written > 0 ? static_cast<size_t>(written) : 0;
    }
    return 0;
}

// Devices and pipes are written to as they are.
void writeInPlace(const std::string& path, const std::string& report) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) {
        fail(path, errno);
    }
    const int error = writeAll(descriptor, report);
    close(descriptor);
    if (error != 0) {
        fail(path, error);
    }
}

// The permissions of a file that is replaced, or those of a new one.
mode_t modeOf(const fs::path& path) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        return status.st_mode & 07777;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// Writes a new file beside the old one and puts it in its place.
void replaceFile(const fs::path& path, const std::string& report) {
    std::string temporary = path.string() + ".XXXXXX";
    const int descriptor = mkstemp(temporary.data());
    if (descriptor < 0) {
        fail(path.string(), errno);
    }
    int error = writeAll(descriptor, report);
    if (error == 0 && fchmod(descriptor, modeOf(path)) != 0) {
        error = errno;
    }
    if (close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && rename(temporary.c_str(), path.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(temporary.c_str());
        fail(path.string(), error);
    }
}

}  // namespace

void writeOutput(const std::string& path, const std::string& report) {
    if (path.empty() || path == "-") {
        const int error = writeAll(STDOUT_FILENO, report);
        if (error != 0) {
            fail("standard output", error);
        }
        return;
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        writeInPlace(path, report);
        return;
    }
    // A symbolic link stays, and the file that it leads to is replaced.
    const fs::path target = fs::weakly_canonical(path, ignored);
    replaceFile(target.empty() ? fs::path(path) : target, report);
}

}  // namespace qvgraph
