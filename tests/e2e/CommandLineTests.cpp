// The commands that print or press something and end, beside a running agent.
#include "EndToEndTest.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tarragon::e2e {

class CommandLineTest : public WindowManagerTest {
protected:
    void expectFailure(const std::vector<std::string>& arguments, int status) {
        CommandResult result = tarragon(arguments);
        std::string line = testing::PrintToString(arguments);
        EXPECT_EQ(result.status, status) << line << result.error;
        EXPECT_FALSE(result.error.empty()) << line;
        EXPECT_TRUE(result.output.empty()) << line << result.output;
    }
};

TEST_P(CommandLineTest, RefusesWhatMakesNoSense) {
    expectFailure({"--nonsense"}, 2);
    expectFailure({"nonsense"}, 2);
    expectFailure({"menus", "--depth"}, 2);
    expectFailure({"menus", "--depth", "-1"}, 2);
    expectFailure({"menus", "--depth", "many"}, 2);
    expectFailure({"menus", "--pid", "0"}, 2);
    expectFailure({"menus", "--pid", "1", "--application", "x"}, 2);
    expectFailure({"press"}, 2);
    expectFailure({"press", ""}, 2);
    expectFailure({"inspect", "more"}, 2);
    expectFailure({"--log", "nonsense"}, 2);
    expectFailure({"menus", "--log"}, 2);
}

TEST_P(CommandLineTest, NamesTheLogsCategoriesWhenOneIsUnknown) {
    EXPECT_NE(tarragon({"--log", "nonsense", "menus"}).error.find("accessibility"), std::string::npos);
}

TEST_P(CommandLineTest, TellsOnStandardErrorWhatItReadsWhenTheLogIsOn) {
    launch(ApplicationKind::Mousepad);
    CommandResult silent = tarragon({"menus"});
    EXPECT_EQ(silent.status, 0);
    EXPECT_EQ(silent.error, "");
    const std::string line = "menus: reading the menus of 'Mousepad'";
    for (const auto& arguments :
        std::vector<std::vector<std::string>>{{"--log", "menus", "menus"}, {"menus", "--log=front,menus"}}) {
        CommandResult told = tarragon(arguments);
        EXPECT_EQ(told.status, 0);
        EXPECT_EQ(told.output, silent.output);
        EXPECT_NE(told.error.find(line), std::string::npos) << told.error;
    }
    CommandResult told = tarragon({"menus"}, {{"TARRAGON_LOG", "menus"}});
    EXPECT_NE(told.error.find(line), std::string::npos) << told.error;
}

TEST_P(CommandLineTest, TellsWhyAnApplicationHasNoMenusWhenTheLogIsOn) {
    launch(ApplicationKind::Terminal);
    CommandResult result = tarragon({"--log", "menus", "menus"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.error.find(" menus: "), std::string::npos) << result.error;
}

TEST_P(CommandLineTest, GoesOnWhenTheEnvironmentAsksForALogThatIsNone) {
    launch(ApplicationKind::Mousepad);
    CommandResult result = tarragon({"menus"}, {{"TARRAGON_LOG", "nonsense"}});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output, "");
    EXPECT_EQ(result.error.find("tarragon: TARRAGON_LOG: "), 0U) << result.error;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << result.error;
}

TEST_P(CommandLineTest, TellsItsVersionAndHelp) {
    EXPECT_NE(tarragon({"--version"}).output.find("tarragon"), std::string::npos);
    CommandResult help = tarragon({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("menus"), std::string::npos);
}

TEST_P(CommandLineTest, SaysThatThereIsNoServer) {
    for (const std::vector<std::string>& command :
        {std::vector<std::string>{E2E_TARRAGON}, {E2E_TARRAGON, "menus"}, {E2E_TARRAGON, "inspect"}}) {
        for (const char* display : {":4711", "nonsense", ""}) {
            CommandResult result = desktop().run(command, {{"DISPLAY", display}});
            EXPECT_EQ(result.status, 1);
            EXPECT_EQ(result.error, "tarragon: no X server can be reached; is DISPLAY set?\n");
            EXPECT_EQ(result.output, "");
        }
    }
}

TEST_P(CommandLineTest, SaysThatNothingIsInFront) {
    ASSERT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
    expectFailure({"menus"}, 1);
    expectFailure({"press", "Mousepad|File|New"}, 1);
}

TEST_P(CommandLineTest, SaysThatAnApplicationIsUnknown) {
    launch(ApplicationKind::Mousepad);
    expectFailure({"menus", "--application", "No Such Application"}, 1);
    expectFailure({"menus", "--pid", "999999"}, 1);
    expectFailure({"press", "Mousepad|File|No such item"}, 1);
    expectFailure({"press", "Mousepad|File"}, 1);
    // Nothing to undo yet.
    expectFailure({"press", "Mousepad|Edit|Undo"}, 1);
}

TEST_P(CommandLineTest, SaysThatAnApplicationHasNoMenuBar) {
    launch(ApplicationKind::Terminal);
    expectFailure({"menus"}, 1);
}

TEST_P(CommandLineTest, PressesAnItemByTheKeyThatItPrints) {
    TestApplication& application = launch(ApplicationKind::Geany);
    bool before = application.switchState();
    CommandResult listed = tarragon({"menus", "--json"});
    ASSERT_EQ(listed.status, 0) << listed.error;
    std::string key;
    for (const auto& menu : nlohmann::json::parse(listed.output)) {
        for (const auto& item : menu.at("items")) {
            if (menu.at("title") == "View" && item.at("title") == "Show Toolbar")
                key = item.at("key");
        }
    }
    EXPECT_EQ(key, "Geany|View|Show Toolbar");
    CommandResult pressed = tarragon({"press", key});
    EXPECT_EQ(pressed.status, 0) << pressed.error;
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
}

TEST_P(CommandLineTest, WorksForAnApplicationThatIsNotInFront) {
    TestApplication& application = launch(ApplicationKind::Geany);
    bool before = application.switchState();
    launch(ApplicationKind::Terminal);
    CommandResult pressed = tarragon({"press", "--application", "Geany", "Geany|View|Show Toolbar"});
    EXPECT_EQ(pressed.status, 0) << pressed.error;
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
}

TEST_P(CommandLineTest, FindsTheOnlyApplicationAfterAllOthersEnded) {
    quit(launch(ApplicationKind::Terminal));
    ASSERT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
    TestApplication& application = launch(ApplicationKind::Mousepad);
    CommandResult listed = tarragon({"menus", "--pid", std::to_string(application.identifier())});
    EXPECT_EQ(listed.status, 0) << listed.error;
}

TEST_P(CommandLineTest, DescribesWhatIsUnderThePointer) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    PixelRect frame = display().frameOf(application.window());
    input().moveTo(frame.x + frame.width / 2, frame.y + frame.height / 2);
    CommandResult result = tarragon({"inspect"});
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_NE(result.output.find("AXRole"), std::string::npos) << result.output;
}

INSTANTIATE_TEST_SUITE_P(Under, CommandLineTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
