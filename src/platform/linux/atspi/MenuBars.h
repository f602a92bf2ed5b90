#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/windows/WindowDescription.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {

class AccessibleWindows;
class AtspiOperation;
class WindowContents;

// A menu bar and where it stands.
struct WindowMenuBar {
    WindowDescription window;
    AtspiApplication application;
    AtspiReference menuBar;
};

// Whose menu bar is shown while a window is in front. A window without one, such as a dialog or a palette, shows that
// of the window that it is transient for; failing that, that of its application's window that was active last and has
// one.
class MenuBars {
public:
    MenuBars(AccessibleWindows& windows, WindowContents& contents)
        : _windows(windows)
        , _contents(contents) { }

    // Nothing when there is no menu bar, or none whose application answers.
    std::optional<WindowMenuBar> shownBy(AtspiOperation& operation, const WindowDescription& window);

private:
    std::optional<WindowMenuBar> within(AtspiOperation& operation, const WindowDescription& window);
    // Windows that were looked at are added to those that were tried, and not looked at again.
    std::optional<WindowMenuBar> ofOwners(
        AtspiOperation& operation, const WindowDescription& window, std::vector<std::uint32_t>& tried);
    std::optional<WindowMenuBar> ofApplication(
        AtspiOperation& operation, std::int64_t processIdentifier, const std::vector<std::uint32_t>& tried);

    AccessibleWindows& _windows;
    WindowContents& _contents;
};

} // namespace tarragon
