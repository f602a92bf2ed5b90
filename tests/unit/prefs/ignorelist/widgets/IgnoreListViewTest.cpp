#include "prefs/ignorelist/widgets/IgnoreListView.h"

#include "IgnoreListViewFixture.h"
#include "ignore/KeyedArchiver.h"

#include <QDialog>

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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
    button("addApplication")->click();
    EXPECT_EQ(view->findChild<QDialog*>(), nullptr);
}

TEST_F(IgnoreListViewTest, HasNothingForAnIndexWithoutARow) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    for (const QTreeView* table : {applications(), titles()})
        EXPECT_FALSE(table->model()->data({}).isValid());
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
    const auto labels = view->findChildren<QLabel*>();
    const auto label =
        std::ranges::find_if(labels, [this](const QLabel* each) { return each->buddy() == applications(); });
    ASSERT_NE(label, labels.end());
    EXPECT_TRUE((*label)->isVisible());
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
    std::vector<std::string> patterns(1000);
    for (std::size_t number = 0; number < patterns.size(); ++number)
        patterns[number] = "Pattern " + std::to_string(number);
    std::vector<TarragonBlacklist> entries = manyEntries(10000);
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
