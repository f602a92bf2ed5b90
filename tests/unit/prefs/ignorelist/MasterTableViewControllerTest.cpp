#include "prefs/ignorelist/MasterTableViewController.h"

#include "IgnoreListEditorFixture.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"
#include "ignore/KeyedArchiver.h"
#include "ignore/KeyedUnarchiver.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class MasterTableViewControllerTest : public IgnoreListEditorFixture { };

TEST_F(MasterTableViewControllerTest, ObservesTheListAndLoadsItWhenItAwakes) {
    store({entry("Editor"), entry("Clock")});
    EXPECT_THAT(applications(), IsEmpty());
    EXPECT_THAT(defaults.observedKeyPaths(), IsEmpty());
    master.awakeFromNib();
    EXPECT_THAT(defaults.observedKeyPaths(), ElementsAre("values.IgnoreWindowList"));
    EXPECT_THAT(applications(), ElementsAre("Editor", "Clock"));
    EXPECT_EQ(master.tableViewObjectValueForTableColumn(2), "");
}

TEST_F(MasterTableViewControllerTest, StopsObservingWhenItGoes) {
    {
        MasterTableViewController another(defaults, &installed, masterTable, detailTable, detail, owner);
        another.awakeFromNib();
        EXPECT_EQ(defaults.observedKeyPaths().size(), 1U);
    }
    EXPECT_THAT(defaults.observedKeyPaths(), IsEmpty());
}

TEST_F(MasterTableViewControllerTest, ShowsNothingWithoutAList) {
    master.awakeFromNib();
    EXPECT_EQ(master.numberOfRowsInTableView(), 0U);
    EXPECT_EQ(storeCount(), 0U);
}

TEST_F(MasterTableViewControllerTest, FollowsTheListInTheOrderSelectionThenRows) {
    master.awakeFromNib();
    store({entry("Editor")});
    EXPECT_THAT(calls, ElementsAre("reload detail", "reload master"));
    EXPECT_THAT(applications(), ElementsAre("Editor"));
}

TEST_F(MasterTableViewControllerTest, FollowsWhatAnotherProcessWrites) {
    master.awakeFromNib();
    IgnoreDictionary dictionary;
    ASSERT_TRUE(dictionary.setEntry("org.example.Editor", entry("Editor")));
    defaults.writeFromOtherProcess("IgnoreWindowList", dictionary.archivedData());
    defaults.synchronize();
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    defaults.writeFromOtherProcess("IgnoreWindowList", std::nullopt);
    defaults.synchronize();
    EXPECT_THAT(applications(), IsEmpty());
}

TEST_F(MasterTableViewControllerTest, DiscardsAnEditedName) {
    store({entry("Editor")});
    master.awakeFromNib();
    master.tableViewSetObjectValue("Another", 0);
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_EQ(storeCount(), 1U);
}

TEST_F(MasterTableViewControllerTest, HandsTheSelectedEntryToTheDetailTable) {
    store({entry("Editor", {"Untitled*"}), entry("Clock", {}, true)});
    master.awakeFromNib();
    calls.clear();
    select(1);
    EXPECT_EQ(detail.blackList(), entry("Clock", {}, true));
    EXPECT_TRUE(detail.ignoreAllApp());
    EXPECT_TRUE(button.isOn);
    EXPECT_EQ(detail.masterKey(), "org.example.Clock");
    EXPECT_EQ(detail.masterDictionary(), master.ignoreDictionary());
    EXPECT_THAT(calls, ElementsAre("reload detail"));
    select(0);
    EXPECT_FALSE(detail.ignoreAllApp());
    EXPECT_FALSE(button.isOn);
    EXPECT_THAT(titles(), ElementsAre("Untitled*"));
}

TEST_F(MasterTableViewControllerTest, TakesTheEntryAndNothingElseFromTheDetailTableWithoutASelection) {
    store({entry("Clock", {"a"}, true)});
    master.awakeFromNib();
    select(0);
    calls.clear();
    select(std::nullopt);
    EXPECT_EQ(detail.blackList(), std::nullopt);
    EXPECT_TRUE(detail.ignoreAllApp());
    EXPECT_EQ(detail.masterKey(), "org.example.Clock");
    EXPECT_EQ(detail.masterDictionary(), master.ignoreDictionary());
    EXPECT_THAT(calls, ElementsAre("reload detail"));
}

TEST_F(MasterTableViewControllerTest, ASelectionBeyondTheRowsIsNone) {
    store({entry("Clock")});
    master.awakeFromNib();
    select(1);
    EXPECT_EQ(detail.blackList(), std::nullopt);
    master.removeApplication();
    EXPECT_THAT(applications(), ElementsAre("Clock"));
}

