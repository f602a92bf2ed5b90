#include "OtherClient.h"
#include "WiredInput.h"

#include "menus/PopUpInput.h"

#include <memory>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr std::uint32_t KeyDown = 0xFF54;
constexpr std::uint32_t KeyReturn = 0xFF0D;
constexpr std::uint32_t KeyEscape = 0xFF1B;

// A plain window of ours beside the window of another program, which has the focus.
class PopUpInputOnX11 : public testing::Test {
protected:
    PopUpInputOnX11() {
        auto* layout = new QVBoxLayout(&_window);
        layout->addWidget(_comboBox);
        layout->addWidget(_lineEdit);
        _comboBox->addItems({"One", "Two", "Three"});
        _window.setGeometry(400, 300, 200, 120);
        _window.show();
        EXPECT_TRUE(waitUntil([this] { return _user.isMapped(static_cast<xcb_window_t>(_window.winId())); }));
    }

    ~PopUpInputOnX11() override {
        while (QWidget* popup = popUp())
            popup->close();
        waitUntil([] { return !isOpen(); });
    }

    static QWidget* popUp() { return QApplication::activePopupWidget(); }
    static bool isOpen() { return popUp() != nullptr; }

    bool hasKeyboardAndPointer() {
        const bool hasBoth = !_user.grabKeyboard() && !_user.grabPointer();
        if (!hasBoth)
            _user.releaseGrabs();
        return hasBoth;
    }
    bool waitUntilItHasTheInput() {
        return waitUntil([this] { return isOpen() && hasKeyboardAndPointer(); });
    }
    void openContextMenu() {
        const QPoint position = _lineEdit->mapToGlobal(_lineEdit->rect().center());
        _user.movePointer(position.x(), position.y());
        _user.click(3);
    }
    void clickIntoTheOtherProgram() {
        _user.movePointer(50, 50);
        _user.click();
    }

    OtherClient _user;
    WiredInput _input;
    std::unique_ptr<PopUpInput> _popUpInput = std::make_unique<PopUpInput>(_input.menuInput);
    QWidget _window;
    QComboBox* _comboBox = new QComboBox;
    QLineEdit* _lineEdit = new QLineEdit("text");
};

TEST_F(PopUpInputOnX11, ClosesTheListOfAComboBoxOnAClickIntoAnotherProgram) {
    _comboBox->showPopup();
    ASSERT_TRUE(waitUntilItHasTheInput());
    clickIntoTheOtherProgram();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
    EXPECT_EQ(_comboBox->currentIndex(), 0);
}

TEST_F(PopUpInputOnX11, GivesTheListOfAComboBoxTheKeys) {
    _comboBox->showPopup();
    ASSERT_TRUE(waitUntilItHasTheInput());
    _user.type(KeyDown);
    _user.type(KeyReturn);
    EXPECT_TRUE(waitUntil([this] { return !isOpen() && _comboBox->currentIndex() == 1; }));
    EXPECT_EQ(_user.told().keyPresses, 0);
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
    _user.type(KeyDown);
    EXPECT_EQ(_user.told().keyPresses, 1);
}

TEST_F(PopUpInputOnX11, ClosesAContextMenuOnAClickIntoAnotherProgram) {
    openContextMenu();
    ASSERT_TRUE(waitUntilItHasTheInput());
    clickIntoTheOtherProgram();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

TEST_F(PopUpInputOnX11, GivesAContextMenuTheKeys) {
    openContextMenu();
    ASSERT_TRUE(waitUntilItHasTheInput());
    _user.type(KeyDown);
    EXPECT_TRUE(waitUntil([] {
        const auto* menu = qobject_cast<QMenu*>(popUp());
        return menu && menu->activeAction();
    }));
    _user.type(KeyEscape);
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
    EXPECT_EQ(_user.told().keyPresses, 0);
}

TEST_F(PopUpInputOnX11, KeepsTheInputWhileASubmenuOpensAndCloses) {
    QMenu menu;
    menu.addMenu("More")->addAction("Inside");
    menu.popup({400, 500});
    ASSERT_TRUE(waitUntilItHasTheInput());
    _user.type(KeyDown);
    _user.type(KeyReturn);
    ASSERT_TRUE(waitUntil([&] { return isOpen() && popUp() != &menu; }));
    _user.type(KeyEscape);
    ASSERT_TRUE(waitUntil([&] { return popUp() == &menu; }));
    EXPECT_TRUE(hasKeyboardAndPointer());
    clickIntoTheOtherProgram();
    EXPECT_TRUE(waitUntil([] { return !isOpen(); }));
}

TEST_F(PopUpInputOnX11, TakesNothingForAToolTip) {
    QToolTip::showText({450, 350}, "tip");
    ASSERT_TRUE(waitUntil([] { return QToolTip::isVisible(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(_user.grabsAreFree());
    QToolTip::hideText();
}

TEST_F(PopUpInputOnX11, GivesEverythingBackWhenItGoes) {
    _comboBox->showPopup();
    ASSERT_TRUE(waitUntilItHasTheInput());
    _popUpInput.reset();
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

} // namespace

} // namespace tarragon
