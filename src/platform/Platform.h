#pragma once

#include "platform/Accessibility.h"
#include "platform/Defaults.h"
#include "platform/Displays.h"
#include "platform/HotKeys.h"
#include "platform/InputEvents.h"
#include "platform/InstalledApplications.h"
#include "platform/KeyRecorder.h"
#include "platform/Keyboard.h"
#include "platform/LoginItemList.h"
#include "platform/MenuInput.h"
#include "platform/NotificationCenter.h"
#include "platform/PanelSurfaces.h"
#include "platform/Process.h"
#include "platform/RunLoop.h"
#include "platform/StatusItems.h"
#include "platform/UserNotifications.h"
#include "platform/WindowList.h"
#include "platform/WindowPicker.h"
#include "platform/Workspace.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// Everything that a desktop offers, handed to the objects above the seam by constructor. Owns nothing: the services
// belong to whoever chose the back end and outlive every user of the bundle.
struct Platform {
    Accessibility& accessibility;
    Workspace& workspace;
    Displays& displays;
    HotKeys& hotKeys;
    Defaults& defaults;
    RunLoop& runLoop;
    NotificationCenter& notificationCenter;
    MenuInput& menuInput;
    std::string bundlePath = {}; // of the running program; empty when unknown

    // What a desktop may be without; nullptr then.
    Keyboard* keyboard = nullptr;
    LoginItemList* loginItemList = nullptr;
    InputEvents* inputEvents = nullptr;
    Process* process = nullptr;
    WindowList* windowList = nullptr;
    PanelSurfaces* panelSurfaces = nullptr;
    StatusItems* statusItems = nullptr;
    InstalledApplications* installedApplications = nullptr;
    KeyRecorder* keyRecorder = nullptr;
    UserNotifications* userNotifications = nullptr;
    WindowPicker* windowPicker = nullptr;

    // Keys of the settings that change nothing here, because this desktop does not have what they are about. Nobody is
    // offered these.
    std::vector<std::string_view> settingsWithoutEffect = {};
};

} // namespace tarragon
