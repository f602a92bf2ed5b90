#include "PreferencesWindowFixture.h"
#include "prefs/widgets/ZDMouseButtonIdentifier.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtPreferencesWindowTest : public PreferencesWindowTest {
protected:
    QAction& item(PreferencePane pane) { return *control<QToolBar>("toolbar").actions().at(static_cast<int>(pane)); }
    QString shownPane() { return control<QStackedWidget>("contentView").currentWidget()->objectName(); }
    bool isShown(const char* name) { return control(name).isVisibleTo(&window()); }
};

TEST_F(QtPreferencesWindowTest, HasSevenItemsInItsToolbar) {
    static constexpr std::tuple<const char*, const char*, std::int64_t> rows[] = {
        {"generalItem", "General", 100},
        {"hotKeyItem", "Hot Key", 200},
        {"windowTopItem", "Window Top", 300},
        {"screenTopItem", "Screen Top", 400},
        {"ignoreListItem", "Ignore List", 500},
        {"aboutItem", "About", 700},
        {"helpItem", "Help", 800},
    };
    const std::vector<PreferenceItem> items = window().toolbarItems();
    ASSERT_EQ(items.size(), std::size(rows));
    for (std::size_t index = 0; index < items.size(); ++index) {
        const auto& [identifier, label, tag] = rows[index];
        EXPECT_EQ(items[index].identifier, identifier);
        EXPECT_EQ(items[index].label, label);
        EXPECT_EQ(items[index].tag, tag);
        EXPECT_FALSE(control<QToolBar>("toolbar").actions().at(static_cast<int>(index))->icon().isNull()) << label;
    }
}

TEST_F(QtPreferencesWindowTest, SwapsThePaneInPlaceAndTakesItsLabelForATitle) {
    static constexpr const char* views[] = {"generalPreferencesView", "hotKeyPreferencesView",
        "windowTopPreferencesView", "screenTopPreferencesView", "ignoreListPreferencesView", "aboutPreferencesView",
        "helpPreferencesView"};
    controller().displayWindow();
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane) {
        QAction& chosen = item(static_cast<PreferencePane>(pane));
        chosen.trigger();
        EXPECT_EQ(shownPane(), views[pane]);
        EXPECT_EQ(window().windowTitle(), chosen.text());
        EXPECT_TRUE(chosen.isChecked());
        EXPECT_TRUE(isShown("borderView")) << views[pane];
    }
}

TEST_F(QtPreferencesWindowTest, IsAsHighAsItsPaneAndKeepsItsTopEdge) {
    controller().displayWindow();
    handleEvents();
    const QPoint place = window().pos();
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane) {
        selectPane(static_cast<PreferencePane>(pane));
        handleEvents();
        EXPECT_EQ(control<QStackedWidget>("contentView").height(),
            int(window().paneHeight(static_cast<PreferencePane>(pane))))
            << pane;
        EXPECT_EQ(window().pos(), place);
    }
}

TEST_F(QtPreferencesWindowTest, GrowsAndShrinksWithWordsThatComeAndGo) {
    const auto settle = [] {
        for (int level = 0; level < 8; ++level)
            handleEvents();
    };
    controller().displayWindow();
    selectPane(PreferencePane::HotKey);
    settle();
    const int before = window().height();
    window().setHideHotKeyWarning(false);
    settle();
    EXPECT_GT(window().height(), before);
    EXPECT_EQ(window().contentSize().height, window().paneHeight(PreferencePane::HotKey));
    window().setHideHotKeyWarning(true);
    settle();
    EXPECT_EQ(window().height(), before);
}

TEST_F(QtPreferencesWindowTest, StaysMaximisedThroughItsPanes) {
    controller().displayWindow();
    handleEvents();
    window().showMaximized();
    handleEvents();
    const QSize maximised = window().size();
    for (const PreferencePane pane : {PreferencePane::ScreenTop, PreferencePane::Help}) {
        selectPane(pane);
        handleEvents();
        EXPECT_TRUE(window().isMaximized());
        EXPECT_EQ(window().size(), maximised);
    }
    window().showNormal();
    for (int level = 0; level < 8; ++level)
        handleEvents();
    EXPECT_EQ(window().contentSize().height, window().paneHeight(PreferencePane::Help));
    EXPECT_EQ(window().height(), window().frameNS().size.height);
}

