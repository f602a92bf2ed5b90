#pragma once

namespace tarragon {

// Whoever owns the menu reader and wants to hear from it. Main thread only. Every operation may be left out.
class MenuReaderOwner {
public:
    virtual ~MenuReaderOwner() = default;
    // A mirrored item was chosen and the real one pressed.
    virtual void menuHasClosed() { }
    // A menu of the mirror was closed.
    virtual void resetLevels() { }
};

} // namespace tarragon
