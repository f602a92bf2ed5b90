#include "MenuTitles.h"
#include "fake/FakeFillingThreads.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/SystemFillingThreads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

namespace tarragon {
namespace {

using Operation = FakeCall::Operation;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

class Caching : public testing::Test {
protected:
    Caching() {
        fake.activate(editor);
        reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<FakeFillingThreads>(work));
    }
    Menu& root() { return *reader->menu(); }
    Menu& opened(const std::string& title) {
        Menu* submenu = fake.menuPresenter.openSubmenu(root(), title);
        fake.menuPresenter.closeMenus();
        return *submenu;
    }
    // Rebuilds, and fills the cache; the menu that is filled last is the one that stays in it.
    void rebuildAndFill() {
        reader->update();
        work->runAll();
        fake.accessibility.clearCalls();
    }
    bool wasRead(const Element& element) const {
        const auto calls = fake.accessibility.calls();
        return std::ranges::any_of(calls, [&](const FakeCall& call) { return call.element == element; });
    }

    FakePlatform fake;
    FakeApplication editor = fake.addApplication("Editor");
    FakeMenu file = editor.menu("File").item("New").separator().item("Wrap", {.mark = "x"});
    std::shared_ptr<FakeFillingThreads::Work> work = std::make_shared<FakeFillingThreads::Work>();
    std::shared_ptr<AppAccessibility> reader;
};

TEST_F(Caching, StartsAFillingForEveryMenuThatMayBeCached) {
    for (const char* title : {"Window", "History", "Edit"})
        editor.menu(title);
    reader->update();
    EXPECT_EQ(work->waiting(), 2U);
    const FakeApplication firefox = fake.addApplication("Firefox");
    firefox.menu("File");
    firefox.menu("Edit");
    fake.activate(firefox);
    reader->update();
    EXPECT_EQ(work->waiting(), 2U);
}

TEST_F(Caching, GoesByTheNameInFrontAndNotByTheTitleThatTheApplicationTells) {
    fake.accessibility.setAttribute(editor.element(), "AXTitle", std::string("Mail"));
    reader->update();
    EXPECT_EQ(work->waiting(), 1U);
    const FakeApplication mail = fake.addApplication("Mail");
    fake.accessibility.setAttribute(mail.element(), "AXTitle", std::string("Editor"));
    mail.menu("Message");
    fake.activate(mail);
    reader->update();
    EXPECT_EQ(work->waiting(), 1U);
}

TEST_F(Caching, FillsTheHiddenAppleMenuAllTheSame) {
    editor.menu("Apple");
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("File"));
    EXPECT_EQ(work->waiting(), 2U);
}

TEST_F(Caching, ShowsTheItemsOfACachedMenuInADeeperOneOfItsTitle) {
    file.submenu("Edit").item("Inner");
    editor.menu("Edit").item("Copy");
    rebuildAndFill();
    const auto item = opened("File").itemWithTitle("Edit");
    ASSERT_TRUE(item->hasSubmenu());
    fake.menuPresenter.open(*item->submenu());
    EXPECT_THAT(titlesOf(*item->submenu()), ElementsAre("Copy"));
}

TEST_F(Caching, RunsTheSecondPassOfTheFinderOverMenusThatAreReadOnly) {
    const FakeApplication finder = fake.addApplication("Finder");
    FakeMenu go = finder.menu("Go");
    for (const char* title : {"A", "A", "B", "B"})
        go.item(title);
    fake.activate(finder);
    rebuildAndFill();
    EXPECT_THAT(titlesOf(opened("Go")), ElementsAre("A", "B", "B"));
    reader->clearCacheForAppKey("Finder");
    EXPECT_THAT(titlesOf(opened("Go")), ElementsAre("A", "B"));
}

TEST_F(Caching, RefreshesTheCopyAndNotTheCachedItem) {
    rebuildAndFill();
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", false);
    EXPECT_FALSE(opened("File").itemWithTitle("New")->isEnabled());
    fake.accessibility.removeAttribute(file.itemElement("New"), "AXEnabled");
    EXPECT_TRUE(opened("File").itemWithTitle("New")->isEnabled());
}