TEST_F(QtPreferencesWindowTest, EndsAnAnimationAtTheHeightOfItsPane) {
    controller().displayWindow();
    controller().changePreferencePane(window().toolbarItems().at(1));
    const Size wanted = window().contentSize();
    EXPECT_EQ(wanted.height, window().paneHeight(PreferencePane::HotKey));
    EXPECT_TRUE(QTest::qWaitFor([&] { return control<QStackedWidget>("contentView").height() == int(wanted.height); }));
}

TEST_F(QtPreferencesWindowTest, IsOnEveryDesktopWheneverItIsShown) {
    controller().displayWindow();
    controller().fadeOutWindow();
    controller().displayWindow();
    // Closing ends the window that the desktop knows.
    EXPECT_EQ(fake.panelSurfaces.onAllSpaces().size(), 2U);
    EXPECT_EQ(fake.panelSurfaces.onAllSpaces().back(), window().winId());
}

TEST_F(QtPreferencesWindowTest, ClosesWithEscapeAndWithItsShortcut) {
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        controller().displayWindow();
        QApplication::setActiveWindow(&window());
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        EXPECT_EQ(fake.inputEvents.tapCount(), 1U);
        QTest::keySequence(&window(), keys);
        EXPECT_FALSE(window().isVisible()) << keys.toString().toStdString();
        EXPECT_EQ(fake.inputEvents.tapCount(), 0U);
    }
}

