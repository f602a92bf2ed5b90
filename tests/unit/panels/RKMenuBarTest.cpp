#include "RKMenuBarFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// Its beginning and its end.

TEST_F(RKMenuBarTest, ReadsItsSettingsBeforeAPauseOfOneSecondAndShowsNothing) {
    fake.runLoop.setPauseHook(
        [this](double) { EXPECT_THAT(fake.defaults.readKeys(), testing::Contains("EnableScreenTop")); });
    bar = newBar();
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
    EXPECT_THAT(toolkit.windows(), IsEmpty());
    EXPECT_EQ(bar->menu(), nullptr);
    EXPECT_FALSE(bar->menuPopulated());
    EXPECT_EQ(bar->frameOfST(), Rect());
    EXPECT_EQ(bar->rectOfMenuBar(), Rect());
}

TEST_F(RKMenuBarTest, ObservesEightSettingsUntilItEnds) {
    bar = newBar();
    EXPECT_THAT(fake.defaults.observedKeyPaths(),
        ElementsAre("values.FontSizeSmall", "values.ButtonStyle", "values.TitleFontSizeSmall",
            "values.ShowApplicationMenu", "values.EnableScreenTop", "values.ScreenTopAutoHide",
            "values.ScreenTopTransparency", "values.ScreenTopHalfHotZone"));
    bar = nullptr;
    EXPECT_THAT(fake.defaults.observedKeyPaths(), IsEmpty());
}

TEST_F(RKMenuBarTest, ObservesItsSettingsBeforeItReadsThem) {
    fake.runLoop.setPauseHook([this](double) { set("ScreenTopAutoHide", true); });
    bar = newBar();
    EXPECT_TRUE(bar->screenTopAutoHide());
}

TEST_F(RKMenuBarTest, TellsItsOwnerWhetherTheProgramStartsAtLogin) {
    bar = newBar();
    EXPECT_THAT(owner.startsAtLoginSet, ElementsAre(false));
    set("LaunchOnLogin", true);
    EXPECT_THAT(owner.startsAtLoginSet, ElementsAre(false));
    bar = newBar();
    EXPECT_THAT(owner.startsAtLoginSet, ElementsAre(false, true));
}

TEST_F(RKMenuBarTest, MayBeDroppedByAnEarlierObserverOfTheSameSetting) {
    fake.defaults.addObserver("values.EnableScreenTop", [this](const std::string&) { bar = nullptr; });
    makePlacedBar();
    set("EnableScreenTop", false);
    EXPECT_EQ(bar, nullptr);
    EXPECT_EQ(toolkit.livingWindows(), 0u);
    EXPECT_THAT(fake.defaults.observedKeyPaths(), ElementsAre("values.EnableScreenTop"));
}

TEST_F(RKMenuBarTest, MayBeDroppedByALaterObserverOfTheSameSetting) {
    makePlacedBar();
    fake.defaults.addObserver("values.FontSizeSmall", [this](const std::string&) { bar = nullptr; });
    set("FontSizeSmall", std::int64_t{20});
    EXPECT_EQ(toolkit.livingWindows(), 0u);
}

TEST_F(RKMenuBarTest, TakesItsWindowAndItsOpenMenuAlongWhenItEnds) {
    makePlacedBar();
    window().press("File");
    EXPECT_EQ(openMenu(), "File");
    bar = nullptr;
    EXPECT_EQ(openMenu(), "");
    EXPECT_EQ(toolkit.livingWindows(), 0u);
}

TEST_F(RKMenuBarTest, LeavesAnOpenMenuOfOthersAloneWhenItEnds) {
    makePlacedBar();
    fake.menuPresenter.open(*mail);
    bar = nullptr;
    EXPECT_EQ(openMenu(), "Mail");
}

