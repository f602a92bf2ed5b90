#include "LinuxAccessibilityFixture.h"

#include "platform/linux/atspi/LinuxElements.h"

namespace tarragon {
namespace {

class ApplicationElementsTest : public LinuxAccessibilityTest {
protected:
    Value valueOf(std::string_view name) { return accessibility.copyAttributeValue(element, name); }

    Element element = elementOfApplication(::getpid(), 0);
};

TEST_F(ApplicationElementsTest, HaveTheActiveWindowFocused) {
    addWindow(1, "One");
    addWindow(2, "Two");
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
    windows.activate(1);
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(1))});
}

TEST_F(ApplicationElementsTest, HaveTheirTopmostWindowFocusedWhileAnotherApplicationIsInFront) {
    addWindow(1, "One");
    addWindow(2, "Two");
    windows.add(3, "Other", 1);
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
    windows.at(2).hidden = true;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(1))});
    windows.at(1).hidden = true;
    EXPECT_TRUE(isNil(valueOf(attribute::FocusedWindow)));
}

TEST_F(ApplicationElementsTest, HaveTheTopmostWindowOfTheWorkspaceThatIsShownFocused) {
    addWindow(1, "One").workspace = 0;
    addWindow(2, "Two").workspace = 0;
    addWindow(3, "Three").workspace = 1;
    addMenuBar(1);
    addMenuBar(3);
    windows.add(4, "Other", 1);
    windows.workspace = 0;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
    windows.at(2).hidden = true;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(1))});
    const Element bar = elementIn(valueOf(attribute::MenuBar));
    ASSERT_TRUE(bar);
    EXPECT_EQ(AtspiElement::of(bar)->reference.path, barPath(1));
    windows.workspace = 1;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(3))});
    // One that is on every workspace is on this one.
    windows.at(3).workspace.reset();
    windows.workspace = 0;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(3))});
}

TEST_F(ApplicationElementsTest, HaveTheActiveWindowFocusedWhateverWorkspaceItIsSaidToBeOn) {
    addWindow(1, "One").workspace = 1;
    addWindow(2, "Two").workspace = 0;
    windows.activate(2);
    windows.workspace = 1;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
}

TEST_F(ApplicationElementsTest, AnswerForAWindowOfAnotherWorkspaceWhereTheyHaveNone) {
    addWindow(1, "One").workspace = 1;
    addWindow(2, "Two").workspace = 2;
    addMenuBar(2);
    windows.at(2).className = "Second";
    windows.add(3, "Other", 1);
    windows.workspace = 0;
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
    EXPECT_EQ(stringIn(valueOf(attribute::Title)), "Second");
    const Element bar = elementIn(valueOf(attribute::MenuBar));
    ASSERT_TRUE(bar);
    EXPECT_EQ(AtspiElement::of(bar)->reference.path, barPath(2));
}

TEST_F(ApplicationElementsTest, AreHiddenWhileNoneOfTheirWindowsIsSeenOnTheWorkspaceThatIsShown) {
    addWindow(1, "One").workspace = 0;
    addWindow(2, "Two").workspace = 1;
    windows.add(3, "Other", 1);
    windows.workspace = 2;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{true});
    windows.workspace = 1;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    windows.at(2).hidden = true;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{true});
    windows.workspace = 0;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    // A window manager without workspaces tells of none.
    windows.workspace.reset();
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    windows.workspace = 2;
    windows.at(1).workspace.reset();
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
}

TEST_F(ApplicationElementsTest, OfAWindowThatTellsNoProcessAreHiddenWithItsWorkspace) {
    windows.add(1, "One", 0).workspace = 1;
    const Element stranger = elementOfApplication(0, 1);
    const auto isHidden = [&] { return accessibility.copyAttributeValue(stranger, attribute::Hidden); };
    windows.workspace = 1;
    EXPECT_EQ(isHidden(), Value{false});
    windows.workspace = 0;
    EXPECT_EQ(isHidden(), Value{true});
}

