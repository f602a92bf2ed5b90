#pragma once

#include "platform/Keyboard.h"
#include "platform/linux/desktop/DesktopShortcuts.h"
#include "platform/linux/xkb/XkbLayout.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class RunLoop;
class X11Connection;

// The keyboard of an X server, in the layout that is switched on there.
//
// The desktop's own combinations are those that other programs have grabbed, which is found out by trying, and those in
// the settings of desktops that publish them. Trying takes a few milliseconds, during which a press of one of the keys
// would be lost.
class XkbKeyboard : public Keyboard {
public:
    // Answers whether this program itself has grabbed a combination (virtual key code, bits of hotkey::), which is then
    // not another's.
    using IsOwnCombination = std::function<bool(std::uint32_t keyCode, std::uint32_t modifiers)>;
    // Reads the combinations of the desktop's settings.
    using ReadSettings = std::function<std::vector<DesktopShortcut>()>;

    // The connection is the keyboard's alone: nobody else takes its events. nullptr for a server that does not answer.
    // The run loop outlives the keyboard.
    XkbKeyboard(std::unique_ptr<X11Connection> connection, RunLoop& runLoop, IsOwnCombination isOwnCombination,
        ReadSettings readSettings);
    ~XkbKeyboard() override;

    std::optional<std::string> translateKeyCode(std::uint16_t keyCode) override;
    std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() override;

private:
    // The layout that is switched on now; nothing when the server does not tell.
    const XkbLayout* currentLayout();
    // Events of the connection are about other keys or other layouts: the layout is to be read anew.
    void takeEvents();

    std::unique_ptr<X11Connection> _connection;
    IsOwnCombination _isOwnCombination;
    ReadSettings _readSettings;
    bool _hasExtension;
    std::optional<XkbLayout> _layout;
    std::uint32_t _layoutNumber = 0;
};

} // namespace tarragon
