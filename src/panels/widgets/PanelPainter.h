#pragma once

#include "panels/PanelContent.h"

#include <QPainter>
#include <QPalette>
#include <QSize>

namespace tarragon {

// Draws a panel of that size, in points, with its background and its buttons, in the colours of the theme. What it does
// not paint stays as it is.
void paintPanel(QPainter& painter, const PanelContent& content, const QSize& size, const QPalette& palette);

// The background alone.
void paintBackground(QPainter& painter, const ZDGradientView& background, const QSize& size, const QPalette& palette);

} // namespace tarragon
