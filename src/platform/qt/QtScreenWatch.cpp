#include "platform/qt/QtScreenWatch.h"

#include "platform/Displays.h"
#include "platform/RunLoop.h"

#include <utility>

#include <QGuiApplication>
#include <QScreen>

namespace tarragon {

namespace {

ScreenConfiguration currentConfiguration() {
    ScreenConfiguration configuration;
    for (const QScreen* screen : QGuiApplication::screens()) { // the primary screen is the first
        const QRect frame = screen->geometry();
        // While no screen is connected Qt has one of its own making, without a size.
        if (!frame.isEmpty()) {
            configuration.push_back({screen->name().toStdString(),
                {{double(frame.x()), double(frame.y())}, {double(frame.width()), double(frame.height())}}});
        }
    }
    return configuration;
}

} // namespace

QtScreenWatch::QtScreenWatch(RunLoop& runLoop)
    : _runLoop(runLoop)
    , _configuration(currentConfiguration()) {
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &_connections, [this](QScreen* screen) {
        watch(screen);
        lookLater();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &_connections, [this] { lookLater(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &_connections, [this] { lookLater(); });
}

void QtScreenWatch::addHandler(std::function<void(std::uint32_t flags)> handler) {
    _handlers.push_back(std::move(handler));
}

void QtScreenWatch::watch(QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &_connections, [this] { lookLater(); });
}

void QtScreenWatch::lookLater() {
    constexpr std::uint32_t ComingAndGoing = displayReconfiguration::Added | displayReconfiguration::Removed;
    _screensCameOrWent |= (reconfigurationFlags(_configuration, currentConfiguration()) & ComingAndGoing) != 0;
    if (!std::exchange(_lookIsPending, true))
        _runLoop.post([this] { look(); });
}

void QtScreenWatch::look() {
    _lookIsPending = false;
    ScreenConfiguration configuration = currentConfiguration();
    std::uint32_t flags = reconfigurationFlags(_configuration, configuration);
    _configuration = std::move(configuration);
    // Everything is as before, but who asked meanwhile has seen other screens.
    if (std::exchange(_screensCameOrWent, false) && flags == 0)
        flags = displayReconfiguration::Added | displayReconfiguration::Removed;
    if (flags == 0)
        return;
    const auto handlers = _handlers; // one of them may install another
    for (const auto& handler : handlers)
        handler(flags);
}

} // namespace tarragon