// The detail table's dictionary is the master's own one, until a change of the list replaces the master's; an
// unselected application does not bring the new one.
TEST_F(MasterTableViewControllerTest, SharesItsDictionaryUntilTheNextReload) {
    store({entry("Editor"), entry("Clock")});
    master.awakeFromNib();
    select(0);
    const auto first = detail.masterDictionary();
    select(std::nullopt);
    store({entry("Editor"), entry("Clock"), entry("Player")});
    EXPECT_NE(master.ignoreDictionary(), first);
    EXPECT_EQ(detail.masterDictionary(), first);
    select(1);
    EXPECT_EQ(detail.masterDictionary(), master.ignoreDictionary());
}

TEST_F(MasterTableViewControllerTest, HandsTheNewDictionaryOverWhenAnApplicationIsSelected) {
    store({entry("Editor")});
    master.awakeFromNib();
    select(0);
    const auto first = detail.masterDictionary();
    store({entry("Editor", {"new"})});
    EXPECT_NE(detail.masterDictionary(), first);
    EXPECT_EQ(detail.masterDictionary(), master.ignoreDictionary());
    EXPECT_THAT(titles(), ElementsAre("new"));
}

TEST_F(MasterTableViewControllerTest, KeepsTheSelectionOnItsApplication) {
    store({entry("Editor"), entry("Clock", {"face"})});
    master.awakeFromNib();
    select(1);
    store({entry("Clock", {"face"})});
    EXPECT_EQ(masterTable.selected, 0U);
    EXPECT_THAT(titles(), ElementsAre("face"));
    store({entry("Player"), entry("Editor"), entry("Clock", {"hands"})});
    EXPECT_EQ(masterTable.selected, 2U);
    EXPECT_THAT(titles(), ElementsAre("hands"));
    store({entry("Player"), entry("Editor"), entry("Mail")});
    EXPECT_EQ(masterTable.selected, std::nullopt);
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(MasterTableViewControllerTest, RemovesTheSelectedApplicationAndClearsTheDetailTable) {
    store({entry("Editor", {"a"}), entry("Clock", {"b"}), entry("Player", {"c"})});
    master.awakeFromNib();
    select(1);
    calls.clear();
    master.removeApplication();
    EXPECT_THAT(applications(), ElementsAre("Editor", "Player"));
    EXPECT_THAT(stored()->allKeys(), ElementsAre("org.example.Editor", "org.example.Player"));
    EXPECT_EQ(storeCount(), 2U);
    EXPECT_EQ(masterTable.selected, std::nullopt);
    EXPECT_EQ(detail.blackList(), std::nullopt);
    EXPECT_THAT(titles(), IsEmpty());
    // The rows, then what the stored list brings, then the selection.
    EXPECT_THAT(calls, ElementsAre("reload master", "reload detail", "reload master", "reload detail"));
}

TEST_F(MasterTableViewControllerTest, RemovesTheLastApplication) {
    store({entry("Editor", {"a"})});
    master.awakeFromNib();
    select(0);
    master.removeApplication();
    EXPECT_THAT(applications(), IsEmpty());
    ASSERT_TRUE(stored());
    EXPECT_EQ(stored()->count(), 0U);
    EXPECT_EQ(detail.blackList(), std::nullopt);
}

TEST_F(MasterTableViewControllerTest, RemovesNothingWithoutASelection) {
    store({entry("Editor")});
    master.awakeFromNib();
    calls.clear();
    master.removeApplication();
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_EQ(storeCount(), 1U);
    EXPECT_THAT(calls, IsEmpty());
}

// Quick ignore actions beside the panel, while the editor is open.
class Window : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

TEST_F(MasterTableViewControllerTest, ShowsWhatThePanelsMenuIgnores) {
    master.awakeFromNib();
    FakeWorkspace workspace;
    workspace.setActiveApplication(RunningApplication{"Editor", 7, "org.example.Editor", ""});
    Window window;
    IgnoreList list(defaults, workspace, window, nullptr);
    list.ignoreTitle();
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    select(0);
    EXPECT_THAT(titles(), ElementsAre("Untitled 3"));
    EXPECT_FALSE(detail.ignoreAllApp());
    list.ignoreApp();
    EXPECT_TRUE(detail.ignoreAllApp());
    EXPECT_TRUE(button.isOn);
}

TEST_F(MasterTableViewControllerTest, ShowsADamagedListAsEmptyAndKeepsItUntilTheUserChangesSomething) {
    const Data damaged = {1, 2, 3};
    ASSERT_TRUE(defaults.setValue(preference::IgnoreWindowList, damaged));
    master.awakeFromNib();
    EXPECT_THAT(applications(), IsEmpty());
    select(std::nullopt);
    master.removeApplication();
    detail.addWindow();
    detail.removeWindow();
    detail.switchSetIgnoreAllApp();
    detail.saveIgnore();
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), DefaultsValue(damaged));
    master.ignoreCurrentAppWithBundleID("org.example.Editor", "Editor");
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {}, true)));
}

