#include "platform/linux/X11WindowKind.h"

namespace tarragon {

X11WindowKind kindOfWindow(const X11WindowRelations& relations) {
    if (relations.type == X11WindowType::Desktop)
        return X11WindowKind::Desktop;
    if (relations.type == X11WindowType::Floating)
        return X11WindowKind::Floating;
    if (relations.modal && relations.transientForWindow)
        return X11WindowKind::Sheet;
    if (relations.type == X11WindowType::Dialog)
        return X11WindowKind::Dialog;
    if (relations.type == X11WindowType::Unspecified && relations.transient)
        return X11WindowKind::Dialog;
    return X11WindowKind::Normal;
}

} // namespace tarragon
