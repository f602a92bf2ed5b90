#include "ignore/IgnoreList.h"

#include "fake/FakeDefaults.h"
#include "fake/FakeWorkspace.h"
#include "ignore/KeyedArchiver.h"

#include <gmock/gmock.h>

#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class FakeFocusedWindow : public WindowInFront {
public:
    std::optional<std::string> title = "Untitled 3";
    bool fullScreen = false;

    std::optional<std::string> focusedWindowTitle() override { return title; }
    bool isFocusedWindowFullScreen() override { return fullScreen; }
};

class RecordingPanel : public IgnoredPanel {
public:
    explicit RecordingPanel(FakeDefaults& defaults)
        : _defaults(defaults) { }

    std::vector<std::string> calls;
    std::size_t changesBeforeOrderOut = 0;

    void hideTarragonPanel() override { calls.emplace_back("hideTarragonPanel"); }
    void orderOut() override {
        calls.emplace_back("orderOut");
        changesBeforeOrderOut = _defaults.changedKeys().size();
    }

private:
    FakeDefaults& _defaults;
};

class IgnoreListTest : public testing::Test {
protected:
    IgnoreListTest() {
        workspace.setActiveApplication(RunningApplication{"Editor", 7, "org.example.Editor", "/usr/bin/editor"});
    }

    void store(const TarragonBlacklist& entry, const std::string& identifier = "org.example.Editor") {
        IgnoreDictionary dictionary = IgnoreDictionary::load(defaults).value_or(IgnoreDictionary());
        dictionary.setEntry(identifier, entry);
        dictionary.store(defaults);
    }
    void storeTitles(std::vector<std::string> titles) {
        TarragonBlacklist entry;
        entry.setWindowsWithTitlesToIgnore(std::move(titles));
        store(entry);
    }
    std::optional<TarragonBlacklist> storedEntry() {
        const auto dictionary = IgnoreDictionary::load(defaults);
        return dictionary ? dictionary->entry("org.example.Editor") : std::nullopt;
    }

    FakeDefaults defaults;
    FakeWorkspace workspace;
    FakeFocusedWindow window;
    RecordingPanel panel{defaults};
    IgnoreList list{defaults, workspace, window, &panel};
};

