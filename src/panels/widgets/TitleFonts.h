#pragma once

#include "panels/PanelContent.h"

#include <QFont>

namespace tarragon {

// The height that there is for a title, in points: that of the panels that show such buttons.
double roomForTitle(ButtonLook look);

// The font of a button's title: the desktop's menu-bar font at the size and weight asked for. One whose lines are
// higher than a panel is made smaller until they fit, so that no title is cut off.
QFont titleFont(const ButtonContent& button);

// In points of ours, of the desktop's font for the titles of windows.
double desktopTitleBarFontSize();

} // namespace tarragon
