#pragma once

#include "platform/WindowPicker.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

namespace tarragon {

class ApplicationDirectory;
class RunLoop;
class WindowSource;
class X11Connection;

// Grabs pointer and keyboard until a button or Escape is let go, so that nobody else hears of either. The grabs are on
// a connection of its own, made with the first pick. What is passed in outlives this object.
class X11WindowPicker : public WindowPicker {
public:
    X11WindowPicker(
        X11Connection& connection, RunLoop& runLoop, WindowSource& windows, ApplicationDirectory& applications);
    ~X11WindowPicker() override;
    X11WindowPicker(const X11WindowPicker&) = delete;
    X11WindowPicker& operator=(const X11WindowPicker&) = delete;

    [[nodiscard]] bool pickWindow(std::function<void(const std::optional<PickedWindow>& window)> handler) override;
    void cancel() override;

private:
    // What was pressed, which decides the outcome when it is let go.
    struct Press {
        std::uint8_t releaseType; // kind of the event that ends it
        std::uint8_t detail; // the button or key
        std::optional<PickedWindow> window;
    };

    bool connect();
    [[nodiscard]] bool grab();
    void letGo();
    void takeEvents();
    void handle(const xcb_generic_event_t& event);
    void release(std::uint8_t type, std::uint8_t detail);
    std::optional<PickedWindow> windowOf(std::uint32_t childOfRoot);

    X11Connection& _otherConnection;
    RunLoop& _runLoop;
    WindowSource& _windows;
    ApplicationDirectory& _applications;
    std::unique_ptr<X11Connection> _connection; // nullptr before the first pick
    xcb_cursor_t _cursor = XCB_CURSOR_NONE;
    std::function<void(const std::optional<PickedWindow>& window)> _handler; // empty while nobody picks
    std::optional<Press> _press;
};

} // namespace tarragon
