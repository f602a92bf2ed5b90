#include "panels/widgets/QtPanelWindow.h"
#include "PaintedPanel.h"
#include "fake/FakeDisplays.h"
#include "fake/FakePanelSurfaces.h"
#include "fake/RecordingLog.h"
#include "panels/widgets/QtPanelToolkit.h"
#include "unit/EventCounter.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingHandler : public PanelWindowHandler {
public:
    void mouseDown(const PanelMouseEvent& event) override { record("down", event); }
    void mouseDragged(const PanelMouseEvent& event) override { record("dragged", event); }
    void mouseUp(const PanelMouseEvent& event) override { record("up", event); }
    void rightMouseDown(const PanelMouseEvent& event) override { record("right down", event); }
    void pointerMoved(const std::optional<Point>& location) override {
        log.push_back(location ? "pointer " + text(*location) : "pointer left");
        if (onEvent)
            onEvent();
    }

    std::vector<std::string> log;
    std::vector<PanelMouseEvent> events;
    std::function<void()> onEvent;

private:
    static std::string text(const Point& point) {
        return std::to_string(int(point.x)) + "," + std::to_string(int(point.y));
    }
    void record(const std::string& name, const PanelMouseEvent& event) {
        log.push_back((event.controlKey ? "control " : "") + name + " " + text(event.locationInPanel));
        events.push_back(event);
        if (onEvent)
            onEvent();
    }
};

