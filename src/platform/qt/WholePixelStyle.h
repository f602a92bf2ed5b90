#pragma once

#include <QProxyStyle>

namespace tarragon {

// The desktop's style with frames of whole pixels. At a fractional scale of the screen a widget begins and ends within
// pixels, and of the frame that Fusion draws around it an edge falls outside the widget or below what it contains.
// Other styles draw as they do.
class WholePixelStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
};

} // namespace tarragon
