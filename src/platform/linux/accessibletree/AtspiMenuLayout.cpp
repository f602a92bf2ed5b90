#include "platform/linux/accessibletree/AtspiMenuLayout.h"

#include <algorithm>
#include <optional>

namespace tarragon {

namespace {

// Where points are not pixels, a place may be off by one.
constexpr double LeastHeight = 3;

// 0 stands for a height that is not the same for all, too.
void takeHeight(std::optional<double>& common, double height) {
    common = !common || *common == height ? height : 0;
}

// Of what stands within a stretch of a menu.
std::optional<MenuHeights> heightsWithin(
    double stretch, std::span<AtspiNode* const> between, const MenuHeights& usual) {
    if (stretch == 0)
        return MenuHeights{};
    const auto items = std::ranges::count_if(between, [](const AtspiNode* node) { return hasName(*node); });
    const auto lines = std::ssize(between) - items;
    const bool areKnown = (items == 0 || usual.ofItems > 0) && (lines == 0 || usual.ofLines > 0);
    // If one of them were hidden, the others would not fill the stretch.
    if (areKnown && stretch == static_cast<double>(items) * usual.ofItems + static_cast<double>(lines) * usual.ofLines)
        return usual;
    if (between.size() == 1 && stretch >= LeastHeight)
        return MenuHeights{stretch, stretch};
    return std::nullopt;
}

} // namespace

bool takesRoom(const AtspiNode& node) {
    return node.extents && node.extents->size.width > 0 && node.extents->size.height > 0;
}

bool isHidden(const AtspiNode& node) {
    return node.extents && !takesRoom(node);
}

bool hasName(const AtspiNode& node) {
    return node.name && !node.name->empty();
}

MenuHeights heightsIn(std::span<const AtspiNode* const> nodes) {
    std::optional<double> ofItems;
    for (const AtspiNode* node : nodes) {
        if (takesRoom(*node) && hasName(*node))
            takeHeight(ofItems, node->extents->size.height);
    }
    std::optional<double> ofLines;
    for (const AtspiNode* node : nodes) {
        if (looksLikeLine(*node, ofItems.value_or(0)))
            takeHeight(ofLines, node->extents->size.height);
    }
    return {ofItems.value_or(0), ofLines.value_or(0)};
}

bool looksLikeLine(const AtspiNode& node, double heightOfItems) {
    return node.name && node.name->empty() && takesRoom(node) && 2 * node.extents->size.height < heightOfItems;
}

std::vector<Rect> placesBetween(
    const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between, const MenuHeights& usual) {
    if (!takesRoom(before) || !takesRoom(after) || after.extents->origin.x != before.extents->origin.x)
        return {};
    Point origin{before.extents->origin.x, before.extents->origin.y + before.extents->size.height};
    const auto heights = heightsWithin(after.extents->origin.y - origin.y, between, usual);
    if (!heights)
        return {};
    std::vector<Rect> places;
    for (const AtspiNode* node : between) {
        const double height = hasName(*node) ? heights->ofItems : heights->ofLines;
        places.push_back({origin, {before.extents->size.width, height}});
        origin.y += height;
    }
    return places;
}

} // namespace tarragon
