#include "recorder/SRKeyCodeTransformer.h"

#include "fake/FakeKeyboard.h"
#include "recorder/KeyCombo.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>

namespace tarragon {
namespace {

using testing::Optional;

const std::map<std::int64_t, std::string> NamedKeys{{122, "F1"}, {120, "F2"}, {99, "F3"}, {118, "F4"}, {96, "F5"},
    {97, "F6"}, {98, "F7"}, {100, "F8"}, {101, "F9"}, {109, "F10"}, {103, "F11"}, {111, "F12"}, {105, "F13"},
    {107, "F14"}, {113, "F15"}, {106, "F16"}, {64, "F17"}, {79, "F18"}, {80, "F19"}, {49, "Space"}, {51, "⌫"},
    {117, "⌦"}, {71, "⌧"}, {123, "←"}, {124, "→"}, {126, "↑"}, {125, "↓"}, {119, "↘"}, {115, "↖"}, {53, "⎋"},
    {121, "⇟"}, {116, "⇞"}, {36, "↩"}, {76, "⌅"}, {48, "⇥"}, {114, "?"}};
const std::set<std::int64_t> KeypadKeys{65, 67, 69, 75, 78, 81, 82, 83, 84, 85, 86, 87, 88, 89, 91, 92};

TEST(SRKeyCodeTransformer, NamesEveryKeyCode) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_EQ(NamedKeys.size(), 36U);
    for (std::int64_t code = -1; code <= 127; ++code) {
        std::optional<std::string> expected;
        if (const auto named = NamedKeys.find(code); named != NamedKeys.end()) {
            expected = named->second;
        } else if (code >= 0) {
            expected = keyboard.translateKeyCode(static_cast<std::uint16_t>(code));
            if (expected && expected->front() >= 'a' && expected->front() <= 'z')
                expected->front() = static_cast<char>(expected->front() - 'a' + 'A');
            if (expected && KeypadKeys.contains(code))
                expected = "Pad " + *expected;
        }
        EXPECT_EQ(transformer.transformedValue(code), expected) << code;
    }
}

TEST(SRKeyCodeTransformer, NamesWhatTheKeysOfAUsLayoutType) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_THAT(transformer.transformedValue(18), Optional(std::string("1")));
    EXPECT_THAT(transformer.transformedValue(83), Optional(std::string("Pad 1")));
    EXPECT_THAT(transformer.transformedValue(87), Optional(std::string("Pad 5")));
    EXPECT_THAT(transformer.transformedValue(40), Optional(std::string("K")));
}

TEST(SRKeyCodeTransformer, GivesNoNameForNothingAndForNegativeCodes) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_EQ(transformer.transformedValue(std::nullopt), std::nullopt);
    EXPECT_EQ(transformer.transformedValue(-1), std::nullopt);
    EXPECT_EQ(transformer.transformedValue(-32768), std::nullopt);
}

TEST(SRKeyCodeTransformer, ReadsTheLowSixteenBitsOfANumberAsSigned) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_THAT(transformer.transformedValue(65536 + 49), Optional(std::string("Space")));
    EXPECT_EQ(transformer.transformedValue(65535), std::nullopt);
    keyboard.setTyped(32768 + 49, "x");
    EXPECT_EQ(transformer.transformedValue(32768 + 49), std::nullopt);
}

TEST(SRKeyCodeTransformer, TakesTheFirstCharacterTypedInUpperCase) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    keyboard.setTyped(41, "ö");
    EXPECT_THAT(transformer.transformedValue(41), Optional(std::string("Ö")));
    keyboard.setTyped(41, "жx");
    EXPECT_THAT(transformer.transformedValue(41), Optional(std::string("Ж")));
    keyboard.setTyped(41, "ß");
    EXPECT_THAT(transformer.transformedValue(41), Optional(std::string("SS")));
    keyboard.setTyped(41, "日本");
    EXPECT_THAT(transformer.transformedValue(41), Optional(std::string("日")));
    keyboard.setTyped(87, "пя");
    EXPECT_THAT(transformer.transformedValue(87), Optional(std::string("Pad П")));
}

TEST(SRKeyCodeTransformer, GivesNoNameWhenTheLayoutCannotTell) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    keyboard.setTyped(0, std::nullopt);
    EXPECT_EQ(transformer.transformedValue(0), std::nullopt);
    keyboard.setTyped(0, "");
    EXPECT_EQ(transformer.transformedValue(0), std::nullopt);
    keyboard.setTyped(83, std::nullopt);
    EXPECT_EQ(transformer.transformedValue(83), std::nullopt);
    keyboard.setLayoutReadable(false);
    EXPECT_EQ(transformer.transformedValue(1), std::nullopt);
    EXPECT_THAT(transformer.transformedValue(49), Optional(std::string("Space")));
}

TEST(SRKeyCodeTransformer, FindsEveryKeyByItsName) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_TRUE(SRKeyCodeTransformer::allowsReverseTransformation());
    for (std::int64_t code = 0; code <= 127; ++code) {
        if (const std::optional<std::string> name = transformer.transformedValue(code)) {
            EXPECT_THAT(transformer.reverseTransformedValue(name), Optional(code)) << *name;
        }
    }
    EXPECT_EQ(transformer.reverseTransformedValue("a"), std::nullopt);
    EXPECT_EQ(transformer.reverseTransformedValue(""), std::nullopt);
    EXPECT_EQ(transformer.reverseTransformedValue(std::nullopt), std::nullopt);
}

TEST(SRKeyCodeTransformer, FindsTheLastOfSeveralKeysWithTheSameName) {
    FakeKeyboard keyboard;
    keyboard.setTyped(10, "<");
    keyboard.setTyped(93, "<");
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_THAT(transformer.reverseTransformedValue("<"), Optional(93));
}

TEST(SRKeyCodeTransformer, GathersTheNamesOfANewLayoutOnRequest) {
    FakeKeyboard keyboard;
    SRKeyCodeTransformer transformer(keyboard);
    keyboard.setTyped(16, "z");
    keyboard.setTyped(6, "y");
    EXPECT_THAT(transformer.reverseTransformedValue("Z"), Optional(6));
    transformer.regenerateStringToKeyCodeMapping();
    EXPECT_THAT(transformer.reverseTransformedValue("Z"), Optional(16));
    EXPECT_THAT(transformer.reverseTransformedValue("Y"), Optional(6));
    keyboard.setTyped(16, std::nullopt);
    transformer.regenerateStringToKeyCodeMapping();
    EXPECT_EQ(transformer.reverseTransformedValue("Z"), std::nullopt);
}

TEST(KeyCombo, IsShownAsGlyphsAndName) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_THAT(keyComboString({49, 0x80000}, transformer), Optional(std::string("\u2325Space")));
    EXPECT_THAT(keyComboString({40, 0x1E0000}, transformer), Optional(std::string("\u2303\u2325\u21E7\u2318K")));
    EXPECT_THAT(keyComboString({122, 0}, transformer), Optional(std::string("F1")));
}

TEST(KeyCombo, IsNotShownWhenEmpty) {
    FakeKeyboard keyboard;
    const SRKeyCodeTransformer transformer(keyboard);
    EXPECT_TRUE(KeyCombo().isEmpty());
    EXPECT_EQ(keyComboString({}, transformer), std::nullopt);
    EXPECT_EQ(keyComboString({-1, 0x80000}, transformer), std::nullopt);
}

} // namespace
} // namespace tarragon
