#pragma once

#include "mirror/FillingThreads.h"
#include "mirror/Menu.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tarragon {

// The converted top-level menus of each application, filled in the background so that a menu that opens need not be
// read then.
//
// An application's entry is a root menu titled with its name. Its items are copies of the mirrored top-level items,
// each with its filled menu in the item's menu slot. A filled menu is never changed again once it can be found here, so
// that the main thread may copy from it while fillings go on.
//
// The cache lock is held for the whole of a filling and of a probe, so that fillings follow one another and a probe
// waits for the one that is under way. A look-up does not take it: between a probe and a look-up a filling may replace
// the application's root, and the look-up then finds nothing.
//
// A filling runs on a thread of its own; everything else belongs to the main thread.
class MenuCache {
public:
    using FillMenu = std::function<void(Menu&)>;

    explicit MenuCache(std::unique_ptr<FillingThreads> threads);
    MenuCache(const MenuCache&) = delete;
    MenuCache& operator=(const MenuCache&) = delete;
    // Waits for the filling that is under way. Those behind it end without filling anything.
    ~MenuCache();

    // Starts a thread that converts the submenu of a top-level item. appName is not nullptr. item is a copy that
    // belongs to the cache from now on; fillMenu converts the real items, on the thread. The menus that the
    // application has here are kept only when its entry was made with the very same name object: an equal name starts
    // the entry afresh. Does nothing when the entry has an item of the title already. A menu that the application
    // did not tell is kept as an empty one, until a filling starts the entry afresh.
    void cacheMenuForMenuItem(Menu::SharedTitle appName, std::shared_ptr<MenuItem> item, FillMenu fillMenu);

    // The name of the application in front; nothing when there is none.
    using FocusedAppName = std::function<std::optional<std::string>()>;

    // Whether the application in front has an item for the submenu. Waits for the filling that is under way, and asks
    // for the name then; answers at once, and asks for nothing, when nothing was ever cached.
    bool cacheExistsForMenu(const FocusedAppName& focusedAppName, const Menu& menu);

    // The filled menu of the item with that title, or nullptr.
    std::shared_ptr<const Menu> filledMenu(const std::string& appName, const std::string& itemTitle) const;

    // Forgets the application.
    void clearCacheForAppKey(const std::string& appName);

private:
    struct Entry {
        Menu::SharedTitle name;
        std::shared_ptr<Menu> root;
    };
    using Cache = std::map<std::string, Entry>;

    void fill(const Menu::SharedTitle& appName, std::shared_ptr<MenuItem> item, const FillMenu& fillMenu);
    void createCache();
    std::shared_ptr<Menu> rootForFilling(const Menu::SharedTitle& appName);
    std::shared_ptr<Menu> rootOf(const std::string& appName) const;

    std::mutex _cacheLock;
    // Guards the entries and the item lists of their roots, for the moment of each access.
    mutable std::mutex _guard;
    std::optional<Cache> _cache; // made by the first filling
    std::atomic<bool> _closing = false;
    std::unique_ptr<FillingThreads> _threads;
};

} // namespace tarragon
