#include "panels/widgets/QtPanelWindow.h"

#include "menus/QtCoordinates.h"
#include "panels/widgets/ButtonPlace.h"
#include "panels/widgets/PanelGeometry.h"
#include "platform/Log.h"

#include <cmath>
#include <utility>

namespace tarragon {

namespace {

// Window systems count pixels in 16 bits, and so does what draws in them. Wider than every desktop.
int largestSide(const QWidget& widget) {
    constexpr double MostPixels = 32000;
    return static_cast<int>(std::floor(MostPixels / widget.devicePixelRatioF()));
}

} // namespace

QtPanelWindow::QtPanelWindow(Displays& displays, PanelSurfaces* surfaces, PanelWindowHandler& handler)
    : _displays(displays)
    , _view(std::make_unique<PanelView>(displays, handler)) {
    if (!surfaces)
        return;
    // The identifier makes the window, which has not been shown.
    _surface = surfaces->makeSurface(_view->winId());
    if (!_surface) {
        log(LogCategory::Panel, [] { return "the desktop takes a panel for an ordinary window"; });
        return;
    }
    _surface->setPointerHandler(
        [view = _view.get()](const std::optional<Point>& location) { view->tellPointer(location); });
    updateClickableRegion();
}

QtPanelWindow::~QtPanelWindow() {
    // Before the window of the surface goes.
    _surface.reset();
    PanelView::retire(std::move(_view));
}

void QtPanelWindow::setFrame(const Rect& frameNS) {
    const QRect frame = qtFrameFromNS(frameNS, _displays.screens(), qtPrimaryOrigin(), largestSide(*_view));
    if (frame == _view->geometry())
        return;
    _view->setGeometry(frame);
    updateClickableRegion();
}

void QtPanelWindow::orderFront() {
    applyLevel();
    updateOpacity();
    _view->show();
    // A surface keeps the window in its place by itself.
    if (!_surface)
        _view->raise();
}

void QtPanelWindow::orderOut() {
    _view->hide();
    applyLevel();
}

void QtPanelWindow::setAlpha(double alpha) {
    if (_surface) {
        _surface->setAlpha(alpha);
        updateOpacity();
    } else
        _view->setWindowOpacity(alpha);
}

void QtPanelWindow::setLevel(PanelLevel level) {
    _level = level;
    applyLevel();
}

// The desktop takes a window for a dock, or for none, when it is shown. A level that comes too late for that waits.
void QtPanelWindow::applyLevel() {
    const bool concernsDock = _level == PanelLevel::Dock || _appliedLevel == PanelLevel::Dock;
    if (!_surface || (concernsDock && _view->isVisible()))
        return;
    _surface->setLevel(_level);
    _appliedLevel = _level;
}

void QtPanelWindow::display(const PanelContent& content) {
    _view->display(content);
    updateClickableRegion();
    updateOpacity();
}

// Asked whenever something changes about the panel: compositors hardly ever start or end meanwhile.
void QtPanelWindow::updateOpacity() {
    if (_surface)
        _view->setOpaque(!_surface->isTranslucent());
}

void QtPanelWindow::updateClickableRegion() {
    if (!_surface)
        return;
    std::vector<Rect> region = paintedRegion(_view->content(), _view->size());
    if (region == _clickableRegion && !region.empty())
        return;
    _clickableRegion = std::move(region);
    _surface->setClickableRegion(_clickableRegion);
}

} // namespace tarragon
