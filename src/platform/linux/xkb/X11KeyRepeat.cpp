#include "platform/linux/xkb/X11KeyRepeat.h"

namespace tarragon {

void X11KeyRepeat::begin(std::uint8_t keyCode, std::uint32_t time) {
    _keyCode = keyCode;
    _pressTime = time;
    _isReleased = false;
}

void X11KeyRepeat::release(std::uint8_t keyCode, std::uint32_t time) {
    if (keyCode != _keyCode)
        return;
    _isReleased = true;
    _releaseTime = time;
}

bool X11KeyRepeat::isRepeat(std::uint8_t keyCode, std::uint32_t time) {
    if (keyCode != _keyCode || keyCode == 0) {
        // Only the key that was pressed last is repeated.
        _keyCode = 0;
        return false;
    }
    // The release may have gone to another client that held the keyboard; a key that has been silent for longer than
    // any delay before the first repetition is no longer down.
    constexpr std::uint32_t LongestSilence = 1500;
    const bool isHeld = _isReleased ? time == _releaseTime : time - _pressTime < LongestSilence;
    if (!isHeld) {
        _keyCode = 0;
        return false;
    }
    _pressTime = time;
    _isReleased = false;
    return true;
}

} // namespace tarragon
