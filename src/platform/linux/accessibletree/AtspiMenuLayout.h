#pragma once

#include "platform/Geometry.h"
#include "platform/linux/accessibletree/AtspiNode.h"

#include <span>
#include <vector>

// What the places of some items of a menu tell of others. The items of a menu follow one another without gaps, those
// that the application hides take no room, and the lines between them are less than half as high as items are.
namespace tarragon {

// It has a place on the screen, or would have if its menu were open.
bool takesRoom(const AtspiNode& node);
// It tells that it has no such place.
bool isHidden(const AtspiNode& node);
bool hasName(const AtspiNode& node);

// In points; 0 when it is not known, or not the same for all.
struct MenuHeights {
    double ofItems = 0;
    double ofLines = 0;
};
// Of those among them that have a place.
MenuHeights heightsIn(std::span<const AtspiNode* const> nodes);

// A line between items, to judge by its height.
bool looksLikeLine(const AtspiNode& node, double heightOfItems);
// Where the items are that stand between two others; those that are hidden get a place without height. Empty when the
// two do not tell, because one is hidden itself, or begins another column, or too much could stand between them.
std::vector<Rect> placesBetween(
    const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between, const MenuHeights& usual);

} // namespace tarragon
