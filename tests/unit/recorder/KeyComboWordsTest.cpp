#include "recorder/KeyComboWords.h"

#include "fake/FakeKeyboard.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace tarragon {
namespace {

using testing::Contains;

class KeyComboWordsTest : public testing::Test {
protected:
    FakeKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
};

TEST_F(KeyComboWordsTest, NamesModifiersInAFixedOrder) {
    EXPECT_EQ(modifierWords(0), "");
    EXPECT_EQ(modifierWords(modifier::Option), "Option+");
    EXPECT_EQ(modifierWords(modifier::Shift | modifier::Control | modifier::Option | modifier::Command),
        "Command+Option+Control+Shift+");
    EXPECT_EQ(modifierWords(modifier::Function | 0x10000U), "");
}

TEST_F(KeyComboWordsTest, HasAWordForEveryKeyThatIsNamedByAGlyph) {
    const std::vector<std::pair<int, std::string>> words{{36, "Return"}, {48, "Tab"}, {49, "Space"}, {51, "Backspace"},
        {53, "Escape"}, {71, "Clear"}, {76, "Enter"}, {114, "Help"}, {115, "Home"}, {116, "Page Up"}, {117, "Delete"},
        {119, "End"}, {121, "Page Down"}, {123, "Left"}, {124, "Right"}, {125, "Down"}, {126, "Up"}};
    for (const auto& [keyCode, word] : words) {
        EXPECT_EQ(keyWord(static_cast<std::int16_t>(keyCode), transformer), word);
        EXPECT_THAT(longKeyWords(), Contains(word));
    }
}

TEST_F(KeyComboWordsTest, NamesOtherKeysAsTheTransformerDoes) {
    EXPECT_EQ(keyWord(40, transformer), "K");
    EXPECT_EQ(keyWord(96, transformer), "F5");
    EXPECT_EQ(keyWord(83, transformer), "Pad 1");
    EXPECT_EQ(keyWord(69, transformer), "Pad +");
    EXPECT_EQ(keyWord(10, transformer), "") << "types nothing";
    EXPECT_EQ(keyWord(-1, transformer), "");
}

TEST_F(KeyComboWordsTest, NamesACombination) {
    EXPECT_EQ(keyComboWords({}, transformer), "");
    EXPECT_EQ(keyComboWords({49, modifier::Option}, transformer), "Option+Space");
    EXPECT_EQ(keyComboWords({-1, modifier::Option}, transformer), "");
    EXPECT_EQ(keyComboWords({0, 0}, transformer), "A");
}

} // namespace
} // namespace tarragon
