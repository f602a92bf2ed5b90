// The global hot key of the controller.

#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "triggers/HotKeyModifiers.h"

#include <string>

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
        if (!enabled) {
            log(LogCategory::Triggers, [] { return "hot key: switched off"; });
            _appDelegate.hotKeyRegistrationDidChange();
            return;
        }
    }
    // Every call installs a handler and none is removed; the newest reports the press as handled, which keeps the
    // older ones from being asked.
    _platform.hotKeys.installPressedHandler([this] {
        log(LogCategory::Triggers, [] { return "hot key: pressed"; });
        popUpMenuAtMouseLocation();
        return true;
    });
    const std::int64_t flags = integerValue(_platform.defaults.value(preference::TriggerModifiers));
    const auto keyCode =
        static_cast<std::uint32_t>(integerValue(_platform.defaults.value(preference::TriggerCharacterUInt)));
    const std::uint32_t modifiers = carbonModifiersFromCocoaFlags(flags);
    // A combination that the desktop refuses simply never fires.
    const bool registered = _platform.hotKeys.registerHotKey(keyCode, modifiers, hotKeyIdentifier, _myHotKeyRef);
    log(LogCategory::Triggers, [&] {
        return "hot key: key code " + std::to_string(keyCode) + " with modifier bits " + std::to_string(modifiers)
            + (registered ? " is registered" : " is refused and never fires");
    });
    _appDelegate.hotKeyRegistrationDidChange();
}

} // namespace tarragon
