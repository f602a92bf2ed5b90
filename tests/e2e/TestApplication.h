#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "MenuRecord.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon::e2e {

enum class ApplicationKind {
    Mousepad,
    Geany,
    FeatherPad,
    TwoWindows,
    HostileGtk,
    HostileQt,
    Titled,
    Pressed,
    Terminal
};

std::string nameOf(ApplicationKind kind);

// A real application of a desktop, started with a text of ours in it and in front when its constructor returns.
class TestApplication {
public:
    // Throws std::runtime_error when it does not come up. Arguments are for the kinds that take some; "--name" and a
    // name before those of a titled window have the application bear that name.
    TestApplication(Desktop& desktop, ApplicationKind kind, std::vector<std::string> arguments = {});
    // Ends it, stopped or not.
    ~TestApplication();
    TestApplication(const TestApplication&) = delete;
    TestApplication& operator=(const TestApplication&) = delete;

    ApplicationKind kind() const { return _kind; }
    pid_t identifier() const { return _process->identifier(); }
    ChildProcess& process() { return *_process; }
    // Its first window.
    xcb_window_t window() const { return _window; }
    // Brings a window to the front, as a task bar does, and waits until it is active.
    bool bringToFront();
    bool bringToFront(xcb_window_t window);

    // Its own menus as it reports them now, and the mirror that they ought to give: all of it, or less for less time.
    std::optional<Menu> menus() const;
    Menu expectedMirror() const;
    std::vector<std::string> expectedTitles() const;
    // The items directly below a title of the menu bar, without those below them.
    Menu expectedMenu(const std::string& title) const;
    std::string text() const;

    // A path of an item that switches something on and off, and what the application shows for it.
    std::vector<std::string> switchPath() const;
    bool switchState() const;

    // A path of an item that changes the text without being asked anything.
    std::vector<std::string> editPath() const;

    // The text that it was started with.
    static const std::string Text;

private:
    std::vector<std::string> command() const;

    Desktop& _desktop;
    ApplicationKind _kind;
    std::vector<std::string> _arguments;
    std::unique_ptr<ChildProcess> _process;
    xcb_window_t _window = XCB_NONE;
};

} // namespace tarragon::e2e
