#pragma once

#include "platform/Geometry.h"

#include <vector>

namespace tarragon {

struct Screen {
    Rect frameNS;
    Rect visibleFrameNS; // the frame less what the desktop's own bars and docks take
};

// Screens and the pointer. Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    // The first is the primary screen. Empty when no screen is connected.
    virtual std::vector<Screen> screens() = 0;
    virtual Rect mainDisplayBoundsCG() = 0;
    virtual Point mouseLocationNS() = 0;
};

} // namespace tarragon
