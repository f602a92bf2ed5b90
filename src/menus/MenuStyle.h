#pragma once

#include <QProxyStyle>

namespace tarragon {

// The desktop's style with what our menus need otherwise: one that is taller than the screen scrolls, the space bar
// chooses, and nothing delays the action of a chosen item.
class MenuStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
        QStyleHintReturn* returnData = nullptr) const override;
};

} // namespace tarragon