TEST_F(QtPreferencesWindowTest, StaysWhenEscapeClosesAListOfChoices) {
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    QApplication::setActiveWindow(&window());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto& list = control<QComboBox>("buttonStyle");
    list.setFocus();
    list.showPopup();
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    // First the toolkit asks who wants the key; with a screen reader around, the press comes a moment later.
    QKeyEvent question(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(list.view(), &question);
    EXPECT_TRUE(question.isAccepted());
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(list.view(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(QtPreferencesWindowTest, ShowsTheHelpWithItsKey) {
    controller().displayWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keySequence(&window(), QKeySequence::HelpContents);
    EXPECT_EQ(shownPane(), "helpPreferencesView");
    EXPECT_TRUE(item(PreferencePane::Help).isChecked());
}

TEST_F(QtPreferencesWindowTest, LeavesNothingBehindHoweverOftenItIsOpened) {
    controller().displayWindow();
    controller().fadeOutWindow();
    handleEvents();
    const auto objects = window().findChildren<QObject*>().size();
    const auto observed = fake.defaults.observedKeyPaths().size();
    for (int time = 0; time < 500; ++time) {
        controller().displayWindow();
        controller().fadeOutWindow();
        ASSERT_EQ(fake.inputEvents.tapCount(), 0U);
    }
    handleEvents();
    EXPECT_LE(window().findChildren<QObject*>().size(), objects);
    EXPECT_EQ(fake.defaults.observedKeyPaths().size(), observed);
    EXPECT_EQ(QApplication::topLevelWidgets().count(&window()), 1);
}

TEST_F(QtPreferencesWindowTest, ListensToTheMouseOnceHoweverOftenItIsShownWithoutBeingClosed) {
    controller().displayWindow();
    controller().displayWindow();
    EXPECT_EQ(fake.inputEvents.tapCount(), 1U);
    controller().fadeOutWindow();
    EXPECT_EQ(fake.inputEvents.tapCount(), 0U);
}

TEST_F(QtPreferencesWindowTest, ShowsTheHelpTextOfTheButtonThatIsPressed) {
    static constexpr std::pair<const char*, const char*> rows[] = {
        {"popUpHelpButton", "popUpHelpTextView"},
        {"windowHelpButton", "windowHelpTextView"},
        {"screenTopHelpButton", "screenTopHelpTextView"},
        {"ignoreListHelpButton", "ignoreListHelpTextView"},
        {"generalHelpButton", "generalHelpTextView"},
    };
    for (const auto& [button, text] : rows) {
        control<QToolButton>(button).click();
        EXPECT_EQ(control<QStackedWidget>("emptyHelpTextView").currentWidget()->objectName(), text);
        EXPECT_TRUE(control<QToolButton>(button).isChecked());
    }
}

TEST_F(QtPreferencesWindowTest, WarnsBesideTheCheckBoxThatTookTheLastWayAway) {
    control<QCheckBox>("enableButton").click();
    control<QCheckBox>("enableScreenTop").click();
    EXPECT_FALSE(isShown("hotKeyWarning"));
    EXPECT_FALSE(isShown("buttonWarning"));
    selectPane(PreferencePane::HotKey);
    control<QCheckBox>("enableHotkey").click();
    EXPECT_TRUE(isShown("hotKeyWarning"));
    EXPECT_TRUE(control("buttonWarning").isHidden());
    control<QCheckBox>("enableHotkey").click();
    EXPECT_FALSE(isShown("hotKeyWarning"));
    control<QCheckBox>("enableHotkey").click();
    control<QCheckBox>("enableButton").click();
    control<QCheckBox>("enableButton").click();
    selectPane(PreferencePane::WindowTop);
    EXPECT_TRUE(isShown("buttonWarning"));
    EXPECT_TRUE(control("hotKeyWarning").isHidden());
    selectPane(PreferencePane::ScreenTop);
    EXPECT_TRUE(isShown("screenTopWarning"));
}

TEST_F(QtPreferencesWindowTest, StartsAtLoginThroughItsController) {
    control<QCheckBox>("launchCheckBox").click();
    EXPECT_EQ(loginItems.items().size(), 1U);
    EXPECT_EQ(value(preference::LaunchOnLogin), DefaultsValue(true));
    control<QPushButton>("resetButton").click();
    EXPECT_THAT(loginItems.items(), IsEmpty());
    EXPECT_FALSE(control<QCheckBox>("launchCheckBox").isChecked());
}

TEST_F(QtPreferencesWindowTest, ResetsTheRecorderAtOnce) {
    controller().shortcutRecorderKeyComboDidChange({46, modifier::Command}, "M");
    EXPECT_EQ(control<SRRecorderControl>("shortcutRecorder").keyCombo(), (KeyCombo{46, modifier::Command}));
    control<QPushButton>("resetButton").click();
    EXPECT_EQ(control<SRRecorderControl>("shortcutRecorder").keyCombo(), (KeyCombo{49, modifier::Option}));
}

TEST_F(QtPreferencesWindowTest, ShowsACombinationAndAButtonThatAnotherProcessHasChosen) {
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{7});
    changeFromOutside(preference::MouseButton, std::int64_t{4});
    EXPECT_EQ(control<SRRecorderControl>("shortcutRecorder").keyCombo(), (KeyCombo{7, modifier::Option}));
    EXPECT_EQ(control<ZDMouseButtonIdentifier>("mouseButtonIdentifier").buttonNumber(), 4U);
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{70000});
    EXPECT_TRUE(control<SRRecorderControl>("shortcutRecorder").keyCombo().isEmpty());
}

TEST_F(QtPreferencesWindowTest, StoresTheMouseButtonThatWasPressedInItsField) {
    auto& field = control<ZDMouseButtonIdentifier>("mouseButtonIdentifier");
    field.setButtonNumber(8);
    emit field.actionSent();
    EXPECT_EQ(value(preference::MouseButton), DefaultsValue(std::int64_t{8}));
}

TEST_F(QtPreferencesWindowTest, AppliesAndQuits) {
    control<QPushButton>("applyChangesButton").click();
    control<QPushButton>("quitButton").click();
    EXPECT_THAT(told, ElementsAre("restart", "terminate"));
}

TEST_F(QtPreferencesWindowTest, SaysWhatBecameOfTheHotKeyAndOffersAnother) {
    EXPECT_FALSE(isShown("hotKeyRefusalView"));
    fake.keyboard.setSymbolicHotKeys({{SymbolicHotKey{true, 49, hotkey::OptionKey}}});
    selectPane(PreferencePane::HotKey);
    window().setHotKeyRefusal(HotKeyRefusal{"Alt+Space", "Ctrl+Space"});
    EXPECT_TRUE(isShown("hotKeyRefusalView"));
    EXPECT_TRUE(control<QLabel>("hotKeyRefusalViewText").text().contains("Alt+Space"));
    EXPECT_TRUE(control<QLabel>("hotKeyRefusalViewText").text().contains("Ctrl+Space is free."));
    control<QPushButton>("tryAnotherButton").click();
    EXPECT_NE(value(preference::TriggerModifiers), DefaultsValue(std::int64_t{modifier::Option}));
    window().setHotKeyRefusal(std::nullopt);
    EXPECT_FALSE(isShown("hotKeyRefusalView"));
}

TEST_F(QtPreferencesWindowTest, ProposesACombinationInTheHelpThatOneClickTakes) {
    fake.hotKeys.setRefuses(true);
    fake.keyboard.setSymbolicHotKeys({{SymbolicHotKey{true, 49, hotkey::OptionKey}}});
    HotKeyReference reference = 0;
    ASSERT_FALSE(fake.hotKeys.registerHotKey(49, hotkey::OptionKey, {}, reference));
    controller().displayWindowWithHelpAsInitial();
    ASSERT_TRUE(isShown("helpRefusalView"));
    EXPECT_TRUE(control<QPushButton>("takeProposalButton").text().startsWith("Use "));
    control<QPushButton>("takeProposalButton").click();
    EXPECT_THAT(fake.defaults.changedKeys(), testing::Contains("NewTrigger"));
    EXPECT_EQ(shownPane(), "helpPreferencesView");
}

TEST_F(QtPreferencesWindowTest, OpensWhereTheUserHasLeftIt) {
    controller().displayWindow();
    // The first time the desktop finds a place.
    EXPECT_FALSE(window().testAttribute(Qt::WA_Moved));
    window().windowHandle()->setPosition(70, 90);
    handleEvents();
    const QPoint place = window().pos();
    controller().fadeOutWindow();
    controller().displayWindow();
    EXPECT_TRUE(window().testAttribute(Qt::WA_Moved));
    EXPECT_EQ(window().pos(), place);
}

TEST_F(QtPreferencesWindowTest, HasTheFocusOnTheItemOfThePaneThatItOpensWith) {
    const auto focused = [this] { return window().focusWidget(); };
    const auto button = [this](
                            PreferencePane pane) { return control<QToolBar>("toolbar").widgetForAction(&item(pane)); };
    controller().displayWindow();
    EXPECT_EQ(focused(), button(PreferencePane::General));
    controller().displayWindowWithHelpAsInitial();
    EXPECT_EQ(focused(), button(PreferencePane::Help));
    controller().displayWindowForRecording();
    EXPECT_TRUE(control("shortcutRecorder").isAncestorOf(focused()));
    window().setSelectedItem(0);
    EXPECT_TRUE(control("shortcutRecorder").isAncestorOf(focused())) << "the keyboard stays with what the user does";
}

TEST_F(QtPreferencesWindowTest, StartsToRecordWhereNoCombinationIsKnownToBeFree) {
    fake.keyboard.setSymbolicHotKeys(std::nullopt);
    controller().displayWindow();
    control<QPushButton>("tryAnotherButton").click();
    EXPECT_EQ(shownPane(), "hotKeyPreferencesView");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_TRUE(control<SRRecorderControl>("shortcutRecorder").isRecording());
}

TEST_F(QtPreferencesWindowTest, TellsTheCombinationAndTheButtonThatAreSetInItsHelp) {
    const auto help = [this] { return control<QLabel>("popUpHelpText").text().toStdString(); };
    EXPECT_THAT(help(), testing::HasSubstr("Press Option+"));
    changeFromOutside(preference::TriggerModifiers, std::int64_t{modifier::Command});
    EXPECT_THAT(help(), testing::HasSubstr("Press Command+"));
    EXPECT_THAT(help(), testing::HasSubstr("A mouse button can do the same"));
    changeFromOutside(preference::EnableMouseButton, true);
    EXPECT_THAT(help(), testing::HasSubstr("The middle mouse button does the same."));
    changeFromOutside(preference::MouseButton, std::int64_t{8});
    EXPECT_THAT(help(), testing::HasSubstr("Mouse button 8 does the same."));
    changeFromOutside(preference::EnableHotkey, false);
    EXPECT_THAT(help(), testing::HasSubstr("once you have switched it on"));
    changeFromOutside(preference::EnableHotkey, true);
    window().setHotKeyRefusal(HotKeyRefusal{"Alt", ""});
    EXPECT_THAT(help(), testing::HasSubstr("once you have chosen one that is free"));
}

TEST_F(QtPreferencesWindowTest, ExplainsHowToGiveAccessAndSwitchesItOn) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    fake.accessibility.setSettings(true, true);
    controller().displayWindow();
    EXPECT_TRUE(isShown("switchAccessOnButton"));
    EXPECT_TRUE(control<QLabel>("borderViewText").text().startsWith("Tarragon cannot read"));
    auto* const alert = window().findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    alert->reject();
    control<QPushButton>("switchAccessOnButton").click();
    EXPECT_FALSE(isShown("switchAccessOnButton"));
    EXPECT_EQ(control<QLabel>("borderViewText").text(), "Every change counts at once.");
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(QtPreferencesWindowTest, SaysThatAccessCouldNotBeSwitchedOn) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    fake.accessibility.setSettings(false, false);
    controller().displayWindow();
    window().findChild<QMessageBox*>()->reject();
    control<QPushButton>("switchAccessOnButton").click();
    EXPECT_TRUE(control<QLabel>("borderViewText").text().startsWith("Access could not be turned on from here."));
    // To try it once more.
    EXPECT_TRUE(isShown("switchAccessOnButton"));
}

TEST_F(QtPreferencesWindowTest, SaysThatChangesAreNotKept) {
    const QString unwritten = "The settings cannot be written to disk";
    const auto& label = control<QLabel>("borderViewText");
    controller().displayWindow();
    fake.defaults.setWritable(false);
    control<QAbstractButton>("enableScreenTop").click();
    EXPECT_TRUE(label.text().startsWith(unwritten));
    EXPECT_FALSE(isShown("switchAccessOnButton"));
    EXPECT_TRUE(isShown("borderViewIcon"));
    fake.defaults.setWritable(true);
    EXPECT_EQ(label.text(), "Every change counts at once.");
    EXPECT_FALSE(isShown("borderViewIcon"));
}

TEST_F(QtPreferencesWindowTest, HasOneAlertHoweverOftenItIsShown) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    controller().displayWindow();
    controller().displayWindow();
    EXPECT_EQ(window().findChildren<QMessageBox*>().size(), 1);
}

