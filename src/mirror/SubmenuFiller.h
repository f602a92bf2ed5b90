#pragma once

#include "mirror/Menu.h"
#include "mirror/MenuConverter.h"
#include "platform/Accessibility.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tarragon {

class MenuCache;

// Fills a submenu of the mirror that is about to open, from the application or from the cache. Main thread only.
class SubmenuFiller {
public:
    // accessibility outlives the object.
    SubmenuFiller(Accessibility& accessibility, MenuConverter converter);

    // Replaces the items by those that the application has now.
    void fillFromApplication(Menu& menu);
    // Replaces the items by copies of the cached ones, whose state is read anew unless they are many. The application
    // is touched first; its name is asked for afterwards. The menu is empty when the cache has nothing for it any more.
    void fillFromCache(
        Menu& menu, const MenuCache& cache, const std::function<std::optional<std::string>()>& focusedAppName);

private:
    void copyItems(const Menu& filled, Menu& menu);
    void readStatesAhead(const Menu& menu);
    void refreshState(MenuItem& item);

    Accessibility& _accessibility;
    MenuConverter _converter;
};

} // namespace tarragon
