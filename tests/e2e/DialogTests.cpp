// Dialogs and palettes of real applications: the menus shown are those of the window that they belong to.
#include "EndToEndTest.h"

#include <X11/keysym.h>

#include <algorithm>

namespace tarragon::e2e {

namespace {

// A dialog of an application, by the item that opens it: its menu's title and the beginning of its own. Dialogs that
// their application runs within the action of the item are opened by keys: with a screen reader on the bus, as the
// observer of these tests is one, the toolkit hangs at the next key when that action came over the bus. Without an item
// it is the message box that asks whether to save a changed text, before the window closes.
struct Dialog {
    ApplicationKind application;
    std::string name;
    std::string menu = {};
    std::string item = {};
    xcb_keysym_t key = XCB_NO_SYMBOL;
    std::vector<xcb_keysym_t> modifiers = {};
};

std::string nameOfDialog(const testing::TestParamInfo<std::tuple<WindowManager, Dialog>>& information) {
    const Dialog& dialog = std::get<1>(information.param);
    return nameOf(std::get<0>(information.param)) + "_" + nameOf(dialog.application) + "_" + dialog.name;
}

} // namespace

class DialogTest : public DesktopTest, public testing::WithParamInterface<std::tuple<WindowManager, Dialog>> {
protected:
    DialogTest()
        : DesktopTest(std::get<0>(GetParam())) { }

    // Chooses the item that opens the dialog, and waits until that is in front. XCB_NONE when it does not come.
    xcb_window_t openDialog(const TestApplication& application) {
        const Dialog& dialog = std::get<1>(GetParam());
        if (!chooseDialog(application, dialog))
            return XCB_NONE;
        const auto inFront = [&] {
            const xcb_window_t active = display().activeWindow();
            return active != XCB_NONE && active != application.window()
                && display().processOf(active) == application.identifier();
        };
        return waitUntil(inFront) ? display().activeWindow() : xcb_window_t(XCB_NONE);
    }

    bool chooseDialog(const TestApplication& application, const Dialog& dialog) {
        if (dialog.item.empty())
            return closeWithChangedText(application);
        if (dialog.key != XCB_NO_SYMBOL) {
            const bool isClosed = popUp().close();
            input().tap(dialog.key, dialog.modifiers);
            return isClosed;
        }
        const Menu items = application.expectedMenu(dialog.menu);
        const auto item = std::ranges::find_if(
            items, [&](const MenuRecord& record) { return record.title.starts_with(dialog.item); });
        return item != items.end() && popUp().chooseByKeyboard({dialog.menu, item->title});
    }

    bool closeWithChangedText(const TestApplication& application) {
        if (!popUp().close())
            return false;
        input().tap(XK_x);
        const bool isChanged = waitUntil([&] { return application.text() != TestApplication::Text; });
        display().close(application.window());
        return isChanged;
    }

    // The titles of the mirror as it stands now, without the system's own menu; empty when it does not open at once. An
    // application without menus would be waited for much longer.
    std::vector<std::string> titlesAtOnce(std::size_t count) {
        if (!popUp().open(Duration(1500)))
            return {};
        std::vector<std::string> titles = titlesOf(popUp().items());
        titles.resize(std::min(titles.size(), count));
        return popUp().close() ? titles : std::vector<std::string>{};
    }

