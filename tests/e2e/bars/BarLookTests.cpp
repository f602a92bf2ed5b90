// How much of what lies below a bar is seen through it.
#include "bars/BarEndToEndTest.h"

#include <cmath>
#include <cstdlib>
#include <memory>

namespace tarragon::e2e {

class BarLookTest : public BarEndToEndTest, public testing::WithParamInterface<std::tuple<WindowManager, Compositor>> {
protected:
    BarLookTest()
        : BarEndToEndTest(std::get<0>(GetParam()), std::get<1>(GetParam())) { }
    bool hasCompositor() const { return std::get<1>(GetParam()) == Compositor::On; }

    // How bright the display is at a place, from 0 to 255.
    int brightnessAt(int x, int y) {
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
            xcb_get_image_reply(display().connection(),
                xcb_get_image(display().connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, display().root(),
                    static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U),
                nullptr),
            &std::free);
        return image ? xcb_get_image_data(image.get())[0] : -1;
    }
};

TEST_P(BarLookTest, IsTranslucentWithACompositorAloneWhenTheUserWantsThat) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    arrange(arrangement);
    TestApplication& application = launchOnBar({"Basil", "Chervil"}, {50, 300, 500, 300});
    ASSERT_TRUE(hasBarsOn({monitor}));
    const auto bar = [&] { return bars().seenOn(monitor)->identifier; };
    const int x = monitor.x + monitor.width - 50;
    const int y = monitor.y + BarHeight / 2;
    EXPECT_EQ(bars().opacityOf(bar()), 1);
    ASSERT_TRUE(waitUntil([&] { return brightnessAt(x, y) > 180; })) << brightnessAt(x, y);
    const int opaque = brightnessAt(x, y);
    // Nothing but the background lies below the bar, as it does beside it.
    const int background = brightnessAt(x, y + 100);
    const auto seenThrough = [&](double alpha) {
        return hasCompositor() ? static_cast<int>(std::lround(alpha * opaque + (1 - alpha) * background)) : opaque;
    };

    // As it is made.
    change("ScreenTopTransparency", true);
    EXPECT_TRUE(waitUntil([&] { return std::abs(bars().opacityOf(bar()) - 0.75) < 0.001; }));
    EXPECT_TRUE(waitUntil([&] { return std::abs(brightnessAt(x, y) - seenThrough(0.75)) <= 4; })) << brightnessAt(x, y);
    // And once it was placed.
    TestApplication& second = launchOnBar({"Fennel"}, {80, 400, 500, 300});
    EXPECT_TRUE(waitUntil([&] { return std::abs(bars().opacityOf(bar()) - 0.9) < 0.001; }));
    EXPECT_TRUE(waitUntil([&] { return std::abs(brightnessAt(x, y) - seenThrough(0.9)) <= 4; })) << brightnessAt(x, y);

    changeBack("ScreenTopTransparency");
    quit(second);
    ASSERT_TRUE(application.bringToFront());
    EXPECT_TRUE(waitUntil([&] { return std::abs(brightnessAt(x, y) - opaque) <= 1; })) << brightnessAt(x, y);
}

INSTANTIATE_TEST_SUITE_P(On, BarLookTest, EveryDesktop, nameOfDesktop);

} // namespace tarragon::e2e
