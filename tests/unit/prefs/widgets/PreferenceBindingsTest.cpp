#include "PreferencesWindowFixture.h"
#include "fake/RecordingLog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PreferenceBindingsTest : public PreferencesWindowTest {
protected:
    // As if it came from the desktop: others are not handed on to the widgets around.
    static void turnWheel(QWidget& over) {
        const QPointF place = QRectF(over.rect()).center();
        QWheelEvent turn(
            place, over.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn);
        qApp->notify(&over, &turn);
    }
};

TEST_F(PreferenceBindingsTest, HaveEachCheckBoxStoreItsSettingAndFollowIt) {
    static constexpr std::pair<const char*, std::string_view> rows[] = {
        {"enableHotkey", preference::EnableHotkey},
        {"foldAlternate", preference::FoldAlternate},
        {"showKeyEquivalents", preference::ShowKeyEquivalents},
        {"showAppleMenu", preference::ShowAppleMenu},
        {"showStatusBarIcon", preference::ShowStatusBarIcon},
        {"showTarragonMenu", preference::ShowTarragonMenu},
        {"showApplicationMenu", preference::ShowApplicationMenu},
        {"launchCheckBox", preference::LaunchOnLogin},
        {"tarragonAlwaysVisible", preference::TarragonAlwaysVisible},
        {"tarragonAlwaysRight", preference::TarragonAlwaysRight},
        {"showOnPrimaryScreen", preference::ShowOnPrimaryScreen},
        {"hideOnPrimaryTopEdge", preference::HideOnPrimaryTopEdge},
        {"enableButton", preference::EnableButton},
        {"buttonHasShadow", preference::ButtonHasShadow},
        {"buttonHasTexture", preference::ButtonHasTexture},
        {"buttonHasBorder", preference::ButtonHasBorder},
        {"buttonRound", preference::ButtonRound},
        {"enableScreenTop", preference::EnableScreenTop},
        {"screenTopTransparency", preference::ScreenTopTransparency},
        {"enableMouseButton", preference::EnableMouseButton},
    };
    for (const auto& [name, key] : rows) {
        auto& box = control<QCheckBox>(name);
        const bool before = boolValue(fake.defaults.value(key));
        EXPECT_EQ(box.isChecked(), before) << name;
        changeFromOutside(key, !before);
        EXPECT_EQ(box.isChecked(), !before) << name;
        changeFromOutside(key, before);
        EXPECT_EQ(box.isChecked(), before) << name;
        box.click();
        EXPECT_EQ(value(key), DefaultsValue(!before)) << name;
        EXPECT_EQ(box.isChecked(), !before) << name;
        box.click();
        EXPECT_EQ(value(key), DefaultsValue(before)) << name;
    }
}

TEST_F(PreferenceBindingsTest, StoreNothingByShowing) {
    window();
    EXPECT_THAT(fake.defaults.changedKeys(), IsEmpty());
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane)
        selectPane(static_cast<PreferencePane>(pane));
    controller().displayWindow();
    handleEvents();
    controller().fadeOutWindow();
    EXPECT_THAT(fake.defaults.changedKeys(), IsEmpty());
}

TEST_F(PreferenceBindingsTest, LeaveValuesAsTheyAreThatTheirControlCannotShow) {
    ASSERT_TRUE(fake.defaults.setValue(preference::FontSizeSmall, std::int64_t{400}));
    ASSERT_TRUE(fake.defaults.setValue(preference::TitleFontSizeSmall, std::int64_t{-3}));
    ASSERT_TRUE(fake.defaults.setValue(preference::ButtonStyle, std::int64_t{77}));
    const auto changed = fake.defaults.changedKeys();
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    handleEvents();
    EXPECT_EQ(control<QSpinBox>("fontSizeSmall").value(), 24);
    EXPECT_EQ(control<QSpinBox>("titleFontSizeSmall").text(), "As the desktop has it");
    EXPECT_EQ(control<QComboBox>("buttonStyle").currentIndex(), -1);
    changeFromOutside(preference::FontSizeSmall, std::int64_t{12});
    changeFromOutside(preference::FontSizeSmall, std::int64_t{500});
    EXPECT_EQ(value(preference::FontSizeSmall), DefaultsValue(std::int64_t{500}));
    EXPECT_EQ(fake.defaults.changedKeys(), changed);
}

