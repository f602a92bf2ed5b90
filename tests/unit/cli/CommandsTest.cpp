#include "cli/Commands.h"

#include "fake/FakePlatform.h"
#include "fake/RecordingLog.h"
#include "platform/AccessibilityNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace tarragon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class CommandsTest : public testing::Test {
protected:
    CommandsTest()
        : mail(fake.addApplication("Mail"))
        , notes(fake.addApplication("Notes"))
        , commands(fake.platform(), output, errors) {
        const FakeMenu file = mail.menu("File");
        file.item("New", {.commandCharacter = "N", .shortcutText = "Ctrl+N"}).separator();
        file.submenu("Open Recent").item("Letter").submenu("Older").item("Postcard");
        file.item("Close", {.enabled = false});
        mail.menu("View").item("Toolbar", {.mark = "✓"});
        notes.menu("Note").item("Pin");
        fake.activate(mail);
    }

    nlohmann::json json(const ListMenus& command) {
        EXPECT_EQ(commands.listMenus(command), 0) << errors.str();
        return nlohmann::json::parse(output.str());
    }

    std::vector<std::string> pressed() {
        std::vector<std::string> labels;
        for (const auto& [element, action] : fake.accessibility.performedActions())
            labels.push_back(fake.accessibility.label(element) + " " + action);
        return labels;
    }

    FakePlatform fake;
    FakeApplication mail;
    FakeApplication notes;
    std::ostringstream output;
    std::ostringstream errors;
    Commands commands;
};

TEST_F(CommandsTest, PrintsTheFrontApplicationsMenusWithTheirKeys) {
    EXPECT_EQ(commands.listMenus({}), 0);
    EXPECT_THAT(output.str(), HasSubstr("Mail|File|\n"));
    EXPECT_THAT(output.str(), HasSubstr("Mail|File|New\n"));
    EXPECT_THAT(output.str(), HasSubstr("Ctrl+N"));
    EXPECT_THAT(output.str(), HasSubstr("----"));
    EXPECT_THAT(output.str(), HasSubstr("✓   Toolbar"));
    EXPECT_THAT(output.str(), HasSubstr("Close (disabled)"));
    EXPECT_THAT(output.str(), Not(HasSubstr("Letter")));
    EXPECT_THAT(errors.str(), IsEmpty());
}

TEST_F(CommandsTest, TellTheLogWhoseMenusTheyReadAndHowManyThereAre) {
    const RecordingLog log(LogCategory::Menus);
    EXPECT_EQ(commands.listMenus({}), 0);
    EXPECT_THAT(log.lines(), testing::Contains(HasSubstr("'Mail', process 100")));
    EXPECT_THAT(log.lines(), testing::Contains(HasSubstr("'Mail' has 2 items in its menu bar")));
    fake.deactivate();
    EXPECT_EQ(commands.listMenus({}), 1);
    EXPECT_THAT(log.lines().back(), HasSubstr("nothing is read"));
}

TEST_F(CommandsTest, PrintsAsManyLevelsAsAsked) {
    const auto top = json({.depth = 1, .json = true});
    ASSERT_EQ(top.size(), 2U);
    EXPECT_EQ(top[0]["items"].size(), 0U);
    output.str("");
    const auto all = json({.depth = 0, .json = true});
    EXPECT_EQ(all[0]["items"][2]["items"][1]["items"][0]["title"], "Postcard");
    EXPECT_EQ(all[0]["items"][2]["items"][1]["items"][0]["key"], "Mail|File|Open Recent|Older|Postcard");
}

TEST_F(CommandsTest, ReadsAllLevelsAtOnceUnlessOnlyOneIsAskedFor) {
    json({.depth = 1, .json = true});
    EXPECT_EQ(fake.accessibility.deepestBatch(), ReadBatchDepth::OneLevel);
    output.str("");
    json({.depth = 0, .json = true});
    EXPECT_EQ(fake.accessibility.deepestBatch(), ReadBatchDepth::AllLevels);
}

TEST_F(CommandsTest, PrintsEveryPropertyOfAnItemAsJson) {
    const auto all = json({.depth = 2, .json = true});
    EXPECT_EQ(all[0]["items"][0],
        (nlohmann::json{{"title", "New"}, {"key", "Mail|File|New"}, {"enabled", true}, {"checked", false},
            {"separator", false}, {"shortcut", "Ctrl+N"}, {"items", nlohmann::json::array()}}));
    EXPECT_EQ(all[0]["items"][1]["separator"], true);
    EXPECT_EQ(all[0]["items"][1]["title"], "");
    EXPECT_EQ(all[0]["items"][3]["enabled"], false);
    EXPECT_EQ(all[1]["items"][0]["checked"], true);
}

TEST_F(CommandsTest, MendsTitlesThatAreNotValidText) {
    notes.menu("Broken \xFF title").item("Item");
    const auto all = json({.application = {.name = "Notes"}, .depth = 1, .json = true});
    EXPECT_EQ(all[1]["title"], "Broken \uFFFD title");
}

