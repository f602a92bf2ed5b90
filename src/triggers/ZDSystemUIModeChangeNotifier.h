#pragma once

#include "platform/NotificationCenter.h"
#include "platform/Workspace.h"

namespace tarragon {

// Turns the desktop's event that it has hidden or shown its own surfaces into the notification "ZDSystemUIModeChanged"
// with the notifier as its object and no user information. Main thread only; lives as long as the services. Nothing
// observes the notification yet.
class ZDSystemUIModeChangeNotifier {
public:
    static constexpr const char* ZDSystemUIModeChanged = "ZDSystemUIModeChanged";

    ZDSystemUIModeChangeNotifier(Workspace& workspace, NotificationCenter& notificationCenter);
    ZDSystemUIModeChangeNotifier(const ZDSystemUIModeChangeNotifier&) = delete;
    ZDSystemUIModeChangeNotifier& operator=(const ZDSystemUIModeChangeNotifier&) = delete;

    // False when the desktop does not tell of such events. The handler is never removed.
    [[nodiscard]] bool setupSystemUIModeChangedHandler();
    // Posts the notification.
    void systemUIModeChanged();

private:
    Workspace& _workspace;
    NotificationCenter& _notificationCenter;
};

} // namespace tarragon