TEST_F(PreferenceBindingsTest, ShowASizeThatIsTooSmallToBeChosenAsTheSmallestOne) {
    auto& size = control<QSpinBox>("fontSizeSmall");
    for (const std::int64_t tooSmall : {1, 7, 8}) {
        changeFromOutside(preference::FontSizeSmall, tooSmall);
        EXPECT_EQ(size.value(), 9) << tooSmall;
        EXPECT_EQ(value(preference::FontSizeSmall), DefaultsValue(tooSmall));
    }
    changeFromOutside(preference::FontSizeSmall, std::int64_t{0});
    EXPECT_EQ(size.text(), "As the desktop has it");
}

TEST_F(PreferenceBindingsTest, AreNotChangedByScrollingPastAControl) {
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto& style = control<QComboBox>("buttonStyle");
    auto& size = control<QSpinBox>("titleFontSizeSmall");
    size.setValue(12);
    turnWheel(style);
    turnWheel(size);
    EXPECT_EQ(style.currentIndex(), 0);
    EXPECT_EQ(size.value(), 12);
    // Once the user has chosen the control, the wheel is meant for it.
    size.setFocus();
    turnWheel(size);
    EXPECT_EQ(value(preference::TitleFontSizeSmall), DefaultsValue(std::int64_t{11}));
}

TEST_F(PreferenceBindingsTest, LetTheWheelOverAControlScrollItsPane) {
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    handleEvents();
    window().resize(window().width(), window().height() / 2);
    handleEvents();
    const QScrollBar& bar = *control("windowTopPreferencesView").findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    ASSERT_EQ(bar.value(), 0);
    turnWheel(control("buttonStyle"));
    EXPECT_GT(bar.value(), 0);
    EXPECT_FALSE(control("buttonStyle").hasFocus());
}

TEST_F(PreferenceBindingsTest, KeepNothingButTheWheelFromAControl) {
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    auto& list = control<QComboBox>("buttonStyle");
    ASSERT_FALSE(list.hasFocus());
    const QImage drawn = list.grab().toImage();
    QImage blank = drawn;
    blank.fill(drawn.pixelColor(0, 0));
    EXPECT_NE(drawn, blank);
}

TEST_F(PreferenceBindingsTest, TellTheLogOfASettingThatCannotBeWritten) {
    const RecordingLog log(LogCategory::Settings);
    control<QCheckBox>("showAppleMenu").click();
    EXPECT_THAT(log.lines(), IsEmpty());
    fake.defaults.setWritable(false);
    control<QCheckBox>("showAppleMenu").click();
    EXPECT_THAT(log.lines(), ElementsAre("settings: ShowAppleMenu cannot be written to disk"));
}

TEST_F(PreferenceBindingsTest, StandForTheSizeOfTheDesktopAtTheLeastValue) {
    auto& size = control<QSpinBox>("titleFontSizeSmall");
    EXPECT_EQ(size.text(), "As the desktop has it");
    size.stepUp();
    EXPECT_EQ(value(preference::TitleFontSizeSmall), DefaultsValue(std::int64_t{9}));
    size.stepDown();
    EXPECT_EQ(value(preference::TitleFontSizeSmall), DefaultsValue(std::int64_t{0}));
    changeFromOutside(preference::TitleFontSizeSmall, std::int64_t{17});
    EXPECT_EQ(size.value(), 17);
    size.setValue(24);
    EXPECT_EQ(value(preference::TitleFontSizeSmall), DefaultsValue(std::int64_t{24}));
    EXPECT_EQ(value(preference::FontSizeSmall), DefaultsValue(std::int64_t{12}));
    control<QSpinBox>("fontSizeSmall").stepUp();
    EXPECT_EQ(value(preference::FontSizeSmall), DefaultsValue(std::int64_t{13}));
}

TEST_F(PreferenceBindingsTest, ShowAStyleThatIsNeverUsedAsTheOneThatItStandsFor) {
    auto& styles = control<QComboBox>("buttonStyle");
    const std::pair<std::int64_t, int> rows[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 4}, {6, -1}, {-1, -1}};
    for (const auto& [style, index] : rows) {
        changeFromOutside(preference::ButtonStyle, style);
        EXPECT_EQ(styles.currentIndex(), index) << style;
    }
    for (const auto& [index, style] : {std::pair(4, 5), std::pair(2, 2), std::pair(0, 0)}) {
        styles.setCurrentIndex(index);
        emit styles.activated(index);
        EXPECT_EQ(value(preference::ButtonStyle), DefaultsValue(std::int64_t{style}));
    }
}

