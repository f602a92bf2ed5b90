#pragma once

#include "panels/PanelContent.h"

#include <vector>

#include <QRect>
#include <QSize>

namespace tarragon {

// Where a button is drawn, in points from the panel's top-left corner, y down.
struct ButtonPlace {
    QRect frame; // as the button has it, each edge at the nearest whole point; may reach beyond the panel
    // What is drawn of it: in the panel, and high enough for a line of the title. As high as the panel in a bar.
    QRect visible;
};

// In a panel of that size. visible is empty when nothing is to be seen of the button.
ButtonPlace placeOf(const ButtonContent& button, const QSize& panelSize);

// What a panel of that size paints: all of it with the background shown, else the buttons. From the top-left corner,
// y down.
std::vector<Rect> paintedRegion(const PanelContent& content, const QSize& panelSize);

} // namespace tarragon
