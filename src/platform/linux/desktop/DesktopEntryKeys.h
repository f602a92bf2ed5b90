#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// The keys of the group "Desktop Entry" of a .desktop file. Of a key that stands there twice the first one counts.
class DesktopEntryKeys {
public:
    // Nothing when the text, which stays the caller's and outlives the keys, has no such group.
    static std::optional<DesktopEntryKeys> parse(std::string_view text);

    // The value as it stands in the file; empty when there is none.
    std::string_view raw(std::string_view key) const;
    // The value with its escapes undone.
    std::string string(std::string_view key) const;
    // The same in the first of the languages that has one, else without a language. languages as from desktopLanguages.
    std::string localizedString(std::string_view key, const std::vector<std::string>& languages) const;
    // The elements of a list, without the blanks around them and without empty ones.
    std::vector<std::string> list(std::string_view key) const;
    bool isTrue(std::string_view key) const { return raw(key) == "true"; }

private:
    std::map<std::string_view, std::string_view> _values;
};

// Whether an entry that says so is shown in a desktop of these names, as in XDG_CURRENT_DESKTOP.
bool isShownIn(const std::vector<std::string>& desktops, const std::vector<std::string>& onlyShowIn,
    const std::vector<std::string>& notShowIn);

// Text without the blanks around it.
std::string_view withoutBlanks(std::string_view text);

// Undoes the escapes of a value. A backslash that escapes nothing stands for itself: it may belong to the quoting of a
// command line.
std::string withoutEscapes(std::string_view value);

} // namespace tarragon
