// Every setting that shows in the panel, changed in the stored property list while the program runs.
#include "PanelUseEndToEndTest.h"
#include "TrayWindow.h"

#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> Titles{"Apple", "Basil", "Chervil"};

} // namespace

class PanelSettingTest : public WindowManagerPanelUseTest {
protected:
    TestApplication& launchInPlace() {
        TestApplication& application = launchTitled(Titles);
        EXPECT_TRUE(place(application, {150, 200, 900, 300}));
        EXPECT_TRUE(waitUntil([&] { return panel().titles().size() == 4; }));
        return application;
    }
    // Another application in front and this one again, when the program reads menus anew.
    void switchAwayAndBack(TestApplication& application) {
        TestApplication& other = launch(ApplicationKind::TwoWindows);
        EXPECT_TRUE(showsTitles({"Plant", "Harvest"}));
        quit(other);
        EXPECT_TRUE(application.bringToFront());
    }
    template <typename Value>
    bool relaysOutOn(const std::string& key, const Value& value) {
        const std::size_t before = layouts();
        change(key, value);
        return waitUntil([&] { return layouts() > before; });
    }
    int widthOfTitle(const std::string& title) {
        const auto frame = panel().frameOfTitle(title);
        return frame ? frame->width : 0;
    }
    // What is to see of the panel.
    std::vector<std::uint8_t> picture() {
        const PixelRect frame = panel().frame();
        auto* image = xcb_get_image_reply(display().connection(),
            xcb_get_image(display().connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, panel().window(), 0, 0,
                static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height), ~0U),
            nullptr);
        std::vector<std::uint8_t> pixels;
        if (image)
            pixels.assign(xcb_get_image_data(image), xcb_get_image_data(image) + xcb_get_image_data_length(image));
        std::free(image);
        return pixels;
    }
    PixelRect frameOfOpenMenu() {
        const std::vector<XWindow> menus = agent().openMenus();
        return menus.empty() ? PixelRect{} : menus[0].frame;
    }
    PixelRect frameOfMenuOf(const std::string& title) {
        EXPECT_TRUE(openTitle(title));
        const PixelRect frame = frameOfOpenMenu();
        input().tap(XK_Escape);
        EXPECT_TRUE(waitForNoMenu());
        input().moveTo(5, 1190);
        return frame;
    }
};

