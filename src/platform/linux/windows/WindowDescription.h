#pragma once

#include "platform/Geometry.h"
#include "platform/linux/windows/WindowKind.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarragon {

// What the window manager and the application say of one top-level window, at the moment of asking.
struct WindowDescription {
    std::uint32_t identifier = 0;
    std::int64_t processIdentifier = 0; // 0 when the window does not tell
    std::string title;
    std::string instanceName; // first string of WM_CLASS
    std::string className; // second string of WM_CLASS
    std::string gtkApplicationIdentifier; // empty for windows of other toolkits
    WindowKind kind = WindowKind::Normal;
    std::uint32_t transientFor = 0; // the window that it belongs to, as a dialog does; 0 for none, or a whole group
    Rect frame; // with decorations, without shadows; pixels of the root window, y down
    Rect frameCG; // the same in screen space, in points
    Point screenOrigin; // where screen space begins in the root window, the same numbers in pixels and in points
    bool fullScreen = false;
    bool hidden = false; // minimised
    std::optional<std::uint32_t> workspace; // counted from 0; nothing for a window that is on all of them

    // Nothing stands for a window manager that has no workspaces: every window is on the one that there is then.
    bool isOn(std::optional<std::uint32_t> shownWorkspace) const {
        return !workspace || !shownWorkspace || workspace == shownWorkspace;
    }
};

} // namespace tarragon
