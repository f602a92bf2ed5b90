#pragma once

#include "platform/NotificationCenter.h"
#include "platform/Workspace.h"

#include <string>

namespace tarragon {

// Turns the desktop's event that another application has come to the front into the notification "ZDAppChanged" with
// the notifier as its object. Main thread only; lives as long as the services.
class ZDAppChangeNotifier {
public:
    static constexpr const char* ZDAppChanged = "ZDAppChanged";
    // Key of the user information: the process identifier of the application in front when the notification is posted.
    // Left out when no application is in front.
    static constexpr const char* PID = "PID";

    ZDAppChangeNotifier(Workspace& workspace, NotificationCenter& notificationCenter);
    ZDAppChangeNotifier(const ZDAppChangeNotifier&) = delete;
    ZDAppChangeNotifier& operator=(const ZDAppChangeNotifier&) = delete;

    // False when the desktop does not tell of such events. The handler is never removed.
    [[nodiscard]] bool setupAppFrontSwitchedHandler();
    // Posts the notification.
    void appFrontSwitched();

private:
    Workspace& _workspace;
    NotificationCenter& _notificationCenter;
};

} // namespace tarragon
