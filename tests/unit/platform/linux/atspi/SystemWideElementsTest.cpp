#include "platform/linux/atspi/SystemWideElements.h"

#include "FakeWindows.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class SystemWideElementsTest : public ::testing::Test {
protected:
    FakeWindowSource windows;
    FakeApplicationDirectory directory;
    AccessibleWindows accessibleWindows{windows, directory};
    SystemWideElements elements{accessibleWindows};
    Element element = elementOfSystem();
};

TEST_F(SystemWideElementsTest, TellTheApplicationOfTheActiveWindow) {
    windows.add(1, "One", 42);
    windows.add(2, "Two", 43);
    EXPECT_EQ(elements.copyAttributeValue(element, attribute::FocusedApplication), Value{elementOfApplication(43, 2)});
    windows.activate(1);
    EXPECT_EQ(elements.copyAttributeValue(element, attribute::FocusedApplication), Value{elementOfApplication(42, 1)});
}

TEST_F(SystemWideElementsTest, TellNoApplicationWhenNoWindowIsActive) {
    windows.add(1, "One", 42);
    windows.active.reset();
    EXPECT_TRUE(isNil(elements.copyAttributeValue(element, attribute::FocusedApplication)));
    windows.active = 99;
    EXPECT_TRUE(isNil(elements.copyAttributeValue(element, attribute::FocusedApplication)));
}

TEST_F(SystemWideElementsTest, HaveTheAttributesThatTheyName) {
    const auto names = elements.attributeNames(element);
    ASSERT_TRUE(names);
    windows.add(1, "One", 42);
    for (const std::string& name : *names) {
        EXPECT_TRUE(elements.hasAttribute(element, name)) << name;
        EXPECT_FALSE(isNil(elements.copyAttributeValue(element, name))) << name;
    }
    EXPECT_FALSE(elements.hasAttribute(element, attribute::Windows));
    EXPECT_TRUE(isNil(elements.copyAttributeValue(element, attribute::Windows)));
    EXPECT_EQ(elements.copyAttributeValue(element, attribute::Role), Value{std::string(role::SystemWide)});
}

TEST_F(SystemWideElementsTest, HaveNothingToCountSetOrPerform) {
    EXPECT_FALSE(elements.attributeValueCount(element, attribute::FocusedApplication));
    EXPECT_FALSE(elements.isAttributeSettable(element, attribute::FocusedApplication));
    EXPECT_FALSE(elements.setAttributeValue(element, attribute::FocusedApplication, true));
    EXPECT_EQ(elements.actionNames(element), std::vector<std::string>{});
    EXPECT_FALSE(elements.actionDescription(element, action::Press));
    EXPECT_FALSE(elements.performAction(element, action::Press));
}

} // namespace
} // namespace tarragon
