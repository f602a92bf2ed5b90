#pragma once

#include <vector>

#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace tarragon {

// The desktop's style with what our menus need otherwise: one that is taller than the screen scrolls, the space bar
// chooses, and nothing delays the action of a chosen item.
class MenuStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
        QStyleHintReturn* returnData = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;

private:
    QStyleOptionMenuItem withSharedPalette(const QStyleOptionMenuItem& option) const;

    mutable std::vector<QPalette> _palettes; // drawn with lately, no two alike
};

} // namespace tarragon
