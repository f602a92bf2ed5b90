#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// What a .desktop file says of an application.
struct DesktopEntryFile {
    std::string name; // in the user's language
    std::string plainName; // in none in particular
    std::string icon; // of the icon theme, or an absolute path; empty for none
    std::string startupWindowClass;
    std::string executable; // file name of the program, without its folder; empty for a mere launcher of others
    std::string tryExecutable; // without which the entry does not count; empty for none
    std::vector<std::string> onlyShowIn; // names of desktops; empty for all of them
    std::vector<std::string> notShowIn;
    bool isBusService = false; // is started over the bus, under the entry's identifier
    bool isDeleted = false; // stands for an entry that the user or the administrator took away
    bool isDisplayed = true; // in menus, where the desktop and tryExecutable allow it

    // Nothing when the text is no entry of an application. languages as from desktopLanguages.
    static std::optional<DesktopEntryFile> parse(std::string_view text, const std::vector<std::string>& languages);
};

// The languages of localised keys, best first: "de_DE.UTF-8@euro" gives de_DE@euro, de_DE, de@euro, de. "C" and "POSIX"
// give none.
std::vector<std::string> desktopLanguages(const std::vector<std::string>& locales);

// The file name of the program that a command line starts: "env A=b /usr/bin/gedit %U" gives "gedit".
std::string executableOfCommandLine(std::string_view commandLine);

// True for programs that only run others, such as shells, interpreters and sandboxes: their name tells nothing.
bool isLauncher(std::string_view executable);

std::string lowerCased(std::string_view text);

} // namespace tarragon
