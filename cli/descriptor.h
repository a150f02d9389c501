// A file descriptor that is closed at the end of its scope.
#ifndef QVGRAPH_CLI_DESCRIPTOR_H_
#define QVGRAPH_CLI_DESCRIPTOR_H_

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace qvgraph {

// Returns the result of a system call. Throws std::system_error, with `what` in
// its message, if the call has failed.
inline int checked(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return result;
}

// Owns an open file descriptor, or none. Its number is never that of a standard
// stream, because a child process uses those numbers for its own streams.
class Descriptor {
public:
    Descriptor() = default;

    // Takes ownership of `number`; a negative number means none. If it is that of
    // a standard stream, duplicates it to another number. Throws std::system_error if
    // there is none left.
    explicit Descriptor(int number) : mNumber(number) {
        if (number >= 0 && number <= STDERR_FILENO) {
            mNumber = fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
            const int error = errno;
            ::close(number);
            errno = error;
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
    int number() const { return mNumber; }  // -1 if there is none
    bool isOpen() const { return mNumber >= 0; }

private:
    int mNumber = -1;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_DESCRIPTOR_H_
