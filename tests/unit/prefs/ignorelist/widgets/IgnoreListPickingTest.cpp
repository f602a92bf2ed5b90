#include "IgnoreListViewFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

// The button that takes the window that the user clicks next.
class IgnoreListPickingTest : public IgnoreListViewFixture {
protected:
    static PickedWindow window(std::optional<std::string> title, const std::string& identifier = "org.example.Editor") {
        return {RunningApplication{"Editor", 7, identifier, ""}, std::move(title)};
    }
};

TEST_F(IgnoreListPickingTest, SaysWhatToDoAndTakesTheWindow) {
    open();
    click(button("pickWindow"));
    EXPECT_TRUE(picker.isPicking());
    EXPECT_FALSE(button("pickWindow")->isEnabled());
    EXPECT_THAT(message(), HasSubstr("Click the window"));
    EXPECT_THAT(message(), HasSubstr("Escape"));
    picker.pick(window("Untitled 3"));
    EXPECT_EQ(message(), "");
    EXPECT_TRUE(button("pickWindow")->isEnabled());
    EXPECT_THAT(rows(applications()), ElementsAre("Editor"));
    EXPECT_EQ(selectedRow(applications()), 0);
    EXPECT_EQ(selectedRow(titles()), 0);
    EXPECT_TRUE(button("removeTitle")->isEnabled());
    EXPECT_FALSE(ignoreAll()->isChecked());
    EXPECT_THAT(storedEntry("Editor"), Optional(entry("Editor", {"Untitled 3"}, false)));
}

TEST_F(IgnoreListPickingTest, KeepsItsTitleSelectedWhileOthersChangeTheList) {
    store({entry("Editor", {"a", "b"})});
    open();
    click(button("pickWindow"));
    picker.pick(window("b"));
    store({entry("Editor", {"b"})});
    EXPECT_EQ(selectedRow(titles()), 0);
}

TEST_F(IgnoreListPickingTest, SelectsATitleThatIsThereAlready) {
    store({entry("Clock"), entry("Editor", {"a", "b"}, true)});
    open();
    click(button("pickWindow"));
    picker.pick(window("a"));
    EXPECT_EQ(selectedRow(applications()), 1);
    EXPECT_EQ(selectedRow(titles()), 0);
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("a", "b"));
}

TEST_F(IgnoreListPickingTest, EndsWithoutAWindowWhenTheUserGivesUp) {
    open();
    click(button("pickWindow"));
    picker.pick(std::nullopt);
    EXPECT_EQ(message(), "");
    EXPECT_THAT(rows(applications()), IsEmpty());
    EXPECT_TRUE(button("pickWindow")->isEnabled());
}

TEST_F(IgnoreListPickingTest, SaysWhyAWindowIsNotTaken) {
    open();
    click(button("pickWindow"));
    picker.pick(window(std::nullopt));
    EXPECT_THAT(message(), HasSubstr("no title"));
    click(button("pickWindow"));
    picker.pick(window("a", ""));
    EXPECT_THAT(message(), HasSubstr("not known which application"));
    EXPECT_THAT(rows(applications()), IsEmpty());
}

TEST_F(IgnoreListPickingTest, SaysThatThePointerCannotBeHad) {
    picker.setAvailable(false);
    open();
    click(button("pickWindow"));
    EXPECT_THAT(message(), HasSubstr("cannot be had"));
    EXPECT_TRUE(button("pickWindow")->isEnabled());
}

TEST_F(IgnoreListPickingTest, EndsWhenTheViewIsHiddenOrGoes) {
    open();
    click(button("pickWindow"));
    view->hide();
    EXPECT_FALSE(picker.isPicking());
    view->show();
    click(button("pickWindow"));
    view.reset();
    EXPECT_FALSE(picker.isPicking());
}

TEST_F(IgnoreListPickingTest, LeavesThePickerToOthersWhileItDoesNotPick) {
    open();
    ASSERT_TRUE(picker.pickWindow([](const std::optional<PickedWindow>&) {}));
    view.reset();
    EXPECT_TRUE(picker.isPicking());
}

TEST_F(IgnoreListPickingTest, IsReadyToPickAgainOnceItWasHidden) {
    open();
    click(button("pickWindow"));
    view->hide();
    view->show();
    EXPECT_TRUE(button("pickWindow")->isEnabled());
    EXPECT_EQ(message(), "");
}

TEST_F(IgnoreListPickingTest, GivesTheKeyboardToTheTitlesOnceAWindowIsPicked) {
    open();
    applications()->setFocus();
    click(button("pickWindow"));
    picker.pick(PickedWindow{RunningApplication{"Editor", 7, "org.example.Editor", ""}, "a"});
    EXPECT_EQ(view->focusWidget(), titles());
}

} // namespace
} // namespace tarragon
