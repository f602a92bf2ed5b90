#pragma once

#include "panels/Animation.h"
#include "panels/PanelButton.h"
#include "panels/PanelContent.h"
#include "panels/PanelServices.h"
#include "panels/PanelWindow.h"

#include <memory>
#include <optional>
#include <vector>

namespace tarragon {

class AppAccessibility;
class TarragonPanelController;

// The floating panel: its place, its alpha, its buttons, and what the pointer does to it. It fades, it is dragged and
// takes the window below along. Hidden until it is ordered front. Main thread only.
class TarragonPanel : private PanelWindowHandler {
public:
    // The services outlive the panel. Under a frame without a width or a height nothing is on the screen.
    TarragonPanel(const PanelServices& services, const Rect& contentRectNS);
    ~TarragonPanel() override;
    TarragonPanel(const TarragonPanel&) = delete;
    TarragonPanel& operator=(const TarragonPanel&) = delete;

    // The panel fades in when the pointer enters it, and may fade out.
    bool fadeEffect() const { return _fadeEffect; }
    void setFadeEffect(bool fades) { _fadeEffect = fades; }
    // The panel also fades out when the pointer leaves it.
    bool tempFadeEffect() const { return _tempFadeEffect; }
    void setTempFadeEffect(bool fades) { _tempFadeEffect = fades; }
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

    // The frame in Cocoa space that the panel has, or has at the end of an animation.
    const Rect& frame() const { return _frame; }
    void setFrame(const Rect& frameNS);
    // The size changes bit by bit, from the top-left corner on; at once where nobody sees it.
    void setFrameAnimated(const Rect& frameNS);
    void setFrameOrigin(const Point& originNS);
    void setFrameTopLeftPoint(const Point& pointNS);

    bool isVisible() const { return _visible; }
    void orderFrontRegardless();
    void orderOut();
    void setLevel(PanelLevel level);

    // 0 invisible to 1 opaque; in between during a fade.
    double alphaValue() const { return _alpha; }
    // Ends a fade.
    void setAlphaValue(double alpha);
    // Each works from exactly the other end only, so that a fade under way is neither restarted nor reversed.
    void fadeIntoView();
    void fadeOutOfView();
    // On the way into view: it takes no notice of being faded out.
    bool isFadingIn() const { return _fading && !_fadesOut; }
    // A fade out of view that is under way ends at once.
    void finishFadingOut();

    void setShowGradient(bool show);
    const std::vector<std::shared_ptr<PanelButton>>& subviews() const { return _subviews; }
    void setSubviews(std::vector<std::shared_ptr<PanelButton>> subviews);
    // Shows the content as it is now.
    void display();

private:
    void mouseDown(const PanelMouseEvent& event) override;
    void mouseDragged(const PanelMouseEvent& event) override;
    void mouseUp(const PanelMouseEvent& event) override;
    void rightMouseDown(const PanelMouseEvent& event) override;
    void pointerMoved(const std::optional<Point>& locationInPanel) override;

    void mouseEntered();
    void mouseExited();
    void hover(const std::shared_ptr<PanelButton>& button);
    std::shared_ptr<PanelButton> buttonAt(const Point& locationInPanel) const;
    void recordDragStart(const Point& locationNS);
    void fade(double from, double to);
    void applyFrame();
    void applyVisibility();

    PanelServices _services;
    std::unique_ptr<PanelWindow> _window;
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

    Rect _frame;
    Size _shownSize;
    double _alpha = 1;
    bool _visible = false;
    ZDGradientView _contentView;
    std::vector<std::shared_ptr<PanelButton>> _subviews;
    PanelContent _displayed;
    std::shared_ptr<PanelButton> _hovered;
    bool _pressBeganOnButton = false;
    bool _pointerIsInside = false;
    std::unique_ptr<Animation> _resizing;
    std::unique_ptr<Animation> _fading;
    bool _fadesOut = false; // the fade under way, or the last one
};

} // namespace tarragon
