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

// Everything that is asked while the mirror is rebuilt, filled and opened, of a desktop that gives cause for each line.
std::vector<FakeCall> questionsOfAMirrorInTrouble(int& questionsForTheName) {
    FakePlatform fake;
    const FakeApplication editor = fake.addApplication("Editor");
    editor.menu("Document").item("A").item("A").item("B");
    editor.menu("Empty");
    const auto work = std::make_shared<FakeFillingThreads::Work>();
    fake.activate(editor);
    const auto reader =
        AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<FakeFillingThreads>(work));
    const auto updateAndOpen = [&] {
        reader->update();
        for (const auto& item : reader->menu()->items())
            fake.menuPresenter.openSubmenu(*reader->menu(), item->title());
        fake.menuPresenter.closeMenus();
    };
    updateAndOpen();
    work->runAll();
    updateAndOpen();
    reader->setShowApplicationMenu(false);
    updateAndOpen();
    reader->setPositionOfFocusedWindow(1, 2);
    for (const FakeApplication& application : {fake.addApplication("Bare"), editor}) {
        fake.activate(application);
        fake.accessibility.setAttribute(editor.menuBar(), "AXChildren", std::vector<Element>());
        updateAndOpen();
    }
    fake.deactivate();
    updateAndOpen();
    questionsForTheName = fake.workspace.activeApplicationQuestions();
    return fake.accessibility.calls();
}

TEST(LogOfTheMirror, AsksNothingThatIsNotAskedWithoutIt) {
    int withoutLog = 0;
    const std::vector<FakeCall> unread = questionsOfAMirrorInTrouble(withoutLog);
    for (const LogCategory category : {LogCategory::Menus, LogCategory::Front}) {
        LogLines log{category};
        int withLog = 0;
        const std::vector<FakeCall> read = questionsOfAMirrorInTrouble(withLog);
        EXPECT_THAT(log.take(), testing::Not(IsEmpty()));
        EXPECT_EQ(read.size(), unread.size());
        EXPECT_EQ(withLog, withoutLog);
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
