#include "ReaderTest.h"

#include "mirror/ProxyMenuItem.h"

#include <unistd.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Rebuild : public ReaderTest { };

TEST_F(Rebuild, NeedsTheAccessibilityInterfaceAndAFocusedApplication) {
    FakePlatform bare;
    EXPECT_EQ(AppAccessibility::initWithFocusedApp(bare.platform()), nullptr);
    bare.activate(bare.addApplication("Mail"));
    EXPECT_NE(AppAccessibility::initWithFocusedApp(bare.platform()), nullptr);
    bare.accessibility.setTrusted(false);
    EXPECT_EQ(AppAccessibility::initWithFocusedApp(bare.platform()), nullptr);
}

TEST_F(Rebuild, StartsEmptyWithTheApplicationsMenusOn) {
    EXPECT_EQ(root().title(), "Fennick");
    EXPECT_EQ(root().delegate(), reader.get());
    EXPECT_THAT(titlesOf(root()), IsEmpty());
    EXPECT_TRUE(reader->showApplicationMenu());
    EXPECT_FALSE(reader->showAppleMenu());
    EXPECT_FALSE(reader->showRecentSelections());
    EXPECT_FALSE(reader->foldAlternateItems());
    EXPECT_FALSE(reader->keyEquivalents());
    EXPECT_EQ(reader->auxiliaryMenu(), nullptr);
    EXPECT_EQ(reader->currentAppName(), std::nullopt);
    EXPECT_THAT(reader->recentSelectionsList(), IsEmpty());
}

TEST_F(Rebuild, MirrorsTheTopLevelTitlesWithEmptySubmenus) {
    reader->update();
    ASSERT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
    for (const auto& item : root().items()) {
        ASSERT_TRUE(item->hasSubmenu());
        EXPECT_EQ(item->submenu()->numberOfItems(), 0U);
        EXPECT_EQ(item->submenu()->delegate(), reader.get());
    }
}

TEST_F(Rebuild, NotesTheNameOfTheFrontApplication) {
    reader->update();
    EXPECT_EQ(reader->currentAppName(), "Mail");
    fake.deactivate();
    reader->update();
    EXPECT_EQ(reader->currentAppName(), std::nullopt);
}

TEST_F(Rebuild, NotesTheNameBeforeItReadsTheMenus) {
    const FakeApplication editor = fake.addApplication("Editor");
    fake.accessibility.beforeCall(0, [&] { fake.activate(editor); });
    reader->update();
    EXPECT_EQ(reader->currentAppName(), "Mail");
    EXPECT_EQ(reader->focusedAppName(), "Editor");
}

TEST_F(Rebuild, ShowsTheAppleMenuUnderItsMark) {
    reader->setShowAppleMenu(true);
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("\uF8FF", "File", "Edit"));
    EXPECT_EQ(root().itemAtIndex(0)->submenu()->title(), "Apple");
}

TEST_F(Rebuild, KeepsTheAppleMenuAloneWithoutTheApplicationsMenus) {
    reader->setShowApplicationMenu(false);
    reader->setShowAppleMenu(true);
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("\uF8FF"));
}

TEST_F(Rebuild, LeavesNothingWithBothKindsOff) {
    reader->setShowApplicationMenu(false);
    reader->update();
    EXPECT_THAT(titlesOf(root()), IsEmpty());
}

TEST_F(Rebuild, KeepsTheSameRootMenuAndDropsTheFormerItems) {
    const Menu* before = reader->menu().get();
    reader->update();
    const std::weak_ptr<MenuItem> former = root().itemAtIndex(0);
    const std::weak_ptr<MenuTarget> proxy = root().itemAtIndex(0)->target();
    reader->update();
    EXPECT_EQ(reader->menu().get(), before);
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
    EXPECT_TRUE(former.expired());
    EXPECT_TRUE(proxy.expired());
}

TEST_F(Rebuild, FollowsTheFocus) {
    const FakeApplication editor = fake.addApplication("Editor");
    editor.menu("Document");
    reader->update();
    fake.activate(editor);
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("Document"));
    EXPECT_EQ(reader->currentAppName(), "Editor");
}

TEST_F(Rebuild, LeavesTheRootEmptyWithoutAFocusedApplication) {
    reader->update();
    fake.deactivate();
    reader->update();
    EXPECT_THAT(titlesOf(root()), IsEmpty());
}

TEST_F(Rebuild, LeavesTheRootEmptyWithoutAMenuBar) {
    reader->update();
    fake.activate(fake.addApplication("Bare"));
    reader->update();
    EXPECT_THAT(titlesOf(root()), IsEmpty());
}

