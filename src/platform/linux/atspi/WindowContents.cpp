#include "platform/linux/atspi/WindowContents.h"

#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/AtspiOperation.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <algorithm>

namespace tarragon {

namespace {

// Applications count from the corner of the root window, and not from that of the primary screen. Those of one toolkit
// mean points as we do; those of the other mean pixels divided by a whole number, which is the same for scales that are
// whole themselves.
Point inRootWindow(const Point& pointCG, const WindowDescription& window) {
    return {pointCG.x + window.screenOrigin.x, pointCG.y + window.screenOrigin.y};
}

// Objects within objects under one point.
constexpr std::size_t HitTestLimit = 40;

} // namespace

std::optional<AtspiReference> WindowContents::frame(
    AtspiOperation& operation, const WindowDescription& window, const AtspiApplication& application) {
    return operation.windows().frame(window.identifier, application, operation.nodes(), [&] {
        const Rect frame{inRootWindow(window.frameCG.origin, window), window.frameCG.size};
        return AtspiFrameQuery{window.title, _windows.isActive(window.identifier), frame};
    });
}

std::optional<std::vector<Element>> WindowContents::children(
    AtspiOperation& operation, const WindowDescription& window) {
    const auto application = operation.application(window.processIdentifier);
    const auto found = application ? frame(operation, window, *application) : std::nullopt;
    if (!found)
        return std::vector<Element>{};
    auto parent = nodeInWindow(window, *application, operation.busIdentity(), *found);
    parent->kind = AtspiElement::Kind::Window;
    return operation.tree().children(Element(std::move(parent)), *found);
}

std::optional<std::int64_t> WindowContents::childCount(AtspiOperation& operation, const WindowDescription& window) {
    const auto application = operation.application(window.processIdentifier);
    const auto found = application ? frame(operation, window, *application) : std::nullopt;
    return found ? operation.tree().childCount(*found) : std::optional<std::int64_t>(0);
}

Element WindowContents::elementAtPosition(
    AtspiOperation& operation, const WindowDescription& window, const Point& pointCG) {
    const auto application = operation.application(window.processIdentifier);
    const auto outermost = application ? frame(operation, window, *application) : std::nullopt;
    if (!outermost)
        return {};
    // The window contains the point, so it is one of the screen.
    const Point inRoot = inRootWindow(pointCG, window);
    const AtspiScreenPoint point{static_cast<std::int32_t>(inRoot.x), static_cast<std::int32_t>(inRoot.y)};
    // Each object is asked once, also by an application that leads round in a circle.
    std::vector<AtspiReference> asked;
    AtspiReference innermost = *outermost;
    while (asked.size() < HitTestLimit) {
        asked.push_back(innermost);
        std::optional<AtspiReference> inner;
        operation.connection().run({{innermost, "org.a11y.atspi.Component", "GetAccessibleAtPoint", point,
            [&inner](AtspiReply& reply) { inner = reply.readReference(); }}});
        if (!inner || inner->isNull() || std::ranges::find(asked, *inner) != asked.end())
            break;
        innermost = *inner;
    }
    if (innermost == *outermost)
        return {};
    return Element(nodeInWindow(window, *application, operation.busIdentity(), innermost));
}

} // namespace tarragon
