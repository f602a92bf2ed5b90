#pragma once

#include <cstdint>

namespace tarragon {

class JTWindowInfo;

// Told by the window tracker, on the run loop, when the user drags windows about. Both operations do nothing unless
// they are overridden. The edge of the screen is always 0: no distance to an edge is measured.
class JTWindowInfoDelegate {
public:
    virtual ~JTWindowInfoDelegate() = default;

    // Called again with every movement of the pointer for as long as the drag is over what windows are dragged by.
    virtual void windowInfoWindowDraggedToScreenEdgeDidStart(
        JTWindowInfo& /*windowInfo*/, std::int64_t /*screenEdge*/) { }
    // Called whenever the left button is released over another application, after a drag or not.
    virtual void windowInfoWindowDraggedToScreenEdgeDidEnd(JTWindowInfo& /*windowInfo*/, std::int64_t /*screenEdge*/) {
    }
};

} // namespace tarragon
