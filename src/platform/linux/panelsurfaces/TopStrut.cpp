#include "platform/linux/panelsurfaces/TopStrut.h"

#include <algorithm>

namespace tarragon {

namespace {

// Other docks do not push one further down than that.
constexpr double MostOfMonitor = 0.25;

bool liesAtTop(const Rect& monitor, const Rect& dock) {
    const double bottom = dock.origin.y + dock.size.height;
    return monitor.origin.y == 0 && contains(monitor, dock.origin) && bottom <= monitor.size.height * MostOfMonitor;
}

} // namespace

std::optional<StrutNumbers> topStrut(const Rect& dock, const std::vector<Rect>& monitors) {
    constexpr std::size_t Top = 2;
    constexpr std::size_t TopBegin = 8;
    constexpr std::size_t TopEnd = 9;
    const bool isThere = dock.size.width >= 1 && dock.size.height >= 1;
    if (!isThere || std::ranges::none_of(monitors, [&](const Rect& monitor) { return liesAtTop(monitor, dock); }))
        return std::nullopt;
    StrutNumbers numbers{};
    numbers[Top] = static_cast<std::uint32_t>(dock.origin.y + dock.size.height);
    numbers[TopBegin] = static_cast<std::uint32_t>(dock.origin.x);
    numbers[TopEnd] = static_cast<std::uint32_t>(dock.origin.x + dock.size.width) - 1;
    return numbers;
}

} // namespace tarragon
