#include "ReaderTest.h"

#include "mirror/ProxyMenuItem.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Filling : public ReaderTest {
protected:
    Filling() { reader->update(); }
};

TEST_F(Filling, ReadsTheRealItemsWhenTheMenuOpens) {
    EXPECT_THAT(open("File"), ElementsAre("New", "", "Close"));
    EXPECT_TRUE(itemAt("File", "")->isSeparatorItem());
    EXPECT_THAT(open("Edit"), ElementsAre("Cut", "Copy", "Paste"));
}

TEST_F(Filling, ShowsFreshItemsEveryTime) {
    open("Edit");
    edit.remove("Copy");
    edit.item("Undo");
    EXPECT_THAT(open("Edit"), ElementsAre("Cut", "Paste", "Undo"));
}

TEST_F(Filling, FillsDeeperMenusWhenTheyOpen) {
    edit.submenu("Find").item("Next").submenu("Elsewhere").item("Everywhere");
    open("Edit");
    const auto find = itemAt("Edit", "Find");
    ASSERT_TRUE(find->hasSubmenu());
    EXPECT_EQ(find->submenu()->numberOfItems(), 0U);
    fake.menuPresenter.open(*find->submenu());
    EXPECT_THAT(titlesOf(*find->submenu()), ElementsAre("Next", "Elsewhere"));
    const auto elsewhere = find->submenu()->itemWithTitle("Elsewhere");
    fake.menuPresenter.open(*elsewhere->submenu());
    EXPECT_THAT(titlesOf(*elsewhere->submenu()), ElementsAre("Everywhere"));
}

TEST_F(Filling, FillsTheSubmenuOfACopiedItem) {
    Menu bar("Bar");
    bar.addItem(root().itemWithTitle("Edit")->copy());
    fake.menuPresenter.open(*bar.itemAtIndex(0)->submenu());
    EXPECT_THAT(titlesOf(*bar.itemAtIndex(0)->submenu()), ElementsAre("Cut", "Copy", "Paste"));
    EXPECT_EQ(root().itemWithTitle("Edit")->submenu()->numberOfItems(), 0U);
}

TEST_F(Filling, EmptiesAMenuThatHangsNowhere) {
    Menu stray("Stray");
    stray.setDelegate(reader.get());
    stray.addItem(MenuItem::separatorItem());
    fake.menuPresenter.open(stray);
    EXPECT_EQ(stray.numberOfItems(), 0U);
}

TEST_F(Filling, LeavesTheMenuEmptyWhenTheRealOneIsGone) {
    open("Edit");
    fake.quit(mail);
    EXPECT_THAT(open("Edit"), IsEmpty());
}

TEST_F(Filling, RemovesRepeatedNeighbours) {
    edit.item("Paste").separator().separator().item("Delete");
    EXPECT_THAT(open("Edit"), ElementsAre("Cut", "Copy", "Paste", "", "Delete"));
}

TEST_F(Filling, PressesTheRealItemThatIsChosen) {
    open("Edit");
    EXPECT_TRUE(fake.menuPresenter.choose(*itemAt("Edit", "Copy")));
    ASSERT_EQ(fake.accessibility.performedActions().size(), 1U);
    EXPECT_EQ(fake.accessibility.performedActions()[0], std::pair(edit.itemElement("Copy"), std::string("AXPress")));
    EXPECT_THAT(reader->recentSelectionsList(), IsEmpty());
}

TEST_F(Filling, HandsBothOptionsToTheConversion) {
    file.item("Close All", {.commandCharacter = "W", .primary = file.itemElement("Close")});
    for (const bool fold : {false, true}) {
        for (const bool keys : {false, true}) {
            reader->setFoldAlternateItems(fold);
            reader->setKeyEquivalents(keys);
            open("File");
            EXPECT_EQ(itemAt("File", "Close All")->isAlternate(), fold);
            EXPECT_EQ(itemAt("File", "Close All")->keyEquivalent(), keys ? "w" : "");
        }
    }
}

TEST_F(Filling, ReadsShortcutsByBothTables) {
    file.item("Eject", {.commandModifiers = 2, .commandGlyph = 140});
    reader->setKeyEquivalents(true);
    open("File");
    EXPECT_EQ(itemAt("File", "Eject")->keyEquivalent(), "\u23CF");
    EXPECT_EQ(itemAt("File", "Eject")->keyEquivalentModifierMask(), 0x180000U);
}

TEST_F(Filling, AsksTheSizeOfServicesDirectly) {
    const FakeMenu services = mail.menu("Services").item("Shown", {.size = Size{10, 10}});
    fake.accessibility.unlistAttribute(services.itemElement("Shown"), "AXSize");
    reader->update();
    EXPECT_THAT(open("Services"), ElementsAre("Shown"));
}

