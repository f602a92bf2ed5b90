#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// What a .desktop file of an autostart folder says.
struct AutostartEntry {
    std::string name; // in the user's language; empty when it has none
    std::string commandLine; // as it stands in the file
    std::string tryExecutable; // without which the entry does not count; empty for none
    std::vector<std::string> onlyShowIn; // names of desktops; empty for all of them
    std::vector<std::string> notShowIn;
    bool isDeleted = false; // stands for an entry that the user took away
    bool isEnabled = true; // in the desktop's own settings
    bool isOurs = false; // was written by this program
    bool startsHidden = false; // what is started is not to show itself

    // Nothing when the text is no desktop entry. languages as from desktopLanguages.
    [[nodiscard]] static std::optional<AutostartEntry> parse(
        std::string_view text, const std::vector<std::string>& languages);
    // The text of a file of ours with what is set here.
    std::string text() const;

    // The program that the command line starts, without its arguments; empty when there is none.
    std::string executable() const;
    // desktops as in XDG_CURRENT_DESKTOP.
    bool isShownIn(const std::vector<std::string>& desktops) const;
};

// A command line, as it stands in a file, that starts the program at a path.
std::string autostartCommandLine(const std::string& path);

} // namespace tarragon
