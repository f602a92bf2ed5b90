#include "platform/linux/desktop/AutostartLoginItemList.h"

#include "prefs/StartAtLogin.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class AutostartLoginItemListTest : public testing::Test {
protected:
    AutostartLoginItemListTest() {
        std::string pattern = fs::temp_directory_path() / "tarragon-autostart-XXXXXX";
        _root = mkdtemp(pattern.data());
        folders.user = _root / "config" / "autostart";
        folders.system = {_root / "first" / "autostart", _root / "second" / "autostart"};
        folders.searchPath = {_root / "bin"};
        folders.desktops = {"XFCE"};
        for (const char* name : {"tarragon", "clock", "my tarragon"})
            makeProgram(name);
    }
    ~AutostartLoginItemListTest() override { fs::remove_all(_root); }

    void makeProgram(const std::string& name) {
        fs::create_directories(_root / "bin");
        std::ofstream(_root / "bin" / name) << "#!/bin/sh\necho \"$0\" > \"" << (_root / "started").string() << "\"\n";
        fs::permissions(_root / "bin" / name, fs::perms::owner_all);
    }
    std::string program(const std::string& name) { return _root / "bin" / name; }
    void put(const fs::path& folder, const std::string& fileName, const std::string& keys) {
        fs::create_directories(folder);
        std::ofstream(folder / fileName) << "[Desktop Entry]\nType=Application\n" << keys;
    }
    std::string contents(const fs::path& file) {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    std::vector<std::string> names() {
        std::vector<std::string> result;
        const auto items = list().copySnapshot();
        for (const LoginItem& item : items.value_or(std::vector<LoginItem>()))
            result.push_back(item.displayName.value_or("nil") + (item.path ? " " + *item.path : ""));
        return result;
    }
    std::vector<std::string> userFiles() const {
        std::vector<std::string> result;
        if (fs::exists(folders.user)) {
            for (const auto& entry : fs::directory_iterator(folders.user))
                result.push_back(entry.path().filename());
        }
        std::sort(result.begin(), result.end());
        return result;
    }
    LoginItem item(const std::string& reference) {
        const auto items = list().copySnapshot();
        for (const LoginItem& candidate : *items) {
            if (candidate.reference == reference)
                return candidate;
        }
        ADD_FAILURE() << "no item " << reference;
        return {};
    }
    // Starts the program through an entry that is made for it.
    void expectStarted(const std::string& starter, const std::string& name) {
        makeProgram(name);
        fs::remove_all(folders.user);
        fs::remove(_root / "started");
        EXPECT_TRUE(list().insertItem(program(name), false));
        const std::string command = starter + " '" + (folders.user / userFiles().front()).string() + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        // The starter may have gone before the program that it started.
        for (int attempt = 0; attempt < 500 && contents(_root / "started").empty(); ++attempt)
            usleep(10000);
        EXPECT_EQ(contents(_root / "started"), program(name) + "\n");
    }
    AutostartLoginItemList list() { return AutostartLoginItemList(folders); }

    AutostartFolders folders;
    fs::path _root;
};

TEST_F(AutostartLoginItemListTest, IsEmptyWithoutFolders) {
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(list().copySnapshot());
}

TEST_F(AutostartLoginItemListTest, IsMissingWithoutAHome) {
    folders.user.clear();
    EXPECT_FALSE(list().copySnapshot());
    EXPECT_FALSE(list().insertItem(program("tarragon"), false));
    EXPECT_FALSE(list().removeItem({"clock.desktop", "Clock", std::nullopt, false}));
}

TEST_F(AutostartLoginItemListTest, ListsTheUsersAndTheSystemsEntriesWithTheirPrograms) {
    put(folders.system[0], "clock.desktop", "Name=Clock\nExec=clock --quiet\n");
    put(folders.user, "tarragon.desktop", "Name=Tarragon\nExec=\"" + program("my tarragon") + "\"\n");
    EXPECT_THAT(names(), ElementsAre("Clock " + program("clock"), "Tarragon " + program("my tarragon")));
}

