#include "menus/MenuTypeSelect.h"

#include <gtest/gtest.h>

namespace tarragon {

namespace {

using std::chrono::milliseconds;

class MenuTypeSelectTest : public testing::Test {
protected:
    // Types one letter after another; answers where the last one led, going on from each item found.
    std::optional<std::size_t> type(const QString& letters, milliseconds pause = milliseconds(100)) {
        std::optional<std::size_t> found;
        for (const QChar letter : letters) {
            _now += pause;
            found = _typeSelect.type(QString(letter), _titles, _current, _now);
            if (found)
                _current = found;
        }
        return found;
    }

    std::vector<QString> _titles = {"File", "Edit", "Find", "", "Format", "edge", "Élan"};
    std::optional<std::size_t> _current;
    MenuTypeSelect _typeSelect;
    MenuTypeSelect::Time _now{};
};

TEST_F(MenuTypeSelectTest, FindsTheFirstTitleThatBeginsWithTheLetter) {
    EXPECT_EQ(type("e"), 1U);
}

TEST_F(MenuTypeSelectTest, NeverMindsTheCase) {
    EXPECT_EQ(type("E"), 1U);
    EXPECT_EQ(type(QString::fromUtf8("é"), milliseconds(5000)), 6U);
}

TEST_F(MenuTypeSelectTest, FindsNothingWhereNoTitleBeginsSo) {
    EXPECT_EQ(type("i"), std::nullopt);
    EXPECT_EQ(type("x"), std::nullopt);
}

TEST_F(MenuTypeSelectTest, NarrowsTheSearchDownWithEveryLetter) {
    EXPECT_EQ(type("f"), 0U);
    EXPECT_EQ(type("o"), 4U);
    EXPECT_EQ(type("r"), 4U);
}

TEST_F(MenuTypeSelectTest, StaysOnTheItemWhileItFits) {
    _current = 1;
    EXPECT_EQ(type("fi"), 2U);
    EXPECT_EQ(type("n"), 2U);
}

TEST_F(MenuTypeSelectTest, GoesOnToTheNextWithTheSameLetter) {
    EXPECT_EQ(type("f"), 0U);
    EXPECT_EQ(type("f"), 2U);
    EXPECT_EQ(type("f"), 4U);
    EXPECT_EQ(type("f"), 0U);
}

TEST_F(MenuTypeSelectTest, StartsAnewAfterAWhile) {
    EXPECT_EQ(type("f"), 0U);
    EXPECT_EQ(type("e", MenuTypeSelect::Patience + milliseconds(1)), 1U);
}

TEST_F(MenuTypeSelectTest, SearchesBehindTheCurrentItemFirst) {
    _current = 2;
    EXPECT_EQ(type("e"), 5U);
}

TEST_F(MenuTypeSelectTest, SkipsItemsThatCannotBeChosen) {
    _titles = {"", ""};
    EXPECT_EQ(type("f"), std::nullopt);
    _titles = {};
    EXPECT_EQ(type("f"), std::nullopt);
}

TEST_F(MenuTypeSelectTest, IsTypingUntilTheUserPauses) {
    EXPECT_FALSE(_typeSelect.isTyping(_now));
    type("f");
    EXPECT_TRUE(_typeSelect.isTyping(_now + MenuTypeSelect::Patience));
    EXPECT_FALSE(_typeSelect.isTyping(_now + MenuTypeSelect::Patience + milliseconds(1)));
}

} // namespace

} // namespace tarragon
