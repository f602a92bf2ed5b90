#include "cli/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

template <typename T>
T parsed(const std::vector<std::string>& arguments) {
    const Command command = parseCommandLine(arguments);
    const T* result = std::get_if<T>(&command);
    EXPECT_NE(result, nullptr) << testing::PrintToString(arguments);
    return result ? *result : T();
}

TEST(CommandLine, RunsTheAgentWithoutArguments) {
    parsed<RunAgent>({});
}

TEST(CommandLine, ShowsHelpAndVersion) {
    parsed<ShowHelp>({"--help"});
    parsed<ShowHelp>({"-h"});
    parsed<ShowVersion>({"--version"});
}

TEST(CommandLine, ListsTwoLevelsOfTheFrontApplicationUnlessToldOtherwise) {
    const auto command = parsed<ListMenus>({"menus"});
    EXPECT_EQ(command.depth, 2U);
    EXPECT_FALSE(command.json);
    EXPECT_FALSE(command.application.name);
    EXPECT_FALSE(command.application.processIdentifier);
}

TEST(CommandLine, TakesEveryOptionOfMenus) {
    const auto byName = parsed<ListMenus>({"menus", "--depth", "0", "--json", "--application", "Mousepad"});
    EXPECT_EQ(byName.depth, 0U);
    EXPECT_TRUE(byName.json);
    EXPECT_EQ(byName.application.name, "Mousepad");
    const auto byProcess = parsed<ListMenus>({"menus", "--pid=42", "--depth=5"});
    EXPECT_EQ(byProcess.depth, 5U);
    EXPECT_EQ(byProcess.application.processIdentifier, 42);
}

TEST(CommandLine, TakesTheKeyOfAnItemToPress) {
    const auto command = parsed<PressItem>({"press", "Mousepad|File|New", "--pid", "42"});
    EXPECT_EQ(command.itemKey, "Mousepad|File|New");
    EXPECT_EQ(command.application.processIdentifier, 42);
}

TEST(CommandLine, TakesAKeyThatLooksLikeAnOptionAfterTwoDashes) {
    EXPECT_EQ(parsed<PressItem>({"press", "--", "--odd|File|New"}).itemKey, "--odd|File|New");
    EXPECT_EQ(parsed<PressItem>({"press", "Calc|a=b|c"}).itemKey, "Calc|a=b|c");
}

TEST(CommandLine, Inspects) {
    parsed<InspectElement>({"inspect"});
}

TEST(CommandLine, RefusesWhatMakesNoSense) {
    const std::vector<std::vector<std::string>> nonsense = {
        {"menu"},
        {""},
        {"--nonsense"},
        {"--help", "menus"},
        {"--help=yes"},
        {"--version", "--version"},
        {"menus", "Mousepad"},
        {"menus", "--depth"},
        {"menus", "--depth", "-1"},
        {"menus", "--depth", "two"},
        {"menus", "--depth", "2x"},
        {"menus", "--depth", "99999999999999999999"},
        {"menus", "--depth="},
        {"menus", "--json=yes"},
        {"menus", "--pid"},
        {"menus", "--pid", "0"},
        {"menus", "--pid", "-5"},
        {"menus", "--pid", "mousepad"},
        {"menus", "--application", ""},
        {"menus", "--application", "A", "--pid", "5"},
        {"menus", "--pid", "5", "--pid", "6"},
        {"press"},
        {"press", ""},
        {"press", "A|B", "C|D"},
        {"press", "A|B", "--json"},
        {"inspect", "window"},
    };
    for (const auto& arguments : nonsense)
        EXPECT_FALSE(parsed<UsageError>(arguments).message.empty()) << testing::PrintToString(arguments);
}

TEST(CommandLine, ExplainsEveryCommandAndOptionInItsHelp) {
    for (const char* word :
        {"menus", "press", "inspect", "--depth", "--json", "--application", "--pid", "--help", "--version"})
        EXPECT_THAT(helpText(), testing::HasSubstr(word));
}

} // namespace
} // namespace tarragon
