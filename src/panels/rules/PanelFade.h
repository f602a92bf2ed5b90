#pragma once

#include <optional>

namespace tarragon {

// When panels fade, and how.

// Seconds that a fade takes.
inline constexpr double FadeDuration = 0.25;
// Seconds that a change of a panel's frame takes where it is animated.
inline constexpr double ResizeDuration = 0.15;
// Seconds from one picture of an animation to the next.
inline constexpr double AnimationInterval = 1.0 / 60;

// A window in the middle of a fade ignores both: only these very values start one.
constexpr bool mayFadeIn(double alpha) {
    return alpha == 0.0;
}
constexpr bool mayFadeOut(double alpha) {
    return alpha == 1.0;
}

// How far an animation is after a part of its time, both from 0 to 1: slow at both ends. Exactly 0 and 1 at the ends
// and beyond them.
double easedProgress(double elapsedPart);

// Entering a panel shows it again.
struct PanelEntering {
    bool windowIsMinimized = false;
    bool windowIsHidden = false;
    bool desktopIsActive = false;
    bool fadeEffect = false;
    double alpha = 0;
};
bool fadesInOnEntering(const PanelEntering& entering);
// Leaving it hides it.
constexpr bool fadesOutOnLeaving(bool fadeEffect, bool tempFadeEffect) {
    return fadeEffect && tempFadeEffect;
}

} // namespace tarragon
