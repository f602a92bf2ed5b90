#include "platform/linux/accessibletree/AtspiMenuLayout.h"

#include <gtest/gtest.h>
#include <string>

namespace tarragon {
namespace {

constexpr MenuHeights Usual{24, 7};

AtspiNode item(double y, double height = 24, double x = 0) {
    AtspiNode node;
    node.name = "Item";
    node.extents = Rect{{x, y}, {100, height}};
    return node;
}

AtspiNode line(double y, double height = 7) {
    AtspiNode node = item(y, height);
    node.name = "";
    return node;
}

AtspiNode unplaced(const char* name) {
    AtspiNode node;
    node.name = name;
    return node;
}

// Where those of these names are, an empty one for a line: top and height of each.
std::string placed(const AtspiNode& before, const AtspiNode& after, const std::vector<const char*>& names,
    const MenuHeights& usual = Usual) {
    std::vector<AtspiNode> nodes;
    for (const char* name : names)
        nodes.push_back(unplaced(name));
    std::vector<AtspiNode*> between;
    for (AtspiNode& node : nodes)
        between.push_back(&node);
    std::string result;
    for (const Rect& place : placesBetween(before, after, between, usual))
        result += std::to_string(int(place.origin.y)) + "+" + std::to_string(int(place.size.height)) + " ";
    return result;
}

TEST(AtspiMenuLayoutTest, GivesTheOnlyOneBetweenTwoTheRoomThatThereIs) {
    EXPECT_EQ(placed(item(10, 20), item(54, 20), {"A"}), "30+24 ");
    EXPECT_EQ(placed(item(10, 20), item(85, 20), {"A"}), "30+55 ");
    EXPECT_EQ(placed(item(10, 20), item(54, 20), {"A"}, {}), "30+24 ");
    EXPECT_EQ(placed(item(10, 20), item(54, 20), {""}, {}), "30+24 ");
}

TEST(AtspiMenuLayoutTest, HidesAllForWhomThereIsNoRoom) {
    EXPECT_EQ(placed(item(10, 20), item(30, 20), {"A"}), "30+0 ");
    EXPECT_EQ(placed(item(10, 20), item(30, 20), {"A", "", "B"}, {}), "30+0 30+0 30+0 ");
}

TEST(AtspiMenuLayoutTest, PlacesAllThatFillTheRoomTogether) {
    EXPECT_EQ(placed(item(0), item(24 + 3 * 24), {"A", "B", "C"}), "24+24 48+24 72+24 ");
    EXPECT_EQ(placed(item(0), item(24 + 7 + 24 + 7), {"", "A", ""}), "24+7 31+24 55+7 ");
    EXPECT_EQ(placed(line(0), line(7 + 24 + 24), {"A", "B"}), "7+24 31+24 ");
    EXPECT_EQ(placed(item(0), item(24 + 7 + 7), {"", ""}), "24+7 31+7 ");
}

TEST(AtspiMenuLayoutTest, DoesNotGuessWhichOfSeveralIsHidden) {
    EXPECT_EQ(placed(item(0), item(24 + 24), {"A", "B"}), "");
    EXPECT_EQ(placed(item(0), item(24 + 24), {"A", "B", "C"}), "");
    EXPECT_EQ(placed(item(0), item(24 + 24), {"A", ""}), "");
    EXPECT_EQ(placed(item(0), item(24 + 7), {"", "A"}), "");
    EXPECT_EQ(placed(item(0), item(24 + 7 + 24), {"", "A", ""}), "");
    // Higher than usual, so that another might be hidden.
    EXPECT_EQ(placed(item(0), item(24 + 30 + 24), {"A", "B"}), "");
}

TEST(AtspiMenuLayoutTest, PlacesNothingBesideALineOfUnknownHeight) {
    // It may be something else, and one of the others hidden.
    constexpr MenuHeights noLineKnown{24, 0};
    EXPECT_EQ(placed(item(0), item(24 + 24 + 9 + 24), {"A", "", "B"}, noLineKnown), "");
    EXPECT_EQ(placed(item(0), item(24 + 30), {"Hidden", ""}, noLineKnown), "");
}

TEST(AtspiMenuLayoutTest, PlacesNothingWhereTheNeighboursDoNotTell) {
    EXPECT_EQ(placed(item(10, 20), item(54, 20, 100), {"A"}), "");
    EXPECT_EQ(placed(item(10, 0), item(54, 20), {"A"}), "");
    EXPECT_EQ(placed(item(10, 20), unplaced("B"), {"A"}), "");
    // Rounded.
    EXPECT_EQ(placed(item(10, 20), item(31, 20), {"A"}), "");
    EXPECT_EQ(placed(item(10, 20), item(29, 20), {"A"}), "");
    // Items of several heights.
    EXPECT_EQ(placed(item(0), item(24 + 24 + 24), {"A", "B"}, {}), "");
}

TEST(AtspiMenuLayoutTest, KnowsTheHeightsThatAllHaveInCommon) {
    const auto heights = [](const std::vector<AtspiNode>& nodes) {
        std::vector<const AtspiNode*> pointers;
        for (const AtspiNode& node : nodes)
            pointers.push_back(&node);
        const MenuHeights result = heightsIn(pointers);
        return std::pair(result.ofItems, result.ofLines);
    };
    EXPECT_EQ(heights({item(0), line(24), item(31), line(55), unplaced("A"), item(62, 0)}), std::pair(24.0, 7.0));
    EXPECT_EQ(heights({item(0), item(24, 25), line(49)}), std::pair(0.0, 0.0));
    EXPECT_EQ(heights({item(0), item(24, 25), item(49)}), std::pair(0.0, 0.0));
    EXPECT_EQ(heights({item(0), line(24), line(31, 8)}), std::pair(24.0, 0.0));
    // Too high for a line.
    EXPECT_EQ(heights({item(0), line(24, 12)}), std::pair(24.0, 0.0));
    EXPECT_EQ(heights({line(0)}), std::pair(0.0, 0.0));
    EXPECT_EQ(heights({}), std::pair(0.0, 0.0));
}

TEST(AtspiMenuLayoutTest, TakesLowNamelessOnesForLines) {
    EXPECT_TRUE(looksLikeLine(line(0), 24));
    EXPECT_FALSE(looksLikeLine(line(0, 12), 24));
    EXPECT_FALSE(looksLikeLine(line(0, 0), 24));
    EXPECT_FALSE(looksLikeLine(line(0), 0));
    EXPECT_FALSE(looksLikeLine(item(0, 7), 24));
    AtspiNode refused = line(0);
    refused.name.reset();
    EXPECT_FALSE(looksLikeLine(refused, 24));
}

} // namespace
} // namespace tarragon
