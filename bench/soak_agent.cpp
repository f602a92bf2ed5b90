// The agent for a soak: everything as in the program itself, but that a pause returns at once and that each handled
// switch is told on standard output, as "PROCESS ITEMS BYTES": the number of items in the mirror's root menu, and what
// the heap has handed out.

#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "menus/MenuView.h"
#include "panels/MessagePanels.h"
#include "platform/linux/atspi/LinuxAccessibility.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopLauncher.h"
#include "platform/linux/desktop/TerminationSignals.h"
#include "platform/linux/settings/PropertyListDefaults.h"
#include "platform/linux/x11/QtNativeEvents.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"
#include "platform/linux/x11/X11MenuInput.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/x11/X11Workspace.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"

#include <QApplication>

#include <iostream>

#include <malloc.h>

using namespace tarragon;

namespace {

class HurriedRunLoop : public QtRunLoop {
public:
    void pause(double) override { }
};

void tellOfSwitch(const Notification& notification, const AppDelegate& delegate) {
    const auto process = notification.userInformation.find(ZDAppChangeNotifier::PID);
    const AppController* controller = delegate.appController();
    const bool hasReader = controller && controller->reader();
    std::cout << (process == notification.userInformation.end() ? 0 : process->second) << ' '
              << (hasReader ? controller->reader()->menu()->numberOfItems() : 0) << ' ' << mallinfo2().uordblks
              << std::endl;
}

} // namespace

int main(int argumentCount, char** arguments) {
    auto connection = X11Connection::connect();
    if (!connection)
        return 1;
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName("Tarragon");

    HurriedRunLoop runLoop;
    QtDisplays qtDisplays(runLoop);
    X11Displays displays(qtDisplays, *connection);
    NotificationCenter notificationCenter;
    X11Windows windows(*connection);
    DesktopEntries desktopEntries;
    LinuxAccessibility accessibility(windows, desktopEntries);
    X11Workspace workspace(*connection, windows, desktopEntries, runLoop, openURLDetached);
    auto* toolkitConnection = static_cast<xcb_connection_t*>(qtX11Connection());
    X11HotKeys hotKeys(toolkitConnection, connection->rootWindow(), runLoop);
    PropertyListDefaults defaults(runLoop, PropertyListDefaults::fileOfUser());
    X11MenuInput menuInput(toolkitConnection);
    const QtNativeEvents nativeEvents(
        runLoop, [&](const void* event) { return hotKeys.handleEvent(static_cast<const xcb_generic_event_t*>(event)); },
        [&](void* event) { return menuInput.redirect(static_cast<xcb_generic_event_t*>(event)); });

    const Platform platform{
        accessibility, workspace, displays, hotKeys, defaults, runLoop, notificationCenter, nullptr, {}};
    MenuView menuView(platform.displays, platform.notificationCenter, &menuInput);
    MessagePanels panels("soak");
    AppDelegate delegate(platform, menuView, panels, {});
    const TerminationSignals terminationSignals(runLoop, [&] { delegate.terminate(); });
    runLoop.post([&] {
        delegate.applicationWillFinishLaunching();
        // After the controller, so that the switch has been handled by then.
        notificationCenter.addObserver(ZDAppChangeNotifier::ZDAppChanged, nullptr,
            [&](const Notification& notification) { tellOfSwitch(notification, delegate); });
    });
    return runLoop.run();
}
