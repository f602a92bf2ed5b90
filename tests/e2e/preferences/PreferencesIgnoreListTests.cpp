// The editor of the ignore list in the preferences, by pointer and keys.
#include "Panel.h"
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarragon::e2e {

namespace {

const std::string List = "IgnoreWindowList";
constexpr const char* Applications = "Ignored applications";
constexpr const char* Titles = "Ignored window titles and patterns";
constexpr const char* AddApplication = "Add an application to the list";
constexpr const char* RemoveApplication = "Remove the selected application from the list";
constexpr const char* IgnoreAll = "Ignore all windows of this application";
constexpr const char* AddTitle = "Add a window title or pattern";
constexpr const char* RemoveTitle = "Remove the selected window title or pattern";
constexpr const char* PickWindow = "Ignore the window that you click next";
constexpr const char* Placeholder = "Type new window title or wildcard pattern here";

using Rows = std::vector<std::string>;

} // namespace

class PreferencesIgnoreListTest : public WindowManagerPreferencesTest {
protected:
    bool openEditor() { return preferences().open() && preferences().showPane("Ignore List"); }

    std::vector<Control> rowsOf(const std::string& table) {
        std::vector<Control> rows;
        bool isWithin = false;
        for (Control& control : preferences().controls()) {
            if (control.role == "tree item" && isWithin)
                rows.push_back(std::move(control));
            else
                isWithin = control.role == "tree" && control.name == table;
        }
        return rows;
    }
    Rows rows(const std::string& table) {
        Rows names;
        for (const Control& row : rowsOf(table))
            names.push_back(row.name);
        return names;
    }
    bool shows(const std::string& table, const Rows& expected) {
        return waitUntil([&] { return rows(table) == expected; });
    }
    bool isSelected(const std::string& table, const std::string& name) {
        return waitUntil([&] {
            const std::vector<Control> shown = rowsOf(table);
            return std::any_of(shown.begin(), shown.end(),
                [&](const Control& row) { return row.name == name && row.has("selected"); });
        });
    }
    bool select(const std::string& table, const std::string& name) {
        for (const Control& row : rowsOf(table)) {
            if (row.name != name)
                continue;
            preferences().clickInto(row);
            return isSelected(table, name);
        }
        return false;
    }
    bool isUsable(const char* name, bool expected = true) {
        const auto isSo = [&](const Control& control) { return control.isEnabled() == expected; };
        return preferences().waitFor(name, isSo).has_value();
    }
    bool ignoresAll(bool expected) {
        return preferences()
            .waitFor(IgnoreAll, [&](const Control& box) { return box.isChecked() == expected && box.isEnabled(); })
            .has_value();
    }
    // By its name among those that are installed.
    bool addApplication(const std::string& name) {
        if (!preferences().click(AddApplication) || !waitUntil([&] { return preferences().windows().size() == 2; }))
            return false;
        const auto isReady = [](const Control& field) { return field.isFocused(); };
        if (!preferences().waitFor("Search applications", isReady))
            return false;
        preferences().type(name);
        const auto canAdd = [](const Control& button) { return button.name == "Add" && button.isEnabled(); };
        if (!waitUntil([&] { return preferences().find(canAdd).has_value(); }))
            return false;
        input().tap(XK_Return);
        return waitUntil([&] {
            return preferences().windows().size() == 1 && display().activeWindow() == preferences().windows().front();
        });
    }
    // The new row is edited at once. Rows are what the table shows afterwards.
    bool addTitle(const std::string& title, const Rows& expected) {
        // A window manager may hold the click back for a moment, but not the keys.
        Rows untyped = expected;
        untyped.back() = Placeholder;
        if (!preferences().click(AddTitle) || !shows(Titles, untyped))
            return false;
        preferences().type(title);
        input().tap(XK_Return);
        return shows(Titles, expected);
    }
};

TEST_P(PreferencesIgnoreListTest, AnOpenDialogKeepsTheKeysWhenThePreferencesAreAskedForAgain) {
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(preferences().click(AddApplication));
    const auto dialogHasKeys = [&] { return display().titleOf(display().focusedWindow()) == "Add Application"; };
    ASSERT_TRUE(waitUntil(dialogHasKeys));
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == application.window(); }));
    ASSERT_EQ(Agent::run(desktop(), {"preferences"}).status, 0);
    EXPECT_TRUE(waitUntil(dialogHasKeys));
    EXPECT_TRUE(holdsFor(Duration(300), dialogHasKeys));
    input().tap(XK_Escape);
    EXPECT_TRUE(waitUntil([&] { return preferences().windows().size() == 1; }));
}

