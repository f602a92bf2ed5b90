#include "prefs/GTMLoginItems.h"

#include "fake/FakeLoginItemList.h"
#include "fake/RecordingLog.h"
#include "prefs/StartAtLogin.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

LoginItemDictionary item(const std::string& name, const std::string& path) {
    return {{"Name", name}, {"Path", path}};
}

TEST(GTMLoginItems, DescribesEveryItemInOrder) {
    FakeLoginItemList list;
    list.add("Second.app", "/Applications/Second.app");
    list.add("First", "/usr/bin/first", true);
    LoginItemsError error;
    EXPECT_THAT(GTMLoginItems::loginItems(&list, &error),
        Optional(ElementsAre(item("Second", "/Applications/Second.app"),
            LoginItemDictionary{{"Name", "First"}, {"Path", "/usr/bin/first"}, {"Hide", true}})));
    EXPECT_EQ(error, LoginItemsError());
}

TEST(GTMLoginItems, LeavesOutWhatAnItemDoesNotHave) {
    FakeLoginItemList list;
    list.add(std::nullopt, "/usr/bin/nameless");
    list.add("Gone", std::nullopt);
    EXPECT_THAT(GTMLoginItems::loginItems(&list, nullptr),
        Optional(
            ElementsAre(LoginItemDictionary{{"Path", "/usr/bin/nameless"}}, LoginItemDictionary{{"Name", "Gone"}})));
}

TEST(GTMLoginItems, TakesTheLastExtensionFromAName) {
    FakeLoginItemList list;
    for (const char* name : {"Plain", "Tarragon.app", "archive.tar.gz", ".hidden", "x.y/z", "dot."})
        list.add(name, std::nullopt);
    std::vector<LoginItemValue> names;
    const std::optional<LoginItemArray> items = GTMLoginItems::loginItems(&list, nullptr);
    for (const LoginItemDictionary& dictionary : *items)
        names.push_back(dictionary.at("Name"));
    EXPECT_THAT(names,
        ElementsAre(LoginItemValue("Plain"), LoginItemValue("Tarragon"), LoginItemValue("archive.tar"),
            LoginItemValue(".hidden"), LoginItemValue("x.y/z"), LoginItemValue("dot")));
}

TEST(GTMLoginItems, ReportsAMissingList) {
    FakeLoginItemList list;
    list.setAvailable(false);
    for (LoginItemList* missing : {static_cast<LoginItemList*>(nullptr), static_cast<LoginItemList*>(&list)}) {
        LoginItemsError error;
        EXPECT_EQ(GTMLoginItems::loginItems(missing, &error), std::nullopt);
        EXPECT_EQ(error, (LoginItemsError{"GTMLoginItems", -1}));
        EXPECT_EQ(GTMLoginItems::loginItems(missing, nullptr), std::nullopt);
        EXPECT_FALSE(GTMLoginItems::pathInLoginItems(missing, "/usr/bin/a"));
        EXPECT_FALSE(GTMLoginItems::itemWithNameInLoginItems(missing, "a"));
        GTMLoginItems::removePathFromLoginItems(missing, "/usr/bin/a");
        GTMLoginItems::removeItemWithNameFromLoginItems(missing, "a");
        GTMLoginItems::addPathToLoginItems(missing, "/usr/bin/a", false);
    }
    EXPECT_THAT(list.items(), IsEmpty());
    EXPECT_EQ(list.insertCount(), 0);
}

TEST(GTMLoginItems, HandOutOnlyAListThatTheSessionHas) {
    FakeLoginItemList list;
    list.add("First", "/usr/bin/first");
    EXPECT_EQ(GTMLoginItems::loginItemsFileListRef(nullptr), nullptr);
    EXPECT_EQ(GTMLoginItems::loginItemsArrayForFileListRef(nullptr), std::nullopt);
    EXPECT_EQ(GTMLoginItems::loginItemsFileListRef(&list), &list);
    EXPECT_EQ(GTMLoginItems::loginItemsArrayForFileListRef(&list), list.items());
    list.setAvailable(false);
    EXPECT_EQ(GTMLoginItems::loginItemsFileListRef(&list), nullptr);
}

TEST(GTMLoginItems, SendNothingToAListThatTheSessionDoesNotHave) {
    FakeLoginItemList list;
    list.add("Tarragon", "/opt/tarragon");
    list.setAvailable(false);
    GTMLoginItems::addPathToLoginItems(&list, "/opt/other", false);
    GTMLoginItems::removePathFromLoginItems(&list, "/opt/tarragon");
    GTMLoginItems::removeItemWithNameFromLoginItems(&list, "Tarragon");
    EXPECT_EQ(list.insertCount(), 0);
    EXPECT_EQ(list.removeCount(), 0);
}

