#include "platform/linux/AccessibleWindows.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/DesktopEntries.h"

#include <algorithm>

namespace tarragon {

namespace {

constexpr std::string_view Subrole = "AXSubrole";
constexpr std::string_view Minimized = "AXMinimized";

std::string_view windowSubrole(X11WindowKind kind) {
    switch (kind) {
    case X11WindowKind::Normal:
        return "AXStandardWindow";
    case X11WindowKind::Dialog:
    case X11WindowKind::Sheet:
        return "AXDialog";
    case X11WindowKind::Floating:
        return "AXFloatingWindow";
    case X11WindowKind::Desktop:
        return "AXUnknown";
    }
    return "AXUnknown";
}

} // namespace

std::string_view windowRoleDescription(X11WindowKind kind) {
    switch (kind) {
    case X11WindowKind::Normal:
        return "window";
    case X11WindowKind::Dialog:
        return "dialog";
    case X11WindowKind::Sheet:
        return "sheet";
    case X11WindowKind::Floating:
        return "floating window";
    case X11WindowKind::Desktop:
        return "AXWindow:AXUnknown";
    }
    return "window";
}

std::optional<X11WindowDescription> AccessibleWindows::activeWindow() {
    const auto window = _windows.activeWindow();
    return window ? _windows.describe(*window) : std::nullopt;
}

std::optional<X11WindowDescription> AccessibleWindows::windowAtPosition(const Point& pointCG) {
    const auto window = _windows.windowAtPosition(pointCG);
    return window ? _windows.describe(*window) : std::nullopt;
}

std::optional<X11WindowDescription> AccessibleWindows::describe(std::uint32_t window) {
    return _windows.describe(window);
}

bool AccessibleWindows::isActive(std::uint32_t window) {
    return window != 0 && _windows.activeWindow() == window;
}

std::vector<X11WindowDescription> AccessibleWindows::windowsOfApplication(
    std::int64_t processIdentifier, std::uint32_t window) {
    if (processIdentifier == 0)
        return _windows.describe(std::vector<std::uint32_t>{window});
    std::vector<X11WindowDescription> result = _windows.describe(_windows.managedWindows());
    std::erase_if(result, [processIdentifier](const X11WindowDescription& description) {
        return description.processIdentifier != processIdentifier;
    });
    std::ranges::reverse(result);
    return result;
}

std::optional<X11WindowDescription> AccessibleWindows::focusedWindow(
    std::int64_t processIdentifier, std::uint32_t window) {
    if (processIdentifier != 0) {
        auto active = activeWindow();
        // A window that is being minimised stays the active one for a moment.
        if (active && active->processIdentifier == processIdentifier && !active->hidden)
            return active;
    }
    for (const X11WindowDescription& description : windowsOfApplication(processIdentifier, window)) {
        if (!description.hidden)
            return description;
    }
    return {};
}

std::string AccessibleWindows::applicationName(const X11WindowDescription& window) {
    return _desktopEntries.applicationName(window);
}

std::vector<std::string> AccessibleWindows::attributeNamesOfWindow() {
    std::vector<std::string> names;
    for (const std::string_view name :
        {attribute::Role, Subrole, attribute::RoleDescription, attribute::Title, attribute::Position, attribute::Size,
            attribute::FullScreen, Minimized, attribute::Focused, attribute::Parent, attribute::Children})
        names.emplace_back(name);
    return names;
}

Value AccessibleWindows::attributeOfWindow(const X11WindowDescription& window, std::string_view attribute) {
    if (attribute == attribute::Role)
        return std::string(role::Window);
    if (attribute == Subrole)
        return std::string(windowSubrole(window.kind));
    if (attribute == attribute::RoleDescription)
        return std::string(windowRoleDescription(window.kind));
    if (attribute == attribute::Title)
        return window.title.empty() ? Value{} : Value{window.title};
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