TEST_F(AutostartLoginItemListTest, ListsTheUsersEntriesInTheOrderInWhichTheyWereWritten) {
    put(folders.user, "b.desktop", "Name=First\n");
    put(folders.user, "a.desktop", "Name=Second\n");
    fs::last_write_time(folders.user / "b.desktop", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_THAT(names(), ElementsAre("First", "Second"));
    EXPECT_TRUE(list().insertItem(program("clock"), false));
    EXPECT_THAT(names(), ElementsAre("First", "Second", "Clock " + program("clock")));
}

TEST_F(AutostartLoginItemListTest, InsertsAtTheEndWhateverTheTimesOfTheOthers) {
    put(folders.user, "a.desktop", "Name=First\n");
    put(folders.user, "z.desktop", "Name=Second\n");
    const auto future = fs::file_time_type::clock::now() + std::chrono::hours(1);
    fs::last_write_time(folders.user / "z.desktop", future);
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_TRUE(list().insertItem(program("clock"), false));
    EXPECT_THAT(
        names(), ElementsAre("First", "Second", "Tarragon " + program("tarragon"), "Clock " + program("clock")));
    EXPECT_EQ(fs::last_write_time(folders.user / "z.desktop"), future);
}

TEST_F(AutostartLoginItemListTest, CallsANamelessEntryByItsFile) {
    put(folders.user, "clock.desktop", "Exec=clock\n");
    EXPECT_THAT(names(), ElementsAre("clock.desktop " + program("clock")));
}

TEST_F(AutostartLoginItemListTest, HasNoPathForAProgramThatIsNotThere) {
    put(folders.user, "gone.desktop", "Name=Gone\nExec=/nowhere/gone\n");
    put(folders.user, "none.desktop", "Name=None\n");
    EXPECT_THAT(names(), testing::UnorderedElementsAre("Gone", "None"));
}

TEST_F(AutostartLoginItemListTest, LetsAUsersFileStandForThoseOfTheSystem) {
    put(folders.system[0], "clock.desktop", "Name=First\n");
    put(folders.system[1], "clock.desktop", "Name=Second\n");
    EXPECT_THAT(names(), ElementsAre("First"));
    put(folders.user, "clock.desktop", "Name=Mine\n");
    EXPECT_THAT(names(), ElementsAre("Mine"));
    put(folders.user, "clock.desktop", "Hidden=true\n");
    EXPECT_THAT(names(), IsEmpty());
    std::ofstream(folders.user / "clock.desktop") << "damaged";
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(AutostartLoginItemListTest, LeavesOutWhatIsNotInEffect) {
    put(folders.user, "deleted.desktop", "Name=A\nHidden=true\n");
    put(folders.user, "disabled.desktop", "Name=A\nX-GNOME-Autostart-enabled=false\n");
    put(folders.user, "other.desktop", "Name=A\nOnlyShowIn=GNOME;\n");
    put(folders.user, "not.desktop", "Name=A\nNotShowIn=XFCE;\n");
    put(folders.user, "missing.desktop", "Name=A\nTryExec=/nowhere/gone\n");
    put(folders.user, "text.txt", "Name=A\n");
    EXPECT_THAT(names(), IsEmpty());
    put(folders.user, "here.desktop", "Name=Here\nOnlyShowIn=XFCE;\nTryExec=clock\n");
    EXPECT_THAT(names(), ElementsAre("Here"));
}

TEST_F(AutostartLoginItemListTest, IsNotHeldUpByWhatIsNoFile) {
    fs::create_directories(folders.user / "folder.desktop");
    ASSERT_EQ(mkfifo((folders.user / "pipe.desktop").c_str(), 0600), 0);
    fs::create_symlink("/nowhere/gone", folders.user / "link.desktop");
    fs::create_symlink("/dev/zero", folders.user / "device.desktop");
    std::ofstream(folders.user / "large.desktop") << "[Desktop Entry]\nType=Application\n" << std::string(2 << 20, 'x');
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(AutostartLoginItemListTest, InsertsAnEntryNamedAfterItsFile) {
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_THAT(userFiles(), ElementsAre("tarragon.desktop"));
    EXPECT_THAT(names(), ElementsAre("Tarragon " + program("tarragon")));
    EXPECT_FALSE(item("tarragon.desktop").isHidden);
    struct stat status { };
    ASSERT_EQ(stat((folders.user / "tarragon.desktop").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0644U);
}

TEST_F(AutostartLoginItemListTest, InsertsAnEntryToBeHidden) {
    EXPECT_TRUE(list().insertItem(program("tarragon"), true));
    EXPECT_TRUE(item("tarragon.desktop").isHidden);
}

TEST_F(AutostartLoginItemListTest, InsertsACopyUnderItsOwnName) {
    EXPECT_TRUE(list().insertItem(program("my tarragon"), false));
    EXPECT_THAT(userFiles(), ElementsAre("my-tarragon.desktop"));
    EXPECT_THAT(names(), ElementsAre("My tarragon " + program("my tarragon")));
}

TEST_F(AutostartLoginItemListTest, NeverChangesAFileThatIsNotOurs) {
    put(folders.user, "tarragon.desktop", "Name=Theirs\nHidden=true\n");
    put(folders.system[0], "tarragon-2.desktop", "Name=System\n");
    const std::string before = contents(folders.user / "tarragon.desktop");
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_EQ(contents(folders.user / "tarragon.desktop"), before);
    EXPECT_THAT(userFiles(), ElementsAre("tarragon-3.desktop", "tarragon.desktop"));
    EXPECT_THAT(names(), ElementsAre("System", "Tarragon " + program("tarragon")));
}

TEST_F(AutostartLoginItemListTest, KeepsAnEntryOfOursThatStartsAnotherCopy) {
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    fs::create_directories(_root / "other");
    fs::copy(program("tarragon"), _root / "other" / "tarragon");
    EXPECT_TRUE(list().insertItem(_root / "other" / "tarragon", false));
    EXPECT_THAT(userFiles(), ElementsAre("tarragon-2.desktop", "tarragon.desktop"));
}

TEST_F(AutostartLoginItemListTest, ReplacesAnEntryOfOursWhoseProgramIsGone) {
    EXPECT_TRUE(list().insertItem(program("clock"), false));
    fs::rename(program("clock"), _root / "clock");
    EXPECT_TRUE(list().insertItem(_root / "clock", false));
    EXPECT_THAT(userFiles(), ElementsAre("clock.desktop"));
    EXPECT_THAT(names(), ElementsAre("Clock " + (_root / "clock").string()));
}

TEST_F(AutostartLoginItemListTest, RemovesAnEntryOfTheUsers) {
    put(folders.user, "tarragon.desktop", "Name=Tarragon\n");
    put(folders.user, "other.desktop", "Name=Other\n");
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(userFiles(), ElementsAre("other.desktop"));
    EXPECT_FALSE(list().removeItem({"tarragon.desktop", "Tarragon", std::nullopt, false}));
}

TEST_F(AutostartLoginItemListTest, ShadowsAnEntryOfTheSystemInsteadOfRemovingIt) {
    put(folders.system[1], "tarragon.desktop", "Name=Tarragon\nExec=tarragon\n");
    const std::string before = contents(folders.system[1] / "tarragon.desktop");
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(contents(folders.system[1] / "tarragon.desktop"), before);
    EXPECT_THAT(contents(folders.user / "tarragon.desktop"), HasSubstr("\nHidden=true\n"));
    // What is added again takes the place of the shadow.
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_THAT(userFiles(), ElementsAre("tarragon.desktop"));
    EXPECT_THAT(names(), ElementsAre("Tarragon " + program("tarragon")));
    // And removing it does not bring the system's back.
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(AutostartLoginItemListTest, RemovesOnlyFilesOfItsFolders) {
    const fs::path outside = _root / "config" / "outside.desktop";
    fs::create_directories(outside.parent_path());
    std::ofstream(outside) << "precious";
    EXPECT_FALSE(list().removeItem({"../outside.desktop", "Outside", std::nullopt, false}));
    EXPECT_FALSE(list().removeItem({"", "Nothing", std::nullopt, false}));
    EXPECT_TRUE(fs::exists(outside));
}

TEST_F(AutostartLoginItemListTest, SaysWhenItCannotWrite) {
    // A file stands where the folder should be.
    fs::create_directories(folders.user.parent_path());
    std::ofstream(folders.user) << "in the way";
    EXPECT_FALSE(list().insertItem(program("tarragon"), false));
    EXPECT_EQ(contents(folders.user), "in the way");
}

TEST_F(AutostartLoginItemListTest, SaysWhenItMayNotWrite) {
    constexpr uid_t Nobody = 65534;
    put(folders.user, "clock.desktop", "Name=Clock\n");
    const LoginItem clock = item("clock.desktop");
    fs::permissions(
        folders.user, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(_root, fs::perms::all);
    // Nothing is forbidden to root, so the test is somebody else for a moment.
    const int user = geteuid() == 0 ? setfsuid(Nobody) : -1;
    const bool isInserted = list().insertItem(program("tarragon"), false);
    const bool isRemoved = list().removeItem(clock);
    if (user >= 0)
        setfsuid(static_cast<uid_t>(user));
    fs::permissions(folders.user, fs::perms::owner_all);
    EXPECT_FALSE(isInserted);
    EXPECT_FALSE(isRemoved);
    EXPECT_THAT(userFiles(), ElementsAre("clock.desktop"));
}

TEST_F(AutostartLoginItemListTest, FollowsALinkToTheFolder) {
    const fs::path elsewhere = _root / "elsewhere";
    fs::create_directories(elsewhere);
    fs::create_directories(folders.user.parent_path());
    fs::create_directory_symlink(elsewhere, folders.user);
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_TRUE(fs::exists(elsewhere / "tarragon.desktop"));
    EXPECT_THAT(names(), ElementsAre("Tarragon " + program("tarragon")));
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(userFiles(), IsEmpty());
    EXPECT_TRUE(fs::is_symlink(folders.user));
    fs::remove(elsewhere);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(list().insertItem(program("tarragon"), false));
}

TEST_F(AutostartLoginItemListTest, LeavesTheFileBehindALinkAlone) {
    put(_root / "elsewhere", "kept.desktop", "Name=Tarragon\nExec=tarragon\n");
    const std::string before = contents(_root / "elsewhere" / "kept.desktop");
    fs::create_directories(folders.user);
    fs::create_symlink(_root / "elsewhere" / "kept.desktop", folders.user / "tarragon.desktop");
    EXPECT_THAT(names(), ElementsAre("Tarragon " + program("tarragon")));
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(userFiles(), IsEmpty());
    EXPECT_EQ(contents(_root / "elsewhere" / "kept.desktop"), before);
}

TEST_F(AutostartLoginItemListTest, LeavesNothingBesideTheEntriesThatItWrites) {
    EXPECT_TRUE(list().insertItem(program("tarragon"), false));
    EXPECT_TRUE(list().removeItem(item("tarragon.desktop")));
    EXPECT_THAT(userFiles(), IsEmpty());
}

TEST_F(AutostartLoginItemListTest, FindsTheFoldersOfTheSession) {
    const std::map<std::string, std::string> variables{{"XDG_CONFIG_HOME", "/home/me/conf"},
        {"XDG_CONFIG_DIRS", "/etc/one:relative:/etc/two"}, {"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"},
        {"LC_ALL", "de_AT.UTF-8"}, {"LANGUAGE", ""}, {"PATH", "/usr/bin::/bin"}};
    std::map<std::string, std::optional<std::string>> saved;
    for (const char* name :
        {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_CURRENT_DESKTOP", "LC_ALL", "LANGUAGE", "PATH", "HOME"}) {
        const char* value = std::getenv(name);
        saved[name] = value ? std::optional<std::string>(value) : std::nullopt;
    }
    for (const auto& [name, value] : variables)
        setenv(name.c_str(), value.c_str(), 1);
    const AutostartFolders found = AutostartFolders::ofSession();
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("HOME", "/home/me", 1);
    unsetenv("XDG_CONFIG_DIRS");
    const AutostartFolders fallback = AutostartFolders::ofSession();
    unsetenv("HOME");
    const AutostartFolders homeless = AutostartFolders::ofSession();
    for (const auto& [name, value] : saved) {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }
    EXPECT_EQ(found.user, "/home/me/conf/autostart");
    EXPECT_THAT(found.system, ElementsAre("/etc/one/autostart", "/etc/two/autostart"));
    EXPECT_THAT(found.desktops, ElementsAre("ubuntu", "GNOME"));
    EXPECT_THAT(found.languages, ElementsAre("de_AT", "de"));
    EXPECT_THAT(found.searchPath, ElementsAre("/usr/bin", "/bin"));
    EXPECT_EQ(fallback.user, "/home/me/.config/autostart");
    EXPECT_THAT(fallback.system, ElementsAre("/etc/xdg/autostart"));
    EXPECT_TRUE(homeless.user.empty());
}

// The next three ask programs of others what they make of the entries.

TEST_F(AutostartLoginItemListTest, WritesEntriesThatASessionsStarterStarts) {
    if (std::system("command -v dex >/dev/null") != 0)
        GTEST_SKIP() << "dex is not installed";
    for (const char* name : {"tarragon", "my tarragon"})
        expectStarted("dex --wait", name);
}

TEST_F(AutostartLoginItemListTest, StartsTheProgramAtLoginUntilItIsToldNotTo) {
    if (std::system("command -v dex >/dev/null") != 0)
        GTEST_SKIP() << "dex is not installed";
    // What a session's starter would start.
    const auto started = [this] {
        const fs::path output = _root / "output";
        const std::string command = "XDG_CONFIG_HOME='" + folders.user.parent_path().string() + "' XDG_CONFIG_DIRS='"
            + folders.system[0].parent_path().string() + "' dex --autostart --dry-run --environment XFCE > '"
            + output.string() + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return contents(output);
    };
    put(folders.system[0], "tarragon.desktop", "Name=Tarragon\nExec=" + program("clock") + "\n");
    put(folders.user, "other.desktop", "Name=Other\nExec=" + program("clock") + "\n");
    AutostartLoginItemList items = list();
    setStartAtLogin(&items, program("my tarragon"), true);
    setStartAtLogin(&items, program("tarragon"), true);
    EXPECT_THAT(started(), HasSubstr(program("tarragon")));
    EXPECT_THAT(started(), HasSubstr(program("my tarragon")));
    // By the fixed name: the system's entry of that name goes as well, the copy of another name stays.
    setStartAtLogin(&items, program("tarragon"), false);
    EXPECT_THAT(started(), testing::Not(HasSubstr(program("tarragon"))));
    EXPECT_THAT(started(), HasSubstr(program("my tarragon")));
    EXPECT_THAT(names(), ElementsAre("Other " + program("clock"), "My tarragon " + program("my tarragon")));
}

TEST_F(AutostartLoginItemListTest, WritesEntriesThatAToolkitStartsWhateverThePath) {
    if (std::system("command -v gio >/dev/null") != 0)
        GTEST_SKIP() << "gio is not installed";
    // It looks for the program before it resolves "%%", so that there is no per cent sign here.
    for (const char* name : {"tarragon", "my tarragon", R"(some of $my "tarragon" & `co`\py; 'x' #~*?<>|)", "日本"})
        expectStarted("gio launch", name);
}

TEST_F(AutostartLoginItemListTest, WritesEntriesThatAreValid) {
    if (std::system("command -v desktop-file-validate >/dev/null") != 0)
        GTEST_SKIP() << "desktop-file-validate is not installed";
    put(folders.system[0], "clock.desktop", "Name=Clock\nExec=clock\n");
    EXPECT_TRUE(list().removeItem(item("clock.desktop")));
    EXPECT_TRUE(list().insertItem(program("my tarragon"), true));
    for (const std::string& fileName : userFiles()) {
        const std::string command = "desktop-file-validate '" + (folders.user / fileName).string() + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << fileName;
    }
}

} // namespace
} // namespace tarragon
