#include "mirror/elements/UIElementUtilities.h"

#include "fake/FakePlatform.h"
#include "platform/AccessibilityNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using Operation = FakeCall::Operation;
using testing::ElementsAre;

class UIElementUtilitiesTest : public testing::Test {
protected:
    void set(std::string_view attribute, const Value& value) { accessibility.setAttribute(element, attribute, value); }

    FakePlatform fake;
    FakeAccessibility& accessibility = fake.accessibility;
    Element element = accessibility.addElement(7, "AXButton");
};

TEST_F(UIElementUtilitiesTest, GivesTheProcessIdentifier) {
    EXPECT_EQ(UIElementUtilities::processIdentifierOfUIElement(accessibility, element), 7);
}

TEST_F(UIElementUtilitiesTest, GivesProcessZeroForADeadElement) {
    accessibility.destroy(element);
    EXPECT_EQ(UIElementUtilities::processIdentifierOfUIElement(accessibility, element), 0);
}

TEST_F(UIElementUtilitiesTest, ListsAttributesAndActionsInTheirOrder) {
    set("AXTitle", std::string("Save"));
    accessibility.addAction(element, "AXPress", "press");
    accessibility.addAction(element, "AXShowMenu", "show menu");
    EXPECT_THAT(
        *UIElementUtilities::attributeNamesOfUIElement(accessibility, element), ElementsAre("AXRole", "AXTitle"));
    EXPECT_THAT(
        *UIElementUtilities::actionNamesOfUIElement(accessibility, element), ElementsAre("AXPress", "AXShowMenu"));
    EXPECT_EQ(UIElementUtilities::descriptionOfAction(accessibility, "AXShowMenu", element), "show menu");
}

TEST_F(UIElementUtilitiesTest, ListsNothingForADeadElement) {
    accessibility.destroy(element);
    EXPECT_EQ(UIElementUtilities::attributeNamesOfUIElement(accessibility, element), std::nullopt);
    EXPECT_EQ(UIElementUtilities::actionNamesOfUIElement(accessibility, element), std::nullopt);
    EXPECT_EQ(UIElementUtilities::descriptionOfAction(accessibility, "AXPress", element), std::nullopt);
}

TEST_F(UIElementUtilitiesTest, PerformsActionsAndIgnoresTheirFailure) {
    accessibility.addAction(element, "AXPress");
    UIElementUtilities::performAction(accessibility, "AXPress", element);
    ASSERT_EQ(accessibility.performedActions().size(), 1U);
    EXPECT_EQ(accessibility.performedActions()[0].second, "AXPress");
    accessibility.destroy(element);
    UIElementUtilities::performAction(accessibility, "AXPress", element);
}

TEST_F(UIElementUtilitiesTest, ReadsAnAttributeThatIsListed) {
    set("AXTitle", std::string("Save"));
    EXPECT_EQ(UIElementUtilities::valueOfAttribute(accessibility, "AXTitle", element), Value(std::string("Save")));
}

TEST_F(UIElementUtilitiesTest, NeverAsksForAnAttributeThatIsNotListed) {
    set("AXTitle", std::string("Save"));
    accessibility.unlistAttribute(element, "AXTitle");
    EXPECT_TRUE(isNil(UIElementUtilities::valueOfAttribute(accessibility, "AXTitle", element)));
    EXPECT_TRUE(accessibility.callsOf(Operation::CopyAttributeValue).empty());
    EXPECT_EQ(accessibility.callsOf(Operation::AttributeNames).size(), 1U);
}

TEST_F(UIElementUtilitiesTest, ReadsNilWhenTheListOrTheValueCannotBeRead) {
    set("AXTitle", std::string("Save"));
    accessibility.failCall(0, FakeFault::Dead);
    EXPECT_TRUE(isNil(UIElementUtilities::valueOfAttribute(accessibility, "AXTitle", element)));
    accessibility.failCall(1, FakeFault::Dead);
    EXPECT_TRUE(isNil(UIElementUtilities::valueOfAttribute(accessibility, "AXTitle", element)));
    accessibility.listAttributeWithoutValue(element, "AXValue");
    EXPECT_TRUE(isNil(UIElementUtilities::valueOfAttribute(accessibility, "AXValue", element)));
    EXPECT_TRUE(isNil(UIElementUtilities::valueOfAttribute(accessibility, "AXTitle", Element())));
}

TEST_F(UIElementUtilitiesTest, TellsWhetherAnAttributeCanBeSet) {
    accessibility.setSettable(element, "AXPosition");
    EXPECT_TRUE(UIElementUtilities::canSetAttribute(accessibility, "AXPosition", element));
    EXPECT_FALSE(UIElementUtilities::canSetAttribute(accessibility, "AXSize", element));
    accessibility.destroy(element);
    EXPECT_FALSE(UIElementUtilities::canSetAttribute(accessibility, "AXPosition", element));
}

