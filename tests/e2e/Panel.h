#pragma once

#include "Agent.h"
#include "Wait.h"
#include "XDisplay.h"

#include <optional>
#include <string>
#include <vector>

namespace tarragon::e2e {

// One title of the panel, as the program tells where it has put it.
struct PanelTitle {
    std::string title;
    // Points from the panel's left edge.
    int left = 0;
    int right = 0;
    bool operator==(const PanelTitle&) const = default;
};

// The floating panel of a program as the X server shows it, asked anew by every function. Before the program has made
// its panel there is no window: nothing is seen then, and every rectangle is empty.
class Panel {
public:
    // Pixels for each of the program's points. Only the titles' places need them.
    Panel(XDisplay& display, Agent& agent, double pixelsPerPoint = 1);

    // XCB_NONE while there is none.
    xcb_window_t window() const;
    // In pixels of the root window, also while the panel is hidden.
    PixelRect frame() const;
    bool isViewable() const;
    // From 0 to 1, as a compositor is told.
    double opacity() const;
    // What is drawn of it and what takes clicks, in pixels from its top-left corner.
    std::vector<PixelRect> boundingShape() const;
    std::vector<PixelRect> inputShape() const;
    // True when a user can see something of it, if nothing lies above it.
    bool isSeen() const;
    // True when a click in its titles is for the panel.
    bool takesClicks() const;

    // The mapped windows of the root window, frames of the window manager among them, bottom to top.
    std::vector<xcb_window_t> stacking() const;
    // Of any two mapped windows, with what the window manager has put around them.
    bool liesAbove(xcb_window_t window, xcb_window_t other) const;
    // XCB_NONE when nothing mapped lies below it.
    xcb_window_t windowBelow() const;
    // Bottom to top.
    std::vector<xcb_window_t> windowsAbove() const;
    // The child of the root window that a window is in: itself, or what the window manager has put around it.
    xcb_window_t frameWindowOf(xcb_window_t window) const;

    // Left to right, the overflow among them. Needs a program that was started with TitlesInLog.
    std::vector<PanelTitle> titles() const;
    std::vector<std::string> titleTexts() const;
    // In pixels of the root window, over the panel's whole height; nothing when there is no such title.
    std::optional<PixelRect> frameOfTitle(const std::string& title) const;

    // The titles that a line of the program's log tells of, as of a panel or a bar.
    static std::vector<PanelTitle> titlesIn(const std::string& line);

    bool waitUntilSeen(Duration deadline = DefaultDeadline) const;
    bool waitUntilNotSeen(Duration deadline = DefaultDeadline) const;
    // Of a panel that fades.
    bool waitUntilOpaque(Duration deadline = DefaultDeadline) const;
    bool waitUntilTransparent(Duration deadline = DefaultDeadline) const;
    // Seen, too.
    bool waitForFrame(const PixelRect& frame, Duration deadline = DefaultDeadline) const;
    // Seen, with these titles first as far as they found room. The system's own menu follows them.
    bool waitForTitles(const std::vector<std::string>& titles, Duration deadline = DefaultDeadline) const;

    // For the environment of a program that is to tell where it puts titles, and which settings it has heard of.
    static const Environment TitlesInLog;
    // The title of the menu of those that found no room.
    static const std::string OverflowTitle;

private:
    std::vector<PixelRect> shape(std::uint8_t kind) const;

    XDisplay& _display;
    Agent& _agent;
    double _pixelsPerPoint;
};

} // namespace tarragon::e2e
