#pragma once

#include "ApplicationReader.h"
#include "ChildProcess.h"
#include "SyntheticInput.h"
#include "TemporaryFolder.h"
#include "XDisplay.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tarragon::e2e {

enum class WindowManager { Openbox, Xfwm4 };

// Without one, windows are opaque and what lies below them is not drawn.
enum class Compositor { Off, On };

// Several monitors are known to window managers of every kind where they hang on outputs. The other server is the usual
// one of the tests, and starts faster.
enum class Screens { Virtual, OnOutputs };

// "openbox" or "xfwm4".
std::string nameOf(WindowManager windowManager);

// A user's session of its own: X server, session bus, accessibility, window manager and home folder. All of it, and
// everything that was started in it, is gone when this object goes.
class Desktop {
public:
    // Throws std::runtime_error when a part of it does not come up.
    explicit Desktop(
        WindowManager windowManager, Compositor compositor = Compositor::Off, Screens screens = Screens::Virtual);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    WindowManager windowManager() const { return _windowManager; }
    XDisplay& display() { return *_display; }
    SyntheticInput& input() { return *_input; }
    const ApplicationReader& reader() const { return _reader; }
    const Environment& environment() const { return _environment; }
    const std::filesystem::path& home() const { return _folder.path(); }
    std::filesystem::path configurationFolder() const { return home() / ".config"; }
    // Programs in it are found before those of the system.
    std::filesystem::path programFolder() const { return home() / "bin"; }
    bool isAlive();
    // While it is held, windows stay where they are whatever happens to the monitors.
    void holdWindowManager(bool hold);
    // Ends it at once and starts another one. Throws std::runtime_error when that does not come up.
    void restartWindowManager();

    // Starts a program of this session, with extra variables.
    std::unique_ptr<ChildProcess> start(
        const std::vector<std::string>& command, const Environment& additions = {}) const;
    // Runs one to its end.
    CommandResult run(const std::vector<std::string>& command, const Environment& additions = {}) const;
    // A new text file in the home folder.
    std::filesystem::path writeFile(const std::string& name, const std::string& contents) const;

private:
    void startServer(Screens screens);
    void startSessionBus();
    void startWindowManager();
    void startCompositor();

    WindowManager _windowManager;
    Compositor _compositor;
    TemporaryFolder _folder;
    Environment _environment;
    std::unique_ptr<ChildProcess> _server;
    std::unique_ptr<ChildProcess> _bus;
    std::unique_ptr<ChildProcess> _manager;
    std::unique_ptr<ChildProcess> _compositorProcess; // where the window manager is none
    std::unique_ptr<XDisplay> _display;
    std::unique_ptr<SyntheticInput> _input;
    ApplicationReader _reader;
};

} // namespace tarragon::e2e
