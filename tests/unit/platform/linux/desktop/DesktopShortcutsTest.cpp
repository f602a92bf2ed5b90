#include "platform/linux/desktop/DesktopShortcuts.h"

#include "platform/HotKeys.h"
#include "platform/linux/desktop/DesktopShortcutsSession.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace tarragon {
namespace {

namespace fs = std::filesystem;
using hotkey::CommandKey;
using hotkey::ControlKey;
using hotkey::OptionKey;
using hotkey::ShiftKey;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string xfce(const std::string& properties) {
    return R"(<?xml version="1.0"?><channel name="xfce4-keyboard-shortcuts" version="1.0">)" + properties
        + "</channel>";
}

TEST(DesktopShortcuts, ReadsThoseOfXfce) {
    const std::string settings = xfce(R"(
        <property name="commands" type="empty">
          <property name="default" type="empty">
            <property name="&lt;Alt&gt;F1" type="empty"/>
            <property name="&lt;Alt&gt;F2" type="empty">
              <property name="startup-notify" type="empty"/>
            </property>
          </property>
          <property name="custom" type="empty">
            <property name="&lt;Primary&gt;&lt;Alt&gt;t" type="string" value="exo-open"/>
            <property name="&lt;Super&gt;&lt;Shift&gt;space" type="string" value="menu">
              <property name="startup-notify" type="bool" value="true"/>
            </property>
            <property name="Print" type="string" value="shot"/>
            <property name="override" type="bool" value="true"/>
          </property>
        </property>
        <property name="xfwm4" type="empty">
          <property name="default" type="empty">
            <property name="&lt;Alt&gt;Tab" type="string" value="cycle_windows_key"/>
          </property>
          <property name="custom" type="empty">
            <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
            <property name="&lt;Control&gt;F5" type="string" value=""/>
          </property>
        </property>
        <property name="providers" type="array"><value type="string" value="commands"/></property>)");
    EXPECT_THAT(xfceShortcuts(settings),
        UnorderedElementsAre(DesktopShortcut{true, CommandKey | OptionKey, "t", "Xfce: exo-open"},
            DesktopShortcut{true, ControlKey | ShiftKey, "space", "Xfce: menu"},
            DesktopShortcut{true, 0, "Print", "Xfce: shot"},
            DesktopShortcut{true, OptionKey, "Tab", "Xfce: Cycle windows"},
            DesktopShortcut{true, OptionKey, "F4", "Xfce: Close window"}, DesktopShortcut{false, CommandKey, "F5"}));
}

TEST(DesktopShortcuts, ReadsThoseThatCameWithXfceUnlessTheUsersReplaceThem) {
    const std::string builtIn = R"(<property name="commands"><property name="default">
        <property name="&lt;Alt&gt;F1" type="string" value="menu"/><property name="&lt;Alt&gt;F2" type="empty"/>
        </property><property name="custom"><property name="override" type="bool" value=")";
    EXPECT_THAT(xfceShortcuts(xfce(builtIn + "false\"/></property></property>")),
        ElementsAre(DesktopShortcut{true, OptionKey, "F1", "Xfce: menu"}, DesktopShortcut{false, OptionKey, "F2"}));
    EXPECT_THAT(xfceShortcuts(xfce(builtIn + "true\"/></property></property>")), IsEmpty());
}

TEST(DesktopShortcuts, LeavesOutWhatIsNoCombinationInXfcesSettings) {
    EXPECT_THAT(xfceShortcuts(""), IsEmpty());
    EXPECT_THAT(xfceShortcuts("not XML at all"), IsEmpty());
    EXPECT_THAT(xfceShortcuts("</property></property><property name=\"commands\">"), IsEmpty());
    EXPECT_THAT(
        xfceShortcuts(xfce("<property name=\"commands\"><property name=\"custom\">"
                           "<property name=\"&lt;Hyper&gt;a\" type=\"string\" value=\"x\"/>"
                           "<property name=\"&lt;Alt&gt;\" type=\"string\" value=\"x\"/>"
                           "<property name=\"&lt;Alt\" type=\"string\" value=\"x\"/>"
                           "<property name=\"\" type=\"string\" value=\"x\"/></property></property>"
                           "<property name=\"other\"><property name=\"custom\">"
                           "<property name=\"&lt;Alt&gt;a\" type=\"string\" value=\"x\"/></property></property>")),
        IsEmpty());
}

TEST(DesktopShortcuts, ReadsThoseOfOpenbox) {
    EXPECT_THAT(openboxShortcuts(R"(<openbox_config><keyboard><chainQuitKey>C-g</chainQuitKey>
          <keybind key="C-A-Left"><action name="GoToDesktop"><to>left</to></action></keybind>
          <keybind key="W-S-space"/>
          <keybind key="A-F4"><action name="Close"/></keybind>
          <keybind key="C-x n"><action name="Close"/></keybind>
          <keybind key="C-z"><keybind key="a"/><keybind key="b"/></keybind>
          <keybind key="Print"/><keybind key="Mod4-minus"/><keybind key="C--"/></keyboard>
          <mouse><mousebind button="A-Left"/></mouse></openbox_config>)"),
        ElementsAre(DesktopShortcut{true, CommandKey | OptionKey, "Left", "Openbox: Go to desktop"},
            DesktopShortcut{true, ControlKey | ShiftKey, "space", "Openbox"},
            DesktopShortcut{true, OptionKey, "F4", "Openbox: Close"},
            DesktopShortcut{true, CommandKey, "x", "Openbox: Close"}, DesktopShortcut{true, CommandKey, "z", "Openbox"},
            DesktopShortcut{true, 0, "Print", "Openbox"}, DesktopShortcut{true, ControlKey, "minus", "Openbox"},
            DesktopShortcut{true, CommandKey, "-", "Openbox"}));
}

TEST(DesktopShortcuts, SayWhatTheyAreForInOpenbox) {
    EXPECT_THAT(openboxShortcuts(R"(<keyboard>
          <keybind key="A-space"><action name="ShowMenu"><menu>client-menu</menu></action></keybind>
          <keybind key="W-e"><action name="Execute"><command>files --new</command></action></keybind>
          <keybind key="W-t"><action name="Execute"><execute>terminal</execute></action></keybind>
          <keybind key="W-d"><action name="ToggleShowDesktop"/><action name="Raise"/></keybind></keyboard>)"),
        ElementsAre(DesktopShortcut{true, OptionKey, "space", "Openbox: Show menu (client-menu)"},
            DesktopShortcut{true, ControlKey, "e", "Openbox: files --new"},
            DesktopShortcut{true, ControlKey, "t", "Openbox: terminal"},
            DesktopShortcut{true, ControlKey, "d", "Openbox: Toggle show desktop"}));
}

TEST(DesktopShortcuts, LeavesOutWhatIsNoCombinationInOpenboxsSettings) {
    EXPECT_THAT(openboxShortcuts(""), IsEmpty());
    EXPECT_THAT(openboxShortcuts("not XML at all"), IsEmpty());
    EXPECT_THAT(openboxShortcuts("<keybind/><keybind key=\"\"/><keybind key=\"H-a\"/></keybind></keybind>"), IsEmpty());
}

TEST(DesktopShortcuts, PassesOverCommentsAndReadsEntities) {
    EXPECT_THAT(openboxShortcuts("<?xml version='1.0'?><!DOCTYPE a><a><!-- <keybind key='A-x'/> -->"
                                 "<![CDATA[<keybind key='A-y'/>]]><keybind key = 'A-&lt;'/></a>"),
        ElementsAre(DesktopShortcut{true, OptionKey, "<", "Openbox"}));
}

TEST(DesktopShortcuts, ReadsWhatComesBeforeADamagedPlace) {
    for (const char* damage : {"", "<", "< <>", "<keybind key=A-b/>", "<keybind key=\"A-b", "<!-- never closed",
             "</other>", "<keybind key=\"A-b\" key2/>"}) {
        EXPECT_THAT(openboxShortcuts(std::string("<a><keybind key=\"A-a\"><action/></keybind>") + damage),
            testing::Contains(DesktopShortcut{true, OptionKey, "a", "Openbox"}))
            << damage;
        EXPECT_THAT(xfceShortcuts("<channel><property name=\"xfwm4\"><property name=\"custom\">"
                                  "<property name=\"&lt;Alt&gt;a\" type=\"string\" value=\"x\"/>"
                        + std::string(damage)),
            ElementsAre(DesktopShortcut{true, OptionKey, "a", "Xfce: x"}))
            << damage;
    }
}

TEST(DesktopShortcuts, SurvivesSettingsThatAreNestedWithoutEnd) {
    std::string text;
    for (int depth = 0; depth < 100000; ++depth)
        text += "<keybind key=\"A-a\">";
    EXPECT_THAT(openboxShortcuts(text), ElementsAre(DesktopShortcut{true, OptionKey, "a", "Openbox"}));
}

class DesktopShortcutsSessionTest : public testing::Test {
protected:
    DesktopShortcutsSessionTest() {
        std::string pattern = fs::temp_directory_path() / "tarragon-shortcuts-XXXXXX";
        _root = mkdtemp(pattern.data());
        session.configurationFolders = {_root / "user", _root / "system"};
    }
    ~DesktopShortcutsSessionTest() override { fs::remove_all(_root); }

