#include "platform/linux/DesktopEntryFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <utility>

namespace tarragon {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '\\' || index + 1 == text.size()) {
            result += text[index];
            continue;
        }
        switch (text[++index]) {
        case 's':
            result += ' ';
            break;
        case 'n':
            result += '\n';
            break;
        case 't':
            result += '\t';
            break;
        case 'r':
            result += '\r';
            break;
        case '\\':
            result += '\\';
            break;
        default:
            // Backslashes of the command line's own quoting.
            result += '\\';
            result += text[index];
        }
    }
    return result;
}

// The keys of the group "Desktop Entry" with their values as they stand in the file.
std::map<std::string_view, std::string_view> mainGroup(std::string_view text) {
    std::map<std::string_view, std::string_view> keys;
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            if (isInGroup)
                break;
            isInGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInGroup && !line.starts_with('#') && equals != std::string_view::npos)
            keys.emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    return keys;
}

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

} // namespace

std::optional<DesktopEntryFile> DesktopEntryFile::parse(
    std::string_view text, const std::vector<std::string>& languages) {
    const auto keys = mainGroup(text);
    const auto valueOf = [&](const std::string& key) {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string() : unescaped(found->second);
    };
    DesktopEntryFile entry;
    entry.isDeleted = valueOf("Hidden") == "true";
    if (valueOf("Type") != "Application" && !entry.isDeleted)
        return std::nullopt;
    entry.isDisplayed = valueOf("NoDisplay") != "true";
    entry.startupWindowClass = valueOf("StartupWMClass");
    entry.executable = executableOfCommandLine(valueOf("Exec"));
    for (const std::string& language : languages) {
        if (!entry.name.empty())
            break;
        entry.name = valueOf("Name[" + language + "]");
    }
    if (entry.name.empty())
        entry.name = valueOf("Name");
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
