#pragma once

#include <optional>
#include <string>

namespace tarragon {

// Which windows are no document windows, so that no panel is to be shown on them. Texts are compared exactly; the role
// texts are those for people, in English.

// The desktop itself, or a window of an application that is treated like it; nothing when that depends on the number of
// the window's children.
[[nodiscard]] std::optional<bool> isDesktopLikeWindow(
    const std::optional<std::string>& applicationTitle, const std::optional<std::string>& role);

// A window that passes soon: a sheet, a dialog, the progress of a copy, a window without role text or title.
[[nodiscard]] bool isPassingWindow(const std::optional<std::string>& role, const std::optional<std::string>& title);

} // namespace tarragon
