#include "platform/linux/x11/X11FrameExtents.h"

#include <gtest/gtest.h>

namespace tarragon {

TEST(X11FrameExtents, AreReadInTheOrderLeftRightTopBottom) {
    EXPECT_EQ(frameExtentsOfProperty({1, 2, 3, 4}), (X11FrameExtents{1, 2, 3, 4}));
}

TEST(X11FrameExtents, AreZeroWhenThePropertyIsAbsentOrDamaged) {
    EXPECT_EQ(frameExtentsOfProperty({}), X11FrameExtents());
    EXPECT_EQ(frameExtentsOfProperty({1, 2, 3}), X11FrameExtents());
    EXPECT_EQ(frameExtentsOfProperty({1, 2, 0xFFFFFFFF, 4}), X11FrameExtents());
}

TEST(X11FrameExtents, GrowTheClientByItsDecorations) {
    const X11FrameExtents extents = visibleFrameExtents({1, 2, 20, 4}, {});
    EXPECT_EQ(frameOfClient({{100, 200}, {300, 400}}, extents), (Rect{{99, 180}, {303, 424}}));
}

TEST(X11FrameExtents, ShrinkTheClientByTheShadowItDraws) {
    const X11FrameExtents extents = visibleFrameExtents({}, {10, 12, 8, 16});
    EXPECT_EQ(frameOfClient({{100, 200}, {300, 400}}, extents), (Rect{{110, 208}, {278, 376}}));
}

TEST(X11FrameExtents, GiveTheClientSizeThatMakesAFrameOfTheWantedSize) {
    const X11FrameExtents extents = visibleFrameExtents({1, 2, 20, 4}, {10, 12, 8, 16});
    const Size client = clientSizeOfFrame({303, 424}, extents);
    EXPECT_EQ(frameOfClient({{0, 0}, client}, extents).size, (Size{303, 424}));
}

TEST(X11FrameExtents, NeverGiveAClientSizeBelowOnePixel) {
    EXPECT_EQ(clientSizeOfFrame({10, -5}, {20, 20, 20, 20}), (Size{1, 1}));
}

TEST(X11FrameExtents, PlaceTheOuterFrameByTheShadowAloneWhateverTheDecorations) {
    EXPECT_EQ(outerOriginOfFrame({100, 200}, {10, 12, 8, 16}), (Point{90, 192}));
    EXPECT_EQ(outerOriginOfFrame({-5, 0}, {}), (Point{-5, 0}));
}

} // namespace tarragon