TEST_F(RKMenuBarTest, EndsInTheMiddleOfASlide) {
    set("ScreenTopAutoHide", true);
    makePlacedBar();
    movePointerTo(AtTopOfSecondScreen);
    fake.runLoop.advance(0.05);
    bar = nullptr;
    finishSlide();
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(RKMenuBarTest, IsPopulatedOnceItsMenuHoldsAnItem) {
    bar = newBar();
    bar->setMenu(std::make_shared<Menu>("Mail"));
    EXPECT_FALSE(bar->menuPopulated());
    bar->setMenu(mail);
    EXPECT_EQ(bar->menu(), mail);
    EXPECT_TRUE(bar->menuPopulated());
}

// Which screen it serves.

TEST_F(RKMenuBarTest, ServesTheSecondScreenUnlessToldOtherwise) {
    bar = newBar();
    bar->refreshPanel();
    EXPECT_EQ(bar->rectOfMenuBar(), (Rect{{1440, 1124}, {1280, 1024}}));
}

TEST_F(RKMenuBarTest, ServesNoScreenBeyondTheNumberOfScreens) {
    bar = newBar();
    bar->setDisplayScreen(3);
    bar->refreshPanel();
    EXPECT_EQ(bar->rectOfMenuBar(), (Rect{{1440, 1124}, {1280, 1024}}));
}

TEST_F(RKMenuBarTest, TakesTheNumberOfScreensAsItStandsAndHasNoPlaceThen) {
    bar = newBar();
    bar->setMenu(mail);
    bar->setDisplayScreen(2);
    bar->refreshPanel();
    bar->handleAppChange();
    EXPECT_EQ(bar->rectOfMenuBar(), Rect());
    EXPECT_EQ(bar->frameOfST().size, (Size{0, 22}));
    EXPECT_FALSE(window().isSeen());
}

TEST_F(RKMenuBarTest, HasNoPlaceOnAScreenBeforeTheFirst) {
    bar = newBar();
    bar->setDisplayScreen(-1);
    bar->refreshPanel();
    bar->handleAppChange();
    EXPECT_FALSE(window().isSeen());
}

// What is set changes.

TEST_F(RKMenuBarTest, ShowsTheMenusInAFontOfTheNewSize) {
    makeBar();
    const std::shared_ptr<Menu> file = mail->itemAtIndex(1)->submenu();
    EXPECT_EQ(file->font(), (MenuFont{12, false}));
    set("FontSizeSmall", std::int64_t{20});
    EXPECT_EQ(file->font(), (MenuFont{20, false}));
    set("FontSizeSmall", std::int64_t{256 + 9});
    EXPECT_EQ(file->font(), (MenuFont{9, false}));
}

TEST_F(RKMenuBarTest, LaysItsTitlesOutAnewForEachSettingThatShows) {
    makeBar();
    const std::vector<std::pair<std::string, DefaultsValue>> changes = {{"FontSizeSmall", std::int64_t{14}},
        {"TitleFontSizeSmall", std::int64_t{14}}, {"ButtonStyle", std::int64_t{3}}, {"EnableScreenTop", true},
        {"ScreenTopTransparency", true}};
    for (const auto& [key, value] : changes) {
        mail->addItem(mirroredMenu("", {key})->itemAtIndex(0));
        set(key, value);
        EXPECT_NE(window().button(key), nullptr) << key;
    }
}

TEST_F(RKMenuBarTest, LeavesItsTitlesAloneForTheOtherSettings) {
    makeBar();
    const std::vector<std::string> before = window().titles();
    mail->addItem(mirroredMenu("", {"Late"})->itemAtIndex(0));
    for (const char* key : {"ShowApplicationMenu", "ScreenTopAutoHide", "ScreenTopHalfHotZone", "Horizontal"}) {
        set(key, true);
        bar->observeValueForKeyPath(std::string("values.") + key);
    }
    EXPECT_EQ(window().titles(), before);
}

TEST_F(RKMenuBarTest, TakesOverHidingAndTheHalfHotZoneWithoutAnyOtherChange) {
    makePlacedBar();
    set("ScreenTopAutoHide", true);
    EXPECT_TRUE(bar->screenTopAutoHide());
    EXPECT_EQ(bar->frameOfST(), Flush);
    EXPECT_EQ(window().level, PanelLevel::Dock);
    set("ScreenTopAutoHide", false);
    EXPECT_FALSE(bar->screenTopAutoHide());
}

TEST_F(RKMenuBarTest, MakesItsWindowWhenItIsSwitchedOn) {
    set("EnableScreenTop", false);
    makePlacedBar();
    EXPECT_THAT(toolkit.windows(), IsEmpty());
    set("EnableScreenTop", true);
    EXPECT_THAT(window().titles(), ElementsAre("Mail  ", "File", "Edit"));
}

TEST_F(RKMenuBarTest, IsNoLongerPlacedOnceItIsSwitchedOff) {
    makePlacedBar();
    set("EnableScreenTop", false);
    mail->addItem(mirroredMenu("", {"Late"})->itemAtIndex(0));
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{0, 900}, {1000, 500}})});
    bar->handleAppChange();
    bar->refreshPanel();
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(bar->frameOfST(), Flush);
    EXPECT_EQ(window().button("Late"), nullptr);
}

