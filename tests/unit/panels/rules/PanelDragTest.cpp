#include "panels/rules/PanelDrag.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

// The primary screen with a bar of 30 points at its top; the other one at its left and lower, without a bar.
constexpr Rect PrimaryVisibleNS{{0, 0}, {1920, 1050}};
constexpr Rect SecondaryVisibleNS{{-1600, -120.5}, {1600, 1000.25}}; // its top is at 879.75

struct DragCase {
    Rect panel;
    Point from;
    Point to;
    Rect screen;
    Point origin;
};

TEST(PanelDrag, MovesThePanelWithThePointer) {
    for (const DragCase& c : std::initializer_list<DragCase>{
             {{{100, 500}, {400, 24}}, {150, 510}, {150, 510}, PrimaryVisibleNS, {100, 500}},
             {{{100, 500}, {400, 24}}, {150, 510}, {157.5, 498.5}, PrimaryVisibleNS, {107.5, 488.5}},
             {{{100, 500}, {400, 24}}, {150, 510}, {-2000, -900}, PrimaryVisibleNS, {-2050, -910}},
             {{{-900.5, 10.25}, {400, 24}}, {-800, 20}, {-1200.5, -99.5}, SecondaryVisibleNS, {-1301, -109.25}},
         })
        EXPECT_EQ(draggedPanelOriginNS(c.panel, c.from, c.to, c.screen), c.origin);
}

TEST(PanelDrag, StopsWhereThePanelsTopMeetsTheVisibleTop) {
    for (const DragCase& c : std::initializer_list<DragCase>{
             {{{100, 500}, {400, 24}}, {150, 510}, {150, 1035.5}, PrimaryVisibleNS, {100, 1025.5}},
             {{{100, 500}, {400, 24}}, {150, 510}, {150, 1036}, PrimaryVisibleNS, {100, 1026}},
             {{{100, 500}, {400, 24}}, {150, 510}, {150, 1036.5}, PrimaryVisibleNS, {100, 1026}},
             {{{100, 500}, {400, 24}}, {150, 510}, {200, 9000}, PrimaryVisibleNS, {150, 1026}},
             {{{-900.5, 10.25}, {400, 24.5}}, {-800, 20}, {-800, 865}, SecondaryVisibleNS, {-900.5, 855.25}},
             {{{-900.5, 10.25}, {400, 24.5}}, {-800, 20}, {-800, 865.5}, SecondaryVisibleNS, {-900.5, 855.25}},
         })
        EXPECT_EQ(draggedPanelOriginNS(c.panel, c.from, c.to, c.screen), c.origin);
}

TEST(PanelDrag, KeepsThePanelsPlaceBelowThePointerUnlessThatIsTooHigh) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        const Rect panel = random.rect(3000, 500);
        const Rect screen = random.rect(3000, 2000);
        const Point from{random.quarters(-3000, 3000), random.quarters(-3000, 3000)};
        const Point to{random.quarters(-3000, 3000), random.quarters(-3000, 3000)};
        const double visibleTop = screen.origin.y + screen.size.height;

        Point expected{panel.origin.x - from.x + to.x, panel.origin.y - from.y + to.y};
        if (expected.y + panel.size.height > visibleTop)
            expected.y = visibleTop - panel.size.height;
        EXPECT_EQ(draggedPanelOriginNS(panel, from, to, screen), expected);
    }
}

TEST(PanelDrag, PutsTheWindowsTopAtThePanelsBottom) {
    EXPECT_EQ(windowPositionBelowPanelCG({{100, 54}, {400, 24}}), (Point{100, 78}));
    EXPECT_EQ(windowPositionBelowPanelCG({{-900.5, -10.25}, {400, 24.5}}), (Point{-900.5, 14.25}));
    RandomValues random;
    for (int round = 0; round < 1000; ++round) {
        const Rect panel = random.rect(9000, 3000);
        const Point position = windowPositionBelowPanelCG(panel);
        EXPECT_EQ(position.x, panel.origin.x);
        EXPECT_EQ(position.y - panel.size.height, panel.origin.y);
    }
}

} // namespace
} // namespace tarragon
