#pragma once

#include "Agent.h"
#include "Desktop.h"
#include "Wait.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tarragon::e2e {

// One element of a window, as a screen reader is told of it.
struct Control {
    std::string window; // the title of its window
    std::string role;
    std::string name;
    std::string description;
    std::string text;
    std::set<std::string> states;
    PixelRect frame; // in pixels of the root window

    bool has(const std::string& state) const { return states.contains(state); }
    bool isChecked() const { return has("checked"); }
    bool isEnabled() const { return has("enabled") && has("sensitive"); }
    bool isFocused() const { return has("focused"); }
};

// The preferences window of a running program, as a user sees it and as the accessibility bus tells of it, which is
// asked anew by every function. It is used by pointer and keys alone.
class PreferencesWindow {
public:
    PreferencesWindow(Desktop& desktop, pid_t process);

    // The windows of the program that the window manager shows: sheets are among them.
    std::vector<xcb_window_t> windows();
    bool isOpen() { return !windows().empty(); }
    // One window and no more, which is active and tells the accessibility bus what it shows. False when there is none
    // in time.
    bool waitUntilOpen(Duration deadline = DefaultDeadline);
    bool waitUntilClosed(Duration deadline = DefaultDeadline);
    // By the command line, as a person's own key binding would.
    bool open();
    // By Escape until there is none.
    bool close();
    // The title of the window, which is that of its pane.
    std::string title();

    // Everything that is shown, windows before what they contain.
    std::vector<Control> controls() const;
    std::optional<Control> find(const std::function<bool(const Control&)>& condition) const;
    // By a name or its beginning, and by a role where the name alone is not enough.
    std::optional<Control> control(const std::string& name, const std::string& role = {}) const;
    // That something that is shown says this, or a part of it.
    bool says(const std::string& words) const;
    // Once it meets the condition; nothing when it does not in time.
    std::optional<Control> waitFor(
        const std::string& name,
        const std::function<bool(const Control&)>& condition = [](const Control&) { return true; },
        const std::string& role = {}, Duration deadline = DefaultDeadline) const;
    bool waitUntilGone(const std::string& name, const std::string& role = {}) const;
    bool waitUntilSays(const std::string& words) const;

    // Clicks an item of the toolbar and waits for its pane.
    bool showPane(const std::string& title);
    // Clicks where its sign or words begin. False when there is no such control or it cannot be used.
    bool click(const std::string& name, const std::string& role = {});
    void click(const Control& control);
    // Into its middle.
    void clickInto(const Control& control, std::uint8_t button = 1);
    // Types letters, digits and blanks.
    void type(const std::string& text);
    // In the order in which Tab leads to them, from the one that has the focus now until that one comes round again, or
    // for as many steps as that is given.
    std::vector<Control> tabThrough(std::size_t most = 60);
    std::optional<Control> focused() const;

private:
    Desktop& _desktop;
    pid_t _process;
};

} // namespace tarragon::e2e
