#include "IgnoreListEditorFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class AddedApplicationTest : public IgnoreListEditorFixture {
protected:
    AddedApplicationTest() {
        installed.addApplication(
            {"/apps/editor.desktop", "org.example.Editor", "Editor", std::nullopt, "editor-bin", ""});
        installed.addApplication({"/apps/nothing.desktop", "", "Nothing", std::nullopt, std::nullopt, ""});
        installed.addApplication({"/apps/plain.desktop", "org.example.Plain", {}, {}, {}, ""});
        installed.addApplication({"/apps/unknown.desktop", "org.example.Unknown", "unknown", {}, {}, ""});
        installed.setApplicationsFolder("/apps");
        master.awakeFromNib();
    }

    void add(const std::optional<std::string>& path) {
        master.addApplication();
        ASSERT_TRUE(owner.pending);
        owner.pending(path);
    }
};

TEST_F(AddedApplicationTest, IsChosenInAPanelThatStartsInTheApplicationsFolder) {
    master.addApplication();
    EXPECT_THAT(owner.folders, ElementsAre("/apps"));
    EXPECT_EQ(storeCount(), 0U);
}

TEST_F(AddedApplicationTest, CannotBeChosenWhereNobodyKnowsWhatIsInstalled) {
    MasterTableViewController another(defaults, nullptr, masterTable, detailTable, detail, owner);
    another.addApplication();
    EXPECT_THAT(owner.folders, IsEmpty());
}

TEST_F(AddedApplicationTest, IsListedWithAllItsWindowsIgnoredAndSelected) {
    add("/apps/editor.desktop");
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {}, true)));
    EXPECT_EQ(masterTable.selected, 0U);
    EXPECT_TRUE(detail.ignoreAllApp());
    EXPECT_EQ(detail.blackList(), entry("Editor", {}, true));
}

TEST_F(AddedApplicationTest, IsNamedByTheRule) {
    add("/apps/plain.desktop");
    EXPECT_EQ(storedEntry("Plain")->appName(), "org.example");
}

TEST_F(AddedApplicationTest, MayBeCancelled) {
    add(std::nullopt);
    EXPECT_EQ(storeCount(), 0U);
}

TEST_F(AddedApplicationTest, IsSilentlyLeftOutWithoutAnIdentifierOrANameOrWhenItIsNone) {
    for (const char* path : {"/apps/nothing.desktop", "/apps/unknown.desktop", "/apps/missing.desktop"})
        add(path);
    EXPECT_EQ(storeCount(), 0U);
    EXPECT_THAT(applications(), IsEmpty());
    EXPECT_EQ(masterTable.selected, std::nullopt);
}

TEST_F(AddedApplicationTest, ChangesNothingWhenItIsListedAndIsSelected) {
    store({entry("Clock"), entry("Editor", {"a"})});
    const auto before = defaults.storedValue("IgnoreWindowList");
    add("/apps/editor.desktop");
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), before);
    EXPECT_EQ(storeCount(), 1U);
    EXPECT_EQ(masterTable.selected, 1U);
    EXPECT_THAT(titles(), ElementsAre("a"));
}

TEST_F(AddedApplicationTest, IsLookedForInWhatIsStoredNow) {
    // Stored without telling anybody: the working copy is behind.
    ASSERT_TRUE(IgnoreDictionary().store(defaults));
    FakeDefaults unseen;
    FakeTableView table("unseen", calls);
    MasterTableViewController behind(defaults, &installed, table, detailTable, detail, owner);
    store({entry("Editor", {"a"})});
    const std::size_t before = storeCount();
    calls.clear();
    behind.ignoreCurrentAppWithBundleID("org.example.Editor", "Editor");
    EXPECT_EQ(storeCount(), before);
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a"));
    // Another application is added to the working copy, and that is what is stored.
    behind.ignoreCurrentAppWithBundleID("org.example.Clock", "Clock");
    EXPECT_THAT(stored()->allKeys(), ElementsAre("org.example.Clock"));
}

TEST_F(AddedApplicationTest, ReloadsTheMasterTableOnceItIsStored) {
    calls.clear();
    master.ignoreCurrentAppWithBundleID("org.example.Clock", "Clock");
    EXPECT_THAT(calls, ElementsAre("reload detail", "reload master", "reload master"));
    EXPECT_THAT(storedEntry("Clock"), Optional(entry("Clock", {}, true)));
}

