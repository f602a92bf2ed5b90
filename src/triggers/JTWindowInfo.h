#pragma once

#include "platform/Element.h"
#include "platform/Geometry.h"
#include "platform/InputEvents.h"
#include "platform/Platform.h"
#include "platform/RunLoop.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

class JTWindowInfoDelegate;

// Watches the mouse over all other applications and tells its delegate when a drag with the left button is over a part
// by which windows are dragged, and when the button is released. Knows the element under the pointer, found by a hit
// test that is left out while the pointer rests. Failures are silent: the element stays the one that it was.
//
// Main thread only. The services outlive the tracker; destroying it ends its monitors.
class JTWindowInfo {
public:
    explicit JTWindowInfo(const Platform& platform);
    JTWindowInfo(const JTWindowInfo&) = delete;
    JTWindowInfo& operator=(const JTWindowInfo&) = delete;
    ~JTWindowInfo();

    // Not owned; nullptr for none.
    JTWindowInfoDelegate* delegate() const { return _delegate; }
    void setDelegate(JTWindowInfoDelegate* delegate) { _delegate = delegate; }

    void raiseWindow(const Element& window);
    // Finds the element under the pointer now and from then on ten times a second, for as long as the tracker lives.
    void performTimerBasedUpdate();

    // The element that was last found under the pointer; nil before the first was.
    void setCurrentUIElement(const Element& element) { _currentUIElementRef = element; }
    const Element& currentUIElement() const { return _currentUIElementRef; }
    // A place is asked for once: also one where nothing was found is not asked again before the pointer moves.
    void updateCurrentUIElement();

    // These three are about the window in which the current element lies; nil, nothing and no effect without one.
    void focusWindowForCurrentElement();
    std::optional<std::string> windowTitleForCurrentElement();
    Element focusedWindowForCurrentElement();

    // Brings every window on the screen that has exactly this title to the front. False when there is none.
    bool bringWindowWithNameToFront(const std::string& title);
    // The process of the application to which the element belongs, which is brought to the front with its front window
    // alone; 0 when it is not found. All walks up to an application share a count of the elements that they pass,
    // which only a successful walk sets back: after failures the next walks end sooner.
    std::int64_t findPIDForAppForElement(const Element& element);

    // Answers the subrole, in spite of the name.
    std::optional<std::string> titleOfCurrentUIElement();
    std::optional<std::string> roleOfCurrentUIElement();
    // The centre of the current element in Cocoa space; (0, 0) when its frame is not known.
    Point midPointOfCurrentElement();

    // Switching on always installs two monitors: those of an earlier time then report as well, and only the end of the
    // tracker removes them. Switching off removes the two that were installed last. Either ends a drag in silence.
    void setScreenEdgeDragMonitorActive(bool active);
    bool screenEdgeDragMonitorActive() const { return _screenEdgeDragMonitorActive; }
    // Watches drags with the left button, in spite of the name.
    void mouseDownMonitor();
    void mouseUpMonitor();
    // Reports the start of a drag.
    void checkMouseLocation();
    void _windowDraggedToScreenEdgeDidStart(std::int64_t screenEdge);
    void _windowDraggedToScreenEdgeDidEnd(std::int64_t screenEdge);
    // True when the pointer is over a part by which windows are dragged. Looks for the element under it first.
    bool mouseOnDragArea();

    // The edge that the delegate is told: always 0.
    std::int64_t edgeDragged() const { return _edgeDragged; }
    // True between the start of a drag and the next release of the left button.
    bool dragHasStarted() const { return _dragHasStarted; }

private:
    // Of the current element; nothing when it has none or when it is no text.
    std::optional<std::string> textOfCurrentUIElement(std::string_view attribute);
    // 0 when the desktop does not tell of such events.
    EventMonitor installMonitor(InputEventType type, void (JTWindowInfo::*handler)());
    void leftMouseDragged();
    void leftMouseUp();
    void bringFrontWindowOfProcessToFront(std::int64_t processIdentifier);

    static inline int _elementsPassed = 0; // by all walks since the last successful one

    Platform _platform;
    JTWindowInfoDelegate* _delegate = nullptr;
    Element _currentUIElementRef;
    Element _systemWideElement; // nil without access: then nothing is found under the pointer
    Point _lastMousePoint; // screen space, of the last hit test
    std::string _currentAppName; // of the application that was last brought to the front
    EventMonitor _mouseDownEventHandler = 0; // kept when it is removed
    EventMonitor _mouseUpEventHandler = 0; // likewise
    std::vector<EventMonitor> _installedMonitors; // all that were ever installed, to be removed at the end
    std::unique_ptr<Timer> _updateTimer;
    bool _screenEdgeDragMonitorActive = false;
    std::int64_t _edgeDragged = 0;
    bool _dragHasStarted = false;
};

} // namespace tarragon
