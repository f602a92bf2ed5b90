#include "platform/linux/panelsurfaces/TopStrut.h"

#include <algorithm>

namespace tarragon {

std::optional<StrutNumbers> topStrut(const Rect& dock, const std::vector<Rect>& monitors) {
    constexpr std::size_t Top = 2;
    constexpr std::size_t TopBegin = 8;
    constexpr std::size_t TopEnd = 9;
    const bool liesAtTopEdge = dock.origin.y == 0 && dock.size.width >= 1 && dock.size.height >= 1;
    const auto isUnderDock = [&](const Rect& monitor) { return contains(monitor, dock.origin); };
    if (!liesAtTopEdge || std::ranges::none_of(monitors, isUnderDock))
        return std::nullopt;
    StrutNumbers numbers{};
    numbers[Top] = static_cast<std::uint32_t>(dock.size.height);
    numbers[TopBegin] = static_cast<std::uint32_t>(dock.origin.x);
    numbers[TopEnd] = static_cast<std::uint32_t>(dock.origin.x + dock.size.width) - 1;
    return numbers;
}

} // namespace tarragon
