#include "prefs/ignorelist/widgets/ApplicationChooser.h"

#include "IgnoreListViewFixture.h"

#include <QFileDialog>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

// The dialog by itself.
class ApplicationChooserTest : public IgnoreListViewFixture {
protected:
    ApplicationChooserTest() {
        installed.addApplication({"/apps/zebra.desktop", "org.example.Zebra", "apple", {}, "zebra-bin", ""});
        installed.addApplication({"/apps/nothing.desktop", "", "Nothing", {}, {}, ""});
        installed.addApplication({"/apps/hidden.desktop", "org.example.Hidden", "Hidden", {}, {}, ""}, false);
    }
    void openChooser() {
        chooser = std::make_unique<ApplicationChooser>(installed, icons, folder.path().toStdString());
        chooser->show();
        chooser->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(chooser.get()));
    }
    QLineEdit* searchField() const { return chooser->findChild<QLineEdit*>("searchField"); }
    QTreeView* list() const { return chooser->findChild<QTreeView*>("applications"); }
    QPushButton* button(const char* name) const { return chooser->findChild<QPushButton*>(name); }

    QTemporaryDir folder;
    ApplicationIcons icons{&installed};
    std::unique_ptr<ApplicationChooser> chooser;
};

TEST_F(ApplicationChooserTest, ListsWhatIsInstalledByName) {
    openChooser();
    EXPECT_THAT(rows(list()), ElementsAre("apple", "Clock", "Editor", "Player"));
    EXPECT_FALSE(list()->model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(button("add")->isEnabled());
    EXPECT_TRUE(searchField()->hasFocus());
}

TEST_F(ApplicationChooserTest, TakesTheFirstMatchOfASearchWithEnter) {
    openChooser();
    QTest::keyClicks(searchField(), "eD");
    EXPECT_THAT(rows(list()), ElementsAre("Editor"));
    QTest::keyClick(searchField(), Qt::Key_Return);
    EXPECT_EQ(chooser->result(), QDialog::Accepted);
    EXPECT_THAT(chooser->chosenPath(), Optional(std::string("/apps/editor.desktop")));
}

TEST_F(ApplicationChooserTest, FindsByProgramAndIdentifierAndEveryWord) {
    openChooser();
    searchField()->setText("zebra-bin");
    EXPECT_THAT(rows(list()), ElementsAre("apple"));
    searchField()->setText("org.example.play");
    EXPECT_THAT(rows(list()), ElementsAre("Player"));
    searchField()->setText("  example   CLOCK ");
    EXPECT_THAT(rows(list()), ElementsAre("Clock"));
    searchField()->setText("nowhere");
    EXPECT_THAT(rows(list()), IsEmpty());
    EXPECT_FALSE(button("add")->isEnabled());
    QTest::keyClick(searchField(), Qt::Key_Return);
    EXPECT_TRUE(chooser->isVisible());
    searchField()->clear();
    EXPECT_EQ(rows(list()).size(), 4U);
    EXPECT_EQ(selectedRow(list()), -1) << "the user has pointed to none";
}

TEST_F(ApplicationChooserTest, ListsNumbersInTheirOrderAndNothingWithoutAName) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English));
    installed.addApplication({"/apps/ten.desktop", "org.example.Ten", "Tool 10", {}, {}, ""});
    installed.addApplication({"/apps/nine.desktop", "org.example.Nine", "Tool 9", {}, {}, ""});
    installed.addApplication({"/apps/unknown.desktop", "org.example.Unknown", "unknown", {}, {}, ""});
    openChooser();
    EXPECT_THAT(rows(list()), ElementsAre("apple", "Clock", "Editor", "Player", "Tool 9", "Tool 10"));
    QLocale::setDefault(before);
}

