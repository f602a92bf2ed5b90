#pragma once

#include "AppFixture.h"

#include "panels/TarragonPanel.h"
#include "panels/rules/PanelFade.h"

#include <gmock/gmock.h>

namespace tarragon {

// The screen has 1440 by 900 points; the window's top-left corner is at (100, 200), its width is 900.
class FloatingPanelTest : public AppTest {
protected:
    FakePanelToolkit::Window& window() { return panelToolkit.latest(); }
    TarragonPanel& panel() { return *controller().tarragonPanel(); }
    void settle() { fake.runLoop.advance(0.3); }
    void tick() { fake.runLoop.advance(0.45); }
    void launchAndSettle() {
        launch();
        settle();
    }
    void moveWindow(const Rect& frameCG) {
        fake.accessibility.setAttribute(inbox, "AXPosition", frameCG.origin);
        fake.accessibility.setAttribute(inbox, "AXSize", frameCG.size);
    }
    Rect panelFrame() { return panelToolkit.latest().frameNS; }
    // The panel's left edge and top edge, measured from the top of the screen as windows are.
    Point panelTopLeftCG() {
        const Rect frame = panelFrame();
        return {frame.origin.x, 900 - frame.origin.y - frame.size.height};
    }
};

// Likewise with the single button.
class VerticalPanelTest : public FloatingPanelTest {
protected:
    VerticalPanelTest() { set(preference::Horizontal, false); }
};

} // namespace tarragon