TEST_F(Caching, AsksEachCopyForItsStateAndThenForItsMark) {
    rebuildAndFill();
    opened("File");
    std::vector<std::string> asked;
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue)) {
        if (call.element == file.itemElement("Wrap"))
            asked.push_back(call.name);
    }
    EXPECT_THAT(asked, ElementsAre("AXEnabled", "AXMenuItemMarkChar"));
}

TEST_F(Caching, CountsTheItemsOfTheCachedMenuBeforeRepeatsGo) {
    for (int index = 0; index < 73; ++index)
        file.item("Wrap");
    rebuildAndFill();
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", false);
    const Menu& menu = opened("File");
    EXPECT_TRUE(menu.itemWithTitle("New")->isEnabled());
}

TEST_F(Caching, ShowsAMenuThatItsApplicationDidNotTellEmptyUntilTheNextFilling) {
    reader->update();
    fake.accessibility.setProcessFault(editor.processIdentifier(), FakeFault::Dead);
    work->runAll();
    fake.accessibility.setProcessFault(editor.processIdentifier(), FakeFault::None);
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre());
    rebuildAndFill();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, StartsNoneWhileTheApplicationsMenusAreHidden) {
    editor.menu("Apple");
    reader->setShowAppleMenu(true);
    reader->setShowApplicationMenu(false);
    reader->update();
    EXPECT_EQ(work->waiting(), 0U);
}

TEST_F(Caching, ShowsCopiesOfTheCachedItemsWithoutReadingThemAgain) {
    rebuildAndFill();
    file.item("Late");
    EXPECT_TRUE(reader->cacheExistsForMenu(*root().itemAtIndex(0)->submenu()));
    Menu& menu = opened("File");
    EXPECT_THAT(titlesOf(menu), ElementsAre("New", "", "Wrap"));
    EXPECT_EQ(menu.supermenu(), &root());
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue))
        EXPECT_FALSE(call.element == file.itemElement("New") && call.name == "AXTitle");
    opened("File");
    EXPECT_THAT(titlesOf(menu), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, PressesTheRealItemThroughACopy) {
    rebuildAndFill();
    EXPECT_TRUE(fake.menuPresenter.choose(*opened("File").itemWithTitle("New")));
    ASSERT_EQ(fake.accessibility.performedActions().size(), 1U);
    EXPECT_EQ(fake.accessibility.performedActions()[0].first, file.itemElement("New"));
}

TEST_F(Caching, TouchesTheRealMenuBeforeItShowsTheCopies) {
    rebuildAndFill();
    opened("File");
    const auto calls = fake.accessibility.callsOf(Operation::CopyAttributeValue);
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[0].element, file.item());
    EXPECT_EQ(calls[0].name, "AXChildren");
    EXPECT_EQ(calls[1].element, file.element());
    EXPECT_EQ(calls[1].name, "AXRole");
}

TEST_F(Caching, RefreshesStateAndMarkFromTheRealItems) {
    rebuildAndFill();
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", false);
    fake.accessibility.setAttribute(file.itemElement("New"), "AXMenuItemMarkChar", std::string("x"));
    fake.accessibility.removeAttribute(file.itemElement("Wrap"), "AXMenuItemMarkChar");
    const Menu& menu = opened("File");
    EXPECT_FALSE(menu.itemWithTitle("New")->isEnabled());
    EXPECT_TRUE(menu.itemWithTitle("New")->state());
    EXPECT_FALSE(menu.itemWithTitle("Wrap")->state());
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", true);
    EXPECT_TRUE(opened("File").itemWithTitle("New")->isEnabled());
}

TEST_F(Caching, LeavesTheEnabledStateOfAnItemThatDoesNotSay) {
    file.item("Off", {.enabled = false});
    rebuildAndFill();
    fake.accessibility.removeAttribute(file.itemElement("New"), "AXEnabled");
    fake.accessibility.setAttribute(file.itemElement("Off"), "AXEnabled", std::string("yes"));
    const Menu& menu = opened("File");
    EXPECT_TRUE(menu.itemWithTitle("New")->isEnabled());
    EXPECT_FALSE(menu.itemWithTitle("Off")->isEnabled());
}

