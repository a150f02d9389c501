// A folder for one test.
#ifndef QVGRAPH_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QVGRAPH_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

// The content of a file.
inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

// A new, empty folder. It is removed with its content at the end of its scope.
class TemporaryFolder {
public:
    TemporaryFolder()
        : mPath((std::filesystem::temp_directory_path() / "qvgraph-test-XXXXXX").string()) {
        if (mkdtemp(mPath.data()) == nullptr) {
            throw std::runtime_error("cannot create the folder " + mPath);
        }
        // Without symbolic links, as the system reports the path.
        mPath = std::filesystem::canonical(mPath).string();
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return mPath; }

    // The path of `name` in the folder; it need not exist.
    std::string path(const std::string& name) const { return mPath + '/' + name; }

    // Creates or overwrites a file, and returns its path.
    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream file(path(name), std::ios::binary);
        file << content;
        if (!file.flush()) {
            throw std::runtime_error("cannot write " + path(name));
        }
        return path(name);
    }

    std::string read(const std::string& name) const { return readFile(path(name)); }

    // The names of everything that is in the folder.
    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(mPath)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

private:
    std::string mPath;
};

#endif  // QVGRAPH_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
