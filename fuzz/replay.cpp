// Runs a fuzz target without a fuzzer, on files and on all files of folders:
//
//   text_corpus fuzz/corpus/text build/fuzz/findings/text-crash-...
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<std::string> filesAt(const std::string& path) {
    if (!fs::is_directory(path)) {
        return {path};
    }
    std::vector<std::string> files;
    for (const auto& entry : fs::directory_iterator(path)) {
        files.push_back(entry.path().string());
    }
    return files;
}

bool replay(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        fprintf(stderr, "cannot read %s\n", path.c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    const std::vector<uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::string& path : filesAt(argv[i])) {
            if (!replay(path)) {
                return 2;
            }
            ++replayed;
        }
    }
    printf("%d files\n", replayed);
    return replayed > 0 ? 0 : 2;
}
