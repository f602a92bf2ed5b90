#include "mirror/WindowRules.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

namespace tarragon {
namespace {

using Text = std::optional<std::string>;

// Texts that a comparison which is not exact takes for this one.
std::vector<std::string> almost(const std::string& text) {
    const auto first = static_cast<unsigned char>(text.front());
    std::string otherCase = text;
    otherCase.front() = static_cast<char>(std::isupper(first) ? std::tolower(first) : std::toupper(first));
    return {text + "s", text + " 2", "My " + text, text.substr(0, text.size() - 1), otherCase};
}

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

TEST(DesktopLikeWindow, IsToldByExactTexts) {
    for (const char* exact : {"Finder", "Tarragon", "Steam", "Parallels"}) {
        for (const std::string& title : almost(exact))
            EXPECT_EQ(isDesktopLikeWindow(title, "scroll area"), std::nullopt) << title;
    }
    for (const char* exact : {"scroll area", "AXWindow:AXUnknown"}) {
        for (const std::string& role : almost(exact))
            EXPECT_EQ(isDesktopLikeWindow("Finder", role), std::nullopt) << role;
    }
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
    for (const char* exact : {"Help", "File", "Copy", "contextMenu", "Delete", "Duplicate", "System Preferences"}) {
        for (const std::string& title : almost(exact))
            EXPECT_FALSE(isPassingWindow("window", title)) << title;
    }
    for (const char* title : {"moving", "deleting", "clockwork", "copying"})
        EXPECT_FALSE(isPassingWindow("window", title)) << title;
}

TEST(PassingWindow, IsToldByExactRoleTexts) {
    for (const char* exact : {"sheet", "dialog", "floating window"}) {
        for (const std::string& role : almost(exact))
            EXPECT_FALSE(isPassingWindow(role, "Letter")) << role;
    }
    for (const char* title : {"Help", "File"}) {
        for (const std::string& role : almost("window"))
            EXPECT_FALSE(isPassingWindow(role, title)) << role << " " << title;
    }
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
             "ContextMenu", "My Clockwork", "Not Copying", "My Moving", "No Deleting", "Letter"})
        EXPECT_FALSE(isPassingWindow("window", title)) << title;
}

} // namespace
} // namespace tarragon
