#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

// A top-level window of some application. Names are those of the window managers' hints; empty for none.
struct FakeWindow {
    std::int64_t process = 0;
    std::string type = {};
    std::uint32_t transientFor = 0;
    std::string state = {};
};

// Plays the applications of an X server and their window manager: opens windows and says which one is active.
class FakeWindowManager {
public:
    explicit FakeWindowManager(const std::string& displayName);
    ~FakeWindowManager();
    FakeWindowManager(const FakeWindowManager&) = delete;
    FakeWindowManager& operator=(const FakeWindowManager&) = delete;

    std::uint32_t rootWindow() const { return _root; }

    // The window is on the screen, managed and on top of the others. 0 when it could not be made.
    std::uint32_t open(const FakeWindow& window);
    // The same with an identifier that was used before.
    std::uint32_t openAs(std::uint32_t identifier, const FakeWindow& window);
    void close(std::uint32_t window);
    // Off the screen but managed, as minimised windows and those of other workspaces are.
    void hide(std::uint32_t window);
    void show(std::uint32_t window);
    // Off the screen and no longer managed.
    void withdraw(std::uint32_t window);
    void setState(std::uint32_t window, const std::string& state);
    // Workspaces are counted from 0, and a window can be on all of them. Neither moves anything.
    void putOnWorkspace(std::uint32_t window, std::uint32_t workspace);
    void showWorkspace(std::uint32_t workspace);
    static constexpr std::uint32_t EveryWorkspace = 0xFFFFFFFF;

    void setTitle(std::uint32_t window, const std::string& title);
    // Puts a frame around a window, with the window in its corner.
    std::uint32_t frame(std::uint32_t window);
    // Tells nobody but those who watch this very window.
    void move(std::uint32_t window, int x, int y);
    // Adds a monitor that is the primary one.
    void addPrimaryMonitor(int x, int y, int width, int height);

    // XCB_NONE stands for no active window.
    void activate(std::uint32_t window);
    void focus(std::uint32_t window);
    bool grabKeyboard();
    void releaseKeyboard();

    // Returns after the server has done everything, and has written to all clients what it has to tell them of it: it
    // does so before it turns to the next question.
    void synchronize();

private:
    std::uint32_t atom(const std::string& name);
    void setProperty(std::uint32_t window, const std::string& name, xcb_atom_t type, std::vector<std::uint32_t> values);
    void setManaged(std::uint32_t window, bool managed);

    xcb_connection_t* _connection;
    xcb_window_t _root = XCB_NONE;
    std::vector<std::uint32_t> _managed;
};

} // namespace tarragon
