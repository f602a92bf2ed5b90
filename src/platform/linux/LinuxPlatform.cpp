#include "platform/linux/LinuxPlatform.h"

#include "platform/PreferenceKeys.h"
#include "platform/linux/atspi/LinuxAccessibility.h"
#include "platform/linux/desktop/AutostartLoginItemList.h"
#include "platform/linux/desktop/DesktopApplications.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopLauncher.h"
#include "platform/linux/desktop/DesktopShortcutsSession.h"
#include "platform/linux/desktop/LinuxProcess.h"
#include "platform/linux/desktop/TerminationSignals.h"
#include "platform/linux/input/X11InputEvents.h"
#include "platform/linux/input/X11PointerOwner.h"
#include "platform/linux/input/X11WindowPicker.h"
#include "platform/linux/panelsurfaces/X11PanelSurfaces.h"
#include "platform/linux/settings/PropertyListDefaults.h"
#include "platform/linux/tray/X11EmbeddingTray.h"
#include "platform/linux/x11/QtNativeEvents.h"
#include "platform/linux/x11/QtPixelScale.h"
#include "platform/linux/x11/RunningInstance.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"
#include "platform/linux/x11/X11MenuInput.h"
#include "platform/linux/x11/X11WindowList.h"
#include "platform/linux/x11/X11WindowManager.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/x11/X11Workspace.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "platform/linux/xkb/X11KeyRecorder.h"
#include "platform/linux/xkb/XkbKeyboard.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtStatusItems.h"
#include "platform/qt/QtUserNotifications.h"
#include "platform/qt/WholePixelStyle.h"

#include <QApplication>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

// The toolkit's application object, with options of our choice.
class Toolkit {
public:
    explicit Toolkit(const Program& program)
        : _path(program.path) {
        // It must not draw on another display than the rest of the program.
        const bool wasChosen = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
        const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
        qputenv("QT_QPA_PLATFORM", "xcb");
        QApplication::setApplicationName(QString::fromStdString(program.name));
        QApplication::setApplicationVersion(QString::fromStdString(program.version));
        QApplication::setQuitOnLastWindowClosed(false);
        _application.emplace(_argumentCount, _arguments.data());
        QApplication::setStyle(new WholePixelStyle);
        // Programs that we start get the environment that we got.
        if (wasChosen)
            qputenv("QT_QPA_PLATFORM", chosen);
        else
            qunsetenv("QT_QPA_PLATFORM");
    }

private:
    std::string _path;
    // Pop-ups get keyboard and pointer through X11MenuInput, in a way that leaves others the focus.
    std::string _leaveGrabs = "-nograb";
    std::array<char*, 3> _arguments{_path.data(), _leaveGrabs.data(), nullptr};
    int _argumentCount = 2;
    std::optional<QApplication> _application;
};

// What these are about no application here has, or counts in another way.
std::vector<std::string_view> settingsWithoutEffect() {
    return {preference::ShowAppleMenu, preference::FoldAlternate, preference::ShowApplicationMenu,
        preference::EnableSmartIgnore, preference::ButtonHasShadow, preference::ButtonHasTexture,
        preference::ButtonHasBorder, preference::ButtonRound};
}

class LinuxPlatform : public DesktopSession {
public:
    LinuxPlatform(std::unique_ptr<X11Connection> connection, const Program& program)
        : _connection(std::move(connection))
        , _toolkit(program)
        , _windows(*_connection, &_pixelScale)
        , _displays(_qtDisplays, *_connection, &_pixelScale, [this] { return _windows.currentLook(); })
        , _accessibility(_windows, _desktopEntries)
        , _workspace(*_connection, _windows, _desktopEntries, _runLoop, openURLDetached, &_accessibility)
        , _hotKeys(static_cast<xcb_connection_t*>(qtX11Connection()), _connection->rootWindow(), _runLoop)
        , _keyboard(
              _connection->connectAnother(), _runLoop,
              [this](auto keyCode, auto modifiers) { return _hotKeys.isOwnCombination(keyCode, modifiers); },
              [this] { return DesktopShortcutsSession::current(windowManagerName(*_connection)).readShortcuts(); })
        , _defaults(_runLoop, PropertyListDefaults::fileOfUser())
        , _menuInput(static_cast<xcb_connection_t*>(qtX11Connection()))
        , _inputEvents(*_connection, _runLoop,
              [this] { return _menuInput.isTaken() || pointerIsOverOwnWindow(*_connection, qtX11Connection()); })
        , _windowList(*_connection, _windows, _desktopEntries)
        , _panelSurfaces(*_connection, _runLoop, &_pixelScale)
        , _nativeEvents(
              _runLoop,
              [this](
                  const void* event) { return _hotKeys.handleEvent(static_cast<const xcb_generic_event_t*>(event)); },
              [this](void* event) { return _menuInput.redirect(static_cast<xcb_generic_event_t*>(event)); }) {
        _pixelScale.set(pixelScaleOfQt());
        _displays.takeEventsIn(_runLoop);
        // Before anybody else who asks to be told.
        _qtDisplays.installReconfigurationHandler([this](std::uint32_t) {
            _pixelScale.set(pixelScaleOfQt());
            _panelSurfaces.scaleMayHaveChanged();
        });
    }