TEST_F(Caching, RefreshesMenusOf75ItemsAndShowsLongerOnesAsTheyAre) {
    for (int index = 3; index < 75; ++index)
        file.item("Item " + std::to_string(index));
    rebuildAndFill();
    opened("File");
    EXPECT_TRUE(wasRead(file.itemElement("New")));

    file.item("One more");
    rebuildAndFill();
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", false);
    EXPECT_TRUE(opened("File").itemWithTitle("New")->isEnabled());
    EXPECT_FALSE(wasRead(file.itemElement("New")));
    EXPECT_EQ(opened("File").numberOfItems(), 76U);
}

TEST_F(Caching, RemovesRepeatsFromTheCopies) {
    file.item("Wrap");
    rebuildAndFill();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, ReadsTheStatesOfAllCachedItemsAtOnce) {
    rebuildAndFill();
    opened("File");
    EXPECT_EQ(fake.accessibility.elementsReadAhead(),
        (std::vector<Element>{file.itemElement("New"), file.itemElement("Wrap")}));
}

TEST_F(Caching, ReadsNothingAheadOfACachedMenuButStates) {
    rebuildAndFill();
    fake.accessibility.clearCalls();
    opened("File");
    EXPECT_EQ(fake.accessibility.deepestBatch(), ReadBatchDepth::AsAsked);
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), 0U);
}

TEST_F(Caching, ReadsNothingOfALongCachedMenu) {
    for (int index = 0; index < 73; ++index)
        file.item("Item " + std::to_string(index));
    rebuildAndFill();
    EXPECT_EQ(opened("File").numberOfItems(), 76U);
    EXPECT_THAT(fake.accessibility.elementsReadAhead(), IsEmpty());
}

TEST_F(Caching, FillsTheSubmenusOfCopiesWhenTheyOpen) {
    file.submenu("Export").item("As Text");
    rebuildAndFill();
    Menu& menu = opened("File");
    const auto item = menu.itemWithTitle("Export");
    ASSERT_TRUE(item->hasSubmenu());
    fake.menuPresenter.open(*item->submenu());
    EXPECT_THAT(titlesOf(*item->submenu()), ElementsAre("As Text"));
}

TEST_F(Caching, FillsOneLevel) {
    const FakeMenu inner = file.submenu("Export").item("As Text");
    rebuildAndFill();
    const auto item = opened("File").itemWithTitle("Export");
    EXPECT_THAT(titlesOf(*item->submenu()), IsEmpty());
    EXPECT_EQ(item->submenu()->title(), "Export");
    reader->update();
    fake.accessibility.clearCalls();
    work->runAll();
    EXPECT_TRUE(wasRead(file.itemElement("Export")));
    EXPECT_FALSE(wasRead(inner.itemElement("As Text")));
}

TEST_F(Caching, ShowsOfTwoMenusOfTheSameTitleTheOneThatWasFilledLast) {
    editor.menu("File").item("Of the second");
    rebuildAndFill();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("Of the second"));
}

TEST_F(Caching, EmptiesAMenuThatHangsNowhereAndHasTheTitleOfACachedOne) {
    rebuildAndFill();
    Menu stray("File");
    stray.setDelegate(reader.get());
    stray.addItem(MenuItem::separatorItem());
    fake.menuPresenter.open(stray);
    EXPECT_THAT(titlesOf(stray), IsEmpty());
}

TEST_F(Caching, OpensAMenuEmptyWhenNoApplicationIsInFrontAnyMoreAfterTheProbe) {
    rebuildAndFill();
    fake.accessibility.beforeCall(0, [this] { fake.workspace.setActiveApplication(std::nullopt); });
    EXPECT_THAT(titlesOf(opened("File")), IsEmpty());
    fake.activate(editor);
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, KeepsTheMenuThatWasFilledLastAsEveryFillingHasAFreshName) {
    const FakeMenu edit = editor.menu("Edit").item("Copy");
    rebuildAndFill();
    EXPECT_FALSE(reader->cacheExistsForMenu(*root().itemWithTitle("File")->submenu()));
    EXPECT_TRUE(reader->cacheExistsForMenu(*root().itemWithTitle("Edit")->submenu()));
}

TEST_F(Caching, OutlivesRebuildsAndSwitchesUntilTheNextFilling) {
    const FakeApplication mail = fake.addApplication("Mail");
    mail.menu("Message").item("Reply");
    rebuildAndFill();
    fake.activate(mail);
    reader->update();
    EXPECT_EQ(work->waiting(), 0U);
    EXPECT_THAT(titlesOf(opened("Message")), ElementsAre("Reply"));
    fake.activate(editor);
    file.item("Late");
    reader->update();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
    work->runAll();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap", "Late"));
}