TEST_P(PanelSettingTest, AlwaysVisibleOffShowsThePanelOnlyUnderThePointer) {
    TestApplication& application = launchInPlace();
    change("TarragonAlwaysVisible", false);
    ASSERT_TRUE(isNotSeen());
    const PixelRect frame = aboveWindow(application.window());
    for (int round = 0; round < 2; ++round) {
        // A panel that is just fading out takes no notice of the pointer.
        EXPECT_TRUE(waitUntil([&] {
            input().moveTo(frame.x + 500, frame.y + 200);
            input().moveTo(frame.x + 500, frame.y + 10);
            return waitUntil([&] { return panel().isSeen(); }, Duration(500));
        })) << "round "
            << round;
        EXPECT_TRUE(panel().waitUntilOpaque()) << "round " << round;
        input().moveTo(frame.x + 500, frame.y + 200);
        EXPECT_TRUE(isNotSeen()) << "round " << round;
    }
    change("TarragonAlwaysVisible", true);
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

TEST_P(PanelSettingTest, TheMenuOfAPanelThatComesAndGoesStays) {
    TestApplication& application = launchInPlace();
    change("TarragonAlwaysVisible", false);
    ASSERT_TRUE(isNotSeen());
    ASSERT_TRUE(pointAtTitle("Basil"));
    ASSERT_TRUE(openTitle("Basil"));
    // Into the menu, which lies outside the panel.
    ASSERT_TRUE(popUp().pointInto("Cherry of Basil"));
    EXPECT_TRUE(holdsFor(Duration(600), [&] { return panel().isSeen() && menuIsBelow("Basil"); }));
    input().click();
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Basil"));
    EXPECT_TRUE(isNotSeen());
}

TEST_P(PanelSettingTest, AlwaysRightPutsThePanelOnTheTitleBar) {
    TestApplication& application = launchInPlace();
    change("TarragonAlwaysRight", true);
    EXPECT_TRUE(standsOnTitleBarOf(application.window()));
    change("TarragonAlwaysRight", false);
    EXPECT_TRUE(standsAbove(application.window()));
}

TEST_P(PanelSettingTest, ThePrimaryScreenCanDoWithoutAPanel) {
    TestApplication& application = launchInPlace();
    change("ShowOnPrimaryScreen", false);
    EXPECT_TRUE(isNotSeen());
    change("ShowOnPrimaryScreen", true);
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

TEST_P(PanelSettingTest, TheTopEdgeOfThePrimaryScreenCanDoWithoutAPanel) {
    TestApplication& application = launchInPlace();
    change("HideOnPrimaryTopEdge", true);
    EXPECT_TRUE(holdsFor(Duration(600), [&] { return panel().isSeen(); }) || standsAbove(application.window()));
    ASSERT_TRUE(moveTo(application.window(), 150, 0));
    EXPECT_TRUE(isNotSeen());
    change("HideOnPrimaryTopEdge", false);
    EXPECT_TRUE(standsOnTitleBarOf(application.window()));
    change("HideOnPrimaryTopEdge", true);
    EXPECT_TRUE(isNotSeen());
    ASSERT_TRUE(moveTo(application.window(), 150, 200));
}

TEST_P(PanelSettingTest, ThePanelCanBeSwitchedOffAndOn) {
    TestApplication& application = launchInPlace();
    for (int round = 0; round < 3; ++round) {
        change("EnableButton", false);
        EXPECT_TRUE(isNotSeen()) << "round " << round;
        change("EnableButton", true);
        EXPECT_TRUE(standsAbove(application.window())) << "round " << round;
    }
    ASSERT_TRUE(openTitle("Basil"));
    ASSERT_TRUE(popUp().chooseByMouse({"Apricot of Basil"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Apricot of Basil"));
}

TEST_P(PanelSettingTest, ASingleButtonStandsInForTheTitles) {
    TestApplication& application = launchInPlace();
    change("Horizontal", false);
    const PixelRect outer = display().outerFrameOf(application.window());
    ASSERT_TRUE(waitUntil([&] {
        const PixelRect frame = panel().frame();
        return panel().isSeen() && frame.x == outer.x && frame.y == outer.y - 27 && frame.width < 200;
    })) << panel().frame().x
        << ", " << panel().frame().y << ' ' << panel().frame().width;
    const auto widthOfButton = [&] {
        const std::vector<PixelRect> clickable = panel().inputShape();
        return clickable.size() == 1 ? clickable[0].width : 0;
    };
    ASSERT_TRUE(waitUntil([&] { return widthOfButton() > 0; }));
    const int width = widthOfButton();

    change("ButtonLabel", "Every menu there is");
    EXPECT_TRUE(waitUntil([&] { return panel().isSeen() && widthOfButton() > width; }));
    change("ButtonLabel", "Menu");
    EXPECT_TRUE(waitUntil([&] { return panel().isSeen() && widthOfButton() == width; }));
    ASSERT_TRUE(panel().waitUntilOpaque());

    const PixelRect frame = panel().frame();
    input().moveTo(frame.x + 20, frame.y + frame.height / 2);
    input().click();
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1 && display().keyboardIsGrabbed(); }));
    ASSERT_TRUE(popUp().chooseByMouse({"Chervil", "Banana of Chervil"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Banana of Chervil"));

    change("Horizontal", true);
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(openTitle("Chervil"));
}

TEST_P(PanelSettingTest, FontsOfMenusAndTitlesChange) {
    launchInPlace();
    ASSERT_TRUE(relaysOutOn("FontSizeSmall", std::uint64_t{9}));
    const PixelRect small = frameOfMenuOf("Basil");
    ASSERT_TRUE(relaysOutOn("FontSizeSmall", std::uint64_t{24}));
    const PixelRect large = frameOfMenuOf("Basil");
    EXPECT_GT(large.width, small.width);
    EXPECT_GT(large.height, small.height);

    ASSERT_TRUE(relaysOutOn("TitleFontSizeSmall", std::uint64_t{10}));
    const int narrow = widthOfTitle("Chervil");
    change("TitleFontSizeSmall", std::uint64_t{18});
    EXPECT_TRUE(waitUntil([&] { return widthOfTitle("Chervil") > narrow + 10; }));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

TEST_P(PanelSettingTest, EveryButtonStyleLooksDifferent) {
    launchInPlace();
    std::vector<std::vector<std::uint8_t>> seen{picture()};
    for (const std::uint64_t style : {1, 2, 3, 5}) {
        change("ButtonStyle", style);
        const bool isNew = waitUntil([&] {
            return panel().isSeen() && panel().opacity() >= 1
                && std::find(seen.begin(), seen.end(), picture()) == seen.end();
        });
        EXPECT_TRUE(isNew) << style;
        // Once it stays as it is.
        std::vector<std::uint8_t> last = picture();
        waitUntil(
            [&] { return holdsFor(Duration(300), [&] { return picture() == last; }) || (last = picture(), false); });
        seen.push_back(last);
    }
    // Without a border of its own it is the look of a menu bar.
    change("ButtonStyle", std::uint64_t{3});
    EXPECT_TRUE(waitUntil([&] { return picture() == seen[3]; }));
    change("ButtonStyle", std::uint64_t{4});
    EXPECT_TRUE(waitUntil([&] { return picture() == seen[4]; }));
    change("ButtonStyle", std::uint64_t{0});
    EXPECT_TRUE(waitUntil([&] { return picture() == seen[0]; }));
}

TEST_P(PanelSettingTest, TheAppleMenuComesAndGoesAtOnce) {
    launchInPlace();
    const auto hasMark = [&] {
        const std::vector<std::string> titles = panel().titleTexts();
        return std::find(titles.begin(), titles.end(), "\uF8FF") != titles.end();
    };
    ASSERT_TRUE(waitUntil(hasMark));
    change("ShowAppleMenu", false);
    EXPECT_TRUE(waitUntil([&] { return !hasMark(); }));
    change("ShowAppleMenu", true);
    EXPECT_TRUE(waitUntil(hasMark));
}

TEST_P(PanelSettingTest, TheOwnMenuGoesAndComesWithTheNextSwitch) {
    TestApplication& application = launchInPlace();
    const auto hasOwnMenu = [&] {
        const std::vector<std::string> titles = panel().titleTexts();
        return std::find(titles.begin(), titles.end(), "Tarragon") != titles.end() && titles.size() == 4;
    };
    EXPECT_TRUE(relaysOutOn("ShowTarragonMenu", false));
    TestApplication& other = launch(ApplicationKind::TwoWindows);
    EXPECT_TRUE(panel().waitForTitles({"Plant", "Harvest"}));
    quit(other);
    EXPECT_TRUE(application.bringToFront());
    EXPECT_TRUE(waitUntil([&] { return !hasOwnMenu() && panel().titles().size() == 3; }));
    EXPECT_TRUE(relaysOutOn("ShowTarragonMenu", true));
    switchAwayAndBack(application);
    EXPECT_TRUE(waitUntil(hasOwnMenu));
}

TEST_P(PanelSettingTest, ApplicationMenusGoAndComeWithTheNextReading) {
    launchInPlace();
    EXPECT_TRUE(relaysOutOn("ShowApplicationMenu", false));
    EXPECT_EQ(panel().titles().size(), 4U);
    // The other of the two settings has the menus read anew; the own one comes with the next switch.
    change("ShowAppleMenu", false);
    EXPECT_TRUE(waitUntil([&] { return panel().titles().empty(); }));
    change("ShowApplicationMenu", true);
    change("ShowAppleMenu", true);
    EXPECT_TRUE(waitUntil([&] { return panel().titles().size() == 3; }));
}

TEST_P(PanelSettingTest, KeyEquivalentsGoAndCome) {
    launchInPlace();
    const int with = frameOfMenuOf("Basil").width;
    EXPECT_TRUE(relaysOutOn("ShowKeyEquivalents", false));
    // Reads the menus anew.
    EXPECT_TRUE(relaysOutOn("ShowAppleMenu", false));
    EXPECT_TRUE(waitUntil([&] { return frameOfMenuOf("Basil").width < with; }));
    EXPECT_TRUE(relaysOutOn("ShowKeyEquivalents", true));
    EXPECT_TRUE(relaysOutOn("ShowAppleMenu", true));
    EXPECT_TRUE(waitUntil([&] { return frameOfMenuOf("Basil").width == with; }));
}

TEST_P(PanelSettingTest, TheStatusItemGoesAndComes) {
    launchInPlace();
    TrayWindow tray(desktop().environment().at("DISPLAY"));
    ASSERT_TRUE(waitUntil([&] { return tray.itemCount() == 1; }));
    for (int round = 0; round < 2; ++round) {
        change("ShowStatusBarIcon", false);
        EXPECT_TRUE(waitUntil([&] { return tray.itemCount() == 0; })) << "round " << round;
        change("ShowStatusBarIcon", true);
        EXPECT_TRUE(waitUntil([&] { return tray.itemCount() == 1; })) << "round " << round;
    }
    EXPECT_TRUE(panel().isSeen());
}

TEST_P(PanelSettingTest, OthersFillThePanelAnew) {
    TestApplication& application = launchInPlace();
    EXPECT_TRUE(relaysOutOn("FoldAlternate", false));
    EXPECT_TRUE(relaysOutOn("FoldAlternate", true));
    EXPECT_TRUE(relaysOutOn("ButtonHasBorder", false));
    EXPECT_TRUE(relaysOutOn("ButtonHasShadow", true));
    EXPECT_TRUE(relaysOutOn("ButtonHasTexture", true));
    EXPECT_TRUE(relaysOutOn("ButtonRound", false));
    EXPECT_TRUE(relaysOutOn("EnableScreenTop", false));
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

INSTANTIATE_TEST_SUITE_P(Under, PanelSettingTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
