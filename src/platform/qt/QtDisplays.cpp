#include "platform/qt/QtDisplays.h"

#include "platform/qt/QtScreenGeometry.h"
#include "platform/qt/QtScreenWatch.h"

#include <utility>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace tarragon {

namespace {

Rect rectOf(const QRect& rect) {
    return {{static_cast<double>(rect.x()), static_cast<double>(rect.y())},
        {static_cast<double>(rect.width()), static_cast<double>(rect.height())}};
}

// Empty when no screen is connected.
Rect primaryGeometry() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? rectOf(primary->geometry()) : Rect{};
}

} // namespace

QtDisplays::QtDisplays(RunLoop& runLoop)
    : _runLoop(runLoop) { }

QtDisplays::~QtDisplays() = default;

std::vector<Screen> QtDisplays::screens() {
    // While no screen is connected Qt has one of its own making, without a size.
    std::vector<QtScreenGeometry> found;
    for (const QScreen* screen : QGuiApplication::screens()) { // the primary screen is the first
        if (!screen->geometry().isEmpty())
            found.push_back({rectOf(screen->geometry()), rectOf(screen->availableGeometry())});
    }
    return screensFromQt(found);
}

Rect QtDisplays::mainDisplayBoundsCG() {
    const Rect primary = primaryGeometry();
    return rectCGFromQt(primary, primary);
}

Point QtDisplays::mouseLocationNS() {
    const QPoint position = QCursor::pos();
    return pointNSFromQt({static_cast<double>(position.x()), static_cast<double>(position.y())}, primaryGeometry());
}

void QtDisplays::installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) {
    if (!_watch)
        _watch = std::make_unique<QtScreenWatch>(_runLoop);
    _watch->addHandler(std::move(handler));
}

} // namespace tarragon
