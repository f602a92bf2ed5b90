#pragma once

#include <memory>

namespace tarragon {

class Menu;

// Whoever owns a panel carries out what its buttons are for. Main thread only. A panel may be dropped meanwhile.
class TarragonPanelOwner {
public:
    virtual ~TarragonPanelOwner() = default;
    // Opens the mirrored menu below the panel.
    virtual void popUpMenu() = 0;
    // Opens the menu that offers to leave the window in front alone.
    virtual void popUpIgnoreMenu() = 0;
    // The same menu, not opened.
    virtual std::shared_ptr<Menu> contextMenu() = 0;
};

} // namespace tarragon
