#include "platform/linux/x11/X11ActivationOrder.h"

#include <algorithm>
#include <iterator>

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

std::vector<std::uint32_t> X11ActivationOrder::ordered(const std::vector<std::uint32_t>& windows) const {
    const std::lock_guard lock(_mutex);
    const auto isAmong = [](const std::vector<std::uint32_t>& list, std::uint32_t window) {
        return std::ranges::find(list, window) != list.end();
    };
    std::vector<std::uint32_t> result;
    std::copy_if(_latestLast.rbegin(), _latestLast.rend(), std::back_inserter(result),
        [&](std::uint32_t window) { return isAmong(windows, window); });
    std::copy_if(windows.rbegin(), windows.rend(), std::back_inserter(result),
        [&](std::uint32_t window) { return !isAmong(_latestLast, window); });
    return result;
}

} // namespace tarragon