class QtPanelWindowTest : public testing::Test {
protected:
    QtPanelWindowTest() { _window->setFrame({{100, 500}, {200, 24}}); }
    ~QtPanelWindowTest() override {
        _window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QWidget& widget() { return _window->widget(); }
    std::uint64_t identifier() { return widget().winId(); }
    FakePanelSurfaces::Record record() { return _surfaces.surfaces().at(identifier()); }

    FakeDisplays _displays;
    FakePanelSurfaces _surfaces;
    RecordingHandler _handler;
    std::unique_ptr<QtPanelWindow> _window = std::make_unique<QtPanelWindow>(_displays, &_surfaces, _handler);
};

TEST_F(QtPanelWindowTest, NeverBecomesActive) {
    EXPECT_TRUE(widget().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(widget().windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(widget().windowFlags().testFlag(Qt::X11BypassWindowManagerHint));
    EXPECT_TRUE(widget().testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(widget().focusPolicy(), Qt::NoFocus);
    _window->orderFront();
    QTest::mouseClick(&widget(), Qt::LeftButton, {}, {10, 10});
    EXPECT_FALSE(widget().hasFocus());
    EXPECT_EQ(QApplication::activeWindow(), nullptr);
}

TEST_F(QtPanelWindowTest, DoesNotKeepTheProgramRunning) {
    EXPECT_FALSE(widget().testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(QtPanelWindowTest, IsHiddenUntilItIsOrderedFront) {
    EXPECT_FALSE(widget().isVisible());
    _window->orderFront();
    EXPECT_TRUE(widget().isVisible());
    _window->orderOut();
    EXPECT_FALSE(widget().isVisible());
}

TEST_F(QtPanelWindowTest, IsPutWhereItIsTold) {
    EXPECT_EQ(widget().geometry(), QRect(100, 376, 200, 24));
    _window->orderFront();
    _window->setFrame({{-20.4, 860.2}, {300.1, 24}});
    EXPECT_EQ(widget().geometry(), QRect(-20, 16, 300, 24));
}

TEST_F(QtPanelWindowTest, MayBeAsWideOrSmallAsCanBe) {
    _window->orderFront();
    _window->setFrame({{0, 876}, {30000, 24}});
    EXPECT_EQ(widget().size(), QSize(30000, 24));
    PanelContent content = panelWith({buttonTitled("File")});
    content.background = {.startingColor = {0.45, 1}, .endingColor = Grey{0.95, 1}, .angle = 90, .showGradient = true};
    content.buttons.front().frame.origin.x = 29900;
    _window->display(content);
    const QImage image = widget().grab().toImage();
    EXPECT_EQ(image.width(), 30000);
    EXPECT_EQ(qAlpha(image.pixel(29999, 12)), 255);
    _window->setFrame({{0, 899}, {1, 1}});
    EXPECT_EQ(widget().size(), QSize(1, 1));
    EXPECT_FALSE(widget().grab().isNull());
}

TEST_F(QtPanelWindowTest, HandsItsAlphaToItsSurfaceAndStaysShown) {
    _window->orderFront();
    _window->setAlpha(0.5);
    EXPECT_EQ(record().alpha, 0.5);
    _window->setAlpha(0);
    EXPECT_EQ(record().alpha, 0);
    EXPECT_TRUE(widget().isVisible());
}

TEST_F(QtPanelWindowTest, RisesAboveMenusAndFallsBackWhileItIsShown) {
    _window->orderFront();
    _window->setLevel(PanelLevel::PopUpMenu);
    EXPECT_EQ(record().level, PanelLevel::PopUpMenu);
    _window->setLevel(PanelLevel::FrontWindow);
    EXPECT_EQ(record().level, PanelLevel::FrontWindow);
    _window->setLevel(PanelLevel::Dock);
    EXPECT_EQ(record().level, PanelLevel::FrontWindow);
}

TEST_F(QtPanelWindowTest, BecomesADockOrNoneOnlyWhileItIsHidden) {
    _window->setLevel(PanelLevel::Dock);
    EXPECT_EQ(record().level, PanelLevel::Dock);
    _window->orderFront();
    _window->setLevel(PanelLevel::FrontWindow);
    EXPECT_EQ(record().level, PanelLevel::Dock);
    _window->orderOut();
    _window->orderFront();
    EXPECT_EQ(record().level, PanelLevel::FrontWindow);
}

TEST_F(QtPanelWindowTest, LetsClicksThroughBesideItsButtons) {
    EXPECT_THAT(record().clickableRegion, testing::Optional(IsEmpty()));
    ButtonContent first = buttonTitled("File");
    first.frame = {{5, 3}, {40, 18}};
    ButtonContent second = first;
    second.frame = {{180.4, 3}, {40, 28}}; // beyond the right and the top edge
    ButtonContent outside = first;
    outside.frame.origin.x = 200;
    ButtonContent empty = first;
    empty.frame.size.width = 0;
    PanelContent content = panelWith({first, second, outside, empty});
    _window->display(content);
    EXPECT_THAT(
        record().clickableRegion, testing::Optional(ElementsAre(Rect{{5, 3}, {40, 18}}, Rect{{180, 0}, {20, 21}})));

    content.background.showGradient = true;
    _window->display(content);
    EXPECT_THAT(record().clickableRegion, testing::Optional(ElementsAre(Rect{{0, 0}, {200, 24}})));
    _window->setFrame({{100, 500}, {300, 24}});
    EXPECT_THAT(record().clickableRegion, testing::Optional(ElementsAre(Rect{{0, 0}, {300, 24}})));
}

TEST_F(QtPanelWindowTest, TellsWhatTheMouseDoes) {
    _window->orderFront();
    QTest::mousePress(&widget(), Qt::LeftButton, {}, {10, 4});
    QTest::mouseMove(&widget(), {12, 5});
    QTest::mouseMove(&widget(), {13, 5});
    QTest::mouseRelease(&widget(), Qt::LeftButton, {}, {13, 6});
    QTest::mouseMove(&widget(), {14, 6}); // not dragged any more
    QTest::mousePress(&widget(), Qt::LeftButton, Qt::ControlModifier, {10, 4});
    QTest::mouseRelease(&widget(), Qt::LeftButton, {}, {10, 4});
    QTest::mousePress(&widget(), Qt::RightButton, {}, {15, 20});
    QTest::mouseRelease(&widget(), Qt::RightButton, {}, {15, 20});
    QTest::mouseClick(&widget(), Qt::MiddleButton, {}, {15, 20});
    // A drag is told from where the button went down.
    EXPECT_THAT(_handler.log,
        ElementsAre("down 10,20", "dragged 10,20", "dragged 12,19", "dragged 13,19", "up 13,18", "control down 10,20",
            "up 10,20", "right down 15,4"));
    EXPECT_EQ(_handler.events.front().locationNS, (Point{110, 520}));
}

TEST_F(QtPanelWindowTest, TakesADoubleClickForTwo) {
    _window->orderFront();
    QTest::mouseClick(&widget(), Qt::LeftButton, {}, {10, 4});
    QTest::mouseDClick(&widget(), Qt::LeftButton, {}, {10, 4}); // in place of the second press
    EXPECT_THAT(_handler.log, ElementsAre("down 10,20", "up 10,20", "down 10,20"));
}

TEST_F(QtPanelWindowTest, TellsWhereThePointerIs) {
    EXPECT_TRUE(_surfaces.movePointer(identifier(), Point{10, 4}));
    EXPECT_TRUE(_surfaces.movePointer(identifier(), std::nullopt));
    EXPECT_THAT(_handler.log, ElementsAre("pointer 10,20", "pointer left"));
}

TEST_F(QtPanelWindowTest, MayBeDestroyedByItsHandler) {
    _handler.onEvent = [this] { _window.reset(); };
    const std::function<void()> ways[] = {
        [this] {
            QTest::mousePress(&widget(), Qt::LeftButton, {}, {10, 4});
        },
        [this] {
            QTest::mousePress(&widget(), Qt::RightButton, {}, {10, 4});
        },
        [this] {
            _surfaces.movePointer(identifier(), Point{10, 4});
        },
    };
    for (const auto& way : ways) {
        if (!_window)
            _window = std::make_unique<QtPanelWindow>(_displays, &_surfaces, _handler);
        _window->setFrame({{100, 500}, {200, 24}});
        _window->orderFront();
        const QPointer<QWidget> view(&widget());
        way();
        EXPECT_EQ(_window, nullptr);
        EXPECT_TRUE(_surfaces.surfaces().empty());
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(view.isNull());
    }
}

// As a menu does that opens at a press.
TEST_F(QtPanelWindowTest, OutlivesARunLoopInItsHandlerThatDestroysIt) {
    _window->orderFront();
    const QPointer<QWidget> view(&widget());
    _handler.onEvent = [&] {
        QTimer::singleShot(0, &*view, [this] { _window.reset(); });
        while (_window)
            QCoreApplication::processEvents();
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
        EXPECT_FALSE(view.isNull());
    };
    QTest::mousePress(&widget(), Qt::LeftButton, {}, {10, 4});
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(view.isNull());
}

TEST_F(QtPanelWindowTest, FollowsTheThemeAtOnce) {
    PanelContent content;
    content.background = {.startingColor = {1, 1}, .endingColor = std::nullopt, .angle = 0, .showGradient = true};
    _window->display(content);
    _window->orderFront();
    const QPalette former = QApplication::palette();
    QApplication::setPalette(lightPalette());
    EXPECT_EQ(widget().grab().toImage().pixel(50, 12), qRgb(255, 255, 255));
    EXPECT_TRUE(QTest::qWaitFor([this] { return widget().testAttribute(Qt::WA_Mapped); }));
    QCoreApplication::processEvents();

    const EventCounter repaints(widget(), QEvent::Paint);
    QApplication::setPalette(darkPalette());
    EXPECT_TRUE(QTest::qWaitFor([&] { return repaints.count > 0; }));
    EXPECT_EQ(widget().grab().toImage().pixel(50, 12), qRgb(0, 0, 0));
    QApplication::setPalette(former);
}

TEST_F(QtPanelWindowTest, IsOpaqueInItsRegionWhereTheDesktopShowsNothingThroughIt) {
    ButtonContent button = buttonTitled("");
    button.dress = {ButtonBezel::Rounded, false, Grey{0.7, 0.1}};
    button.frame = {{5, 3}, {40, 18}};
    const PanelContent content = panelWith({button});
    const auto alphaAt = [&](int x, int y) {
        QImage image(widget().size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        widget().render(&image, {}, {}, {});
        return alpha(image, x, y);
    };
    _window->display(content);
    EXPECT_LT(alphaAt(20, 12), 30);
    _surfaces.setTranslucent(false);
    _window->orderFront();
    EXPECT_EQ(alphaAt(20, 12), 255);
    EXPECT_EQ(alphaAt(60, 12), 0);
    _surfaces.setTranslucent(true);
    _window->setAlpha(0.5);
    EXPECT_LT(alphaAt(20, 12), 30);
    _surfaces.setTranslucent(false);
    PanelContent withCorners = content;
    withCorners.background = {
        .startingColor = {0.45, 1}, .endingColor = Grey{0.95, 1}, .angle = 90, .showGradient = true};
    _window->display(withCorners);
    EXPECT_EQ(alphaAt(0, 0), 255);
}

class RefusingSurfaces : public PanelSurfaces {
public:
    std::unique_ptr<PanelSurface> makeSurface(std::uint64_t) override { return nullptr; }
    void joinAllSpaces(std::uint64_t) override { }
};

TEST(QtPanelToolkit, MakesOrdinaryWindowsWithoutSurfaces) {
    FakeDisplays displays;
    RefusingSurfaces refusing;
    RecordingHandler handler;
    const RecordingLog log(LogCategory::Panel);
    for (PanelSurfaces* surfaces : {static_cast<PanelSurfaces*>(nullptr), static_cast<PanelSurfaces*>(&refusing)}) {
        QtPanelToolkit toolkit(displays, surfaces);
        const auto window = toolkit.makeWindow(handler, "TarragonPanel");
        window->setFrame({{0, 876}, {100, 24}});
        window->setLevel(PanelLevel::Dock);
        window->display(panelWith({buttonTitled("File")}));
        window->orderFront();
        window->setAlpha(0.5);
        const QWidget& widget = dynamic_cast<QtPanelWindow&>(*window).widget();
        EXPECT_TRUE(widget.isVisible());
        EXPECT_NEAR(widget.windowOpacity(), 0.5, 0.01);
    }
    // Of the refusal.
    EXPECT_THAT(log.lines(), ElementsAre("panel: the desktop takes a panel for an ordinary window"));
}

TEST(QtPanelToolkit, NamesItsWindowsForThoseWhoListThem) {
    FakeDisplays displays;
    RecordingHandler handler;
    const auto window = QtPanelToolkit(displays, nullptr).makeWindow(handler, "TarragonSTPanel128");
    EXPECT_EQ(dynamic_cast<QtPanelWindow&>(*window).widget().windowTitle(), "TarragonSTPanel128");
}

TEST(QtPanelToolkit, KnowsTheSizeOfTheDesktopsTitleBars) {
    FakeDisplays displays;
    QtPanelToolkit toolkit(displays, nullptr);
    EXPECT_EQ(toolkit.titleBarFontSize(12), 12);
    EXPECT_EQ(toolkit.titleBarFontSize(0.5), 0.5);
    EXPECT_GT(toolkit.titleBarFontSize(0), 5);
    EXPECT_EQ(toolkit.titleBarFontSize(0), toolkit.titleBarFontSize(-3));
}

} // namespace

} // namespace tarragon
