#include "platform/linux/x11/X11Struts.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

constexpr Size Root{1600, 1200};
constexpr Rect Left{{0, 0}, {800, 1200}};
constexpr Rect Right{{800, 0}, {800, 1200}};

TEST(X11Struts, ReadsTheThicknessAlongEveryWholeEdge) {
    const std::vector<X11Strut> expected{{X11Edge::Left, {{0, 0}, {1, 1200}}}, {X11Edge::Right, {{1598, 0}, {2, 1200}}},
        {X11Edge::Top, {{0, 0}, {1600, 3}}}, {X11Edge::Bottom, {{0, 1196}, {1600, 4}}}};
    EXPECT_EQ(strutsOfProperty({1, 2, 3, 4}, Root), expected);
}

TEST(X11Struts, ReadsWhereEachBeginsAndEnds) {
    const std::vector<X11Strut> expected{{X11Edge::Left, {{0, 10}, {1, 11}}}, {X11Edge::Right, {{1598, 30}, {2, 11}}},
        {X11Edge::Top, {{50, 0}, {11, 3}}}, {X11Edge::Bottom, {{70, 1196}, {11, 4}}}};
    EXPECT_EQ(strutsOfProperty({1, 2, 3, 4, 10, 20, 30, 40, 50, 60, 70, 80}, Root), expected);
}

TEST(X11Struts, LeavesOutEdgesOfWhichNothingIsTaken) {
    EXPECT_TRUE(strutsOfProperty({0, 0, 0, 0}, Root).empty());
    // One that ends before it begins.
    EXPECT_TRUE(strutsOfProperty({0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 80, 70}, Root).empty());
}

TEST(X11Struts, KnowsNothingOfADamagedProperty) {
    EXPECT_TRUE(strutsOfProperty({}, Root).empty());
    EXPECT_TRUE(strutsOfProperty({1, 2, 3}, Root).empty());
}

TEST(X11Struts, TakesEachEdgeOffTheMonitor) {
    EXPECT_EQ(rectWithoutStruts(Left, strutsOfProperty({10, 0, 20, 30}, Root)), (Rect{{10, 20}, {790, 1150}}));
    EXPECT_EQ(rectWithoutStruts(Right, strutsOfProperty({0, 10, 20, 30}, Root)), (Rect{{800, 20}, {790, 1150}}));
}

TEST(X11Struts, TakesNothingOffAMonitorThatThePanelDoesNotTouch) {
    const auto struts = strutsOfProperty({0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 800, 1599}, Root);
    EXPECT_EQ(rectWithoutStruts(Left, struts), Left);
    EXPECT_EQ(rectWithoutStruts(Right, struts), (Rect{{800, 0}, {800, 1160}}));
}

TEST(X11Struts, CountsAPanelAtAnInnerEdgeForTheMonitorThatItStandsOn) {
    // Reckoned from the left edge of the root window, it covers the left monitor whole.
    const auto struts = strutsOfProperty({840, 0, 0, 0, 0, 1199, 0, 0, 0, 0, 0, 0}, Root);
    EXPECT_EQ(rectWithoutStruts(Left, struts), Left);
    EXPECT_EQ(rectWithoutStruts(Right, struts), (Rect{{840, 0}, {760, 1200}}));
}

TEST(X11Struts, CountsAPanelThatDoesNotSayWhereItBeginsForAsMuchOfItsEdgeAsItTakes) {
    const auto top = strutsOfProperty({0, 0, 40, 0}, Root);
    EXPECT_EQ(
        strutsAlongside(top, {{800, 0}, {500, 40}}), (std::vector<X11Strut>{{X11Edge::Top, {{800, 0}, {500, 40}}}}));
    const auto left = strutsOfProperty({840, 0, 0, 0}, Root);
    EXPECT_EQ(strutsAlongside(left, {{800, 300}, {40, 2000}}),
        (std::vector<X11Strut>{{X11Edge::Left, {{0, 300}, {840, 900}}}}));
    // One that hides itself beyond the edge.
    EXPECT_EQ(strutsAlongside(top, {{800, -40}, {500, 40}}), top);
    EXPECT_EQ(strutsAlongside(top, {{800, 0}, {0, 0}}), top);
}

TEST(X11Struts, CountsTheThickerOfTwoPanelsAtOneEdge) {
    auto struts = strutsOfProperty({0, 0, 0, 40}, Root);
    const auto thinner = strutsOfProperty({0, 0, 0, 10}, Root);
    struts.insert(struts.end(), thinner.begin(), thinner.end());
    EXPECT_EQ(rectWithoutStruts(Left, struts), (Rect{{0, 0}, {800, 1160}}));
}

} // namespace
} // namespace tarragon
