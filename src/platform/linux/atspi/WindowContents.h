#pragma once

#include "platform/Element.h"
#include "platform/Geometry.h"
#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/windows/WindowDescription.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {

class AccessibleWindows;
class AtspiOperation;
struct AtspiApplication;

// What an application shows within a top-level window: the accessible objects below the frame that stands for the
// window.
class WindowContents {
public:
    explicit WindowContents(AccessibleWindows& windows)
        : _windows(windows) { }

    // Nothing when the application has no frame for the window.
    std::optional<AtspiReference> frame(
        AtspiOperation& operation, const WindowDescription& window, const AtspiApplication& application);
    // None when the application is not to be asked; nothing when it does not answer.
    std::optional<std::vector<Element>> children(AtspiOperation& operation, const WindowDescription& window);
    std::optional<std::int64_t> childCount(AtspiOperation& operation, const WindowDescription& window);
    // The innermost object at a point in screen space that lies within the window; nil when there is none.
    Element elementAtPosition(AtspiOperation& operation, const WindowDescription& window, const Point& pointCG);

private:
    AccessibleWindows& _windows;
};

} // namespace tarragon
