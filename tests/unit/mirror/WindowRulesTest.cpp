#include "mirror/WindowRules.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using Text = std::optional<std::string>;

TEST(DesktopLikeWindow, IsTheFindersDesktop) {
    EXPECT_EQ(isDesktopLikeWindow("Finder", "scroll area"), true);
    EXPECT_EQ(isDesktopLikeWindow("Finder", "window"), std::nullopt);
    EXPECT_EQ(isDesktopLikeWindow("Editor", "scroll area"), std::nullopt);
}

TEST(DesktopLikeWindow, IsOneOfAnUnknownRoleEvenOfThisProgram) {
    EXPECT_EQ(isDesktopLikeWindow("Editor", "AXWindow:AXUnknown"), true);
    EXPECT_EQ(isDesktopLikeWindow("Tarragon", "AXWindow:AXUnknown"), true);
    EXPECT_EQ(isDesktopLikeWindow(std::nullopt, "AXWindow:AXUnknown"), true);
}

TEST(DesktopLikeWindow, IsNoOtherOfThisProgram) {
    EXPECT_EQ(isDesktopLikeWindow("Tarragon", "window"), false);
}

TEST(DesktopLikeWindow, IsEveryOneOfTwoApplications) {
    EXPECT_EQ(isDesktopLikeWindow("Steam", "window"), true);
    EXPECT_EQ(isDesktopLikeWindow("Parallels", std::nullopt), true);
    EXPECT_EQ(isDesktopLikeWindow("Parallels Desktop", "window"), std::nullopt);
}

TEST(DesktopLikeWindow, IsOtherwiseUndecided) {
    EXPECT_EQ(isDesktopLikeWindow("Editor", "window"), std::nullopt);
    EXPECT_EQ(isDesktopLikeWindow(std::nullopt, std::nullopt), std::nullopt);
}

TEST(PassingWindow, IsAWindowTitledHelpOrFile) {
    EXPECT_TRUE(isPassingWindow("window", "Help"));
    EXPECT_TRUE(isPassingWindow("window", "File"));
    EXPECT_FALSE(isPassingWindow("other", "Help"));
    EXPECT_FALSE(isPassingWindow("window", "Help me"));
}

TEST(PassingWindow, IsToldByExactTexts) {
    for (const char* title : {"Files", "contextMenus", "moving", "deleting", "clockwork", "copying"})
        EXPECT_FALSE(isPassingWindow("window", title)) << title;
}

TEST(PassingWindow, IsOneWithoutRoleTextOrTitle) {
    EXPECT_TRUE(isPassingWindow(std::nullopt, "Letter"));
    EXPECT_TRUE(isPassingWindow("window", std::nullopt));
    EXPECT_TRUE(isPassingWindow(std::nullopt, std::nullopt));
    EXPECT_FALSE(isPassingWindow("window", ""));
}

TEST(PassingWindow, IsASheetADialogOrAFloatingWindow) {
    for (const char* role : {"sheet", "dialog", "floating window"})
        EXPECT_TRUE(isPassingWindow(role, "Letter")) << role;
    for (const char* role : {"window", "Sheet", "standard window", ""})
        EXPECT_FALSE(isPassingWindow(role, "Letter")) << role;
}

TEST(PassingWindow, IsToldByItsTitle) {
    for (const char* title : {"Copy", "contextMenu", "Copying", "Copying 3 items", "Moving", "Moving to Trash",
             "Deleting", "Deleting files", "Delete", "Duplicate", "Clockwork", "Clockworks", "System Preferences"})
        EXPECT_TRUE(isPassingWindow("window", title)) << title;
}

TEST(PassingWindow, IsNotToldByTheBeginningOfEveryTitle) {
    for (const char* title : {"Copy of Letter", "copying", "Delete it", "Duplicates", "System Preferences 2",
             "ContextMenu", "My Clockwork", "Letter"})
        EXPECT_FALSE(isPassingWindow("window", title)) << title;
}

} // namespace
} // namespace tarragon
