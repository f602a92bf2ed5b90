#include "triggers/ZDAppChangeNotifier.h"

namespace tarragon {

ZDAppChangeNotifier::ZDAppChangeNotifier(Workspace& workspace, NotificationCenter& notificationCenter)
    : _workspace(workspace)
    , _notificationCenter(notificationCenter) { }

bool ZDAppChangeNotifier::setupAppFrontSwitchedHandler() {
    return _workspace.installFrontSwitchedHandler([this] { appFrontSwitched(); });
}

void ZDAppChangeNotifier::appFrontSwitched() {
    Notification notification{.name = ZDAppChanged, .object = this, .userInformation = {}};
    // Read now rather than taken from the event: the front may have changed again since.
    if (const auto application = _workspace.activeApplication())
        notification.userInformation[PID] = application->processIdentifier;
    _notificationCenter.postNotification(notification);
}

} // namespace tarragon
