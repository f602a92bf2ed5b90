// The global hot key of the controller.

#include "app/AppController.h"
#include "platform/PreferenceKeys.h"
#include "triggers/HotKeyModifiers.h"

namespace tarragon {

namespace {

constexpr HotKeyIdentifier hotKeyIdentifier{0x6D686B31 /* "mhk1" */, 1};

} // namespace

void AppController::installCarbonHotKeyHandler() {
    const bool enabled = readBool(preference::EnableHotkey);
    // The reference keeps its old value when the hot key is switched off, so a later switch on unregisters it once
    // more, without effect. The first call of a run registers whatever the setting says.
    if (_myHotKeyRef != 0) {
        _platform.hotKeys.unregisterHotKey(_myHotKeyRef);
        if (!enabled)
            return;
    }
    // Every call installs a handler and none is removed; the newest reports the press as handled, which keeps the
    // older ones from being asked.
    _platform.hotKeys.installPressedHandler([this] {
        popUpMenuAtMouseLocation();
        return true;
    });
    const std::int64_t flags = integerValue(_platform.defaults.value(preference::TriggerModifiers));
    const auto keyCode =
        static_cast<std::uint32_t>(integerValue(_platform.defaults.value(preference::TriggerCharacterUInt)));
    // A combination that the desktop refuses simply never fires; the back end has told the user so.
    _platform.hotKeys.registerHotKey(keyCode, carbonModifiersFromCocoaFlags(flags), hotKeyIdentifier, _myHotKeyRef);
}

} // namespace tarragon
