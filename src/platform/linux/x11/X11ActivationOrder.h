#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

namespace tarragon {

// In which order windows were last active. May be called from any thread.
class X11ActivationOrder {
public:
    void becameActive(std::uint32_t window);
    // Identifiers of windows that are gone are used again.
    void forget(std::uint32_t window);
    void keepOnly(const std::vector<std::uint32_t>& windows);

    // The windows, given bottom to top: those that were active, the latest first, then the others, topmost first.
    std::vector<std::uint32_t> ordered(const std::vector<std::uint32_t>& windows) const;

private:
    mutable std::mutex _mutex;
    std::vector<std::uint32_t> _latestLast;
};

} // namespace tarragon
