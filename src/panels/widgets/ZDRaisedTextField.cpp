#include "panels/widgets/ZDRaisedTextField.h"

#include "panels/widgets/GreyColours.h"

#include <QPainter>
#include <QStyle>

namespace tarragon {

namespace {

constexpr int EdgeHeight = 1;
constexpr Grey LightEdge = {1, 0.55};

} // namespace

ZDRaisedTextField::ZDRaisedTextField(const QString& text, QWidget* parent)
    : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
}

QSize ZDRaisedTextField::sizeHint() const {
    return QLabel::sizeHint() + QSize(0, EdgeHeight);
}

QSize ZDRaisedTextField::minimumSizeHint() const {
    return QLabel::minimumSizeHint() + QSize(0, EdgeHeight);
}

void ZDRaisedTextField::paintEvent(QPaintEvent*) {
    QPalette edge = palette();
    edge.setColor(foregroundRole(), GreyColours(palette()).color(LightEdge));
    const QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin() - EdgeHeight);
    const int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()))
        | (wordWrap() ? Qt::TextWordWrap : 0) | Qt::TextExpandTabs;
    QPainter painter(this);
    style()->drawItemText(&painter, area.translated(0, EdgeHeight), flags, edge, isEnabled(), text(), foregroundRole());
    style()->drawItemText(&painter, area, flags, palette(), isEnabled(), text(), foregroundRole());
}

} // namespace tarragon
