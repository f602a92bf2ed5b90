#pragma once

#include "platform/Process.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace tarragon {

// This process, through the proc file system, and a relaunch tool that lies beside the program.
class LinuxProcess : public Process {
public:
    // The running program's own tool and the system's own files; a test names others.
    LinuxProcess();
    LinuxProcess(std::filesystem::path relaunchTool, std::filesystem::path statusFile)
        : _relaunchTool(std::move(relaunchTool))
        , _statusFile(std::move(statusFile)) { }

    std::uint64_t residentSize() override;
    bool relaunchAfterEnd(const std::string& path) override;

private:
    std::filesystem::path _relaunchTool;
    std::filesystem::path _statusFile;
};

} // namespace tarragon
