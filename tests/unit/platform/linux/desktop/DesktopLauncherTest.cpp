#include "platform/linux/desktop/DesktopLauncher.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

class DesktopLauncherTest : public testing::Test {
protected:
    DesktopLauncherTest() {
        std::string name = (std::filesystem::temp_directory_path() / "desktop-launcher-XXXXXX").string();
        _folder = mkdtemp(name.data());
    }
    ~DesktopLauncherTest() override { std::filesystem::remove_all(_folder); }

    std::filesystem::path _folder;
};

} // namespace

TEST_F(DesktopLauncherTest, StartsAProgramThatIsNoChildOfOurs) {
    const std::string pipe = (_folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    ASSERT_TRUE(startDetached({"sh", "-c", "echo \"$1 $(cut -d' ' -f4 /proc/$$/stat)\" >\"$0\"", pipe, "two words"}));
    // Opening waits for the program to write.
    std::string line;
    std::ifstream stream(pipe);
    std::getline(stream, line);
    EXPECT_TRUE(line.starts_with("two words ")) << line;
    EXPECT_NE(line, "two words " + std::to_string(getpid()));
    // Neither the program nor what started it is left to be waited for.
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(DesktopLauncherTest, AnswersFalseWhenThereIsNoSuchProgram) {
    EXPECT_FALSE(startDetached({}));
    EXPECT_FALSE(startDetached({""}));
    EXPECT_FALSE(startDetached({"no-such-program-anywhere"}));
    EXPECT_FALSE(startDetached({(_folder / "missing").string()}));
}

TEST_F(DesktopLauncherTest, AnswersFalseForAFileThatCannotBeRun) {
    const std::filesystem::path damaged = _folder / "damaged";
    std::ofstream(damaged) << "\x7f"
                              "ELF nonsense";
    std::filesystem::permissions(damaged, std::filesystem::perms::owner_all);
    EXPECT_FALSE(startDetached({damaged.string()}));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

} // namespace tarragon
