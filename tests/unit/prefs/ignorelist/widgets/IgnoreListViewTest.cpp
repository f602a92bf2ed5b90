#include "prefs/ignorelist/widgets/IgnoreListView.h"

#include "IgnoreListViewFixture.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"
#include "ignore/KeyedArchiver.h"

#include <QSignalSpy>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

constexpr const char* Placeholder = "Type new window title or wildcard pattern here";

class IgnoreListViewTest : public IgnoreListViewFixture { };

TEST_F(IgnoreListViewTest, CanBeShownBeforeItHasServices) {
    IgnoreListView bare;
    bare.show();
    settle();
    for (const QPushButton* each : bare.findChildren<QPushButton*>())
        EXPECT_FALSE(each->isEnabled()) << each->objectName().toStdString();
    EXPECT_FALSE(bare.findChild<QCheckBox*>()->isEnabled());
    QTest::keyClick(bare.findChild<QTreeView*>("applications"), Qt::Key_Delete);
    QTest::keyClick(bare.findChild<QTreeView*>("titles"), Qt::Key_Delete);
}

TEST_F(IgnoreListViewTest, LeavesOutTheButtonsOfServicesThatAreMissing) {
    view = std::make_unique<IgnoreListView>();
    view->setServices(defaults, nullptr, nullptr);
    view->show();
    EXPECT_FALSE(button("addApplication")->isVisible());
    EXPECT_FALSE(button("pickWindow")->isVisible());
    EXPECT_TRUE(button("removeApplication")->isVisible());
}

TEST_F(IgnoreListViewTest, StopsFollowingTheListWhenItGoes) {
    open();
    EXPECT_THAT(defaults.observedKeyPaths(), ElementsAre("values.IgnoreWindowList"));
    view.reset();
    EXPECT_THAT(defaults.observedKeyPaths(), IsEmpty());
    store({entry("Editor")});
}

TEST_F(IgnoreListViewTest, SaysInWordsThatThereIsNothing) {
    open();
    EXPECT_THAT(applications()->accessibleDescription().toStdString(), HasSubstr("No application is ignored yet"));
    EXPECT_THAT(titles()->accessibleDescription().toStdString(), HasSubstr("Select an application"));
    store({entry("Editor"), entry("Clock", {}, true), entry("Player", {"a"})});
    EXPECT_EQ(applications()->accessibleDescription(), "");
    click(applications(), 0);
    EXPECT_THAT(titles()->accessibleDescription().toStdString(), HasSubstr("Add the title of a window"));
    click(applications(), 1);
    EXPECT_THAT(titles()->accessibleDescription().toStdString(), HasSubstr("All windows of this application"));
    click(applications(), 2);
    EXPECT_EQ(titles()->accessibleDescription(), "");
}

TEST_F(IgnoreListViewTest, ShowsTheTitlesOfTheSelectedApplication) {
    store({entry("Editor", {"a", "b"}), entry("Clock", {"c"}, true)});
    open();
    EXPECT_THAT(rows(applications()), ElementsAre("Editor", "Clock"));
    EXPECT_EQ(selectedRow(applications()), -1);
    EXPECT_THAT(rows(titles()), IsEmpty());
    click(applications(), 1);
    EXPECT_THAT(rows(titles()), ElementsAre("c"));
    EXPECT_TRUE(ignoreAll()->isChecked());
    click(applications(), 0);
    EXPECT_THAT(rows(titles()), ElementsAre("a", "b"));
    EXPECT_FALSE(ignoreAll()->isChecked());
}