TEST_F(CommandsTest, TakesAnotherApplicationByNameOrProcess) {
    EXPECT_EQ(commands.listMenus({.application = {.name = "Notes"}}), 0);
    EXPECT_THAT(output.str(), HasSubstr("Notes|Note|Pin"));
    output.str("");
    EXPECT_EQ(commands.listMenus({.application = {.processIdentifier = notes.processIdentifier()}}), 0);
    EXPECT_THAT(output.str(), HasSubstr("Notes|Note|Pin"));
}

TEST_F(CommandsTest, PressesTheItemWithTheKeyAndNothingElse) {
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|New"}), 0);
    EXPECT_THAT(pressed(), testing::ElementsAre("New AXPress"));
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|Open Recent|Older|Postcard"}), 0);
    EXPECT_THAT(pressed(), testing::ElementsAre("New AXPress", "Postcard AXPress"));
    EXPECT_THAT(output.str(), IsEmpty());
    EXPECT_THAT(errors.str(), IsEmpty());
}

TEST_F(CommandsTest, PressesItemsWhoseTitlesHoldBars) {
    notes.menu("A").item("B");
    notes.menu("A|B").item("C|D");
    EXPECT_EQ(commands.pressItem({{.name = "Notes"}, "Notes|A|B|C|D"}), 0);
    EXPECT_THAT(pressed(), testing::ElementsAre("C|D AXPress"));
}

TEST_F(CommandsTest, RefusesKeysThatNameNoItemThatCanBePressed) {
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|Nothing"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("no menu item has the key 'Mail|File|Nothing'"));
    EXPECT_EQ(commands.pressItem({{}, "Notes|Note|Pin"}), 1);
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("'Mail|File|' is a menu"));
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|Close"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("'Mail|File|Close' is disabled"));
    EXPECT_THAT(pressed(), IsEmpty());
}

TEST_F(CommandsTest, SaysThatAnItemCouldNotBePressed) {
    const FakeMenu file = mail.menu("Go");
    file.item("Inbox");
    fake.accessibility.setFault(file.itemElement("Inbox"), FakeFault::Refusing);
    EXPECT_EQ(commands.pressItem({{}, "Mail|Go|Inbox"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("could not be pressed"));
}

TEST_F(CommandsTest, KeepsControlCharactersOffTheTerminal) {
    notes
        .menu("A\x1B[2J\x7F\xC2\x9B"
              "B")
        .item("Item");
    EXPECT_EQ(commands.listMenus({.application = {.name = "Notes"}}), 0);
    EXPECT_THAT(output.str(), Not(HasSubstr("\x1B")));
    EXPECT_THAT(output.str(), Not(HasSubstr("\x7F")));
    EXPECT_THAT(output.str(), HasSubstr("A [2J  B"));
}

TEST_F(CommandsTest, SaysThatNoApplicationIsInFront) {
    fake.deactivate();
    EXPECT_EQ(commands.listMenus({}), 1);
    EXPECT_EQ(errors.str(), "tarragon: no application is in front\n");
    EXPECT_EQ(commands.pressItem({{}, "Mail|File|New"}), 1);
}

TEST_F(CommandsTest, SaysThatAnApplicationCannotBeFound) {
    EXPECT_EQ(commands.listMenus({.application = {.name = "Nobody"}}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("no application named 'Nobody' has a window"));
    EXPECT_EQ(commands.listMenus({.application = {.processIdentifier = 4711}}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("4711"));
}

TEST_F(CommandsTest, SaysThatAnApplicationHasNoMenus) {
    fake.activate(fake.addApplication("Terminal"));
    EXPECT_EQ(commands.listMenus({}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("'Terminal' has no menu bar"));
}

TEST_F(CommandsTest, SaysThatTheInterfaceCannotBeReached) {
    fake.accessibility.setTrusted(false);
    EXPECT_EQ(commands.listMenus({}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("accessibility interface cannot be reached"));
    EXPECT_EQ(commands.inspect(), 1);
}

TEST_F(CommandsTest, SurvivesMenusWithoutEnd) {
    FakeMenu menu = notes.menu("Deep");
    for (int level = 0; level < 100; ++level)
        menu = menu.submenu("Deeper");
    EXPECT_EQ(commands.listMenus({.application = {.name = "Notes"}, .depth = 0}), 0);
}

TEST_F(CommandsTest, DescribesTheElementUnderThePointer) {
    const Element button = fake.accessibility.addElement(mail.processIdentifier(), "AXButton");
    fake.accessibility.setAttribute(button, attribute::Title, std::string("Send"));
    fake.accessibility.addHitArea({{10, 20}, {5, 5}}, button);
    fake.displays.setMouseLocationNS({12, 900 - 22});
    EXPECT_EQ(commands.inspect(), 0);
    EXPECT_THAT(output.str(), HasSubstr("“Send”"));
}

TEST_F(CommandsTest, DescribesTheFrontWindowWhenNothingIsUnderThePointer) {
    mail.window({.title = "Inbox"});
    EXPECT_EQ(commands.inspect(), 0);
    EXPECT_THAT(output.str(), HasSubstr("“Inbox”"));
}

TEST_F(CommandsTest, SaysThatThereIsNothingToInspect) {
    EXPECT_EQ(commands.inspect(), 1);
    EXPECT_THAT(errors.str(), HasSubstr("no window is in front"));
}

} // namespace
} // namespace tarragon
