#pragma once

#include "panels/PanelContent.h"

#include <string>

#include <QImage>
#include <QPainter>
#include <QPalette>

namespace tarragon {

// A contact sheet: pictures of panels below each other, each with its name.
class Sheet {
public:
    // size is in points.
    Sheet(const QSize& size, double scale, const QPalette& palette);

    void add(const std::string& name, const PanelContent& content, const QSize& size, double alpha = 1);
    // What comes next stands beside what there is.
    void beginColumn(int width);
    // Draws the pictures that come next over stripes, for panels that are translucent.
    void setStriped(bool striped) { _striped = striped; }
    [[nodiscard]] bool save(const QString& file);

private:
    void drawStripes(const QRect& rect);

    QImage _image;
    QPainter _painter;
    QPalette _palette;
    bool _striped = false;
    int _left = 8;
    int _top = 8;
};

} // namespace tarragon
