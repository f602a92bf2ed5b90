#pragma once

#include "panels/PanelContent.h"
#include "platform/Geometry.h"
#include "platform/PanelSurfaces.h"

#include <memory>
#include <optional>
#include <string>

namespace tarragon {

struct PanelMouseEvent {
    Point locationInPanel; // from the bottom-left corner, y up
    Point locationNS; // the same place in Cocoa space
    bool controlKey = false;
};

// Hears what the pointer does in a panel. Main thread only; called from the run loop.
class PanelWindowHandler {
public:
    virtual ~PanelWindowHandler() = default;
    virtual void mouseDown(const PanelMouseEvent&) { } // of the left button, as the next two
    // Several movements that came together are told as one; the first of a drag is at the place of the press.
    virtual void mouseDragged(const PanelMouseEvent&) { }
    virtual void mouseUp(const PanelMouseEvent&) { }
    virtual void rightMouseDown(const PanelMouseEvent&) { }
    // The pointer has entered the panel's frame, moved within it, or left it (nothing), whatever the alpha is, whoever
    // has grabbed the pointer and whatever lies above.
    virtual void pointerMoved(const std::optional<Point>& /*locationInPanel*/) { }
};

// The window of one panel: without a border, never active, on every workspace. Hidden and opaque at the start. Draws
// and carries out what it is told. Main thread only.
class PanelWindow {
public:
    virtual ~PanelWindow() = default;

    // Whole points on the screen: each edge goes to the nearest one.
    virtual void setFrame(const Rect& frameNS) = 0;
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;
    virtual void setAlpha(double alpha) = 0;
    // PanelLevel::Dock is to be chosen, and to be left, while the window is hidden.
    virtual void setLevel(PanelLevel level) = 0;
    // Draws this from now on. Clicks beside the background, if it is shown, and the buttons reach what lies below.
    virtual void display(const PanelContent& content) = 0;
};

// Makes the windows of panels and measures what they show. Main thread only.
class PanelToolkit {
public:
    virtual ~PanelToolkit() = default;

    // The handler outlives the window, the toolkit too. The title is shown nowhere: it tells programs that list windows
    // which one this is.
    [[nodiscard]] virtual std::unique_ptr<PanelWindow> makeWindow(
        PanelWindowHandler& handler, const std::string& title) = 0;

    // The size that shows the whole title, at its content's font, look and dress, without growthOf the dress.
    [[nodiscard]] virtual Size sizeThatFits(const ButtonContent& content) = 0;
    // Of the desktop's title-bar font asked for at a size: the size itself, or the desktop's own for 0 and less.
    [[nodiscard]] virtual double titleBarFontSize(double size) = 0;
};

} // namespace tarragon