TEST_F(Caching, ReadsTheRealMenuAgainOnceTheApplicationIsForgotten) {
    rebuildAndFill();
    file.item("Late");
    reader->clearCacheForAppKey("Mail");
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
    reader->clearCacheForAppKey("Editor");
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap", "Late"));
}

TEST_F(Caching, FindsTheAppleMenuUnderItsMark) {
    const FakeMenu apple = editor.menu("Apple").item("About");
    reader->setShowAppleMenu(true);
    rebuildAndFill();
    Menu& menu = opened("\uF8FF");
    EXPECT_EQ(menu.title(), "Apple");
    EXPECT_THAT(titlesOf(menu), ElementsAre("About"));
    apple.item("Late");
    EXPECT_THAT(titlesOf(opened("\uF8FF")), ElementsAre("About"));
}

TEST_F(Caching, UsesTheOptionsOfTheMomentTheFillingWasStarted) {
    file.item("Save", {.commandCharacter = "S"});
    reader->setKeyEquivalents(true);
    reader->update();
    reader->setKeyEquivalents(false);
    work->runAll();
    EXPECT_EQ(opened("File").itemWithTitle("Save")->keyEquivalent(), "s");
}

TEST_F(Caching, OpensAMenuEmptyThisOnceWhenAFillingReplacesTheRootBetweenProbeAndLookUp) {
    const FakeMenu edit = editor.menu("Edit").item("Copy");
    reader->update();
    work->runNext();
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
    fake.accessibility.beforeCall(0, [this] { work->runNext(); });
    EXPECT_THAT(titlesOf(opened("File")), IsEmpty());
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, EmptiesAMenuAgainAfterTheLookAtTheRealOne) {
    rebuildAndFill();
    Menu& menu = *root().itemWithTitle("File")->submenu();
    fake.accessibility.beforeCall(0, [&] { menu.addItem(std::make_shared<MenuItem>("Meanwhile", "", "")); });
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, GoesByTheApplicationInFrontNowAndNotByTheOneOfTheLastRebuild) {
    const FakeApplication mail = fake.addApplication("Mail");
    const FakeApplication viewer = fake.addApplication("Viewer");
    rebuildAndFill();
    MenuItem& item = *root().itemWithTitle("File");
    fake.activate(mail);
    EXPECT_FALSE(reader->menuShouldBeCached(item));
    EXPECT_FALSE(reader->cacheExistsForMenu(*item.submenu()));
    file.item("Late");
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap", "Late"));
    fake.activate(viewer);
    EXPECT_TRUE(reader->menuShouldBeCached(item));
    reader->cacheMenuForMenuItem(item);
    work->runAll();
    EXPECT_TRUE(reader->cacheExistsForMenu(*item.submenu()));
    fake.activate(editor);
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, LooksForTheMenuOfTheApplicationThatHasComeInFrontMeanwhile) {
    const FakeApplication viewer = fake.addApplication("Viewer");
    rebuildAndFill();
    fake.accessibility.beforeCall(0, [&] { fake.activate(viewer); });
    EXPECT_THAT(titlesOf(opened("File")), IsEmpty());
}

TEST_F(Caching, LeavesTheEnabledStateForANumberAndReadsAnEmptyMarkAsOne) {
    rebuildAndFill();
    fake.accessibility.setAttribute(file.itemElement("New"), "AXEnabled", std::int64_t{0});
    fake.accessibility.setAttribute(file.itemElement("New"), "AXMenuItemMarkChar", std::string());
    const auto item = opened("File").itemWithTitle("New");
    EXPECT_TRUE(item->isEnabled());
    EXPECT_TRUE(item->state());
}

TEST_F(Caching, ReadsNoStateThatAnItemDoesNotList) {
    rebuildAndFill();
    const Element element = file.itemElement("New");
    fake.accessibility.setAttribute(element, "AXEnabled", false);
    fake.accessibility.unlistAttribute(element, "AXEnabled");
    EXPECT_TRUE(opened("File").itemWithTitle("New")->isEnabled());
}

