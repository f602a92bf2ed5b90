#include "prefs/ignorelist/DetailTableViewController.h"

#include "IgnoreListEditorFixture.h"
#include "ignore/KeyedUnarchiver.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

constexpr const char* Placeholder = "Type new window title or wildcard pattern here";

class DetailTableViewControllerTest : public IgnoreListEditorFixture {
protected:
    DetailTableViewControllerTest() {
        store({entry("Clock", {"face"}), entry("Editor", {"a", "b", "c"})});
        master.awakeFromNib();
        select(1);
        calls.clear();
    }
};

TEST_F(DetailTableViewControllerTest, HasNothingToShowWhenItAwakes) {
    FakeDefaults unread;
    DetailTableViewController another(unread, detailTable, masterTable, button);
    another.awakeFromNib();
    EXPECT_EQ(another.numberOfRowsInTableView(), 0U);
    EXPECT_THAT(unread.readKeys(), IsEmpty());
    EXPECT_THAT(unread.observedKeyPaths(), IsEmpty());
    EXPECT_THAT(calls, IsEmpty());
    another.saveIgnore();
    EXPECT_THAT(unread.changedKeys(), IsEmpty());
}

TEST_F(DetailTableViewControllerTest, ShowsTheTitlesInStoredOrder) {
    EXPECT_EQ(detail.numberOfRowsInTableView(), 3U);
    EXPECT_THAT(titles(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(detail.tableViewObjectValueForTableColumn(3), "");
    select(std::nullopt);
    EXPECT_EQ(detail.numberOfRowsInTableView(), 0U);
    EXPECT_EQ(detail.tableViewObjectValueForTableColumn(0), "");
}

TEST_F(DetailTableViewControllerTest, AnEntryWithoutAListOfTitlesHasNoneAndCanGetOne) {
    TarragonBlacklist bare = entry("Editor");
    bare.setWindowsWithTitlesToIgnore(std::nullopt);
    bare.setIgnoreAllAppWindows(std::nullopt);
    store({bare});
    select(0);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_FALSE(detail.ignoreAllApp());
    detail.addWindow();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre(Placeholder));
    EXPECT_EQ(storedEntry("Editor")->ignoreAllAppWindows(), std::nullopt);
}

TEST_F(DetailTableViewControllerTest, AnEditedRowMovesToTheBottom) {
    detail.tableViewSetObjectValue("x", 0);
    EXPECT_THAT(titles(), ElementsAre("b", "c", "x"));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", "x"));
    detail.tableViewSetObjectValue("y", 1);
    EXPECT_THAT(titles(), ElementsAre("b", "x", "y"));
    detail.tableViewSetObjectValue("y", 2);
    EXPECT_THAT(titles(), ElementsAre("b", "x", "y"));
    detail.tableViewSetObjectValue("b", 0);
    EXPECT_THAT(titles(), ElementsAre("x", "y", "b"));
}

TEST_F(DetailTableViewControllerTest, ReloadsAfterAnEdit) {
    detail.tableViewSetObjectValue("x", 0);
    EXPECT_EQ(calls.back(), "reload detail");
    EXPECT_EQ(storeCount(), 2U);
}

TEST_F(DetailTableViewControllerTest, EditsNothingWithoutASelectionOrARow) {
    detail.tableViewSetObjectValue("x", 3);
    masterTable.selected = std::nullopt;
    detail.tableViewSetObjectValue("x", 0);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b", "c"));
    EXPECT_EQ(storeCount(), 1U);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(DetailTableViewControllerTest, AddsWordsThatAreARealPatternUntilTheyAreEdited) {
    detail.addWindow();
    EXPECT_THAT(titles(), ElementsAre("a", "b", "c", Placeholder));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b", "c", Placeholder));
    EXPECT_TRUE(storedEntry("Editor")->ignoresWindow(Placeholder));
    EXPECT_EQ(calls.back(), "reload detail");
    detail.addWindow();
    EXPECT_THAT(titles(), ElementsAre("a", "b", "c", Placeholder, Placeholder));
}

TEST_F(DetailTableViewControllerTest, AddsNothingWithoutASelection) {
    masterTable.selected = std::nullopt;
    detail.addWindow();
    EXPECT_EQ(storeCount(), 1U);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(DetailTableViewControllerTest, RemovesTheSelectedTitle) {
    detailTable.selected = 1;
    detail.removeWindow();
    EXPECT_THAT(titles(), ElementsAre("a", "c"));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "c"));
    EXPECT_EQ(calls.back(), "reload detail");
    EXPECT_EQ(storeCount(), 2U);
}

TEST_F(DetailTableViewControllerTest, RemovesNothingWithoutASelectedTitle) {
    detail.removeWindow();
    detailTable.selected = 3;
    detail.removeWindow();
    detailTable.selected = 0;
    masterTable.selected = std::nullopt;
    detail.removeWindow();
    master.tableViewSelectionDidChange();
    calls.clear();
    detail.removeWindow();
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b", "c"));
    EXPECT_EQ(storeCount(), 1U);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(DetailTableViewControllerTest, TakesTheCheckBoxOverIntoTheEntry) {
    detail.setIgnoreAllApp(true);
    EXPECT_TRUE(button.isOn);
    EXPECT_FALSE(*storedEntry("Editor")->ignoreAllAppWindows());
    detail.switchSetIgnoreAllApp();
    EXPECT_TRUE(*storedEntry("Editor")->ignoreAllAppWindows());
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b", "c"));
    EXPECT_FALSE(*storedEntry("Clock")->ignoreAllAppWindows());
    detail.setIgnoreAllApp(false);
    detail.switchSetIgnoreAllApp();
    EXPECT_FALSE(*storedEntry("Editor")->ignoreAllAppWindows());
}

TEST_F(DetailTableViewControllerTest, TakesNothingOverWithoutASelection) {
    masterTable.selected = std::nullopt;
    detail.setIgnoreAllApp(true);
    detail.switchSetIgnoreAllApp();
    EXPECT_EQ(storeCount(), 1U);
}

TEST_F(DetailTableViewControllerTest, SavesIntoTheMastersDictionaryUnderTheKey) {
    const auto shared = master.ignoreDictionary();
    TarragonBlacklist changed = entry("Renamed", {"z"});
    detail.setBlackList(changed);
    detail.setMasterKey("org.example.Other");
    detail.saveIgnore();
    EXPECT_EQ(shared->entry("org.example.Other"), changed);
    EXPECT_THAT(stored()->allKeys(), ElementsAre("org.example.Clock", "org.example.Editor", "org.example.Other"));
}

// The dictionary that was handed over stays the one that is written, even when the stored list has gone on since.
TEST_F(DetailTableViewControllerTest, WritesTheDictionaryThatItWasGiven) {
    const auto mine = std::make_shared<IgnoreDictionary>();
    detail.setMasterDictionary(mine);
    detail.addWindow();
    EXPECT_THAT(stored()->allKeys(), ElementsAre("org.example.Editor"));
}

TEST_F(DetailTableViewControllerTest, StoresAnEmptyTitle) {
    detail.tableViewSetObjectValue("", 0);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", ""));
}

TEST_F(DetailTableViewControllerTest, TakesBackWhatCannotBeStored) {
    detail.tableViewSetObjectValue(std::string(std::size_t{1} << 25U, 'x'), 0);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(titles(), ElementsAre("a", "b", "c"));
    detail.tableViewSetObjectValue("x", 0);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", "x"));
}

TEST_F(DetailTableViewControllerTest, KeepsForThisProcessWhatCannotBeWritten) {
    defaults.setWritable(false);
    detail.addWindow();
    detail.tableViewSetObjectValue("x", 0);
    EXPECT_THAT(titles(), ElementsAre("b", "c", Placeholder, "x"));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("b", "c", Placeholder, "x"));
}

TEST_F(DetailTableViewControllerTest, StoresAnArchiveOfADictionaryOfArchives) {
    detail.addWindow();
    const Data bytes = std::get<Data>(*defaults.storedValue("IgnoreWindowList"));
    const KeyedUnarchiver outer(bytes);
    const auto entries = outer.root()->dictionary();
    ASSERT_TRUE(entries);
    ASSERT_EQ(entries->size(), 2U);
    for (const auto& [key, value] : *entries) {
        const auto inner = value.data();
        ASSERT_TRUE(inner) << key;
        EXPECT_TRUE(KeyedUnarchiver(*inner).root()->isKindOfClass("TarragonBlacklist")) << key;
    }
}

} // namespace
} // namespace tarragon
