#include "platform/linux/desktop/DesktopApplications.h"

#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/windows/WindowApplication.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace tarragon {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class DesktopApplicationsTest : public testing::Test {
protected:
    DesktopApplicationsTest() {
        std::string name = (fs::temp_directory_path() / "desktop-applications-XXXXXX").string();
        folder = fs::canonical(mkdtemp(name.data()));
    }
    ~DesktopApplicationsTest() override { fs::remove_all(folder); }

    fs::path user() const { return folder / "user"; }
    fs::path system() const { return folder / "system"; }
    fs::path programs() const { return folder / "bin"; }

    static fs::path write(const fs::path& file, const std::string& text) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
        return file;
    }
    static fs::path writeEntry(const fs::path& file, const std::string& keys) {
        return write(file, "[Desktop Entry]\nType=Application\n" + keys);
    }
    fs::path writeProgram(const std::string& name) const {
        const fs::path file = write(programs() / name, "#!/bin/sh\n");
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }

    std::vector<std::string> identifiers() {
        std::vector<std::string> result;
        for (const ApplicationBundle& bundle : applications().installedApplications())
            result.push_back(bundle.bundleIdentifier);
        return result;
    }
    std::string identifierAt(const fs::path& path) {
        const auto bundle = applications().bundleAtPath(path.string());
        return bundle ? bundle->bundleIdentifier : "nothing";
    }
    // What the desktop says of a window of that class.
    std::string identifierOfWindow(const std::string& instanceName, const std::string& className) {
        WindowDescription window;
        window.instanceName = instanceName;
        window.className = className;
        return applicationOfWindow(window, entries()).bundleIdentifier;
    }

    DesktopEntries& entries() {
        return _entries ? *_entries
                        : _entries.emplace(std::vector{user(), system()}, std::vector{std::string("de_DE")});
    }
    DesktopApplications applications() {
        return {entries(), [this] { return windows; }, {{"XFCE", "GNOME"}, {"de_DE", "de"}, {programs()}}};
    }

    fs::path folder;
    std::vector<WindowDescription> windows;

private:
    std::optional<DesktopEntries> _entries;
};

TEST_F(DesktopApplicationsTest, AreListedWithWhatTheySayOfThemselves) {
    const fs::path file = writeEntry(system() / "org.example.Editor.desktop",
        "Name=Text Editor\nName[de]=Texteditor\nExec=/usr/bin/editor %U\nIcon=accessories-editor\n");
    EXPECT_THAT(applications().installedApplications(),
        UnorderedElementsAre(ApplicationBundle{
            file.string(), "org.example.Editor", "Texteditor", "Text Editor", "editor", "accessories-editor"}));
}

TEST_F(DesktopApplicationsTest, SayNothingOfWhatTheirEntryLeavesOut) {
    const fs::path file = writeEntry(system() / "plain.desktop", "");
    EXPECT_THAT(applications().installedApplications(),
        UnorderedElementsAre(ApplicationBundle{file.string(), "plain", {}, {}, {}, ""}));
}

TEST_F(DesktopApplicationsTest, NameTheirIconAsTheThemeHasIt) {
    writeEntry(system() / "a.desktop", "Name=A\nIcon=a.png\nIcon[de]=b.svg\n");
    const std::string path = "/usr/share/pixmaps/a.png";
    writeEntry(system() / "c.desktop", "Name=C\nIcon=" + path + "\n");
    std::vector<std::string> icons;
    for (const ApplicationBundle& bundle : applications().installedApplications())
        icons.push_back(bundle.icon);
    EXPECT_THAT(icons, UnorderedElementsAre("b", path));
}

TEST_F(DesktopApplicationsTest, AreThoseThatTheMenusOfTheDesktopShow) {
    writeProgram("there");
    writeEntry(system() / "shown.desktop", "Name=A\n");
    writeEntry(system() / "hidden.desktop", "Name=B\nHidden=true\n");
    writeEntry(system() / "not-displayed.desktop", "Name=C\nNoDisplay=true\n");
    writeEntry(system() / "elsewhere.desktop", "Name=D\nOnlyShowIn=KDE;LXQt;\n");
    writeEntry(system() / "here.desktop", "Name=E\nOnlyShowIn=KDE;GNOME;\n");
    writeEntry(system() / "not-here.desktop", "Name=F\nNotShowIn=XFCE;\n");
    writeEntry(system() / "missing.desktop", "Name=G\nTryExec=missing\n");
    writeEntry(system() / "there.desktop", "Name=H\nTryExec=there\n");
    write(system() / "link.desktop", "[Desktop Entry]\nType=Link\nName=I\nURL=http://localhost\n");
    write(system() / "mimeinfo.cache", "[MIME Cache]\n");
    // The user took one away, and has one of the name of another.
    writeEntry(system() / "away.desktop", "Name=J\n");
    writeEntry(user() / "away.desktop", "Hidden=true\n");
    writeEntry(user() / "shown.desktop", "Name=The user's\n");
    EXPECT_THAT(identifiers(), UnorderedElementsAre("shown", "here", "there"));
}

