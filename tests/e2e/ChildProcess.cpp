#include "ChildProcess.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarragon::e2e {

namespace {

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

// As programs are given their arguments, with a null pointer at the end.
std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (std::string& string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

[[noreturn]] void becomeProgram(const std::vector<char*>& arguments, const std::vector<char*>& variables,
    const char* outputFile, const char* errorFile, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
    setpgid(0, 0);
    int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
    int output = open(outputFile, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    int error = open(errorFile, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    execvpe(arguments[0], arguments.data(), variables.data());
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(
    const std::vector<std::string>& command, const Environment& environment, const std::filesystem::path& logFolder) {
    static std::atomic<int> count{0};
    std::string name = std::filesystem::path(command.at(0)).filename().string() + "-" + std::to_string(++count);
    _outputFile = logFolder / (name + ".out");
    _errorFile = logFolder / (name + ".err");

    // There at once for whoever reads along.
    std::ofstream(_outputFile).close();
    std::ofstream(_errorFile).close();

    std::vector<std::string> assignments;
    assignments.reserve(environment.size());
    for (const auto& [variable, value] : environment)
        assignments.emplace_back(variable).append("=").append(value);
    std::vector<std::string> words = command;
    std::vector<char*> variables = pointersTo(assignments);
    std::vector<char*> arguments = pointersTo(words);

    pid_t parent = getpid();
    _process = fork();
    if (_process < 0)
        throw std::runtime_error("cannot start " + command[0]);
    if (_process == 0)
        becomeProgram(arguments, variables, _outputFile.c_str(), _errorFile.c_str(), parent);
}

ChildProcess::~ChildProcess() {
    terminate();
}

bool ChildProcess::reap(bool block) {
    if (_status)
        return true;
    int status = 0;
    pid_t result = waitpid(_process, &status, block ? 0 : WNOHANG);
    if (result == 0)
        return false;
    if (result < 0)
        _status = -1; // somebody else has reaped it
    else
        _status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return true;
}

bool ChildProcess::isRunning() {
    return !reap(false);
}

std::optional<int> ChildProcess::waitForExit(Duration deadline) {
    if (reap(false))
        return _status;
    int descriptor = static_cast<int>(syscall(SYS_pidfd_open, _process, 0));
    if (descriptor >= 0) {
        pollfd request{descriptor, POLLIN, 0};
        poll(&request, 1, static_cast<int>(deadline.count()));
        close(descriptor);
    } else {
        waitUntil([this] { return reap(false); }, deadline);
    }
    reap(false);
    return _status;
}

void ChildProcess::sendSignal(int signal) const {
    if (!_status)
        kill(_process, signal);
}

void ChildProcess::terminate() {
    if (reap(false))
        return;
    sendSignal(SIGTERM);
    sendSignal(SIGCONT);
    if (!waitForExit(Duration(2000))) {
        kill(-_process, SIGKILL);
        kill(_process, SIGKILL);
        reap(true);
    }
}

std::string ChildProcess::standardOutput() const {
    return contentsOf(_outputFile);
}

std::string ChildProcess::standardError() const {
    return contentsOf(_errorFile);
}

CommandResult runCommand(const std::vector<std::string>& command, const Environment& environment,
    const std::filesystem::path& logFolder, Duration deadline) {
    ChildProcess child(command, environment, logFolder);
    std::optional<int> status = child.waitForExit(deadline);
    return {status.value_or(-1), child.standardOutput(), child.standardError()};
}

} // namespace tarragon::e2e