TEST_P(PreferencesIgnoreListTest, AnApplicationIsListedOnceWithAllItsWindows) {
    ASSERT_TRUE(openEditor());
    EXPECT_TRUE(shows(Applications, {}));
    for (const char* button : {RemoveApplication, IgnoreAll, AddTitle, RemoveTitle})
        EXPECT_TRUE(isUsable(button, false)) << button;
    ASSERT_TRUE(addApplication("mousepad"));
    EXPECT_TRUE(shows(Applications, {"Mousepad"}));
    EXPECT_TRUE(isSelected(Applications, "Mousepad"));
    EXPECT_TRUE(ignoresAll(true));
    EXPECT_TRUE(shows(Titles, {}));
    const std::string first = stored().data(List);
    EXPECT_FALSE(first.empty());
    ASSERT_TRUE(addApplication("mousepad"));
    EXPECT_TRUE(shows(Applications, {"Mousepad"}));
    EXPECT_EQ(stored().data(List), first);

    // No panel above its windows until the box is off.
    TestApplication& application = launch(ApplicationKind::Mousepad);
    Panel panel(display(), agent());
    EXPECT_TRUE(panel.waitUntilNotSeen());
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Ignore List"));
    ASSERT_TRUE(select(Applications, "Mousepad"));
    ASSERT_TRUE(preferences().click(IgnoreAll));
    EXPECT_TRUE(ignoresAll(false));
    ASSERT_TRUE(application.bringToFront());
    EXPECT_TRUE(panel.waitForTitles(application.expectedTitles()));
}

TEST_P(PreferencesIgnoreListTest, AnEditedTitleMovesToTheEnd) {
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(addApplication("mousepad"));
    // What nobody has typed over is a title as well.
    ASSERT_TRUE(preferences().click(AddTitle));
    ASSERT_TRUE(shows(Titles, {Placeholder}));
    ASSERT_TRUE(addTitle("two", {Placeholder, "two"}));
    ASSERT_TRUE(addTitle("three*", {Placeholder, "two", "three*"}));

    ASSERT_TRUE(select(Titles, Placeholder));
    input().tap(XK_F2);
    preferences().type("one?");
    input().tap(XK_Return);
    EXPECT_TRUE(shows(Titles, {"two", "three*", "one?"}));
    // The program has stored it all.
    restartAgent();
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(select(Applications, "Mousepad"));
    EXPECT_TRUE(shows(Titles, {"two", "three*", "one?"}));
    EXPECT_TRUE(ignoresAll(true));

    ASSERT_TRUE(select(Titles, "three*"));
    ASSERT_TRUE(preferences().click(RemoveTitle));
    EXPECT_TRUE(shows(Titles, {"two", "one?"}));
}

TEST_P(PreferencesIgnoreListTest, RemovingTheApplicationClearsItsTitles) {
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(addApplication("mousepad"));
    ASSERT_TRUE(addTitle("two", {"two"}));
    ASSERT_TRUE(addApplication("geany"));
    ASSERT_TRUE(select(Applications, "Mousepad"));
    ASSERT_TRUE(shows(Titles, {"two"}));
    ASSERT_TRUE(preferences().click(RemoveApplication));
    EXPECT_TRUE(shows(Applications, {"Geany"}));
    EXPECT_TRUE(shows(Titles, {}));
    for (const char* button : {RemoveApplication, IgnoreAll, AddTitle, RemoveTitle})
        EXPECT_TRUE(isUsable(button, false)) << button;
    EXPECT_EQ(preferences().windows().size(), 1U);
}

