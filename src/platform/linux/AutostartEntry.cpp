#include "platform/linux/AutostartEntry.h"

#include "platform/linux/DesktopEntryFile.h"

#include <algorithm>
#include <map>

namespace tarragon {

namespace {

// Marks the files that this program writes.
constexpr std::string_view OursKey = "X-Tarragon-LoginItem";
constexpr std::string_view StartsHiddenKey = "X-Tarragon-Hide";
constexpr std::string_view EnabledKey = "X-GNOME-Autostart-enabled";

using Keys = std::map<std::string_view, std::string_view>;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// The keys of the group "Desktop Entry" with their values as they stand in the file; nothing without that group.
std::optional<Keys> mainGroup(std::string_view text) {
    Keys keys;
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            if (isInGroup)
                return keys;
            isInGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInGroup && !line.starts_with('#') && equals != std::string_view::npos)
            keys.emplace(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    return isInGroup ? std::optional(keys) : std::nullopt;
}

std::string_view rawValue(const Keys& keys, std::string_view key) {
    const auto found = keys.find(key);
    return found == keys.end() ? std::string_view() : found->second;
}

// A string of the file with its escapes resolved.
std::string unescaped(std::string_view text) {
    static const std::map<char, char> Escapes{{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto escape =
            text[index] == '\\' && index + 1 < text.size() ? Escapes.find(text[index + 1]) : Escapes.end();
        if (escape == Escapes.end()) {
            result += text[index];
        } else {
            result += escape->second;
            ++index;
        }
    }
    return result;
}

std::string escaped(std::string_view text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        switch (text[index]) {
        case '\n':
            result += "\\n";
            break;
        case '\t':
            result += "\\t";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\\':
            result += "\\\\";
            break;
        case ' ':
            // A blank at the beginning would be taken for the one that may follow the equals sign.
            result += index == 0 ? "\\s" : " ";
            break;
        default:
            result += text[index];
        }
    }
    return result;
}

std::vector<std::string> listOf(std::string_view value) {
    std::vector<std::string> elements;
    while (!value.empty()) {
        const std::size_t end = std::min(value.find(';'), value.size());
        if (const std::string_view element = trimmed(value.substr(0, end)); !element.empty())
            elements.emplace_back(element);
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    return elements;
}

bool haveCommonElement(const std::vector<std::string>& first, const std::vector<std::string>& second) {
    return std::find_first_of(first.begin(), first.end(), second.begin(), second.end()) != first.end();
}

void appendKey(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value).append("\n");
}

} // namespace

std::optional<AutostartEntry> AutostartEntry::parse(std::string_view text, const std::vector<std::string>& languages) {
    const std::optional<Keys> keys = mainGroup(text);
    if (!keys)
        return std::nullopt;
    AutostartEntry entry;
    entry.isDeleted = rawValue(*keys, "Hidden") == "true";
    if (rawValue(*keys, "Type") != "Application" && !entry.isDeleted)
        return std::nullopt;
    for (const std::string& language : languages) {
        if (entry.name.empty())
            entry.name = unescaped(rawValue(*keys, "Name[" + language + "]"));
    }
    if (entry.name.empty())
        entry.name = unescaped(rawValue(*keys, "Name"));
    entry.commandLine = rawValue(*keys, "Exec");
    entry.tryExecutable = unescaped(rawValue(*keys, "TryExec"));
    entry.onlyShowIn = listOf(rawValue(*keys, "OnlyShowIn"));
    entry.notShowIn = listOf(rawValue(*keys, "NotShowIn"));
    entry.isEnabled = rawValue(*keys, EnabledKey) != "false";
    entry.isOurs = rawValue(*keys, OursKey) == "true";
    entry.startsHidden = rawValue(*keys, StartsHiddenKey) == "true";
    return entry;
}

std::string AutostartEntry::text() const {
    std::string text = "[Desktop Entry]\n";
    appendKey(text, "Type", "Application");
    appendKey(text, "Name", escaped(name));
    appendKey(text, "Exec", commandLine);
    appendKey(text, "Terminal", "false");
    if (isDeleted)
        appendKey(text, "Hidden", "true");
    else
        appendKey(text, EnabledKey, "true");
    appendKey(text, OursKey, "true");
    if (startsHidden)
        appendKey(text, StartsHiddenKey, "true");
    return text;
}

std::string AutostartEntry::executable() const {
    std::string word;
    bool isQuoted = false;
    const std::string line = unescaped(commandLine);
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char character = line[index];
        const bool hasNext = index + 1 < line.size();
        if (character == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && (character == ' ' || character == '\t' || character == '\n'))
            break;
        else if ((isQuoted && character == '\\' && hasNext) || (character == '%' && hasNext && line[index + 1] == '%'))
            word += line[++index];
        else
            word += character;
    }
    return word;
}

bool AutostartEntry::isShownIn(const std::vector<std::string>& desktops) const {
    if (!onlyShowIn.empty())
        return haveCommonElement(onlyShowIn, desktops);
    return !haveCommonElement(notShowIn, desktops);
}

std::string autostartCommandLine(const std::string& path) {
    constexpr std::string_view Reserved = " \t\n\"'\\><~|&;$*?#()`";
    constexpr std::string_view EscapedInQuotes = "\"`$\\";
    const bool needsQuotes = path.find_first_of(Reserved) != std::string::npos;
    std::string word;
    for (const char character : path) {
        if (needsQuotes && EscapedInQuotes.find(character) != std::string_view::npos)
            word += '\\';
        if (character == '%')
            word += '%'; // alone it would begin a field code
        word += character;
    }
    return escaped(needsQuotes ? '"' + word + '"' : word);
}

} // namespace tarragon