TEST_F(QtPreferencesWindowTest, ShowsNoSettingThatChangesNothing) {
    platform.settingsWithoutEffect = {preference::ButtonHasShadow, preference::ShowStatusBarIcon,
        preference::LaunchOnLogin, preference::FoldAlternate};
    for (const char* row : {"buttonHasShadowRow", "showStatusBarIconRow", "launchCheckBoxRow", "foldAlternateRow"})
        EXPECT_TRUE(control(row).isHidden()) << row;
    EXPECT_FALSE(control("buttonHasBorderRow").isHidden());
    // Nothing is left in it.
    EXPECT_TRUE(control<QGroupBox>("tarragonGroup").isHidden());
    EXPECT_FALSE(control<QGroupBox>("menusGroup").isHidden());
}

TEST_F(QtPreferencesWindowTest, ShowsThePagesThatThereAre) {
    webPages.product = "https://example.org";
    webPages.facebook = "https://social.example.org";
    selectPane(PreferencePane::About);
    EXPECT_TRUE(isShown("productWebPageButton"));
    EXPECT_FALSE(isShown("twitterWebPageButton"));
    EXPECT_TRUE(isShown("facebookWebPageButton"));
    control<QPushButton>("productWebPageButton").click();
    control<QPushButton>("facebookWebPageButton").click();
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("https://example.org", "https://social.example.org"));
    EXPECT_TRUE(control("screencastRow").isHidden());
}

