#include "platform/linux/atspi/AtspiWindows.h"

#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibletree/AtspiRole.h"

#include <algorithm>
#include <unordered_set>

namespace tarragon {

namespace {

// A menu bar lies near the top of its window's tree: eight steps down in the deepest case known.
constexpr int DepthLimit = 14;
constexpr std::size_t NodeLimit = 3000;
// One object with more children than this holds contents.
constexpr std::size_t SiblingLimit = 300;
constexpr std::size_t FrameLimit = 200;

bool isMenuBarRole(std::uint32_t role) {
    return role == AtspiRoleMenuBar;
}

} // namespace

AtspiWindows::Remembered AtspiWindows::remembered(std::uint32_t window, const AtspiApplication& application) const {
    const auto frame = _frames.find(window);
    if (frame == _frames.end() || frame->second.busName != application.root.busName)
        return {};
    const auto menuBar = _menuBars.find(frame->second);
    return {frame->second, menuBar != _menuBars.end() ? std::optional(menuBar->second) : std::nullopt};
}

std::optional<AtspiReference> AtspiWindows::frame(std::uint32_t window, const AtspiApplication& application,
    AtspiNodes& nodes, const std::function<AtspiFrameQuery()>& query) {
    if (const auto remembered = _frames.find(window); remembered != _frames.end()) {
        const bool sameApplication = remembered->second.busName == application.root.busName;
        if (sameApplication && hasRole(remembered->second, isWindowRole, nodes))
            return remembered->second;
        _frames.erase(remembered);
    }

    AtspiNodes searched;
    std::vector<AtspiReference> children = searched.fetch(_connection, application.root, AtspiFieldChildren)
                                               .children.value_or(std::vector<AtspiReference>{});
    if (children.size() > FrameLimit)
        children.resize(FrameLimit);
    AtspiNodes::Wanted wanted;
    for (const AtspiReference& child : children)
        wanted.emplace_back(child, AtspiFieldRole | AtspiFieldName | AtspiFieldStates | AtspiFieldExtents);
    searched.fetch(_connection, wanted);

    std::vector<AtspiFrame> frames;
    std::vector<AtspiReference> references;
    for (const AtspiReference& child : children) {
        const AtspiNode& node = searched.at(child);
        if (!node.role || !isWindowRole(*node.role))
            continue;
        frames.push_back({node.name.value_or(std::string{}), node.has(AtspiState::Active),
            node.has(AtspiState::Visible), node.extents});
        references.push_back(child);
    }
    const auto match = matchingFrame(frames, query());
    if (!match)
        return {};
    if (match->certain)
        _frames[window] = references[match->index];
    return references[match->index];
}

std::optional<AtspiReference> AtspiWindows::menuBar(const AtspiReference& frame, AtspiNodes& nodes) {
    if (const auto remembered = _menuBars.find(frame); remembered != _menuBars.end()) {
        if (hasRole(remembered->second, isMenuBarRole, nodes))
            return remembered->second;
        _menuBars.erase(remembered);
    }
    auto found = findMenuBar(frame);
    if (found)
        _menuBars[frame] = *found;
    return found;
}

void AtspiWindows::forget() {
    _frames.clear();
    _menuBars.clear();
}

std::optional<AtspiReference> AtspiWindows::findMenuBar(const AtspiReference& frame) {
    AtspiNodes nodes;
    std::unordered_set<AtspiReference, AtspiReferenceHash> seen{frame};
    std::vector<AtspiReference> level{frame};
    for (int depth = 0; depth < DepthLimit && !level.empty(); ++depth) {
        AtspiNodes::Wanted wanted;
        for (const AtspiReference& container : level)
            wanted.emplace_back(container, AtspiFieldChildren);
        nodes.fetch(_connection, wanted);

        std::vector<AtspiReference> candidates;
        for (const AtspiReference& container : level) {
            const auto& children = nodes.at(container).children;
            if (!children)
                continue;
            const std::size_t count = std::min(children->size(), SiblingLimit);
            for (std::size_t index = 0; index < count && seen.size() < NodeLimit; ++index) {
                const AtspiReference& child = (*children)[index];
                if (seen.insert(child).second)
                    candidates.push_back(child);
            }
        }
        wanted.clear();
        for (const AtspiReference& candidate : candidates)
            wanted.emplace_back(candidate, AtspiFieldRole | AtspiFieldStates);
        nodes.fetch(_connection, wanted);

        std::optional<AtspiReference> found;
        level.clear();
        for (const AtspiReference& candidate : candidates) {
            const AtspiNode& node = nodes.at(candidate);
            if (!node.role)
                continue;
            if (isMenuBarRole(*node.role)) {
                // A hidden one serves as well, when there is no other.
                if (node.has(AtspiState::Visible))
                    return candidate;
                if (!found)
                    found = candidate;
            }
            if (mayContainMenuBar(*node.role))
                level.push_back(candidate);
        }
        if (found)
            return found;
    }
    return {};
}

bool AtspiWindows::hasRole(const AtspiReference& reference, bool (*isExpected)(std::uint32_t), AtspiNodes& nodes) {
    const bool isThere = nodes.fetch(_connection, reference, AtspiFieldRole).role.has_value();
    // What is found again must not be taken for gone.
    if (!isThere)
        nodes.at(reference).asked &= ~AtspiFieldRole;
    return isThere && isExpected(*nodes.at(reference).role);
}

} // namespace tarragon