TEST_F(DesktopApplicationsTest, AreFoundInSubfoldersAsWell) {
    writeEntry(system() / "suite" / "writer.desktop", "Name=Writer\n");
    EXPECT_THAT(identifiers(), UnorderedElementsAre("suite-writer"));
}

TEST_F(DesktopApplicationsTest, HaveTheIdentifierThatTheirWindowsWillHave) {
    writeEntry(system() / "org.example.editor.desktop", "Name=A\nExec=editor\n");
    writeEntry(system() / "org.example.editor-settings.desktop", "Name=B\nExec=editor --settings\n");
    writeEntry(system() / "suite-writer.desktop", "Name=C\nExec=suite --writer\nStartupWMClass=suite-writer\n");
    writeEntry(system() / "suite-draw.desktop", "Name=D\nExec=suite --draw\nStartupWMClass=suite-draw\n");
    writeEntry(system() / "browser.desktop", "Name=E\nExec=browser-bin\nStartupWMClass=Navigator\n");
    EXPECT_THAT(identifiers(), UnorderedElementsAre("org.example.editor", "suite-writer", "suite-draw", "browser"));
    EXPECT_EQ(identifierOfWindow("editor", "Editor"), "org.example.editor");
    EXPECT_EQ(identifierOfWindow("suite", "suite-writer"), "suite-writer");
    EXPECT_EQ(identifierOfWindow("Navigator", "browser"), "browser");
}

TEST_F(DesktopApplicationsTest, AreListedOnceForTheEntryThatSpeaksForTheirWindows) {
    writeEntry(system() / "a-settings.desktop", "Name=Settings of files\nExec=files --settings\n");
    writeEntry(system() / "files.desktop", "Name=Files\nExec=files\n");
    const auto all = applications().installedApplications();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.front().name, "Files");
    EXPECT_EQ(all.front().bundleIdentifier, "files");
}

TEST_F(DesktopApplicationsTest, TakeTheWordsOfTheEntryThatMenusShowWhereAnotherNamesTheWindows) {
    writeEntry(system() / "new-window.desktop", "Name=Files\nExec=files --new\n");
    writeEntry(system() / "daemon.desktop", "Name=Daemon\nExec=filesd\nStartupWMClass=files\nNoDisplay=true\n");
    const auto all = applications().installedApplications();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.front().name, "Files");
    EXPECT_EQ(all.front().bundleIdentifier, "daemon");
    EXPECT_EQ(identifierOfWindow("files", "Files"), "daemon");
}

TEST_F(DesktopApplicationsTest, AreTheirOwnWhenALauncherOrTheBusStartsThem) {
    writeEntry(system() / "org.example.Box.desktop", "Name=A\nExec=flatpak run org.example.Box\n");
    writeEntry(system() / "org.example.Bus.desktop", "Name=B\nExec=suite\nDBusActivatable=true\n");
    writeEntry(system() / "org.example.Suite.desktop", "Name=C\nExec=suite\n");
    EXPECT_THAT(identifiers(), UnorderedElementsAre("org.example.Box", "org.example.Bus", "org.example.Suite"));
}

TEST_F(DesktopApplicationsTest, AreFoundByTheirEntryWhereverItIs) {
    const fs::path installed = writeEntry(system() / "suite" / "writer.desktop", "Name=Writer\nExec=writer\n");
    EXPECT_EQ(identifierAt(installed), "suite-writer");
    // Under another name, by a link, or a copy on the desktop.
    fs::create_symlink(installed, folder / "link.desktop");
    EXPECT_EQ(identifierAt(folder / "link.desktop"), "suite-writer");
    fs::create_symlink(installed, folder / "link");
    EXPECT_EQ(identifierAt(folder / "link"), "suite-writer");
    EXPECT_EQ(identifierAt(writeEntry(folder / "Desktop" / "copy.desktop", "Name=W\nExec=writer\n")), "suite-writer");
    // One that menus do not show can be chosen as well.
    EXPECT_EQ(identifierAt(writeEntry(system() / "no-menu.desktop", "Name=N\nNoDisplay=true\n")), "no-menu");
}