TEST_F(Filling, ReadsInOneBatch) {
    fake.accessibility.clearCalls();
    open("Edit");
    EXPECT_EQ(fake.accessibility.batchCount(), 1U);
    EXPECT_EQ(fake.accessibility.openBatches(), 0);
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), 0U);
}

TEST_F(Filling, LeavesAMenuWithTheVeryTitleCocoaMenuAlone) {
    const auto own = std::make_shared<Menu>(AppAccessibility::cocoaMenuTitle());
    const auto equal = std::make_shared<Menu>("CocoaMenu");
    for (const auto& menu : {own, equal}) {
        menu->setDelegate(reader.get());
        menu->addItem(std::make_shared<MenuItem>("A", "", ""));
        menu->addItem(std::make_shared<MenuItem>("B", "", ""));
        fake.menuPresenter.open(*menu);
    }
    EXPECT_THAT(titlesOf(*own), ElementsAre("A", "B"));
    EXPECT_THAT(titlesOf(*equal), IsEmpty());
}

TEST_F(Filling, RemovesRepeatsOfEveryMenuThatOpensInTheFinder) {
    const auto own = std::make_shared<Menu>(AppAccessibility::cocoaMenuTitle());
    for (const char* title : {"A", "B", "B"})
        own->addItem(std::make_shared<MenuItem>(title, "", ""));
    own->setDelegate(reader.get());
    fake.menuPresenter.open(*own);
    EXPECT_THAT(titlesOf(*own), ElementsAre("A", "B", "B"));

    const FakeApplication finder = fake.addApplication("Finder");
    for (const char* title : {"Finder", "Go", "Go"})
        finder.menu(title);
    fake.activate(finder);
    fake.menuPresenter.open(*own);
    EXPECT_THAT(titlesOf(*own), ElementsAre("A", "B"));
    reader->update();
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("Finder", "Go"));
}

TEST_F(Filling, KnowsTheFinderByItsVeryName) {
    const auto own = std::make_shared<Menu>(AppAccessibility::cocoaMenuTitle());
    for (const char* title : {"A", "B", "B"})
        own->addItem(std::make_shared<MenuItem>(title, "", ""));
    own->setDelegate(reader.get());
    for (const char* name : {"Finder 2", "finder"}) {
        fake.activate(fake.addApplication(name));
        fake.menuPresenter.open(*own);
        EXPECT_THAT(titlesOf(*own), ElementsAre("A", "B", "B")) << name;
    }
}

TEST_F(Filling, AppendsTheMenuOfOurOwnBeforeTheRepeatsOfTheFinderGo) {
    const FakeApplication finder = fake.addApplication("Finder");
    for (const char* title : {"Finder", "Go"})
        finder.menu(title);
    fake.activate(finder);
    reader->update();
    root().addItem(MenuItem::separatorItem());
    const auto own = std::make_shared<Menu>("Tarragon");
    reader->setAuxiliaryMenu(own);
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("Finder", "Go", "", "Tarragon"));
}

TEST_F(Filling, DropsRepeatsOfTheFinderBeforeServicesWithoutASize) {
    const FakeApplication finder = fake.addApplication("Finder");
    FakeMenu services = finder.menu("Services").item("A").item("A").item("Hidden");
    for (int repeat = 0; repeat < 3; ++repeat)
        services.item("B", {.size = Size{10, 10}});
    fake.activate(finder);
    reader->update();
    // The other way round, the first two of the three would come first, and the pass end between them.
    EXPECT_THAT(open("Services"), ElementsAre("B"));
}

TEST_F(Filling, KeepsTheRepeatsOfAWindowMenuAlsoInTheFinder) {
    const FakeApplication finder = fake.addApplication("Finder");
    FakeMenu window = finder.menu("Window");
    for (const char* title : {"X", "A", "A"})
        window.item(title);
    fake.activate(finder);
    reader->update();
    EXPECT_THAT(open("Window"), ElementsAre("X", "A", "A"));
}

TEST_F(Filling, DropsTheServicesWithoutASizeThatComeFirst) {
    mail.menu("Services")
        .item("Hidden 1")
        .item("Hidden 2")
        .item("Shown", {.size = Size{10, 10}})
        .item("Kept behind it");
    reader->update();
    EXPECT_THAT(open("Services"), ElementsAre("Shown", "Kept behind it"));
}

TEST_F(Filling, KeepsItemsWithoutASizeInOtherMenus) {
    mail.menu("Service").item("Hidden");
    reader->update();
    EXPECT_THAT(open("Service"), ElementsAre("Hidden"));
}

TEST_F(Filling, KnowsTheServicesByTheirVeryTitle) {
    for (const char* title : {"Services 2", "services"})
        mail.menu(title).item("Hidden");
    reader->update();
    EXPECT_THAT(open("Services 2"), ElementsAre("Hidden"));
    EXPECT_THAT(open("services"), ElementsAre("Hidden"));
}

