#include "MenuViewFixture.h"

#include <algorithm>

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::Contains;
using testing::IsEmpty;

constexpr InputEvent Press{InputEventType::OtherMouseDown, 2};
constexpr InputEvent OtherPress{InputEventType::OtherMouseDown, 3};
constexpr InputEvent Drag{InputEventType::OtherMouseDragged, 2};
constexpr InputEvent LetGo{InputEventType::OtherMouseUp, 2};

// A button is held over another application, which alone hears of it, while the menu opens at the pointer.
class HeldButtonTest : public MenuViewFixture {
protected:
    HeldButtonTest() {
        addItem(*_root, "One");
        addItem(*_root, "Two");
        addItem(*addSubmenu(*_root, "More"), "Inside");
        _displays.pointerNS = {100, 700};
        _inputEvents.send(Press);
        popUp(_displays.pointerNS);
    }

    // Whether the menu leaves it to the windows below to hear of presses over it.
    static bool letsPressesThrough() {
        return openMenus().front()->windowHandle()->flags().testFlag(Qt::WindowTransparentForInput);
    }
    // The toolkit tells of a button by itself.
    static void tell(QMenu& menu, QEvent::Type type, const QPoint& point) {
        QMouseEvent event(type, point, menu.mapToGlobal(point), Qt::MiddleButton, Qt::MiddleButton, {});
        QApplication::sendEvent(&menu, &event);
    }

    void place(const QPoint& point) { _displays.pointerNS = {static_cast<double>(point.x()), 800.0 - point.y()}; }
    void moveTo(const QPoint& point) {
        place(point);
        _inputEvents.send(Drag);
    }
    static QPoint centerOf(const std::string& text) {
        const QMenu& menu = openMenu();
        return menu.mapToGlobal(menu.actionGeometry(&shownAction(menu, text)).center());
    }
    static QPoint besideTheMenu() { return openMenus().front()->geometry().topRight() + QPoint(50, 50); }
    void letGo() {
        _inputEvents.send(LetGo);
        settle();
    }
    static std::string highlighted() {
        const QAction* action = openMenu().activeAction();
        return action ? action->text().toStdString() : "";
    }
    bool hasChosen() const {
        return std::ranges::any_of(_log, [](const std::string& line) { return line.starts_with("action"); });
    }
};

TEST_F(HeldButtonTest, HighlightsTheItemBelowThePointer) {
    moveTo(centerOf("One"));
    EXPECT_EQ(highlighted(), "One");
    moveTo(centerOf("Two"));
    EXPECT_EQ(highlighted(), "Two");
}

