#include "LinuxAccessibilityFixture.h"

#include "platform/linux/atspi/LinuxElements.h"

#include <utility>

namespace tarragon {
namespace {

class WindowElementsTest : public LinuxAccessibilityTest {
protected:
    Element elementOf(std::uint32_t window) { return elementOfWindow(windows.at(window)); }
    Value valueOf(const Element& element, std::string_view name) {
        return accessibility.copyAttributeValue(element, name);
    }
};

TEST_F(WindowElementsTest, TellWhatTheWindowSystemTells) {
    WindowDescription& window = addWindow(1, "One");
    window.fullScreen = true;
    window.hidden = true;
    const Element element = elementOf(1);
    EXPECT_EQ(valueOf(element, attribute::Role), Value{std::string(role::Window)});
    EXPECT_EQ(valueOf(element, attribute::Title), Value{std::string("One")});
    EXPECT_EQ(valueOf(element, attribute::Position), Value{window.frameCG.origin});
    EXPECT_EQ(valueOf(element, attribute::Size), Value{window.frameCG.size});
    EXPECT_EQ(valueOf(element, attribute::FullScreen), Value{true});
    EXPECT_EQ(valueOf(element, "AXMinimized"), Value{true});
    EXPECT_EQ(valueOf(element, attribute::Focused), Value{true});
    EXPECT_EQ(valueOf(element, attribute::Parent), Value{elementOfApplication(ownProcess, 1)});
    addWindow(2, "Two");
    EXPECT_EQ(valueOf(element, attribute::Focused), Value{false});
}

TEST_F(WindowElementsTest, AreCalledByTheirKind) {
    addWindow(1, "One");
    for (const auto& [kind, text] : {std::pair{WindowKind::Normal, "window"}, std::pair{WindowKind::Dialog, "dialog"},
             std::pair{WindowKind::Sheet, "sheet"}, std::pair{WindowKind::Floating, "floating window"},
             std::pair{WindowKind::Desktop, "AXWindow:AXUnknown"}}) {
        windows.at(1).kind = kind;
        EXPECT_EQ(stringIn(valueOf(elementOf(1), attribute::RoleDescription)), text);
    }
}

TEST_F(WindowElementsTest, WithAnEmptyTitleHaveATitleAllTheSame) {
    addWindow(1, "");
    EXPECT_EQ(valueOf(elementOf(1), attribute::Title), Value{std::string()});
}

TEST_F(WindowElementsTest, ThatAreGoneTellNothing) {
    addWindow(1, "One");
    const Element element = elementOf(1);
    windows.remove(1);
    const auto names = accessibility.attributeNames(element);
    ASSERT_TRUE(names);
    for (const std::string& name : *names)
        EXPECT_TRUE(isNil(valueOf(element, name))) << name;
    EXPECT_FALSE(accessibility.attributeValueCount(element, attribute::Children));
}

TEST_F(WindowElementsTest, HaveTheAttributesThatTheyName) {
    addWindow(1, "One");
    const Element element = elementOf(1);
    const auto names = accessibility.attributeNames(element);
    ASSERT_TRUE(names);
    for (const std::string& name : *names) {
        EXPECT_TRUE(accessibility.hasAttribute(element, name)) << name;
        EXPECT_FALSE(isNil(valueOf(element, name))) << name;
    }
    EXPECT_FALSE(accessibility.hasAttribute(element, attribute::TitleUIElement));
    EXPECT_TRUE(isNil(valueOf(element, attribute::TitleUIElement)));
}

TEST_F(WindowElementsTest, HoldWhatTheirFrameHolds) {
    addWindow(1, "One");
    addWindow(2, "Two");
    const Element element = elementOf(1);
    const auto children = elementsIn(valueOf(element, attribute::Children));
    ASSERT_EQ(children.size(), 1U);
    EXPECT_EQ(AtspiElement::of(children[0])->reference.path, framePath(1) + "/box");
    EXPECT_EQ(elementIn(valueOf(children[0], "AXWindow")), element);
}

TEST_F(WindowElementsTest, AreCountedWithoutFetchingWhatTheyHold) {
    addWindow(1, "One");
    application.change([&] { application.objects[framePath(1)].children.assign(7, framePath(1) + "/box"); });
    windows.add(2, "Not on the bus", 1);
    EXPECT_EQ(accessibility.attributeValueCount(elementOf(2), attribute::Children), 0);
    // Its frame is looked for once.
    EXPECT_EQ(accessibility.attributeValueCount(elementOf(1), attribute::Children), 7);
    const std::size_t lists = application.calls("GetChildren");
    EXPECT_EQ(accessibility.attributeValueCount(elementOf(1), attribute::Children), 7);
    EXPECT_EQ(application.calls("GetChildren"), lists);
    EXPECT_FALSE(accessibility.attributeValueCount(elementOf(1), attribute::Title));
}

TEST_F(WindowElementsTest, MoveResizeAndRaise) {
    addWindow(1, "One");
    addWindow(2, "Two");
    const Element element = elementOf(1);
    EXPECT_TRUE(accessibility.isAttributeSettable(element, attribute::Position));
    EXPECT_TRUE(accessibility.isAttributeSettable(element, attribute::Size));
    EXPECT_FALSE(accessibility.isAttributeSettable(element, attribute::Title));
    EXPECT_TRUE(accessibility.setAttributeValue(element, attribute::Position, Point{7, 8}));
    EXPECT_TRUE(accessibility.setAttributeValue(element, attribute::Size, Size{70, 80}));
    EXPECT_FALSE(accessibility.setAttributeValue(element, attribute::Size, Point{7, 8}));
    EXPECT_FALSE(accessibility.setAttributeValue(element, attribute::Title, std::string("x")));
    EXPECT_EQ(windows.at(1).frameCG, (Rect{{7, 8}, {70, 80}}));
    EXPECT_TRUE(accessibility.performAction(element, action::Raise));
    EXPECT_EQ(windows.raised, std::vector<std::uint32_t>{1});
    EXPECT_FALSE(accessibility.performAction(element, action::Press));
}

TEST_F(WindowElementsTest, DescribeTheActionThatTheyHaveOnly) {
    addWindow(1, "One");
    const Element element = elementOf(1);
    EXPECT_EQ(accessibility.actionNames(element), std::vector<std::string>{std::string(action::Raise)});
    EXPECT_EQ(accessibility.actionDescription(element, action::Raise), "raise");
    EXPECT_FALSE(accessibility.actionDescription(element, action::Press));
    EXPECT_FALSE(accessibility.actionDescription(element, action::ShowMenu));
    EXPECT_FALSE(accessibility.actionDescription(element, "AXCancel"));
}

TEST_F(WindowElementsTest, AskForWhatIsUnderAPointAsTheApplicationCounts) {
    // The primary screen does not begin at the corner of the root window.
    addWindow(1, "One").screenOrigin = {600, 50};
    application.change([&] { application.findsAtPoints = true; });
    const Element found = accessibility.elementAtPosition({15, 25});
    ASSERT_TRUE(found);
    EXPECT_EQ(AtspiElement::of(found)->reference.path, framePath(1) + "/text");
    application.change([&] { EXPECT_EQ(application.points.front(), std::pair(615, 75)); });
}

TEST_F(WindowElementsTest, AreFoundUnderAPointWhereTheApplicationTellsNothingFurther) {
    addWindow(1, "One");
    EXPECT_EQ(accessibility.elementAtPosition({15, 25}), elementOf(1));
    EXPECT_FALSE(accessibility.elementAtPosition({5000, 25}));
}

} // namespace
} // namespace tarragon
