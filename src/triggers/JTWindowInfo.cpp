#include "triggers/JTWindowInfo.h"

#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"
#include "triggers/JTWindowInfoDelegate.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

namespace {

// What windows are dragged by. The first is a subrole, which no role equals, and is kept with the others.
constexpr std::array<std::string_view, 7> DragAreaRoles = {
    "AXStandardWindow", "AXGroup", "AXToolbar", "AXWindow", "AXStaticText", "AXMenuBarItem", "AXGrowArea"};

std::optional<std::string> textOf(const Value& value) {
    const auto* text = valueAs<std::string>(value);
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

} // namespace

JTWindowInfo::JTWindowInfo(const Platform& platform)
    : _platform(platform)
    , _systemWideElement(_platform.accessibility.systemWideElement()) { }

JTWindowInfo::~JTWindowInfo() {
    for (const EventMonitor monitor : _installedMonitors)
        _platform.inputEvents->removeMonitor(monitor);
}

void JTWindowInfo::raiseWindow(const Element& window) {
    UIElementUtilities::performAction(_platform.accessibility, action::Raise, window);
}

void JTWindowInfo::performTimerBasedUpdate() {
    updateCurrentUIElement();
    constexpr double SecondsBetweenUpdates = 0.1;
    _updateTimer = _platform.runLoop.scheduleTimer(SecondsBetweenUpdates, false, [this] { performTimerBasedUpdate(); });
}

void JTWindowInfo::updateCurrentUIElement() {
    const Point pointer = _platform.displays.mouseLocationNS();
    const Rect display = _platform.displays.mainDisplayBoundsCG();
    const double bottom = static_cast<float>(display.origin.y + display.size.height);
    const Point point{pointer.x, bottom - pointer.y};
    if (point == _lastMousePoint)
        return;
    _lastMousePoint = point;

    // The hit test takes single precision.
    const Point tested{static_cast<float>(point.x), static_cast<float>(point.y)};
    const Element found = _systemWideElement ? _platform.accessibility.elementAtPosition(tested) : Element();
    if (found && found != _currentUIElementRef)
        setCurrentUIElement(found);
}

void JTWindowInfo::focusWindowForCurrentElement() {
    if (const Element window = focusedWindowForCurrentElement())
        raiseWindow(window);
}

std::optional<std::string> JTWindowInfo::windowTitleForCurrentElement() {
    return textOf(UIElementUtilities::titleOfUIElement(_platform.accessibility, focusedWindowForCurrentElement()));
}

Element JTWindowInfo::focusedWindowForCurrentElement() {
    const Value value =
        UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Window, _currentUIElementRef);
    const auto* window = valueAs<Element>(value);
    return window != nullptr ? *window : Element();
}

bool JTWindowInfo::bringWindowWithNameToFront(const std::string& title) {
    if (_platform.windowList == nullptr)
        return false;
    bool found = false;
    for (const ListedWindow& window : _platform.windowList->onScreenWindows()) {
        if (window.title != title)
            continue;
        found = true;
        if (!_platform.windowList->raise(window.identifier))
            log(LogCategory::Triggers,
                [&] { return "the window \"" + title + "\" could not be brought to the front"; });
    }
    return found;
}

std::int64_t JTWindowInfo::findPIDForAppForElement(const Element& element) {
    Accessibility& accessibility = _platform.accessibility;
    Element ancestor = UIElementUtilities::parentOfUIElement(accessibility, element);
    constexpr int MostElementsPassed = 30;
    while (!UIElementUtilities::isApplicationUIElement(accessibility, ancestor)) {
        if (++_elementsPassed > MostElementsPassed) {
            log(LogCategory::Triggers, [] { return "no application found above an element: too many were passed"; });
            return 0;
        }
        ancestor = UIElementUtilities::parentOfUIElement(accessibility, ancestor);
    }

    const std::optional<std::int64_t> process = accessibility.processIdentifier(ancestor);
    if (!process)
        return 0;
    const std::vector<RunningApplication> running = _platform.workspace.runningApplications();
    const auto application = std::ranges::find(running, *process, &RunningApplication::processIdentifier);
    if (application != running.end()) {
        _currentAppName = application->name;
        bringFrontWindowOfProcessToFront(*process);
        _elementsPassed = 0;
    }
    return *process;
}

