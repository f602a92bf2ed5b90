#include "PreferencesWindowFixture.h"
#include "unit/EventCounter.h"

#include <QAbstractAnimation>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVariantAnimation>
#include <QWindow>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

// A style in which what moves takes as many milliseconds.
class LivelyStyle : public QProxyStyle {
public:
    explicit LivelyStyle(int duration)
        : _duration(duration) { }
    int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returned) const override {
        return hint == SH_Widget_Animation_Duration ? _duration
                                                    : QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    const int _duration;
};

class PreferencesWindowBehaviourTest : public PreferencesWindowTest {
protected:
    static void settle() {
        for (int level = 0; level < 8; ++level)
            handleEvents();
    }
    static std::string manyWords(int count) {
        std::string words = "Alt";
        for (int word = 1; word < count; ++word)
            words += " Alt";
        return words;
    }
    Qt::ScrollBarPolicy scrolling(const char* pane) {
        return control(pane).findChild<QScrollArea*>()->verticalScrollBarPolicy();
    }
};

TEST_F(PreferencesWindowBehaviourTest, StoresTheCombinationThatIsRecorded) {
    controller().displayWindowForRecording();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto& recorder = control<SRRecorderControl>("shortcutRecorder");
    ASSERT_TRUE(recorder.isRecording());
    fake.keyRecorder.send({std::uint16_t{40}, modifier::Command | modifier::Control, true, false});
    EXPECT_EQ(value(preference::TriggerCharacterUInt), DefaultsValue(std::int64_t{40}));
    EXPECT_EQ(value(preference::TriggerModifiers), DefaultsValue(std::int64_t{modifier::Command | modifier::Control}));
    EXPECT_EQ(value(preference::NewTrigger), DefaultsValue(*recorder.keyComboString()));
}

TEST_F(PreferencesWindowBehaviourTest, ShowsNoCombinationForAKeyThatCannotBe) {
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{-1});
    EXPECT_TRUE(control<SRRecorderControl>("shortcutRecorder").keyCombo().isEmpty());
    // The last sixteen bits are those of the space bar.
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{-65487});
    EXPECT_TRUE(control<SRRecorderControl>("shortcutRecorder").keyCombo().isEmpty());
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{0});
    EXPECT_EQ(control<SRRecorderControl>("shortcutRecorder").keyCombo(), (KeyCombo{0, modifier::Option}));
}

TEST_F(PreferencesWindowBehaviourTest, ReachesTheHeightOfAPaneStepByStep) {
    LivelyStyle style(50);
    window().setStyle(&style);
    auto* animation = window().findChild<QVariantAnimation*>();
    controller().displayWindow();
    EXPECT_EQ(animation->state(), QAbstractAnimation::Stopped);
    settle();
    const int before = window().height();
    controller().changePreferencePane(window().toolbarItems().at(0));
    EXPECT_EQ(animation->state(), QAbstractAnimation::Stopped) << "it has that height";
    ASSERT_EQ(window().contentSize().height, window().paneHeight(PreferencePane::General)) << "at once, while unseen";
    controller().changePreferencePane(window().toolbarItems().at(1));
    const double wanted = window().paneHeight(PreferencePane::HotKey);
    ASSERT_NE(wanted, window().paneHeight(PreferencePane::General));
    EXPECT_EQ(animation->state(), QAbstractAnimation::Running);
    EXPECT_EQ(animation->startValue().toInt(), before);
    EXPECT_EQ(animation->duration(), 50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return animation->state() == QAbstractAnimation::Stopped; }));
    settle();
    EXPECT_EQ(window().contentSize().height, wanted);
    EXPECT_EQ(control<QStackedWidget>("contentView").height(), int(wanted));
    window().setStyle(nullptr);
}

TEST_F(PreferencesWindowBehaviourTest, ReturnsToItsHeightAtOnceInAStyleThatMovesNothing) {
    LivelyStyle style(0);
    window().setStyle(&style);
    controller().displayWindow();
    settle();
    controller().changePreferencePane(window().toolbarItems().at(1));
    settle();
    const int height = window().height();
    window().resize(window().width(), height / 2);
    handleEvents();
    controller().changePreferencePane(window().toolbarItems().at(1));
    EXPECT_EQ(window().height(), height);
    window().setStyle(nullptr);
}

TEST_F(PreferencesWindowBehaviourTest, GivesUpOnAHeightOnceAnotherPaneIsChosen) {
    LivelyStyle style(50);
    window().setStyle(&style);
    controller().displayWindow();
    settle();
    const int before = window().height();
    controller().changePreferencePane(window().toolbarItems().at(1));
    selectPane(PreferencePane::General);
    EXPECT_EQ(window().findChild<QVariantAnimation*>()->state(), QAbstractAnimation::Stopped);
    settle();
    EXPECT_EQ(window().height(), before);
    window().setStyle(nullptr);
}

