#include "platform/linux/atspi/AtspiWindows.h"

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/atspi/MenuBarSearch.h"

#include <algorithm>
#include <string>

namespace tarragon {

namespace {

constexpr std::size_t FrameLimit = 200;
// Dialogs and palettes that are open at the same time are few; a window with more objects than this is searched anew.
constexpr std::size_t FramesWithoutMenuBarLimit = 16;
constexpr std::size_t SearchedLimit = 500;

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

AtspiNodes::Wanted AtspiWindows::wantedOf(const Remembered& remembered) const {
    AtspiNodes::Wanted wanted;
    if (!remembered.frame)
        return wanted;
    wanted.emplace_back(*remembered.frame, AtspiFieldRole);
    if (remembered.menuBar) {
        wanted.emplace_back(*remembered.menuBar, AtspiFieldRole);
    } else if (const FrameWithoutMenuBar* known = withoutMenuBar(*remembered.frame)) {
        for (const auto& [container, childCount] : known->searched)
            wanted.emplace_back(container, AtspiFieldChildCount);
    }
    return wanted;
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
    const AtspiFrameQuery looked = query();
    const auto match = matchingFrame(frames, looked);
    if (!match) {
        log(LogCategory::Accessibility, [&] {
            return "no frame for window " + std::to_string(window) + " \"" + looked.title + "\" among the "
                + std::to_string(children.size()) + " objects of " + application.root.busName;
        });
        return {};
    }
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
    if (const FrameWithoutMenuBar* known = withoutMenuBar(frame)) {
        if (isUnchanged(*known, nodes))
            return {};
        std::erase_if(_withoutMenuBar, [&](const FrameWithoutMenuBar& each) { return each.frame == frame; });
    }
    return search(frame);
}

void AtspiWindows::forget() {
    _frames.clear();
    _menuBars.clear();
    _withoutMenuBar.clear();
}

std::optional<AtspiReference> AtspiWindows::search(const AtspiReference& frame) {
    AtspiNodes nodes;
    MenuBarSearch search(_connection, nodes);
    const auto found = search.run(frame);
    if (found) {
        _menuBars[frame] = *found;
        return found;
    }
    log(LogCategory::Accessibility, [&] {
        return "no menu bar in frame " + frame.path + " of " + frame.busName + ", searched "
            + std::to_string(search.containers().size()) + " objects";
    });
    rememberWithoutMenuBar(frame, search.containers(), nodes);
    return {};
}

const AtspiWindows::FrameWithoutMenuBar* AtspiWindows::withoutMenuBar(const AtspiReference& frame) const {
    const auto found = std::ranges::find(_withoutMenuBar, frame, &FrameWithoutMenuBar::frame);
    return found != _withoutMenuBar.end() ? &*found : nullptr;
}

bool AtspiWindows::isUnchanged(const FrameWithoutMenuBar& known, AtspiNodes& nodes) {
    AtspiNodes::Wanted wanted;
    for (const auto& [container, childCount] : known.searched)
        wanted.emplace_back(container, AtspiFieldChildCount);
    nodes.fetch(_connection, wanted);
    return std::ranges::all_of(known.searched, [&](const auto& searched) {
        return nodes.at(searched.first).childCount == static_cast<std::int64_t>(searched.second);
    });
}

void AtspiWindows::rememberWithoutMenuBar(
    const AtspiReference& frame, const std::vector<AtspiReference>& searched, AtspiNodes& nodes) {
    if (searched.size() > SearchedLimit)
        return;
    // An object that counts other children than it has listed was searched in vain, or changes at this moment.
    FrameWithoutMenuBar result{frame, {}};
    nodes.fetch(_connection, AtspiNodes::wanted(searched, AtspiFieldChildCount));
    for (const AtspiReference& container : searched) {
        const AtspiNode& node = nodes.at(container);
        if (!node.children || node.childCount != static_cast<std::int64_t>(node.children->size()))
            return;
        result.searched.emplace_back(container, node.children->size());
    }
    _withoutMenuBar.push_back(std::move(result));
    if (_withoutMenuBar.size() > FramesWithoutMenuBarLimit)
        _withoutMenuBar.pop_front();
}

bool AtspiWindows::hasRole(const AtspiReference& reference, bool (*isExpected)(std::uint32_t), AtspiNodes& nodes) {
    const bool isThere = nodes.fetch(_connection, reference, AtspiFieldRole).role.has_value();
    // What is found again must not be taken for gone.
    if (!isThere)
        nodes.at(reference).asked &= ~AtspiFieldRole;
    return isThere && isExpected(*nodes.at(reference).role);
}

} // namespace tarragon
