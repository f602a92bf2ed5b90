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

// An application's picture in its own colours, in a selected row too: tinted with the selection's colour, a picture of
// that colour would disappear.
class UntintedIcon : public QIconEngine {
public:
    explicit UntintedIcon(QIcon icon)
        : _icon(std::move(icon)) { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        _icon.paint(painter, rect, Qt::AlignCenter, untinted(mode), state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return _icon.pixmap(size, 1, untinted(mode), state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        return _icon.pixmap(size / scale, scale, untinted(mode), state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return _icon.availableSizes(mode, state);
    }
    QIconEngine* clone() const override { return new UntintedIcon(_icon); }

private:
    static QIcon::Mode untinted(QIcon::Mode mode) { return mode == QIcon::Selected ? QIcon::Normal : mode; }

    QIcon _icon;
};

QIcon loadedIcon(const QString& name) {
    QIcon icon;
    if (name.startsWith('/'))
        icon = QIcon(name);
    else if (!name.isEmpty())
        icon = QIcon::fromTheme(name);
    return icon.availableSizes().isEmpty() ? QIcon(new AnyApplicationIcon()) : QIcon(new UntintedIcon(icon));
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
