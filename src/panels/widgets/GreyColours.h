#pragma once

#include "panels/rules/ButtonStyle.h"

#include <QColor>
#include <QPalette>

namespace tarragon {

// The greys of a panel in the theme of the desktop. They are given as they are under a light theme; under a dark one
// each is turned round, so that what is dark on bright becomes bright on dark.
class GreyColours {
public:
    // The palette of the theme: dark when its windows are darker than the text in them.
    explicit GreyColours(const QPalette& palette);

    bool isDark() const { return _isDark; }
    QColor color(const Grey& grey) const;
    QColor black() const { return color({0, 1}); }
    QColor white() const { return color({1, 1}); }

private:
    bool _isDark;
};

} // namespace tarragon
