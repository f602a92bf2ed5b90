#include "platform/linux/panelsurfaces/PanelAppearance.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using Area = PanelAppearance::Area;

TEST(PanelAppearance, LeavesBlendingToACompositor) {
    EXPECT_EQ(panelAppearance(1, true), (PanelAppearance{0xFFFFFFFF, Area::WholeWindow, Area::PaintedRegion}));
    EXPECT_EQ(panelAppearance(0.75, true), (PanelAppearance{0xBFFFFFFF, Area::WholeWindow, Area::PaintedRegion}));
    EXPECT_EQ(panelAppearance(0.01, true).clickable, Area::PaintedRegion);
}

TEST(PanelAppearance, LetsClicksThroughAnInvisiblePanel) {
    EXPECT_EQ(panelAppearance(0, true), (PanelAppearance{0, Area::WholeWindow, Area::Nothing}));
    EXPECT_EQ(panelAppearance(0, false), (PanelAppearance{0, Area::Nothing, Area::Nothing}));
}

TEST(PanelAppearance, ShowsAPanelFromOneHalfOnWithoutACompositor) {
    EXPECT_EQ(panelAppearance(0.49, false).drawn, Area::Nothing);
    EXPECT_EQ(panelAppearance(0.49, false).clickable, Area::Nothing);
    EXPECT_EQ(panelAppearance(0.5, false).drawn, Area::PaintedRegion);
    EXPECT_EQ(panelAppearance(0.5, false).clickable, Area::PaintedRegion);
    EXPECT_EQ(panelAppearance(1, false), (PanelAppearance{0xFFFFFFFF, Area::PaintedRegion, Area::PaintedRegion}));
}

TEST(PanelAppearance, TakesWhatIsOutOfBoundsForTheNearestAlpha) {
    EXPECT_EQ(panelAppearance(7, true), panelAppearance(1, true));
    EXPECT_EQ(panelAppearance(-1, true), panelAppearance(0, true));
    EXPECT_EQ(panelAppearance(std::nan(""), true), panelAppearance(0, true));
}

} // namespace
} // namespace tarragon
