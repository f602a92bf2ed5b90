#pragma once

#include "platform/qt/ScreenConfiguration.h"

#include <cstdint>
#include <functional>
#include <vector>

#include <QObject>

class QScreen;

namespace tarragon {

class RunLoop;

// Tells of changes of Qt's screens. Qt tells of one change in several steps, with screens in between that never were:
// it is looked at when Qt has gone through all of them.
class QtScreenWatch {
public:
    // The run loop is not owned and ends before this object does.
    explicit QtScreenWatch(RunLoop& runLoop);
    QtScreenWatch(const QtScreenWatch&) = delete;
    QtScreenWatch& operator=(const QtScreenWatch&) = delete;

    // Called with bits of displayReconfiguration.
    void addHandler(std::function<void(std::uint32_t flags)> handler);

private:
    void watch(QScreen* screen);
    void lookLater();
    void look();

    RunLoop& _runLoop;
    ScreenConfiguration _configuration;
    std::vector<std::function<void(std::uint32_t flags)>> _handlers;
    bool _lookIsPending = false;
    bool _screensCameOrWent = false; // since the last look
    QObject _connections; // whose end ends the connections to Qt's signals
};

} // namespace tarragon
