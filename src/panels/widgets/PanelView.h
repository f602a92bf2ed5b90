#pragma once

#include "panels/PanelContent.h"
#include "panels/PanelWindow.h"
#include "platform/Displays.h"

#include <memory>
#include <optional>

#include <QWidget>

class QMouseEvent;

namespace tarragon {

// The widget of a panel: draws its content and tells what the mouse does. Never active. Main thread only.
class PanelView : public QWidget {
public:
    PanelView(Displays& displays, PanelWindowHandler& handler);

    // Nobody is told anything any more. The view is hidden, and deleted when no event of it is being handled.
    static void retire(std::unique_ptr<PanelView> view);

    void display(const PanelContent& content);
    // An opaque view paints the colour of the theme's windows where its content is translucent. It is not at the start.
    void setOpaque(bool opaque);
    const PanelContent& content() const { return _content; }
    // A location from the top-left corner, y down, or nothing when the pointer has left.
    void tellPointer(const std::optional<Point>& location);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    PanelMouseEvent mouseEvent(const QMouseEvent& event) const;

    Displays& _displays;
    PanelWindowHandler* _handler; // nullptr for a retired view
    PanelContent _content;
    bool _opaque = false;
    std::optional<PanelMouseEvent> _dragStart; // until the pointer moves with the button down
    int _eventsBeingHandled = 0;
};

} // namespace tarragon