TEST_F(ApplicationElementsTest, ListTheirWindowsTopmostFirstAndTheMenuBarAfterThem) {
    addWindow(1, "One");
    addMenuBar(1);
    windows.add(2, "Other", 1);
    addWindow(3, "Three");
    const std::vector<Element> expected{elementOfWindow(windows.at(3)), elementOfWindow(windows.at(1))};
    EXPECT_EQ(elementsIn(valueOf(attribute::Windows)), expected);
    const auto children = elementsIn(valueOf(attribute::Children));
    ASSERT_EQ(children.size(), 3U);
    EXPECT_EQ(children[0], expected[0]);
    EXPECT_EQ(AtspiElement::of(children[2])->reference.path, barPath(1));
}

TEST_F(ApplicationElementsTest, CountTheirWindowsWithoutAskingAnybody) {
    addWindow(1, "One");
    addMenuBar(1);
    addWindow(2, "Two");
    const std::uint64_t sent = messagesSent();
    EXPECT_EQ(accessibility.attributeValueCount(element, attribute::Windows), 2);
    EXPECT_FALSE(accessibility.attributeValueCount(element, attribute::MenuBar));
    EXPECT_FALSE(accessibility.attributeValueCount(element, attribute::Title));
    EXPECT_EQ(messagesSent(), sent);
}

TEST_F(ApplicationElementsTest, CountAsManyChildrenAsTheyHave) {
    addWindow(1, "One");
    EXPECT_EQ(accessibility.attributeValueCount(element, attribute::Children), 1);
    EXPECT_EQ(elementsIn(valueOf(attribute::Children)).size(), 1U);
    addWindow(2, "Two");
    addMenuBar(2);
    EXPECT_EQ(accessibility.attributeValueCount(element, attribute::Children), 3);
    EXPECT_EQ(elementsIn(valueOf(attribute::Children)).size(), 3U);
}

TEST_F(ApplicationElementsTest, AreHiddenWhenAllTheirWindowsAre) {
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    addWindow(1, "One").hidden = true;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{true});
    addWindow(2, "Two");
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    windows.at(2).hidden = true;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{true});
}

TEST_F(ApplicationElementsTest, AreCalledAfterTheirFocusedWindowAndWithoutWindowsAfterTheirProcess) {
    addWindow(1, "One").className = "First";
    addWindow(2, "Two").className = "Second";
    EXPECT_EQ(stringIn(valueOf(attribute::Title)), "Second");
    windows.at(2).hidden = true;
    EXPECT_EQ(stringIn(valueOf(attribute::Title)), "First");
    windows.at(1).hidden = true;
    EXPECT_EQ(stringIn(valueOf(attribute::Title)), "Second");
    windows.remove(1);
    windows.remove(2);
    EXPECT_EQ(stringIn(valueOf(attribute::Title)), "process " + std::to_string(ownProcess));
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(elementOfApplication(0, 1), attribute::Title)));
}

TEST_F(ApplicationElementsTest, OfAWindowThatTellsNoProcessAreThatWindow) {
    windows.add(1, "One", 0).className = "Stranger";
    windows.add(2, "Two", 0);
    const Element stranger = elementOfApplication(0, 1);
    EXPECT_EQ(elementsIn(accessibility.copyAttributeValue(stranger, attribute::Windows)),
        std::vector{elementOfWindow(windows.at(1))});
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(stranger, attribute::Title)), "Stranger");
    EXPECT_FALSE(accessibility.processIdentifier(stranger));
}

TEST_F(ApplicationElementsTest, HaveTheAttributesThatTheyName) {
    addWindow(1, "One");
    addMenuBar(1);
    const auto names = accessibility.attributeNames(element);
    ASSERT_TRUE(names);
    for (const std::string& name : *names) {
        EXPECT_TRUE(accessibility.hasAttribute(element, name)) << name;
        EXPECT_FALSE(isNil(valueOf(name))) << name;
    }
    EXPECT_FALSE(accessibility.hasAttribute(element, attribute::Position));
    EXPECT_TRUE(isNil(valueOf(attribute::Position)));
}

