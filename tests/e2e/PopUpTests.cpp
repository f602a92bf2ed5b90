// The pop-up on real applications: what it shows, and that a choice in it is a choice in the application.
#include "EndToEndTest.h"
#include "FocusWatch.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

std::vector<std::string> withOwnMenu(std::vector<std::string> titles) {
    titles.insert(titles.end(), {"-", "Tarragon"});
    return titles;
}

} // namespace

class PopUpTest : public ApplicationTest {
protected:
    // The mirror of this application is up when its titles are shown.
    bool openMirrorOf(const TestApplication& application) { return popUp().openWith(application.expectedTitles()); }
};

TEST_P(PopUpTest, ShowsEveryTitleAtThePointer) {
    TestApplication& application = launch();
    std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    EXPECT_EQ(titlesOf(popUp().items()), withOwnMenu(titles));
    ASSERT_EQ(agent().openMenus().size(), 1U);
    PixelRect frame = agent().openMenus()[0].frame;
    EXPECT_NEAR(frame.x, 700, 3);
    EXPECT_NEAR(frame.y, 300, 3);
}

TEST_P(PopUpTest, ShowsTheItemsOfEveryMenu) {
    TestApplication& application = launch();
    Menu expected = application.expectedMirror();
    ASSERT_TRUE(popUp().openWith(titlesOf(expected)));
    for (const MenuRecord& menu : expected) {
        ASSERT_TRUE(popUp().isOpen() || popUp().open());
        Menu shown = popUp().openByKeyboard({menu.title});
        EXPECT_EQ(titlesOf(shown), titlesOf(menu.items)) << menu.title;
        for (const MenuRecord& item : menu.items) {
            const MenuRecord* mirrored = item.separator ? nullptr : itemAtPath(shown, {item.title});
            if (!mirrored)
                continue;
            EXPECT_EQ(mirrored->enabled, item.enabled) << menu.title << "|" << item.title;
            EXPECT_EQ(mirrored->checked, item.checked) << menu.title << "|" << item.title;
        }
        ASSERT_TRUE(popUp().close());
    }
}

TEST_P(PopUpTest, SwitchesSomethingByKeyboardWithoutTakingTheFocus) {
    TestApplication& application = launch();
    ASSERT_TRUE(openMirrorOf(application));
    EXPECT_EQ(display().activeWindow(), application.window());
    bool before = application.switchState();
    EXPECT_TRUE(popUp().chooseByKeyboard(application.switchPath()));
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(display().activeWindow(), application.window());
}

TEST_P(PopUpTest, SwitchesSomethingByMouseWithoutTakingTheFocus) {
    TestApplication& application = launch();
    ASSERT_TRUE(openMirrorOf(application));
    EXPECT_EQ(display().activeWindow(), application.window());
    bool before = application.switchState();
    EXPECT_TRUE(popUp().chooseByMouse(application.switchPath()));
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(display().activeWindow(), application.window());
}

TEST_P(PopUpTest, ChangesTheTextOfTheApplication) {
    TestApplication& application = launch();
    ASSERT_EQ(application.text(), TestApplication::Text);
    ASSERT_TRUE(openMirrorOf(application));
    ASSERT_TRUE(popUp().chooseByKeyboard(application.editPath()));
    EXPECT_TRUE(waitUntil([&] { return application.text() != TestApplication::Text; }));
    EXPECT_NE(application.text().find("rosemary"), std::string::npos) << application.text();
    EXPECT_EQ(display().activeWindow(), application.window());
}

TEST_P(PopUpTest, SelectsAndCutsTheText) {
    TestApplication& application = launch();
    ASSERT_EQ(application.text(), TestApplication::Text);
    ASSERT_TRUE(openMirrorOf(application));
    ASSERT_TRUE(popUp().chooseByKeyboard({"Edit", "Select All"}));
    // Some applications allow cutting only once something is selected, which a mirror that was read before misses.
    ASSERT_TRUE(waitUntil([&] {
        Menu menu = application.expectedMenu("Edit");
        const MenuRecord* cut = itemAtPath(menu, {"Cut"});
        return cut && cut->enabled;
    }));
    ASSERT_TRUE(popUp().open());
    ASSERT_TRUE(popUp().chooseByMouse({"Edit", "Cut"}));
    EXPECT_TRUE(waitUntil([&] { return application.text().empty(); }));
    EXPECT_EQ(application.text(), "");
    EXPECT_EQ(display().activeWindow(), application.window());
}

// Some applications ignore commands for the time that another program's grab keeps the focus from them.
TEST_P(PopUpTest, LeavesTheFocusAloneWhileSubmenusOpenAndClose) {
    TestApplication& application = launch();
    ASSERT_TRUE(openMirrorOf(application));
    FocusWatch watch(display());
    for (int round = 0; round < 3; ++round) {
        ASSERT_FALSE(popUp().openByKeyboard({application.switchPath().front()}).empty());
        input().tap(XK_Left);
        ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1; }));
    }
    EXPECT_EQ(watch.changes(), 0);
}

TEST_P(PopUpTest, WorksTenTimesInARow) {
    TestApplication& application = launch();
    ASSERT_TRUE(openMirrorOf(application));
    ASSERT_TRUE(popUp().close());
    Duration slowest{0};
    for (int round = 0; round < 10; ++round) {
        bool before = application.switchState();
        ASSERT_TRUE(popUp().open()) << "round " << round;
        slowest = std::max(slowest, popUp().openingTime());
        ASSERT_TRUE(popUp().chooseByKeyboard(application.switchPath())) << "round " << round;
        ASSERT_TRUE(waitUntil([&] { return application.switchState() != before; })) << "round " << round;
        ASSERT_EQ(display().activeWindow(), application.window()) << "round " << round;
    }
    RecordProperty("slowest_opening_ms", static_cast<int>(slowest.count()));
}

TEST_P(PopUpTest, IsLeftWithEscapeAndByClickingBesideIt) {
    TestApplication& application = launch();
    ASSERT_TRUE(openMirrorOf(application));
    EXPECT_TRUE(popUp().close());
    ASSERT_TRUE(popUp().open());
    PixelRect frame = agent().openMenus().at(0).frame;
    input().moveTo(frame.x - 100, frame.y);
    input().click();
    EXPECT_TRUE(waitUntil([&] { return !popUp().isOpen() && !display().keyboardIsGrabbed(); }));
}

INSTANTIATE_TEST_SUITE_P(Under, PopUpTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

} // namespace tarragon::e2e