void JTWindowInfo::bringFrontWindowOfProcessToFront(std::int64_t processIdentifier) {
    if (_platform.windowList == nullptr)
        return;
    const std::vector<ListedWindow> windows = _platform.windowList->onScreenWindows();
    const auto front = std::ranges::find(windows, processIdentifier, &ListedWindow::processIdentifier);
    if (front == windows.end() || !_platform.windowList->raise(front->identifier))
        log(LogCategory::Triggers, [&] { return _currentAppName + " could not be brought to the front"; });
}

std::optional<std::string> JTWindowInfo::textOfCurrentUIElement(std::string_view attribute) {
    return textOf(UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute, _currentUIElementRef));
}

std::optional<std::string> JTWindowInfo::titleOfCurrentUIElement() {
    return textOfCurrentUIElement(attribute::Subrole);
}

std::optional<std::string> JTWindowInfo::roleOfCurrentUIElement() {
    return textOfCurrentUIElement(attribute::Role);
}

Point JTWindowInfo::midPointOfCurrentElement() {
    const Rect frame =
        UIElementUtilities::frameOfUIElement(_platform.accessibility, _platform.displays, _currentUIElementRef);
    return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
}

void JTWindowInfo::setScreenEdgeDragMonitorActive(bool active) {
    if (active) {
        mouseDownMonitor();
        mouseUpMonitor();
    } else {
        for (const EventMonitor monitor : {_mouseDownEventHandler, _mouseUpEventHandler}) {
            if (monitor != 0)
                _platform.inputEvents->removeMonitor(monitor);
        }
    }
    _screenEdgeDragMonitorActive = active;
    _dragHasStarted = false;
}

void JTWindowInfo::mouseDownMonitor() {
    _mouseDownEventHandler = installMonitor(InputEventType::LeftMouseDragged, &JTWindowInfo::leftMouseDragged);
}

void JTWindowInfo::mouseUpMonitor() {
    _mouseUpEventHandler = installMonitor(InputEventType::LeftMouseUp, &JTWindowInfo::leftMouseUp);
}

EventMonitor JTWindowInfo::installMonitor(InputEventType type, void (JTWindowInfo::*handler)()) {
    EventMonitor monitor = 0;
    if (_platform.inputEvents != nullptr) {
        monitor = _platform.inputEvents->addGlobalMonitor(
            inputEventMask(type), [this, handler](const InputEvent& /*event*/) { (this->*handler)(); });
    }
    if (monitor == 0) {
        log(LogCategory::Triggers,
            [] { return "the desktop does not tell of drags: no window is seen being dragged"; });
        return 0;
    }
    _installedMonitors.push_back(monitor);
    return monitor;
}

void JTWindowInfo::leftMouseDragged() {
    if (mouseOnDragArea()) {
        _windowDraggedToScreenEdgeDidStart(0);
        return;
    }
    log(LogCategory::Triggers,
        [&] { return "a drag over " + roleOfCurrentUIElement().value_or("nothing") + " is none of a window"; });
}

void JTWindowInfo::leftMouseUp() {
    _edgeDragged = 0;
    _windowDraggedToScreenEdgeDidEnd(_edgeDragged);
    // Also when the delegate has begun another drag meanwhile.
    _dragHasStarted = false;
}

void JTWindowInfo::checkMouseLocation() {
    _windowDraggedToScreenEdgeDidStart(0);
}

void JTWindowInfo::_windowDraggedToScreenEdgeDidStart(std::int64_t screenEdge) {
    _dragHasStarted = true;
    if (_delegate != nullptr)
        _delegate->windowInfoWindowDraggedToScreenEdgeDidStart(*this, screenEdge);
}

void JTWindowInfo::_windowDraggedToScreenEdgeDidEnd(std::int64_t screenEdge) {
    _dragHasStarted = false;
    if (_delegate != nullptr)
        _delegate->windowInfoWindowDraggedToScreenEdgeDidEnd(*this, screenEdge);
}

bool JTWindowInfo::mouseOnDragArea() {
    updateCurrentUIElement();
    const std::optional<std::string> role = roleOfCurrentUIElement();
    return role && std::ranges::find(DragAreaRoles, *role) != DragAreaRoles.end();
}

} // namespace tarragon