TEST_F(PreferencesWindowBehaviourTest, StaysInFullScreenThroughItsPanes) {
    controller().displayWindow();
    handleEvents();
    window().showFullScreen();
    handleEvents();
    const QSize whole = window().size();
    selectPane(PreferencePane::ScreenTop);
    handleEvents();
    EXPECT_TRUE(window().isFullScreen());
    EXPECT_EQ(window().size(), whole);
}

TEST_F(PreferencesWindowBehaviourTest, ScrollsAPaneThatTheUserHasMadeTooLow) {
    controller().displayWindow();
    settle();
    EXPECT_EQ(scrolling("generalPreferencesView"), Qt::ScrollBarAlwaysOff);
    const int whole = window().height();
    window().resize(window().width(), whole / 2);
    handleEvents();
    EXPECT_EQ(window().frameNS().size.height, whole / 2);
    EXPECT_EQ(scrolling("generalPreferencesView"), Qt::ScrollBarAlwaysOn);
    window().resize(window().width(), whole);
    handleEvents();
    EXPECT_EQ(scrolling("generalPreferencesView"), Qt::ScrollBarAlwaysOff);
}

TEST_F(PreferencesWindowBehaviourTest, ScrollsAPaneThatOutgrowsAWindowThatFillsTheScreen) {
    controller().displayWindow();
    selectPane(PreferencePane::HotKey);
    window().showMaximized();
    settle();
    const QSize screenful = window().size();
    ASSERT_EQ(scrolling("hotKeyPreferencesView"), Qt::ScrollBarAlwaysOff);
    window().setHotKeyRefusal(HotKeyRefusal{manyWords(1500), ""});
    settle();
    EXPECT_EQ(window().size(), screenful);
    EXPECT_EQ(scrolling("hotKeyPreferencesView"), Qt::ScrollBarAlwaysOn);
}

TEST_F(PreferencesWindowBehaviourTest, OpensAtTheHeightThatItKeeps) {
    controller().displayWindow();
    const QSize first = window().size();
    settle();
    EXPECT_EQ(window().size(), first);
}

TEST_F(PreferencesWindowBehaviourTest, HasRoomAtOnceForWordsThatCameWhileAnotherPaneWasShown) {
    window().setHotKeyRefusal(HotKeyRefusal{"Alt+Space", ""});
    controller().displayWindow();
    selectPane(PreferencePane::HotKey);
    settle();
    selectPane(PreferencePane::General);
    settle();
    window().setHotKeyRefusal(HotKeyRefusal{manyWords(180), ""});
    selectPane(PreferencePane::HotKey);
    const double first = window().frameNS().size.height;
    settle();
    EXPECT_EQ(window().frameNS().size.height, first);
}

TEST_F(PreferencesWindowBehaviourTest, IsAsWideAsItsWordsInEveryPane) {
    controller().displayWindow();
    settle();
    const int before = window().width();
    EXPECT_GE(before, window().fontMetrics().averageCharWidth() * 88) << "lines that are easy to read";
    QFont large = window().font();
    large.setPointSize(large.pointSize() + 3);
    window().setFont(large);
    settle();
    EXPECT_GT(window().width(), before);
    const int wide = window().width();
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane) {
        selectPane(static_cast<PreferencePane>(pane));
        settle();
        EXPECT_EQ(window().width(), wide) << pane;
    }
}

TEST_F(PreferencesWindowBehaviourTest, IsAsWideAsTheWidestWordsOfAnotherPane) {
    controller().displayWindow();
    window().setHotKeyRefusal(HotKeyRefusal{"Alt", "M"});
    settle();
    const int before = window().width();
    window().setHotKeyRefusal(HotKeyRefusal{"Alt", std::string(150, 'M')});
    window().setBorderNotice(BorderNotice::AccessIsMissing);
    settle();
    const int wide = window().width();
    EXPECT_GT(wide, before);
    selectPane(PreferencePane::Help);
    settle();
    EXPECT_EQ(window().width(), wide);
}

TEST_F(PreferencesWindowBehaviourTest, IsAsWideAsItsWordsBeforeItIsShown) {
    const double before = window().frameNS().size.width;
    QFont large = window().font();
    large.setPointSize(large.pointSize() + 3);
    window().setFont(large);
    settle();
    EXPECT_GT(window().frameNS().size.width, before);
    EXPECT_EQ(window().frameNS().size.width, window().minimumWidth());
}

TEST_F(PreferencesWindowBehaviourTest, GrowsWithTheWordsBelowThePanes) {
    controller().displayWindow();
    settle();
    const int before = window().height();
    window().setBorderNotice(BorderNotice::AccessIsMissing);
    settle();
    EXPECT_GT(window().height(), before);
    EXPECT_EQ(window().contentSize().height, window().paneHeight(PreferencePane::General));
}

TEST_F(PreferencesWindowBehaviourTest, GivesTheKeysToNoControlOfThePaneThatComes) {
    controller().displayWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    selectPane(PreferencePane::HotKey);
    control("enableHotkey").setFocus();
    const auto& toolbar = control<QToolBar>("toolbar");
    toolbar.actions().at(0)->trigger();
    settle();
    EXPECT_EQ(window().focusWidget(), toolbar.widgetForAction(toolbar.actions().at(0)));
}

