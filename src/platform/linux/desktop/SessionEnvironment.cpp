#include "platform/linux/desktop/SessionEnvironment.h"

#include "platform/linux/desktop/DesktopEntryFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarragon {

namespace fs = std::filesystem;

namespace {

// Relative paths in these lists are to be passed over.
std::vector<fs::path> absolutePaths(std::string_view text) {
    std::vector<fs::path> paths;
    for (const fs::path path : splitAtColons(text)) {
        if (path.is_absolute())
            paths.push_back(path);
    }
    return paths;
}

// The folder that the variable names, else the one of that name in the user's home; empty when there is neither.
fs::path userFolder(const char* variable, const char* nameInHome) {
    fs::path folder = environmentVariable(variable);
    if (folder.is_absolute())
        return folder;
    const fs::path home = environmentVariable("HOME");
    return home.is_absolute() ? home / nameInHome : fs::path();
}

std::optional<std::string> contentsOfRegularFile(int descriptor) {
    constexpr std::size_t LargestSize = std::size_t{1} << 20U;
    struct stat status { };
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string text;
    std::array<char, 4096> buffer{};
    while (text.size() <= LargestSize) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

} // namespace

std::string environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::vector<std::string> splitAtColons(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(':'), text.size());
        if (end > 0)
            parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::vector<std::string> sessionDesktops() {
    return splitAtColons(environmentVariable("XDG_CURRENT_DESKTOP"));
}

std::vector<std::string> sessionLocales() {
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale.empty())
            locale = environmentVariable(name);
    }
    // LANGUAGE counts only beside a locale that is not the plain one.
    if (desktopLanguages({locale}).empty())
        return {};
    std::vector<std::string> locales = splitAtColons(environmentVariable("LANGUAGE"));
    locales.push_back(locale);
    return locales;
}

std::vector<std::string> sessionLanguages() {
    return desktopLanguages(sessionLocales());
}

std::vector<fs::path> programFolders() {
    return absolutePaths(environmentVariable("PATH"));
}

bool isProgram(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

std::optional<std::string> programNamed(const std::string& name, const std::vector<fs::path>& folders) {
    if (name.empty())
        return std::nullopt;
    if (name.front() == '/')
        return isProgram(name) ? std::optional(name) : std::nullopt;
    if (name.find('/') != std::string::npos)
        return std::nullopt;
    for (const fs::path& folder : folders) {
        if (isProgram(folder / name))
            return folder / name;
    }
    return std::nullopt;
}

fs::path userConfigurationFolder() {
    return userFolder("XDG_CONFIG_HOME", ".config");
}

std::vector<fs::path> systemConfigurationFolders() {
    std::vector<fs::path> folders = absolutePaths(environmentVariable("XDG_CONFIG_DIRS"));
    if (folders.empty())
        folders.emplace_back("/etc/xdg");
    return folders;
}

std::vector<fs::path> dataFolders() {
    std::vector<fs::path> folders = absolutePaths(environmentVariable("XDG_DATA_DIRS"));
    if (folders.empty())
        folders = {"/usr/local/share", "/usr/share"};
    if (const fs::path own = userFolder("XDG_DATA_HOME", ".local/share"); !own.empty())
        folders.insert(folders.begin(), own);
    return folders;
}

std::optional<std::string> contentsOfSmallFile(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return std::nullopt;
    std::optional<std::string> contents = contentsOfRegularFile(descriptor);
    close(descriptor);
    return contents;
}

} // namespace tarragon
