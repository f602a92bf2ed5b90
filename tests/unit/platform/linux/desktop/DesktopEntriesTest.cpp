#include "platform/linux/desktop/DesktopEntries.h"

#include "platform/linux/x11/X11Windows.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

namespace fs = std::filesystem;

class DesktopEntriesTest : public testing::Test {
protected:
    DesktopEntriesTest() {
        std::string name = (fs::temp_directory_path() / "desktop-entries-XXXXXX").string();
        _folder = mkdtemp(name.data());
    }
    ~DesktopEntriesTest() override { fs::remove_all(_folder); }

    fs::path user() const { return _folder / "user"; }
    fs::path system() const { return _folder / "system"; }

    static void write(const fs::path& file, const std::string& keys) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "[Desktop Entry]\nType=Application\n" << keys;
    }

    static std::string found(DesktopEntries& entries, const WindowDescription& window) {
        const auto entry = entries.entryForWindow(window);
        return entry ? entry->identifier : "nothing";
    }

    static WindowDescription windowOfClass(const std::string& instanceName, const std::string& className) {
        WindowDescription window;
        window.instanceName = instanceName;
        window.className = className;
        return window;
    }

    DesktopEntries entries() const { return DesktopEntries({user(), system()}, {}); }

private:
    fs::path _folder;
};

} // namespace