    Platform& platform() override { return _platform; }

    int run() override { return _runLoop.run(); }

    std::variant<DesktopAgent, DesktopError> claimOrReopen() override {
        _instance = RunningInstance::connect();
        if (!_instance)
            return DesktopError{"the X server does not answer"};
        return _instance->claimOrReopen() ? DesktopAgent::ThisProcess : DesktopAgent::AnotherProcess;
    }

    void watchReopen(std::function<void()> handler) override {
        if (_instance)
            _instance->watchReopen(_runLoop, std::move(handler));
    }

    void watchTermination(std::function<void()> handler) override {
        _terminationSignals.emplace(_runLoop, std::move(handler));
    }

    // Applications of some toolkits show themselves only while the interface is switched on.
    void prepareAccessibility() override {
        if (_accessibility.isTrusted() && !_accessibility.isEnabled())
            _accessibility.openSettings();
    }

private:
    std::unique_ptr<X11Connection> _connection;
    Toolkit _toolkit;
    QtRunLoop _runLoop;
    QtDisplays _qtDisplays{_runLoop};
    CurrentPixelScale _pixelScale;
    X11Windows _windows;
    X11Displays _displays;
    NotificationCenter _notificationCenter;
    DesktopEntries _desktopEntries{[this] { return _windows.currentLook(); }};
    DesktopApplications _installedApplications{
        _desktopEntries, [this] { return _windows.describe(_windows.managedWindows()); }};
    LinuxAccessibility _accessibility;
    X11Workspace _workspace;
    X11HotKeys _hotKeys;
    XkbKeyboard _keyboard;
    X11KeyRecorder _keyRecorder{*_connection, _runLoop};
    PropertyListDefaults _defaults;
    AutostartLoginItemList _loginItems;
    X11MenuInput _menuInput;
    X11InputEvents _inputEvents;
    X11WindowPicker _windowPicker{*_connection, _runLoop, _windows, _desktopEntries};
    LinuxProcess _process;
    X11WindowList _windowList;
    X11PanelSurfaces _panelSurfaces;
    X11EmbeddingTray _embeddingTray{*_connection, _runLoop};
    QtStatusItems _statusItems{_runLoop, &_embeddingTray};
    QtUserNotifications _userNotifications{_runLoop};
    QtNativeEvents _nativeEvents;
    std::unique_ptr<RunningInstance> _instance;
    std::optional<TerminationSignals> _terminationSignals;
    Platform _platform{.accessibility = _accessibility,
        .workspace = _workspace,
        .displays = _displays,
        .hotKeys = _hotKeys,
        .defaults = _defaults,
        .runLoop = _runLoop,
        .notificationCenter = _notificationCenter,
        .menuInput = _menuInput,
        .bundlePath = QApplication::applicationFilePath().toStdString(),
        .keyboard = &_keyboard,
        .loginItemList = &_loginItems,
        .inputEvents = &_inputEvents,
        .process = &_process,
        .windowList = &_windowList,
        .panelSurfaces = &_panelSurfaces,
        .statusItems = &_statusItems,
        .installedApplications = &_installedApplications,
        .keyRecorder = &_keyRecorder,
        .userNotifications = &_userNotifications,
        .windowPicker = &_windowPicker,
        .settingsWithoutEffect = settingsWithoutEffect()};
};

} // namespace

DesktopSessionOrError createLinuxPlatform(const Program& program) {
    // Without a server the toolkit would end the process.
    auto connection = X11Connection::connect();
    if (!connection)
        return DesktopError{"no X server can be reached; is DISPLAY set?"};
    return std::make_unique<LinuxPlatform>(std::move(connection), program);
}

} // namespace tarragon
