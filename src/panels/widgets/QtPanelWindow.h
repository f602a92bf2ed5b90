#pragma once

#include "panels/PanelWindow.h"
#include "panels/widgets/PanelView.h"

#include <memory>

namespace tarragon {

// A panel as a widget without a border, which the desktop's surface keeps in its place among the windows. May be
// destroyed by its handler at any time. Main thread only.
class QtPanelWindow : public PanelWindow {
public:
    // surfaces may be nullptr, or refuse the window: it is an ordinary window then, which takes every click in its
    // frame and does not tell where the pointer is.
    QtPanelWindow(Displays& displays, PanelSurfaces* surfaces, PanelWindowHandler& handler);
    ~QtPanelWindow() override;
    QtPanelWindow(const QtPanelWindow&) = delete;
    QtPanelWindow& operator=(const QtPanelWindow&) = delete;

    void setFrame(const Rect& frameNS) override;
    void orderFront() override;
    void orderOut() override;
    void setAlpha(double alpha) override;
    void setLevel(PanelLevel level) override;
    void display(const PanelContent& content) override;

    QWidget& widget() { return *_view; }

private:
    void updateClickableRegion();
    void updateOpacity();
    void applyLevel();

    Displays& _displays;
    std::unique_ptr<PanelView> _view;
    std::unique_ptr<PanelSurface> _surface;
    PanelLevel _level = PanelLevel::FrontWindow;
    PanelLevel _appliedLevel = PanelLevel::FrontWindow;
    std::vector<Rect> _clickableRegion;
};

} // namespace tarragon