TEST_F(IgnoreListTest, IgnoresAFullScreenWindowWithAnEmptyListAndLeavesThePanel) {
    window.fullScreen = true;
    EXPECT_TRUE(list.windowIsIgnored());
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST_F(IgnoreListTest, IgnoresNothingWithoutAStoredList) {
    EXPECT_FALSE(list.windowIsIgnored());
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST_F(IgnoreListTest, IgnoresNothingOfAnApplicationThatIsNotListed) {
    TarragonBlacklist entry;
    entry.setIgnoreAllAppWindows(true);
    store(entry, "org.example.Other");
    EXPECT_FALSE(list.windowIsIgnored());
    EXPECT_THAT(panel.calls, IsEmpty());
}

TEST_F(IgnoreListTest, IgnoresNothingByAnEntryThatDoesNotUnarchive) {
    ArchiveDictionary dictionary;
    dictionary.entries = {{"org.example.Editor", std::make_shared<const Data>(Data{1, 2, 3})}};
    defaults.setValue("IgnoreWindowList",
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(dictionary)));
    EXPECT_FALSE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoresEveryWindowOfAnApplicationAndHidesThePanel) {
    TarragonBlacklist entry;
    entry.setIgnoreAllAppWindows(true);
    store(entry);
    EXPECT_TRUE(list.windowIsIgnored());
    EXPECT_THAT(panel.calls, ElementsAre("hideTarragonPanel"));
    window.title = std::nullopt;
    EXPECT_TRUE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoresAWindowByItsTitleAndHidesThePanel) {
    storeTitles({"Letter", "Untitled 3"});
    EXPECT_TRUE(list.windowIsIgnored());
    EXPECT_THAT(panel.calls, ElementsAre("hideTarragonPanel"));
}

TEST_F(IgnoreListTest, IgnoresAWindowByAPatternWithCase) {
    storeTitles({"Untitled*"});
    EXPECT_TRUE(list.windowIsIgnored());
    storeTitles({"Untitled ?"});
    EXPECT_TRUE(list.windowIsIgnored());
    storeTitles({"untitled*"});
    EXPECT_FALSE(list.windowIsIgnored());
    EXPECT_EQ(panel.calls.size(), 2U);
}

TEST_F(IgnoreListTest, NeverIgnoresByTheListWithoutABundleIdentifierOrAnApplication) {
    TarragonBlacklist entry;
    entry.setIgnoreAllAppWindows(true);
    store(entry, "");
    workspace.setActiveApplication(RunningApplication{"Editor", 7, "", ""});
    EXPECT_FALSE(list.windowIsIgnored());
    workspace.setActiveApplication(std::nullopt);
    EXPECT_FALSE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, ReadsTheListAnewAtEveryCall) {
    EXPECT_FALSE(list.windowIsIgnored());
    storeTitles({"Untitled 3"});
    EXPECT_TRUE(list.windowIsIgnored());
    defaults.removeValue("IgnoreWindowList");
    EXPECT_FALSE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, UsesTheRegisteredListWhenTheUserHasNone) {
    defaults.registerDefaults({{"IgnoreWindowList", archiveOfEmptyMutableDictionary()}});
    EXPECT_FALSE(list.windowIsIgnored());
    list.ignoreTitle();
    EXPECT_TRUE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoreAppListsTheApplicationWithAllItsWindows) {
    list.ignoreApp();
    const std::optional<TarragonBlacklist> entry = storedEntry();
    ASSERT_TRUE(entry);
    EXPECT_THAT(entry->appBundleID(), Optional(std::string("org.example.Editor")));
    EXPECT_THAT(entry->appName(), Optional(std::string("Editor")));
    EXPECT_THAT(entry->ignoreAllAppWindows(), Optional(true));
    EXPECT_THAT(entry->windowsWithTitlesToIgnore(), Optional(IsEmpty()));
    EXPECT_TRUE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoreTitleListsTheTitleAlone) {
    list.ignoreTitle();
    const std::optional<TarragonBlacklist> entry = storedEntry();
    ASSERT_TRUE(entry);
    EXPECT_THAT(entry->appName(), Optional(std::string("Editor")));
    EXPECT_THAT(entry->ignoreAllAppWindows(), Optional(false));
    EXPECT_THAT(entry->windowsWithTitlesToIgnore(), Optional(ElementsAre("Untitled 3")));
    EXPECT_TRUE(list.windowIsIgnored());
    window.title = "Letter";
    EXPECT_FALSE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoringTheSameTitleTwiceStoresItTwice) {
    list.ignoreTitle();
    list.ignoreTitle();
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Untitled 3", "Untitled 3")));
    EXPECT_TRUE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoreRoleListsTheApplicationAndIgnoresNothing) {
    list.ignoreRole();
    const std::optional<TarragonBlacklist> entry = storedEntry();
    ASSERT_TRUE(entry);
    EXPECT_THAT(entry->appBundleID(), Optional(std::string("org.example.Editor")));
    EXPECT_THAT(entry->ignoreAllAppWindows(), Optional(false));
    EXPECT_THAT(entry->windowsWithTitlesToIgnore(), Optional(IsEmpty()));
    EXPECT_FALSE(list.windowIsIgnored());
}

TEST_F(IgnoreListTest, IgnoreRoleLeavesAListedApplicationAsItIs) {
    storeTitles({"Letter"});
    const auto before = defaults.storedValue("IgnoreWindowList");
    list.ignoreRole();
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"), before);
}

TEST_F(IgnoreListTest, AddsToWhatIsStoredForTheApplication) {
    TarragonBlacklist entry;
    entry.setAppName("Old name");
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Letter"});
    store(entry);
    list.ignoreTitle();
    list.ignoreApp();
    EXPECT_THAT(storedEntry()->appName(), Optional(std::string("Old name")));
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Letter", "Untitled 3")));
    EXPECT_THAT(storedEntry()->ignoreAllAppWindows(), Optional(true));
}

TEST_F(IgnoreListTest, KeepsTheEntriesOfOtherApplications) {
    TarragonBlacklist other;
    other.setAppName("Other");
    store(other, "org.example.Other");
    list.ignoreApp();
    const auto dictionary = IgnoreDictionary::load(defaults);
    ASSERT_TRUE(dictionary);
    EXPECT_THAT(dictionary->allKeys(), ElementsAre("org.example.Other", "org.example.Editor"));
    EXPECT_EQ(dictionary->entry("org.example.Other"), other);
}

// An entry as somebody else stored it: the name is a number, and among the titles stands another one.
class StrangeEntry : public KeyedCoding {
public:
    std::vector<std::string> archivedClasses() const override { return {"TarragonBlacklist", "NSObject"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        coder.encodeObject(std::string("org.example.Editor"), "appBundleID");
        coder.encodeObject(std::int64_t{7}, "appName");
        coder.encodeObject(false, "ignoreAllAppWindows");
        coder.encodeObject(std::make_shared<const ArchiveArray>(
                               ArchiveArray{{std::string("Letter"), std::int64_t{7}, std::string("Report*")}}),
            "windowsWithTitlesToIgnore");
    }
};

TEST_F(IgnoreListTest, KeepsWhatElseIsStoredWhenItAddsATitle) {
    const auto entry =
        std::make_shared<const Data>(KeyedArchiver::archivedDataWithRootObject(std::make_shared<const StrangeEntry>()));
    const auto damaged = std::make_shared<const Data>(Data{1, 2, 3});
    const auto archiveWith = [&](const std::shared_ptr<const Data>& editor) {
        return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(
            ArchiveDictionary{{{"note", std::string("a text")}, {"org.example.Editor", editor},
                                  {"org.example.Damaged", damaged}, {"version", std::int64_t{2}}},
                Mutability::Mutable}));
    };
    defaults.setValue("IgnoreWindowList", archiveWith(entry));
    window.title = "Report 7";
    EXPECT_TRUE(list.windowIsIgnored());
    window.title = "Untitled 3";
    EXPECT_FALSE(list.windowIsIgnored());

    list.ignoreTitle();
    TarragonBlacklist expected;
    expected.setAppBundleID("org.example.Editor");
    expected.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Letter", "Report*", "Untitled 3"});
    EXPECT_EQ(storedEntry(), expected);
    EXPECT_EQ(defaults.storedValue("IgnoreWindowList"),
        DefaultsValue(archiveWith(std::make_shared<const Data>(expected.archivedData()))));
}

TEST_F(IgnoreListTest, ReplacesAListThatDoesNotUnarchiveByAnEmptyOneAtOnce) {
    defaults.setValue("IgnoreWindowList", Data{1, 2, 3});
    std::vector<DefaultsValue> stored;
    defaults.addObserver("values.IgnoreWindowList",
        [this, &stored](const std::string&) { stored.push_back(*defaults.value("IgnoreWindowList")); });
    list.ignoreApp();
    ASSERT_EQ(stored.size(), 2U);
    EXPECT_EQ(stored[0], DefaultsValue(archiveOfEmptyMutableDictionary()));
    EXPECT_TRUE(storedEntry());
}

TEST_F(IgnoreListTest, StoresASoundListOnceOnly) {
    storeTitles({"Letter"});
    const std::size_t before = defaults.changedKeys().size();
    list.ignoreApp();
    EXPECT_EQ(defaults.changedKeys().size(), before + 1);
}

TEST_F(IgnoreListTest, ReplacesAnEntryThatDoesNotUnarchive) {
    ArchiveDictionary dictionary;
    dictionary.entries = {{"org.example.Editor", std::make_shared<const Data>(Data{1, 2, 3})}};
    defaults.setValue("IgnoreWindowList",
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(dictionary)));
    list.ignoreTitle();
    ASSERT_TRUE(storedEntry());
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Untitled 3")));
}

