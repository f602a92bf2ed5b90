#include "platform/linux/desktop/AutostartEntry.h"

#include "platform/linux/desktop/DesktopEntryKeys.h"

#include <cstddef>

namespace tarragon {

namespace {

// Marks the files that this program writes.
constexpr std::string_view OursKey = "X-Tarragon-LoginItem";
constexpr std::string_view StartsHiddenKey = "X-Tarragon-Hide";
constexpr std::string_view EnabledKey = "X-GNOME-Autostart-enabled";

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

void appendKey(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value).append("\n");
}

} // namespace

std::optional<AutostartEntry> AutostartEntry::parse(std::string_view text, const std::vector<std::string>& languages) {
    const std::optional<DesktopEntryKeys> keys = DesktopEntryKeys::parse(text);
    if (!keys)
        return std::nullopt;
    AutostartEntry entry;
    entry.isDeleted = keys->isTrue("Hidden");
    if (keys->raw("Type") != "Application" && !entry.isDeleted)
        return std::nullopt;
    entry.name = keys->localizedString("Name", languages);
    entry.commandLine = keys->raw("Exec");
    entry.tryExecutable = keys->string("TryExec");
    entry.onlyShowIn = keys->list("OnlyShowIn");
    entry.notShowIn = keys->list("NotShowIn");
    entry.isEnabled = keys->raw(EnabledKey) != "false";
    entry.isOurs = keys->isTrue(OursKey);
    entry.startsHidden = keys->isTrue(StartsHiddenKey);
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
    const std::string line = withoutEscapes(commandLine);
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
    return tarragon::isShownIn(desktops, onlyShowIn, notShowIn);
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
