#pragma once

#include "platform/Accessibility.h"
#include "platform/Displays.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// Questions about one element of another process, the two coordinate conversions that the whole system uses, and
// descriptions of elements for people. Failures are silent: nil, nothing, false, 0 or the zero rectangle.
//
// Operations that take Displays belong to the main thread; the others may be called from any thread.
class UIElementUtilities {
public:
    UIElementUtilities() = delete;

    // 0 when the process cannot be told.
    static std::int64_t processIdentifierOfUIElement(Accessibility& accessibility, const Element& element);
    static std::optional<std::vector<std::string>> attributeNamesOfUIElement(
        Accessibility& accessibility, const Element& element);
    static std::optional<std::vector<std::string>> actionNamesOfUIElement(
        Accessibility& accessibility, const Element& element);
    static std::optional<std::string> descriptionOfAction(
        Accessibility& accessibility, std::string_view action, const Element& element);
    static void performAction(Accessibility& accessibility, std::string_view action, const Element& element);

    // Asks for the value only when the element lists the attribute: an attribute that it does not list is nil.
    static Value valueOfAttribute(Accessibility& accessibility, std::string_view attribute, const Element& element);
    static bool canSetAttribute(Accessibility& accessibility, std::string_view attribute, const Element& element);
    // Sets a value of the kind that the attribute has now, read from the string in the terse format of
    // stringDescriptionOfAXValue for points, sizes, rectangles and ranges; numbers that the string does not give keep
    // their present values. Does nothing when the attribute's name is empty or it has no value now.
    static void setStringValue(
        Accessibility& accessibility, const std::string& string, std::string_view attribute, const Element& element);

    // nil when there is none, or when what is listed as the parent is no element.
    static Element parentOfUIElement(Accessibility& accessibility, const Element& element);
    // A string, unless the application answers with something else.
    static Value roleOfUIElement(Accessibility& accessibility, const Element& element);
    static Value titleOfUIElement(Accessibility& accessibility, const Element& element);
    static bool isApplicationUIElement(Accessibility& accessibility, const Element& element);

    // The point flipped within the last screen that contains it, one pixel up; (0, 0) when no screen does. Only the
    // height of that screen counts, not its origin.
    static Point carbonScreenPointFromCocoaScreenPoint(Displays& displays, const Point& pointNS);
    // Turns a rectangle of screen space into one of Cocoa space, and the other way round.
    static Rect flippedScreenBounds(Displays& displays, const Rect& bounds);
    // In Cocoa space; the zero rectangle when the position or the size is missing.
    static Rect frameOfUIElement(Accessibility& accessibility, Displays& displays, const Element& element);

    // Describes a point, size, rectangle or range; "AXValue???" for every other value.
    static std::string stringDescriptionOfAXValue(const Value& value, bool beingVerbose);
    // An element is described by its title, else its role; nil by nothing.
    static std::optional<std::string> descriptionOfValue(
        Accessibility& accessibility, const Value& value, bool beingVerbose);
    // The description of one attribute's value. The children and rows are counted, not fetched.
    static std::optional<std::string> descriptionForUIElement(
        Accessibility& accessibility, const Element& element, std::string_view attribute, bool beingVerbose);
    // "No Description" when the element has none.
    static std::string descriptionOfAXDescriptionOfUIElement(Accessibility& accessibility, const Element& element);
    // The descriptions of the element and its ancestors, the outermost first.
    static std::vector<std::string> lineageOfUIElement(Accessibility& accessibility, const Element& element);
    // The same, one line each, every line indented by one blank more.
    static std::string lineageDescriptionOfUIElement(Accessibility& accessibility, const Element& element);
    // The lineage, the attributes with their values, and the actions.
    static std::string stringDescriptionOfUIElement(Accessibility& accessibility, const Element& element);
};

} // namespace tarragon
