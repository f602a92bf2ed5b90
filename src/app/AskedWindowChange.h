#pragma once

#include "panels/rules/PanelPlacement.h"
#include "platform/Element.h"
#include "platform/Geometry.h"

namespace tarragon {

// What the window in front was last asked to become. Windows need not do as they are told: some have a fixed size, some
// are held where they are by the window manager, and all take their time. A window that stays as it is was asked once;
// it is asked again as soon as it has changed, or is to become something else.
class AskedWindowChange {
public:
    // To be called with every look at the window in front, also when nothing is to change. Answers what the window is
    // to be asked for now; nothing of that when it was asked before, or is so already. frameCG is the window's own.
    [[nodiscard]] WindowChange toAskFor(const Element& window, const Rect& frameCG, const WindowChange& change);

private:
    Element _window; // nil when nothing was asked
    Rect _frameCG; // of the window when it was asked
    WindowChange _change;
};

} // namespace tarragon
