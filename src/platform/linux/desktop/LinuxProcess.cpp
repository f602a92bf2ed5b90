#include "platform/linux/desktop/LinuxProcess.h"

#include "platform/Log.h"
#include "platform/linux/desktop/DesktopLauncher.h"

#include <array>
#include <charconv>
#include <system_error>

#include <fcntl.h>
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

LinuxProcess::LinuxProcess(std::filesystem::path relaunchTool, const std::filesystem::path& statisticsFile)
    : _relaunchTool(std::move(relaunchTool))
    , _statistics(open(statisticsFile.c_str(), O_RDONLY | O_CLOEXEC)) { }

LinuxProcess::~LinuxProcess() {
    if (_statistics >= 0)
        close(_statistics);
}

std::uint64_t LinuxProcess::residentSize() {
    std::array<char, 128> text{};
    const ssize_t length = pread(_statistics, text.data(), text.size(), 0);
    if (length <= 0)
        return 0;
    const char* const end = text.data() + length;
    std::uint64_t total = 0;
    std::uint64_t resident = 0;
    const auto first = std::from_chars(text.data(), end, total);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != ' ')
        return 0;
    if (std::from_chars(first.ptr + 1, end, resident).ec != std::errc())
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
