#include "mirror/elements/UIElementUtilities.h"

#include "fake/FakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {
namespace {

using Operation = FakeCall::Operation;
using testing::ElementsAre;

std::string describe(const Value& value, bool verbose) {
    return UIElementUtilities::stringDescriptionOfAXValue(value, verbose);
}

TEST(StructuredValueDescription, NamesTheKindWhenVerbose) {
    EXPECT_EQ(describe(Point{1, 2.5}, true), "<AXPointValue x=1 y=2.5>");
    EXPECT_EQ(describe(Size{3, 4}, true), "<AXSizeValue w=3 h=4>");
    EXPECT_EQ(describe(Rect{{1, 2}, {3, 4}}, true), "<AXRectValue  x=1 y=2 w=3 h=4>");
    EXPECT_EQ(describe(Range{5, -6}, true), "<AXRangeValue pos=5 len=-6>");
}

TEST(StructuredValueDescription, GivesTheNumbersAloneWhenTerse) {
    EXPECT_EQ(describe(Point{1, 2.5}, false), "x=1 y=2.5");
    EXPECT_EQ(describe(Size{3, 4}, false), "w=3 h=4");
    EXPECT_EQ(describe(Rect{{1, 2}, {3, 4}}, false), "x=1 y=2 w=3 h=4");
    EXPECT_EQ(describe(Range{5, -6}, false), "pos=5 len=-6");
}

TEST(StructuredValueDescription, WritesSixSignificantDigits) {
    EXPECT_EQ(describe(Point{1234567, 0.1234567}, false), "x=1.23457e+06 y=0.123457");
    EXPECT_EQ(describe(Point{100000, -0.00001}, false), "x=100000 y=-1e-05");
    EXPECT_EQ(describe(Size{1000000, 0.0001}, false), "w=1e+06 h=0.0001");
    EXPECT_EQ(describe(Rect{{0.1, 1.0 / 3}, {1e21, -0.0}}, false), "x=0.1 y=0.333333 w=1e+21 h=-0");
}

TEST(StructuredValueDescription, IsUnknownForEveryOtherValue) {
    for (const Value& value : {Value(), Value(std::string("x=1 y=2")), Value(std::int64_t{1}), Value(true)})
        EXPECT_EQ(describe(value, false), "AXValue???");
}

class UIElementDescriptionsTest : public testing::Test {
protected:
    Element add(std::string_view role, const Element& parent = {}, const std::string& title = "") {
        const Element added = accessibility.addElement(7, role);
        if (!title.empty())
            accessibility.setAttribute(added, "AXTitle", title);
        if (parent)
            accessibility.addChild(parent, added);
        return added;
    }
    std::optional<std::string> describe(const Value& value, bool verbose = false) {
        return UIElementUtilities::descriptionOfValue(accessibility, value, verbose);
    }