TEST(GTMLoginItems, SayInTheLogWhatTheyCouldNotWrite) {
    FakeLoginItemList list;
    list.add("Tarragon", "/opt/tarragon");
    list.setWritable(false);
    RecordingLog log;
    GTMLoginItems::addPathToLoginItems(&list, "/opt/other", false);
    EXPECT_THAT(log.takeLines(), ElementsAre("settings: the login item could not be written: /opt/other"));
    GTMLoginItems::removeItemWithNameFromLoginItems(&list, "Tarragon");
    EXPECT_THAT(log.takeLines(), ElementsAre("settings: a login item could not be removed: 1"));
    list.setWritable(true);
    GTMLoginItems::addPathToLoginItems(&list, "/opt/other", false);
    GTMLoginItems::removePathFromLoginItems(&list, "/opt/other");
    EXPECT_THAT(log.takeLines(), IsEmpty());
}

// A folder with a program and links to it.
class LoginItemLinks : public testing::Test {
protected:
    LoginItemLinks() {
        std::string pattern = std::filesystem::temp_directory_path() / "tarragon-login-XXXXXX";
        _folder = std::filesystem::canonical(mkdtemp(pattern.data()));
        std::filesystem::create_directory(_folder / "bin");
        std::ofstream(_folder / "bin" / "tarragon") << "#!/bin/sh\n";
        std::filesystem::create_symlink(_folder / "bin" / "tarragon", _folder / "link");
        std::filesystem::create_directory_symlink(_folder / "bin", _folder / "folder");
    }
    ~LoginItemLinks() override { std::filesystem::remove_all(_folder); }

    std::string path(const std::string& name) const { return _folder / name; }
    // Every way to name the program.
    std::vector<std::string> ways() const {
        return {path("bin/tarragon"), path("link"), path("folder/tarragon"), path("bin/../link")};
    }

private:
    std::filesystem::path _folder;
};

TEST_F(LoginItemLinks, ALinkToAProgramIsTheProgram) {
    for (const std::string& listed : ways()) {
        FakeLoginItemList list;
        list.add("Tarragon", listed);
        for (const std::string& asked : ways()) {
            EXPECT_TRUE(GTMLoginItems::pathInLoginItems(&list, asked)) << listed << " " << asked;
            GTMLoginItems::addPathToLoginItems(&list, asked, false);
            EXPECT_EQ(list.insertCount(), 0) << listed << " " << asked;
        }
        EXPECT_FALSE(GTMLoginItems::pathInLoginItems(&list, path("bin")));
    }
}

TEST_F(LoginItemLinks, RemovingAProgramRemovesTheLinksToItFromTheList) {
    FakeLoginItemList list;
    for (const std::string& listed : ways())
        list.add("Tarragon", listed);
    list.add("Gone", path("gone"));
    GTMLoginItems::removePathFromLoginItems(&list, path("link"));
    ASSERT_EQ(list.items().size(), 1U);
    // What is not there is compared as it stands.
    EXPECT_FALSE(GTMLoginItems::pathInLoginItems(&list, path("./gone")));
    GTMLoginItems::removePathFromLoginItems(&list, path("gone"));
    EXPECT_THAT(list.items(), IsEmpty());
}

TEST(GTMLoginItems, FindsTheFirstItemWithAValue) {
    const LoginItemArray items{item("A", "/a"), item("B", "/b"), item("B", "/c"), {{"Hide", true}}};
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("B"), "Name", items), 1);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("/c"), "Path", items), 2);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue(true), "Hide", items), 3);
}

TEST(GTMLoginItems, FindsNoIndexOfWhatIsNotThereOrNotGiven) {
    const LoginItemArray items{item("A", "/a")};
    EXPECT_EQ(NSNotFound, 0x7FFFFFFFFFFFFFFF);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("B"), "Name", items), NSNotFound);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("A"), "Path", items), NSNotFound);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("a"), "Name", items), NSNotFound);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(std::nullopt, "Name", items), NSNotFound);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("A"), std::nullopt, items), NSNotFound);
    EXPECT_EQ(GTMLoginItems::indexOfLoginItemWithValue(LoginItemValue("A"), "Name", std::nullopt), NSNotFound);
}

TEST(GTMLoginItems, KnowsWhichPathsAndNamesAreListed) {
    FakeLoginItemList list;
    list.add("Tarragon.app", "/opt/Tarragon.app");
    EXPECT_TRUE(GTMLoginItems::pathInLoginItems(&list, "/opt/Tarragon.app"));
    EXPECT_FALSE(GTMLoginItems::pathInLoginItems(&list, "/opt/Tarragon"));
    EXPECT_TRUE(GTMLoginItems::itemWithNameInLoginItems(&list, "Tarragon"));
    EXPECT_FALSE(GTMLoginItems::itemWithNameInLoginItems(&list, "Tarragon.app"));
}