    void put(const fs::path& file, const std::string& text) {
        fs::create_directories((_root / file).parent_path());
        std::ofstream(_root / file) << text;
    }
    void putBoth(const std::string& folder, const std::string& key) {
        put(folder + "/openbox/rc.xml", "<keybind key=\"A-" + key + "\"/>");
        put(folder + "/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml",
            xfce(R"(<property name="xfwm4"><property name="custom"><property name="&lt;Super&gt;)" + key
                + R"(" type="string" value="x"/></property></property>)"));
    }

    DesktopShortcutsSession session;
    fs::path _root;
};

TEST_F(DesktopShortcutsSessionTest, ReadsTheSettingsOfTheDesktopThatIsRunning) {
    putBoth("user", "a");
    EXPECT_THAT(session.readShortcuts(), IsEmpty());
    session.windowManager = "Openbox";
    EXPECT_THAT(session.readShortcuts(), ElementsAre(DesktopShortcut{true, OptionKey, "a", "Openbox"}));
    session.windowManager = "Xfwm4";
    EXPECT_THAT(session.readShortcuts(), ElementsAre(DesktopShortcut{true, ControlKey, "a", "Xfce: x"}));
    session.windowManager = "Other";
    EXPECT_THAT(session.readShortcuts(), IsEmpty());
    session.desktops = {"XFCE"};
    EXPECT_THAT(session.readShortcuts(), ElementsAre(DesktopShortcut{true, ControlKey, "a", "Xfce: x"}));
}

TEST_F(DesktopShortcutsSessionTest, PrefersTheUsersSettingsToTheSystems) {
    session.windowManager = "Openbox";
    EXPECT_THAT(session.readShortcuts(), IsEmpty());
    putBoth("system", "s");
    EXPECT_THAT(session.readShortcuts(), ElementsAre(DesktopShortcut{true, OptionKey, "s", "Openbox"}));
    putBoth("user", "u");
    EXPECT_THAT(session.readShortcuts(), ElementsAre(DesktopShortcut{true, OptionKey, "u", "Openbox"}));
}

} // namespace
} // namespace tarragon
