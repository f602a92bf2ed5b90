#include "triggers/JTMouseHotKey.h"

#include "fake/FakeInputEvents.h"
#include "fake/FakeRunLoop.h"
#include "triggers/JTMouseHotKeyDelegate.h"

#include <gmock/gmock.h>

#include <optional>
#include <sstream>
#include <vector>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr InputEventMask OtherDownMask = 0x2000000;

InputEvent press(std::uint32_t button) {
    return {InputEventType::OtherMouseDown, button};
}

class RecordingDelegate : public JTMouseHotKeyDelegate {
public:
    void mouseHotKeyMouseButtonActioned(JTMouseHotKey& mouseHotKey, std::uint32_t buttonNumber) override {
        senders.push_back(&mouseHotKey);
        buttons.push_back(buttonNumber);
    }
    std::vector<JTMouseHotKey*> senders;
    std::vector<std::uint32_t> buttons;
};

class JTMouseHotKeyTest : public testing::Test {
protected:
    JTMouseHotKeyTest() { mouseHotKey.setDelegate(&delegate); }

    FakeInputEvents input;
    FakeRunLoop runLoop;
    std::ostringstream standardError;
    RecordingDelegate delegate;
    JTMouseHotKey mouseHotKey{&input, runLoop, standardError};
};

TEST_F(JTMouseHotKeyTest, ListensToPressesOfOtherButtonsAndToNothingElse) {
    ASSERT_TRUE(mouseHotKey.awakeFromNib());
    EXPECT_THAT(input.enabledTapMasks(), ElementsAre(OtherDownMask));
    EXPECT_THAT(input.monitorMasks(), IsEmpty());
    EXPECT_EQ(standardError.str(), "");
    EXPECT_EQ(runLoop.exitStatus(), std::nullopt);
}

TEST_F(JTMouseHotKeyTest, ListensToNothingBeforeItIsSetUp) {
    EXPECT_EQ(input.tapCount(), 0U);
}

TEST_F(JTMouseHotKeyTest, TellsTheDelegateOfTheMiddleButtonAndThoseBeyondItWithItsOwnName) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    for (const std::uint32_t button : {2U, 3U, 4U, 31U})
        input.send(press(button));
    EXPECT_THAT(delegate.buttons, ElementsAre(2U, 3U, 4U, 31U));
    EXPECT_THAT(delegate.senders, testing::Each(&mouseHotKey));
}

// A desktop may take the left and the right button for other ones.
TEST_F(JTMouseHotKeyTest, NeverTellsOfTheLeftAndTheRightButton) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_TRUE(input.send(press(0)));
    EXPECT_TRUE(input.send(press(1)));
    EXPECT_THAT(delegate.buttons, IsEmpty());
}

TEST_F(JTMouseHotKeyTest, LetsEveryPressGoOnToTheApplication) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_TRUE(input.send(press(2)));
    EXPECT_TRUE(input.send(press(3)));
    mouseHotKey.setDelegate(nullptr);
    EXPECT_TRUE(input.send(press(2)));
}

TEST_F(JTMouseHotKeyTest, HearsPressesThatGoToThisProgramToo) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_TRUE(input.sendToUs(press(2)));
    EXPECT_THAT(delegate.buttons, ElementsAre(2U));
}

TEST_F(JTMouseHotKeyTest, TellsNobodyWithoutADelegate) {
    EXPECT_EQ(JTMouseHotKey(&input, runLoop, standardError).delegate(), nullptr);
    EXPECT_EQ(mouseHotKey.delegate(), &delegate);
    mouseHotKey.setDelegate(nullptr);
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    input.send(press(2));
    EXPECT_THAT(delegate.buttons, IsEmpty());
}

TEST_F(JTMouseHotKeyTest, AsksADelegateThatDoesNotCareForNothing) {
    JTMouseHotKeyDelegate careless;
    mouseHotKey.setDelegate(&careless);
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_TRUE(input.send(press(2)));
}

class DisabledTapTest : public JTMouseHotKeyTest, public testing::WithParamInterface<InputEventType> { };

TEST_P(DisabledTapTest, IsEnabledAgainAtOnceAndKeepsTheNoticeToItself) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_FALSE(input.disableTaps(GetParam()));
    EXPECT_THAT(input.enabledTapMasks(), ElementsAre(OtherDownMask));
    EXPECT_THAT(delegate.buttons, IsEmpty());
    input.send(press(3));
    EXPECT_THAT(delegate.buttons, ElementsAre(3U));
}

INSTANTIATE_TEST_SUITE_P(Reasons, DisabledTapTest,
    testing::Values(InputEventType::TapDisabledByTimeout, InputEventType::TapDisabledByUserInput));

TEST_F(JTMouseHotKeyTest, HearsNothingWhileItIsDisabled) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    mouseHotKey.disableTap();
    EXPECT_THAT(input.enabledTapMasks(), IsEmpty());
    EXPECT_EQ(input.tapCount(), 1U);
    input.send(press(2));
    mouseHotKey.enableTap();
    input.send(press(3));
    EXPECT_THAT(delegate.buttons, ElementsAre(3U));
}

TEST_F(JTMouseHotKeyTest, GivesTheTapBackWhenItIsKilledHoweverOften) {
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    mouseHotKey.killTap();
    EXPECT_EQ(input.tapCount(), 0U);
    mouseHotKey.killTap();
    mouseHotKey.enableTap();
    input.send(press(2));
    EXPECT_THAT(delegate.buttons, IsEmpty());
}

class KillingDelegate : public JTMouseHotKeyDelegate {
public:
    void mouseHotKeyMouseButtonActioned(JTMouseHotKey& mouseHotKey, std::uint32_t) override { mouseHotKey.killTap(); }
};

TEST_F(JTMouseHotKeyTest, MayBeKilledByWhoeverHearsOfAPress) {
    KillingDelegate killing;
    mouseHotKey.setDelegate(&killing);
    ASSERT_TRUE(mouseHotKey.setupMouseUpEventTap());
    EXPECT_TRUE(input.send(press(2)));
    EXPECT_EQ(input.tapCount(), 0U);
}

TEST_F(JTMouseHotKeyTest, EndsTheProgramWithAMessageWherePressesCannotBeHad) {
    input.setRefuses(true);
    EXPECT_FALSE(mouseHotKey.awakeFromNib());
    EXPECT_EQ(standardError.str(), "failed to create event tap\n");
    EXPECT_EQ(runLoop.exitStatus(), 1);
    mouseHotKey.enableTap();
    mouseHotKey.killTap();
}

TEST_F(JTMouseHotKeyTest, EndsTheProgramOnADesktopThatTellsNothingOfInput) {
    JTMouseHotKey other(nullptr, runLoop, standardError);
    EXPECT_FALSE(other.awakeFromNib());
    EXPECT_EQ(standardError.str(), "failed to create event tap\n");
    EXPECT_EQ(runLoop.exitStatus(), 1);
}

} // namespace
} // namespace tarragon
