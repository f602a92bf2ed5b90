// Bars whose points are two pixels.
#include "bars/BarEndToEndTest.h"

#include <optional>
#include <vector>

namespace tarragon::e2e {

class BarScaleTest : public BarEndToEndTest {
protected:
    BarScaleTest()
        : BarEndToEndTest(WindowManager::Openbox) { }
    void SetUp() override {
        BarEndToEndTest::SetUp();
        Environment environment = Panel::TitlesInLog;
        environment["QT_SCALE_FACTOR"] = "2";
        session().restartAgent(usualHotKey(), environment);
    }
    void TearDown() override {
        BarEndToEndTest::TearDown();
        Session::discard(WindowManager::Openbox);
    }
};

TEST_F(BarScaleTest, ReserveTheirRoomInPixelsAndOpenMenusBelowTitles) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    arrange(arrangement);
    TestApplication& application = launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil"});
    const PixelRect wanted{monitor.x, monitor.y, monitor.width, 2 * BarHeight};
    ASSERT_TRUE(waitUntil([&] { return bars().framesSeen() == std::vector{wanted}; }, Duration(20000)));
    ASSERT_TRUE(showsTitlesOnBar(1, {"Basil", "Chervil"}));
    ASSERT_TRUE(maximizeOn(application.window(), monitor));
    EXPECT_TRUE(standsAt(application.window(), monitor.x, 2 * BarHeight));

    const Bars scaled(display(), agent(), 2);
    std::optional<PixelRect> title;
    // The bar may be made once more for the screen that has just been connected.
    ASSERT_TRUE(waitUntil([&] {
        return holdsFor(
            Duration(1500), [&] { return (title = scaled.frameOfTitle(1, monitor, "Chervil")).has_value(); });
    }));
    input().moveTo(title->x + title->width / 2, title->y + title->height / 2);
    input().click();
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1; }));
    const PixelRect menu = agent().openMenus()[0].frame;
    EXPECT_NEAR(menu.x, title->x, 2);
    EXPECT_NEAR(menu.y, 2 * BarHeight + 4, 2);
}

} // namespace tarragon::e2e
