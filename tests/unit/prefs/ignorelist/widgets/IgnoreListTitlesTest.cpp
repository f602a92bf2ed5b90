#include "IgnoreListViewFixture.h"

#include <QSignalSpy>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Placeholder = "Type new window title or wildcard pattern here";

// Titles are added, edited and removed.
class IgnoreListTitlesTest : public IgnoreListViewFixture { };

TEST_F(IgnoreListTitlesTest, AddsATitleThatIsARealPatternUntilItIsEdited) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    click(button("addTitle"));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", Placeholder));
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->selectedText(), Placeholder);
    QTest::keyClicks(editor(), "Untitled*");
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "Untitled*"));
    EXPECT_THAT(rows(titles()), ElementsAre("a", "Untitled*"));
    EXPECT_EQ(selectedRow(titles()), 1);
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(IgnoreListTitlesTest, KeepsThePatternWhenEditingIsCancelled) {
    store({entry("Editor")});
    open();
    click(applications(), 0);
    click(button("addTitle"));
    type("Unfinished");
    QTest::keyClick(editor(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre(Placeholder));
}

TEST_F(IgnoreListTitlesTest, AnEditedRowMovesToTheBottom) {
    for (const int key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        store({entry("Editor", {"a", "b", "c"})});
        open();
        click(applications(), 0);
        click(titles(), 0);
        const QSignalSpy moved(titles()->model(), &QAbstractItemModel::rowsMoved);
        const QSignalSpy removed(titles()->model(), &QAbstractItemModel::rowsRemoved);
        QTest::keyClick(titles(), Qt::Key(key));
        type("x");
        QTest::keyClick(editor(), Qt::Key_Return);
        settle();
        EXPECT_EQ(moved.count(), 1);
        EXPECT_EQ(removed.count(), 0);
        EXPECT_THAT(rows(titles()), ElementsAre("b", "c", "x"));
        EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", "x"));
        EXPECT_EQ(selectedRow(titles()), 2);
    }
}

TEST_F(IgnoreListTitlesTest, DrawsTheLastRowAnewThatIsEdited) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    QAbstractItemModel* model = titles()->model();
    const QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model->setData(model->index(1, 0), "x", Qt::EditRole));
    ASSERT_FALSE(changed.isEmpty());
    EXPECT_EQ(changed.first().at(0).value<QModelIndex>().row(), 1);
}

TEST_F(IgnoreListTitlesTest, ChangesNothingButTheTextOfARow) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    QAbstractItemModel* model = titles()->model();
    EXPECT_FALSE(model->setData(model->index(0, 0), "x", Qt::ToolTipRole));
    EXPECT_FALSE(model->setData({}, "x", Qt::EditRole));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b"));
}

TEST_F(IgnoreListTitlesTest, SelectsNothingInPlaceOfARowThatWasNotSelected) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 1);
    QTest::mouseClick(titles()->viewport(), Qt::LeftButton, Qt::ControlModifier,
        titles()->visualRect(titles()->model()->index(1, 0)).center());
    ASSERT_EQ(selectedRow(titles()), -1);
    store({entry("Editor", {"a"})});
    EXPECT_EQ(selectedRow(titles()), -1);
    EXPECT_FALSE(button("removeTitle")->isEnabled());
}

TEST_F(IgnoreListTitlesTest, EditsWithADoubleClickAndEndsWithTab) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    const QPoint place = titles()->visualRect(titles()->model()->index(0, 0)).center();
    QTest::mouseDClick(titles()->viewport(), Qt::LeftButton, {}, place);
    type("x");
    QTest::keyClick(editor(), Qt::Key_Tab);
    settle();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_THAT(rows(titles()), ElementsAre("b", "x"));
}

TEST_F(IgnoreListTitlesTest, EndsEditingWithTabBackwardsToo) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 1);
    QTest::keyClick(titles(), Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    QTest::keyClick(editor(), Qt::Key_Backtab, Qt::ShiftModifier);
    settle();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_THAT(rows(titles()), ElementsAre("a", "b"));
}

