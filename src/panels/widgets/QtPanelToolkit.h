#pragma once

#include "panels/PanelWindow.h"
#include "panels/widgets/ButtonSizes.h"
#include "platform/Displays.h"

#include <memory>
#include <string>

namespace tarragon {

// Panels as widgets, drawn in the colours and fonts of the desktop's theme. Main thread only, after the application
// object was made.
class QtPanelToolkit : public PanelToolkit {
public:
    // Both outlive the toolkit and its windows. surfaces may be nullptr: the panels are ordinary windows then.
    QtPanelToolkit(Displays& displays, PanelSurfaces* surfaces);

    [[nodiscard]] std::unique_ptr<PanelWindow> makeWindow(
        PanelWindowHandler& handler, const std::string& title) override;
    // Titles wider than half a screen, the narrowest, are measured with an ellipsis.
    [[nodiscard]] Size sizeThatFits(const ButtonContent& content) override;
    [[nodiscard]] double titleBarFontSize(double size) override;

private:
    Displays& _displays;
    PanelSurfaces* _surfaces;
    ButtonSizes _sizes;
};

} // namespace tarragon
