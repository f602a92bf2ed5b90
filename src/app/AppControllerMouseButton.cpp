// The mouse-button trigger of the controller.

#include "app/AppController.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <string>

namespace tarragon {

void AppController::mouseHotKeyMouseButtonActioned(JTMouseHotKey& /*mouseHotKey*/, std::uint32_t buttonNumber) {
    if (!_preferences._mouseButtonEnabled)
        return;
    // Read at each press, for nothing tells of a change of this setting.
    const auto chosen = static_cast<std::uint64_t>(integerValue(_platform.defaults.value(preference::MouseButton)));
    if (chosen != buttonNumber)
        return;
    log(LogCategory::Triggers, [&] { return "mouse button: " + std::to_string(buttonNumber) + " is pressed"; });
    popUpMenuAtMouseLocation();
}

} // namespace tarragon
