#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace tarragon {

struct X11ClientWindow {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 100;
    std::uint16_t height = 100;
    bool overrideRedirect = false;
    std::uint32_t events = 0; // an event mask
};

struct X11ClientMonitor {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    bool primary = false;
};

// Another program on an X server, by plain requests. It also plays the user. Every operation returns after the server
// has done it.
class X11Client {
public:
    explicit X11Client(const std::string& displayName);
    ~X11Client();
    X11Client(const X11Client&) = delete;
    X11Client& operator=(const X11Client&) = delete;

    xcb_connection_t* connection() const { return _connection; }
    xcb_window_t root() const { return _screen->root; }
    xcb_atom_t atom(const std::string& name);

    xcb_window_t makeWindow(const X11ClientWindow& window = {});
    void map(xcb_window_t window);
    void unmap(xcb_window_t window);
    void destroy(xcb_window_t window);
    void move(xcb_window_t window, int x, int y);
    void raise(xcb_window_t window);
    // Raises the lowest window that another one covers.
    void circulate();
    void focus(xcb_window_t window);
    void setNumbers(
        xcb_window_t window, const std::string& property, xcb_atom_t type, const std::vector<std::uint32_t>& values);
    void setText(xcb_window_t window, const std::string& property, const std::string& text);
    std::vector<std::uint32_t> numbers(xcb_window_t window, const std::string& property);
    xcb_window_t focusedWindow();
    // The children of the root window, bottom to top.
    std::vector<xcb_window_t> stacking();
    bool exists(xcb_window_t window);
    bool isMapped(xcb_window_t window);
    bool isOverrideRedirect(xcb_window_t window);
    // How many pixels the bounding shape leaves of the window.
    int shapeArea(xcb_window_t window);

    bool grabPointer();
    void ungrabPointer();
    bool grabKeyboard();
    void ungrabKeyboard();
    // The combination of a key with modifiers of the core protocol, wherever the focus is.
    bool grabKey(std::uint8_t keyCode, std::uint16_t modifiers);
    void movePointer(int x, int y);
    void press(std::uint8_t button = 1);
    void release(std::uint8_t button = 1);
    void click(std::uint8_t button = 1);
    // Keys by X key code.
    void pressKey(std::uint8_t keyCode);
    void releaseKey(std::uint8_t keyCode);
    void typeKey(std::uint8_t keyCode);
    // Plugs in a further pointer and keyboard, and pulls them again.
    void addAndRemoveMasterDevice();

    // The events that have come since the last call, by their kind (XCB_BUTTON_PRESS, …).
    std::vector<int> takeEvents();
    int countEvents(int kind);

    void synchronize();

    // Makes these monitors in the place of those that it has made before; none gives the server its own one back. Each
    // has a name of its own, never used before. All at once for everybody who looks.
    void setMonitors(const std::vector<X11ClientMonitor>& monitors);
    xcb_atom_t addMonitor(const X11ClientMonitor& monitor);
    // Makes one of those that setMonitors has made anew, under its name.
    void changeMonitor(std::size_t index, const X11ClientMonitor& monitor);
    void removeMonitor(xcb_atom_t name);
    // Gives the server's own output a mode of this size, and a place. False when it refuses.
    bool setMode(std::uint16_t width, std::uint16_t height, std::int16_t x = 0, std::int16_t y = 0);

private:
    void setMonitor(xcb_atom_t name, const X11ClientMonitor& monitor, bool claimOutput);
    xcb_randr_mode_t modeOfSize(std::uint16_t width, std::uint16_t height);
    std::vector<std::uint16_t> pointers();
    void change(const std::vector<std::uint32_t>& change);
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);

    xcb_connection_t* _connection;
    const xcb_screen_t* _screen;
    std::vector<xcb_atom_t> _monitors;
    int _countOfMonitors = 0;
};

} // namespace tarragon
