#include "platform/linux/panelsurfaces/X11PanelSurface.h"

#include "platform/linux/panelsurfaces/PanelAppearance.h"
#include "platform/linux/panelsurfaces/TopStrut.h"
#include "platform/linux/panelsurfaces/X11Monitors.h"
#include "platform/linux/panelsurfaces/X11PanelSurfaces.h"

#include <utility>

namespace tarragon {

X11PanelSurface::X11PanelSurface(X11PanelSurfaces& surfaces, X11PanelWindow window)
    : _surfaces(surfaces)
    , _window(window) {
    _surfaces._surfaces.insert(this);
    _window.refuseFocus();
    _window.joinAllWorkspaces();
    _window.setManagedAsDock(false);
    stackingOf(_level)->add(_window.identifier());
    applyAppearance();
}

X11PanelSurface::~X11PanelSurface() {
    _surfaces._pointerTracking.stopTracking(_window.identifier());
    if (X11Stacking* stacking = stackingOf(_level))
        stacking->remove(_window.identifier());
    _surfaces._surfaces.erase(this);
}

void X11PanelSurface::setLevel(PanelLevel level) {
    const PanelLevel former = std::exchange(_level, level);
    if (former == level)
        return;
    if (X11Stacking* stacking = stackingOf(former))
        stacking->remove(_window.identifier());
    if (former == PanelLevel::Dock || level == PanelLevel::Dock) {
        _window.setManagedAsDock(level == PanelLevel::Dock);
        _reservedRoom.reset();
        _dockFrame.reset();
    }
    if (X11Stacking* stacking = stackingOf(level))
        stacking->add(_window.identifier());
    if (level == PanelLevel::PopUpMenu)
        _window.raise();
    _frameIsKnown = false;
    updateFrame();
}

void X11PanelSurface::setAlpha(double alpha) {
    if (std::exchange(_alpha, alpha) != alpha)
        applyAppearance();
}

bool X11PanelSurface::isTranslucent() const {
    return _surfaces._compositor->isRunning();
}

void X11PanelSurface::setClickableRegion(const std::vector<Rect>& region) {
    if (_clickableRegion == region)
        return;
    _clickableRegion = region;
    applyAppearance();
}

void X11PanelSurface::setPointerHandler(std::function<void(const std::optional<Point>& location)> handler) {
    _surfaces._pointerTracking.track(
        _window.identifier(), [this, told = std::move(handler)](const std::optional<Point>& pixel) {
            // The surface may be gone when the handler returns.
            told(pixel ? std::optional(Point{pixel->x / _pixelsPerPoint, pixel->y / _pixelsPerPoint}) : std::nullopt);
        });
    _frameIsKnown = false;
    updateFrame();
}

void X11PanelSurface::applyAppearance() {
    _pixelsPerPoint = pixelsPerPoint();
    show();
}

void X11PanelSurface::show() {
    std::optional<std::vector<Rect>> pixels = _clickableRegion;
    if (pixels) {
        for (Rect& rect : *pixels) {
            rect = {{rect.origin.x * _pixelsPerPoint, rect.origin.y * _pixelsPerPoint},
                {rect.size.width * _pixelsPerPoint, rect.size.height * _pixelsPerPoint}};
        }
    }
    _window.show(panelAppearance(_alpha, _surfaces._compositor->isRunning()), pixels);
}

// Of the screen that most of the panel is on, or would be if it were shown.
double X11PanelSurface::pixelsPerPoint() const {
    const PixelScale scale = _surfaces.scale();
    if (scale.isOne())
        return 1;
    const std::optional<Rect> frame = _frame ? _frame : _window.frame();
    return frame ? scale.scaleOfPixels(*frame) : 1;
}

void X11PanelSurface::updateFrame() {
    if (std::exchange(_frameIsKnown, true))
        return;
    _frame = _window.visibleFrame();
    if (const double pixels = pixelsPerPoint(); std::exchange(_pixelsPerPoint, pixels) != pixels)
        show();
    _surfaces._pointerTracking.setArea(_window.identifier(), _frame);
    if (_level == PanelLevel::Dock)
        reserveRoom();
}

// The room stays while the dock is hidden, or else every maximised window would be resized twice.
void X11PanelSurface::reserveRoom() {
    if (_frame)
        _dockFrame = _frame;
    if (!_dockFrame)
        return;
    if (!_reservedRoom)
        _reservedRoom.emplace(_surfaces._connection);
    _reservedRoom->reserve(topStrut(*_dockFrame, monitorFrames(_surfaces._connection)));
}

void X11PanelSurface::wasMapped() {
    if (_level == PanelLevel::Dock)
        _window.askForAllWorkspaces();
}

// Nothing for a level that the window manager keeps, or that is kept by no one.
X11Stacking* X11PanelSurface::stackingOf(PanelLevel level) {
    switch (level) {
    case PanelLevel::FrontWindow:
        return &_surfaces._aboveFrontWindow;
    case PanelLevel::OrdinaryWindows:
        return &_surfaces._aboveOrdinaryWindows;
    case PanelLevel::Dock:
    case PanelLevel::PopUpMenu:
        break;
    }
    return nullptr;
}

} // namespace tarragon
