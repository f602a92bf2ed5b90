// Every control of a setting: what a click stores and how soon, and that it follows others who change the setting.
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <functional>
#include <iostream>

namespace tarragon::e2e {

namespace {

// A check box, or a radio button of two that stand for on and off.
struct Switch {
    const char* pane;
    const char* name;
    const char* role;
    const char* key;
    bool builtIn; // what the setting is built in with
    // Whether the program takes the setting over when it changes, rather than looking when it needs it.
    bool isFollowed = true;
    const char* needs = nullptr; // a setting that has to be on for the control to be of use
};

constexpr Switch Switches[] = {
    {"General", "Show keyboard shortcuts", "check box", "ShowKeyEquivalents", true},
    {"General", "Show Tarragon's own menu", "check box", "ShowTarragonMenu", true},
    {"General", "Launch on login", "check box", "LaunchOnLogin", false, false},
    {"General", "Show an icon in the tray", "check box", "ShowStatusBarIcon", true},
    {"Hot Key", "Enable hotkey", "check box", "EnableHotkey", true},
    {"Hot Key", "Open the menus with a mouse button", "check box", "EnableMouseButton", false},
    {"Window Top", "Show a panel above the window in front", "check box", "EnableButton", true},
    {"Window Top", "Always visible", "check box", "TarragonAlwaysVisible", true},
    {"Window Top", "On the title bar", "check box", "TarragonAlwaysRight", false},
    {"Window Top", "Not at the very top of the first screen", "check box", "HideOnPrimaryTopEdge", false},
    {"Window Top", "Also on the first screen", "check box", "ShowOnPrimaryScreen", true},
    {"Screen Top", "Show a menu bar on every screen but the first", "check box", "EnableScreenTop", true},
    {"Screen Top", "Hide the bar", "check box", "ScreenTopAutoHide", false, false},
    {"Screen Top", "Only the left half of the edge has it come", "check box", "ScreenTopHalfHotZone", false, false,
        "ScreenTopAutoHide"},
    {"Screen Top", "Translucent", "check box", "ScreenTopTransparency", false, false},
};

} // namespace

class PreferencesControlTest : public WindowManagerPreferencesTest {
protected:
    bool shows(const Switch& control, bool isOn) {
        return preferences()
            .waitFor(
                control.name, [&](const Control& shown) { return shown.isChecked() == isOn; }, control.role)
            .has_value();
    }
    // Clicks, and keeps for the record how long the setting took to be on disk and to be heard of by the program.
    void clickAndMeasure(const Switch& control, bool isOn) {
        const std::size_t before = changesOf(control.key);
        ASSERT_TRUE(preferences().click(control.name, control.role)) << control.name;
        const auto clicked = Clock::now();
        EXPECT_TRUE(storesBoolean(control.key, isOn)) << control.key;
        const bool isHeard = !control.isFollowed || waitUntil([&] { return changesOf(control.key) > before; });
        EXPECT_TRUE(isHeard) << control.key;
        const auto taken = std::chrono::duration_cast<Duration>(Clock::now() - clicked);
        _slowest = std::max(_slowest, taken);
        std::cout << control.key << ": stored and heard of " << taken.count() << " ms after the click\n";
    }

