#include "IgnoreListViewFixture.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"

#include <QSignalSpy>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Others change the list while the editor is open.
class IgnoreListChangesTest : public IgnoreListViewFixture { };

class Window : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

TEST_F(IgnoreListChangesTest, ShowsWhatThePanelsMenuIgnoresAtOnce) {
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

TEST_F(IgnoreListChangesTest, FollowsANameThatAnotherProcessChanges) {
    store({entry("Clock")});
    open();
    EXPECT_THAT(rows(applications()), ElementsAre("Clock"));
    TarragonBlacklist renamed = entry("Clock");
    renamed.setAppName("Uhr");
    store({renamed});
    EXPECT_THAT(rows(applications()), ElementsAre("Uhr"));
}

TEST_F(IgnoreListChangesTest, DrawsANameAnewThatHasChanged) {
    store({entry("Clock"), entry("Editor")});
    open();
    const QSignalSpy changes(applications()->model(), &QAbstractItemModel::dataChanged);
    TarragonBlacklist renamed = entry("Editor");
    renamed.setAppName("Texteditor");
    store({entry("Clock"), renamed});
    ASSERT_FALSE(changes.isEmpty());
    EXPECT_EQ(changes.last().at(0).value<QModelIndex>().row(), 0);
    EXPECT_EQ(changes.last().at(1).value<QModelIndex>().row(), 1);
}

TEST_F(IgnoreListChangesTest, KeepsTheSelectionOnItsApplicationWhileOthersChangeTheList) {
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

TEST_F(IgnoreListChangesTest, KeepsTheSelectedApplicationInSightWhileOthersAddSomeBeforeIt) {
    store({entry("Editor", {"a"})});
    open();
    click(applications(), 0);
    std::vector<TarragonBlacklist> entries = manyEntries(300);
    entries.push_back(entry("Editor", {"a"}));
    store(entries);
    ASSERT_EQ(selectedRow(applications()), 300);
    settle();
    EXPECT_TRUE(applications()->viewport()->rect().intersects(
        applications()->visualRect(applications()->model()->index(300, 0))));
}

} // namespace
} // namespace tarragon