TEST_F(HeldButtonTest, ChoosesTheItemOnWhichItIsLetGo) {
    moveTo(centerOf("One"));
    moveTo(centerOf("Two"));
    letGo();
    EXPECT_THAT(_log, Contains("action act Two"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

// The last movement and the release may come together.
TEST_F(HeldButtonTest, ChoosesWhereThePointerIsWhenItIsLetGo) {
    moveTo(centerOf("One"));
    place(centerOf("Two"));
    letGo();
    EXPECT_THAT(_log, Contains("action act Two"));
}

// The toolkit remembers where it last saw the pointer, however long ago.
TEST_F(HeldButtonTest, ChoosesWhereTheToolkitHasSeenThePointerLast) {
    const QPoint two = centerOf("Two");
    QWidget window;
    window.setGeometry(0, 0, 800, 800);
    window.show();
    QTest::mouseMove(&window, window.mapFromGlobal(two));
    popUp({100, 700});
    settle();
    moveTo(two);
    letGo();
    EXPECT_THAT(_log, Contains("action act Two"));
}

TEST_F(HeldButtonTest, GoesIntoASubmenuAndChoosesThere) {
    moveTo(centerOf("More"));
    ASSERT_TRUE(waitUntil([] { return openMenus().size() == 2; }));
    moveTo(centerOf("Inside"));
    letGo();
    EXPECT_THAT(_log, Contains("action act Inside"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(HeldButtonTest, ComesBackFromASubmenu) {
    const QPoint one = centerOf("One");
    moveTo(centerOf("More"));
    ASSERT_TRUE(waitUntil([] { return openMenus().size() == 2; }));
    moveTo(centerOf("Inside"));
    moveTo(one);
    letGo();
    EXPECT_THAT(_log, Contains("action act One"));
}

TEST_F(HeldButtonTest, LeavesTheMenuOpenWhenItIsLetGoWhereItHasOpenedIt) {
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
    click(openMenu(), "Two");
    settle();
    EXPECT_THAT(_log, Contains("action act Two"));
}

TEST_F(HeldButtonTest, TakesTheTrembleOfAHandForNoMovement) {
    const QPoint start(100, 100);
    const std::string before = highlighted();
    for (const QPoint& step : {QPoint(1, 1), QPoint(2, 3), QPoint(4, 4), QPoint(3, 5), QPoint(2, 2), QPoint(5, 5),
             QPoint(3, 3), QPoint(4, 5)})
        moveTo(start + step);
    EXPECT_EQ(highlighted(), before);
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, LeavesTheMenuOpenWhenItComesBackToWhereItHasOpenedIt) {
    moveTo(centerOf("Two"));
    moveTo({100, 100});
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, LeavesTheMenuOpenOnAnItemThatLeadsFurther) {
    moveTo(centerOf("More"));
    letGo();
    EXPECT_FALSE(hasChosen());
    EXPECT_TRUE(waitUntil([] { return openMenus().size() == 2; }));
}

TEST_F(HeldButtonTest, ClosesTheMenuWhenItIsLetGoBesideItAfterALookInto) {
    moveTo(centerOf("Two"));
    moveTo(besideTheMenu());
    EXPECT_EQ(highlighted(), "");
    letGo();
    EXPECT_THAT(openMenus(), IsEmpty());
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, LeavesAMenuOpenThatThePointerHasNeverBeenIn) {
    moveTo(besideTheMenu());
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
}

// It was let go while the menu was still opening, and the hand has moved on since.
TEST_F(HeldButtonTest, ChoosesNothingWhenNoMovementWasSeen) {
    place(centerOf("One"));
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, IsFollowedUntilItIsLetGoAndNoLonger) {
    EXPECT_EQ(_inputEvents.tapCount(), 1U);
    letGo();
    EXPECT_EQ(_inputEvents.tapCount(), 0U);
    moveTo(centerOf("Two"));
    EXPECT_EQ(highlighted(), "");
}

// The menus hear themselves of a button that is pressed while they are open.
TEST_F(HeldButtonTest, IsNoneThatIsPressedLater) {
    _inputEvents.sendToUs(OtherPress);
    EXPECT_EQ(_inputEvents.tapCount(), 0U);
    EXPECT_FALSE(letsPressesThrough());
    moveTo(centerOf("Two"));
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, IsForgottenWhenTheMenuCloses) {
    press(Qt::Key_Escape);
    settle();
    EXPECT_EQ(_inputEvents.tapCount(), 0U);
}

TEST_F(HeldButtonTest, ChoosesNothingInAMenuThatHasClosed) {
    moveTo(centerOf("Two"));
    const QPoint two = centerOf("Two");
    _view->closeMenus();
    place(two);
    _inputEvents.send(LetGo);
    settle();
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, BelongsToTheNewestPopUp) {
    popUp({300, 600});
    settle();
    EXPECT_EQ(_inputEvents.tapCount(), 1U);
    moveTo(centerOf("Two"));
    letGo();
    EXPECT_THAT(_log, Contains("action act Two"));
}

// A window manager lets a press that it has held up go on when the menu is there already.
TEST_F(HeldButtonTest, LetsThePressThroughToTheApplicationUntilItIsLetGo) {
    EXPECT_TRUE(letsPressesThrough());
    moveTo(centerOf("Two"));
    EXPECT_TRUE(letsPressesThrough());
    moveTo({100, 100});
    letGo();
    EXPECT_FALSE(letsPressesThrough());
}

TEST_F(HeldButtonTest, IsNotWaitedForWhereNoneIsHeld) {
    letGo();
    popUp({300, 600});
    EXPECT_FALSE(letsPressesThrough());
    EXPECT_EQ(_inputEvents.tapCount(), 0U);
}

// Over the desktop itself nobody takes the press, so that the menus hear of the release too.
TEST_F(HeldButtonTest, LeavesTheMenuOpenThatHearsOfTheReleaseItself) {
    QMenu& menu = openMenu();
    for (int step = 0; step < 10; ++step) {
        const QPoint point(step % 5, 4);
        QMouseEvent move(QEvent::MouseMove, point, menu.mapToGlobal(point), Qt::NoButton, Qt::MiddleButton, {});
        QApplication::sendEvent(&menu, &move);
    }
    tell(menu, QEvent::MouseButtonRelease, {4, 4});
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

// The pop-up before this one had the pointer, and the toolkit tells of the press when the new one is open already.
TEST_F(HeldButtonTest, LeavesTheMenuOpenThatHearsOfThePressItself) {
    QMenu& menu = openMenu();
    tell(menu, QEvent::MouseButtonPress, {0, 0});
    tell(menu, QEvent::MouseButtonRelease, {0, 0});
    letGo();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_FALSE(hasChosen());
}

TEST_F(HeldButtonTest, ClosesTheMenuWhenItIsPressedBesideIt) {
    QMenu& menu = openMenu();
    tell(menu, QEvent::MouseButtonPress, menu.rect().bottomRight() + QPoint(50, 50));
    settle();
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(HeldButtonTest, DoesWithoutInputEvents) {
    _inputEvents.setRefuses(true);
    popUp({300, 600});
    settle();
    EXPECT_EQ(openMenus().size(), 1U);
    click(openMenu(), "Two");
    settle();
    EXPECT_THAT(_log, Contains("action act Two"));
}

} // namespace

} // namespace tarragon
