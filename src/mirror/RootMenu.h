#pragma once

#include "mirror/Menu.h"
#include "mirror/MenuConverter.h"
#include "mirror/ReaderOptions.h"
#include "platform/Accessibility.h"

#include <functional>
#include <memory>
#include <vector>

namespace tarragon {

// The mirror's root menu, rebuilt in place: it is the same menu all the time. Main thread only.
class RootMenu {
public:
    // The delegate outlives the object.
    explicit RootMenu(MenuDelegate* delegate);
    RootMenu(const RootMenu&) = delete;
    RootMenu& operator=(const RootMenu&) = delete;
    // Empties the menu and takes the delegate out of it: others may keep it.
    ~RootMenu();

    const std::shared_ptr<Menu>& menu() const { return _menu; }

    void removeAllItems() { _menu->removeAllItems(); }
    // Fills the empty menu with the titles of a menu bar, as the options say. Answers the items that should be cached;
    // they have their final titles, and some may have left the menu again.
    [[nodiscard]] std::vector<std::shared_ptr<MenuItem>> rebuild(MenuConverter converter, const Element& menuBar,
        const ReaderOptions& options, const std::function<bool(const MenuItem&)>& shouldBeCached);
    // Adds what the menu has only while it is open: our own menu, or nullptr for none.
    void complete(const ReaderOptions& options, const std::shared_ptr<Menu>& auxiliaryMenu);

private:
    void removeApplicationMenus();
    void showAppleMenuOrRemoveIt(bool show);

    std::shared_ptr<Menu> _menu;
};

} // namespace tarragon
