#include "prefs/PreferencePanes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <utility>

namespace tarragon {
namespace {

TEST(PreferencePanes, AreChosenByTheTagOfTheirItem) {
    static constexpr std::pair<std::int64_t, PreferencePane> rows[] = {
        {200, PreferencePane::HotKey},
        {300, PreferencePane::WindowTop},
        {400, PreferencePane::ScreenTop},
        {500, PreferencePane::IgnoreList},
        {700, PreferencePane::About},
        {800, PreferencePane::Help},
        {100, PreferencePane::General},
        {0, PreferencePane::General},
        {-1, PreferencePane::General},
        {600, PreferencePane::General},
        {201, PreferencePane::General},
        {std::numeric_limits<std::int64_t>::max(), PreferencePane::General},
    };
    for (const auto& [tag, pane] : rows)
        EXPECT_EQ(preferencePaneForTag(tag), pane) << tag;
}

TEST(PreferencePanes, HaveHelpTextsChosenByTheTagOfAControl) {
    static constexpr std::pair<std::int64_t, PreferenceHelpText> rows[] = {
        {200, PreferenceHelpText::PopUp},
        {300, PreferenceHelpText::Window},
        {400, PreferenceHelpText::ScreenTop},
        {500, PreferenceHelpText::IgnoreList},
        {100, PreferenceHelpText::General},
        {0, PreferenceHelpText::General},
        {700, PreferenceHelpText::General},
        {800, PreferenceHelpText::General},
        {-200, PreferenceHelpText::General},
    };
    for (const auto& [tag, text] : rows)
        EXPECT_EQ(preferenceHelpTextForTag(tag), text) << tag;
}

double topEdge(const Rect& frameNS) {
    return frameNS.origin.y + frameNS.size.height;
}

TEST(PreferencePanes, GrowAndShrinkTheWindowAtItsBottom) {
    const Rect frameNS{{100, 400}, {640, 260}};
    for (const double paneHeight : {0.0, 100.0, 200.0, 333.5, 4000.0}) {
        const Rect changedNS = windowFrameForPane(frameNS, 200, paneHeight);
        EXPECT_EQ(changedNS.size.height, 260 + paneHeight - 200) << paneHeight;
        EXPECT_EQ(topEdge(changedNS), topEdge(frameNS)) << paneHeight;
        EXPECT_EQ(changedNS.origin.x, 100);
        EXPECT_EQ(changedNS.size.width, 640);
    }
}

TEST(PreferencePanes, LeaveAWindowOfTheirHeightAsItIs) {
    const Rect frameNS{{100, -400}, {640, 260}};
    EXPECT_EQ(windowFrameForPane(frameNS, 200, 200), frameNS);
}

} // namespace
} // namespace tarragon
