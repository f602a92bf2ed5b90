#include "platform/linux/desktop/ProcessNames.h"

#include "platform/linux/desktop/DesktopEntryFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tarragon {

namespace {

std::string processFile(std::int64_t processIdentifier, const char* name) {
    return "/proc/" + std::to_string(processIdentifier) + "/" + name;
}

std::vector<std::string> processArguments(std::int64_t processIdentifier) {
    std::ifstream file(processFile(processIdentifier, "cmdline"), std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');)
        arguments.push_back(argument);
    return arguments;
}

} // namespace

std::string processName(std::int64_t processIdentifier) {
    if (processIdentifier <= 0)
        return {};
    std::ifstream file(processFile(processIdentifier, "comm"));
    std::string name;
    std::getline(file, name);
    return name;
}

std::vector<std::string> executableNames(std::int64_t processIdentifier) {
    std::vector<std::string> names;
    if (processIdentifier <= 0)
        return names;
    const auto add = [&](const std::filesystem::path& path) {
        if (path.has_filename() && !isLauncher(path.filename().string()))
            names.push_back(path.filename().string());
    };
    const std::vector<std::string> arguments = processArguments(processIdentifier);
    if (!arguments.empty())
        add(arguments.front());
    std::error_code error;
    const auto program = std::filesystem::read_symlink(processFile(processIdentifier, "exe"), error);
    if (!error)
        add(program);
    const bool isInterpreted = isLauncher(program.filename().string())
        || (!arguments.empty() && isLauncher(std::filesystem::path(arguments.front()).filename().string()));
    for (std::size_t index = 1; isInterpreted && index < arguments.size(); ++index) {
        if (!arguments[index].starts_with('-')) {
            add(arguments[index]);
            break;
        }
    }
    return names;
}

} // namespace tarragon
