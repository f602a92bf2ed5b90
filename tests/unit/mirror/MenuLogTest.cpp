#include "LogLines.h"
#include "ReaderTest.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuLog : public ReaderTest {
protected:
    MenuLog() { log.take(); }
    std::vector<std::string> linesOfUpdate() {
        reader->update();
        return log.take();
    }
    std::vector<std::string> linesOfOpening(const std::string& title) {
        open(title);
        return log.take();
    }

    LogLines log{LogCategory::Menus};
};

TEST_F(MenuLog, SaysNothingOfMenusWithItems) {
    EXPECT_THAT(linesOfUpdate(), IsEmpty());
    EXPECT_THAT(linesOfOpening("Edit"), IsEmpty());
}

TEST_F(MenuLog, SaysThatNoApplicationHasTheFocus) {
    fake.deactivate();
    EXPECT_THAT(linesOfUpdate(), ElementsAre("the mirror is empty: no application has the focus"));
}

TEST_F(MenuLog, SaysThatTheApplicationHasNoMenuBar) {
    fake.activate(fake.addApplication("Bare"));
    EXPECT_THAT(linesOfUpdate(), ElementsAre("the mirror is empty: Bare has no menu bar"));
}

TEST_F(MenuLog, SaysWhyTheMenuBarGivesNoItem) {
    fake.accessibility.setAttribute(mail.menuBar(), "AXChildren", std::vector<Element>());
    EXPECT_THAT(
        linesOfUpdate(), ElementsAre("the mirror is empty, given the menu bar: it has no children to make items of"));
    fake.accessibility.removeAttribute(mail.menuBar(), "AXChildren");
    EXPECT_THAT(linesOfUpdate(), ElementsAre("the mirror is empty, given the menu bar: its children cannot be read"));
}

TEST_F(MenuLog, SaysThatTheSettingsLeaveNothing) {
    reader->setShowApplicationMenu(false);
    EXPECT_THAT(linesOfUpdate(), ElementsAre("the mirror is empty: the settings leave no menu that has a title"));
}

TEST_F(MenuLog, SaysWhyAMenuOpensEmpty) {
    reader->update();
    edit.clear();
    EXPECT_THAT(linesOfOpening("Edit"), ElementsAre("Edit opens empty: it has no children to make items of"));
    for (int index = 0; index < 2; ++index)
        fake.accessibility.addChild(edit.element(), fake.accessibility.addElement(1, "AXTextField"));
    EXPECT_THAT(linesOfOpening("Edit"),
        ElementsAre("Edit opens empty: none of its 2 children is of a kind that makes an item"));
    fake.accessibility.destroy(edit.item());
    EXPECT_THAT(linesOfOpening("Edit"), ElementsAre("Edit opens empty: its children cannot be read"));
}

TEST_F(MenuLog, SaysThatThePassOverRepeatedItemsStoppedEarly) {
    file.clear();
    file.item("A").item("A").item("B").item("B");
    reader->update();
    EXPECT_THAT(linesOfOpening("File"),
        ElementsAre("repeated items of File: stopped at the front of the menu, those behind it stay"));
    file.clear();
    file.item("A").item("B").item("B");
    EXPECT_THAT(linesOfOpening("File"), IsEmpty());
}

TEST_F(MenuLog, FollowsTheFillingsAndSaysWhenOneIsCachedNoMore) {
    const FakeApplication editor = fake.addApplication("Editor");
    const FakeMenu document = editor.menu("Document").item("New");
    const FakeMenu view = editor.menu("View").item("Zoom");
    fake.activate(editor);
    reader->update();
    fillings->runNext();
    EXPECT_THAT(log.take(), ElementsAre("filling of Document of Editor started", "filling of Document of Editor kept"));
    fake.accessibility.beforeCall(0, [this] { fillings->runNext(); });
    EXPECT_THAT(linesOfOpening("Document"),
        ElementsAre("filling of View of Editor started", "filling of View of Editor kept",
            "Document opens empty: it is not in the cache any more"));
}

TEST_F(MenuLog, SaysThatAMenuIsCachedWithoutItems) {
    const FakeApplication editor = fake.addApplication("Editor");
    const FakeMenu document = editor.menu("Document");
    fake.activate(editor);
    reader->update();
    fillings->runAll();
    log.take();
    EXPECT_THAT(linesOfOpening("Document"), ElementsAre("Document opens empty: it is cached without items"));
}

TEST_F(MenuLog, HearsOfItemsThatAreChosenFromWhateverSenderSinceTheReaderWasMade) {
    for (const void* sender : {static_cast<const void*>(nullptr), static_cast<const void*>(&root())}) {
        fake.notificationCenter.postNotification(
            {.name = "NSMenuDidSendActionNotification", .object = sender, .userInformation = {}});
        EXPECT_THAT(log.take(), ElementsAre("an item was chosen"));
    }
}

class FrontLog : public ReaderTest {
protected:
    LogLines log{LogCategory::Front};
};

TEST_F(FrontLog, SaysThatThereIsNoWindowToMoveOrResize) {
    reader->update();
    reader->setPositionOfFocusedWindow(1, 2);
    reader->setSizeOfFocusedWindow(3, 4);
    EXPECT_THAT(log.take(), ElementsAre("no focused window to move", "no focused window to resize"));
    mail.window();
    reader->setPositionOfFocusedWindow(1, 2);
    reader->setSizeOfFocusedWindow(3, 4);
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(FrontLog, SaysNothingOfQueriesThatAreAskedAllTheTime) {
    reader->update();
    reader->focusedWindowRole();
    reader->focusedWindowFrameCG();
    reader->isFocusedWindowMinimized();
    EXPECT_THAT(log.take(), IsEmpty());
}

} // namespace
} // namespace tarragon
