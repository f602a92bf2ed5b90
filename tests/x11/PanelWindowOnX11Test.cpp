#include "WiredInput.h"

#include "panels/widgets/QtPanelToolkit.h"
#include "panels/widgets/QtPanelWindow.h"
#include "platform/linux/panelsurfaces/X11PanelSurfaces.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"
#include "support/X11Client.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QApplication>
#include <QScreen>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

namespace {

class Handler : public PanelWindowHandler {
public:
    void mouseDown(const PanelMouseEvent& event) override {
        ++presses;
        last = event;
        if (onPress)
            onPress();
    }
    void mouseUp(const PanelMouseEvent&) override { ++releases; }
    void rightMouseDown(const PanelMouseEvent&) override { ++rightPresses; }
    void pointerMoved(const std::optional<Point>& location) override { pointer = location; }

    int presses = 0;
    int releases = 0;
    int rightPresses = 0;
    PanelMouseEvent last;
    std::optional<Point> pointer;
    std::function<void()> onPress;
};

// A panel of 200 by 24 points at (100, 100) from the top-left corner of the screen, with one button in its middle,
// over the window of another program that has the focus.
class PanelWindowOnX11 : public testing::Test {
protected:
    PanelWindowOnX11() {
        _program = _other.makeWindow({.x = 50,
            .y = 50,
            .width = 400,
            .height = 200,
            .events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE});
        _other.map(_program);
        _other.focus(_program);
        _other.setNumbers(_other.root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {_program});
        _other.movePointer(10, 10);

        _window = QtPanelToolkit(_displays, &_surfaces).makeWindow(_handler, "TarragonPanel");
        _window->setFrame({{100, screenHeight() - 100 - 24}, {200, 24}});
        ButtonContent button;
        button.title = "File";
        button.font.pointSize = 12;
        button.frame = {{80, 3}, {40, 18}};
        _content.buttons.push_back(button);
        _window->display(_content);
    }

    ~PanelWindowOnX11() override {
        _window.reset();
        QCoreApplication::processEvents();
    }

    static double screenHeight() { return QGuiApplication::primaryScreen()->size().height(); }
    QWidget& widget() { return dynamic_cast<QtPanelWindow&>(*_window).widget(); }
    xcb_window_t identifier() { return static_cast<xcb_window_t>(widget().winId()); }

    // Until it is where clicks reach it.
    void show() {
        _window->orderFront();
        ASSERT_TRUE(waitUntil([this] { return _other.isMapped(identifier()) && isAbove(); }));
        _other.takeEvents();
    }
    bool isAbove() {
        const std::vector<xcb_window_t> order = _other.stacking();
        const auto panel = std::find(order.begin(), order.end(), identifier());
        return std::find(panel, order.end(), _program) == order.end();
    }
    void click(int x, int y, std::uint8_t button = 1) {
        _other.movePointer(x, y);
        _other.click(button);
    }
    bool programGetsAPress() {
        return waitUntil([this] { return _other.countEvents(XCB_BUTTON_PRESS) > 0; });
    }

