#pragma once

#include "panels/PanelContent.h"
#include "panels/widgets/ButtonPlace.h"

#include <QPainter>
#include <QPalette>

namespace tarragon {

// A title of a screen-top bar.
void paintScreenTopTitle(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette);

} // namespace tarragon
