#include "Agent.h"

#include "ProcessTree.h"

#include <algorithm>
#include <stdexcept>

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

constexpr std::uint32_t SpaceKeyCode = 49;
constexpr std::uint64_t ShiftFlag = 0x20000;
constexpr std::uint64_t OptionFlag = 0x80000;
constexpr std::uint64_t CommandFlag = 0x100000;

} // namespace

HotKey usualHotKey() {
    return {SpaceKeyCode, CommandFlag | OptionFlag, "Ctrl+Alt+Space", XK_space, {XK_Control_L, XK_Alt_L},
        XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1};
}

HotKey otherHotKey() {
    return {SpaceKeyCode, CommandFlag | ShiftFlag, "Ctrl+Shift+Space", XK_space, {XK_Control_L, XK_Shift_L},
        XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT};
}

HotKey takenHotKey() {
    return {SpaceKeyCode, OptionFlag, "Alt+Space", XK_space, {XK_Alt_L}, XCB_MOD_MASK_1};
}

Agent::Agent(Desktop& desktop, const HotKey& hotKey, const std::string& program, const Environment& additions)
    : _desktop(desktop)
    , _hotKey(hotKey)
    , _preferences(preferencesFile(desktop)) {
    bool takenBefore = hotKeyIsRegistered(hotKey);
    // Not the first launch, which would open the help.
    _preferences.set("FirstRun", true);
    _preferences.setHotKey(hotKey.keyCode, hotKey.modifierFlags, hotKey.text);
    _process = desktop.start({program}, additions);
    if (!takenBefore && !waitUntil([this] { return hotKeyIsRegistered(_hotKey) || !isRunning(); }, Duration(20000)))
        throw std::runtime_error("the program registers no hot key: " + _process->standardError());
    if (!isRunning())
        throw std::runtime_error("the program has ended: " + _process->standardError());
}

Agent::~Agent() = default;

bool Agent::changeHotKey(const HotKey& hotKey) {
    _hotKey = hotKey;
    _preferences.setHotKey(hotKey.keyCode, hotKey.modifierFlags, hotKey.text);
    return waitUntil([this] { return hotKeyIsRegistered(_hotKey); });
}

bool Agent::hotKeyIsRegistered(const HotKey& hotKey) {
    return _desktop.display().keyIsGrabbed(_desktop.input().keyCodeOf(hotKey.symbol), hotKey.xModifiers);
}

void Agent::pressHotKey() {
    _desktop.input().tap(_hotKey.symbol, _hotKey.modifierSymbols);
}

bool Agent::isReadingAhead() const {
    // The libraries' own threads have names of their own.
    std::vector<std::string> names = threadNamesOf(identifier());
    return std::count(names.begin(), names.end(), "tarragon") > 1;
}

std::vector<XWindow> Agent::openMenus() {
    std::vector<XWindow> menus = _desktop.display().openMenus();
    std::erase_if(menus, [this](const XWindow& menu) { return menu.process != identifier(); });
    return menus;
}

CommandResult Agent::run(
    const Desktop& desktop, const std::vector<std::string>& arguments, const Environment& additions) {
    std::vector<std::string> command{E2E_TARRAGON};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return desktop.run(command, additions);
}

std::filesystem::path Agent::preferencesFile(const Desktop& desktop) {
    return desktop.configurationFolder() / "tarragon" / "tarragon.plist";
}

} // namespace tarragon::e2e
