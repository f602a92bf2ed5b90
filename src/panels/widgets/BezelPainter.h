#pragma once

#include "panels/PanelContent.h"
#include "panels/widgets/ButtonPlace.h"

#include <QPainter>
#include <QPalette>

namespace tarragon {

// A button with its dress: the border in the colours of the theme's buttons, and the title or the logo in its middle.
void paintBezelButton(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette);

} // namespace tarragon
