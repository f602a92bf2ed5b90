#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <vector>

namespace tarragon {

// How far something reaches beyond, or into, the four edges of a window, in pixels.
struct X11FrameExtents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
    bool operator==(const X11FrameExtents&) const = default;
};

// From the four numbers of _NET_FRAME_EXTENTS or _GTK_FRAME_EXTENTS: left, right, top, bottom. Zero when the property
// is absent or damaged.
X11FrameExtents frameExtentsOfProperty(const std::vector<std::uint32_t>& numbers);

// What lies between a client window and the frame that people see: the window manager's decorations outside of it less
// the shadow that the client itself draws inside of it.
X11FrameExtents visibleFrameExtents(const X11FrameExtents& decorations, const X11FrameExtents& shadow);

// From the client window's rectangle to the frame's, in screen space.
Rect frameOfClient(const Rect& clientCG, const X11FrameExtents& extents);
// Where a window manager has to put the corner of what it takes for the frame, which includes the client's shadow, so
// that the visible frame's corner comes to lie there.
Point outerOriginOfFrame(const Point& frameTopLeftCG, const X11FrameExtents& shadow);
// A client window is at least one pixel wide and high.
Size clientSizeOfFrame(const Size& frameSize, const X11FrameExtents& extents);

} // namespace tarragon
