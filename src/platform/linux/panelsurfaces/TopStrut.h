#pragma once

#include "platform/Geometry.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {

// Left, right, top, bottom, and the first and last pixel of each of them: the form of _NET_WM_STRUT_PARTIAL.
using StrutNumbers = std::array<std::uint32_t, 12>;

// What a dock reserves that lies at the top of a monitor, or there below other docks, whose room is counted in; pixels
// of the root window, y down. Nothing when it lies elsewhere, or at a monitor below another one: room can be reserved
// only from an edge of the root window.
std::optional<StrutNumbers> topStrut(const Rect& dock, const std::vector<Rect>& monitors);

} // namespace tarragon