TEST_F(Filling, RemovesTheAppleItemFromTheRootUnlessItIsShown) {
    root().insertItem(std::make_shared<MenuItem>("Apple", "", ""), 0);
    reader->setShowAppleMenu(true);
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("Apple", "File", "Edit"));
    reader->setShowAppleMenu(false);
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
}

class Auxiliary : public Filling {
protected:
    std::shared_ptr<Menu> own = std::make_shared<Menu>("Tarragon");
};

TEST_F(Auxiliary, IsAppendedBehindASeparatorWhenTheRootOpens) {
    reader->setAuxiliaryMenu(own);
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit", "", "Tarragon"));
    EXPECT_TRUE(root().itemAtIndex(2)->isSeparatorItem());
    EXPECT_EQ(root().itemAtIndex(3)->submenu(), own);
    EXPECT_EQ(root().itemAtIndex(3)->action(), "");
}

TEST_F(Auxiliary, IsReplacedWhenTheRootOpensAgain) {
    reader->setAuxiliaryMenu(own);
    fake.menuPresenter.open(root());
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit", "", "Tarragon"));
}

TEST_F(Auxiliary, IsAppendedAfreshAfterARebuild) {
    reader->setAuxiliaryMenu(own);
    fake.menuPresenter.open(root());
    reader->update();
    EXPECT_EQ(own->supermenu(), nullptr);
    reader->appendAuxiliaryMenuTo(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit", "", "Tarragon"));
}

TEST_F(Auxiliary, MovesFromAnotherMenuAndTakesTheLastItemOfTheNewOneAway) {
    Menu other("Other");
    reader->setAuxiliaryMenu(own);
    reader->appendAuxiliaryMenuTo(other);
    EXPECT_THAT(titlesOf(other), ElementsAre("", "Tarragon"));
    reader->appendAuxiliaryMenuTo(root());
    EXPECT_THAT(titlesOf(other), ElementsAre(""));
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "", "Tarragon"));
}

TEST_F(Auxiliary, LeavesByTheTitleOfOurOwnAndNotByItsMenu) {
    Menu other("Other");
    other.addItem(std::make_shared<MenuItem>("Tarragon", "", ""));
    reader->setAuxiliaryMenu(own);
    reader->appendAuxiliaryMenuTo(other);
    EXPECT_THAT(titlesOf(other), ElementsAre("Tarragon", "", "Tarragon"));
    reader->appendAuxiliaryMenuTo(root());
    EXPECT_THAT(titlesOf(other), ElementsAre("", "Tarragon"));
    EXPECT_EQ(other.itemAtIndex(1)->submenu(), nullptr);
}

TEST_F(Auxiliary, IsLeftOutWhenThereIsNone) {
    fake.menuPresenter.open(root());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
}

class OwnerLog : public MenuReaderOwner {
public:
    void menuHasClosed() override { ++closings; }
    void resetLevels() override { ++resets; }
    int closings = 0;
    int resets = 0;
};

TEST_F(Filling, TellsTheOwnerOfClosedMenusAndChosenItems) {
    OwnerLog owner;
    reader->setAppController(&owner);
    fake.menuPresenter.open(root());
    fake.menuPresenter.openSubmenu(root(), "Edit");
    EXPECT_EQ(owner.resets, 0);
    fake.menuPresenter.choose(*itemAt("Edit", "Copy"));
    EXPECT_EQ(owner.resets, 2);
    EXPECT_EQ(owner.closings, 1);
    reader->setAppController(nullptr);
    fake.menuPresenter.open(root());
    fake.menuPresenter.closeMenus();
    reader->menuHasClosed();
    EXPECT_EQ(owner.resets, 2);
}

TEST_F(Filling, AnswersForEveryKeyEquivalentAndIgnoresOpeningAndHighlighting) {
    EXPECT_TRUE(root().delegate()->menuHasKeyEquivalent(root()));
    open("Edit");
    Menu& menu = *root().itemWithTitle("Edit")->submenu();
    fake.accessibility.clearCalls();
    reader->menuWillOpen(menu);
    reader->menuWillHighlightItem(menu, menu.itemAtIndex(0).get());
    EXPECT_TRUE(fake.accessibility.calls().empty());
    EXPECT_THAT(titlesOf(menu), ElementsAre("Cut", "Copy", "Paste"));
}

TEST_F(Filling, DoesNothingUponANotificationOfAChosenItem) {
    fake.accessibility.clearCalls();
    const Notification notification{
        .name = "NSMenuDidSendActionNotification", .object = nullptr, .userInformation = {}};
    fake.notificationCenter.postNotification(notification);
    EXPECT_TRUE(fake.accessibility.calls().empty());
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
    reader.reset();
    fake.notificationCenter.postNotification(notification);
}

} // namespace
} // namespace tarragon