TEST_F(RKMenuBarTest, GivesItsTitlesTheMenuBarLookInPlaceOfTheBorderlessOne) {
    makeBar();
    const ButtonDress asMade;
    for (const std::int64_t style : {1, 2, 3, 4, 5, 6}) {
        set("ButtonStyle", style);
        EXPECT_EQ(window().button("File")->dress, asMade) << style;
        EXPECT_EQ(window().button("File")->look, ButtonLook::ScreenTopBar) << style;
    }
    set("ButtonStyle", std::int64_t{0});
    EXPECT_EQ(window().button("File")->dress.bezel, ButtonBezel::RoundRect);
    EXPECT_TRUE(window().button("File")->dress.bordered);
}

// What nothing in the program asks for.

TEST_F(RKMenuBarTest, OffersTheSystemsOwnMenu) {
    bar = newBar();
    EXPECT_EQ(bar->addTarragonMenuToMenu(), owner.ownMenu);
}

TEST_F(RKMenuBarTest, ConvertsBetweenTheTwoSpacesFromDifferentHeights) {
    fake.displays.setMainDisplayBoundsCG({{0, 0}, {1440, 1000}});
    bar = newBar();
    EXPECT_EQ(bar->convertCGtoNSRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 840}, {30, 40}}));
    EXPECT_EQ(bar->convertNSToCGRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 940}, {30, 40}}));
    fake.displays.setScreens({});
    EXPECT_EQ(bar->convertCGtoNSRectCoords({{10, 20}, {30, 40}}), (Rect{{10, -60}, {30, 40}}));
}

TEST_F(RKMenuBarTest, WatchesForTheLeftButtonOnceAndUntilItEnds) {
    bar = newBar();
    EXPECT_THAT(fake.inputEvents.monitorMasks(), IsEmpty());
    bar->mouseUpMonitor();
    bar->mouseUpMonitor();
    EXPECT_THAT(fake.inputEvents.monitorMasks(), ElementsAre(4u));
    fake.inputEvents.send({.type = InputEventType::LeftMouseUp});
    bar = nullptr;
    EXPECT_THAT(fake.inputEvents.monitorMasks(), IsEmpty());
}

TEST_F(RKMenuBarTest, DoesWithoutInputThatCannotBeWatched) {
    bar = std::make_unique<RKMenuBar>(RKMenuBar::Surroundings{services, fake.defaults, nullptr, owner});
    bar->mouseUpMonitor();
    fake.inputEvents.setRefuses(true);
    bar = newBar();
    bar->mouseUpMonitor();
    bar = nullptr;
    EXPECT_THAT(fake.inputEvents.removedMonitors(), IsEmpty());
}

} // namespace
} // namespace tarragon
