#include "panels/rules/HorizontalLayout.h"

#include "panels/rules/Measures.h"

#include <algorithm>

namespace tarragon {

namespace {

// What a title may reach beyond the limit before it goes into the bunch menu.
constexpr float Tolerance = 20;
// A window whose half has no more points than this for titles is too narrow to keep them at the right of its buttons.
constexpr float TooNarrowHalf = 22;

// The limits are single-precision values, which hold the whole points of any real window.
float rightHalfLimit(std::int32_t windowWidth) {
    return static_cast<float>(std::int64_t{windowWidth / 2} - 260);
}

float wholeWidthLimit(std::int32_t windowWidth) {
    return static_cast<float>(std::int64_t{windowWidth} - 45);
}

} // namespace

HorizontalLayout layOutHorizontally(
    std::int32_t windowWidth, const std::vector<double>& widths, const RightOfButtons& settings) {
    HorizontalLayout layout;
    layout.settings = settings;
    auto& [tarragonAlwaysRight, tempAboveTrafficLights] = layout.settings;
    const float rightHalf = rightHalfLimit(windowWidth);
    const float wholeWidth = wholeWidthLimit(windowWidth);

    std::int32_t x = 0;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        if (tempAboveTrafficLights) {
            tempAboveTrafficLights = false;
            tarragonAlwaysRight = true;
        }
        // A title is never less than nothing wide, so the row only grows.
        std::int32_t next = wholePoints(x + std::max(0.0, widths[index]) + 15);
        float limit = wholeWidth;
        if (tarragonAlwaysRight) {
            next -= 10;
            if (rightHalf <= TooNarrowHalf) {
                tarragonAlwaysRight = false;
                tempAboveTrafficLights = true;
            } else {
                limit = rightHalf;
            }
        }

        const bool fits = static_cast<float>(next) < limit + Tolerance;
        if (fits)
            layout.positions.push_back(x);
        else if (!layout.firstInBunch)
            layout.firstInBunch = index;
        x = next;
    }
    return layout;
}

double bunchButtonPosition(std::int32_t windowWidth) {
    return windowWidth - 70.0;
}

Point bunchButtonOrigin(const Rect& nextToLast) {
    return {.x = nextToLast.origin.x + nextToLast.size.width + 5, .y = 3};
}

} // namespace tarragon