    Handler _handler;
    X11Client _other{std::getenv("DISPLAY")};
    xcb_window_t _program = 0;
    QtRunLoop _runLoop;
    QtDisplays _displays{_runLoop};
    std::unique_ptr<X11Connection> _connection = X11Connection::connect(std::getenv("DISPLAY"));
    X11PanelSurfaces _surfaces{*_connection, _runLoop};
    PanelContent _content;
    std::unique_ptr<PanelWindow> _window;
};

TEST_F(PanelWindowOnX11, IsClickedWhileTheOtherProgramKeepsTheFocus) {
    show();
    click(200, 112);
    ASSERT_TRUE(waitUntil([this] { return _handler.releases == 1; }));
    EXPECT_EQ(_handler.presses, 1);
    EXPECT_EQ(_handler.last.locationInPanel, (Point{100, 12}));
    EXPECT_EQ(_handler.last.locationNS, (Point{200, screenHeight() - 112}));
    click(200, 112, 3);
    ASSERT_TRUE(waitUntil([this] { return _handler.rightPresses == 1; }));
    EXPECT_EQ(_other.focusedWindow(), _program);
    EXPECT_EQ(_other.countEvents(XCB_FOCUS_OUT), 0);
    EXPECT_EQ(_other.countEvents(XCB_BUTTON_PRESS), 0);
}

TEST_F(PanelWindowOnX11, DoesNotAskTheWindowManagerForTheFocusOnceItIsShown) {
    show();
    EXPECT_TRUE(_other.isOverrideRedirect(identifier()));
    const std::vector<std::uint32_t> hints = _other.numbers(identifier(), "WM_HINTS");
    ASSERT_GE(hints.size(), 2U);
    EXPECT_EQ(hints[0] & 1, 1U);
    EXPECT_EQ(hints[1], 0U);
    EXPECT_THAT(
        _other.numbers(identifier(), "WM_PROTOCOLS"), testing::Not(testing::Contains(_other.atom("WM_TAKE_FOCUS"))));
}

TEST_F(PanelWindowOnX11, LetsAClickBesideItsButtonsThrough) {
    show();
    click(120, 112);
    EXPECT_TRUE(programGetsAPress());
    EXPECT_EQ(_handler.presses, 0);

    _content.background.showGradient = true;
    _window->display(_content);
    // The server has done that by the time at which it answers.
    _connection->atom("TARRAGON_TEST_BARRIER");
    click(120, 112);
    EXPECT_TRUE(waitUntil([this] { return _handler.presses == 1; }));
}

TEST_F(PanelWindowOnX11, LetsClicksThroughAndHearsOfThePointerWhileItIsInvisible) {
    show();
    _window->setAlpha(0);
    _connection->atom("TARRAGON_TEST_BARRIER");
    EXPECT_TRUE(widget().isVisible());
    click(200, 112);
    EXPECT_TRUE(programGetsAPress());
    EXPECT_EQ(_handler.presses, 0);
    EXPECT_TRUE(waitUntil([this] { return _handler.pointer == Point{100, 12}; }));
    _other.movePointer(200, 130);
    EXPECT_TRUE(waitUntil([this] { return !_handler.pointer; }));
}

TEST_F(PanelWindowOnX11, MayBeDestroyedByAClick) {
    show();
    _handler.onPress = [this] { _window.reset(); };
    const xcb_window_t window = identifier();
    click(200, 112);
    EXPECT_TRUE(waitUntil([&] { return !_window && !_other.exists(window); }));
}

TEST_F(PanelWindowOnX11, BecomesADockAndAPanelAgain) {
    _window->setLevel(PanelLevel::Dock);
    _window->orderFront();
    ASSERT_TRUE(waitUntil([this] { return _other.isMapped(identifier()); }));
    EXPECT_FALSE(_other.isOverrideRedirect(identifier()));
    EXPECT_THAT(_other.numbers(identifier(), "_NET_WM_WINDOW_TYPE"),
        testing::ElementsAre(_other.atom("_NET_WM_WINDOW_TYPE_DOCK")));
    EXPECT_THAT(_other.numbers(identifier(), "_NET_WM_STATE"), testing::Contains(_other.atom("_NET_WM_STATE_STICKY")));
    _window->orderOut();
    _window->setLevel(PanelLevel::FrontWindow);
    show();
    EXPECT_TRUE(_other.isOverrideRedirect(identifier()));
}

TEST_F(PanelWindowOnX11, IsOnEveryWorkspace) {
    show();
    EXPECT_THAT(_other.numbers(identifier(), "_NET_WM_DESKTOP"), testing::ElementsAre(0xFFFFFFFF));
}

TEST_F(PanelWindowOnX11, MayBeAsWideAsTheServerAllows) {
    _window->setFrame({{0, 400}, {30000, 24}});
    _window->orderFront();
    ASSERT_TRUE(waitUntil([this] { return _other.isMapped(identifier()); }));
    EXPECT_EQ(widget().width(), 30000);
    _window->setFrame({{0, 400}, {1e9, 24}});
    EXPECT_EQ(widget().width(), 32000);
    _window->setFrame({{0, 400}, {1, 1}});
    EXPECT_EQ(widget().size(), QSize(1, 1));
    QCoreApplication::processEvents();
    EXPECT_TRUE(_other.exists(identifier()));
}

} // namespace

} // namespace tarragon
