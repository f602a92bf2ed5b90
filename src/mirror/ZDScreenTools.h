#pragma once

#include "platform/Displays.h"

#include <cstdint>
#include <optional>

namespace tarragon {

// Screens by place, in the order of the screen list. Main thread only.
class ZDScreenTools {
public:
    ZDScreenTools() = delete;

    // The first screen that contains the pointer. A pointer counts as inside along the top edge of a screen and as
    // outside along the bottom edge, as it stands for the pixel below its coordinates.
    static std::optional<Screen> screenWithMousePointer(Displays& displays);
    // The first screen whose frame contains the point.
    static std::optional<Screen> screenWithPoint(Displays& displays, const Point& pointNS);
    // The index of that screen; 0 when there is none, as for the first one.
    static std::int32_t numberOrderOfScreenWithPoint(Displays& displays, const Point& pointNS);
    // The size of the first screen; the zero size when there is none.
    static Size primaryScreenSize(Displays& displays);
};

} // namespace tarragon
