#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarragon {

// Which events a look at the active window gives rise to.
struct X11FrontWindowChange {
    bool frontSwitched = false;
    bool systemUIModeChanged = false; // the front window went full screen, or the screen is shared again
    bool operator==(const X11FrontWindowChange&) const = default;
};

// What there is to know of an active window without asking its application.
struct X11ActiveWindow {
    std::uint32_t window = 0;
    std::int64_t processIdentifier = 0; // 0 when the window does not tell
    std::string application = {}; // tells apart several applications of one process, as those of an office suite are
    // A dialog, a sheet or a palette: it comes and goes in front of the windows that it serves.
    bool isPassing = false;
    std::uint32_t transientFor = 0; // the window that it belongs to; 0 for none
    bool fullScreen = false;
};

// Remembers the application in front and the menu bar that it shows, and decides what has happened since: a switch is
// another application, or another window whose menu bar is shown. Other windows of the application that show the same
// menu bar are none.
//
// Whose menu bar is shown is told by a window identifier; 0 stands for no menu bar, or an application that does not
// tell. It is asked for only where the answer can make a difference, since asking may take long.
class X11FrontWindow {
public:
    // The window belongs to the application in front but is another one, so that its menu bar decides.
    [[nodiscard]] bool needsMenuBar(const X11ActiveWindow& active) const;
    // The window is active now. menuBar is the window with the menu bar that is shown; nothing when it was not asked
    // for.
    [[nodiscard]] X11FrontWindowChange update(const X11ActiveWindow& active, std::optional<std::uint32_t> menuBar);
    // No window is active, and none will be soon.
    [[nodiscard]] X11FrontWindowChange lose();

    // The window in front, when nobody has told yet whose menu bar is shown while it is; nothing otherwise.
    std::optional<std::uint32_t> windowWithUnknownMenuBar() const;
    // Tells it, after a switch has been reported.
    void learnMenuBar(std::uint32_t menuBar);

    // A window is gone for good. Identifiers are used again: the next window with this one is another window.
    void forgetWindow(std::uint32_t window);

    // The window in front; 0 for none, or one that is gone.
    std::uint32_t window() const { return _front ? _front->active.window : 0; }
    bool hasWindow() const { return _front.has_value(); }
    // The window with the menu bar that is shown; 0 for none.
    std::uint32_t menuBar() const;
    // In words for the log: what the last update took for a switch, or why it was none.
    std::string_view reason() const { return _reason; }

private:
    struct Front {
        X11ActiveWindow active;
        std::optional<std::uint32_t> menuBar;
    };

    bool isSameApplication(const X11ActiveWindow& active) const;
    bool showsOtherMenuBar(std::uint32_t window, std::uint32_t menuBar);

    std::optional<Front> _front;
    bool _fullScreen = false;
    std::string_view _reason;
};

} // namespace tarragon