TEST_F(IgnoreListTest, TakesThePanelOffTheScreenBeforeTheListIsStored) {
    storeTitles({"Letter"});
    const std::size_t before = defaults.changedKeys().size();
    list.ignoreTitle();
    EXPECT_THAT(panel.calls, ElementsAre("orderOut"));
    EXPECT_EQ(panel.changesBeforeOrderOut, before);
}

TEST_F(IgnoreListTest, TakesThePanelOffTheScreenForEveryCode) {
    list.ignoreApp();
    list.ignoreRole();
    list.ignoreTitle();
    EXPECT_THAT(panel.calls, ElementsAre("orderOut", "orderOut", "orderOut"));
}

TEST_F(IgnoreListTest, NumbersItsActions) {
    EXPECT_EQ(static_cast<int>(IgnoreCode::App), 0);
    EXPECT_EQ(static_cast<int>(IgnoreCode::Role), 1);
    EXPECT_EQ(static_cast<int>(IgnoreCode::Title), 2);
}

TEST_F(IgnoreListTest, AppendsNothingWhenTheWindowHasNoTitle) {
    window.title = std::nullopt;
    list.ignoreTitle();
    ASSERT_TRUE(storedEntry());
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(IsEmpty()));
}

TEST_F(IgnoreListTest, AppendsToAnEntryThatWasStoredWithoutTitles) {
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::nullopt);
    store(entry);
    list.ignoreTitle();
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Untitled 3")));
}

TEST_F(IgnoreListTest, ListsNothingForAnApplicationWithoutBundleIdentifier) {
    workspace.setActiveApplication(RunningApplication{"Editor", 7, "", ""});
    list.ignoreApp();
    workspace.setActiveApplication(std::nullopt);
    list.ignoreTitle();
    const auto dictionary = IgnoreDictionary::load(defaults);
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->count(), 0U);
    EXPECT_THAT(panel.calls, ElementsAre("orderOut", "orderOut"));
}

TEST_F(IgnoreListTest, KeepsTheTitlesThatItHasWhenATitleIsTooLongToBeReadAgain) {
    storeTitles({"Letter"});
    window.title->resize(9'000'000, 'x');
    list.ignoreTitle();
    EXPECT_THAT(storedEntry()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Letter")));
}

} // namespace
} // namespace tarragon
