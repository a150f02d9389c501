// A file of any bytes: loads as its text does, up to the first NUL.
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
                "a file of the fuzzer's own");
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
    require(parser.parseConfigText("{\"pipe_0\": {}}") == 0, "a document to be replaced");
    require(parser.parseConfigFile(file.path().c_str()) == expected, "the result of a load");
    require(parser.root() == ofText.root(), "the document");

    // The same bytes as a path lead nowhere, and leave the document.
    const int missing = parser.parseConfigFile(("/proc/self/fd/-/" + text).c_str());
    require(missing == -5, "a path that leads nowhere");
    require(parser.root() == ofText.root(), "the document that was there");
    require(parser.saveConfig(text.c_str()) == -10, "a configuration that is not written");

    // What has no size of its own reads as empty.
    require(parser.parseConfigFile("/") == -1 && parser.root().is_null(), "a folder");
    require(parser.parseConfigText(nullptr) == -1, "a null text");
    return 0;
}
