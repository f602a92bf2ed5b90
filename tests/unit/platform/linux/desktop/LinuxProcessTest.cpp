#include "platform/linux/desktop/LinuxProcess.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;

class LinuxProcessTest : public testing::Test {
protected:
    LinuxProcessTest() {
        std::string name = (fs::temp_directory_path() / "tarragon-process-XXXXXX").string();
        _folder = mkdtemp(name.data());
    }
    ~LinuxProcessTest() override { fs::remove_all(_folder); }

    std::string file(const std::string& name) const { return (_folder / name).string(); }
    std::uint64_t residentSizeOf(const std::string& statistics) const {
        std::ofstream(file("statm")) << statistics;
        return LinuxProcess({}, file("statm")).residentSize();
    }

private:
    fs::path _folder;
};

TEST_F(LinuxProcessTest, KnowsHowMuchMemoryTheProgramOccupies) {
    LinuxProcess process;
    const std::uint64_t before = process.residentSize();
    EXPECT_GT(before, 1U << 20);
    constexpr std::size_t Grown = std::size_t{64} << 20;
    const std::vector<char> memory(Grown, 'x');
    EXPECT_GT(process.residentSize(), before + Grown / 2);
    EXPECT_EQ(memory.back(), 'x');
}

TEST_F(LinuxProcessTest, ReadsTheSizeInBytes) {
    const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    EXPECT_EQ(residentSizeOf("99999 43946 1200 300 0 5000 0\n"), 43946 * page);
}

TEST_F(LinuxProcessTest, HasNoSizeWhereTheSystemDoesNotTell) {
    EXPECT_EQ(LinuxProcess({}, file("missing")).residentSize(), 0U);
    EXPECT_EQ(residentSizeOf(""), 0U);
    EXPECT_EQ(residentSizeOf("5\n"), 0U);
    EXPECT_EQ(residentSizeOf("5 much\n"), 0U);
}

TEST_F(LinuxProcessTest, HandsPathAndProcessToAToolThatOutlivesIt) {
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    std::ofstream(file("tool")) << "#!/bin/sh\nwhile kill -0 \"$2\" 2>/dev/null; do sleep 0.01; done\n"
                                << "echo \"$# $1 $2\" >'" << file("pipe") << "'\n";
    fs::permissions(file("tool"), fs::perms::owner_all);
    const pid_t child = fork();
    if (child == 0)
        _exit(LinuxProcess(file("tool"), {}).relaunchAfterEnd("/opt/a program") ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    std::string line;
    std::ifstream stream(file("pipe"));
    std::getline(stream, line);
    EXPECT_EQ(line, "2 /opt/a program " + std::to_string(child));
}

TEST_F(LinuxProcessTest, TellsWhenThereIsNoTool) {
    EXPECT_FALSE(LinuxProcess(file("missing"), {}).relaunchAfterEnd("/bin/true"));
    EXPECT_FALSE(LinuxProcess({}, {}).relaunchAfterEnd("/bin/true"));
}

} // namespace
} // namespace tarragon
