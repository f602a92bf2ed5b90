#include "platform/UnicodeText.h"

#include <gtest/gtest.h>

#include <string>

namespace tarragon {
namespace {

TEST(UnicodeText, ReadsCharactersOfEveryLength) {
    EXPECT_EQ(charactersOf("aé日𝄞"), U"aé日𝄞");
    EXPECT_EQ(charactersOf(""), U"");
    EXPECT_EQ(charactersOf(std::string_view("a\0b", 3)), std::u32string_view(U"a\0b", 3));
    EXPECT_EQ(charactersOf("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
        U"\x7F\x80\x7FF\x800\xFFFF\x10000\x10FFFF");
}

TEST(UnicodeText, TakesEveryByteThatBelongsToNoCharacterForTheReplacement) {
    EXPECT_EQ(charactersOf("a\xFF"
                           "b"),
        U"a\xFFFD"
        U"b");
    EXPECT_EQ(charactersOf("\x80"), U"\xFFFD");
    EXPECT_EQ(charactersOf("\xC3"), U"\xFFFD"); // cut off
    EXPECT_EQ(charactersOf("\xE6\x97"), U"\xFFFD\xFFFD");
    EXPECT_EQ(charactersOf("\xC3(x"), U"\xFFFD(x"); // not continued
    EXPECT_EQ(charactersOf("\xC0\xAF"), U"\xFFFD\xFFFD"); // longer than needed
    EXPECT_EQ(charactersOf("\xE0\x9F\xBF"), U"\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(charactersOf("\xF0\x8F\xBF\xBF"), U"\xFFFD\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(charactersOf("\xED\xA0\x80"), U"\xFFFD\xFFFD\xFFFD"); // a surrogate
    EXPECT_EQ(charactersOf("\xF4\x90\x80\x80"), U"\xFFFD\xFFFD\xFFFD\xFFFD"); // beyond the last one
    EXPECT_EQ(charactersOf("\xF8\x88\x80\x80\x80"), U"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD");
}

TEST(UnicodeText, WritesWhatItReads) {
    for (char32_t character = 0; character <= 0x10FFFF; character += character < 0x3000 ? 1 : 251) {
        const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
        const std::u32string text(1, character);
        EXPECT_EQ(charactersOf(utf8Text(text)), isSurrogate ? std::u32string(1, 0xFFFD) : text);
    }
    EXPECT_EQ(utf8Text(std::u32string(1, 0x110000)), "\uFFFD");
}

TEST(UnicodeText, MakesTextWellFormedAndLeavesItSo) {
    EXPECT_EQ(wellFormedText("plain"), "plain");
    EXPECT_EQ(wellFormedText("Grüße 日本"), "Grüße 日本");
    EXPECT_EQ(wellFormedText("a\xFF"), "a\uFFFD");
    EXPECT_EQ(wellFormedText(wellFormedText("\xED\xA0\x80")), wellFormedText("\xED\xA0\x80"));
}

TEST(UnicodeText, KnowsUpperAndLowerCaseOfManyAlphabets) {
    EXPECT_EQ(uppercaseText("aß-é ñ ж σ ա 1 日"), "ASS-É Ñ Ж Σ Ա 1 日");
    EXPECT_EQ(uppercaseText("i"), "I");
    EXPECT_EQ(lowercaseText("AÉ Ж Σ 1"), "aé ж σ 1");
    EXPECT_EQ(uppercaseText("\xFF"), "\uFFFD");
}

} // namespace
} // namespace tarragon
