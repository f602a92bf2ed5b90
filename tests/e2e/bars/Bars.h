#pragma once

#include "Agent.h"
#include "Panel.h"
#include "XDisplay.h"

#include <optional>
#include <string>
#include <vector>

namespace tarragon::e2e {

// The bars of a program at the top of the monitors but the primary one, as the X server shows them, asked anew by every
// function.
class Bars {
public:
    // Pixels for each of the program's points. Only the titles' places need them.
    Bars(XDisplay& display, Agent& agent, double pixelsPerPoint = 1);

    // Those of which a user can see something if nothing lies above them, from left to right and from top to bottom.
    std::vector<XWindow> seen() const;
    std::vector<PixelRect> framesSeen() const;
    // Nothing unless one is seen there.
    std::optional<XWindow> seenOn(const PixelRect& monitor) const;
    // From 0 to 1, as a compositor is told.
    double opacityOf(xcb_window_t bar) const;
    bool isDock(xcb_window_t bar) const;

    // Left to right, of the bar of a screen; the first screen has index 0 and no bar. Needs a program that was started
    // with Panel::TitlesInLog.
    std::vector<PanelTitle> titles(int screen) const;
    // In pixels of the root window, over the whole height of the bar on the monitor.
    std::optional<PixelRect> frameOfTitle(int screen, const PixelRect& monitor, const std::string& title) const;

private:
    XDisplay& _display;
    Agent& _agent;
    double _pixelsPerPoint;
};

} // namespace tarragon::e2e
