#pragma once

#include "panels/Animation.h"
#include "panels/PanelButton.h"
#include "panels/PanelContent.h"
#include "panels/PanelServices.h"
#include "panels/PanelWindow.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// A window of buttons over a background: its place, its alpha, what it shows, and which button the pointer is over or
// presses. Hidden until it is ordered front. Main thread only.
class ButtonPanel : private PanelWindowHandler {
public:
    ~ButtonPanel() override;
    ButtonPanel(const ButtonPanel&) = delete;
    ButtonPanel& operator=(const ButtonPanel&) = delete;

    // The frame in Cocoa space that the panel has, or has at the end of an animation.
    const Rect& frame() const { return _frame; }
    void setFrame(const Rect& frameNS);
    // The size changes bit by bit, from the top-left corner on; at once where nobody sees it.
    void setFrameAnimated(const Rect& frameNS);
    void setFrameOrigin(const Point& originNS);
    // Goes there bit by bit; at once where nobody sees it. arrived is called in the end, but not when another frame or
    // origin comes before.
    void setFrameOriginAnimated(const Point& originNS, const std::function<void()>& arrived);
    void setFrameTopLeftPoint(const Point& pointNS);

    bool isVisible() const { return _visible; }
    void orderFrontRegardless();
    void orderOut();
    // Keeps a panel off the screen that is ordered front all the same.
    void setOutOfSight(bool outOfSight);
    PanelLevel level() const { return _level; }
    void setLevel(PanelLevel level);

    // 0 invisible to 1 opaque.
    double alphaValue() const { return _alpha; }
    virtual void setAlphaValue(double alpha);
    // Whether the panel also fades out when the pointer leaves it. One that does not fade takes no notice.
    virtual void setTempFadeEffect(bool /*fades*/) { }

    void setContentView(const ZDGradientView& contentView);
    void setShowGradient(bool show);
    const std::vector<std::shared_ptr<PanelButton>>& subviews() const { return _subviews; }
    void setSubviews(std::vector<std::shared_ptr<PanelButton>> subviews);
    // From where to where each button reaches in the panel, for the log.
    std::string describeTitles() const;
    // Shows the content as it is now.
    void display();

protected:
    // The services outlive the panel. The title names the window for programs that list windows. Under a frame without
    // a width or a height nothing is on the screen.
    ButtonPanel(const PanelServices& services, const std::string& title, const Rect& contentRectNS,
        const ZDGradientView& contentView);

    const PanelServices& services() const { return _services; }
    std::shared_ptr<PanelButton> buttonAt(const Point& locationInPanel) const;
    // Hands the press to the button below it.
    void mouseDown(const PanelMouseEvent& event) override;
    void rightMouseDown(const PanelMouseEvent& event) override;

private:
    void pointerMoved(const std::optional<Point>& locationInPanel) override;
    // The pointer has come into the panel's frame, or has left it.
    virtual void mouseEntered() { }
    virtual void mouseExited() { }
    void hover(const std::shared_ptr<PanelButton>& button);
    bool isSeen() const;
    void applyFrame();
    void applyVisibility();

    PanelServices _services;
    std::unique_ptr<PanelWindow> _window;
    Rect _frame;
    Size _shownSize;
    Point _shownOffset; // of the window from the frame's place, while it moves
    double _alpha = 1;
    bool _visible = false;
    bool _outOfSight = false;
    PanelLevel _level = PanelLevel::FrontWindow;
    ZDGradientView _contentView;
    std::vector<std::shared_ptr<PanelButton>> _subviews;
    PanelContent _displayed;
    std::shared_ptr<PanelButton> _hovered;
    bool _pointerIsInside = false;
    std::unique_ptr<Animation> _resizing;
    std::unique_ptr<Animation> _moving;
};

} // namespace tarragon
