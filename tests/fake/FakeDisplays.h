#pragma once

#include "platform/Displays.h"

namespace tarragon {

// Screens and a pointer in memory. Starts with one screen of 1440 by 900 points whose menu bar takes 22.
class FakeDisplays : public Displays {
public:
    void setScreens(std::vector<Screen> screens) { _screens = std::move(screens); }
    void setMainDisplayBoundsCG(const Rect& bounds) { _mainDisplayBoundsCG = bounds; }
    void setMouseLocationNS(const Point& point) { _mouseLocationNS = point; }
    // Tells the handlers of a change, with bits of displayReconfiguration.
    void reconfigure(std::uint32_t flags) {
        const auto handlers = _handlers; // one of them may install another
        for (const auto& handler : handlers)
            handler(flags);
    }
    int timesPointerWasAsked() const { return _timesPointerWasAsked; }
    std::size_t reconfigurationHandlerCount() const { return _handlers.size(); }

    std::vector<Screen> screens() override { return _screens; }
    Rect mainDisplayBoundsCG() override { return _mainDisplayBoundsCG; }
    Point mouseLocationNS() override {
        ++_timesPointerWasAsked;
        return _mouseLocationNS;
    }
    void installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) override {
        _handlers.push_back(std::move(handler));
    }

private:
    std::vector<Screen> _screens = {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}};
    Rect _mainDisplayBoundsCG = {{0, 0}, {1440, 900}};
    Point _mouseLocationNS;
    int _timesPointerWasAsked = 0;
    std::vector<std::function<void(std::uint32_t flags)>> _handlers;
};

} // namespace tarragon