    bool closeDialog(const TestApplication& application, xcb_window_t dialog) {
        const auto isClosed = [&] { return display().activeWindow() == application.window(); };
        input().tap(XK_Escape);
        if (waitUntil(isClosed, Duration(3000)))
            return true;
        display().close(dialog);
        return waitUntil(isClosed);
    }
};

TEST_P(DialogTest, LeavesTheMenusOfItsWindowInPlace) {
    TestApplication& application = launch(std::get<1>(GetParam()).application);
    const std::vector<std::string> titles = application.expectedTitles();
    const bool before = application.switchState();
    ASSERT_TRUE(popUp().openWith(titles));
    const xcb_window_t dialog = openDialog(application);
    ASSERT_NE(dialog, xcb_window_t(XCB_NONE));
    EXPECT_EQ(titlesAtOnce(titles.size()), titles);
    EXPECT_EQ(display().activeWindow(), dialog);

    // Some applications answer nobody while they make up a dialog.
    const bool isChosen = waitUntil(
        [&] {
            if (popUp().open(Duration(3000)) && popUp().chooseByKeyboard(application.switchPath()))
                return true;
            popUp().close();
            return false;
        },
        Duration(30000));
    EXPECT_TRUE(isChosen);
    EXPECT_EQ(display().activeWindow(), dialog);
    ASSERT_TRUE(closeDialog(application, dialog));
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(titlesAtOnce(titles.size()), titles);
}

INSTANTIATE_TEST_SUITE_P(Over, DialogTest,
    testing::Combine(EveryWindowManager,
        testing::Values(
            Dialog{ApplicationKind::Mousepad, "SaveAs", "File", "Save As", XK_s, {XK_Control_L, XK_Shift_L}},
            Dialog{ApplicationKind::Mousepad, "Replace", "Search", "Find and Replace"},
            Dialog{ApplicationKind::Mousepad, "About", "Help", "About"},
            Dialog{ApplicationKind::Mousepad, "SaveChanges"},
            Dialog{ApplicationKind::Geany, "Open", "File", "Open", XK_o, {XK_Control_L}},
            Dialog{ApplicationKind::Geany, "Find", "Search", "Find"},
            Dialog{ApplicationKind::Geany, "Preferences", "Edit", "Preferences"},
            Dialog{ApplicationKind::Geany, "SaveChanges"},
            Dialog{ApplicationKind::FeatherPad, "SaveAs", "File", "Save As"},
            Dialog{ApplicationKind::FeatherPad, "About", "Help", "About"},
            Dialog{ApplicationKind::FeatherPad, "SaveChanges"})),
    nameOfDialog);

class ReturningDialogTest : public DialogTest { };

TEST_P(ReturningDialogTest, ShowsTheMenusOfItsWindowAfterAnotherApplicationWasInFront) {
    TestApplication& application = launch(std::get<1>(GetParam()).application);
    const std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    const xcb_window_t dialog = openDialog(application);
    ASSERT_NE(dialog, xcb_window_t(XCB_NONE));
    TestApplication& other = launch(ApplicationKind::TwoWindows);
    ASSERT_TRUE(popUp().openWith(other.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    // The mirror is made anew while the dialog is in front.
    ASSERT_TRUE(application.bringToFront(dialog));
    ASSERT_TRUE(popUp().openWith(titles));
    EXPECT_EQ(display().activeWindow(), dialog);
    ASSERT_TRUE(popUp().close());
    ASSERT_TRUE(closeDialog(application, dialog));
    EXPECT_EQ(titlesAtOnce(titles.size()), titles);
}

INSTANTIATE_TEST_SUITE_P(Over, ReturningDialogTest,
    testing::Combine(EveryWindowManager,
        testing::Values(
            Dialog{ApplicationKind::Mousepad, "SaveAs", "File", "Save As", XK_s, {XK_Control_L, XK_Shift_L}},
            Dialog{ApplicationKind::FeatherPad, "About", "Help", "About"})),
    nameOfDialog);

class NoWindowTest : public WindowManagerTest {
protected:
    // Nothing of the application is shown any more; what else is shown does not matter here.
    bool showsNothingOf(const std::vector<std::string>& titles) {
        return waitUntil(
            [&] {
                if (!popUp().open(Duration(1000)))
                    return true;
                const std::vector<std::string> shown = titlesOf(popUp().items());
                const bool isClosed = popUp().close();
                return isClosed && std::ranges::find_first_of(shown, titles) == shown.end();
            },
            Duration(15000));
    }
};

TEST_P(NoWindowTest, ShowsNothingOfAnApplicationThatIsClosed) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    const std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_TRUE(popUp().close());
    quit(application);
    ASSERT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
    EXPECT_TRUE(showsNothingOf(titles));
}

TEST_P(NoWindowTest, ShowsNothingOfAnApplicationThatIsPutAwayAndAllOfItOnceItIsBack) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    const std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_TRUE(popUp().close());
    display().minimize(application.window());
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() != application.window(); }));
    EXPECT_TRUE(showsNothingOf(titles));
    ASSERT_TRUE(application.bringToFront());
    EXPECT_TRUE(popUp().openWith(titles));
}

INSTANTIATE_TEST_SUITE_P(Under, NoWindowTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