TEST_F(AddedApplicationTest, IsNotShownWhenTheListCannotHoldIt) {
    IgnoreDictionary before;
    ASSERT_TRUE(before.setEntry("org.example.Editor", entry("Editor")));
    ASSERT_TRUE(before.store(defaults));
    master.ignoreCurrentAppWithBundleID(std::string(std::size_t{1} << 25U, 'x'), "Huge");
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_THAT(stored()->allKeys(), ElementsAre("org.example.Editor"));
}

TEST_F(AddedApplicationTest, IsNotShownWhenTheListHasGrownTooLarge) {
    // Each has room in a list of its own, all of them have not.
    constexpr const char* Letters = "abcdefghij";
    for (const char letter : std::string(Letters))
        master.ignoreCurrentAppWithBundleID(std::string(2'000'000, letter), "Long");
    ASSERT_TRUE(stored());
    EXPECT_GT(stored()->count(), 0U);
    EXPECT_LT(stored()->count(), std::string(Letters).size());
    EXPECT_EQ(master.numberOfRowsInTableView(), stored()->count());
}

TEST_F(AddedApplicationTest, HoldsForThisProcessWhenNothingCanBeWritten) {
    defaults.setWritable(false);
    add("/apps/editor.desktop");
    EXPECT_THAT(applications(), ElementsAre("Editor"));
    EXPECT_EQ(masterTable.selected, 0U);
    EXPECT_EQ(detail.masterDictionary(), master.ignoreDictionary());
}

class PickedWindowTest : public AddedApplicationTest {
protected:
    static PickedWindow window(std::optional<std::string> title, const std::string& identifier = "org.example.Editor") {
        return {RunningApplication{"Editor", 7, identifier, ""}, std::move(title)};
    }
};

TEST_F(PickedWindowTest, ListsItsApplicationWithoutIgnoringOtherWindows) {
    EXPECT_TRUE(master.ignoreWindow(window("Untitled 3")));
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {"Untitled 3"}, false)));
    EXPECT_EQ(masterTable.selected, 0U);
    EXPECT_THAT(titles(), ElementsAre("Untitled 3"));
}

TEST_F(PickedWindowTest, JoinsTheTitlesOfItsApplicationOnce) {
    store({entry("Clock"), entry("Editor", {"a"}, true)});
    EXPECT_TRUE(master.ignoreWindow(window("b")));
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {"a", "b"}, true)));
    const std::size_t before = storeCount();
    masterTable.selected = std::nullopt;
    EXPECT_TRUE(master.ignoreWindow(window("a")));
    EXPECT_EQ(storeCount(), before);
    EXPECT_EQ(masterTable.selected, 1U);
    EXPECT_THAT(titles(), ElementsAre("a", "b"));
}

TEST_F(PickedWindowTest, IsFoundAgainByTheStoredFormOfItsTitle) {
    EXPECT_TRUE(master.ignoreWindow(window("a\xFFz")));
    EXPECT_TRUE(master.ignoreWindow(window("a\xFFz")));
    EXPECT_EQ(titles().size(), 1U);
}

TEST_F(PickedWindowTest, IsSelectedByTheStoredFormOfItsTitle) {
    EXPECT_TRUE(master.ignoreWindow(window("a")));
    EXPECT_EQ(detailTable.selected, 0U);
    EXPECT_TRUE(master.ignoreWindow(window("b\x01z")));
    EXPECT_EQ(detailTable.selected, 1U);
    EXPECT_EQ(calls.back(), "reload detail");
    EXPECT_TRUE(master.ignoreWindow(window("a")));
    EXPECT_EQ(detailTable.selected, 0U);
}

TEST_F(PickedWindowTest, IsNotListedWithoutATitleOrAnApplication) {
    EXPECT_FALSE(master.ignoreWindow(window(std::nullopt)));
    EXPECT_FALSE(master.ignoreWindow(window("")));
    EXPECT_FALSE(master.ignoreWindow(window("Untitled", "")));
    EXPECT_EQ(storeCount(), 0U);
}

} // namespace
} // namespace tarragon
