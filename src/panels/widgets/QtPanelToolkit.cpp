#include "panels/widgets/QtPanelToolkit.h"

#include "panels/widgets/ButtonMetrics.h"
#include "panels/widgets/QtPanelWindow.h"
#include "panels/widgets/TitleFonts.h"

#include <algorithm>
#include <limits>

namespace tarragon {

namespace {

double halfTheNarrowestScreen(const std::vector<Screen>& screens) {
    double half = std::numeric_limits<double>::infinity();
    for (const Screen& screen : screens)
        half = std::min(half, screen.frameNS.size.width / 2);
    return half;
}

} // namespace

QtPanelToolkit::QtPanelToolkit(Displays& displays, PanelSurfaces* surfaces)
    : _displays(displays)
    , _surfaces(surfaces)
    , _sizes(buttonSizeThatFits) { }

std::unique_ptr<PanelWindow> QtPanelToolkit::makeWindow(PanelWindowHandler& handler, const std::string& title) {
    auto window = std::make_unique<QtPanelWindow>(_displays, _surfaces, handler);
    window->widget().setWindowTitle(QString::fromStdString(title));
    return window;
}

Size QtPanelToolkit::sizeThatFits(const ButtonContent& content) {
    return _sizes.sizeThatFits(content, halfTheNarrowestScreen(_displays.screens()));
}

double QtPanelToolkit::titleBarFontSize(double size) {
    return size > 0 ? size : desktopTitleBarFontSize();
}

} // namespace tarragon
