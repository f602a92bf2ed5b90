#include "LinuxAccessibilityFixture.h"

namespace tarragon {
namespace {

class MenuBarsTest : public LinuxAccessibilityTest {
protected:
    void addWindowWithMenuBar(std::uint32_t window, const std::string& title) {
        addWindow(window, title);
        addMenuBar(window);
    }
};

TEST_F(MenuBarsTest, OfTwoWindowsEachShowsItsOwn) {
    addWindowWithMenuBar(1, "One");
    addWindowWithMenuBar(2, "Two");
    EXPECT_EQ(menuBarPath(), barPath(2));
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 2U);
    windows.activate(1);
    EXPECT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(accessibility.windowWithMenuBar(1), 1U);
}

TEST_F(MenuBarsTest, ADialogShowsThatOfTheWindowThatItBelongsTo) {
    addWindowWithMenuBar(1, "One");
    addWindowWithMenuBar(2, "Two");
    addWindow(3, "Save As").transientFor = 1;
    windows.activate(2);
    windows.activate(3);
    EXPECT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(accessibility.windowWithMenuBar(3), 1U);
    // It has the focus all the same.
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(focusedWindow(), attribute::Title)), "Save As");
    EXPECT_EQ(elementIn(accessibility.copyAttributeValue(menuBar(), attribute::Parent)), focusedApplication());
    EXPECT_EQ(elementIn(accessibility.copyAttributeValue(menuBar(), "AXWindow")),
        elementsIn(accessibility.copyAttributeValue(focusedApplication(), attribute::Windows)).back());
}

TEST_F(MenuBarsTest, ADialogWithOneOfItsOwnShowsThat) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Editor").transientFor = 1;
    addMenuBar(2);
    EXPECT_EQ(menuBarPath(), barPath(2));
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 2U);
}

TEST_F(MenuBarsTest, ADialogOfADialogShowsThatOfTheWindowThatBothBelongTo) {
    addWindowWithMenuBar(1, "One");
    addWindowWithMenuBar(2, "Two");
    addWindow(3, "Save As").transientFor = 1;
    addWindow(4, "Overwrite?").transientFor = 3;
    EXPECT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(accessibility.windowWithMenuBar(4), 1U);
}

TEST_F(MenuBarsTest, APaletteShowsThatOfTheWindowThatWasActiveLastAndHasOne) {
    addWindowWithMenuBar(1, "One");
    addWindowWithMenuBar(2, "Two");
    addWindow(3, "Tools");
    addWindow(4, "Colours");
    windows.activate(2);
    windows.activate(1);
    windows.activate(3);
    windows.activate(4);
    EXPECT_EQ(menuBarPath(), barPath(1));
    windows.activate(2);
    windows.activate(4);
    EXPECT_EQ(menuBarPath(), barPath(2));
    EXPECT_EQ(accessibility.windowWithMenuBar(4), 2U);
}

TEST_F(MenuBarsTest, WindowsThatBelongToEachOtherAreLookedAtOnce) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Two").transientFor = 3;
    addWindow(3, "Three").transientFor = 2;
    addWindow(4, "Four").transientFor = 4;
    EXPECT_EQ(menuBarPath(), barPath(1));
    windows.activate(3);
    EXPECT_EQ(menuBarPath(), barPath(1));
    windows.remove(1);
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(accessibility.windowWithMenuBar(3), 0U);
}

TEST_F(MenuBarsTest, AWindowOfAnotherProcessIsUsedWhenItIsBelongedToOnly) {
    constexpr std::int64_t otherProcess = 1;
    addWindowWithMenuBar(1, "One");
    WindowDescription& dialog = windows.add(2, "Portal", otherProcess);
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 0U);
    dialog.transientFor = 1;
    EXPECT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 1U);
    EXPECT_EQ(accessibility.processIdentifier(menuBar()), ownProcess);
}

