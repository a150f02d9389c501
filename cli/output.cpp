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

// Writes all of the text to a descriptor. Returns 0 or an errno value.
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

// The permissions of an existing file, or those of a new one.
mode_t modeOf(const fs::path& path) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        return status.st_mode & 07777;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The target of a chain of symbolic links; any other path unchanged.
fs::path followLinks(fs::path path) {
    const int maxLinks = 40;
    std::error_code ignored;
    for (int i = 0; i < maxLinks && fs::is_symlink(path, ignored); ++i) {
        path = path.parent_path() / fs::read_symlink(path, ignored);
    }
    return path;
}

// Writes a new file next to the target and renames it to the target. Returns 0 or an
// errno value.
int replaceFile(const fs::path& target, const std::string& report) {
    std::error_code ignored;
    if (fs::exists(target, ignored) && access(target.c_str(), W_OK) != 0) {
        return errno;
    }
    std::string temporary = (target.parent_path() / ".qvgraph.XXXXXX").string();
    const int descriptor = mkstemp(temporary.data());
    if (descriptor < 0) {
        return errno;
    }
    int error = writeAll(descriptor, report);
    if (error == 0 && fchmod(descriptor, modeOf(target)) != 0) {
        error = errno;
    }
    if (close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(temporary.c_str());
    }
    return error;
}

// Writes to a device or pipe directly. Returns 0 or an errno value.
int writeInPlace(const std::string& path, const std::string& report) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return errno;
    }
    const int error = writeAll(descriptor, report);
    close(descriptor);
    return error;
}

// Keeps a symbolic link, and replaces the file that it points to. Returns 0 or an errno
// value.
int writeFile(const std::string& path, const std::string& report) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return writeInPlace(path, report);
    }
    const fs::path target = followLinks(path);
    return fs::is_symlink(target, ignored) ? ELOOP : replaceFile(target, report);
}

}  // namespace

bool isStandardOutput(const std::string& path) {
    return path.empty() || path == "-";
}

bool isSameFile(const std::string& other, const std::string& path) {
    std::error_code ignored;
    return !isStandardOutput(path) && fs::is_regular_file(path, ignored) &&
           fs::equivalent(other, path, ignored);
}

void writeOutput(const std::string& path, const std::string& report) {
    const bool standard = isStandardOutput(path);
    const int error = standard ? writeAll(STDOUT_FILENO, report) : writeFile(path, report);
    if (error != 0) {
        throw FileError("cannot write " + (standard ? "standard output" : path) + ": " +
                        strerror(error));
    }
}

}  // namespace qvgraph
