#include "mirror/CacheEligibility.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

TEST(CacheEligibility, HoldsForAnyMenuThatNoRuleNames) {
    for (const char* title : {"Edit", "File", "Format", "Apple", "\uF8FF", "window", "Windows"})
        EXPECT_TRUE(menuMayBeCached("Editor", title)) << title;
}

TEST(CacheEligibility, ExcludesUntitledMenusAndTheWindowMenu) {
    for (const char* title : {"", "AXMenuBarItem", "Window"})
        EXPECT_FALSE(menuMayBeCached("Editor", title)) << title;
}

TEST(CacheEligibility, ExcludesTheFindersEditMenuAlone) {
    EXPECT_FALSE(menuMayBeCached("Finder", "Edit"));
    EXPECT_TRUE(menuMayBeCached("Finder", "File"));
}

TEST(CacheEligibility, ExcludesMenusOfPastItems) {
    for (const char* title : {"Recent Items", "Open Recent", "History", "Bookmarks"})
        EXPECT_FALSE(menuMayBeCached("Editor", title)) << title;
}

TEST(CacheEligibility, ExcludesApplicationsByName) {
    for (const char* name : {"Mail", "IBM Lotus Symphony", "Photoshop", "Audacity", "OfficeTime", "Avid Media Composer",
             "Microsoft Word", "Microsoft Excel", "Safari", "Xcode", "Firefox", "Camino", "Thunderbird", "iPhoto",
             "Bookends", "Parallels Desktop"})
        EXPECT_FALSE(menuMayBeCached(name, "File")) << name;
    for (const char* name : {"mail", "Mail ", "Microsoft", "Parallels", "Firefox Developer"})
        EXPECT_TRUE(menuMayBeCached(name, "File")) << name;
}

TEST(CacheEligibility, ExcludesTwoMenusOfWord) {
    EXPECT_FALSE(menuMayBeCached("Word", "Edit"));
    EXPECT_FALSE(menuMayBeCached("Word", "Insert"));
    EXPECT_TRUE(menuMayBeCached("Word", "File"));
}

TEST(CacheEligibility, ExcludesEveryApplicationWhoseNameBeginsWithFileMaker) {
    EXPECT_FALSE(menuMayBeCached("FileMaker", "File"));
    EXPECT_FALSE(menuMayBeCached("FileMaker Pro", "File"));
    EXPECT_TRUE(menuMayBeCached("My FileMaker", "File"));
    EXPECT_TRUE(menuMayBeCached("Filemaker", "File"));
}

TEST(CacheEligibility, GoesByExactTexts) {
    for (const char* title : {"Windows", "AXMenuBarItems", "Recent Items…", "Open Recent…", "History…", "Bookmarks…",
             "My History", "history"})
        EXPECT_TRUE(menuMayBeCached("Editor", title)) << title;
    for (const char* title : {"Edit…", "My Edit", "edit"})
        EXPECT_TRUE(menuMayBeCached("Finder", title)) << title;
    for (const char* title : {"Edit…", "Insert…", "insert"})
        EXPECT_TRUE(menuMayBeCached("Word", title)) << title;
    EXPECT_TRUE(menuMayBeCached("Finder 2", "Edit"));
    for (const char* title : {"Edit", "Insert"})
        EXPECT_TRUE(menuMayBeCached("Word 2", title)) << title;
}

TEST(CacheEligibility, GoesByExactNamesOfApplications) {
    for (const char* name : {"finder", "FINDER", "Finder ", "Finder 2", "Path Finder", "Find", "word", "Word 2",
             "WordPad", "Words", "Microsoft word", "Wor"}) {
        EXPECT_TRUE(menuMayBeCached(name, "Edit")) << name;
        EXPECT_TRUE(menuMayBeCached(name, "Insert")) << name;
    }
    for (const char* name : {"microsoft excel", "safari", "Safari Technology Preview", "xcode", "Xcode 2", "firefox",
             "My Camino", "thunderbird", "Thunderbird Beta", "photoshop", "Photoshop 2", "audacity", "officetime"})
        EXPECT_TRUE(menuMayBeCached(name, "File")) << name;
    for (const char* name : {"iphoto", "iPhoto 9", "iPhoto Library", "iPhot", "bookends", "Bookends 12", "Bookend",
             "parallels desktop", "Parallels Desktop 2", "Parallels", "My Parallels Desktop"})
        EXPECT_TRUE(menuMayBeCached(name, "File")) << name;
}

TEST(CacheEligibility, KnowsNoApplicationWithoutAName) {
    EXPECT_TRUE(menuMayBeCached(std::nullopt, "Edit"));
    EXPECT_FALSE(menuMayBeCached(std::nullopt, "History"));
}

} // namespace
} // namespace tarragon