    FakePlatform fake;
    FakeAccessibility& accessibility = fake.accessibility;
    Element application = add("AXApplication", {}, "Mail");
    Element window = add("AXWindow", application);
    Element button = add("AXButton", window, "Send");
};

TEST_F(UIElementDescriptionsTest, DescribesNilByNothing) {
    EXPECT_EQ(describe({}), std::nullopt);
    EXPECT_EQ(describe(Element()), std::nullopt);
}

TEST_F(UIElementDescriptionsTest, DescribesAnElementByItsTitleElseItsRole) {
    EXPECT_EQ(describe(button), "Send");
    EXPECT_EQ(describe(window), "AXWindow");
    accessibility.setAttribute(window, "AXTitle", std::string());
    EXPECT_EQ(describe(window), "");
}

TEST_F(UIElementDescriptionsTest, DescribesAnElementWithoutARoleAsAnElement) {
    accessibility.removeAttribute(button, "AXRole");
    EXPECT_EQ(describe(button), "<AXUIElement>");
    accessibility.destroy(window);
    EXPECT_EQ(describe(window), "<AXUIElement>");
}

TEST_F(UIElementDescriptionsTest, DescribesStructuredValuesVerboselyOrNot) {
    EXPECT_EQ(describe(Size{1, 2}, true), "<AXSizeValue w=1 h=2>");
    EXPECT_EQ(describe(Size{1, 2}, false), "w=1 h=2");
}

TEST_F(UIElementDescriptionsTest, CountsArrays) {
    EXPECT_EQ(describe(std::vector<Element>{window, button}), "<array of size 2>");
    EXPECT_EQ(describe(std::vector<Element>()), "<array of size 0>");
}

TEST_F(UIElementDescriptionsTest, DescribesPlainValuesByTheirText) {
    EXPECT_EQ(describe(std::string("words")), "words");
    EXPECT_EQ(describe(std::int64_t{140}), "140");
    EXPECT_EQ(describe(true), "1");
    EXPECT_EQ(describe(false), "0");
    EXPECT_EQ(describe(0.5), "0.5");
}

TEST_F(UIElementDescriptionsTest, DescribesRealNumbersByTheFewestDigitsThatReadBackTheSame) {
    const std::vector<std::pair<double, std::string>> texts{
        {0, "0"},
        {-0.0, "-0"},
        {1, "1"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {9.95, "9.95"}, // 9.949999999999999 in sixteen digits
        {0.1 + 0.2, "0.30000000000000004"},
        {1.0 / 3, "0.3333333333333333"},
        {100000, "100000"},
        {1000000, "1000000"},
        {123456789, "123456789"},
        {1e15, "1000000000000000"},
        {9999999999999998, "9999999999999998"},
        {1e16, "1e+16"},
        {1e21, "1e+21"},
        {1.25e100, "1.25e+100"},
        {0.0001, "0.0001"},
        {-0.00012345678901234567, "-0.00012345678901234567"},
        {0.00009, "9e-05"},
        {5e-324, "5e-324"},
        {std::numeric_limits<double>::infinity(), "inf"},
    };
    for (const auto& [number, text] : texts)
        EXPECT_EQ(describe(number), text);
}

TEST_F(UIElementDescriptionsTest, CountsChildrenAndRowsWithoutFetchingThem) {
    accessibility.setAttribute(window, "AXRows", std::vector<Element>{button, button});
    EXPECT_EQ(
        UIElementUtilities::descriptionForUIElement(accessibility, window, "AXChildren", false), "<array of size 1>");
    EXPECT_EQ(UIElementUtilities::descriptionForUIElement(accessibility, window, "AXRows", false), "<array of size 2>");
    EXPECT_TRUE(accessibility.callsOf(Operation::CopyAttributeValue).empty());
}

TEST_F(UIElementDescriptionsTest, AsksForTheAttributeDirectly) {
    accessibility.setAttribute(button, "AXValue", std::string("on"));
    accessibility.unlistAttribute(button, "AXValue");
    accessibility.clearCalls();
    EXPECT_EQ(UIElementUtilities::descriptionForUIElement(accessibility, button, "AXValue", false), "on");
    EXPECT_TRUE(accessibility.callsOf(Operation::AttributeNames).empty());
}

TEST_F(UIElementDescriptionsTest, FetchesTheChildrenWhenTheyCannotBeCounted) {
    accessibility.setAttribute(window, "AXChildren", std::string("none"));
    EXPECT_EQ(UIElementUtilities::descriptionForUIElement(accessibility, window, "AXChildren", false), "none");
}

TEST_F(UIElementDescriptionsTest, DescribesOtherAttributesByTheirValue) {
    accessibility.setAttribute(window, "AXWindows", std::vector<Element>{button});
    accessibility.clearCalls();
    EXPECT_EQ(
        UIElementUtilities::descriptionForUIElement(accessibility, window, "AXWindows", false), "<array of size 1>");
    EXPECT_TRUE(accessibility.callsOf(Operation::AttributeValueCount).empty());
    EXPECT_EQ(UIElementUtilities::descriptionForUIElement(accessibility, button, "AXParent", false), "AXWindow");
    EXPECT_EQ(UIElementUtilities::descriptionForUIElement(accessibility, button, "AXValue", false), std::nullopt);
}

TEST_F(UIElementDescriptionsTest, GivesTheDescriptionOrSaysThatThereIsNone) {
    EXPECT_EQ(UIElementUtilities::descriptionOfAXDescriptionOfUIElement(accessibility, button), "No Description");
    accessibility.setAttribute(button, "AXDescription", std::string());
    EXPECT_EQ(UIElementUtilities::descriptionOfAXDescriptionOfUIElement(accessibility, button), "No Description");
    accessibility.setAttribute(button, "AXDescription", std::string("sends it"));
    EXPECT_EQ(UIElementUtilities::descriptionOfAXDescriptionOfUIElement(accessibility, button), "sends it");
}

TEST_F(UIElementDescriptionsTest, GivesTheLineageWithTheApplicationFirst) {
    EXPECT_THAT(UIElementUtilities::lineageOfUIElement(accessibility, button), ElementsAre("Mail", "AXWindow", "Send"));
    EXPECT_THAT(UIElementUtilities::lineageOfUIElement(accessibility, application), ElementsAre("Mail"));
}

TEST_F(UIElementDescriptionsTest, IndentsEveryLineOfTheLineageByOneBlankMore) {
    EXPECT_EQ(UIElementUtilities::lineageDescriptionOfUIElement(accessibility, button), "Mail\n AXWindow\n  Send\n");
}

TEST_F(UIElementDescriptionsTest, EndsTheLineageOfAnElementThatIsItsOwnAncestor) {
    accessibility.setAttribute(application, "AXParent", button);
    EXPECT_LE(UIElementUtilities::lineageOfUIElement(accessibility, button).size(), 256U);
}

TEST_F(UIElementDescriptionsTest, DescribesAnElementInFull) {
    accessibility.setAttribute(button, "AXPosition", Point{1, 2});
    accessibility.setSettable(button, "AXPosition");
    accessibility.listAttributeWithoutValue(button, "AXValue");
    accessibility.addAction(button, "AXPress", "press");
    accessibility.addChild(button, add("AXImage"));
    EXPECT_EQ(UIElementUtilities::stringDescriptionOfUIElement(accessibility, button),
        "Mail\n AXWindow\n  Send\n"
        "\nAttributes:\n"
        "   AXRole:  “AXButton”\n"
        "   AXTitle:  “Send”\n"
        "   AXParent:  “AXWindow”\n"
        "   AXPosition (W):  “x=1 y=2”\n"
        "   AXValue:  “(null)”\n"
        "   AXChildren:  “<array of size 1>”\n"
        "\nActions:\n"
        "   AXPress - press\n");
}

TEST_F(UIElementDescriptionsTest, LeavesEmptyListsOutOfTheFullDescription) {
    const Element bare = accessibility.addElement(7, "AXImage");
    accessibility.removeAttribute(bare, "AXRole");
    EXPECT_EQ(UIElementUtilities::stringDescriptionOfUIElement(accessibility, bare), "<AXUIElement>\n");
}

} // namespace
} // namespace tarragon
