#pragma once

#include "platform/Platform.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarragon {

// Questions about the focused window of one application, and its place and size set. Every question reads afresh;
// nothing is kept. What cannot be read is nothing, false or the zero rectangle. Main thread only.
//
// Names that end in NS speak of Cocoa space, those that end in CG of screen space, both in points.
class FocusedWindowQueries {
public:
    // The services outlive the object. The application may be nil: it has no window then.
    FocusedWindowQueries(const Platform& platform, Element application);

    // The name of the application in front, whichever it is; nothing when there is none.
    std::optional<std::string> focusedAppName();
    Element focusedWindow(); // nil when there is none
    std::optional<std::string> focusedWindowRole();
    std::optional<std::string> focusedWindowTitle();
    Rect focusedWindowFrameNS();
    Rect focusedWindowFrameCG();
    Point focusedWindowPosition(); // bottom-left corner, Cocoa space
    Point focusedWindowPositionCG(); // top-left corner, screen space
    Point focusedWindowTitlePosition(); // screen space; (0, 0) without a title element
    Rect focusedWindowTitleFrame(); // Cocoa space
    bool isFinderDesktopWindowActive();
    bool isAuxiliaryWindowActive();
    bool isFocusedWindowFullScreen();
    bool isFocusedWindowMinimized(); // true when there is no focused window
    bool isFocusedWindowHidden(); // of the whole application
    std::optional<Screen> focusedWindowScreen();
    std::int32_t focusedWindowScreenArrayOrder();
    Rect focusedWindowScreenRectNS();
    Rect focusedWindowScreenRectCG();
    Rect convertNSToCGRectCoords(const Rect& rectNS);
    void setPositionOfFocusedWindow(float x, float y); // top-left corner, screen space
    void setSizeOfFocusedWindow(float w, float h);

private:
    Element focusedWindowFor(std::string_view purpose);

    Accessibility& _accessibility;
    Workspace& _workspace;
    Displays& _displays;
    Element _application;
};

} // namespace tarragon
