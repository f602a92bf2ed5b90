#pragma once

#include "ChildProcess.h"
#include "MenuRecord.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tarragon::e2e {

class Desktop;

// What applications say of themselves, read by a helper program that shares no code with the program under test.
class ApplicationReader {
public:
    explicit ApplicationReader(const Desktop& desktop);

    // Switches accessibility on for the session, as a screen reader's settings would. False when that failed.
    bool enableAccessibility() const;
    // The menu bar of the application's active window, or of the window with this title; nothing when it has none now.
    std::optional<Menu> menus(pid_t process, const std::string& windowTitle = {}) const;
    // The items directly below a path of titles in the active window's menu bar, without those below them; the titles
    // of the menu bar itself for an empty path.
    std::optional<Menu> level(pid_t process, const std::vector<std::string>& path) const;
    // Runs an item's own action.
    bool press(pid_t process, const std::vector<std::string>& path) const;
    // The contents of the text field in front.
    std::optional<std::string> text(pid_t process) const;
    // How many elements of a role ("status bar", "page tab") the application shows.
    int shownElements(pid_t process, const std::string& role) const;

private:
    const Desktop& _desktop;
};

} // namespace tarragon::e2e
