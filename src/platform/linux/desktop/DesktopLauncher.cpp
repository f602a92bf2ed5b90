#include "platform/linux/desktop/DesktopLauncher.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace tarragon {

namespace {

// The program's full path; empty when it is not there.
std::string findProgram(const std::string& name) {
    if (name.find('/') != std::string::npos)
        return access(name.c_str(), X_OK) == 0 ? name : std::string();
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string candidate = (folder.empty() ? "." : folder) + "/" + name;
        if (access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return {};
}

// Runs in a copy of this process that has only one thread, so that nothing but system calls may be used.
[[noreturn]] void becomeProgram(const char* program, char* const* arguments, int failurePipe) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    setsid();
    // The second copy has no parent that would have to wait for its end.
    const pid_t child = fork();
    if (child > 0)
        _exit(0);
    if (child == 0) {
        const int nowhere = open("/dev/null", O_RDWR);
        if (nowhere >= 0)
            dup2(nowhere, STDIN_FILENO);
        execv(program, arguments);
    }
    const int failure = errno;
    [[maybe_unused]] const ssize_t written = write(failurePipe, &failure, sizeof(failure));
    _exit(1);
}

} // namespace

bool startDetached(const std::vector<std::string>& command) {
    if (command.empty())
        return false;
    const std::string program = findProgram(command.front());
    if (program.empty())
        return false;
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    // Closes by itself when the program starts; what can be read from it is the reason why it did not.
    std::array<int, 2> failurePipe = {};
    if (pipe2(failurePipe.data(), O_CLOEXEC) != 0)
        return false;
    const pid_t child = fork();
    if (child == 0)
        becomeProgram(program.c_str(), arguments.data(), failurePipe[1]);
    close(failurePipe[1]);
    bool started = child > 0;
    if (started) {
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
        int failure = 0;
        ssize_t count = 0;
        do {
            count = read(failurePipe[0], &failure, sizeof(failure));
        } while (count < 0 && errno == EINTR);
        started = count == 0;
    }
    close(failurePipe[0]);
    return started;
}

bool openURLDetached(const std::string& url) {
    // A text that begins with a dash would be taken for an option.
    if (url.empty() || url.starts_with('-'))
        return false;
    return startDetached({"xdg-open", url});
}

} // namespace tarragon
