#include "platform/linux/desktop/AutostartEntry.h"

#include <gmock/gmock.h>

#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

AutostartEntry parsed(const std::string& keys, const std::vector<std::string>& languages = {}) {
    const auto entry = AutostartEntry::parse("[Desktop Entry]\nType=Application\n" + keys, languages);
    EXPECT_TRUE(entry);
    return entry.value_or(AutostartEntry());
}

std::string executableOf(const std::string& commandLine) {
    return parsed("Exec=" + commandLine + "\n").executable();
}

TEST(AutostartEntry, IsReadFromItsMainGroup) {
    const AutostartEntry entry = parsed("# a comment\nName = Clock\nExec=clock --quiet\nTryExec=/usr/bin/clock\n"
                                        "OnlyShowIn=XFCE;LXQt;\nNotShowIn=KDE\n[Other]\nName=Wrong\nHidden=true\n");
    EXPECT_EQ(entry.name, "Clock");
    EXPECT_EQ(entry.executable(), "clock");
    EXPECT_EQ(entry.tryExecutable, "/usr/bin/clock");
    EXPECT_THAT(entry.onlyShowIn, ElementsAre("XFCE", "LXQt"));
    EXPECT_THAT(entry.notShowIn, ElementsAre("KDE"));
    EXPECT_FALSE(entry.isDeleted);
    EXPECT_TRUE(entry.isEnabled);
    EXPECT_FALSE(entry.isOurs);
    EXPECT_FALSE(entry.startsHidden);
}

TEST(AutostartEntry, IsNothingWithoutTheMainGroupOrOfAnotherType) {
    EXPECT_FALSE(AutostartEntry::parse("", {}));
    EXPECT_FALSE(AutostartEntry::parse("Name=Clock\n", {}));
    EXPECT_FALSE(AutostartEntry::parse("[Other]\nType=Application\n", {}));
    EXPECT_FALSE(AutostartEntry::parse("[Desktop Entry]\nType=Link\nName=Clock\n", {}));
    EXPECT_FALSE(AutostartEntry::parse("[Desktop Entry]\nName=Clock\n", {}));
}

TEST(AutostartEntry, MayBeDeletedWithoutAType) {
    const auto entry = AutostartEntry::parse("[Desktop Entry]\nHidden=true\n", {});
    ASSERT_TRUE(entry);
    EXPECT_TRUE(entry->isDeleted);
}

TEST(AutostartEntry, MayBeDisabledByTheDesktop) {
    EXPECT_FALSE(parsed("X-GNOME-Autostart-enabled=false\n").isEnabled);
    EXPECT_TRUE(parsed("X-GNOME-Autostart-enabled=true\n").isEnabled);
}

TEST(AutostartEntry, IsNamedInTheUsersLanguage) {
    const std::string names = "Name=Clock\nName[de]=Uhr\nName[fr]=Horloge\n";
    EXPECT_EQ(parsed(names).name, "Clock");
    EXPECT_EQ(parsed(names, {"de_AT", "de", "fr"}).name, "Uhr");
    EXPECT_EQ(parsed(names, {"it"}).name, "Clock");
}

TEST(AutostartEntry, TakesTheFirstOfAKeyThatStandsTwice) {
    EXPECT_EQ(parsed("Name=First\nName=Second\n").name, "First");
}

TEST(AutostartEntry, ToleratesOtherLineEndingsAndNoise) {
    const auto entry =
        AutostartEntry::parse("\r\n[Desktop Entry]\r\nType=Application\r\nnonsense\r\n=\r\nName=A\r", {});
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "A");
}

