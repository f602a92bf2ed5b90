#pragma once

#include "fake/PollingRunLoop.h"
#include "platform/linux/panelsurfaces/X11PanelSurfaces.h"
#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tarragon {

// A panel of 100 by 20 pixels at (20, 30), which the toolkit has made, over the window of another application.
class X11PanelSurfacesTest : public testing::Test {
protected:
    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(connection);
        toolkit = std::make_unique<X11Client>(_server.displayName());
        other = std::make_unique<X11Client>(_server.displayName());
        surfaces = std::make_unique<X11PanelSurfaces>(*connection, runLoop, &scale);

        frame = makeWindow(10, 10);
        setFront(frame);
        panel = toolkit->makeWindow({.x = 20,
            .y = 30,
            .width = 100,
            .height = 20,
            .overrideRedirect = true,
            .events = XCB_EVENT_MASK_BUTTON_PRESS});
        other->movePointer(300, 200);
        surface = surfaces->makeSurface(panel);
        ASSERT_TRUE(surface);
        toolkit->map(panel);
        settle();
        toolkit->takeEvents();
        other->takeEvents();
    }

    xcb_window_t makeWindow(std::int16_t x, std::int16_t y) {
        const xcb_window_t window = other->makeWindow({.x = x,
            .y = y,
            .width = 150,
            .height = 100,
            .events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE});
        other->map(window);
        return window;
    }
    // As a window manager does it.
    void setFront(xcb_window_t window) {
        other->setNumbers(other->root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
    }
    // Everything is handled that the server tells of what was done up to now.
    void settle() {
        for (int round = 0; round < 3; ++round) {
            runLoop.runReadable();
            connection->atom("TARRAGON_TEST_BARRIER_" + std::to_string(++_barriers));
        }
    }
    // The windows, bottom to top, without those that nobody asked for.
    std::vector<xcb_window_t> order(const std::vector<xcb_window_t>& of) {
        std::vector<xcb_window_t> all = toolkit->stacking();
        std::erase_if(all, [&](xcb_window_t window) { return std::ranges::find(of, window) == of.end(); });
        return all;
    }
    bool becomes(const std::vector<xcb_window_t>& expected) {
        return runLoop.runUntil([&] { return order(expected) == expected; });
    }
    // Who gets a click there: the panel's press counts in tens, the other application's in ones.
    int pressesAfterClick(int x, int y) {
        toolkit->takeEvents();
        other->takeEvents();
        other->movePointer(x, y);
        other->click();
        return 10 * toolkit->countEvents(XCB_BUTTON_PRESS) + other->countEvents(XCB_BUTTON_PRESS);
    }
    // The window that room is reserved with; none when there is none.
    xcb_window_t room() {
        for (const xcb_window_t window : toolkit->stacking()) {
            if (!toolkit->numbers(window, "_NET_WM_STRUT_PARTIAL").empty())
                return window;
        }
        return XCB_WINDOW_NONE;
    }
    std::vector<std::uint32_t> strut() {
        const xcb_window_t window = room();
        return window == XCB_WINDOW_NONE ? std::vector<std::uint32_t>()
                                         : toolkit->numbers(window, "_NET_WM_STRUT_PARTIAL");
    }
    // An application besides the other one.
    std::unique_ptr<X11Client> connectStranger() { return std::make_unique<X11Client>(_server.displayName()); }
    // As a window manager does it, for windows that it does not restack.
    void tellOrder(const std::vector<xcb_window_t>& windows) {
        other->setNumbers(other->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, windows);
    }
    void startCompositor() {
        _compositor = std::make_unique<X11Client>(_server.displayName());
        const xcb_window_t owner = _compositor->makeWindow();
        xcb_set_selection_owner(_compositor->connection(), owner, _compositor->atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        _compositor->synchronize();
    }
    void stopCompositor() { _compositor.reset(); }

    static constexpr int ToPanel = 10;
    static constexpr int ToOther = 1;

private:
    XkbServer _server;
    std::unique_ptr<X11Client> _compositor;
    int _barriers = 0;

protected:
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Client> toolkit;
    std::unique_ptr<X11Client> other;
    PollingRunLoop runLoop;
    CurrentPixelScale scale;
    std::unique_ptr<X11PanelSurfaces> surfaces;
    std::unique_ptr<PanelSurface> surface;
    xcb_window_t panel = 0;
    xcb_window_t frame = 0;
};

} // namespace tarragon
