// A file that cannot be read or written.
#ifndef QVGRAPH_CLI_FILE_ERROR_H_
#define QVGRAPH_CLI_FILE_ERROR_H_

#include <stdexcept>

namespace qvgraph {

// what() is a message for people: the file and the reason.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_FILE_ERROR_H_
