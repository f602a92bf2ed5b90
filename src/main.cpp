// Chooses the back end and hands it to the agent or to a command.

#include "app/AppDelegate.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "menus/MenuView.h"
#include "panels/MessagePanels.h"
#include "platform/LogCategories.h"
#include "platform/linux/atspi/LinuxAccessibility.h"
#include "platform/linux/desktop/AutostartLoginItemList.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopLauncher.h"
#include "platform/linux/desktop/DesktopShortcutsSession.h"
#include "platform/linux/desktop/TerminationSignals.h"
#include "platform/linux/settings/PropertyListDefaults.h"
#include "platform/linux/x11/QtNativeEvents.h"
#include "platform/linux/x11/RunningInstance.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"
#include "platform/linux/x11/X11MenuInput.h"
#include "platform/linux/x11/X11WindowManager.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/x11/X11Workspace.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "platform/linux/xkb/XkbKeyboard.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtLogSink.h"
#include "platform/qt/QtRunLoop.h"

#include <QApplication>
#include <QUrl>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

using namespace tarragon;

namespace {

// The desktop as the program sees it: every service of the back end, made once.
class Desktop {
public:
    explicit Desktop(std::unique_ptr<X11Connection> connection)
        : _connection(std::move(connection))
        , _displays(_qtDisplays, *_connection)
        , _windows(*_connection)
        , _accessibility(_windows, _desktopEntries)
        , _workspace(*_connection, _windows, _desktopEntries, _runLoop, openURLDetached)
        , _hotKeys(static_cast<xcb_connection_t*>(qtX11Connection()), _connection->rootWindow(), _runLoop)
        , _keyboard(
              _connection->connectAnother(), _runLoop,
              [this](auto keyCode, auto modifiers) { return _hotKeys.isOwnCombination(keyCode, modifiers); },
              [this] { return DesktopShortcutsSession::current(windowManagerName(*_connection)).readShortcuts(); })
        , _settingsFile(PropertyListDefaults::fileOfUser())
        , _defaults(_runLoop, _settingsFile)
        , _menuInput(static_cast<xcb_connection_t*>(qtX11Connection()))
        , _nativeEvents(
              _runLoop,
              [this](
                  const void* event) { return _hotKeys.handleEvent(static_cast<const xcb_generic_event_t*>(event)); },
              [this](void* event) { return _menuInput.redirect(static_cast<xcb_generic_event_t*>(event)); }) { }

    Platform platform() {
        return {_accessibility, _workspace, _displays, _hotKeys, _defaults, _runLoop, _notificationCenter, &_keyboard,
            &_loginItems, QApplication::applicationFilePath().toStdString()};
    }
    QtRunLoop& runLoop() { return _runLoop; }
    LinuxAccessibility& accessibility() { return _accessibility; }
    MenuInput& menuInput() { return _menuInput; }
    // Empty when the settings are kept in memory only.
    std::string settingsURL() const {
        return QUrl::fromLocalFile(QString::fromStdString(_settingsFile.string()))
            .toString(QUrl::FullyEncoded)
            .toStdString();
    }

private:
    std::unique_ptr<X11Connection> _connection;
    QtRunLoop _runLoop;
    QtDisplays _qtDisplays{_runLoop};
    X11Displays _displays;
    NotificationCenter _notificationCenter;
    X11Windows _windows;
    DesktopEntries _desktopEntries;
    LinuxAccessibility _accessibility;
    X11Workspace _workspace;
    X11HotKeys _hotKeys;
    XkbKeyboard _keyboard;
    std::filesystem::path _settingsFile;
    PropertyListDefaults _defaults;
    AutostartLoginItemList _loginItems;
    X11MenuInput _menuInput;
    QtNativeEvents _nativeEvents;
};

int fail(LogCategory category, const std::string& message) {
    logError(category, message);
    return 1;
}

// What the environment asks to be told, beside the command line.
LogCategoryList logCategoriesOfEnvironment() {
    const std::string list = qEnvironmentVariable("TARRAGON_LOG").toStdString();
    return list.empty() ? LogCategoryList() : parseLogCategories(list);
}

int runAgent(Desktop& desktop) {
    const auto instance = RunningInstance::connect();
    if (!instance)
        return fail(LogCategory::X11, "the X server does not answer");
    if (!instance->claimOrReopen()) {
        logError(LogCategory::X11, "already running on this display");
        return 0;
    }
    const Platform platform = desktop.platform();
    MenuView menuView(platform.displays, platform.notificationCenter, &desktop.menuInput());
    MessagePanels panels(TARRAGON_VERSION);
    AppDelegate delegate(platform, menuView, panels, desktop.settingsURL());
    instance->watchReopen(platform.runLoop, [&] { delegate.applicationShouldHandleReopen(); });
    TerminationSignals terminationSignals(platform.runLoop, [&] { delegate.terminate(); });
    platform.runLoop.post([&] { delegate.applicationWillFinishLaunching(); });
    return desktop.runLoop().run();
}

int runCommand(const Command& command, Desktop& desktop) {
    Commands commands(desktop.platform(), std::cout, std::cerr);
    if (const auto* list = std::get_if<ListMenus>(&command))
        return commands.listMenus(*list);
    if (const auto* press = std::get_if<PressItem>(&command))
        return commands.pressItem(*press);
    return commands.inspect();
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto [command, logCategories] =
        parseCommandLine(std::vector<std::string>(arguments + std::min(argumentCount, 1), arguments + argumentCount));
    const LogCategoryList environment = logCategoriesOfEnvironment();
    QtLogSink sink(logCategories | environment.categories);
    setLogSink(&sink);
    // Unlike a slip on the command line, one in the environment may be years old: the program goes on.
    if (!environment.error.empty())
        logError(LogCategory::Settings, "TARRAGON_LOG: " + environment.error);
    if (const auto* error = std::get_if<UsageError>(&command)) {
        std::cerr << "tarragon: " << error->message << "\nTry 'tarragon --help'.\n";
        return 2;
    }
    if (std::holds_alternative<ShowHelp>(command)) {
        std::cout << helpText();
        return 0;
    }
    if (std::holds_alternative<ShowVersion>(command)) {
        std::cout << "tarragon " << TARRAGON_VERSION << "\n";
        return 0;
    }
    auto connection = X11Connection::connect();
    if (!connection)
        return fail(LogCategory::X11, "no X server can be reached; is DISPLAY set?");

    // The toolkit is given none of our arguments, and must not use another display than the rest of the program. Nor is
    // it to grab the keyboard or the pointer for menus, which is done in a way that leaves others the focus.
    qputenv("QT_QPA_PLATFORM", "xcb");
    std::string leaveGrabs = "-nograb";
    std::array<char*, 3> toolkitArguments{arguments[0], leaveGrabs.data(), nullptr};
    int toolkitArgumentCount = 2;
    QApplication::setApplicationName("Tarragon");
    QApplication::setApplicationVersion(TARRAGON_VERSION);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(toolkitArgumentCount, toolkitArguments.data());
    // Programs that we start choose for themselves.
    qunsetenv("QT_QPA_PLATFORM");

    Desktop desktop(std::move(connection));
    // Applications of some toolkits show themselves only while the interface is switched on, as assistive programs
    // are expected to do when they start.
    if (desktop.accessibility().isTrusted() && !desktop.accessibility().isEnabled())
        desktop.accessibility().openSettings();
    return std::holds_alternative<RunAgent>(command) ? runAgent(desktop) : runCommand(command, desktop);
}
