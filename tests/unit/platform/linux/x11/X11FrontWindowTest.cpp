#include "platform/linux/x11/X11FrontWindow.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarragon {

namespace {

constexpr X11FrontWindowChange Nothing = {};
constexpr X11FrontWindowChange Switched = {.frontSwitched = true};
constexpr X11FrontWindowChange ModeChanged = {.systemUIModeChanged = true};
constexpr X11FrontWindowChange Both = {.frontSwitched = true, .systemUIModeChanged = true};

constexpr std::int64_t Editor = 100;
constexpr std::int64_t Viewer = 200;
constexpr std::int64_t NoProcess = 0;

X11ActiveWindow windowOf(std::int64_t process, std::uint32_t window, const std::string& application = "") {
    return {.window = window, .processIdentifier = process, .application = application};
}

X11ActiveWindow dialogOf(std::int64_t process, std::uint32_t window, std::uint32_t owner = 0) {
    return {.window = window, .processIdentifier = process, .isPassing = true, .transientFor = owner};
}

X11ActiveWindow fullScreen(X11ActiveWindow active) {
    active.fullScreen = true;
    return active;
}

class X11FrontWindowTest : public testing::Test {
protected:
    // As the watch does it: the menu bar is asked for where it decides, and learnt after a switch.
    X11FrontWindowChange look(const X11ActiveWindow& active, std::uint32_t menuBar) {
        const bool asks = front.needsMenuBar(active);
        const X11FrontWindowChange change = front.update(active, asks ? std::optional(menuBar) : std::nullopt);
        if (front.windowWithUnknownMenuBar())
            front.learnMenuBar(menuBar);
        return change;
    }

    X11FrontWindow front;
};

} // namespace

TEST_F(X11FrontWindowTest, ReportsEachOtherApplicationOnce) {
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Switched);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Nothing);
    EXPECT_EQ(look(windowOf(Viewer, 2), 2), Switched);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Switched);
}

TEST_F(X11FrontWindowTest, AsksForNoMenuBarWhenTheApplicationAloneDecides) {
    EXPECT_FALSE(front.needsMenuBar(windowOf(Editor, 1)));
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_FALSE(front.needsMenuBar(windowOf(Editor, 1)));
    EXPECT_FALSE(front.needsMenuBar(windowOf(Viewer, 2)));
    EXPECT_TRUE(front.needsMenuBar(windowOf(Editor, 3)));
    EXPECT_TRUE(front.needsMenuBar(dialogOf(Editor, 3, 1)));
}

TEST_F(X11FrontWindowTest, ReportsAnotherWindowWithAMenuBarOfItsOwn) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(windowOf(Editor, 2), 2), Switched);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Switched);
}

TEST_F(X11FrontWindowTest, ReportsNoDialogThatShowsTheMenusOfItsOwner) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(dialogOf(Editor, 2, 1), 1), Nothing);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsADialogOfAWindowWithOtherMenus) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(dialogOf(Editor, 3, 2), 2), Switched);
    EXPECT_EQ(look(windowOf(Editor, 2), 2), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsTheMainWindowAfterADialogThatGreeted) {
    EXPECT_EQ(look(dialogOf(Editor, 1), 0), Switched);
    EXPECT_EQ(look(windowOf(Editor, 2), 2), Switched);
}

