#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "Preferences.h"

#include <memory>
#include <string>
#include <vector>

namespace tarragon::e2e {

// A combination of keys, as a user presses it and as the preferences store it.
struct HotKey {
    std::uint32_t keyCode = 0; // the system's own virtual key code
    std::uint64_t modifierFlags = 0; // Cocoa flags
    std::string text;
    xcb_keysym_t symbol = 0;
    std::vector<xcb_keysym_t> modifierSymbols;
    std::uint16_t xModifiers = 0;
};

// Ctrl+Alt+Space, which no window manager takes for itself.
HotKey usualHotKey();
// Ctrl+Shift+Space.
HotKey otherHotKey();
// Alt+Space, the program's own default, which window managers take for their window menu.
HotKey takenHotKey();

// The program under test, running in the background of a desktop.
class Agent {
public:
    // Writes the hot key into the preferences and starts the program. It is up when the constructor returns, unless
    // the combination is one that the desktop refuses. Throws std::runtime_error when it does not come up.
    // Another program may stand in that behaves as this one does.
    Agent(Desktop& desktop, const HotKey& hotKey, const std::string& program = E2E_TARRAGON,
        const Environment& additions = {});
    ~Agent();
    Agent(const Agent&) = delete;
    Agent& operator=(const Agent&) = delete;

    pid_t identifier() const { return _process->identifier(); }
    ChildProcess& process() { return *_process; }
    Preferences& preferences() { return _preferences; }
    const HotKey& hotKey() const { return _hotKey; }
    bool isRunning() { return _process->isRunning(); }

    // Writes another combination and waits until it is registered. False when it is not in time.
    bool changeHotKey(const HotKey& hotKey);
    // The user has chosen it in the program itself.
    void expectHotKey(const HotKey& hotKey) { _hotKey = hotKey; }
    bool hotKeyIsRegistered(const HotKey& hotKey);
    void pressHotKey();

    // Threads of the program still read menus in the background.
    bool isReadingAhead() const;

    // The menus of the program that are open now, oldest first.
    std::vector<XWindow> openMenus();

    // Runs the program once more with arguments, in the same session with additions to its environment.
    static CommandResult run(
        const Desktop& desktop, const std::vector<std::string>& arguments, const Environment& additions = {});
    static std::filesystem::path preferencesFile(const Desktop& desktop);

private:
    Desktop& _desktop;
    HotKey _hotKey;
    Preferences _preferences;
    std::unique_ptr<ChildProcess> _process;
};

} // namespace tarragon::e2e
