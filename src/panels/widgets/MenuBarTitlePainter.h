#pragma once

#include "panels/PanelContent.h"
#include "panels/widgets/ButtonPlace.h"

#include <QPainter>
#include <QPalette>

namespace tarragon {

// A title as those of a menu bar.
void paintMenuBarTitle(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette);

} // namespace tarragon
