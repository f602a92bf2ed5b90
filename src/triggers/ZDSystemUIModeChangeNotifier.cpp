#include "triggers/ZDSystemUIModeChangeNotifier.h"

namespace tarragon {

ZDSystemUIModeChangeNotifier::ZDSystemUIModeChangeNotifier(Workspace& workspace, NotificationCenter& notificationCenter)
    : _workspace(workspace)
    , _notificationCenter(notificationCenter) { }

bool ZDSystemUIModeChangeNotifier::setupSystemUIModeChangedHandler() {
    return _workspace.installSystemUIModeChangedHandler([this] { systemUIModeChanged(); });
}

void ZDSystemUIModeChangeNotifier::systemUIModeChanged() {
    _notificationCenter.postNotification({.name = ZDSystemUIModeChanged, .object = this, .userInformation = {}});
}

} // namespace tarragon
