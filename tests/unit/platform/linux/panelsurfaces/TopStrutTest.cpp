#include "platform/linux/panelsurfaces/TopStrut.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

const std::vector<Rect> BesideEachOther = {{{0, 0}, {1000, 800}}, {{1000, 0}, {800, 600}}};
const std::vector<Rect> AboveEachOther = {{{0, 0}, {1000, 800}}, {{0, 800}, {1000, 800}}};

TEST(TopStrut, ReservesTheRoomOfADockAtTheTopOfItsMonitorAlone) {
    EXPECT_EQ(
        topStrut({{1000, 0}, {800, 22}}, BesideEachOther), (StrutNumbers{0, 0, 22, 0, 0, 0, 0, 0, 1000, 1799, 0, 0}));
    EXPECT_EQ(topStrut({{0, 0}, {1000, 30}}, BesideEachOther), (StrutNumbers{0, 0, 30, 0, 0, 0, 0, 0, 0, 999, 0, 0}));
}

TEST(TopStrut, CountsInWhatOtherDocksTakeAboveIt) {
    EXPECT_EQ(topStrut({{0, 30}, {1000, 22}}, BesideEachOther), (StrutNumbers{0, 0, 52, 0, 0, 0, 0, 0, 0, 999, 0, 0}));
}

TEST(TopStrut, ReservesNothingBelowAnotherMonitor) {
    EXPECT_EQ(topStrut({{0, 800}, {1000, 22}}, AboveEachOther), std::nullopt);
}

TEST(TopStrut, ReservesNothingForADockThatLiesElsewhere) {
    EXPECT_EQ(topStrut({{0, 778}, {1000, 22}}, BesideEachOther), std::nullopt);
    EXPECT_EQ(topStrut({{0, 300}, {1000, 22}}, BesideEachOther), std::nullopt);
    EXPECT_EQ(topStrut({{0, -22}, {1000, 22}}, BesideEachOther), std::nullopt);
    EXPECT_EQ(topStrut({{1800, 0}, {800, 22}}, BesideEachOther), std::nullopt);
    EXPECT_EQ(topStrut({{0, 0}, {0, 22}}, BesideEachOther), std::nullopt);
    EXPECT_EQ(topStrut({{0, 0}, {1000, 22}}, {}), std::nullopt);
}

// The first monitor begins lower than the second one: its top edge is not the root window's.
TEST(TopStrut, ReservesNothingOnAMonitorWhoseTopIsNotThatOfTheRootWindow) {
    const std::vector<Rect> shifted = {{{0, 200}, {1000, 800}}, {{1000, 0}, {800, 600}}};
    EXPECT_EQ(topStrut({{0, 200}, {1000, 22}}, shifted), std::nullopt);
    EXPECT_NE(topStrut({{1000, 0}, {800, 22}}, shifted), std::nullopt);
}

} // namespace
} // namespace tarragon