TEST_F(Caching, ProbesNeitherForTheRootNorForAMenuOfOurOwn) {
    rebuildAndFill();
    // Cached are menus of these titles.
    editor.menu("Fennick").item("Cached");
    reader->update();
    work->runAll();
    EXPECT_TRUE(reader->cacheExistsForMenu(root()));
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Fennick"));
}

TEST_F(Caching, LeavesAMenuOfOurOwnAloneAlsoWhenOneOfItsTitleIsCached) {
    editor.menu("CocoaMenu").item("Cached");
    rebuildAndFill();
    Menu own(AppAccessibility::cocoaMenuTitle());
    own.setDelegate(reader.get());
    own.addItem(std::make_shared<MenuItem>("Ours", "", ""));
    EXPECT_TRUE(reader->cacheExistsForMenu(own));
    fake.accessibility.clearCalls();
    fake.menuPresenter.open(own);
    EXPECT_THAT(titlesOf(own), ElementsAre("Ours"));
    EXPECT_EQ(fake.accessibility.callCount(), 0U);
}

TEST_F(Caching, LooksAtTheRealMenuWhenTheOldItemsAreGone) {
    rebuildAndFill();
    Menu& menu = opened("File");
    EXPECT_EQ(menu.numberOfItems(), 3U);
    std::optional<std::size_t> itemsAtTheLook;
    fake.accessibility.beforeCall(0, [&] { itemsAtTheLook = menu.numberOfItems(); });
    opened("File");
    EXPECT_EQ(itemsAtTheLook, 0U);
}

TEST_F(Caching, OpensAMenuEmptyWhenTheItemOfItsTitleIsGoneFromTheMirror) {
    rebuildAndFill();
    // The probe goes by the menu's title, the look-up by the title of the item that it hangs in.
    root().itemWithTitle("File")->setTitle("Renamed");
    EXPECT_THAT(titlesOf(opened("Renamed")), IsEmpty());
}

TEST_F(Caching, DoesNotRunThePassesOfTheFinderTwiceNorTheServicesPass) {
    const FakeMenu services = editor.menu("Services").item("Hidden");
    rebuildAndFill();
    EXPECT_THAT(titlesOf(opened("Services")), ElementsAre("Hidden"));
}

TEST_F(Caching, ReadsInBatches) {
    fake.accessibility.clearCalls();
    reader->update();
    EXPECT_EQ(fake.accessibility.batchCount(), 1U);
    work->runAll();
    EXPECT_EQ(fake.accessibility.batchCount(), 2U);
    opened("File");
    EXPECT_EQ(fake.accessibility.batchCount(), 3U);
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), 0U);
    EXPECT_EQ(fake.accessibility.openBatches(), 0);
}

TEST_F(Caching, StartsNothingWithoutAnApplicationInFront) {
    fake.workspace.setActiveApplication(std::nullopt);
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("File"));
    EXPECT_EQ(work->waiting(), 0U);
    EXPECT_THAT(titlesOf(opened("File")), ElementsAre("New", "", "Wrap"));
}

TEST_F(Caching, KeepsAMenuUnderTheNameThatWasInFrontWhenTheFillingWasStarted) {
    const FakeApplication viewer = fake.addApplication("Viewer");
    reader->update();
    const Menu& menu = *root().itemWithTitle("File")->submenu();
    fake.activate(viewer);
    work->runAll();
    EXPECT_FALSE(reader->cacheExistsForMenu(menu));
    fake.activate(editor);
    EXPECT_TRUE(reader->cacheExistsForMenu(menu));
}

TEST_F(Caching, HandsBothOptionsToTheFilling) {
    file.item("Close", {.commandCharacter = "W"});
    file.item("Close All", {.commandCharacter = "W", .primary = file.itemElement("Close")});
    for (const bool fold : {false, true}) {
        for (const bool keys : {false, true}) {
            reader->setFoldAlternateItems(fold);
            reader->setKeyEquivalents(keys);
            rebuildAndFill();
            const auto item = opened("File").itemWithTitle("Close All");
            EXPECT_EQ(item->isAlternate(), fold);
            EXPECT_EQ(item->keyEquivalent(), keys ? "w" : "");
        }
    }
}

} // namespace
} // namespace tarragon