    Duration _slowest{0};
};

TEST_P(PreferencesControlTest, EverySwitchStoresItsSettingAndFollowsIt) {
    ASSERT_TRUE(preferences().open());
    for (const Switch& control : Switches) {
        ASSERT_TRUE(preferences().showPane(control.pane)) << control.pane;
        if (control.needs)
            stored().set(control.needs, true);
        EXPECT_TRUE(shows(control, control.builtIn)) << control.key;
        EXPECT_FALSE(stored().has(control.key)) << control.key;
        clickAndMeasure(control, !control.builtIn);
        EXPECT_TRUE(shows(control, !control.builtIn)) << control.key;
        // Somebody else changes it back, and then does away with it.
        stored().set(control.key, control.builtIn);
        EXPECT_TRUE(shows(control, control.builtIn)) << control.key;
        stored().set(control.key, !control.builtIn);
        EXPECT_TRUE(shows(control, !control.builtIn)) << control.key;
        stored().remove(control.key);
        EXPECT_TRUE(shows(control, control.builtIn)) << control.key;
        if (control.needs)
            stored().remove(control.needs);
    }
    RecordProperty("slowest", std::to_string(_slowest.count()));
}

TEST_P(PreferencesControlTest, TwoRadioButtonsAreOneSetting) {
    const Switch titles{"Window Top", "Every title, side by side", "radio button", "Horizontal", true};
    const Switch button{"Window Top", "One button that opens all menus", "radio button", "Horizontal", false};
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Window Top"));
    EXPECT_TRUE(shows(titles, true));
    EXPECT_TRUE(shows(button, false));
    clickAndMeasure(button, false);
    EXPECT_TRUE(shows(titles, false));
    EXPECT_TRUE(shows(button, true));
    clickAndMeasure(titles, true);
    EXPECT_TRUE(shows(button, false));
    stored().set("Horizontal", false);
    EXPECT_TRUE(shows(titles, false));
    EXPECT_TRUE(shows(button, true));
    stored().remove("Horizontal");
    EXPECT_TRUE(shows(titles, true));
}

TEST_P(PreferencesControlTest, ASizeIsTypedSteppedAndFollowed) {
    struct Size {
        const char* pane;
        const char* name;
        const char* key;
        const char* builtIn;
    };
    const Size sizes[] = {{"General", "Size of the menus", "FontSizeSmall", "12 points"},
        {"Window Top", "Size of the titles", "TitleFontSizeSmall", "As the desktop has it"}};
    ASSERT_TRUE(preferences().open());
    for (const Size& size : sizes) {
        ASSERT_TRUE(preferences().showPane(size.pane));
        const auto shows = [&](const std::string& text) {
            return preferences()
                .waitFor(
                    size.name, [&](const Control& control) { return control.text == text; }, "spin box")
                .has_value();
        };
        EXPECT_TRUE(shows(size.builtIn)) << size.key;
        const auto control = preferences().waitFor(
            size.name, [](const Control&) { return true; }, "spin box");
        ASSERT_TRUE(control);
        preferences().click(*control);
        EXPECT_TRUE(preferences().waitFor(size.name, std::mem_fn(&Control::isFocused), "spin box")) << size.key;
        const std::size_t before = changesOf(size.key);
        input().tap(XK_a, {XK_Control_L});
        preferences().type("18");
        input().tap(XK_Return);
        EXPECT_TRUE(storesInteger(size.key, 18)) << size.key;
        EXPECT_TRUE(waitUntil([&] { return changesOf(size.key) > before; })) << size.key;
        input().tap(XK_Up);
        EXPECT_TRUE(storesInteger(size.key, 19)) << size.key;
        EXPECT_TRUE(shows("19 points"));
        stored().set(size.key, std::uint64_t{10});
        EXPECT_TRUE(shows("10 points")) << size.key;
        stored().set(size.key, std::uint64_t{0});
        EXPECT_TRUE(shows("As the desktop has it")) << size.key;
        stored().remove(size.key);
        EXPECT_TRUE(shows(size.builtIn)) << size.key;
    }
}

TEST_P(PreferencesControlTest, TheLabelOfTheButtonIsStoredAsItIsTyped) {
    stored().set("Horizontal", false);
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Window Top"));
    const auto shows = [&](const std::string& text) {
        return preferences()
            .waitFor(
                "Label", [&](const Control& control) { return control.text == text; }, "text")
            .has_value();
    };
    ASSERT_TRUE(shows("Menu"));
    preferences().clickInto(*preferences().control("Label", "text"));
    ASSERT_TRUE(preferences().waitFor("Label", std::mem_fn(&Control::isFocused), "text"));
    const std::size_t before = changesOf("ButtonLabel");
    input().tap(XK_a, {XK_Control_L});
    preferences().type("Basil");
    EXPECT_TRUE(storesText("ButtonLabel", "Basil"));
    EXPECT_TRUE(waitUntil([&] { return changesOf("ButtonLabel") > before; }));
    input().tap(XK_BackSpace);
    EXPECT_TRUE(storesText("ButtonLabel", "Basi"));
    stored().set("ButtonLabel", "Chervil");
    EXPECT_TRUE(shows("Chervil"));
    stored().remove("ButtonLabel");
    EXPECT_TRUE(shows("Menu"));
    // Without the one button there is nothing to label.
    stored().set("Horizontal", true);
    EXPECT_TRUE(preferences().waitFor(
        "Label", [](const Control& control) { return !control.isEnabled(); }, "text"));
}

TEST_P(PreferencesControlTest, AStyleIsChosenFromItsListAndFollowed) {
    const std::vector<std::pair<std::string, std::uint64_t>> styles{
        {"Rounded", 0}, {"Recessed", 1}, {"Square", 2}, {"Square, without shadow", 3}, {"As in a menu bar", 5}};
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Window Top"));
    // A combo box is called by what it shows, and leaves its label to those who ask for it.
    const auto shows = [&](const std::string& text) {
        return preferences()
            .waitFor(
                text, [&](const Control& control) { return control.name == text; }, "combo box")
            .has_value();
    };
    ASSERT_TRUE(shows("Rounded"));
    preferences().clickInto(*preferences().control("Rounded", "combo box"));
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1; }));
    input().tap(XK_Escape);
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().empty(); }));
    for (std::size_t index = 1; index < styles.size(); ++index) {
        const std::size_t before = changesOf("ButtonStyle");
        input().tap(XK_Down);
        ASSERT_TRUE(storesInteger("ButtonStyle", styles[index].second));
        EXPECT_TRUE(waitUntil([&] { return changesOf("ButtonStyle") > before; }));
    }
    for (const auto& [title, number] : styles) {
        stored().set("ButtonStyle", number);
        EXPECT_TRUE(shows(title)) << number;
    }
    stored().set("ButtonStyle", std::uint64_t{4});
    EXPECT_TRUE(shows("As in a menu bar"));
}

