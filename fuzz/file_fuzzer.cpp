// A file of any bytes loads as its text does, up to the first NUL.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "fuzz/harness.h"
#include "graph/qv_graph_parser.h"

namespace {

// A file in memory, with a path.
class MemoryFile {
public:
    MemoryFile(const uint8_t* data, size_t size)
        : descriptor(memfd_create("configuration", MFD_CLOEXEC)) {
        require(descriptor >= 0 && write(descriptor, data, size) == static_cast<ssize_t>(size),
                "the file in memory cannot be written");
    }
    ~MemoryFile() { close(descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    const int descriptor;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const FuzzLog log;
    const std::string text(data, data + size);
    QVGraphParser ofText;
    const int expected = ofText.parseConfigText(text.c_str());

    const MemoryFile file(data, size);
    QVGraphParser parser;
    require(parser.parseConfigText("{\"pipe_0\": {}}") == 0, "the first document does not load");
    require(parser.parseConfigFile(file.path().c_str()) == expected,
            "the result differs from that of the text");
    require(parser.root() == ofText.root(), "the document differs from that of the text");

    // The same bytes as a path open no file and leave the document unchanged.
    const int missing = parser.parseConfigFile(("/proc/self/fd/-/" + text).c_str());
    require(missing == -5, "a path without a file does not return -5");
    require(parser.root() == ofText.root(), "a file that does not open changes the document");
    require(parser.saveConfig(text.c_str()) == -10, "saveConfig does not return -10");

    // A path without a usable size reads as empty.
    require(parser.parseConfigFile("/") == -1 && parser.root().is_null(),
            "a folder does not read as empty");
    require(parser.parseConfigText(nullptr) == -1, "a null text does not return -1");
    return 0;
}
