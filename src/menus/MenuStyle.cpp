#include "menus/MenuStyle.h"

#include <algorithm>
#include <cstddef>

namespace tarragon {

int MenuStyle::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_Menu_Scrollable:
    case SH_Menu_SpaceActivatesItem:
        return 1;
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_FadeOutOnHide:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

// Styles keep a picture of every arrow that they draw in a cache of the whole process, under a name that holds the
// identity of the palette. Each menu that opens has a palette of its own, and some styles make another one for each
// highlighted item, so that the cache would fill with pictures that nobody asks for again. Palettes with the same
// colours are therefore given one identity.
QStyleOptionMenuItem MenuStyle::withSharedPalette(const QStyleOptionMenuItem& option) const {
    constexpr std::size_t MostPalettes = 8; // usual, highlighted and disabled, and some more to be sure
    auto found = std::find(_palettes.begin(), _palettes.end(), option.palette);
    if (found == _palettes.end()) {
        if (_palettes.size() == MostPalettes)
            _palettes.clear();
        found = _palettes.insert(_palettes.end(), option.palette);
    }
    QStyleOptionMenuItem shared(option);
    shared.palette = *found;
    shared.palette.setCurrentColorGroup(option.palette.currentColorGroup());
    return shared;
}

void MenuStyle::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const QStyleOptionMenuItem shared = withSharedPalette(*item);
    QProxyStyle::drawControl(element, &shared, painter, widget);
}

void MenuStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QStyleOptionMenuItem shared = withSharedPalette(*item);
    QProxyStyle::drawPrimitive(element, &shared, painter, widget);
}

} // namespace tarragon
