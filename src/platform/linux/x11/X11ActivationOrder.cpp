#include "platform/linux/x11/X11ActivationOrder.h"

#include <algorithm>

namespace tarragon {

void X11ActivationOrder::becameActive(std::uint32_t window) {
    const std::lock_guard lock(_mutex);
    std::erase(_latestLast, window);
    _latestLast.push_back(window);
}

void X11ActivationOrder::forget(std::uint32_t window) {
    const std::lock_guard lock(_mutex);
    std::erase(_latestLast, window);
}

void X11ActivationOrder::keepOnly(const std::vector<std::uint32_t>& windows) {
    const std::lock_guard lock(_mutex);
    std::erase_if(
        _latestLast, [&](std::uint32_t window) { return std::ranges::find(windows, window) == windows.end(); });
}

std::vector<std::uint32_t> X11ActivationOrder::ordered(std::vector<std::uint32_t> windows) const {
    const std::lock_guard lock(_mutex);
    std::ranges::reverse(windows);
    // Positions from the end; 0 for windows that were never active.
    const auto recency = [&](std::uint32_t window) {
        return std::ranges::find(_latestLast, window) == _latestLast.end()
            ? 0
            : std::ranges::find(_latestLast, window) - _latestLast.begin() + 1;
    };
    std::ranges::stable_sort(windows, std::ranges::greater(), recency);
    return windows;
}

} // namespace tarragon
