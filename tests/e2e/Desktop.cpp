#include "Desktop.h"

#include "ProcessTree.h"
#include "screens/Outputs.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tarragon::e2e {

namespace {

constexpr const char* SessionVariable = "TARRAGON_TEST_SESSION";

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

} // namespace

std::string nameOf(WindowManager windowManager) {
    return windowManager == WindowManager::Openbox ? "openbox" : "xfwm4";
}

Desktop::Desktop(WindowManager windowManager, Compositor compositor, Screens screens)
    : _windowManager(windowManager)
    , _compositor(compositor)
    , _reader(*this) {
    const std::filesystem::path& home = _folder.path();
    const char* path = std::getenv("PATH");
    _environment = {{"HOME", home}, {"XDG_CONFIG_HOME", configurationFolder()}, {"XDG_DATA_HOME", home / "data"},
        {"XDG_CACHE_HOME", home / "cache"}, {"XDG_STATE_HOME", home / "state"}, {"XDG_RUNTIME_DIR", home / "run"},
        {"TMPDIR", home / "tmp"}, {"PATH", programFolder().string() + ":" + (path ? path : "/usr/bin:/bin")},
        {"LANG", "C.UTF-8"},
        // Settings and files without further daemons.
        {"GSETTINGS_BACKEND", "memory"}, {"GIO_USE_VFS", "local"}, {"XDG_SESSION_TYPE", "x11"},
        {"XDG_CURRENT_DESKTOP", nameOf(windowManager)}, {SessionVariable, home}};
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name))
            _environment[name] = value;
    }
    for (const char* variable :
        {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        std::filesystem::create_directory(_environment[variable]);
    std::filesystem::create_directory(programFolder());
    std::filesystem::permissions(_environment["XDG_RUNTIME_DIR"], std::filesystem::perms::owner_all);
    try {
        startServer(screens);
        startSessionBus();
        startWindowManager();
        if (_compositor == Compositor::On)
            startCompositor();
        if (!_reader.enableAccessibility())
            throw std::runtime_error("accessibility cannot be switched on");
    } catch (...) {
        endDescendants(std::string(SessionVariable) + "=" + home.string());
        throw;
    }
}

Desktop::~Desktop() {
    _input.reset();
    _display.reset();
    endDescendants(std::string(SessionVariable) + "=" + home().string());
}

void Desktop::startServer(Screens screens) {
    // The server chooses a free number itself and tells it.
    _server = start(screens == Screens::OnOutputs ? Outputs::server({0, 0, 1600, 1200}, home() / "tmp")
                                                  : std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0",
                                                      "1600x1200x24", "-noreset", "-nolisten", "tcp"});
    if (!waitUntil([this] { return _server->standardOutput().find('\n') != std::string::npos; }, Duration(20000)))
        throw std::runtime_error("the X server does not start: " + _server->standardError());
    _environment["DISPLAY"] = ":" + firstLine(_server->standardOutput());
    _display = std::make_unique<XDisplay>(_environment["DISPLAY"]);
    _input = std::make_unique<SyntheticInput>(*_display);
}

void Desktop::startSessionBus() {
    _bus = start({"dbus-daemon", "--session", "--nofork", "--print-address=1"});
    if (!waitUntil([this] { return _bus->standardOutput().find('\n') != std::string::npos; }, Duration(20000)))
        throw std::runtime_error("the session bus does not start: " + _bus->standardError());
    _environment["DBUS_SESSION_BUS_ADDRESS"] = firstLine(_bus->standardOutput());
}

void Desktop::startWindowManager() {
    std::vector<std::string> command = _windowManager == WindowManager::Openbox
        ? std::vector<std::string>{"openbox"}
        : std::vector<std::string>{"xfwm4", _compositor == Compositor::On ? "--compositor=on" : "--compositor=off"};
    _manager = start(command);
    if (!waitUntil([this] { return _display->hasWindowManager(); }, Duration(20000)))
        throw std::runtime_error("the window manager does not start: " + _manager->standardError());
}

void Desktop::startCompositor() {
    // The other window manager has its own. This one reads no settings of the machine.
    if (_windowManager == WindowManager::Openbox)
        _compositorProcess = start({"picom", "--config", "/dev/null", "--backend", "xrender"});
    if (!waitUntil([this] { return _display->hasCompositor(); }, Duration(20000)))
        throw std::runtime_error(
            "the compositor does not start: " + (_compositorProcess ? _compositorProcess : _manager)->standardError());
}

bool Desktop::isAlive() {
    return _server->isRunning() && _bus->isRunning() && _manager->isRunning()
        && (!_compositorProcess || _compositorProcess->isRunning());
}

void Desktop::holdWindowManager(bool hold) {
    _manager->sendSignal(hold ? SIGSTOP : SIGCONT);
}

void Desktop::restartWindowManager() {
    _manager->sendSignal(SIGKILL);
    _manager->waitForExit();
    startWindowManager();
}

std::unique_ptr<ChildProcess> Desktop::start(
    const std::vector<std::string>& command, const Environment& additions) const {
    Environment environment = _environment;
    for (const auto& [name, value] : additions)
        environment[name] = value;
    return std::make_unique<ChildProcess>(command, environment, home() / "tmp");
}

CommandResult Desktop::run(const std::vector<std::string>& command, const Environment& additions) const {
    Environment environment = _environment;
    for (const auto& [name, value] : additions)
        environment[name] = value;
    return runCommand(command, environment, home() / "tmp");
}

std::filesystem::path Desktop::writeFile(const std::string& name, const std::string& contents) const {
    std::filesystem::path file = home() / name;
    std::ofstream(file, std::ios::binary) << contents;
    return file;
}

} // namespace tarragon::e2e
