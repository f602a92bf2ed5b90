#pragma once

#include <optional>
#include <string>

namespace tarragon {

// Which windows are no document windows, so that a panel has no business there. Texts are compared exactly; the role
// texts are those for people, in English.

// The desktop itself, or a window of an application that is treated like one, as far as it can be told without
// counting the window's children; nothing when they decide.
std::optional<bool> isDesktopLikeWindow(
    const std::optional<std::string>& applicationTitle, const std::optional<std::string>& role);

// A window that passes soon: a sheet, a dialog, the progress of a copy, a window without role text or title.
bool isPassingWindow(const std::optional<std::string>& role, const std::optional<std::string>& title);

} // namespace tarragon
