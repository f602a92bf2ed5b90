#pragma once

#include <cstdint>

namespace tarragon {

// Tells a key that is held down from one that is pressed again. A held key repeats its press; between two presses comes
// a release with the same time as the next press, or, for clients that asked for it, none at all.
//
// Times are the server's, in milliseconds; they wrap around.
class X11KeyRepeat {
public:
    // The key was pressed in earnest; its repetitions are expected from now on.
    void begin(std::uint8_t keyCode, std::uint32_t time);
    // A release of any key.
    void release(std::uint8_t keyCode, std::uint32_t time);
    // True when this press only repeats the one that began.
    bool isRepeat(std::uint8_t keyCode, std::uint32_t time);

private:
    std::uint8_t _keyCode = 0; // 0 when no key is followed
    std::uint32_t _pressTime = 0;
    std::uint32_t _releaseTime = 0;
    bool _isReleased = false;
};

} // namespace tarragon
