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
    LinuxProcess(std::filesystem::path relaunchTool, std::filesystem::path statisticsFile)
        : _relaunchTool(std::move(relaunchTool))
        , _statisticsFile(std::move(statisticsFile)) { }

    std::uint64_t residentSize() override;
    bool relaunchAfterEnd(const std::string& path) override;

private:
    std::filesystem::path _relaunchTool;
    std::filesystem::path _statisticsFile;
};

} // namespace tarragon