TEST_F(X11FrontWindowTest, ReportsNoWindowWithoutAMenuBarOfItsOwn) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(windowOf(Editor, 2), 1), Nothing);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsAMenuBarThatComesLate) {
    (void)look(windowOf(Editor, 1), 1);
    (void)look(windowOf(Editor, 2), 1);
    EXPECT_EQ(front.update(windowOf(Editor, 2), 2), Switched);
    EXPECT_EQ(front.update(windowOf(Editor, 2), 2), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsAFirstMenuBarThatComesLate) {
    (void)look(windowOf(Editor, 1), 0);
    EXPECT_EQ(front.update(windowOf(Editor, 1), 0), Nothing);
    EXPECT_EQ(front.update(windowOf(Editor, 1), 1), Switched);
}

TEST_F(X11FrontWindowTest, KeepsTheMenuBarOfAnApplicationThatDoesNotAnswer) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(dialogOf(Editor, 2), 0), Nothing);
    EXPECT_EQ(front.menuBar(), 1U);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsThatTheWindowWithTheMenuBarIsGone) {
    (void)look(windowOf(Editor, 1), 1);
    (void)look(windowOf(Editor, 2), 1);
    front.forgetWindow(1);
    EXPECT_EQ(front.menuBar(), 0U);
    EXPECT_TRUE(front.needsMenuBar(windowOf(Editor, 2)));
    EXPECT_EQ(look(windowOf(Editor, 2), 0), Switched);
    EXPECT_EQ(look(windowOf(Editor, 2), 0), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsNothingWhenADialogIsGone) {
    (void)look(windowOf(Editor, 1), 1);
    (void)look(dialogOf(Editor, 2, 1), 1);
    front.forgetWindow(2);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Nothing);
}

TEST_F(X11FrontWindowTest, ReportsANewWindowWithTheIdentifierOfOneThatIsGone) {
    (void)look(windowOf(Editor, 1), 1);
    front.forgetWindow(1);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Switched);
    front.forgetWindow(1);
    EXPECT_EQ(look(windowOf(Viewer, 1), 1), Switched);
    (void)look(windowOf(NoProcess, 5), 0);
    front.forgetWindow(5);
    EXPECT_EQ(look(windowOf(NoProcess, 5), 0), Switched);
}

TEST_F(X11FrontWindowTest, TellsApartTheApplicationsOfOneProcess) {
    (void)look(windowOf(Editor, 1, "writer"), 1);
    EXPECT_EQ(look(windowOf(Editor, 2, "calc"), 1), Switched);
    // What a dialog calls itself says nothing.
    EXPECT_EQ(look(dialogOf(Editor, 3, 2), 1), Nothing);
    EXPECT_EQ(look(windowOf(Editor, 2, "calc"), 1), Nothing);
    (void)look(dialogOf(Editor, 3, 2), 1);
    EXPECT_EQ(look(windowOf(Editor, 1, "writer"), 1), Switched);
}

TEST_F(X11FrontWindowTest, TakesEachWindowWithoutAProcessForAnApplication) {
    EXPECT_EQ(look(windowOf(NoProcess, 1), 0), Switched);
    EXPECT_EQ(look(dialogOf(NoProcess, 2, 1), 0), Nothing);
    EXPECT_EQ(look(windowOf(NoProcess, 1), 0), Nothing);
    EXPECT_EQ(look(windowOf(NoProcess, 3), 0), Switched);
    EXPECT_FALSE(front.windowWithUnknownMenuBar());
}

TEST_F(X11FrontWindowTest, ReportsOnceThatNoApplicationIsInFrontAndThatItIsBack) {
    EXPECT_EQ(front.lose(), Nothing);
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(front.lose(), Switched);
    EXPECT_EQ(front.lose(), Nothing);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), Switched);
}

TEST_F(X11FrontWindowTest, ReportsWhenTheFrontWindowGoesFullScreenAndBack) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(fullScreen(windowOf(Editor, 1)), 1), ModeChanged);
    EXPECT_EQ(look(fullScreen(windowOf(Editor, 1)), 1), Nothing);
    EXPECT_EQ(look(windowOf(Editor, 1), 1), ModeChanged);
}

TEST_F(X11FrontWindowTest, ReportsBothWhenAFullScreenWindowComesToTheFront) {
    (void)look(windowOf(Editor, 1), 1);
    EXPECT_EQ(look(fullScreen(windowOf(Viewer, 2)), 2), Both);
    EXPECT_EQ(look(fullScreen(windowOf(Editor, 3)), 3), Switched);
    EXPECT_EQ(front.lose(), Both);
}

TEST_F(X11FrontWindowTest, ReportsAnotherWindowWhenNobodyHasToldTheFormerMenuBar) {
    (void)front.update(windowOf(Editor, 1), std::nullopt);
    EXPECT_EQ(front.update(windowOf(Editor, 2), 2), Switched);
    EXPECT_EQ(front.update(dialogOf(Editor, 3, 2), 2), Nothing);
}

} // namespace tarragon