TEST_F(IgnoreListViewTest, SelectsNoTitleOfAnApplicationThatIsSelectedAnew) {
    store({entry("Editor", {"a", "b"}), entry("Clock", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 1);
    EXPECT_TRUE(button("removeTitle")->isEnabled());
    click(applications(), 1);
    EXPECT_EQ(selectedRow(titles()), -1);
    EXPECT_FALSE(button("removeTitle")->isEnabled());
}

TEST_F(IgnoreListViewTest, OffersOnlyWhatWouldDoSomething) {
    store({entry("Editor", {"a"}, true)});
    open();
    EXPECT_TRUE(button("addApplication")->isEnabled());
    EXPECT_TRUE(button("pickWindow")->isEnabled());
    EXPECT_FALSE(button("removeApplication")->isEnabled());
    EXPECT_FALSE(ignoreAll()->isEnabled());
    EXPECT_FALSE(button("addTitle")->isEnabled());
    EXPECT_FALSE(button("removeTitle")->isEnabled());
    click(applications(), 0);
    EXPECT_TRUE(button("removeApplication")->isEnabled());
    EXPECT_TRUE(ignoreAll()->isEnabled());
    EXPECT_TRUE(ignoreAll()->isChecked());
    EXPECT_TRUE(button("addTitle")->isEnabled());
    EXPECT_FALSE(button("removeTitle")->isEnabled());
    click(titles(), 0);
    EXPECT_TRUE(button("removeTitle")->isEnabled());
    applications()->clearSelection();
    EXPECT_FALSE(ignoreAll()->isEnabled());
    EXPECT_FALSE(ignoreAll()->isChecked());
    EXPECT_FALSE(button("removeTitle")->isEnabled());
}

TEST_F(IgnoreListViewTest, RemovesTheSelectedApplicationAndClearsTheTitles) {
    store({entry("Editor", {"a"}), entry("Clock", {"b"}), entry("Player", {"c"})});
    open();
    click(applications(), 1);
    click(button("removeApplication"));
    EXPECT_THAT(rows(applications()), ElementsAre("Editor", "Player"));
    EXPECT_EQ(selectedRow(applications()), -1);
    EXPECT_THAT(rows(titles()), IsEmpty());
    EXPECT_EQ(storedEntry("Clock"), std::nullopt);
}

TEST_F(IgnoreListViewTest, RemovesAnApplicationWithTheDeleteKey) {
    store({entry("Editor", {"a"})});
    open();
    applications()->setFocus();
    QTest::keyClick(applications(), Qt::Key_Delete);
    EXPECT_THAT(rows(applications()), ElementsAre("Editor"));
    click(applications(), 0);
    QTest::keyClick(applications(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_THAT(rows(applications()), ElementsAre("Editor"));
    QTest::keyClick(applications(), Qt::Key_Delete);
    EXPECT_THAT(rows(applications()), IsEmpty());
}

TEST_F(IgnoreListViewTest, GivesTheKeyboardToTheTableWhenAButtonHasDoneItsWork) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    button("removeTitle")->setFocus();
    QTest::keyClick(button("removeTitle"), Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget(), titles());
    button("removeApplication")->setFocus();
    QTest::keyClick(button("removeApplication"), Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget(), applications());
    EXPECT_THAT(rows(applications()), IsEmpty());
}

TEST_F(IgnoreListViewTest, AddsATitleThatIsARealPatternUntilItIsEdited) {
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

TEST_F(IgnoreListViewTest, KeepsThePatternWhenEditingIsCancelled) {
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

TEST_F(IgnoreListViewTest, AnEditedRowMovesToTheBottom) {
    for (const int key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        store({entry("Editor", {"a", "b", "c"})});
        open();
        click(applications(), 0);
        click(titles(), 0);
        QTest::keyClick(titles(), Qt::Key(key));
        type("x");
        QTest::keyClick(editor(), Qt::Key_Return);
        settle();
        EXPECT_THAT(rows(titles()), ElementsAre("b", "c", "x"));
        EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", "x"));
        EXPECT_EQ(selectedRow(titles()), 2);
    }
}

TEST_F(IgnoreListViewTest, EditsWithADoubleClickAndEndsWithTab) {
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

TEST_F(IgnoreListViewTest, ARowThatIsLeftAsItWasStaysWhereItIs) {
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

TEST_F(IgnoreListViewTest, StoresWhatIsBeingTypedWhenAnotherApplicationIsSelected) {
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

TEST_F(IgnoreListViewTest, GoesOnEditingWhileOthersChangeTheList) {
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

TEST_F(IgnoreListViewTest, DropsWhatIsTypedIntoARowThatOthersRemove) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 1);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("half");
    store({entry("Editor", {"a"})});
    settle();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a"));
    EXPECT_THAT(rows(titles()), ElementsAre("a"));
}

TEST_F(IgnoreListViewTest, DoesNotGiveWhatIsTypedToTheRowThatMovesUp) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("half");
    store({entry("Editor", {"b"})});
    settle();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b"));
    EXPECT_THAT(rows(titles()), ElementsAre("b"));
}

TEST_F(IgnoreListViewTest, RemovesTitlesOneAfterAnotherWithTheDeleteKey) {
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

TEST_F(IgnoreListViewTest, DeletesCharactersWhileARowIsEdited) {
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

TEST_F(IgnoreListViewTest, IgnoresAllWindowsWithTheCheckBox) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    ignoreAll()->setFocus();
    QTest::keyClick(ignoreAll(), Qt::Key_Space);
    EXPECT_TRUE(*storedEntry("Editor")->ignoreAllAppWindows());
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a"));
    QTest::keyClick(ignoreAll(), Qt::Key_Space);
    EXPECT_FALSE(*storedEntry("Editor")->ignoreAllAppWindows());
    EXPECT_FALSE(ignoreAll()->isChecked());
}

class Window : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

TEST_F(IgnoreListViewTest, ShowsWhatThePanelsMenuIgnoresAtOnce) {
    store({entry("Clock")});
    open();
    click(applications(), 0);
    FakeWorkspace workspace;
    workspace.setActiveApplication(RunningApplication{"Editor", 7, "org.example.Editor", ""});
    Window window;
    IgnoreList list(defaults, workspace, window, nullptr);
    list.ignoreTitle();
    EXPECT_THAT(rows(applications()), ElementsAre("Clock", "Editor"));
    EXPECT_EQ(selectedRow(applications()), 0);
    click(applications(), 1);
    EXPECT_THAT(rows(titles()), ElementsAre("Untitled 3"));
    list.ignoreApp();
    EXPECT_TRUE(ignoreAll()->isChecked());
    list.ignoreTitle();
    EXPECT_THAT(rows(titles()), ElementsAre("Untitled 3", "Untitled 3"));
}

TEST_F(IgnoreListViewTest, FollowsANameThatAnotherProcessChanges) {
    store({entry("Clock")});
    open();
    EXPECT_THAT(rows(applications()), ElementsAre("Clock"));
    TarragonBlacklist renamed = entry("Clock");
    renamed.setAppName("Uhr");
    store({renamed});
    EXPECT_THAT(rows(applications()), ElementsAre("Uhr"));
}

TEST_F(IgnoreListViewTest, KeepsTheSelectionOnItsApplicationWhileOthersChangeTheList) {
    store({entry("Clock"), entry("Editor", {"a"}), entry("Player")});
    open();
    click(applications(), 1);
    store({entry("Editor", {"a"}), entry("Player")});
    EXPECT_EQ(selectedRow(applications()), 0);
    EXPECT_THAT(rows(titles()), ElementsAre("a"));
    store({entry("Player"), entry("Clock"), entry("Editor", {"a"})});
    EXPECT_EQ(selectedRow(applications()), 2);
    store({entry("Player"), entry("Clock")});
    EXPECT_EQ(selectedRow(applications()), -1);
    EXPECT_THAT(rows(titles()), IsEmpty());
    EXPECT_FALSE(button("removeApplication")->isEnabled());
}

TEST_F(IgnoreListViewTest, ShowsADamagedListAsEmptyAndLeavesItAlone) {
    ASSERT_TRUE(defaults.setValue(preference::IgnoreWindowList, Data{1, 2, 3}));
    open();
    EXPECT_THAT(rows(applications()), IsEmpty());
    for (QWidget* widget : view->findChildren<QWidget*>()) {
        if (widget != button("addApplication") && widget != button("pickWindow"))
            QTest::mouseClick(widget, Qt::LeftButton);
    }
    for (QTreeView* table : {applications(), titles()}) {
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Return})
            QTest::keyClick(table, key);
    }
    view.reset();
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), DefaultsValue(Data{1, 2, 3}));
}

TEST_F(IgnoreListViewTest, ShowsAnEntryThatCannotBeReadByItsKey) {
    ArchiveDictionary dictionary;
    dictionary.entries.emplace_back("org.example.Broken", std::make_shared<const Data>(Data{1, 2, 3}));
    ASSERT_TRUE(defaults.setValue(preference::IgnoreWindowList,
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(dictionary))));
    open();
    EXPECT_THAT(rows(applications()), ElementsAre("org.example.Broken"));
    click(applications(), 0);
    EXPECT_THAT(titles()->accessibleDescription().toStdString(), HasSubstr("cannot be read"));
    EXPECT_FALSE(button("addTitle")->isEnabled());
    EXPECT_FALSE(ignoreAll()->isEnabled());
    click(button("removeApplication"));
    EXPECT_THAT(rows(applications()), IsEmpty());
}

TEST_F(IgnoreListViewTest, GoesThroughAllControlsWithTab) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    click(titles(), 0);
    applications()->setFocus();
    std::vector<std::string> names;
    for (int step = 0; step < 8; ++step) {
        QWidget* const focused = QApplication::focusWidget();
        names.push_back(focused->objectName().toStdString());
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_THAT(names,
        ElementsAre("applications", "addApplication", "removeApplication", "ignoreAll", "titles", "addTitle",
            "removeTitle", "pickWindow"));
    EXPECT_EQ(QApplication::focusWidget(), applications());
}

TEST_F(IgnoreListViewTest, NamesEveryControlForThoseWhoCannotSee) {
    open();
    for (const QWidget* widget : {static_cast<QWidget*>(applications()), static_cast<QWidget*>(titles()),
             static_cast<QWidget*>(button("addApplication")), static_cast<QWidget*>(button("removeApplication")),
             static_cast<QWidget*>(button("addTitle")), static_cast<QWidget*>(button("removeTitle")),
             static_cast<QWidget*>(button("pickWindow"))}) {
        EXPECT_NE(widget->accessibleName(), "") << widget->objectName().toStdString();
    }
    EXPECT_NE(button("removeApplication")->accessibleName(), button("removeTitle")->accessibleName());
    for (const QPushButton* each : view->findChildren<QPushButton*>())
        EXPECT_NE(each->toolTip(), "") << each->objectName().toStdString();
}

TEST_F(IgnoreListViewTest, HasRoomForItsTextsAtEverySizeOfFont) {
    const QFont before = QApplication::font();
    for (const int size : {9, 13, 18, 24}) {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QFont font = before;
            font.setPointSize(size);
            QApplication::setFont(font);
            open();
            view->setLayoutDirection(direction);
            view->resize(view->minimumSizeHint());
            settle();
            for (const QAbstractButton* each : view->findChildren<QAbstractButton*>()) {
                EXPECT_GE(each->width(), each->minimumSizeHint().width()) << size;
                EXPECT_GE(each->height(), each->minimumSizeHint().height()) << size;
            }
            EXPECT_GE(applications()->viewport()->height(), 3 * applications()->sizeHintForRow(0)) << size;
        }
    }
    QApplication::setFont(before);
}

TEST_F(IgnoreListViewTest, ShowsTextsOfOthersAsTheyAre) {
    store({entry("Editor", {"<b>bold</b>", ""})});
    open();
    click(applications(), 0);
    EXPECT_THAT(rows(titles()), ElementsAre("<b>bold</b>", "(empty title)"));
    EXPECT_THAT(
        titles()->model()->index(0, 0).data(Qt::ToolTipRole).toString().toStdString(), HasSubstr("&lt;b&gt;bold"));
    EXPECT_EQ(titles()->model()->index(1, 0).data(Qt::EditRole).toString(), "");
}

TEST_F(IgnoreListViewTest, CoversNoScreenWithTheToolTipOfAVeryLongText) {
    store({entry("Editor", {std::string(10000, '&')})});
    open();
    click(applications(), 0);
    EXPECT_EQ(rows(titles()).front().size(), 10000U);
    QString toolTip = titles()->model()->index(0, 0).data(Qt::ToolTipRole).toString();
    EXPECT_EQ(toolTip.count("&amp;"), 300);
    EXPECT_TRUE(toolTip.endsWith(QString::fromUtf8("…</p>")));
}

TEST_F(IgnoreListViewTest, HandlesTenThousandApplicationsAndAThousandPatterns) {
    std::vector<std::string> patterns;
    for (int number = 0; number < 1000; ++number)
        patterns.push_back("Pattern " + std::to_string(number));
    std::vector<TarragonBlacklist> entries;
    for (int number = 0; number < 10000; ++number)
        entries.push_back(entry("App" + std::to_string(number)));
    entries.front().setWindowsWithTitlesToIgnore(patterns);
    store(entries);
    open();
    EXPECT_EQ(applications()->model()->rowCount(), 10000);
    click(applications(), 0);
    EXPECT_EQ(titles()->model()->rowCount(), 1000);
    click(titles(), 0);
    QTest::keyClick(titles(), Qt::Key_F2);
    type("x");
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_EQ(selectedRow(titles()), 999);
    EXPECT_EQ(storedTitles("App0").back(), "x");
    click(button("removeApplication"));
    EXPECT_EQ(applications()->model()->rowCount(), 9999);
}

} // namespace
} // namespace tarragon
