#include "MenuViewFixture.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class MenuViewInputTest : public MenuViewFixture {
protected:
    std::string highlighted() {
        const QAction* action = openMenu().activeAction();
        return action ? action->text().toStdString() : "";
    }

    // Presses or releases a modifier key, as the window system tells of it: without the key itself in the state.
    void modifierKey(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers stateBefore) {
        QKeyEvent event(type, key, stateBefore);
        QApplication::sendEvent(&openMenu(), &event);
    }

    // Presses another key while modifiers are held.
    void pressWith(Qt::KeyboardModifiers held, Qt::Key key, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(&openMenu(), &event);
    }

    void addAlternate(const std::string& title, std::uint32_t mask) {
        const auto item = addItem(*_root, title);
        item->setAlternate(true);
        item->setKeyEquivalentModifierMask(mask);
    }
};

TEST_F(MenuViewInputTest, ChoosesByMouse) {
    addItem(*_root, "One");
    addItem(*_root, "Two");
    popUp();
    click(openMenu(), "Two");
    settle();
    EXPECT_THAT(_log, Contains("action act Two"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuViewInputTest, OpensASubmenuWhileThePointerIsOverIt) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    QMenu& root = openMenu();
    const QPoint position = root.actionGeometry(root.actions().front()).center();
    QTest::mouseMove(&root, position - QPoint(3, 3));
    QTest::mouseMove(&root, position);
    ASSERT_TRUE(waitUntil([] { return openMenus().size() == 2; }));
    click(openMenu(), "Save");
    settle();
    EXPECT_THAT(_log, Contains("action act Save"));
}

TEST_F(MenuViewInputTest, ChoosesWhereThePressedButtonIsReleased) {
    addItem(*_root, "One");
    addItem(*_root, "Two");
    popUp();
    QMenu& root = openMenu();
    const QPoint first = root.actionGeometry(root.actions().front()).center();
    const QPoint second = root.actionGeometry(root.actions().back()).center();
    QTest::mouseMove(&root, first - QPoint(2, 2));
    QTest::mousePress(&root, Qt::LeftButton, {}, first);
    QMouseEvent drag(
        QEvent::MouseMove, second, root.mapToGlobal(second), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&root, &drag);
    QTest::mouseRelease(&root, Qt::LeftButton, {}, second);
    settle();
    EXPECT_THAT(_log, Contains("action act Two"));
}

TEST_F(MenuViewInputTest, ChoosesNoDisabledItem) {
    addItem(*_root, "Off")->setEnabled(false);
    popUp();
    click(openMenu(), "Off");
    settle();
    EXPECT_THAT(_log, Not(Contains("action act Off")));
}

TEST_F(MenuViewInputTest, ClosesEverythingOnAClickBesideIt) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QTest::mouseClick(&openMenu(), Qt::LeftButton, {}, QPoint(-90, 500));
    settle();
    EXPECT_THAT(openMenus(), IsEmpty());
    EXPECT_EQ(_log.back(), "did close root");
}

TEST_F(MenuViewInputTest, ClosesOneLevelOnEscape) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    EXPECT_EQ(openMenus().size(), 1U);
    press(Qt::Key_Escape);
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuViewInputTest, HighlightsWhatBeginsWithATypedLetter) {
    for (const char* title : {"Copy", "Paste", "Print", "Quit"})
        addItem(*_root, title);
    popUp();
    press(Qt::Key_P);
    EXPECT_EQ(highlighted(), "Paste");
    press(Qt::Key_P);
    EXPECT_EQ(highlighted(), "Print");
    press(Qt::Key_X);
    EXPECT_EQ(highlighted(), "Print");
    EXPECT_EQ(openMenus().size(), 1U);
}

TEST_F(MenuViewInputTest, TakesNoAmpersandForAMnemonic) {
    addItem(*_root, "Save &Quickly");
    addItem(*_root, "&Zoom");
    popUp();
    press(Qt::Key_Q);
    pressWith(Qt::AltModifier, Qt::Key_Q, "q");
    pressWith(Qt::AltModifier, Qt::Key_Z, "z");
    settle();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_EQ(highlighted(), "");
}

