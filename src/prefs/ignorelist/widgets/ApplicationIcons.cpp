#include "prefs/ignorelist/widgets/ApplicationIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace tarragon {

namespace {

// A window with a title bar, in the colours of the theme and at any size.
class AnyApplicationIcon : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QPalette::ColorRole ink = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        const qreal unit = qMin(rect.width(), rect.height()) / 16.0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.center() + QPointF(0.5, 0.5));
        painter->scale(unit, unit);
        painter->setOpacity(0.65);
        painter->setPen(QPen(palette.color(group, ink), 1.2));
        painter->drawRoundedRect(QRectF(-6.5, -5.5, 13, 11), 1.5, 1.5);
        painter->fillRect(QRectF(-6, -5, 12, 2.6), palette.color(group, ink));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new AnyApplicationIcon(); }
};

QIcon loadedIcon(const QString& name) {
    QIcon icon;
    if (name.startsWith('/'))
        icon = QIcon(name);
    else if (!name.isEmpty())
        icon = QIcon::fromTheme(name);
    return icon.availableSizes().isEmpty() ? QIcon(new AnyApplicationIcon()) : icon;
}

} // namespace

QIcon ApplicationIcons::iconOfBundle(const std::string& bundleIdentifier) {
    if (!_areNamesKnown && _applications) {
        for (const ApplicationBundle& bundle : _applications->installedApplications())
            _names.insert(QString::fromStdString(bundle.bundleIdentifier), bundle.icon);
    }
    _areNamesKnown = true;
    return icon(_names.value(QString::fromStdString(bundleIdentifier)));
}

QIcon ApplicationIcons::icon(const std::string& name) {
    const QString key = QString::fromStdString(name);
    auto found = _icons.find(key);
    if (found == _icons.end())
        found = _icons.insert(key, loadedIcon(key));
    return *found;
}

void ApplicationIcons::forget() {
    _areNamesKnown = false;
    _names.clear();
    _icons.clear();
}

} // namespace tarragon
