#include "MenuViewOnX11.h"

#include <array>

#include <QAbstractNativeEventFilter>
#include <QMouseEvent>

namespace tarragon {

namespace {

// A bar of two titles that never takes the focus, as wide as it has to be. The press of a title opens its menu, or
// closes it when it is still open.
class TitleBar : public QWidget, public MenuOpener {
public:
    explicit TitleBar(MenuView& view)
        : QWidget(
            nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus)
        , _view(view) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setGeometry(400, 100, 200, 20);
    }

    void open(std::size_t title) {
        const QPoint corner = mapToGlobal(QPoint(static_cast<int>(title) * 100, height()));
        openTitle = title;
        const double screenHeight = screen()->geometry().height();
        _view.popUpMenu(menus[title], {double(corner.x()), screenHeight - corner.y()}, self);
    }

    void mousePressEvent(QMouseEvent* event) override {
        ++presses;
        open(event->position().x() < 100 ? 0 : 1);
    }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }

    void menuHasClosed() override { ++closed; }
    void moveToNeighbour(MenuNeighbour neighbour) override {
        moves.push_back(neighbour);
        open(1 - openTitle);
    }

    std::array<std::shared_ptr<Menu>, 2> menus;
    std::weak_ptr<MenuOpener> self;
    std::size_t openTitle = 0;
    std::vector<MenuNeighbour> moves;
    int presses = 0;
    int releases = 0;
    int closed = 0;

private:
    MenuView& _view;
};

// The number of the last message to a window of ours that has been handled.
class MessageFilter : public QAbstractNativeEventFilter {
public:
    MessageFilter() { qApp->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_client_message_event_t*>(message);
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE || event->type != XCB_ATOM_INTEGER)
            return false;
        last = event->data.data32[0];
        return true;
    }
    std::uint32_t last = 0;
};

class MenuOpenerOnX11 : public MenuViewOnX11 {
protected:
    MenuOpenerOnX11() {
        addItem(*_second, "Copy");
        _bar->menus = {_root, _second};
        _bar->self = _bar;
        _bar->show();
        waitUntil([this] { return _user.isMapped(static_cast<xcb_window_t>(_bar->winId())); });
        _user.told();
    }

    ~MenuOpenerOnX11() override {
        _view.closeMenus();
        waitUntil([] { return !isOpen(); });
    }

    void moveOverTitle(int title) {
        _user.movePointer(450 + title * 100, 108);
        _user.movePointer(450 + title * 100, 110);
    }

    // Everything that the user has done has been handled.
    void settle() {
        _user.sendMessage(static_cast<xcb_window_t>(_bar->winId()), ++_messages);
        ASSERT_TRUE(waitUntil([this] { return _filter.last == _messages; }));
    }

    static std::size_t menuWindows() {
        std::size_t count = 0;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            count += qobject_cast<const QMenu*>(widget) != nullptr;
        return count;
    }

    std::shared_ptr<Menu> _second = std::make_shared<Menu>("Edit");
    std::shared_ptr<TitleBar> _bar = std::make_shared<TitleBar>(_view);
    MessageFilter _filter;
    std::uint32_t _messages = 0;
};

TEST_F(MenuOpenerOnX11, ChoosesWhereTheButtonPressedOnATitleIsReleased) {
    moveOverTitle(0);
    _user.press(1);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    moveOver("Quit");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    _user.release(1);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Quit");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(_bar->closed, 1);
    EXPECT_TRUE(_user.hasFocus());
}

TEST_F(MenuOpenerOnX11, ChoosesFromASubmenuWhereTheButtonPressedOnATitleIsReleased) {
    moveOverTitle(0);
    _user.press(1);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    moveOver("File");
    ASSERT_TRUE(waitUntil([] { return isOpen() && openMenu()->parentWidget(); }));
    moveOver("Save");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Save"); }));
    _user.release(1);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Save");
}

TEST_F(MenuOpenerOnX11, StaysOpenAfterAClickAndIsChosenFromByAnother) {
    moveOverTitle(0);
    _user.click();
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    settle();
    EXPECT_TRUE(isOpen());
    moveOver("Quit");
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Quit");
}

TEST_F(MenuOpenerOnX11, StaysOpenWhenTheButtonIsReleasedOnTheTitleAfterALookIntoTheMenu) {
    moveOverTitle(0);
    _user.press(1);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    moveOver("Quit");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    _user.movePointer(480, 110); // not where it was pressed
    _user.release(1);
    settle();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(_target->chosen, "");
}

TEST_F(MenuOpenerOnX11, ClosesWhenTheButtonIsReleasedBesideEverythingAfterALookIntoTheMenu) {
    moveOverTitle(0);
    _user.press(1);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    moveOver("Quit");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    _user.movePointer(900, 700);
    _user.release(1);
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_EQ(_target->chosen, "");
}

