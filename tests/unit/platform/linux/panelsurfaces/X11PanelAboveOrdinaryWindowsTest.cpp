#include "X11PanelSurfacesFixture.h"

#include <memory>
#include <vector>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;

// A bar that lies above ordinary windows, whichever of them is in front.
class X11PanelAboveOrdinaryWindowsTest : public X11PanelSurfacesTest {
protected:
    void SetUp() override {
        X11PanelSurfacesTest::SetUp();
        if (IsSkipped())
            return;
        bar = toolkit->makeWindow({.x = 160, .y = 0, .width = 160, .height = 22, .overrideRedirect = true});
        barSurface = surfaces->makeSurface(bar);
        barSurface->setLevel(PanelLevel::OrdinaryWindows);
        toolkit->map(bar);
    }
    xcb_window_t makeDock(
        const char* property = "_NET_WM_WINDOW_TYPE", const char* value = "_NET_WM_WINDOW_TYPE_DOCK") {
        const xcb_window_t window = makeWindow(0, 0);
        other->setNumbers(window, property, XCB_ATOM_ATOM, {other->atom(value)});
        return window;
    }

    xcb_window_t bar = 0;
    std::unique_ptr<PanelSurface> barSurface;
};

TEST_F(X11PanelAboveOrdinaryWindowsTest, LiesAboveAWindowThatIsNotInFront) {
    const xcb_window_t maximised = makeWindow(160, 0);
    tellOrder({frame, maximised});
    ASSERT_TRUE(becomes({frame, panel, maximised, bar}));
    other->raise(maximised);
    ASSERT_TRUE(becomes({frame, panel, maximised, bar}));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, NeedsNoWindowInFront) {
    const xcb_window_t maximised = makeWindow(160, 0);
    setFront(XCB_WINDOW_NONE);
    tellOrder({maximised});
    ASSERT_TRUE(becomes({maximised, bar}));
    // The desktop of the file manager is in front.
    setFront(frame);
    tellOrder({frame, maximised});
    settle();
    EXPECT_THAT(order({frame, panel, maximised, bar}), ElementsAre(frame, panel, maximised, bar));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, LiesBelowDocksAndWindowsThatAreKeptAboveAndOpenMenus) {
    const xcb_window_t maximised = makeWindow(160, 0);
    const xcb_window_t above = makeDock("_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
    const xcb_window_t dock = makeDock();
    const xcb_window_t menu = other->makeWindow({.x = 160, .y = 0, .overrideRedirect = true});
    other->map(menu);
    tellOrder({frame, maximised, above, dock});
    ASSERT_TRUE(becomes({frame, panel, maximised, bar, above, dock, menu}));
    tellOrder({maximised, frame, above, dock});
    ASSERT_TRUE(becomes({frame, panel, bar, maximised, above, dock, menu}));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, RestsAboveAPanelThatLiesAboveTheSameWindow) {
    tellOrder({frame});
    ASSERT_TRUE(becomes({frame, panel, bar}));
    other->raise(frame);
    ASSERT_TRUE(becomes({frame, panel, bar}));
    settle();
    const unsigned before = xcb_no_operation(connection->get()).sequence;
    settle();
    settle();
    // Neither puts itself below the other for ever.
    EXPECT_LE(xcb_no_operation(connection->get()).sequence, before + 10);
    EXPECT_THAT(order({frame, panel, bar}), ElementsAre(frame, panel, bar));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, StaysWhereItIsWithoutAWindowManager) {
    const xcb_window_t maximised = makeWindow(160, 0);
    settle();
    EXPECT_THAT(order({frame, panel, bar, maximised}), ElementsAre(frame, panel, bar, maximised));
}

} // namespace
} // namespace tarragon