TEST_F(PreferenceBindingsTest, ChooseBetweenTwoRadioButtons) {
    auto& row = control<QRadioButton>("horizontalOn");
    auto& single = control<QRadioButton>("horizontalOff");
    EXPECT_TRUE(row.isChecked());
    single.click();
    EXPECT_EQ(value(preference::Horizontal), DefaultsValue(false));
    row.click();
    EXPECT_EQ(value(preference::Horizontal), DefaultsValue(true));
    changeFromOutside(preference::Horizontal, false);
    EXPECT_TRUE(single.isChecked());
    EXPECT_FALSE(row.isChecked());
}

TEST_F(PreferenceBindingsTest, StoreALabelAsItIsTyped) {
    changeFromOutside(preference::Horizontal, false);
    auto& label = control<QLineEdit>("buttonLabel");
    EXPECT_EQ(label.text(), "Menu");
    QTest::keyClicks(&label, "s");
    EXPECT_EQ(value(preference::ButtonLabel), DefaultsValue(std::string("Menus")));
    label.setCursorPosition(1);
    QTest::keyClicks(&label, "x");
    EXPECT_EQ(label.cursorPosition(), 2);
    changeFromOutside(preference::ButtonLabel, std::string("\u00C4"));
    EXPECT_EQ(label.text(), "\u00C4");
}

TEST_F(PreferenceBindingsTest, EnableWhatDependsOnAnotherSetting) {
    const auto isEnabled = [this](const char* name) { return control(name).isEnabledTo(&window()); };
    EXPECT_FALSE(isEnabled("buttonLabel"));
    changeFromOutside(preference::Horizontal, false);
    EXPECT_TRUE(isEnabled("buttonLabel"));
    EXPECT_TRUE(isEnabled("hideOnPrimaryTopEdge"));
    changeFromOutside(preference::ShowOnPrimaryScreen, false);
    EXPECT_FALSE(isEnabled("hideOnPrimaryTopEdge"));
    EXPECT_FALSE(isEnabled("screenTopHalfHotZone"));
    changeFromOutside(preference::ScreenTopAutoHide, true);
    EXPECT_TRUE(isEnabled("screenTopHalfHotZone"));
    control<QCheckBox>("screenTopHalfHotZone").click();
    EXPECT_EQ(value(preference::ScreenTopHalfHotZone), DefaultsValue(true));
    changeFromOutside(preference::EnableScreenTop, false);
    EXPECT_FALSE(isEnabled("screenTopHalfHotZone"));
    changeFromOutside(preference::EnableButton, false);
    EXPECT_FALSE(isEnabled("buttonLabel"));
    EXPECT_TRUE(isEnabled("enableButton"));
    EXPECT_FALSE(isEnabled("mouseButtonIdentifier"));
}

TEST_F(PreferenceBindingsTest, WaitForTheEndOfAChangeThatWasAnnounced) {
    auto& box = control<QCheckBox>("showTarragonMenu");
    window().willChangeValueForKey(preference::ShowTarragonMenu);
    window().willChangeValueForKey(preference::ShowTarragonMenu);
    changeFromOutside(preference::ShowTarragonMenu, false);
    EXPECT_TRUE(box.isChecked());
    window().didChangeValueForKey(preference::ShowTarragonMenu);
    EXPECT_TRUE(box.isChecked());
    window().didChangeValueForKey(preference::ShowTarragonMenu);
    EXPECT_FALSE(box.isChecked());
}

TEST_F(PreferenceBindingsTest, EndWithTheirWindow) {
    PreferencesWindowController* made = &controller();
    ASSERT_NE(made, nullptr);
    const std::size_t observed = fake.defaults.observedKeyPaths().size();
    {
        QtPreferencesWindow another(platform, *made, "", standardError);
        EXPECT_GT(fake.defaults.observedKeyPaths().size(), observed + 20);
    }
    EXPECT_EQ(fake.defaults.observedKeyPaths().size(), observed);
}

} // namespace
} // namespace tarragon
