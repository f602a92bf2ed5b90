#include "prefs/widgets/HelpLine.h"

#include "prefs/widgets/MixedColour.h"

#include <QEvent>
#include <QStyle>

namespace tarragon {

HelpLine::HelpLine(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

bool HelpLine::event(QEvent* event) {
    const bool isHandled = QLabel::event(event);
    switch (event->type()) {
    case QEvent::Polish:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::DynamicPropertyChange:
        dress();
        break;
    default:
        break;
    }
    return isHandled;
}

void HelpLine::dress() {
    if (parentWidget() == nullptr)
        return;
    constexpr double Ink = 0.72;
    const QPalette around = parentWidget()->palette();
    QPalette own = around;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        own.setColor(group, QPalette::WindowText,
            mixedColour(around.color(group, QPalette::WindowText), around.color(group, QPalette::Window), Ink));
    // A change of the palette as well, so that this function is called once more, with nothing left to change.
    setPalette(own);
    const int indent = property("indented").toBool()
        ? style()->pixelMetric(QStyle::PM_IndicatorWidth) + style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing)
        : 0;
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    setContentsMargins(isRightToLeft ? 0 : indent, 0, isRightToLeft ? indent : 0, 0);
}

} // namespace tarragon
