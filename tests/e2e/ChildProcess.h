#pragma once

#include "Wait.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tarragon::e2e {

using Environment = std::map<std::string, std::string>;

// A program that we started, with what it wrote. It is ended when this object goes, and by the kernel when we go first.
class ChildProcess {
public:
    // Both outputs go to files in the log folder, named after the program. The environment is the child's whole
    // environment. Throws std::runtime_error when the program cannot be started.
    ChildProcess(const std::vector<std::string>& command, const Environment& environment,
        const std::filesystem::path& logFolder);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t identifier() const { return _process; }
    bool isRunning();
    // The exit status, or 128 plus the number of the signal that ended it; nothing while it runs after the deadline.
    std::optional<int> waitForExit(Duration deadline = DefaultDeadline);
    void sendSignal(int signal) const;
    // Asks it to end, and ends it when it does not within two seconds.
    void terminate();

    const std::filesystem::path& outputFile() const { return _outputFile; }
    std::string standardOutput() const;
    std::string standardError() const;

private:
    bool reap(bool block);

    pid_t _process = 0;
    std::optional<int> _status;
    std::filesystem::path _outputFile;
    std::filesystem::path _errorFile;
};

struct CommandResult {
    int status = -1; // -1 when it was still running at the deadline
    std::string output;
    std::string error;
};

// Runs a program to its end.
CommandResult runCommand(const std::vector<std::string>& command, const Environment& environment,
    const std::filesystem::path& logFolder, Duration deadline = Duration(20000));

} // namespace tarragon::e2e
