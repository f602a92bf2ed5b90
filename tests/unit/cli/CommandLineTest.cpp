#include "cli/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

template <typename T>
T parsed(const std::vector<std::string>& arguments) {
    const Command command = parseCommandLine(arguments).command;
    const T* result = std::get_if<T>(&command);
    EXPECT_NE(result, nullptr) << testing::PrintToString(arguments);
    return result ? *result : T();
}

template <typename T>
bool isParsedAs(const std::vector<std::string>& arguments) {
    return std::holds_alternative<T>(parseCommandLine(arguments).command);
}

LogCategorySet logOf(const std::vector<std::string>& arguments) {
    const CommandLine line = parseCommandLine(arguments);
    EXPECT_FALSE(std::holds_alternative<UsageError>(line.command)) << testing::PrintToString(arguments);
    return line.log;
}

TEST(CommandLine, RunsTheAgentWithoutArguments) {
    EXPECT_TRUE(isParsedAs<RunAgent>({}));
    EXPECT_FALSE(parsed<RunAgent>({}).showsPreferences);
}

TEST(CommandLine, OpensThePreferences) {
    EXPECT_TRUE(parsed<RunAgent>({"preferences"}).showsPreferences);
    EXPECT_TRUE(isParsedAs<UsageError>({"preferences", "now"}));
    EXPECT_THAT(helpText(), testing::HasSubstr("preferences "));
}

TEST(CommandLine, ShowsHelpAndVersion) {
    EXPECT_TRUE(isParsedAs<ShowHelp>({"--help"}));
    EXPECT_TRUE(isParsedAs<ShowHelp>({"-h"}));
    EXPECT_TRUE(isParsedAs<ShowVersion>({"--version"}));
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
    EXPECT_TRUE(isParsedAs<InspectElement>({"inspect"}));
}

TEST(CommandLine, SwitchesNoLogOnUnlessToldTo) {
    EXPECT_TRUE(logOf({}).none());
    EXPECT_TRUE(logOf({"menus", "--json"}).none());
}

TEST(CommandLine, TakesTheLogBeforeOrAfterACommandAndWithoutOne) {
    const LogCategorySet menusAndFront = parseLogCategories("menus,front").categories;
    EXPECT_EQ(logOf({"--log", "menus,front"}), menusAndFront);
    EXPECT_EQ(logOf({"--log=menus,front"}), menusAndFront);
    EXPECT_EQ(logOf({"--log", "menus,front", "inspect"}), menusAndFront);
    EXPECT_EQ(logOf({"inspect", "--log", "menus,front"}), menusAndFront);
    EXPECT_EQ(logOf({"menus", "--log", "menus,front", "--json"}), menusAndFront);
    EXPECT_EQ(logOf({"--log", "menus", "press", "A|B", "--log", "front"}), menusAndFront);
    EXPECT_TRUE(isParsedAs<RunAgent>({"--log", "all"}));
    EXPECT_TRUE(parsed<ListMenus>({"--log", "all", "menus", "--json"}).json);
    EXPECT_EQ(parsed<PressItem>({"press", "--log", "all", "A|B"}).itemKey, "A|B");
}

TEST(CommandLine, TakesNoLogFromTheValueOfAnotherOptionNorAfterTwoDashes) {
    EXPECT_EQ(parsed<ListMenus>({"menus", "--application", "--log"}).application.name, "--log");
    EXPECT_EQ(parsed<PressItem>({"press", "--", "--log"}).itemKey, "--log");
    EXPECT_TRUE(logOf({"press", "--", "--log"}).none());
}

TEST(CommandLine, NamesTheKnownCategoriesOfTheLogWhenOneIsUnknown) {
    const std::string message = parsed<UsageError>({"--log", "nonsense", "menus"}).message;
    EXPECT_THAT(message, testing::HasSubstr("nonsense"));
    EXPECT_THAT(message, testing::HasSubstr("accessibility"));
    EXPECT_TRUE(parseCommandLine({"--log", "menus,nonsense"}).log.none());
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
        {"--log"},
        {"menus", "--log"},
        {"--log", ""},
        {"--log", "nonsense"},
        {"--log=menus,"},
        {"--log", "nonsense", "--log", "menus"},
        {"--log", "menus", "--nonsense"},
        {"--log", "menus", "--help=yes"},
        {"--help", "--log", "nonsense"},
    };
    for (const auto& arguments : nonsense)
        EXPECT_FALSE(parsed<UsageError>(arguments).message.empty()) << testing::PrintToString(arguments);
}

TEST(CommandLine, ExplainsEveryCommandAndOptionInItsHelp) {
    for (const char* word : {"menus", "press", "inspect", "--depth", "--json", "--application", "--pid", "--log",
             "TARRAGON_LOG", "--help", "--version"})
        EXPECT_THAT(helpText(), testing::HasSubstr(word));
    for (const std::string_view category : LogCategoryNames)
        EXPECT_THAT(helpText(), testing::HasSubstr(std::string(category)));
}

} // namespace
} // namespace tarragon
