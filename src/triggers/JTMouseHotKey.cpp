#include "triggers/JTMouseHotKey.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "triggers/JTMouseHotKeyDelegate.h"

#include <ostream>

namespace tarragon {

namespace {

constexpr std::uint32_t MiddleButton = 2;

// Both reasons, and whatever number may come after them.
bool saysThatTheTapIsDisabled(const InputEvent& event) {
    return static_cast<std::uint32_t>(event.type) >= static_cast<std::uint32_t>(InputEventType::TapDisabledByTimeout);
}

} // namespace

JTMouseHotKey::JTMouseHotKey(InputEvents* inputEvents, RunLoop& runLoop, std::ostream& standardError)
    : _inputEvents(inputEvents)
    , _runLoop(runLoop)
    , _standardError(standardError) { }

JTMouseHotKey::~JTMouseHotKey() = default;

bool JTMouseHotKey::awakeFromNib() {
    return setupMouseUpEventTap();
}

bool JTMouseHotKey::setupMouseUpEventTap() {
    _tap = _inputEvents ? _inputEvents->createEventTap(inputEventMask(InputEventType::OtherMouseDown),
               [this](const InputEvent& event) { return handle(event); })
                        : nullptr;
    if (!_tap) {
        // This very line and nothing before it, unlike other errors: whoever watches the program can tell by it.
        _standardError << "failed to create event tap\n" << std::flush;
        _runLoop.stop(1);
        return false;
    }
    enableTap();
    return true;
}

void JTMouseHotKey::enableTap() {
    setTapEnabled(true);
}

void JTMouseHotKey::disableTap() {
    setTapEnabled(false);
}

void JTMouseHotKey::killTap() {
    disableTap();
    _tap = nullptr;
}

void JTMouseHotKey::setTapEnabled(bool enabled) {
    if (_tap)
        _tap->setEnabled(enabled);
}

bool JTMouseHotKey::handle(const InputEvent& event) {
    if (saysThatTheTapIsDisabled(event)) {
        log(LogCategory::Triggers,
            [] { return "mouse button: the desktop has stopped telling of presses; asked anew"; });
        enableTap();
        return false;
    }
    _lastButton = event.buttonNumber;
    if (_lastButton >= MiddleButton)
        _mouseButtonActioned(_lastButton);
    return true;
}

void JTMouseHotKey::_mouseButtonActioned(std::uint32_t buttonNumber) {
    if (_delegate)
        _delegate->mouseHotKeyMouseButtonActioned(*this, buttonNumber);
}

} // namespace tarragon
