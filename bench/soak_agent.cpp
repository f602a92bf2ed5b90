// The agent for a soak: everything as in the program itself, but that a pause returns at once, that what happens twice
// a second or less often happens ten times as often, and that each handled switch is told on standard output, as
// "PROCESS ITEMS BYTES": the number of items in the mirror's root menu, and what the heap has handed out.

#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "menus/MenuView.h"
#include "menus/PopUpInput.h"
#include "panels/widgets/MessagePanels.h"
#include "panels/widgets/QtPanelToolkit.h"
#include "platform/linux/LinuxPlatform.h"
#include "prefs/widgets/QtPreferencesInterface.h"
#include "updates/UpdateChecker.h"

#include <functional>
#include <iostream>
#include <memory>
#include <utility>

#include <malloc.h>

using namespace tarragon;

namespace {

// Another run loop, but for the pauses and the timers that tick slowly.
class HurriedRunLoop : public RunLoop {
public:
    explicit HurriedRunLoop(RunLoop& runLoop)
        : _runLoop(runLoop) { }

    std::unique_ptr<Timer> scheduleTimer(double seconds, bool repeats, std::function<void()> handler) override {
        constexpr double Slow = 0.4;
        constexpr double Haste = 10;
        return _runLoop.scheduleTimer(
            repeats && seconds > Slow ? seconds / Haste : seconds, repeats, std::move(handler));
    }
    void pause(double) override { }
    void endPausesFor(int /*descriptor*/) override { }
    void post(std::function<void()> function) override { _runLoop.post(std::move(function)); }
    void watchDescriptor(int descriptor, std::function<void()> handler) override {
        _runLoop.watchDescriptor(descriptor, std::move(handler));
    }
    void stop(int exitStatus) override { _runLoop.stop(exitStatus); }

private:
    RunLoop& _runLoop;
};

void tellOfSwitch(const Notification& notification, const AppDelegate& delegate) {
    const auto process = notification.userInformation.find(ZDAppChangeNotifier::PID);
    const AppController* controller = delegate.appController();
    const bool hasReader = controller && controller->reader();
    std::cout << (process == notification.userInformation.end() ? 0 : process->second) << ' '
              << (hasReader ? controller->reader()->menu()->numberOfItems() : 0) << ' ' << mallinfo2().uordblks
              << std::endl;
}

// Nothing that the soak does asks for a newer version.
class NoUpdates : public UpdateChecker {
public:
    std::string builtInFeed() const override { return {}; }
    bool isChecking() const override { return false; }
    void check(const std::string&, Handler) override { }
};

} // namespace

int main(int, char** arguments) {
    const auto created = createLinuxPlatform({arguments[0], "Tarragon", "soak"});
    if (const auto* error = std::get_if<DesktopError>(&created)) {
        std::cerr << "soak_agent: " << error->message << std::endl;
        return 1;
    }
    DesktopSession& desktop = *std::get<std::unique_ptr<DesktopSession>>(created);
    const Platform& usual = desktop.platform();
    HurriedRunLoop runLoop(usual.runLoop);
    const Platform platform{.accessibility = usual.accessibility,
        .workspace = usual.workspace,
        .displays = usual.displays,
        .hotKeys = usual.hotKeys,
        .defaults = usual.defaults,
        .runLoop = runLoop,
        .notificationCenter = usual.notificationCenter,
        .menuInput = usual.menuInput,
        .inputEvents = usual.inputEvents,
        .process = usual.process,
        .windowList = usual.windowList,
        .panelSurfaces = usual.panelSurfaces,
        .statusItems = usual.statusItems};

    MenuView menuView(platform.displays, platform.notificationCenter, platform.menuInput, platform.inputEvents);
    const PopUpInput popUpInput(platform.menuInput);
    MessagePanels panels("soak");
    QtPanelToolkit panelToolkit(platform.displays, platform.panelSurfaces);
    QtPreferencesInterface preferences(platform, "soak", std::cerr);
    NoUpdates updates;
    AppDelegate delegate(platform, {menuView, panelToolkit, panels, preferences}, updates, {}, std::cerr);
    desktop.watchTermination([&] { delegate.terminate(); });
    runLoop.post([&] {
        if (!delegate.loadMainInterface())
            return;
        delegate.applicationWillFinishLaunching();
        // After the controller, so that the switch has been handled by then.
        platform.notificationCenter.addObserver(ZDAppChangeNotifier::ZDAppChanged, nullptr,
            [&](const Notification& notification) { tellOfSwitch(notification, delegate); });
    });
    return desktop.run();
}