TEST_F(ApplicationChooserTest, MovesByPagesFromTheSearchField) {
    openChooser();
    QTest::keyClick(searchField(), Qt::Key_Down);
    QTest::keyClick(searchField(), Qt::Key_PageDown);
    EXPECT_EQ(selectedRow(list()), 3);
    QTest::keyClick(searchField(), Qt::Key_PageUp);
    EXPECT_EQ(selectedRow(list()), 0);
}

TEST_F(ApplicationChooserTest, MovesTheSelectionFromTheSearchField) {
    openChooser();
    QTest::keyClick(searchField(), Qt::Key_Down);
    QTest::keyClick(searchField(), Qt::Key_Down);
    const int row = selectedRow(list());
    EXPECT_GE(row, 0);
    QTest::keyClick(searchField(), Qt::Key_Down);
    EXPECT_EQ(selectedRow(list()), row + 1);
    QTest::keyClick(searchField(), Qt::Key_Up);
    EXPECT_EQ(selectedRow(list()), row);
    EXPECT_TRUE(searchField()->hasFocus());
    EXPECT_TRUE(button("add")->isEnabled());
}

TEST_F(ApplicationChooserTest, TakesTheApplicationThatIsDoubleClicked) {
    openChooser();
    const QPoint place = list()->visualRect(list()->model()->index(3, 0)).center();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(chooser->isVisible());
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(chooser->chosenPath(), Optional(std::string("/apps/player.desktop")));
}

TEST_F(ApplicationChooserTest, TakesTheSelectedApplicationWithEnterInTheList) {
    openChooser();
    QTest::mouseClick(
        list()->viewport(), Qt::LeftButton, {}, list()->visualRect(list()->model()->index(1, 0)).center());
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_THAT(chooser->chosenPath(), Optional(std::string("/apps/clock.desktop")));
}

TEST_F(ApplicationChooserTest, ChoosesNothingWhenItIsCancelled) {
    openChooser();
    searchField()->setText("ed");
    QTest::keyClick(searchField(), Qt::Key_Escape);
    EXPECT_EQ(chooser->result(), QDialog::Rejected);
    EXPECT_EQ(chooser->chosenPath(), std::nullopt);
    openChooser();
    click(button("cancel"));
    EXPECT_EQ(chooser->chosenPath(), std::nullopt);
    EXPECT_FALSE(chooser->isVisible());
}

TEST_F(ApplicationChooserTest, FindsOtherApplicationsByTheirFile) {
    QFile file(folder.filePath("program"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    openChooser();
    click(button("other"));
    auto* const dialog = chooser->findChild<QFileDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->directory().absolutePath(), QDir(folder.path()).absolutePath());
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFile);
    EXPECT_TRUE(chooser->isVisible());
    emit dialog->fileSelected(file.fileName());
    EXPECT_THAT(chooser->chosenPath(), Optional(file.fileName().toStdString()));
    EXPECT_EQ(chooser->result(), QDialog::Accepted);
}

TEST_F(ApplicationChooserTest, PressesTheButtonThatHasTheKeyboardWithEnter) {
    openChooser();
    click(list(), 0);
    button("other")->setFocus();
    QTest::keyClick(button("other"), Qt::Key_Return);
    EXPECT_NE(chooser->findChild<QFileDialog*>(), nullptr);
    EXPECT_EQ(chooser->chosenPath(), std::nullopt);
}

TEST_F(ApplicationChooserTest, HasRoomForAListAndAFieldThatOneClickEmpties) {
    openChooser();
    EXPECT_GE(chooser->width(), 56 * chooser->fontMetrics().averageCharWidth());
    EXPECT_GE(chooser->height(), 24 * chooser->fontMetrics().lineSpacing());
    EXPECT_TRUE(searchField()->isClearButtonEnabled());
    EXPECT_FALSE(list()->model()->data({}).isValid());
}

TEST_F(ApplicationChooserTest, StaysOpenWhenNoFileIsChosen) {
    openChooser();
    click(button("other"));
    ASSERT_TRUE(chooser->findChild<QFileDialog*>()->isVisible());
    chooser->findChild<QFileDialog*>()->reject();
    settle();
    EXPECT_EQ(chooser->findChild<QFileDialog*>(), nullptr);
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_EQ(chooser->chosenPath(), std::nullopt);
}