TEST_F(DesktopEntriesTest, TellIdentifierPathAndName) {
    write(system() / "org.example.Editor.desktop", "Name=Text Editor\nName[de]=Texteditor\nStartupWMClass=editor\n");
    DesktopEntries german({system()}, {"de_DE.UTF-8"});
    const auto entry = german.entryForWindow(windowOfClass("editor", "Editor"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->identifier, "org.example.Editor");
    EXPECT_EQ(entry->path, (system() / "org.example.Editor.desktop").string());
    EXPECT_EQ(entry->name, "Texteditor");
}

TEST_F(DesktopEntriesTest, MatchTheStartupWindowClassFirst) {
    write(system() / "editor.desktop", "Name=By class\n");
    write(system() / "org.example.gtk.desktop", "Name=By application identifier\n");
    write(system() / "other.desktop", "Name=Other\nStartupWMClass=Editor\n");
    auto all = entries();
    WindowDescription window = windowOfClass("editor", "Editor");
    window.gtkApplicationIdentifier = "org.example.gtk";
    EXPECT_EQ(found(all, window), "other");
}

TEST_F(DesktopEntriesTest, MatchTheApplicationIdentifierBeforeTheWindowClass) {
    write(system() / "editor.desktop", "Name=By class\n");
    write(system() / "org.example.gtk.desktop", "Name=By application identifier\n");
    auto all = entries();
    WindowDescription window = windowOfClass("editor", "Editor");
    window.gtkApplicationIdentifier = "org.example.gtk";
    EXPECT_EQ(found(all, window), "org.example.gtk");
}

TEST_F(DesktopEntriesTest, TellWebApplicationsOfOneBrowserApartByTheirInstance) {
    write(system() / "browser.desktop", "Name=Browser\nStartupWMClass=Browser\n");
    write(system() / "mail.desktop", "Name=Mail\nStartupWMClass=crx_mail\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("crx_mail", "Browser")), "mail");
    EXPECT_EQ(found(all, windowOfClass("browser", "Browser")), "browser");
}

TEST_F(DesktopEntriesTest, MatchTheWindowClassInAnyCase) {
    write(system() / "geany.desktop", "Name=Geany\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("main", "GEANY")), "geany");
    EXPECT_EQ(found(all, windowOfClass("Geany", "")), "geany");
}

TEST_F(DesktopEntriesTest, MatchTheLastPartOfAnIdentifier) {
    write(system() / "org.xfce.mousepad.desktop", "Name=Mousepad\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("mousepad", "Mousepad")), "org.xfce.mousepad");
}

TEST_F(DesktopEntriesTest, PreferTheSpellingThatIsAlike) {
    write(system() / "a.desktop", "Name=Lower\nStartupWMClass=tool\n");
    write(system() / "b.desktop", "Name=Upper\nStartupWMClass=Tool\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("Tool", "")), "b");
    EXPECT_EQ(found(all, windowOfClass("tool", "")), "a");
}

TEST_F(DesktopEntriesTest, MatchTheExecutableOfTheProcessLast) {
    const std::string executable = fs::read_symlink("/proc/self/exe").filename().string();
    write(system() / "tests.desktop", "Name=Tests\nExec=/usr/bin/" + executable + " %U\n");
    auto all = entries();
    WindowDescription window = windowOfClass("unknown", "Unknown");
    EXPECT_EQ(found(all, window), "nothing");
    window.processIdentifier = getpid();
    EXPECT_EQ(found(all, window), "tests");
    write(system() / "unknown.desktop", "Name=Unknown\n");
    EXPECT_EQ(found(all, window), "unknown");
}

TEST_F(DesktopEntriesTest, MatchEntriesOutsideOfMenusButPreferThoseInside) {
    write(system() / "a-handler.desktop", "Name=Handler\nStartupWMClass=App\nNoDisplay=true\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("app", "App")), "a-handler");
    write(system() / "z.desktop", "Name=App\nStartupWMClass=App\n");
    EXPECT_EQ(found(all, windowOfClass("app", "App")), "z");
}

TEST_F(DesktopEntriesTest, LetTheUsersFolderReplaceAndDeleteEntries) {
    write(system() / "app.desktop", "Name=System\n");
    write(system() / "gone.desktop", "Name=Gone\n");
    write(user() / "app.desktop", "Name=User\n");
    write(user() / "gone.desktop", "Hidden=true\n");
    auto all = entries();
    EXPECT_EQ(all.entryForWindow(windowOfClass("", "app"))->name, "User");
    EXPECT_EQ(found(all, windowOfClass("", "gone")), "nothing");
}

TEST_F(DesktopEntriesTest, NameFilesOfSubfoldersWithDashes) {
    write(system() / "suite" / "tools" / "writer.desktop", "Name=Writer\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("", "suite-tools-writer")), "suite-tools-writer");
}

TEST_F(DesktopEntriesTest, NoticeEntriesThatComeAndGo) {
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("", "app")), "nothing");
    write(system() / "app.desktop", "Name=App\n");
    EXPECT_EQ(found(all, windowOfClass("", "app")), "app");
    write(system() / "sub" / "other.desktop", "Name=Other\n");
    EXPECT_EQ(found(all, windowOfClass("", "sub-other")), "sub-other");
    write(system() / "sub" / "third.desktop", "Name=Third\n");
    EXPECT_EQ(found(all, windowOfClass("", "sub-third")), "sub-third");
    fs::remove(system() / "app.desktop");
    EXPECT_EQ(found(all, windowOfClass("", "app")), "nothing");
}

TEST_F(DesktopEntriesTest, NoticeAChangeThatLeavesNoTraceInTheTimeOfTheFolder) {
    write(system() / "app.desktop", "Name=App\n");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("", "app")), "app");
    const fs::file_time_type time = fs::last_write_time(system());
    write(system() / "other.desktop", "Name=Other\n");
    fs::last_write_time(system(), time);
    EXPECT_EQ(found(all, windowOfClass("", "other")), "other");
}

TEST_F(DesktopEntriesTest, PassOverFilesThatAreNoEntries) {
    write(system() / "good.desktop", "Name=Good\n");
    std::ofstream(system() / "bad.desktop") << std::string(1000, '\0') << "[Desktop";
    std::ofstream(system() / "good.txt") << "text";
    fs::create_directories(system() / "folder.desktop");
    fs::create_symlink("/nowhere", system() / "dangling.desktop");
    auto all = entries();
    EXPECT_EQ(found(all, windowOfClass("", "good")), "good");
    for (const char* name : {"bad", "folder", "dangling"})
        EXPECT_EQ(found(all, windowOfClass("", name)), "nothing");
}

TEST_F(DesktopEntriesTest, NameTheApplicationByEntryThenClassThenProcess) {
    write(system() / "app.desktop", "Name=My Application\n");
    auto all = entries();
    EXPECT_EQ(all.applicationName(windowOfClass("app", "App")), "My Application");
    EXPECT_EQ(all.applicationName(windowOfClass("other", "Other")), "Other");
    WindowDescription window;
    EXPECT_EQ(all.applicationName(window), "");
    window.processIdentifier = getpid();
    std::string name;
    std::getline(std::ifstream("/proc/self/comm") >> std::ws, name);
    EXPECT_EQ(all.applicationName(window), name);
}

TEST_F(DesktopEntriesTest, GiveNothingForAWindowThatTellsNothing) {
    write(system() / "app.desktop", "Name=App\n");
    write(system() / ".desktop", "Name=Nameless\n");
    auto all = entries();
    EXPECT_EQ(found(all, WindowDescription()), "nothing");
}

TEST_F(DesktopEntriesTest, LookAtTheFoldersOnceInALookAndAtOnceInTheNext) {
    std::optional<std::uint64_t> look = 1;
    DesktopEntries entries({user(), system()}, {}, [&] { return look; });
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "nothing");
    write(user() / "editor.desktop", "Name=Editor\n");
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "nothing");
    look = 2;
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "editor");
    fs::remove_all(user());
    look = std::nullopt;
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "nothing");
    write(user() / "editor.desktop", "Name=Editor\n");
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "editor");
}

TEST_F(DesktopEntriesTest, SpareTheFoldersInLooksThatFollowCloselyUnlessAnEntryIsMissing) {
    const auto setTime = [&](std::chrono::seconds age) {
        fs::last_write_time(user(), fs::file_time_type::clock::now() - age);
    };
    write(system() / "other.desktop", "Name=Other\n");
    fs::last_write_time(system(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    write(user() / "editor.desktop", "Name=Editor\n");
    setTime(std::chrono::hours(2));
    std::optional<std::uint64_t> look = 1;
    DesktopEntries entries({user(), system()}, {}, [&] { return look; });
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "editor");
    fs::remove(user() / "editor.desktop");
    write(user() / "painter.desktop", "Name=Painter\n");
    setTime(std::chrono::hours(1));
    look = 2;
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "editor");
    look = 3;
    EXPECT_EQ(found(entries, windowOfClass("painter", "Painter")), "painter");
    EXPECT_EQ(found(entries, windowOfClass("editor", "Editor")), "nothing");
}

} // namespace tarragon
