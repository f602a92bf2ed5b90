#pragma once

#include "screens/PixelRect.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>
#include <xcb/xcb.h>

namespace tarragon::e2e {

struct XWindow {
    xcb_window_t identifier = XCB_NONE;
    pid_t process = 0; // 0 when unknown
    PixelRect frame; // without decorations
};

// What a user sees of an X display, asked of the server itself.
class XDisplay {
public:
    // Throws std::runtime_error when the server does not answer.
    explicit XDisplay(const std::string& name);
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    xcb_connection_t* connection() const { return _connection; }
    // A new atom when nobody has used the name before.
    xcb_atom_t atom(const std::string& name);
    xcb_window_t root() const { return _screen->root; }
    PixelRect bounds() const { return {0, 0, _screen->width_in_pixels, _screen->height_in_pixels}; }

    // True when a window manager that keeps the standard hints runs.
    bool hasWindowManager();
    // True when somebody draws windows over each other, translucent ones as well.
    bool hasCompositor();
    // XCB_NONE when no window is active.
    xcb_window_t activeWindow();
    // That which gets the keys, at the server. A window manager may tell of another one as active already.
    xcb_window_t focusedWindow();
    std::vector<xcb_window_t> managedWindows();
    std::vector<xcb_window_t> managedWindowsOf(pid_t process);
    pid_t processOf(xcb_window_t window);
    std::string titleOf(xcb_window_t window);
    // Without and with what the window manager draws around it.
    PixelRect frameOf(xcb_window_t window);
    PixelRect outerFrameOf(xcb_window_t window);
    bool isViewable(xcb_window_t window);
    // A state by its name, as "_NET_WM_STATE_FULLSCREEN".
    bool hasState(xcb_window_t window, const std::string& state);
    // All of these ask the window manager, as a task bar does.
    void activate(xcb_window_t window);
    void close(xcb_window_t window);
    // Below all others.
    void lower(xcb_window_t window);
    // Where the corner of what the window manager draws around it goes.
    void moveWindow(xcb_window_t window, int x, int y);
    // Without what the window manager draws around it.
    void resizeWindow(xcb_window_t window, int width, int height);
    void setState(xcb_window_t window, const std::string& state, bool on);
    // In both directions.
    void setMaximized(xcb_window_t window, bool on);
    void minimize(xcb_window_t window);
    // Counted from 0, as a pager does. Asks for as many workspaces as that needs.
    void showWorkspace(std::uint32_t workspace);
    std::uint32_t workspace();
    void putOnWorkspace(xcb_window_t window, std::uint32_t workspace);
    void setCardinals(xcb_window_t window, const std::string& property, const std::string& type,
        const std::vector<std::uint32_t>& values);

    // The menus that are open, bottom to top: mapped windows that no window manager manages.
    std::vector<XWindow> openMenus();
    // The other mapped windows of a process that no window manager manages.
    std::vector<XWindow> unmanagedWindowsOf(pid_t process);
    bool keyboardIsGrabbed();
    // True also while an application has it because a button is held that was pressed over its window.
    bool pointerIsGrabbed();
    // True when somebody has taken this combination for the whole desktop.
    bool keyIsGrabbed(xcb_keycode_t keyCode, std::uint16_t modifiers);

    // Whether hardware, if only simulated, tells of the monitors. Those of other servers exist for who asks the server
    // for them alone, which not every window manager does.
    [[nodiscard]] bool hasOutputs();
    // Gives the desktop these monitors instead of one, two of them side by side, or one again.
    void setMonitors(const std::vector<PixelRect>& frames, std::size_t primary);
    void setTwoMonitors();
    void setOneMonitor();

    // A picture of the whole display as a portable pixmap. False when the file cannot be written.
    bool screenshot(const std::filesystem::path& file);

private:
    std::vector<std::uint32_t> cardinals(xcb_window_t window, const std::string& property, xcb_atom_t type);
    void sendToWindowManager(xcb_window_t window, const std::string& message, const std::vector<std::uint32_t>& data);
    std::vector<XWindow> mappedChildrenOfRoot(bool menus);
    void setMonitor(const std::string& name, const PixelRect& frame, bool primary, bool claimOutput);
    void deleteMonitor(const std::string& name);

    xcb_connection_t* _connection;
    const xcb_screen_t* _screen = nullptr;
    std::map<std::string, xcb_atom_t> _atoms;
    std::vector<std::string> _monitors; // of our own making
    int _countOfMonitors = 0;
};

} // namespace tarragon::e2e
