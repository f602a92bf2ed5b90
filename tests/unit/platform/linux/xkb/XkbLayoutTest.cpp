#include "platform/linux/xkb/XkbLayout.h"

#include "platform/linux/xkb/KeyCodes.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <gmock/gmock.h>

#include <map>
#include <string>

namespace tarragon {
namespace {

using testing::Optional;

// A keyboard that has one layout only.
class NamedKeyboard : public Keyboard {
public:
    explicit NamedKeyboard(const std::string& layout, const std::string& variant = {})
        : _layout(XkbLayout::named(layout, variant)) { }
    std::optional<std::string> translateKeyCode(std::uint16_t keyCode) override {
        const std::uint8_t key = x11KeyCode(keyCode);
        return _layout && key ? _layout->textOfKey(key) : std::nullopt;
    }
    std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() override { return std::nullopt; }

private:
    std::optional<XkbLayout> _layout;
};

// The names of the keys that are named by what they type, in rows of the keyboard from the top.
const std::vector<std::vector<std::int64_t>> Rows{{50, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24},
    {12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30}, {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 42},
    {6, 7, 8, 9, 11, 45, 46, 43, 47, 44}};

std::vector<std::string> namesOfRows(const std::string& layout, const std::string& variant = {}) {
    NamedKeyboard keyboard(layout, variant);
    const SRKeyCodeTransformer transformer(keyboard);
    std::vector<std::string> rows;
    for (const std::vector<std::int64_t>& row : Rows) {
        std::string names;
        for (const std::int64_t keyCode : row)
            names += transformer.transformedValue(keyCode).value_or("(nil)");
        rows.push_back(names);
    }
    return rows;
}

TEST(XkbLayout, NamesTheKeysOfAUsKeyboard) {
    EXPECT_THAT(
        namesOfRows("us"), testing::ElementsAre("`1234567890-=", "QWERTYUIOP[]", "ASDFGHJKL;'\\", "ZXCVBNM,./"));
}

TEST(XkbLayout, NamesTheKeysOfAGermanKeyboard) {
    EXPECT_THAT(
        namesOfRows("de"), testing::ElementsAre("^1234567890SS´", "QWERTZUIOPÜ+", "ASDFGHJKLÖÄ#", "YXCVBNM,.-"));
}

TEST(XkbLayout, NamesTheKeysOfAFrenchKeyboard) {
    EXPECT_THAT(
        namesOfRows("fr"), testing::ElementsAre("²&É\"'(-È_ÇÀ)=", "AZERTYUIOP^$", "QSDFGHJKLMÙ*", "WXCVBN,;:!"));
}

TEST(XkbLayout, NamesTheKeysOfAlphabetsThatAreNotLatin) {
    EXPECT_EQ(namesOfRows("ru")[1], "ЙЦУКЕНГШЩЗХЪ");
    EXPECT_EQ(namesOfRows("gr")[2], "ΑΣΔΦΓΗΞΚΛ´'\\");
}

TEST(XkbLayout, HasNoKeysInALayoutThatDoesNotExist) {
    EXPECT_FALSE(XkbLayout::named("no such layout"));
}

TEST(XkbLayout, TypesNumbersOnTheKeypad) {
    NamedKeyboard keyboard("us");
    const SRKeyCodeTransformer transformer(keyboard);
    const std::map<std::int64_t, std::string> names{{65, "Pad ."}, {67, "Pad *"}, {69, "Pad +"}, {75, "Pad /"},
        {78, "Pad -"}, {81, "Pad ="}, {82, "Pad 0"}, {83, "Pad 1"}, {84, "Pad 2"}, {85, "Pad 3"}, {86, "Pad 4"},
        {87, "Pad 5"}, {88, "Pad 6"}, {89, "Pad 7"}, {91, "Pad 8"}, {92, "Pad 9"}};
    for (const auto& [keyCode, name] : names)
        EXPECT_THAT(transformer.transformedValue(keyCode), Optional(name)) << keyCode;
    NamedKeyboard german("de");
    EXPECT_THAT(SRKeyCodeTransformer(german).transformedValue(65), Optional(std::string("Pad ,")));
}

TEST(XkbLayout, TypesNothingOnKeysThatTypeNoText) {
    const std::optional<XkbLayout> layout = XkbLayout::named("us");
    ASSERT_TRUE(layout);
    // Escape, Backspace, Tab, Return, Shift, F1, Delete and keys that are not there.
    for (const int key : {9, 22, 23, 36, 50, 67, 119, 0, 7, 255})
        EXPECT_EQ(layout->textOfKey(static_cast<std::uint8_t>(key)), std::nullopt) << key;
}

TEST(XkbLayout, TypesTheMarkOfADeadKey) {
    const std::optional<XkbLayout> layout = XkbLayout::named("us", "intl");
    ASSERT_TRUE(layout);
    EXPECT_THAT(layout->textOfKey(49), Optional(std::string("`")));
    EXPECT_THAT(layout->textOfKey(48), Optional(std::string("´")));
}

// Of several keys with the same name the one with the highest code is found, and every name is found.
TEST(XkbLayout, FindsEveryKeyByItsNameInEachLayout) {
    for (const char* layout : {"us", "de", "fr", "ru", "jp"}) {
        NamedKeyboard keyboard(layout);
        const SRKeyCodeTransformer transformer(keyboard);
        std::map<std::string, std::int64_t> lastKeyCode;
        for (std::int64_t keyCode = -1; keyCode <= 127; ++keyCode) {
            if (const std::optional<std::string> name = transformer.transformedValue(keyCode))
                lastKeyCode[*name] = keyCode;
        }
        EXPECT_GT(lastKeyCode.size(), 80U) << layout;
        for (const auto& [name, keyCode] : lastKeyCode)
            EXPECT_THAT(transformer.reverseTransformedValue(name), Optional(keyCode)) << layout << " " << name;
    }
}

TEST(XkbLayout, FindsALetterWhereTheLayoutHasIt) {
    const std::map<std::string, std::int64_t> keyOfZ{{"us", 6}, {"de", 16}, {"fr", 13}};
    for (const auto& [layout, keyCode] : keyOfZ) {
        NamedKeyboard keyboard(layout);
        EXPECT_THAT(SRKeyCodeTransformer(keyboard).reverseTransformedValue("Z"), Optional(keyCode)) << layout;
    }
}

TEST(XkbLayout, FindsAKeyByTheNameOfItsSymbol) {
    const std::optional<XkbLayout> us = XkbLayout::named("us");
    const std::optional<XkbLayout> german = XkbLayout::named("de");
    ASSERT_TRUE(us && german);
    EXPECT_THAT(us->keyOfSymbol("F4"), Optional(70));
    EXPECT_THAT(us->keyOfSymbol("space"), Optional(65));
    EXPECT_THAT(us->keyOfSymbol("Delete"), Optional(119));
    EXPECT_THAT(us->keyOfSymbol("y"), Optional(29));
    EXPECT_THAT(us->keyOfSymbol("Y"), Optional(29));
    EXPECT_THAT(german->keyOfSymbol("y"), Optional(52));
    EXPECT_EQ(us->keyOfSymbol("no such key"), std::nullopt);
    EXPECT_EQ(us->keyOfSymbol(""), std::nullopt);
}

} // namespace
} // namespace tarragon
