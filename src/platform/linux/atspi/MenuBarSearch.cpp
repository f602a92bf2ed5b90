#include "platform/linux/atspi/MenuBarSearch.h"

#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiRole.h"

#include <algorithm>

namespace tarragon {

namespace {

// A menu bar lies near the top of its window's tree: eight steps down in the deepest case known.
constexpr int DepthLimit = 14;
constexpr std::size_t NodeLimit = 3000;
// An object with more children than this shows a document, or a list.
constexpr std::size_t SiblingLimit = 300;

} // namespace

std::optional<AtspiReference> MenuBarSearch::run(const AtspiReference& frame) {
    _seen.insert(frame);
    std::vector<AtspiReference> level{frame};
    for (int depth = 0; depth < DepthLimit && !level.empty(); ++depth) {
        const std::vector<AtspiReference> candidates = childrenOf(level);
        _nodes.fetch(_connection, AtspiNodes::wanted(candidates, AtspiFieldRole | AtspiFieldStates));

        std::optional<AtspiReference> hidden;
        level.clear();
        for (const AtspiReference& candidate : candidates) {
            const AtspiNode& node = _nodes.at(candidate);
            if (!node.role)
                continue;
            if (*node.role == AtspiRoleMenuBar) {
                // A hidden one serves as well, when there is no other.
                if (node.has(AtspiState::Visible))
                    return candidate;
                if (!hidden)
                    hidden = candidate;
            }
            if (mayContainMenuBar(*node.role))
                level.push_back(candidate);
        }
        if (hidden)
            return hidden;
    }
    return {};
}

std::vector<AtspiReference> MenuBarSearch::childrenOf(const std::vector<AtspiReference>& level) {
    _nodes.fetch(_connection, AtspiNodes::wanted(level, AtspiFieldChildren));
    _containers.insert(_containers.end(), level.begin(), level.end());
    std::vector<AtspiReference> result;
    for (const AtspiReference& container : level) {
        const auto& children = _nodes.at(container).children;
        if (!children)
            continue;
        const std::size_t count = std::min(children->size(), SiblingLimit);
        for (std::size_t index = 0; index < count && _seen.size() < NodeLimit; ++index) {
            if (_seen.insert((*children)[index]).second)
                result.push_back((*children)[index]);
        }
    }
    return result;
}

} // namespace tarragon
