#include "menus/MenuText.h"

#include <string>

#include <QFont>
#include <QKeySequence>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

QFontMetrics metrics() {
    return QFontMetrics(QFont());
}

TEST(MenuText, ShowsTabsAndLineBreaksAsBlanks) {
    EXPECT_EQ(lineOfText("a\tb\nc\rd\ve"), "a b c d e");
    EXPECT_EQ(lineOfText("a\u2028b\u2029c\u0085d"), "a b c d");
    EXPECT_EQ(lineOfText(std::string("a\0b", 3)), "a b");
}

TEST(MenuText, KeepsEveryOtherCharacter) {
    EXPECT_EQ(lineOfText(""), "");
    EXPECT_EQ(lineOfText("שלום 😀 漢字 Zoë…"), QString::fromUtf8("שלום 😀 漢字 Zoë…"));
}

TEST(MenuText, ReplacesDamagedText) {
    EXPECT_EQ(lineOfText("a\xFFz"), QString::fromUtf8("a\uFFFDz"));
}

TEST(MenuText, LeavesTextThatFitsAsItIs) {
    const QString text = "Save As";
    EXPECT_EQ(elidedToWidth(text, metrics(), 400), text);
    EXPECT_EQ(elidedToWidth(text, metrics(), metrics().horizontalAdvance(text)), text);
}

TEST(MenuText, LeavesOutTheMiddleOfTextThatIsTooWide) {
    const QString text = "The quick brown fox jumps over the lazy dog";
    const int limit = metrics().horizontalAdvance(text) / 2;
    const QString elided = elidedToWidth(text, metrics(), limit);
    EXPECT_LE(metrics().horizontalAdvance(elided), limit);
    EXPECT_GT(metrics().horizontalAdvance(elided), limit * 3 / 4);
    EXPECT_TRUE(elided.startsWith("The"));
    EXPECT_TRUE(elided.endsWith("dog"));
    EXPECT_TRUE(elided.contains(QChar(0x2026)));
}

TEST(MenuText, FitsTenThousandCharactersOfAnyKind) {
    for (const char* piece : {"W", "i", "\u0301", "😀", "ש"}) {
        std::string text;
        for (int count = 0; count < 10000; ++count)
            text += piece;
        const QString elided = elidedToWidth(lineOfText(text), metrics(), 400);
        EXPECT_LE(metrics().horizontalAdvance(elided), 400) << piece;
        EXPECT_TRUE(elided.isValidUtf16()) << piece;
    }
}

TEST(MenuText, CutsNoCharacterInHalf) {
    // The pairs lie across the places where a text that is far too long is cut.
    QString text = "x";
    for (int count = 0; count < 5000; ++count)
        text += QString::fromUtf8("😀");
    EXPECT_TRUE(elidedToWidth(text, metrics(), 1000000 / 2).isValidUtf16());
    EXPECT_TRUE(elidedToWidth(text + "x", metrics(), 50000).isValidUtf16());
}

TEST(MenuText, ShowsAmpersandsWithoutMakingMnemonics) {
    const QString text = menuText("Cut & &Paste", "Ctrl+&");
    EXPECT_EQ(text, "Cut && &&Paste\tCtrl+&&");
    EXPECT_TRUE(QKeySequence::mnemonic(text).isEmpty());
}

TEST(MenuText, HasNoTabWithoutAShortcut) {
    EXPECT_EQ(menuText("Cut", ""), "Cut");
    EXPECT_EQ(menuText("", "Ctrl+X"), "\tCtrl+X");
}

} // namespace

} // namespace tarragon
