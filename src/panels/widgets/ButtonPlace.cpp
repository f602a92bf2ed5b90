#include "panels/widgets/ButtonPlace.h"

#include "panels/widgets/PanelGeometry.h"
#include "panels/widgets/TitleLine.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

namespace {

Rect toRect(const QRect& rect) {
    return {{double(rect.x()), double(rect.y())}, {double(rect.width()), double(rect.height())}};
}

// The same part of the panel, as high as the title, as far as the panel is.
QRect highEnoughFor(const ButtonContent& button, const QRect& visible, const QRect& panel) {
    const int needed = static_cast<int>(std::ceil(TitleLine(button).height()));
    const int missing = std::min(needed, panel.height()) - visible.height();
    if (missing <= 0)
        return visible;
    const int top = std::clamp(visible.top() - missing / 2, 0, panel.height() - visible.height() - missing);
    return {visible.left(), top, visible.width(), visible.height() + missing};
}

} // namespace

ButtonPlace placeOf(const ButtonContent& button, const QSize& panelSize) {
    const QRect panel(QPoint(0, 0), panelSize);
    const QRect frame = frameInWidget(button.frame, panelSize.height());
    const QRect visible = frame.intersected(panel);
    if (visible.isEmpty())
        return {frame, visible};
    // Titles of a bar are in line with each other, wherever their buttons are.
    if (button.look == ButtonLook::ScreenTopBar)
        return {frame, QRect(visible.left(), 0, visible.width(), panel.height())};
    if (button.title == LogoTitle)
        return {frame, visible};
    return {frame, highEnoughFor(button, visible, panel)};
}

std::vector<Rect> paintedRegion(const PanelContent& content, const QSize& panelSize) {
    if (content.background.showGradient)
        return {toRect(QRect(QPoint(0, 0), panelSize))};
    std::vector<Rect> region;
    for (const ButtonContent& button : content.buttons) {
        const QRect visible = placeOf(button, panelSize).visible;
        if (!visible.isEmpty())
            region.push_back(toRect(visible));
    }
    return region;
}

} // namespace tarragon
