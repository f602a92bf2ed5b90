#pragma once

#include "platform/PanelSurfaces.h"
#include "platform/linux/panelsurfaces/X11PanelWindow.h"
#include "platform/linux/panelsurfaces/X11ReservedRoom.h"

#include <functional>
#include <optional>
#include <vector>

namespace tarragon {

class X11PanelSurfaces;
class X11Stacking;

class X11PanelSurface : public PanelSurface {
public:
    X11PanelSurface(X11PanelSurfaces& surfaces, X11PanelWindow window);
    ~X11PanelSurface() override;
    X11PanelSurface(const X11PanelSurface&) = delete;
    X11PanelSurface& operator=(const X11PanelSurface&) = delete;

    void setLevel(PanelLevel level) override;
    void setAlpha(double alpha) override;
    bool isTranslucent() const override;
    void setClickableRegion(const std::vector<Rect>& region) override;
    void setPointerHandler(std::function<void(const std::optional<Point>& location)> handler) override;

    std::uint32_t window() const { return _window.identifier(); }
    // A compositor has come or gone, or something else that the appearance depends on has changed.
    void applyAppearance();
    // The window or the monitors have changed; the frame is asked for when all events are handled.
    void frameMayHaveChanged() { _frameIsKnown = false; }
    void updateFrame();
    // The window has been shown.
    void wasMapped();

private:
    X11Stacking* stackingOf(PanelLevel level);
    void reserveRoom();
    void show();
    double pixelsPerPoint() const;

    X11PanelSurfaces& _surfaces;
    X11PanelWindow _window;
    PanelLevel _level = PanelLevel::FrontWindow;
    double _alpha = 1;
    std::optional<std::vector<Rect>> _clickableRegion; // in points; nothing for all of the window
    std::optional<Rect> _frame; // in pixels; nothing while it is hidden
    double _pixelsPerPoint = 1;
    bool _frameIsKnown = false;
    // Of a dock: the room that it reserves, and where it lay when it was shown last, in pixels.
    std::optional<X11ReservedRoom> _reservedRoom;
    std::optional<Rect> _dockFrame;
};

} // namespace tarragon
