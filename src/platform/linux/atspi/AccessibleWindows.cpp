#include "platform/linux/atspi/AccessibleWindows.h"

#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

constexpr std::string_view Minimized = "AXMinimized";
constexpr std::array WindowAttributes{attribute::Role, attribute::Subrole, attribute::RoleDescription, attribute::Title,
    attribute::Position, attribute::Size, attribute::FullScreen, Minimized, attribute::Focused, attribute::Parent,
    attribute::Children};

std::string_view windowSubrole(WindowKind kind) {
    switch (kind) {
    case WindowKind::Normal:
        return "AXStandardWindow";
    case WindowKind::Dialog:
    case WindowKind::Sheet:
        return "AXDialog";
    case WindowKind::Floating:
        return "AXFloatingWindow";
    case WindowKind::Desktop:
        return "AXUnknown";
    }
    return "AXUnknown";
}

} // namespace

std::string_view windowRoleDescription(WindowKind kind) {
    switch (kind) {
    case WindowKind::Normal:
        return "window";
    case WindowKind::Dialog:
        return "dialog";
    case WindowKind::Sheet:
        return "sheet";
    case WindowKind::Floating:
        return "floating window";
    case WindowKind::Desktop:
        return "AXWindow:AXUnknown";
    }
    return "window";
}

std::optional<WindowDescription> AccessibleWindows::activeWindow() {
    return _windows.describeActiveWindow();
}

std::optional<WindowDescription> AccessibleWindows::windowAtPosition(const Point& pointCG) {
    const auto window = _windows.windowAtPosition(pointCG);
    return window ? _windows.describe(*window) : std::nullopt;
}

std::optional<WindowDescription> AccessibleWindows::describe(std::uint32_t window) {
    return _windows.describe(window);
}

bool AccessibleWindows::isActive(std::uint32_t window) {
    return window != 0 && _windows.activeWindow() == window;
}

std::vector<WindowDescription> AccessibleWindows::windowsOfApplication(
    std::int64_t processIdentifier, std::uint32_t window) {
    if (processIdentifier == 0)
        return _windows.describe(std::vector<std::uint32_t>{window});
    std::vector<WindowDescription> result = _windows.describe(_windows.managedWindows());
    std::erase_if(result, [processIdentifier](const WindowDescription& description) {
        return description.processIdentifier != processIdentifier;
    });
    std::ranges::reverse(result);
    return result;
}

std::vector<WindowDescription> AccessibleWindows::windowsByActivation(std::int64_t processIdentifier) {
    std::vector<WindowDescription> result = _windows.describe(_windows.windowsByActivation());
    std::erase_if(result, [processIdentifier](const WindowDescription& description) {
        return description.processIdentifier != processIdentifier;
    });
    return result;
}

std::optional<FocusedWindow> AccessibleWindows::focusedWindow(std::int64_t processIdentifier, std::uint32_t window) {
    if (processIdentifier != 0) {
        auto active = activeWindow();
        // A window that is being minimised stays the active one for a moment.
        if (active && active->processIdentifier == processIdentifier && !active->hidden)
            return FocusedWindow{.window = *std::move(active), .isOnShownWorkspace = true};
    }
    std::vector<WindowDescription> windows = windowsOfApplication(processIdentifier, window);
    std::erase_if(windows, [](const WindowDescription& description) { return description.hidden; });
    if (windows.empty())
        return {};
    const std::optional<std::uint32_t> workspace = _windows.shownWorkspace();
    const auto shown = std::ranges::find_if(
        windows, [workspace](const WindowDescription& description) { return description.isOn(workspace); });
    const bool isShown = shown != windows.end();
    return FocusedWindow{.window = isShown ? *shown : windows.front(), .isOnShownWorkspace = isShown};
}

std::string AccessibleWindows::applicationName(const WindowDescription& window) {
    return _applications.applicationName(window);
}

std::vector<std::string> AccessibleWindows::attributeNamesOfWindow() {
    return {WindowAttributes.begin(), WindowAttributes.end()};
}

bool AccessibleWindows::windowHasAttribute(std::string_view attribute) {
    return std::ranges::find(WindowAttributes, attribute) != WindowAttributes.end();
}

Value AccessibleWindows::attributeOfWindow(const WindowDescription& window, std::string_view attribute) {
    if (attribute == attribute::Role)
        return std::string(role::Window);
    if (attribute == attribute::Subrole)
        return std::string(windowSubrole(window.kind));
    if (attribute == attribute::RoleDescription)
        return std::string(windowRoleDescription(window.kind));
    if (attribute == attribute::Title)
        return window.title;
    if (attribute == attribute::Position)
        return window.frameCG.origin;
    if (attribute == attribute::Size)
        return window.frameCG.size;
    if (attribute == attribute::FullScreen)
        return window.fullScreen;
    if (attribute == Minimized)
        return window.hidden;
    if (attribute == attribute::Focused)
        return isActive(window.identifier);
    return {};
}

bool AccessibleWindows::isSettable(std::string_view attribute) {
    return attribute == attribute::Position || attribute == attribute::Size;
}

bool AccessibleWindows::setAttributeOfWindow(std::uint32_t window, std::string_view attribute, const Value& value) {
    if (const auto* point = valueAs<Point>(value); point != nullptr && attribute == attribute::Position)
        return _windows.setPosition(window, *point);
    if (const auto* size = valueAs<Size>(value); size != nullptr && attribute == attribute::Size)
        return _windows.setSize(window, *size);
    return false;
}

} // namespace tarragon
