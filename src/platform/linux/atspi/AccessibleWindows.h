#pragma once

#include "platform/Value.h"
#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/WindowSource.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// The window of an application that its user works in, or would if the application were in front.
struct FocusedWindow {
    WindowDescription window;
    bool isOnShownWorkspace = false;
};

// Applications and their windows as the X server shows them, in the vocabulary of the system. Every application that
// owns a window is here, whether or not it is accessible in any other way. May be called from any thread.
class AccessibleWindows {
public:
    AccessibleWindows(WindowSource& windows, ApplicationDirectory& applications)
        : _windows(windows)
        , _applications(applications) { }

    // The window in front; nothing when none is.
    std::optional<WindowDescription> activeWindow();
    std::optional<WindowDescription> windowAtPosition(const Point& pointCG);
    std::optional<WindowDescription> describe(std::uint32_t window);
    bool isActive(std::uint32_t window);

    void beginLook() { _windows.beginLook(); }
    void endLook() { _windows.endLook(); }

    // The windows of a process, topmost first. A window that does not tell its process stands for itself: process 0
    // and that window.
    std::vector<WindowDescription> windowsOfApplication(std::int64_t processIdentifier, std::uint32_t window);
    // The windows of a process in the order in which they were last active, the latest first.
    std::vector<WindowDescription> windowsByActivation(std::int64_t processIdentifier);
    // The active window when it is the application's, else its topmost one that is not minimised. Those that the user
    // sees come before those of other workspaces.
    std::optional<FocusedWindow> focusedWindow(std::int64_t processIdentifier, std::uint32_t window);
    std::string applicationName(const WindowDescription& window);

    // Everything about a window but its parent and children. The title is never nil: the window system makes no
    // difference between a window without a name and one with an empty name.
    Value attributeOfWindow(const WindowDescription& window, std::string_view attribute);
    static std::vector<std::string> attributeNamesOfWindow();
    static bool windowHasAttribute(std::string_view attribute);
    static bool isSettable(std::string_view attribute);
    bool setAttributeOfWindow(std::uint32_t window, std::string_view attribute, const Value& value);
    bool raise(std::uint32_t window) { return _windows.raise(window); }

private:
    WindowSource& _windows;
    ApplicationDirectory& _applications;
};

// How people call a window of this kind.
std::string_view windowRoleDescription(WindowKind kind);

} // namespace tarragon