TEST_F(MenuViewInputTest, SkipsDisabledItemsForATypedLetter) {
    addItem(*_root, "Paste")->setEnabled(false);
    addItem(*_root, "Print");
    popUp();
    press(Qt::Key_P);
    EXPECT_EQ(highlighted(), "Print");
}

TEST_F(MenuViewInputTest, ChoosesNothingByAKeyThatIsHeldSinceBeforeItOpened) {
    addItem(*_root, "One");
    popUp();
    press(Qt::Key_Down);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Space ? " " : "\r", true);
        QApplication::sendEvent(&openMenu(), &repeated);
    }
    pressWith(Qt::ControlModifier | Qt::AltModifier, Qt::Key_Space, " ");
    settle();
    EXPECT_EQ(openMenus().size(), 1U);
    press(Qt::Key_Space);
    settle();
    EXPECT_THAT(_log, Contains("action act One"));
}

TEST_F(MenuViewInputTest, StaysOpenWhenAModifierIsPressed) {
    addItem(*_root, "One");
    popUp();
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_AltGr}) {
        modifierKey(QEvent::KeyPress, key, Qt::NoModifier);
        EXPECT_EQ(openMenus().size(), 1U);
    }
}

TEST_F(MenuViewInputTest, ShowsAlternatesWhileTheirModifiersAreHeld) {
    addItem(*_root, "Save");
    addAlternate("Save As", modifier::Command | modifier::Shift);
    addAlternate("Save All", modifier::Option);
    addItem(*_root, "Quit");
    popUp();
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save", "Quit"));
    modifierKey(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save", "Quit"));
    modifierKey(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save As", "Quit"));
    EXPECT_EQ(openMenu().size(), openMenu().sizeHint());
    modifierKey(QEvent::KeyRelease, Qt::Key_Shift, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save", "Quit"));
    modifierKey(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    modifierKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save All", "Quit"));
}

TEST_F(MenuViewInputTest, ChoosesTheAlternateThatIsShown) {
    _delegate.recordsHighlights = true;
    addItem(*_root, "Save");
    addAlternate("Save All", modifier::Option);
    popUp();
    press(Qt::Key_Down);
    modifierKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    pressWith(Qt::AltModifier, Qt::Key_Return);
    settle();
    EXPECT_THAT(_log,
        ElementsAre("needs update root", "will open root", "highlight root Save", "highlight root Save All",
            "highlight root nothing", "did close root", "action act Save All",
            "posted NSMenuDidSendActionNotification"));
}

TEST_F(MenuViewInputTest, GivesAnAlternateItsOwnLook) {
    const auto save = addItem(*_root, "Save");
    save->setState(true);
    save->setAttributedTitle(AttributedTitle{.text = "Save", .font = {.pointSize = 0, .bold = true}});
    addAlternate("Save All", modifier::Option);
    popUp();
    const QAction& action = *openMenu().actions().front();
    EXPECT_TRUE(action.font().bold());
    modifierKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    EXPECT_FALSE(action.font().bold());
    EXPECT_FALSE(action.isCheckable());
    modifierKey(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_TRUE(action.font().bold());
    EXPECT_TRUE(action.isChecked());
}

TEST_F(MenuViewInputTest, ExchangesTheSubmenuWithTheAlternate) {
    addItem(*addSubmenu(*_root, "Open"), "File");
    addItem(*addSubmenu(*_root, "Open With"), "Program");
    const auto alternate = _root->itemAtIndex(1);
    alternate->setAlternate(true);
    alternate->setKeyEquivalentModifierMask(modifier::Option);
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("File"));
    modifierKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    pressWith(Qt::AltModifier, Qt::Key_Right);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Program"));
    pressWith(Qt::AltModifier, Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, Contains("action act Program"));
}

TEST_F(MenuViewInputTest, ExchangesThousandsOfAlternatesAtOnce) {
    for (int count = 0; count < 2500; ++count) {
        addItem(*_root, "Item " + std::to_string(count));
        addAlternate("Alternate " + std::to_string(count), modifier::Option);
    }
    popUp();
    modifierKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    EXPECT_EQ(shownTexts(openMenu()).front(), "Alternate 0");
    EXPECT_EQ(shownTexts(openMenu()).back(), "Alternate 2499");
}

} // namespace

} // namespace tarragon
