// Waits for a process to end and starts a program: how the agent makes room for a fresh copy of itself.

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int fail(const std::string& message) {
    std::cerr << "tarragon-relaunch: " << message << "\n";
    return 1;
}

std::optional<pid_t> processIdentifier(std::string_view text) {
    pid_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number <= 0)
        return std::nullopt;
    return number;
}

// At once when there is no such process any more. False, with errno set, when it cannot be waited for.
bool waitForEnd(pid_t process) {
    const auto descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (descriptor < 0)
        return errno == ESRCH;
    pollfd ended = {descriptor, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&ended, 1, -1);
    } while (ready < 0 && errno == EINTR);
    close(descriptor);
    return ready > 0;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::cerr << "Usage: tarragon-relaunch PROGRAM PROCESS\n"
                     "Starts PROGRAM once the process with the identifier PROCESS has ended.\n";
        return 2;
    }
    char* const program = arguments[1];
    const std::optional<pid_t> process = processIdentifier(arguments[2]);
    if (!process)
        return fail(std::string("not a process identifier: ") + arguments[2]);
    // Told while there is still somebody who could act on it.
    if (access(program, X_OK) != 0)
        return fail(std::string(program) + ": " + std::strerror(errno));
    if (!waitForEnd(*process))
        return fail(std::string("cannot wait for the process: ") + std::strerror(errno));

    std::array<char*, 2> programArguments = {program, nullptr};
    execv(program, programArguments.data());
    return fail(std::string(program) + ": " + std::strerror(errno));
}
