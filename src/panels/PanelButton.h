#pragma once

#include "panels/PanelContent.h"
#include "panels/PanelWindow.h"

#include <string>

namespace tarragon {

class ButtonPanel;

// A button in a panel: what is drawn of it, and what the pointer does to it. Main thread only. The panel that holds the
// button outlives it, or lets go of it.
class PanelButton {
public:
    virtual ~PanelButton() = default;
    PanelButton(const PanelButton&) = delete;
    PanelButton& operator=(const PanelButton&) = delete;

    const Rect& frame() const { return _content.frame; } // in the panel, from its bottom-left corner
    void setFrame(const Rect& frame) { _content.frame = frame; }
    void setFrameOrigin(const Point& origin) { _content.frame.origin = origin; }
    const std::string& title() const { return _content.title; }
    void setTitle(std::string title) { _content.title = std::move(title); }
    const MenuFont& font() const { return _content.font; }
    void setFont(const MenuFont& font) { _content.font = font; }
    const ButtonDress& dress() const { return _content.dress; }
    void setDress(const ButtonDress& dress) { _content.dress = dress; }
    bool isHighlighted() const { return _content.highlighted; }
    // Draws the button anew.
    void highlight(bool highlighted);

    // Makes the frame as large as the title needs it; its origin stays.
    void sizeToFit(PanelToolkit& toolkit);

    // As it is drawn now.
    virtual ButtonContent content() const { return _content; }

    virtual void mouseDown(const PanelMouseEvent& event) = 0;
    virtual void rightMouseDown(const PanelMouseEvent& event) = 0;
    virtual void mouseEntered() { }
    virtual void mouseExited() { }

    // nullptr while the button is in no panel.
    ButtonPanel* window() const { return _window; }
    void setWindow(ButtonPanel* window) { _window = window; }

protected:
    PanelButton(std::string title, const Rect& frame);
    void setNeedsDisplay();

private:
    ButtonContent _content;
    ButtonPanel* _window = nullptr;
};

} // namespace tarragon
