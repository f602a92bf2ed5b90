#include "platform/linux/desktop/LinuxProcess.h"

#include "platform/Log.h"
#include "platform/linux/desktop/DesktopLauncher.h"

#include <fstream>
#include <sstream>
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
    : LinuxProcess(toolBesideProgram(), "/proc/self/status") { }

std::uint64_t LinuxProcess::residentSize() {
    constexpr std::uint64_t Kibibyte = 1024;
    std::ifstream status(_statusFile);
    for (std::string line; std::getline(status, line);) {
        std::istringstream words(line);
        std::string name;
        std::uint64_t size = 0;
        if (words >> name && name == "VmRSS:")
            return words >> size ? size * Kibibyte : 0;
    }
    return 0;
}

bool LinuxProcess::relaunchAfterEnd(const std::string& path) {
    const bool started = startDetached({_relaunchTool.string(), path, std::to_string(getpid())});
    if (!started)
        logError(LogCategory::Settings, "the relaunch tool cannot be started: " + _relaunchTool.string());
    return started;
}

} // namespace tarragon
