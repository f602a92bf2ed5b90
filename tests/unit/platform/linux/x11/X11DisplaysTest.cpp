// What the panels of a desktop leave of each monitor, on a real X server of 320 by 240 pixels.
#include "platform/linux/x11/X11Displays.h"

#include "fake/FakeDisplays.h"
#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace tarragon {
namespace {

using testing::ElementsAre;

class X11DisplaysTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        desktop = std::make_unique<X11Client>(server.displayName());
        connection = X11Connection::connect(server.displayName());
        ASSERT_TRUE(connection);
        displays = std::make_unique<X11Displays>(toolkit, *connection, &scale);
    }
    // In Cocoa space, as the toolkit has them.
    void setScreens(const std::vector<Rect>& framesNS) {
        std::vector<Screen> screens;
        for (const Rect& frame : framesNS)
            screens.push_back({frame, frame});
        toolkit.setScreens(screens);
    }
    // Two monitors beside each other; the left one is the primary screen.
    void useTwoMonitors() {
        desktop->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
        setScreens({{{0, 0}, {160, 240}}, {{160, 0}, {160, 240}}});
    }
    // Adds a panel of the desktop, with one of the two properties by which it keeps room free.
    void addPanel(const Rect& frame, const std::string& property, const std::vector<std::uint32_t>& strut) {
        const xcb_window_t panel = desktop->makeWindow({.x = static_cast<std::int16_t>(frame.origin.x),
            .y = static_cast<std::int16_t>(frame.origin.y),
            .width = static_cast<std::uint16_t>(frame.size.width),
            .height = static_cast<std::uint16_t>(frame.size.height)});
        desktop->setNumbers(panel, property, XCB_ATOM_CARDINAL, strut);
        _managed.push_back(panel);
        desktop->setNumbers(desktop->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, _managed);
        desktop->synchronize();
    }
    void addPanel(const Rect& frame, const std::vector<std::uint32_t>& strut) {
        addPanel(frame, "_NET_WM_STRUT_PARTIAL", strut);
    }
    // What is missing at the top of each screen.
    std::vector<double> tops() {
        std::vector<double> heights;
        for (const Screen& screen : displays->screens())
            heights.push_back(screen.frameNS.origin.y + screen.frameNS.size.height - screen.visibleFrameNS.origin.y
                - screen.visibleFrameNS.size.height);
        return heights;
    }
    std::vector<Rect> visibleFrames() {
        std::vector<Rect> frames;
        for (const Screen& screen : displays->screens())
            frames.push_back(screen.visibleFrameNS);
        return frames;
    }

    XkbServer server;
    std::unique_ptr<X11Client> desktop;
    std::unique_ptr<X11Connection> connection;
    FakeDisplays toolkit;
    CurrentPixelScale scale;
    std::unique_ptr<X11Displays> displays;

private:
    std::vector<std::uint32_t> _managed;
};

TEST_F(X11DisplaysTest, LeaveAllOfAScreenWithoutPanels) {
    useTwoMonitors();
    EXPECT_THAT(visibleFrames(), ElementsAre(Rect{{0, 0}, {160, 240}}, Rect{{160, 0}, {160, 240}}));
}

TEST_F(X11DisplaysTest, LeaveOutABarAtTheTopOfItsOwnScreenOnly) {
    useTwoMonitors();
    addPanel({{160, 0}, {160, 30}}, {0, 0, 30, 0, 0, 0, 0, 0, 160, 319, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(0, 30));
    addPanel({{0, 0}, {160, 26}}, {0, 0, 26, 0, 0, 0, 0, 0, 0, 159, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(26, 30));
    EXPECT_THAT(visibleFrames(), ElementsAre(Rect{{0, 0}, {160, 214}}, Rect{{160, 0}, {160, 210}}));
}

TEST_F(X11DisplaysTest, LeaveOutABarThatDoesNotSayWhereItBeginsWhereItLies) {
    useTwoMonitors();
    addPanel({{160, 0}, {160, 30}}, "_NET_WM_STRUT", {0, 0, 30, 0});
    EXPECT_THAT(tops(), ElementsAre(0, 30));
    addPanel({{0, 216}, {160, 24}}, "_NET_WM_STRUT", {0, 0, 0, 24});
    EXPECT_THAT(visibleFrames(), ElementsAre(Rect{{0, 24}, {160, 216}}, Rect{{160, 0}, {160, 210}}));
}

TEST_F(X11DisplaysTest, LeaveOutABarAcrossBothScreensOnBoth) {
    useTwoMonitors();
    addPanel({{0, 0}, {320, 30}}, "_NET_WM_STRUT", {0, 0, 30, 0});
    EXPECT_THAT(tops(), ElementsAre(30, 30));
}

TEST_F(X11DisplaysTest, KnowABarAtTheTopOfAScreenThatBeginsLower) {
    desktop->setMonitors({{0, 0, 160, 240, true}, {160, 100, 160, 140, false}});
    setScreens({{{0, 0}, {160, 240}}, {{160, 0}, {160, 140}}});
    // Room is reckoned from the edge of the root window.
    addPanel({{160, 100}, {160, 30}}, {0, 0, 130, 0, 0, 0, 0, 0, 160, 319, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(0, 30));
}

TEST_F(X11DisplaysTest, KnowABarAtTheTopOfAScreenBelowAnotherOne) {
    desktop->setMonitors({{0, 0, 320, 100, true}, {0, 100, 320, 140, false}});
    setScreens({{{0, 0}, {320, 100}}, {{0, -140}, {320, 140}}});
    addPanel({{0, 100}, {320, 30}}, {0, 0, 130, 0, 0, 0, 0, 0, 0, 319, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(0, 30));
}

TEST_F(X11DisplaysTest, CountFromThePrimaryScreenAtTheRight) {
    desktop->setMonitors({{0, 0, 160, 200, false}, {160, 0, 160, 240, true}});
    setScreens({{{0, 0}, {160, 240}}, {{-160, 40}, {160, 200}}});
    addPanel({{0, 0}, {160, 30}}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 159, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(0, 30));
    EXPECT_THAT(visibleFrames(), ElementsAre(Rect{{0, 0}, {160, 240}}, Rect{{-160, 40}, {160, 170}}));
}

TEST_F(X11DisplaysTest, GiveTheHeightOfABarInPoints) {
    desktop->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
    scale.set(PixelScale({{{{0, 0}, {160, 240}}, 1}, {{{160, 0}, {160, 240}}, 2}}));
    setScreens({{{0, 0}, {160, 240}}, {{160, 120}, {80, 120}}});
    addPanel({{0, 0}, {320, 30}}, {0, 0, 30, 0, 0, 0, 0, 0, 0, 319, 0, 0});
    EXPECT_THAT(tops(), ElementsAre(30, 15));
    EXPECT_THAT(visibleFrames(), ElementsAre(Rect{{0, 0}, {160, 210}}, Rect{{160, 120}, {80, 105}}));
}

} // namespace
} // namespace tarragon
