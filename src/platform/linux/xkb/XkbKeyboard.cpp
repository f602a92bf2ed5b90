#include "platform/linux/xkb/XkbKeyboard.h"

#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/KeyCodes.h"
#include "platform/linux/xkb/X11Modifiers.h"
#include "platform/linux/xkb/XcbXkb.h"
#include "platform/linux/xkb/XkbGrabbedKeys.h"

#include <algorithm>
#include <utility>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace tarragon {

namespace {

bool setUpExtension(xcb_connection_t* connection) {
    return xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
               XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr)
        == 1;
}

// Asks for an event whenever the keys change what they do.
void selectChanges(xcb_connection_t* connection) {
    constexpr std::uint16_t Events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t AllParts = 0xFF;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, Events, 0, Events, AllParts, AllParts, nullptr);
    xcb_flush(connection);
}

// One that was found grabbed gets the owner that the settings name.
void addShortcut(std::vector<SymbolicHotKey>& hotKeys, SymbolicHotKey shortcut) {
    const auto known = std::ranges::find_if(hotKeys, [&](const SymbolicHotKey& hotKey) {
        return hotKey.isEnabled && hotKey.keyCode == shortcut.keyCode && hotKey.modifiers == shortcut.modifiers;
    });
    if (known == hotKeys.end() || !shortcut.isEnabled)
        hotKeys.push_back(std::move(shortcut));
    else if (known->owner.empty())
        known->owner = std::move(shortcut.owner);
}

} // namespace

XkbKeyboard::XkbKeyboard(std::unique_ptr<X11Connection> connection, RunLoop& runLoop, IsOwnCombination isOwnCombination,
    ReadSettings readSettings)
    : _connection(std::move(connection))
    , _isOwnCombination(std::move(isOwnCombination))
    , _readSettings(std::move(readSettings))
    , _hasExtension(_connection && setUpExtension(_connection->get())) {
    if (!_hasExtension)
        return;
    selectChanges(_connection->get());
    // Whoever asks for the layout takes the events first. The run loop takes them for as long as nobody asks: what
    // nobody takes piles up.
    runLoop.watchDescriptor(_connection->descriptor(), [this] { takeEvents(); });
}

XkbKeyboard::~XkbKeyboard() = default;

void XkbKeyboard::takeEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_connection->get())})
        _layout.reset();
}

const XkbLayout* XkbKeyboard::currentLayout() {
    if (!_hasExtension)
        return nullptr;
    xcb_connection_t* connection = _connection->get();
    const X11Reply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(connection, xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    if (!state)
        return nullptr;
    // Whatever changed before the reply was sent has been told by now.
    takeEvents();
    if (!_layout || state->group != _layoutNumber) {
        _layoutNumber = state->group;
        _layout = XkbLayout::ofServer(connection, _layoutNumber);
    }
    return _layout ? &*_layout : nullptr;
}

std::optional<std::string> XkbKeyboard::translateKeyCode(std::uint16_t keyCode) {
    const XkbLayout* layout = currentLayout();
    const std::uint8_t x11Key = x11KeyCode(keyCode);
    return layout && x11Key != 0 ? layout->textOfKey(x11Key) : std::nullopt;
}

std::optional<std::vector<SymbolicHotKey>> XkbKeyboard::copySymbolicHotKeys() {
    const XkbLayout* layout = currentLayout();
    if (!layout)
        return std::nullopt;
    const X11Modifiers modifiers = modifiersOfMapping(requestKeyboardMapping(_connection->get()));
    std::optional<std::vector<SymbolicHotKey>> hotKeys =
        keysGrabbedByOthers(_connection->get(), _connection->rootWindow(), modifiers);
    if (!hotKeys)
        return std::nullopt;
    for (const DesktopShortcut& shortcut : _readSettings ? _readSettings() : std::vector<DesktopShortcut>()) {
        const std::optional<std::uint8_t> x11Key = layout->keyOfSymbol(shortcut.keyName);
        const std::optional<std::uint32_t> keyCode = x11Key ? virtualKeyCode(*x11Key) : std::nullopt;
        if (keyCode)
            addShortcut(*hotKeys, {shortcut.isEnabled, *keyCode, shortcut.modifiers, shortcut.owner});
    }
    std::erase_if(*hotKeys, [this](const SymbolicHotKey& hotKey) {
        return _isOwnCombination && _isOwnCombination(static_cast<std::uint32_t>(hotKey.keyCode), hotKey.modifiers);
    });
    return hotKeys;
}

} // namespace tarragon
