// The questions that AppAccessibility answers about the focused window.
#include "mirror/AppAccessibility.h"
#include "mirror/WindowRules.h"
#include "mirror/ZDScreenTools.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <array>

namespace tarragon {

namespace {

Element elementIn(const Value& value) {
    const auto* element = valueAs<Element>(value);
    return element ? *element : Element();
}

std::optional<std::string> describedAttribute(
    Accessibility& accessibility, std::string_view attribute, const Element& element) {
    const Value value = UIElementUtilities::valueOfAttribute(accessibility, attribute, element);
    return UIElementUtilities::descriptionOfValue(accessibility, value, false);
}

} // namespace

Element AppAccessibility::focusedWindow() {
    return elementIn(
        UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::FocusedWindow, _appAXUIElementRef));
}

std::optional<std::string> AppAccessibility::focusedAppName() {
    const auto application = _platform.workspace.activeApplication();
    return application ? std::optional(application->name) : std::nullopt;
}

std::optional<std::string> AppAccessibility::focusedWindowRole() {
    return describedAttribute(_platform.accessibility, attribute::RoleDescription, focusedWindow());
}

std::optional<std::string> AppAccessibility::focusedWindowTitle() {
    return describedAttribute(_platform.accessibility, attribute::Title, focusedWindow());
}

Rect AppAccessibility::focusedWindowFrameNS() {
    return UIElementUtilities::frameOfUIElement(_platform.accessibility, _platform.displays, focusedWindow());
}

Rect AppAccessibility::focusedWindowFrameCG() {
    return convertNSToCGRectCoords(focusedWindowFrameNS());
}

Point AppAccessibility::focusedWindowPosition() {
    return focusedWindowFrameNS().origin;
}

Point AppAccessibility::focusedWindowPositionCG() {
    return focusedWindowFrameCG().origin;
}

Point AppAccessibility::focusedWindowTitlePosition() {
    const Element title = elementIn(
        UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::TitleUIElement, focusedWindow()));
    const Value position = UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Position, title);
    const auto* point = valueAs<Point>(position);
    return point ? *point : Point();
}

Rect AppAccessibility::focusedWindowTitleFrame() {
    const Element title = elementIn(
        UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::TitleUIElement, focusedWindow()));
    return UIElementUtilities::frameOfUIElement(_platform.accessibility, _platform.displays, title);
}

bool AppAccessibility::isFinderDesktopWindowActive() {
    const auto title = describedAttribute(_platform.accessibility, attribute::Title, _appAXUIElementRef);
    if (const auto decided = isDesktopLikeWindow(title, focusedWindowRole()))
        return *decided;
    // Windows of this one application count as desktop-like when they hold many elements. Its name is tested last.
    constexpr std::size_t ManyChildren = 31;
    const auto children = menuItemsIn(focusedWindow());
    if (!children || children->size() < ManyChildren)
        return false;
    return focusedAppName() == "Photoshop";
}

bool AppAccessibility::isAuxiliaryWindowActive() {
    const auto role = focusedWindowRole();
    const auto title = focusedWindowTitle();
    return isPassingWindow(role, title);
}

bool AppAccessibility::isFocusedWindowFullScreen() {
    return UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::FullScreen, focusedWindow())
        == Value(true);
}

bool AppAccessibility::isFocusedWindowMinimized() {
    return !focusedWindow();
}

bool AppAccessibility::isFocusedWindowHidden() {
    return UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Hidden, _appAXUIElementRef)
        == Value(true);
}

std::optional<Screen> AppAccessibility::focusedWindowScreen() {
    const Rect frame = focusedWindowFrameNS();
    const double left = frame.origin.x;
    const double middle = frame.origin.x + frame.size.width / 2;
    const double right = frame.origin.x + frame.size.width;
    const double bottom = frame.origin.y;
    const double centre = frame.origin.y + frame.size.height / 2;
    const double top = frame.origin.y + frame.size.height;
    // The bottom-right corner is not tried.
    const std::array<Point, 6> points{
        {{middle, centre}, {left, bottom}, {right, top}, {right, centre}, {middle, top}, {left, top}}};
    for (const Point& point : points) {
        if (auto screen = ZDScreenTools::screenWithPoint(_platform.displays, point))
            return screen;
    }
    return std::nullopt;
}

std::int32_t AppAccessibility::focusedWindowScreenArrayOrder() {
    const Rect frame = focusedWindowFrameNS();
    return ZDScreenTools::numberOrderOfScreenWithPoint(
        _platform.displays, {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2});
}

Rect AppAccessibility::focusedWindowScreenRectNS() {
    const auto screen = focusedWindowScreen();
    return screen ? screen->visibleFrameNS : Rect();
}

Rect AppAccessibility::focusedWindowScreenRectCG() {
    return convertNSToCGRectCoords(focusedWindowScreenRectNS());
}

Rect AppAccessibility::convertNSToCGRectCoords(const Rect& rectNS) {
    const Rect display = _platform.displays.mainDisplayBoundsCG();
    const double top = display.origin.y + display.size.height;
    return {{rectNS.origin.x, top - (rectNS.origin.y + rectNS.size.height)}, rectNS.size};
}

void AppAccessibility::setPositionOfFocusedWindow(float x, float y) {
    _platform.accessibility.setAttributeValue(focusedWindow(), attribute::Position, Point{x, y});
}

void AppAccessibility::setSizeOfFocusedWindow(float w, float h) {
    _platform.accessibility.setAttributeValue(focusedWindow(), attribute::Size, Size{w, h});
}

} // namespace tarragon