TEST_F(ApplicationChooserTest, NamesEveryControlForThoseWhoCannotSee) {
    openChooser();
    EXPECT_NE(searchField()->accessibleName(), "");
    EXPECT_NE(list()->accessibleName(), "");
    // The button that empties the field.
    EXPECT_NE(searchField()->findChild<QToolButton*>()->accessibleName(), "");
    searchField()->setText("nowhere");
    EXPECT_THAT(list()->accessibleDescription().toStdString(), HasSubstr("No installed application"));
}

// The dialog as the editor opens it.
class AddedInViewTest : public IgnoreListViewFixture {
protected:
    ApplicationChooser* chooser() const { return view->findChild<ApplicationChooser*>(); }
    void choose(const QString& searched) {
        click(button("addApplication"));
        ASSERT_NE(chooser(), nullptr);
        auto* const field = chooser()->findChild<QLineEdit*>("searchField");
        QTest::keyClicks(field, searched);
        QTest::keyClick(field, Qt::Key_Return);
        settle();
    }
};

TEST_F(AddedInViewTest, AnApplicationIsListedWithItsCheckBoxTicked) {
    store({entry("Clock")});
    open();
    choose("edit");
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_THAT(rows(applications()), ElementsAre("Clock", "Editor"));
    EXPECT_EQ(selectedRow(applications()), 1);
    EXPECT_TRUE(ignoreAll()->isChecked());
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {}, true)));
    EXPECT_EQ(view->focusWidget(), applications());
}

TEST_F(AddedInViewTest, AnApplicationThatIsListedChangesNothing) {
    store({entry("Clock"), entry("Editor", {"a"})});
    open();
    const auto before = defaults.storedValue("IgnoreWindowList");
    choose("edit");
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), before);
    EXPECT_EQ(selectedRow(applications()), 1);
    EXPECT_THAT(rows(titles()), ElementsAre("a"));
}

TEST_F(AddedInViewTest, NothingIsAddedWhenTheDialogIsCancelled) {
    open();
    click(button("addApplication"));
    ASSERT_NE(chooser(), nullptr);
    EXPECT_TRUE(chooser()->isModal());
    click(chooser()->findChild<QPushButton*>("cancel"));
    settle();
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_THAT(rows(applications()), IsEmpty());
}

TEST_F(AddedInViewTest, ThereIsOneDialogAtATime) {
    open();
    click(button("addApplication"));
    button("addApplication")->click();
    EXPECT_EQ(view->findChildren<ApplicationChooser*>().size(), 1);
}

TEST_F(AddedInViewTest, TheViewMayGoWhileTheDialogIsOpen) {
    open();
    click(button("addApplication"));
    ASSERT_NE(chooser(), nullptr);
    view.reset();
    settle();
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), std::nullopt);
}

TEST_F(AddedInViewTest, ApplicationsHaveTheirPictures) {
    QTemporaryDir folder;
    QPixmap red(16, 16);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath("red.png")));
    installed.addApplication(
        {"/apps/mail.desktop", "org.example.Mail", "Mail", {}, {}, folder.filePath("red.png").toStdString()});
    store({entry("Mail"), entry("Gone")});
    open();
    const auto colour = [this](int row) {
        const auto icon = applications()->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(16).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(colour(0), QColor(Qt::red));
    EXPECT_NE(colour(1), QColor(Qt::red));
    EXPECT_FALSE(applications()->model()->index(1, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    // One that was installed while the list was open.
    installed.addApplication(
        {"/apps/gone.desktop", "org.example.Gone", "Gone", {}, {}, folder.filePath("red.png").toStdString()});
    click(button("addApplication"));
    EXPECT_EQ(colour(1), QColor(Qt::red));
}

} // namespace
} // namespace tarragon
