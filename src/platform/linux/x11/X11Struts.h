#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <vector>

namespace tarragon {

enum class X11Edge : std::uint8_t { Left, Right, Top, Bottom };

// What a panel or dock keeps free for itself along one edge of the root window, in pixels of the root window.
struct X11Strut {
    X11Edge edge = X11Edge::Left;
    Rect area;
    bool operator==(const X11Strut&) const = default;
};

// From the twelve numbers of _NET_WM_STRUT_PARTIAL, or the first four alone as _NET_WM_STRUT has them: the thickness at
// the left, right, top and bottom, then where each begins and ends along its edge. Empty when the property is absent or
// damaged.
std::vector<X11Strut> strutsOfProperty(const std::vector<std::uint32_t>& numbers, const Size& root);

// The same struts, but only for as much of their edges as a panel takes that lies there. A panel that is nowhere near
// its edge leaves them as they are.
std::vector<X11Strut> strutsAlongside(const std::vector<X11Strut>& struts, const Rect& panel);

// A monitor less what panels and docks take of it; y grows downwards. The edges of the root window are those of the
// outermost monitors: a strut that would leave nothing of a monitor is meant for the one behind it and does not count.
Rect rectWithoutStruts(const Rect& monitor, const std::vector<X11Strut>& struts);

} // namespace tarragon