TEST(GTMLoginItems, AddsAPathAtTheEndOnce) {
    FakeLoginItemList list;
    list.add("Other", "/opt/other");
    GTMLoginItems::addPathToLoginItems(&list, "/opt/tarragon", false);
    GTMLoginItems::addPathToLoginItems(&list, "/opt/tarragon", true);
    ASSERT_EQ(list.items().size(), 2U);
    EXPECT_EQ(list.items()[1].path, "/opt/tarragon");
    EXPECT_FALSE(list.items()[1].isHidden);
    EXPECT_EQ(list.insertCount(), 1);
}

TEST(GTMLoginItems, AddsAnItemToBeHidden) {
    FakeLoginItemList list;
    GTMLoginItems::addPathToLoginItems(&list, "/opt/tarragon", true);
    ASSERT_EQ(list.items().size(), 1U);
    EXPECT_TRUE(list.items()[0].isHidden);
}

TEST(GTMLoginItems, AddsNothingForAnEmptyPath) {
    FakeLoginItemList list;
    GTMLoginItems::addPathToLoginItems(&list, "", false);
    EXPECT_EQ(list.insertCount(), 0);
}

TEST(GTMLoginItems, RemovesEveryItemWithAPath) {
    FakeLoginItemList list;
    list.add("One", "/opt/x");
    list.add("Two", "/opt/y");
    list.add("Three", "/opt/x");
    list.add("Four", std::nullopt);
    GTMLoginItems::removePathFromLoginItems(&list, "");
    EXPECT_EQ(list.items().size(), 4U);
    GTMLoginItems::removePathFromLoginItems(&list, "/opt/x");
    ASSERT_EQ(list.items().size(), 2U);
    EXPECT_EQ(list.items()[0].displayName, "Two");
    EXPECT_EQ(list.items()[1].displayName, "Four");
}

TEST(GTMLoginItems, RemovesEveryItemOfAName) {
    FakeLoginItemList list;
    list.add("Tarragon", "/opt/x");
    list.add("Tarragon.app", std::nullopt);
    list.add("tarragon", "/opt/x");
    list.add(std::nullopt, "/opt/Tarragon");
    GTMLoginItems::removeItemWithNameFromLoginItems(&list, "");
    EXPECT_EQ(list.items().size(), 4U);
    GTMLoginItems::removeItemWithNameFromLoginItems(&list, "Tarragon");
    ASSERT_EQ(list.items().size(), 2U);
    EXPECT_EQ(list.items()[0].displayName, "tarragon");
    EXPECT_EQ(list.items()[1].displayName, std::nullopt);
}

TEST(StartAtLogin, TurnedOnTwiceAddsTheProgramOnce) {
    FakeLoginItemList list;
    setStartAtLogin(&list, "/opt/Tarragon.app", true);
    setStartAtLogin(&list, "/opt/Tarragon.app", true);
    ASSERT_EQ(list.items().size(), 1U);
    EXPECT_EQ(list.items()[0].path, "/opt/Tarragon.app");
    EXPECT_FALSE(list.items()[0].isHidden);
}

TEST(StartAtLogin, TurnedOffRemovesEveryCopyOfThatName) {
    FakeLoginItemList list;
    list.add("Tarragon.app", "/opt/Tarragon.app");
    list.add("Tarragon", "/home/me/Tarragon");
    list.add("Other", "/opt/other");
    setStartAtLogin(&list, "/opt/Tarragon.app", false);
    ASSERT_EQ(list.items().size(), 1U);
    EXPECT_EQ(list.items()[0].displayName, "Other");
}

TEST(StartAtLogin, TurnedOffLeavesACopyUnderAnotherName) {
    FakeLoginItemList list;
    setStartAtLogin(&list, "/opt/My menu bar.app", true);
    setStartAtLogin(&list, "/opt/My menu bar.app", false);
    EXPECT_EQ(list.items().size(), 1U);
}

TEST(StartAtLogin, LeavesAListAloneThatTheSessionDoesNotHave) {
    FakeLoginItemList list;
    list.add("Tarragon", "/opt/Tarragon.app");
    list.setAvailable(false);
    for (LoginItemList* missing : {static_cast<LoginItemList*>(nullptr), static_cast<LoginItemList*>(&list)}) {
        setStartAtLogin(missing, "/opt/other", true);
        setStartAtLogin(missing, "/opt/Tarragon.app", false);
    }
    EXPECT_EQ(list.insertCount(), 0);
    EXPECT_EQ(list.items().size(), 1U);
}

} // namespace
} // namespace tarragon
