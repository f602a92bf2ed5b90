#pragma once

#include "panels/ButtonPanel.h"

namespace tarragon {

// The window of one screen-top bar. It neither fades nor can be dragged: what the pointer does in it concerns its
// titles alone. Main thread only.
class TarragonSTPanel : public ButtonPanel {
public:
    // The services outlive the panel.
    TarragonSTPanel(const PanelServices& services, const Rect& contentRectNS)
        : ButtonPanel(services, "TarragonSTPanel128", contentRectNS, {}) { }
};

} // namespace tarragon
