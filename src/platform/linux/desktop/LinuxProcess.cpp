#include "platform/linux/desktop/LinuxProcess.h"

#include "platform/Log.h"
#include "platform/linux/desktop/DesktopLauncher.h"

#include <fstream>
#include <system_error>

#include <unistd.h>

namespace tarragon {

namespace {

std::filesystem::path toolBesideProgram() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : program.parent_path() / "tarragon-relaunch";
}

} // namespace

LinuxProcess::LinuxProcess()
    : LinuxProcess(toolBesideProgram(), "/proc/self/statm") { }

std::uint64_t LinuxProcess::residentSize() {
    std::ifstream statistics(_statisticsFile);
    std::uint64_t total = 0;
    std::uint64_t resident = 0;
    if (!(statistics >> total >> resident))
        return 0;
    return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

bool LinuxProcess::relaunchAfterEnd(const std::string& path) {
    const bool started = startDetached({_relaunchTool.string(), path, std::to_string(getpid())});
    if (!started)
        logError(LogCategory::Settings, "the relaunch tool cannot be started: " + _relaunchTool.string());
    return started;
}

} // namespace tarragon
