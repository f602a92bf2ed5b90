#include "OtherClient.h"
#include "WiredInput.h"

#include "menus/MenuView.h"
#include "menus/PopUpInput.h"
#include "platform/qt/QtDisplays.h"

#include <functional>
#include <memory>

#include <QApplication>
#include <QMenu>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr std::uint32_t KeyDown = 0xFF54;
constexpr std::uint32_t KeyRight = 0xFF53;
constexpr std::uint32_t KeyReturn = 0xFF0D;
constexpr std::uint32_t KeyEscape = 0xFF1B;
constexpr std::uint32_t KeyShift = 0xFFE1;

class Target : public MenuTarget {
public:
    void performAction(const std::string&, MenuItem& sender) override {
        chosen = sender.title();
        if (onAction)
            onAction();
    }
    std::string chosen;
    std::function<void()> onAction;
};

// A menu at the pointer, while another program has the focus.
class MenuViewOnX11 : public testing::Test {
protected:
    MenuViewOnX11() {
        const auto file = std::make_shared<MenuItem>("File", "", "");
        const auto submenu = std::make_shared<Menu>("File");
        file->setSubmenu(submenu);
        _root->addItem(file);
        addItem(*submenu, "Save");
        addItem(*_root, "Quit");
        _user.movePointer(100, 100);
    }

    ~MenuViewOnX11() override {
        _view.closeMenus();
        waitUntil([] { return !QApplication::activePopupWidget(); });
        _user.releaseGrabs();
    }

    void addItem(Menu& menu, const std::string& title) {
        const auto item = std::make_shared<MenuItem>(title, "act", "");
        item->setTarget(_target);
        menu.addItem(item);
    }

    void popUp() { _view.popUpMenu(_root, _displays.mouseLocationNS()); }

    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static bool isOpen() { return openMenu() != nullptr; }
    static bool isHighlighted(const QString& title) {
        return isOpen() && openMenu()->activeAction() && openMenu()->activeAction()->text() == title;
    }

    void moveOver(const QString& title) {
        for (QAction* action : openMenu()->actions()) {
            if (action->text() != title)
                continue;
            const QPoint position = openMenu()->mapToGlobal(openMenu()->actionGeometry(action).center());
            _user.movePointer(position.x() - 2, position.y());
            _user.movePointer(position.x(), position.y());
        }
    }

    OtherClient _user;
    WiredInput _input;
    PopUpInput _popUpInput{_input.menuInput};
    QtDisplays _displays{_input.runLoop};
    NotificationCenter _notificationCenter;
    std::shared_ptr<Target> _target = std::make_shared<Target>();
    std::shared_ptr<Menu> _root = std::make_shared<Menu>("root");
    MenuView _view{_displays, _notificationCenter, _input.menuInput};
};

TEST_F(MenuViewOnX11, OpensAtThePointer) {
    popUp();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(openMenu()->pos(), QPoint(100, 100));
    EXPECT_TRUE(_user.isMapped(static_cast<xcb_window_t>(openMenu()->winId())));
}

TEST_F(MenuViewOnX11, IsUsedByKeyboardWhileTheOtherProgramKeepsTheFocus) {
    popUp();
    _user.type(KeyDown);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("File"); }));
    _user.type(KeyRight);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Save"); }));
    EXPECT_TRUE(_user.hasFocus());
    EXPECT_TRUE(_user.told().believesToHaveFocus);
    _user.type(KeyReturn);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Save");
    EXPECT_TRUE(_user.hasFocus());
    const OtherClient::Told told = _user.told();
    EXPECT_TRUE(told.believesToHaveFocus);
    EXPECT_EQ(told.keyPresses, 0);
}

TEST_F(MenuViewOnX11, IsUsedByMouseWhileTheOtherProgramKeepsTheFocus) {
    popUp();
    moveOver("File");
    ASSERT_TRUE(waitUntil([] { return isOpen() && openMenu()->parentWidget(); }));
    moveOver("Save");
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Save"); }));
    EXPECT_TRUE(_user.hasFocus());
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Save");
    EXPECT_TRUE(_user.hasFocus());
}

TEST_F(MenuViewOnX11, ClosesOnEscape) {
    popUp();
    _user.type(KeyEscape);
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

TEST_F(MenuViewOnX11, ClosesOnAClickBesideIt) {
    popUp();
    _user.movePointer(900, 700);
    _user.click();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

TEST_F(MenuViewOnX11, HasLeftTheScreenAndFreedTheInputBeforeTheActionIsSent) {
    popUp();
    const auto window = static_cast<xcb_window_t>(openMenu()->winId());
    bool gone = false;
    bool free = false;
    _target->onAction = [&] {
        gone = !_user.isMapped(window);
        free = _user.grabsAreFree();
    };
    moveOver("Quit");
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_TRUE(gone);
    EXPECT_TRUE(free);
}

TEST_F(MenuViewOnX11, TakesThePointerAsSoonAsTheOtherProgramLetsGo) {
    ASSERT_TRUE(_user.grabPointer());
    popUp();
    EXPECT_TRUE(isOpen());
    _user.releaseGrabs();
    ASSERT_TRUE(waitUntil([this] {
        const bool taken = !_user.grabPointer();
        if (!taken)
            _user.releaseGrabs();
        return taken;
    }));
    _user.movePointer(900, 700);
    _user.click();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
}

TEST_F(MenuViewOnX11, OpensWhileAMouseButtonIsHeldOverTheOtherProgram) {
    _user.press(2);
    popUp();
    EXPECT_TRUE(isOpen());
    _user.release(2);
    ASSERT_TRUE(waitUntil([this] {
        const bool taken = !_user.grabPointer();
        if (!taken)
            _user.releaseGrabs();
        return taken;
    }));
    EXPECT_TRUE(isOpen());
    moveOver("Quit");
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
}

TEST_F(MenuViewOnX11, TakesTheKeyboardAsSoonAsTheOtherProgramLetsGo) {
    ASSERT_TRUE(_user.grabKeyboard());
    popUp();
    _user.releaseGrabs();
    ASSERT_TRUE(waitUntil([this] {
        _user.type(KeyEscape);
        return !isOpen();
    }));
}

TEST_F(MenuViewOnX11, ClosesWhenItDoesNotGetTheKeyboard) {
    ASSERT_TRUE(_user.grabKeyboard());
    popUp();
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(_view.isMenuOpen());
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }, 30000));
    EXPECT_FALSE(_view.isMenuOpen());
}

TEST_F(MenuViewOnX11, GoesOnWhenAWindowGetsTheFocusThatWasNowhere) {
    _user.focusNothing();
    popUp();
    ASSERT_TRUE(isOpen());
    _user.takeFocus();
    _user.told();
    // From then on the keyboard is taken in the name of the window that has the focus: what the menu is told of the
    // keyboard that changes hands must not close it.
    ASSERT_TRUE(waitUntil([this] {
        _user.type(KeyShift);
        return _user.told().keyPresses == 0;
    }));
    EXPECT_TRUE(_user.hasFocus());
    _user.type(KeyDown);
    _user.type(KeyDown);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    _user.type(KeyReturn);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Quit");
}

TEST_F(MenuViewOnX11, IsChosenFromEvenWithoutTheKeyboard) {
    ASSERT_TRUE(_user.grabKeyboard());
    popUp();
    moveOver("Quit");
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Quit");
}

} // namespace

} // namespace tarragon
