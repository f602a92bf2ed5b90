#include "platform/linux/windows/WindowKind.h"

namespace tarragon {

WindowKind kindOfWindow(const WindowRelations& relations) {
    if (relations.type == WindowType::Desktop)
        return WindowKind::Desktop;
    if (relations.type == WindowType::Floating)
        return WindowKind::Floating;
    if (relations.modal && relations.transientForWindow)
        return WindowKind::Sheet;
    if (relations.type == WindowType::Dialog)
        return WindowKind::Dialog;
    if (relations.type == WindowType::Unspecified && relations.transient)
        return WindowKind::Dialog;
    return WindowKind::Normal;
}

} // namespace tarragon