TEST_F(MenuBarsTest, AWindowThatTellsNoProcessShowsThatOfTheOneThatItBelongsTo) {
    addWindowWithMenuBar(1, "One");
    WindowDescription& dialog = windows.add(2, "Stranger", 0);
    EXPECT_EQ(menuBarPath(), "none");
    dialog.transientFor = 1;
    EXPECT_EQ(menuBarPath(), barPath(1));
}

TEST_F(MenuBarsTest, ThereIsNoneWhereNoWindowHasOne) {
    addWindow(1, "One");
    addWindow(2, "Two").transientFor = 1;
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 0U);
    EXPECT_EQ(accessibility.windowWithMenuBar(1), 0U);
}

TEST_F(MenuBarsTest, ThereIsNoneOfAWindowThatIsGone) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Two").transientFor = 99;
    EXPECT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(accessibility.windowWithMenuBar(99), 0U);
}

TEST_F(MenuBarsTest, AreNotLookedForInMoreWindowsThanAPersonUses) {
    addWindowWithMenuBar(1, "One");
    for (std::uint32_t window = 2; window < 30; ++window)
        addWindow(window, "Terminal " + std::to_string(window));
    EXPECT_EQ(menuBarPath(), "none");
    windows.activate(1);
    windows.activate(20);
    EXPECT_EQ(menuBarPath(), barPath(1));
}

TEST_F(MenuBarsTest, OfADialogAreFoundWithoutSearchingItAgain) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Save As").transientFor = 1;
    ASSERT_EQ(menuBarPath(), barPath(1));
    const std::size_t searches = application.calls("GetChildren");
    const std::uint64_t trips = roundTrips();
    ASSERT_EQ(menuBarPath(), barPath(1));
    EXPECT_EQ(application.calls("GetChildren"), searches);
    // One for the dialog and one for the window behind it.
    EXPECT_EQ(roundTrips() - trips, 2U);
}

TEST_F(MenuBarsTest, ThatAppearLateAreFound) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Two");
    ASSERT_EQ(menuBarPath(), barPath(1));
    ASSERT_EQ(accessibility.windowWithMenuBar(2), 1U);
    addMenuBar(2);
    EXPECT_EQ(menuBarPath(), barPath(2));
    EXPECT_EQ(accessibility.windowWithMenuBar(2), 2U);
}

TEST_F(MenuBarsTest, ThatWentAreNotShown) {
    addWindowWithMenuBar(1, "One");
    addWindowWithMenuBar(2, "Two");
    ASSERT_EQ(menuBarPath(), barPath(2));
    removeMenuBar(2);
    EXPECT_EQ(menuBarPath(), barPath(1));
    addMenuBar(2);
    EXPECT_EQ(menuBarPath(), barPath(2));
}

TEST_F(MenuBarsTest, AreLookedForAgainWhereTheSearchWasCutShort) {
    addWindow(1, "One");
    addMenuBar(1);
    // The box counts more children than it lists, as while it is filled.
    application.change([&] {
        application.objects[framePath(1) + "/box"].children = {framePath(1) + "/text"};
        application.objects[framePath(1) + "/box"].extraChildCount = 1;
    });
    ASSERT_EQ(menuBarPath(), "none");
    application.change([&] {
        application.objects[framePath(1) + "/box"].children.push_back(barPath(1));
        application.objects[framePath(1) + "/box"].extraChildCount = 0;
    });
    EXPECT_EQ(menuBarPath(), barPath(1));
}

TEST_F(MenuBarsTest, AreThoseOfTheWindowWhileABatchRemembers) {
    addWindowWithMenuBar(1, "One");
    addWindow(2, "Two");
    const ReadBatch batch(accessibility);
    const Element front = focusedApplication();
    const Element before = elementIn(accessibility.copyAttributeValue(front, attribute::MenuBar));
    addMenuBar(2);
    EXPECT_EQ(elementIn(accessibility.copyAttributeValue(front, attribute::MenuBar)), before);
}

} // namespace
} // namespace tarragon