TEST_F(IgnoreListTitlesTest, ARowThatIsLeftAsItWasStaysWhereItIs) {
    store({entry("Editor", {"a", "two\nlines", "c"})});
    open();
    click(applications(), 0);
    for (const int row : {0, 1}) {
        click(titles(), row);
        QTest::keyClick(titles(), Qt::Key_F2);
        ASSERT_NE(editor(), nullptr);
        QTest::keyClick(editor(), Qt::Key_Return);
        settle();
    }
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "two\nlines", "c"));
    EXPECT_THAT(rows(titles()), ElementsAre("a", "two lines", "c"));
}

TEST_F(IgnoreListTitlesTest, LeavesATitleWhereItIsThatIsTypedAsItWas) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("a");
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b"));
}

// The field of an editor holds no more than a part of it.
TEST_F(IgnoreListTitlesTest, DoesNotCutAVeryLongTitleThatIsLeftAsItWas) {
    const std::string longTitle(40000, 'a');
    store({entry("Editor", {longTitle, "b"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre(longTitle, "b"));
}

TEST_F(IgnoreListTitlesTest, StoresWhatIsBeingTypedWhenAnotherApplicationIsSelected) {
    store({entry("Editor", {"a", "b"}), entry("Clock", {"c", "d"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("x");
    click(applications(), 1);
    settle();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "x"));
    EXPECT_THAT(storedTitles("Clock"), ElementsAre("c", "d"));
    EXPECT_THAT(rows(titles()), ElementsAre("c", "d"));
    EXPECT_EQ(selectedRow(titles()), -1);
}

TEST_F(IgnoreListTitlesTest, GoesOnEditingWhileOthersChangeTheList) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 1);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("half");
    store({entry("Clock"), entry("Editor", {"b"})});
    store({entry("Clock"), entry("Editor", {"b", "new"})});
    settle();
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), "half");
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("new", "half"));
    EXPECT_EQ(selectedRow(applications()), 1);
}

TEST_F(IgnoreListTitlesTest, DropsWhatIsTypedIntoARowThatOthersRemove) {
    for (const int row : {0, 1}) {
        store({entry("Editor", {"a", "b"})});
        open();
        click(applications(), 0);
        click(titles(), row);
        QTest::keyClick(titles(), Qt::Key_F2);
        type("half");
        // Above another one or below it: that one is not to get the text.
        const std::string left = row == 0 ? "b" : "a";
        store({entry("Editor", {left})});
        settle();
        EXPECT_EQ(editor(), nullptr);
        EXPECT_THAT(storedTitles("Editor"), ElementsAre(left));
        EXPECT_THAT(rows(titles()), ElementsAre(left));
    }
}

TEST_F(IgnoreListTitlesTest, RemovesTitlesOneAfterAnotherWithTheDeleteKey) {
    store({entry("Editor", {"a", "b", "c"})});
    open();
    click(applications(), 0);
    QTest::keyClick(titles(), Qt::Key_Delete);
    EXPECT_THAT(rows(titles()), ElementsAre("a", "b", "c"));
    click(titles(), 1);
    QTest::keyClick(titles(), Qt::Key_Delete);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "c"));
    EXPECT_EQ(selectedRow(titles()), 1);
    QTest::keyClick(titles(), Qt::Key_Delete);
    EXPECT_EQ(selectedRow(titles()), 0);
    click(button("removeTitle"));
    EXPECT_THAT(storedTitles("Editor"), IsEmpty());
    EXPECT_FALSE(button("removeTitle")->isEnabled());
    EXPECT_TRUE(storedEntry("Editor"));
}

TEST_F(IgnoreListTitlesTest, DeletesCharactersWhileARowIsEdited) {
    store({entry("Editor", {"abc"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    editor()->setCursorPosition(0);
    QTest::keyClick(editor(), Qt::Key_Delete);
    EXPECT_EQ(editor()->text(), "bc");
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("abc"));
}

TEST_F(IgnoreListTitlesTest, MovesBetweenTitlesWithTheArrowKeys) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_Down);
    EXPECT_EQ(selectedRow(titles()), 1);
    EXPECT_EQ(editor(), nullptr);
}

} // namespace
} // namespace tarragon
