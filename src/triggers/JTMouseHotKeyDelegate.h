#pragma once

#include <cstdint>

namespace tarragon {

class JTMouseHotKey;

// Hears of presses of the buttons that can be a trigger. What it does not care for it need not override.
class JTMouseHotKeyDelegate {
public:
    virtual ~JTMouseHotKeyDelegate() = default;

    // buttonNumber is 2 for the middle button, 3 and more for further ones; never the left or the right one.
    virtual void mouseHotKeyMouseButtonActioned(JTMouseHotKey& /*mouseHotKey*/, std::uint32_t /*buttonNumber*/) { }
};

} // namespace tarragon
