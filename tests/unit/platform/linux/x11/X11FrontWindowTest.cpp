#include "platform/linux/x11/X11FrontWindow.h"

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr X11FrontWindowChange Nothing = {};
constexpr X11FrontWindowChange Switched = {.frontSwitched = true};
constexpr X11FrontWindowChange ModeChanged = {.systemUIModeChanged = true};

} // namespace

TEST(X11FrontWindow, ReportsEachOtherWindowOnce) {
    X11FrontWindow front;
    EXPECT_EQ(front.update(1, false), Switched);
    EXPECT_EQ(front.update(1, false), Nothing);
    EXPECT_EQ(front.update(2, false), Switched);
    EXPECT_EQ(front.update(1, false), Switched);
}

TEST(X11FrontWindow, ReportsNothingWhileNoWindowIsActive) {
    X11FrontWindow front;
    EXPECT_EQ(front.update(std::nullopt, false), Nothing);
    front.update(1, true);
    EXPECT_EQ(front.update(std::nullopt, false), Nothing);
}

TEST(X11FrontWindow, ReportsASwitchOverNoWindowOnce) {
    X11FrontWindow front;
    front.update(1, false);
    front.update(std::nullopt, false);
    EXPECT_EQ(front.update(2, false), Switched);
}

TEST(X11FrontWindow, ReportsNothingWhenTheSameWindowComesBack) {
    X11FrontWindow front;
    front.update(1, true);
    front.update(std::nullopt, false);
    EXPECT_EQ(front.update(1, true), Nothing);
}

TEST(X11FrontWindow, ReportsANewWindowWithTheIdentifierOfOneThatIsGone) {
    X11FrontWindow front;
    front.update(1, true);
    front.forgetWindow();
    EXPECT_EQ(front.update(std::nullopt, false), Nothing);
    EXPECT_EQ(front.update(1, true), Switched);
}

TEST(X11FrontWindow, ReportsWhenTheFrontWindowGoesFullScreenAndBack) {
    X11FrontWindow front;
    front.update(1, false);
    EXPECT_EQ(front.update(1, true), ModeChanged);
    EXPECT_EQ(front.update(1, true), Nothing);
    EXPECT_EQ(front.update(1, false), ModeChanged);
}

TEST(X11FrontWindow, ReportsBothWhenAFullScreenWindowComesToTheFront) {
    X11FrontWindow front;
    front.update(1, false);
    EXPECT_EQ(front.update(2, true), (X11FrontWindowChange{true, true}));
    EXPECT_EQ(front.update(3, true), Switched);
    EXPECT_EQ(front.update(1, false), (X11FrontWindowChange{true, true}));
}

} // namespace tarragon