TEST_F(Rebuild, DropsTopLevelItemsWithoutATitle) {
    const FakeMenu untitled = mail.menu("");
    fake.accessibility.removeAttribute(untitled.item(), "AXTitle");
    reader->update();
    EXPECT_THAT(titlesOf(root()), ElementsAre("File", "Edit"));
}

TEST_F(Rebuild, AttachesBothMenusOfATitleToTheFirstItem) {
    mail.menu("File").item("Other");
    reader->update();
    ASSERT_THAT(titlesOf(root()), ElementsAre("File", "Edit", "File"));
    EXPECT_TRUE(root().itemAtIndex(0)->hasSubmenu());
    EXPECT_FALSE(root().itemAtIndex(2)->hasSubmenu());
}

TEST_F(Rebuild, ReadsInOneBatch) {
    fake.accessibility.clearCalls();
    reader->update();
    EXPECT_EQ(fake.accessibility.batchCount(), 1U);
    EXPECT_EQ(fake.accessibility.openBatches(), 0);
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), 0U);
}

TEST_F(Rebuild, ReadsNothingBelowTheTopLevelTitles) {
    fake.accessibility.clearCalls();
    reader->update();
    for (const FakeCall& call : fake.accessibility.calls())
        EXPECT_FALSE(call.element == file.itemElement("New"));
}

TEST_F(Rebuild, TakesTheReaderOutOfTheRootMenuWhenItGoes) {
    reader->update();
    const std::shared_ptr<Menu> kept = reader->menu();
    reader.reset();
    EXPECT_EQ(kept->delegate(), nullptr);
    EXPECT_EQ(kept->numberOfItems(), 0U);
}

class Questions : public ReaderTest { };

TEST_F(Questions, FindTheElementOfTheFocusedApplication) {
    EXPECT_EQ(reader->elementOfAppWithFocus(), mail.element());
    fake.deactivate();
    EXPECT_FALSE(reader->elementOfAppWithFocus());
}

TEST_F(Questions, AskForTheFocusedApplicationDirectly) {
    fake.accessibility.unlistAttribute(fake.accessibility.systemWideElement(), "AXFocusedApplication");
    EXPECT_EQ(reader->elementOfAppWithFocus(), mail.element());
}

TEST_F(Questions, FindTheMenuBarWhereTheApplicationListsIt) {
    fake.accessibility.unlistAttribute(mail.element(), "AXMenuBar");
    EXPECT_FALSE(reader->getAXMenuBarFor(mail.element()));
}

TEST_F(Questions, FindTheMenuBar) {
    EXPECT_EQ(reader->getAXMenuBarFor(mail.element()), mail.menuBar());
    EXPECT_FALSE(reader->getAXMenuBarFor(file.item()));
}

TEST_F(Questions, ListTheItemsOfAMenu) {
    EXPECT_EQ(reader->menuItemsIn(file.item()), (std::vector<Element>{file.element()}));
    EXPECT_EQ(reader->menuItemsIn(Element()), std::nullopt);
}

TEST_F(Questions, TellWhetherTheItemsAreCleared) {
    EXPECT_FALSE(reader->menuItemsCleared(file.element()));
    file.clear();
    EXPECT_FALSE(reader->menuItemsCleared(file.element()));
    fake.accessibility.removeAttribute(file.element(), "AXChildren");
    EXPECT_TRUE(reader->menuItemsCleared(file.element()));
}

TEST_F(Questions, TellWhetherNoItemSaysIfItIsEnabled) {
    EXPECT_FALSE(reader->menuItemsAllDisabled(edit.element()));
    for (const char* title : {"Cut", "Copy"})
        fake.accessibility.removeAttribute(edit.itemElement(title), "AXEnabled");
    // It is enough that one item answers, whatever it says.
    fake.accessibility.setAttribute(edit.itemElement("Paste"), "AXEnabled", false);
    EXPECT_FALSE(reader->menuItemsAllDisabled(edit.element()));
    fake.accessibility.removeAttribute(edit.itemElement("Paste"), "AXEnabled");
    EXPECT_TRUE(reader->menuItemsAllDisabled(edit.element()));
    edit.clear();
    EXPECT_TRUE(reader->menuItemsAllDisabled(edit.element()));
    fake.accessibility.removeAttribute(edit.element(), "AXChildren");
    EXPECT_FALSE(reader->menuItemsAllDisabled(edit.element()));
}

TEST_F(Questions, FindTheElementOfThisProcess) {
    EXPECT_FALSE(reader->getAXElementOfOurProcess());
    const Element own = fake.accessibility.addApplicationElement(getpid());
    EXPECT_EQ(reader->getAXElementOfOurProcess(), own);
}

} // namespace
} // namespace tarragon
