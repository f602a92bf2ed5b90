#include "MenuViewOnX11.h"

namespace tarragon {

namespace {

TEST_F(MenuViewOnX11, OpensAtThePointer) {
    popUp();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(openMenu()->pos(), QPoint(100, 100));
    EXPECT_TRUE(_user.isMapped(static_cast<xcb_window_t>(openMenu()->winId())));
}

TEST_F(MenuViewOnX11, IsUsedByKeyboardWhileTheOtherProgramKeepsTheFocus) {
    popUp();
    _user.type(keysym::Down);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("File"); }));
    _user.type(keysym::Right);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Save"); }));
    EXPECT_TRUE(_user.hasFocus());
    EXPECT_TRUE(_user.told().believesToHaveFocus);
    _user.type(keysym::Return);
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
    _user.type(keysym::Escape);
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
        _user.type(keysym::Escape);
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
        _user.type(keysym::Shift);
        return _user.told().keyPresses == 0;
    }));
    EXPECT_TRUE(_user.hasFocus());
    _user.type(keysym::Down);
    _user.type(keysym::Down);
    ASSERT_TRUE(waitUntil([] { return isHighlighted("Quit"); }));
    _user.type(keysym::Return);
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
