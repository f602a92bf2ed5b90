#pragma once

#include "platform/Displays.h"

namespace tarragon {

// Screens and a pointer in memory. Starts with one screen of 1440 by 900 points whose menu bar takes 22.
class FakeDisplays : public Displays {
public:
    void setScreens(std::vector<Screen> screens) { _screens = std::move(screens); }
    void setMainDisplayBoundsCG(const Rect& bounds) { _mainDisplayBoundsCG = bounds; }
    void setMouseLocationNS(const Point& point) { _mouseLocationNS = point; }

    std::vector<Screen> screens() override { return _screens; }
    Rect mainDisplayBoundsCG() override { return _mainDisplayBoundsCG; }
    Point mouseLocationNS() override { return _mouseLocationNS; }

private:
    std::vector<Screen> _screens = {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}};
    Rect _mainDisplayBoundsCG = {{0, 0}, {1440, 900}};
    Point _mouseLocationNS;
};

} // namespace tarragon
