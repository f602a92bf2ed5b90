#pragma once

#include <cstdint>
#include <optional>

namespace tarragon {

// The system's number of a pointer button that X numbers from 1: left, middle, right, and from 8 on the further ones.
// Nothing for 4 to 7, by which X tells of wheels.
constexpr std::optional<std::uint32_t> buttonNumberFromX11(std::uint32_t button) {
    constexpr std::uint32_t FirstFurtherButton = 8;
    constexpr std::uint32_t ThirdNumber = 3;
    switch (button) {
    case 1:
        return 0;
    case 2:
        return 2;
    case 3:
        return 1;
    default:
        return button < FirstFurtherButton ? std::nullopt : std::optional(button - FirstFurtherButton + ThirdNumber);
    }
}

} // namespace tarragon
