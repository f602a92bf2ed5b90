#include "platform/linux/desktop/DesktopEntryKeys.h"

#include <algorithm>
#include <cstddef>

namespace tarragon {

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string withoutEscapes(std::string_view value) {
    static const std::map<char, char> Escapes{{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    std::string result;
    for (std::size_t index = 0; index < value.size(); ++index) {
        const auto escape =
            value[index] == '\\' && index + 1 < value.size() ? Escapes.find(value[index + 1]) : Escapes.end();
        if (escape == Escapes.end()) {
            result += value[index];
        } else {
            result += escape->second;
            ++index;
        }
    }
    return result;
}

std::optional<DesktopEntryKeys> DesktopEntryKeys::parse(std::string_view text) {
    DesktopEntryKeys keys;
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = withoutBlanks(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            if (isInGroup)
                return keys;
            isInGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInGroup && !line.starts_with('#') && equals != std::string_view::npos)
            keys._values.emplace(withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1)));
    }
    return isInGroup ? std::optional(keys) : std::nullopt;
}

std::string_view DesktopEntryKeys::raw(std::string_view key) const {
    const auto found = _values.find(key);
    return found == _values.end() ? std::string_view() : found->second;
}

std::string DesktopEntryKeys::string(std::string_view key) const {
    return withoutEscapes(raw(key));
}

std::string DesktopEntryKeys::localizedString(std::string_view key, const std::vector<std::string>& languages) const {
    for (const std::string& language : languages) {
        std::string text = string(std::string(key) + "[" + language + "]");
        if (!text.empty())
            return text;
    }
    return string(key);
}

std::vector<std::string> DesktopEntryKeys::list(std::string_view key) const {
    std::vector<std::string> elements;
    for (std::string_view value = raw(key); !value.empty();) {
        const std::size_t end = std::min(value.find(';'), value.size());
        if (const std::string_view element = withoutBlanks(value.substr(0, end)); !element.empty())
            elements.emplace_back(element);
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    return elements;
}

bool isShownIn(const std::vector<std::string>& desktops, const std::vector<std::string>& onlyShowIn,
    const std::vector<std::string>& notShowIn) {
    // The first name of the desktop that the entry mentions decides.
    for (const std::string& desktop : desktops) {
        if (std::ranges::find(onlyShowIn, desktop) != onlyShowIn.end())
            return true;
        if (std::ranges::find(notShowIn, desktop) != notShowIn.end())
            return false;
    }
    return onlyShowIn.empty();
}

} // namespace tarragon