TEST_P(PreferencesControlTest, WhatDoesNothingOnThisDesktopIsNotShown) {
    ASSERT_TRUE(preferences().open());
    for (const char* name : {"Show the menu of the desktop", "Show the application's menus", "Fold items"})
        EXPECT_FALSE(preferences().control(name)) << name;
    ASSERT_TRUE(preferences().showPane("Window Top"));
    for (const char* name : {"Buttons have a border", "Buttons have a shadow", "Buttons have a texture", "Buttons are"})
        EXPECT_FALSE(preferences().control(name)) << name;
    ASSERT_TRUE(preferences().showPane("About"));
    EXPECT_TRUE(preferences().says("Version"));
    // Nobody has built an address in.
    for (const char* name : {"Web Page", "First Social Page", "Second Social Page"})
        EXPECT_FALSE(preferences().control(name)) << name;
}

TEST_P(PreferencesControlTest, TheHelpBesideTheControlsIsExchanged) {
    const std::vector<std::pair<std::string, std::string>> texts{{"At the pointer", "A combination of keys"},
        {"Above the window", "A small panel"}, {"On the other screens", "Every screen but the first"},
        {"Not for every window", "right-click a title"}, {"In general", "Tarragon brings the menus"}};
    ASSERT_TRUE(preferences().open());
    EXPECT_TRUE(preferences().says("Tarragon brings the menus"));
    for (const auto& [button, words] : texts) {
        ASSERT_TRUE(preferences().click(button)) << button;
        EXPECT_TRUE(preferences().waitUntilSays(words)) << button;
        for (const auto& [other, otherWords] : texts)
            EXPECT_EQ(preferences().says(otherWords), other == button) << button << ", " << other;
    }
}

// None of it is the window manager's.
INSTANTIATE_TEST_SUITE_P(Under, PreferencesControlTest, testing::Values(WindowManager::Openbox), nameOfWindowManager);

} // namespace tarragon::e2e
