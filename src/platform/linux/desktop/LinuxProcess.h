#pragma once

#include "platform/Process.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace tarragon {

// This process, through the proc file system, and a relaunch tool that lies beside the program.
class LinuxProcess : public Process {
public:
    // The running program's own tool and the system's own files; a test names others. The numbers of the statistics are
    // pages of memory, the second one those that the program occupies.
    LinuxProcess();
    LinuxProcess(std::filesystem::path relaunchTool, const std::filesystem::path& statisticsFile);
    ~LinuxProcess() override;
    LinuxProcess(const LinuxProcess&) = delete;
    LinuxProcess& operator=(const LinuxProcess&) = delete;

    std::uint64_t residentSize() override;
    bool relaunchAfterEnd(const std::string& path) override;

private:
    std::filesystem::path _relaunchTool;
    int _statistics; // open, since they are asked for all the time; below 0 where there are none
};

} // namespace tarragon
