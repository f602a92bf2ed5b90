#include "panels/PanelButton.h"

#include "panels/ButtonPanel.h"

#include <utility>

namespace tarragon {

PanelButton::PanelButton(std::string title, const Rect& frame) {
    _content.title = std::move(title);
    _content.frame = frame;
}

void PanelButton::highlight(bool highlighted) {
    if (std::exchange(_content.highlighted, highlighted) != highlighted)
        setNeedsDisplay();
}

void PanelButton::sizeToFit(PanelToolkit& toolkit) {
    _content.frame.size = toolkit.sizeThatFits(content());
}

void PanelButton::setNeedsDisplay() {
    if (_window)
        _window->display();
}

} // namespace tarragon
