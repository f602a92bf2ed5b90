#include "menus/MenuStyle.h"

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

} // namespace tarragon