TEST_F(ApplicationElementsTest, HaveNothingToSetOrPerform) {
    addWindow(1, "One");
    EXPECT_FALSE(accessibility.isAttributeSettable(element, attribute::Hidden));
    EXPECT_FALSE(accessibility.setAttributeValue(element, attribute::Hidden, true));
    EXPECT_EQ(accessibility.actionNames(element), std::vector<std::string>{});
    EXPECT_FALSE(accessibility.actionDescription(element, action::Raise));
    EXPECT_FALSE(accessibility.performAction(element, action::Raise));
    EXPECT_TRUE(windows.raised.empty());
}

TEST_F(ApplicationElementsTest, AreRememberedByABatchAndReadAnewOutsideOne) {
    addWindow(1, "One");
    addWindow(2, "Two");
    {
        const ReadBatch batch(accessibility);
        EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
        windows.activate(1);
        EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(2))});
        EXPECT_EQ(stringIn(valueOf(attribute::Title)), windows.at(2).className);
        const int questions = windows.questions;
        valueOf(attribute::Title);
        EXPECT_EQ(windows.questions, questions);
        { const ReadBatch inner(accessibility); }
        valueOf(attribute::Title);
        EXPECT_EQ(windows.questions, questions);
    }
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(1))});
}

TEST_F(ApplicationElementsTest, AreLookedAtOnceInABatchThatReadsNothingAhead) {
    {
        const ReadBatch batch(accessibility, ReadBatchDepth::AsAsked);
        EXPECT_EQ(windows.openLooks, 1);
        {
            const ReadBatch inner(accessibility, ReadBatchDepth::OneLevel);
            const ReadBatch innermost(accessibility, ReadBatchDepth::AsAsked);
            EXPECT_EQ(windows.openLooks, 1);
        }
        EXPECT_EQ(windows.openLooks, 1);
    }
    EXPECT_EQ(windows.openLooks, 0);
    const ReadBatch batch(accessibility, ReadBatchDepth::OneLevel);
    const ReadBatch inner(accessibility, ReadBatchDepth::AsAsked);
    EXPECT_EQ(windows.openLooks, 0);
}

TEST_F(ApplicationElementsTest, AreNotAskedForAllTheirWindowsWhileOneIsSeen) {
    addWindow(1, "One");
    addWindow(2, "Two");
    windows.questions = 0;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{false});
    EXPECT_EQ(windows.questions, 2); // which one is active, and what it is like
}

TEST_F(ApplicationElementsTest, AreLookedForOnceInABatchWhileAnotherApplicationIsInFront) {
    addWindow(1, "One").workspace = 1;
    windows.add(2, "Other", 1);
    windows.workspace = 0;
    const ReadBatch batch(accessibility, ReadBatchDepth::AsAsked);
    EXPECT_EQ(valueOf(attribute::FocusedWindow), Value{elementOfWindow(windows.at(1))});
    windows.questions = 0;
    EXPECT_EQ(valueOf(attribute::Hidden), Value{true});
    EXPECT_EQ(windows.questions, 0);
}

TEST_F(ApplicationElementsTest, AndTheirWindowsTellTheSameUntilABatchEnds) {
    addWindow(1, "One");
    const Element window = elementOfWindow(windows.at(1));
    {
        const ReadBatch batch(accessibility);
        const Value before = valueOf(attribute::Windows);
        EXPECT_EQ(stringIn(accessibility.copyAttributeValue(window, attribute::Title)), "One");
        addWindow(2, "Two");
        windows.at(1).title = "Renamed";
        EXPECT_EQ(valueOf(attribute::Windows), before);
        EXPECT_EQ(stringIn(accessibility.copyAttributeValue(window, attribute::Title)), "One");
    }
    EXPECT_EQ(elementsIn(valueOf(attribute::Windows)).size(), 2U);
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(window, attribute::Title)), "Renamed");
}

TEST_F(ApplicationElementsTest, AreThoseOfProcessesWithAWindowOrOnTheBus) {
    EXPECT_TRUE(accessibility.applicationElement(ownProcess));
    constexpr std::int64_t otherProcess = 1;
    EXPECT_FALSE(accessibility.applicationElement(otherProcess));
    windows.add(1, "One", otherProcess);
    EXPECT_TRUE(accessibility.applicationElement(otherProcess));
    EXPECT_FALSE(accessibility.applicationElement(0));
    EXPECT_FALSE(accessibility.applicationElement(-1));
}

} // namespace
} // namespace tarragon
