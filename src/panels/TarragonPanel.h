#pragma once

#include "panels/ButtonPanel.h"

#include <memory>

namespace tarragon {

class AppAccessibility;
class TarragonPanelController;

// The floating panel: it fades, it is dragged and takes the window below along. Main thread only.
class TarragonPanel : public ButtonPanel {
public:
    // The services outlive the panel. Under a frame without a width or a height nothing is on the screen.
    TarragonPanel(const PanelServices& services, const Rect& contentRectNS);

    // The panel fades in when the pointer enters it, and may fade out.
    bool fadeEffect() const { return _fadeEffect; }
    void setFadeEffect(bool fades) { _fadeEffect = fades; }
    // The panel also fades out when the pointer leaves it.
    bool tempFadeEffect() const { return _tempFadeEffect; }
    void setTempFadeEffect(bool fades) override { _tempFadeEffect = fades; }
    bool beingDragged() const { return _beingDragged; }
    void setBeingDragged(bool dragged) { _beingDragged = dragged; }
    // The next drag begins with values of its own, as the first one does.
    bool shouldRedoInitials() const { return _shouldRedoInitials; }
    void setShouldRedoInitials(bool redo) { _shouldRedoInitials = redo; }
    bool mouseIsOnWindow() const { return _mouseIsOnWindow; }
    // The menu reader, asked about the window in front; nullptr while there is none.
    void setAppAccess(std::weak_ptr<AppAccessibility> reader) { _appAccess = std::move(reader); }
    // The controller of the titles, which is ended before the panel; nullptr for none.
    void setWindowController(TarragonPanelController* controller) { _windowController = controller; }

    // Ends a fade, during which the alpha is in between.
    void setAlphaValue(double alpha) override;
    // Each works from exactly the other end only, so that a fade under way is neither restarted nor reversed.
    void fadeIntoView();
    void fadeOutOfView();
    // On the way into view: it takes no notice of being faded out.
    bool isFadingIn() const { return _fading && !_fadesOut; }
    // A fade out of view that is under way ends at once.
    void finishFadingOut();

private:
    void mouseDown(const PanelMouseEvent& event) override;
    void mouseDragged(const PanelMouseEvent& event) override;
    void mouseUp(const PanelMouseEvent& event) override;
    void mouseEntered() override;
    void mouseExited() override;
    void recordDragStart(const Point& locationNS);
    void fade(double from, double to);

    std::weak_ptr<AppAccessibility> _appAccess;
    TarragonPanelController* _windowController = nullptr;

    bool _fadeEffect = false;
    bool _tempFadeEffect = false;
    bool _beingDragged = false;
    bool _shouldRedoInitials = true;
    bool _mouseIsOnWindow = false;
    Point _initialLocationOnScreen; // of the drag
    Rect _screenFrame;
    Rect _windowFrame; // when the drag began
    Rect _tempRect; // the last screen frame that was not empty
    bool _pressBeganOnButton = false;

    std::unique_ptr<Animation> _fading;
    bool _fadesOut = false; // the fade under way, or the last one
};

} // namespace tarragon
