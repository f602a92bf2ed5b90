#include "platform/linux/desktop/DesktopEntryFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DesktopEntryFile, ReadsWhatAnApplicationSays) {
    const auto entry =
        DesktopEntryFile::parse("# comment\n\n[Desktop Entry]\nType=Application\n Name = Text Editor \r\n"
                                "StartupWMClass=Edit\nExec=/usr/bin/edit --new %U\n",
            {});
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "Text Editor");
    EXPECT_EQ(entry->startupWindowClass, "Edit");
    EXPECT_EQ(entry->executable, "edit");
    EXPECT_TRUE(entry->isDisplayed);
    EXPECT_FALSE(entry->isDeleted);
}

TEST(DesktopEntryFile, IsNothingWithoutAnApplication) {
    EXPECT_FALSE(DesktopEntryFile::parse("", {}));
    EXPECT_FALSE(DesktopEntryFile::parse("[Desktop Entry]\nType=Link\nName=Page\n", {}));
    EXPECT_FALSE(DesktopEntryFile::parse("[Other]\nType=Application\nName=A\n", {}));
    EXPECT_FALSE(DesktopEntryFile::parse("\xff\xfe garbage [Desktop Entry", {}));
}

TEST(DesktopEntryFile, LeavesTheKeysOfOtherGroupsAlone) {
    const auto entry = DesktopEntryFile::parse("[Desktop Entry]\nType=Application\nName=A\n"
                                               "[Desktop Action New]\nName=New Window\nExec=other\nHidden=true\n",
        {});
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "A");
    EXPECT_EQ(entry->executable, "");
    EXPECT_FALSE(entry->isDeleted);
}

TEST(DesktopEntryFile, TakesTheNameOfTheMostWantedLanguage) {
    const char* text = "[Desktop Entry]\nType=Application\nName=Files\nName[de]=Dateien\nName[de_AT]=Akten\n"
                       "Name[fr]=Fichiers\n";
    EXPECT_EQ(DesktopEntryFile::parse(text, desktopLanguages({"de_AT.UTF-8"}))->name, "Akten");
    EXPECT_EQ(DesktopEntryFile::parse(text, desktopLanguages({"de_DE.UTF-8"}))->name, "Dateien");
    EXPECT_EQ(DesktopEntryFile::parse(text, desktopLanguages({"es_ES", "fr_FR"}))->name, "Fichiers");
    EXPECT_EQ(DesktopEntryFile::parse(text, desktopLanguages({"C.UTF-8"}))->name, "Files");
}

TEST(DesktopEntryFile, UndoesEscapesOfValues) {
    const auto entry = DesktopEntryFile::parse("[Desktop Entry]\nType=Application\nName=A\\sB\\\\C\\tD\\\n", {});
    EXPECT_EQ(entry->name, "A B\\C\tD\\");
}

TEST(DesktopEntryFile, KnowsEntriesThatAreTakenAwayOrKeptOutOfMenus) {
    EXPECT_TRUE(DesktopEntryFile::parse("[Desktop Entry]\nHidden=true\n", {})->isDeleted);
    EXPECT_FALSE(DesktopEntryFile::parse("[Desktop Entry]\nType=Application\nNoDisplay=true\n", {})->isDisplayed);
}

TEST(DesktopLanguages, GoFromTheWholeLocaleToTheBareLanguage) {
    EXPECT_THAT(desktopLanguages({"sr_YU.UTF-8@Latn"}), ElementsAre("sr_YU@Latn", "sr_YU", "sr@Latn", "sr"));
    EXPECT_THAT(desktopLanguages({"de_DE.UTF-8"}), ElementsAre("de_DE", "de"));
    EXPECT_THAT(desktopLanguages({"de_AT", "de"}), ElementsAre("de_AT", "de"));
    EXPECT_THAT(desktopLanguages({"C", "POSIX", "C.UTF-8", ""}), IsEmpty());
}

TEST(ExecutableOfCommandLine, IsTheFileNameOfTheProgram) {
    EXPECT_EQ(executableOfCommandLine("gedit %U"), "gedit");
    EXPECT_EQ(executableOfCommandLine("/usr/bin/gedit"), "gedit");
    EXPECT_EQ(executableOfCommandLine("\"/opt/My App/my app\" --x"), "my app");
    EXPECT_EQ(executableOfCommandLine("\"/opt/a\\\"b\""), "a\"b");
    EXPECT_EQ(executableOfCommandLine("env GDK_BACKEND=x11 /usr/bin/tool %f"), "tool");
    EXPECT_EQ(executableOfCommandLine(""), "");
    EXPECT_EQ(executableOfCommandLine("env A=b"), "");
}

TEST(ExecutableOfCommandLine, IsEmptyForProgramsThatOnlyRunOthers) {
    EXPECT_EQ(executableOfCommandLine("/usr/bin/flatpak run org.example.App"), "");
    EXPECT_EQ(executableOfCommandLine("sh -c \"a b\""), "");
    EXPECT_EQ(executableOfCommandLine("python3.11 /usr/lib/tool.py"), "");
}

TEST(IsLauncher, KnowsInterpretersWithAndWithoutAVersion) {
    EXPECT_TRUE(isLauncher("python"));
    EXPECT_TRUE(isLauncher("python3"));
    EXPECT_TRUE(isLauncher("python3.11"));
    EXPECT_FALSE(isLauncher("pythonista"));
    EXPECT_FALSE(isLauncher(""));
    EXPECT_FALSE(isLauncher("42"));
}

} // namespace tarragon