TEST_F(UIElementUtilitiesTest, GivesParentRoleAndTitle) {
    const Element parent = accessibility.addElement(7, "AXApplication");
    accessibility.addChild(parent, element);
    set("AXTitle", std::string("Save"));
    EXPECT_EQ(UIElementUtilities::parentOfUIElement(accessibility, element), parent);
    EXPECT_FALSE(UIElementUtilities::parentOfUIElement(accessibility, parent));
    EXPECT_EQ(UIElementUtilities::roleOfUIElement(accessibility, element), Value(std::string("AXButton")));
    EXPECT_EQ(UIElementUtilities::titleOfUIElement(accessibility, element), Value(std::string("Save")));
    EXPECT_TRUE(UIElementUtilities::isApplicationUIElement(accessibility, parent));
    EXPECT_FALSE(UIElementUtilities::isApplicationUIElement(accessibility, element));
}

TEST_F(UIElementUtilitiesTest, TakesNoTextForAParent) {
    set("AXParent", std::string("nonsense"));
    EXPECT_FALSE(UIElementUtilities::parentOfUIElement(accessibility, element));
}

class SettingFromText : public UIElementUtilitiesTest {
protected:
    // What the attribute holds after the text was set on it.
    Value settingText(const Value& present, const std::string& text) {
        set("AXValue", present);
        accessibility.setSettable(element, "AXValue");
        UIElementUtilities::setStringValue(accessibility, text, "AXValue", element);
        return accessibility.attribute(element, "AXValue");
    }
};

TEST_F(SettingFromText, ReadsEveryStructuredKindInItsTerseFormat) {
    EXPECT_EQ(settingText(Point{1, 2}, "x=3.5 y=-4"), Value(Point{3.5, -4}));
    EXPECT_EQ(settingText(Size{1, 2}, "w=30 h=1e3"), Value(Size{30, 1000}));
    EXPECT_EQ(settingText(Rect{}, "x=1 y=2 w=3 h=4"), Value(Rect{{1, 2}, {3, 4}}));
    EXPECT_EQ(settingText(Range{}, "pos=12 len=-34"), Value(Range{12, -34}));
}

TEST_F(SettingFromText, ReadsFractionsInSinglePrecision) {
    EXPECT_EQ(settingText(Point{}, "x=0.1 y=0"), Value(Point{static_cast<double>(0.1F), 0}));
}

TEST_F(SettingFromText, ReadsRangesAsWholeNumbersOf64Bits) {
    EXPECT_EQ(settingText(Range{}, "pos=9007199254740993 len=1"), Value(Range{9007199254740993, 1}));
}

TEST_F(SettingFromText, AllowsBlanksBeforeNumbersAndLaterLabels) {
    EXPECT_EQ(settingText(Point{}, "x= 3    y= +4"), Value(Point{3, 4}));
    EXPECT_EQ(settingText(Point{}, "x=3y=4"), Value(Point{3, 4}));
}

TEST_F(SettingFromText, KeepsTheNumbersThatTheTextDoesNotGive) {
    EXPECT_EQ(settingText(Rect{{1, 2}, {3, 4}}, "x=9 y=8 width=7"), Value(Rect{{9, 8}, {3, 4}}));
    EXPECT_EQ(settingText(Point{1, 2}, "nonsense"), Value(Point{1, 2}));
    EXPECT_EQ(settingText(Point{1, 2}, " x=5 y=6"), Value(Point{1, 2}));
    EXPECT_EQ(settingText(Point{1, 2}, "x=5 z=6 y=7"), Value(Point{5, 2}));
}

TEST_F(SettingFromText, SetsTextAsItStands) {
    EXPECT_EQ(settingText(std::string("old"), "x=3 y=4"), Value(std::string("x=3 y=4")));
}

TEST_F(SettingFromText, SetsNumbersFromTheLeadingNumberOfTheText) {
    EXPECT_EQ(settingText(std::int64_t{1}, "2.5 apples"), Value(2.5));
    EXPECT_EQ(settingText(1.0, " +7"), Value(7.0));
    EXPECT_EQ(settingText(1.0, "apples"), Value(0.0));
    EXPECT_EQ(settingText(true, "0"), Value(0.0));
}

TEST_F(SettingFromText, DoesNothingForOtherKindsForNoNameAndForNoValue) {
    settingText(element, "x");
    settingText(std::vector<Element>(), "x");
    UIElementUtilities::setStringValue(accessibility, "x", "", element);
    UIElementUtilities::setStringValue(accessibility, "x", "AXNothing", element);
    EXPECT_TRUE(accessibility.callsOf(Operation::SetAttributeValue).empty());
}