TEST_F(QtPreferencesWindowTest, ShowsNoPlaceForPagesWithoutAny) {
    EXPECT_TRUE(control("webPagesRow").isHidden());
    EXPECT_TRUE(control("screencastRow").isHidden());
}

TEST_F(QtPreferencesWindowTest, OffersTheFilm) {
    webPages.screencast = "https://example.org/film";
    EXPECT_FALSE(control("screencastRow").isHidden());
    control<QPushButton>("screencastButton").click();
    EXPECT_THAT(told, ElementsAre("screencast"));
}

TEST_F(QtPreferencesWindowTest, SetsItsHeadingsInBoldAtTheSizeOfEverythingElse) {
    QFont large = window().font();
    large.setPointSize(large.pointSize() + 5);
    window().setFont(large);
    for (const char* heading : {"aboutName", "popUpHelpTitle", "chooseHelpTitle"}) {
        EXPECT_TRUE(control<QLabel>(heading).font().bold()) << heading;
        EXPECT_EQ(control<QLabel>(heading).font().pointSize(), large.pointSize()) << heading;
    }
}

TEST_F(QtPreferencesWindowTest, TellsItsVersion) {
    EXPECT_EQ(control<QLabel>("aboutVersion").text(), "Version 1.2.3");
    EXPECT_TRUE(control<QLabel>("aboutLibraries").text().contains("Qt 6: LGPL 3"));
}

TEST_F(QtPreferencesWindowTest, DoesWithoutKeyboardAndPanels) {
    platform.keyboard = nullptr;
    platform.keyRecorder = nullptr;
    platform.panelSurfaces = nullptr;
    platform.loginItemList = nullptr;
    platform.installedApplications = nullptr;
    platform.windowPicker = nullptr;
    controller().displayWindow();
    control<QCheckBox>("launchCheckBox").click();
    EXPECT_EQ(value(preference::LaunchOnLogin), DefaultsValue(true));
    EXPECT_TRUE(window().isVisible());
}

} // namespace
} // namespace tarragon