TEST_P(PreferencesIgnoreListTest, AListThatCannotBeReadShowsNothingAndStaysUntilTheUserChangesIt) {
    const std::string damaged = "bplist00 and then nothing of the kind";
    stored().setData(List, damaged);
    restartAgent();
    ASSERT_TRUE(openEditor());
    EXPECT_TRUE(shows(Applications, {}));
    EXPECT_TRUE(isUsable(AddApplication));
    ASSERT_TRUE(preferences().close());
    ASSERT_TRUE(openEditor());
    EXPECT_EQ(stored().data(List), damaged);
    ASSERT_TRUE(addApplication("mousepad"));
    EXPECT_TRUE(shows(Applications, {"Mousepad"}));
    EXPECT_NE(stored().data(List), damaged);
}

TEST_P(PreferencesIgnoreListTest, AListThatAnotherImplementationWroteIsShown) {
#ifdef E2E_ARCHIVE_TOOL
    const std::filesystem::path file = desktop().home() / "list";
    ASSERT_EQ(desktop().run({E2E_ARCHIVE_TOOL, "write", file}).status, 0);
    std::ifstream stream(file, std::ios::binary);
    stored().setData(List, {std::istreambuf_iterator<char>(stream), {}});
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(waitUntil([&] { return rows(Applications).size() == 2; }));
    ASSERT_TRUE(select(Applications, "Éditeur"));
    EXPECT_TRUE(shows(Titles, {"Untitled*", "日本 𝄞", "Untitled*", "Changing", "(empty title)"}));
    EXPECT_TRUE(ignoresAll(false));
    ASSERT_TRUE(select(Applications, "org.example.Clock"));
    EXPECT_TRUE(shows(Titles, {}));
    EXPECT_TRUE(ignoresAll(true));
#else
    GTEST_SKIP() << "GNUstep is not installed";
#endif
}

TEST_P(PreferencesIgnoreListTest, FollowsTheMenuOfThePanel) {
    ASSERT_TRUE(openEditor());
    ASSERT_TRUE(shows(Applications, {}));
    TestApplication& application = launch(ApplicationKind::Mousepad);
    Panel panel(display(), agent());
    ASSERT_TRUE(panel.waitForTitles(application.expectedTitles()));
    const std::optional<PixelRect> title = panel.frameOfTitle("Edit");
    ASSERT_TRUE(title);
    input().moveTo(title->x + title->width / 2, title->y + title->height / 2);
    input().click(3);
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1 && display().keyboardIsGrabbed(); }));
    input().tap(XK_Down);
    input().tap(XK_Return);
    EXPECT_TRUE(shows(Applications, {"Mousepad"}));
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Ignore List"));
    ASSERT_TRUE(select(Applications, "Mousepad"));
    EXPECT_TRUE(ignoresAll(true));
}

TEST_P(PreferencesIgnoreListTest, TheWindowThatIsClickedNextIsTaken) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    const std::string title = display().titleOf(application.window());
    ASSERT_TRUE(openEditor());
    const PixelRect own = display().outerFrameOf(preferences().windows().at(0));
    display().moveWindow(application.window(), own.x > 700 ? 0 : own.x + own.width + 10, 100);
    ASSERT_TRUE(preferences().click(PickWindow));
    ASSERT_TRUE(waitUntil([&] { return display().keyboardIsGrabbed(); }));
    EXPECT_TRUE(preferences().waitUntilSays("Click the window to ignore"));
    input().tap(XK_Escape);
    ASSERT_TRUE(waitUntil([&] { return !display().keyboardIsGrabbed(); }));
    EXPECT_TRUE(isUsable(PickWindow));
    EXPECT_TRUE(shows(Applications, {}));
    ASSERT_EQ(preferences().windows().size(), 1U);

    ASSERT_TRUE(preferences().click(PickWindow));
    ASSERT_TRUE(waitUntil([&] { return display().keyboardIsGrabbed(); }));
    const PixelRect frame = display().frameOf(application.window());
    input().moveTo(frame.x + frame.width / 2, frame.y + frame.height - 20);
    input().click();
    EXPECT_TRUE(shows(Applications, {"Mousepad"}));
    EXPECT_TRUE(shows(Titles, {title}));
    EXPECT_TRUE(ignoresAll(false));
}

// None of it is the window manager's.
INSTANTIATE_TEST_SUITE_P(
    Under, PreferencesIgnoreListTest, testing::Values(WindowManager::Openbox), nameOfWindowManager);

} // namespace tarragon::e2e
