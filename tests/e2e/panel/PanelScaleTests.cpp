// A panel whose points are several pixels, or one and a half.
#include "PanelEndToEndTest.h"

#include <cmath>
#include <cstdlib>

namespace tarragon::e2e {

struct PanelScale {
    double pixelsPerPoint = 1;
    std::string variable; // what the toolkit is told
    std::string name;
};

class PanelScaleTest : public PanelEndToEndTest, public testing::WithParamInterface<PanelScale> {
protected:
    PanelScaleTest()
        : PanelEndToEndTest(WindowManager::Openbox) { }
    void SetUp() override {
        PanelEndToEndTest::SetUp();
        Environment environment = Panel::TitlesInLog;
        environment["QT_SCALE_FACTOR"] = GetParam().variable;
        session().restartAgent(usualHotKey(), environment);
    }
    void TearDown() override {
        session().restartAgent(usualHotKey(), Panel::TitlesInLog);
        PanelEndToEndTest::TearDown();
    }

    int pixels(int points) const { return static_cast<int>(std::lround(points * GetParam().pixelsPerPoint)); }
    // Edges lie at whole points, so a window's edge may lie half a point beside the panel's.
    bool standsAbout(const PixelRect& wanted) {
        const int tolerance = GetParam().pixelsPerPoint == 2 ? 1 : 2;
        const auto isNear = [&](int one, int other) { return std::abs(one - other) <= tolerance; };
        return waitUntil([&] {
            const PixelRect frame = panel().frame();
            return panel().isSeen() && isNear(frame.x, wanted.x) && isNear(frame.y, wanted.y)
                && isNear(frame.width, wanted.width) && isNear(frame.height, wanted.height);
        });
    }
    std::string place() {
        const PixelRect frame = panel().frame();
        return std::to_string(frame.x) + "," + std::to_string(frame.y) + " " + std::to_string(frame.width) + "x"
            + std::to_string(frame.height);
    }
};

TEST_P(PanelScaleTest, StandsWhereTheWindowIsInTheSizeThatPointsHave) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    const xcb_window_t window = application.window();
    const int room = pixels(RoomForPanel);
    ASSERT_TRUE(resizeTo(window, 901, 500));
    const int width = display().outerFrameOf(window).width;
    for (const auto& [x, y] : {std::pair(300, 400), std::pair(301, 401), std::pair(302, room + 2)}) {
        ASSERT_TRUE(moveTo(window, x, y));
        EXPECT_TRUE(standsAbout({x, y - pixels(PanelHeight), width, pixels(PanelHeight)})) << place();
    }
    for (const int y : {0, room - 2}) {
        ASSERT_TRUE(moveTo(window, 300, y));
        EXPECT_TRUE(standsAbout({300 + pixels(WidthOfWindowButtons), y, width, pixels(PanelHeight)})) << place();
    }
    EXPECT_TRUE(liesDirectlyOn(window));
    EXPECT_TRUE(panel().waitForTitles(application.expectedTitles()));
    // All of a title is there for the pointer, in pixels, too.
    const Panel scaled(display(), agent(), GetParam().pixelsPerPoint);
    const auto title = scaled.frameOfTitle(application.expectedTitles().front());
    ASSERT_TRUE(title);
    const std::vector<PixelRect> shape = panel().inputShape();
    ASSERT_FALSE(shape.empty());
    const PixelRect frame = panel().frame();
    EXPECT_NEAR(frame.x + shape.front().x, title->x, 2);
    EXPECT_GE(shape.front().height, pixels(PanelHeight) / 2);
}

INSTANTIATE_TEST_SUITE_P(With, PanelScaleTest,
    testing::Values(PanelScale{2, "2", "TwoPixelsAPoint"}, PanelScale{1.5, "1.5", "OneAndAHalf"}),
    [](const auto& information) { return information.param.name; });

} // namespace tarragon::e2e
