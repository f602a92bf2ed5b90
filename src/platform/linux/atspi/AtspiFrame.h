#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// What an application says of one of its top-level windows.
struct AtspiFrame {
    std::string title;
    bool active = false;
    bool visible = true;
    std::optional<Rect> extents; // from the corner of the root window
};

// What the X server says of the window that is looked for.
struct AtspiFrameQuery {
    std::string title;
    bool active = false; // it is the window in front
    Rect frame; // with decorations, in points from the corner of the root window
};

struct AtspiFrameMatch {
    std::size_t index = 0;
    // False when another frame might be meant as well, so that the match is worth nothing a moment later.
    bool certain = false;
};

// The frame that the window shows. The only one is taken as it is. Among several, the title tells; among those of one
// title whether they call themselves active as the window is; then the one that lies nearest. Nothing when there is no
// frame. (The title goes first because applications learn late that they are active.)
std::optional<AtspiFrameMatch> matchingFrame(const std::vector<AtspiFrame>& frames, const AtspiFrameQuery& window);

} // namespace tarragon