TEST_F(MasterTableViewControllerTest, ASettingOfAnotherKindShowsAsEmpty) {
    ASSERT_TRUE(defaults.setValue(preference::IgnoreWindowList, std::string("text")));
    master.awakeFromNib();
    EXPECT_THAT(applications(), IsEmpty());
}

TEST_F(MasterTableViewControllerTest, ShowsTheKeyOfAnEntryWithoutAName) {
    TarragonBlacklist nameless;
    nameless.setAppBundleID("org.example.Clock");
    store({entry("Editor"), nameless, entry("")});
    master.awakeFromNib();
    EXPECT_THAT(applications(), ElementsAre("Editor", "org.example.Clock", "org.example."));
}

// A list with an entry whose bytes mean nothing, and one that is no data at all.
class UnreadableEntriesTest : public IgnoreListEditorFixture {
protected:
    UnreadableEntriesTest() {
        ArchiveDictionary dictionary;
        dictionary.entries.emplace_back("org.example.Broken", std::make_shared<const Data>(Data{1, 2, 3}));
        dictionary.entries.emplace_back("org.example.Number", ArchiveValue(std::int64_t{5}));
        dictionary.entries.emplace_back(
            "org.example.Editor", std::make_shared<const Data>(entry("Editor", {"a"}).archivedData()));
        EXPECT_TRUE(defaults.setValue(preference::IgnoreWindowList,
            KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(dictionary))));
        master.awakeFromNib();
    }
};

TEST_F(UnreadableEntriesTest, AreShownByTheirKeys) {
    EXPECT_THAT(applications(), ElementsAre("org.example.Broken", "org.example.Number", "Editor"));
}

TEST_F(UnreadableEntriesTest, AreNotLostWhenOthersAreEdited) {
    select(2);
    detail.addWindow();
    master.ignoreCurrentAppWithBundleID("org.example.Clock", "Clock");
    master.removeApplication();
    EXPECT_THAT(applications(), ElementsAre("org.example.Broken", "org.example.Number", "Clock"));
    const Data bytes = std::get<Data>(*defaults.storedValue("IgnoreWindowList"));
    const KeyedUnarchiver unarchiver(bytes);
    const auto entries = unarchiver.root()->dictionary();
    ASSERT_TRUE(entries);
    ASSERT_TRUE((*entries)[0].second.data());
    EXPECT_THAT(*(*entries)[0].second.data(), ElementsAre(1, 2, 3));
    EXPECT_THAT((*entries)[1].second.integerValue(), Optional(5));
}

TEST_F(UnreadableEntriesTest, AreNotChangedByTheDetailTable) {
    select(2);
    select(0);
    EXPECT_EQ(detail.blackList(), std::nullopt);
    EXPECT_FALSE(detail.ignoreAllApp());
    detailTable.selected = 0;
    const auto before = defaults.storedValue("IgnoreWindowList");
    detail.addWindow();
    detail.removeWindow();
    detail.tableViewSetObjectValue("new", 0);
    detail.setIgnoreAllApp(true);
    detail.switchSetIgnoreAllApp();
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), before);
    EXPECT_EQ(storeCount(), 1U);
}

TEST_F(UnreadableEntriesTest, CanBeRemoved) {
    select(0);
    master.removeApplication();
    EXPECT_THAT(applications(), ElementsAre("org.example.Number", "Editor"));
}

TEST_F(UnreadableEntriesTest, AreReplacedByAnEntryThatIsAdded) {
    master.ignoreCurrentAppWithBundleID("org.example.Broken", "Broken");
    EXPECT_THAT(applications(), ElementsAre("Broken", "org.example.Number", "Editor"));
    EXPECT_THAT(storedEntry("Broken"), Optional(entry("Broken", {}, true)));
}

TEST_F(MasterTableViewControllerTest, AnOutsiderCanAddTenThousandApplicationsWithAThousandPatternsEach) {
    std::vector<std::string> patterns;
    for (int number = 0; number < 1000; ++number)
        patterns.push_back("Pattern " + std::to_string(number));
    IgnoreDictionary dictionary;
    for (int number = 0; number < 10000; ++number) {
        const std::string name = "App" + std::to_string(number);
        ASSERT_TRUE(dictionary.setEntry(
            "org.example." + name, entry(name, number == 9999 ? patterns : std::vector<std::string>{"a"})));
    }
    ASSERT_TRUE(dictionary.store(defaults));
    master.awakeFromNib();
    EXPECT_EQ(master.numberOfRowsInTableView(), 10000U);
    EXPECT_EQ(applications().back(), "App9999");
    select(9999);
    EXPECT_EQ(titles().size(), 1000U);
    detail.tableViewSetObjectValue("edited", 0);
    EXPECT_EQ(titles().front(), "Pattern 1");
    EXPECT_EQ(titles().back(), "edited");
    EXPECT_EQ(masterTable.selected, 9999U);
    select(0);
    master.removeApplication();
    EXPECT_EQ(stored()->count(), 9999U);
}

} // namespace
} // namespace tarragon