TEST_F(PreferencesWindowBehaviourTest, ShowsNoPaneOnceAllAreRemoved) {
    controller().displayWindow();
    window().removeSubviewsOfContent();
    EXPECT_EQ(control<QStackedWidget>("contentView").currentWidget()->objectName(), "emptyView");
}

TEST_F(PreferencesWindowBehaviourTest, StaysOnOneDesktopUnlessItIsToBeOnAll) {
    QtPreferencesWindow plain(platform, controller(), "", standardError);
    plain.orderFrontRegardless();
    EXPECT_THAT(fake.panelSurfaces.onAllSpaces(), testing::IsEmpty());
}

TEST_F(PreferencesWindowBehaviourTest, HasItemsThatTabGoesThrough) {
    controller().displayWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto& toolbar = control<QToolBar>("toolbar");
    ASSERT_EQ(window().focusWidget(), toolbar.widgetForAction(toolbar.actions().at(0)));
    QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), toolbar.widgetForAction(toolbar.actions().at(1)));
}

TEST_F(PreferencesWindowBehaviourTest, LeavesKeysThatMeanNothingInItAlone) {
    controller().displayWindow();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(&window(), &key);
    EXPECT_FALSE(key.isAccepted());
}

TEST_F(PreferencesWindowBehaviourTest, ComesBackInFrontOfOtherWindows) {
    controller().displayWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    const EventCounter raised(window(), QEvent::ZOrderChange);
    controller().displayWindow();
    EXPECT_EQ(raised.count, 1);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

TEST_F(PreferencesWindowBehaviourTest, ComesBackFromAnIcon) {
    controller().displayWindow();
    window().showMinimized();
    handleEvents();
    ASSERT_TRUE(window().isMinimized());
    controller().displayWindow();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_TRUE(window().isVisible());
}

TEST_F(PreferencesWindowBehaviourTest, StaysWhereItIsWhenItIsAskedForAgain) {
    controller().displayWindow();
    window().windowHandle()->setPosition(70, 90);
    handleEvents();
    controller().fadeOutWindow();
    controller().displayWindow();
    window().windowHandle()->setPosition(120, 30);
    handleEvents();
    const QPoint place = window().pos();
    controller().displayWindow();
    handleEvents();
    EXPECT_EQ(window().pos(), place);
}

TEST_F(PreferencesWindowBehaviourTest, LeavesThePlaceToTheDesktopWhenItsScreenIsGone) {
    controller().displayWindow();
    window().windowHandle()->setPosition(-9000, -9000);
    handleEvents();
    ASSERT_EQ(QGuiApplication::screenAt(window().pos()), nullptr);
    controller().fadeOutWindow();
    controller().displayWindow();
    EXPECT_FALSE(window().testAttribute(Qt::WA_Moved));
}

TEST_F(PreferencesWindowBehaviourTest, OpensWithTheGeneralHelpText) {
    control<QToolButton>("windowHelpButton").click();
    controller().displayWindow();
    EXPECT_EQ(control<QStackedWidget>("emptyHelpTextView").currentWidget()->objectName(), "generalHelpTextView");
    EXPECT_TRUE(control<QToolButton>("generalHelpButton").isChecked());
}

TEST_F(PreferencesWindowBehaviourTest, WarnsOfNothingAtFirst) {
    for (const char* warning :
        {"hotKeyWarning", "buttonWarning", "screenTopWarning", "hotKeyRefusalView", "helpRefusalView"})
        EXPECT_TRUE(control(warning).isHidden()) << warning;
    EXPECT_EQ(control<QLabel>("borderViewText").text(), "Every change counts at once.");
    EXPECT_TRUE(control("switchAccessOnButton").isHidden());
}

TEST_F(PreferencesWindowBehaviourTest, TellsOfARefusedHotKeyInTheHelpToo) {
    window().setHotKeyRefusal(HotKeyRefusal{"Alt+Space", "Ctrl+Space"});
    EXPECT_FALSE(control("helpRefusalView").isHidden());
    EXPECT_EQ(control<QLabel>("helpRefusalViewText").text(), control<QLabel>("hotKeyRefusalViewText").text());
    EXPECT_EQ(control<QPushButton>("takeProposalButton").text(), "Use Ctrl+Space");
    window().setHotKeyRefusal(std::nullopt);
    EXPECT_TRUE(control("helpRefusalView").isHidden());
}

TEST_F(PreferencesWindowBehaviourTest, PutsAnAlertThatIsOpenInFront) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    controller().displayWindow();
    auto* alert = window().findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    const EventCounter raised(*alert, QEvent::ZOrderChange);
    controller().displayWindow();
    EXPECT_EQ(raised.count, 1);
}

TEST_F(PreferencesWindowBehaviourTest, HasTheEditorOfTheIgnoreListReady) {
    selectPane(PreferencePane::IgnoreList);
    EXPECT_TRUE(control<QPushButton>("addApplication").isEnabled());
    EXPECT_TRUE(control<QPushButton>("pickWindow").isEnabled());
}

} // namespace
} // namespace tarragon
