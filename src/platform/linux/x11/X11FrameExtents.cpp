#include "platform/linux/x11/X11FrameExtents.h"

#include <algorithm>

namespace tarragon {

X11FrameExtents frameExtentsOfProperty(const std::vector<std::uint32_t>& numbers) {
    // Wider decorations than any screen are nonsense and would throw the frame out of sight.
    static constexpr std::uint32_t Limit = 4096;
    if (numbers.size() < 4
        || std::any_of(numbers.begin(), numbers.begin() + 4, [](std::uint32_t number) { return number > Limit; }))
        return {};
    return {double(numbers[0]), double(numbers[1]), double(numbers[2]), double(numbers[3])};
}

X11FrameExtents visibleFrameExtents(const X11FrameExtents& decorations, const X11FrameExtents& shadow) {
    return {decorations.left - shadow.left, decorations.right - shadow.right, decorations.top - shadow.top,
        decorations.bottom - shadow.bottom};
}

Rect frameOfClient(const Rect& clientCG, const X11FrameExtents& extents) {
    return {{clientCG.origin.x - extents.left, clientCG.origin.y - extents.top},
        {clientCG.size.width + extents.left + extents.right, clientCG.size.height + extents.top + extents.bottom}};
}

Point outerOriginOfFrame(const Point& frameTopLeftCG, const X11FrameExtents& shadow) {
    return {frameTopLeftCG.x - shadow.left, frameTopLeftCG.y - shadow.top};
}

Size clientSizeOfFrame(const Size& frameSize, const X11FrameExtents& extents) {
    return {std::max(1.0, frameSize.width - extents.left - extents.right),
        std::max(1.0, frameSize.height - extents.top - extents.bottom)};
}

} // namespace tarragon
