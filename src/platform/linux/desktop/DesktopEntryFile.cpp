#include "platform/linux/desktop/DesktopEntryFile.h"

#include "platform/linux/desktop/DesktopEntryKeys.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tarragon {

namespace {

// Splits a command line into words; double quotes hold words together and a backslash within them takes the next
// character as it stands.
std::vector<std::string> words(std::string_view commandLine) {
    std::vector<std::string> result;
    std::string word;
    bool isInWord = false;
    bool isQuoted = false;
    for (std::size_t index = 0; index < commandLine.size(); ++index) {
        const char character = commandLine[index];
        if (isQuoted && character == '\\' && index + 1 < commandLine.size()) {
            word += commandLine[++index];
        } else if (character == '"') {
            isQuoted = !isQuoted;
            isInWord = true;
        } else if (!isQuoted && (character == ' ' || character == '\t')) {
            if (isInWord)
                result.push_back(std::exchange(word, {}));
            isInWord = false;
        } else {
            word += character;
            isInWord = true;
        }
    }
    if (isInWord)
        result.push_back(word);
    return result;
}

std::string baseName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

// Old entries give names in the icon theme the extension of a file.
std::string themeIcon(std::string icon) {
    static constexpr std::array<std::string_view, 3> Extensions = {".png", ".svg", ".xpm"};
    const auto* const extension =
        std::ranges::find_if(Extensions, [&](std::string_view candidate) { return icon.ends_with(candidate); });
    if (!icon.starts_with('/') && extension != Extensions.end())
        icon.resize(icon.size() - extension->size());
    return icon;
}

} // namespace

std::optional<DesktopEntryFile> DesktopEntryFile::parse(
    std::string_view text, const std::vector<std::string>& languages) {
    const std::optional<DesktopEntryKeys> keys = DesktopEntryKeys::parse(text);
    if (!keys)
        return std::nullopt;
    DesktopEntryFile entry;
    entry.isDeleted = keys->isTrue("Hidden");
    if (keys->string("Type") != "Application" && !entry.isDeleted)
        return std::nullopt;
    entry.isDisplayed = !keys->isTrue("NoDisplay");
    entry.startupWindowClass = keys->string("StartupWMClass");
    entry.executable = executableOfCommandLine(keys->string("Exec"));
    entry.name = keys->localizedString("Name", languages);
    entry.plainName = keys->string("Name");
    entry.icon = themeIcon(keys->localizedString("Icon", languages));
    entry.tryExecutable = keys->string("TryExec");
    entry.onlyShowIn = keys->list("OnlyShowIn");
    entry.notShowIn = keys->list("NotShowIn");
    entry.isBusService = keys->isTrue("DBusActivatable");
    return entry;
}

std::vector<std::string> desktopLanguages(const std::vector<std::string>& locales) {
    std::vector<std::string> languages;
    for (const std::string& locale : locales) {
        const std::size_t at = std::min(locale.find('@'), locale.size());
        const std::string modifier = locale.substr(at);
        const std::string territory = locale.substr(0, std::min(locale.find('.'), at));
        const std::string language = territory.substr(0, territory.find('_'));
        if (language.empty() || language == "C" || language == "POSIX")
            continue;
        for (const std::string& candidate : {territory + modifier, territory, language + modifier, language}) {
            if (std::find(languages.begin(), languages.end(), candidate) == languages.end())
                languages.push_back(candidate);
        }
    }
    return languages;
}

std::string executableOfCommandLine(std::string_view commandLine) {
    const std::vector<std::string> all = words(commandLine);
    const auto isProgram = [](const std::string& word) {
        return word != "env" && word != "/usr/bin/env" && word.find('=') == std::string::npos && !word.starts_with('-');
    };
    const auto program = std::find_if(all.begin(), all.end(), isProgram);
    if (program == all.end())
        return {};
    std::string name = baseName(*program);
    return isLauncher(name) ? std::string() : name;
}

bool isLauncher(std::string_view executable) {
    static constexpr std::array Launchers = {"sh", "bash", "dash", "zsh", "env", "flatpak", "snap", "bwrap", "python",
        "perl", "ruby", "lua", "node", "gjs", "java", "wine", "mono", "electron", "sudo", "pkexec", "xdg-open"};
    // Interpreters come with a version: python3.11, perl5.36.
    const std::size_t end = executable.find_last_not_of("0123456789.-");
    const std::string_view name = executable.substr(0, end == std::string_view::npos ? 0 : end + 1);
    return std::find(Launchers.begin(), Launchers.end(), name) != Launchers.end();
}

std::string lowerCased(std::string_view text) {
    std::string result(text);
    for (char& character : result) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    }
    return result;
}

} // namespace tarragon