TEST_F(SettingFromText, AsksForThePresentValueDirectly) {
    set("AXValue", Point{1, 2});
    accessibility.setSettable(element, "AXValue");
    accessibility.unlistAttribute(element, "AXValue");
    accessibility.clearCalls();
    UIElementUtilities::setStringValue(accessibility, "x=3 y=4", "AXValue", element);
    EXPECT_EQ(accessibility.attribute(element, "AXValue"), Value(Point{3, 4}));
    EXPECT_TRUE(accessibility.callsOf(Operation::AttributeNames).empty());
}

TEST_F(SettingFromText, ReadsBackEveryTerseDescription) {
    for (const Value& value :
        {Value(Point{-1.5, 20}), Value(Size{640, 480}), Value(Rect{{1, 2}, {3, 4.25}}), Value(Range{5, 6})}) {
        const std::string text = UIElementUtilities::stringDescriptionOfAXValue(value, false);
        const Value blank = valueAs<Point>(value) ? Value(Point())
            : valueAs<Size>(value)                ? Value(Size())
            : valueAs<Rect>(value)                ? Value(Rect())
                                                  : Value(Range());
        EXPECT_EQ(settingText(blank, text), value) << text;
    }
}

class ScreenConversion : public UIElementUtilitiesTest { };

TEST_F(ScreenConversion, FlipsAPointWithinItsScreenOnePixelUp) {
    EXPECT_EQ(UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(fake.displays, {10, 100}), (Point{10, 799}));
}

TEST_F(ScreenConversion, GivesTheOriginForAPointOnNoScreen) {
    EXPECT_EQ(UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(fake.displays, {-5, 100}), Point());
    EXPECT_EQ(UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(fake.displays, {10, 900}), Point());
}

TEST_F(ScreenConversion, UsesTheHeightAloneOfTheLastScreenThatContainsThePoint) {
    fake.displays.setScreens({{{{0, 0}, {1440, 900}}, {}}, {{{0, -200}, {2000, 1200}}, {}}});
    EXPECT_EQ(UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(fake.displays, {10, 100}), (Point{10, 1099}));
}

TEST_F(ScreenConversion, FlipsARectangleAndBack) {
    const Rect flipped = UIElementUtilities::flippedScreenBounds(fake.displays, {{10, 100}, {200, 50}});
    EXPECT_EQ(flipped, (Rect{{10, 750}, {200, 50}}));
    EXPECT_EQ(UIElementUtilities::flippedScreenBounds(fake.displays, flipped), (Rect{{10, 100}, {200, 50}}));
}

TEST_F(ScreenConversion, FlipsAtTheTopOfThePrimaryScreenInSinglePrecision) {
    fake.displays.setScreens({{{{0, 100.1}, {1440, 900}}, {}}, {{{1440, 0}, {500, 500}}, {}}});
    const double top = static_cast<float>(1000.1);
    EXPECT_NE(top, 1000.1);
    EXPECT_EQ(UIElementUtilities::flippedScreenBounds(fake.displays, {{1, 2}, {3, 4}}), (Rect{{1, top - 6}, {3, 4}}));
}

TEST_F(ScreenConversion, FlipsAtZeroWithoutAScreen) {
    fake.displays.setScreens({});
    EXPECT_EQ(UIElementUtilities::flippedScreenBounds(fake.displays, {{1, 2}, {3, 4}}), (Rect{{1, -6}, {3, 4}}));
}

TEST_F(ScreenConversion, GivesTheFrameOfAnElementInCocoaSpace) {
    set("AXPosition", Point{10, 100});
    set("AXSize", Size{200, 50});
    EXPECT_EQ(
        UIElementUtilities::frameOfUIElement(accessibility, fake.displays, element), (Rect{{10, 750}, {200, 50}}));
}

TEST_F(ScreenConversion, GivesTheZeroRectangleWithoutPositionOrSize) {
    EXPECT_EQ(UIElementUtilities::frameOfUIElement(accessibility, fake.displays, element), Rect());
    set("AXPosition", Point{10, 100});
    EXPECT_EQ(UIElementUtilities::frameOfUIElement(accessibility, fake.displays, element), Rect());
    set("AXSize", std::string("large"));
    EXPECT_EQ(UIElementUtilities::frameOfUIElement(accessibility, fake.displays, element), Rect());
    accessibility.removeAttribute(element, "AXPosition");
    set("AXSize", Size{200, 50});
    EXPECT_EQ(UIElementUtilities::frameOfUIElement(accessibility, fake.displays, element), Rect());
}

} // namespace
} // namespace tarragon