TEST(AutostartEntry, FindsTheProgramInTheCommandLine) {
    EXPECT_EQ(executableOf("/usr/bin/clock --quiet %U"), "/usr/bin/clock");
    EXPECT_EQ(executableOf("\"/opt/my clock/run\" now"), "/opt/my clock/run");
    EXPECT_EQ(executableOf(R"("/opt/a\\"b\\$c\\`d\\\\e")"), R"(/opt/a"b$c`d\e)");
    EXPECT_EQ(executableOf("100%%.sh"), "100%.sh");
    EXPECT_EQ(executableOf(""), "");
    EXPECT_EQ(executableOf("\"unfinished quote"), "unfinished quote");
}

TEST(AutostartEntry, FindsAgainEveryPathThatItWrites) {
    std::string everything = "/";
    for (int character = 1; character < 127; ++character)
        everything += static_cast<char>(character);
    for (const std::string& path : {std::string("/usr/bin/tarragon"), std::string("/opt/my tarragon"),
             std::string("/opt/50%/t"), std::string(R"(/opt/$HOME/`x`/"q"/b\s)"), std::string("/opt/Grüße/日本"),
             std::string("/opt/line\nbreak\ttab"), everything}) {
        AutostartEntry entry;
        entry.name = path;
        entry.commandLine = autostartCommandLine(path);
        const auto read = AutostartEntry::parse(entry.text(), {});
        ASSERT_TRUE(read) << path;
        EXPECT_EQ(read->executable(), path);
        EXPECT_EQ(read->name, path);
    }
}

TEST(AutostartEntry, LeavesAPlainPathWithoutQuotes) {
    EXPECT_EQ(autostartCommandLine("/usr/bin/tarragon"), "/usr/bin/tarragon");
    EXPECT_EQ(autostartCommandLine("/opt/my tarragon"), "\"/opt/my tarragon\"");
}

TEST(AutostartEntry, WritesAFileThatSaysWhoseItIs) {
    AutostartEntry entry;
    entry.name = "Tarragon";
    entry.commandLine = "/usr/bin/tarragon";
    EXPECT_EQ(entry.text(),
        "[Desktop Entry]\nType=Application\nName=Tarragon\nExec=/usr/bin/tarragon\nTerminal=false\n"
        "X-GNOME-Autostart-enabled=true\nX-Tarragon-LoginItem=true\n");
    EXPECT_TRUE(AutostartEntry::parse(entry.text(), {})->isOurs);
    entry.startsHidden = true;
    EXPECT_TRUE(AutostartEntry::parse(entry.text(), {})->startsHidden);
    entry.isDeleted = true;
    EXPECT_THAT(entry.text(), HasSubstr("\nHidden=true\n"));
    EXPECT_THAT(entry.text(), Not(HasSubstr("enabled")));
    EXPECT_TRUE(AutostartEntry::parse(entry.text(), {})->isDeleted);
}

TEST(AutostartEntry, IsShownInTheDesktopsThatItNames) {
    AutostartEntry entry;
    EXPECT_TRUE(entry.isShownIn({}));
    EXPECT_TRUE(entry.isShownIn({"XFCE"}));
    entry.onlyShowIn = {"GNOME", "XFCE"};
    EXPECT_TRUE(entry.isShownIn({"XFCE"}));
    EXPECT_TRUE(entry.isShownIn({"ubuntu", "GNOME"}));
    EXPECT_FALSE(entry.isShownIn({"KDE"}));
    EXPECT_FALSE(entry.isShownIn({}));
    entry.onlyShowIn = {};
    entry.notShowIn = {"KDE"};
    EXPECT_TRUE(entry.isShownIn({"XFCE"}));
    EXPECT_FALSE(entry.isShownIn({"XFCE", "KDE"}));
}

TEST(AutostartEntry, GoesByTheFirstNameOfTheDesktopThatItMentions) {
    AutostartEntry entry;
    entry.onlyShowIn = {"GNOME"};
    entry.notShowIn = {"GNOME-Classic"};
    EXPECT_FALSE(entry.isShownIn({"GNOME-Classic", "GNOME"}));
    EXPECT_TRUE(entry.isShownIn({"GNOME", "GNOME-Classic"}));
    EXPECT_TRUE(entry.isShownIn({"ubuntu", "GNOME"}));
}

} // namespace
} // namespace tarragon
