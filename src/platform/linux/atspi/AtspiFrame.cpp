#include "platform/linux/atspi/AtspiFrame.h"

#include <cmath>
#include <limits>

namespace tarragon {

namespace {

double distance(const AtspiFrame& frame, const AtspiFrameQuery& window) {
    if (!frame.extents)
        return std::numeric_limits<double>::max();
    const Rect& extents = *frame.extents;
    return std::abs(extents.origin.x - window.frame.origin.x) + std::abs(extents.origin.y - window.frame.origin.y)
        + std::abs(extents.size.width - window.frame.size.width)
        + std::abs(extents.size.height - window.frame.size.height);
}

template <typename Condition>
std::vector<std::size_t> narrowed(const std::vector<std::size_t>& candidates, Condition condition) {
    std::vector<std::size_t> result;
    for (const std::size_t candidate : candidates) {
        if (condition(candidate))
            result.push_back(candidate);
    }
    return result.empty() ? candidates : result;
}

} // namespace

std::optional<AtspiFrameMatch> matchingFrame(const std::vector<AtspiFrame>& frames, const AtspiFrameQuery& window) {
    if (frames.empty())
        return {};
    std::vector<std::size_t> candidates;
    for (std::size_t index = 0; index < frames.size(); ++index)
        candidates.push_back(index);
    candidates = narrowed(candidates, [&](std::size_t index) { return frames[index].visible; });
    candidates = narrowed(candidates, [&](std::size_t index) { return frames[index].title == window.title; });
    const bool titleTells = candidates.size() == 1 && frames[candidates.front()].title == window.title;
    const bool certain = frames.size() == 1 || titleTells;
    candidates = narrowed(candidates, [&](std::size_t index) { return frames[index].active == window.active; });
    std::size_t best = candidates.front();
    for (const std::size_t candidate : candidates) {
        if (distance(frames[candidate], window) < distance(frames[best], window))
            best = candidate;
    }
    return AtspiFrameMatch{best, certain};
}

} // namespace tarragon