// The second press comes so soon that the toolkit takes it for a double click, or so far away that it does not.
TEST_F(MenuOpenerOnX11, IsClosedByASecondPressOnItsTitleForGood) {
    for (const int distance : {0, 30}) {
        _bar->presses = 0;
        _bar->closed = 0;
        moveOverTitle(1 - distance / 30);
        _user.click();
        ASSERT_TRUE(waitUntil([] { return isOpen(); }));
        const QPoint pointer = QCursor::pos();
        _user.movePointer(pointer.x() + distance, pointer.y());
        _user.press(1);
        EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
        settle();
        _user.release(1);
        settle();
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(_bar->presses, 1);
        EXPECT_EQ(_bar->releases, 0);
        EXPECT_EQ(_bar->closed, 1);
        EXPECT_TRUE(_user.hasFocus());
    }
    // The next press is one of its own again.
    _user.click();
    EXPECT_TRUE(waitUntil([] { return isOpen(); }));
    EXPECT_EQ(_bar->presses, 2);
}

TEST_F(MenuOpenerOnX11, IsClosedByAPressBesideItThatNobodyElseGets) {
    moveOverTitle(0);
    _user.click();
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    _user.movePointer(50, 50); // in the other program's window
    _user.told();
    _user.click();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    const OtherClient::Told told = _user.told();
    EXPECT_EQ(told.buttonPresses, 0);
    EXPECT_TRUE(told.believesToHaveFocus);
    // Its release went elsewhere, and nothing of ours waits for it.
    moveOverTitle(0);
    _user.click();
    EXPECT_TRUE(waitUntil([] { return isOpen(); }));
}

TEST_F(MenuOpenerOnX11, IsLeftForItsNeighbourByTheArrowKeys) {
    moveOverTitle(0);
    _user.click();
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    _user.type(keysym::Right);
    ASSERT_TRUE(waitUntil([this] { return _bar->moves.size() == 1; }));
    _user.type(keysym::Down);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Copy"); }));
    _user.type(keysym::Left);
    ASSERT_TRUE(waitUntil([this] { return _bar->moves.size() == 2; }));
    _user.type(keysym::Down);
    _user.type(keysym::Right); // into the submenu
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Save"); }));
    _user.type(keysym::Right);
    ASSERT_TRUE(waitUntil([this] { return _bar->moves.size() == 3; }));
    EXPECT_EQ(_bar->moves, (std::vector{MenuNeighbour::Right, MenuNeighbour::Left, MenuNeighbour::Right}));
    _user.type(keysym::Escape);
    ASSERT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_EQ(_bar->closed, 4);
    EXPECT_EQ(_user.told().keyPresses, 0);
}

TEST_F(MenuOpenerOnX11, IsSwitchedWithTheButtonHeld) {
    moveOverTitle(0);
    _user.press(1);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    moveOver("Quit");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    moveOverTitle(1);
    settle();
    _bar->open(1);
    settle();
    ASSERT_TRUE(isOpen());
    moveOver("Copy");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Copy"); }));
    _user.release(1);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Copy");
}

TEST_F(MenuOpenerOnX11, IsSwitchedTwoHundredTimesWithoutAKeyOrTheFocusGettingLost) {
    moveOverTitle(0);
    _user.click();
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    _user.told();
    const std::size_t windows = menuWindows();
    int keys = 0;
    int losses = 0;
    for (int count = 1; count <= 200; ++count) {
        // The second key is pressed before the first is handled: the menu that it opens is to get it.
        _user.type(keysym::Right);
        _user.type(keysym::Down);
        ASSERT_TRUE(waitUntil([this, count] { return _bar->moves.size() == std::size_t(count) && isOpen(); }));
        ASSERT_TRUE(waitUntil([count] { return isHighlighted(count % 2 == 1 ? "Copy" : "File"); })) << count;
        if (count % 2 == 0)
            openMenu()->setActiveAction(nullptr);
        const OtherClient::Told told = _user.told();
        keys += told.keyPresses;
        losses += told.focusLosses;
        EXPECT_TRUE(told.believesToHaveFocus);
        EXPECT_FALSE(_user.grabsAreFree());
    }
    EXPECT_EQ(keys, 0);
    EXPECT_EQ(losses, 0);
    EXPECT_TRUE(_user.hasFocus());
    EXPECT_EQ(_bar->closed, 200);
    EXPECT_TRUE(waitUntil([&] { return menuWindows() == windows; }));
    _user.type(keysym::Escape);
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

} // namespace

} // namespace tarragon
