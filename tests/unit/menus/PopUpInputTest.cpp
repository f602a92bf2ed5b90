#include "menus/PopUpInput.h"

#include "MenuViewFixture.h"

#include <memory>

#include <QApplication>
#include <QComboBox>
#include <QMenu>

namespace tarragon {

namespace {

class PopUpInputTest : public MenuViewFixture {
protected:
    PopUpInputTest() { _menu.addAction("Copy"); }
    ~PopUpInputTest() override {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }

    bool hasInput(const QWidget& popup) const { return _menuInput.window() == popup.winId(); }

    std::unique_ptr<PopUpInput> _popUpInput = std::make_unique<PopUpInput>(_menuInput);
    QMenu _menu;
};

TEST_F(PopUpInputTest, GivesAContextMenuTheInputUntilItCloses) {
    _menu.popup({100, 100});
    settle();
    EXPECT_TRUE(hasInput(_menu));
    _menu.close();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(PopUpInputTest, GivesTheListOfAComboBoxTheInputUntilItCloses) {
    QComboBox comboBox;
    comboBox.addItems({"One", "Two"});
    comboBox.show();
    comboBox.showPopup();
    settle();
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_TRUE(hasInput(*QApplication::activePopupWidget()));
    comboBox.hidePopup();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(PopUpInputTest, LeavesTheInputWithTheOutermostPopUp) {
    QMenu* submenu = _menu.addMenu("More");
    submenu->addAction("Inside");
    _menu.popup({100, 100});
    settle();
    submenu->popup({200, 100});
    settle();
    EXPECT_TRUE(hasInput(_menu));
    submenu->close();
    settle();
    EXPECT_TRUE(hasInput(_menu));
}

TEST_F(PopUpInputTest, GivesTheInputBackWhenAnOpenPopUpIsDestroyed) {
    auto menu = std::make_unique<QMenu>();
    menu->addAction("Copy");
    menu->popup({100, 100});
    settle();
    EXPECT_TRUE(hasInput(*menu));
    menu.reset();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(PopUpInputTest, TakesNothingForAPopUpThatClosesAtOnce) {
    _menu.popup({100, 100});
    _menu.close();
    settle();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(PopUpInputTest, TakesNothingForOrdinaryWindowsAndToolTips) {
    QWidget window;
    window.show();
    QWidget tip(nullptr, Qt::ToolTip);
    tip.show();
    settle();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(PopUpInputTest, LeavesMirroredMenusToTheirView) {
    addItem(*_root, "One");
    _menuInput.setRefused(true);
    popUp();
    settle();
    EXPECT_EQ(_menuInput.refusals(), 1);
}

TEST_F(PopUpInputTest, GivesEverythingBackWhenItGoes) {
    _menu.popup({100, 100});
    settle();
    _popUpInput.reset();
    EXPECT_EQ(_menuInput.window(), 0U);
}

} // namespace

} // namespace tarragon
