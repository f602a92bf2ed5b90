#include "platform/linux/desktop/LinuxProcess.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status = -1; // exit status; -1 when it did not exit by itself
    std::string errors;
};

// The program that is started writes its own process identifier and arguments into a pipe.
class RelaunchTest : public testing::Test {
protected:
    RelaunchTest() {
        std::string name = (fs::temp_directory_path() / "tarragon-relaunch-XXXXXX").string();
        _folder = mkdtemp(name.data());
        mkfifo(pipe().c_str(), 0600);
        program = (_folder / "a program").string();
        std::ofstream(program) << "#!/bin/sh\necho \"started $#\" >'" << pipe() << "'\n";
        fs::permissions(program, fs::perms::owner_all);
    }
    ~RelaunchTest() override { fs::remove_all(_folder); }

    std::string pipe() const { return (_folder / "pipe").string(); }
    std::string file(const std::string& name) const { return (_folder / name).string(); }

    // Starts the tool; its errors go to a file.
    pid_t start(const std::vector<std::string>& arguments) {
        std::vector<std::string> command{TARRAGON_RELAUNCH};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const pid_t child = fork();
        if (child == 0) {
            std::vector<char*> pointers;
            for (std::string& argument : command)
                pointers.push_back(argument.data());
            pointers.push_back(nullptr);
            dup2(open(file("errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            execv(pointers.front(), pointers.data());
            _exit(127);
        }
        return child;
    }
    Outcome run(const std::vector<std::string>& arguments) {
        int status = 0;
        waitpid(start(arguments), &status, 0);
        std::ifstream errors(file("errors"));
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, {std::istreambuf_iterator<char>(errors), {}}};
    }
    // Waits for the program to be started and answers what it writes.
    std::string started() {
        std::string line;
        std::ifstream stream(pipe());
        std::getline(stream, line);
        return line;
    }
    // Nobody has opened the pipe to write.
    bool nothingIsStarted() {
        const int descriptor = open(pipe().c_str(), O_RDONLY | O_NONBLOCK);
        char byte = 0;
        const ssize_t count = read(descriptor, &byte, 1);
        close(descriptor);
        return count == 0;
    }
    static pid_t startSleeper() {
        const pid_t child = fork();
        if (child == 0) {
            pause();
            _exit(0);
        }
        return child;
    }

    std::string program;

private:
    fs::path _folder;
};

TEST_F(RelaunchTest, StartsTheProgramOnceTheProcessHasEnded) {
    const pid_t sleeper = startSleeper();
    const pid_t tool = start({program, std::to_string(sleeper)});
    // The tool has taken hold of the process.
    const auto isWaiting = [&] {
        std::error_code error;
        for (const auto& entry : fs::directory_iterator("/proc/" + std::to_string(tool) + "/fd", error)) {
            if (fs::read_symlink(entry.path(), error).string().find("pidfd") != std::string::npos)
                return true;
        }
        return false;
    };
    while (!isWaiting() && waitpid(tool, nullptr, WNOHANG) == 0)
        usleep(1000);
    EXPECT_TRUE(nothingIsStarted());
    kill(sleeper, SIGKILL);
    // An ended process that nobody has asked for yet has ended all the same.
    EXPECT_EQ(started(), "started 0");
    waitpid(sleeper, nullptr, 0);
    int status = 0;
    waitpid(tool, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(RelaunchTest, StartsTheProgramAtOnceWhenTheProcessIsGone) {
    const pid_t sleeper = startSleeper();
    kill(sleeper, SIGKILL);
    waitpid(sleeper, nullptr, 0);
    const pid_t tool = start({program, std::to_string(sleeper)});
    EXPECT_EQ(started(), "started 0");
    waitpid(tool, nullptr, 0);
}

// The way from the seam through the tool to the program.
TEST_F(RelaunchTest, StartsTheProgramInTheEnvironmentOfTheOneThatEnds) {
    std::ofstream(program) << "#!/bin/sh\necho \"$# $TARRAGON_TEST_WORDS $(pwd)\" >'" << pipe() << "'\n";
    const std::string folder = fs::path(program).parent_path();
    const pid_t ending = fork();
    if (ending == 0) {
        setenv("TARRAGON_TEST_WORDS", "two  words", 1);
        const bool isStarted = chdir(folder.c_str()) == 0
            && LinuxProcess(TARRAGON_RELAUNCH, "/proc/self/status").relaunchAfterEnd(program);
        _exit(isStarted ? 0 : 1);
    }
    int status = 0;
    waitpid(ending, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(started(), "0 two  words " + folder);
}

TEST_F(RelaunchTest, TellsHowItIsUsed) {
    for (const std::vector<std::string>& arguments :
        std::vector<std::vector<std::string>>{{}, {program}, {program, "1", "2"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(outcome.errors.starts_with("Usage: ")) << outcome.errors;
    }
}

TEST_F(RelaunchTest, RefusesWhatIsNoProcessIdentifier) {
    for (const std::string text : {"", "0", "-1", "12x", "x", " 1", "99999999999999"}) {
        const Outcome outcome = run({program, text});
        EXPECT_EQ(outcome.status, 1) << text;
        EXPECT_EQ(outcome.errors, "tarragon-relaunch: not a process identifier: " + text + "\n");
    }
    EXPECT_TRUE(nothingIsStarted());
}

TEST_F(RelaunchTest, TellsAtOnceThatThereIsNoSuchProgram) {
    const Outcome outcome = run({file("missing"), std::to_string(getpid())});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "tarragon-relaunch: " + file("missing") + ": No such file or directory\n");
}

TEST_F(RelaunchTest, TellsThatTheProgramCannotBeRun) {
    std::ofstream(file("damaged")) << "\x7f"
                                      "ELF nonsense";
    fs::permissions(file("damaged"), fs::perms::owner_all);
    const pid_t sleeper = startSleeper();
    kill(sleeper, SIGKILL);
    waitpid(sleeper, nullptr, 0);
    const Outcome outcome = run({file("damaged"), std::to_string(sleeper)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "tarragon-relaunch: " + file("damaged") + ": Exec format error\n");
}

} // namespace
} // namespace tarragon
