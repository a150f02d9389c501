// Input that is not an ordinary file or has an unusual name. A command that does not end
// within a minute is killed, and its test fails.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "tests/cli/command_test.h"

namespace {

namespace fs = std::filesystem;

class SpecialInputTest : public CommandTest {};

TEST_F(SpecialInputTest, DevicesAreReadUpToTheLimit) {
    AssertFails({"inspect", "/dev/full"}, "cannot read /dev/full: it is larger than 256 MiB");
    request.in = {ProcessStream::Kind::File, "/dev/zero"};
    AssertFails({"inspect", "-"}, "cannot read <stdin>: it is larger than 256 MiB");
}

TEST_F(SpecialInputTest, AFileOfThreeGibibytesIsTooLarge) {
    folder.write("large.json", READY);
    std::error_code error;
    fs::resize_file(folder.path("large.json"), std::uintmax_t{3} << 30, error);
    if (error) {
        GTEST_SKIP() << "a file of that size cannot be created here";
    }
    AssertFails({"inspect", "large.json"}, "cannot read large.json: it is larger than 256 MiB");
}

TEST_F(SpecialInputTest, AProcFileWithoutASizeIsRead) {
    const std::string path = "/proc/sys/kernel/random/entropy_avail";
    if (!std::ifstream(path)) {
        GTEST_SKIP() << path << " does not exist here";
    }
    AssertRuns({"inspect", path}, 0, path + ": 0 pipes, no nodes\n", "");
}

TEST_F(SpecialInputTest, ANameOfFourThousandBytesIsTooLong) {
    const std::string name(4096, 'n');
    AssertFails({"inspect", name}, "cannot read " + name + ": File name too long");
}

TEST_F(SpecialInputTest, ANameNeedNotBeUtf8) {
    std::ofstream file(folder.path("\xff\x80.json"));
    if (!(file << READY << std::flush)) {
        GTEST_SKIP() << "such names are not allowed here";
    }
    AssertRuns({"inspect", "\xff\x80.json"}, 0, std::string("\ufffd\ufffd.json") + READY_TEXT, "");
}

}  // namespace
