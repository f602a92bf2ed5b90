#pragma once

#include "ChildProcess.h"
#include "MenuRecord.h"

#include <filesystem>
#include <optional>
#include <string>

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
    // Runs an item's own action.
    bool press(pid_t process, const std::string& path) const;
    // The contents of the text field in front.
    std::optional<std::string> text(pid_t process) const;
    // How many elements of a role ("status bar", "page tab") the application shows.
    int shownElements(pid_t process, const std::string& role) const;

private:
    const Desktop& _desktop;
};

} // namespace tarragon::e2e
