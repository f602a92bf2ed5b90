#include "mirror/FocusedWindowQueries.h"

#include "mirror/WindowRules.h"
#include "mirror/ZDScreenTools.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"

#include <array>
#include <utility>
#include <vector>

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

FocusedWindowQueries::FocusedWindowQueries(const Platform& platform, Element application)
    : _accessibility(platform.accessibility)
    , _workspace(platform.workspace)
    , _displays(platform.displays)
    , _application(std::move(application)) { }

Element FocusedWindowQueries::focusedWindow() {
    return elementIn(UIElementUtilities::valueOfAttribute(_accessibility, attribute::FocusedWindow, _application));
}

// The other queries are asked twice a second, and a window that is missing then is no news.
Element FocusedWindowQueries::focusedWindowFor(std::string_view purpose) {
    Element window = focusedWindow();
    if (!window)
        log(LogCategory::Front, [&] { return "no focused window to " + std::string(purpose); });
    return window;
}

std::optional<std::string> FocusedWindowQueries::focusedAppName() {
    const auto application = _workspace.activeApplication();
    return application ? std::optional(application->name) : std::nullopt;
}

std::optional<std::string> FocusedWindowQueries::focusedWindowRole() {
    return describedAttribute(_accessibility, attribute::RoleDescription, focusedWindow());
}

std::optional<std::string> FocusedWindowQueries::focusedWindowTitle() {
    return describedAttribute(_accessibility, attribute::Title, focusedWindow());
}

Rect FocusedWindowQueries::focusedWindowFrameNS() {
    return UIElementUtilities::frameOfUIElement(_accessibility, _displays, focusedWindow());
}

Rect FocusedWindowQueries::focusedWindowFrameCG() {
    return convertNSToCGRectCoords(focusedWindowFrameNS());
}

Point FocusedWindowQueries::focusedWindowPosition() {
    return focusedWindowFrameNS().origin;
}

Point FocusedWindowQueries::focusedWindowPositionCG() {
    return focusedWindowFrameCG().origin;
}

Point FocusedWindowQueries::focusedWindowTitlePosition() {
    const Element title =
        elementIn(UIElementUtilities::valueOfAttribute(_accessibility, attribute::TitleUIElement, focusedWindow()));
    const Value position = UIElementUtilities::valueOfAttribute(_accessibility, attribute::Position, title);
    const auto* point = valueAs<Point>(position);
    return point ? *point : Point();
}

Rect FocusedWindowQueries::focusedWindowTitleFrame() {
    const Element title =
        elementIn(UIElementUtilities::valueOfAttribute(_accessibility, attribute::TitleUIElement, focusedWindow()));
    return UIElementUtilities::frameOfUIElement(_accessibility, _displays, title);
}

bool FocusedWindowQueries::isFinderDesktopWindowActive() {
    const auto title = describedAttribute(_accessibility, attribute::Title, _application);
    if (const auto decided = isDesktopLikeWindow(title, focusedWindowRole()))
        return *decided;
    // Windows of this one application count as desktop-like when they hold many elements. Only it is asked for them.
    if (focusedAppName() != "Photoshop")
        return false;
    constexpr std::size_t ManyChildren = 31;
    const Value value = UIElementUtilities::valueOfAttribute(_accessibility, attribute::Children, focusedWindow());
    const auto* children = valueAs<std::vector<Element>>(value);
    return children && children->size() >= ManyChildren;
}

bool FocusedWindowQueries::isAuxiliaryWindowActive() {
    const auto role = focusedWindowRole();
    const auto title = focusedWindowTitle();
    return isPassingWindow(role, title);
}

bool FocusedWindowQueries::isFocusedWindowFullScreen() {
    return UIElementUtilities::valueOfAttribute(_accessibility, attribute::FullScreen, focusedWindow()) == Value(true);
}

bool FocusedWindowQueries::isFocusedWindowMinimized() {
    return !focusedWindow();
}

bool FocusedWindowQueries::isFocusedWindowHidden() {
    return UIElementUtilities::valueOfAttribute(_accessibility, attribute::Hidden, _application) == Value(true);
}

std::optional<Screen> FocusedWindowQueries::focusedWindowScreen() {
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
        if (auto screen = ZDScreenTools::screenWithPoint(_displays, point))
            return screen;
    }
    return std::nullopt;
}

std::int32_t FocusedWindowQueries::focusedWindowScreenArrayOrder() {
    const Rect frame = focusedWindowFrameNS();
    return ZDScreenTools::numberOrderOfScreenWithPoint(
        _displays, {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2});
}

Rect FocusedWindowQueries::focusedWindowScreenRectNS() {
    const auto screen = focusedWindowScreen();
    return screen ? screen->visibleFrameNS : Rect();
}

Rect FocusedWindowQueries::focusedWindowScreenRectCG() {
    return convertNSToCGRectCoords(focusedWindowScreenRectNS());
}

Rect FocusedWindowQueries::convertNSToCGRectCoords(const Rect& rectNS) {
    const Rect display = _displays.mainDisplayBoundsCG();
    const double top = display.origin.y + display.size.height;
    return {{rectNS.origin.x, top - (rectNS.origin.y + rectNS.size.height)}, rectNS.size};
}

void FocusedWindowQueries::setPositionOfFocusedWindow(float x, float y) {
    _accessibility.setAttributeValue(focusedWindowFor("move"), attribute::Position, Point{x, y});
}

void FocusedWindowQueries::setSizeOfFocusedWindow(float w, float h) {
    _accessibility.setAttributeValue(focusedWindowFor("resize"), attribute::Size, Size{w, h});
}

} // namespace tarragon
