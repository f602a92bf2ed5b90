#include "PreferencesWindowFixture.h"
#include "TextRoom.h"
#include "unit/EventCounter.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolBar>

#include <set>
#include <utility>

namespace tarragon {
namespace {

class PreferencesLegibilityTest : public PreferencesWindowTest {
protected:
    PreferencesLegibilityTest()
        : _font(QApplication::font()) { }
    ~PreferencesLegibilityTest() override {
        QApplication::setFont(_font);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void setFontSize(int points) {
        QFont font = _font;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    void showEverything() {
        webPages = {"https://p", "https://s", "https://t", "https://f"};
        controller().displayWindow();
        window().setHotKeyRefusal(HotKeyRefusal{"Ctrl+Alt+Shift+Space", "Ctrl+Alt+Super+Space"});
        window().setBorderNotice(BorderNotice::AccessIsMissing);
        window().setHideHotKeyWarning(false);
        window().setHideButtonWarning(false);
    }
    void settle() {
        // A layout that has changed has the one around it change in turn.
        constexpr int Depth = 8;
        for (int level = 0; level < Depth; ++level)
            handleEvents();
    }
    void showPane(std::size_t which) {
        selectPane(static_cast<PreferencePane>(which));
        settle();
    }
    QWidget& pane() { return *control<QStackedWidget>("contentView").currentWidget(); }

private:
    QFont _font;
};

TEST_F(PreferencesLegibilityTest, ClipsNoTextInAnyPaneAtAnySize) {
    showEverything();
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        for (const int points : {9, 12, 24}) {
            setFontSize(points);
            for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
                SCOPED_TRACE(testing::Message() << "pane " << each << " at " << points << " points");
                showPane(each);
                expectAllTextsFit(pane());
            }
        }
    }
}

TEST_F(PreferencesLegibilityTest, ScrollsNothingThatTheScreenHasRoomFor) {
    hideSettingsWithoutEffect();
    setFontSize(9);
    showEverything();
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        showPane(each);
        const auto* area = pane().findChild<QScrollArea*>();
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << each;
        EXPECT_LE(area->widget()->height(), area->viewport()->height()) << each;
    }
}

TEST_F(PreferencesLegibilityTest, RestsOnceItHasItsSize) {
    showEverything();
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        showPane(each);
        const EventCounter requests(*qApp, QEvent::LayoutRequest);
        settle();
        EXPECT_EQ(requests.count, 0) << each;
    }
}

TEST_F(PreferencesLegibilityTest, KeepsTheHeightThatTheUserGivesIt) {
    showEverything();
    selectPane(PreferencePane::Help);
    settle();
    window().resize(window().width(), 300);
    settle();
    EXPECT_EQ(window().height(), 300);
}

TEST_F(PreferencesLegibilityTest, ScrollsWhatDoesNotFitAnyMore) {
    showEverything();
    selectPane(PreferencePane::WindowTop);
    settle();
    window().resize(window().width(), 300);
    settle();
    const auto* area = pane().findChild<QScrollArea*>();
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
}

// What a screen of a fractional scale takes away.
TEST_F(PreferencesLegibilityTest, ScrollsNothingForTheSakeOfOnePoint) {
    hideSettingsWithoutEffect();
    setFontSize(9);
    showEverything();
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        showPane(each);
        const QSize wanted = window().size();
        const auto* bar = pane().findChild<QScrollArea*>()->verticalScrollBar();
        window().resize(wanted - QSize(0, 1));
        settle();
        EXPECT_FALSE(bar->isVisible()) << each;
        window().resize(wanted - QSize(0, 2));
        settle();
        EXPECT_TRUE(bar->isVisible()) << each;
    }
}

TEST_F(PreferencesLegibilityTest, ScrollsByTheKeyboardFromTheToolbar) {
    showEverything();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    selectPane(PreferencePane::Help);
    settle();
    window().resize(window().width(), 300);
    settle();
    auto* bar = pane().findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    auto* toolbar = window().findChild<QToolBar*>();
    toolbar->widgetForAction(toolbar->actions().constLast())->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_EQ(bar->value(), std::min(bar->pageStep(), bar->maximum()));
    EXPECT_GT(bar->value(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(PreferencesLegibilityTest, BeginsWordsOnTheSideOfTheirControls) {
    showEverything();
    for (const auto& [direction, side] :
        {std::pair(Qt::RightToLeft, Qt::AlignRight), std::pair(Qt::LeftToRight, Qt::AlignLeft)}) {
        QApplication::setLayoutDirection(direction);
        settle();
        for (const auto* label : window().findChildren<QLabel*>())
            EXPECT_TRUE(label->alignment().testFlags(side | Qt::AlignAbsolute)) << label->text().toStdString();
    }
}

TEST_F(PreferencesLegibilityTest, NamesEveryControlForAScreenReader) {
    showEverything();
    int controls = 0;
    for (const QWidget* widget : window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->isHidden() || widget->inherits("QLineEdit")
            || widget->objectName() == "qt_toolbar_ext_button")
            continue;
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        ASSERT_NE(interface, nullptr);
        EXPECT_NE(interface->text(QAccessible::Name), "")
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
        ++controls;
    }
    EXPECT_GT(controls, 40);
}

TEST_F(PreferencesLegibilityTest, ReachesEveryControlOfAPaneByTabAlone) {
    showEverything();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    for (std::size_t each = 0; each < PreferencePaneCount; ++each) {
        showPane(each);
        std::set<const QWidget*> wanted;
        for (const QWidget* widget : window().findChildren<QWidget*>()) {
            const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
            const auto* radio = qobject_cast<const QAbstractButton*>(widget);
            // Of buttons of which one is chosen, the arrow keys lead to the others.
            const bool isOther = radio != nullptr && radio->autoExclusive() && !radio->isChecked();
            if (takesTab && !isOther && widget->isVisible() && widget->isEnabled() && widget->focusProxy() == nullptr)
                wanted.insert(widget);
        }
        constexpr int Most = 80;
        for (int key = 0; key < Most && !wanted.empty(); ++key) {
            wanted.erase(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        for (const QWidget* missed : wanted)
            ADD_FAILURE() << "pane " << each << ": " << missed->metaObject()->className() << " "
                          << missed->objectName().toStdString();
    }
}

TEST_F(PreferencesLegibilityTest, TellsTheHelpOfAControlAfterItsName) {
    EXPECT_EQ(control("launchCheckBox").accessibleDescription(), "Tarragon starts when you log in.");
    EXPECT_EQ(control("buttonStyle").accessibleDescription(), "How titles and button are drawn.");
}

} // namespace
} // namespace tarragon
