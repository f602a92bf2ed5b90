#include "ReaderTest.h"

#include "mirror/ProxyMenuItem.h"

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecentSelections : public ReaderTest {
protected:
    RecentSelections() {
        edit.submenu("Find").item("Next").item("Copy");
        reader->update();
    }
    std::vector<std::string> listed(const std::vector<std::string>& keys) {
        reader->setRecentSelectionsList(keys);
        reader->addRecentSelectionsMenuTo(target);
        return titlesOf(target);
    }

    Menu target{"Target"};
};

TEST_F(RecentSelections, BeginWithASeparatorAndAnOutlinedTitle) {
    EXPECT_THAT(listed({}), ElementsAre("", "Recent Selections"));
    EXPECT_TRUE(target.itemAtIndex(0)->isSeparatorItem());
    const auto title = target.itemAtIndex(1);
    EXPECT_EQ(title->action(), "");
    EXPECT_EQ(title->keyEquivalent(), "");
    EXPECT_EQ(title->attributedTitle(), (AttributedTitle{"Recent Selections", {0, false}, -1}));
}

TEST_F(RecentSelections, AreCopiesOfTheItemsThatTheKeysName) {
    EXPECT_THAT(listed({"Mail|Edit|Copy", "Mail|File|New"}), ElementsAre("", "Recent Selections", "Copy", "New"));
    const auto copy = target.itemAtIndex(2);
    EXPECT_NE(copy, itemAt("Edit", "Copy"));
    EXPECT_EQ(std::dynamic_pointer_cast<ProxyMenuItem>(copy->target())->itemAXUIElementRef(), edit.itemElement("Copy"));
}

TEST_F(RecentSelections, FollowThePathThroughSubmenus) {
    EXPECT_THAT(listed({"Mail|Edit|Find|Next"}), ElementsAre("", "Recent Selections", "Next"));
}

TEST_F(RecentSelections, SkipTheKeysOfOtherApplications) {
    EXPECT_THAT(listed({"Editor|Edit|Copy", "Mail", ""}), ElementsAre("", "Recent Selections"));
}

TEST_F(RecentSelections, GoByWhatTheApplicationCallsItself) {
    fake.accessibility.setAttribute(mail.element(), "AXTitle", std::string("Post"));
    EXPECT_THAT(listed({"Post|Edit|Copy", "Mail|Edit|Cut"}), ElementsAre("", "Recent Selections", "Copy"));
    target.removeAllItems();
    fake.accessibility.removeAttribute(mail.element(), "AXTitle");
    EXPECT_THAT(listed({"AXApplication|Edit|Copy", "Post|Edit|Cut"}), ElementsAre("", "Recent Selections", "Copy"));
}

TEST_F(RecentSelections, LeaveMissingItemsOut) {
    EXPECT_THAT(listed({"Mail|Edit|Gone", "Mail|Gone|Copy", "Mail|Gone"}), ElementsAre("", "Recent Selections"));
}

TEST_F(RecentSelections, GoOnInTheSameMenuWhenAPartInTheMiddleIsMissingOrHasNoSubmenu) {
    EXPECT_THAT(listed({"Mail|Edit|Gone|Paste", "Mail|Edit|Cut|Paste"}),
        ElementsAre("", "Recent Selections", "Paste", "Paste"));
}

TEST_F(RecentSelections, LookForAnItemWithoutATitleAfterATrailingBar) {
    file.item("");
    EXPECT_THAT(listed({"Mail|File|", "Mail|Edit|"}), ElementsAre("", "Recent Selections", ""));
}

TEST_F(RecentSelections, GoByTheWholeNameOfTheApplication) {
    EXPECT_THAT(listed({"Mail 2|Edit|Copy", "Mai|Edit|Copy", "mail|Edit|Copy"}), ElementsAre("", "Recent Selections"));
}

TEST_F(RecentSelections, AskTheApplicationWhatItCallsItselfForEachKey) {
    const auto questions = [&](const std::vector<std::string>& keys) {
        fake.accessibility.clearCalls();
        listed(keys);
        const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
        return std::ranges::count_if(
            calls, [&](const FakeCall& call) { return call.element == mail.element() && call.name == "AXTitle"; });
    };
    EXPECT_EQ(questions({}), 0);
    EXPECT_EQ(questions({"Editor|Edit|Copy", "Viewer|Edit|Copy"}), 2);
}

TEST_F(RecentSelections, FillAMenuForEveryPartThatIsLookedForInIt) {
    fake.accessibility.clearCalls();
    listed({"Mail|Edit|Gone|Paste"});
    const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
    EXPECT_EQ(std::ranges::count_if(calls,
                  [&](const FakeCall& call) { return call.element == edit.element() && call.name == "AXChildren"; }),
        2);
}

TEST_F(RecentSelections, OpenTheMenusOnTheWayAsAMenuThatIsShown) {
    // What is done only to a menu that opens.
    mail.menu("Services").item("Hidden").item("Shown", {.size = Size{10, 10}});
    reader->update();
    EXPECT_THAT(listed({"Mail|Services|Hidden", "Mail|Services|Shown"}), ElementsAre("", "Recent Selections", "Shown"));
}

TEST_F(RecentSelections, NameATopLevelItemByTwoParts) {
    EXPECT_THAT(listed({"Mail|Edit"}), ElementsAre("", "Recent Selections", "Edit"));
}

TEST_F(RecentSelections, AreNeverRecorded) {
    open("Edit");
    reader->updateRecentSelectionsListWithItem(*itemAt("Edit", "Copy"));
    reader->updateRecentSelectionsListWithItem(*root().itemAtIndex(0));
    EXPECT_THAT(reader->recentSelectionsList(), IsEmpty());
}

} // namespace
} // namespace tarragon