TEST_F(DesktopApplicationsTest, AreWhatTheirWindowsWillBeWhereTheirEntryIsNotInstalled) {
    EXPECT_EQ(
        identifierAt(writeEntry(folder / "a.desktop", "Name=A\nExec=tool\nStartupWMClass=ToolClass\n")), "ToolClass");
    EXPECT_EQ(identifierOfWindow("tool", "ToolClass"), "ToolClass");
    EXPECT_EQ(identifierAt(writeEntry(folder / "b.desktop", "Name=B\nExec=tool\n")), "Tool");
    EXPECT_EQ(identifierAt(writeEntry(folder / "c.desktop", "Name=C\nExec=flatpak run x\n")), "c");
}

TEST_F(DesktopApplicationsTest, AreFoundByTheirProgram) {
    const fs::path entry =
        writeEntry(system() / "org.example.Paint.desktop", "Name=Paint\nName[de]=Malen\nExec=paint\nIcon=brush\n");
    const fs::path program = writeProgram("paint");
    EXPECT_EQ(applications().bundleAtPath(program.string()),
        (ApplicationBundle{entry.string(), "org.example.Paint", "Malen", "Paint", "paint", "brush"}));
    // Either name of a link may be the one that the entry has.
    fs::create_symlink(program, folder / "x-www-painter");
    EXPECT_EQ(identifierAt(folder / "x-www-painter"), "org.example.Paint");
    fs::create_symlink(writeProgram("paint-3.2"), folder / "paint");
    EXPECT_EQ(identifierAt(folder / "paint"), "org.example.Paint");
}

TEST_F(DesktopApplicationsTest, AreTheProgramItselfWhereNoEntryStartsIt) {
    const fs::path program = writeProgram("tool");
    EXPECT_EQ(applications().bundleAtPath(program.string()),
        (ApplicationBundle{program.string(), "Tool", {}, {}, "tool", ""}));
    EXPECT_EQ(identifierOfWindow("tool", "Tool"), "Tool");
    EXPECT_EQ(identifierAt(writeProgram("Upper")), "Upper");
    EXPECT_EQ(identifierAt(writeProgram("7up")), "7up");
}

TEST_F(DesktopApplicationsTest, AreWhatTheWindowsOfTheRunningProgramSay) {
    WindowDescription window;
    window.processIdentifier = getpid();
    window.className = "OddlyNamed";
    windows = {window};
    const fs::path self = fs::read_symlink("/proc/self/exe");
    EXPECT_EQ(identifierAt(self), "OddlyNamed");
    EXPECT_EQ(identifierAt(self), applicationOfWindow(window, entries()).bundleIdentifier);
    windows.front().className.clear();
    EXPECT_EQ(identifierAt(writeProgram("tool")), "Tool");
}

TEST_F(DesktopApplicationsTest, AreNoFoldersNorOtherFiles) {
    EXPECT_EQ(identifierAt(folder), "nothing");
    EXPECT_EQ(identifierAt(folder / "missing"), "nothing");
    EXPECT_EQ(identifierAt(""), "nothing");
    EXPECT_EQ(identifierAt(write(folder / "letter.txt", "Dear reader")), "nothing");
    EXPECT_EQ(identifierAt(write(folder / "broken.desktop", "Dear reader")), "nothing");
    EXPECT_EQ(
        identifierAt(write(folder / "web.desktop", "[Desktop Entry]\nType=Link\nURL=http://localhost\n")), "nothing");
    EXPECT_EQ(identifierAt(writeEntry(folder / "gone.desktop", "Name=A\nHidden=true\n")), "nothing");
    fs::create_directories(folder / "folder.desktop");
    EXPECT_EQ(identifierAt(folder / "folder.desktop"), "nothing");
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_EQ(identifierAt(folder / "dangling"), "nothing");
}

TEST_F(DesktopApplicationsTest, AreLookedForInTheFirstFolderThatHasSome) {
    EXPECT_EQ(applications().applicationsFolder(), "");
    write(user() / "mimeinfo.cache", "[MIME Cache]\n");
    const fs::path entry = writeEntry(system() / "a.desktop", "Name=A\n");
    EXPECT_EQ(applications().applicationsFolder(), system().string());
    writeEntry(user() / "b.desktop", "Name=B\n");
    EXPECT_EQ(applications().applicationsFolder(), user().string());
}

TEST_F(DesktopApplicationsTest, AreReadAnewWhenSomeAreInstalled) {
    EXPECT_THAT(identifiers(), IsEmpty());
    writeEntry(system() / "new.desktop", "Name=New\n");
    EXPECT_THAT(identifiers(), UnorderedElementsAre("new"));
}

} // namespace
} // namespace tarragon
