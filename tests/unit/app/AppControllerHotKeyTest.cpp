#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t SpaceBar = 49;

class HotKeyTest : public AppTest { };

TEST_F(HotKeyTest, IsOptionSpaceOnAFreshStoreAndOpensTheMenus) {
    launch();
    ASSERT_EQ(fake.hotKeys.requested().size(), 1U);
    EXPECT_EQ(fake.hotKeys.requested()[0], (FakeHotKeys::Registration{SpaceBar, hotkey::OptionKey, {0x6D686B31, 1}}));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, IsNotRegisteredAtStartWhenItsSettingIsOff) {
    set(preference::EnableHotkey, false);
    launch();
    EXPECT_THAT(fake.hotKeys.requested(), IsEmpty());
}

TEST_F(HotKeyTest, IsUnregisteredTwiceWhenItIsSwitchedOffAndOnAgain) {
    launch();
    const HotKeyReference first = fake.hotKeys.registrations().begin()->first;
    set(preference::EnableHotkey, false);
    EXPECT_THAT(fake.hotKeys.unregistered(), ElementsAre(first));
    EXPECT_THAT(fake.hotKeys.registrations(), IsEmpty());
    EXPECT_FALSE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    set(preference::EnableHotkey, true);
    EXPECT_THAT(fake.hotKeys.unregistered(), ElementsAre(first, first));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
}

TEST_F(HotKeyTest, TakesANewCombinationAtOnce) {
    launch();
    set(preference::TriggerCharacterUInt, std::int64_t(46));
    set(preference::TriggerModifiers, std::int64_t(0x100000 | 0x20000));
    EXPECT_EQ(fake.hotKeys.requested().size(), 1U);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
    EXPECT_FALSE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    EXPECT_TRUE(fake.hotKeys.press(46, hotkey::CommandKey | hotkey::ShiftKey));
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, IsRegisteredByANewCombinationEvenWhileItIsOffWhenItNeverWasBefore) {
    set(preference::EnableHotkey, false);
    launch();
    set(preference::NewTrigger, std::string("M"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
}

TEST_F(HotKeyTest, IsRegisteredByItsOwnSettingWhenItNeverWasBefore) {
    set(preference::EnableHotkey, false);
    launch();
    set(preference::EnableHotkey, false);
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
}

TEST_F(HotKeyTest, StaysRegisteredWhenTheProgramEnds) {
    launch();
    delegate.terminate();
    EXPECT_THAT(fake.hotKeys.unregistered(), IsEmpty());
}

TEST_F(HotKeyTest, TakesTheLow32BitsOfItsKeyCodeAndDropsOtherModifiers) {
    set(preference::TriggerCharacterUInt, std::int64_t(0x100000031));
    set(preference::TriggerModifiers, std::int64_t(0x10000 | 0x40000));
    launch();
    EXPECT_EQ(fake.hotKeys.requested()[0].keyCode, SpaceBar);
    EXPECT_EQ(fake.hotKeys.requested()[0].modifiers, hotkey::ControlKey);
}

TEST_F(HotKeyTest, StaysOffWhenTheCombinationChangesAfterItWasSwitchedOff) {
    launch();
    set(preference::EnableHotkey, false);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_THAT(fake.hotKeys.registrations(), IsEmpty());
}

TEST_F(HotKeyTest, OpensOneMenuHoweverManyHandlersAreInstalled) {
    launch();
    set(preference::NewTrigger, std::string("A"));
    set(preference::NewTrigger, std::string("B"));
    EXPECT_EQ(fake.hotKeys.handlerCount(), 3U);
    fake.hotKeys.press(SpaceBar, hotkey::OptionKey);
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, TellsTheLogWhetherItIsRegisteredAndWhenItIsPressed) {
    const RecordingLog log(LogCategory::Triggers);
    launch();
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    set(preference::EnableHotkey, false);
    fake.hotKeys.setRefuses(true);
    set(preference::EnableHotkey, true);
    EXPECT_THAT(log.lines(),
        ElementsAre("triggers: hot key: key code 49 with modifier bits 2048 is registered",
            "triggers: hot key: pressed", "triggers: hot key: switched off",
            "triggers: hot key: key code 49 with modifier bits 2048 is refused and never fires"));
}

TEST_F(HotKeyTest, ThatTheDesktopRefusesLeavesEverythingElseWorking) {
    fake.hotKeys.setRefuses(true);
    launch();
    EXPECT_TRUE(fake.hotKeys.isRefused());
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    fake.hotKeys.setRefuses(false);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
}

} // namespace
} // namespace tarragon
