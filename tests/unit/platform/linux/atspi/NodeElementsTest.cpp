#include "LinuxAccessibilityFixture.h"

#include <map>
#include <memory>

namespace tarragon {
namespace {

class NodeElementsTest : public LinuxAccessibilityTest {
protected:
    NodeElementsTest() {
        addWindow(1, "One");
        addMenuBar(1);
    }

    Element item() { return childOf(menuBar()); }
    Element itemMenu() { return childOf(item()); }
    Element entry(std::size_t index = 0) { return childOf(itemMenu(), index); }
    std::optional<std::int64_t> count(const Element& element) {
        return accessibility.attributeValueCount(element, attribute::Children);
    }
    std::size_t children(const Element& element) {
        return elementsIn(accessibility.copyAttributeValue(element, attribute::Children)).size();
    }
};

TEST_F(NodeElementsTest, AreReadFromTheApplication) {
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(menuBar(), attribute::Role)), role::MenuBar);
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(item(), attribute::Title)), "File");
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(itemMenu(), attribute::Role)), role::Menu);
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(entry(1), attribute::Title)), "open");
    EXPECT_TRUE(accessibility.hasAttribute(entry(), attribute::Enabled));
    EXPECT_FALSE(accessibility.hasAttribute(entry(), attribute::Windows));
    const auto names = accessibility.attributeNames(itemMenu());
    ASSERT_TRUE(names);
    EXPECT_NE(std::ranges::find(*names, attribute::Children), names->end());
}

TEST_F(NodeElementsTest, AreCountedAsTheirChildrenAreWithoutFetchingThem) {
    for (const Element& element : {menuBar(), item(), itemMenu(), entry()}) {
        const std::size_t expected = children(element);
        const std::size_t lists = application.calls("GetChildren");
        EXPECT_EQ(count(element), static_cast<std::int64_t>(expected));
        EXPECT_EQ(application.calls("GetChildren"), lists);
    }
    EXPECT_EQ(children(menuBar()), 1U);
    EXPECT_EQ(children(itemMenu()), 2U);
    EXPECT_FALSE(accessibility.attributeValueCount(item(), attribute::Title));
    EXPECT_FALSE(accessibility.attributeValueCount(item(), "AXRows"));
}

TEST_F(NodeElementsTest, CountItemsThatTheirApplicationHides) {
    application.change([&] { application.objects[barPath(1) + "/new"].states = 0; });
    EXPECT_EQ(children(itemMenu()), 1U);
    EXPECT_EQ(count(itemMenu()), 2);
}

TEST_F(NodeElementsTest, ThatAreGoneTellAndCountNothing) {
    const Element menu = itemMenu();
    const Element gone = entry();
    application.change([&] {
        application.objects.erase(barPath(1) + "/new");
        application.objects.erase(barPath(1) + "/file");
    });
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(gone, attribute::Title)));
    EXPECT_FALSE(count(gone));
    EXPECT_FALSE(count(menu));
    EXPECT_FALSE(accessibility.actionDescription(gone, action::Press));
    EXPECT_FALSE(accessibility.performAction(gone, action::Press));
}

TEST_F(NodeElementsTest, DescribeTheActionThatTheyHaveOnly) {
    EXPECT_EQ(accessibility.actionNames(entry()), std::vector<std::string>{std::string(action::Press)});
    EXPECT_EQ(accessibility.actionDescription(entry(), action::Press), "press");
    EXPECT_FALSE(accessibility.actionDescription(entry(), action::ShowMenu));
    EXPECT_FALSE(accessibility.actionDescription(entry(), action::Raise));
    application.change([&] { application.objects[barPath(1) + "/new"].actionName = "expand or contract"; });
    EXPECT_EQ(accessibility.actionNames(entry()), std::vector<std::string>{});
    EXPECT_FALSE(accessibility.actionDescription(entry(), action::Press));
    EXPECT_FALSE(accessibility.performAction(entry(), action::Press));
    // What has no object of its own cannot be pressed.
    EXPECT_EQ(accessibility.actionNames(itemMenu()), std::vector<std::string>{});
    EXPECT_FALSE(accessibility.actionDescription(itemMenu(), action::Press));
    EXPECT_FALSE(accessibility.performAction(itemMenu(), action::Press));
}

TEST_F(NodeElementsTest, ArePressedOnceInTheApplication) {
    const Element pressed = entry();
    EXPECT_TRUE(accessibility.performAction(pressed, action::Press));
    EXPECT_FALSE(accessibility.performAction(pressed, action::Raise));
    // Answered after what was sent before.
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(pressed, attribute::Title)), "new");
    EXPECT_EQ(application.calls("DoAction"), 1U);
}

TEST_F(NodeElementsTest, HaveNothingToSet) {
    EXPECT_FALSE(accessibility.isAttributeSettable(entry(), attribute::Position));
    EXPECT_FALSE(accessibility.setAttributeValue(entry(), attribute::Position, Point{1, 2}));
}

TEST_F(NodeElementsTest, OfABusThatIsNoMoreAreNotAskedOfAnother) {
    const Element former = entry();
    // Names are given out again on another bus.
    AtspiFakeBus second;
    AtspiFakeApplication secondRegistry(second, "org.a11y.atspi.Registry");
    AtspiFakeApplication namesake(second);
    ASSERT_EQ(namesake.busName(), application.busName());
    std::map<std::string, FakeAccessible> objects;
    application.change([&] { objects = application.objects; });
    namesake.change([&] { namesake.objects = objects; });
    ::setenv("AT_SPI_BUS_ADDRESS", second.address().c_str(), 1);
    bus.stop();
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(former, attribute::Title)));
    EXPECT_FALSE(accessibility.attributeNames(former));
    EXPECT_FALSE(accessibility.hasAttribute(former, attribute::Title));
    EXPECT_FALSE(count(former));
    EXPECT_FALSE(accessibility.actionNames(former));
    EXPECT_FALSE(accessibility.performAction(former, action::Press));
    EXPECT_TRUE(accessibility.isTrusted());
    EXPECT_EQ(namesake.calls("GetRole"), 0U);
}

TEST_F(NodeElementsTest, OfOtherBackEndsAndNilTellNothing) {
    class Stranger final : public ElementHandle {
        bool equals(const ElementHandle& other) const override { return this == &other; }
    };
    for (const Element& element : {Element(), Element(std::make_shared<Stranger>())}) {
        EXPECT_FALSE(accessibility.attributeNames(element));
        EXPECT_FALSE(accessibility.hasAttribute(element, attribute::Title));
        EXPECT_TRUE(isNil(accessibility.copyAttributeValue(element, attribute::Title)));
        EXPECT_FALSE(count(element));
        EXPECT_FALSE(accessibility.isAttributeSettable(element, attribute::Position));
        EXPECT_FALSE(accessibility.setAttributeValue(element, attribute::Position, Point{1, 2}));
        EXPECT_FALSE(accessibility.actionNames(element));
        EXPECT_FALSE(accessibility.actionDescription(element, action::Press));
        EXPECT_FALSE(accessibility.performAction(element, action::Press));
        EXPECT_FALSE(accessibility.processIdentifier(element));
    }
}

} // namespace
} // namespace tarragon
